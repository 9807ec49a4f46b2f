// Damaged, cut, empty and mislabelled picture files from the strip to a folder: each has its slot, is dropped like any
// other, and comes back marked; none is changed.
#include <functional>
#include <map>

#include "tests/drop/DropTest.h"
#include "window/FilmStripState.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

class BadPhotosTest : public DropTest {
 protected:
  // Only the codec may say a word, and only about those with a codec of their own.
  void LoadBadStrip(const std::map<std::string, std::string>& photos) {
    for (const auto& [name, bytes] : photos) drive.Write(Photo(name), bytes);
    run.platform.failures.OnFailure = [](const std::string& text) {
      EXPECT_TRUE(text.starts_with("unexpected box \"Intel(R) JPEG Library\"")) << text;
    };
    main.strip.NoFilmStrip = false;
    main.strip.SrcFileList.SetPath("C:\\Strip");
    run.Wait(0.04);
    run.LoadAll();
    ASSERT_EQ(strip.SrcSlotCount, static_cast<int>(photos.size()));
  }
  int SlotOf(const std::string& name) const {
    for (int i = 1; i <= strip.SrcSlotCount; ++i) {
      if (strip.SrcThumbnail(i).Tag() == Photo(name)) return i;
    }
    ADD_FAILURE() << "no slot of " << name;
    return 0;
  }
  bool IsInvalid(const std::string& name) const {
    return strip.SrcThumbnail(SlotOf(name)).GetPicture() == main.pictures.InvalidPicture;
  }
};

TEST_F(BadPhotosTest, DamagedAndCutOnesComeUpAndAreDroppedByteForByte) {
  std::string noise(5000, '\0');
  for (std::size_t i = 0; i < noise.size(); ++i) noise[i] = static_cast<char>(i * i * 7 + i / 3);
  const std::string jpeg = JpegPhoto(160, 120);
  const std::map<std::string, std::string> photos = {
      {"bmp.bmp", BmpPhoto(160, 120)},
      {"cut.bmp", BmpPhoto(160, 120).substr(0, 40)},
      {"cut.gif", GifPhoto(160, 120).substr(0, 20)},
      {"cut.jpg", jpeg.substr(0, 300)},
      {"damaged.jpg", jpeg.substr(0, 40) + noise},
      {"half.jpg", jpeg.substr(0, jpeg.size() / 2)},
      {"noise.bmp", "BM" + noise},
      {"noise.gif", "GIF89a" + noise},
      {"noise.jpg", noise},
      {"one.jpg", "\xFF"},
      {"text.jpg", "This is no photo, whatever its name says."},
  };
  LoadBadStrip(photos);
  for (const char* name : {"cut.bmp", "cut.gif", "cut.jpg", "damaged.jpg", "noise.jpg", "one.jpg", "text.jpg"}) {
    EXPECT_TRUE(IsInvalid(name)) << name;
  }
  EXPECT_FALSE(IsInvalid("bmp.bmp"));
  EXPECT_FALSE(IsInvalid("half.jpg")) << "what there is of it shows";

  Show("F");
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_EQ(CountOf(1), std::to_string(photos.size()) + " pics");
  for (const auto& [name, bytes] : photos) {
    EXPECT_TRUE(IsMarked(SlotOf(name))) << name;
    EXPECT_TRUE(BytesIn("F", name) == bytes) << name;
    EXPECT_TRUE(drive.Read(Photo(name)) == bytes) << name;
  }
  Select_a_Folder(main, 1);
  run.LoadAll();
  EXPECT_EQ(desk.DestSlotCount, static_cast<int>(photos.size()));
}

TEST_F(BadPhotosTest, AnEmptyOneComesUpInvalidAndTheRunGoesOnToTheNext) {
  LoadBadStrip({{"a.jpg", ""}, {"b.gif", ""}, {"c.bmp", BmpPhoto(80, 60)}});
  EXPECT_TRUE(IsInvalid("a.jpg"));
  EXPECT_TRUE(IsInvalid("b.gif"));
  Show("F");
  person.ExpectBox("Pixorra - Unable to Drop Photo", "");
  person.ExpectBox("Pixorra - Unable to Drop Photo", "");
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_FALSE(IsMarked(1));
  EXPECT_FALSE(IsMarked(2));
  EXPECT_TRUE(IsMarked(3));
  EXPECT_EQ(BytesIn("F", "c.bmp"), drive.Read(Photo("c.bmp")));
}

TEST_F(BadPhotosTest, TheContentCountsAndNotTheName) {
  LoadBadStrip({{"bmp.jpg", BmpPhoto(80, 60)},
                {"gif.bmp", GifPhoto(80, 60)},
                {"gif.jpeg", GifPhoto(80, 60)},
                {"jpg.bmp", JpegPhoto(80, 60)},
                {"jpg.gif", JpegPhoto(80, 60, {.exif = true})}});
  for (const char* name : {"bmp.jpg", "gif.bmp", "gif.jpeg", "jpg.bmp", "jpg.gif"})
    EXPECT_FALSE(IsInvalid(name)) << name;
}

}  // namespace
}  // namespace pixorra
