// The notice of what has just been done, or of a print job's progress, that is shown above the main window.
#pragma once

#include <string>

#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/controls/Timer.h"

namespace pixorra {

struct MainForm;

class ConfirmForm {
 public:
  explicit ConfirmForm(MainForm& main);

  // The one of the main window, made when it is first wanted.
  static ConfirmForm& Of(MainForm& main);

  // These two let events run, so that the notice is seen before what follows. False where the program has ended in
  // that, or another notice is shown by now: what this one is about has been overtaken. The notice closes by itself
  // after two seconds; meanwhile keys are the main window's.
  bool ConfirmClipboard();
  bool ConfirmSave();
  // Paints the notice at once, and lets no events run. It stays until the form is unloaded. A click or a key press asks
  // whether to stop, and sets PrintAborted.
  void ConfirmPrint(const std::string& text);

  Form Window;
  Label Label1{Window, "Label1"};  // the shadow
  Label Label2{Window, "Label2"};
  Timer Timer1{Window, "Timer1", 0};

 private:
  bool ShowForAWhile(const std::string& text, Colour colour);
  void Write(const std::string& text, Colour colour);
  void Show();
  void Clicked();

  MainForm& main_;
  bool printing_ = false;
  int notices_ = 0;  // shown so far
};

}  // namespace pixorra
