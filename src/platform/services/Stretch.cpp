#include "platform/services/Stretch.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <utility>
#include <vector>

#include "platform/services/StretchAxis.h"

namespace pixorra {
namespace {

using Byte = std::uint8_t;

// The part of a stretch's rectangle that lies inside the target, counted from the rectangle's own corner.
struct Extent {
  int from = 0;
  int to = 0;

  Extent(int start, int size, int limit) {
    from = static_cast<int>(std::clamp<std::int64_t>(-std::int64_t{start}, 0, size));
    to = static_cast<int>(std::min<std::int64_t>(size, std::int64_t{limit} - start));
  }
  bool IsEmpty() const { return to <= from; }
};

// Sums of weighted bytes divided by the sum of the weights, halves upwards. A multiplication in double is exact enough
// for every sum below 2^40 and much quicker than a 64-bit division; the tiny addend keeps whole quotients whole.
class Mean {
 public:
  explicit Mean(std::uint64_t total) : half_(total / 2), factor_(1.0 / static_cast<double>(total)) {}
  Byte operator()(std::uint64_t sum) const {
    return static_cast<Byte>(
        static_cast<int>(static_cast<double>(static_cast<std::int64_t>(sum + half_)) * factor_ + 1e-11));
  }

 private:
  std::uint64_t half_;
  double factor_;
};

template <int Channels, typename Value>
void AverageAcross(const AreaAxis& axis, const Value* row, std::uint64_t rowTotal, Byte* out) {
  const Mean mean(rowTotal * axis.total);
  for (const AreaSpan& span : axis.spans) {
    std::array<std::uint64_t, Channels> sums{};
    for (const Value* v = row + std::ptrdiff_t{span.fullBegin} * Channels;
         v != row + std::ptrdiff_t{span.fullEnd} * Channels; v += Channels) {
      for (std::size_t c = 0; c < Channels; ++c) sums[c] += v[c];
    }
    for (std::size_t c = 0; c < Channels; ++c) sums[c] *= axis.fullWeight;
    if (span.headWeight != 0) {
      const Value* v = row + std::ptrdiff_t{span.fullBegin - 1} * Channels;
      for (std::size_t c = 0; c < Channels; ++c) sums[c] += std::uint64_t{v[c]} * span.headWeight;
    }
    if (span.tailWeight != 0) {
      const Value* v = row + std::ptrdiff_t{span.fullEnd} * Channels;
      for (std::size_t c = 0; c < Channels; ++c) sums[c] += std::uint64_t{v[c]} * span.tailWeight;
    }
    for (std::size_t c = 0; c < Channels; ++c) *out++ = mean(sums[c]);
  }
}

template <int Channels>
void BlendAcross(const BlendAxis& axis, const std::uint32_t* row, std::uint64_t rowTotal, Byte* out) {
  const Mean mean(rowTotal * 256);
  for (const BlendPoint& point : axis.points) {
    const std::uint32_t* a = row + std::ptrdiff_t{point.first} * Channels;
    const std::uint32_t* b = row + std::ptrdiff_t{point.second} * Channels;
    for (int c = 0; c < Channels; ++c) {
      *out++ = mean(std::uint64_t{a[c]} * (256 - point.fraction) + std::uint64_t{b[c]} * point.fraction);
    }
  }
}

// The channels of a pixel, 16 bits apart, so that one multiplication weighs them all.
template <int Channels>
std::uint64_t Spread(const Byte* pixel) {
  std::uint64_t lanes = pixel[0] | std::uint64_t{pixel[1]} << 16 | std::uint64_t{pixel[2]} << 32;
  if constexpr (Channels == 4) lanes |= std::uint64_t{pixel[3]} << 48;
  return lanes;
}

template <int Channels>
void BlendAcross(const BlendAxis& axis, const Byte* row, std::uint64_t, Byte* out) {
  for (const BlendPoint& point : axis.points) {
    const std::uint64_t lanes =
        Spread<Channels>(row + std::ptrdiff_t{point.first} * Channels) * (256 - point.fraction) +
        Spread<Channels>(row + std::ptrdiff_t{point.second} * Channels) * point.fraction + 0x0080008000800080U;
    out[0] = static_cast<Byte>(lanes >> 8);
    out[1] = static_cast<Byte>(lanes >> 24);
    out[2] = static_cast<Byte>(lanes >> 40);
    if constexpr (Channels == 4) out[3] = static_cast<Byte>(lanes >> 56);
    out += Channels;
  }
}

void BlendRows(const Byte* a, const Byte* b, std::uint32_t fraction, Byte* out, std::size_t count) {
  const auto second = static_cast<std::uint16_t>(fraction);
  const auto first = static_cast<std::uint16_t>(256 - fraction);
  for (std::size_t i = 0; i < count; ++i) out[i] = static_cast<Byte>((a[i] * first + b[i] * second + 128) >> 8);
}

// Adds up rows of bytes, weighted. Whole rows are summed in 16 bits, as long as these hold them.
class RowSums {
 public:
  explicit RowSums(std::size_t count) : whole_(count), sums_(count) {}

  const std::uint32_t* Of(const Bitmap& source, const AreaAxis& axis, const AreaSpan& span) {
    std::fill(sums_.begin(), sums_.end(), 0U);
    constexpr int RowsThatFit = 257;
    for (int begin = span.fullBegin; begin < span.fullEnd; begin += RowsThatFit) {
      std::fill(whole_.begin(), whole_.end(), std::uint16_t{0});
      for (int y = begin; y < std::min(span.fullEnd, begin + RowsThatFit); ++y) AddWhole(source.Row(y));
      for (std::size_t i = 0; i < sums_.size(); ++i) sums_[i] += axis.fullWeight * whole_[i];
    }
    if (span.headWeight != 0) AddPart(source.Row(span.fullBegin - 1), span.headWeight);
    if (span.tailWeight != 0) AddPart(source.Row(span.fullEnd), span.tailWeight);
    return sums_.data();
  }

