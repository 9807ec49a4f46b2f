// The thumbnail cache of a camera that is a drive of its own.
#include <gtest/gtest.h>

#include "pictures/QuickThumbs.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

class CameraCacheTest : public ProgramTest {};

// A root keeps its backslash where it stands by itself, and a camera's memory is never written to.
TEST_F(CameraCacheTest, CameraThatIsARootKeepsItsCacheInTheProgramsFolder) {
  ProgramRun& run = Started();
  drive.Write("C:\\photo.jpg", "bytes");
  run.main.strip.CameraLocation = "C:\\";
  ImageBox& target = run.main.desk.DestFolderPreview(1);
  bool bDragged = false;
  EXPECT_FALSE(QuickThumbsOf(run.main).ReadQuickThumb("C:\\photo.jpg", target, bDragged));
  EXPECT_TRUE(drive.Exists("C:\\Program\\CameraThumbs.tmp"));
  EXPECT_FALSE(drive.Exists("C:\\Thumbnails.tmp"));
  QuickThumbsOf(run.main).DeleteQuickThumbs(run.main.strip.CameraLocation);
  EXPECT_FALSE(drive.Exists("C:\\Program\\CameraThumbs.tmp"));
}

}  // namespace
}  // namespace pixorra
