// Proof sheets as they come out of the printer.
#include <gmock/gmock.h>

#include "pictures/PaintPhoto.h"
#include "platform/runtime/Numbers.h"
#include "tests/printing/ProofTest.h"
#include "utility/ConfirmForm.h"
#include "window/MenuBar.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

// The sheet of the standard printer, turned: letter, a quarter inch at each side not printed on. Twips.
constexpr double PaperWidth = 15840 - 720;
constexpr double PaperHeight = 12240 - 720;

class ProofSheetsTest : public ProofTest {
 protected:
  std::vector<std::string> NamesFrom(int first, int last) const {
    std::vector<std::string> names;
    for (int i = first; i <= last; ++i) names.push_back(NameOf(i));
    return names;
  }
  // The names under the photos of a page, in their order.
  static std::vector<std::string> CaptionsOf(const PrintedPage& page) {
    std::vector<std::string> captions;
    for (const std::string& text : page.Texts()) {
      if (text.ends_with(".jpg")) captions.push_back(text);
    }
    return captions;
  }
  void ExpectTidy() const {
    EXPECT_EQ(main.pictures.TempPic.UBound(), 0);
    EXPECT_EQ(main.pictures.TempImage.UBound(), 0);
    EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
    EXPECT_EQ(printing.Orientation(), 1);
    EXPECT_FALSE(ConfirmForm::Of(main).Window.IsLoaded());
    EXPECT_FALSE(printing.OpenDocument());
  }
};

TEST_F(ProofSheetsTest, PageTwoOfTenPhotosAtTwoAcrossHoldsPhotosFiveToEightAlone) {
  LoadStrip(10);
  Print(2, 2);
  ASSERT_THAT(printing.Documents(), SizeIs(1));
  ASSERT_EQ(PageCount(), 1U);
  EXPECT_THAT(CaptionsOf(Page(1)), NamesFrom(5, 8));
  EXPECT_THAT(PicturesOf(Page(1)), SizeIs(4));
  EXPECT_THAT(Page(1).Texts(), Contains(" 2 of 3 pages"));
  ExpectTidy();
}

TEST_F(ProofSheetsTest, AllPagesAreOneDocumentAndTheLastHasNoCaptionsPastTheLastPhoto) {
  LoadStrip(10);
  Print(2);
  ASSERT_THAT(printing.Documents(), SizeIs(1));
  ASSERT_EQ(PageCount(), 3U);
  EXPECT_THAT(CaptionsOf(Page(1)), NamesFrom(1, 4));
  EXPECT_THAT(CaptionsOf(Page(2)), NamesFrom(5, 8));
  EXPECT_THAT(CaptionsOf(Page(3)), NamesFrom(9, 10));
  EXPECT_THAT(PicturesOf(Page(3)), SizeIs(2));
  for (std::size_t page = 1; page <= 3; ++page) {
    EXPECT_EQ(Page(page).Orientation, 2);
    EXPECT_THAT(Page(page).Texts(), Contains(" " + std::to_string(page) + " of 3 pages"));
  }
  ExpectTidy();
}

TEST_F(ProofSheetsTest, AFullPageAndOnePhotoMoreMakeOnePageAndTwo) {
  for (int across = 2; across <= 6; ++across) {
    for (const int more : {0, 1}) {
      LoadAnotherStrip(across * across + more);
      Print(across);
      ASSERT_EQ(PageCount(), 1U + static_cast<unsigned>(more)) << across;
      EXPECT_THAT(CaptionsOf(Page(1)), NamesFrom(1, across * across)) << across;
      if (more == 0) continue;
      EXPECT_THAT(CaptionsOf(Page(2)), NamesFrom(across * across + 1, across * across + 1)) << across;
    }
  }
}

TEST_F(ProofSheetsTest, ASinglePhotoIsInTheFirstCell) {
  LoadStrip(1);
  Print(3);
  ASSERT_EQ(PageCount(), 1U);
  const std::vector<PrintedItem> pictures = PicturesOf(Page(1));
  ASSERT_THAT(pictures, SizeIs(1));
  EXPECT_EQ(pictures[0].X, 600);
  EXPECT_EQ(pictures[0].Y, 600);
}

TEST_F(ProofSheetsTest, WithoutPhotosNothingIsShownAndNothingPrinted) {
  drive.MakeFolder(Strip);
  main.strip.SrcFileList.SetPath(Strip);
  PrintProofSheets(main, BatchSource::FilmStrip);
  EXPECT_THAT(printing.Documents(), IsEmpty());
  ExpectTidy();
}

