#include "platform/codecs/ByteReader.h"

#include <algorithm>
#include <cstring>

namespace pixorra {

ByteReader::ByteReader(File& file)
    : size_(static_cast<std::size_t>(file.Length())),
      file_(&file),
      buffer_(std::make_unique_for_overwrite<std::uint8_t[]>(WindowBytes)) {}

void ByteReader::Read(std::size_t at, std::uint8_t* to, std::size_t count) {
  const std::size_t there = at < size_ ? std::min(count, size_ - at) : 0;
  std::size_t done = 0;
  if (file_ != nullptr && there >= WindowBytes) done = FromFile(at, to, there);
  while (done < there && (at + done - windowAt_ < window_.size() || Fetch(at + done))) {
    const std::size_t from = at + done - windowAt_;
    const std::size_t part = std::min(there - done, window_.size() - from);
    std::memcpy(to + done, window_.data() + from, part);
    done += part;
  }
  std::memset(to + done, 0, count - done);
}

bool ByteReader::Fetch(std::size_t at) {
  if (file_ == nullptr || at >= size_) return false;
  window_ = {};
  const std::size_t came = FromFile(at, buffer_.get(), std::min(WindowBytes, size_ - at));
  windowAt_ = at;
  window_ = {buffer_.get(), came};
  return came > 0;
}

std::size_t ByteReader::FromFile(std::size_t at, std::uint8_t* to, std::size_t count) {
  const std::size_t came = file_->ReadAt(static_cast<std::int64_t>(at), to, count);
  if (came < count) size_ = at + came;
  return came;
}

}  // namespace pixorra
