#include "base/cDIBsection.h"

#include "platform/pixels/Stretch.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"

namespace pixorra {

namespace {

// There is no table of handles; these only say that something is there.
constexpr cDIBsection::Handle MemoryContext = 1;
constexpr cDIBsection::Handle Section = 2;
constexpr cDIBsection::Handle StockBitmap = 3;

constexpr std::int32_t HeaderBytes = 40;

int OwnWhenNegative(int size, std::int32_t own) {
  return size < 0 ? own : size;
}

}  // namespace

DeviceContext::DeviceContext(const cDIBsection& surface) {
  if (surface.hDC() == 0) return;
  width = surface.dib_width();
  height = surface.dib_height();
  bytesPerPixel = surface.dib_channels();
  step = -std::ptrdiff_t{surface.BytesPerScanLine()};
  top = surface.DIBSectionBitsPtr() - (height - 1) * step;
}

std::int32_t cDIBsection::BytesPerScanLine() const {
  const BITMAPINFOHEADER& header = info_.bmiHeader;
  return CLng(static_cast<double>(dib_channels()) * header.biWidth + 3) & ~3;
}

bool cDIBsection::CreateDIB(Handle, std::int32_t lWidth, std::int32_t lHeight, std::int32_t lChannels, Handle& hDib) {
  BITMAPINFOHEADER& header = info_.bmiHeader;
  header.biSize = HeaderBytes;
  header.biWidth = lWidth;
  header.biHeight = lHeight;
  header.biPlanes = 1;
  header.biBitCount = lChannels == 3 ? 24 : 32;
  header.biCompression = 0;
  const std::int64_t bytes = std::int64_t{BytesPerScanLine()} * lHeight;
  header.biSizeImage = CLng(static_cast<double>(bytes));
  DIBSectionBitsPtr_.reset();
  hDib = 0;
  if (lWidth < 1 || lHeight < 1) return false;
  // Cleared memory costs nothing as long as it is not touched.
  DIBSectionBitsPtr_.reset(static_cast<std::uint8_t*>(std::calloc(static_cast<std::size_t>(bytes), 1)));
  hDib = DIBSectionBitsPtr_ != nullptr ? Section : 0;
  return hDib != 0;
}

bool cDIBsection::Create(std::int32_t lWidth, std::int32_t lHeight, std::int32_t lChannels) {
  CleanUp();
  hDC_ = MemoryContext;
  try {
    if (CreateDIB(hDC_, lWidth, lHeight, lChannels, hDib_)) {
      hBmpOld_ = StockBitmap;
      return true;
    }
  } catch (const RuntimeError&) {
    hDC_ = 0;
    throw;
  }
  hDC_ = 0;
  return false;
}

void cDIBsection::CreateFromPicture(const Picture& picture) {
  if (!Create(picture.Width(), picture.Height(), 3)) return;
  const Bitmap& pixels = picture.Pixels();
  if (pixels.Format() == PixelFormat::Bgr24) return LoadPictureBlt(DeviceContext::ToRead(pixels));
  Bitmap flat(pixels.Width(), pixels.Height(), PixelFormat::Bgr24);
  flat.Fill(0xFFFFFF);
  Stretch(pixels, flat, 0, 0, pixels.Width(), pixels.Height());
  LoadPictureBlt(flat);
}

bool cDIBsection::Load(Pictures& pictures, const std::string& fileName) {
  CleanUp();
  Picture loaded;
  if (ErrorsIgnored([&] { loaded = pictures.Load(fileName); }) != error::None) return false;
  CreateFromPicture(loaded);
  return hDC_ != 0;
}

void cDIBsection::LoadPictureBlt(const DeviceContext& lhDC, int lSrcLeft, int lSrcTop, int lSrcWidth, int lSrcHeight,
                                 std::uint32_t eRop) {
  if (eRop != SRCCOPY) return;
  CopyPixels(lhDC, lSrcLeft, lSrcTop, *this, 0, 0, OwnWhenNegative(lSrcWidth, dib_width()),
             OwnWhenNegative(lSrcHeight, dib_height()));
}

void cDIBsection::PaintPicture(const DeviceContext& lhDC, int lDestLeft, int lDestTop, int lDestWidth, int lDestHeight,
                               int lSrcLeft, int lSrcTop, std::uint32_t eRop) const {
  if (eRop != SRCCOPY) return;
  CopyPixels(*this, lSrcLeft, lSrcTop, lhDC, lDestLeft, lDestTop, OwnWhenNegative(lDestWidth, dib_width()),
             OwnWhenNegative(lDestHeight, dib_height()));
}

void cDIBsection::PaintPictureStretch(const DeviceContext& lhDC, int lDestLeft, int lDestTop, int lDestWidth,
                                      int lDestHeight, int lSrcLeft, int lSrcTop, int lSrcWidth, int lSrcHeight,
                                      std::uint32_t eRop) const {
  if (eRop != SRCCOPY || hDC_ == 0 || lhDC.top == nullptr) return;
  Bitmap part(OwnWhenNegative(lSrcWidth, dib_width()), OwnWhenNegative(lSrcHeight, dib_height()), PixelFormat::Bgr24);
  if (part.IsEmpty()) return;
  part.Fill(0);
  CopyPixels(*this, lSrcLeft, lSrcTop, part, 0, 0, part.Width(), part.Height());
  Bitmap stretched(OwnWhenNegative(lDestWidth, dib_width()), OwnWhenNegative(lDestHeight, dib_height()),
                   PixelFormat::Bgr24);
  Stretch(part, stretched, 0, 0, stretched.Width(), stretched.Height());
  CopyPixels(stretched, 0, 0, lhDC, lDestLeft, lDestTop, stretched.Width(), stretched.Height());
}

void cDIBsection::CleanUp() {
  hDC_ = 0;
  hDib_ = 0;
  hBmpOld_ = 0;
  DIBSectionBitsPtr_.reset();
  info_.bmiColors.fill(0);
  BITMAPINFOHEADER& header = info_.bmiHeader;
  header.biSize = HeaderBytes;
  header.biWidth = 0;
  header.biHeight = 0;
  header.biPlanes = 0;
  header.biBitCount = 0;
  header.biCompression = 0;
  header.biClrUsed = 0;
  header.biClrImportant = 0;
}

}  // namespace pixorra
