// The program started, with folders and photos made on its drive.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "desktop/OpenFolder.h"
#include "desktop/OpenFolderView.h"
#include "desktop/ShownFolders.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"

namespace pixorra {

class DesktopTest : public ProgramTest {
 protected:
  static std::string Folder(const std::string& name) { return "C:\\Home\\" + name; }
  // A folder with so many photos, "p001.bmp" and on, each of a colour of its own.
  std::string MakePhotos(const std::string& name, int count) {
    const std::string folder = Folder(name);
    drive.MakeFolder(folder);
    for (int i = 1; i <= count; ++i) AddPhoto(folder, i);
    return folder;
  }
  std::string AddPhoto(const std::string& folder, int number) {
    std::string digits = std::to_string(1000 + number).substr(1);
    const std::string path = folder + "\\p" + digits + ".bmp";
    drive.Write(path, BmpOf(PlainBitmap(80, 60, static_cast<Colour>(number))));
    return path;
  }
  // On the Desktop, not open.
  int Show(const std::string& folder) { return Display_a_New_Folder(main, folder); }
  int ShowAndOpen(const std::string& folder) {
    const int slot = Show(folder);
    Select_a_Folder(main, slot);
    return slot;
  }
  // The next tick of the loading that is the open folder's, and the one after it.
  void DestinationTick() { run.Wait(0.04); }
  // The number of the photo whose colour the picture has.
  static int PhotoIn(const Picture& picture) {
    return picture.IsNothing() ? 0 : picture.Pixels().Row(picture.Height() / 2)[picture.Width() / 2 * 3 + 2];
  }
  std::vector<std::string> CellNames() const {
    std::vector<std::string> names;
    for (int i = 1; i <= desk.DestSlotCount; ++i) names.push_back(desk.DestThumbName(i).Caption());
    return names;
  }

  ProgramRun& run = Started();
  MainForm& main = run.main;
  DesktopState& desk = main.desk;
  Person& person = run.person;
};

}  // namespace pixorra
