// Keys kept in memory.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/services/Registry.h"

namespace pixorra {

class HeadlessRegistry : public Registry {
 public:
  bool KeyExists(std::uint32_t root, const std::string& key) override;
  void SetKeyValue(std::uint32_t root, const std::string& key, const std::string& valueName,
                   const std::string& text) override;
  void DeleteKey(std::uint32_t root, const std::string& key) override;

  // Empty where there is none.
  std::string Value(std::uint32_t root, const std::string& key, const std::string& valueName) const;

 private:
  // Of the key itself or one below it; the end of the map where there is neither. Keys end in a backslash here, so that
  // those below a key come right after it.
  using Keys = std::map<std::pair<std::uint32_t, std::string>, std::map<std::string, std::string>>;
  Keys::iterator FirstWithin(std::uint32_t root, const std::string& key);
  Keys keys_;
};

}  // namespace pixorra
