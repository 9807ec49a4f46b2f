// Rectangles in whole pixels.
#pragma once

#include <algorithm>

namespace pixorra {

struct Rect {
  int Left = 0;
  int Top = 0;
  int Width = 0;
  int Height = 0;

  int Right() const { return Left + Width; }
  int Bottom() const { return Top + Height; }
  bool IsEmpty() const { return Width <= 0 || Height <= 0; }
  bool Contains(int x, int y) const { return x >= Left && x < Right() && y >= Top && y < Bottom(); }
  Rect Moved(int dx, int dy) const { return {Left + dx, Top + dy, Width, Height}; }
  Rect Grown(int by) const { return {Left - by, Top - by, Width + 2 * by, Height + 2 * by}; }
  Rect Intersected(const Rect& other) const {
    const int left = std::max(Left, other.Left);
    const int top = std::max(Top, other.Top);
    return {left, top, std::min(Right(), other.Right()) - left, std::min(Bottom(), other.Bottom()) - top};
  }
  bool operator==(const Rect&) const = default;
};

}  // namespace pixorra
