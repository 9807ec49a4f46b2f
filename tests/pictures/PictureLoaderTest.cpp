// Picture files on their way to a control: formats, routes, the reduction that finds itself, and every way to fail.
#include <gtest/gtest.h>

#include "pictures/PictureLoader.h"
#include "pictures/Scratch.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

constexpr const char* Temporary = "C:\\Temp\\$temp.tmp";
constexpr const char* Photo = "C:\\Photos\\photo.jpg";
constexpr const char* CodecTitle = "Intel(R) JPEG Library";

class PictureLoaderTest : public ProgramTest {
 protected:
  bool Load(const std::string& path, bool fast) { return LoadPictureFile(main, path, *target, fast); }
  // The scale that a fast load of a photo this wide leaves behind.
  int ScaleAfter(int width, int scale) {
    drive.Write(Photo, JpegPhoto(width, 24));
    main.pictures.lDecodeScale = scale;
    EXPECT_TRUE(Load(Photo, true));
    return main.pictures.lDecodeScale;
  }

  ProgramRun& run = NewRun();
  MainForm& main = run.main;
  Scratch<ImageBox> target{main.pictures.TempImage};
};

// A file of a JPEG's beginning that no decoder gets a picture from.
std::string BrokenJpeg() {
  return JpegPhoto(40, 30).substr(0, 20);
}

// A JPEG whose header is whole and whose data is missing.
std::string HeaderOfJpeg() {
  const std::string jpeg = JpegPhoto(400, 300);
  return jpeg.substr(0, jpeg.find("\xFF\xDA") + 14);
}

TEST_F(PictureLoaderTest, FormatsAreToldByTheFirstTenBytes) {
  const auto formatOf = [&](const std::string& bytes) {
    drive.Write("C:\\some.file", bytes);
    return PictureFileFormat(run.files, "C:\\some.file");
  };
  EXPECT_EQ(formatOf("BM12345678"), 1);
  EXPECT_EQ(formatOf("GIF4567890"), 2);
  EXPECT_EQ(formatOf("123456JFIF"), 3);
  EXPECT_EQ(formatOf("123456Exif"), 3);
  EXPECT_EQ(formatOf("123456EXIF"), 0);
  EXPECT_EQ(formatOf("MB12345678"), 0);
  EXPECT_EQ(formatOf("gif4567890"), 0);
}

TEST_F(PictureLoaderTest, WhenSeveralTestsHoldTheLaterOneWins) {
  drive.Write("C:\\gif", "GIF456JFIF");
  drive.Write("C:\\bmp", "BM3456Exif");
  EXPECT_EQ(PictureFileFormat(run.files, "C:\\gif"), 3);
  EXPECT_EQ(PictureFileFormat(run.files, "C:\\bmp"), 3);
}

TEST_F(PictureLoaderTest, AFileThatIsTooShortOrMissingHasNoFormat) {
  drive.Write("C:\\short.bmp", "BM");
  drive.Write("C:\\empty.bmp", "");
  drive.MakeFolder("C:\\folder");
  EXPECT_EQ(PictureFileFormat(run.files, "C:\\short.bmp"), 0);
  EXPECT_EQ(PictureFileFormat(run.files, "C:\\empty.bmp"), 0);
  EXPECT_EQ(PictureFileFormat(run.files, "C:\\missing.bmp"), 0);
  EXPECT_EQ(PictureFileFormat(run.files, "C:\\folder"), 0);
  EXPECT_FALSE(drive.Exists("C:\\missing.bmp"));
}

TEST_F(PictureLoaderTest, AJpegWithNeitherNameIsNotRecognised) {
  drive.Write(Photo, JpegPhoto(40, 30, {.noName = true}));
  EXPECT_EQ(PictureFileFormat(run.files, Photo), 0);
  EXPECT_FALSE(Load(Photo, false));
}

