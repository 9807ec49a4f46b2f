// The preview pane: the selected photo and its caption.
#pragma once

#include <string>

namespace pixorra {

struct MainForm;

// The photo becomes the selected one; one that cannot be shown leaves none selected.
void PaintPicPreview(MainForm& main, const std::string& file);
// Back to the logo: no photo is selected. The pane's tool tips become the window's caption, or the text given.
void ResetPreview(MainForm& main);
void ResetPreview(MainForm& main, const std::string& toolTip);
void PicPreview_MouseMove(MainForm& main);
void SelectedPhotoMenu_Click(MainForm& main);
// While an outside editor may be at work, the pane and the selected thumbnail follow the file.
void AutoPicPreviewTimer_Timer(MainForm& main);

}  // namespace pixorra
