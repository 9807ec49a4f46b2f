#include "app/StartOptions.h"

#include <cstddef>
#include <optional>
#include <string_view>

#include "platform/runtime/OneLine.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

constexpr std::string_view FileScheme = "file:";
constexpr std::string_view ShareScheme = "smb://";

// Of the host, in bytes.
constexpr std::size_t LongestPath = 4095;

StartOptions Misuse(const std::string& problem) {
  return {.What = StartOptions::Wish::Misuse, .Problem = problem};
}

StartOptions NotHere(std::string_view address) {
  return Misuse("not an address of a file here: " + OneLine(address));
}

std::optional<int> HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return std::nullopt;
}

// Nothing for a NUL and for what is no number after a percent sign.
std::optional<std::string> WithoutPercents(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      plain += text[i];
      continue;
    }
    if (i + 2 >= text.size()) return std::nullopt;
    const std::optional<int> high = HexDigit(text[i + 1]);
    const std::optional<int> low = HexDigit(text[i + 2]);
    if (!high || !low || *high + *low == 0) return std::nullopt;
    plain += static_cast<char>(*high * 16 + *low);
    i += 2;
  }
  return plain;
}

// file:///home/anna, file://localhost/home/anna and file:/home/anna. Nothing for another host's.
std::optional<std::string> PathOfAddress(std::string_view address) {
  address.remove_prefix(FileScheme.size());
  if (address.starts_with("//")) {
    address.remove_prefix(2);
    constexpr std::string_view Here = "localhost";
    if (EqualIgnoringCase(address.substr(0, Here.size()), Here)) address.remove_prefix(Here.size());
  }
  if (!address.starts_with('/')) return std::nullopt;
  return WithoutPercents(address.substr(0, address.find_first_of("?#")));
}

bool BeginsWith(std::string_view text, std::string_view scheme) {
  return EqualIgnoringCase(text.substr(0, scheme.size()), scheme);
}

// Such as https://example.org.
bool IsAddress(std::string_view text) {
  const std::size_t end = text.find("://");
  if (end == std::string_view::npos || end == 0) return false;
  return text.substr(0, end).find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+-.") ==
         std::string_view::npos;
}

// A drive's or a server's, in the program's own spelling.
bool IsProgramPath(std::string_view path) {
  return path.starts_with("\\\\") || (path.size() >= 2 && path[1] == ':' && (path.size() == 2 || path[2] == '\\'));
}

StartOptions StartWith(const std::string& argument, const std::string& workingFolder) {
  if (argument.empty()) return Misuse("the folder has no name");
  StartOptions options;
  if (BeginsWith(argument, FileScheme)) {
    const std::optional<std::string> path = PathOfAddress(argument);
    if (!path) return NotHere(argument);
    options.Path = *path;
  } else if (BeginsWith(argument, ShareScheme)) {
    options.Path = std::string(ShareScheme) + argument.substr(ShareScheme.size());
  } else if (IsAddress(argument)) {
    return NotHere(argument);
  } else if (argument.starts_with('/') || IsProgramPath(argument)) {
    options.Path = argument;
  } else {
    options.Path = workingFolder + (workingFolder.ends_with('/') ? "" : "/") + argument;
  }
  if (options.Path.size() > LongestPath) return Misuse("the path is too long");
  return options;
}

}  // namespace

const char* const StartUsage =
    "Usage: pixorra [FOLDER | PHOTO]\n"
    "\n"
    "Sorts the photos of a camera, or of any folder, into folders.\n"
    "\n"
    "  FOLDER      becomes the film strip\n"
    "  PHOTO       its folder becomes the film strip, and the photo is selected\n"
    "  --          what follows is a name, also where it begins with a dash\n"
    "  --help      show this text\n"
    "  --version   show the version\n"
    "\n"
    "Where Pixorra runs already, its window comes to the front and takes the folder.\n";

StartOptions ReadStartOptions(const std::vector<std::string>& arguments, const std::string& workingFolder) {
  using Wish = StartOptions::Wish;
  Wish wish = Wish::Start;
  std::optional<std::string> path;
  bool named = false;  // after "--"
  for (const std::string& argument : arguments) {
    const bool isOption = !named && argument.size() > 1 && argument.starts_with('-');
    if (isOption && argument == "--") {
      named = true;
      continue;
    }
    if (isOption && (argument == "--help" || argument == "--version")) {
      if (wish == Wish::Start) wish = argument == "--help" ? Wish::Help : Wish::Version;
      continue;
    }
    if (isOption) return Misuse("unknown option: " + OneLine(argument));
    if (path) return Misuse("more than one folder: " + OneLine(argument));
    path = argument;
  }
  const StartOptions options = path ? StartWith(*path, workingFolder) : StartOptions{};
  if (wish == Wish::Start || options.What == Wish::Misuse) return options;
  return {.What = wish};
}

}  // namespace pixorra
