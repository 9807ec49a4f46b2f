#include "desktop/DelTreeModule.h"

#include <algorithm>
#include <vector>

#include "base/Routines.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"

namespace pixorra {

namespace {

std::int32_t CountNames(Files& files, const std::string& path, int attributes) {
  const std::vector<std::string> names = files.CompleteNames(StripTrailingBackslash(path), "*.*", attributes);
  const auto caches = std::count(names.begin(), names.end(), "Thumbnails.tmp");
  return static_cast<std::int32_t>(static_cast<std::ptrdiff_t>(names.size()) - caches);
}

// With the attribute of folders, files are listed too.
FolderContents Count(Files& files, const std::string& path, int attributes) {
  const std::int32_t plain = CountNames(files, path, attributes);
  return {plain, CountNames(files, path, attributes | attribute::Directory) - plain};
}

}  // namespace

bool DeleteTree(Files& files, const std::string& path, const FolderIdentity& meant) {
  return ErrorsIgnored([&] { files.RemoveTree(path, meant); }) == error::None;
}

std::int32_t TotalFilesRemaining(Files& files, const std::string& path) {
  return OrElse(FolderContents(), [&] { return Count(files, path, attribute::Normal); }).Files;
}

std::int32_t TotalDirectoriesRemaining(Files& files, const std::string& path) {
  return OrElse(FolderContents(), [&] { return Count(files, path, attribute::Normal); }).Folders;
}

FolderContents ContentsToLose(Files& files, const std::string& path) {
  return Count(files, path, attribute::Hidden | attribute::System);
}

}  // namespace pixorra
