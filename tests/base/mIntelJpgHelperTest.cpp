// The bridge between surfaces and JPEG files, with the real codec and with one that fails on demand.
#include <algorithm>
#include <climits>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <vector>

#include "base/mIntelJPGLib.h"
#include "base/mIntelJpgHelper.h"
#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/JpegStatus.h"
#include "platform/codecs/TurboJpegCodec.h"
#include "platform/runtime/Errors.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

// Keeps the boxes that came up; answers OK.
class KeptBoxes : public Dialogs {
 public:
  struct Box {
    std::string text;
    BoxIcon icon;
    BoxButtons buttons;
    std::string title;
  };
  BoxAnswer MsgBox(const std::string& text, BoxIcon icon, BoxButtons buttons, const std::string& title) override {
    boxes.push_back({text, icon, buttons, title});
    if (whileUp) whileUp();
    return BoxAnswer::Ok;
  }
  std::string InputBox(const std::string&, const std::string&, const std::string&) override { return {}; }
  std::optional<Colour> ChooseColour(Colour) override { return {}; }
  void Beep() override {}

  std::vector<Box> boxes;
  std::function<void()> whileUp;
};

// The real codec, with every call counted and any of them failing when asked to.
class WatchedCodec : public JpegCodec {
 public:
  explicit WatchedCodec(JpegCodec& real) : real_(real) {}
  int ijlInit(JPEG_CORE_PROPERTIES& record) override {
    if (initStatus != ijl::Ok) return initStatus;
    ++open;
    return real_.ijlInit(record);
  }
  int ijlFree(JPEG_CORE_PROPERTIES& record) override {
    --open;
    return real_.ijlFree(record);
  }
  int ijlRead(JPEG_CORE_PROPERTIES& record, int mode) override {
    modes.push_back(mode);
    const int status = mode == failingMode ? -77 : real_.ijlRead(record, mode);
    if (tellsFourChannels) record.JPGChannels = 4;
    records.push_back(record);
    return status;
  }
  int ijlWrite(JPEG_CORE_PROPERTIES& record, int mode) override {
    modes.push_back(mode);
    records.push_back(record);
    return mode == failingMode ? -77 : real_.ijlWrite(record, mode);
  }
  std::string ijlErrorStr(int status) override { return status == -77 ? "made to fail" : real_.ijlErrorStr(status); }

  int initStatus = ijl::Ok;
  int failingMode = -1;
  bool tellsFourChannels = false;  // in every header, as codecs do that leave inks as they are
  int open = 0;
  std::vector<int> modes;
  std::vector<JPEG_CORE_PROPERTIES> records;  // as each call left them

 private:
  JpegCodec& real_;
};

class JpegBridgeTest : public ::testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(codec.open, 0) << "ijlFree once for each ijlInit"; }

  std::string Photo(int width, int height, const JpegFile& file = {}) {
    drive.Write("C:\\photo.jpg", JpegPhoto(width, height, file));
    return "C:\\photo.jpg";
  }
  void ExpectOneBox(const std::string& text) {
    ASSERT_EQ(boxes.boxes.size(), 1U);
    EXPECT_EQ(boxes.boxes[0].text, text);
    EXPECT_EQ(boxes.boxes[0].icon, BoxIcon::Exclamation);
    EXPECT_EQ(boxes.boxes[0].buttons, BoxButtons::Ok);
    EXPECT_EQ(boxes.boxes[0].title, "Intel(R) JPEG Library");
  }
  bool IsBlank() const {
    const std::uint8_t* bits = surface.DIBSectionBitsPtr();
    return std::all_of(bits, bits + surface.Info().bmiHeader.biSizeImage, [](auto b) { return b == 0; });
  }

  TemporaryDrive drive;
  FaultyFiles files{drive.DriveFiles()};
  TurboJpegCodec real{files};
  WatchedCodec codec{real};
  KeptBoxes boxes;
  JpegBridge bridge{codec, files, boxes};
  cDIBsection surface;
};

