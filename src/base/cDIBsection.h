// An off-screen bitmap whose pixels are one plain block of memory: rows bottom-up, each padded to 4 bytes. The JPEG
// codec decodes into it and encodes from it in place.
#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "base/DeviceContext.h"
#include "platform/pixels/Picture.h"
#include "platform/services/Pictures.h"

namespace pixorra {

struct BITMAPINFOHEADER {
  std::int32_t biSize = 0;
  std::int32_t biWidth = 0;
  std::int32_t biHeight = 0;
  std::int16_t biPlanes = 0;
  std::int16_t biBitCount = 0;
  std::int32_t biCompression = 0;
  std::int32_t biSizeImage = 0;
  std::int32_t biXPelsPerMeter = 0;
  std::int32_t biYPelsPerMeter = 0;
  std::int32_t biClrUsed = 0;
  std::int32_t biClrImportant = 0;
};

struct BITMAPINFO {
  BITMAPINFOHEADER bmiHeader;
  std::array<std::uint8_t, 4> bmiColors{};
};

// Copies the source as it is; the only raster operation there is. Any other copies nothing.
inline constexpr std::uint32_t SRCCOPY = 0xCC0020;

class cDIBsection {
 public:
  using Handle = std::uint32_t;  // 0 for none

  cDIBsection() = default;
  ~cDIBsection() { CleanUp(); }
  cDIBsection(const cDIBsection&) = delete;
  cDIBsection& operator=(const cDIBsection&) = delete;

  // 24 bits a pixel for 3 channels, 32 for any other count. All pixels are 0. False, with no surface, for sizes below 1
  // or where memory runs out. Raises Overflow, with no surface, where the row or the block leaves 32 bits.
  bool Create(std::int32_t lWidth, std::int32_t lHeight, std::int32_t lChannels);
  // Fills the description and makes the block, whose handle is put into `hDib`.
  bool CreateDIB(Handle lhDC, std::int32_t lWidth, std::int32_t lHeight, std::int32_t lChannels, Handle& hDib);
  // A 3-channel surface of the picture's size with the picture on it, over white where it is transparent. Where
  // that fails there is no surface.
  void CreateFromPicture(const Picture& picture);
  // A 24-bit surface from a picture file. False, with no surface, where it cannot be read.
  bool Load(Pictures& pictures, const std::string& fileName);

  // Bytes of a row with its padding. Raises Overflow above 32 bits.
  std::int32_t BytesPerScanLine() const;
  std::int32_t dib_width() const { return info_.bmiHeader.biWidth; }
  std::int32_t dib_height() const { return info_.bmiHeader.biHeight; }
  std::int32_t dib_channels() const { return info_.bmiHeader.biBitCount / 8; }
  const BITMAPINFO& Info() const { return info_; }

  // The three copies clip to what both sides have. A width or height below 0 is this surface's own.
  void LoadPictureBlt(const DeviceContext& lhDC, int lSrcLeft = 0, int lSrcTop = 0, int lSrcWidth = -1,
                      int lSrcHeight = -1, std::uint32_t eRop = SRCCOPY);
  void PaintPicture(const DeviceContext& lhDC, int lDestLeft = 0, int lDestTop = 0, int lDestWidth = -1,
                    int lDestHeight = -1, int lSrcLeft = 0, int lSrcTop = 0, std::uint32_t eRop = SRCCOPY) const;
  void PaintPictureStretch(const DeviceContext& lhDC, int lDestLeft = 0, int lDestTop = 0, int lDestWidth = -1,
                           int lDestHeight = -1, int lSrcLeft = 0, int lSrcTop = 0, int lSrcWidth = -1,
                           int lSrcHeight = -1, std::uint32_t eRop = SRCCOPY) const;

  // A surface exists exactly when hDC is not 0; hDib is then not 0 either.
  Handle hDC() const { return hDC_; }
  Handle hDib() const { return hDib_; }
  // The first byte of the bottom row; null where no surface exists.
  std::uint8_t* DIBSectionBitsPtr() const { return DIBSectionBitsPtr_.get(); }

  void CleanUp();

 private:
  struct Free {
    void operator()(std::uint8_t* block) const { std::free(block); }
  };

  Handle hDib_ = 0;
  Handle hBmpOld_ = 0;
  Handle hDC_ = 0;
  std::unique_ptr<std::uint8_t[], Free> DIBSectionBitsPtr_;
  BITMAPINFO info_;
};

}  // namespace pixorra
