#include "delete/AskedFolder.h"

#include "base/Routines.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

bool IsWriteProtected(Files& files, const std::string& path) {
  const std::optional<int> attributes = files.Attributes(path);
  return attributes && (*attributes & attribute::ReadOnly) != 0 && !files.IsLink(path);
}

}  // namespace

AskedFolder::AskedFolder(Files& files, const std::string& path) : files_(files), path_(StripTrailingBackslash(path)) {
  ErrorsIgnored([this] { identity_ = files_.IdentityOf(path_); });
}

void AskedFolder::MustBeTheSame() const {
  if (!identity_ || files_.IdentityOf(path_) != *identity_) throw RuntimeError(error::PathAccess);
}

bool AskedFolder::IsTheSame() const {
  return ErrorsIgnored([this] { MustBeTheSame(); }) == error::None;
}

void DeletePhoto(Files& files, const AskedFolder& folder, const std::string& path) {
  folder.MustBeTheSame();
  if (IsWriteProtected(files, path)) throw RuntimeError(error::PathAccess);
  files.Delete(path);
}

}  // namespace pixorra
