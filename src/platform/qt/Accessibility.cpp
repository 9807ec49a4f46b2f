#include "platform/qt/Accessibility.h"

#include <QAbstractSlider>
#include <QAccessibleWidget>
#include <algorithm>
#include <map>
#include <vector>

#include "platform/controls/Form.h"
#include "platform/controls/Painting.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/BarAccessible.h"
#include "platform/qt/ClientArea.h"
#include "platform/qt/DropDownAccessible.h"
#include "platform/qt/FormPeer.h"
#include "platform/qt/LightAccessible.h"
#include "platform/qt/QtBackend.h"
#include "platform/qt/TreeAccessible.h"
#include "platform/qt/WindowAccessible.h"

namespace pixorra {

namespace {

// What was last said of a control.
struct Said {
  Watch<Control> Of;
  QString Name;
};

// Where a control array was met first, its elements follow in their order: they are painted the other way round.
void PutInOrder(std::vector<Control*>& controls) {
  std::map<const Events*, std::size_t> met;
  for (std::size_t i = 0; i < controls.size(); ++i) met.try_emplace(&controls[i]->On(), i);
  std::ranges::stable_sort(
      controls, {}, [&met](const Control* control) { return std::pair(met.at(&control->On()), control->Index()); });
}

// Widgets come first, then the light controls in the order in which they are painted.
class ClientAccessible final : public QAccessibleWidget {
 public:
  explicit ClientAccessible(ClientArea& client) : QAccessibleWidget(&client, QAccessible::Pane), client_(client) {}
  ~ClientAccessible() override {
    for (const auto& [control, id] : children_) QAccessible::deleteAccessibleInterface(id);
  }

  int childCount() const override { return Widgets() + static_cast<int>(Spoken().size()); }
  QAccessibleInterface* child(int index) const override {
    if (index < Widgets()) return QAccessibleWidget::child(index);
    const std::vector<Control*> spoken = Spoken();
    const auto at = static_cast<std::size_t>(index - Widgets());
    return at < spoken.size() ? InterfaceOf(*spoken[at]) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const auto* light = dynamic_cast<const LightAccessible*>(child);
    if (light == nullptr) return QAccessibleWidget::indexOfChild(child);
    const std::vector<Control*> spoken = Spoken();
    for (std::size_t i = 0; i < spoken.size(); ++i) {
      if (spoken[i] == light->GetControl()) return Widgets() + static_cast<int>(i);
    }
    return -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    if (QAccessibleInterface* widget = QAccessibleWidget::childAt(x, y)) return widget;
    if (client_.GetPeer() == nullptr) return nullptr;
    const QPoint at = client_.mapFromGlobal(QPoint(x, y));
    Form& form = client_.GetPeer()->GetForm();
    Control* control = client_.GetPeer()->GetBackend().GetToolkit().ControlAt(form, at.x(), at.y());
    return control != &form && !SpokenName(*control).isEmpty() ? InterfaceOf(*control) : nullptr;
  }

  QAccessibleInterface* focusChild() const override {
    if (client_.GetPeer() == nullptr) return QAccessibleWidget::focusChild();
    Control* focus = client_.GetPeer()->GetBackend().GetToolkit().Focus();
    const bool light = focus != nullptr && &focus->GetForm() == &client_.GetPeer()->GetForm() &&
                       TraitsOf(focus->GetKind()).Shown == ShownAs::Light;
    return light ? InterfaceOf(*focus) : QAccessibleWidget::focusChild();
  }

  // Helpers keep what they were given: a control has one interface as long as it lives.
  QAccessibleInterface* InterfaceOf(Control& control) const {
    const auto known = children_.find(&control);
    if (known != children_.end()) {
      QAccessibleInterface* present = QAccessible::accessibleInterface(known->second);
      if (present != nullptr && present->isValid()) return present;
      QAccessible::deleteAccessibleInterface(known->second);
    }
    auto* made = new LightAccessible(client_, control);
    children_[&control] = QAccessible::registerAccessibleInterface(made);
    return made;
  }

