// What the dialog of proof sheets shows compared with what is printed: the same photos in the same cells of the same
// page, and the page's texts at the same corners.
#include <cstdlib>
#include <gmock/gmock.h>
#include <vector>

#include "tests/printing/ProofTest.h"

namespace pixorra {
namespace {

struct ProofPaper {
  const char* Name;
  int Width;  // twips
  int Height;
  int Edge;
};

void PrintTo(const ProofPaper& paper, std::ostream* out) {
  *out << paper.Name;
}

class ProofPreviewTest : public ProofTest, public ::testing::WithParamInterface<ProofPaper> {
 protected:
  ProofPreviewTest() {
    printing.Printers[0].SheetWidth = GetParam().Width;
    printing.Printers[0].SheetHeight = GetParam().Height;
    printing.Printers[0].Edge = GetParam().Edge;
  }
  static bool AreNear(Colour one, Colour other) {
    for (const int shift : {0, 8, 16}) {
      const auto part = [shift](Colour colour) { return static_cast<int>(colour >> shift & 0xFF); };
      if (std::abs(part(one) - part(other)) > 6) return false;
    }
    return true;
  }
  static Colour MiddleOf(const Picture& picture) {
    const std::uint8_t* pixel = picture.Pixels().Row(picture.Height() / 2) + 3 * (picture.Width() / 2);
    return static_cast<Colour>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]);
  }
};

// The page is drawn by sums of its own, with margins that are not those of the paper: a cell is some pixels away from
// where it is printed, so the middle of each printed picture is looked for.
TEST_P(ProofPreviewTest, EachCellShowsThePhotoThatIsPrintedInIt) {
  LoadStrip(41);
  for (int across = 2; across <= 6; ++across) {
    const int pages = 40 / (across * across) + 1;
    for (const int page : {1, pages}) {
      SCOPED_TRACE(std::to_string(across) + " across, page " + std::to_string(page));
      Bitmap shown;
      double scale = 0;
      InDialog([&](Person& hand, Form& form) {
        hand.MoveBar(Find<ScrollBar>(form, "ProofSizeBar"), across);
        hand.Choose(Find<ComboBox>(form, "PagesBox"), page);
        auto& preview = Find<PictureBox>(form, "PagePreview");
        shown = preview.Surface().Clone();
        scale = preview.Height() / static_cast<double>(GetParam().Width);
        hand.Click(Find<CommandButton>(form, "PrintButton"));
      });
      PrintProofSheets(main, BatchSource::FilmStrip);
      ASSERT_EQ(PageCount(), 1U);
      for (const PrintedItem& picture : PicturesOf(Page(1))) {
        const double x = (picture.X + GetParam().Edge + picture.Width / 2) * scale;
        const double y = (picture.Y + GetParam().Edge + picture.Height / 2) * scale;
        if (x >= shown.Width()) continue;  // it runs over the sheet's right edge
        const std::uint8_t* pixel = shown.Row(static_cast<int>(y)) + 3 * static_cast<int>(x);
        const auto seen = static_cast<Colour>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]);
        EXPECT_TRUE(AreNear(seen, MiddleOf(picture.Painted))) << x << ' ' << y;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Papers, ProofPreviewTest,
                         ::testing::Values(ProofPaper{"A4", 11906, 16838, 240},
                                           ProofPaper{"Letter", 12240, 15840, 360}),
                         [](const auto& paper) { return paper.param.Name; });

}  // namespace
}  // namespace pixorra
