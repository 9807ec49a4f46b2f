// Colours of a program's own that have two values: one on a light desktop, one on a dark one.
#pragma once

#include "platform/pixels/Picture.h"

namespace pixorra {

struct Tone {
  Colour Light = 0;
  Colour Dark = 0;
};

// Stands for an entry of the table that Toolkit::SetTones was given, wherever a control takes a colour.
constexpr Colour ToneColour(std::uint32_t entry) {
  return 0x40000000U | entry;
}
constexpr bool IsTone(Colour colour) {
  return (colour & 0xC0000000U) == 0x40000000U;
}
constexpr std::uint32_t ToneEntry(Colour colour) {
  return colour & 0x3FFFFFFFU;
}

}  // namespace pixorra
