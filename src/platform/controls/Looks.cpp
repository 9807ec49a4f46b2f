#include "platform/controls/Looks.h"

namespace pixorra {

Colour Looks::PlainColour(Colour colour, bool dark) const {
  if (!IsTone(colour)) return colour;
  if (ToneEntry(colour) >= tones_.size()) return 0;
  const Tone& tone = tones_[ToneEntry(colour)];
  return dark ? tone.Dark : tone.Light;
}

}  // namespace pixorra
