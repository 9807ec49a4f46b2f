// The program started, with photos in the film strip and in an open folder, and proof sheets printed of them.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/Lists.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/ScrollBar.h"
#include "printing/ProofSheets.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"

namespace pixorra {

class ProofTest : public ProgramTest {
 protected:
  static constexpr const char* Strip = "C:\\Strip";
  static constexpr const char* Folder = "C:\\Home\\Best";

  static std::string NameOf(int number) { return "p" + std::to_string(1000 + number).substr(1) + ".jpg"; }
  // Photos "p001.jpg" and so on, each a plain colour of its own.
  void MakePhotos(const std::string& folder, int count, int width = 80, int height = 60) {
    drive.MakeFolder(folder);
    for (int i = 1; i <= count; ++i)
      drive.Write(folder + "\\" + NameOf(i), JpegOf(PlainBitmap(width, height, static_cast<Colour>(0x050709 * i))));
  }
  void ShowStrip() {
    main.strip.NoFilmStrip = false;
    main.strip.SrcFileList.SetPath(Strip);
    run.Wait(0.04);
    run.LoadAll();
  }
  void LoadStrip(int count) {
    MakePhotos(Strip, count);
    ShowStrip();
  }
  // In place of the one before.
  void LoadAnotherStrip(int count) {
    main.strip.SrcFileList.SetPath("C:\\");
    if (drive.Exists(Strip)) drive.Remove(Strip);
    LoadStrip(count);
  }
  void OpenFolderOf(int count) {
    MakePhotos(Folder, count);
    Select_a_Folder(main, Display_a_New_Folder(main, Folder));
    run.LoadAll();
  }

  // When the dialog is up.
  void InDialog(const std::function<void(Person&, Form&)>& act) { person.ExpectForm("PrintProofForm", act); }
  // So many across; page 0 is all.
  void Choose(int across, int page = 0) {
    InDialog([=](Person& hand, Form& form) {
      hand.MoveBar(Find<ScrollBar>(form, "ProofSizeBar"), across);
      hand.Choose(Find<ComboBox>(form, "PagesBox"), page);
      hand.Click(Find<CommandButton>(form, "PrintButton"));
    });
  }
  void Print(int across, int page = 0, BatchSource source = BatchSource::FilmStrip) {
    Choose(across, page);
    PrintProofSheets(main, source);
  }
  const PrintedPage& Page(std::size_t number) const { return printing.Documents().back().Pages.at(number - 1); }
  std::size_t PageCount() const { return printing.Documents().back().Pages.size(); }
  static std::vector<PrintedItem> PicturesOf(const PrintedPage& page) {
    std::vector<PrintedItem> pictures;
    for (const PrintedItem& item : page.Items) {
      if (item.What == PrintedItem::Kind::Picture) pictures.push_back(item);
    }
    return pictures;
  }
  static const PrintedItem& TextOf(const PrintedPage& page, const std::string& text) {
    for (const PrintedItem& item : page.Items) {
      if (item.What == PrintedItem::Kind::Text && item.Text == text) return item;
    }
    throw std::runtime_error("nowhere on the page: " + text);
  }

  template <typename Wanted>
  static Wanted& Find(Container& form, const std::string& name) {
    for (Control* control : form.Controls()) {
      if (control->Name() == name) return static_cast<Wanted&>(*control);
    }
    throw std::runtime_error("no control " + name);
  }

  ProgramRun& run = Started();
  MainForm& main = run.main;
  Person& person = run.person;
  HeadlessPrinting& printing = run.platform.printing;
};

}  // namespace pixorra
