// One direction of a stretch: which source pixels a target pixel is made of, and how much each counts.
#pragma once

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

namespace pixorra {

// For reductions. Target pixel i covers source pixels [fullBegin, fullEnd) whole, and a part of the one before and of
// the one after; a part of weight 0 is not there and must not be read.
struct AreaSpan {
  int fullBegin = 0;
  int fullEnd = 0;
  std::uint32_t headWeight = 0;
  std::uint32_t tailWeight = 0;
};

struct AreaAxis {
  std::uint32_t fullWeight = 1;
  std::uint32_t total = 1;  // the weights of each span add up to this
  std::vector<AreaSpan> spans;

  // `source` pixels become `target` ones, target <= source; spans for the target pixels [from, to).
  AreaAxis(int source, int target, int from, int to) {
    // In units in which a source pixel is `unit` wide a target pixel is `total` wide, both whole.
    const int divisor = std::gcd(source, target);
    const std::int64_t unit = target / divisor;
    const std::int64_t wide = source / divisor;
    fullWeight = static_cast<std::uint32_t>(unit);
    total = static_cast<std::uint32_t>(wide);
    spans.reserve(static_cast<std::size_t>(to - from));
    for (std::int64_t i = from; i < to; ++i) {
      const std::int64_t begin = i * wide;
      const std::int64_t end = begin + wide;
      AreaSpan span;
      span.fullBegin = static_cast<int>((begin + unit - 1) / unit);
      span.fullEnd = static_cast<int>(end / unit);
      span.headWeight = static_cast<std::uint32_t>(span.fullBegin * unit - begin);
      span.tailWeight = static_cast<std::uint32_t>(end - span.fullEnd * unit);
      spans.push_back(span);
    }
  }
};

// For enlargements. Target pixel i is between the centres of two source pixels, `fraction` 256ths of the way.
struct BlendPoint {
  int first = 0;
  int second = 0;
  std::uint32_t fraction = 0;
};

struct BlendAxis {
  int source = 0;
  std::vector<BlendPoint> points;

  BlendAxis(int sourcePixels, int target, int from, int to) : source(sourcePixels) {
    points.reserve(static_cast<std::size_t>(to - from));
    for (std::int64_t i = from; i < to; ++i) {
      const std::int64_t place = std::max<std::int64_t>(0, ((2 * i + 1) * source - target) * 128 / target);
      BlendPoint point;
      point.first = static_cast<int>(std::min<std::int64_t>(place >> 8, source - 1));
      point.second = std::min(point.first + 1, source - 1);
      point.fraction = point.second == point.first ? 0 : static_cast<std::uint32_t>(place & 255);
      points.push_back(point);
    }
  }
};

}  // namespace pixorra
