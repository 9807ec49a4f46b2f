// The folder whose photos a question is about: what is deleted after the answer must still be in that folder.
#pragma once

#include <optional>
#include <string>

#include "platform/services/Files.h"

namespace pixorra {

class AskedFolder {
 public:
  // To be made with the question. `files` must live on.
  AskedFolder(Files& files, const std::string& path);

  // Without a final backslash.
  const std::string& Path() const { return path_; }
  // Raises PathAccess where another folder has its name by now, or where it was not known at first which one that is;
  // else as Files::IdentityOf does.
  void MustBeTheSame() const;
  // No error would be raised.
  bool IsTheSame() const;

 private:
  Files& files_;
  std::string path_;
  std::optional<FolderIdentity> identity_;
};

// Deletes a photo of the folder for good. A link goes by itself, whatever it leads to. Raises as MustBeTheSame and
// Files::Delete do, and PathAccess for a folder and for a photo that is write-protected, also where the host would
// delete it.
void DeletePhoto(Files& files, const AskedFolder& folder, const std::string& path);

}  // namespace pixorra
