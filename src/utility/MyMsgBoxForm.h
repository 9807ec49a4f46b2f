// A message that is not waited for: it stays above other windows, while a person works in one of them, and goes by
// itself after half a minute.
#pragma once

#include <string>

#include "base/Host.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/Timer.h"

namespace pixorra {

struct MainForm;

class MyMsgBoxForm {
 public:
  explicit MyMsgBoxForm(Host& host);

  // The one of the main window, made when it is first wanted.
  static MyMsgBoxForm& Of(MainForm& main);
  // Returns at once. While it is up already, the text is replaced and its time begins anew.
  void ShowIt(const std::string& text, const std::string& title);

  Form Window;
  ImageBox Image1{Window, "Image1"};
  Label MessageLabel{Window, "MessageLabel"};
  CommandButton OKButton{Window, "OKButton"};
  Timer Timer1{Window, "Timer1", 0};

 private:
  Host& host_;
};

}  // namespace pixorra
