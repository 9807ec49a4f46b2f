// Where the JPEG library reads a picture: bytes in memory, or a file, of which a portion at a time is in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "platform/codecs/JpegErrors.h"
#include "platform/services/Files.h"

namespace pixorra {

class JpegSource {
 public:
  // Of a file, this much is in memory, in bytes.
  static constexpr std::size_t PortionBytes = std::size_t{128} * 1024;

  // The beginning of a file that is `fileBytes` long. The bytes must outlive the source.
  JpegSource(std::span<const std::uint8_t> bytes, std::size_t fileBytes) : bytes_(bytes), fileBytes_(fileBytes) {}
  // The file must outlive the source. Raises what Length does.
  explicit JpegSource(File& file);
  JpegSource(const JpegSource&) = delete;
  JpegSource& operator=(const JpegSource&) = delete;

  std::size_t FileBytes() const { return fileBytes_; }

  // All below run within JpegErrors::Run and give up: with BadFile where the file cannot be read, with BadData where
  // the reader's progress monitor does.

  // The library is to read here; the monitor is set before.
  void Install(jpeg_decompress_struct& reader);
  // Until the library has read on: all bytes in memory, or the file's first portion.
  std::span<const std::uint8_t> Head() const;
  // Nothing follows that the library has not taken yet, or the mark of the picture's end does.
  bool IsAtEnd();
  // To the library, the picture ends where it is now.
  void EndHere();

 private:
  // `manager` must be first, as the library passes that back.
  struct Manager {
    jpeg_source_mgr manager{};
    JpegSource* source = nullptr;
  };

  static boolean Fill(j_decompress_ptr reader);
  static void Skip(j_decompress_ptr reader, long count);
  std::size_t ReadAt(std::size_t at, std::span<std::uint8_t> into);
  void Fetch(std::size_t at);

  std::span<const std::uint8_t> bytes_;
  std::size_t fileBytes_;
  File* file_ = nullptr;
  std::unique_ptr<std::uint8_t[]> portion_;
  std::size_t next_ = 0;  // of the file, after the portion
  Manager manager_;
  j_decompress_ptr reader_ = nullptr;
};

}  // namespace pixorra
