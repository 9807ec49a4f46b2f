// The JPEG codec on libjpeg-turbo.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "platform/codecs/DecodeAhead.h"
#include "platform/services/Files.h"
#include "platform/services/JpegCodec.h"

namespace pixorra {

// Nothing is kept between calls. What a surface is described as and what a file holds must agree when the pixels are
// read: the size to the pixel, 3 channels for a grey or colour picture, 4 for one of four channels (which is read as
// blue, green, red and 255). Surfaces of 3 channels are written, no others.
class TurboJpegCodec final : public JpegCodec {
 public:
  // The files serve the modes that name a file. What was decoded ahead, if anything, serves the reductions of a block
  // of memory that holds the same file.
  explicit TurboJpegCodec(Files& files, DecodeAhead* ahead = nullptr) : files_(files), ahead_(ahead) {}

  int ijlInit(JPEG_CORE_PROPERTIES& record) override;
  int ijlFree(JPEG_CORE_PROPERTIES& record) override;
  int ijlRead(JPEG_CORE_PROPERTIES& record, int mode) override;
  int ijlWrite(JPEG_CORE_PROPERTIES& record, int mode) override;
  std::span<const std::uint8_t> AtHand(File& file) override;
  std::string ijlErrorStr(int status) override;

 private:
  int ReadBlock(JPEG_CORE_PROPERTIES& record, int denominator);

  Files& files_;
  DecodeAhead* ahead_;
};

}  // namespace pixorra
