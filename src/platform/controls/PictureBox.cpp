#include "platform/controls/PictureBox.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/controls/FineSurface.h"
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

void FillRect(Bitmap& surface, const Rect& at, Colour colour) {
  const Rect part = at.Intersected({0, 0, surface.Width(), surface.Height()});
  for (int y = part.Top; y < part.Bottom(); ++y) {
    for (int x = part.Left; x < part.Right(); ++x) SetPixel(surface, x, y, colour);
  }
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
  autoSize_ = source.autoSize_;
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
  FitToPicture();
  Cls();
}

void PictureBox::SetAutoSize(bool autoSize) {
  autoSize_ = autoSize;
  FitToPicture();
}

void PictureBox::FitToPicture() {
  if (autoSize_ && !picture_.IsNothing()) Move(Left(), Top(), picture_.Width(), picture_.Height());
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
  fine_ = Bitmap();
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
      Stretch(picture_, surface_, 0, 0, picture_.Width(), picture_.Height());
    }
    MakeFineSurface();
  }
  return surface_;
}

// Only what will be seen is drawn twice: scratch surfaces are those of hidden boxes.
void PictureBox::MakeFineSurface() {
  fineness_ = GetToolkit().Fineness();
  if (fineness_ <= 1 || !Visible()) return;
  const Rect whole = FineRect({0, 0, surface_.Width(), surface_.Height()}, fineness_);
  fine_ = Bitmap(whole.Width, whole.Height, PixelFormat::Bgr24);
  fine_.Fill(SolidColour(GetToolkit().PlainColour(backColor_, false)));
  if (!picture_.IsNothing()) StretchFine(picture_, fine_, {0, 0, picture_.Width(), picture_.Height()}, fineness_);
}

void PictureBox::PaintPicture(const Picture& picture, double x, double y, double width, double height) {
  if (picture.IsNothing()) throw RuntimeError(error::BadPicture);
  const Rect at{CLng(x), CLng(y), CLng(width), CLng(height)};
  Stretch(picture, MakeSurface(), at.Left, at.Top, at.Width, at.Height);
  if (!fine_.IsEmpty()) StretchFine(picture, fine_, at, fineness_);
  Drawn();
}

void PictureBox::PSet(int x, int y, Colour colour) {
  Bitmap& surface = MakeSurface();
  if (x < 0 || y < 0 || x >= surface.Width() || y >= surface.Height()) return;
  SetPixel(surface, x, y, colour);
  if (!fine_.IsEmpty()) FillRect(fine_, FineRect({x, y, 1, 1}, fineness_), colour);
  Drawn();
}

Colour PictureBox::Point(int x, int y) {
  const Bitmap& surface = HasDrawing() ? Surface() : MakeSurface();
  if (x < 0 || y < 0 || x >= surface.Width() || y >= surface.Height()) return 0xFFFFFFFFU;
  const std::uint8_t* pixel = surface.Row(y) + x * surface.BytesPerPixel();
  return static_cast<Colour>(pixel[0]) << 16 | static_cast<Colour>(pixel[1]) << 8 | pixel[2];
}

void PictureBox::Box(double x1, double y1, double x2, double y2, Colour colour, bool filled) {
  MakeSurface();
  // An edge outside of the box is not seen, however far outside.
  const auto across = [this](double x) { return std::clamp(CLng(x), -1, surface_.Width()); };
  const auto down = [this](double y) { return std::clamp(CLng(y), -1, surface_.Height()); };
  const int left = across(std::min(x1, x2));
  const int right = across(std::max(x1, x2));
  const int top = down(std::min(y1, y2));
  const int bottom = down(std::max(y1, y2));
  std::vector<Rect> parts;
  if (filled) {
    parts = {{left, top, right + 1 - left, bottom + 1 - top}};
  } else {
    parts = {{left, top, right + 1 - left, 1},
             {left, bottom, right + 1 - left, 1},
             {left, top, 1, bottom + 1 - top},
             {right, top, 1, bottom + 1 - top}};
  }
  for (const Rect& part : parts) {
    FillRect(surface_, part, colour);
    if (!fine_.IsEmpty()) FillRect(fine_, FineRect(part, fineness_), colour);
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
  const Colour colour = SolidColour(GetToolkit().PlainColour(foreColor_, false));
  GetToolkit().Text().Draw(MakeSurface(), font_, x, y, text, colour);
  if (!fine_.IsEmpty()) GetToolkit().Text().DrawFine(fine_, fineness_, font_, x, y, text, colour);
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
