// Small files whose headers claim 30,000 by 30,000 pixels, and kinds of JPEG that no thumbnail is made of: they come up
// as invalid pictures by either route, and no memory of the claimed size is asked for.
#include <fstream>
#include <gtest/gtest.h>

#include "pictures/PaintPhoto.h"
#include "pictures/PictureLoader.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/FilmStripState.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

// The most address space that this process ever had, in KiB.
long MostAddressSpace() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    long peak = 0;
    if (word == "VmPeak:" && status >> peak) return peak;
  }
  return -1;
}

void Put(std::string& bytes, std::size_t at, std::size_t count, std::uint32_t value) {
  for (std::size_t i = 0; i < count; ++i) bytes.at(at + i) = static_cast<char>(value >> (8 * i));
}

std::string WithBmpSize(std::string bmp, std::uint32_t size) {
  Put(bmp, 18, 4, size);
  Put(bmp, 22, 4, size);
  return bmp;
}

// 8 bits, packed in runs: a header without runs to speak of.
std::string PackedBmp(std::uint32_t size) {
  std::string bmp = BmpPhoto(8, 8);
  Put(bmp, 10, 4, 54 + 1024);
  Put(bmp, 28, 2, 8);
  Put(bmp, 30, 4, 1);
  bmp.insert(54, std::string(1024, '\x40'));
  return WithBmpSize(bmp, size);
}

// The screen's size, and that of the image on it.
std::string WithGifSize(std::string gif, std::uint32_t size) {
  const std::size_t image = gif.find(',', 13 + 768);
  for (const std::size_t at : {std::size_t{6}, std::size_t{8}, image + 5, image + 7}) Put(gif, at, 2, size);
  return gif;
}

class BoastfulPicturesTest : public ProgramTest {
 protected:
  BoastfulPicturesTest() { thumbnail_.Move(0, 0, 80, 60); }

  // Messages of the codec may come up; nothing else.
  void ExpectInvalid(const std::string& name, const std::string& bytes) {
    SCOPED_TRACE(name);
    run.platform.failures.OnFailure = [](const std::string& text) {
      EXPECT_TRUE(text.starts_with("unexpected box \"Intel(R) JPEG Library\"")) << text;
    };
    const std::string path = "C:\\Photos\\" + name;
    drive.Write(path, bytes);
    EXPECT_NE(PictureFileFormat(run.files, path), 0);
    EXPECT_FALSE(LoadPictureFile(main, path, direct_, false));
    EXPECT_TRUE(direct_.GetPicture().IsNothing());
    EXPECT_FALSE(LoadPictureFile(main, path, fast_, true));
    EXPECT_TRUE(fast_.GetPicture().IsNothing());
    bool bDragged = true;
    PaintThumbnail(main, thumbnail_, path, bDragged);
    EXPECT_TRUE(thumbnail_.GetPicture() == main.pictures.InvalidPicture);
    EXPECT_EQ(drive.Read(path), bytes);
    run.platform.failures.OnFailure = [](const std::string& text) { ADD_FAILURE() << text; };
  }

  ProgramRun& run = Started();
  MainForm& main = run.main;

 private:
  ImageBox& direct_ = main.strip.SrcThumbnail.Load(1);
  ImageBox& fast_ = main.strip.SrcThumbnail.Load(2);
  ImageBox& thumbnail_ = main.strip.SrcThumbnail.Load(3);
};

TEST_F(BoastfulPicturesTest, NoMemoryOfTheClaimedSizeIsAskedFor) {
  const long before = MostAddressSpace();
  ASSERT_GT(before, 0);
  ExpectInvalid("plain.jpg", WithJpegSize(JpegPhoto(16, 16), 30000, 30000));
  ExpectInvalid("grey.jpg", WithJpegSize(JpegPhoto(16, 16, {.channels = 1}), 30000, 30000));
  const std::string named("\xFF\xE0\0\x10JFIF\0\1\1\0\0\1\0\1\0\0", 18);  // inks are written without
  ExpectInvalid("inks.jpg", WithJpegSize(JpegPhoto(16, 16, {.channels = 4}).insert(2, named), 30000, 30000));
  ExpectInvalid("progressive.jpg", WithJpegSize(JpegPhoto(16, 16, {.progressive = true}), 30000, 30000));
  ExpectInvalid("plain.bmp", WithBmpSize(BmpPhoto(16, 16), 30000));
  ExpectInvalid("topdown.bmp", [] {
    std::string bmp = WithBmpSize(BmpPhoto(16, 16), 30000);
    Put(bmp, 22, 4, static_cast<std::uint32_t>(-30000));
    return bmp;
  }());
  ExpectInvalid("packed.bmp", PackedBmp(30000));
  ExpectInvalid("plain.gif", WithGifSize(GifPhoto(16, 16), 30000));
  ExpectInvalid("interlaced.gif", WithGifSize(GifPhoto(16, 16, {.transparent = 1, .interlaced = true}), 30000));
  // 30,000 by 30,000 pixels are 2.5 GiB, of one byte each still 860 MiB.
  EXPECT_LT(MostAddressSpace() - before, 100 * 1024);
}

TEST_F(BoastfulPicturesTest, AClaimThatTheBytesCouldBackShowsWhatThereIs) {
  drive.Write("C:\\Photos\\cut.bmp", BmpPhoto(160, 120).substr(0, 30000));
  ImageBox& target = main.strip.SrcThumbnail.Load(4);
  EXPECT_TRUE(LoadPictureFile(main, "C:\\Photos\\cut.bmp", target, true));
  EXPECT_EQ(target.GetPicture().Width(), 160);
}

}  // namespace
}  // namespace pixorra
