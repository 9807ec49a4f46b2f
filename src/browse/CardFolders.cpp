#include "browse/CardFolders.h"

#include <vector>

#include "base/PictureTypes.h"
#include "base/Routines.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"

namespace pixorra {

namespace {

bool HasPhotos(Files& files, const std::string& folder) {
  return !files.Names(folder, AllPictures, attribute::Normal).empty();
}

}  // namespace

PhotosOfCard FindPhotosOfCard(Files& files, const std::string& folder) {
  if (HasPhotos(files, folder)) return {folder};
  const std::string dcim = OrElse(std::string(), [&] { return files.FolderPath(JoinPath(folder, "DCIM")); });
  if (dcim.empty()) return {folder};
  std::string only = HasPhotos(files, dcim) ? dcim : "";
  for (const std::string& name :
       OrElse(std::vector<std::string>(), [&] { return files.Folders(dcim, attribute::Normal); })) {
    const std::string below = JoinPath(dcim, name);
    if (!HasPhotos(files, below)) continue;
    if (!only.empty()) return {dcim, true};
    only = below;
  }
  return {only.empty() ? folder : only};
}

}  // namespace pixorra
