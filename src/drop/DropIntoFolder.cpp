#include "drop/DropIntoFolder.h"

#include "base/Routines.h"
#include "desktop/FolderSlots.h"
#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "drop/DeviceFolders.h"
#include "drop/DragGestures.h"
#include "drop/Duplicates.h"
#include "drop/FileTransfer.h"
#include "drop/Naming.h"
#include "drop/RenameAskForm.h"
#include "filmstrip/Marks.h"
#include "filmstrip/Scrolling.h"
#include "pictures/PaintPhoto.h"
#include "pictures/QuickThumbs.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreferencesForm.h"

namespace pixorra {

namespace {

// A view of fewer cells than that is shown from its start after a drop, a longer one from its end.
constexpr int CellsThatScroll = 8;
// Seconds between an answer of the rename dialog and the next look at the name.
constexpr double RenamePause = 0.3;

// What a drop is about. Dialogs and waits let events run, and anything may have changed when they return.
struct Drop {
  int Slot = 0;
  std::string Folder;
  std::string Photo;
  Watch<ImageBox> Source;
};

enum class Dropped { OnePhoto, WholeStrip };

// The hourglass is shown and DropRunning is set from a drop's start to its end, whatever ends it, and DropAllRunning
// during a run.
class WhileDropping {
 public:
  WhileDropping(MainForm& main, Dropped what)
      : main_(main),
        pointer_(main.Window.MousePointer()),
        dropping_(main.drop.DropRunning),
        running_(main.drop.DropAllRunning) {
    main_.drop.DropRunning = true;
    main_.Window.SetMousePointer(pointer::Hourglass);
    if (what == Dropped::WholeStrip) main_.drop.DropAllRunning = true;
  }
  // A drop within another one leaves all three as the other needs them.
  ~WhileDropping() {
    main_.drop.DropRunning = dropping_;
    main_.drop.DropAllRunning = running_;
    main_.Window.SetMousePointer(pointer_);
  }
  WhileDropping(const WhileDropping&) = delete;
  WhileDropping& operator=(const WhileDropping&) = delete;

