// Photos on paper: what each page holds, where it is, and what a job leaves when it ends in any way.
#include <gmock/gmock.h>

#include "printing/PageLines.h"
#include "printing/PrintPhotoForm.h"
#include "printing/PrintPhotos.h"
#include "tests/printing/PrintTest.h"
#include "window/PicturesState.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// The printer of the tests has 15120 by 11520 twips of a landscape page, and 2.4 twips to a pixel.
class PrintPhotosTest : public PrintTest {
 protected:
  std::string TimeOf(const std::string& path) {
    const std::string line = InfoLine(main, 1, 1, path);
    return line.substr(line.find('['));
  }
};

// --- one photo -------------------------------------------------------------------------------------------------------

TEST_F(PrintPhotosTest, OnePhotoIsOnePageInTheMiddleOfALandscapeSheet) {
  SelectPhoto("160x120");
  PrintAt(78);
  Print();
  const PrintedPage page = OnlyPage();
  EXPECT_EQ(page.Orientation, 2);
  EXPECT_THAT(page.Texts(), ElementsAre(" ")) << "the blank that begins the document";
  ASSERT_THAT(PicturesOf(page), SizeIs(1));
  const PrintedItem photo = PicturesOf(page).at(0);
  EXPECT_EQ(photo.X, 1663);
  EXPECT_EQ(photo.Y, 1337);
  EXPECT_EQ(photo.Width, 11794);
  EXPECT_EQ(photo.Height, 8845);
  EXPECT_EQ(photo.SourceX, 0);
  EXPECT_EQ(photo.SourceY, 0);
  EXPECT_EQ(photo.SourceWidth, 160 * 15);
  EXPECT_EQ(photo.SourceHeight, 120 * 15);
  EXPECT_EQ(photo.Painted.Width(), 160);
  ExpectAllPutBack();
}

TEST_F(PrintPhotosTest, TheInfoIsAboveThePhotoAndTheCompanyBelowWithinTheSums) {
  SelectPhoto("160x120");
  main.core.CompanyNameLabel.SetCaption("Anna & Co");
  PrintAt(50, true);
  Print();
  const PrintedPage page = OnlyPage();
  // 15120 x 0.5 wide; (11520 - 5670) / 2 from the top.
  ASSERT_THAT(page.Items, SizeIs(5));
  const PrintedItem& box = page.Items.at(1);
  EXPECT_EQ(box.What, PrintedItem::Kind::Box);
  EXPECT_EQ(box.X, 3780);
  EXPECT_EQ(box.Y, 2925);
  EXPECT_EQ(box.Width, 7560);
  EXPECT_EQ(box.Height, 5670);
  EXPECT_EQ(box.DrawWidth, 46) << "110 twips";
  EXPECT_EQ(box.FillStyle, 1);
  EXPECT_EQ(box.InColour, 0U);
  const PrintedItem& info = page.Items.at(2);
  EXPECT_EQ(info.Text, " W160 x H120  - " + Photo("160x120.bmp") + "  " + TimeOf(Photo("160x120.bmp")));
  EXPECT_EQ(info.FontName, "Arial");
  EXPECT_EQ(info.FontSize, 12);
  EXPECT_FALSE(info.Bold);
  PrintSurface& printer = run.host.printing.Printer();
  printer.SetFontSize(12);
  EXPECT_EQ(info.X, (15120 - printer.TextWidth(info.Text)) / 2) << "its leading blank counts";
  EXPECT_EQ(info.Y, 2925 - 110 - printer.TextHeight(info.Text));
  const PrintedItem& company = page.Items.at(3);
  EXPECT_EQ(company.Text, "Printed by: Anna & Co");
  EXPECT_EQ(company.FontSize, 8);
  printer.SetFontSize(8);
  EXPECT_EQ(company.X, (15120 - printer.TextWidth(company.Text)) / 2);
  EXPECT_EQ(company.Y, 2925 + 5670 + 110);
  EXPECT_EQ(page.Items.at(4).What, PrintedItem::Kind::Picture) << "over the inner half of the outline";
}

