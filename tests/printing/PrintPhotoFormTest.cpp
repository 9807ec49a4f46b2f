// The dialog before photos are printed: what it shows, what its controls do, and what it leaves.
#include <gmock/gmock.h>
#include <optional>

#include "printing/PrintPhotoForm.h"
#include "tests/printing/PrintTest.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class PrintPhotoFormTest : public PrintTest {
 protected:
  void BatchFolder() {
    person.ExpectMenu(main.menu.PrintPopupMenu, &main.menu.IndividualsOpenFolderPrintPopupMenuItem);
    person.RightClick(main.strip.PrintButton);
  }

  static PictureBox& PageOf(Form& form) { return Find<PictureBox>(form, "PreviewPicture1"); }
  static std::string Dpi(Form& form) { return Find<Label>(form, "DpiLabel").Caption(); }
  static bool IsChosen(Form& form, const std::string& option) { return Find<OptionButton>(form, option).Value(); }
  static int ZoomOf(Form& form) { return Find<ScrollBar>(form, "ZoomFactorBar").Value(); }
  static CheckBox& HeaderOf(Form& form) { return Find<CheckBox>(form, "PrintHeaderCheckbox"); }
  static bool IsInk(Colour colour) { return (colour >> 8 & 0xFF) < 0x80; }

  // Where the red photo is seen on the page.
  static Rect PhotoOn(Form& form) {
    PictureBox& page = PageOf(form);
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
};

// --- as it opens -----------------------------------------------------------------------------------------------------

TEST_F(PrintPhotoFormTest, ItOpensAt78PercentWithOtherChosenWhateverWasChosenLastTime) {
  SelectPhoto("160x120");
  for (int round = 0; round < 2; ++round) {
    LookAtDialog([](Person& hand, Form& form) {
      EXPECT_EQ(ZoomOf(form), 78);
      EXPECT_TRUE(IsChosen(form, "ZoomOptionOther"));
      hand.Click(Find<OptionButton>(form, "ZoomOption6x4"));
      EXPECT_TRUE(IsChosen(form, "ZoomOption6x4"));
      EXPECT_FALSE(IsChosen(form, "ZoomOptionOther"));
    });
    Print();
  }
}

TEST_F(PrintPhotoFormTest, ItNamesThePhotoThePrinterAndThePaper) {
  SelectPhoto("160x120");
  LookAtDialog([](Person&, Form& form) {
    EXPECT_EQ(form.Caption(), "Print Selected Photo - 160x120.bmp");
    EXPECT_EQ(Find<Label>(form, "PrinterNameLabel").Caption(), "Headless Printer");
    EXPECT_EQ(Find<Label>(form, "PaperTypeLabel").Caption(), "Letter paper - Landscape Only");
    EXPECT_EQ(Find<Label>(form, "PaperTypeLabel").ToolTipText(), "Letter, 8 1/2 x 11 in.");
    EXPECT_EQ(Find<Label>(form, "DpiLabel").ToolTipText(), "Resolution: Dots per Inch");
    EXPECT_EQ(Find<CommandButton>(form, "PrintButton").Caption(), "&Print Now");
    EXPECT_TRUE(Find<ScrollBar>(form, "ZoomFactorBar").HasFocus()) << "the arrow keys are the slider's at once";
  });
  Print();
}

TEST_F(PrintPhotoFormTest, ABatchNamesItsSourceAndHowManyPhotosItHas) {
  LoadStrip({"a 160x120", "b 120x160", "c 100x100"});
  OpenFolder({"d 40x30", "e 30x40"});
  LookAtDialog([](Person&, Form& form) {
    EXPECT_EQ(form.Caption(), "Batch Print [Film-Strip] - Strip");
    EXPECT_EQ(Find<CommandButton>(form, "PrintButton").Caption(), "Print All 3 pics");
    EXPECT_EQ(PhotoOn(form).Width, 171) << "its first photo";
  });
  Batch();
  LookAtDialog([this](Person&, Form& form) {
    EXPECT_EQ(form.Caption(), "Batch Print [Open-Folder] - " + main.desk.DestContentsLabel.Caption());
    EXPECT_EQ(Find<CommandButton>(form, "PrintButton").Caption(), "Print All 2 pics");
  });
  BatchFolder();
}

