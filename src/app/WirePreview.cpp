#include "app/Wiring.h"
#include "desktop/FolderRename.h"
#include "preview/PreviewPane.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"
#include "window/PreviewState.h"

namespace pixorra {

void ConnectPreview(MainForm& main) {
  PreviewState& preview = main.preview;
  Connect(preview.PicPreview.On().Click, [&main](Control&) { main.preview.bPicEdited = false; });
  Connect(preview.PicPreview.On().MouseDown, [&main](Control&, const MouseArgs&) { EndFolderRename(main); });
  Connect(preview.PicPreview.On().MouseMove, [&main](Control&, const MouseArgs&) { PicPreview_MouseMove(main); });
  Connect(preview.PicPreviewSize.On().MouseMove,
          [&main](Control&, const MouseArgs&) { main.preview.PicPreviewSizeAutoClrTimer.SetEnabled(false); });
  Connect(preview.PicPreviewSizeAutoClrTimer.On().Timer, [&main](Control&) {
    main.preview.PicPreviewSize.SetVisible(false);
    main.preview.PicPreviewSizeAutoClrTimer.SetEnabled(false);
  });
  Connect(preview.AutoPicPreviewTimer.On().Timer, [&main](Control&) { AutoPicPreviewTimer_Timer(main); });
  Connect(main.menu.SelectedPhotoMenu, [&main] { SelectedPhotoMenu_Click(main); });
}

}  // namespace pixorra
