// The preview pane: the selected photo and its caption.
#pragma once

#include <string>

namespace pixorra {

struct MainForm;

void PaintPicPreview(MainForm& main, const std::string& path);
// Back to the logo: no photo is selected.
void ResetPreview(MainForm& main);
void PicPreview_MouseMove(MainForm& main);
void SelectedPhotoMenu_Click(MainForm& main);

}  // namespace pixorra
