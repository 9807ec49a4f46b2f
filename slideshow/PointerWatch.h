// Whether a mouse is moved by hand, or only trembles, or was never touched: a window that appears below the pointer
// gets a move event as well.
#pragma once

#include <map>

namespace pixorra {

class PointerWatch {
 public:
  // Whatever comes within this many seconds after the start is nobody's move.
  static constexpr double Settling = 0.5;
  // Nor is what stays this near to where it began, in pixels.
  static constexpr double Tremble = 10;

  explicit PointerWatch(double now) : began_(now) {}

  // The pointer is at this place of a screen; true where a person has moved it there.
  bool IsMove(int screen, double x, double y, double now) {
    const auto at = first_.try_emplace(screen, Place{x, y}).first;
    if (now - began_ < Settling) {
      at->second = {x, y};
      return false;
    }
    const double across = x - at->second.X;
    const double down = y - at->second.Y;
    return across * across + down * down > Tremble * Tremble;
  }

 private:
  struct Place {
    double X = 0;
    double Y = 0;
  };
  double began_;
  std::map<int, Place> first_;
};

}  // namespace pixorra
