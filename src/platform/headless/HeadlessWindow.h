// The window of a form that nobody sees: its state, the bounds it goes back to, and what waits to be painted.
#pragma once

#include "platform/controls/Form.h"
#include "platform/controls/Peer.h"

namespace pixorra {

class HeadlessBackend;

class HeadlessWindow : public Peer {
 public:
  HeadlessWindow(HeadlessBackend& backend, Form& form);
  ~HeadlessWindow() override;
  HeadlessWindow(const HeadlessWindow&) = delete;
  HeadlessWindow& operator=(const HeadlessWindow&) = delete;

  Form& Shown() const { return form_; }
  void Update(Change change) override;
  void Invalidate(const Rect& rect) override;

  // What a person does with the frame.
  void UserSetState(int state);
  void UserResized(double twipsWidth, double twipsHeight);
  // The screen has another size.
  void ScreenChanged();

  // How many parts have been told out of date, and the rectangle around them, since it was last asked.
  struct Exposed {
    int Parts = 0;
    Rect Area;
  };
  Exposed TakeExposed();

 private:
  struct Bounds {
    double Left = 0;
    double Top = 0;
    double Width = 0;
    double Height = 0;
  };
  void Apply(int state);
  void CoverScreen();

  HeadlessBackend& backend_;
  Form& form_;
  Bounds normal_;
  Exposed exposed_;
  int shownState_ = windowstate::Normal;
};

}  // namespace pixorra