TEST_F(PrintPhotoFormTest, ABatchShowsTheFirstPhotoThatIsThere) {
  LoadStrip({"a 160x120", "b 120x160"});
  main.strip.SrcThumbnail(1).SetTag("");
  LookAtDialog([](Person&, Form& form) { EXPECT_EQ(PhotoOn(form).Height, 132); });
  Batch();
}

TEST_F(PrintPhotoFormTest, ThePageHasTheProportionsOfTheSheetAndTheColumnIsAtItsEdge) {
  SelectPhoto("160x120");
  LookAtDialog([](Person&, Form& form) {
    const PictureBox& page = PageOf(form);
    EXPECT_EQ(page.Bounds(), (Rect{8, 15, 219, 169})) << "11 by 8 1/2 inches";
    const int edge = page.Bounds().Right();
    EXPECT_EQ(Find<ScrollBar>(form, "ZoomFactorBar").Bounds(), (Rect{8, 184, 219, 17}));
    EXPECT_EQ(Find<Frame>(form, "Frame1").Left(), edge + 10);
    EXPECT_EQ(Find<CommandButton>(form, "PrinterSetupButton").Left(), edge + 10);
    EXPECT_EQ(Find<CommandButton>(form, "PrintButton").Left(), edge + 28);
    EXPECT_EQ(Find<CommandButton>(form, "CancelButton").Left(), edge + 10);
    EXPECT_EQ(HeaderOf(form).Left(), edge + 15);
    EXPECT_EQ(Find<Label>(form, "DpiLabel").Bounds().Right(), edge - 3);
    EXPECT_EQ(form.TwipsWidth(), (Find<Frame>(form, "Frame1").Bounds().Right() + 15) * 15);
  });
  Print();
}

TEST_F(PrintPhotoFormTest, NothingLiesOverAnythingElseOnAnyPaper) {
  SelectPhoto("160x120");
  // Twips: A4, 10 x 15 cm, 8 x 10 inches, a ledger that is wider than high, a banner of 210 x 1117 mm, a roll of five
  // metres.
  for (const auto& [width, height] :
       {std::pair(11906, 16838), {5669, 8504}, {11520, 14400}, {24480, 15840}, {11906, 63326}, {11906, 283465}}) {
    printing.Printers[0].SheetWidth = width;
    printing.Printers[0].SheetHeight = height;
    LookAtDialog([width = width](Person&, Form& form) {
      for (const Control* one : form.Controls()) {
        if (!one->Visible()) continue;
        EXPECT_LE(one->Bounds().Right(), form.ScaleWidth()) << one->Name();
        EXPECT_LE(one->Bounds().Bottom(), form.ScaleHeight()) << one->Name();
        for (const Control* other : form.Controls()) {
          if (!other->Visible() || one >= other) continue;
          EXPECT_TRUE(one->Bounds().Intersected(other->Bounds()).IsEmpty())
              << one->Name() << " and " << other->Name() << " on " << width;
        }
      }
      EXPECT_LE(form.TwipsWidth(), 800 * 15);
      EXPECT_LE(form.TwipsHeight(), 600 * 15);
    });
    Print();
  }
}

TEST_F(PrintPhotoFormTest, ALongPaperIsShownLowerWithItsProportionsAndAShortOneAfterItAsEver) {
  printing.Printers.push_back({.Name = "Banner Printer", .SheetWidth = 11906, .SheetHeight = 63326});
  SelectPhoto("160x120");
  LookAtDialog([this](Person& hand, Form& form) {
    const PictureBox& page = PageOf(form);
    const auto choosePrinter = [&](const std::string& name) {
      printing.ExpectPrintSetup(true, [this, name] { printing.SetCurrentPrinter(name); });
      hand.Click(Find<CommandButton>(form, "PrinterSetupButton"));
    };
    choosePrinter("Banner Printer");
    EXPECT_LT(page.Height(), 169);
    EXPECT_NEAR(page.Width() / static_cast<double>(page.Height()), 63326 / 11906.0, 0.03);
    EXPECT_LE(form.TwipsWidth(), 800 * 15);
    EXPECT_NEAR(page.Top() - 15, 184 - page.Bounds().Bottom(), 1) << "in the middle of its room";
    EXPECT_NEAR(PhotoOn(form).Width, page.Width() * 0.78, 1);
    choosePrinter("Headless Printer");
    EXPECT_EQ(page.Bounds(), (Rect{8, 15, 219, 169}));
  });
  Print();
}