TEST_F(JpegBridgeTest, A641By481PhotoAtScale2Gives321By241AndAtScale8Gives81By61) {
  const std::string photo = Photo(641, 481);
  ASSERT_TRUE(LoadJPG(bridge, surface, photo, 2));
  EXPECT_EQ(surface.dib_width(), 321);
  EXPECT_EQ(surface.dib_height(), 241);
  ASSERT_TRUE(LoadJPG(bridge, surface, photo, 8));
  EXPECT_EQ(surface.dib_width(), 81);
  EXPECT_EQ(surface.dib_height(), 61);
  ASSERT_TRUE(LoadJPG(bridge, surface, photo, 4));
  EXPECT_EQ(surface.dib_width(), 161);
  EXPECT_EQ(surface.dib_height(), 121);
  ASSERT_TRUE(LoadJPG(bridge, surface, photo, 1));
  EXPECT_EQ(surface.dib_width(), 641);
  EXPECT_EQ(surface.dib_height(), 481);
  EXPECT_EQ(codec.modes, (std::vector<int>{1, 15, 1, 19, 1, 17, 1, 3}));
}

TEST_F(JpegBridgeTest, TheSurfaceShowsThePhotoTheRightWayUp) {
  const Bitmap photo = SmoothBitmap(30, 20);
  drive.Write("C:\\photo.jpg", JpegOf(photo, {.quality = 100, .fullColour = true}));
  using Load = bool (*)(JpegBridge&, cDIBsection&, const std::string&, int);
  for (const Load load : {Load{LoadJPG}, Load{LoadJPGFromFile}}) {
    ASSERT_TRUE(load(bridge, surface, "C:\\photo.jpg", 1));
    for (int y = 0; y < 20; ++y) {
      const std::uint8_t* row = surface.DIBSectionBitsPtr() + (19 - y) * surface.BytesPerScanLine();
      for (int i = 0; i < 90; ++i) ASSERT_NEAR(row[i], photo.Row(y)[i], 4);
    }
  }
}

TEST_F(JpegBridgeTest, AGreyPhotoGivesA3ChannelSurface) {
  ASSERT_TRUE(LoadJPG(bridge, surface, Photo(20, 20, {.channels = 1}), 1));
  EXPECT_EQ(surface.dib_channels(), 3);
  const JPEG_CORE_PROPERTIES& record = codec.records.back();
  EXPECT_EQ(record.JPGColor, ijl::Grey);
  EXPECT_EQ(record.DIBColor, ijl::Bgr);
  EXPECT_EQ(record.DIBChannels, 3);
}

TEST_F(JpegBridgeTest, TheMemoryRouteDescribesThePaddedBottomUpSurface) {
  ASSERT_TRUE(LoadJPG(bridge, surface, Photo(33, 21), 2));
  const JPEG_CORE_PROPERTIES& record = codec.records.back();
  EXPECT_EQ(record.DIBWidth, 17);
  EXPECT_EQ(record.DIBHeight, -11);
  EXPECT_EQ(record.DIBPadBytes, 1);
  EXPECT_EQ(record.DIBBytes, surface.DIBSectionBitsPtr());
  EXPECT_EQ(record.JPGColor, ijl::YCbCr);
  EXPECT_NE(record.JPGBytes, nullptr);
  EXPECT_EQ(record.JPGSizeBytes, files.Length("C:\\photo.jpg"));
  EXPECT_EQ(record.JPGFile, "");
}

TEST_F(JpegBridgeTest, AnEmptyFileIsASilentFalse) {
  drive.Write("C:\\empty.jpg", "");
  EXPECT_FALSE(LoadJPG(bridge, surface, "C:\\empty.jpg", 4));
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_TRUE(codec.modes.empty());
}

TEST_F(JpegBridgeTest, AFileThatCannotBeOpenedOrReadIsASilentFalse) {
  EXPECT_FALSE(LoadJPG(bridge, surface, "C:\\missing.jpg", 4));
  const std::string photo = Photo(20, 20);
  files.FailNth(FileCall::Read, 1, error::DeviceIO);
  EXPECT_FALSE(LoadJPG(bridge, surface, photo, 4));
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_TRUE(LoadJPG(bridge, surface, photo, 4));
}

TEST_F(JpegBridgeTest, APhotoOfInksIsLoadedAsThreeChannels) {
  EXPECT_TRUE(LoadJPG(bridge, surface, Photo(20, 10, {.channels = 4}), 1));
  EXPECT_EQ(codec.records.back().JPGChannels, 3);
  EXPECT_EQ(surface.dib_channels(), 3);
  EXPECT_FALSE(IsBlank());
}