TEST_F(PictureLoaderTest, TheDirectRouteShowsEachFormatAtItsOwnSize) {
  drive.Write("C:\\a.bmp", BmpPhoto(31, 21));
  drive.Write("C:\\b.gif", GifPhoto(32, 22));
  drive.Write("C:\\c.jpg", JpegPhoto(33, 23));
  EXPECT_TRUE(Load("C:\\a.bmp", false));
  EXPECT_EQ(target->Width(), 31);
  EXPECT_TRUE(Load("C:\\b.gif", false));
  EXPECT_EQ(target->Width(), 32);
  EXPECT_TRUE(Load("C:\\c.jpg", false));
  EXPECT_EQ(target->Width(), 33);
  EXPECT_EQ(target->Height(), 23);
  EXPECT_FALSE(drive.Exists(Temporary));
}

TEST_F(PictureLoaderTest, APictureBoxIsATargetToo) {
  drive.Write("C:\\a.bmp", BmpPhoto(31, 21));
  const Scratch<PictureBox> box(main.pictures.TempPic);
  EXPECT_TRUE(LoadPictureFile(main, "C:\\a.bmp", *box, false));
  EXPECT_EQ(box->GetPicture().Width(), 31);
}

TEST_F(PictureLoaderTest, TheFirstFastCallsOfALargePhotoSettleAtEight) {
  drive.Write(Photo, JpegPhoto(2048, 64));
  EXPECT_EQ(main.pictures.lDecodeScale, 4);
  EXPECT_TRUE(Load(Photo, true));
  EXPECT_EQ(target->Width(), 512);
  EXPECT_EQ(main.pictures.lDecodeScale, 8);
  EXPECT_TRUE(Load(Photo, true));
  EXPECT_EQ(target->Width(), 256);
  EXPECT_EQ(main.pictures.lDecodeScale, 8);
}

TEST_F(PictureLoaderTest, AScaleOfZeroIsReplacedByFour) {
  drive.Write(Photo, JpegPhoto(160, 120));
  main.pictures.lDecodeScale = 0;
  EXPECT_TRUE(Load(Photo, true));
  EXPECT_EQ(target->Width(), 40);
  EXPECT_EQ(main.pictures.lDecodeScale, 4);
}

TEST_F(PictureLoaderTest, ADecodedWidthOf40KeepsTheScaleAnd30HalvesIt) {
  EXPECT_EQ(ScaleAfter(160, 4), 4);
  EXPECT_EQ(ScaleAfter(120, 4), 2);
}

TEST_F(PictureLoaderTest, DecodedWidthsOf35And85ChangeNothingAnd86Doubles) {
  EXPECT_EQ(ScaleAfter(4 * 35, 4), 4);
  EXPECT_EQ(ScaleAfter(4 * 34, 4), 2);
  EXPECT_EQ(ScaleAfter(4 * 85, 4), 4);
  EXPECT_EQ(ScaleAfter(4 * 86, 4), 8);
}

TEST_F(PictureLoaderTest, TheScaleNeverLeavesOneToEight) {
  EXPECT_EQ(ScaleAfter(20, 2), 1);
  EXPECT_EQ(ScaleAfter(20, 1), 1);
  EXPECT_EQ(ScaleAfter(1600, 8), 8);
}

TEST_F(PictureLoaderTest, ATextFileNamedAsAJpegIsRefusedAndStaysAsItIs) {
  drive.Write("C:\\good.bmp", BmpPhoto(31, 21));
  ASSERT_TRUE(Load("C:\\good.bmp", false));
  const Picture before = target->GetPicture();
  drive.Write(Photo, "Dear Anna, this is no photo.");
  EXPECT_FALSE(Load(Photo, true));
  EXPECT_FALSE(Load(Photo, false));
  EXPECT_EQ(drive.Read(Photo), "Dear Anna, this is no photo.");
  EXPECT_TRUE(target->GetPicture() == before);
  EXPECT_FALSE(main.pictures.bLoaderBusy);
  EXPECT_TRUE(run.platform.dialogs.Boxes().empty());
}

