// The slide show on a fresh drive with real photos, without windows.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/codecs/CodecPictures.h"
#include "platform/headless/HeadlessFolderReader.h"
#include "platform/headless/HeadlessFrames.h"
#include "platform/headless/HeadlessSession.h"
#include "slideshow/Companion.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/HeadlessTest.h"

namespace pixorra {

class CompanionTest : public HeadlessTest {
 protected:
  static constexpr int Width = 64;
  static constexpr int Height = 48;

  CompanionTest() { platform.backend.SetScreen(Width, Height); }

  // A photo of the screen's shape, all of one colour.
  void AddPhoto(const std::string& name, Colour colour) {
    drive.Write("C:\\Photos\\" + name, BmpOf(PlainBitmap(Width, Height, colour)));
  }
  Companion& Begin(const Request& request) {
    companion = std::make_unique<Companion>(
        CompanionHost{toolkit, drive.DriveFiles(), reader, frames, platform.settings, session}, request);
    companion->Start();
    Settle();
    return *companion;
  }
  Companion& BeginShow(int seconds = 3, bool title = true) {
    return Begin({.What = Request::Wish::Show, .Folder = "C:\\Photos", .Seconds = seconds, .Title = title});
  }
  // Answers that are on their way come, and what they set off.
  void Settle() {
    for (int turn = 0; turn < 10; ++turn) person.Wait(0);
  }
  void Wait(double seconds) {
    person.Wait(seconds);
    Settle();
  }
  // The colour in the middle of what is seen; of two that are seen at once, the upper one.
  Colour SeenColour() const {
    const Picture& upper = companion->Photo.Upper();
    if (!companion->Photo.Visible() || upper.IsNothing()) return 0;
    const std::uint8_t* pixel = upper.Pixels().Row(Height / 2) + std::ptrdiff_t{4} * (Width / 2);
    return static_cast<Colour>(pixel[2] | pixel[1] << 8 | pixel[0] << 16);
  }
  std::string Notice() const { return companion->NoticeLabel.Visible() ? companion->NoticeLabel.Caption() : ""; }
  bool HasEnded() const { return toolkit.Ended(); }

  TemporaryDrive drive;
  CodecPictures pictures{drive.DriveFiles()};
  HeadlessFolderReader reader{drive.DriveFiles(), platform.posting};
  HeadlessFrames frames{drive.DriveFiles(), pictures, platform.posting};
  HeadlessSession session;
  std::unique_ptr<Companion> companion;
};

}  // namespace pixorra
