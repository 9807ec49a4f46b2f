#include "platform/codecs/JpegWriter.h"

#include <algorithm>
#include <array>

#include "platform/codecs/JpegErrors.h"

namespace pixorra {
namespace {

// The library's memory destination loses its block when the library fails; this one keeps it.
struct GrowingBlock {
  jpeg_destination_mgr manager{};  // first, as the library hands it back
  std::uint8_t* block = nullptr;
  std::size_t capacity = 0;

  static GrowingBlock& Of(j_compress_ptr writer) { return *reinterpret_cast<GrowingBlock*>(writer->dest); }

  void Grow(j_compress_ptr writer, std::size_t wanted) {
    const std::size_t used = capacity;
    void* larger = std::realloc(block, wanted);
    if (larger == nullptr) GiveUp(reinterpret_cast<j_common_ptr>(writer), jpeg::OutOfMemory);
    block = static_cast<std::uint8_t*>(larger);
    capacity = wanted;
    manager.next_output_byte = block + used;
    manager.free_in_buffer = capacity - used;
  }
  std::size_t Used() const { return capacity - manager.free_in_buffer; }
};

void BeginBlock(j_compress_ptr writer) {
  GrowingBlock::Of(writer).Grow(writer, std::size_t{64} * 1024);
}

boolean EnlargeBlock(j_compress_ptr writer) {
  GrowingBlock& block = GrowingBlock::Of(writer);
  block.Grow(writer, block.capacity * 2);
  return TRUE;
}

void EndBlock(j_compress_ptr) {}

void Compress(jpeg_compress_struct& writer, const std::uint8_t* topRow, std::ptrdiff_t step, int quality) {
  writer.input_components = 3;
  writer.in_color_space = JCS_EXT_BGR;
  jpeg_set_defaults(&writer);
  jpeg_set_quality(&writer, std::clamp(quality, 0, 100), TRUE);
  jpeg_start_compress(&writer, TRUE);
  std::array<JSAMPROW, 16> rows;
  while (writer.next_scanline < writer.image_height) {
    const unsigned count = std::min(static_cast<unsigned>(rows.size()), writer.image_height - writer.next_scanline);
    for (unsigned i = 0; i < count; ++i) {
      // The library asks for writable rows although it only reads them.
      rows[i] = const_cast<JSAMPROW>(topRow + static_cast<std::ptrdiff_t>(writer.next_scanline + i) * step);
    }
    jpeg_write_scanlines(&writer, rows.data(), count);
  }
  jpeg_finish_compress(&writer);
}

}  // namespace

int WriteJpeg(const std::uint8_t* topRow, std::ptrdiff_t step, int width, int height, int quality, JpegBytes& out) {
  JpegErrors errors;
  jpeg_compress_struct writer{};
  GrowingBlock block;
  block.manager.init_destination = BeginBlock;
  block.manager.empty_output_buffer = EnlargeBlock;
  block.manager.term_destination = EndBlock;
  errors.Install(reinterpret_cast<j_common_ptr>(&writer));
  const bool written = errors.Run([&] {
    jpeg_create_compress(&writer);
    writer.dest = &block.manager;
    writer.image_width = static_cast<JDIMENSION>(width);
    writer.image_height = static_cast<JDIMENSION>(height);
    Compress(writer, topRow, step, quality);
  });
  jpeg_destroy_compress(&writer);
  out = JpegBytes(block.block, block.block == nullptr ? 0 : block.Used());
  return written ? jpeg::Ok : errors.status;
}

}  // namespace pixorra
