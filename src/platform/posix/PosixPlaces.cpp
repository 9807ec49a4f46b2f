// Places by the base directories.
#include "platform/posix/PosixPlaces.h"

#include <sys/stat.h>
#include <utility>

#include "platform/posix/SmallFiles.h"
#include "platform/posix/UserFolders.h"

namespace pixorra {

PosixPlaces::PosixPlaces(Environment environment, std::shared_ptr<MappingSource> mapping)
    : environment_(std::move(environment)), mapping_(std::move(mapping)) {}

std::string PosixPlaces::ProgramFolder() {
  return Own(environment_.DataHome);
}

std::string PosixPlaces::WindowsFolder() {
  return Own(environment_.ConfigHome);
}

std::string PosixPlaces::TemporaryFolder() {
  return Own(environment_.CacheHome);
}

std::string PosixPlaces::SpecialFolder(int number) {
  switch (number) {
    case 0:
    case 16:
      return ListedFolder("DESKTOP", "Desktop");
    case 2:
    case 11:
      return Program(environment_.DataHome + "/applications");
    case 3:
      return Program(environment_.Home);
    case 5:
      return ListedFolder("DOCUMENTS", "Documents");
    case 6:
      return Program(environment_.ConfigHome + "/gtk-3.0");
    case 8:
      return Program(environment_.DataHome);
    case 39:
      return ListedFolder("PICTURES", "Pictures");
    default:
      return {};
  }
}

std::string PosixPlaces::Own(const std::string& base) {
  const std::string folder = base + "/pixorra";
  static_cast<void>(MakeFolders(folder));
  return Program(folder);
}

std::string PosixPlaces::ListedFolder(const char* name, const char* usual) {
  const std::string list = ReadSmallFile(environment_.ConfigHome + "/user-dirs.dirs").value_or("");
  if (const std::optional<std::string> folder = UserFolder(list, name, environment_.Home)) return Program(*folder);
  const std::string folder = (environment_.Home == "/" ? "" : environment_.Home) + '/' + usual;
  struct stat entry {};
  const bool isThere = stat(folder.c_str(), &entry) == 0 && S_ISDIR(entry.st_mode);
  return Program(isThere ? folder : environment_.Home);
}

std::string PosixPlaces::Program(const std::string& hostPath) {
  return mapping_->Current().ToProgram(hostPath).value_or("");
}

}  // namespace pixorra
