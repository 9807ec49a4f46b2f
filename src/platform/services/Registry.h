// Keys that the system's file shell reads, and the per-user settings that the companion program shares.
#pragma once

#include <cstdint>
#include <string>

namespace pixorra {

namespace registry {
inline constexpr std::uint32_t ClassesRoot = 0x80000000U;
inline constexpr std::uint32_t LocalMachine = 0x80000002U;
}  // namespace registry

class Registry {
 public:
  virtual ~Registry() = default;
  virtual bool KeyExists(std::uint32_t root, const std::string& key) = 0;
  // Makes the key where it is missing. The results of both are not told.
  virtual void SetKeyValue(std::uint32_t root, const std::string& key, const std::string& valueName,
                           const std::string& text) = 0;
  virtual void DeleteKey(std::uint32_t root, const std::string& key) = 0;
};

class Settings {
 public:
  virtual ~Settings() = default;
  virtual std::string GetSetting(const std::string& application, const std::string& section, const std::string& key,
                                 const std::string& otherwise) = 0;
  virtual void SaveSetting(const std::string& application, const std::string& section, const std::string& key,
                           const std::string& text) = 0;
};

}  // namespace pixorra
