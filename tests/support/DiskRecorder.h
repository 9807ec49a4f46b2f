// Files that keep a record of what is done to a disk, and the states in which a power cut may leave that disk: whatever
// was not flushed when the power went may be there, missing, or there in part, in any order.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {

// The bytes of each file, by the program's path.
using DiskState = std::map<std::string, std::string>;

// A flush of a file keeps the file's bytes, one of a folder the names in it; neither keeps the other. A change of a
// name (a file made, deleted, renamed) is there as a whole or not at all.
class DiskRecorder : public FaultyFiles {
 public:
  // All that is on the drive by now is taken to be flushed.
  explicit DiskRecorder(TemporaryDrive& drive);

  std::unique_ptr<File> Open(const std::string& path, OpenMode mode) override;
  void Delete(const std::string& path) override;
  void Rename(const std::string& from, const std::string& to) override;
  void RenameOver(const std::string& from, const std::string& to) override;
  void LinkOrCopy(const std::string& from, const std::string& to) override;
  void FlushFolder(const std::string& path) override;

  // The disk as it was at first.
  const DiskState& Start() const { return start_; }
  int Changes() const;
  // Calls `look` with each state once, and with words for it. For a power cut after each step: all that was pending is
  // there, all is missing, and each pending change by itself is missing, alone there, cut to its half, or full of
  // zeros.
  void ForEachState(const std::function<void(const DiskState&, const std::string&)>& look) const;

 private:
  class Recorded;
  enum class Kind { Write, Cut, Names, FlushFile, FlushFolder };
  enum class Fate { There, Missing, Half, Zeros };
  struct Step {
    Kind What = Kind::Write;
    int Node = 0;  // of the file, for Write, Cut and FlushFile
    std::size_t Offset = 0;
    std::string Bytes;
    std::map<std::string, int> Names;  // what each has from here on, 0 nothing
    std::string Folder;                // of the names, or the one that is flushed
  };

  int NodeOf(const std::string& path);
  void ChangeNames(std::map<std::string, int> names);
  bool IsPending(std::size_t step, std::size_t cut) const;
  DiskState StateWith(const std::vector<Fate>& fates) const;
  std::string Describe(std::size_t step) const;

  DiskState start_;
  std::map<std::string, int> startNames_;
  std::map<std::string, int> names_;
  int nodes_ = 0;
  std::vector<Step> steps_;
};

}  // namespace pixorra