TEST_F(PrintPhotosTest, TheTimeInTheInfoIsTheFilesAlsoWhereItCannotBeWritten) {
  SelectPhoto("160x120");
  drive.SetTime(Photo("160x120.bmp"), {2024, 3, 3, 9, 5, 7});
  drive.SetMode(Photo("160x120.bmp"), 0444);
  EXPECT_EQ(InfoLine(main, 160, 120, Photo("160x120.bmp")),
            " W160 x H120  - C:\\Strip\\160x120.bmp  [09:05am 3/Mar/2024]");
}

TEST_F(PrintPhotosTest, WithoutACompanyNameABlankIsPrintedAllTheSame) {
  SelectPhoto("160x120");
  for (const char* none : {"", "   "}) {
    main.core.CompanyNameLabel.SetCaption(none);
    PrintAt(50, true);
    Print();
    EXPECT_EQ(Documents().back().Pages.at(0).Items.at(3).Text, " ");
  }
  main.core.CompanyNameLabel.SetCaption("  Anna ");
  PrintAt(50, true);
  Print();
  EXPECT_EQ(Documents().back().Pages.at(0).Items.at(3).Text, "Printed by:   Anna ");
}

TEST_F(PrintPhotosTest, APhotoWiderThanThePageIsCutAlikeAndBeginsOffThePage) {
  SelectPhoto("300x100");
  PrintAt(150);
  Print();
  const PrintedItem photo = PicturesOf(OnlyPage()).at(0);
  EXPECT_EQ(photo.X, -3780);
  EXPECT_EQ(photo.Y, 1980);
  EXPECT_EQ(photo.Width, 15120);
  EXPECT_EQ(photo.Height, 7560);
  EXPECT_EQ(photo.SourceX, 750);
  EXPECT_EQ(photo.SourceWidth, 3000);
  EXPECT_EQ(photo.SourceHeight, 1500);
}

TEST_F(PrintPhotosTest, ASquarePhotoIsScaledByThePagesWidth) {
  SelectPhoto("100x100");
  PrintAt(50);
  Print();
  const PrintedItem photo = PicturesOf(OnlyPage()).at(0);
  EXPECT_EQ(photo.Width, 7560);
  EXPECT_EQ(photo.Height, 7560);
}

TEST_F(PrintPhotosTest, InfoForAPhotoHigherThanThePageIsPrintedAboveThePage) {
  SelectPhoto("120x160");
  PrintAt(78);
  Print();
  main.core.PrintPhotoInfo = true;
  main.core.PrintZoom = 1.5F;
  main.preview.PicPreview.SetTag("");
  person.ExpectBox("Can't Print Photo", "No Photo Selected", BoxAnswer::Ok,
                   [this] { main.preview.PicPreview.SetTag(Photo("120x160.bmp")); });
  Print();
  EXPECT_LT(Documents().back().Pages.at(0).Items.at(2).Y, 0);
}

// Deliberate: the dialog has said that there is none, and the zoom is the last one's.
TEST_F(PrintPhotosTest, WithNoPhotoSelectedAfterAnEarlierPrintTheJobGoesOnWithItsZoom) {
  SelectPhoto("160x120");
  PrintAt(78);
  Print();
  main.preview.PicPreview.SetTag("");
  person.ExpectBox("Can't Print Photo", "No Photo Selected");
  Print();
  EXPECT_THAT(Documents(), SizeIs(2));
  EXPECT_THAT(Documents().at(1).Pages, SizeIs(1));
  ExpectAllPutBack();
}

TEST_F(PrintPhotosTest, ALineEndInANameOrTheCompanyIsABlankOnPaper) {
  LoadStrip({"a\n\x1B\xE2\x80\xA8z 160x120"});
  Select(1);
  main.core.CompanyNameLabel.SetCaption("Kestrelia\r\nof\tOslo");
  PrintAt(50, true);
  Print();
  const std::vector<std::string> lines = OnlyPage().Texts();
  ASSERT_THAT(lines, SizeIs(3));
  EXPECT_THAT(lines[1], HasSubstr("\\a   z 160x120.bmp  ["));
  EXPECT_EQ(lines[2], "Printed by: Kestrelia  of Oslo");
}

