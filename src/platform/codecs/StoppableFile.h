// A file that ends its reading when it is told to.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"

namespace pixorra {

// Reading raises DeviceIO from then on that `stop` is true. Both must outlive it.
class StoppableFile final : public File {
 public:
  StoppableFile(File& file, const std::atomic<bool>& stop) : file_(file), stop_(stop) {}
  std::int64_t Length() override { return file_.Length(); }
  FileStamp Stamp() override { return file_.Stamp(); }
  std::size_t ReadAt(std::int64_t offset, void* into, std::size_t count) override {
    if (stop_) throw RuntimeError(error::DeviceIO);
    return file_.ReadAt(offset, into, count);
  }
  void WriteAt(std::int64_t offset, const void* from, std::size_t count) override {
    file_.WriteAt(offset, from, count);
  }
  void Flush() override { file_.Flush(); }
  void Empty() override { file_.Empty(); }

 private:
  File& file_;
  const std::atomic<bool>& stop_;
};

}  // namespace pixorra
