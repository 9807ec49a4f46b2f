// The base of all controls: a plain object with properties, a container, and events. The model is the truth: a property
// set is a value here first, then the peer is updated, then a copy of the event's handler runs.
#pragma once

#include <cassert>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/controls/Events.h"
#include "platform/controls/Geometry.h"
#include "platform/controls/Kinds.h"
#include "platform/controls/Peer.h"
#include "platform/pixels/Picture.h"

namespace pixorra {

class Container;
class Form;
class Toolkit;

// What all elements of a control array have in common.
struct Identity {
  std::string Name;
  Events On;
};

namespace pointer {
inline constexpr int Default = 0;
inline constexpr int Arrow = 1;
inline constexpr int Hourglass = 11;
inline constexpr int Hidden = 97;  // none is shown
inline constexpr int Hand = 98;    // the program's, from Toolkit::SetHand
inline constexpr int Custom = 99;  // the MouseIcon
}  // namespace pointer

class Control {
 public:
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Kind GetKind() const { return kind_; }
  const std::string& Name() const { return identity_->Name; }
  int Index() const { return index_; }  // in its control array; 0 for a control of its own
  Container* GetContainer() const { return container_; }
  Form& GetForm();
  const Form& GetForm() const;
  Toolkit& GetToolkit() const;
  // The handlers; those of a control array serve all of its elements.
  Events& On() { return identity_->On; }
  const Events& On() const { return identity_->On; }

  // Pixels within the container, whole ones: halves go to the even neighbour. Raises error 380 for a size below 0.
  int Left() const { return bounds_.Left; }
  int Top() const { return bounds_.Top; }
  int Width() const { return bounds_.Width; }
  int Height() const { return bounds_.Height; }
  const Rect& Bounds() const { return bounds_; }
  void SetLeft(double left);
  void SetTop(double top);
  void SetWidth(double width);
  void SetHeight(double height);
  void Move(double left, double top, double width, double height);
  void Move(double left, double top) { Move(left, top, bounds_.Width, bounds_.Height); }

  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  // Visible, and so are all its containers up to the form.
  bool IsShown() const;

  const std::string& Tag() const { return tag_; }
  void SetTag(const std::string& tag) { tag_ = tag; }
  const std::string& ToolTipText() const { return toolTipText_; }
  void SetToolTipText(const std::string& text);
  // What a screen reader says in place of the caption; empty for the caption or tool tip.
  const std::string& AccessibleName() const;
  void SetAccessibleName(const std::string& name);

  int MousePointer() const { return mousePointer_; }
  void SetMousePointer(int pointer);
  const Picture& MouseIcon() const { return Extras().mouseIcon; }
  void SetMouseIcon(const Picture& icon);  // shown when MousePointer is pointer::Custom

  // Automatic: a press of the left button starts a drag.
  bool AutomaticDrag() const { return automaticDrag_; }
  void SetAutomaticDrag(bool automatic) { automaticDrag_ = automatic; }
  // Nothing: the outline of the control is dragged.
  const Picture& DragIcon() const { return Extras().dragIcon; }
  void SetDragIcon(const Picture& icon);

  // In front of, or behind, all others of its container. Newly made controls stand in front, newly loaded elements of a
  // control array behind.
  void BringToFront();
  void SendToBack();
  int ZOrder() const { return z_; }

  void SetFocus();
  bool HasFocus() const;
  // Shows at once what has changed.
  void Refresh();

  // Its place on the form's client area, cut to what its containers show.
  Rect ShownRect() const;
  // The same without cutting.
  Rect FormRect() const;

  Peer* GetPeer() const { return peer_.get(); }
  // Native controls have a peer of their own as long as their form is loaded on a back end with widgets.
  bool IsNative() const;
  void MakePeer();
  void DropPeer();

 protected:
  friend class Container;
  template <typename T>
  friend class Watch;

  Control(Container* container, Kind kind, std::shared_ptr<Identity> identity, int index);
  // For Load of a control array: takes over the properties of the template, except that it is hidden.
  void CopyFrom(const Control& source);
  void Changed(Change change);
  // It is shown by a widget of another sort from now on.
  void ChangePeer();
  // What it shows is out of date on the screen.
  void Invalidate() const;
  // Called when bounds_ has changed: updates peers and repaints. Containers and forms do more.
  virtual void BoundsChanged(const Rect& before);
  virtual void VisibleChanged();
  virtual void EnabledChanged();
  void SetBounds(const Rect& bounds);

 private:
  struct Rare {
    Picture mouseIcon;
    Picture dragIcon;
    std::string accessibleName;
  };
  const Rare& Extras() const;
  Rare& MakeExtras();
  std::weak_ptr<Control*> Life();

  Container* container_;
  std::shared_ptr<Identity> identity_;
  std::unique_ptr<Peer> peer_;
  std::unique_ptr<Rare> rare_;
  std::shared_ptr<Control*> life_;
  std::string tag_;
  std::string toolTipText_;
  Rect bounds_;
  int index_;
  int z_ = 0;
  int slot_ = -1;  // where the container keeps it
  Kind kind_;
  bool visible_ = true;
  bool enabled_ = true;
  bool automaticDrag_ = false;
  std::uint8_t mousePointer_ = 0;
};

// Refers to a control that may be destroyed meanwhile: empty from then on.
template <typename T>
class Watch {
 public:
  Watch() = default;
  explicit Watch(T& control) : life_(static_cast<Control&>(control).Life()) {}
  // Empty from the start for a null pointer.
  static Watch Of(T* control) { return control != nullptr ? Watch(*control) : Watch(); }
  T* Get() const {
    const auto life = life_.lock();
    return life ? static_cast<T*>(*life) : nullptr;
  }
  explicit operator bool() const { return Get() != nullptr; }
  T* operator->() const {
    T* const control = Get();
    assert(control != nullptr);
    return control;
  }

 private:
  std::weak_ptr<Control*> life_;
};

}  // namespace pixorra