TEST_F(PrintPhotosTest, TheNoticeIsUpWhileAPhotoIsPrintedAndCannotBeAskedToStop) {
  SelectPhoto("160x120");
  main.core.PrintAborted = true;
  std::string told;
  PrintAfter([&](Person&, Form&) {
    // Before the photo is loaded.
    run.files.BeforeNth(
        FileCall::OpenToRead, 1,
        [&] {
          if (const Form* notice = Notice()) told = Find<Label>(const_cast<Form&>(*notice), "Label2").Caption();
        },
        "160x120.bmp");
  });
  Print();
  EXPECT_EQ(told, "Printing Photo");
  EXPECT_THAT(Documents(), SizeIs(1));
  EXPECT_TRUE(main.core.PrintAborted) << "neither looked at nor cleared";
}

// --- the commands ----------------------------------------------------------------------------------------------------

TEST_F(PrintPhotosTest, EveryCommandForTheSelectedPhotoPrintsIt) {
  SelectPhoto("160x120");
  const auto printedBy = [this](const std::function<void()>& command) {
    const auto before = Documents().size();
    PrintAt(78);
    command();
    return Documents().size() - before;
  };
  EXPECT_EQ(printedBy([&] { person.ChooseMenu(main.menu.PrintSelectedPhotoMenuItem); }), 1U);
  EXPECT_EQ(printedBy([&] { person.ChooseMenu(main.menu.SelectedPrintMenuItem); }), 1U);
  EXPECT_EQ(printedBy([&] { person.Key(key::F1 + 1); }), 1U) << "F2";
  EXPECT_EQ(printedBy([&] { person.Key('P', shift::Ctrl); }), 1U);
  EXPECT_EQ(printedBy([&] {
              person.ExpectMenu(main.menu.PrintPopupMenu, &main.menu.SelectedPhotoPrintPopupMenuItem);
              person.RightClick(main.strip.PrintButton);
            }),
            1U);
  EXPECT_EQ(printedBy([&] {
              person.Press(main.strip.PrintButton);
              person.Release();
            }),
            1U);
  EXPECT_EQ(main.strip.PrintButton.BorderStyle(), 0) << "it is not left looking pressed";
}

TEST_F(PrintPhotosTest, EveryCommandForABatchPrintsItsOwnPhotos) {
  LoadStrip({"a 160x120", "b 120x160"});
  OpenFolder({"c 100x100"});
  const auto pagesBy = [this](const std::function<void()>& command) {
    const auto before = Documents().size();
    PrintAt(50);
    command();
    EXPECT_EQ(Documents().size() - before, 1U);
    return Documents().back().Pages.size();
  };
  EXPECT_EQ(pagesBy([&] { person.ChooseMenu(main.menu.BatchPrintFilmStripMenuItem); }), 2U);
  EXPECT_EQ(pagesBy([&] { person.Key(key::F1 + 2); }), 2U) << "F3";
  EXPECT_EQ(pagesBy([&] {
              person.ExpectMenu(main.menu.PrintPopupMenu, &main.menu.IndividualsFilmStripPrintPopupMenuItem);
              person.RightClick(main.strip.PrintButton);
            }),
            2U);
  EXPECT_EQ(pagesBy([&] { person.ChooseMenu(main.menu.BatchPrintOpenFolderMenuItem); }), 1U);
  EXPECT_EQ(pagesBy([&] { person.ChooseMenu(main.menu.PrintOpenFolderIndividualPhotosMenuItem); }), 1U);
  EXPECT_EQ(pagesBy([&] { person.Key(key::F1 + 3); }), 1U) << "F4";
  EXPECT_EQ(pagesBy([&] { person.Key('T', shift::Ctrl); }), 1U);
  EXPECT_EQ(pagesBy([&] {
              person.ExpectMenu(main.menu.PrintPopupMenu, &main.menu.IndividualsOpenFolderPrintPopupMenuItem);
              person.RightClick(main.strip.PrintButton);
            }),
            1U);
}

