#include "preview/PreviewPane.h"

#include <cstring>

#include "base/ExeFileInfo.h"
#include "base/ShownNames.h"
#include "base/StampText.h"
#include "pictures/MarkedPhoto.h"
#include "pictures/PaintPhoto.h"
#include "pictures/QuickThumbs.h"
#include "pictures/Shading.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"
#include "platform/services/Shell.h"
#include "preview/FullSizePreview.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

// What the program registered for the file calls itself; empty where there is none.
std::string EditorName(MainForm& main, const std::string& path) {
  Shell& shell = main.host.shell;
  return OrElse(std::string(), [&] {
    const std::string program = AssociatedProgramPath(shell, path);
    return program.empty() ? program : ProgramDisplayName(shell, program);
  });
}

// What has no operation yet stays disabled.
void EnableConnected(MenuItem& item, bool enabled) {
  item.SetEnabled(enabled && item.On().Click);
}

// Shown for two seconds from now on.
void ShowCaption(PreviewState& preview) {
  preview.PicPreviewSize.SetVisible(true);
  preview.PicPreviewSizeAutoClrTimer.SetEnabled(false);
  preview.PicPreviewSizeAutoClrTimer.SetEnabled(true);
}

bool HaveEqualPixels(const Picture& one, const Picture& other) {
  if (one == other) return true;
  if (one.IsNothing() || other.IsNothing() || !one.ArtName().empty() || !other.ArtName().empty()) return false;
  const Bitmap& a = one.Pixels();
  const Bitmap& b = other.Pixels();
  if (a.Width() != b.Width() || a.Height() != b.Height() || a.Format() != b.Format()) return false;
  const auto bytes = static_cast<std::size_t>(a.Width()) * static_cast<std::size_t>(a.BytesPerPixel());
  for (int y = 0; y < a.Height(); ++y)
    if (std::memcmp(a.Row(y), b.Row(y), bytes) != 0) return false;
  return true;
}

// The picture that it had comes back where the new one of the same file is equal: what a fine screen shows in its place
// goes on.
void KeepEqualPicture(ImageBox& box, const Picture& before) {
  if (HaveEqualPixels(before, box.GetPicture())) box.SetPicture(before);
}

// The selected thumbnail of the film strip takes the photo as it now is, with its mark.
void RepaintSrcThumbnail(MainForm& main, const std::string& edited, bool sameFile) {
  FilmStripState& strip = main.strip;
  const int i = SelectedSlot(strip);
  // The frame may be on another than the pane shows, and another may be selected while a message about this one is up.
  if (PhotoOf(strip, i) != edited) return;
  ImageBox& thumbnail = strip.SrcThumbnail(i);
  const Watch<ImageBox> alive(thumbnail);
  const Picture before = thumbnail.GetPicture();
  bool bDragged = false;
  PaintThumbnail(main, thumbnail, SelectedPhoto(main.preview), bDragged);
  if (!alive) return;
  const std::string mark = strip.SrcThumbName(i).Tag();
  if (!mark.empty()) ShadeThumbnail(thumbnail);
  if (sameFile) KeepEqualPicture(thumbnail, before);
  // A changed photo has a new entry, which takes over the mark.
  QuickThumbsOf(main).SetQuickThumbMark(edited, mark);
  if (!mark.empty() && IsChangedSinceMarked(main, i)) QuickThumbsOf(main).NoteEdited(edited);
}

void RepaintDestThumbnail(MainForm& main, const std::string& edited, bool sameFile) {
  const int i = SelectedCell(main.desk);
  if (PhotoOf(main.desk, i) != edited) return;
  ImageBox& thumbnail = main.desk.DestThumbnail(i);
  const Watch<ImageBox> alive(thumbnail);
  const Picture before = thumbnail.GetPicture();
  bool bDragged = false;
  PaintThumbnail(main, thumbnail, SelectedPhoto(main.preview), bDragged);
  if (alive && sameFile) KeepEqualPicture(thumbnail, before);
}

// Of a photo that cannot be shown: its file is there and has changed since it could not be shown the last time. An
// editor is in the middle of it then, and the photo is looked at again.
bool IsBeingSaved(MainForm& main, const std::string& photo) {
  Timer& timer = main.preview.AutoPicPreviewTimer;
  const std::string stamp = StampText(main.host.files, photo);
  const std::string now = stamp.empty() ? stamp : photo + "|" + stamp;
  const bool changed = !now.empty() && now != timer.Tag();
  timer.SetTag(now);
  return changed;
}

}  // namespace