TEST_F(ProofSheetsTest, CancelPrintsNothing) {
  LoadStrip(3);
  InDialog([](Person& hand, Form& form) { hand.Click(Find<CommandButton>(form, "CancelButton")); });
  PrintProofSheets(main, BatchSource::FilmStrip);
  EXPECT_THAT(printing.Documents(), IsEmpty());
  ExpectTidy();
}

TEST_F(ProofSheetsTest, CellsCaptionsAndHeaderLieWhereTheSumsPutThem) {
  main.core.CompanyNameLabel.SetCaption("Kestrelia");
  for (int across = 2; across <= 6; ++across) {
    LoadAnotherStrip(across * across);
    Print(across);
    const int cellHeight = CLng((PaperHeight - 700) / across);
    const int cellWidth = CLng(80.0 / 60 * cellHeight);
    const std::vector<PrintedItem> pictures = PicturesOf(Page(1));
    ASSERT_THAT(pictures, SizeIs(static_cast<std::size_t>(across * across)));
    for (int i = 0; i < across * across; ++i) {
      const PrintedItem& picture = pictures[static_cast<std::size_t>(i)];
      EXPECT_EQ(picture.X, i % across * cellWidth + 600);
      EXPECT_EQ(picture.Y, i / across * cellHeight + 600);
      EXPECT_EQ(picture.Width, cellWidth - 600);
      EXPECT_EQ(picture.Height, cellHeight - 600);
      const PrintedItem& caption = TextOf(Page(1), NameOf(i + 1));
      EXPECT_EQ(caption.FontSize, 14 - across);
      EXPECT_FALSE(caption.Bold);
      const double width = 8 * 0.5 * caption.FontSize * 20;
      EXPECT_DOUBLE_EQ(caption.X, (cellWidth - width - 600) / 2 + picture.X);
      EXPECT_DOUBLE_EQ(caption.Y, picture.Y + cellHeight - 490);
    }
    const PrintedItem& folder = TextOf(Page(1), Strip);
    EXPECT_EQ(folder.X, 400);
    EXPECT_EQ(folder.Y, 150);
    EXPECT_EQ(folder.FontSize, 14);
    EXPECT_EQ(folder.FontName, "Arial");
    EXPECT_TRUE(folder.Bold);
    const PrintedItem& pages = TextOf(Page(1), " 1 of 1 pages");
    EXPECT_DOUBLE_EQ(pages.X, PaperWidth - 13 * 140 - 400);
    EXPECT_EQ(pages.Y, 150);
    const PrintedItem& company = TextOf(Page(1), "Printed by: Kestrelia");
    EXPECT_DOUBLE_EQ(company.X, PaperWidth - 21 * 80 - 400);
    EXPECT_DOUBLE_EQ(company.Y, PaperHeight - 300);
    EXPECT_EQ(company.FontSize, 8);
    EXPECT_FALSE(company.Bold);
  }
}

TEST_F(ProofSheetsTest, ThreeAcrossOnAnAreaOf15000By11000Twips) {
  printing.Printers[0].SheetWidth = 11720;
  printing.Printers[0].SheetHeight = 15720;
  LoadStrip(9);
  Print(3);
  const std::vector<PrintedItem> pictures = PicturesOf(Page(1));
  ASSERT_THAT(pictures, SizeIs(9));
  EXPECT_EQ(pictures[0].Width, 3977);
  EXPECT_EQ(pictures[0].Height, 2833);
  EXPECT_EQ(pictures[2].X + pictures[2].Width, 13731);
  EXPECT_EQ(TextOf(Page(1), NameOf(9)).Y, 10409);
}

TEST_F(ProofSheetsTest, WithoutACompanyTheFootIsOneBlank) {
  main.core.CompanyNameLabel.SetCaption("  ");
  LoadStrip(1);
  Print(2);
  const std::vector<std::string> texts = Page(1).Texts();
  ASSERT_THAT(texts, SizeIs(5));
  EXPECT_EQ(texts[0], " ") << "what the document begins with";
  EXPECT_EQ(texts[3], " ");
}

