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

  static bool HasInk(PictureBox& page, int top, int bottom) {
    for (int y = top; y < bottom; ++y) {
      for (int x = 0; x < page.Width(); ++x) {
        if ((page.Point(x, y) >> 8 & 0xFF) < 0xC0) return true;
      }
    }
    return false;
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

  // What can be printed on of the sheet, turned; twips.
  const double PageWidth = GetParam().Height - 2 * GetParam().Edge;
  const double PageHeight = GetParam().Width - 2 * GetParam().Edge;
};

// Of a photo that is cut at the page's edges both fill the page that way. Where it begins is not compared then, as it
// is printed at another place than it is shown at.
TEST_P(PreviewTest, ThePhotoOnThePageHasTheSizeOfThePrintedOneWithinAPixelAndItsPlaceWhereItIsNotCut) {
  LoadStrip({"a 160x120", "b 120x160", "c 100x100", "d 300x100", "e 60x240"});
  for (int slot = 1; slot <= 5; ++slot) {
    for (const int zoom : {10, 50, 78, 100, 150}) {
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
      const double scale = slot == 2 || slot == 5 ? page.Height / PageHeight : page.Width / PageWidth;
      if (printed.X < 0) {
        EXPECT_NEAR(printed.Width, PageWidth, 1);
        EXPECT_EQ(shown.Width, page.Width);
      } else {
        EXPECT_NEAR(shown.Width, printed.Width * scale, 1.01);
        const double right = (printed.X + printed.Width / 2 - PageWidth / 2) * scale;  // of the page's middle
        EXPECT_NEAR(shown.Left + shown.Width / 2.0 - page.Width / 2.0, right, 1.01);
      }
      if (printed.Y < 0) {
        EXPECT_NEAR(printed.Height, PageHeight, 1);
        EXPECT_EQ(shown.Height, page.Height);
      } else {
        EXPECT_NEAR(shown.Height, printed.Height * scale, 1.01);
        const double down = (printed.Y + printed.Height / 2 - PageHeight / 2) * scale;
        EXPECT_NEAR(shown.Top + shown.Height / 2.0 - page.Height / 2.0, down, 1.01);
      }
    }
  }
}

TEST_P(PreviewTest, TheOutlineAndTheLinesAreAtTheSameEdgesOfThePhotoOnBoth) {
  SelectPhoto("160x120");
  PrintAfter([](Person& hand, Form& form) {
    SetZoom(hand, form, 50);
    hand.Click(Find<CheckBox>(form, "PrintHeaderCheckbox"));
    auto& page = Find<PictureBox>(form, "PreviewPicture1");
    const Rect photo = PhotoOn(page);
    const int middle = photo.Left + photo.Width / 2;
    for (int y = photo.Top; y < photo.Bottom(); ++y) {
      EXPECT_EQ(page.Point(photo.Left - 1, y), 0U);
      EXPECT_EQ(page.Point(photo.Right(), y), 0U);
    }
    EXPECT_EQ(page.Point(middle, photo.Top - 1), 0U);
    EXPECT_EQ(page.Point(middle, photo.Bottom()), 0U);
    EXPECT_TRUE(HasInk(page, photo.Top - 6, photo.Top - 1)) << "the info";
    EXPECT_TRUE(HasInk(page, photo.Bottom() + 1, photo.Bottom() + 7)) << "the company";
  });
  main.core.CompanyNameLabel.SetCaption("Kestrelia");
  Print();
  const std::vector<PrintedItem>& items = OnlyPage().Items;
  ASSERT_EQ(items.size(), 5U);
  const PrintedItem& photo = items[4];
  EXPECT_EQ(items[1].What, PrintedItem::Kind::Box);
  EXPECT_EQ(items[1].X, photo.X);
  EXPECT_EQ(items[1].Y, photo.Y);
  EXPECT_EQ(items[1].Width, photo.Width);
  EXPECT_EQ(items[1].Height, photo.Height);
  EXPECT_LT(items[2].Y, photo.Y) << "the info";
  EXPECT_GT(items[3].Y, photo.Y + photo.Height) << "the company";
}

INSTANTIATE_TEST_SUITE_P(Sheets, PreviewTest,
                         ::testing::Values(Sheet{"A4", 11906, 16838, 240}, Sheet{"Letter", 12240, 15840, 360},
                                           Sheet{"Card", 5669, 8504, 0}),
                         [](const auto& sheet) { return sheet.param.Name; });

}  // namespace
}  // namespace pixorra
