// A box to type in.
#pragma once

#include <string>

#include "platform/controls/Container.h"

namespace pixorra {

class TextBox : public Control {
 public:
  TextBox(Container& container, const std::string& name);

  const std::string& Text() const { return text_; }
  // A different text raises Change and takes the selection to its start.
  void SetText(const std::string& text);
  // Bytes of the text, at character borders.
  int SelStart() const { return selStart_; }
  int SelLength() const { return selLength_; }
  void Select(int start, int length);
  bool MultiLine() const { return multiLine_; }
  void SetMultiLine(bool multiLine);
  bool Locked() const { return locked_; }  // a person can read but not change it
  void SetLocked(bool locked);

  // The text as a person has left it, and the byte at which the cursor is then (below 0: where it was); and the
  // selection within it.
  void UserTyped(const std::string& text, int cursor = -1);
  void UserSelected(int start, int length);

 private:
  std::string text_;
  int selStart_ = 0;
  int selLength_ = 0;
  bool multiLine_ = false;
  bool locked_ = false;
};

}  // namespace pixorra
