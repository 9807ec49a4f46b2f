// The decode of a photo by the JPEG library alone, which others are measured against.
#pragma once

#include <cstdio>
#include <jpeglib.h>
#include <vector>

namespace pixorra {

// Blue, green, red, top row first, no padding, at 1/scale of the size. Returns the width.
inline unsigned DecodeBare(const std::vector<char>& file, unsigned scale, std::vector<unsigned char>& rows) {
  jpeg_decompress_struct codec{};
  jpeg_error_mgr errors{};
  codec.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&codec);
  jpeg_mem_src(&codec, reinterpret_cast<const unsigned char*>(file.data()), file.size());
  jpeg_read_header(&codec, TRUE);
  codec.scale_num = 1;
  codec.scale_denom = scale;
  codec.out_color_space = JCS_EXT_BGR;
  jpeg_start_decompress(&codec);
  const std::size_t step = codec.output_width * 3;
  rows.resize(step * codec.output_height);
  while (codec.output_scanline < codec.output_height) {
    JSAMPROW row = rows.data() + codec.output_scanline * step;
    jpeg_read_scanlines(&codec, &row, 1);
  }
  const unsigned width = codec.output_width;
  jpeg_finish_decompress(&codec);
  jpeg_destroy_decompress(&codec);
  return width;
}

}  // namespace pixorra
