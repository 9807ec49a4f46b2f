// The pairs of upper and lower case letters.
#include "platform/runtime/LetterCase.h"

#include <array>

namespace pixorra {

namespace {

// Upper case letters First, First + Step, ... up to Last; the small letter of each is Distance behind it.
struct LetterRange {
  char32_t First;
  char32_t Last;
  int Distance;
  unsigned Step;
};

// Letters that would not come back the same way (dotless i, long s, the micro sign, sharp s) have no pair here: two
// names that differ by them on a disk must not become one.
constexpr std::array Letters = {
    // Latin
    LetterRange{0x41, 0x5A, 32, 1},
    LetterRange{0xC0, 0xD6, 32, 1},
    LetterRange{0xD8, 0xDE, 32, 1},
    LetterRange{0x100, 0x12E, 1, 2},
    LetterRange{0x132, 0x136, 1, 2},
    LetterRange{0x139, 0x147, 1, 2},
    LetterRange{0x14A, 0x176, 1, 2},
    LetterRange{0x178, 0x178, -121, 1},
    LetterRange{0x179, 0x17D, 1, 2},
    LetterRange{0x18F, 0x18F, 202, 1},
    LetterRange{0x1A0, 0x1A4, 1, 2},
    LetterRange{0x1AF, 0x1AF, 1, 1},
    LetterRange{0x1CD, 0x1DB, 1, 2},
    LetterRange{0x1DE, 0x1EE, 1, 2},
    LetterRange{0x1F4, 0x1F4, 1, 1},
    LetterRange{0x1F8, 0x21E, 1, 2},
    LetterRange{0x222, 0x232, 1, 2},
    LetterRange{0x1E00, 0x1E94, 1, 2},
    LetterRange{0x1EA0, 0x1EFE, 1, 2},
    LetterRange{0xFF21, 0xFF3A, 32, 1},
    // Greek
    LetterRange{0x386, 0x386, 38, 1},
    LetterRange{0x388, 0x38A, 37, 1},
    LetterRange{0x38C, 0x38C, 64, 1},
    LetterRange{0x38E, 0x38F, 63, 1},
    LetterRange{0x391, 0x3A1, 32, 1},
    LetterRange{0x3A3, 0x3AB, 32, 1},
    LetterRange{0x3D8, 0x3EE, 1, 2},
    // Cyrillic and Armenian
    LetterRange{0x400, 0x40F, 80, 1},
    LetterRange{0x410, 0x42F, 32, 1},
    LetterRange{0x460, 0x480, 1, 2},
    LetterRange{0x48A, 0x4BE, 1, 2},
    LetterRange{0x4C0, 0x4C0, 15, 1},
    LetterRange{0x4C1, 0x4CD, 1, 2},
    LetterRange{0x4D0, 0x52E, 1, 2},
    LetterRange{0x531, 0x556, 48, 1},
};

constexpr char32_t FinalSigma = 0x3C2;
constexpr char32_t CapitalSigma = 0x3A3;

bool Holds(const LetterRange& range, char32_t upper) {
  return upper >= range.First && upper <= range.Last && (upper - range.First) % range.Step == 0;
}

}  // namespace

char32_t UpperCase(char32_t code) {
  if (code < 0x80) return code >= 'a' && code <= 'z' ? code - 32 : code;
  // The two small sigmas share one capital.
  if (code == FinalSigma) return CapitalSigma;
  for (const LetterRange& range : Letters) {
    const char32_t upper = code - static_cast<char32_t>(range.Distance);
    if (Holds(range, upper)) return upper;
  }
  return code;
}

char32_t LowerCase(char32_t code) {
  if (code < 0x80) return code >= 'A' && code <= 'Z' ? code + 32 : code;
  for (const LetterRange& range : Letters) {
    if (Holds(range, code)) return code + static_cast<char32_t>(range.Distance);
  }
  return code;
}

}  // namespace pixorra
