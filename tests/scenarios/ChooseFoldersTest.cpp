// Someone who has never seen the program finds a card, makes folders, and lets strip and folder change places.
#include <gtest/gtest.h>

#include "browse/BrowseFolderLocationForm.h"
#include "platform/controls/TreeView.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/MenuBar.h"
#include "window/ModelessForms.h"

namespace pixorra {
namespace {

class ChooseFoldersTest : public ProgramTest {
 protected:
  ChooseFoldersTest() {
    drive.MakeFolder("C:\\Home\\Pictures");
    for (int i = 1; i <= 3; ++i)
      drive.Write("C:\\Media\\Card\\DCIM\\IMG_" + std::to_string(i) + ".JPG", JpegPhoto(80 * i, 60 * i));
  }
  static BrowseFolderLocationForm& Browser(ProgramRun& run) {
    return run.main.modeless.Get<BrowseFolderLocationForm>(run.main);
  }
  static TreeView& Tree(ProgramRun& run) { return static_cast<TreeView&>(*Browser(run).PicDirTree.Controls().front()); }
  // Goes down the tree by hand, each folder opened in its turn.
  static void ChooseInTree(ProgramRun& run, const std::vector<std::string>& way) {
    for (std::size_t depth = 1; depth < way.size(); ++depth) {
      run.person.Expand(Tree(run), {way.begin(), way.begin() + static_cast<std::ptrdiff_t>(depth)});
      run.Wait(0.1);
    }
    run.person.Choose(Tree(run), way);
    run.Wait(0.2);
  }
};

TEST_F(ChooseFoldersTest, ACardIsFoundFoldersAreMadeAndStripAndFolderChangePlaces) {
  ProgramRun& run = NewRun();
  run.platform.volumes.Set({{"File System", VolumeKind::FileSystem, "C:\\", {}},
                            {"EOS 90D", VolumeKind::Removable, "C:\\Media\\Card", "1A2B|EOS|640"}});
  run.Start();
  Person& person = run.person;
  const DesktopState& desk = run.main.desk;
  FilmStripState& strip = run.main.strip;
  run.Wait(0.3);

  person.Click(strip.BrowseButton);
  run.Wait(0.3);
  ChooseInTree(run, {"Computer", "EOS 90D", "DCIM"});
  EXPECT_EQ(Browser(run).MyFiles.ListCount(), 3);
  EXPECT_EQ(Browser(run).PreviewName.Caption(), "IMG_1");
  person.Focus(Browser(run).MyFiles);
  person.Key(key::Down);
  run.Wait(0.2);
  EXPECT_EQ(Browser(run).PreviewName.Caption(), "IMG_2");
  person.Click(Browser(run).SelectButton);
  run.LoadAll();
  EXPECT_EQ(strip.SrcSlotCount, 3);

  person.Click(run.main.desk.ShowFolder);
  run.Wait(0.3);
  ChooseInTree(run, {"Home", "Pictures"});
  person.Click(Browser(run).CreateButton);
  run.Wait(0.3);
  EXPECT_TRUE(drive.Exists("C:\\Home\\Pictures\\New Folder"));
  person.Type("Family");
  person.Key(key::Return);
  run.Wait(0.2);
  EXPECT_TRUE(drive.Exists("C:\\Home\\Pictures\\Family"));
  EXPECT_EQ(desk.FoldersShown, 1);
  EXPECT_EQ(desk.OpenFolderIndex, 1);

  person.ChooseMenu(run.main.menu.SetCameraLocationMenuItem);
  run.Wait(0.3);
  EXPECT_EQ(Tree(run).Selected()->Text(), "DCIM") << "the browser opens at the film strip";
  person.ExpectBox("Set Camera Location", "", BoxAnswer::Yes);
  person.Click(Browser(run).SelectButton);
  run.Wait(0.2);
  EXPECT_EQ(strip.CameraLocation, "C:\\Media\\Card\\DCIM");

  person.Click(strip.SwapButton);
  run.LoadAll();
  EXPECT_EQ(strip.SrcFolderPath.Caption(), "Family");
  EXPECT_EQ(desk.DestFolderName(desk.OpenFolderIndex).Caption(), " Camera Photos ");
  person.Click(strip.SwapButton);
  run.LoadAll();
  EXPECT_EQ(strip.SrcFolderPath.Caption(), "Camera Photos");

  person.ExpectBox("Select Camera Photos", "", BoxAnswer::Yes);
  person.Click(strip.CameraButton);
  run.LoadAll();
  EXPECT_EQ(strip.SrcSlotCount, 3);
  run.Close();

  ProgramRun& again = Started();
  again.LoadAll();
  EXPECT_EQ(again.main.strip.SrcFolderPath.Caption(), "Camera Photos");
  EXPECT_EQ(again.main.strip.SrcSlotCount, 3);
  EXPECT_EQ(again.main.strip.PreviousList.List(0), "C:\\Home\\Pictures\\Family");
  EXPECT_EQ(again.main.desk.FoldersShown, 1);
}

}  // namespace
}  // namespace pixorra
