// The program started on a film strip "C:\Strip", with folders to drop into, and a hand on the forms that delete.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/controls/Buttons.h"
#include "platform/controls/Label.h"
#include "tests/support/headless/SortingTest.h"
#include "window/DropState.h"
#include "window/MenuBar.h"
#include "window/PreviewState.h"

namespace pixorra {

class DeleteTest : public SortingTest {
 protected:
  void Mark(int slot) { person.DoubleClick(strip.SrcBackground(slot)); }
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
};

}  // namespace pixorra
