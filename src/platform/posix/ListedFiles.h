// Files of the host for whoever opens what has just been listed: such names are spelled as on the disk.
#pragma once

#include <memory>
#include <string>

#include "platform/posix/PosixFiles.h"

namespace pixorra {

// Opens for reading by the exact spelling alone: to find that a name has gone takes one look, and not the whole folder
// to be read for another case. Shares are found however they are mounted. All else is as PosixFiles does it.
class ListedFiles final : public PosixFiles {
 public:
  explicit ListedFiles(const std::shared_ptr<MappingSource>& mapping) : PosixFiles(mapping), mapping_(mapping) {}

  std::unique_ptr<File> Open(const std::string& path, OpenMode mode) override;

 private:
  std::shared_ptr<MappingSource> mapping_;
};

}  // namespace pixorra
