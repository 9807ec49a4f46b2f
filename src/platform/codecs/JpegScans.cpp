#include "platform/codecs/JpegScans.h"

#include <algorithm>

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

ScanWork::ScanWork(jpeg_decompress_struct& reader)
    : mostUsual_(std::max(MostWork, BlocksOf(reader) * UsualWorkOfABlock)) {}

bool ScanWork::Add(const jpeg_decompress_struct& reader) {
  const bool refines = reader.Ss > 0 && reader.Ah > 0;
  const std::int64_t ofABlock = BlockWork + (refines ? CoefficientWork * (reader.Se - reader.Ss + 1) : 0);
  for (int i = 0; i < reader.comps_in_scan; ++i) {
    const jpeg_component_info& part = *reader.cur_comp_info[i];
    spent_ += ofABlock * part.width_in_blocks * part.v_samp_factor;
  }
  return spent_ <= (reader.input_scan_number <= UsualScans ? mostUsual_ : MostWork);
}

}  // namespace pixorra
