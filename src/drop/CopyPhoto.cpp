#include "drop/CopyPhoto.h"

#include "pictures/PictureLoader.h"
#include "pictures/Scratch.h"
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

bool CopyToClipboard(MainForm& main, const std::string& photo) {
  const Scratch<ImageBox> loaded(main.pictures.TempImage, NextScratchIndex(main.pictures));
  if (!LoadPictureFile(main, photo, *loaded, false)) return false;
  const Picture picture = loaded->GetPicture();
  return ErrorsIgnored([&] { main.host.clipboard.SetBitmap(picture); }) == error::None;
}

}  // namespace

void CopyMenuItem_Click(MainForm& main) {
  // The notice lets events run.
  const std::string photo = SelectedPhoto(main.preview);
  if (photo.empty()) return;
  ConfirmForm& notice = ConfirmForm::Of(main);
  // Another photo may have been copied meanwhile.
  if (!notice.ConfirmClipboard() || CopyToClipboard(main, photo)) return;
  notice.Window.Unload();
  main.host.dialogs.MsgBox(main.host.files.ShownPath(photo) + "\n\nThis photo cannot be read.", BoxIcon::Exclamation,
                           BoxButtons::Ok, "Can't Copy Photo to Clipboard.");
}

}  // namespace pixorra
