#include "app/Wiring.h"
#include "preview/PreviewPane.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"
#include "window/PreviewState.h"

namespace pixorra {

void ConnectPreview(MainForm& main) {
  PreviewState& preview = main.preview;
  preview.PicPreview.On().Click = [&main](Control&) { main.preview.bPicEdited = false; };
  preview.PicPreview.On().MouseMove = [&main](Control&, const MouseArgs&) { PicPreview_MouseMove(main); };
  preview.PicPreviewSize.On().MouseMove = [&main](Control&, const MouseArgs&) {
    main.preview.PicPreviewSizeAutoClrTimer.SetEnabled(false);
  };
  preview.PicPreviewSizeAutoClrTimer.On().Timer = [&main](Control&) {
    main.preview.PicPreviewSize.SetVisible(false);
    main.preview.PicPreviewSizeAutoClrTimer.SetEnabled(false);
  };
  preview.AutoPicPreviewTimer.On().Timer = [&main](Control&) { AutoPicPreviewTimer_Timer(main); };
  main.menu.SelectedPhotoMenu.On().Click = [&main](Control&) { SelectedPhotoMenu_Click(main); };
}

}  // namespace pixorra
