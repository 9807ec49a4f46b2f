// The services that a back end with windows brings: boxes, clipboard, text, drawings, printing.
#include <gmock/gmock.h>

#include "platform/controls/Toolkit.h"
#include "tests/platform/contract/ContractTest.h"
#include "tests/platform/runtime/RaisesError.h"

namespace pixorra {
namespace {

class ServicesContract : public ContractTest {
 protected:
  static Picture Chequered(int width, int height) {
    Bitmap pixels(width, height, PixelFormat::Bgr24);
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        std::uint8_t* pixel = pixels.Row(y) + 3 * x;
        pixel[0] = static_cast<std::uint8_t>(x * 40);
        pixel[1] = static_cast<std::uint8_t>(y * 40);
        pixel[2] = 200;
      }
    }
    return Picture(std::move(pixels));
  }
};

// --- boxes ---------------------------------------------------------------------------------------------------------

TEST_F(ServicesContract, BoxGivesItsAnswer) {
  Dialogs& dialogs = platform->GetDialogs();
  platform->AnswerBox(BoxAnswer::Yes, {});
  EXPECT_EQ(dialogs.MsgBox("Go?", BoxIcon::Question, BoxButtons::YesNo, "Title"), BoxAnswer::Yes);
  platform->AnswerBox(BoxAnswer::No, {});
  EXPECT_EQ(dialogs.MsgBox("Go?", BoxIcon::Critical, BoxButtons::YesNo, "Title"), BoxAnswer::No);
  platform->AnswerBox(BoxAnswer::Ok, {});
  EXPECT_EQ(dialogs.MsgBox("Done.\r\nReally.", BoxIcon::None, BoxButtons::Ok, ""), BoxAnswer::Ok);
}

TEST_F(ServicesContract, AnOkBoxThatEscClosesIsToldFromOneThatItsButtonCloses) {
  Dialogs& dialogs = platform->GetDialogs();
  platform->AnswerBox(BoxAnswer::Cancel, {});
  EXPECT_EQ(dialogs.MsgBox("Full.", BoxIcon::Exclamation, BoxButtons::Ok, "Title"), BoxAnswer::Cancel);
  platform->AnswerBox(BoxAnswer::Ok, {});
  EXPECT_EQ(dialogs.MsgBox("Full.", BoxIcon::Exclamation, BoxButtons::Ok, "Title"), BoxAnswer::Ok);
  platform->AnswerBox(BoxAnswer::Cancel, {});
  EXPECT_EQ(dialogs.MsgBox("Go?", BoxIcon::Question, BoxButtons::YesNo, "Title"), BoxAnswer::No);
}

TEST_F(ServicesContract, NoFormTakesInputWhileABoxIsUp) {
  Form form(toolkit, "Form");
  form.Show();
  platform->Settle();
  bool looked = false;
  platform->AnswerBox(BoxAnswer::Ok, [&] {
    EXPECT_FALSE(toolkit.TakesInput(form));
    looked = true;
    return true;
  });
  platform->GetDialogs().MsgBox("Text", BoxIcon::Information, BoxButtons::Ok, "Title");
  EXPECT_TRUE(looked);
  EXPECT_TRUE(toolkit.TakesInput(form));
}

TEST_F(ServicesContract, InputBoxGivesWhatIsTypedAndNothingWhenCancelled) {
  Dialogs& dialogs = platform->GetDialogs();
  platform->AnswerInput("typed");
  EXPECT_EQ(dialogs.InputBox("Name:", "Title", "present"), "typed");
  platform->AnswerInput("");
  EXPECT_EQ(dialogs.InputBox("Name:", "Title", "present"), "");
}

// --- clipboard -----------------------------------------------------------------------------------------------------

TEST_F(ServicesContract, ClipboardGivesBackThePixels) {
  Clipboard& clipboard = platform->GetClipboard();
  clipboard.Clear();
  EXPECT_FALSE(clipboard.HasBitmap());
  EXPECT_TRUE(clipboard.GetBitmap().IsNothing());
  clipboard.SetBitmap(Chequered(5, 3));
  ASSERT_TRUE(clipboard.HasBitmap());
  const Picture back = clipboard.GetBitmap();
  ASSERT_EQ(back.Width(), 5);
  ASSERT_EQ(back.Height(), 3);
  const std::uint8_t* pixel = back.Pixels().Row(2) + 4 * back.Pixels().BytesPerPixel();
  EXPECT_EQ(pixel[0], 160);
  EXPECT_EQ(pixel[1], 80);
  EXPECT_EQ(pixel[2], 200);
  clipboard.Clear();
  EXPECT_FALSE(clipboard.HasBitmap());
}

