#include "base/Bars.h"

#include <algorithm>

#include "platform/runtime/Numbers.h"

namespace pixorra {

void MoveBarBy(ScrollBar& bar, BarScale& scale, double pixels) {
  const double unit = scale.Unit;
  const double wanted = bar.Value() * unit + scale.Rest + pixels;
  const double reached =
      std::clamp(wanted, std::min(bar.Min(), bar.Max()) * unit, std::max(bar.Min(), bar.Max()) * unit);
  const double value = RoundHalfEven(reached / unit);
  scale.Rest = reached - value * unit;
  bar.SetValue(value);
}

}  // namespace pixorra
