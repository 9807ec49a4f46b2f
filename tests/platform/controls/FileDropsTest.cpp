// Files and folders dropped from another program: who takes them.
#include <gmock/gmock.h>

#include "platform/controls/FileDrops.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/PictureBox.h"
#include "tests/support/headless/HeadlessTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

class FileDropsTest : public HeadlessTest {
 protected:
  FileDropsTest() {
    form.SetClientSize(300, 200);
    window.Move(100, 50, 150, 100);
    image.Move(10, 10, 40, 30);
    Connect(window.On().FilesDropped, [this](Control& control, const FilesArgs& files) {
      Dropped = files.Paths;
      Where = control.Name() + " " + std::to_string(static_cast<int>(files.X)) + " " +
              std::to_string(static_cast<int>(files.Y));
    });
    form.Show();
  }
  Form form{toolkit, "DropForm"};
  PictureBox window{form, "Window"};
  ImageBox image{window, "Image"};
  std::vector<std::string> Dropped;
  std::string Where;
};

TEST_F(FileDropsTest, TheControlUnderThePointerTakesThem) {
  EXPECT_TRUE(UserDroppedFiles(form, 200, 120, {"/a", "/b"}));
  EXPECT_THAT(Dropped, ElementsAre("/a", "/b"));
  EXPECT_EQ(Where, "Window 100 70");
}

TEST_F(FileDropsTest, OneThatTakesNoneLeavesThemToItsContainer) {
  EXPECT_EQ(TargetOfFiles(form, 115, 65), &window);
  EXPECT_TRUE(UserDroppedFiles(form, 115, 65, {"/a"}));
  EXPECT_EQ(Where, "Window 15 15");
}

TEST_F(FileDropsTest, BesideItNobodyTakesThem) {
  EXPECT_EQ(TargetOfFiles(form, 10, 10), nullptr);
  EXPECT_FALSE(UserDroppedFiles(form, 10, 10, {"/a"}));
}

TEST_F(FileDropsTest, NobodyTakesThemWhileADialogIsUp) {
  Form dialog(toolkit, "Dialog");
  person.ExpectForm("Dialog", [this](Person&, Form& up) {
    EXPECT_EQ(TargetOfFiles(form, 200, 120), nullptr);
    EXPECT_FALSE(UserDroppedFiles(form, 200, 120, {"/a"}));
    up.Hide();
  });
  dialog.ShowModal(&form);
}

}  // namespace
}  // namespace pixorra
