// The dialog ahead of proof sheets: what it shows, what it draws, and what it answers.
#include <cmath>
#include <gmock/gmock.h>

#include "platform/controls/Label.h"
#include "platform/runtime/Numbers.h"
#include "printing/PrintProofForm.h"
#include "tests/printing/ProofTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

// Of a page of standard letter paper, pixels.
constexpr int PageWide = 219;
constexpr int PageHigh = 169;

class PrintProofFormTest : public ProofTest {
 protected:
  // Shows the dialog, and presses Cancel when `look` has looked at it.
  ProofChoice Look(const std::function<void()>& look, BatchSource source = BatchSource::FilmStrip) {
    form.emplace(main);
    form->Window.Load();
    InDialog([&](Person& hand, Form&) {
      look();
      if (form->Window.Visible()) hand.Click(form->CancelButton);
    });
    const ProofChoice choice = form->GetProofSize(source);
    EXPECT_FALSE(form->Window.IsLoaded());
    return choice;
  }
  ProofChoice Press(const std::function<void()>& act, BatchSource source = BatchSource::FilmStrip) {
    return Look(
        [&] {
          act();
          person.Click(form->PrintButton);
        },
        source);
  }
  std::vector<std::string> Entries() const {
    std::vector<std::string> entries;
    for (int i = 0; i < form->PagesBox.ListCount(); ++i) entries.push_back(form->PagesBox.List(i));
    return entries;
  }
  // The colour in the middle of a cell's picture, from row and column 0.
  Colour InCell(int row, int column) {
    const int across = form->ProofSizeBar.Value();
    const int high = CLng((PageHigh - 13) / static_cast<double>(across));
    const int wide = CLng(80.0 / 60 * high);
    return form->PagePreview.Point(column * wide + 10 + (wide - 10) / 2, row * high + 10 + (high - 10) / 2);
  }
  // The colour that the photo of that number has.
  static bool IsPhoto(Colour colour, int number) {
    const auto wanted = static_cast<Colour>(0x050709 * number);
    for (const int shift : {0, 8, 16}) {
      if (std::abs(static_cast<int>(colour >> shift & 0xFF) - static_cast<int>(wanted >> shift & 0xFF)) > 4)
        return false;
    }
    return true;
  }
  std::vector<std::uint8_t> PageBytes() const {
    const Bitmap& page = form->PagePreview.Surface();
    std::vector<std::uint8_t> bytes;
    for (int y = 0; y < page.Height(); ++y) bytes.insert(bytes.end(), page.Row(y), page.Row(y) + 3 * page.Width());
    return bytes;
  }
  // How much ink there is in a part of the page.
  int InkIn(int left, int top, int right, int bottom) {
    int ink = 0;
    for (int y = top; y < bottom; ++y) {
      for (int x = left; x < right; ++x) ink += form->PagePreview.Point(x, y) != 0xFFFFFF ? 1 : 0;
    }
    return ink;
  }

  std::optional<PrintProofForm> form;
};

TEST_F(PrintProofFormTest, ItSaysWhatIsPrintedWhereAndOnWhat) {
  LoadStrip(3);
  Look([&] {
    EXPECT_EQ(form->Window.Caption(), " Print Proof Sheet [Film-Strip] - Strip");
    EXPECT_EQ(form->PaperTypeLabel.Caption(), "Letter paper - Landscape Only");
    EXPECT_EQ(form->PaperTypeLabel.ToolTipText(), "Letter, 8 1/2 x 11 in.");
    EXPECT_EQ(form->Frame1.Caption(), "Current Printer");
    EXPECT_EQ(form->PrinterNameLabel.Caption(), "Headless Printer");
    EXPECT_EQ(form->DpiLabel.ToolTipText(), "Resolution: Dots per Inch");
    EXPECT_EQ(form->Label1.Caption(), "Adjust Proof Size");
    EXPECT_EQ(form->PageLabel.Caption(), "Page:");
    EXPECT_EQ(form->PrinterSetupButton.Caption(), "Printer &Setup");
    EXPECT_EQ(form->PrintButton.Caption(), "&Print Now");
    EXPECT_TRUE(form->PrintButton.Bold());
    EXPECT_EQ(form->CancelButton.Caption(), "&Cancel");
    EXPECT_EQ(form->Window.Owner(), &main.Window);
    EXPECT_TRUE(form->Window.IsModal());
    EXPECT_EQ(printing.Orientation(), 1) << "the sheet is asked about upright";
  });
  OpenFolderOf(2);
  Look([&] { EXPECT_EQ(form->Window.Caption(), " Print Proof Sheet [Open-Folder] -  Best "); },
       BatchSource::OpenFolder);
}

