// Drops into a folder of a camera or phone.
#include <gtest/gtest.h>

#include "tests/drop/DropTest.h"

namespace pixorra {
namespace {

class DeviceFoldersTest : public DropTest {
 protected:
  DeviceFoldersTest() {
    run.platform.volumes.Set({{"File System", VolumeKind::FileSystem, "C:\\"},
                              {"Phone", VolumeKind::Camera, "C:\\Home\\Phone"},
                              {"Stick", VolumeKind::Removable, "C:\\Home\\Stick"}});
    LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  }
  void ExpectWarning() {
    run.person.ExpectBox("Pixorra - Folder on a Camera or Phone",
                         "C:\\Home\\Phone\\DCIM\n\nThis folder is on a camera or phone, which does not say\nwhether a "
                         "photo has really been stored. Keep the photos\nof the film strip until you have looked at "
                         "the copies.");
  }
};

TEST_F(DeviceFoldersTest, APersonIsToldOnceThatADeviceDoesNotConfirmCopies) {
  const int slot = Show("Phone\\DCIM");
  ExpectWarning();
  DropOnFolder(main, slot, strip.SrcThumbnail(1));
  DropOnFolder(main, slot, strip.SrcThumbnail(2));
  EXPECT_TRUE(Has("Phone\\DCIM", "a.bmp"));
  EXPECT_TRUE(Has("Phone\\DCIM", "b.bmp"));
}

TEST_F(DeviceFoldersTest, ARunOfTheWholeStripIsToldOnceAndGoesOn) {
  const int slot = Show("Phone\\DCIM");
  ExpectWarning();
  DropOnFolder(main, slot, strip.AllButton);
  EXPECT_EQ(CountOf(slot), "3 pics");
}

TEST_F(DeviceFoldersTest, OfOtherFoldersNothingIsSaid) {
  DropOnFolder(main, Show("Stick\\Photos"), strip.SrcThumbnail(1));
  DropOnFolder(main, Show("Phones"), strip.SrcThumbnail(2));
  EXPECT_TRUE(Has("Stick\\Photos", "a.bmp"));
  EXPECT_TRUE(Has("Phones", "b.bmp"));
}

}  // namespace
}  // namespace pixorra