TEST_F(ProofSheetsTest, PhotosAreRenderedAsLargeAsThePageIsDivided) {
  const PixelSize sizes[] = {{2200, 1650}, {1600, 1200}, {1200, 900}, {800, 600}, {600, 450}};
  MakePhotos(Strip, 1, 2400, 1800);
  ShowStrip();
  for (int across = 2; across <= 6; ++across) {
    Print(across);
    const PixelSize size = sizes[across - 2];
    const PrintedItem picture = PicturesOf(Page(1)).at(0);
    EXPECT_EQ(picture.Painted.Width(), size.Width);
    EXPECT_EQ(picture.Painted.Height(), size.Height);
    EXPECT_EQ(picture.SourceWidth, size.Width * 15);
    EXPECT_EQ(picture.SourceHeight, size.Height * 15);
  }
}

TEST_F(ProofSheetsTest, ASmallFirstPhotoLimitsAllCellsOfTheJob) {
  drive.MakeFolder(Strip);
  drive.Write(std::string(Strip) + "\\" + NameOf(1), JpegPhoto(640, 480));
  drive.Write(std::string(Strip) + "\\" + NameOf(2), JpegPhoto(2400, 1800));
  ShowStrip();
  Print(2);
  for (const PrintedItem& picture : PicturesOf(Page(1))) {
    EXPECT_EQ(picture.Painted.Width(), 640);
    EXPECT_EQ(picture.Painted.Height(), 480);
  }
  Print(6);
  EXPECT_EQ(PicturesOf(Page(1)).at(1).Painted.Width(), 600);
}

TEST_F(ProofSheetsTest, ASmallUprightFirstPhotoGivesAllCellsItsShapeToo) {
  drive.MakeFolder(Strip);
  drive.Write(std::string(Strip) + "\\" + NameOf(1), JpegPhoto(480, 640));
  drive.Write(std::string(Strip) + "\\" + NameOf(2), JpegPhoto(800, 600));
  ShowStrip();
  Print(6);
  for (const PrintedItem& picture : PicturesOf(Page(1))) {
    EXPECT_EQ(picture.Painted.Width(), 480);
    EXPECT_EQ(picture.Painted.Height(), 640);
  }
}

TEST_F(ProofSheetsTest, AThinFirstPhotoMakesNoHugeCells) {
  drive.MakeFolder(Strip);
  drive.Write(std::string(Strip) + "\\" + NameOf(1), JpegOf(PlainBitmap(299, 60000, 0x00112233)));
  drive.Write(std::string(Strip) + "\\" + NameOf(2), JpegPhoto(80, 60));
  ShowStrip();
  Print(2);
  const std::vector<PrintedItem> pictures = PicturesOf(Page(1));
  ASSERT_THAT(pictures, SizeIs(2));
  for (const PrintedItem& picture : pictures)
    EXPECT_LE(std::int64_t{picture.Painted.Width()} * picture.Painted.Height(), 16'000'000);
  EXPECT_EQ(StretchedSize({280, 57000}, {400, 300}).Width, 280) << "nor a canvas of nine times its size";
  EXPECT_EQ(StretchedSize({280, 210}, {300, 900}).Height, 630) << "which a small one has";
}

TEST_F(ProofSheetsTest, AFirstPhotoThatCannotBeLoadedInTheMeantimeLimitsNothing) {
  MakePhotos(Strip, 2, 800, 600);
  ShowStrip();
  InDialog([this](Person& hand, Form& form) {
    drive.Write(std::string(Strip) + "\\" + NameOf(1), "no photo any more");
    hand.MoveBar(Find<ScrollBar>(form, "ProofSizeBar"), 5);
    hand.Click(Find<CommandButton>(form, "PrintButton"));
  });
  PrintProofSheets(main, BatchSource::FilmStrip);
  ASSERT_THAT(PicturesOf(Page(1)), SizeIs(1));
  EXPECT_EQ(PicturesOf(Page(1))[0].Painted.Width(), 800);
}

TEST_F(ProofSheetsTest, APhotoOfAnotherShapeHasWhiteBars) {
  drive.MakeFolder(Strip);
  drive.Write(std::string(Strip) + "\\" + NameOf(1), JpegOf(PlainBitmap(900, 1200, 0x00000000)));
  ShowStrip();
  Print(6);
  const Picture picture = PicturesOf(Page(1)).at(0).Painted;
  const auto at = [&](int x) { return static_cast<int>(picture.Pixels().Row(picture.Height() / 2)[3 * x]); };
  EXPECT_EQ(at(10), 255);
  EXPECT_LT(at(picture.Width() / 2), 8);
  EXPECT_EQ(at(picture.Width() - 11), 255);
}

