// The program started, with a film strip of photos to drag and folders to drop them into.
#pragma once

#include <string>

#include "drop/DropIntoFolder.h"
#include "tests/support/headless/SortingTest.h"

namespace pixorra {

inline constexpr const char* CopyFailed = "Pixorra - Unable to Drop Photo";

class DropTest : public SortingTest {
 protected:
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
};

}  // namespace pixorra
