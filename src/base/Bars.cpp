#include "base/Bars.h"

#include <algorithm>
#include <cmath>

#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"

namespace pixorra {

namespace {

constexpr int MostBarValue = 32767;

// In units of 2 pixels halves are rounded; in a larger one nothing of the view's end is cut off.
double MaxFor(double pixels, int unit) {
  return unit == LeastBarUnit ? RoundHalfEven(pixels / unit) : std::ceil(pixels / unit);
}

void ChangeUnit(ScrollBar& bar, BarScale& scale, int unit, int min, double max) {
  const ScrollInProgress silent(bar);
  const double place = ScrolledPixels(bar, scale) + scale.Rest;
  scale = {.Unit = unit, .Rest = 0};
  // Both the former value and the one to come are in this range, but for one below the least.
  bar.SetMin(min);
  bar.SetMax(std::max<double>(bar.Max(), max));
  bar.SetValue(std::clamp<double>(RoundHalfEven(place / unit), bar.Min(), bar.Max()));
}

}  // namespace

int BarUnitFor(double pixels) {
  int unit = LeastBarUnit;
  while (MaxFor(pixels, unit) > MostBarValue) unit += 2;
  return unit;
}

bool FitBar(ScrollBar& bar, BarScale& scale, double pixels, int least) {
  const int unit = BarUnitFor(pixels);
  const double max = MaxFor(pixels, unit);
  const bool changes = unit != scale.Unit;
  if (changes) {
    const int min = unit == LeastBarUnit ? least : 0;
    ErrorsIgnored([&] { ChangeUnit(bar, scale, unit, min, std::max<double>(max, LeastBarMax)); });
  }
  // A view that fits its window is scrolled back to its start by the first of the two.
  ErrorsIgnored([&] { bar.SetMax(max); });
  ErrorsIgnored([&] {
    if (bar.Max() < LeastBarMax) bar.SetMax(LeastBarMax);
  });
  bar.Refresh();
  return changes;
}

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