TEST_F(ProofSheetsTest, APhotoThatCannotBeShownHasItsCaptionUnderAnEmptyCell) {
  LoadStrip(3);
  drive.Write(std::string(Strip) + "\\" + NameOf(2), "no photo any more");
  Print(2);
  EXPECT_THAT(CaptionsOf(Page(1)), NamesFrom(1, 3));
  const std::vector<PrintedItem> pictures = PicturesOf(Page(1));
  ASSERT_THAT(pictures, SizeIs(2));
  EXPECT_EQ(pictures[0].X, 600);
  EXPECT_EQ(pictures[1].X, 600) << "the third is in the second row";
  EXPECT_GT(pictures[1].Y, pictures[0].Y);
  EXPECT_EQ(run.platform.dialogs.Beeps(), 1);
  ExpectTidy();
}

TEST_F(ProofSheetsTest, TheNoticeCountsThePhotosOfAllPagesAndTheOnesOfOnePageWithoutATotal) {
  LoadStrip(6);
  std::vector<std::string> told;
  const auto listen = [&] {
    for (int i = 0; i < 6; ++i) person.During([&] { told.push_back(ConfirmForm::Of(main).Label2.Caption()); });
  };
  InDialog([&](Person& hand, Form& form) {
    listen();
    hand.Click(Find<CommandButton>(form, "PrintButton"));
  });
  PrintProofSheets(main, BatchSource::FilmStrip);
  EXPECT_THAT(told, ElementsAre("", "Now Printing .. 1/6", "Now Printing .. 2/6", "Now Printing .. 3/6",
                                "Now Printing .. 4/6", "Now Printing .. 5/6"));
  EXPECT_EQ(ConfirmForm::Of(main).Label2.Caption(), "Now Printing .. 6/6");
  Print(2, 2);
  EXPECT_EQ(ConfirmForm::Of(main).Label2.Caption(), "Now Printing .. 6");
}

TEST_F(ProofSheetsTest, StoppedAtTheQuestionAfterPageTwoOfFiveTheCellsMadeComeOutAndNothingIsLeftRunning) {
  LoadStrip(20);
  person.During([&] { return ConfirmForm::Of(main).Label2.Caption() == "Now Printing .. 8/20"; },
                [&] {
                  person.ExpectBox("Abort Printing", "Do you want to STOP printing?", BoxAnswer::Yes);
                  person.Click(ConfirmForm::Of(main).Label2);
                });
  Print(2);
  ASSERT_THAT(printing.Documents(), SizeIs(1));
  ASSERT_EQ(PageCount(), 3U);
  EXPECT_THAT(CaptionsOf(Page(2)), NamesFrom(5, 8));
  EXPECT_THAT(CaptionsOf(Page(3)), NamesFrom(9, 9)) << "the photo that was come to when the question was asked";
  EXPECT_THAT(Page(3).Texts(), Contains(" 3 of 5 pages"));
  ExpectTidy();
  run.Wait(5);
  EXPECT_EQ(person.Window("PrintProofForm"), nullptr);
  EXPECT_THAT(printing.Documents(), SizeIs(1));
  Print(2, 1);
  EXPECT_THAT(CaptionsOf(Page(1)), NamesFrom(1, 4)) << "an earlier stop does not stop the next job";
}

TEST_F(ProofSheetsTest, ALineEndInTheFoldersOrAPhotosNameIsABlankOnPaper) {
  MakePhotos("C:\\St\nrip", 0);
  drive.Write("C:\\St\nrip\\one\ntwo.jpg", JpegOf(PlainBitmap(80, 60, 0)));
  main.strip.NoFilmStrip = false;
  main.strip.SrcFileList.SetPath("C:\\St\nrip");
  run.Wait(0.04);
  run.LoadAll();
  Print(2);
  EXPECT_THAT(Page(1).Texts(), Contains("C:\\St rip"));
  EXPECT_THAT(Page(1).Texts(), Contains("one two.jpg"));
}

TEST_F(ProofSheetsTest, ANoAtTheQuestionGoesOn) {
  LoadStrip(5);
  person.During([&] { return ConfirmForm::Of(main).Label2.Caption() == "Now Printing .. 2/5"; },
                [&] {
                  person.ExpectBox("Abort Printing", "", BoxAnswer::No);
                  person.Click(ConfirmForm::Of(main).Label2);
                });
  Print(2);
  EXPECT_EQ(PageCount(), 2U);
  EXPECT_THAT(CaptionsOf(Page(2)), NamesFrom(5, 5));
}

