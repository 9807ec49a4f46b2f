// Controls that hold others: forms, picture boxes and frames.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/controls/Control.h"

namespace pixorra {

class Container : public Control {
 public:
  ~Container() override;

  // In no order; ZOrder says which is in front.
  const std::vector<Control*>& Controls() const { return controls_; }
  // The bounds of the same controls in the same order, side by side: thousands are looked through for those at one
  // place several times as fast as the controls themselves would be.
  const std::vector<Rect>& Places() const { return places_; }
  // The area that its controls share, in pixels.
  virtual int ScaleWidth() const { return Width(); }
  virtual int ScaleHeight() const { return Height(); }

  // For native controls within: their place or visibility depends on this one.
  void TellPeersWithin(Change change);
  void MakePeersWithin();
  bool HasNatives() const { return natives_ > 0; }
  void DropPeersWithin();

 protected:
  using Control::Control;
  void BoundsChanged(const Rect& before) override;
  void VisibleChanged() override;

 private:
  friend class Control;
  void Add(Control& control);
  void Remove(Control& control);
  void Moved(const Control& control);

  // Counts native controls within, at any depth: a strip of thousands of light ones is moved without asking each.
  void CountNatives(int change);

  std::vector<Control*> controls_;
  std::vector<Rect> places_;
  int natives_ = 0;
  int front_ = 0;
  int back_ = 0;
};

// The control as a container, or null where it is none.
Container* AsContainer(Control& control);
const Container* AsContainer(const Control& control);

// A captioned box around a group of controls; its option buttons are one group.
class Frame : public Container {
 public:
  Frame(Container& container, const std::string& name)
      : Container(&container, Kind::Frame, std::make_shared<Identity>(Identity{name, {}}), 0) {}

  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);
  // Of the frame, and of the buttons within it.
  Colour ForeColor() const { return foreColor_; }
  Colour BackColor() const { return backColor_; }
  void SetColors(Colour fore, Colour back);

 private:
  std::string caption_;
  Colour foreColor_ = ButtonText;
  Colour backColor_ = ButtonFace;
};

}  // namespace pixorra
