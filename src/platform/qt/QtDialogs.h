// The host's own boxes: questions, a line of text, a colour; and the beep.
#pragma once

#include "platform/services/Dialogs.h"

namespace pixorra {

class QtBackend;

class QtDialogs final : public Dialogs {
 public:
  explicit QtDialogs(QtBackend& backend) : backend_(backend) {}

  BoxAnswer MsgBox(const std::string& text, BoxIcon icon, BoxButtons buttons, const std::string& title) override;
  std::string InputBox(const std::string& prompt, const std::string& title, const std::string& present) override;
  std::optional<Colour> ChooseColour(Colour start) override;
  void Beep() override;

 private:
  QtBackend& backend_;
};

}  // namespace pixorra