  void TellFocused(Control& control) const { Tell(control, QAccessible::Focus); }

  // A choice that moves is told as the focus is, unless that is elsewhere; so is a name that changes under either.
  void Follow() {
    FormPeer* peer = client_.GetPeer();
    if (peer == nullptr) return;
    const Form& form = peer->GetForm();
    Control* focus = peer->GetBackend().GetToolkit().Focus();
    const bool light = focus != nullptr && &focus->GetForm() == &form && !focus->IsNative() && focus != &form;
    Follow(focus_, light ? focus : nullptr, false);
    Follow(choice_, form.On().SpokenChoice ? form.On().SpokenChoice(form) : nullptr, client_.isActiveWindow());
  }

 private:
  void Follow(Said& said, Control* control, bool asFocus) {
    const bool same = control != nullptr && said.Of.Get() == control;
    const QString name = control != nullptr ? SpokenName(*control) : QString();
    const bool renamed = same && said.Name != name;
    said = {Watch<Control>::Of(control), name};
    if (control == nullptr || name.isEmpty()) return;
    if (renamed) Tell(*control, QAccessible::NameChanged);
    if (!same && asFocus) Tell(*control, QAccessible::Focus);
  }

  int Widgets() const { return QAccessibleWidget::childCount(); }

  // Those out of sight are left out: there may be tens of thousands of them.
  std::vector<Control*> Spoken() const {
    std::vector<Control*> spoken;
    if (client_.GetPeer() == nullptr) return spoken;
    const Form& form = client_.GetPeer()->GetForm();
    for (const PaintItem& item : ItemsToPaint(form, {0, 0, client_.width(), client_.height()})) {
      if (item.Clip.IsEmpty() || TraitsOf(item.Source->GetKind()).Spoken == SpokenAs::Nothing) continue;
      if (!SpokenName(*item.Source).isEmpty()) spoken.push_back(const_cast<Control*>(item.Source));
    }
    PutInOrder(spoken);
    return spoken;
  }

  void Tell(Control& control, QAccessible::Event what) const {
    QAccessibleEvent event(InterfaceOf(control), what);
    QAccessible::updateAccessibility(&event);
  }

  ClientArea& client_;
  Said choice_;
  Said focus_;
  mutable std::map<const Control*, QAccessible::Id> children_;
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
  if (auto* client = dynamic_cast<ClientArea*>(object)) return new ClientAccessible(*client);
  if (auto* window = dynamic_cast<FormWindow*>(object)) return new WindowAccessible(*window);
  if (auto* tree = dynamic_cast<TreeWidget*>(object)) return new TreeAccessible(*tree);
  if (auto* view = qobject_cast<QListView*>(object)) {
    QComboBox* const list = DropDownOf(*view);
    return list != nullptr ? new DropDownAccessible(*view, *list) : nullptr;
  }
  auto* bar = qobject_cast<QAbstractSlider*>(object);
  if (bar != nullptr && dynamic_cast<ClientArea*>(bar->parent()) != nullptr) return new BarAccessible(*bar);
  return nullptr;
}

}  // namespace

void TellFocused(ClientArea& client, Control& control) {
  if (!QAccessible::isActive()) return;
  const auto* area = dynamic_cast<ClientAccessible*>(QAccessible::queryAccessibleInterface(&client));
  if (area != nullptr) area->TellFocused(control);
}

void TellRenamed(FormWindow& window) {
  if (!QAccessible::isActive()) return;
  QAccessibleEvent event(&window, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&event);
}

void FollowSpoken(ClientArea& client) {
  if (!QAccessible::isActive()) return;
  auto* area = dynamic_cast<ClientAccessible*>(QAccessible::queryAccessibleInterface(&client));
  if (area != nullptr) area->Follow();
}

void InstallAccessibility() {
  QAccessible::installFactory(MakeAccessible);
}

}  // namespace pixorra
