#include "browse/CardFolders.h"

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "base/PictureTypes.h"
#include "base/Routines.h"
#include "browse/FindFolder.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"

namespace pixorra {

namespace {

FolderQuestion AnyPhotoIn(const std::string& folder) {
  return [folder](FolderReader& reader, FolderReader::Handler then) {
    return reader.FindFile(folder, AllPictures, std::move(then));
  };
}

FolderQuestion FolderAt(const std::string& path) {
  return [path](FolderReader& reader, FolderReader::Handler then) { return reader.FindFolder(path, std::move(then)); };
}

FolderQuestion FoldersIn(const std::string& folder) {
  return [folder](FolderReader& reader, FolderReader::Handler then) {
    return reader.Read(folder, attribute::Normal, std::move(then));
  };
}

bool IsKnown(const std::optional<FolderReader::Answer>& answer) {
  return answer && answer->Error == error::None;
}

bool HasNames(const std::optional<FolderReader::Answer>& answer) {
  return IsKnown(answer) && !answer->Names.empty();
}

// The folders in `dcim` that have photos, or may have some, in their order; not all of them where there are more than
// `most`.
std::vector<std::string> WithPhotos(Host& host, const std::string& dcim, const std::vector<std::string>& names,
                                    std::size_t most) {
  std::vector<FolderQuestion> questions;
  for (const std::string& name : names) questions.push_back(AnyPhotoIn(JoinPath(dcim, name)));
  std::size_t count = 0;
  const auto answers = AskFolders(host, questions, [&](const FolderReader::Answer& answer) {
    if (!answer.Names.empty()) ++count;
    return count > most;
  });
  std::vector<std::string> folders;
  for (std::size_t i = 0; i < names.size(); ++i)
    if (HasNames(answers[i]) || !IsKnown(answers[i])) folders.push_back(JoinPath(dcim, names[i]));
  return folders;
}

}  // namespace

PhotosOfCard FindPhotosOfCard(Host& host, const std::string& folder) {
  const auto root = AskFolders(host, {AnyPhotoIn(folder), FolderAt(JoinPath(folder, "DCIM"))});
  if (HasNames(root[0]) || !IsKnown(root[1])) return {folder};
  const std::string& dcim = root[1]->Path;
  const auto inside = AskFolders(host, {AnyPhotoIn(dcim), FoldersIn(dcim)});
  if (!IsKnown(inside[0]) || !IsKnown(inside[1])) return {dcim, true};
  std::vector<std::string> found;
  if (HasNames(inside[0])) found.push_back(dcim);
  const auto below = WithPhotos(host, dcim, inside[1]->Names, 1 - found.size());
  found.insert(found.end(), below.begin(), below.end());
  if (found.empty()) return {folder};
  if (found.size() > 1) return {dcim, true};
  return {found.front()};
}

}  // namespace pixorra
