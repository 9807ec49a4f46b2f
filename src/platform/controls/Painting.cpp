#include "platform/controls/Painting.h"

#include <algorithm>

#include "platform/controls/Form.h"

namespace pixorra {

namespace {

bool IsPainted(const Control& control) {
  return TraitsOf(control.GetKind()).Shown == ShownAs::Light && control.Visible();
}

void Collect(const Container& container, int originX, int originY, const Rect& exposed, std::vector<PaintItem>& items) {
  std::vector<const Control*> seen;
  for (const Control* control : container.Controls()) {
    if (!IsPainted(*control)) continue;
    const Rect at = control->Bounds().Moved(originX, originY).Grown(TraitsOf(control->GetKind()).Reach);
    if (!at.Intersected(exposed).IsEmpty()) seen.push_back(control);
  }
  std::sort(seen.begin(), seen.end(), [](const Control* a, const Control* b) { return a->ZOrder() < b->ZOrder(); });
  for (const Control* control : seen) {
    const Rect at = control->Bounds().Moved(originX, originY);
    // What is painted beyond its bounds is cut by the exposed part only.
    const Rect clip = TraitsOf(control->GetKind()).Reach > 0 ? exposed : at.Intersected(exposed);
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
