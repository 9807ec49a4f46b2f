// What the dialog shows compared with what is printed, for photos of all shapes on several papers.
#include <cmath>
#include <gmock/gmock.h>
#include <optional>
#include <ostream>

#include "tests/printing/PrintTest.h"

namespace pixorra {
namespace {

struct Sheet {
  const char* Name;
  double Width;  // twips
  double Height;
  double Edge;
};

void PrintTo(const Sheet& sheet, std::ostream* out) {
  *out << sheet.Name;
}

class PreviewTest : public PrintTest, public ::testing::WithParamInterface<Sheet> {
 protected:
  PreviewTest() {
    printing.Printers[0].SheetWidth = GetParam().Width;
    printing.Printers[0].SheetHeight = GetParam().Height;
    printing.Printers[0].Edge = GetParam().Edge;
  }

  // The red photo, as far as the page shows it.
  static Rect PhotoOn(PictureBox& page) {
    std::optional<Rect> seen;
    for (int y = 0; y < page.Height(); ++y) {
      for (int x = 0; x < page.Width(); ++x) {
        if ((page.Point(x, y) & 0xFFFFFF) != Red) continue;
        const Rect at = seen.value_or(Rect{x, y, 0, 0});
        const int left = std::min(at.Left, x);
        seen = Rect{left, at.Top, std::max(at.Right(), x + 1) - left, y + 1 - at.Top};
      }
    }
    return seen.value_or(Rect{});
  }
};

TEST_P(PreviewTest, ThePhotoOnThePageIsThePrintedOneWithinAPixel) {
  LoadStrip({"a 160x120", "b 120x160", "c 100x100", "d 300x100", "e 60x240"});
  const Sheet& sheet = GetParam();
  const double pageWidth = sheet.Height - 2 * sheet.Edge;  // turned, twips
  const double pageHeight = sheet.Width - 2 * sheet.Edge;
  for (int slot = 1; slot <= 5; ++slot) {
    for (const int zoom : {10, 50, 78, 100}) {
      SCOPED_TRACE(main.strip.SrcThumbName(slot).ToolTipText() + " at " + std::to_string(zoom));
      Select(slot);
      Rect shown;
      Rect page;
      PrintAfter([&](Person& hand, Form& form) {
        SetZoom(hand, form, zoom);
        auto& preview = Find<PictureBox>(form, "PreviewPicture1");
        shown = PhotoOn(preview);
        page = preview.Bounds();
      });
      person.ChooseMenu(main.menu.PrintSelectedPhotoMenuItem);
      const PrintedItem printed = PicturesOf(Documents().back().Pages.at(0)).at(0);
      // One that is cut is printed at another place than it is shown at.
      if (printed.X < 0 || printed.Y < 0) continue;
      const double scale = slot == 2 || slot == 5 ? page.Height / pageHeight : page.Width / pageWidth;
      EXPECT_NEAR(shown.Width, std::min<double>(page.Width, printed.Width * scale), 1.01);
      EXPECT_NEAR(shown.Height, std::min<double>(page.Height, printed.Height * scale), 1.01);
      const double right = (printed.X + printed.Width / 2 - pageWidth / 2) * scale;  // of the page's middle
      const double down = (printed.Y + printed.Height / 2 - pageHeight / 2) * scale;
      EXPECT_NEAR(shown.Left + shown.Width / 2.0 - page.Width / 2.0, right, 1.01);
      EXPECT_NEAR(shown.Top + shown.Height / 2.0 - page.Height / 2.0, down, 1.01);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sheets, PreviewTest,
                         ::testing::Values(Sheet{"A4", 11906, 16838, 240}, Sheet{"Letter", 12240, 15840, 360},
                                           Sheet{"Card", 5669, 8504, 0}),
                         [](const auto& sheet) { return sheet.param.Name; });

}  // namespace
}  // namespace pixorra
