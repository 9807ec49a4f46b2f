#include "platform/pixels/Stretch.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <vector>

#include "platform/pixels/StretchAxis.h"

namespace pixorra {
namespace {

using Byte = std::uint8_t;

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

// The channels of a pixel side by side. Every whole number up to 2^24 is exact in them.
using Words4 = std::uint16_t __attribute__((vector_size(8)));
using Floats4 = float __attribute__((vector_size(16)));
using Ints4 = std::int32_t __attribute__((vector_size(16)));

Floats4 PixelOf(const std::uint16_t* channels) {
  Words4 words;
  std::memcpy(&words, channels, sizeof words);
  return __builtin_convertvector(words, Floats4);
}

// The same for small weights, as most ratios have. Four sums are read for a pixel of three.
constexpr std::uint64_t MostQuickWeight = 2048;

template <int Channels>
void QuickAverageAcross(const AreaAxis& axis, const std::uint16_t* row, std::uint64_t rowTotal, Byte* out) {
  const std::uint64_t total = rowTotal * axis.total;
  const auto half = static_cast<float>(total / 2);
  const float factor = 1.0F / static_cast<float>(total);
  // A quotient is a multiple of 1 / 2048 at the finest and wrong by 1 / 16384 at the most: whole ones stay whole.
  constexpr float Whole = 1.0F / 8192;
  const auto full = static_cast<float>(axis.fullWeight);
  for (const AreaSpan& span : axis.spans) {
    Floats4 sum{};
    const std::uint16_t* v = row + std::ptrdiff_t{span.fullBegin} * Channels;
    const std::uint16_t* const end = row + std::ptrdiff_t{span.fullEnd} * Channels;
    if (span.headWeight != 0) sum = PixelOf(v - Channels) * static_cast<float>(span.headWeight);
    for (; v != end; v += Channels) sum += PixelOf(v) * full;
    if (span.tailWeight != 0) sum += PixelOf(end) * static_cast<float>(span.tailWeight);
    const Ints4 means = __builtin_convertvector((sum + half) * factor + Whole, Ints4);
    for (int c = 0; c < Channels; ++c) *out++ = static_cast<Byte>(means[c]);
  }
}

template <int Channels, typename Value>
void BlendAcross(const BlendAxis& axis, const Value* row, std::uint64_t rowTotal, Byte* out) {
  const Mean mean(rowTotal * 256);
  for (const BlendPoint& point : axis.points) {
    const Value* a = row + std::ptrdiff_t{point.first} * Channels;
    const Value* b = row + std::ptrdiff_t{point.second} * Channels;
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

// The channels of two pixels side by side, four each, which the compiler blends at once.
using Bytes8 = std::uint8_t __attribute__((vector_size(8)));
using Words8 = std::uint16_t __attribute__((vector_size(16)));

static_assert(std::endian::native == std::endian::little, "the first pixel is in the lower half");

Words8 PixelPair(const Byte* first, const Byte* second) {
  std::uint32_t a = 0, b = 0;
  std::memcpy(&a, first, sizeof a);
  std::memcpy(&b, second, sizeof b);
  const std::uint64_t both = a | std::uint64_t{b} << 32;
  Bytes8 bytes;
  std::memcpy(&bytes, &both, sizeof bytes);
  return __builtin_convertvector(bytes, Words8);
}

template <int Channels>
void BlendAcross(const BlendAxis& axis, const Byte* row, std::uint64_t, Byte* out) {
  auto next = axis.points.begin();
  // Four bytes are read and written for a pixel of three: the last ones of the row and of the line are not for this.
  while (axis.points.end() - next > 2 && (next + 1)->second < axis.source - 1) {
    const BlendPoint& one = next[0];
    const BlendPoint& two = next[1];
    const Words8 a = PixelPair(row + std::ptrdiff_t{one.first} * Channels, row + std::ptrdiff_t{two.first} * Channels);
    const Words8 b =
        PixelPair(row + std::ptrdiff_t{one.second} * Channels, row + std::ptrdiff_t{two.second} * Channels);
    const auto f1 = static_cast<std::uint16_t>(one.fraction), f2 = static_cast<std::uint16_t>(two.fraction);
    const Words8 w = {f1, f1, f1, f1, f2, f2, f2, f2};
    const Words8 sums = (a * (256 - w) + b * w + 128) >> 8;
    const Bytes8 bytes = __builtin_convertvector(sums, Bytes8);
    std::uint64_t both = 0;
    std::memcpy(&both, &bytes, sizeof both);
    const auto low = static_cast<std::uint32_t>(both), high = static_cast<std::uint32_t>(both >> 32);
    std::memcpy(out, &low, sizeof low);
    std::memcpy(out + Channels, &high, sizeof high);
    out += 2 * Channels;
    next += 2;
  }
  for (; next != axis.points.end(); ++next) {
    const BlendPoint& point = *next;
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

// Adds up rows of bytes, weighted.
class RowSums {
 public:
  // Beyond the narrow sums four more can be read.
  explicit RowSums(std::size_t count) : count_(count), narrow_(count + 4), sums_(count) {}

  // Weights that add up to no more than this leave every sum within 16 bits, which is quicker; most ratios do.
  static constexpr std::uint32_t MostNarrow = 257;
  const std::uint16_t* Narrow(const Bitmap& source, const AreaAxis& axis, const AreaSpan& span) {
    std::fill(narrow_.begin(), narrow_.end(), std::uint16_t{0});
    for (int y = span.fullBegin; y < span.fullEnd; ++y) Add(narrow_, source.Row(y), axis.fullWeight);
    AddParts(narrow_, source, span);
    return narrow_.data();
  }

  // Whole rows are summed in 16 bits, as long as these hold them.
  const std::uint32_t* Wide(const Bitmap& source, const AreaAxis& axis, const AreaSpan& span) {
    std::fill(sums_.begin(), sums_.end(), 0U);
    constexpr int RowsThatFit = MostNarrow;
    for (int begin = span.fullBegin; begin < span.fullEnd; begin += RowsThatFit) {
      std::fill(narrow_.begin(), narrow_.end(), std::uint16_t{0});
      for (int y = begin; y < std::min(span.fullEnd, begin + RowsThatFit); ++y) Add(narrow_, source.Row(y), 1);
      for (std::size_t i = 0; i < count_; ++i) sums_[i] += axis.fullWeight * narrow_[i];
    }
    AddParts(sums_, source, span);
    return sums_.data();
  }

 private:
  template <typename Sum>
  void Add(std::vector<Sum>& to, const Byte* row, std::uint32_t weight) const {
    Sum* sums = to.data();
    const std::size_t count = count_;
    const auto factor = static_cast<Sum>(weight);
    for (std::size_t i = 0; i < count; ++i) sums[i] = static_cast<Sum>(sums[i] + row[i] * factor);
  }
  template <typename Sum>
  void AddParts(std::vector<Sum>& to, const Bitmap& source, const AreaSpan& span) const {
    if (span.headWeight != 0) Add(to, source.Row(span.fullBegin - 1), span.headWeight);
    if (span.tailWeight != 0) Add(to, source.Row(span.fullEnd), span.tailWeight);
  }

  std::size_t count_;
  std::vector<std::uint16_t> narrow_;
  std::vector<std::uint32_t> sums_;
};

// The part of a stretch's rectangle that is inside the target, counted from the rectangle's own corner.
struct Extent {
  int from = 0;
  int to = 0;

  Extent(int start, int size, int limit) {
    from = static_cast<int>(std::clamp<std::int64_t>(-std::int64_t{start}, 0, size));
    to = static_cast<int>(std::min<std::int64_t>(size, std::int64_t{limit} - start));
  }
  bool IsEmpty() const { return to <= from; }
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
    if (Channels == 3 && width_ == source_.Width() && height_ == source_.Height()) {
      Copy();
      return;
    }
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

  void Copy() {
    line_.resize(Pixels() * Channels);
    for (int y = rows_.from; y < rows_.to; ++y) Put(source_.Row(y) + std::ptrdiff_t{columns_.from} * Channels, y_ + y);
  }

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
      if (average_ && down.total <= RowSums::MostNarrow &&
          down.total * std::uint64_t{average_->total} <= MostQuickWeight) {
        QuickAverageAcross<Channels>(*average_, sums.Narrow(source_, down, span), down.total, line_.data());
      } else if (down.total <= RowSums::MostNarrow) {
        Across(sums.Narrow(source_, down, span), down.total, line_.data());
      } else {
        Across(sums.Wide(source_, down, span), down.total, line_.data());
      }
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
      const Byte* second = fetch(point.second);
      if (Channels == 3 && target_.BytesPerPixel() == 3) {
        BlendRows(first, second, point.fraction, Place(row++), line_.size());
      } else {
        BlendRows(first, second, point.fraction, line_.data(), line_.size());
        Put(line_.data(), row++);
      }
    }
  }

  Byte* Place(int row) { return target_.Row(row) + std::ptrdiff_t{x_ + columns_.from} * target_.BytesPerPixel(); }

  void Put(const Byte* line, int row) {
    Byte* to = Place(row);
    if constexpr (Channels == 4) {
      LayOver(line, to, Pixels(), target_.Format());
    } else if (target_.BytesPerPixel() == 3) {
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

void Stretch(const Picture& picture, Bitmap& target, int x, int y, int w, int h) {
  const Bitmap* made = picture.Reduction(w, h);
  Stretch(made != nullptr ? *made : picture.Pixels(), target, x, y, w, h);
}

}  // namespace pixorra
