// The preview pane: the selected photo and its caption.
#pragma once

#include <string>

namespace pixorra {

struct MainForm;

// The photo becomes the selected one; one that cannot be shown leaves none selected. The caption's Tag is the StampText
// of the file that the picture was made of.
void PaintPicPreview(MainForm& main, const std::string& file);
// Back to the logo: no photo is selected. The pane's tool tips become the window's caption, or the text given.
void ResetPreview(MainForm& main);
void ResetPreview(MainForm& main, const std::string& toolTip);
// With the right button the selected photo is shown at full size.
void PicPreview_MouseDown(MainForm& main, int mouseButton);
// As the menu's command for editing, whatever the menu allows.
void PicPreview_DblClick(MainForm& main);
void PicPreview_MouseMove(MainForm& main);
// The menu opens: what can be done with the selected photo is enabled, the rest is not.
void SelectedPhotoMenu_Click(MainForm& main);
// While an outside editor may be at work, the pane and the selected thumbnail follow the file.
void AutoPicPreviewTimer_Timer(MainForm& main);

}  // namespace pixorra