TEST_F(PrintPhotosTest, WithNoFolderOpenTheMenuSaysWhatToDo) {
  for (MenuItem* item : {&main.menu.BatchPrintOpenFolderMenuItem, &main.menu.PrintOpenFolderIndividualPhotosMenuItem}) {
    person.ExpectBox("Can't Batch Print Individual Photos", "No Folder is Open.\r\nTry opening a folder first.");
    person.ChooseMenu(*item);
    EXPECT_EQ(run.platform.dialogs.Boxes().back().Icon, BoxIcon::Exclamation);
  }
  EXPECT_THAT(Documents(), IsEmpty());
}

// --- a batch ---------------------------------------------------------------------------------------------------------

TEST_F(PrintPhotosTest, ABatchIsOneDocumentWithAPageForEachPhotoInTheListsOrder) {
  LoadStrip({"a 160x120", "b 120x160", "c 100x100"});
  PrintAt(50, true);
  Batch();
  ASSERT_THAT(Documents(), SizeIs(1));
  const auto& pages = Documents().at(0).Pages;
  ASSERT_THAT(pages, SizeIs(3));
  EXPECT_THAT(pages.at(0).Texts().at(1), HasSubstr("W160 x H120  - " + Photo("a 160x120.bmp")));
  EXPECT_THAT(pages.at(1).Texts().at(0), HasSubstr("W120 x H160  - " + Photo("b 120x160.bmp")));
  EXPECT_THAT(pages.at(2).Texts().at(0), HasSubstr("W100 x H100  - " + Photo("c 100x100.bmp")));
  for (const PrintedPage& page : pages) EXPECT_EQ(page.Orientation, 2);
  EXPECT_EQ(PicturesOf(pages.at(1)).at(0).Height, 5760);
  ExpectAllPutBack();
}

TEST_F(PrintPhotosTest, TheNoticeCountsThePhotos) {
  LoadStrip({"a 160x120", "b 120x160", "c 100x100"});
  std::vector<std::string> told;
  const auto note = [&] {
    auto& label = Find<Label>(const_cast<Form&>(*Notice()), "Label2");
    told.push_back(label.Caption());
    EXPECT_EQ(label.ForeColor(), 0xFFA0A0U);
  };
  PrintAfter([&](Person&, Form&) {
    for (const char* photo : {"a 160", "b 120", "c 100"}) run.files.BeforeNth(FileCall::OpenToRead, 1, note, photo);
  });
  Batch();
  EXPECT_THAT(told, ElementsAre("Now Printing .. 1/3", "Now Printing .. 2/3", "Now Printing .. 3/3"));
}

TEST_F(PrintPhotosTest, StoppedAtTheQuestionThePageInHandIsFinishedAndNoOtherBegun) {
  LoadStrip({"a 160x120", "b 120x160", "c 100x100", "d 90x90", "e 80x80"});
  const auto count = [this](const char* text) {
    const Form* notice = Notice();
    return notice != nullptr && Find<Label>(const_cast<Form&>(*notice), "Label2").Caption() == text;
  };
  person.During([count] { return count("Now Printing .. 1/5"); },
                [this] {
                  person.ExpectBox("Abort Printing", "Do you want to STOP printing?", BoxAnswer::No);
                  person.ClickAt(*person.Window("ConfirmForm"), 10, 10);
                });
  person.During([count] { return count("Now Printing .. 2/5"); },
                [this] {
                  person.ExpectBox("Abort Printing", "Do you want to STOP printing?", BoxAnswer::Yes);
                  person.ClickAt(*person.Window("ConfirmForm"), 10, 10);
                });
  PrintAt(50);
  Batch();
  ASSERT_THAT(Documents(), SizeIs(1));
  EXPECT_THAT(Documents().at(0).Pages, SizeIs(3)) << "the third was begun when the question came up";
  ExpectAllPutBack();
  PrintAt(50);
  Batch();
  EXPECT_THAT(Documents().at(1).Pages, SizeIs(5)) << "the next batch is not stopped";
}

