// What is drawn on a page comes out where it was drawn. Places are twips of the printable area, 20 to a pixel of the
// sheets that are looked at.
#include <gmock/gmock.h>

#include "platform/runtime/Errors.h"
#include "tests/platform/contract/ContractTest.h"

namespace pixorra {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr Colour Red = 0x0000FF;
constexpr Colour Blue = 0xFF0000;
constexpr Colour White = 0xFFFFFF;

// Red, then green.
Picture Halves() {
  Bitmap bitmap(20, 10, PixelFormat::Bgr24);
  bitmap.Fill(Red);
  for (int y = 0; y < 10; ++y) {
    for (int x = 10; x < 20; ++x) {
      bitmap.Row(y)[3 * x + 1] = 0xFF;
      bitmap.Row(y)[3 * x + 2] = 0;
    }
  }
  return Picture(std::move(bitmap));
}

// What is seen at a place, each of red, green and blue near to 0 or 255 made so.
Colour At(const PrintedSheet& sheet, double x, double y) {
  const std::uint8_t* pixel =
      sheet.Shown.Row(static_cast<int>(y / 20)) + static_cast<std::ptrdiff_t>(3) * static_cast<int>(x / 20);
  const auto plain = [](int value) { return static_cast<Colour>(value > 225 ? 255 : value < 30 ? 0 : value); };
  return plain(pixel[2]) | plain(pixel[1]) << 8 | plain(pixel[0]) << 16;
}

bool HasInk(const PrintedSheet& sheet, double left, double top, double right, double bottom) {
  for (double y = top; y < bottom; y += 20) {
    for (double x = left; x < right; x += 20) {
      if (At(sheet, x, y) != White) return true;
    }
  }
  return false;
}

class PrintContract : public ContractTest {
 protected:
  void SetUp() override {
    if (!platform->CatchPrint()) GTEST_SKIP() << "no program here renders pages";
    page.SetScaleMode(1);
    page.SetFontName("Arial");
  }
  std::vector<PrintedSheet> Printed() {
    page.EndDoc();
    return platform->Printed();
  }
  void PrintAt(double x, double y, const std::string& text) {
    page.SetCurrentX(x);
    page.SetCurrentY(y);
    page.Print(text);
  }
  PrintSurface& page = platform->GetPrinting().Printer();
};

TEST_F(PrintContract, LandscapePagesAreWiderThanHighAndTheFiguresTurn) {
  page.SetOrientation(1);
  const double width = page.ScaleWidth();
  const double height = page.ScaleHeight();
  page.SetOrientation(2);
  EXPECT_EQ(page.ScaleWidth(), height);
  EXPECT_EQ(page.ScaleHeight(), width);
  EXPECT_GT(page.SheetWidth(), page.ScaleWidth());
  page.Print("landscape");
  std::vector<PrintedSheet> sheets = Printed();
  ASSERT_THAT(sheets, SizeIs(1));
  EXPECT_TRUE(sheets[0].Landscape);
  EXPECT_NEAR(sheets[0].Shown.Width(), height / 20, 1);
  EXPECT_NEAR(sheets[0].Shown.Height(), width / 20, 1);
  page.SetOrientation(1);
  page.Print("portrait");
  sheets = Printed();
  ASSERT_THAT(sheets, SizeIs(1));
  EXPECT_FALSE(sheets[0].Landscape);
}

TEST_F(PrintContract, BoxIsHollowAndItsLineHasTheDrawWidth) {
  page.SetDrawWidth(static_cast<int>(200 / page.TwipsPerPixelX()));
  page.SetFillStyle(1);
  page.Box(6000, 4000, 2000, 1000, Red);
  const auto sheets = Printed();
  ASSERT_THAT(sheets, SizeIs(1));
  for (const double off : {-70.0, 0.0, 70.0}) {
    EXPECT_EQ(At(sheets[0], 2000 + off, 2500), Red) << off;
    EXPECT_EQ(At(sheets[0], 6000 + off, 2500), Red) << off;
    EXPECT_EQ(At(sheets[0], 4000, 1000 + off), Red) << off;
    EXPECT_EQ(At(sheets[0], 4000, 4000 + off), Red) << off;
  }
  for (const double off : {-140.0, 140.0}) {
    EXPECT_EQ(At(sheets[0], 2000 + off, 2500), White) << off;
    EXPECT_EQ(At(sheets[0], 4000, 4000 + off), White) << off;
  }
  EXPECT_EQ(At(sheets[0], 1930, 930), Red) << "corners are square";
  EXPECT_EQ(At(sheets[0], 4000, 2500), White);
}

TEST_F(PrintContract, FilledBoxHasTheColourOfItsLine) {
  page.SetFillStyle(0);
  page.Box(2000, 1000, 6000, 4000, Blue);
  const auto sheets = Printed();
  EXPECT_EQ(At(sheets.at(0), 4000, 2500), Blue);
  EXPECT_EQ(At(sheets.at(0), 6200, 2500), White);
}

TEST_F(PrintContract, PartOfAPictureIsStretchedIntoItsRectangle) {
  page.PaintPicture(Halves(), 2000, 1000, 3000, 2000, 0, 0, 300, 150);
  page.PaintPicture(Halves(), 6000, 1000, 3000, 2000, 150, 0, 150, 150);
  const auto sheets = Printed();
  ASSERT_THAT(sheets, SizeIs(1));
  EXPECT_EQ(At(sheets[0], 2200, 1200), Red);
  EXPECT_EQ(At(sheets[0], 4800, 2800), 0x00FF00U);
  EXPECT_EQ(At(sheets[0], 6300, 2800), 0x00FF00U) << "the right half alone";
  EXPECT_EQ(At(sheets[0], 8800, 1200), 0x00FF00U);
  EXPECT_EQ(At(sheets[0], 1940, 2000), White);
  EXPECT_EQ(At(sheets[0], 5060, 2000), White);
  EXPECT_EQ(At(sheets[0], 4000, 3060), White);
}

TEST_F(PrintContract, LaterDrawingIsAboveEarlierDrawing) {
  page.SetFillStyle(0);
  page.Box(2000, 1000, 6000, 4000, Blue);
  page.PaintPicture(Halves(), 3000, 2000, 1000, 1000, 0, 0, 150, 150);
  const auto sheets = Printed();
  EXPECT_EQ(At(sheets.at(0), 3500, 2500), Red);
  EXPECT_EQ(At(sheets.at(0), 2500, 2500), Blue);
}

TEST_F(PrintContract, TextStandsAtTheCurrentPlaceAndTheNextOneBelowAtTheLeft) {
  page.SetFontSize(20);
  const double line = page.TextHeight("HHHH");
  const double width = page.TextWidth("HHHH");
  PrintAt(3000, 2000, "HHHH");
  page.Print("HHHH");
  const auto sheets = Printed();
  ASSERT_THAT(sheets, SizeIs(1));
  EXPECT_TRUE(HasInk(sheets[0], 3000, 2000, 3000 + width, 2000 + line));
  EXPECT_FALSE(HasInk(sheets[0], 0, 0, 10000, 1980));
  EXPECT_FALSE(HasInk(sheets[0], 0, 2000, 2960, 1980 + line));
  EXPECT_FALSE(HasInk(sheets[0], 3040 + width, 0, 10000, 8000));
  EXPECT_TRUE(HasInk(sheets[0], 0, 2020 + line, width, 2000 + 2 * line));
  EXPECT_FALSE(HasInk(sheets[0], 40 + width, 2040 + line, 10000, 8000));
  EXPECT_FALSE(HasInk(sheets[0], 0, 2040 + 2 * line, 10000, 8000));
}

TEST_F(PrintContract, TextHasTheForeColour) {
  page.SetFontSize(40);
  page.SetFontBold(true);
  page.SetForeColor(Red);
  PrintAt(0, 0, "MMM");
  const auto sheets = Printed();
  ASSERT_THAT(sheets, SizeIs(1));
  int red = 0;
  for (int y = 0; y < 900; y += 20) {
    for (int x = 0; x < 2400; x += 20) red += At(sheets[0], x, y) == Red ? 1 : 0;
  }
  EXPECT_GT(red, 100);
}

TEST_F(PrintContract, TextMeasuresInTwipsByItsSizeAndLines) {
  for (const double size : {3.5, 8.0, 12.0, 14.0}) {
    page.SetFontSize(size);
    EXPECT_GE(page.TextHeight("Photo"), size * 20) << size;
    EXPECT_LE(page.TextHeight("Photo"), size * 20 * 1.5) << size;
  }
  page.SetFontSize(3);
  const double small = page.TextWidth("A longer line");
  page.SetFontSize(3.5);
  EXPECT_NEAR(page.TextWidth("A longer line") / small, 3.5 / 3, 0.05);
  EXPECT_NEAR(page.TextHeight("a\r\nb"), 2 * page.TextHeight("a"), 0.01);
  EXPECT_NEAR(page.TextHeight(""), page.TextHeight("a"), 0.01);
  EXPECT_NEAR(page.TextWidth("ab\r\nlonger"), page.TextWidth("longer"), 0.01);
}

TEST_F(PrintContract, SeveralLinesArePrintedBelowEachOther) {
  page.SetFontSize(20);
  const double line = page.TextHeight("H");
  PrintAt(3000, 2000, "HH\r\nHH");
  const auto sheets = Printed();
  ASSERT_THAT(sheets, SizeIs(1));
  EXPECT_TRUE(HasInk(sheets[0], 3000, 2000, 4000, 2000 + line));
  EXPECT_TRUE(HasInk(sheets[0], 0, 2040 + line, 900, 2000 + 2 * line));
  EXPECT_FALSE(HasInk(sheets[0], 3000, 2040 + line, 5000, 8000));
}

TEST_F(PrintContract, EachPageHasItsOwnDrawingAndBeginsAtTheTop) {
  page.SetFontSize(20);
  PrintAt(2000, 4000, "HH");
  page.NewPage();
  page.Print("HH");
  page.NewPage();
  const auto sheets = Printed();
  ASSERT_THAT(sheets, SizeIs(2)) << "a page begun at the end does not come out";
  EXPECT_TRUE(HasInk(sheets[0], 2000, 4000, 3000, 4600));
  EXPECT_FALSE(HasInk(sheets[0], 0, 0, 1000, 600));
  EXPECT_TRUE(HasInk(sheets[1], 0, 0, 1000, 600)) << "in the size set before";
  EXPECT_FALSE(HasInk(sheets[1], 2000, 4000, 3000, 4600));
}

TEST_F(PrintContract, PageLeftEmptyBetweenOthersComesOut) {
  page.Print("first");
  page.NewPage();
  page.NewPage();
  page.Print("third");
  const auto sheets = Printed();
  ASSERT_THAT(sheets, SizeIs(3));
  EXPECT_FALSE(HasInk(sheets[1], 0, 0, 8000, 8000));
}

TEST_F(PrintContract, EachDocumentBeginsAtTheTopWithTheFontThatWasSet) {
  page.SetFontSize(20);
  PrintAt(2000, 4000, "HH");
  EXPECT_THAT(Printed(), SizeIs(1));
  page.Print("HH");
  const auto sheets = Printed();
  ASSERT_THAT(sheets, SizeIs(1));
  EXPECT_TRUE(HasInk(sheets[0], 0, 0, 1000, 600));
  EXPECT_FALSE(HasInk(sheets[0], 2000, 4000, 3000, 4600));
}

TEST_F(PrintContract, DrawingOutsideThePrintableAreaIsCutAndHarmsNothing) {
  page.SetFillStyle(0);
  page.Box(-5000, -5000, 1000, 1000, Red);
  page.PaintPicture(Halves(), page.ScaleWidth() - 1000, 4000, 5000, 1000, 0, 0, 150, 150);
  const auto sheets = Printed();
  ASSERT_THAT(sheets, SizeIs(1));
  EXPECT_EQ(At(sheets[0], 500, 500), Red);
  EXPECT_EQ(At(sheets[0], 1300, 500), White);
  EXPECT_EQ(At(sheets[0], page.ScaleWidth() - 100, 4500), Red);
}

TEST_F(PrintContract, DroppedDocumentDoesNotComeOutAndTheNextBeginsAtTheTop) {
  page.SetFontSize(20);
  PrintAt(2000, 4000, "HH");
  page.NewPage();
  page.KillDoc();
  EXPECT_THAT(Printed(), IsEmpty());
  page.KillDoc();
  page.Print("HH");
  const auto sheets = Printed();
  ASSERT_THAT(sheets, SizeIs(1));
  EXPECT_TRUE(HasInk(sheets[0], 0, 0, 1000, 600));
  EXPECT_FALSE(HasInk(sheets[0], 2000, 4000, 3000, 4600));
}

TEST_F(PrintContract, OrientationSetBetweenTwoPagesIsThatOfTheSecond) {
  page.SetOrientation(1);
  page.Print("upright");
  page.NewPage();
  page.SetOrientation(2);
  page.SetFillStyle(0);
  page.Box(page.ScaleWidth() - 1000, 0, page.ScaleWidth(), 1000, Red);
  page.SetOrientation(1);
  const auto sheets = Printed();
  ASSERT_THAT(sheets, SizeIs(2));
  EXPECT_FALSE(sheets[0].Landscape);
  ASSERT_TRUE(sheets[1].Landscape);
  EXPECT_EQ(At(sheets[1], sheets[1].Shown.Width() * 20 - 500, 500), Red);
}

TEST_F(PrintContract, DocumentOfBlanksAloneDoesNotComeOut) {
  page.Print(" ");
  page.Print("  \r\n ");
  EXPECT_EQ(ErrorsIgnored([&] { page.EndDoc(); }), error::None);
  EXPECT_THAT(platform->Printed(), IsEmpty());
  page.Print(" ");
  page.NewPage();
  EXPECT_THAT(Printed(), SizeIs(1)) << "a page that was ended does";
}

class PrintFileContract : public ContractTest {
 protected:
  PrintFileContract() { platform->PrintIntoFiles(); }
  PrintSurface& page = platform->GetPrinting().Printer();
};

TEST_F(PrintFileContract, FileIsAskedForOnceWithTheFirstDrawingOfADocument) {
  platform->AnswerPrintFile("one.pdf");
  page.Print(" ");
  page.Print("first page");
  page.NewPage();
  page.Print("second page");
  EXPECT_THAT(platform->PrintedFiles(), ::testing::Not(::testing::Contains("one.pdf"))) << "not before its end";
  page.EndDoc();
  EXPECT_THAT(platform->PrintedFiles(), ::testing::ElementsAre("one.pdf"));
  platform->AnswerPrintFile("two.pdf");
  page.Print("another");
  page.EndDoc();
  EXPECT_THAT(platform->PrintedFiles(), ::testing::ElementsAre("one.pdf", "two.pdf"));
}

TEST_F(PrintFileContract, CancelIsAPrinterErrorOfTheFirstDrawingAndLeavesNothing) {
  platform->AnswerPrintFile("");
  EXPECT_EQ(ErrorsIgnored([&] { page.Print(" "); }), error::Printer);
  EXPECT_EQ(ErrorsIgnored([&] { page.EndDoc(); }), error::None);
  EXPECT_THAT(platform->PrintedFiles(), IsEmpty());
}

TEST_F(PrintFileContract, DroppedDocumentLeavesNoFile) {
  platform->AnswerPrintFile("one.pdf");
  page.Print("first page");
  page.KillDoc();
  page.EndDoc();
  EXPECT_THAT(platform->PrintedFiles(), IsEmpty());
}

TEST_F(PrintContract, DefaultPrintersNameIsToldOncePrintersAreKnown) {
  std::string told;
  platform->GetPrinting().WhenDefaultIsKnown([&](const std::string& name) { told = name; });
  EXPECT_FALSE(platform->GetPrinting().CurrentPrinterName().empty());
  const std::vector<std::string> names = platform->GetPrinting().PrinterNames();
  EXPECT_THAT(names, ::testing::Contains(told));
}

TEST_F(PrintContract, PrinterThatIsHeldCanBeChosenAndIsWhatItWasAfterwards) {
  Printing& printing = platform->GetPrinting();
  printing.HoldPrinter(true);
  const std::string chosen = printing.PrinterNames().back();
  printing.SetCurrentPrinter(chosen);
  EXPECT_EQ(printing.CurrentPrinterName(), chosen);
  printing.HoldPrinter(false);
  EXPECT_EQ(printing.CurrentPrinterName(), chosen);
}

TEST_F(PrintContract, EmptyPictureIsAnErrorAndEndingNothingIsNone) {
  EXPECT_EQ(ErrorsIgnored([&] { page.PaintPicture(Picture(), 0, 0, 10, 10, 0, 0, 10, 10); }), error::BadPicture);
  EXPECT_EQ(ErrorsIgnored([&] { page.EndDoc(); }), error::None);
  EXPECT_THAT(platform->Printed(), IsEmpty());
}

}  // namespace
}  // namespace pixorra
