// A picture object: pixels that are never changed once made, shared by all that show them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace pixorra {

// 0x00BBGGRR; with the top bit set (0x8000000F) a colour of the system.
using Colour = std::uint32_t;
inline constexpr Colour ButtonFace = 0x8000000FU;
inline constexpr Colour WindowBackground = 0x80000005U;
inline constexpr Colour ButtonText = 0x80000012U;

struct PixelSize {
  int Width = 0;
  int Height = 0;
  bool operator==(const PixelSize&) const = default;
};

enum class PixelFormat : std::uint8_t {
  Bgr24,   // three bytes a pixel: blue, green, red
  Bgra32,  // four bytes a pixel, the colours premultiplied by alpha
};

// A block of pixel rows, the top row first, each row padded to a multiple of 4 bytes. Movable, not copyable.
class Bitmap {
 public:
  Bitmap() = default;
  // The pixels are not set. Raises OutOfMemory where the block cannot be had, Overflow where its size in bytes
  // leaves 32 bits with sign. A width or height of 0 or less makes an empty bitmap.
  Bitmap(int width, int height, PixelFormat format);
  // All bytes 0: black, or transparent. What is never written takes address space alone. Raises as the constructor.
  static Bitmap Cleared(int width, int height, PixelFormat format);

  bool IsEmpty() const { return bytes_ == nullptr; }
  int Width() const { return width_; }
  int Height() const { return height_; }
  PixelFormat Format() const { return format_; }
  int BytesPerPixel() const { return format_ == PixelFormat::Bgr24 ? 3 : 4; }
  std::size_t Stride() const { return stride_; }
  std::uint8_t* Row(int y) { return bytes_.get() + static_cast<std::size_t>(y) * stride_; }
  const std::uint8_t* Row(int y) const { return bytes_.get() + static_cast<std::size_t>(y) * stride_; }
  Bitmap Clone() const;
  // Sets every pixel; opaque in a bitmap with alpha. A colour of the system is taken at its usual value.
  void Fill(Colour colour);

 private:
  struct Free {
    void operator()(std::uint8_t* block) const { std::free(block); }
  };
  using Take = void* (*)(std::size_t bytes);
  Bitmap(int width, int height, PixelFormat format, Take take);

  int width_ = 0;
  int height_ = 0;
  PixelFormat format_ = PixelFormat::Bgr24;
  std::size_t stride_ = 0;
  std::unique_ptr<std::uint8_t[], Free> bytes_;
};

class Picture {
 public:
  Picture() = default;                                        // nothing
  explicit Picture(Bitmap pixels, std::string artName = {});  // an empty bitmap makes nothing
  // A drawing of that size whose pixels are made when they are first asked for, which may be never. What `draw` makes
  // has that size.
  Picture(int width, int height, std::string artName, std::function<Bitmap()> draw);
  // A photo of that size whose pixels are made as those of a drawing. These reductions have been made of them already,
  // as Stretch makes them, each without alpha.
  Picture(int width, int height, std::vector<Bitmap> reductions, std::function<Bitmap()> draw);

  bool IsNothing() const { return data_ == nullptr; }
  // The picture's own size in pixels; 0 for nothing.
  int Width() const { return data_ ? data_->width : 0; }
  int Height() const { return data_ ? data_->height : 0; }
  // Not for nothing. Empty where a drawing cannot be made; raises what making it does.
  const Bitmap& Pixels() const;
  // The whole picture stretched to that size, if that has been made already; else null.
  const Bitmap* Reduction(int width, int height) const;
  // For a drawing of the program's own, its name, by which a back end can draw it sharper than its pixels are.
  const std::string& ArtName() const;
  bool operator==(const Picture& other) const { return data_ == other.data_; }

 private:
  struct Data {
    int width;
    int height;
    mutable Bitmap pixels;
    std::string artName;
    std::function<Bitmap()> draw;
    std::vector<Bitmap> reductions;
  };
  std::shared_ptr<const Data> data_;
};

}  // namespace pixorra
