#include "app/Wiring.h"
#include "desktop/FolderRename.h"
#include "preview/FullSizePreview.h"
#include "preview/PreviewPane.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"
#include "window/PreviewState.h"

namespace pixorra {

void ConnectPreview(MainForm& main) {
  PreviewState& preview = main.preview;
  Connect(preview.PicPreview.On().Click, [&main](Control&) { main.preview.bPicEdited = false; });
  Connect(preview.PicPreview.On().DblClick, [&main](Control&) { PicPreview_DblClick(main); });
  Connect(preview.PicPreview.On().MouseDown,
          EndingRename(main, [&main](Control&, const MouseArgs& mouse) { PicPreview_MouseDown(main, mouse.Button); }));
  Connect(main.menu.SelectedViewFullSizeMenuItem,
          EndingRename(main, [&main] { PicPreview_MouseDown(main, button::Right); }));
  // A photo of the strip is shown for as long as the button is held.
  Events& thumbnail = main.strip.SrcThumbnail.On();
  Connect(thumbnail.MouseDown, EndingRename(main, [&main](Control& slot, const MouseArgs& mouse) {
            if (mouse.Button == button::Right && !slot.Tag().empty()) DisplayFullSizePreview(main, slot.Tag());
          }));
  Connect(thumbnail.MouseUp, [&main](Control&, const MouseArgs& mouse) {
    if (mouse.Button == button::Right) CloseFullSizePreview(main);
  });
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
