#include "preview/FullSizePreview.h"

#include "base/FileDateTime.h"
#include "base/ShownNames.h"
#include "pictures/PictureLoader.h"
#include "pictures/Scratch.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Format.h"
#include "platform/runtime/Numbers.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "platform/services/ReadAhead.h"
#include "preview/FullSizeSums.h"
#include "preview/PreviewForm.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/ModelessForms.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

// "holiday - W640 x H480 - C:\Photos\holiday.jpg  [02:07pm 5/Jul/2004]". A photo that may only be read has its date
// too.
std::string CaptionOf(Files& files, const std::string& path, PixelSize photo) {
  const DateValue date = GetFileDateToRead(files, path);
  return ShownBaseName(files, path) + " - W" + TrimmedStr(photo.Width) + " x H" + TrimmedStr(photo.Height) + " - " +
         files.ShownPath(path) + "  [" + FormatDate(date, "hh:mmampm") + " " + FormatDate(date, "d/mmm/yyyy") + "]";
}

WindowSize SizeOf(const Form& window) {
  return {window.TwipsWidth(), window.TwipsHeight()};
}

// A size that cannot be set is left as it is.
void SetSize(Form& window, const WindowSize& size) {
  ErrorsIgnored([&] { window.SetTwipsHeight(size.Height); });
  ErrorsIgnored([&] { window.SetTwipsWidth(size.Width); });
}

// Asks the system for the photo's own size, and looks at what it gives. False where the photo is not to be shown.
bool SizeFor(Form& window, PixelSize photo, const Screen& screen) {
  const WindowSize natural = NaturalWindow(photo, screen);
  SetSize(window, natural);
  // More than one screen together are larger than that.
  const bool onScreen = natural.Width <= screen.Width && natural.Height <= screen.Height;
  if (SizeOf(window) == natural && onScreen) return true;
  if (IsTooSmallToShow(photo)) return false;
  SetSize(window, GivenWindow(LimitedWindow(photo, screen), screen));
  return true;
}

void ShowPhoto(MainForm& main, Form& window, const std::string& path, const Picture& picture) {
  const PixelSize photo{picture.Width(), picture.Height()};
  ErrorsIgnored([&] { window.SetCaption(CaptionOf(main.host.files, path, photo)); });
  window.SetWindowState(windowstate::Normal);
  if (!SizeFor(window, photo, main.host.toolkit.GetScreen())) return;
  const PixelSize painted = PaintedIn(SizeOf(window));
  ErrorsIgnored([&] { window.PaintPicture(picture, 0, 0, painted.Width, painted.Height); });
  main.preview.sFullSizeFile = path;
  window.ShowOwned(&main.Window);
  window.Refresh();
  window.SetFocus();
}

void LoadAndShow(MainForm& main, Form& window, const std::string& path) {
  const Scratch<ImageBox> photo(main.pictures.TempImage);
  if (LoadPictureFile(main, path, *photo, false)) {
    ShowPhoto(main, window, path, photo->GetPicture());
  } else if (!main.host.toolkit.Ended()) {
    main.host.dialogs.Beep();
  }
}

}  // namespace

void DisplayFullSizePreview(MainForm& main, const std::string& file) {
  // Often the Tag of a control, which may go while a message on the way lets events run.
  const std::string path = file;
  PreviewForm& preview = PreviewForm::Of(main);
  Form& window = preview.Window;
  window.Load();
  if (path.empty()) return;
  if (!window.Visible()) preview.RememberOpener();
  main.strip.ThumbsTimer.SetEnabled(false);
  const int before = main.Window.MousePointer();
  main.Window.SetMousePointer(pointer::Hourglass);
  const AtExit done([&main, before] {
    main.Window.SetMousePointer(before);
    main.strip.ThumbsTimer.SetEnabled(true);
  });
  window.SetCaption("");
  window.Cls();
  // A photo that follows at once takes the place of the one before, with no blank window in between.
  if (!main.host.readAhead.IsWholeReady(path)) {
    window.Refresh();
    main.Window.Refresh();
  }
  LoadAndShow(main, window, path);
  if (window.Visible()) preview.Ahead.Follow(path);
}

void FollowSelectionAtFullSize(MainForm& main) {
  PreviewForm* const preview = main.modeless.Find<PreviewForm>();
  if (preview != nullptr && preview->Window.Visible()) preview->Ahead.Follow(main.preview.sFullSizeFile);
}

void CloseFullSizePreview(MainForm& main) {
  PreviewForm* const preview = main.modeless.Find<PreviewForm>();
  if (preview != nullptr) preview->Window.Unload();
}

}  // namespace pixorra
