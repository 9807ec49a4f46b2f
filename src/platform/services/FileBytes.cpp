#include "platform/services/FileBytes.h"

#include <new>

#include "platform/runtime/Errors.h"

namespace pixorra {

void FileBytes::Read(Files& files, const std::string& path) {
  size_ = 0;
  Read(*files.Open(path, OpenMode::Read));
}

void FileBytes::Read(File& file) {
  size_ = 0;
  const std::int64_t length = file.Length();
  if (length > Limit) throw RuntimeError(error::Overflow);
  const auto wanted = static_cast<std::size_t>(length);
  if (wanted > capacity_) {
    capacity_ = 0;
    buffer_.reset();
    buffer_.reset(new (std::nothrow) std::uint8_t[wanted]);
    if (buffer_ == nullptr) throw RuntimeError(error::OutOfMemory);
    capacity_ = wanted;
  }
  size_ = file.ReadAt(0, buffer_.get(), wanted);
}

}  // namespace pixorra
