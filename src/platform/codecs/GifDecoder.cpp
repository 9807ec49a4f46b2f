#include "platform/codecs/GifDecoder.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "platform/codecs/ByteReader.h"
#include "platform/codecs/GifCodes.h"
#include "platform/codecs/SizeBound.h"
#include "platform/runtime/Errors.h"

namespace pixorra {
namespace {

using Byte = std::uint8_t;
using Palette = std::array<std::array<Byte, 3>, 256>;  // blue, green, red

constexpr int NoTransparency = -1;

[[noreturn]] void Refuse() {
  throw RuntimeError(error::BadPicture);
}

struct GifImage {
  int screenWidth = 0;
  int screenHeight = 0;
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool interlaced = false;
  bool hasPalette = false;
  Palette palette{};
  int transparent = NoTransparency;
  unsigned rootBits = 0;
  std::vector<Byte> codes;
};

class GifParser {
 public:
  explicit GifParser(std::span<const Byte> file) : file_(file), in_(file) {}

  GifImage FirstImage() {
    if (file_.size() < 13) Refuse();
    image_.screenWidth = static_cast<int>(in_.U16(6));
    image_.screenHeight = static_cast<int>(in_.U16(8));
    at_ = 13;
    ReadPalette(in_.U8(10));
    while (at_ < file_.size()) {
      const unsigned block = in_.U8(at_++);
      if (block == Extension) {
        ReadExtension();
      } else if (block == Image) {
        ReadImage();
        return std::move(image_);
      } else if (block != Padding) {
        break;
      }
    }
    Refuse();
  }

 private:
  static constexpr unsigned Padding = 0;
  static constexpr unsigned Extension = 0x21;
  static constexpr unsigned Image = 0x2C;
  static constexpr unsigned GraphicControl = 0xF9;

  void ReadPalette(unsigned flags) {
    if ((flags & 0x80U) == 0) return;
    const std::size_t count = std::size_t{2} << (flags & 7U);
    image_.hasPalette = true;
    image_.palette = {};
    for (std::size_t i = 0; i < count; ++i) {
      for (std::size_t c = 0; c < 3; ++c) image_.palette[i][2 - c] = static_cast<Byte>(in_.U8(at_ + i * 3 + c));
    }
    at_ += count * 3;
  }

  void ReadExtension() {
    const unsigned label = in_.U8(at_++);
    if (label == GraphicControl && in_.U8(at_) >= 4) {
      image_.transparent = (in_.U8(at_ + 1) & 1U) != 0 ? static_cast<int>(in_.U8(at_ + 4)) : NoTransparency;
    }
    while (at_ < file_.size() && in_.U8(at_) != 0) at_ += in_.U8(at_) + 1;
    ++at_;
  }

  void ReadImage() {
    image_.left = static_cast<int>(in_.U16(at_));
    image_.top = static_cast<int>(in_.U16(at_ + 2));
    image_.width = static_cast<int>(in_.U16(at_ + 4));
    image_.height = static_cast<int>(in_.U16(at_ + 6));
    const unsigned flags = in_.U8(at_ + 8);
    image_.interlaced = (flags & 0x40U) != 0;
    at_ += 9;
    ReadPalette(flags);
    image_.rootBits = in_.U8(at_++);
    while (at_ < file_.size()) {
      const std::size_t wanted = in_.U8(at_++);
      const std::size_t have = std::min(wanted, file_.size() - at_);
      if (have == 0) break;
      const auto from = file_.begin() + static_cast<std::ptrdiff_t>(at_);
      image_.codes.insert(image_.codes.end(), from, from + static_cast<std::ptrdiff_t>(have));
      at_ += have;
    }
  }

  std::span<const Byte> file_;
  ByteReader in_;
  std::size_t at_ = 0;
  GifImage image_;
};

// Which row of the image each row of the data is.
std::vector<int> RowOrder(int height, bool interlaced) {
  std::vector<int> order;
  order.reserve(static_cast<std::size_t>(height));
  if (!interlaced) {
    for (int y = 0; y < height; ++y) order.push_back(y);
    return order;
  }
  struct Pass {
    int first, step;
  };
  for (const Pass pass : {Pass{0, 8}, Pass{4, 8}, Pass{2, 4}, Pass{1, 2}}) {
    for (int y = pass.first; y < height; y += pass.step) order.push_back(y);
  }
  return order;
}

// Draws what was unpacked, clipped to the screen. `BytesPerPixel` 4 leaves what is transparent as it is.
template <int BytesPerPixel>
void Draw(const GifImage& image, std::span<const Byte> indexes, Bitmap& screen) {
  const std::vector<int> order = RowOrder(image.height, image.interlaced);
  const auto width = static_cast<std::size_t>(image.width);
  const auto visible = static_cast<std::size_t>(std::clamp(image.screenWidth - image.left, 0, image.width));
  for (std::size_t row = 0; row * width < indexes.size(); ++row) {
    const int y = image.top + order[row];
    if (y >= image.screenHeight) continue;
    const std::span<const Byte> line = indexes.subspan(row * width, std::min(visible, indexes.size() - row * width));
    Byte* to = screen.Row(y) + std::ptrdiff_t{image.left} * BytesPerPixel;
    for (const Byte index : line) {
      if (BytesPerPixel == 3 || index != image.transparent) {
        std::copy_n(image.palette[index].begin(), 3, to);
        if constexpr (BytesPerPixel == 4) to[3] = 255;
      }
      to += BytesPerPixel;
    }
  }
}

bool CoversTheScreen(const GifImage& image) {
  return image.left == 0 && image.top == 0 && image.width >= image.screenWidth && image.height >= image.screenHeight;
}

}  // namespace

Bitmap DecodeGif(std::span<const Byte> file) {
  GifImage image = GifParser(file).FirstImage();
  if (image.screenWidth == 0 || image.screenHeight == 0) {
    image.screenWidth = std::min(image.left + image.width, LongestSide);
    image.screenHeight = std::min(image.top + image.height, LongestSide);
  }
  if (!IsBacked(image.width, image.height, image.codes.size(), GifPixelsPerByte)) Refuse();
  if (!IsBacked(image.screenWidth, image.screenHeight, file.size(), GifPixelsPerByte)) Refuse();
  if (!image.hasPalette) {
    for (std::size_t i = 0; i < image.palette.size(); ++i) image.palette[i].fill(static_cast<Byte>(i));
  }

  std::vector<Byte> indexes(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
  const std::size_t come = UnpackGifCodes(image.codes, image.rootBits, indexes);
  if (come == 0) Refuse();
  const bool whole = come == indexes.size();
  indexes.resize(come);

  const bool seeThrough =
      image.transparent != NoTransparency &&
      std::find(indexes.begin(), indexes.end(), static_cast<Byte>(image.transparent)) != indexes.end();
  if (whole && !seeThrough && CoversTheScreen(image)) {
    Bitmap screen(image.screenWidth, image.screenHeight, PixelFormat::Bgr24);
    Draw<3>(image, indexes, screen);
    return screen;
  }
  Bitmap screen(image.screenWidth, image.screenHeight, PixelFormat::Bgra32);
  std::memset(screen.Row(0), 0, screen.Stride() * static_cast<std::size_t>(image.screenHeight));
  Draw<4>(image, indexes, screen);
  return screen;
}

}  // namespace pixorra