TEST_F(PrintProofFormTest, TenPhotosAtTwoAcrossAreThreePages) {
  LoadStrip(10);
  Look([&] {
    EXPECT_EQ(form->ProofSizeBar.Value(), 2) << "at each opening";
    EXPECT_THAT(Entries(), ElementsAre("All [3]", "1", "2", "3"));
    for (int i = 0; i <= 3; ++i) EXPECT_EQ(form->PagesBox.ItemData(i), i);
    EXPECT_EQ(form->PagesBox.ListIndex(), 0);
    person.MoveBar(form->ProofSizeBar, 6);
  });
  Look([&] { EXPECT_EQ(form->ProofSizeBar.Value(), 2) << "nothing remembers the last choice"; });
}

TEST_F(PrintProofFormTest, AFullPageIsOnePageAndOnePhotoMoreMakesTwo) {
  for (const int count : {36, 37}) {
    LoadAnotherStrip(count);
    Look([&] {
      person.MoveBar(form->ProofSizeBar, 6);
      EXPECT_EQ(Entries()[0], count == 36 ? "All [1]" : "All [2]");
      EXPECT_THAT(Entries(), SizeIs(count == 36 ? 2 : 3));
    });
  }
}

TEST_F(PrintProofFormTest, TheAnswerIsTheSliderAndThePageThatWasChosen) {
  LoadStrip(10);
  ProofChoice choice = Press([] {});
  EXPECT_EQ(choice.Size, 2);
  EXPECT_EQ(choice.Page, 0);
  choice = Press([&] { person.Choose(form->PagesBox, "3"); });
  EXPECT_EQ(choice.Size, 2);
  EXPECT_EQ(choice.Page, 3);
  choice = Press([&] { person.DragBar(form->ProofSizeBar, 5); });
  EXPECT_EQ(choice.Size, 5);
  EXPECT_EQ(choice.Page, 0);
}

TEST_F(PrintProofFormTest, CancelAndTheFramesOwnButtonAndEscapeAnswerNothing) {
  LoadStrip(10);
  EXPECT_EQ(Look([] {}).Size, 0);
  EXPECT_EQ(Look([&] { person.Close(form->Window); }).Size, 0);
  EXPECT_EQ(Look([&] { person.Key(key::Escape); }).Size, 0);
}

TEST_F(PrintProofFormTest, ReturnPrints) {
  LoadStrip(10);
  EXPECT_EQ(Look([&] { person.Key(key::Return); }).Size, 2);
}

TEST_F(PrintProofFormTest, MovingTheSliderGoesBackToAllPages) {
  LoadStrip(20);
  Look([&] {
    person.Choose(form->PagesBox, "4");
    person.DragBar(form->ProofSizeBar, 3);
    EXPECT_EQ(form->PagesBox.ListIndex(), 0);
    EXPECT_THAT(Entries(), ElementsAre("All [3]", "1", "2", "3"));
  });
}

TEST_F(PrintProofFormTest, ThePageHasTheSheetsProportionsAndTheRestIsArrangedAtItsEdge) {
  LoadStrip(1);
  Look([&] {
    EXPECT_EQ(form->PagePreview.Width(), PageWide);
    EXPECT_EQ(form->PagePreview.Height(), PageHigh);
    EXPECT_EQ(form->ProofSizeBar.Width(), PageWide);
    const int edge = form->PagePreview.Bounds().Right();
    EXPECT_EQ(form->Frame1.Left(), edge + 10);
    EXPECT_EQ(form->PrinterSetupButton.Left(), edge + 10);
    EXPECT_EQ(form->PrintButton.Left(), edge + 28);
    EXPECT_EQ(form->CancelButton.Left(), edge + 10);
    EXPECT_EQ(form->DpiLabel.Left(), edge - form->DpiLabel.Width() - 3);
    EXPECT_EQ(form->PageLabel.Left(), edge + 5);
    EXPECT_EQ(form->PagesBox.Left(), form->PageLabel.Bounds().Right());
    EXPECT_EQ(form->Window.TwipsWidth(), (form->Frame1.Bounds().Right() + 15) * 15);
  });
}

