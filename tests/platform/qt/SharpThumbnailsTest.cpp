// Thumbnails on a high-density screen.
#include <deque>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/codecs/ThreadedTwins.h"
#include "platform/codecs/TwinDecoder.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/PictureBox.h"
#include "platform/pixels/DotScreen.h"
#include "platform/pixels/Stretch.h"
#include "platform/posix/PosixFiles.h"
#include "platform/qt/Convert.h"
#include "platform/qt/QtPosting.h"
#include "platform/qt/SharpThumbnails.h"
#include "tests/platform/qt/QtTest.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

// Notes what it is asked for, and what is not wanted any more before it is there.
class NotedTwins final : public ThumbnailTwins {
 public:
  explicit NotedTwins(ThumbnailTwins& twins) : twins_(twins) {}

  std::unique_ptr<Making> Make(const std::string& photo, const Picture& thumbnail, PixelSize size,
                               Handler handler) override {
    asked.push_back(photo);
    // What is held back is asked for and never comes.
    if (holdsBack) return std::make_unique<NotedMaking>(*this, photo, nullptr);
    return std::make_unique<NotedMaking>(*this, photo, twins_.Make(photo, thumbnail, size, std::move(handler)));
  }

  std::vector<std::string> asked;
  std::set<std::string> cancelled;
  bool holdsBack = false;

 private:
  class NotedMaking final : public Making {
   public:
    NotedMaking(NotedTwins& twins, std::string photo, std::unique_ptr<Making> making)
        : twins_(twins), photo_(std::move(photo)), making_(std::move(making)) {}
    ~NotedMaking() override {
      if (making_ == nullptr) twins_.cancelled.insert(photo_);
    }
    NotedMaking(const NotedMaking&) = delete;
    NotedMaking& operator=(const NotedMaking&) = delete;

   private:
    NotedTwins& twins_;
    std::string photo_;
    std::unique_ptr<Making> making_;
  };

  ThumbnailTwins& twins_;
};

class SharpThumbnailsTest : public QtTest {
 protected:
  SharpThumbnailsTest() {
    form.SetClientSize(400, 100);
    backend.Sharp().MakeBy(&noted);
  }
  ~SharpThumbnailsTest() override { backend.Sharp().MakeBy(nullptr); }

  // Fine stripes, another colour for each photo.
  static Bitmap Pixels(int number) {
    Bitmap pixels = PlainBitmap(800, 600, 0x00208040U + static_cast<Colour>(number) * 0x00100804U);
    for (int y = 0; y < pixels.Height(); ++y) {
      for (int x = 0; x < pixels.Width(); x += 10) std::fill_n(pixels.Row(y) + 3 * x, 15, std::uint8_t{0});
    }
    return pixels;
  }
  static std::string PathOf(int number) { return "C:\\" + std::to_string(number) + ".jpg"; }
  // Writes the photo too.
  Picture ThumbnailOf(int number, PixelSize size = {80, 60}) {
    const Bitmap pixels = Pixels(number);
    drive.Write(PathOf(number), JpegOf(pixels, {.quality = 95}));
    Bitmap thumbnail(size.Width, size.Height, PixelFormat::Bgr24);
    Stretch(pixels, thumbnail, 0, 0, size.Width, size.Height);
    return Picture(std::move(thumbnail));
  }
  ImageBox& Add(Container& container, int number, int left, const Picture& thumbnail) {
    ImageBox& box = boxes.emplace_back(container, "Thumbnail" + std::to_string(number));
    box.SetStretch(true);
    box.SetShowsPhotoOfTag(true);
    box.Move(left, 10, thumbnail.Width(), thumbnail.Height());
    box.SetPicture(thumbnail);
    box.SetTag(PathOf(number));
    return box;
  }
  ImageBox& Add(int number, int left) { return Add(form, number, left, ThumbnailOf(number)); }

  // What the twin of a photo must look like.
  QImage TwinOf(int number, const Picture& thumbnail) {
    const std::atomic<bool> stop = false;
    const Bitmap twin = DecodeTwin(*drive.DriveFiles().Open(PathOf(number), OpenMode::Read), thumbnail.Pixels(),
                                   {thumbnail.Width() * Fineness, thumbnail.Height() * Fineness}, stop);
    return SharedImage(twin).convertToFormat(QImage::Format_RGB32);
  }
  QImage ShotOf(const ImageBox& box) {
    return Shot(form).copy(
        QRect(box.Left() * Fineness, box.Top() * Fineness, box.Width() * Fineness, box.Height() * Fineness));
  }
  // Until all that is on the screen has its twin.
  void WaitForTwins(std::size_t count) {
    const bool came = toolkit.WaitUntil([&] {
      ClientOf(form).grab();
      return noted.asked.size() >= count && backend.Sharp().InMaking() == 0;
    });
    EXPECT_TRUE(came);
    Settle();
  }

