// Editing the selected photo in another program, and the pane that follows what is saved there.
#include <gmock/gmock.h>

#include "tests/selected/SelectedTest.h"

namespace pixorra {
namespace {

constexpr const char* InCamera =
    "You cannot edit the photos inside the camera.\nDrag the photo into a folder first, then edit\nthat copy.";

class EditSelectedPhotoTest : public SelectedTest {
 protected:
  void Edit() { person.ChooseMenu(main.menu.SelectedEditMenuItem); }
  std::vector<HeadlessShell::Opened> Opened() const { return run.platform.shell.AllOpened(); }
  static Colour Middle(const Picture& picture) {
    const int x = picture.Width() / 2;
    const std::uint8_t* pixel = picture.Pixels().Row(picture.Height() / 2) + x * picture.Pixels().BytesPerPixel();
    return static_cast<Colour>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]);
  }
};

TEST_F(EditSelectedPhotoTest, ThePhotoIsOpenedInItsProgramFromTheRoot) {
  run.platform.shell.RegisterProgram(".bmp", "C:\\bin\\paint", {.ProductName = "Brush"});
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  Edit();
  EXPECT_EQ(main.menu.SelectedEditMenuItem.Caption(), "Edit with \"Brush\"");
  ASSERT_EQ(Opened().size(), 1U);
  EXPECT_EQ(Opened()[0].Target, Photo("a.bmp"));
  EXPECT_EQ(Opened()[0].WorkingFolder, "c:\\");
  EXPECT_TRUE(main.preview.bPicEdited);
}

TEST_F(EditSelectedPhotoTest, WithNoPhotoSelectedThereIsABeepAndNothingStarts) {
  LoadStrip({"a.bmp"});
  main.menu.SelectedEditMenuItem.UserClicked();
  EXPECT_EQ(run.platform.dialogs.Beeps(), 1);
  EXPECT_TRUE(Opened().empty());
  EXPECT_FALSE(main.preview.bPicEdited);
}

TEST_F(EditSelectedPhotoTest, APhotoInTheCameraCannotBeEditedAndItsCopyInAFolderCan) {
  LoadStrip({"a.bmp"});
  OpenFamily({"x.bmp"});
  for (const char* camera : {"C:\\Strip", "C:\\Strip\\"}) {
    strip.CameraLocation = camera;
    SelectInStrip(1);
    person.ExpectBox("Can't edit in Camera", InCamera);
    Edit();
    EXPECT_EQ(run.platform.dialogs.Boxes().back().Icon, BoxIcon::Exclamation);
    EXPECT_TRUE(Opened().empty());
    EXPECT_FALSE(main.preview.bPicEdited);
  }
  SelectInView(1);
  Edit();
  ASSERT_EQ(Opened().size(), 1U);
  EXPECT_EQ(Opened()[0].Target, InFamily("x.bmp"));
}

TEST_F(EditSelectedPhotoTest, ASaveShowsInPaneAndThumbnailUntilTheNextClick) {
  LoadStrip({"a.bmp", "b.bmp"});
  SelectInStrip(1);
  Edit();
  drive.Write(Photo("a.bmp"), BmpOf(PlainBitmap(320, 240, 0x000000FF)));
  run.Wait(1.1);
  EXPECT_EQ(main.preview.PicPreviewSize.Caption(), " W320 x H240   a.bmp ");
  EXPECT_EQ(Middle(main.preview.PicPreview.GetPicture()), 0x000000FFU);
  EXPECT_EQ(Middle(strip.SrcThumbnail(1).GetPicture()), 0x000000FFU);
  person.Click(main.preview.PicPreview);
  drive.Write(Photo("a.bmp"), BmpOf(PlainBitmap(160, 120, 0x0000FF00)));
  run.Wait(2.2);
  EXPECT_EQ(Middle(main.preview.PicPreview.GetPicture()), 0x000000FFU);
}

TEST_F(EditSelectedPhotoTest, ASaveThatPutsANewFileInThePhotosPlaceShowsToo) {
  OpenFamily({"x.bmp", "y.bmp"});
  SelectInView(1);
  Edit();
  drive.Write(InFamily("x.bmp.new"), BmpOf(PlainBitmap(320, 240, 0x000000FF)));
  drive.DriveFiles().RenameOver(InFamily("x.bmp.new"), InFamily("x.bmp"));
  run.Wait(1.1);
  EXPECT_EQ(SelectedPath(), InFamily("x.bmp"));
  EXPECT_EQ(Middle(main.preview.PicPreview.GetPicture()), 0x000000FFU);
  EXPECT_EQ(Middle(desk.DestThumbnail(1).GetPicture()), 0x000000FFU);
}

TEST_F(EditSelectedPhotoTest, ASaveThatIsSeenHalfWayIsFollowedToItsEnd) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  Edit();
  drive.Write(Photo("a.bmp"), "");
  run.Wait(1.1);
  drive.Write(Photo("a.bmp"), "BM");
  run.Wait(1);
  drive.Write(Photo("a.bmp"), BmpOf(PlainBitmap(320, 240, 0x000000FF)));
  run.Wait(1);
  ASSERT_EQ(SelectedPath(), Photo("a.bmp"));
  EXPECT_EQ(Middle(main.preview.PicPreview.GetPicture()), 0x000000FFU);
  EXPECT_EQ(Middle(strip.SrcThumbnail(1).GetPicture()), 0x000000FFU);
}

TEST_F(EditSelectedPhotoTest, APhotoThatIsLeftBrokenOrDeletedIsGivenUp) {
  LoadStrip({"a.bmp"});
  for (const bool deleted : {false, true}) {
    MakePhoto(Photo("a.bmp"), 0x10);
    SelectInStrip(1);
    Edit();
    if (deleted) {
      drive.Remove(Photo("a.bmp"));
    } else {
      drive.Write(Photo("a.bmp"), "BM");
    }
    run.Wait(deleted ? 1.1 : 2.1);
    EXPECT_EQ(SelectedPath(), "");
    const int beeps = run.platform.dialogs.Beeps();
    run.Wait(5);
    EXPECT_EQ(run.platform.dialogs.Beeps(), beeps);
  }
}

TEST_F(EditSelectedPhotoTest, AnEditedPhotoThatWasDraggedKeepsItsMarkForTheNextStart) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  person.DoubleClick(strip.SrcBackground(1));
  Edit();
  drive.Write(Photo("a.bmp"), BmpOf(PlainBitmap(320, 240, 0x000000FF)));
  run.Wait(1.1);
  strip.SrcLoadedPath.clear();
  run.Wait(0.1);
  run.LoadAll();
  EXPECT_TRUE(IsMarked(strip, 1));
}

}  // namespace
}  // namespace pixorra
