// Files that make a command of a folder's menu.
#include "platform/posix/FolderVerb.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "platform/posix/KeyFile.h"
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

// In double quotes, where a backslash goes before those characters that would mean something there; a percent sign is
// written twice.
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
    // A field code must not stand in quotes.
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

std::string Script(const std::string& program, const std::vector<std::string>& arguments) {
  std::string command = "exec " + ShellQuoted(program);
  for (const std::string& argument : arguments) {
    const std::size_t mark = argument.find(folderMark);
    command += ' ' + ShellQuoted(argument.substr(0, mark));
    // Without a selection the file manager means the folder that it shows.
    if (mark != std::string::npos) command += "\"${1:-$PWD}\"" + ShellQuoted(argument.substr(mark + folderMark.size()));
  }
  return std::string("#!/bin/sh\n# ") + VerbMark + '\n' + command + '\n';
}

std::string Marked(const KeyFile& keys) {
  return std::string("# ") + VerbMark + '\n' + keys.Text();
}

}  // namespace

std::vector<VerbFile> FilesOfFolderVerb(const std::string& name, const std::string& program,
                                        const std::vector<std::string>& arguments) {
  const std::string stem = Stem(name);
  KeyFile serviceMenu;
  serviceMenu.SetValue("Desktop Entry", "Type", "Service");
  serviceMenu.SetValue("Desktop Entry", "X-KDE-ServiceTypes", "KonqPopupMenu/Plugin");
  serviceMenu.SetValue("Desktop Entry", "MimeType", "inode/directory;");
  serviceMenu.SetValue("Desktop Entry", "Actions", "play;");
  serviceMenu.SetValue("Desktop Action play", "Name", name);
  serviceMenu.SetValue("Desktop Action play", "Icon", "pixorra");
  serviceMenu.SetValue("Desktop Action play", "Exec", DesktopCommand(program, arguments, "%f"));

  KeyFile action;
  action.SetValue("Desktop Entry", "Type", "Action");
  action.SetValue("Desktop Entry", "Name", name);
  action.SetValue("Desktop Entry", "Icon", "pixorra");
  action.SetValue("Desktop Entry", "Profiles", "folder;");
  action.SetValue("X-Action-Profile folder", "MimeTypes", "inode/directory;");
  action.SetValue("X-Action-Profile folder", "Exec", DesktopCommand(program, arguments, "%f"));

  KeyFile nemo;
  nemo.SetValue("Nemo Action", "Name", name);
  nemo.SetValue("Nemo Action", "Icon-Name", "pixorra");
  nemo.SetValue("Nemo Action", "Exec", DesktopCommand(program, arguments, "%F"));
  nemo.SetValue("Nemo Action", "Selection", "S");
  nemo.SetValue("Nemo Action", "Extensions", "dir;");
  nemo.SetValue("Nemo Action", "Quote", "double");

  std::string scriptName = name;
  std::replace(scriptName.begin(), scriptName.end(), '/', '-');
  // The service menu must be executable, or it is not trusted.
  return {{"kio/servicemenus/" + stem + ".desktop", Marked(serviceMenu), true},
          {"file-manager/actions/" + stem + ".desktop", Marked(action), false},
          {"nemo/actions/" + stem + ".nemo_action", Marked(nemo), false},
          {"nautilus/scripts/" + scriptName, Script(program, arguments), true}};
}

}  // namespace pixorra
