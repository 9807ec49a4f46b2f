// The program started on a film strip "C:\Strip", with folders to drop into, and a hand on the forms that delete.
#pragma once

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/Label.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/PreferencesForm.h"
#include "window/PreviewState.h"

namespace pixorra {

class DeleteTest : public ProgramTest {
 protected:
  DeleteTest() {
    main.preferences.RenameExistsOption.SetValue(true);
    main.preferences.DuplicatesAllowOption.SetValue(true);
    main.strip.AllOption.SetValue(true);
  }

  static std::string Photo(const std::string& name) { return "C:\\Strip\\" + name; }
  static std::string Folder(const std::string& name) { return "C:\\Home\\" + name; }
  void MakePhoto(const std::string& path, Colour colour = 0x00203040) {
    drive.Write(path, BmpOf(PlainBitmap(80, 60, colour)));
  }
  // A film strip of these photos, all loaded.
  void LoadStrip(const std::vector<std::string>& names, const std::string& folder = "C:\\Strip") {
    Colour colour = 0;
    drive.MakeFolder(folder);
    for (const std::string& name : names) MakePhoto(folder + "\\" + name, colour += 0x10);
    main.strip.NoFilmStrip = false;
    main.strip.SrcFileList.SetPath(folder);
    run.Wait(0.04);
    run.LoadAll();
  }
  // A folder with these photos, open on the Desktop and all loaded. Returns its slot.
  int OpenWith(const std::string& name, const std::vector<std::string>& names) {
    Colour colour = 0x00100000;
    drive.MakeFolder(Folder(name));
    for (const std::string& photo : names) MakePhoto(Folder(name) + "\\" + photo, colour += 0x00100000);
    const int slot = Display_a_New_Folder(main, Folder(name));
    Select_a_Folder(main, slot);
    run.Wait(0.08);
    run.LoadAll();
    return slot;
  }
  void Mark(int slot) { person.DoubleClick(strip.SrcBackground(slot)); }
  void SelectInStrip(int slot) { person.Click(strip.SrcThumbnail(slot)); }
  void SelectInView(int cell) { person.Click(desk.DestThumbnail(cell)); }

  // A control of a dialog by its name.
  template <typename Wanted>
  static Wanted& Find(Container& form, const std::string& name) {
    for (Control* control : form.Controls()) {
      if (control->Name() == name) return static_cast<Wanted&>(*control);
    }
    throw std::runtime_error("no control " + name);
  }
  static std::string TextOf(Container& form, const std::string& label) { return Find<Label>(form, label).Caption(); }

  // When the form is up: this first, then its button.
  void Answer(const std::string& form, const std::string& button, const std::function<void(Form&)>& first = {}) {
    person.ExpectForm(form, [=](Person& hand, Form& shown) {
      if (first) first(shown);
      hand.Click(Find<CommandButton>(shown, button));
    });
  }
  // By the button below the film strip, this way.
  void Choose(const std::string& button) {
    Answer("DeletePhotosForm", button);
    person.Click(strip.DeleteButton);
  }

  // The files of a folder, in order, without its cache.
  std::vector<std::string> FilesIn(const std::string& folder) {
    std::vector<std::string> names = drive.DriveFiles().Names(folder, "*.*", attribute::Hidden);
    std::erase(names, "Thumbnails.tmp");
    std::sort(names.begin(), names.end());
    return names;
  }
  // The photos of the slots that are shown, by their names.
  std::vector<std::string> ShownInStrip() const {
    std::vector<std::string> names;
    for (int i = 1; i <= strip.SrcSlotCount; ++i) {
      if (strip.SrcThumbnail(i).Visible()) names.push_back(strip.SrcThumbName(i).ToolTipText());
    }
    return names;
  }
  std::vector<std::string> ShownInView() const {
    std::vector<std::string> names;
    for (int i = 1; i <= desk.DestSlotCount; ++i) names.push_back(desk.DestThumbName(i).ToolTipText());
    return names;
  }
  void ExpectNoSelection() const {
    EXPECT_EQ(main.preview.PicPreview.Tag(), "");
    EXPECT_TRUE(main.preview.PicPreview.GetPicture() == main.preview.Logo);
    EXPECT_EQ(main.preview.PicPreview.ToolTipText(), "Pixorra");
    EXPECT_EQ(main.preview.PicPreviewSize.ToolTipText(), "Pixorra");
    EXPECT_EQ(main.preview.PicPreviewSize.Caption(), "");
    EXPECT_FALSE(strip.SrcThumbFrame.Visible());
    EXPECT_FALSE(desk.DestThumbFrame.Visible());
  }

  ProgramRun& run = Started();
  MainForm& main = run.main;
  DesktopState& desk = main.desk;
  FilmStripState& strip = main.strip;
  Person& person = run.person;
};

}  // namespace pixorra
