#include "pictures/PictureLoader.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "base/Routines.h"
#include "base/mIntelJpgHelper.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Pictures.h"
#include "platform/services/Places.h"
#include "window/MainForm.h"
#include "window/PicturesState.h"

namespace pixorra {

namespace {

constexpr int Unrecognised = 0;
constexpr int BitmapFile = 1;
constexpr int GifFile = 2;
constexpr int JpegFile = 3;

constexpr int SmallestScale = 1;
constexpr int FirstScale = 4;
constexpr int LargestScale = 8;
// Decoded widths that are near enough to a thumbnail's.
constexpr int LeastWidth = 35;
constexpr int MostWidth = 85;
constexpr int TemporaryQuality = 75;

// Runs steps one by one with errors ignored, and keeps the number of the last one that failed.
class Steps {
 public:
  template <typename Step>
  void Run(Step&& step) {
    const int failed = ErrorsIgnored(std::forward<Step>(step));
    if (failed != error::None) number_ = failed;
  }
  void Clear() { number_ = error::None; }
  int Number() const { return number_; }

 private:
  int number_ = error::None;
};

// Raises BadPropertyValue for a control that shows no picture.
void SetPictureOf(Control& target, const Picture& picture) {
  if (target.GetKind() == Kind::ImageBox) {
    static_cast<ImageBox&>(target).SetPicture(picture);
  } else if (target.GetKind() == Kind::PictureBox) {
    static_cast<PictureBox&>(target).SetPicture(picture);
  } else {
    throw RuntimeError(error::BadPropertyValue);
  }
}

// The reduction for the next photo, so that it is decoded about as wide as a thumbnail.
void AdjustScale(PicturesState& pictures, int decodedWidth) {
  if (decodedWidth == 0) return;
  if (decodedWidth < LeastWidth) {
    if (pictures.lDecodeScale > SmallestScale) pictures.lDecodeScale /= 2;
  } else if (decodedWidth > MostWidth) {
    if (pictures.lDecodeScale < LargestScale) pictures.lDecodeScale *= 2;
  }
}

// By way of a small JPEG file, decoded at a reduced size. The file is written and goes on in memory: what is shown is
// never another photo's, and does not depend on the disk. Messages on the way let events run, and the target may go.
void LoadReduced(MainForm& main, File& file, const Watch<Control>& target, Steps& steps) {
  PicturesState& pictures = main.pictures;
  Host& host = main.host;
  const std::string temporary = StripTrailingBackslash(host.places.TemporaryFolder()) + "\\$temp.tmp";
  steps.Run([&] { host.files.Delete(temporary); });
  steps.Clear();  // one that is missing counts for nothing
  pictures.gLoaderDib = std::make_unique<cDIBsection>();
  bool decoded = false;
  steps.Run([&] { decoded = LoadJPG(pictures.jpegBridge, *pictures.gLoaderDib, file, pictures.lDecodeScale); });
  // A photo that could not be decoded to its end must not be taken for a whole one.
  std::vector<std::uint8_t> small;
  if (decoded) steps.Run([&] { EncodeJPG(pictures.jpegBridge, *pictures.gLoaderDib, TemporaryQuality, small); });
  if (!small.empty())
    ErrorsIgnored([&] { host.files.Open(temporary, OpenMode::Replace)->WriteAt(0, small.data(), small.size()); });
  steps.Run([&] {
    const Picture reduced = host.pictures.FromBytes(small);
    if (target) SetPictureOf(*target.Get(), reduced);
  });
  AdjustScale(pictures, pictures.gLoaderDib->dib_width());
}

// How a picture is loaded, and what is told of it.
struct LoadRequest {
  bool FastJpeg = false;
  const Pictures::PaintedSizes* Sizes = nullptr;  // null: the whole picture is wanted
  FileStamp* Decoded = nullptr;
  bool* Told = nullptr;
};

void TellOutOfMemory(MainForm& main) {
  main.host.dialogs.MsgBox(
      "The System Graphic Resources are running low.\r\n"
      "The selected photo CANNOT be displayed at this time.\r\n"
      "\r\n"
      "Try closing unnecessary programs to free-up memory.",
      BoxIcon::Critical, BoxButtons::Ok, "Pixorra - Out of Memory");
}

bool Load(MainForm& main, const std::string& path, Control& target, const LoadRequest& request) {
  PicturesState& pictures = main.pictures;
  if (pictures.bLoaderBusy) return false;
  pictures.bLoaderBusy = true;
  const AtExit done([&pictures] { pictures.bLoaderBusy = false; });
  if (pictures.lDecodeScale == 0) pictures.lDecodeScale = FirstScale;
  // One open file for all of it, so that a photo put in its place meanwhile is not mixed up with it.
  std::unique_ptr<File> file;
  ErrorsIgnored([&] {
    file = main.host.files.Open(path, OpenMode::Read);
    if (request.Decoded != nullptr) *request.Decoded = file->Stamp();
  });
  const int format = file != nullptr ? PictureFileFormat(*file) : Unrecognised;
  if (format == Unrecognised) return false;

  const Watch<Control> alive(target);
  Steps steps;
  steps.Run([&] { SetPictureOf(target, Picture()); });
  if (request.FastJpeg && format == JpegFile) {
    LoadReduced(main, *file, alive, steps);
  } else {
    steps.Run([&] {
      Pictures& service = main.host.pictures;
      SetPictureOf(target, request.Sizes != nullptr ? service.LoadToPaint(*file, *request.Sizes) : service.Load(*file));
    });
  }
  if (steps.Number() == error::OutOfMemory) {
    TellOutOfMemory(main);
    if (request.Told != nullptr) *request.Told = true;
  }
  if (!alive) return false;
  target.Refresh();
  return steps.Number() == error::None;
}

}  // namespace

int PictureFileFormat(Files& files, const std::string& path) {
  int format = Unrecognised;
  ErrorsIgnored([&] { format = PictureFileFormat(*files.Open(path, OpenMode::Read)); });
  return format;
}

int PictureFileFormat(File& file) {
  std::array<char, 10> start{};
  std::size_t count = 0;
  ErrorsIgnored([&] { count = file.ReadAt(0, start.data(), start.size()); });
  if (count < start.size()) return Unrecognised;
  const std::string_view bytes(start.data(), start.size());
  const std::string_view name = bytes.substr(6);
  if (name == "JFIF" || name == "Exif") return JpegFile;
  if (bytes.starts_with("GIF")) return GifFile;
  if (bytes.starts_with("BM")) return BitmapFile;
  return Unrecognised;
}

bool LoadPictureFile(MainForm& main, const std::string& path, Control& target, bool bFastJpeg, FileStamp* decoded,
                     bool* told) {
  if (told != nullptr) *told = false;
  return Load(main, path, target, {.FastJpeg = bFastJpeg, .Decoded = decoded, .Told = told});
}

bool LoadPictureToPaint(MainForm& main, const std::string& path, Control& target, const Pictures::PaintedSizes& sizes,
                        FileStamp* decoded) {
  return Load(main, path, target, {.Sizes = &sizes, .Decoded = decoded});
}

}  // namespace pixorra
