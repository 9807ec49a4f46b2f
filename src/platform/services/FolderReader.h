// Looks at folders while the program goes on: a folder of a network or a camera may take long to answer, or never do
// so.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/runtime/Errors.h"

namespace pixorra {

class FolderReader {
 public:
  struct Answer {
    std::string Path;                                  // as Files::FolderPath gives it; of all but Read
    std::vector<std::string> Names;                    // of Read, ReadFiles and FindFile
    std::vector<std::optional<std::int64_t>> Lengths;  // of ReadFiles, for each name: bytes, nothing where unknown
    int Error = error::None;                           // what was raised; all else is empty then
  };
  using Handler = std::function<void(const Answer&)>;
  // A folder that is being read. When this ends before the answer is there, the handler is not called.
  class Reading {
   public:
    virtual ~Reading() = default;
  };

  virtual ~FolderReader() = default;

  // The handler of each is called at most once, in the program's thread, from a later turn of its loop. It may end its
  // own reading, and begin others.

  // The folders in `folder`, with `attributes` as for Files::Folders, which says what is raised.
  [[nodiscard]] virtual std::unique_ptr<Reading> Read(const std::string& folder, int attributes, Handler handler) = 0;
  // The files in `folder` that match the pattern, as Files::Names gives them, by the order of NameLess. Raises
  // PathNotFound where the folder cannot be entered, DeviceIO where the listing breaks off.
  [[nodiscard]] virtual std::unique_ptr<Reading> ReadFiles(const std::string& folder, const std::string& pattern,
                                                           Handler handler) = 0;
  // One of the files that ReadFiles would give, or no name. Raises what that does. Quicker: no length is looked at.
  [[nodiscard]] virtual std::unique_ptr<Reading> FindFile(const std::string& folder, const std::string& pattern,
                                                          Handler handler) = 0;
  // Whether there is such a folder. Raises PathNotFound where it cannot be entered.
  [[nodiscard]] virtual std::unique_ptr<Reading> FindFolder(const std::string& folder, Handler handler) = 0;
};

}  // namespace pixorra
