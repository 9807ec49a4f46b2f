// Keys that the system's file shell reads: commands in the menu of every folder.
#pragma once

#include <cstdint>
#include <string>

namespace pixorra {

namespace registry {
inline constexpr std::uint32_t ClassesRoot = 0x80000000U;
inline constexpr std::uint32_t LocalMachine = 0x80000002U;
}  // namespace registry

// A key is names with backslashes between them; letter case does not count. A key exists when one below it does. A host
// may keep no others than "Folder\Shell\<verb>\Command" under the classes root.
class Registry {
 public:
  virtual ~Registry() = default;
  virtual bool KeyExists(std::uint32_t root, const std::string& key) = 0;
  // Makes the key where it is missing; an empty `valueName` is the key's default value. Raises nothing, whether it
  // succeeds or not, and neither does DeleteKey.
  virtual void SetKeyValue(std::uint32_t root, const std::string& key, const std::string& valueName,
                           const std::string& text) = 0;
  // With the keys below it. A key above it that was never set itself then exists only by its other keys.
  virtual void DeleteKey(std::uint32_t root, const std::string& key) = 0;
};

}  // namespace pixorra
