// A card that is taken out, and what is put in its place.
#include <gtest/gtest.h>

#include "platform/services/Volumes.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"

namespace pixorra {
namespace {

class StripMediumTest : public ProgramTest {
 protected:
  static PlaceOfVolume CardOf(const std::string& identity) {
    return {"Card", VolumeKind::Removable, "C:\\Card\\", identity};
  }
  static PlaceOfVolume System() { return {"File System", VolumeKind::FileSystem, "C:\\"}; }
  // Shows a strip of the card's photos, wide ones.
  ProgramRun& Loaded(const std::string& identity) {
    for (const char* name : {"1.jpg", "2.jpg"}) drive.Write(std::string("C:\\Card\\DCIM\\") + name, JpegPhoto(80, 40));
    ProgramRun& run = Started();
    run.platform.volumes.Set({System(), CardOf(identity)});
    run.main.strip.NoFilmStrip = false;
    run.main.strip.SrcFileList.SetPath("C:\\Card\\DCIM");
    run.LoadAll();
    run.Wait(1.5);
    first_ = &run.main.strip.SrcThumbnail(1).GetPicture().Pixels();
    return run;
  }
  bool LoadedAnew(ProgramRun& run) {
    run.Wait(3);
    run.LoadAll();
    return &run.main.strip.SrcThumbnail(1).GetPicture().Pixels() != first_;
  }

  const void* first_ = nullptr;
};

TEST_F(StripMediumTest, AnotherCardInTheSamePlaceIsLoadedAnew) {
  ProgramRun& run = Loaded("one");
  drive.Remove("C:\\Card\\DCIM\\2.jpg");
  run.platform.volumes.Set({System(), CardOf("two")});
  EXPECT_TRUE(LoadedAnew(run));
  EXPECT_EQ(run.main.strip.SrcSlotCount, 1);
}

TEST_F(StripMediumTest, ACardThatHasBeenAwayIsLoadedAnewThoughItCannotBeTold) {
  ProgramRun& run = Loaded("");
  run.platform.volumes.Set({System()});
  EXPECT_FALSE(LoadedAnew(run));
  EXPECT_EQ(run.main.strip.SrcSlotCount, 2);
  run.platform.volumes.Set({System(), CardOf("")});
  EXPECT_TRUE(LoadedAnew(run));
}

TEST_F(StripMediumTest, AnotherVolumeThatComesChangesNothing) {
  ProgramRun& run = Loaded("one");
  run.platform.volumes.Set({System(), CardOf("one"), {"Stick", VolumeKind::Removable, "C:\\Stick\\", "three"}});
  EXPECT_FALSE(LoadedAnew(run));
}

}  // namespace
}  // namespace pixorra
