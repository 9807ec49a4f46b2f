#include "platform/posix/FolderVerb.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "platform/posix/GlibPointers.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

constexpr std::string_view folderMark = "%L";

// "pixorra-slideshow-by-pixorra"
std::string Stem(std::string_view name) {
  std::string stem = "pixorra-";
  for (const char c : LCase(name)) stem += (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ? c : '-';
  return stem;
}

// In double quotes, with a backslash before each character that would mean something there, and percent signs doubled.
std::string DesktopQuoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (std::string_view("\"`$\\").find(c) != std::string_view::npos) quoted += '\\';
    if (c == '%') quoted += '%';
    quoted += c;
  }
  return quoted + '"';
}

bool IsPlain(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '/' ||
           c == ':';
  });
}

// The text as it is where that is safe, an empty one too.
std::string DesktopPart(std::string_view text) {
  return IsPlain(text) ? std::string(text) : DesktopQuoted(text);
}

std::string DesktopCommand(const std::string& program, const std::vector<std::string>& arguments,
                           std::string_view folderCode) {
  std::string command = DesktopQuoted(program);
  for (const std::string& argument : arguments) {
    command += ' ';
    const std::size_t mark = argument.find(folderMark);
    if (mark == std::string::npos) {
      command += argument.empty() ? DesktopQuoted(argument) : DesktopPart(argument);
      continue;
    }
    // A field code must not be in quotes.
    command += DesktopPart(std::string_view(argument).substr(0, mark));
    command += folderCode;
    command += DesktopPart(std::string_view(argument).substr(mark + folderMark.size()));
  }
  return command;
}

std::string ShellQuoted(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + '\'';
}

// `argument` in a shell's command, with that in the place of the mark.
std::string ShellPart(const std::string& argument, std::string_view folder) {
  const std::size_t mark = argument.find(folderMark);
  if (mark == std::string::npos) return ShellQuoted(argument);
  return ShellQuoted(argument.substr(0, mark)) + std::string(folder) +
         ShellQuoted(argument.substr(mark + folderMark.size()));
}

// The file managers leave the paths of what is selected in a variable, a line end after each: their arguments are names
// without a folder, and do not survive a percent sign. Of several folders the first is shown, of a photo its folder, of
// nothing the folder on show.
constexpr const char* findFolder = R"(end='
'
chosen=$NAUTILUS_SCRIPT_SELECTED_FILE_PATHS
[ -n "$chosen" ] || chosen=$CAJA_SCRIPT_SELECTED_FILE_PATHS
chosen=${chosen%"$end"}
[ -n "$chosen" ] || chosen=$1
[ -e "$chosen" ] || chosen=${chosen%%"$end"*}
case $chosen in
  /*) folder=$chosen ;;
  *) folder=$PWD${chosen:+/}$chosen ;;
esac
[ -d "$folder" ] || folder=${folder%/*}/
)";

std::string Script(const std::string& program, const std::vector<std::string>& arguments) {
  std::string command = "exec " + ShellQuoted(program);
  for (const std::string& argument : arguments) command += ' ' + ShellPart(argument, "\"$folder\"");
  return std::string("#!/bin/sh\n# ") + VerbMark + '\n' + findFolder + command + '\n';
}

// For menus that have no limit to one folder: the shell is given all that are marked, and hands on the first of them.
std::string FirstFolderCommand(const std::string& program, const std::vector<std::string>& arguments) {
  std::string command = "exec \"$0\"";
  for (const std::string& argument : arguments) command += ' ' + ShellPart(argument, "\"$1\"");
  return "/bin/sh -c " + DesktopQuoted(command) + ' ' + DesktopQuoted(program) + " %F";
}

struct Line {
  const char* Group;
  const char* Key;
  std::string Value;
};

std::string MarkedKeyFile(const std::vector<Line>& lines) {
  const GlibKeyFile keys(g_key_file_new());
  for (const Line& line : lines) g_key_file_set_string(keys.get(), line.Group, line.Key, line.Value.c_str());
  const GlibText text(g_key_file_to_data(keys.get(), nullptr, nullptr));
  return std::string("# ") + VerbMark + '\n' + text.get();
}

constexpr std::string_view hiddenLine = "\nHidden=true\n";

}  // namespace

// Without a type and kinds of files it is refused where the key is not known.
std::string HidingText() {
  return std::string("# ") + VerbMark + "\n[Desktop Entry]" + std::string(hiddenLine);
}

bool IsHidingText(std::string_view text) {
  return text.find(hiddenLine) != std::string_view::npos;
}

std::vector<VerbFile> FilesOfFolderVerb(const std::string& name, const std::string& program,
                                        const std::vector<std::string>& arguments) {
  const std::string stem = Stem(name);
  const std::string serviceMenu = MarkedKeyFile({
      {"Desktop Entry", "Type", "Service"},
      {"Desktop Entry", "X-KDE-ServiceTypes", "KonqPopupMenu/Plugin"},
      {"Desktop Entry", "X-KDE-Priority", "TopLevel"},
      {"Desktop Entry", "MimeType", "inode/directory;"},
      {"Desktop Entry", "X-KDE-RequiredNumberOfUrls", "1"},
      {"Desktop Entry", "X-KDE-MaxNumberOfUrls", "1"},
      {"Desktop Entry", "Actions", "play;"},
      {"Desktop Action play", "Name", name},
      {"Desktop Action play", "Icon", "pixorra"},
      {"Desktop Action play", "Exec", DesktopCommand(program, arguments, "%f")},
  });
  const std::string action = MarkedKeyFile({
      {"Desktop Entry", "Type", "Action"},
      {"Desktop Entry", "Name", name},
      {"Desktop Entry", "Icon", "pixorra"},
      {"Desktop Entry", "Profiles", "folder;"},
      {"X-Action-Profile folder", "MimeTypes", "inode/directory;"},
      {"X-Action-Profile folder", "SelectionCount", "=1"},
      {"X-Action-Profile folder", "Exec", DesktopCommand(program, arguments, "%f")},
  });
  const std::string nemo = MarkedKeyFile({
      {"Nemo Action", "Name", name},
      {"Nemo Action", "Icon-Name", "pixorra"},
      {"Nemo Action", "Exec", DesktopCommand(program, arguments, "%F")},
      {"Nemo Action", "Selection", "S"},
      {"Nemo Action", "Extensions", "dir;"},
      {"Nemo Action", "Quote", "double"},
  });

  const std::string starter = MarkedKeyFile({
      {"Desktop Entry", "Type", "Application"},
      {"Desktop Entry", "Name", name},
      {"Desktop Entry", "Icon", "pixorra"},
      {"Desktop Entry", "Exec", FirstFolderCommand(program, arguments)},
      {"Desktop Entry", "MimeType", "inode/directory;"},
  });

  std::string scriptName = name;
  std::replace(scriptName.begin(), scriptName.end(), '/', '-');
  const std::string script = Script(program, arguments);
  constexpr VerbFile::Home data = VerbFile::Home::Data;
  // The service menu must be executable, or it is not trusted.
  return {{data, "kio/servicemenus/" + stem + ".desktop", serviceMenu, true, true},
          {data, "file-manager/actions/" + stem + ".desktop", action},
          {data, "nemo/actions/" + stem + ".nemo_action", nemo},
          {data, "Thunar/sendto/" + stem + ".desktop", starter, false, true},
          {data, "nautilus/scripts/" + scriptName, script, true},
          {VerbFile::Home::Configuration, "caja/scripts/" + scriptName, script, true}};
}

}  // namespace pixorra