TEST_F(PrintProofFormTest, ItFitsOnASmallScreenWhateverThePaper) {
  LoadStrip(1);
  // The last two: a banner of 210 x 1117 mm and a roll of thirty metres.
  for (const auto& [width, height] :
       {std::pair{12240, 15840}, {24480, 15840}, {5940, 13680}, {5669, 8504}, {11906, 63326}, {11906, 1700787}}) {
    printing.Printers[0].SheetWidth = width;
    printing.Printers[0].SheetHeight = height;
    Look([&] {
      EXPECT_LE(form->Window.TwipsWidth(), 800 * 15);
      EXPECT_LE(form->Window.TwipsHeight(), 560 * 15);
      EXPECT_LE(form->CancelButton.Bounds().Right(), form->Window.ScaleWidth());
      for (const int across : {6, 2}) person.MoveBar(form->ProofSizeBar, across);
    });
  }
}

TEST_F(PrintProofFormTest, EachSizeDrawsTheFirstPhotosInTheirCells) {
  LoadStrip(40);
  Look([&] {
    for (int across = 2; across <= 6; ++across) {
      person.MoveBar(form->ProofSizeBar, across);
      for (int i = 0; i < across * across; ++i)
        EXPECT_TRUE(IsPhoto(InCell(i / across, i % across), i + 1)) << across << ' ' << i;
    }
  });
}

TEST_F(PrintProofFormTest, ThePageChosenIsDrawnAndCellsPastTheLastPhotoAreWhite) {
  LoadStrip(10);
  Look([&] {
    person.Choose(form->PagesBox, "2");
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(IsPhoto(InCell(i / 2, i % 2), i + 5)) << i;
    person.Choose(form->PagesBox, "3");
    EXPECT_TRUE(IsPhoto(InCell(0, 1), 10));
    EXPECT_EQ(InCell(1, 0), 0xFFFFFFU);
    EXPECT_EQ(InCell(1, 1), 0xFFFFFFU);
    person.Choose(form->PagesBox, 0);
    EXPECT_TRUE(IsPhoto(InCell(1, 1), 4)) << "all: the first page";
  });
}

TEST_F(PrintProofFormTest, FolderPagesAndCompanyAreAtThePagesEdges) {
  LoadStrip(10);
  main.core.CompanyNameLabel.SetCaption("Kestrelia");
  Look([&] {
    const auto widthOf = [](double points, const std::string& text) {
      return static_cast<double>(text.size()) * 6 * points / 8.25;
    };
    // Ends where this text does, one character's part away from 5 pixels to the edge.
    const auto startsAt = [&](const std::string& page) {
      const double left = PageWide - 5 - widthOf(4, page);
      EXPECT_GT(InkIn(static_cast<int>(left), 2, PageWide - 5, 9), 10) << page;
      EXPECT_EQ(InkIn(static_cast<int>(left) - 12, 2, static_cast<int>(left), 9), 0) << page;
      EXPECT_EQ(InkIn(PageWide - 5, 2, PageWide, 9), 0) << page;
    };
    startsAt("0 of 4 pages");
    person.Choose(form->PagesBox, "2");
    startsAt("2 of 4 pages");
    EXPECT_GT(InkIn(5, 2, 5 + static_cast<int>(widthOf(4, Strip)), 8), 10);
    EXPECT_EQ(InkIn(0, 2, 5, 8), 0);
    const double company = widthOf(2, "Printed by: Kestrelia");
    EXPECT_GT(InkIn(PageWide - 5 - static_cast<int>(company), PageHigh - 5, PageWide - 5, PageHigh), 10);
  });
}

TEST_F(PrintProofFormTest, ThePageTextCountsTheEntryOfAllAsAPage) {
  LoadStrip(8);
  // Two pages: chosen from the list, the second one is entry 2 of 3.
  std::vector<std::vector<std::uint8_t>> shown;
  const auto corner = [&] {
    std::vector<std::uint8_t> bytes;
    for (int y = 0; y < 9; ++y) {
      const std::uint8_t* row = form->PagePreview.Surface().Row(y);
      bytes.insert(bytes.end(), row + 3 * 120, row + 3 * PageWide);
    }
    return bytes;
  };
  Look([&] {
    person.Choose(form->PagesBox, "2");
    const auto drawn = corner();
    form->PagePreview.Box(120, 0, PageWide, 9, 0x00FFFFFF, true);
    form->PagePreview.SetFont({"Arial", 4, true});
    const std::string page = "2 of 3 pages";
    form->PagePreview.PrintAt(PageWide - 5 - form->PagePreview.TextWidth(page), 2, page);
    EXPECT_EQ(drawn, corner());
  });
}

