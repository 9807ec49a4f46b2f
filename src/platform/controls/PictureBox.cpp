#include "platform/controls/PictureBox.h"

#include <algorithm>
#include <utility>

#include "platform/controls/Toolkit.h"
#include "platform/pixels/Stretch.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"

namespace pixorra {

Colour SolidColour(Colour colour) {
  switch (colour) {
    case ButtonFace:
      return 0x00C0C0C0;
    case WindowBackground:
      return 0x00FFFFFF;
    case ButtonText:
      return 0;
    default:
      return colour & 0x00FFFFFFU;
  }
}

namespace {

void SetPixel(Bitmap& surface, int x, int y, Colour colour) {
  std::uint8_t* pixel = surface.Row(y) + x * surface.BytesPerPixel();
  pixel[0] = static_cast<std::uint8_t>(colour >> 16);
  pixel[1] = static_cast<std::uint8_t>(colour >> 8);
  pixel[2] = static_cast<std::uint8_t>(colour);
}

}  // namespace

PictureBox::PictureBox(Container& container, const std::string& name)
    : PictureBox(container, std::make_shared<Identity>(Identity{name, {}}), 0) {}

PictureBox::PictureBox(Container& container, std::shared_ptr<Identity> identity, int index)
    : Container(&container, Kind::PictureBox, std::move(identity), index) {}

void PictureBox::CopyFrom(const PictureBox& source) {
  Control::CopyFrom(source);
  picture_ = source.picture_;
  rowPicture_ = source.rowPicture_;
  font_ = source.font_;
  backColor_ = source.backColor_;
  foreColor_ = source.foreColor_;
  borderStyle_ = source.borderStyle_;
}

void PictureBox::SetBackColor(Colour colour) {
  backColor_ = colour;
  Cls();
}

void PictureBox::SetBorderStyle(int style) {
  borderStyle_ = style;
  Changed(Change::Look);
}

void PictureBox::SetRowPicture(const Picture& picture) {
  rowPicture_ = picture;
  Changed(Change::Look);
}

void PictureBox::SetPicture(const Picture& picture) {
  picture_ = picture;
  Cls();
}

Picture PictureBox::Image() {
  if (!HasDrawing() && !picture_.IsNothing()) return picture_;
  // Handed out as it is: a copy is made only for the drawing that may follow.
  if (image_.IsNothing()) image_ = Picture(std::exchange(MakeSurface(), Bitmap()));
  return image_;
}

void PictureBox::Cls() {
  DropSurface();
  Drawn();
}

void PictureBox::DropSurface() {
  surface_ = Bitmap();
  image_ = Picture();
}

// The surface comes into being with the first drawing on it, of the size that the box then has.
Bitmap& PictureBox::MakeSurface() {
  if (!image_.IsNothing()) {
    surface_ = image_.Pixels().Clone();
    image_ = Picture();
  } else if (surface_.IsEmpty()) {
    surface_ = Bitmap(std::max(1, Width()), std::max(1, Height()), PixelFormat::Bgr24);
    // What is drawn stays as it is when the desktop turns dark.
    surface_.Fill(SolidColour(GetToolkit().PlainColour(backColor_, false)));
    if (!picture_.IsNothing()) {
      Stretch(picture_.Pixels(), surface_, 0, 0, picture_.Width(), picture_.Height());
    }
  }
  return surface_;
}

void PictureBox::PaintPicture(const Picture& picture, double x, double y, double width, double height) {
  if (picture.IsNothing()) throw RuntimeError(error::BadPicture);
  Stretch(picture.Pixels(), MakeSurface(), CLng(x), CLng(y), CLng(width), CLng(height));
  Drawn();
}

void PictureBox::PSet(int x, int y, Colour colour) {
  Bitmap& surface = MakeSurface();
  if (x < 0 || y < 0 || x >= surface.Width() || y >= surface.Height()) return;
  SetPixel(surface, x, y, colour);
  Drawn();
}

Colour PictureBox::Point(int x, int y) {
  const Bitmap& surface = HasDrawing() ? Surface() : MakeSurface();
  if (x < 0 || y < 0 || x >= surface.Width() || y >= surface.Height()) return 0xFFFFFFFFU;
  const std::uint8_t* pixel = surface.Row(y) + x * surface.BytesPerPixel();
  return static_cast<Colour>(pixel[0]) << 16 | static_cast<Colour>(pixel[1]) << 8 | pixel[2];
}

void PictureBox::Box(double x1, double y1, double x2, double y2, Colour colour, bool filled) {
  const int left = CLng(std::min(x1, x2));
  const int right = CLng(std::max(x1, x2));
  const int top = CLng(std::min(y1, y2));
  const int bottom = CLng(std::max(y1, y2));
  MakeSurface();
  for (int y = std::max(0, top); y <= std::min(bottom, surface_.Height() - 1); ++y) {
    const bool edge = filled || y == top || y == bottom;
    for (int x = std::max(0, left); x <= std::min(right, surface_.Width() - 1); ++x) {
      if (edge || x == left || x == right) SetPixel(surface_, x, y, colour);
    }
  }
  Drawn();
}

double PictureBox::TextWidth(const std::string& text) const {
  return GetToolkit().Text().Measure(font_, text).Width;
}

double PictureBox::TextHeight(const std::string& text) const {
  return GetToolkit().Text().Measure(font_, text).Height;
}

void PictureBox::PrintAt(double x, double y, const std::string& text) {
  GetToolkit().Text().Draw(MakeSurface(), font_, x, y, text, SolidColour(GetToolkit().PlainColour(foreColor_, false)));
  Drawn();
}

void PictureBox::BoundsChanged(const Rect& before) {
  Container::BoundsChanged(before);
  if (before.Width != Width() || before.Height != Height()) DropSurface();
}

void PictureBox::Drawn() {
  if (IsShown()) Changed(Change::Look);
}

}  // namespace pixorra
