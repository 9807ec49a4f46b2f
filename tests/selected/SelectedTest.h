// The program started on a film strip "C:\Strip", with folders beside it, and a hand on the selected photo's menu.
#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "platform/controls/TextBox.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/PreferencesForm.h"
#include "window/PreviewState.h"

namespace pixorra {

class SelectedTest : public ProgramTest {
 protected:
  SelectedTest() {
    main.preferences.RenameExistsOption.SetValue(true);
    main.preferences.DuplicatesAllowOption.SetValue(true);
    main.strip.AllOption.SetValue(true);
  }

  static std::string Photo(const std::string& name) { return "C:\\Strip\\" + name; }
  static std::string InFamily(const std::string& name) { return "C:\\Home\\Family\\" + name; }
  void MakePhoto(const std::string& path, Colour colour) { drive.Write(path, BmpOf(PlainBitmap(80, 60, colour))); }
  // A film strip of these photos, all loaded.
  void LoadStrip(const std::vector<std::string>& names) {
    Colour colour = 0;
    for (const std::string& name : names) MakePhoto(Photo(name), colour += 0x10);
    main.strip.NoFilmStrip = false;
    main.strip.SrcFileList.SetPath("C:\\Strip");
    run.Wait(0.04);
    run.LoadAll();
  }
  void Open(const std::string& folder) {
    Select_a_Folder(main, Display_a_New_Folder(main, folder));
    run.Wait(0.08);
    run.LoadAll();
  }
  // These photos in a folder that is open, all loaded.
  void OpenFamily(const std::vector<std::string>& names) {
    Colour colour = 0x00100000;
    drive.MakeFolder("C:\\Home\\Family");
    for (const std::string& name : names) MakePhoto(InFamily(name), colour += 0x00100000);
    Open("C:\\Home\\Family");
  }
  void SelectInStrip(int slot) { person.Click(strip.SrcThumbnail(slot)); }
  void SelectInView(int cell) { person.Click(desk.DestThumbnail(cell)); }
  std::string SelectedPath() const { return main.preview.PicPreview.Tag(); }
  std::vector<std::string> FilesIn(const std::string& folder) {
    std::vector<std::string> names = drive.DriveFiles().Names(folder, "*.*", attribute::Hidden);
    std::erase(names, "Thumbnails.tmp");
    std::sort(names.begin(), names.end());
    return names;
  }

  ProgramRun& run = Started();
  MainForm& main = run.main;
  DesktopState& desk = main.desk;
  FilmStripState& strip = main.strip;
  Person& person = run.person;
};

}  // namespace pixorra
