// Proof sheets on printers that refuse them: one message with the reason, and the window as it was.
#include <gmock/gmock.h>

#include "tests/printing/ProofTest.h"
#include "utility/ConfirmForm.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* CannotPrintProofs = "Can't Print Proof Sheets";

class ProofFailuresTest : public ProofTest {
 protected:
  ProofFailuresTest() { LoadStrip(5); }

  void ExpectAsBefore() const {
    EXPECT_EQ(main.pictures.TempPic.UBound(), 0);
    EXPECT_EQ(main.pictures.TempImage.UBound(), 0);
    EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
    EXPECT_EQ(printing.Orientation(), 1);
    EXPECT_FALSE(ConfirmForm::Of(main).Window.IsLoaded());
    EXPECT_FALSE(printing.OpenDocument());
    EXPECT_FALSE(main.core.PrintJobRuns);
  }

  HeadlessPrinter& printer = printing.Printers[0];
};

TEST_F(ProofFailuresTest, APrinterThatTakesNoDocumentsNowSaysWhy) {
  printer.Refusal = "The printer is stopped: out of paper.";
  person.ExpectBox("Can't Print", "The printer is stopped: out of paper.");
  Print(2);
  EXPECT_THAT(run.platform.dialogs.Boxes(), SizeIs(1));
  EXPECT_THAT(printing.Documents(), IsEmpty());
  ExpectAsBefore();
}

TEST_F(ProofFailuresTest, ADocumentThatCannotBeHandedOverIsToldOnceAndTheNextJobPrints) {
  printer.EndError = error::DiskFull;
  printer.EndReason = "\"sheet.pdf\": No space left on device";
  person.ExpectBox(CannotPrintProofs,
                   "The proof sheets could not be printed.\r\n\"sheet.pdf\": No space left on device");
  Print(2);
  EXPECT_THAT(run.platform.dialogs.Boxes(), SizeIs(1));
  EXPECT_EQ(run.platform.dialogs.Boxes()[0].Icon, BoxIcon::Exclamation);
  EXPECT_THAT(printing.Documents(), IsEmpty());
  ExpectAsBefore();
  printer.EndError = error::None;
  Print(2);
  EXPECT_THAT(printing.Documents(), SizeIs(1));
}

TEST_F(ProofFailuresTest, APrinterThatGoesAwayBetweenTwoPagesIsToldAndWhatWasBegunIsDropped) {
  person.During([&] { return ConfirmForm::Of(main).Label2.Caption() == "Now Printing .. 2/5"; },
                [&] { printer.Broken = true; });
  person.ExpectBox(CannotPrintProofs, "");
  Print(2);
  EXPECT_THAT(run.platform.dialogs.Boxes(), SizeIs(1));
  EXPECT_THAT(printing.Documents(), IsEmpty());
  ExpectAsBefore();
}

TEST_F(ProofFailuresTest, CancelAtTheFilesNameIsNotSpokenOf) {
  printer.AsksForFile = true;
  printing.ExpectFileName("");
  Print(2);
  EXPECT_THAT(run.platform.dialogs.Boxes(), IsEmpty());
  EXPECT_THAT(printing.Documents(), IsEmpty());
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
}

TEST_F(ProofFailuresTest, TheDocumentIsNamedByItsFolder) {
  Print(2);
  EXPECT_EQ(printing.Documents()[0].Name, "Proof sheets of Strip");
}

}  // namespace
}  // namespace pixorra
