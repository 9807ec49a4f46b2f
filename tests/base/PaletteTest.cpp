// Whether what is written in the program's colours can be read, on light desktops and dark ones.
#include <gtest/gtest.h>

#include "base/Palette.h"
#include "tests/support/Contrast.h"

namespace pixorra {
namespace {

Colour Plain(Colour colour, bool dark) {
  if (!IsTone(colour)) return colour;
  const Tone& tone = palette::Tones.at(ToneEntry(colour));
  return dark ? tone.Dark : tone.Light;
}

struct Pair {
  const char* Name;
  Colour Text;
  Colour Ground;
};

constexpr Pair Pairs[] = {
    {"band", palette::BandText, palette::Band},
    {"company name", palette::CompanyText, palette::Band},
    {"page", palette::PageText, palette::Page},
    {"film", palette::FilmText, palette::Film},
    {"dragged photo", palette::DraggedText, palette::Film},
    {"closed folder", palette::ClosedLabelText, palette::ClosedLabelBack},
    {"open folder", palette::OpenLabelText, palette::OpenLabelBack},
    {"count", palette::CountText, palette::CountHalo},
    {"preview's caption", palette::CaptionText, palette::CaptionBack},
    {"notice of a copy", palette::NoticeCopied, palette::NoticeBack},
    {"notice of a file", palette::NoticeSaved, palette::NoticeBack},
    {"notice of printing", palette::NoticePrinting, palette::NoticeBack},
};

TEST(Palette, EveryTextStandsOutFromItsGround) {
  EXPECT_NEAR(Contrast(0x00FFFFFF, 0x00000000), 21, 1e-9);
  EXPECT_NEAR(Contrast(0x00767676, 0x00FFFFFF), 4.54, 0.01);
  for (const Pair& pair : Pairs) {
    for (const bool dark : {false, true}) {
      EXPECT_GE(Contrast(Plain(pair.Text, dark), Plain(pair.Ground, dark)), LeastContrast)
          << pair.Name << (dark ? ", dark" : ", light");
    }
  }
}

TEST(Palette, TonesFollowTheDesktop) {
  for (const Colour ground : {palette::Band, palette::Page}) {
    EXPECT_GT(Luminance(Plain(ground, false)), 0.4);
    EXPECT_LT(Luminance(Plain(ground, true)), 0.05);
  }
}

}  // namespace
}  // namespace pixorra
