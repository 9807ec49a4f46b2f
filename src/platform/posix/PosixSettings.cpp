// The file of settings.
#include "platform/posix/PosixSettings.h"

#include <optional>
#include <string_view>
#include <unistd.h>

#include "platform/posix/KeyFile.h"
#include "platform/posix/SmallFiles.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

// Any name as one that a group or a key can have: small letters, all but plain characters as percent and two digits.
std::string FileName(std::string_view name) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (const char c : LCase(name)) {
    const auto byte = static_cast<unsigned char>(c);
    const bool plain = byte >= 0x80 || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
    if (plain) {
      text += c;
      continue;
    }
    text += '%';
    text += digits[byte / 16U];
    text += digits[byte % 16U];
  }
  return text;
}

std::string GroupName(const std::string& application, const std::string& section) {
  return FileName(application) + '/' + FileName(section);
}

}  // namespace

std::string PosixSettings::GetSetting(const std::string& application, const std::string& section,
                                      const std::string& key, const std::string& otherwise) {
  const KeyFile settings(ReadSmallFile(file_).value_or(""));
  const std::string group = GroupName(application, section);
  return settings.RawValue(group, FileName(key)) ? settings.Value(group, FileName(key)) : otherwise;
}

void PosixSettings::SaveSetting(const std::string& application, const std::string& section, const std::string& key,
                                const std::string& text) {
  const std::optional<std::string> old = ReadSmallFile(file_);
  // What is there but cannot be read must not be lost.
  if (!old && access(file_.c_str(), F_OK) == 0) throw RuntimeError(error::PathAccess);
  if (!MakeFolders(file_.substr(0, file_.rfind('/')))) throw RuntimeError(error::PathAccess);
  KeyFile settings(old.value_or(""));
  settings.SetValue(GroupName(application, section), FileName(key), text);
  WriteSmallFile(file_, settings.Text());
}

}  // namespace pixorra
