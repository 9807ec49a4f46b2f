// Drags under way: icons over targets, the press that selects, the reel.
#include <gmock/gmock.h>

#include "drop/DragGestures.h"
#include "tests/drop/DropTest.h"
#include "window/DropState.h"
#include "window/PreferencesForm.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

using DragGesturesTest = DropTest;

TEST_F(DragGesturesTest, APressSelectsThePhotoAndAClickShowsIt) {
  LoadStrip({"a.bmp", "b.bmp"});
  desk.DestThumbFrame.SetVisible(true);
  main.preview.bPicEdited = true;
  person.Press(strip.SrcThumbnail(2));
  EXPECT_TRUE(strip.SrcThumbFrame.Visible());
  EXPECT_FALSE(desk.DestThumbFrame.Visible());
  EXPECT_EQ(strip.SrcThumbFrame.Tag(), "2");
  EXPECT_EQ(strip.SrcThumbFrame.Left(), strip.SrcThumbnail(2).Left());
  EXPECT_TRUE(strip.SrcScrollbar.HasFocus());
  EXPECT_EQ(main.preview.PicPreview.Tag(), "");
  person.Release();
  EXPECT_EQ(main.preview.PicPreview.Tag(), Photo("b.bmp"));
  EXPECT_FALSE(main.preview.bPicEdited);
}

TEST_F(DragGesturesTest, TheReelsPointerTellsWhetherTheStripCanBeDragged) {
  person.MoveTo(strip.AllButton);
  EXPECT_TRUE(strip.AllButton.MouseIcon() == main.drop.NotReadyIcon);
  person.MoveTo(desk.DesktopImage);
  LoadStrip({"a.bmp", "b.bmp"});
  person.MoveTo(strip.AllButton);
  EXPECT_TRUE(strip.AllButton.MouseIcon() == strip.BrowseButton.MouseIcon());
  drive.Write(Photo("c.bmp"), "");
  strip.SrcFileList.Refresh();
  person.MoveTo(desk.DesktopImage);
  person.MoveTo(strip.AllButton);
  EXPECT_TRUE(strip.AllButton.MouseIcon() == main.drop.NotReadyIcon);
}

TEST_F(DragGesturesTest, WithAutoPreviewThePressShowsThePhotoAtOnce) {
  main.preferences.AutoPreviewCheckBox.SetValue(1);
  LoadStrip({"a.bmp"});
  person.Press(strip.SrcThumbnail(1));
  EXPECT_EQ(main.preview.PicPreview.Tag(), Photo("a.bmp"));
  person.Release();
}

TEST_F(DragGesturesTest, OverAFolderTheDropIconShowsAndBesideItTheOutline) {
  LoadStrip({"a.bmp"});
  Show("F");
  Control& thumbnail = strip.SrcThumbnail(1);
  person.Press(thumbnail);
  EXPECT_TRUE(thumbnail.DragIcon().IsNothing());
  person.MoveTo(desk.DestFolder(1));
  EXPECT_TRUE(thumbnail.DragIcon() == main.drop.DropIcon);
  person.MoveTo(desk.DesktopImage);
  EXPECT_TRUE(thumbnail.DragIcon().IsNothing());
  person.MoveTo(desk.DestFolder(9));
  EXPECT_TRUE(thumbnail.DragIcon() == main.drop.DropIcon);
  person.MoveTo(desk.DesktopImage);
  person.Release();
}

TEST_F(DragGesturesTest, TheOpenFoldersAreaShowsTheDropIconOnlyWhileAFolderIsOpen) {
  LoadStrip({"a.bmp"});
  Show("F");
  person.Press(strip.SrcThumbnail(1));
  person.MoveTo(desk.DestCanvas);
  EXPECT_TRUE(strip.SrcThumbnail(1).DragIcon().IsNothing());
  person.MoveTo(desk.DesktopImage);
  Select_a_Folder(main, 1);
  person.MoveTo(desk.DestCanvas);
  EXPECT_TRUE(strip.SrcThumbnail(1).DragIcon() == main.drop.DropIcon);
  person.MoveTo(desk.DesktopImage);
  person.Release();
}

TEST_F(DragGesturesTest, TheWholeStripIsDraggedAsAReelWithTheDropIconOverFolders) {
  LoadStrip({"a.bmp"});
  Show("F");
  person.Press(strip.AllButton);
  EXPECT_TRUE(strip.AllButton.DragIcon().IsNothing());
  person.MoveTo(desk.DesktopImage);
  EXPECT_TRUE(strip.AllButton.DragIcon() == main.drop.ReelDragIcon);
  person.MoveTo(desk.DestFolder(1));
  EXPECT_TRUE(strip.AllButton.DragIcon() == main.drop.DropIcon);
  person.MoveTo(desk.DesktopImage);
  EXPECT_TRUE(strip.AllButton.DragIcon() == main.drop.ReelDragIcon);
  person.Release();
  EXPECT_FALSE(Has("F", "a.bmp"));
}

TEST_F(DragGesturesTest, APhotoDraggedOverTheReelsButtonGetsNoReel) {
  LoadStrip({"a.bmp"});
  person.Press(strip.SrcThumbnail(1));
  person.MoveTo(strip.AllButton);
  person.MoveTo(desk.DesktopImage);
  EXPECT_TRUE(strip.SrcThumbnail(1).DragIcon().IsNothing());
  person.Release();
}

TEST_F(DragGesturesTest, AReelLetGoOverTheStripShowsNoPhotoWhenNoneIsSelected) {
  LoadStrip({"a.bmp"});
  person.Drag(strip.AllButton, strip.SrcThumbnail(1));
  EXPECT_EQ(main.preview.PicPreview.Tag(), "");
  EXPECT_EQ(run.platform.dialogs.Beeps(), 0);
}

}  // namespace
}  // namespace pixorra