TEST_F(PrintProofFormTest, NamesAreUnderTheirPhotosInTheMiddle) {
  LoadStrip(4);
  Look([&] {
    const int high = 78;
    const int wide = 104;
    const double width = 4 * 6 * 4 / 8.25;  // "p001"
    const int left = static_cast<int>((wide - width - 10) / 2 + 10);
    const int top = 10 + high - 8;
    const int right = left + static_cast<int>(width);
    EXPECT_GT(InkIn(left, top, right, top + 6), 4);
    EXPECT_EQ(InkIn(left - 12, top, left - 1, top + 6), 0);
    EXPECT_EQ(InkIn(right + 1, top, right + 12, top + 6), 0);
  });
}

TEST_F(PrintProofFormTest, TheResolutionIsThatOfThePhotoAcrossACell) {
  MakePhotos(Strip, 2, 1600, 1200);
  ShowStrip();
  Look([&] {
    for (const int across : {2, 3, 6}) {
      person.MoveBar(form->ProofSizeBar, across);
      const int wide = CLng(80.0 / 60 * CLng((PageHigh - 13) / static_cast<double>(across)));
      const double inches = wide / static_cast<double>(PageWide) * (15840 - 720) / 1440;
      EXPECT_EQ(form->DpiLabel.Caption(), TrimmedStr(std::floor(1600 / inches)) + " dpi") << across;
    }
  });
}

TEST_F(PrintProofFormTest, WhileTheStripIsStillLoadingThePageCompletesItself) {
  MakePhotos(Strip, 12);
  main.strip.NoFilmStrip = false;
  main.strip.SrcFileList.SetPath(Strip);
  while (main.strip.SrcSlotCount < 2) run.Wait(0.02);
  Look([&] {
    person.MoveBar(form->ProofSizeBar, 3);
    EXPECT_TRUE(IsPhoto(InCell(0, 0), 1));
    EXPECT_EQ(InCell(2, 2), 0xFFFFFFU);
    EXPECT_NE(form->DpiLabel.Caption(), "");
    run.LoadAll();
    run.Wait(0.5);
    for (int i = 0; i < 9; ++i) EXPECT_TRUE(IsPhoto(InCell(i / 3, i % 3), i + 1)) << i;
  });
}

TEST_F(PrintProofFormTest, ASlotThatIsNotThereYetEndsTheGridAndTheRestIsDrawn) {
  LoadStrip(4);
  Look([&] {
    main.strip.SrcThumbnail.Unload(3);
    form->DpiLabel.SetCaption("");
    person.Choose(form->PagesBox, "1");
    EXPECT_TRUE(IsPhoto(InCell(0, 1), 2));
    EXPECT_EQ(InCell(1, 0), 0xFFFFFFU);
    EXPECT_EQ(InCell(1, 1), 0xFFFFFFU);
    EXPECT_NE(form->DpiLabel.Caption(), "");
    EXPECT_TRUE(form->Timer1.Enabled());
    main.strip.SrcThumbnail.Load(3).SetTag("C:\\Strip\\p003.jpg");
    main.strip.SrcThumbnail(3).SetPicture(main.strip.SrcThumbnail(1).GetPicture());
    run.Wait(0.5);
    EXPECT_TRUE(IsPhoto(InCell(1, 1), 4));
  });
}

TEST_F(PrintProofFormTest, PhotosThatHaveGoneFromTheStripHaveNoCell) {
  LoadStrip(5);
  Look([&] {
    main.strip.SrcThumbnail(2).SetTag("");
    person.Choose(form->PagesBox, "1");
    EXPECT_TRUE(IsPhoto(InCell(0, 1), 3));
    EXPECT_TRUE(IsPhoto(InCell(1, 1), 5));
    person.Choose(form->PagesBox, "2");
    EXPECT_EQ(InCell(0, 0), 0xFFFFFFU);
  });
}