  TemporaryDrive drive;
  QtPosting posting{backend};
  ThreadedTwins twins{std::make_shared<PosixFiles>(PathMapping({{'C', drive.HostRoot(), "File System"}})), posting,
                      [](const std::string& path) { return path; }};
  NotedTwins noted{twins};
  Form form{toolkit, "ThumbnailsForm"};
  std::deque<ImageBox> boxes;
};

TEST_F(SharpThumbnailsTest, AThumbnailIsShownWithTheScreensPixels) {
  OnAFineScreen([this] {
    ImageBox& box = Add(1, 20);
    const QImage twin = TwinOf(1, box.GetPicture());
    ASSERT_EQ(twin.size(), QSize(160, 120));
    form.Show();
    EXPECT_NE(ShotOf(box), twin) << "not before its twin has been made";
    WaitForTwins(1);
    EXPECT_EQ(ShotOf(box), twin);
    EXPECT_EQ(box.GetPicture().Width(), 80) << "the program's own picture stays as it is";
  });
}

TEST_F(SharpThumbnailsTest, AScreenWithoutMorePixelsCostsNothing) {
  Add(1, 20);
  form.Show();
  Shot(form);
  for (int i = 0; i < 5; ++i) toolkit.WaitFor(0.02);
  EXPECT_TRUE(noted.asked.empty());
  EXPECT_EQ(backend.Sharp().Count(), 0U);
}

TEST_F(SharpThumbnailsTest, OnlyTheThumbnailIsRepaintedWhenItsTwinComes) {
  OnAFineScreen([this] {
    const ImageBox& box = Add(1, 20);
    form.Show();
    Shot(form);
    PaintCounter paints(ClientOf(form));
    EXPECT_TRUE(toolkit.WaitUntil([&] { return paints.Count > 0; }));
    EXPECT_EQ(paints.Last, QRect(box.Left(), box.Top(), box.Width(), box.Height()));
  });
}

TEST_F(SharpThumbnailsTest, ShadingIsKept) {
  OnAFineScreen([this] {
    ImageBox& box = Add(1, 20);
    form.Show();
    WaitForTwins(1);
    Bitmap shaded = box.GetPicture().Pixels().Clone();
    DotScreen(shaded);
    box.SetPicture(Picture(std::move(shaded)));
    WaitForTwins(2);
    const QImage shot = ShotOf(box);
    EXPECT_EQ(shot, TwinOf(1, box.GetPicture()));
    EXPECT_EQ(shot.pixelColor(1, 3), Qt::black);
    EXPECT_NE(shot.pixelColor(3, 3), Qt::black);
  });
}

TEST_F(SharpThumbnailsTest, AChangedPhotoGetsAnotherTwinAndAStaleThumbnailKeepsToItself) {
  OnAFineScreen([this] {
    ImageBox& box = Add(1, 20);
    form.Show();
    WaitForTwins(1);
    const QImage before = ShotOf(box);
    // The thumbnail is painted anew when the program has seen the change.
    const Picture stale = box.GetPicture();
    drive.Write(PathOf(1), JpegOf(Pixels(9), {.quality = 95}));
    Bitmap again = stale.Pixels().Clone();
    box.SetPicture(Picture(std::move(again)));
    WaitForTwins(2);
    EXPECT_NE(ShotOf(box), before) << "it has no twin any more";
    Bitmap changed(80, 60, PixelFormat::Bgr24);
    Stretch(Pixels(9), changed, 0, 0, 80, 60);
    box.SetPicture(Picture(std::move(changed)));
    WaitForTwins(3);
    EXPECT_EQ(ShotOf(box), TwinOf(1, box.GetPicture()));
  });
}

TEST_F(SharpThumbnailsTest, OnlyWhatIsOnTheScreenIsAskedForAndWhatLeavesItIsNotWantedAnyMore) {
  OnAFineScreen([this] {
    noted.holdsBack = true;
    PictureBox window(form, "Window");
    window.Move(0, 0, 400, 90);
    PictureBox canvas(window, "Canvas");
    canvas.Move(0, 0, 4000, 90);
    const Picture thumbnail = ThumbnailOf(0);
    for (int i = 0; i < 40; ++i) Add(canvas, i, 100 * i, Picture(thumbnail.Pixels().Clone()));
    form.Show();
    const auto numbers = [](int first, int last) {
      std::set<std::string> paths;
      for (int i = first; i <= last; ++i) paths.insert(PathOf(i));
      return paths;
    };
    const auto asked = [&] { return std::set(noted.asked.begin(), noted.asked.end()); };
    Shot(form);
    EXPECT_TRUE(toolkit.WaitUntil([&] { return !noted.asked.empty(); }));
    EXPECT_EQ(asked(), numbers(0, 3));
    EXPECT_EQ(noted.asked.front(), PathOf(0)) << "from the left";
    // Two pages on, past the second without a pause.
    canvas.SetLeft(-400);
    canvas.SetLeft(-800);
    Shot(form);
    EXPECT_TRUE(toolkit.WaitUntil([&] { return noted.asked.size() > 4; }));
    EXPECT_EQ(asked(), [&] {
      std::set<std::string> both = numbers(0, 3);
      both.merge(numbers(8, 11));
      return both;
    }());
    EXPECT_EQ(noted.cancelled, numbers(0, 3));
    canvas.SetVisible(false);
    boxes.clear();
  });
}

