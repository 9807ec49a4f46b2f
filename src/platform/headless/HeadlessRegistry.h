// Keys and settings kept in memory.
#pragma once

#include <map>
#include <string>
#include <tuple>
#include <utility>

#include "platform/services/Registry.h"

namespace pixorra {

class HeadlessRegistry : public Registry {
 public:
  bool KeyExists(std::uint32_t root, const std::string& key) override { return keys_.count({root, key}) > 0; }
  void SetKeyValue(std::uint32_t root, const std::string& key, const std::string& valueName,
                   const std::string& text) override {
    keys_[{root, key}][valueName] = text;
  }
  void DeleteKey(std::uint32_t root, const std::string& key) override { keys_.erase({root, key}); }

  // Empty where there is none.
  std::string Value(std::uint32_t root, const std::string& key, const std::string& valueName) const {
    const auto found = keys_.find({root, key});
    if (found == keys_.end()) return {};
    const auto value = found->second.find(valueName);
    return value != found->second.end() ? value->second : std::string();
  }

 private:
  std::map<std::pair<std::uint32_t, std::string>, std::map<std::string, std::string>> keys_;
};

class HeadlessSettings : public Settings {
 public:
  std::string GetSetting(const std::string& application, const std::string& section, const std::string& key,
                         const std::string& otherwise) override {
    const auto found = texts_.find({application, section, key});
    return found != texts_.end() ? found->second : otherwise;
  }
  void SaveSetting(const std::string& application, const std::string& section, const std::string& key,
                   const std::string& text) override {
    texts_[{application, section, key}] = text;
  }

 private:
  std::map<std::tuple<std::string, std::string, std::string>, std::string> texts_;
};

}  // namespace pixorra
