#include "platform/controls/Container.h"

#include <cassert>

#include "platform/controls/Form.h"

namespace pixorra {

// Controls are members of the object that owns them all, or of control arrays, and are destroyed before their
// container.
Container::~Container() {
  for (Control* control : controls_) control->container_ = nullptr;
}

void Container::Add(Control& control) {
  control.slot_ = static_cast<int>(controls_.size());
  control.z_ = ++front_;
  controls_.push_back(&control);
  places_.push_back(control.bounds_);
  if (!control.IsNative()) return;
  CountNatives(1);
  if (Peer* window = GetForm().GetPeer()) window->Update(Change::Controls);
}

void Container::Moved(const Control& control) {
  places_[static_cast<std::size_t>(control.slot_)] = control.bounds_;
}

void Container::CountNatives(int change) {
  for (Container* outer = this; outer != nullptr; outer = outer->GetContainer()) outer->natives_ += change;
}

void Container::Remove(Control& control) {
  const auto slot = static_cast<std::size_t>(control.slot_);
  assert(slot < controls_.size() && controls_[slot] == &control);
  controls_[slot] = controls_.back();
  controls_[slot]->slot_ = control.slot_;
  controls_.pop_back();
  places_[slot] = places_.back();
  places_.pop_back();
  control.slot_ = -1;
  if (control.IsNative()) CountNatives(-1);
}

void Container::BoundsChanged(const Rect& before) {
  Control::BoundsChanged(before);
  TellPeersWithin(Change::Position);
}

void Container::VisibleChanged() {
  Control::VisibleChanged();
  TellPeersWithin(Change::Visible);
  // What changed on a form while it was hidden was not noted piece by piece.
  if (GetKind() == Kind::Form && Visible()) static_cast<Form*>(this)->InvalidateAll();
}

void Container::TellPeersWithin(Change change) {
  if (natives_ == 0) return;
  // By position and not by iterator: a peer may make or drop controls in its update.
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    Control* control = controls_[i];
    if (control->GetPeer() != nullptr) control->GetPeer()->Update(change);
    if (Container* inner = AsContainer(*control)) inner->TellPeersWithin(change);
  }
}

void Container::MakePeersWithin() {
  if (natives_ == 0) return;
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    controls_[i]->MakePeer();
    if (Container* inner = AsContainer(*controls_[i])) inner->MakePeersWithin();
  }
}

void Container::DropPeersWithin() {
  if (natives_ == 0) return;
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    if (Container* inner = AsContainer(*controls_[i])) inner->DropPeersWithin();
    controls_[i]->DropPeer();
  }
}

Container* AsContainer(Control& control) {
  return TraitsOf(control.GetKind()).HoldsOthers ? static_cast<Container*>(&control) : nullptr;
}

const Container* AsContainer(const Control& control) {
  return AsContainer(const_cast<Control&>(control));
}

void Frame::SetCaption(const std::string& caption) {
  if (caption == caption_) return;
  caption_ = caption;
  Changed(Change::Text);
}

void Frame::SetColors(Colour fore, Colour back) {
  foreColor_ = fore;
  backColor_ = back;
  Changed(Change::Look);
  TellPeersWithin(Change::Look);
}

}  // namespace pixorra
