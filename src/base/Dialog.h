// Asking by a dialog: a button's handler gives the answer and hides the form, closing it by its frame gives the default
// answer, and who asked reads it once the form has gone.
#pragma once

#include <optional>
#include <utility>

#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"

namespace pixorra {

// Shows the form in the middle of its owner, and returns when it has been hidden or unloaded or the program has ended.
inline void ShowDialog(Form& window, Form& owner) {
  window.CentreOn(&owner);
  window.ShowModal(&owner);
}

template <typename Answer>
class Dialog {
 public:
  // Takes the form's QueryUnload. The form must outlive it.
  Dialog(Form& window, Answer byDefault) : window_(window), byDefault_(std::move(byDefault)) {
    Connect(window_.On().QueryUnload, [this](Control&) {
      if (!answer_) answer_ = byDefault_;
    });
  }
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;

  // A click of the button gives this answer.
  void AnswerBy(CommandButton& button, const Answer& answer) {
    Connect(button.On().Click, [this, answer](Control&) { Give(answer); });
  }
  // Keeps the answer and hides the form.
  void Give(const Answer& answer) {
    answer_ = answer;
    window_.Hide();
  }
  // Shows the form and waits, then unloads it. A form that was hidden without an answer keeps this waiting until one is
  // given. The default answer where the program ends first.
  Answer Ask(Form& owner) {
    answer_.reset();
    ShowDialog(window_, owner);
    window_.OwnToolkit().WaitUntil([this] { return answer_.has_value(); });
    const Answer answer = answer_.value_or(byDefault_);
    window_.Unload();
    return answer;
  }

 private:
  Form& window_;
  Answer byDefault_;
  std::optional<Answer> answer_;
};

}  // namespace pixorra
