#include "platform/pixels/Stretch.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <vector>

#include "platform/pixels/StretchAxis.h"
#include "platform/pixels/StretchRows.h"

namespace pixorra {
namespace {

using namespace stretch;

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
      if (down.total <= RowSums::MostNarrow) {
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