TEST_F(PrintProofFormTest, ThePageIsRedrawnTwiceASecondAndItsTextsGrowNoDarker) {
  LoadStrip(4);
  // As the edges of letters are, this is darker when it is drawn twice.
  Bitmap veil = Bitmap::Cleared(80, 60, PixelFormat::Bgra32);
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 80; ++x) veil.Row(y)[4 * x + 3] = 0x60;  // black
  }
  main.strip.SrcThumbnail(1).SetPicture(Picture(std::move(veil)));
  Look([&] {
    const auto looksTheSameAfter = [&](double seconds) {
      const std::vector<std::uint8_t> before = PageBytes();
      run.Wait(seconds);
      return PageBytes() == before;
    };
    EXPECT_TRUE(looksTheSameAfter(0.6)) << "as it opened";
    person.DragBar(form->ProofSizeBar, 3);
    EXPECT_TRUE(looksTheSameAfter(0.6)) << "as the slider left it";
    person.MoveBar(form->ProofSizeBar, 2);
    EXPECT_TRUE(looksTheSameAfter(0.6));
    EXPECT_TRUE(looksTheSameAfter(1));
    EXPECT_TRUE(form->Timer1.Enabled());
    const std::vector<std::uint8_t> before = PageBytes();
    form->PagePreview.Box(0, 0, PageWide, PageHigh, 0x00FF00FF, true);
    run.Wait(0.5);
    EXPECT_EQ(PageBytes(), before) << "what was drawn before is cleared";
  });
}

TEST_F(PrintProofFormTest, PrinterSetupShowsTheNewPrinterAndItsPaper) {
  LoadStrip(4);
  HeadlessPrinter small{.Name = "Photo printer", .PaperSize = 11, .SheetWidth = 8390, .SheetHeight = 11906};
  printing.Printers.push_back(small);
  Look([&] {
    const std::string before = form->DpiLabel.Caption();
    run.platform.printing.ExpectPrintSetup(true, [&] { printing.SetCurrentPrinter("Photo printer"); });
    person.Click(form->PrinterSetupButton);
    EXPECT_EQ(form->PrinterNameLabel.Caption(), "Photo printer");
    EXPECT_EQ(form->PaperTypeLabel.Caption(), "A5 paper - Landscape Only");
    EXPECT_EQ(form->PagePreview.Width(), CLng(PageHigh / 8390.0 * 11906));
    EXPECT_NE(form->DpiLabel.Caption(), before);
    EXPECT_TRUE(IsPhoto(InCell(1, 1), 4));
  });
}

TEST_F(PrintProofFormTest, AFirstPhotoThatCannotBeLoadedMeansNoDialogAndNoMessage) {
  LoadStrip(2);
  drive.Write(std::string(Strip) + "\\" + NameOf(1), "no photo any more");
  form.emplace(main);
  form->Window.Load();
  EXPECT_EQ(form->GetProofSize(BatchSource::FilmStrip).Size, 0);
  EXPECT_FALSE(form->Window.IsLoaded());
  EXPECT_TRUE(run.platform.dialogs.Boxes().empty());
}

TEST_F(PrintProofFormTest, ADocumentLeftOverIsEndedWhenItOpens) {
  LoadStrip(1);
  printing.Printer().Print("left over");
  Look([&] { EXPECT_FALSE(printing.OpenDocument()); });
  EXPECT_THAT(printing.Documents(), SizeIs(1));
}

TEST_F(PrintProofFormTest, ItOpensWithTheFocusOnTheSliderWhichWorksByKey) {
  LoadStrip(5);
  Look([&] {
    EXPECT_TRUE(form->ProofSizeBar.HasFocus());
    person.Key(key::Right);
    EXPECT_EQ(form->ProofSizeBar.Value(), 3);
    EXPECT_TRUE(form->PrintButton.IsDefault());
    EXPECT_TRUE(form->CancelButton.IsCancel());
    EXPECT_EQ(form->ProofSizeBar.SmallChange(), 1);
    EXPECT_EQ(form->ProofSizeBar.LargeChange(), 2);
    EXPECT_EQ(form->ProofSizeBar.AccessibleName(), "Photos across the page");
    EXPECT_EQ(form->PagesBox.AccessibleName(), "Page");
    EXPECT_FALSE(form->PagesBox.Editable());
  });
}

}  // namespace
}  // namespace pixorra
