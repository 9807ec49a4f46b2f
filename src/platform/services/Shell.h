// What the desktop offers beside files: programs registered for a type, starting them, and its web browser.
#pragma once

#include <string>

namespace pixorra {

class Shell {
 public:
  virtual ~Shell() = default;
  // The program registered for a file, empty where none is. Raises 53 and 76 where the file or its folder is missing.
  virtual std::string FindExecutable(const std::string& path) = 0;
  // What a program calls itself, for a menu: its product name and its description, either may be empty.
  struct VersionInfo {
    std::string ProductName;
    std::string FileDescription;
  };
  virtual VersionInfo ReadVersionInfo(const std::string& program) = 0;
  // Opens a document or a web address in the program registered for it. Its failure is not told.
  virtual void Open(const std::string& target, const std::string& workingFolder) = 0;
  // Starts a program by its command line and returns at once. Raises 53 where it cannot be found.
  virtual void Run(const std::string& command) = 0;
};

}  // namespace pixorra
