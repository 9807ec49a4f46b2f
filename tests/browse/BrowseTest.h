// The program started, with the browser's controls at hand.
#pragma once

#include <string>

#include "browse/BrowseFolderLocationForm.h"
#include "tests/support/headless/SortingTest.h"
#include "window/MenuBar.h"
#include "window/ModelessForms.h"

namespace pixorra {

class BrowseTest : public StartedTest {
 protected:
  BrowseTest() { drive.MakeFolder("C:\\Home"); }
  // A folder with so many photos, "p001.bmp" and on.
  std::string MakePhotos(const std::string& folder, int count) {
    drive.MakeFolder(folder);
    for (int i = 1; i <= count; ++i)
      drive.Write(folder + "\\p" + std::to_string(1000 + i).substr(1) + ".bmp",
                  BmpOf(PlainBitmap(80, 60, static_cast<Colour>(i * 0x010305))));
    return folder;
  }
  // The browser, opened and at its start path.
  BrowseFolderLocationForm& Opened(BrowseMode mode) {
    ShowBrowser(main, mode);
    run.Wait(0.1);
    return Browser();
  }
  BrowseFolderLocationForm& Browser() { return main.modeless.Get<BrowseFolderLocationForm>(main); }
  TreeView& Tree() { return static_cast<TreeView&>(*Browser().PicDirTree.Controls().front()); }
  // The browser at this folder, chosen by its typed path.
  BrowseFolderLocationForm& OpenedAt(BrowseMode mode, const std::string& folder) {
    BrowseFolderLocationForm& browser = Opened(mode);
    GoTo(folder);
    return browser;
  }
  void GoTo(const std::string& typed) {
    person.Fill(Browser().PreviousList, typed);
    person.Key(key::Return);
    run.Wait(0.1);
  }
  bool IsOpen() const { return person.Window("BrowseFolderLocationForm") != nullptr; }
  std::string SelectedText() { return Tree().Selected() != nullptr ? Tree().Selected()->Text() : "nothing"; }
};

}  // namespace pixorra
