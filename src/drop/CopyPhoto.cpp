#include "drop/CopyPhoto.h"

#include "pictures/PictureLoader.h"
#include "pictures/Scratch.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Clipboard.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "utility/ConfirmForm.h"
#include "window/MainForm.h"
#include "window/PicturesState.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

enum class Outcome { Copied, CannotBeRead, NotTaken, FailedAndTold };

Outcome CopyToClipboard(MainForm& main, const std::string& photo) {
  const Scratch<ImageBox> loaded(main.pictures.TempImage, NextScratchIndex(main.pictures));
  bool told = false;
  if (!LoadPictureFile(main, photo, *loaded, false, nullptr, &told))
    return told ? Outcome::FailedAndTold : Outcome::CannotBeRead;
  const Picture picture = loaded->GetPicture();
  const int failure = ErrorsIgnored([&] { main.host.clipboard.SetBitmap(picture); });
  return failure == error::None ? Outcome::Copied : Outcome::NotTaken;
}

}  // namespace

void CopyMenuItem_Click(MainForm& main) {
  // The notice lets events run.
  const std::string photo = SelectedPhoto(main.preview);
  if (photo.empty()) return;
  ConfirmForm& notice = ConfirmForm::Of(main);
  // Another photo may have been copied meanwhile.
  if (!notice.ConfirmClipboard()) return;
  const Outcome outcome = CopyToClipboard(main, photo);
  if (outcome == Outcome::Copied || main.host.toolkit.Ended()) return;
  notice.Window.Unload();
  if (outcome == Outcome::FailedAndTold) return;
  const char* const why = outcome == Outcome::CannotBeRead
                              ? "This photo cannot be read."
                              : "The Clipboard cannot take this photo.\nIt maybe too large for the memory.";
  main.host.dialogs.MsgBox(main.host.files.ShownPath(photo) + "\n\n" + why, BoxIcon::Exclamation, BoxButtons::Ok,
                           "Can't Copy Photo to Clipboard.");
}

}  // namespace pixorra
