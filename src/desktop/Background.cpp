#include "desktop/Background.h"

#include <functional>

#include "base/Routines.h"
#include "pictures/PictureLoader.h"
#include "pictures/Scratch.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"
#include "platform/services/Pictures.h"
#include "platform/services/Places.h"
#include "window/DesktopState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

constexpr int PlainSize = 100;  // pixels, of a picture of one colour

std::string InProgramFolder(MainForm& main, const std::string& name) {
  return JoinPath(main.host.places.ProgramFolder(), name);
}

std::string BackgroundFile(MainForm& main) {
  return InProgramFolder(main, "Background.pic");
}

// A new background until it is whole.
std::string PartFile(MainForm& main) {
  return InProgramFolder(main, "Background.pic.part");
}

std::string CloudFile(MainForm& main) {
  return InProgramFolder(main, "Clouds.jpg");
}

// False where it cannot be shown; the Desktop then stays as it is. The loader empties its target first.
bool Show(MainForm& main, const std::string& file) {
  ImageBox& image = main.desk.DesktopImage;
  const Picture before = image.GetPicture();
  const bool loaded = OrElse(false, [&] { return LoadPictureFile(main, file, image, false); });
  if (!loaded) image.SetPicture(before);
  return loaded;
}

void WriteCopy(Files& files, const std::string& source, const std::string& part) {
  const std::unique_ptr<File> from = files.Open(source, OpenMode::Read);
  const std::unique_ptr<File> to = files.Open(part, OpenMode::Replace);
  const std::int64_t length = from->Length();
  // A source that becomes shorter meanwhile is no whole picture.
  if (to->CopyFrom(*from, length) != length) throw RuntimeError(error::PastEndOfFile);
  to->Flush();
}

void WriteBytes(Files& files, const std::vector<std::uint8_t>& bytes, const std::string& part) {
  const std::unique_ptr<File> to = files.Open(part, OpenMode::Replace);
  to->WriteAt(0, bytes.data(), bytes.size());
  to->Flush();
}

// The new file is written beside the old one, and takes its place once it is whole and has been shown.
void Replace(MainForm& main, const std::function<void(Files&, const std::string& part)>& write) {
  Files& files = main.host.files;
  const Picture before = main.desk.DesktopImage.GetPicture();
  bool replaced = false;
  ErrorsIgnored([&] {
    const std::string part = PartFile(main);
    write(files, part);
    if (!Show(main, part)) throw RuntimeError(error::BadPicture);
    files.RenameOver(part, BackgroundFile(main));
    replaced = true;
    files.FlushFolder(main.host.places.ProgramFolder());
  });
  if (replaced) return;
  main.desk.DesktopImage.SetPicture(before);
  ErrorsIgnored([&] { files.Delete(PartFile(main)); });
}

}  // namespace

void LoadBackground(MainForm& main) {
  // What a program that was killed has left of one that it was about to take.
  ErrorsIgnored([&] { main.host.files.Delete(PartFile(main)); });
  ErrorsIgnored([&] { Show(main, BackgroundFile(main)); });
}

bool HasCloudScene(MainForm& main) {
  return OrElse(false, [&] { return main.host.files.FileExists(CloudFile(main)); });
}

Colour BackgroundColour(MainForm& main) {
  const Scratch<PictureBox> surface(main.pictures.TempPic);
  surface->Move(0, 0, PlainSize, PlainSize);
  surface->SetPicture(main.desk.DesktopImage.GetPicture());
  return surface->Point(1, 1);
}

void UsePhotoAsBackground(MainForm& main, const std::string& photo) {
  Replace(main, [&photo](Files& files, const std::string& part) { WriteCopy(files, photo, part); });
}

void UseCloudScene(MainForm& main) {
  Replace(main, [&main](Files& files, const std::string& part) { WriteCopy(files, CloudFile(main), part); });
}

void UseColour(MainForm& main, Colour colour) {
  Replace(main, [&main, colour](Files& files, const std::string& part) {
    const Scratch<PictureBox> surface(main.pictures.TempPic);
    surface->Move(0, 0, PlainSize, PlainSize);
    surface->SetBackColor(colour);
    WriteBytes(files, main.host.pictures.BitmapFile(surface->Image()), part);
  });
}

void RestoreCloudScene(MainForm& main) {
  ErrorsIgnored([&] { Show(main, CloudFile(main)); });
  ErrorsIgnored([&] {
    main.host.files.Delete(BackgroundFile(main));
    main.host.files.FlushFolder(main.host.places.ProgramFolder());
  });
}

}  // namespace pixorra
