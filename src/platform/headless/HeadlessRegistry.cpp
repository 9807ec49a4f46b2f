#include "platform/headless/HeadlessRegistry.h"

#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

std::string Folded(const std::string& key) {
  return LCase(key) + '\\';
}

// An empty name is no name: neither the empty key nor "a\\b" is a key.
bool IsKey(const std::string& key) {
  return !key.empty() && key.front() != '\\' && key.back() != '\\' && key.find("\\\\") == std::string::npos;
}

}  // namespace

HeadlessRegistry::Keys::iterator HeadlessRegistry::FirstWithin(std::uint32_t root, const std::string& key) {
  if (!IsKey(key)) return keys_.end();
  const std::string start = Folded(key);
  const auto found = keys_.lower_bound({root, start});
  return found != keys_.end() && found->first.first == root && found->first.second.starts_with(start) ? found
                                                                                                      : keys_.end();
}

bool HeadlessRegistry::KeyExists(std::uint32_t root, const std::string& key) {
  return FirstWithin(root, key) != keys_.end();
}

void HeadlessRegistry::SetKeyValue(std::uint32_t root, const std::string& key, const std::string& valueName,
                                   const std::string& text) {
  if (IsKey(key)) keys_[{root, Folded(key)}][LCase(valueName)] = text;
}

void HeadlessRegistry::DeleteKey(std::uint32_t root, const std::string& key) {
  for (auto found = FirstWithin(root, key); found != keys_.end(); found = FirstWithin(root, key)) keys_.erase(found);
}

std::string HeadlessRegistry::Value(std::uint32_t root, const std::string& key, const std::string& valueName) const {
  const auto found = keys_.find({root, Folded(key)});
  if (found == keys_.end()) return {};
  const auto value = found->second.find(LCase(valueName));
  return value != found->second.end() ? value->second : std::string();
}

}  // namespace pixorra