TEST_F(PrintPhotoFormTest, APhotoOfOnePixelAcrossIsShownAndPrinted) {
  LoadStrip({"a 1x65000", "b 65000x1"});
  for (const int slot : {1, 2}) {
    Select(slot);
    PrintAfter([](Person&, Form& form) {
      const auto& sample = Find<PictureBox>(form, "SamplePicSmall");
      EXPECT_EQ(sample.Width(), 300);
      EXPECT_LE(sample.Height(), 1000);
    });
    Print();
    EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
    ASSERT_EQ(Documents().size(), static_cast<std::size_t>(slot));
    const PrintedItem photo = PicturesOf(Documents().back().Pages.at(0)).at(0);
    EXPECT_EQ(slot == 1 ? photo.Painted.Height() : photo.Painted.Width(), 65000);
  }
}

TEST_F(PrintPhotoFormTest, ANarrowPhotoIsShownWhereItIsPrinted) {
  SelectPhoto("10x100");
  LookAtDialog([](Person& hand, Form& form) {
    SetZoom(hand, form, 100);
    EXPECT_EQ(PhotoOn(form), (Rect{101, 0, 17, 169}));
  });
  Print();
}

TEST_F(PrintPhotoFormTest, TheFilesTimeIsAskedForOnceWhateverTheSliderDoes) {
  SelectPhoto("160x120");
  LookAtDialog([this](Person& hand, Form& form) {
    SetZoom(hand, form, 50);
    hand.Click(HeaderOf(form));
    const int before = run.files.Count(FileCall::Length);
    for (const int zoom : {40, 60, 75}) SetZoom(hand, form, zoom);
    EXPECT_EQ(run.files.Count(FileCall::Length) - before, 0);
  });
  Print();
}

TEST_F(PrintPhotoFormTest, OnAFineScreenThePageAndItsPhotoHaveTheScreensOwnPixels) {
  SelectPhoto("1600x1200");
  run.platform.backend.SetFineness(2);
  LookAtDialog([](Person&, Form& form) {
    EXPECT_EQ(PageOf(form).FineSurface().Width(), 2 * 219);
    EXPECT_EQ(Find<PictureBox>(form, "SamplePicSmall").Width(), 600);
    EXPECT_EQ(PhotoOn(form).Width, 171);
  });
  Print();
}

// --- the zoom --------------------------------------------------------------------------------------------------------

TEST_F(PrintPhotoFormTest, AnUprightPhotoIsScaledByThePagesHeightAndAnyOtherByItsWidth) {
  LoadStrip({"a 160x120", "b 120x160", "c 100x100"});
  const Rect expected[] = {{55, 43, 110, 82}, {78, 42, 63, 84}, {55, 30, 110, 110}};
  for (int slot = 1; slot <= 3; ++slot) {
    Select(slot);
    LookAtDialog([&expected, slot](Person& hand, Form& form) {
      SetZoom(hand, form, 50);
      EXPECT_EQ(PhotoOn(form), expected[slot - 1]) << slot;
    });
    Print();
  }
}

TEST_F(PrintPhotoFormTest, TheOptionsSetTheSliderToTheirWidthInInches) {
  SelectPhoto("160x120");
  LookAtDialog([](Person& hand, Form& form) {
    for (const auto& [option, zoom] : {std::pair("ZoomOption6x4", 57), {"ZoomOption7x5", 66}, {"ZoomOption10x8", 95}}) {
      hand.Click(Find<OptionButton>(form, option));
      EXPECT_EQ(ZoomOf(form), zoom) << "of 10.5 inches, rounded down";
      EXPECT_TRUE(IsChosen(form, option));
    }
    SetZoom(hand, form, 94);
    EXPECT_TRUE(IsChosen(form, "ZoomOptionOther"));
  });
  Print();
}

TEST_F(PrintPhotoFormTest, OnASheetTooSmallForAnOptionTheSliderStaysAndTheOptionIsChosen) {
  printing.Printers[0].SheetWidth = 5000;
  printing.Printers[0].SheetHeight = 6336;  // 3.9 inches can be printed on
  SelectPhoto("160x120");
  LookAtDialog([](Person& hand, Form& form) {
    hand.Click(Find<OptionButton>(form, "ZoomOption6x4"));
    EXPECT_EQ(ZoomOf(form), 78);
    EXPECT_TRUE(IsChosen(form, "ZoomOption6x4"));
  });
  Print();
}

