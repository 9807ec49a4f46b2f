// The program started, with photos of all shapes in a film strip and in an open folder, and printers that keep what is
// printed.
#pragma once

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/PicturesState.h"

namespace pixorra {

class PrintTest : public ProgramTest {
 protected:
  static constexpr Colour Red = 0x000000FF;

  static std::string Photo(const std::string& name) { return "C:\\Strip\\" + name; }
  static std::string InFolder(const std::string& name) { return "C:\\Home\\F\\" + name; }
  void MakePhoto(const std::string& path, int width, int height) {
    drive.Write(path, BmpOf(PlainBitmap(width, height, Red)));
  }
  // A film strip of these, each of the size that its name tells ("160x120" for 160x120.bmp), all loaded.
  void LoadStrip(const std::vector<std::string>& names) {
    drive.MakeFolder("C:\\Strip");
    for (const std::string& name : names) MakeByName(Photo(name));
    main.strip.NoFilmStrip = false;
    main.strip.SrcFileList.SetPath("C:\\Strip");
    main.strip.AllOption.SetValue(true);
    run.Wait(0.04);
    run.LoadAll();
  }
  void OpenFolder(const std::vector<std::string>& names) {
    drive.MakeFolder("C:\\Home\\F");
    for (const std::string& name : names) MakeByName(InFolder(name));
    Select_a_Folder(main, Display_a_New_Folder(main, "C:\\Home\\F"));
    run.LoadAll();
  }
  // The one photo of a strip, selected.
  void SelectPhoto(const std::string& name) {
    LoadStrip({name});
    Select(1);
  }
  void Select(int slot) { person.Click(main.strip.SrcThumbnail(slot)); }

  // A control of a dialog, or of a frame in one, by its name.
  template <typename Wanted>
  static Wanted& Find(Container& form, const std::string& name) {
    for (Control* control : form.Controls()) {
      if (control->Name() == name) return static_cast<Wanted&>(*control);
      if (control->GetKind() != Kind::Frame) continue;
      for (Control* inner : static_cast<Frame*>(control)->Controls()) {
        if (inner->Name() == name) return static_cast<Wanted&>(*inner);
      }
    }
    throw std::runtime_error("no control " + name);
  }
  static void SetZoom(Person& hand, Form& form, int percent) {
    hand.MoveBar(Find<ScrollBar>(form, "ZoomFactorBar"), percent);
  }
  // What the person does in the dialog; then the print button.
  void PrintAfter(const Person::FormAction& act) {
    person.ExpectForm("PrintPhotoForm", [act](Person& hand, Form& form) {
      act(hand, form);
      hand.Click(Find<CommandButton>(form, "PrintButton"));
    });
  }
  void PrintAt(int percent, bool info = false) {
    PrintAfter([=](Person& hand, Form& form) {
      SetZoom(hand, form, percent);
      auto& header = Find<CheckBox>(form, "PrintHeaderCheckbox");
      if (header.Enabled() && (header.Value() == 1) != info) hand.Click(header);
    });
  }
  // What the person looks at in the dialog; then it is cancelled.
  void LookAtDialog(const Person::FormAction& look) {
    person.ExpectForm("PrintPhotoForm", [look](Person& hand, Form& form) {
      look(hand, form);
      hand.Click(Find<CommandButton>(form, "CancelButton"));
    });
  }

  void Print() { person.ChooseMenu(main.menu.PrintSelectedPhotoMenuItem); }
  void Batch() { person.ChooseMenu(main.menu.BatchPrintFilmStripMenuItem); }
  const Form* Notice() const { return person.Window("ConfirmForm"); }
  // Scratch elements, notice, pointer and orientation, as after a job that has come to its end.
  void ExpectAllPutBack() {
    EXPECT_EQ(main.pictures.TempPic.UBound(), 0);
    EXPECT_EQ(main.pictures.TempImage.UBound(), 0);
    EXPECT_EQ(Notice(), nullptr);
    EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
    EXPECT_EQ(printing.Orientation(), 1);
    EXPECT_FALSE(printing.OpenDocument());
    EXPECT_FALSE(main.core.PrintJobRuns);
  }

  const std::vector<PrintedDocument>& Documents() const { return printing.Documents(); }
  const PrintedPage& OnlyPage() const {
    if (Documents().size() != 1 || Documents()[0].Pages.size() != 1) throw std::runtime_error("not one page");
    return Documents()[0].Pages[0];
  }
  static std::vector<PrintedItem> PicturesOf(const PrintedPage& page) {
    std::vector<PrintedItem> pictures;
    for (const PrintedItem& item : page.Items) {
      if (item.What == PrintedItem::Kind::Picture) pictures.push_back(item);
    }
    return pictures;
  }

  ProgramRun& run = Started();
  MainForm& main = run.main;
  Person& person = run.person;
  HeadlessPrinting& printing = run.platform.printing;

 private:
  void MakeByName(const std::string& path) {
    const std::string name = path.substr(path.rfind('\\') + 1);
    // A leading letter and a blank put names in an order.
    const std::string size = name.substr(name.find(' ') == std::string::npos ? 0 : name.find(' ') + 1);
    const auto cross = size.find('x');
    MakePhoto(path + ".bmp", std::stoi(size.substr(0, cross)), std::stoi(size.substr(cross + 1)));
  }
};

}  // namespace pixorra
