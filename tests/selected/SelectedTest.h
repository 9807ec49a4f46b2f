// The program started on a film strip "C:\Strip", with folders beside it, and a hand on the selected photo's menu.
#pragma once

#include <string>
#include <vector>

#include "platform/controls/TextBox.h"
#include "tests/support/headless/SortingTest.h"
#include "window/DropState.h"
#include "window/MenuBar.h"
#include "window/PreviewState.h"

namespace pixorra {

class SelectedTest : public SortingTest {
 protected:
  static std::string InFamily(const std::string& name) { return "C:\\Home\\Family\\" + name; }
  // These photos in a folder that is open, all loaded.
  void OpenFamily(const std::vector<std::string>& names) { OpenWith("Family", names); }
  std::string SelectedPath() const { return main.preview.PicPreview.Tag(); }
};

}  // namespace pixorra
