#include "preview/PreviewForm.h"

#include <algorithm>

#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "preview/FullSizePreview.h"
#include "preview/FullSizeSums.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/ModelessForms.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

// Pixels.
constexpr int ButtonWidth = 116;
constexpr int LeastButtonWidth = 96;
constexpr int ButtonHeight = 28;
constexpr int Gap = 4;
constexpr int Margin = 8;

bool IsArrow(int keyCode) {
  return keyCode == key::Left || keyCode == key::Up || keyCode == key::Right || keyCode == key::Down;
}

}  // namespace

PreviewForm::PreviewForm(MainForm& main) : main_(main), Window(main.host.toolkit, "PreviewForm") {
  Window.SetFrame(FullSizeFrameWidth, FullSizeFrameHeight);
  Window.SetKeyPreview(true);
  PreviousButton.SetCaption("Previous Photo");
  HideButton.SetCaption("Hide Buttons");
  NextButton.SetCaption("Next Photo");
  ArrangeButtons();
  Events& on = Window.On();
  Connect(on.Load, [this](Control&) { Form_Load(); });
  Connect(on.Unload, [this](Control&) { Form_Unload(); });
  Connect(on.Resize, [this](Control&) { ArrangeButtons(); });
  Connect(on.MouseDown, [this](Control&, const MouseArgs&) { Close(); });
  Connect(on.KeyDown, [this](Control&, int& keyCode, int shift) { Form_KeyDown(keyCode, shift); });
  Connect(on.KeyPress, [this](Control&, int& codePoint) { Form_KeyPress(codePoint); });
  Connect(PreviousButton.On().Click, [this](Control&) { Press(PreviousButton, key::Left); });
  Connect(NextButton.On().Click, [this](Control&) { Press(NextButton, key::Right); });
  Connect(HideButton.On().Click, [this](Control&) { ShowButtons(false); });
}

PreviewForm& PreviewForm::Of(MainForm& main) {
  return main.modeless.Get<PreviewForm>(main);
}

void PreviewForm::Form_Load() {
  Window.SetTwipsLeft(0);
  Window.SetTwipsTop(0);
  ShowButtons(!main_.preview.bPreviewNoButtons);
}

void PreviewForm::Form_Unload() {
  main_.preview.sFullSizeFile.clear();
  Ahead.Stop();
}

void PreviewForm::ShowButtons(bool shown) {
  for (Control* control : {static_cast<Control*>(&PreviousButton), static_cast<Control*>(&HideButton),
                           static_cast<Control*>(&NextButton), static_cast<Control*>(&ButtonContainerPic)})
    control->SetVisible(shown);
}

// At the bottom, side by side, or one above the other where the photo is narrow. Where they would hide most of it they
// lie below the window's edge: the keys do what they do.
void PreviewForm::ArrangeButtons() {
  const int width = Window.ScaleWidth();
  const int height = Window.ScaleHeight();
  const int room = (width - 4 * Gap) / 3;
  const bool beside = room >= LeastButtonWidth;
  const int each = beside ? std::min(room, ButtonWidth) : ButtonWidth;
  const int boxWidth = beside ? 3 * each + 4 * Gap : each + 2 * Gap;
  const int boxHeight = beside ? ButtonHeight + 2 * Gap : 3 * ButtonHeight + 4 * Gap;
  const bool hides = boxWidth > width || 2 * boxWidth * boxHeight > width * height;
  ButtonContainerPic.Move((width - boxWidth) / 2.0, hides ? height : height - boxHeight - Margin, boxWidth, boxHeight);
  int place = 0;
  for (CommandButton* button : {&PreviousButton, &HideButton, &NextButton}) {
    const int left = beside ? place * (each + Gap) : 0;
    const int top = beside ? 0 : place * (ButtonHeight + Gap);
    button->Move(Gap + left, Gap + top, each, ButtonHeight);
    ++place;
  }
}

// The arrows are the main window's; with each it selects another photo, which is then shown here. Letting events run
// uses up what a key that is held down has sent meanwhile.
void PreviewForm::Form_KeyDown(int& keyCode, int shift) {
  if (IsForButton(keyCode)) return;
  if (!IsArrow(keyCode) || main_.preview.bPreviewNoButtons) {
    Close();
    return;
  }
  int passed = keyCode;
  keyCode = 0;
  Raise(main_.Window.On().KeyDown, static_cast<Control&>(main_.Window), passed, shift);
  main_.host.toolkit.DoEvents();
}

// The character of a key that has no code of its own.
void PreviewForm::Form_KeyPress(int codePoint) {
  if (!IsForButton(codePoint)) Close();
}

// Tab leads to the buttons, and Space presses the one that has the focus, while they can be seen.
bool PreviewForm::IsForButton(int keyCode) const {
  if (!ButtonContainerPic.Visible() || ButtonContainerPic.Top() >= Window.ScaleHeight()) return false;
  const Control* focus = main_.host.toolkit.Focus();
  const bool onButton = focus != nullptr && focus->GetContainer() == &ButtonContainerPic;
  return keyCode == key::Tab || (keyCode == key::Space && onButton);
}

// The step selects a photo of the main window, which takes the focus: it is given back, for the button may be pressed
// again.
void PreviewForm::Press(CommandButton& button, int keyCode) {
  const bool hadFocus = main_.host.toolkit.Focus() == &button;
  const Watch<CommandButton> watch(button);
  int pressed = keyCode;
  Form_KeyDown(pressed, shift::None);
  if (hadFocus && watch && watch->IsShown() && !main_.preview.sFullSizeFile.empty()) watch->SetFocus();
}

void PreviewForm::RememberOpener() {
  opener_ = Watch<Form>::Of(main_.host.toolkit.ActiveForm());
}

// Deliberate: over the browser, which shows its photos without buttons, the person is back there and not in the main
// window, which the browser holds up.
void PreviewForm::Close() {
  const bool toBrowser = main_.preview.bPreviewNoButtons && opener_ && opener_->Visible();
  (toBrowser ? *opener_.Get() : main_.Window).SetFocus();
  Window.Unload();
}

// A photo that cannot be shown in the pane is selected by its frame alone.
void RefreshFullSizePreview(MainForm& main) {
  if (main.preview.sFullSizeFile.empty()) return;
  const std::string path = OrElse(std::string(), [&] {
    return main.desk.DestThumbFrame.Visible() ? PhotoOf(main.desk, SelectedCell(main.desk))
                                              : PhotoOf(main.strip, SelectedSlot(main.strip));
  });
  DisplayFullSizePreview(main, path);
}

}  // namespace pixorra