TEST_F(ServicesContract, EmptyPictureLeavesTheClipboardAsItIs) {
  Clipboard& clipboard = platform->GetClipboard();
  clipboard.Clear();
  clipboard.SetBitmap(Picture());
  EXPECT_FALSE(clipboard.HasBitmap());
  clipboard.SetBitmap(Chequered(5, 3));
  clipboard.SetBitmap(Picture());
  ASSERT_TRUE(clipboard.HasBitmap());
  EXPECT_EQ(clipboard.GetBitmap().Width(), 5);
}

// The left half blue and opaque, the right half red and to be seen through by half.
Picture HalfTransparent() {
  Bitmap pixels(4, 2, PixelFormat::Bgra32);
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 4; ++x) {
      std::uint8_t* pixel = pixels.Row(y) + 4 * x;
      const bool left = x < 2;
      pixel[0] = left ? 255 : 0;
      pixel[1] = 0;
      pixel[2] = left ? 0 : 128;
      pixel[3] = left ? 255 : 128;
    }
  }
  return Picture(std::move(pixels));
}

TEST_F(ServicesContract, WhatIsTransparentIsPutOnTheClipboardOnWhite) {
  Clipboard& clipboard = platform->GetClipboard();
  clipboard.SetBitmap(HalfTransparent());
  const Picture back = clipboard.GetBitmap();
  ASSERT_EQ(back.Width(), 4);
  const Bitmap& pixels = back.Pixels();
  const std::uint8_t* left = pixels.Row(1);
  const std::uint8_t* right = pixels.Row(1) + 3 * pixels.BytesPerPixel();
  EXPECT_EQ(left[0], 255);
  EXPECT_EQ(left[1], 0);
  EXPECT_EQ(left[2], 0);
  EXPECT_NEAR(right[0], 127, 2);
  EXPECT_NEAR(right[1], 127, 2);
  EXPECT_NEAR(right[2], 255, 2);
}

TEST_F(ServicesContract, APictureOfAnotherProgramKeepsWhatIsTransparentInIt) {
  Clipboard& clipboard = platform->GetClipboard();
  platform->CopyElsewhere(HalfTransparent());
  ASSERT_TRUE(clipboard.HasBitmap());
  const Picture back = clipboard.GetBitmap();
  ASSERT_EQ(back.Width(), 4);
  ASSERT_EQ(back.Pixels().Format(), PixelFormat::Bgra32);
  const std::uint8_t* right = back.Pixels().Row(1) + 12;
  EXPECT_NEAR(right[2], 128, 2);
  EXPECT_EQ(right[3], 128);
  platform->CopyElsewhere(Chequered(5, 3));
  EXPECT_EQ(clipboard.GetBitmap().Pixels().Format(), PixelFormat::Bgr24);
}

TEST_F(ServicesContract, WhatIsPutOnTheClipboardTakesThePlaceOfWhatWasThere) {
  Clipboard& clipboard = platform->GetClipboard();
  platform->CopyElsewhere(HalfTransparent());
  clipboard.SetBitmap(Chequered(5, 3));
  EXPECT_EQ(clipboard.GetBitmap().Width(), 5);
}

// --- text ----------------------------------------------------------------------------------------------------------

TEST_F(ServicesContract, LongerTextsAndLargerFontsMeasureMore) {
  TextDrawing& text = platform->GetText();
  const Font small{"", 8.25, false};
  const Font large{"", 24, false};
  EXPECT_EQ(text.Measure(small, "").Width, 0);
  EXPECT_GT(text.Measure(small, "").Height, 0);
  EXPECT_GT(text.Measure(small, "photo").Width, text.Measure(small, "pho").Width);
  EXPECT_GT(text.Measure(large, "photo").Width, text.Measure(small, "photo").Width);
  EXPECT_GT(text.Measure(large, "photo").Height, text.Measure(small, "photo").Height);
  EXPECT_GT(text.Measure(small, "äöü").Width, 0);
}

TEST_F(ServicesContract, TextStaysWithinItsMeasureAndLeavesTheRestAlone) {
  TextDrawing& text = platform->GetText();
  const Font font{"", 12, false};
  const TextExtent extent = text.Measure(font, "Photo");
  Bitmap target(200, 100, PixelFormat::Bgr24);
  target.Fill(0x00FFFFFF);
  text.Draw(target, font, 20, 30, "Photo", 0x000000FF);
  int inside = 0;
  int outside = 0;
  for (int y = 0; y < target.Height(); ++y) {
    for (int x = 0; x < target.Width(); ++x) {
      const std::uint8_t* pixel = target.Row(y) + 3 * x;
      if (pixel[0] == 255 && pixel[1] == 255 && pixel[2] == 255) continue;
      EXPECT_EQ(pixel[2], 255) << "red is the text's colour";
      const bool within = x >= 18 && x <= 22 + extent.Width && y >= 30 && y <= 30 + extent.Height;
      ++(within ? inside : outside);
    }
  }
  EXPECT_GT(inside, 10);
  EXPECT_EQ(outside, 0);
}

