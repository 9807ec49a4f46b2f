#include "platform/codecs/GifDecoder.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/codecs/GifCodes.h"
#include "platform/codecs/SizeBound.h"
#include "platform/runtime/Errors.h"

namespace pixorra {
namespace {

using Byte = std::uint8_t;
using Palette = std::array<std::array<Byte, 3>, 256>;  // blue, green, red

constexpr int NoTransparency = -1;

[[noreturn]] void RefuseGif() {
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
  std::size_t codesAt = 0;
};

class GifParser {
 public:
  explicit GifParser(ByteReader& in) : in_(in) {}

  GifImage FirstImage() {
    if (in_.Size() < 13) RefuseGif();
    image_.screenWidth = static_cast<int>(in_.U16(6));
    image_.screenHeight = static_cast<int>(in_.U16(8));
    at_ = 13;
    ReadPalette(in_.U8(10));
    while (at_ < in_.Size()) {
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
    RefuseGif();
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
    while (at_ < in_.Size() && in_.U8(at_) != 0) at_ += in_.U8(at_) + 1;
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
    image_.codesAt = at_;
  }

  ByteReader& in_;
  std::size_t at_ = 0;
  GifImage image_;
};

// The rows of an image in the order in which they are in the data.
class RowOrder {
 public:
  explicit RowOrder(const GifImage& image) : height_(image.height), pass_(image.interlaced ? 0 : Passes.size() - 1) {
    if (!image.interlaced) step_ = 1;
    if (image.interlaced) Begin();
  }
  int Row() const { return row_; }
  bool Ended() const { return row_ >= height_; }
  void Advance() {
    row_ += step_;
    while (Ended() && pass_ + 1 < Passes.size()) {
      ++pass_;
      Begin();
    }
  }

 private:
  struct Pass {
    int first, step;
  };
  static constexpr std::array<Pass, 4> Passes{{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};

  void Begin() {
    row_ = Passes[pass_].first;
    step_ = Passes[pass_].step;
  }

  int height_;
  std::size_t pass_;
  int row_ = 0;
  int step_ = 1;
};

// Draws indexes as they are unpacked, clipped to the screen. `BytesPerPixel` 4 leaves what is transparent as it is.
template <int BytesPerPixel>
class Drawing {
 public:
  Drawing(const GifImage& image, Bitmap& screen)
      : image_(image),
        screen_(screen),
        rows_(image),
        visible_(std::clamp(image.screenWidth - image.left, 0, image.width)) {
    BeginRow();
  }

  bool IsWhole() const { return rows_.Ended(); }

  // What is left over once the image is whole is not drawn. False, with the drawing of no more use, where a pixel is
  // transparent and the screen has no alpha.
  bool Draw(std::span<const Byte> indexes) {
    while (!indexes.empty() && !IsWhole()) {
      const auto count = std::min(indexes.size(), static_cast<std::size_t>(image_.width - x_));
      if (!DrawPart(indexes.first(count))) return false;
      indexes = indexes.subspan(count);
      x_ += static_cast<int>(count);
      if (x_ < image_.width) continue;
      rows_.Advance();
      BeginRow();
    }
    return true;
  }

 private:
  void BeginRow() {
    x_ = 0;
    const int y = image_.top + rows_.Row();
    to_ = rows_.Ended() || y >= image_.screenHeight ? nullptr
                                                    : screen_.Row(y) + std::ptrdiff_t{image_.left} * BytesPerPixel;
  }

  bool DrawPart(std::span<const Byte> indexes) {
    const auto seen = static_cast<std::size_t>(std::max(0, visible_ - x_));
    for (std::size_t i = 0; i < indexes.size(); ++i) {
      const Byte index = indexes[i];
      if (BytesPerPixel == 3 && index == image_.transparent) return false;
      if (to_ == nullptr || i >= seen) continue;
      if (BytesPerPixel == 3 || index != image_.transparent) {
        std::copy_n(image_.palette[index].begin(), 3, to_);
        if constexpr (BytesPerPixel == 4) to_[3] = 255;
      }
      to_ += BytesPerPixel;
    }
    return true;
  }

  const GifImage& image_;
  Bitmap& screen_;
  RowOrder rows_;
  int visible_;  // of a row's pixels
  int x_ = 0;
  Byte* to_ = nullptr;  // null where the row is outside of the screen
};

bool CoversTheScreen(const GifImage& image) {
  return image.left == 0 && image.top == 0 && image.width >= image.screenWidth && image.height >= image.screenHeight;
}

// The picture without alpha; nothing where it needs one, as something is transparent or missing.
Bitmap DrawOpaque(const GifImage& image, ByteReader& in) {
  Bitmap screen(image.screenWidth, image.screenHeight, PixelFormat::Bgr24);
  Drawing<3> drawing(image, screen);
  GifUnpacker unpacker({in, image.codesAt}, image.rootBits);
  for (std::span<const Byte> indexes = unpacker.Next(); !indexes.empty(); indexes = unpacker.Next()) {
    if (!drawing.Draw(indexes)) return {};
    if (drawing.IsWhole()) return screen;
  }
  return {};
}

Bitmap DrawWithAlpha(const GifImage& image, ByteReader& in) {
  Bitmap screen = Bitmap::Cleared(image.screenWidth, image.screenHeight, PixelFormat::Bgra32);
  Drawing<4> drawing(image, screen);
  GifUnpacker unpacker({in, image.codesAt}, image.rootBits);
  for (std::span<const Byte> indexes = unpacker.Next(); !indexes.empty() && !drawing.IsWhole();
       indexes = unpacker.Next()) {
    drawing.Draw(indexes);
  }
  return screen;
}

// Nothing is taken for a picture of which not even a pixel is there.
bool HasPixels(const GifImage& image, ByteReader& in) {
  return !GifUnpacker({in, image.codesAt}, image.rootBits).Next().empty();
}

}  // namespace

Bitmap DecodeGif(ByteReader& in, std::int64_t mostPixels) {
  GifImage image = GifParser(in).FirstImage();
  if (image.screenWidth == 0 || image.screenHeight == 0) {
    image.screenWidth = std::min(image.left + image.width, LongestSide);
    image.screenHeight = std::min(image.top + image.height, LongestSide);
  }
  const auto enough = static_cast<std::size_t>(std::int64_t{image.width} * image.height / GifPixelsPerByte);
  const std::size_t codes = GifBlocks(in, image.codesAt).Count(enough);
  if (!IsBacked(image.width, image.height, codes, GifPixelsPerByte)) RefuseGif();
  if (!IsBacked(image.screenWidth, image.screenHeight, in.Size(), GifPixelsPerByte)) RefuseGif();
  if (!HasPixels(image, in)) RefuseGif();
  RefuseTooLarge(image.width, image.height, mostPixels);
  RefuseTooLarge(image.screenWidth, image.screenHeight, mostPixels);
  if (!image.hasPalette) {
    for (std::size_t i = 0; i < image.palette.size(); ++i) image.palette[i].fill(static_cast<Byte>(i));
  }
  if (CoversTheScreen(image)) {
    if (Bitmap screen = DrawOpaque(image, in); !screen.IsEmpty()) return screen;
  }
  return DrawWithAlpha(image, in);
}

Bitmap DecodeGif(std::span<const Byte> file) {
  ByteReader in(file);
  return DecodeGif(in);
}

}  // namespace pixorra
