// What the program is asked for when it is started: nothing, or one folder or photo.
#pragma once

#include <string>
#include <vector>

namespace pixorra {

struct StartOptions {
  enum class Wish {
    Start,
    Help,     // and end
    Version,  // and end
    Misuse,   // say what is wrong, and end
  };
  Wish What = Wish::Start;
  // The folder or photo, from the root on: a host path, a path of the program's, or the address of a share. Empty:
  // none.
  std::string Path{};
  std::string Problem{};  // one line
};

// `arguments` without the program's name; `workingFolder` is a host path. A path may be written as a "file:" address.
StartOptions ReadStartOptions(const std::vector<std::string>& arguments, const std::string& workingFolder);

// The answer to --help.
extern const char* const StartUsage;

}  // namespace pixorra
