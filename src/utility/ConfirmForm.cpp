#include "utility/ConfirmForm.h"

#include <algorithm>

#include "base/Host.h"
#include "base/Palette.h"
#include "platform/controls/Toolkit.h"
#include "platform/services/Dialogs.h"
#include "window/CoreState.h"
#include "window/MainForm.h"
#include "window/ModelessForms.h"

namespace pixorra {

namespace {

constexpr double FontSize = 16;
constexpr int Margin = 24;  // pixels, as all of these
constexpr int ShadowOffset = 1;
constexpr int LeastWidth = 280;
constexpr int MillisecondsShown = 2000;
// A window manager takes its time to put a frame around a window, and before that nothing is painted.
constexpr double SecondsToPaint = 0.15;

}  // namespace

ConfirmForm::ConfirmForm(MainForm& main) : Window(main.host.toolkit, "ConfirmForm"), main_(main) {
  Window.SetCaption(ApplicationTitle);
  Window.SetBackColor(palette::NoticeBack);
  Window.SetKeyPreview(true);
  for (Label* label : {&Label1, &Label2}) {
    label->SetFont({"", FontSize, true});
    label->SetAutoSize(true);
    Connect(label->On().Click, [this](Control&) { Clicked(); });
  }
  Label1.SetForeColor(palette::NoticeShadow);
  Connect(Label1.On().SpokenName, [](const Control&) { return std::string(); });
  Timer1.SetEnabled(false);
  Connect(Timer1.On().Timer, [this](Control&) { Window.Unload(); });
  Connect(Window.On().Load, [this](Control&) {
    printing_ = false;
    Timer1.SetInterval(MillisecondsShown);
    Timer1.SetEnabled(true);
  });
  Connect(Window.On().Click, [this](Control&) { Clicked(); });
  Connect(Window.On().KeyPress, [this](Control&, int& code) {
    code = 0;
    Clicked();
  });
  Connect(Window.On().KeyDown, [this](Control&, int& code, int shift) {
    // Who works by key has not asked for this window.
    Toolkit& toolkit = main_.host.toolkit;
    if (!printing_ && toolkit.KeyPressed(main_.Window, code, shift, toolkit.Stroke())) code = 0;
  });
}

ConfirmForm& ConfirmForm::Of(MainForm& main) {
  return main.modeless.Get<ConfirmForm>(main);
}

bool ConfirmForm::ConfirmClipboard() {
  return ShowForAWhile("Copied to Clipboard", palette::NoticeCopied);
}

bool ConfirmForm::ConfirmSave() {
  return ShowForAWhile("Saved to File", palette::NoticeSaved);
}

bool ConfirmForm::ShowForAWhile(const std::string& text, Colour colour) {
  const int own = ++notices_;
  Window.Load();
  printing_ = false;
  Write(text, colour);
  Show();
  return main_.host.toolkit.WaitFor(SecondsToPaint) && own == notices_;
}

void ConfirmForm::ConfirmPrint(const std::string& text) {
  Window.Load();
  ++notices_;
  // After the load, which starts every notice as one that closes by itself.
  printing_ = true;
  Write(text, palette::NoticePrinting);
  Show();
  Timer1.SetEnabled(false);
  Window.Refresh();
}

void ConfirmForm::Write(const std::string& text, Colour colour) {
  Label1.SetCaption(text);
  Label2.SetCaption(text);
  Label2.SetForeColor(colour);
  const int width = std::max(LeastWidth, Label2.Width() + 2 * Margin);
  const double left = (width - Label2.Width()) / 2.0;
  Label2.Move(left, Margin);
  Label1.Move(left + ShadowOffset, Margin + ShadowOffset);
  Window.SetClientSize(width, Label2.Height() + 2 * Margin);
}

void ConfirmForm::Show() {
  Window.CentreOn(&main_.Window);
  Window.ShowOwned(&main_.Window);
  // Two seconds from now on, also where it is up already.
  Timer1.SetInterval(MillisecondsShown);
  Timer1.SetEnabled(true);
}

void ConfirmForm::Clicked() {
  if (!printing_) return;
  const BoxAnswer answer = main_.host.dialogs.MsgBox("Do you want to STOP printing?", BoxIcon::Question,
                                                     BoxButtons::YesNo, "Abort Printing");
  if (answer == BoxAnswer::Yes) main_.core.PrintAborted = true;
}

}  // namespace pixorra
