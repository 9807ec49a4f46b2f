#include "base/mIntelJPGLib.h"

namespace pixorra {

int HeaderMode(JpegRoute route) {
  return route == JpegRoute::File ? ijl::FileReadParams : ijl::BufferReadParams;
}

std::optional<int> PixelMode(JpegRoute route, int lScale) {
  const bool file = route == JpegRoute::File;
  switch (lScale) {
    case 1:
      return file ? ijl::FileReadWhole : ijl::BufferReadWhole;
    case 2:
      return file ? ijl::FileReadHalf : ijl::BufferReadHalf;
    case 4:
      return file ? ijl::FileReadQuarter : ijl::BufferReadQuarter;
    case 8:
      return file ? ijl::FileReadEighth : ijl::BufferReadEighth;
    default:
      return std::nullopt;
  }
}

std::string StatusText(JpegCodec& codec, int status) {
  return TextFromPointer(codec.ijlErrorStr(status).c_str());
}

std::string TextFromPointer(const char* address) {
  return address == nullptr ? std::string() : std::string(address);
}

}  // namespace pixorra
