// What the program is asked for when it is started. There are three ways:
//
//   /S :SS 31C:\Photos        by Pixorra: the marker, a digit for the seconds, a digit for the title, the folder
//   21/home/anna/Photos       by a folder's menu: the same without the marker; the digits may be left out
//   -root, --window-id 0x1A   by a screen saver: no folder, which the settings have
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pixorra {

struct Request {
  enum class Wish {
    Show,     // of a folder
    Saver,    // of the folder in the settings
    Help,     // and end
    Version,  // and end
    Misuse,   // say what is wrong, and end
  };
  Wish What = Wish::Saver;
  std::string Folder{};  // as it was written, possibly empty
  int Seconds = 3;       // that a photo is on show
  bool Title = true;     // shown, with the counter
  // The window of a screen saver to draw in; 0 for a window of its own.
  std::uint64_t HostWindow = 0;
  std::string Problem{};
};

// The seconds that a photo is on show, by the digit of the speed; 3 for what is no digit.
int SecondsOf(char digit);

// `arguments` without the program's name; a blank was between each two of them. `saverWindow` is what a screen saver's
// daemon has left in the environment, possibly empty.
Request ReadCommandLine(const std::vector<std::string>& arguments, const std::string& saverWindow);

// A folder as it was written, from the root on: a path of either spelling stays as it is, any other begins in the
// working folder, which is a host path.
std::string FromRoot(const std::string& folder, const std::string& workingFolder);

// The answer to --help.
extern const char* const UsageText;

}  // namespace pixorra
