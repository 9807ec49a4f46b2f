#include "platform/qt/Pointers.h"

#include <QPixmap>
#include <array>
#include <string_view>

#include "platform/qt/Drawn.h"

namespace pixorra {

namespace {

struct HotSpot {
  std::string_view Art;
  int X;
  int Y;
};
constexpr std::array HotSpots = {HotSpot{"HandPointer", 9, 2}, HotSpot{"NotReadyIcon", 9, 2}};
constexpr HotSpot AnyOther = {"", 8, 2};

HotSpot HotSpotOf(const Picture& picture) {
  for (const HotSpot& spot : HotSpots) {
    if (spot.Art == picture.ArtName()) return spot;
  }
  return AnyOther;
}

}  // namespace

QCursor ToCursor(const Toolkit::PointerShown& shown, ArtStore& art, double devicePixelRatio) {
  if (shown.Pointer == pointer::Hidden) return QCursor(Qt::BlankCursor);
  if (shown.Pointer == pointer::Hourglass) return QCursor(Qt::WaitCursor);
  if (shown.Pointer != pointer::Custom || shown.Icon.IsNothing()) return QCursor(Qt::ArrowCursor);
  const HotSpot spot = HotSpotOf(shown.Icon);
  return QCursor(DrawnPixmap(shown.Icon, devicePixelRatio, art), spot.X, spot.Y);
}

}  // namespace pixorra
