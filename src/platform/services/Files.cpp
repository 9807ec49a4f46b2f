// What files and folders are, told by their attributes.
#include "platform/services/Files.h"

namespace pixorra {

bool Files::FileExists(const std::string& path) {
  const std::optional<int> attributes = Attributes(path);
  return attributes && (*attributes & (attribute::Directory | attribute::System)) == 0;
}

bool Files::FolderExists(const std::string& path) {
  const std::optional<int> attributes = Attributes(path);
  return attributes && (*attributes & attribute::Directory) != 0;
}

}  // namespace pixorra
