// The program started, with a film strip of photos and folders on the Desktop, and a hand on both.
#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/PreferencesForm.h"

namespace pixorra {

class StartedTest : public ProgramTest {
 protected:
  ProgramRun& run = Started();
  MainForm& main = run.main;
  DesktopState& desk = main.desk;
  FilmStripState& strip = main.strip;
  Person& person = run.person;
};

class SortingTest : public StartedTest {
 protected:
  SortingTest() {
    // Each test says which policies it is about.
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
  // Onto the Desktop, and open there, all loaded. Returns its slot.
  int Open(const std::string& folder) {
    const int slot = Display_a_New_Folder(main, folder);
    Select_a_Folder(main, slot);
    run.Wait(0.08);
    run.LoadAll();
    return slot;
  }
  // The same of a folder in "C:\Home" with these photos.
  int OpenWith(const std::string& name, const std::vector<std::string>& names) {
    Colour colour = 0x00100000;
    drive.MakeFolder(Folder(name));
    for (const std::string& photo : names) MakePhoto(Folder(name) + "\\" + photo, colour += 0x00100000);
    return Open(Folder(name));
  }
  void SelectInStrip(int slot) { person.Click(strip.SrcThumbnail(slot)); }
  void SelectInView(int cell) { person.Click(desk.DestThumbnail(cell)); }

  // A control of a dialog, or of a frame in one, by its name.
  template <typename Wanted>
  static Wanted& Find(Container& form, const std::string& name) {
    for (Control* control : form.Controls()) {
      if (control->Name() == name) return static_cast<Wanted&>(*control);
    }
    throw std::runtime_error("no control " + name);
  }
  // The files of a folder, in order, without its cache.
  std::vector<std::string> FilesIn(const std::string& folder) {
    std::vector<std::string> names = drive.DriveFiles().Names(folder, "*.*", attribute::Hidden);
    std::erase(names, "Thumbnails.tmp");
    std::sort(names.begin(), names.end());
    return names;
  }
};

}  // namespace pixorra
