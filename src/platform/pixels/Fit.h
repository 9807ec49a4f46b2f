// Where a photo lies on a canvas of another shape.
#pragma once

#include <cstdint>
#include <cstdlib>

#include "platform/runtime/Errors.h"

namespace pixorra {

struct FittedRect {
  double X = 0;
  double Y = 0;
  double Width = 0;
  double Height = 0;
  bool Fills = false;  // the canvas whole, the photo's shape changed to fit
};

// Sizes in pixels. A photo whose width through height differs from the canvas's by less than 0.2 fills the canvas;
// another keeps its shape and gets bars. Raises DivisionByZero for a photo or canvas without height.
inline FittedRect Fit(int canvasWidth, int canvasHeight, int photoWidth, int photoHeight) {
  if (canvasHeight <= 0 || photoHeight <= 0) throw RuntimeError(error::DivisionByZero);
  // Both shapes over one denominator, in whole numbers, so that a difference of exactly 0.2 is not taken for less.
  const std::int64_t photo = std::int64_t{photoWidth} * canvasHeight;
  const std::int64_t canvas = std::int64_t{canvasWidth} * photoHeight;
  const std::int64_t denominator = std::int64_t{photoHeight} * canvasHeight;
  const double cw = canvasWidth;
  const double ch = canvasHeight;
  if (5 * std::abs(photo - canvas) < denominator) return {0, 0, cw, ch, true};
  if (canvas <= photo) {
    const double height = cw * photoHeight / photoWidth;
    return {0, (ch - height) / 2, cw, height, false};
  }
  const double width = ch * photoWidth / photoHeight;
  return {(cw - width) / 2, 0, width, ch, false};
}

}  // namespace pixorra
