#include "platform/codecs/JpegScans.h"

#include <algorithm>
#include <cstring>

namespace pixorra {
namespace {

// Units of work, about a nanosecond each on a machine of 2020: a block that a scan passes over, and a coefficient of a
// block that it looks at to refine it.
constexpr std::int64_t BlockWork = 10;
constexpr std::int64_t CoefficientWork = 1;
// What every file may take.
constexpr std::int64_t MostWork = 250'000'000;
// Usual progressive files take 140 to 190 units for each block of the picture, files of the most scans that writers
// use some more.
constexpr std::int64_t UsualWorkOfABlock = 256;
constexpr int UsualScans = 100;

std::int64_t RoundedUp(JDIMENSION count, int step) {
  return (static_cast<std::int64_t>(count) + step - 1) / step * step;
}

std::int64_t BlocksOf(const jpeg_decompress_struct& reader) {
  std::int64_t blocks = 0;
  for (int i = 0; i < reader.num_components; ++i) {
    const jpeg_component_info& part = reader.comp_info[i];
    blocks +=
        RoundedUp(part.width_in_blocks, part.h_samp_factor) * RoundedUp(part.height_in_blocks, part.v_samp_factor);
  }
  return blocks;
}

}  // namespace

std::int64_t JpegWorkingMemory(jpeg_decompress_struct& reader) {
  constexpr std::int64_t Rows = 64;
  if (!jpeg_has_multiple_scans(&reader)) return Rows * reader.image_width * reader.num_components;
  return BlocksOf(reader) * static_cast<std::int64_t>(sizeof(JBLOCK));
}

void ScanMarks::Add(std::span<const std::uint8_t> bytes) {
  constexpr std::uint8_t StartOfScan = 0xDA;
  if (bytes.empty()) return;
  if (begun_ && bytes[0] == StartOfScan) ++count_;
  const std::uint8_t* const end = bytes.data() + bytes.size();
  const auto next = [end](const std::uint8_t* from) {
    return static_cast<const std::uint8_t*>(std::memchr(from, 0xFF, static_cast<std::size_t>(end - from)));
  };
  for (const std::uint8_t* at = next(bytes.data()); at != nullptr && at + 1 < end; at = next(at + 1)) {
    if (at[1] == StartOfScan) ++count_;
  }
  begun_ = bytes.back() == 0xFF;
}

ScanWork::ScanWork(jpeg_decompress_struct& reader, int claimed) : left_(MostWork) {
  if (claimed <= UsualScans) left_ = std::max(left_, BlocksOf(reader) * UsualWorkOfABlock);
}

bool ScanWork::Add(const jpeg_decompress_struct& reader) {
  const bool refines = reader.Ss > 0 && reader.Ah > 0;
  const std::int64_t ofABlock = BlockWork + (refines ? CoefficientWork * (reader.Se - reader.Ss + 1) : 0);
  for (int i = 0; i < reader.comps_in_scan; ++i) {
    const jpeg_component_info& part = *reader.cur_comp_info[i];
    left_ -= ofABlock * part.width_in_blocks * part.v_samp_factor;
  }
  return left_ >= 0;
}

}  // namespace pixorra
