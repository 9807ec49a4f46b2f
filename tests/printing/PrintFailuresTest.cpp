// What becomes of a print job that a printer, a disk or its user stops, and of the window after it.
#include <gmock/gmock.h>

#include "platform/runtime/Errors.h"
#include "printing/PrintPhotos.h"
#include "tests/printing/PrintTest.h"
#include "utility/ViewReadmeForm.h"
#include "window/ModelessForms.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

using PrintFailuresTest = PrintTest;

TEST_F(PrintFailuresTest, APrinterThatCannotBeHadAtTheFirstPrintIsPassedOverInSilence) {
  LoadStrip({"a 160x120", "b 120x160"});
  Select(1);
  printing.Printers[0].Broken = true;
  PrintAt(50);
  Print();
  PrintAt(50);
  Batch();
  EXPECT_THAT(run.platform.dialogs.Boxes(), IsEmpty());
  EXPECT_THAT(Documents(), IsEmpty());
  EXPECT_FALSE(main.core.PrintJobRuns);
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
  EXPECT_EQ(Notice(), nullptr);
}

TEST_F(PrintFailuresTest, CancelAtTheFilesNamePrintsNothingAndSaysNothing) {
  SelectPhoto("160x120");
  printing.Printers[0].AsksForFile = true;
  printing.ExpectFileName("");
  PrintAt(50);
  Print();
  EXPECT_THAT(run.platform.dialogs.Boxes(), IsEmpty());
  EXPECT_THAT(Documents(), IsEmpty());
  ExpectAllPutBack();
  printing.ExpectFileName("C:\\Home\\lake.pdf");
  PrintAt(50);
  Print();
  EXPECT_EQ(Documents().at(0).FileName, "C:\\Home\\lake.pdf");
}

TEST_F(PrintFailuresTest, ThePrinterThatTheDialogShowsIsTheOneThatPrints) {
  SelectPhoto("160x120");
  PrintAfter([this](Person& hand, Form& form) {
    EXPECT_EQ(Find<Label>(form, "PrinterNameLabel").Caption(), "Headless Printer");
    printing.Printers.insert(printing.Printers.begin(), HeadlessPrinter{.Name = "New Default"});
    SetZoom(hand, form, 50);
  });
  Print();
  EXPECT_EQ(Documents().at(0).Printer, "Headless Printer");
  PrintAt(50);
  Print();
  EXPECT_EQ(Documents().at(1).Printer, "New Default");
}

TEST_F(PrintFailuresTest, APrinterThatTakesNoDocumentsIsToldOnceWithItsReason) {
  LoadStrip({"a 160x120", "b 120x160"});
  Select(1);
  printing.Printers[0].Refusal = "The printer is stopped.";
  for (MenuItem* command : {&main.menu.PrintSelectedPhotoMenuItem, &main.menu.BatchPrintFilmStripMenuItem}) {
    PrintAt(50);
    person.ExpectBox("Can't Print", "Error 57: The printer is stopped.");
    person.ChooseMenu(*command);
    EXPECT_EQ(run.platform.dialogs.Boxes().back().Icon, BoxIcon::Exclamation);
    ExpectAllPutBack();
  }
  EXPECT_THAT(run.platform.dialogs.Boxes(), SizeIs(2));
  EXPECT_THAT(Documents(), IsEmpty());
}

TEST_F(PrintFailuresTest, ADocumentThatCannotBeHandedOverIsToldAndTheNextOneIsPrinted) {
  LoadStrip({"a 160x120", "b 120x160"});
  Select(1);
  for (MenuItem* command : {&main.menu.PrintSelectedPhotoMenuItem, &main.menu.BatchPrintFilmStripMenuItem}) {
    printing.Printers[0].EndError = error::DiskFull;
    printing.Printers[0].EndReason = "The disk is full.";
    PrintAt(50);
    person.ExpectBox("", " 61  The disk is full.");
    person.ChooseMenu(*command);
    EXPECT_FALSE(printing.OpenDocument());
    EXPECT_EQ(main.pictures.TempPic.UBound(), 0);
    EXPECT_EQ(Notice(), nullptr);
    EXPECT_TRUE(main.Window.Visible());
    printing.Printers[0].EndError = error::None;
    PrintAt(50);
    person.ChooseMenu(*command);
    ExpectAllPutBack();
  }
  EXPECT_THAT(Documents(), SizeIs(2));
}

