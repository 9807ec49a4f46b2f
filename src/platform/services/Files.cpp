// What is made of other operations of the files.
#include "platform/services/Files.h"

#include <algorithm>

namespace pixorra {

namespace {

constexpr std::int64_t LargestBlock = 256 * 1024;

}  // namespace

std::int64_t File::CopyBlocks(File& source, std::int64_t offset, std::int64_t count) {
  const auto block = static_cast<std::size_t>(std::clamp<std::int64_t>(count - offset, 0, LargestBlock));
  const auto bytes = std::make_unique_for_overwrite<std::uint8_t[]>(block);
  while (offset < count) {
    const auto wanted = static_cast<std::size_t>(std::min<std::int64_t>(count - offset, LargestBlock));
    const std::size_t read = source.ReadAt(offset, bytes.get(), wanted);
    if (read != 0) WriteAt(offset, bytes.get(), read);
    offset += static_cast<std::int64_t>(read);
    if (read < wanted) break;
  }
  return offset;
}

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

FileStamp Files::StampOf(const std::string& path) {
  return Open(path, OpenMode::Read)->Stamp();
}

}  // namespace pixorra
