// Picture files made by libjpeg and by hand.
#include "tests/support/TestPictures.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

// The library's header needs <cstdio> before it.
#include <jpeglib.h>

namespace pixorra {

namespace {

std::uint8_t Ramp(int at, int size) {
  return static_cast<std::uint8_t>(size > 1 ? at * 255 / (size - 1) : 0);
}

void Put16(std::string& out, int value) {
  out += static_cast<char>(value & 255);
  out += static_cast<char>(value >> 8 & 255);
}

void Put32(std::string& out, int value) {
  Put16(out, value & 0xFFFF);
  Put16(out, value >> 16 & 0xFFFF);
}

// One row as the JPEG library takes it: grey, blue-green-red, or inks stored inverted with no black.
std::vector<JSAMPLE> SampleRow(const Bitmap& bitmap, int y, int channels) {
  std::vector<JSAMPLE> row;
  const std::uint8_t* p = bitmap.Row(y);
  for (int x = 0; x < bitmap.Width(); ++x, p += bitmap.BytesPerPixel()) {
    if (channels == 1) row.push_back(static_cast<JSAMPLE>((p[0] * 29 + p[1] * 150 + p[2] * 77) >> 8));
    if (channels == 3) row.insert(row.end(), {p[0], p[1], p[2]});
    if (channels == 4) row.insert(row.end(), {p[2], p[1], p[0], JSAMPLE{255}});
  }
  return row;
}

// An entry of a directory of Exif data, with a number in it.
void PutEntry(std::string& out, int tag, int type, int number) {
  Put16(out, tag);
  Put16(out, type);
  Put32(out, 1);
  Put32(out, number);
}

// An Exif segment with nothing but the orientation in it, and the thumbnail.
std::vector<JOCTET> ExifSegment(const JpegFile& file) {
  constexpr int Short = 3;
  constexpr int Long = 4;
  constexpr int SecondDirectory = 26;
  constexpr int Thumbnail = 56;
  std::string out("Exif\0\0II*\0", 10);
  Put32(out, 8);
  Put16(out, 1);
  PutEntry(out, 0x0112, Short, file.exifOrientation);
  Put32(out, file.thumbnail.empty() ? 0 : SecondDirectory);
  if (file.thumbnail.empty()) return {out.begin(), out.end()};
  Put16(out, 2);
  PutEntry(out, 0x0201, Long, Thumbnail);
  PutEntry(out, 0x0202, Long, static_cast<int>(file.thumbnail.size()));
  Put32(out, 0);
  out += file.thumbnail;
  return {out.begin(), out.end()};
}

void Describe(jpeg_compress_struct& writer, const Bitmap& bitmap, const JpegFile& file) {
  writer.image_width = static_cast<JDIMENSION>(bitmap.Width());
  writer.image_height = static_cast<JDIMENSION>(bitmap.Height());
  writer.input_components = file.channels;
  writer.in_color_space = file.channels == 1 ? JCS_GRAYSCALE : file.channels == 3 ? JCS_EXT_BGR : JCS_CMYK;
  jpeg_set_defaults(&writer);
  jpeg_set_quality(&writer, file.quality, TRUE);
  if (file.fullColour) writer.comp_info[0].h_samp_factor = writer.comp_info[0].v_samp_factor = 1;
  if (file.progressive) jpeg_simple_progression(&writer);
  if (file.exif || file.noName) writer.write_JFIF_header = FALSE;
}

// Blocks of 255 bytes at most, and an empty one behind.
void PutGifBlocks(std::string& out, const std::string& data) {
  for (std::size_t at = 0; at < data.size(); at += 255) {
    const std::string block = data.substr(at, 255);
    out += static_cast<char>(block.size());
    out += block;
  }
  out += '\0';
}

// Codes of 9 bits that stand for themselves, with a clear code before the ninth bit runs out.
std::string PlainGifCodes(const std::vector<std::uint8_t>& indexes) {
  std::string out;
  unsigned window = 0;
  unsigned held = 0;
  const auto put = [&](unsigned code) {
    window |= code << held;
    for (held += 9; held >= 8; held -= 8, window >>= 8) out += static_cast<char>(window & 255);
  };
  constexpr unsigned Clear = 256;
  for (std::size_t i = 0; i < indexes.size(); ++i) {
    if (i % 250 == 0) put(Clear);
    put(indexes[i]);
  }
  put(Clear + 1);
  if (held > 0) out += static_cast<char>(window & 255);
  return out;
}

std::vector<int> GifRowOrder(int height, bool interlaced) {
  std::vector<int> order;
  const std::array<std::array<int, 2>, 4> passes{{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};
  for (int y = 0; !interlaced && y < height; ++y) order.push_back(y);
  for (std::size_t pass = 0; interlaced && pass < passes.size(); ++pass) {
    for (int y = passes[pass][0]; y < height; y += passes[pass][1]) order.push_back(y);
  }
  return order;
}

}  // namespace

Bitmap SmoothBitmap(int width, int height) {
  Bitmap bitmap(width, height, PixelFormat::Bgr24);
  for (int y = 0; y < height; ++y) {
    std::uint8_t* p = bitmap.Row(y);
    for (int x = 0; x < width; ++x) {
      *p++ = Ramp(x, width);
      *p++ = Ramp(y, height);
      *p++ = static_cast<std::uint8_t>(255 - (Ramp(x, width) + Ramp(y, height)) / 2);
    }
  }
  return bitmap;
}

Bitmap PlainBitmap(int width, int height, Colour colour) {
  Bitmap bitmap(width, height, PixelFormat::Bgr24);
  bitmap.Fill(colour);
  return bitmap;
}

std::string JpegOf(const Bitmap& bitmap, const JpegFile& file) {
  jpeg_compress_struct writer{};
  jpeg_error_mgr errors{};
  writer.err = jpeg_std_error(&errors);
  errors.error_exit = [](j_common_ptr) { std::abort(); };  // nothing here can fail but a test's own arguments
  jpeg_create_compress(&writer);
  unsigned char* block = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&writer, &block, &size);
  Describe(writer, bitmap, file);
  jpeg_start_compress(&writer, TRUE);
  if (file.exif) {
    const std::vector<JOCTET> exif = ExifSegment(file);
    jpeg_write_marker(&writer, JPEG_APP0 + 1, exif.data(), static_cast<unsigned>(exif.size()));
  }
  for (int y = 0; y < bitmap.Height(); ++y) {
    std::vector<JSAMPLE> row = SampleRow(bitmap, y, file.channels);
    JSAMPROW start = row.data();
    jpeg_write_scanlines(&writer, &start, 1);
  }
  jpeg_finish_compress(&writer);
  jpeg_destroy_compress(&writer);
  std::string bytes(reinterpret_cast<const char*>(block), size);
  std::free(block);
  return bytes;
}

std::string JpegPhoto(int width, int height, const JpegFile& file) {
  return JpegOf(SmoothBitmap(width, height), file);
}

std::string WithJpegSize(std::string jpeg, int width, int height) {
  for (std::size_t at = 2; at + 9 < jpeg.size();) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(jpeg[at + i]); };
    if (byte(1) == 0xC0 || byte(1) == 0xC2) {
      jpeg[at + 5] = static_cast<char>(height >> 8);
      jpeg[at + 6] = static_cast<char>(height & 255);
      jpeg[at + 7] = static_cast<char>(width >> 8);
      jpeg[at + 8] = static_cast<char>(width & 255);
      return jpeg;
    }
    at += 2U + (static_cast<std::size_t>(byte(2)) << 8 | byte(3));
  }
  throw std::invalid_argument("no frame header");
}

