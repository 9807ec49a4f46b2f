#include "window/PreviewState.h"

#include "base/Definition.h"
#include "base/Palette.h"

namespace pixorra {

PreviewState::PreviewState(Form& window, Host& host) : window_(window), Logo(Drawing(host, "Logo", 249, 185)) {
  PicPreview.SetStretch(true);
  PicPreview.SetShowsPhotoOfTag(true);
  Place(PicPreview, 120, 0, 3735, 2775);
  Place(PicPreviewSize, 1440, 2520, 1125, 195);
  PicPreviewSize.SetAlignment(Alignment::Center);
  PicPreviewSize.SetAutoSize(true);
  PicPreviewSize.SetShortensInMiddle(true);
  PicPreviewSize.SetOpaque(true);
  PicPreviewSize.SetForeColor(palette::CaptionText);
  PicPreviewSize.SetBackColor(palette::CaptionBack);
  PicPreviewSize.SetVisible(false);
}

}  // namespace pixorra
