// A file in memory that notes how it is read, and that may fail from a place on.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>

#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"

namespace pixorra {

class WatchedFile final : public File {
 public:
  explicit WatchedFile(std::string bytes) : bytes_(std::move(bytes)) {}

  std::int64_t Length() override { return static_cast<std::int64_t>(bytes_.size()); }
  FileStamp Stamp() override { return {}; }
  std::size_t ReadAt(std::int64_t offset, void* into, std::size_t count) override {
    if (offset >= FailsFrom) throw RuntimeError(error::DeviceIO);
    const std::size_t at = std::min(static_cast<std::size_t>(offset), bytes_.size());
    const std::size_t came = std::min(count, bytes_.size() - at);
    std::copy_n(bytes_.data() + at, came, static_cast<char*>(into));
    Largest = std::max(Largest, count);
    Sum += came;
    return came;
  }
  void WriteAt(std::int64_t, const void*, std::size_t) override { throw RuntimeError(error::PathAccess); }
  void Flush() override {}
  void Empty() override { throw RuntimeError(error::PathAccess); }

  std::int64_t FailsFrom = std::numeric_limits<std::int64_t>::max();  // a read that begins there or after it
  std::size_t Largest = 0;                                            // bytes asked for at once
  std::size_t Sum = 0;                                                // bytes read

 private:
  std::string bytes_;
};

}  // namespace pixorra
