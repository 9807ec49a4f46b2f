// Second thoughts: a drop is taken back, a photo goes by the clipboard into the open folder, and that is taken back
// too.
#include <gmock/gmock.h>

#include "platform/services/Clipboard.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"

namespace pixorra {
namespace {

constexpr const char* Kept = "C:\\Home\\Kept";

class TakeBackTest : public ProgramTest {
 protected:
  TakeBackTest() {
    drive.MakeFolder(Kept);
    for (int i = 1; i <= 3; ++i)
      drive.Write("C:\\Card\\IMG_" + std::to_string(i) + ".JPG", JpegPhoto(100 + 20 * i, 90));
    SavedState saved;
    saved.Rename = 2;
    saved.FilmStrip = "C:\\Card";
    saved.Folders = {Kept};
    WriteSavedState(saved);
  }
};

TEST_F(TakeBackTest, ByButtonAndByMenu) {
  ProgramRun& run = Started();
  run.LoadAll();
  MainForm& main = run.main;
  const DesktopState& desk = main.desk;
  run.person.Click(main.strip.AllOption);
  ASSERT_EQ(desk.OpenFolderIndex, 1);

  run.person.Drag(main.strip.SrcThumbnail(2), main.desk.DestFolderPreview(1));
  run.LoadAll();
  EXPECT_TRUE(drive.Exists(std::string(Kept) + "\\IMG_2.JPG"));
  EXPECT_EQ(desk.DestSlotCount, 1);
  run.person.Click(main.strip.UndoButton);
  run.Wait(0.1);
  EXPECT_FALSE(drive.Exists(std::string(Kept) + "\\IMG_2.JPG"));
  EXPECT_FALSE(IsMarked(main.strip, 2));
  EXPECT_EQ(desk.DestSlotCount, 0);
  EXPECT_EQ(desk.DestPicsCount(1).Caption(), " Empty");

  run.person.Click(main.strip.SrcThumbnail(3));
  run.person.ChooseMenu(main.menu.CopyMenuItem);
  run.Wait(0.1);
  ASSERT_TRUE(run.host.clipboard.HasBitmap());
  EXPECT_EQ(run.host.clipboard.GetBitmap().Width(), 160);
  run.Wait(2.2);
  run.person.ChooseMenu(main.menu.PasteMenuItem);
  run.LoadAll();
  const std::string pasted = std::string(Kept) + "\\Clipboard.jpg";
  ASSERT_TRUE(drive.Exists(pasted));
  EXPECT_EQ(run.pictures.Load(pasted).Width(), 160);
  EXPECT_EQ(desk.DestSlotCount, 1);
  run.person.ChooseMenu(main.menu.UndoMenuItem);
  run.Wait(0.1);
  EXPECT_FALSE(drive.Exists(pasted));
  EXPECT_EQ(desk.DestSlotCount, 0);
  EXPECT_EQ(SelectedSlot(main.strip), 3);
  run.Close();
}

}  // namespace
}  // namespace pixorra
