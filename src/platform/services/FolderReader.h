// Lists folders while the program goes on: a folder of a network or a camera may take long to answer, or never do so.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/runtime/Errors.h"

namespace pixorra {

class FolderReader {
 public:
  struct Answer {
    std::vector<std::string> Names;  // as Files::Folders gives them
    int Error = error::None;         // what Files::Folders raises; there are no names then
  };
  using Handler = std::function<void(const Answer&)>;
  // A folder that is being read. When this ends before the answer is there, the handler is not called.
  class Reading {
   public:
    virtual ~Reading() = default;
  };

  virtual ~FolderReader() = default;
  // Asks for the folders in `folder`, with `attributes` as for Files::Folders. The handler is called at most once, in
  // the program's thread, from a later turn of its loop. It may end its own reading, and begin others.
  [[nodiscard]] virtual std::unique_ptr<Reading> Read(const std::string& folder, int attributes, Handler handler) = 0;
};

}  // namespace pixorra
