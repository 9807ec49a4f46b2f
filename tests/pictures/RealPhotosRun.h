// A program that shows real picture files by each road: directly, by the fast route, and as a thumbnail.
#pragma once

#include "tests/support/headless/ProgramTest.h"
#include "window/FilmStripState.h"

namespace pixorra {

class RealPhotosRun : public ProgramTest {
 protected:
  RealPhotosRun() {
    // Of broken ones the codec tells.
    run.platform.failures.OnFailure = [](const std::string& text) {
      EXPECT_TRUE(text.starts_with("unexpected box \"Intel(R) JPEG Library\"")) << text;
    };
    drive.MakeFolder("C:\\Program");
    thumbnail.SetStretch(true);
    thumbnail.Move(0, 0, 80, 60);
  }

  ProgramRun& run = NewRun();
  MainForm& main = run.main;
  ImageBox& direct = main.strip.SrcThumbnail.Load(1);
  ImageBox& fast = main.strip.SrcThumbnail.Load(2);
  ImageBox& thumbnail = main.strip.SrcThumbnail.Load(3);
};

}  // namespace pixorra
