// Starters of programs.
#include "platform/posix/DesktopEntry.h"

#include <algorithm>
#include <cstddef>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/KeyFile.h"
#include "platform/posix/SmallFiles.h"

namespace pixorra {

namespace {

constexpr std::string_view group = "Desktop Entry";

std::string InFolder(const std::string& folder, std::string_view name) {
  std::string path = folder;
  path += '/';
  path += name;
  return path;
}

std::vector<std::string> StarterFolders(const Environment& environment) {
  std::vector<std::string> folders{environment.DataHome + "/applications"};
  for (const std::string& data : environment.DataDirs) folders.push_back(data + "/applications");
  return folders;
}

// Blanks part arguments; double quotes keep them together, and in them a backslash takes the next character as it is.
std::vector<std::string> SplitCommandLine(std::string_view command) {
  std::vector<std::string> arguments;
  bool open = false;
  bool quoted = false;
  for (std::size_t i = 0; i < command.size(); ++i) {
    const char c = command[i];
    if (!quoted && (c == ' ' || c == '\t')) {
      open = false;
      continue;
    }
    if (!open) arguments.emplace_back();
    open = true;
    if (c == '"')
      quoted = !quoted;
    else if (quoted && c == '\\' && i + 1 < command.size())
      arguments.back() += command[++i];
    else
      arguments.back() += c;
  }
  return quoted ? std::vector<std::string>() : arguments;
}

std::string AsAddress(const std::string& target) {
  if (!target.starts_with('/')) return target;
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string address = "file://";
  for (const char c : target) {
    const auto byte = static_cast<unsigned char>(c);
    const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                       std::string_view("-._~/").find(c) != std::string_view::npos;
    if (plain) {
      address += c;
      continue;
    }
    address += '%';
    address += digits[byte / 16U];
    address += digits[byte % 16U];
  }
  return address;
}

// What one field code stands for; `taken` becomes true where the target stood in it.
std::string FieldText(const DesktopEntry& entry, char code, const std::string& target, bool& taken) {
  switch (code) {
    case 'f':
    case 'F':
      taken = true;
      return target;
    case 'u':
    case 'U':
      taken = true;
      return AsAddress(target);
    case 'c':
      return entry.Name;
    case 'k':
      return entry.File;
    case '%':
      return "%";
    default:
      return {};
  }
}

std::string Filled(const DesktopEntry& entry, const std::string& argument, const std::string& target, bool& taken) {
  std::string text;
  for (std::size_t i = 0; i < argument.size(); ++i) {
    if (argument[i] == '%' && i + 1 < argument.size())
      text += FieldText(entry, argument[++i], target, taken);
    else
      text += argument[i];
  }
  return text;
}

}  // namespace

std::optional<std::string> FindProgram(const std::string& name, const Environment& environment) {
  const auto runs = [](const std::string& path) {
    struct stat entry {};
    return stat(path.c_str(), &entry) == 0 && S_ISREG(entry.st_mode) && access(path.c_str(), X_OK) == 0;
  };
  if (name.starts_with('/')) return runs(name) ? std::optional(name) : std::nullopt;
  if (name.empty() || name.find('/') != std::string::npos) return std::nullopt;
  for (const std::string& folder : environment.Path) {
    std::string path = InFolder(folder, name);
    if (runs(path)) return path;
  }
  return std::nullopt;
}

std::optional<DesktopEntry> ReadDesktopEntry(const std::string& file, const Environment& environment) {
  const std::optional<std::string> text = ReadSmallFile(file);
  if (!text) return std::nullopt;
  const KeyFile keys(*text);
  if (keys.Value(group, "Type") != "Application" || keys.Value(group, "Hidden") == "true") return std::nullopt;
  const std::string needed = keys.Value(group, "TryExec");
  if (!needed.empty() && !FindProgram(needed, environment)) return std::nullopt;
  DesktopEntry entry;
  entry.File = file;
  entry.Name = keys.LocalValue(group, "Name", environment.Language);
  entry.Description = keys.LocalValue(group, "Comment", environment.Language);
  if (entry.Description.empty()) entry.Description = keys.LocalValue(group, "GenericName", environment.Language);
  entry.Exec = keys.Value(group, "Exec");
  entry.Icon = keys.Value(group, "Icon");
  entry.WorkingFolder = keys.Value(group, "Path");
  entry.InTerminal = keys.Value(group, "Terminal") == "true";
  const std::vector<std::string> command = SplitCommandLine(entry.Exec);
  if (command.empty() || !FindProgram(command[0], environment)) return std::nullopt;
  return entry;
}

std::optional<DesktopEntry> FindDesktopEntry(const std::string& id, const Environment& environment) {
  // Dashes become slashes below, and no entry may lead out of its folder.
  const bool leadsOut = id.find('/') != std::string::npos || id.find("..") != std::string::npos;
  if (leadsOut || !id.ends_with(".desktop")) return std::nullopt;
  for (const std::string& folder : StarterFolders(environment)) {
    std::string name = id;
    for (;;) {
      const std::string file = InFolder(folder, name);
      // An entry that is there but marked as deleted hides those of the folders behind.
      if (access(file.c_str(), F_OK) == 0) return ReadDesktopEntry(file, environment);
      // A dash may stand for the border of a folder.
      const std::size_t dash = name.find('-');
      if (dash == std::string::npos) break;
      name[dash] = '/';
    }
  }
  return std::nullopt;
}

std::optional<DesktopEntry> FindEntryOfProgram(const std::string& programName, const Environment& environment) {
  for (const std::string& folder : StarterFolders(environment)) {
    const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder.c_str()), closedir);
    if (!open) continue;
    std::vector<std::string> names;
    while (const dirent* entry = readdir(open.get())) names.emplace_back(static_cast<const char*>(entry->d_name));
    std::sort(names.begin(), names.end());
    for (const std::string& name : names) {
      if (!name.ends_with(".desktop")) continue;
      std::optional<DesktopEntry> entry = ReadDesktopEntry(InFolder(folder, name), environment);
      if (!entry) continue;
      const std::string program = SplitCommandLine(entry->Exec)[0];
      if (program.substr(program.rfind('/') + 1) == programName) return entry;
    }
  }
  return std::nullopt;
}

std::vector<std::string> ArgumentsFor(const DesktopEntry& entry, const std::string& target) {
  std::vector<std::string> arguments;
  bool taken = false;
  for (const std::string& argument : SplitCommandLine(entry.Exec)) {
    if (argument == "%i") {
      if (!entry.Icon.empty()) arguments.insert(arguments.end(), {"--icon", entry.Icon});
      continue;
    }
    std::string filled = Filled(entry, argument, target, taken);
    // A field code that stands for nothing leaves no empty argument.
    if (!filled.empty() || !argument.starts_with('%')) arguments.push_back(std::move(filled));
  }
  if (!taken && !arguments.empty()) arguments.push_back(target);
  return arguments;
}

}  // namespace pixorra