 private:
  MainForm& main_;
  int pointer_;
  bool dropping_;
  bool running_;
};

bool IsStillPossible(const MainForm& main, const Drop& drop) {
  return !main.host.toolkit.Ended() && drop.Source && drop.Source->Tag() == drop.Photo &&
         IsSlotInUse(main.desk, drop.Slot) && main.desk.DestFolderFiles(drop.Slot).Path() == drop.Folder;
}

// The Esc key that closes the box also stops a run, as it does without a box: what one photo failed at, the others may
// fail at too.
void ShowFailure(MainForm& main, const std::string& text, BoxIcon icon, const std::string& title) {
  if (main.host.dialogs.MsgBox(text, icon, BoxButtons::Ok, title) == BoxAnswer::Cancel) main.drop.DropAllAbort = true;
}

void TakeVanishedFolderOff(MainForm& main, const Drop& drop, int openBefore) {
  ShowFailure(main, "Folder not found\n\n" + main.host.files.ShownPath(drop.Folder), BoxIcon::Critical,
              "WARNING: Can't drop photo into this folder");
  Select_a_Folder(main, drop.Slot);
  // The selection may have taken it off already, and another one is open in its place.
  if (main.desk.OpenFolderIndex == drop.Slot) Remove_Open_Folder(main);
  Select_a_Folder(main, openBefore);
}

// The copy's full path, by the naming policy; empty: the drop is over.
std::string ChooseDestination(MainForm& main, const Drop& drop, const std::string& name) {
  Files& files = main.host.files;
  const bool asks = main.preferences.RenameAskOption.Value();
  if (!asks && main.preferences.RenameAlwaysOption.Value()) return MakeGeneratedName(files, drop.Folder, name);
  // Also where none of the options is set.
  if (!asks) return MakeUniqueName(files, drop.Folder, name);
  std::string destination = JoinPath(drop.Folder, name);
  while (files.NameTaken(destination)) {
    destination = RenameNewPhoto(main, destination);
    if (destination.empty() || !main.host.toolkit.WaitFor(RenamePause) || !IsStillPossible(main, drop)) return {};
  }
  return destination;
}

void ShowCopyFailure(MainForm& main, const Drop& drop) {
  ShowFailure(main,
              main.host.files.ShownPath(drop.Folder) +
                  "\n\nThis folder cannot be written to.\nIt maybe on a CD-ROM, or your\n"
                  "disk drive maybe full.",
              BoxIcon::Exclamation, "Pixorra - Unable to Drop Photo");
}

// The preview takes the thumbnail's picture. One with the shading of dragged photos is of no use: the photo is painted
// anew.
void ShowNewArrival(MainForm& main, const Drop& drop, const std::string& destination) {
  ImageBox& preview = main.desk.DestFolderPreview(drop.Slot);
  preview.SetTag(destination);
  if (!IsMarked(main.strip, drop.Source->Index())) {
    preview.SetPicture(drop.Source->GetPicture());
  } else {
    bool bDragged = false;
    PaintThumbnail(main, preview, drop.Photo, bDragged);
  }
  // It was hidden where the folder was empty and the photo was dropped on its open view.
  preview.SetVisible(true);
}

void ShowEndOfView(DesktopState& desk) {
  ScrollBar& bar = desk.DestScrollbar;
  bar.SetValue(desk.DestSlotCount < CellsThatScroll ? bar.Min() : bar.Max());
}

struct Settled {
  // The folder has none where the photo is one of the folder's own, by whatever path, and its copy has been deleted
  // again as a duplicate of the photo itself.
  bool HasCopy = true;
  bool Asked = false;  // a question may have been up for long
};

Settled SettleDuplicate(MainForm& main, const Drop& drop, std::string newFile) {
  if (main.preferences.DuplicatesAllowOption.Value()) return {};
  Files& files = main.host.files;
  const std::string equalFile =
      FindDuplicate(files, main.desk.DestFolderFiles(drop.Slot), newFile, &main.drop.seenLengths);
  if (equalFile.empty()) return {};
  const bool isPhotoItself = files.IsSameFile(equalFile, drop.Photo);
  ResolveDuplicate(main, equalFile, newFile, drop.Slot);
  if (IsStillPossible(main, drop)) RefreshLists(main.desk, drop.Slot);
  return {.HasCopy = !isPhotoItself || files.FileExists(newFile), .Asked = true};
}

// What follows the copy: preview, lists, duplicates (which may delete a file), count, view, mark and the memory of the
// drop. Each step by itself: one that fails is passed over. A photo that has no copy is neither marked nor remembered.
void FinishDrop(MainForm& main, const Drop& drop, const std::string& destination, const CopyStamps& stamps) {
  DesktopState& desk = main.desk;
  if (drop.Slot != TrashcanSlot) ErrorsIgnored([&] { ShowNewArrival(main, drop, destination); });
  if (!IsStillPossible(main, drop)) return;
  RefreshLists(desk, drop.Slot);
  Settled settled;
  ErrorsIgnored([&] { settled = SettleDuplicate(main, drop, destination); });
  if (!IsStillPossible(main, drop)) return;
  ErrorsIgnored([&] { ShowFolderCount(main.desk, drop.Slot); });
  if (!settled.HasCopy) return;
  if (drop.Slot == desk.OpenFolderIndex) {
    ErrorsIgnored([&] { ShowEndOfView(desk); });
    QuickThumbsOf(main).CopyQuickThumb({drop.Photo, stamps.Source, destination, stamps.Copy});
  }
  ErrorsIgnored([&] {
    MarkDragged(main, *drop.Source.Get(), stamps.Source);
    if (settled.Asked && drop.Source) NoteChangeSinceCopied(main, *drop.Source.Get());
  });
  if (!drop.Source) return;
  // All three or none: an undo must not pair the new file with the photo of a drop before.
  ErrorsIgnored([&] {
    main.drop.RememberDrop(CInt(drop.Source->Index()), drop.Slot, destination, stamps.Copy);
    main.drop.RememberSource(drop.Photo, stamps.Source, *drop.Source.Get());
  });
}

// The run goes on only while it has the strip and the folder that it began with.
class Run {
 public:
  Run(MainForm& main, int slot)
      : main_(main),
        slot_(slot),
        folder_(main.desk.DestFolderFiles(slot).Path()),
        first_(main.strip.SrcThumbnail(1)),
        strip_(main.strip.SrcFileList.Path()) {}

