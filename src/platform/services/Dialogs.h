// Questions to the user that need no form of the program's own, and the beep. Each returns when it is answered; timers
// run meanwhile.
#pragma once

#include <optional>
#include <string>

#include "platform/pixels/Picture.h"

namespace pixorra {

enum class BoxIcon { None = 0, Critical = 16, Question = 32, Exclamation = 48, Information = 64 };
enum class BoxButtons { Ok = 0, YesNo = 4 };
enum class BoxAnswer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  // `text` is lines joined by CR LF or LF. An Ok box that is closed with the Esc key returns Cancel, one that is closed
  // in any other way Ok. A Yes and No box that is closed without its buttons returns No.
  virtual BoxAnswer MsgBox(const std::string& text, BoxIcon icon, BoxButtons buttons, const std::string& title) = 0;
  // What was typed, starting from `present`; empty on cancel.
  virtual std::string InputBox(const std::string& prompt, const std::string& title, const std::string& present) = 0;
  // Nothing on cancel.
  virtual std::optional<Colour> ChooseColour(Colour start) = 0;
  virtual void Beep() = 0;
};

}  // namespace pixorra
