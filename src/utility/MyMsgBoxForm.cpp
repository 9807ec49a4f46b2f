#include "utility/MyMsgBoxForm.h"

#include "base/Definition.h"
#include "platform/services/Dialogs.h"
#include "window/MainForm.h"
#include "window/ModelessForms.h"

namespace pixorra {

namespace {

constexpr int IconSize = 32;  // pixels, as all of these
constexpr int Edge = 16;      // to the left of and above what is shown
constexpr int ButtonWidth = 80;
constexpr int ButtonHeight = 28;
constexpr int MarginTwips = 200;  // to the right, below the text, and below the button
constexpr int MillisecondsShown = 30'000;

}  // namespace

MyMsgBoxForm::MyMsgBoxForm(Host& host) : Window(host.toolkit, "MyMsgBoxForm"), host_(host) {
  Window.SetCaption("Title");
  Image1.SetPicture(Drawing(host, "Information", IconSize, IconSize));
  Image1.Move(Edge, Edge, IconSize, IconSize);
  MessageLabel.SetAutoSize(true);
  MessageLabel.Move(2 * Edge + IconSize, Edge, 0, 0);
  OKButton.SetCaption("OK");
  OKButton.SetDefault(true);
  OKButton.SetCancel(true);
  OKButton.Move(Edge, Edge, ButtonWidth, ButtonHeight);
  Timer1.SetEnabled(false);
  Connect(OKButton.On().Click, [this](Control&) { Window.Unload(); });
  Connect(Timer1.On().Timer, [this](Control&) { Window.Unload(); });
}

MyMsgBoxForm& MyMsgBoxForm::Of(MainForm& main) {
  return main.modeless.Get<MyMsgBoxForm>(main.host);
}

void MyMsgBoxForm::ShowIt(const std::string& text, const std::string& title) {
  constexpr int margin = MarginTwips / TwipsPerPixel;
  MessageLabel.SetCaption(text);
  Window.SetTwipsWidth((MessageLabel.Left() + MessageLabel.Width()) * TwipsPerPixel + MarginTwips);
  OKButton.SetLeft((Window.ScaleWidth() - OKButton.Width()) / 2.0);
  OKButton.SetTop(MessageLabel.Top() + MessageLabel.Height() + margin);
  // The frame is beside the margin here, so that the button keeps its distance from the edge.
  Window.SetTwipsHeight((OKButton.Top() + OKButton.Height() + Form::FrameHeight) * TwipsPerPixel + MarginTwips);
  Window.SetCaption(title);
  Window.Show();
  Window.SetStaysOnTop(true);
  host_.dialogs.Beep();
  Timer1.SetInterval(MillisecondsShown);
  Timer1.SetEnabled(true);
}

}  // namespace pixorra
