// JPEG pictures that come in several scans, as progressive ones do: what they take in memory, and how much work their
// scans may be.
#pragma once

#include <cstdint>
#include <cstdio>

// The library's header needs <cstdio> before it.
#include <jpeglib.h>

namespace pixorra {

// What the library takes while such a picture is read, in bytes: all its coefficients; for one of a single scan, some
// rows. The header must have been read.
std::int64_t JpegWorkingMemory(jpeg_decompress_struct& reader);

// A bound on the work of the scans. A file of some kilobytes can claim hundreds of them over all of a large picture,
// each of which costs as much as one with data.
class ScanWork {
 public:
  // A picture of the usual dozen of scans is never refused for its size; one of hundreds takes about as long at most.
  // The header must have been read.
  explicit ScanWork(jpeg_decompress_struct& reader);

  // To be called after each row of blocks that was read of a scan. False once the bound is exceeded.
  bool Add(const jpeg_decompress_struct& reader);

 private:
  std::int64_t mostUsual_;
  std::int64_t spent_ = 0;
};

}  // namespace pixorra