TEST_F(SharpThumbnailsTest, APageToEitherSideIsKept) {
  OnAFineScreen([this] {
    form.SetClientSize(200, 90);
    PictureBox canvas(form, "Canvas");
    canvas.Move(0, 0, 2000, 90);
    for (int i = 0; i < 10; ++i) Add(canvas, i, 100 * i, ThumbnailOf(i));
    form.Show();
    std::size_t count = 0;
    for (const int left : {0, -200, -400}) {
      canvas.SetLeft(left);
      WaitForTwins(count += 2);
    }
    EXPECT_EQ(backend.Sharp().Count(), 6U);
    // Back and forth between them nothing is made again.
    for (const int left : {-200, 0, -200, -400}) {
      canvas.SetLeft(left);
      Shot(form);
      toolkit.WaitFor(0.1);
    }
    EXPECT_EQ(noted.asked.size(), 6U);
    canvas.SetLeft(-600);
    WaitForTwins(8);
    EXPECT_EQ(backend.Sharp().Count(), 6U) << "the first page has gone";
    canvas.SetVisible(false);
    boxes.clear();
  });
}

TEST_F(SharpThumbnailsTest, TwinsTakeNoMoreMemoryThanTheyMay) {
  OnAFineScreen([this] {
    // Of 12 million bytes each: five are within bounds.
    const PixelSize large{1000, 1000};
    noted.holdsBack = true;
    form.SetClientSize(400, 100);
    const Picture thumbnail = ThumbnailOf(1, large);
    for (int i = 0; i < 8; ++i) Add(form, i, 40 * i, Picture(thumbnail.Pixels().Clone()));
    form.Show();
    Shot(form);
    EXPECT_TRUE(toolkit.WaitUntil([&] { return !noted.asked.empty(); }));
    EXPECT_EQ(noted.asked.size(), 5U);
    EXPECT_LE(backend.Sharp().Bytes(), SharpThumbnails::MostBytes);
  });
}

TEST_F(SharpThumbnailsTest, TheirBytesAreThoseOfWhatIsMadeOrShown) {
  OnAFineScreen([this] {
    constexpr std::int64_t One = std::int64_t{160} * 120 * 3;
    const SharpThumbnails& sharp = backend.Sharp();
    form.SetClientSize(200, 90);
    PictureBox canvas(form, "Canvas");
    canvas.Move(0, 0, 2000, 90);
    for (int i = 0; i < 10; ++i) Add(canvas, i, 100 * i, ThumbnailOf(i));
    drive.Remove(PathOf(1));
    form.Show();
    WaitForTwins(2);
    EXPECT_EQ(sharp.Bytes(), One) << "one of the two has none";
    canvas.SetLeft(-200);
    WaitForTwins(4);
    canvas.SetLeft(-400);
    WaitForTwins(6);
    EXPECT_EQ(sharp.Bytes(), 5 * One);
    canvas.SetLeft(-600);
    WaitForTwins(8);
    EXPECT_EQ(sharp.Bytes(), 6 * One) << "the first page has gone";
    noted.holdsBack = true;
    canvas.SetLeft(-800);
    Shot(form);
    EXPECT_TRUE(toolkit.WaitUntil([&] { return noted.asked.size() == 10; }));
    EXPECT_EQ(sharp.Bytes(), 6 * One) << "the second page has gone, and two are being made";
    canvas.SetLeft(-600);
    Shot(form);
    EXPECT_TRUE(toolkit.WaitUntil([&] { return sharp.InMaking() == 0; }));
    EXPECT_EQ(sharp.Bytes(), 4 * One);
    backend.Sharp().MakeBy(nullptr);
    EXPECT_EQ(sharp.Bytes(), 0);
    canvas.SetVisible(false);
    boxes.clear();
  });
}

TEST_F(SharpThumbnailsTest, WhatHasNoTwinIsNotAskedForAgain) {
  OnAFineScreen([this] {
    ImageBox& box = Add(1, 20);
    drive.Remove(PathOf(1));
    form.Show();
    WaitForTwins(1);
    for (int i = 0; i < 3; ++i) {
      Shot(form);
      toolkit.WaitFor(0.1);
    }
    EXPECT_EQ(noted.asked.size(), 1U);
    // It has been renamed.
    drive.Write(PathOf(2), JpegOf(Pixels(1), {.quality = 95}));
    box.SetTag(PathOf(2));
    WaitForTwins(2);
    EXPECT_EQ(ShotOf(box), TwinOf(2, box.GetPicture()));
  });
}

}  // namespace
}  // namespace pixorra
