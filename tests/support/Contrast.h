// Relative luminance, and the contrast of two colours, as the guidelines for accessible web content reckon them.
#pragma once

#include <algorithm>
#include <cmath>

#include "platform/pixels/Picture.h"

namespace pixorra {

// 0 for black, 1 for white. Not for colours of the system.
inline double Luminance(Colour colour) {
  const auto linear = [](Colour channel) {
    const double share = static_cast<double>(channel & 0xFFU) / 255;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour) + 0.7152 * linear(colour >> 8U) + 0.0722 * linear(colour >> 16U);
}

// 1 to 21.
inline double Contrast(Colour one, Colour other) {
  const double a = Luminance(one);
  const double b = Luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// Text is to have at least so much against its ground.
inline constexpr double LeastContrast = 4.5;

}  // namespace pixorra
