// What the desktop offers beside files: programs registered for a type, starting them, its web browser, and its own
// windows for the screen saver and for what it knows of the machine.
#pragma once

#include <string>

namespace pixorra {

class Shell {
 public:
  virtual ~Shell() = default;
  // The path of the program registered for a file, empty where there is none. Raises FileNotFound where the file is
  // missing, PathNotFound where its folder is.
  virtual std::string FindExecutable(const std::string& path) = 0;
  // What a program says of itself. A field that its record does not have is "?"; all are empty where it has no record.
  struct VersionInfo {
    std::string CompanyName{};
    std::string FileDescription{};
    std::string FileVersion{};
    std::string InternalName{};
    std::string LegalCopyright{};
    std::string OriginalFileName{};
    std::string ProductName{};
    std::string ProductVersion{};
  };
  virtual VersionInfo ReadVersionInfo(const std::string& program) = 0;
  // Opens a document or a web address in the program registered for it. Raises nothing, whether it opens or not.
  virtual void Open(const std::string& target, const std::string& workingFolder) = 0;
  // Starts a program and returns at once; it runs on when this program ends. The program's path is the longest start of
  // `command`, up to a blank or the end, that is a file; the rest, blanks and all, is its argument line. Raises
  // FileNotFound where there is no such program, its folder missing or not.
  virtual void Run(const std::string& command) = 0;
  // Lets `path` name the program `name` that was installed with this one, so that it can be run by that path. What has
  // the name already stays, except a link that leads to no program any more. Raises nothing, whether it succeeds or
  // not.
  virtual void OfferProgram(const std::string& path, const std::string& name) = 0;
  // The first page of the manual that was installed with this program; empty where there is none.
  virtual std::string FindManual() = 0;
  // Each opens the desktop's own window; false where the desktop has none that is known here.
  virtual bool OpenScreenSaverSettings() = 0;
  virtual bool OpenSystemInformation() = 0;
};

}  // namespace pixorra
