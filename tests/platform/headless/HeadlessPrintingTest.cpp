#include <gmock/gmock.h>

#include "platform/headless/HeadlessPrinting.h"
#include "tests/platform/runtime/RaisesError.h"
#include "tests/support/headless/HeadlessTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class HeadlessPrintingTest : public HeadlessTest {
 protected:
  HeadlessPrinting& printing = platform.printing;
  PrintSurface& printer = platform.printing.Printer();
};

TEST_F(HeadlessPrintingTest, KeepsWhatIsDrawnPageByPage) {
  printer.SetOrientation(2);
  printer.SetFontSize(12);
  printer.SetCurrentX(100);
  printer.SetCurrentY(200);
  printer.Print("first");
  printer.Print("second");
  printer.SetDrawWidth(46);
  printer.Box(300, 500, 100, 200, 0x00FF0000);
  EXPECT_THAT(printing.Documents(), IsEmpty());
  printer.NewPage();
  printer.Print("third");
  printer.EndDoc();
  ASSERT_THAT(printing.Documents(), SizeIs(1));
  const PrintedDocument& document = printing.Documents()[0];
  EXPECT_EQ(document.Printer, "Headless Printer");
  ASSERT_THAT(document.Pages, SizeIs(2));
  EXPECT_EQ(document.Pages[0].Orientation, 2);
  EXPECT_THAT(document.Pages[0].Texts(), ElementsAre("first", "second"));
  const PrintedItem& second = document.Pages[0].Items[1];
  EXPECT_EQ(second.X, 0);
  EXPECT_EQ(second.Y, 200 + printer.TextHeight("first"));
  const PrintedItem& box = document.Pages[0].Items[2];
  EXPECT_EQ(box.X, 100);
  EXPECT_EQ(box.Height, 300);
  EXPECT_EQ(box.DrawWidth, 46);
  EXPECT_THAT(document.Pages[1].Texts(), ElementsAre("third"));
}

TEST_F(HeadlessPrintingTest, PageThatIsLeftEmptyAtTheEndDoesNotComeOut) {
  printer.Print("one");
  printer.NewPage();
  printer.EndDoc();
  printer.EndDoc();
  ASSERT_THAT(printing.Documents(), SizeIs(1));
  EXPECT_THAT(printing.Documents()[0].Pages, SizeIs(1));
}

TEST_F(HeadlessPrintingTest, PrintableAreaIsLetterLessItsEdges) {
  EXPECT_EQ(printer.ScaleWidth(), 11520);
  EXPECT_EQ(printer.ScaleHeight(), 15120);
  printer.SetOrientation(2);
  EXPECT_EQ(printer.ScaleWidth(), 15120);
  EXPECT_EQ(printer.SheetHeight(), 12240);
}

TEST_F(HeadlessPrintingTest, BrokenOrMissingPrinterRaises482WithTheFirstPrint) {
  printing.Printers[0].Broken = true;
  printer.SetScaleMode(1);
  printer.SetOrientation(2);
  EXPECT_EQ(ErrorOf([&] { printer.Print(" "); }), error::Printer);
  printing.Printers.clear();
  EXPECT_EQ(ErrorOf([&] { printer.Print(" "); }), error::Printer);
  EXPECT_EQ(printing.CurrentPrinterName(), "");
  EXPECT_FALSE(printing.OpenDocument());
}

TEST_F(HeadlessPrintingTest, SetupDialogMayChangeThePrinter) {
  printing.Printers.push_back(HeadlessPrinter{.Name = "Second", .PaperSize = 9});
  printing.ExpectPrintSetup(true, [&] { printing.SetCurrentPrinter("Second"); });
  EXPECT_TRUE(printing.ShowPrintSetup());
  EXPECT_EQ(printer.DeviceName(), "Second");
  EXPECT_EQ(printer.PaperSize(), 9);
  printing.Printers.push_back(HeadlessPrinter{.Name = "Away", .Ready = false});
  EXPECT_FALSE(printing.IsReady("Away"));
  EXPECT_TRUE(printing.IsReady("Second"));
  EXPECT_FALSE(printing.ShowProperties("Away"));
}

TEST_F(HeadlessPrintingTest, PrinterThatIsHeldDoesNotFollowTheDefault) {
  printing.HoldPrinter(true);
  printing.Printers.insert(printing.Printers.begin(), HeadlessPrinter{.Name = "New Default"});
  EXPECT_EQ(printing.CurrentPrinterName(), "Headless Printer");
  printing.HoldPrinter(false);
  EXPECT_EQ(printing.CurrentPrinterName(), "New Default");
}

TEST_F(HeadlessPrintingTest, RefusingPrinterTellsItsReasonWithTheFirstPrint) {
  printing.Printers[0].Refusal = "The printer is out of paper";
  try {
    printer.Print(" ");
    FAIL() << "it was printed";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.Number(), error::DeviceIO);
    EXPECT_EQ(e.Description(), "The printer is out of paper");
  }
  EXPECT_FALSE(printing.OpenDocument());
}

TEST_F(HeadlessPrintingTest, DocumentThatCannotBeHandedOverIsDropped) {
  printing.Printers[0].EndError = error::DiskFull;
  printing.Printers[0].EndReason = "The disk is full";
  printer.Print("one");
  EXPECT_EQ(ErrorOf([&] { printer.EndDoc(); }), error::DiskFull);
  EXPECT_FALSE(printing.OpenDocument());
  EXPECT_THAT(printing.Documents(), IsEmpty());
  EXPECT_EQ(ErrorOf([&] { printer.EndDoc(); }), error::None) << "there is nothing left to end";
}

TEST_F(HeadlessPrintingTest, PrinterOfFilesAsksOnceForEachDocument) {
  printing.Printers[0].AsksForFile = true;
  printer.SetDocumentName("Photos of June");
  printing.ExpectFileName("june.pdf");
  printer.Print("one");
  printer.Print("two");
  printer.EndDoc();
  ASSERT_THAT(printing.Documents(), SizeIs(1));
  EXPECT_EQ(printing.Documents()[0].FileName, "june.pdf");
  EXPECT_EQ(printing.Documents()[0].Name, "Photos of June");
  printing.ExpectFileName("");
  EXPECT_EQ(ErrorOf([&] { printer.Print(" "); }), error::Printer);
  EXPECT_FALSE(printing.OpenDocument());
}

TEST_F(HeadlessPrintingTest, DialogThatNobodyExpectedIsAFailure) {
  KeepFailures();
  EXPECT_FALSE(printing.ShowPrintDialog());
  EXPECT_THAT(platform.failures.Take(), ElementsAre(HasSubstr("unexpected print dialog")));
}

}  // namespace
}  // namespace pixorra
