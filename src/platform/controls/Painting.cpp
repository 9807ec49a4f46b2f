#include "platform/controls/Painting.h"

#include <algorithm>

#include "platform/controls/Form.h"
#include "platform/controls/Shape.h"

namespace pixorra {

namespace {

bool IsPainted(const Control& control) {
  switch (control.GetKind()) {
    case Kind::PictureBox:
    case Kind::Frame:
    case Kind::ImageBox:
    case Kind::Label:
    case Kind::Shape:
      return control.Visible();
    default:
      return false;
  }
}

void Collect(const Container& container, int originX, int originY, const Rect& exposed, std::vector<PaintItem>& items) {
  std::vector<const Control*> seen;
  for (const Control* control : container.Controls()) {
    if (!IsPainted(*control)) continue;
    Rect at = control->Bounds().Moved(originX, originY);
    if (control->GetKind() == Kind::Shape) at = at.Grown(Shape::BorderReach);
    if (!at.Intersected(exposed).IsEmpty()) seen.push_back(control);
  }
  std::sort(seen.begin(), seen.end(), [](const Control* a, const Control* b) { return a->ZOrder() < b->ZOrder(); });
  for (const Control* control : seen) {
    const Rect at = control->Bounds().Moved(originX, originY);
    const Rect clip = control->GetKind() == Kind::Shape ? exposed : at.Intersected(exposed);
    items.push_back({control, at, clip});
    if (const Container* inner = AsContainer(*control)) Collect(*inner, at.Left, at.Top, clip, items);
  }
}

}  // namespace

std::vector<PaintItem> ItemsToPaint(const Form& form, const Rect& exposed) {
  std::vector<PaintItem> items;
  Collect(form, 0, 0, exposed, items);
  return items;
}

}  // namespace pixorra
