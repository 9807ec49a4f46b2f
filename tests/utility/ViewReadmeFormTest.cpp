// The window that shows the read-me.
#include <gtest/gtest.h>

#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"
#include "tests/support/headless/ProgramTest.h"
#include "utility/ViewReadmeForm.h"
#include "window/CoreState.h"
#include "window/MenuBar.h"
#include "window/ModelessForms.h"

namespace pixorra {
namespace {

constexpr const char* ReadmeFile = "C:\\Program\\Readme.txt";

class ViewReadmeFormTest : public ProgramTest {
 protected:
  ViewReadmeForm& Shown() {
    run.person.Activate(main.Window);
    run.person.ChooseMenu(main.menu.ViewReadmeMenuItem);
    run.Wait(0.1);
    auto& form = main.modeless.Get<ViewReadmeForm>(main);
    EXPECT_TRUE(form.Window.Visible());
    return form;
  }
  std::string TextShownFor(const std::string& bytes) {
    drive.Write(ReadmeFile, bytes);
    ViewReadmeForm& form = Shown();
    const std::string text = form.ReadmeTextbox.Text();
    run.person.Close(form.Window);
    return text;
  }

  ProgramRun& run = Started();
  MainForm& main = run.main;
};

TEST_F(ViewReadmeFormTest, TheMenuShowsTheFileThatComesWithTheProgram) {
  ViewReadmeForm& form = Shown();
  EXPECT_EQ(form.Window.Caption(), "Pixorra - Read Me");
  EXPECT_EQ(form.ReadmeTextbox.Text(), "Read me.\r\nSecond line.\r\n");
  EXPECT_TRUE(form.ReadmeTextbox.Locked());
  EXPECT_TRUE(form.PrintButton.Enabled());
  EXPECT_TRUE(run.host.toolkit.TakesInput(main.Window)) << "it is read while the program is used";
}

TEST_F(ViewReadmeFormTest, EachLineHasALineEndWhateverTheFileHas) {
  EXPECT_EQ(TextShownFor("one\r\ntwo\n\nfour"), "one\r\ntwo\r\n\r\nfour\r\n");
  EXPECT_EQ(TextShownFor(""), "");
}

TEST_F(ViewReadmeFormTest, Utf8IsShownAsItIsAndOtherBytesAsLatin1) {
  EXPECT_EQ(TextShownFor("\xEF\xBB\xBF"
                         "Größe 写真\n"),
            "Größe 写真\r\n");
  EXPECT_EQ(TextShownFor("Gr\xF6\xDF"
                         "e\nGröße\n"),
            "Größe\r\nGröße\r\n");
}

TEST_F(ViewReadmeFormTest, AMegabyteAndALineOfAMegabyteAreShownWhole) {
  std::string lines;
  while (lines.size() < 1'000'000) lines += "Photos that are dropped into a folder are copied there - 写真.\n";
  EXPECT_EQ(Lines(TextShownFor(lines)).size(), Lines(lines).size());
  const std::string line(1'000'000, 'x');
  EXPECT_EQ(TextShownFor(line), line + "\r\n");
}

TEST_F(ViewReadmeFormTest, OfALongerFileItsFirstFourMegabytesAreShownAndThatThereIsMore) {
  const std::string cut = "\r\n[This file is longer. Only its first 4 MB are shown here.]\r\n";
  constexpr std::size_t Most = std::size_t{4} * 1024 * 1024;
  const std::string line = "Photos that are dropped into a folder are copied there.\n";
  std::string lines;
  while (lines.size() < Most) lines += line;
  lines.resize(Most);
  EXPECT_FALSE(TextShownFor(lines).ends_with(cut));
  const std::string text = TextShownFor(lines + line);
  ASSERT_TRUE(text.ends_with("there.\r\n" + cut)) << "whole lines";
  EXPECT_GT(text.size(), Most);
  EXPECT_EQ(Lines(text).size(), Most / line.size() + 2);
  std::string oneLine;
  while (oneLine.size() < Most) oneLine += "写";
  const std::string characters = TextShownFor(oneLine + "写写");
  EXPECT_EQ(characters, oneLine.substr(0, Most / 3 * 3) + "\r\n" + cut) << "whole characters";
  EXPECT_GT(TextShownFor("Title\n" + oneLine).size(), Most / 2) << "a line that is nearly all of it";
}

TEST_F(ViewReadmeFormTest, WithoutTheFileThereIsTheFilesErrorAndNoWindow) {
  auto& form = main.modeless.Get<ViewReadmeForm>(main);
  drive.Remove(ReadmeFile);
  for (int attempt = 0; attempt < 2; ++attempt) {
    EXPECT_EQ(ErrorsIgnored([&] { ViewReadmeMenuItem_Click(main); }), error::FileNotFound);
    EXPECT_FALSE(form.Window.Visible());
    EXPECT_FALSE(form.Window.IsLoaded());
  }
  drive.MakeFolder(ReadmeFile);
  EXPECT_EQ(ErrorsIgnored([&] { ViewReadmeMenuItem_Click(main); }), error::PathAccess);
  drive.Remove(ReadmeFile);
  EXPECT_EQ(TextShownFor("Back again"), "Back again\r\n");
}

TEST_F(ViewReadmeFormTest, AReadErrorOnTheWayLeavesNoWindowEither) {
  run.files.FailNth(FileCall::Read, 1, error::DeviceIO, "Readme.txt");
  EXPECT_EQ(ErrorsIgnored([&] { ViewReadmeMenuItem_Click(main); }), error::DeviceIO);
  EXPECT_EQ(run.person.Window("ViewReadmeForm"), nullptr);
}

TEST_F(ViewReadmeFormTest, ChosenAgainItIsTheSameWindowAndClosedItReadsTheFileAnew) {
  ViewReadmeForm& form = Shown();
  run.person.MoveWindow(form.Window, 300, 450);
  drive.Write(ReadmeFile, "Another");
  Shown();
  EXPECT_EQ(form.Window.TwipsLeft(), 300);
  EXPECT_EQ(form.ReadmeTextbox.Text(), "Read me.\r\nSecond line.\r\n");
  run.person.Activate(form.Window);
  run.person.Key(key::Escape);
  EXPECT_FALSE(form.Window.IsLoaded());
  EXPECT_EQ(Shown().ReadmeTextbox.Text(), "Another\r\n");
  run.person.Click(form.CancelButton);
  EXPECT_FALSE(form.Window.Visible());
}

TEST_F(ViewReadmeFormTest, TheTextTakesTheWindowsNewSize) {
  ViewReadmeForm& form = Shown();
  const int right = form.Window.ScaleWidth() - form.ReadmeTextbox.Bounds().Right();
  const int below = form.Window.ScaleHeight() - form.ReadmeTextbox.Bounds().Bottom();
  run.person.Resize(form.Window, 900, 700);
  EXPECT_EQ(form.ReadmeTextbox.Bounds().Right(), 900 - right);
  EXPECT_EQ(form.ReadmeTextbox.Bounds().Bottom(), 700 - below);
  EXPECT_EQ(form.CancelButton.Bounds().Right(), 900 - right);
}

TEST_F(ViewReadmeFormTest, PrinterOfTheDialogIsTheOneThatPrints) {
  drive.Write(ReadmeFile, "First line\n");
  ViewReadmeForm& form = Shown();
  auto& printers = run.platform.printing.Printers;
  run.platform.printing.ExpectPrintDialog(
      true, [&] { printers.insert(printers.begin(), HeadlessPrinter{.Name = "New Default"}); });
  run.person.Click(form.PrintButton);
  ASSERT_EQ(run.platform.printing.Documents().size(), 1U);
  EXPECT_EQ(run.platform.printing.Documents()[0].Printer, "Headless Printer");
  EXPECT_EQ(run.platform.printing.CurrentPrinterName(), "New Default");
}

TEST_F(ViewReadmeFormTest, PrintAsksByTheSystemsDialogAndPrintsAllLinesUpright) {
  drive.Write(ReadmeFile, "First line\n\nThird line\n");
  ViewReadmeForm& form = Shown();
  run.platform.printing.ExpectPrintDialog(true);
  run.person.Click(form.PrintButton);
  ASSERT_EQ(run.platform.printing.Documents().size(), 1U);
  const PrintedDocument& document = run.platform.printing.Documents()[0];
  ASSERT_EQ(document.Pages.size(), 1U);
  EXPECT_EQ(document.Pages[0].Orientation, 1);
  ASSERT_EQ(document.Pages[0].Items.size(), 3U) << "ahead of them the blank that begins the document";
  const PrintedItem& first = document.Pages[0].Items[1];
  const PrintedItem& third = document.Pages[0].Items[2];
  EXPECT_EQ(first.Text, "First line");
  EXPECT_EQ(first.FontName, "Arial");
  EXPECT_EQ(third.Text, "Third line");
  EXPECT_EQ(third.X, first.X);
  EXPECT_EQ(third.Y - first.Y, 2 * 10 * 20 * 1.2) << "an empty line between them";
}

TEST_F(ViewReadmeFormTest, CancelledInTheSystemsDialogNothingIsPrinted) {
  ViewReadmeForm& form = Shown();
  run.platform.printing.ExpectPrintDialog(false);
  run.person.Click(form.PrintButton);
  EXPECT_TRUE(run.platform.printing.Documents().empty());
  EXPECT_FALSE(run.platform.printing.OpenDocument());
}

TEST_F(ViewReadmeFormTest, LongTextsAndLongLinesArePrintedWholeWithinThePage) {
  std::string text;
  for (int i = 0; i < 90; ++i) text += "Line " + std::to_string(i) + "\n";
  std::string words;
  for (int i = 0; i < 60; ++i) words += "words ";
  drive.Write(ReadmeFile, text + words + "\n" + std::string(500, 'x') + "\n");
  ViewReadmeForm& form = Shown();
  run.platform.printing.ExpectPrintDialog(true);
  run.person.Click(form.PrintButton);
  const auto& pages = run.platform.printing.Documents().at(0).Pages;
  EXPECT_EQ(pages.size(), 2U);
  std::string printed;
  PrintSurface& printer = run.host.printing.Printer();
  for (const PrintedPage& page : pages) {
    for (const PrintedItem& item : page.Items) {
      if (item.Text == " ") continue;
      printed += item.Text + (item.Text.starts_with("x") ? "" : " ");
      EXPECT_LE(item.X + printer.TextWidth(item.Text), printer.ScaleWidth() - 720) << item.Text;
      EXPECT_LE(item.Y + printer.TextHeight(item.Text), printer.ScaleHeight() - 720) << item.Text;
      EXPECT_GE(item.Y, 720);
    }
  }
  EXPECT_NE(printed.find("Line 0 Line 1 "), std::string::npos);
  EXPECT_NE(printed.find("Line 89 " + words), std::string::npos) << "cut between words alone";
  EXPECT_NE(printed.find(std::string(500, 'x')), std::string::npos);
}

TEST_F(ViewReadmeFormTest, APrinterThatCannotBeHadIsPassedOverInSilence) {
  ViewReadmeForm& form = Shown();
  run.platform.printing.Printers[0].Broken = true;
  run.platform.printing.ExpectPrintDialog(true);
  run.person.Click(form.PrintButton);
  EXPECT_TRUE(run.platform.dialogs.Boxes().empty());
  EXPECT_FALSE(main.core.PrintJobRuns);
}

TEST_F(ViewReadmeFormTest, WhatThePrinterRefusesIsToldWithItsReasonAndTheWindowStays) {
  ViewReadmeForm& form = Shown();
  HeadlessPrinting& printing = run.platform.printing;
  printing.Printers[0].Refusal = "The printer is stopped.";
  printing.ExpectPrintDialog(true);
  run.person.ExpectBox("Can't Print", "Error 57: The printer is stopped.");
  run.person.Click(form.PrintButton);
  printing.Printers[0].Refusal.clear();
  printing.Printers[0].EndError = error::DiskFull;
  printing.Printers[0].EndReason = "The disk is full.";
  printing.ExpectPrintDialog(true);
  run.person.ExpectBox("Can't Print", "Error 61: The disk is full.");
  run.person.Click(form.PrintButton);
  EXPECT_TRUE(form.Window.Visible());
  EXPECT_FALSE(printing.OpenDocument());
  EXPECT_FALSE(main.core.PrintJobRuns);
  printing.Printers[0].EndError = error::None;
  printing.ExpectPrintDialog(true);
  run.person.Click(form.PrintButton);
  EXPECT_EQ(printing.Documents().back().Name, "Pixorra - Read Me");
}

TEST_F(ViewReadmeFormTest, WhileAPhotoIsPrintedPrintBeeps) {
  ViewReadmeForm& form = Shown();
  main.core.PrintJobRuns = true;
  run.person.Click(form.PrintButton);
  EXPECT_EQ(run.platform.dialogs.Beeps(), 1);
  main.core.PrintJobRuns = false;
}

TEST_F(ViewReadmeFormTest, ItGoesWithTheMainWindow) {
  const ViewReadmeForm& form = Shown();
  run.Close();
  EXPECT_FALSE(form.Window.IsLoaded());
  EXPECT_TRUE(run.host.toolkit.Ended());
}

}  // namespace
}  // namespace pixorra