TEST_F(PrintPhotoFormTest, ThePhotoFollowsTheThumbWhileItIsHeld) {
  SelectPhoto("160x120");
  LookAtDialog([](Person&, Form& form) {
    auto& bar = Find<ScrollBar>(form, "ZoomFactorBar");
    bar.UserScrolledTo(50);
    EXPECT_EQ(PhotoOn(form).Width, 110);
    bar.UserScrolledTo(100);
    EXPECT_EQ(PhotoOn(form).Width, 219);
    bar.UserLetGo();
  });
  Print();
}

TEST_F(PrintPhotoFormTest, TheResolutionFollowsZoomAndPrinterAndIsThatOfTheWholePhoto) {
  printing.Printers.push_back({.Name = "Card Printer", .SheetWidth = 5669, .SheetHeight = 8504});
  SelectPhoto("1600x1200");
  LookAtDialog([this](Person& hand, Form& form) {
    // 171 of 219 pixels of 10.5 inches.
    EXPECT_EQ(Dpi(form), "195 dpi");
    SetZoom(hand, form, 100);
    EXPECT_EQ(Dpi(form), "152 dpi");
    printing.ExpectPrintSetup(true, [this] { printing.SetCurrentPrinter("Card Printer"); });
    hand.Click(Find<CommandButton>(form, "PrinterSetupButton"));
    EXPECT_EQ(Find<Label>(form, "PrinterNameLabel").Caption(), "Card Printer");
    EXPECT_EQ(PageOf(form).Width(), 254) << "15 by 10 cm";
    EXPECT_EQ(Dpi(form), "295 dpi") << "of 8504 - 720 twips";
  });
  Print();
}

// --- info and outline ------------------------------------------------------------------------------------------------

TEST_F(PrintPhotoFormTest, WithTheInfoThePhotoHasAnOutlineAndALineAboveAndBelow) {
  SelectPhoto("160x120");
  LookAtDialog([](Person& hand, Form& form) {
    SetZoom(hand, form, 50);
    EXPECT_EQ(PageOf(form).Point(55, 43) & 0xFFFFFF, Red);
    hand.Click(HeaderOf(form));
    const PictureBox& page = PageOf(form);
    for (const auto& [x, y] : {std::pair(55, 43), {165, 43}, {55, 125}, {165, 125}, {55, 80}, {165, 80}, {100, 43}})
      EXPECT_EQ(PageOf(form).Point(x, y), 0U) << x << ", " << y;
    const auto hasText = [&](int top, int bottom) {
      for (int y = top; y < bottom; ++y) {
        for (int x = 0; x < page.Width(); ++x) {
          if (IsInk(PageOf(form).Point(x, y))) return true;
        }
      }
      return false;
    };
    EXPECT_TRUE(hasText(38, 43));
    EXPECT_FALSE(hasText(0, 38));
    EXPECT_TRUE(hasText(127, 131));
    EXPECT_FALSE(hasText(132, 169));
    hand.Click(HeaderOf(form));
    EXPECT_FALSE(hasText(38, 43));
    EXPECT_EQ(PageOf(form).Point(55, 43) & 0xFFFFFF, Red);
  });
  Print();
}

TEST_F(PrintPhotoFormTest, WithoutRoomForTheInfoItsTickIsLostAndStaysLost) {
  LoadStrip({"a 160x120", "b 120x160"});
  for (const int slot : {1, 2}) {
    Select(slot);
    LookAtDialog([](Person& hand, Form& form) {
      EXPECT_TRUE(HeaderOf(form).Enabled());
      hand.Click(HeaderOf(form));
      EXPECT_EQ(HeaderOf(form).Value(), 1);
      SetZoom(hand, form, 97);
      EXPECT_FALSE(HeaderOf(form).Enabled());
      EXPECT_EQ(HeaderOf(form).Value(), 0);
      SetZoom(hand, form, 60);
      EXPECT_TRUE(HeaderOf(form).Enabled());
      EXPECT_EQ(HeaderOf(form).Value(), 0);
    });
    Print();
  }
}

TEST_F(PrintPhotoFormTest, TheInfoIsKeptForTheRunAlsoWhenItIsCancelled) {
  SelectPhoto("160x120");
  EXPECT_FALSE(main.core.PrintPhotoInfo);
  LookAtDialog([](Person& hand, Form& form) { hand.Click(HeaderOf(form)); });
  Print();
  EXPECT_TRUE(main.core.PrintPhotoInfo);
  LookAtDialog([](Person& hand, Form& form) {
    EXPECT_EQ(HeaderOf(form).Value(), 1);
    SetZoom(hand, form, 150);
  });
  Print();
  EXPECT_FALSE(main.core.PrintPhotoInfo) << "a photo too large for it";
}