TEST_F(JpegBridgeTest, AHeaderOf4ChannelsIsDescribedWith3ByTheMemoryRouteAndTheCodecsStatusDecides) {
  codec.tellsFourChannels = true;
  codec.failingMode = ijl::BufferReadWhole;
  EXPECT_FALSE(LoadJPG(bridge, surface, Photo(20, 10, {.channels = 4}), 1));
  const JPEG_CORE_PROPERTIES& record = codec.records.back();
  EXPECT_EQ(record.JPGChannels, 4);
  EXPECT_EQ(record.DIBChannels, 3);
  EXPECT_EQ(record.DIBPadBytes, 20);
  EXPECT_EQ(record.DIBColor, ijl::RgbaFpx);
  EXPECT_EQ(surface.dib_channels(), 4);
  EXPECT_TRUE(IsBlank());
  ExpectOneBox("IJL ERROR: [-77] - made to fail - FAILED TO READ IMAGE DATA - ");
}

TEST_F(JpegBridgeTest, AHeaderOf4ChannelsIsDescribedTrulyByTheFileRoute) {
  codec.tellsFourChannels = true;
  EXPECT_TRUE(LoadJPGFromFile(bridge, surface, Photo(21, 10, {.channels = 4}), 1));
  const JPEG_CORE_PROPERTIES& record = codec.records.back();
  EXPECT_EQ(record.DIBChannels, 4);
  EXPECT_EQ(record.DIBPadBytes, 0);
  EXPECT_EQ(record.JPGFile, "C:\\photo.jpg");
  EXPECT_EQ(record.JPGBytes, nullptr);
  EXPECT_EQ(codec.modes, (std::vector<int>{0, 2}));
  EXPECT_FALSE(IsBlank());
}

TEST_F(JpegBridgeTest, Scale3ReachesNoReadAndReturnsTrueWithABlankSurfaceOfUnreducedSize) {
  const std::string photo = Photo(41, 31);
  for (const int scale : {3, 0, -1, 16}) {
    codec.modes.clear();
    ASSERT_TRUE(LoadJPG(bridge, surface, photo, scale));
    EXPECT_EQ(surface.dib_width(), 41);
    EXPECT_EQ(surface.dib_height(), 31);
    EXPECT_TRUE(IsBlank());
    EXPECT_EQ(codec.modes, (std::vector<int>{1}));
  }
}

TEST_F(JpegBridgeTest, TheFileRouteUsesItsOwnModesAndFailureText) {
  const std::string photo = Photo(40, 40);
  for (const int scale : {1, 2, 4, 8}) ASSERT_TRUE(LoadJPGFromFile(bridge, surface, photo, scale));
  EXPECT_EQ(codec.modes, (std::vector<int>{0, 2, 0, 14, 0, 16, 0, 18}));
  codec.failingMode = ijl::FileReadHalf;
  EXPECT_FALSE(LoadJPGFromFile(bridge, surface, photo, 2));
  ExpectOneBox("IJL ERROR: [-77] - made to fail - FAILED TO READ IMAGE DATA (C:\\photo.jpg)");
}

TEST_F(JpegBridgeTest, ACodecThatDoesNotStartIsToldAndNotFreed) {
  codec.initStatus = -77;
  EXPECT_FALSE(LoadJPG(bridge, surface, Photo(8, 8), 1));
  ExpectOneBox("IJL ERROR: [-77] - made to fail - Failed to initialise the IJL library: ");
  boxes.boxes.clear();
  EXPECT_FALSE(SaveJPG(bridge, surface, "C:\\out.jpg", 75));
  ExpectOneBox("IJL ERROR: [-77] - made to fail - Failed to initialise the IJL library");
}

