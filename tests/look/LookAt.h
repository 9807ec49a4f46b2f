// Measures what a person sees of a form: whether its texts stand out from what they lie on, and whether all of each can
// be seen.
#pragma once

#include <QImage>
#include <string>
#include <vector>

#include "platform/controls/Form.h"

class QAbstractButton;
class QWidget;

namespace pixorra {

class Label;

class LookAt {
 public:
  explicit LookAt(Form& form);

  // What is wrong with the texts of the form, a line each: labels, frames' captions and buttons.
  std::vector<std::string> Faults();
  // How many texts have been looked at.
  int Texts() const { return texts_; }

 private:
  void Look(const Container& container);
  void LookAtLabel(Label& label);
  void LookAtFrame(const Frame& frame);
  void LookAtButtons();
  void LookAtButton(QAbstractButton& button);
  void Fault(const std::string& where, const std::string& what) { faults_.push_back(where + ": " + what); }
  // The text's colour against all that is seen where the text will stand.
  void Compare(const std::string& where, const QColor& text, const QImage& ground);
  QImage Shot(const QRect& at);

  Form& form_;
  QWidget& client_;
  std::vector<std::string> faults_;
  int texts_ = 0;
};

}  // namespace pixorra
