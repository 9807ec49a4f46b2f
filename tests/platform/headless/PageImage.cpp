#include "tests/platform/headless/PageImage.h"

#include <algorithm>
#include <cmath>

#include "platform/headless/HeadlessText.h"
#include "platform/pixels/Stretch.h"

namespace pixorra {

namespace {

constexpr double TwipsPerDot = 20;
constexpr double PictureTwips = 15;
constexpr double PointsOfAPixel = 72.0 / 96;  // of a text whose points are pixels here

int Pixel(double twips) {
  return static_cast<int>(std::lround(twips / TwipsPerDot));
}

void Fill(Bitmap& page, double left, double top, double right, double bottom, Colour colour) {
  for (int y = std::max(0, Pixel(top)); y < std::min(page.Height(), Pixel(bottom)); ++y) {
    for (int x = std::max(0, Pixel(left)); x < std::min(page.Width(), Pixel(right)); ++x) {
      std::uint8_t* pixel = page.Row(y) + 3 * x;
      pixel[0] = static_cast<std::uint8_t>(colour >> 16);
      pixel[1] = static_cast<std::uint8_t>(colour >> 8);
      pixel[2] = static_cast<std::uint8_t>(colour);
    }
  }
}

void DrawBox(Bitmap& page, const PrintedItem& box, double twipsPerPixel) {
  const double half = box.DrawWidth * twipsPerPixel / 2;
  const double right = box.X + box.Width;
  const double bottom = box.Y + box.Height;
  const Colour colour = box.InColour;
  if (box.FillStyle != 1) Fill(page, box.X, box.Y, right, bottom, colour);
  Fill(page, box.X - half, box.Y - half, right + half, box.Y + half, colour);
  Fill(page, box.X - half, bottom - half, right + half, bottom + half, colour);
  Fill(page, box.X - half, box.Y - half, box.X + half, bottom + half, colour);
  Fill(page, right - half, box.Y - half, right + half, bottom + half, colour);
}

void DrawPart(Bitmap& page, const PrintedItem& item) {
  const Bitmap& source = item.Painted.Pixels();
  const int left = static_cast<int>(std::lround(item.SourceX / PictureTwips));
  const int top = static_cast<int>(std::lround(item.SourceY / PictureTwips));
  Bitmap part(static_cast<int>(std::lround(item.SourceWidth / PictureTwips)),
              static_cast<int>(std::lround(item.SourceHeight / PictureTwips)), PixelFormat::Bgr24);
  for (int y = 0; y < part.Height(); ++y) {
    std::copy_n(source.Row(top + y) + 3 * left, 3 * part.Width(), part.Row(y));
  }
  Stretch(part, page, Pixel(item.X), Pixel(item.Y), Pixel(item.Width), Pixel(item.Height));
}

}  // namespace

Bitmap PageImage(const HeadlessPrinter& printer, const PrintedPage& page) {
  double width = printer.SheetWidth;
  double height = printer.SheetHeight;
  if (page.Orientation == 2) std::swap(width, height);
  Bitmap shown(Pixel(width - 2 * printer.Edge), Pixel(height - 2 * printer.Edge), PixelFormat::Bgr24);
  shown.Fill(0x00FFFFFF);
  for (const PrintedItem& item : page.Items) {
    if (item.What == PrintedItem::Kind::Box) DrawBox(shown, item, printer.TwipsPerPixel);
    if (item.What == PrintedItem::Kind::Picture) DrawPart(shown, item);
    if (item.What != PrintedItem::Kind::Text) continue;
    const Font font{"", item.FontSize * PointsOfAPixel, item.Bold};
    double x = item.X;
    double y = item.Y;
    for (const std::string& line : LinesOf(item.Text)) {
      HeadlessText().Draw(shown, font, x / TwipsPerDot, y / TwipsPerDot, line, item.InColour);
      x = 0;
      y += 1.2 * item.FontSize * TwipsPerDot;
    }
  }
  return shown;
}

}  // namespace pixorra
