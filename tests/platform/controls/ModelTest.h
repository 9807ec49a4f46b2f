// A form on the headless back end for tests of the control model, and a log of what handlers heard.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/controls/Form.h"
#include "tests/support/headless/HeadlessTest.h"

namespace pixorra {

class ModelTest : public HeadlessTest {
 protected:
  // 400 by 300 pixels inside.
  ModelTest() { form.SetClientSize(400, 300); }

  void Log(const std::string& text) { heard.push_back(text); }
  // What was heard since the last time.
  std::vector<std::string> Heard() { return std::exchange(heard, {}); }
  // Lets the mouse and focus events of a control write "Name event".
  void Listen(Control& control) {
    Events& on = control.On();
    const auto plain = [this](const char* event) {
      return [this, event](Control& source) { Log(source.Name() + " " + event); };
    };
    const auto mouse = [this](const char* event) {
      return [this, event](Control& source, const MouseArgs&) { Log(source.Name() + " " + event); };
    };
    on.Click = plain("Click");
    on.DblClick = plain("DblClick");
    on.GotFocus = plain("GotFocus");
    on.LostFocus = plain("LostFocus");
    on.MouseDown = mouse("MouseDown");
    on.MouseUp = mouse("MouseUp");
  }

  std::vector<std::string> heard;
  Form form{toolkit, "MainForm"};
};

// The same with the form on show.
class ShownModelTest : public ModelTest {
 protected:
  ShownModelTest() { form.Show(); }
};

}  // namespace pixorra
