// The drag that is under way, if one is: its source, its target, and what of it is seen. Its moves raise DragOver.
#pragma once

#include "platform/controls/Backend.h"
#include "platform/controls/Control.h"

namespace pixorra {

class Drags {
 public:
  struct Shown {
    Control* Source = nullptr;  // null: no drag runs
    Form* Over = nullptr;       // the form that has the mouse
    Rect Outline;               // in pixels of that form
    int X = 0;
    int Y = 0;
  };
  // What was let go, and over which control.
  struct Drop {
    Watch<Control> Source;
    Watch<Control> Target;
  };

  explicit Drags(Backend& backend) : backend_(backend) {}
  bool Runs() const { return static_cast<bool>(source_); }
  Shown Look() const;

  // Points are pixels of the form's client area. The source is its own first target.
  void Begin(Form& form, Control& source, int x, int y);
  void Move(Form& form, int x, int y);
  // The last move, after which no drag runs any more.
  Drop End(Form& form, int x, int y);
  void Cancel();
  void IconChanged(const Control& control);
  // A control is about to be destroyed.
  void Forget(const Control& control);

 private:
  Backend& backend_;
  Watch<Control> source_;
  Watch<Control> target_;
  Watch<Form> form_;
  int x_ = 0;
  int y_ = 0;
  int grabX_ = 0;  // where on the source it was taken
  int grabY_ = 0;
};

}  // namespace pixorra