TEST_F(PrintPhotosTest, APhotoThatDoesNotLoadPrintsWhatTheElementHolds) {
  LoadStrip({"a 160x120", "b 120x160", "c 100x100"});
  PrintAfter([this](Person& hand, Form& form) {
    SetZoom(hand, form, 50);
    drive.Write(Photo("b 120x160.bmp"), "no picture");
  });
  Batch();
  ASSERT_THAT(Documents(), SizeIs(1));
  const auto& pages = Documents().at(0).Pages;
  ASSERT_THAT(pages, SizeIs(3));
  EXPECT_EQ(PicturesOf(pages.at(1)).at(0).Painted.Width(), 160) << "the photo before";
  EXPECT_EQ(PicturesOf(pages.at(2)).at(0).Painted.Width(), 100);
}

TEST_F(PrintPhotosTest, PhotosThatLeaveTheListMeanwhileHaveNoName) {
  LoadStrip({"a 160x120", "b 120x160"});
  person.During([this] { return Notice() != nullptr; },
                [this] {
                  drive.Remove(Photo("b 120x160.bmp"));
                  main.strip.SrcFileList.Refresh();
                });
  PrintAt(50, true);
  Batch();
  ASSERT_THAT(Documents().at(0).Pages, SizeIs(2));
  EXPECT_THAT(Documents().at(0).Pages.at(1).Texts().at(0), HasSubstr(" W160 x H120  -   ["));
}

TEST_F(PrintPhotosTest, AnEmptyBatchThatGotPastTheDialogPrintsNothing) {
  LoadStrip({"160x120"});
  Select(1);
  PrintAt(78);
  Print();
  drive.MakeFolder("C:\\Empty");
  main.strip.SrcFileList.SetPath("C:\\Empty");
  run.Wait(0.1);
  run.LoadAll();
  person.ExpectBox("Can't Batch Print", "No photos in Film Strip");
  Batch();
  EXPECT_THAT(Documents(), SizeIs(1)) << "the photo's";
  EXPECT_FALSE(printing.OpenDocument());
  ExpectAllPutBack();
}

TEST_F(PrintPhotosTest, AllPhotosOfABatchAreLoadedIntoTheSameElements) {
  LoadStrip({"a 160x120", "b 120x160", "c 100x100"});
  std::vector<int> elements;
  const auto note = [&] {
    elements.push_back(std::max(main.pictures.TempPic.UBound(), main.pictures.TempImage.UBound()));
  };
  PrintAfter([&](Person&, Form&) {
    for (const char* photo : {"a 160", "b 120", "c 100"}) run.files.BeforeNth(FileCall::OpenToRead, 1, note, photo);
  });
  Batch();
  EXPECT_THAT(elements, ElementsAre(1, 1, 1));
}

TEST_F(PrintPhotosTest, WhileAJobRunsAnotherPrintCommandBeeps) {
  LoadStrip({"a 160x120", "b 120x160"});
  person.During([this] { return Notice() != nullptr; },
                [this] {
                  const int before = run.platform.dialogs.Beeps();
                  person.Activate(main.Window);
                  person.ChooseMenu(main.menu.PrintSelectedPhotoMenuItem);
                  person.ChooseMenu(main.menu.BatchPrintFilmStripMenuItem);
                  person.ChooseMenu(main.menu.PrinterSetupMenuItem);
                  EXPECT_EQ(run.platform.dialogs.Beeps() - before, 3);
                });
  PrintAt(50);
  Batch();
  ASSERT_THAT(Documents(), SizeIs(1));
  EXPECT_THAT(Documents().at(0).Pages, SizeIs(2));
}

TEST_F(PrintPhotosTest, TheProgramsEndStopsABatchAndNothingOfItComesOut) {
  LoadStrip({"a 160x120", "b 120x160", "c 100x100"});
  person.During([this] { return Notice() != nullptr; }, [this] { main.Window.Unload(); });
  PrintAt(50);
  Batch();
  EXPECT_TRUE(run.host.toolkit.Ended());
  EXPECT_THAT(Documents(), IsEmpty());
  EXPECT_FALSE(printing.OpenDocument());
  EXPECT_FALSE(main.core.PrintJobRuns);
  EXPECT_EQ(main.pictures.TempPic.UBound(), 0);
}

}  // namespace
}  // namespace pixorra
