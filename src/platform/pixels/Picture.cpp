// Pixel blocks and picture objects.
#include "platform/pixels/Picture.h"

#include <cstring>
#include <limits>

#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

constexpr std::int64_t LargestSize = std::numeric_limits<std::int32_t>::max();

// The usual value of a system colour; another colour is itself.
Colour PlainColour(Colour colour) {
  switch (colour) {
    case ButtonFace:
      return 0x00C0C0C0U;
    case WindowBackground:
      return 0x00FFFFFFU;
    case ButtonText:
      return 0;
    default:
      return colour & 0x00FFFFFFU;
  }
}

}  // namespace

Bitmap::Bitmap(int width, int height, PixelFormat format) : Bitmap(width, height, format, std::malloc) {}

Bitmap Bitmap::Cleared(int width, int height, PixelFormat format) {
  return {width, height, format, [](std::size_t bytes) { return std::calloc(bytes, 1); }};
}

Bitmap::Bitmap(int width, int height, PixelFormat format, Take take) : format_(format) {
  if (width <= 0 || height <= 0) return;
  const std::int64_t stride = (std::int64_t{width} * BytesPerPixel() + 3) / 4 * 4;
  if (stride > LargestSize / height) throw RuntimeError(error::Overflow);
  bytes_.reset(static_cast<std::uint8_t*>(take(static_cast<std::size_t>(stride * height))));
  if (bytes_ == nullptr) throw RuntimeError(error::OutOfMemory);
  width_ = width;
  height_ = height;
  stride_ = static_cast<std::size_t>(stride);
}

Bitmap Bitmap::Clone() const {
  Bitmap copy(width_, height_, format_);
  if (!IsEmpty()) std::memcpy(copy.bytes_.get(), bytes_.get(), stride_ * static_cast<std::size_t>(height_));
  return copy;
}

void Bitmap::Fill(Colour colour) {
  if (IsEmpty()) return;
  const Colour plain = PlainColour(colour);
  const auto step = static_cast<std::size_t>(BytesPerPixel());
  const auto end = step * static_cast<std::size_t>(width_);
  std::uint8_t* first = Row(0);
  for (std::size_t at = 0; at < end; at += step) {
    first[at] = static_cast<std::uint8_t>(plain >> 16U);
    first[at + 1] = static_cast<std::uint8_t>(plain >> 8U);
    first[at + 2] = static_cast<std::uint8_t>(plain);
    if (format_ == PixelFormat::Bgra32) first[at + 3] = 0xFF;
  }
  // The padding is cleared too, so that a file written from whole rows never contains old memory.
  std::memset(first + end, 0, stride_ - end);
  for (int y = 1; y < height_; ++y) std::memcpy(Row(y), first, stride_);
}

Picture::Picture(Bitmap pixels, std::string artName) {
  if (pixels.IsEmpty()) return;
  const int width = pixels.Width();
  const int height = pixels.Height();
  data_ = std::make_shared<const Data>(Data{width, height, std::move(pixels), std::move(artName), nullptr, {}});
}

Picture::Picture(int width, int height, std::string artName, std::function<Bitmap()> draw) {
  if (width <= 0 || height <= 0) return;
  data_ = std::make_shared<const Data>(Data{width, height, {}, std::move(artName), std::move(draw), {}});
}

Picture::Picture(int width, int height, std::vector<Bitmap> reductions, std::function<Bitmap()> draw) {
  if (width <= 0 || height <= 0) return;
  data_ = std::make_shared<const Data>(Data{width, height, {}, {}, std::move(draw), std::move(reductions)});
}

const Bitmap& Picture::Pixels() const {
  if (data_->pixels.IsEmpty()) data_->pixels = data_->draw();
  return data_->pixels;
}

const Bitmap* Picture::Reduction(int width, int height) const {
  if (data_ == nullptr) return nullptr;
  for (const Bitmap& reduction : data_->reductions) {
    if (reduction.Width() == width && reduction.Height() == height) return &reduction;
  }
  return nullptr;
}

const std::string& Picture::ArtName() const {
  static const std::string None;
  return data_ ? data_->artName : None;
}

}  // namespace pixorra
