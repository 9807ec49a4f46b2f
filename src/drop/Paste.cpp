#include "drop/Paste.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "base/Routines.h"
#include "base/cDIBsection.h"
#include "base/mIntelJpgHelper.h"
#include "desktop/FolderSlots.h"
#include "drop/Duplicates.h"
#include "drop/Naming.h"
#include "drop/RenameAskForm.h"
#include "pictures/PaintPhoto.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Clipboard.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/MainForm.h"
#include "window/PicturesState.h"
#include "window/PreferencesForm.h"

namespace pixorra {

namespace {

constexpr const char* PastedName = "Clipboard.jpg";
constexpr int PastedQuality = 90;
constexpr int MostJpegPixels = 65500;  // a side
// A folder that takes none of so many names, though they looked free, takes none.
constexpr std::size_t KnownBy = 16;  // bytes at its start

// The folder that the picture is pasted into. Dialogs let events run: it may be off the Desktop when they return.
struct Place {
  int Slot = 0;
  std::string Folder;
};

bool IsStillThere(const MainForm& main, const Place& place) {
  return !main.host.toolkit.Ended() && IsSlotInUse(main.desk, place.Slot) &&
         main.desk.DestFolderFiles(place.Slot).Path() == place.Folder;
}

void Refuse(MainForm& main, const std::string& why) {
  main.host.dialogs.MsgBox(why, BoxIcon::Exclamation, BoxButtons::Ok, "Can't Paste Photo from Clipboard.");
}

// Nothing, after a message, where there is none that can be pasted.
Picture PictureToPaste(MainForm& main) {
  Picture picture;
  const int failure = ErrorsIgnored([&] { picture = main.host.clipboard.GetBitmap(); });
  if (failure == error::None && picture.IsNothing()) {
    Refuse(main, "The picture on the Clipboard cannot be read.");
    return {};
  }
  if (failure == error::Overflow) {
    Refuse(main,
           "The picture on the Clipboard is too large.\n"
           "A picture can have 300 megapixels at most.");
    return {};
  }
  if (failure != error::None) {
    Refuse(main, "There is not enough memory for the picture on the Clipboard.");
    return {};
  }
  if (std::max(picture.Width(), picture.Height()) > MostJpegPixels) {
    Refuse(main,
           "The picture on the Clipboard is too large.\n"
           "A photo can have 65500 pixels a side at most.");
    return {};
  }
  return picture;
}

// A whole JPEG file; empty where it cannot be made. What is transparent becomes white. The picture, which may be large,
// is let go as soon as it is on the surface.
std::vector<std::uint8_t> EncodePasted(MainForm& main, Picture picture) {
  std::vector<std::uint8_t> jpeg;
  ErrorsIgnored([&] {
    cDIBsection surface;
    surface.CreateFromPicture(picture);
    picture = {};
    if (!EncodeJPG(main.pictures.jpegBridge, surface, PastedQuality, jpeg)) jpeg.clear();
  });
  return jpeg;
}

// The new photo's full path, by the naming policy; empty: nothing is pasted.
std::string ChooseName(MainForm& main, const Place& place) {
  Files& files = main.host.files;
  if (main.preferences.RenameAskOption.Value()) {
    std::string path = JoinPath(place.Folder, PastedName);
    // Deliberate: a pasted photo has no name of its own, so it is asked for also where this one is free.
    do {
      path = RenameNewPhoto(main, path);
      if (path.empty() || !IsStillThere(main, place)) return {};
    } while (files.NameTaken(path));
    return path;
  }
  if (main.preferences.RenameAlwaysOption.Value()) return MakeGeneratedName(files, place.Folder, PastedName);
  return MakeUniqueName(files, place.Folder, PastedName);
}

void ShowPasted(MainForm& main, const Place& place, const std::string& path) {
  ImageBox& preview = main.desk.DestFolderPreview(place.Slot);
  bool bDragged = false;
  preview.SetTag(path);
  PaintThumbnail(main, preview, path, bDragged);
  // It was hidden where the folder was empty.
  if (IsStillThere(main, place)) preview.SetVisible(true);
}

void ResolvePasted(MainForm& main, const Place& place, std::string path) {
  if (main.preferences.DuplicatesAllowOption.Value()) return;
  const std::string equalFile = FindDuplicate(main.host.files, main.desk.DestFolderFiles(place.Slot), path);
  if (equalFile.empty()) return;
  ResolveDuplicate(main, equalFile, path, place.Slot);
  if (IsStillThere(main, place)) RefreshLists(main.desk, place.Slot);
}

// What follows the file: preview, lists, duplicates (which may delete a file), count, view and the memory for an undo.
// Each step by itself: one that fails is passed over.
void FinishPaste(MainForm& main, const Place& place, const std::string& path, const FileStamp& made) {
  DesktopState& desk = main.desk;
  if (place.Slot != TrashcanSlot) ErrorsIgnored([&] { ShowPasted(main, place, path); });
  if (!IsStillThere(main, place)) return;
  RefreshLists(desk, place.Slot);
  ErrorsIgnored([&] { ResolvePasted(main, place, path); });
  if (!IsStillThere(main, place)) return;
  ErrorsIgnored([&] { ShowFolderCount(desk, place.Slot); });
  ErrorsIgnored([&] { desk.DestScrollbar.SetValue(desk.DestScrollbar.Max()); });
  main.drop.RememberDrop(-1, place.Slot, path, made);
}

// Nobody else's file that has taken the name meanwhile.
void DeleteOwn(Files& files, const std::string& path, File& own) {
  const FileStamp there = files.Open(path, OpenMode::Read)->Stamp();
  if (!files.IsLink(path) && there == own.Stamp()) files.Delete(path);
}

}  // namespace

FileStamp WriteNewFile(Files& files, const std::string& path, const std::vector<std::uint8_t>& bytes) {
  const std::unique_ptr<File> file = files.Open(path, OpenMode::CreateNew);
  try {
    // The first bytes, by which a picture is known, are written when all others are on the disk: what a death in the
    // middle leaves cannot be taken for a photo.
    const std::size_t start = std::min(bytes.size(), KnownBy);
    file->WriteAt(static_cast<std::int64_t>(start), bytes.data() + start, bytes.size() - start);
    file->Flush();
    file->WriteAt(0, bytes.data(), start);
    file->Flush();
    files.FlushFolder(ParentPathOf(path));
    return file->Stamp();
  } catch (const RuntimeError&) {
    ErrorsIgnored([&] { file->Empty(); });
    ErrorsIgnored([&] { DeleteOwn(files, path, *file); });
    throw;
  }
}

void PasteMenuItem_Click(MainForm& main) {
  if (!main.host.clipboard.HasBitmap()) {
    main.host.dialogs.Beep();
    main.host.dialogs.MsgBox("The Clipbaord doesn't contain an Image", BoxIcon::None, BoxButtons::Ok, ApplicationTitle);
    return;
  }
  const int slot = main.desk.OpenFolderIndex;
  if (slot == 0) return Refuse(main, "No Folder is open.\nTry selecting a folder first.");
  const Place place{slot, main.desk.DestFolderFiles(slot).Path()};
  Picture picture = PictureToPaste(main);
  if (picture.IsNothing()) return;
  std::string path;
  FileStamp made;
  std::vector<std::uint8_t> jpeg;
  int failure = error::FileExists;
  // A name that someone else takes between the look and the file is left to them, and the next one is chosen.
  for (int tries = 0; failure == error::FileExists && tries < MostNames; ++tries) {
    path = ChooseName(main, place);
    if (path.empty()) return;
    if (jpeg.empty()) jpeg = EncodePasted(main, std::exchange(picture, {}));
    if (jpeg.empty()) return Refuse(main, "There is not enough memory for the picture on the Clipboard.");
    failure = ErrorsIgnored([&] { made = WriteNewFile(main.host.files, path, jpeg); });
  }
  if (failure != error::None) {
    return Refuse(main, main.host.files.ShownPath(place.Folder) +
                            "\n\nThis folder cannot be written to.\nIt maybe on a CD-ROM, or your\n"
                            "disk drive maybe full.");
  }
  FinishPaste(main, place, path, made);
}

}  // namespace pixorra
