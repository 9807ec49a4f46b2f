// The fixture of the contract tests: a platform of the back end under test, and a log of what handlers heard.
#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"
#include "tests/platform/contract/ContractPlatform.h"

namespace pixorra {

class ContractTest : public ::testing::Test {
 protected:
  void Log(const std::string& text) { heard.push_back(text); }
  std::vector<std::string> Heard() { return std::exchange(heard, {}); }
  // Lets a control write "Name event".
  void Listen(Control& control) {
    const auto plain = [this](const char* event) {
      return [this, event](Control& source) { Log(source.Name() + " " + event); };
    };
    const auto mouse = [this](const char* event) {
      return [this, event](Control& source, const MouseArgs&) { Log(source.Name() + " " + event); };
    };
    control.On().Click = plain("Click");
    control.On().DblClick = plain("DblClick");
    control.On().Change = plain("Change");
    control.On().MouseDown = mouse("MouseDown");
    control.On().MouseUp = mouse("MouseUp");
  }

  std::vector<std::string> heard;
  std::unique_ptr<ContractPlatform> platform = MakeContractPlatform();
  Toolkit& toolkit = platform->GetToolkit();
};

// With a form of 400 by 300 pixels inside, on show.
class FormContract : public ContractTest {
 protected:
  FormContract() {
    form.SetClientSize(400, 300);
    form.SetCaption("Contract");
  }
  void Show() {
    form.Show();
    platform->Settle();
  }
  Form form{toolkit, "ContractForm"};
};

}  // namespace pixorra
