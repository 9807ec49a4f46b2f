// What is made of other operations of the files.
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

std::unique_ptr<File> Files::OpenOfLength(const std::string& path, std::int64_t length) {
  return Length(path) == length ? Open(path, OpenMode::Read) : nullptr;
}

}  // namespace pixorra