TEST_F(JpegBridgeTest, AHeaderThatCannotBeReadIsTold) {
  ASSERT_TRUE(surface.Create(5, 5, 3));
  drive.Write("C:\\text.jpg", "this is a text, named as a photo");
  EXPECT_FALSE(LoadJPG(bridge, surface, "C:\\text.jpg", 4));
  ExpectOneBox("IJL ERROR: [" + std::to_string(jpeg::BadData) + "] - " + JpegStatusText(jpeg::BadData) +
               " - FAILED TO READ IMAGE PARAMS - ");
  EXPECT_EQ(surface.dib_width(), 5);  // not touched
  EXPECT_EQ(drive.Read("C:\\text.jpg"), "this is a text, named as a photo");
}

TEST_F(JpegBridgeTest, PixelsThatCannotBeReadAreTold) {
  codec.failingMode = ijl::BufferReadQuarter;
  EXPECT_FALSE(LoadJPG(bridge, surface, Photo(40, 40), 4));
  ExpectOneBox("IJL ERROR: [-77] - made to fail - FAILED TO READ IMAGE DATA - ");
}

// A header that claims any size.
class BoastfulCodec : public WatchedCodec {
 public:
  using WatchedCodec::WatchedCodec;
  int ijlRead(JPEG_CORE_PROPERTIES& record, int) override {
    record.JPGWidth = width;
    record.JPGHeight = height;
    return ijl::Ok;
  }
  int width = 0;
  int height = 0;
};

TEST_F(JpegBridgeTest, ASurfaceThatCannotBeMadeIsASilentFalse) {
  BoastfulCodec boastful(real);
  JpegBridge boasting{boastful, files, boxes};
  const std::string photo = Photo(8, 8);
  EXPECT_FALSE(LoadJPG(boasting, surface, photo, 1));  // 0 by 0
  boastful.width = boastful.height = 30000;
  EXPECT_FALSE(LoadJPG(boasting, surface, photo, 1));  // leaves 32 bits
  EXPECT_EQ(ErrorsIgnored([&] { LoadJPGFromFile(boasting, surface, photo, 1); }), error::Overflow);
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_EQ(boastful.open, 0);
}

TEST_F(JpegBridgeTest, ALoadInsideAMessageBoxDisturbsNothing) {
  drive.Write("C:\\text.jpg", std::string(5000, 't'));
  const std::string photo = Photo(64, 48);
  cDIBsection inner;
  boxes.whileUp = [&] { EXPECT_TRUE(LoadJPG(bridge, inner, photo, 1)); };
  EXPECT_FALSE(LoadJPG(bridge, surface, "C:\\text.jpg", 1));
  EXPECT_EQ(inner.dib_width(), 64);
  EXPECT_TRUE(LoadJPG(bridge, surface, photo, 1));
}

TEST_F(JpegBridgeTest, TheBlockOfALargeFileIsGivenBack) {
  ASSERT_TRUE(LoadJPG(bridge, surface, Photo(20, 10), 1));
  EXPECT_NE(bridge.spare.Data(), nullptr);
  const std::string large = Photo(20, 10);
  std::filesystem::resize_file(drive.HostPath(large), std::uintmax_t{64} * 1024 * 1024 + 1);
  ASSERT_TRUE(LoadJPG(bridge, surface, large, 1));
  EXPECT_EQ(bridge.spare.Data(), nullptr);
}

TEST_F(JpegBridgeTest, EncodeJPGGivesTheBytesThatSaveJPGWrites) {
  ASSERT_TRUE(LoadJPG(bridge, surface, Photo(40, 30), 1));
  ASSERT_TRUE(SaveJPG(bridge, surface, "C:\\out.jpg", 75));
  std::vector<std::uint8_t> jpeg;
  ASSERT_TRUE(EncodeJPG(bridge, surface, 75, jpeg));
  EXPECT_EQ(std::string(jpeg.begin(), jpeg.end()), drive.Read("C:\\out.jpg"));
  cDIBsection none;
  EXPECT_FALSE(EncodeJPG(bridge, none, 75, jpeg));
}

