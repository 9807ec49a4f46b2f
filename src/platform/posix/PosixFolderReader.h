// Reads folders in threads of its own. A thread whose folder does not answer is left to itself: others take its place,
// and nobody waits for it, at the program's end neither.
#pragma once

#include <memory>
#include <string>

#include "platform/posix/MappingSource.h"
#include "platform/services/FolderReader.h"
#include "platform/services/Posting.h"

namespace pixorra {

class PosixFolderReader : public FolderReader {
 public:
  // So many folders may hang at once before others have to wait for them.
  static constexpr int MostThreads = 8;

  // Whether ReadFiles looks how long the files are: one look at each, which takes most of the time in a large folder.
  enum class Lengths { Known, Unknown };

  PosixFolderReader(std::shared_ptr<MappingSource> mapping, Posting& posting, Lengths lengths = Lengths::Known);
  ~PosixFolderReader() override;
  PosixFolderReader(const PosixFolderReader&) = delete;
  PosixFolderReader& operator=(const PosixFolderReader&) = delete;

  // Each raises OutOfMemory where no thread can be had.
  std::unique_ptr<Reading> Read(const std::string& folder, int attributes, Handler handler) override;
  std::unique_ptr<Reading> ReadFiles(const std::string& folder, const std::string& pattern, Handler handler) override;
  std::unique_ptr<Reading> FindFile(const std::string& folder, const std::string& pattern, Handler handler) override;
  std::unique_ptr<Reading> FindFolder(const std::string& folder, Handler handler) override;

 private:
  struct Queue;
  using Look = std::function<void(const PathMapping&, Answer&)>;
  std::unique_ptr<Reading> Begin(Look look, Handler handler);
  static void Work(const std::shared_ptr<Queue>& queue);

  std::shared_ptr<MappingSource> mapping_;
  Lengths lengths_;
  std::shared_ptr<Queue> queue_;
};

}  // namespace pixorra