TEST_F(PictureLoaderTest, ABitmapTakesTheDirectRouteEvenWhenAskedForTheFastOne) {
  drive.Write("C:\\a.bmp", BmpPhoto(1000, 21));
  EXPECT_TRUE(Load("C:\\a.bmp", true));
  EXPECT_EQ(target->Width(), 1000);
  EXPECT_FALSE(drive.Exists(Temporary));
  EXPECT_EQ(main.pictures.lDecodeScale, 4);
  EXPECT_EQ(main.pictures.gLoaderDib, nullptr);
}

TEST_F(PictureLoaderTest, TheFastRouteLeavesItsTemporaryFileAndTheNextOneReplacesIt) {
  drive.Write(Temporary, std::string(100000, 'x'));
  drive.Write(Photo, JpegPhoto(160, 120));
  EXPECT_TRUE(Load(Photo, true));
  ASSERT_TRUE(drive.Exists(Temporary));
  const std::string first = drive.Read(Temporary);
  EXPECT_EQ(first.substr(6, 4), "JFIF");
  EXPECT_LT(first.size(), 10000U);
  EXPECT_EQ(main.pictures.gLoaderDib->dib_width(), 40);
}

TEST_F(PictureLoaderTest, AJpegThatCannotBeReadIsToldByTheCodecAndLeavesNoTemporaryFile) {
  drive.Write(Temporary, JpegPhoto(40, 30));
  drive.Write(Photo, BrokenJpeg());
  run.person.ExpectBox(CodecTitle, "");
  EXPECT_FALSE(Load(Photo, true));
  EXPECT_TRUE(target->GetPicture().IsNothing());
  EXPECT_FALSE(drive.Exists(Temporary));
  EXPECT_EQ(main.pictures.lDecodeScale, 4);
  EXPECT_FALSE(main.pictures.bLoaderBusy);
}

TEST_F(PictureLoaderTest, AJpegWhosePixelsCannotBeReadIsNotShownBlank) {
  drive.Write(Photo, HeaderOfJpeg());
  run.person.ExpectBox(CodecTitle, "FAILED TO READ IMAGE DATA - ");
  EXPECT_FALSE(Load(Photo, true));
  EXPECT_TRUE(target->GetPicture().IsNothing());
  EXPECT_FALSE(drive.Exists(Temporary));
}

TEST_F(PictureLoaderTest, ARecognisedFileThatCannotBeLoadedFailsInSilence) {
  drive.Write("C:\\a.bmp", "BM and nothing of a bitmap behind it");
  EXPECT_FALSE(Load("C:\\a.bmp", false));
  EXPECT_TRUE(target->GetPicture().IsNothing());
  EXPECT_TRUE(run.platform.dialogs.Boxes().empty());
}

TEST_F(PictureLoaderTest, OutOfMemoryIsToldAndLeavesNoPicture) {
  drive.Write("C:\\a.bmp", BmpPhoto(31, 21));
  ASSERT_TRUE(Load("C:\\a.bmp", false));
  run.files.FailNth(FileCall::Read, 2, error::OutOfMemory, "a.bmp");
  run.person.ExpectBox("Pixorra - Out of Memory", "", BoxAnswer::Ok, [&] { EXPECT_TRUE(main.pictures.bLoaderBusy); });
  EXPECT_FALSE(Load("C:\\a.bmp", false));
  ASSERT_EQ(run.platform.dialogs.Boxes().size(), 1U);
  const HeadlessDialogs::Box& box = run.platform.dialogs.Boxes()[0];
  EXPECT_EQ(box.Text,
            "The System Graphic Resources are running low.\r\n"
            "The selected photo CANNOT be displayed at this time.\r\n\r\n"
            "Try closing unnecessary programs to free-up memory.");
  EXPECT_EQ(box.Icon, BoxIcon::Critical);
  EXPECT_TRUE(target->GetPicture().IsNothing());
  EXPECT_FALSE(main.pictures.bLoaderBusy);
}

