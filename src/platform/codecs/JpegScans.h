// JPEG pictures that come in several scans, as progressive ones do: what they take in memory, and how much work their
// scans may be.
#pragma once

#include <cstdint>
#include <cstdio>
#include <span>

// The library's header needs <cstdio> before it.
#include <jpeglib.h>

namespace pixorra {

// What the library takes while such a picture is read, in bytes: all its coefficients; for one of a single scan, some
// rows. The header must have been read.
std::int64_t JpegWorkingMemory(jpeg_decompress_struct& reader);

// Counts what looks like the start of a scan: bytes of other data may, but not hundreds of times.
class ScanMarks {
 public:
  // To be called with a file's bytes in their order, all at once or part by part.
  void Add(std::span<const std::uint8_t> bytes);
  int Count() const { return count_; }

 private:
  int count_ = 0;
  bool begun_ = false;  // the last byte was the first one of a mark
};

// A bound on the work of the scans. A file of some kilobytes can claim hundreds of them over all of a large picture,
// each of which costs as much as one with data.
class ScanWork {
 public:
  // A picture of the usual dozen of scans is never refused for its size; one of hundreds takes no more than a second.
  // The header must have been read. The file claims so many scans, by ScanMarks.
  ScanWork(jpeg_decompress_struct& reader, int claimed);

  // To be called after each row of blocks that was read of a scan. False once the bound is exceeded.
  bool Add(const jpeg_decompress_struct& reader);

 private:
  std::int64_t left_;
};

}  // namespace pixorra
