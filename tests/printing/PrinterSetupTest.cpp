// The choice of the printer by the system's dialog.
#include <gmock/gmock.h>

#include "tests/printing/PrintTest.h"

namespace pixorra {
namespace {

using ::testing::IsEmpty;

class PrinterSetupTest : public PrintTest {
 protected:
  PrinterSetupTest() { printing.Printers.push_back({.Name = "Second", .PaperSize = 9}); }
  void Choose(bool accepted, const std::function<void()>& meanwhile = {}) {
    printing.ExpectPrintSetup(accepted, meanwhile);
    person.ChooseMenu(main.menu.PrinterSetupMenuItem);
  }
};

TEST_F(PrinterSetupTest, ThePrinterThatIsChosenThereIsTheCurrentOneFromThenOn) {
  Choose(true, [this] { printing.SetCurrentPrinter("Second"); });
  EXPECT_EQ(printing.CurrentPrinterName(), "Second");
  EXPECT_TRUE(printing.TracksDefault());
  LoadStrip({"160x120"});
  Select(1);
  PrintAt(50);
  person.ChooseMenu(main.menu.PrintSelectedPhotoMenuItem);
  EXPECT_EQ(Documents().at(0).Printer, "Second");
}

TEST_F(PrinterSetupTest, CancelLeavesThePrinter) {
  Choose(false);
  EXPECT_EQ(printing.CurrentPrinterName(), "Headless Printer");
}

TEST_F(PrinterSetupTest, ThePrinterIsUprightAndInTwipsAfterwardsWhateverWasChosen) {
  Choose(true, [this] {
    run.host.printing.Printer().SetOrientation(2);
    run.host.printing.Printer().SetScaleMode(3);
  });
  EXPECT_EQ(printing.Orientation(), 1);
  EXPECT_EQ(printing.ScaleMode(), 1);
}

TEST_F(PrinterSetupTest, WhileTheDialogIsUpTheDefaultIsNotFollowedAndThePointerIsAnHourglass) {
  Choose(true, [this] {
    EXPECT_FALSE(printing.TracksDefault());
    EXPECT_EQ(main.Window.MousePointer(), pointer::Hourglass);
  });
  EXPECT_TRUE(printing.TracksDefault());
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
}

TEST_F(PrinterSetupTest, ADocumentThatWasBegunIsEnded) {
  Choose(true, [this] { run.host.printing.Printer().Print("begun"); });
  EXPECT_FALSE(printing.OpenDocument());
  EXPECT_EQ(Documents().size(), 1U);
}

TEST_F(PrinterSetupTest, F7BringsItUpAlsoWithoutAnyPrinter) {
  printing.Printers.clear();
  printing.ExpectPrintSetup(false);
  person.Key(key::F1 + 6);
  EXPECT_THAT(run.platform.dialogs.Boxes(), IsEmpty());
}

}  // namespace
}  // namespace pixorra