TEST_F(PictureLoaderTest, ATemporaryFileThatCannotBeWrittenChangesNothingThatIsSeen) {
  drive.Write(Photo, JpegPhoto(160, 120));
  run.files.FailNth(FileCall::OpenToWrite, 1, error::DiskFull, "$temp.tmp");
  EXPECT_TRUE(Load(Photo, true));
  EXPECT_EQ(target->Width(), 40);
  run.files.FailNth(FileCall::Write, 1, error::OutOfMemory, "$temp.tmp");
  EXPECT_TRUE(Load(Photo, true));
  EXPECT_TRUE(run.platform.dialogs.Boxes().empty());
}

TEST_F(PictureLoaderTest, ATemporaryFileThatAnotherWritesMeanwhileIsNotShown) {
  drive.Write(Photo, JpegPhoto(160, 120));
  run.files.BeforeNth(
      FileCall::OpenToRead, 1, [&] { drive.Write(Temporary, JpegPhoto(50, 50)); }, "$temp.tmp");
  EXPECT_TRUE(Load(Photo, true));
  EXPECT_EQ(target->Width(), 40);
  // Nor is one that could neither be deleted nor written.
  drive.Write(Temporary, JpegPhoto(50, 50));
  run.files.FailAlways(FileCall::Delete, error::PathAccess, "$temp.tmp");
  run.files.FailAlways(FileCall::OpenToWrite, error::PathAccess, "$temp.tmp");
  EXPECT_TRUE(Load(Photo, true));
  EXPECT_EQ(target->Width(), 40);
}

TEST_F(PictureLoaderTest, APhotoReplacedInMidLoadIsShownAsItWasWhenItWasOpened) {
  drive.Write(Photo, JpegPhoto(160, 120));
  run.files.BeforeNth(
      FileCall::Delete, 1,
      [&] {
        drive.Remove(Photo);
        drive.Write(Photo, JpegPhoto(200, 120));
      },
      "$temp.tmp");
  EXPECT_TRUE(Load(Photo, true));
  EXPECT_EQ(target->Width(), 40);
}

TEST_F(PictureLoaderTest, ACallInsideACallFailsWithoutTouchingTargetOrTemporaryFile) {
  drive.Write("C:\\good.jpg", JpegPhoto(160, 120));
  drive.Write("C:\\good.bmp", BmpPhoto(31, 21));
  const Scratch<ImageBox> other(main.pictures.TempImage);
  ASSERT_TRUE(LoadPictureFile(main, "C:\\good.bmp", *other, false));
  const Picture before = other->GetPicture();
  drive.Write(Photo, BrokenJpeg());
  bool inner = true;
  run.person.ExpectBox(CodecTitle, "", BoxAnswer::Ok,
                       [&] { inner = LoadPictureFile(main, "C:\\good.jpg", *other, true); });
  EXPECT_FALSE(Load(Photo, true));
  EXPECT_FALSE(inner);
  EXPECT_TRUE(other->GetPicture() == before);
  EXPECT_FALSE(drive.Exists(Temporary));
  EXPECT_TRUE(Load("C:\\good.jpg", true));
}

TEST_F(PictureLoaderTest, ATargetThatGoesWhileAMessageIsUpIsLeftAlone) {
  drive.Write(Photo, BrokenJpeg());
  main.pictures.TempImage.Load(7);
  run.person.ExpectBox(CodecTitle, "", BoxAnswer::Ok, [&] { main.pictures.TempImage.Unload(7); });
  EXPECT_FALSE(LoadPictureFile(main, Photo, main.pictures.TempImage(7), true));
}

}  // namespace
}  // namespace pixorra
