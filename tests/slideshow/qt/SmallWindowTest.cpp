// What a screen saver says in the small windows of previews, with the letters of the desktop.
#include <cmath>
#include <gtest/gtest.h>
#include <string>

#include "platform/codecs/CodecPictures.h"
#include "platform/headless/HeadlessFolderReader.h"
#include "platform/headless/HeadlessFrames.h"
#include "platform/headless/HeadlessPlatform.h"
#include "platform/headless/HeadlessSession.h"
#include "platform/qt/QtText.h"
#include "slideshow/Companion.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

// Screens of any size, with real letters.
class PreviewBackend : public HeadlessBackend {
 public:
  using HeadlessBackend::HeadlessBackend;
  TextDrawing& Text() override { return text_; }

 private:
  QtText text_;
};

TEST(SmallWindowTest, AllWordsFitThePreviewWhateverItsSize) {
  TemporaryDrive drive;
  Failures failures;
  HeadlessClock clock;
  Script script{failures};
  PreviewBackend backend{clock, script, failures};
  Toolkit toolkit{backend};
  backend.Attach(toolkit);
  CodecPictures pictures{drive.DriveFiles()};
  HeadlessFolderReader reader{drive.DriveFiles(), backend};
  HeadlessFrames frames{drive.DriveFiles(), pictures, backend};
  HeadlessSettings settings;
  HeadlessSession session;
  for (int width = 150; width <= 400; width += 5) {
    for (const int height : {width / 2, width * 150 / 260, width * 3 / 4}) {
      SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
      backend.SetScreen(width, height);
      Companion companion({toolkit, drive.DriveFiles(), reader, frames, settings, session},
                          {.What = Request::Wish::Saver});
      companion.Start();
      for (const Label* label : {&companion.NoticeLabel, &companion.AdviceLabel}) {
        const TextExtent words = backend.Text().Measure(label->GetFont(), label->Caption());
        EXPECT_LE(std::ceil(words.Width), label->Width());
        EXPECT_LE(std::ceil(words.Height), label->Height());
        EXPECT_GE(label->Top(), 0);
        EXPECT_LE(label->Bounds().Bottom(), height);
      }
      EXPECT_GE(companion.NoticeLabel.GetFont().Size, 2) << "and can be read, as far as that goes";
    }
  }
}

}  // namespace
}  // namespace pixorra
