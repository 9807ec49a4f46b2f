// What one program settles of its own looks: its tones, and its pointer of a hand.
#pragma once

#include <span>

#include "platform/controls/Tones.h"
#include "platform/pixels/Picture.h"

namespace pixorra {

class Looks {
 public:
  // The table of the program's tones, which must live on.
  void SetTones(std::span<const Tone> tones) { tones_ = tones; }
  // The colour of a tone on a light or a dark desktop; any other is itself.
  Colour PlainColour(Colour colour, bool dark) const;
  // The icon of pointer::Hand.
  void SetHand(const Picture& icon) { hand_ = icon; }
  const Picture& Hand() const { return hand_; }

 private:
  std::span<const Tone> tones_;
  Picture hand_;
};

}  // namespace pixorra
