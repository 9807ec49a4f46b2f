// The window that shows a photo at full size, with the buttons that lead to the photos before and after it.
#pragma once

#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"
#include "platform/controls/PictureBox.h"
#include "preview/StepsAhead.h"

namespace pixorra {

struct MainForm;

class PreviewForm {
  MainForm& main_;  // ahead of the controls, which are made from it

 public:
  explicit PreviewForm(MainForm& main);

  // The one of the main window, made when it is first wanted.
  static PreviewForm& Of(MainForm& main);

  Form Window;
  PictureBox ButtonContainerPic{Window, "ButtonContainerPic"};
  CommandButton PreviousButton{ButtonContainerPic, "PreviousButton"};
  CommandButton HideButton{ButtonContainerPic, "HideButton"};
  CommandButton NextButton{ButtonContainerPic, "NextButton"};
  StepsAhead Ahead{main_};

  // The window that is in front now has the focus again when this one is closed by key or mouse.
  void RememberOpener();

 private:
  void Form_Load();
  void Form_Unload();
  void Form_KeyDown(int& keyCode, int shift);
  void Form_KeyPress(int codePoint);
  void Press(CommandButton& button, int keyCode);
  void ShowButtons(bool shown);
  void ArrangeButtons();
  bool IsForButton(int keyCode) const;
  void Close();

  Watch<Form> opener_;
};

// Shows the photo that is selected by now, where the window is open.
void RefreshFullSizePreview(MainForm& main);

}  // namespace pixorra