std::string BmpOf(const Bitmap& bitmap) {
  const int rowBytes = (bitmap.Width() * 3 + 3) / 4 * 4;
  std::string out = "BM";
  for (const int field : {54 + rowBytes * bitmap.Height(), 0, 54, 40, bitmap.Width(), bitmap.Height()})
    Put32(out, field);
  Put16(out, 1);
  Put16(out, 24);
  for (const int field : {0, rowBytes * bitmap.Height(), 0, 0, 0, 0}) Put32(out, field);
  for (int y = bitmap.Height() - 1; y >= 0; --y) {
    const std::uint8_t* p = bitmap.Row(y);
    for (int x = 0; x < bitmap.Width(); ++x, p += bitmap.BytesPerPixel()) {
      for (int c = 0; c < 3; ++c) out += static_cast<char>(p[c]);
    }
    out.append(static_cast<std::size_t>(rowBytes - bitmap.Width() * 3), '\0');
  }
  return out;
}

std::string BmpPhoto(int width, int height) {
  return BmpOf(SmoothBitmap(width, height));
}

std::string GifOf(int width, int height, const std::function<std::uint8_t(int, int)>& index, const GifFile& file) {
  std::string out = "GIF89a";
  Put16(out, width);
  Put16(out, height);
  out += {'\xF7', '\0', '\0'};
  for (int i = 0; i < 256; ++i) out += {static_cast<char>(i), static_cast<char>(255 - i), static_cast<char>(i / 2)};
  if (file.transparent >= 0) {
    out += {'\x21', '\xF9', '\x04', '\x01', '\0', '\0', static_cast<char>(file.transparent), '\0'};
  }
  out += '\x2C';
  for (const int field : {0, 0, width, height}) Put16(out, field);
  out += file.interlaced ? '\x40' : '\0';
  out += '\x08';
  std::vector<std::uint8_t> indexes;
  for (const int y : GifRowOrder(height, file.interlaced)) {
    for (int x = 0; x < width; ++x) indexes.push_back(index(x, y));
  }
  PutGifBlocks(out, PlainGifCodes(indexes));
  out += '\x3B';
  return out;
}

std::string GifPhoto(int width, int height, const GifFile& file) {
  return GifOf(
      width, height, [](int x, int y) { return static_cast<std::uint8_t>((x + y * 3) & 255); }, file);
}

}  // namespace pixorra