  bool GoesOn() const {
    return !main_.drop.DropAllAbort && !main_.host.toolkit.Ended() && first_ &&
           main_.strip.SrcFileList.Path() == strip_ && IsSlotInUse(main_.desk, slot_) &&
           main_.desk.DestFolderFiles(slot_).Path() == folder_;
  }

 private:
  MainForm& main_;
  int slot_;
  std::string folder_;
  Watch<ImageBox> first_;
  std::string strip_;
};

// Dead slots have no photo, and marked ones have been dropped already.
bool WaitsForItsTurn(const FilmStripState& strip, int i) {
  return !IsMarked(strip, i) && !PhotoOf(strip, i).empty();
}

void DropWholeStrip(MainForm& main, int slot) {
  FilmStripState& strip = main.strip;
  const Run run(main, slot);
  const int last = strip.SrcSlotCount;
  for (int i = 1; i <= last; ++i) {
    if (!WaitsForItsTurn(strip, i)) continue;
    // The strip is scrolled to the photo whose turn it is.
    ErrorsIgnored([&] { ScrollStripTo(strip, i, 1); });
    CopyDraggedPhoto(main, slot, strip.SrcThumbnail(i));
    main.host.toolkit.DoEvents();
    if (!run.GoesOn()) return;
  }
}

}  // namespace

void DropOnFolder(MainForm& main, int slot, Control& source) {
  main.drop.DropAllAbort = false;
  if (!main.drop.DropAllRunning) main.drop.seenLengths = {};
  if (!IsAllButton(source)) {
    auto* photo = dynamic_cast<ImageBox*>(&source);
    if (photo == nullptr) return;
    const WhileDropping dropping(main, Dropped::OnePhoto);
    CopyDraggedPhoto(main, slot, *photo);
    return;
  }
  if (main.strip.SrcSlotCount == 0) return;
  const WhileDropping dropping(main, Dropped::WholeStrip);
  DropWholeStrip(main, slot);
}

void CopyDraggedPhoto(MainForm& main, int slot, ImageBox& source) {
  if (!IsSlotInUse(main.desk, slot) || source.Tag().empty()) return;
  const Drop drop{slot, main.desk.DestFolderFiles(slot).Path(), source.Tag(), Watch<ImageBox>(source)};
  const std::string name = FileNameOf(drop.Photo);
  const int openBefore = main.desk.OpenFolderIndex;
  Files& files = main.host.files;
  if (!drop.Folder.starts_with("\\\\") && !files.FolderExists(StripTrailingBackslash(drop.Folder))) {
    TakeVanishedFolderOff(main, drop, openBefore);
    return;
  }
  TellOfDeviceFolderOnce(main, drop.Folder);
  if (!IsStillPossible(main, drop)) return;
  std::string destination;
  CopyStamps stamps;
  int failure = error::FileExists;
  // A name that someone else takes between the look and the copy is left to them, and the next one is chosen.
  for (int tries = 0; failure == error::FileExists && tries < MostNames; ++tries) {
    destination = ChooseDestination(main, drop, name);
    if (main.preferences.RenameAskOption.Value() && destination.empty()) return;
    failure = ErrorsIgnored([&] { stamps = CopyPhotoFile(main, drop.Photo, destination, OpenMode::CreateNew); });
  }
  if (failure != error::None) {
    ShowCopyFailure(main, drop);
    return;
  }
  FinishDrop(main, drop, destination, stamps);
}

}  // namespace pixorra
