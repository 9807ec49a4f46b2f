#include "platform/controls/Painting.h"

#include <algorithm>

#include "platform/controls/Form.h"

namespace pixorra {

namespace {

// The farthest that a control of any kind is painted beyond its bounds, pixels.
constexpr int MostReach = [] {
  int most = 0;
  for (const KindTraits& traits : AllKinds) most = std::max(most, traits.Reach);
  return most;
}();

bool IsPainted(const Control& control) {
  return TraitsOf(control.GetKind()).Shown == ShownAs::Light && control.Visible();
}

void Collect(const Container& container, int originX, int originY, const Rect& exposed, std::vector<PaintItem>& items) {
  std::vector<const Control*> seen;
  const std::vector<Rect>& places = container.Places();
  const Rect within = exposed.Moved(-originX, -originY);
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (places[i].Grown(MostReach).Intersected(within).IsEmpty()) continue;
    const Control* control = container.Controls()[i];
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