TEST_F(PrintFailuresTest, ADocumentHasTheNameOfItsPhotoOrFolder) {
  LoadStrip({"a 160x120", "b 120x160"});
  Select(2);
  PrintAt(50);
  Print();
  EXPECT_EQ(Documents().back().Name, "b 120x160.bmp");
  PrintAt(50);
  Batch();
  EXPECT_EQ(Documents().back().Name, "Strip");
}

TEST_F(PrintFailuresTest, AFailureOnTheWayIsToldWithItsNumberAndTheWindowLivesOn) {
  LoadStrip({"a 160x120", "b 120x160"});
  person.During([this] { return Notice() != nullptr; }, [this] { printing.Printers[0].Broken = true; });
  person.ExpectBox("", " 482  Printer error", BoxAnswer::Ok, [this] {
    EXPECT_EQ(main.pictures.TempPic.UBound(), 1) << "until it is answered";
    EXPECT_NE(Notice(), nullptr);
  });
  PrintAt(50);
  Batch();
  EXPECT_EQ(run.platform.dialogs.Boxes().back().Text, " 482  Printer error");
  EXPECT_EQ(run.platform.dialogs.Boxes().back().Title, "");
  EXPECT_EQ(run.platform.dialogs.Boxes().back().Icon, BoxIcon::None);
  EXPECT_EQ(main.pictures.TempPic.UBound(), 0);
  EXPECT_EQ(main.pictures.TempImage.UBound(), 0);
  EXPECT_EQ(Notice(), nullptr);
  EXPECT_TRUE(printing.OpenDocument()) << "the document is not ended";
  EXPECT_EQ(main.Window.MousePointer(), pointer::Hourglass);
  EXPECT_EQ(printing.Orientation(), 2);
  EXPECT_TRUE(main.Window.Visible());
  printing.Printers[0].Broken = false;
  PrintAt(50);
  Batch();
  ASSERT_THAT(Documents(), SizeIs(2)) << "what was left over, and the new one";
  EXPECT_THAT(Documents().at(1).Pages, SizeIs(2));
  ExpectAllPutBack();
}

TEST_F(PrintFailuresTest, AfterAFailedBatchTheReadMeIsADocumentOfItsOwn) {
  LoadStrip({"a 160x120", "b 120x160"});
  person.During([this] { return Notice() != nullptr; }, [this] { printing.Printers[0].Broken = true; });
  person.ExpectBox("", " 482  Printer error");
  PrintAt(50);
  Batch();
  ASSERT_TRUE(printing.OpenDocument());
  printing.Printers[0].Broken = false;
  person.Activate(main.Window);
  person.ChooseMenu(main.menu.ViewReadmeMenuItem);
  run.Wait(0.1);
  printing.ExpectPrintDialog(true);
  person.Click(main.modeless.Get<ViewReadmeForm>(main).PrintButton);
  ASSERT_THAT(Documents(), SizeIs(2)) << "what was left over, and the read-me";
  EXPECT_EQ(Documents().at(0).Name, "Strip");
  EXPECT_EQ(Documents().at(1).Name, "Pixorra - Read Me");
  ASSERT_THAT(Documents().at(1).Pages, SizeIs(1));
  EXPECT_EQ(Documents().at(1).Pages.at(0).Orientation, 1);
  EXPECT_THAT(PicturesOf(Documents().at(1).Pages.at(0)), IsEmpty());
}

TEST_F(PrintFailuresTest, AnErrorInTheDialogDoesNotLeaveTheHourglass) {
  LoadStrip({"a 160x120", "b 120x160"});
  Select(1);
  printing.Printers[0].SheetWidth = 1e12;
  EXPECT_THROW(PrintSelectedPhoto(main), RuntimeError);
  EXPECT_THROW(PrintPhotoBatch(main, BatchSource::FilmStrip), RuntimeError);
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
  EXPECT_FALSE(main.core.PrintJobRuns);
  EXPECT_EQ(person.Window("PrintPhotoForm"), nullptr);
}

TEST_F(PrintFailuresTest, AnOutlineBeyond16BitsIsTheSameFailure) {
  SelectPhoto("160x120");
  printing.Printers[0].TwipsPerPixel = 0.001;
  person.ExpectBox("", " 6  Overflow");
  PrintAt(50, true);
  Print();
  EXPECT_EQ(main.pictures.TempPic.UBound(), 0);
}

}  // namespace
}  // namespace pixorra