TEST_F(ProofSheetsTest, StoppedAtTheLastPhotoOfASheetNoOtherSheetIsBegun) {
  LoadStrip(8);
  person.During([&] { return ConfirmForm::Of(main).Label2.Caption() == "Now Printing .. 3/8"; },
                [&] { main.core.PrintAborted = true; });
  Print(2);
  EXPECT_EQ(PageCount(), 1U) << "the fourth photo was come to, and no page after it begun";
  EXPECT_THAT(CaptionsOf(Page(1)), NamesFrom(1, 4));
}

TEST_F(ProofSheetsTest, APrinterThatCannotBeHadIsNotSpokenOf) {
  LoadStrip(3);
  printing.Printers[0].Broken = true;
  Print(2);
  EXPECT_THAT(printing.Documents(), IsEmpty());
  EXPECT_EQ(main.pictures.TempPic.UBound(), 0);
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
}

TEST_F(ProofSheetsTest, ThePhotosAskedForArePrintedWhateverFolderIsShownMeanwhile) {
  LoadStrip(6);
  MakePhotos("C:\\Other", 3);
  person.During([&] { return ConfirmForm::Of(main).Label2.Caption() == "Now Printing .. 2/6"; },
                [&] { main.strip.SrcFileList.SetPath("C:\\Other"); });
  Print(2);
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_THAT(CaptionsOf(Page(2)), NamesFrom(5, 6));
  EXPECT_THAT(Page(2).Texts(), AllOf(Contains(Strip), Contains(" 2 of 2 pages")));
  EXPECT_THAT(PicturesOf(Page(2)), SizeIs(2));
}

TEST_F(ProofSheetsTest, ASecondJobMeanwhileIsRefused) {
  LoadStrip(5);
  person.During([&] { return ConfirmForm::Of(main).Label2.Caption() == "Now Printing .. 2/5"; },
                [&] { PrintProofSheets(main, BatchSource::FilmStrip); });
  Print(2);
  EXPECT_THAT(printing.Documents(), SizeIs(1));
  EXPECT_EQ(PageCount(), 2U);
  EXPECT_EQ(run.platform.dialogs.Beeps(), 1);
}

TEST_F(ProofSheetsTest, AWindowThatIsClosedMeanwhileEndsTheJobAndNothingComesOut) {
  LoadStrip(5);
  person.During([&] { return ConfirmForm::Of(main).Label2.Caption() == "Now Printing .. 2/5"; }, [&] { run.Close(); });
  Print(2);
  EXPECT_TRUE(run.host.toolkit.Ended());
  EXPECT_THAT(printing.Documents(), IsEmpty());
  EXPECT_FALSE(printing.OpenDocument());
}

TEST_F(ProofSheetsTest, TheOpenFolderHasSheetsOfItsOwn) {
  LoadStrip(2);
  OpenFolderOf(5);
  Print(2, 0, BatchSource::OpenFolder);
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_THAT(CaptionsOf(Page(2)), NamesFrom(5, 5));
  EXPECT_THAT(Page(1).Texts(), Contains(Folder));
}

TEST_F(ProofSheetsTest, TheMenusCommandsPrintTheSheetsOfTheirSource) {
  LoadStrip(2);
  OpenFolderOf(3);
  const struct {
    MenuItem& Item;
    const char* Folder;
  } commands[] = {{main.menu.PrintProofFilmStripMenuItem, Strip},
                  {main.menu.PrintProofOpenFolderMenuItem, Folder},
                  {main.menu.PrintOpenFolderProofSheetsMenuItem, Folder}};
  std::size_t printed = 0;
  for (const auto& [item, folder] : commands) {
    Choose(2);
    person.ChooseMenu(item);
    ASSERT_THAT(printing.Documents(), SizeIs(++printed));
    EXPECT_THAT(Page(1).Texts(), Contains(folder));
  }
}

TEST_F(ProofSheetsTest, WithoutAnOpenFolderTheMenusCommandSaysSo) {
  LoadStrip(2);
  person.ExpectBox("Can't Print Proof Sheets", "No Folder is Open.\r\nTry opening a folder first.");
  PrintProofOpenFolderMenuItem_Click(main);
  EXPECT_EQ(run.platform.dialogs.Boxes().back().Icon, BoxIcon::Exclamation);
  EXPECT_THAT(printing.Documents(), IsEmpty());
}

}  // namespace
}  // namespace pixorra