void PaintPicPreview(MainForm& main, const std::string& file) {
  PreviewState& preview = main.preview;
  // Often the Tag of a thumbnail, which may go while a message on the way lets events run.
  const std::string path = file;
  main.strip.ThumbsTimer.SetEnabled(false);
  const PaintedImage painted = PaintImage(main, path, preview.PicPreview, ButtonFace);
  const std::string name = ShownFileName(main.host.files, path);
  if (painted.ok) {
    preview.PicPreviewSize.SetCaption(" W" + std::to_string(painted.width) + " x H" + std::to_string(painted.height) +
                                      "   " + name + " ");
    ShowCaption(preview);
    preview.PicPreview.SetTag(path);
  } else {
    preview.PicPreviewSize.SetCaption(" Can't Preview - " + name + " ");
    ShowCaption(preview);
    preview.PicPreview.SetTag("");
  }
  // What the picture was made of.
  preview.PicPreviewSize.SetTag(painted.ok ? StampText(painted.decoded) : std::string());
  preview.PicPreviewSize.SetToolTipText(main.host.files.ShownPath(path));
  preview.PicPreview.SetToolTipText("Double-Click to Edit with \"" + EditorName(main, path) + "\"");
  main.strip.ThumbsTimer.SetEnabled(true);
}

void ResetPreview(MainForm& main) {
  ResetPreview(main, main.Window.Caption());
}

void ResetPreview(MainForm& main, const std::string& toolTip) {
  PreviewState& preview = main.preview;
  preview.PicPreview.SetPicture(preview.Logo);
  preview.PicPreview.SetToolTipText(toolTip);
  preview.PicPreviewSize.SetToolTipText(toolTip);
  preview.PicPreview.SetTag("");
  preview.PicPreviewSize.SetCaption("");
  preview.PicPreviewSize.SetVisible(false);
}

void PicPreview_MouseDown(MainForm& main, int mouseButton) {
  if (mouseButton == button::Right && !SelectedPhoto(main.preview).empty())
    DisplayFullSizePreview(main, SelectedPhoto(main.preview));
}

void PicPreview_DblClick(MainForm& main) {
  MenuItem& item = main.menu.SelectedEditMenuItem;
  Raise(item.On().Click, static_cast<Control&>(item));
}

void PicPreview_MouseMove(MainForm& main) {
  PreviewState& preview = main.preview;
  const bool selected = !SelectedPhoto(preview).empty();
  preview.PicPreview.SetMousePointer(pointer::Custom);
  preview.PicPreview.SetMouseIcon(selected ? main.desk.DestFolder(0).MouseIcon() : main.drop.NotReadyIcon);
  if (!preview.PicPreviewSize.Caption().empty()) ShowCaption(preview);
}

void SelectedPhotoMenu_Click(MainForm& main) {
  const std::string& selected = SelectedPhoto(main.preview);
  MenuBar& menu = main.menu;
  if (!selected.empty()) menu.SelectedEditMenuItem.SetCaption("Edit with \"" + EditorName(main, selected) + "\"");
  for (MenuItem* item : {&menu.CopyMenuItem, &menu.SelectedPrintMenuItem, &menu.SelectedEditMenuItem,
                         &menu.SelectedViewFullSizeMenuItem})
    EnableConnected(*item, !selected.empty());
  // A photo that is there no longer can be neither renamed nor deleted.
  const int attributes =
      selected.empty() ? attribute::ReadOnly : main.host.files.Attributes(selected).value_or(attribute::ReadOnly);
  for (MenuItem* item : {&menu.RenameMenuItem, &menu.DeleteMenuItem})
    EnableConnected(*item, (attributes & attribute::ReadOnly) == 0);
}

void AutoPicPreviewTimer_Timer(MainForm& main) {
  PreviewState& preview = main.preview;
  if (!preview.bPicEdited || SelectedPhoto(preview).empty()) {
    preview.AutoPicPreviewTimer.WasIdle(Timer::UntilSomethingRuns);
    return;
  }
  const std::string photo = SelectedPhoto(preview);
  const Picture before = preview.PicPreview.GetPicture();
  const std::string stamp = preview.PicPreviewSize.Tag();
  PaintPicPreview(main, photo);
  // An edit of details may change none of the pixels here, but those of a fine screen.
  const bool sameFile = !stamp.empty() && preview.PicPreviewSize.Tag() == stamp;
  if (sameFile && SelectedPhoto(preview) == photo) KeepEqualPicture(preview.PicPreview, before);
  if (SelectedPhoto(preview).empty() && IsBeingSaved(main, photo)) {
    preview.PicPreview.SetTag(photo);
    return;
  }
  if (main.strip.SrcThumbFrame.Visible()) RepaintSrcThumbnail(main, photo, sameFile);
  if (main.desk.DestThumbFrame.Visible()) RepaintDestThumbnail(main, photo, sameFile);
}

}  // namespace pixorra