 private:
  void AddWhole(const Byte* row) {
    std::uint16_t* sums = whole_.data();
    const std::size_t count = whole_.size();
    for (std::size_t i = 0; i < count; ++i) sums[i] = static_cast<std::uint16_t>(sums[i] + row[i]);
  }
  void AddPart(const Byte* row, std::uint32_t weight) {
    std::uint32_t* sums = sums_.data();
    const std::size_t count = sums_.size();
    for (std::size_t i = 0; i < count; ++i) sums[i] += row[i] * weight;
  }

  std::vector<std::uint16_t> whole_;
  std::vector<std::uint32_t> sums_;
};

Byte Over(unsigned above, unsigned below, unsigned alpha) {
  const unsigned shaded = below * (255 - alpha) + 128;
  return static_cast<Byte>(std::min(255U, above + ((shaded + (shaded >> 8)) >> 8)));
}

void LayOver(const Byte* from, Byte* to, std::size_t pixels, PixelFormat format) {
  const std::size_t step = format == PixelFormat::Bgr24 ? 3 : 4;
  for (std::size_t i = 0; i < pixels; ++i, from += 4, to += step) {
    for (std::size_t c = 0; c < step; ++c) to[c] = Over(from[c], to[c], from[3]);
  }
}

void AddOpaqueAlpha(const Byte* from, Byte* to, std::size_t pixels) {
  for (std::size_t i = 0; i < pixels; ++i, from += 3, to += 4) {
    std::copy_n(from, 3, to);
    to[3] = 255;
  }
}

template <int Channels>
class Stretcher {
 public:
  Stretcher(const Bitmap& source, Bitmap& target, int x, int y, int w, int h)
      : source_(source),
        target_(target),
        x_(x),
        y_(y),
        width_(w),
        height_(h),
        columns_(x, w, target.Width()),
        rows_(y, h, target.Height()) {}

  void Run() {
    if (columns_.IsEmpty() || rows_.IsEmpty()) return;
    if (width_ < source_.Width()) {
      average_.emplace(source_.Width(), width_, columns_.from, columns_.to);
    } else {
      blend_.emplace(source_.Width(), width_, columns_.from, columns_.to);
    }
    line_.resize(Pixels() * Channels);
    if (height_ < source_.Height()) {
      Reduce();
    } else {
      Enlarge();
    }
  }

 private:
  std::size_t Pixels() const { return static_cast<std::size_t>(columns_.to - columns_.from); }

  template <typename Value>
  void Across(const Value* row, std::uint64_t rowTotal, Byte* out) const {
    if (average_) {
      AverageAcross<Channels>(*average_, row, rowTotal, out);
    } else {
      BlendAcross<Channels>(*blend_, row, rowTotal, out);
    }
  }

  void Reduce() {
    const AreaAxis down(source_.Height(), height_, rows_.from, rows_.to);
    RowSums sums(static_cast<std::size_t>(source_.Width()) * Channels);
    int row = y_ + rows_.from;
    for (const AreaSpan& span : down.spans) {
      Across(sums.Of(source_, down, span), down.total, line_.data());
      Put(line_.data(), row++);
    }
  }

  // Each source row is stretched across once, and kept while the rows between it and the next one are blended.
  void Enlarge() {
    const BlendAxis down(source_.Height(), height_, rows_.from, rows_.to);
    std::array<std::vector<Byte>, 2> kept{line_, line_};
    std::array<int, 2> keptRow{-1, -1};
    const auto fetch = [&](int sourceRow) {
      const auto slot = static_cast<std::size_t>(sourceRow & 1);
      if (keptRow[slot] != sourceRow) Across(source_.Row(sourceRow), 1, kept[slot].data());
      keptRow[slot] = sourceRow;
      return static_cast<const Byte*>(kept[slot].data());
    };
    int row = y_ + rows_.from;
    for (const BlendPoint& point : down.points) {
      const Byte* first = fetch(point.first);
      if (point.fraction == 0) {
        Put(first, row++);
        continue;
      }
      BlendRows(first, fetch(point.second), point.fraction, line_.data(), line_.size());
      Put(line_.data(), row++);
    }
  }

  void Put(const Byte* line, int row) {
    const int bytes = target_.BytesPerPixel();
    Byte* to = target_.Row(row) + std::ptrdiff_t{x_ + columns_.from} * bytes;
    if constexpr (Channels == 4) {
      LayOver(line, to, Pixels(), target_.Format());
    } else if (bytes == 3) {
      std::memcpy(to, line, line_.size());
    } else {
      AddOpaqueAlpha(line, to, Pixels());
    }
  }

  const Bitmap& source_;
  Bitmap& target_;
  int x_;
  int y_;
  int width_;
  int height_;
  Extent columns_;
  Extent rows_;
  std::optional<AreaAxis> average_;
  std::optional<BlendAxis> blend_;
  std::vector<Byte> line_;
};

}  // namespace

void Stretch(const Bitmap& source, Bitmap& target, int x, int y, int w, int h) {
  if (source.IsEmpty() || target.IsEmpty() || w < 1 || h < 1) return;
  if (source.Format() == PixelFormat::Bgr24) {
    Stretcher<3>(source, target, x, y, w, h).Run();
  } else {
    Stretcher<4>(source, target, x, y, w, h).Run();
  }
}

}  // namespace pixorra
