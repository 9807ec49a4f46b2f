#include "slideshow/CommandLine.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <string_view>

namespace pixorra {

namespace {

constexpr std::string_view Marker = " /S :SS ";
constexpr int UsualSeconds = 3;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string Joined(const std::vector<std::string>& arguments) {
  std::string line;
  for (const std::string& argument : arguments) line += (&argument == &arguments.front() ? "" : " ") + argument;
  return line;
}

// Exactly two digits are taken: a folder may begin with one itself.
Request ShowOf(std::string_view text) {
  Request request{.What = Request::Wish::Show};
  if (text.size() >= 2 && IsDigit(text[0]) && IsDigit(text[1])) {
    request.Seconds = SecondsOf(text[0]);
    request.Title = text[1] == '1';
    text.remove_prefix(2);
  }
  request.Folder = text;
  return request;
}

// A window's number as X programs write it: decimal, or hexadecimal after 0x.
std::optional<std::uint64_t> WindowNumber(std::string_view text) {
  const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
  if (hexadecimal) text.remove_prefix(2);
  std::uint64_t number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number, hexadecimal ? 16 : 10);
  if (failure != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

Request Misuse(const std::string& problem) {
  return {.What = Request::Wish::Misuse, .Problem = problem};
}

// One dash is as good as two: daemons write either. Empty for what is no option.
std::string_view OptionName(std::string_view argument) {
  if (!argument.starts_with('-')) return {};
  argument.remove_prefix(argument.starts_with("--") ? 2 : 1);
  return argument.substr(0, argument.find('='));
}

Request SaverOf(const std::vector<std::string>& arguments, const std::string& saverWindow) {
  Request request;
  request.HostWindow = WindowNumber(saverWindow).value_or(0);
  std::optional<std::string> unknown;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    const std::string_view name = OptionName(argument);
    if (name == "help" || name == "h") return {.What = Request::Wish::Help};
    if (name == "version") return {.What = Request::Wish::Version};
    if (name == "root") continue;
    if (name != "window-id") {
      if (!unknown) unknown = argument;
      continue;
    }
    const std::size_t mark = argument.find('=');
    std::string_view value;
    if (mark != std::string_view::npos) {
      value = argument.substr(mark + 1);
    } else if (i + 1 < arguments.size()) {
      value = arguments[++i];
    }
    const std::optional<std::uint64_t> window = WindowNumber(value);
    if (!window) return Misuse("--window-id needs the number of a window");
    request.HostWindow = *window;
  }
  // A daemon's window is drawn in, whatever else a daemon says: an end is taken for a crash there.
  if (unknown && request.HostWindow == 0) return Misuse("unknown option: " + *unknown);
  return request;
}

}  // namespace

const char* const UsageText =
    "Usage: pixorra-slideshow FOLDER\n"
    "       pixorra-slideshow SPEED TITLE FOLDER, all without blanks: 21/home/anna/Photos\n"
    "       pixorra-slideshow [--root | --window-id NUMBER]\n"
    "\n"
    "Shows the photos of a folder on the whole screen, one after the other, until a key or\n"
    "a mouse button is pressed or the mouse is moved.\n"
    "\n"
    "  SPEED          one digit: the seconds that a photo stands\n"
    "  TITLE          1: with its name and a counter, 0: without\n"
    "  FOLDER         write a name that begins with two digits as ./NAME\n"
    "\n"
    "Without a folder it is a screen saver: it shows the folder that was chosen in Pixorra\n"
    "by \"Slide Show\" > \"Use as ScreenSaver\".\n"
    "\n"
    "  --root         in the window that XSCREENSAVER_WINDOW names, or in one of its own\n"
    "  --window-id    in this window\n"
    "  --help         show this text\n"
    "  --version      show the version\n";

int SecondsOf(char digit) {
  return IsDigit(digit) ? std::max(1, digit - '0') : UsualSeconds;
}

Request ReadCommandLine(const std::vector<std::string>& arguments, const std::string& saverWindow) {
  const std::string line = Joined(arguments);
  if ((' ' + line).starts_with(Marker)) return ShowOf(std::string_view(line).substr(Marker.size() - 1));
  if (arguments.empty() || line.starts_with('-')) return SaverOf(arguments, saverWindow);
  return ShowOf(line);
}

std::string FromRoot(const std::string& folder, const std::string& workingFolder) {
  const bool isProgramPath = folder.starts_with("\\\\") ||
                             (folder.size() >= 2 && folder[1] == ':' && (folder.size() == 2 || folder[2] == '\\'));
  if (folder.empty() || folder.starts_with('/') || folder.starts_with("smb://") || isProgramPath) return folder;
  return workingFolder + (workingFolder.ends_with('/') ? "" : "/") + folder;
}

}  // namespace pixorra
