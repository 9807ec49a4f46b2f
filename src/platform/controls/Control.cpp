#include "platform/controls/Control.h"

#include <cassert>

#include "platform/controls/Container.h"
#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"

namespace pixorra {

Control::Control(Container* container, Kind kind, std::shared_ptr<Identity> identity, int index)
    : container_(container), identity_(std::move(identity)), index_(index), kind_(kind) {
  if (container_ != nullptr) container_->Add(*this);
}

Control::~Control() {
  if (container_ != nullptr) {
    if (IsShown()) Invalidate();
    GetToolkit().Forget(*this);
    container_->Remove(*this);
  }
  life_.reset();
}

Form& Control::GetForm() {
  Control* control = this;
  while (control->container_ != nullptr) control = control->container_;
  assert(control->kind_ == Kind::Form);
  return static_cast<Form&>(*control);
}

const Form& Control::GetForm() const {
  return const_cast<Control*>(this)->GetForm();
}

Toolkit& Control::GetToolkit() const {
  return GetForm().OwnToolkit();
}

void Control::SetLeft(double left) {
  Move(left, bounds_.Top, bounds_.Width, bounds_.Height);
}
void Control::SetTop(double top) {
  Move(bounds_.Left, top, bounds_.Width, bounds_.Height);
}
void Control::SetWidth(double width) {
  Move(bounds_.Left, bounds_.Top, width, bounds_.Height);
}
void Control::SetHeight(double height) {
  Move(bounds_.Left, bounds_.Top, bounds_.Width, height);
}

void Control::Move(double left, double top, double width, double height) {
  const Rect bounds{CLng(left), CLng(top), CLng(width), CLng(height)};
  if (bounds.Width < 0 || bounds.Height < 0) throw RuntimeError(error::BadPropertyValue);
  SetBounds(bounds);
}

void Control::SetBounds(const Rect& bounds) {
  if (bounds == bounds_) return;
  const Rect before = bounds_;
  if (container_ != nullptr && visible_) Invalidate();
  bounds_ = bounds;
  if (container_ != nullptr) container_->Moved(*this);
  BoundsChanged(before);
}

void Control::BoundsChanged(const Rect&) {
  Changed(Change::Position);
}

void Control::SetVisible(bool visible) {
  if (visible == visible_) return;
  if (!visible) Invalidate();
  visible_ = visible;
  VisibleChanged();
  // Last: a handler of LostFocus may destroy the control.
  if (!visible) GetToolkit().GetWindows().FocusLeaves(*this);
}

void Control::VisibleChanged() {
  Changed(Change::Visible);
}

void Control::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  EnabledChanged();
  if (!enabled) GetToolkit().GetWindows().FocusLeaves(*this);
}

void Control::EnabledChanged() {
  Changed(Change::Enabled);
}

bool Control::IsShown() const {
  for (const Control* control = this; control != nullptr; control = control->container_) {
    if (!control->visible_) return false;
  }
  return true;
}

void Control::SetToolTipText(const std::string& text) {
  if (text == toolTipText_) return;
  toolTipText_ = text;
  if (peer_) peer_->Update(Change::Look);
}

const std::string& Control::AccessibleName() const {
  return Extras().accessibleName;
}

void Control::SetAccessibleName(const std::string& name) {
  MakeExtras().accessibleName = name;
  if (peer_) peer_->Update(Change::Look);
}

void Control::SetMousePointer(int pointer) {
  if (pointer == mousePointer_) return;
  mousePointer_ = static_cast<std::uint8_t>(pointer);
  GetToolkit().PointerChanged(*this);
}

void Control::SetMouseIcon(const Picture& icon) {
  if (icon == Extras().mouseIcon) return;
  MakeExtras().mouseIcon = icon;
  GetToolkit().PointerChanged(*this);
}

void Control::SetDragIcon(const Picture& icon) {
  if (icon == Extras().dragIcon) return;
  MakeExtras().dragIcon = icon;
  GetToolkit().DragIconChanged(*this);
}

const Control::Rare& Control::Extras() const {
  static const Rare none;
  return rare_ ? *rare_ : none;
}

Control::Rare& Control::MakeExtras() {
  if (!rare_) rare_ = std::make_unique<Rare>();
  return *rare_;
}

void Control::BringToFront() {
  if (container_ == nullptr) return;
  if (z_ == container_->front_) return;
  z_ = ++container_->front_;
  Changed(Change::Look);
}

void Control::SendToBack() {
  if (container_ == nullptr) return;
  z_ = --container_->back_;
  Changed(Change::Look);
}

void Control::SetFocus() {
  GetToolkit().SetFocus(this);
}

bool Control::HasFocus() const {
  return GetToolkit().Focus() == this;
}

void Control::Refresh() {
  if (peer_) {
    peer_->Update(Change::Refresh);
    return;
  }
  Invalidate();
  if (Peer* window = GetForm().GetPeer()) window->Update(Change::Refresh);
}

Rect Control::ShownRect() const {
  Rect rect = bounds_;
  for (const Container* outer = container_; outer != nullptr && !rect.IsEmpty(); outer = outer->GetContainer()) {
    rect = rect.Intersected({0, 0, outer->ScaleWidth(), outer->ScaleHeight()});
    if (outer->GetContainer() != nullptr) rect = rect.Moved(outer->Left(), outer->Top());
  }
  return rect;
}

Rect Control::FormRect() const {
  Rect rect = bounds_;
  for (const Container* outer = container_; outer != nullptr && outer->GetContainer() != nullptr;
       outer = outer->GetContainer()) {
    rect = rect.Moved(outer->Left(), outer->Top());
  }
  return rect;
}

bool Control::IsNative() const {
  const ShownAs shown = TraitsOf(kind_).Shown;
  return shown == ShownAs::Window || shown == ShownAs::Widget;
}

void Control::MakePeer() {
  if (peer_ == nullptr && IsNative()) peer_ = GetToolkit().NewPeer(*this);
}

void Control::DropPeer() {
  peer_.reset();
}

void Control::ChangePeer() {
  const Watch<Control> self(*this);
  if (peer_ != nullptr) {
    DropPeer();
    MakePeer();
  }
  if (self) Changed(Change::Look);
}

void Control::CopyFrom(const Control& source) {
  bounds_ = source.bounds_;
  if (container_ != nullptr) container_->Moved(*this);
  tag_ = source.tag_;
  toolTipText_ = source.toolTipText_;
  enabled_ = source.enabled_;
  automaticDrag_ = source.automaticDrag_;
  mousePointer_ = source.mousePointer_;
  rare_ = source.rare_ ? std::make_unique<Rare>(*source.rare_) : nullptr;
  visible_ = false;
  z_ = --container_->back_;
}

void Control::Changed(Change change) {
  if (peer_) peer_->Update(change);
  if (change != Change::Focus && change != Change::Menu) Invalidate();
}

void Control::Invalidate() const {
  if (container_ == nullptr || !IsShown()) return;
  const Rect rect = ShownRect().Grown(TraitsOf(kind_).Reach);
  if (!rect.IsEmpty()) GetForm().InvalidateRect(rect);
}

std::weak_ptr<Control*> Control::Life() {
  if (!life_) life_ = std::make_shared<Control*>(this);
  return life_;
}

}  // namespace pixorra
