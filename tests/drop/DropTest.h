// The program started, with a film strip of photos to drag and folders to drop them into.
#pragma once

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "drop/DropIntoFolder.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/PreferencesForm.h"

namespace pixorra {

inline constexpr const char* CopyFailed = "Pixorra - Unable to Drop Photo";

class DropTest : public ProgramTest {
 protected:
  DropTest() {
    // Each test says which policies it is about.
    main.preferences.RenameExistsOption.SetValue(true);
    main.preferences.DuplicatesAllowOption.SetValue(true);
    main.strip.AllOption.SetValue(true);
  }

  static std::string Folder(const std::string& name) { return "C:\\Home\\" + name; }
  static std::string Photo(const std::string& name) { return "C:\\Strip\\" + name; }
  void MakePhoto(const std::string& path, Colour colour = 0x00203040) {
    drive.Write(path, BmpOf(PlainBitmap(80, 60, colour)));
  }
  // A film strip of these photos, all loaded.
  void LoadStrip(const std::vector<std::string>& names) {
    Colour colour = 0;
    drive.MakeFolder("C:\\Strip");
    for (const std::string& name : names) MakePhoto(Photo(name), colour += 0x10);
    main.strip.NoFilmStrip = false;
    main.strip.SrcFileList.SetPath("C:\\Strip");
    run.Wait(0.04);
    run.LoadAll();
  }
  // On the Desktop, not open.
  int Show(const std::string& name) {
    drive.MakeFolder(Folder(name));
    return Display_a_New_Folder(main, Folder(name));
  }
  std::string CountOf(int slot) const { return desk.DestPicsCount(slot).Caption(); }
  bool IsMarked(int i) const { return strip.SrcThumbName(i).Tag() == "MARK"; }
  bool Has(const std::string& folder, const std::string& name) const {
    return drive.Exists(Folder(folder) + "\\" + name);
  }
  std::string BytesIn(const std::string& folder, const std::string& name) const {
    return drive.Read(Folder(folder) + "\\" + name);
  }
  // A control of a dialog, or of a frame in one, by its name.
  template <typename Wanted>
  static Wanted& Find(Container& form, const std::string& name) {
    for (Control* control : form.Controls()) {
      if (control->Name() == name) return static_cast<Wanted&>(*control);
    }
    throw std::runtime_error("no control " + name);
  }

  ProgramRun& run = Started();
  MainForm& main = run.main;
  DesktopState& desk = main.desk;
  FilmStripState& strip = main.strip;
  Person& person = run.person;
};

}  // namespace pixorra