TEST_F(ServicesContract, TextBeyondTheEdgeIsCut) {
  Bitmap target(10, 10, PixelFormat::Bgr24);
  target.Fill(0x00FFFFFF);
  platform->GetText().Draw(target, Font{}, -50, -5, "a long text that lies on all sides", 0);
  platform->GetText().Draw(target, Font{}, 5, 5, "a long text that lies on all sides", 0);
}

// --- drawings ------------------------------------------------------------------------------------------------------

TEST_F(ServicesContract, DrawingHasTheSizeAskedForAndItsName) {
  const Picture picture = platform->GetArtwork().Drawing("ClosedFolder", 138, 95);
  EXPECT_EQ(picture.Width(), 138);
  EXPECT_EQ(picture.Height(), 95);
  EXPECT_EQ(picture.ArtName(), "ClosedFolder");
  EXPECT_EQ(platform->GetArtwork().Drawing("ClosedFolder", 20, 10).Width(), 20);
}

TEST_F(ServicesContract, DrawingThatDoesNotExistRaises53) {
  EXPECT_EQ(ErrorOf([&] { platform->GetArtwork().Drawing("NoSuchDrawing", 10, 10); }), error::FileNotFound);
}

// --- printing ------------------------------------------------------------------------------------------------------

TEST_F(ServicesContract, PrinterThatDoesNotExistRaises482) {
  Printing& printing = platform->GetPrinting();
  EXPECT_EQ(ErrorOf([&] { printing.SetCurrentPrinter("No such printer"); }), error::Printer);
  EXPECT_FALSE(printing.IsReady("No such printer"));
}

TEST_F(ServicesContract, CurrentPrinterIsOneOfTheList) {
  Printing& printing = platform->GetPrinting();
  const auto names = printing.PrinterNames();
  if (names.empty()) {
    EXPECT_EQ(printing.CurrentPrinterName(), "");
    EXPECT_EQ(ErrorOf([&] { printing.Printer().Print(" "); }), error::Printer);
    return;
  }
  EXPECT_THAT(names, ::testing::Contains(printing.CurrentPrinterName()));
  printing.SetCurrentPrinter(names.back());
  EXPECT_EQ(printing.CurrentPrinterName(), names.back());
  EXPECT_EQ(printing.Printer().DeviceName(), names.back());
}

TEST_F(ServicesContract, LandscapeSwapsTheSheetAndLeavesAnEdge) {
  Printing& printing = platform->GetPrinting();
  if (printing.CurrentPrinterName().empty()) GTEST_SKIP() << "the host has no printer";
  PrintSurface& printer = printing.Printer();
  printer.SetScaleMode(1);
  printer.SetOrientation(1);
  const double width = printer.SheetWidth();
  const double height = printer.SheetHeight();
  EXPECT_LT(width, height);
  EXPECT_GT(printer.ScaleWidth(), width / 2);
  EXPECT_LE(printer.ScaleWidth(), width);
  EXPECT_LE(printer.ScaleHeight(), height);
  printer.SetOrientation(2);
  EXPECT_NEAR(printer.SheetWidth(), height, 1);
  EXPECT_NEAR(printer.SheetHeight(), width, 1);
  EXPECT_GT(printer.ScaleWidth(), printer.ScaleHeight());
  EXPECT_GT(printer.TwipsPerPixelX(), 0);
  printer.SetOrientation(1);
}

TEST_F(ServicesContract, PrintedTextIsMeasuredInTwipsOfItsFont) {
  Printing& printing = platform->GetPrinting();
  if (printing.CurrentPrinterName().empty()) GTEST_SKIP() << "the host has no printer";
  PrintSurface& printer = printing.Printer();
  printer.SetScaleMode(1);
  printer.SetFontName("Arial");
  printer.SetFontSize(12);
  const double height = printer.TextHeight("Photo");
  EXPECT_GE(height, 12 * 20 * 0.8);
  EXPECT_LE(height, 12 * 20 * 2);
  const double width = printer.TextWidth("Photo");
  printer.SetFontSize(24);
  EXPECT_NEAR(printer.TextWidth("Photo"), 2 * width, width * 0.2);
}

}  // namespace
}  // namespace pixorra