// --- its end ---------------------------------------------------------------------------------------------------------

TEST_F(PrintPhotoFormTest, CancelEscapeAndTheFrameLeaveNoZoomAndPrintNothing) {
  SelectPhoto("160x120");
  for (const int way : {0, 1, 2}) {
    main.core.PrintZoom = 0.5F;
    person.ExpectForm("PrintPhotoForm", [way](Person& hand, Form& form) {
      if (way == 0) hand.Click(Find<CommandButton>(form, "CancelButton"));
      if (way == 1) hand.Key(key::Escape);
      if (way == 2) hand.Close(form);
    });
    Print();
    EXPECT_EQ(main.core.PrintZoom, 0);
  }
  EXPECT_THAT(Documents(), IsEmpty());
  EXPECT_FALSE(printing.OpenDocument());
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
}

TEST_F(PrintPhotoFormTest, ReturnPrintsAtTheSlidersZoom) {
  SelectPhoto("160x120");
  person.ExpectForm("PrintPhotoForm", [](Person& hand, Form& form) {
    SetZoom(hand, form, 64);
    hand.Key(key::Return);
  });
  Print();
  EXPECT_FLOAT_EQ(main.core.PrintZoom, 0.64F);
  EXPECT_EQ(Documents().size(), 1U);
}

TEST_F(PrintPhotoFormTest, WithNoPhotoSelectedItSaysSoAndTheZoomStays) {
  person.ExpectBox("Can't Print Photo", "No Photo Selected");
  Print();
  EXPECT_EQ(run.platform.dialogs.Boxes().back().Icon, BoxIcon::Exclamation);
  EXPECT_THAT(Documents(), IsEmpty());
  main.core.PrintZoom = 0.78F;
  PrintPhotoForm form(main);
  form.Window.Load();
  person.ExpectBox("Can't Print Photo", "No Photo Selected");
  form.GetZoom_Selected();
  EXPECT_FLOAT_EQ(main.core.PrintZoom, 0.78F);
  EXPECT_FALSE(form.Window.IsLoaded());
}

TEST_F(PrintPhotoFormTest, ABatchOfNothingSaysSoAndPrintsNothing) {
  person.ExpectBox("Can't Batch Print", "No photos in Film Strip");
  Batch();
  person.ExpectBox("Can't Batch Print", "No Open Folder");
  BatchFolder();
  OpenFolder({});
  person.ExpectBox("Can't Batch Print", "No Open Folder");
  BatchFolder();
  LoadStrip({"160x120"});
  main.strip.SrcThumbnail(1).SetTag("");
  person.ExpectBox("Can't Batch Print", "Unable to find a sample photo");
  Batch();
  EXPECT_THAT(Documents(), IsEmpty());
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
}

TEST_F(PrintPhotoFormTest, APhotoThatDoesNotLoadEndsItWithoutAMessage) {
  SelectPhoto("160x120");
  drive.Write(Photo("160x120.bmp"), "no picture");
  main.core.PrintZoom = 0.5F;
  Print();
  EXPECT_EQ(main.core.PrintZoom, 0);
  EXPECT_THAT(run.platform.dialogs.Boxes(), IsEmpty());
  EXPECT_THAT(Documents(), IsEmpty());
}

TEST_F(PrintPhotoFormTest, ItReadsAPrinterThatIsUprightAndHasNoDocument) {
  SelectPhoto("160x120");
  PrintSurface& printer = run.host.printing.Printer();
  printer.SetOrientation(2);
  printer.Print("left over");
  LookAtDialog([this](Person&, Form&) {
    EXPECT_EQ(printing.Orientation(), 1);
    EXPECT_FALSE(printing.OpenDocument());
    EXPECT_EQ(Documents().size(), 1U);
  });
  Print();
}

TEST_F(PrintPhotoFormTest, ClosedWithTheProgramItPrintsNothing) {
  SelectPhoto("160x120");
  person.ExpectForm("PrintPhotoForm", [this](Person&, Form&) { main.Window.Unload(); });
  Print();
  EXPECT_TRUE(run.host.toolkit.Ended());
  EXPECT_THAT(Documents(), IsEmpty());
}

}  // namespace
}  // namespace pixorra