TEST_F(JpegBridgeTest, SaveJPGWritesWhatLoadJPGReads) {
  const Bitmap photo = SmoothBitmap(50, 40);
  surface.CreateFromPicture(Picture(photo.Clone()));
  ASSERT_TRUE(SaveJPG(bridge, surface, "C:\\out.jpg", 90));
  const JPEG_CORE_PROPERTIES& record = codec.records.back();
  EXPECT_EQ(record.DIBWidth, 50);
  EXPECT_EQ(record.DIBHeight, -40);
  EXPECT_EQ(record.DIBPadBytes, 2);
  EXPECT_EQ(record.DIBChannels, 3);
  EXPECT_EQ(record.JPGChannels, 3);
  EXPECT_EQ(record.DIBColor, ijl::Bgr);
  EXPECT_EQ(record.JPGColor, ijl::YCbCr);
  EXPECT_EQ(record.JPGSubsampling, 1);
  EXPECT_EQ(record.JPGWidth, 50);
  EXPECT_EQ(record.JPGHeight, 40);
  EXPECT_EQ(record.jquality, 90);
  cDIBsection again;
  ASSERT_TRUE(LoadJPG(bridge, again, "C:\\out.jpg", 1));
  for (int i = 0; i < 150; ++i) {
    EXPECT_NEAR(again.DIBSectionBitsPtr()[i], photo.Row(39)[i], 16);
  }
}

TEST_F(JpegBridgeTest, ASurfaceThatIsNotOf3ChannelsIsDescribedAsFour) {
  ASSERT_TRUE(surface.Create(8, 8, 4));
  EXPECT_FALSE(SaveJPG(bridge, surface, "C:\\out.jpg", 75));
  const JPEG_CORE_PROPERTIES& record = codec.records.back();
  EXPECT_EQ(record.DIBColor, ijl::RgbaFpx);
  EXPECT_EQ(record.JPGColor, ijl::YCbCrAFpx);
  EXPECT_EQ(record.JPGSubsampling, 3);
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_FALSE(drive.Exists("C:\\out.jpg"));
}

TEST_F(JpegBridgeTest, AFailedWriteIsFalseWithoutAWord) {
  ASSERT_TRUE(surface.Create(8, 8, 3));
  EXPECT_FALSE(SaveJPG(bridge, surface, "C:\\no\\such\\out.jpg", 75));
  codec.failingMode = ijl::FileWriteWhole;
  EXPECT_FALSE(SaveJPG(bridge, surface, "C:\\out.jpg", 75));
  surface.CleanUp();
  codec.failingMode = -1;
  EXPECT_FALSE(SaveJPG(bridge, surface, "C:\\out.jpg", 75));  // no surface at all
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_FALSE(drive.Exists("C:\\out.jpg"));
}

TEST_F(JpegBridgeTest, SavePictureAsJPGStoresThePicture) {
  ASSERT_TRUE(SavePictureAsJPG(bridge, Picture(SmoothBitmap(31, 17)), "C:\\Clipboard.jpg", 90));
  const Picture picture = CodecPictures(files).Load("C:\\Clipboard.jpg");
  EXPECT_EQ(picture.Width(), 31);
  EXPECT_EQ(picture.Height(), 17);
  EXPECT_FALSE(SavePictureAsJPG(bridge, Picture(), "C:\\none.jpg", 90));
  EXPECT_FALSE(drive.Exists("C:\\none.jpg"));
}

TEST(DibPadBytesTest, FillsTheRowToAMultipleOf4) {
  EXPECT_EQ(DibPadBytes(1, 3), 1);
  EXPECT_EQ(DibPadBytes(2, 3), 2);
  EXPECT_EQ(DibPadBytes(3, 3), 3);
  EXPECT_EQ(DibPadBytes(4, 3), 0);
  EXPECT_EQ(DibPadBytes(5, 4), 0);
  EXPECT_EQ(DibPadBytes(7, 0), 0);
}

TEST(DibPadBytesTest, EachStepThatLeaves32BitsIsError6) {
  EXPECT_EQ(ErrorsIgnored([] { DibPadBytes(INT_MAX, 2); }), error::Overflow);
  EXPECT_EQ(ErrorsIgnored([] { DibPadBytes(INT_MAX, 1); }), error::Overflow);  // the sum
  EXPECT_EQ(ErrorsIgnored([] { DibPadBytes(INT_MAX - 3, 1); }), error::None);
}

TEST(TextFromPointerTest, IsEmptyForNoAddress) {
  EXPECT_EQ(TextFromPointer(nullptr), "");
  EXPECT_EQ(TextFromPointer("text\0behind"), "text");
}

}  // namespace
}  // namespace pixorra
