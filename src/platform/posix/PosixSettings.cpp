#include "platform/posix/PosixSettings.h"

#include <optional>
#include <string_view>
#include <unistd.h>

#include "platform/posix/GlibPointers.h"
#include "platform/posix/SmallFiles.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

// Any name as one that a group or a key can have: small letters, all but plain characters as percent and two digits, an
// empty one as percent alone.
std::string FileName(std::string_view name) {
  if (name.empty()) return "%";
  return LCase(PercentEncoded(name, [](char c) {
    const bool beyondAscii = static_cast<unsigned char>(c) >= 0x80;
    return beyondAscii || IsAsciiLetterOrDigit(c) || c == '-' || c == '_';
  }));
}

std::string GroupName(const std::string& application, const std::string& section) {
  return FileName(application) + '/' + FileName(section);
}

// Null where the text is no file of settings.
GlibKeyFile ParsedSettings(const std::string& text) {
  GlibKeyFile settings(g_key_file_new());
  const bool parsed =
      g_key_file_load_from_data(settings.get(), text.c_str(), text.size(), G_KEY_FILE_KEEP_COMMENTS, nullptr) != FALSE;
  return parsed || text.empty() ? std::move(settings) : nullptr;
}

}  // namespace

std::string PosixSettings::GetSetting(const std::string& application, const std::string& section,
                                      const std::string& key, const std::string& otherwise) {
  const GlibKeyFile settings = ParsedSettings(ReadSmallFile(file_).value_or(""));
  if (!settings) return otherwise;
  const GlibText text(
      g_key_file_get_string(settings.get(), GroupName(application, section).c_str(), FileName(key).c_str(), nullptr));
  return text ? text.get() : otherwise;
}

void PosixSettings::SaveSetting(const std::string& application, const std::string& section, const std::string& key,
                                const std::string& text) {
  const std::optional<std::string> old = ReadSmallFile(file_);
  const GlibKeyFile settings = ParsedSettings(old.value_or(""));
  // What is there but cannot be read must not be lost.
  if (!settings || (!old && access(file_.c_str(), F_OK) == 0)) throw RuntimeError(error::PathAccess);
  if (!MakeFolders(file_.substr(0, file_.rfind('/')))) throw RuntimeError(error::PathAccess);
  g_key_file_set_string(settings.get(), GroupName(application, section).c_str(), FileName(key).c_str(), text.c_str());
  const GlibText all(g_key_file_to_data(settings.get(), nullptr, nullptr));
  WriteSmallFile(file_, all.get());
}

}  // namespace pixorra
