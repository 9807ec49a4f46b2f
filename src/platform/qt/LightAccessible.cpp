#include "platform/qt/LightAccessible.h"

#include <QPoint>
#include <optional>
#include <set>
#include <string>

#include "platform/controls/Container.h"
#include "platform/controls/Label.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/Convert.h"
#include "platform/qt/FormPeer.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

QString SpokenName(const Control& control) {
  if (control.On().SpokenName) return ToQString(control.On().SpokenName(control));
  if (!control.AccessibleName().empty()) return ToQString(control.AccessibleName());
  if (control.GetKind() == Kind::Label) {
    QString caption = ToQString(static_cast<const Label&>(control).Caption()).trimmed();
    if (!caption.isEmpty()) return caption;
  }
  if (control.GetKind() == Kind::Frame) return ToQString(static_cast<const Frame&>(control).Caption());
  return ToQString(control.ToolTipText());
}

namespace {

// The middle of what can be seen of it or, where another control lies on that, a place beside the other one.
std::optional<QPoint> PointOn(Toolkit& toolkit, Control& control) {
  constexpr int Step = 4;
  const Rect shown = control.ShownRect();
  if (shown.IsEmpty()) return std::nullopt;
  const auto reaches = [&](int x, int y) { return toolkit.ControlAt(control.GetForm(), x, y) == &control; };
  const QPoint middle(shown.Left + shown.Width / 2, shown.Top + shown.Height / 2);
  if (reaches(middle.x(), middle.y())) return middle;
  for (int y = shown.Top; y < shown.Bottom(); y += Step) {
    for (int x = shown.Left; x < shown.Right(); x += Step) {
      if (reaches(x, y)) return QPoint(x, y);
    }
  }
  return std::nullopt;
}

// ", 12 of 345" for an entry of a list.
QString PlaceText(const Control& control) {
  if (!control.On().SpokenPlace) return {};
  const PlaceAmong place = control.On().SpokenPlace(control);
  return place.Place == 0 ? QString() : QStringLiteral(", %1 of %2").arg(place.Place).arg(place.Count);
}

}  // namespace

QString LightAccessible::text(QAccessible::Text what) const {
  if (!isValid()) return {};
  if (what == QAccessible::Name) return SpokenName(*control_.Get()) + PlaceText(*control_.Get());
  if (what == QAccessible::Description) {
    const Events& events = control_->On();
    return ToQString(events.SpokenDescription ? events.SpokenDescription(*control_.Get()) : control_->ToolTipText());
  }
  return {};
}

QRect LightAccessible::rect() const {
  if (!isValid()) return {};
  const QRect shown = ToQRect(control_->ShownRect());
  return {client_->mapToGlobal(shown.topLeft()), shown.size()};
}

bool LightAccessible::CanBePressed() const {
  const Events& events = control_->On();
  return control_->AutomaticDrag() || events.Click || events.MouseDown || events.DblClick;
}

// A text that takes a press as all of its window does: it is there to be read.
bool LightAccessible::IsText() const {
  if (TraitsOf(control_->GetKind()).Spoken != SpokenAs::Text) return false;
  const Events& own = control_->On();
  const Events& all = control_->GetForm().On();
  return (!own.Click || all.Click) && (!own.MouseDown || all.MouseDown) && (!own.DblClick || all.DblClick);
}

bool LightAccessible::IsChosen() const {
  const Form& form = control_->GetForm();
  return form.On().SpokenChoice && form.On().SpokenChoice(form) == control_.Get();
}

// Helpers tell an action by its name alone: one whose name another one has already gets a number.
std::vector<NamedAction> LightAccessible::OwnActions() const {
  if (!control_->On().SpokenActions) return {};
  std::vector<NamedAction> actions = control_->On().SpokenActions(*control_.Get());
  std::set<std::string> taken{ToUtf8(pressAction())};
  for (NamedAction& action : actions) {
    const std::string name = action.Name;
    for (int number = 2; !taken.insert(action.Name).second; ++number) {
      action.Name = name + " (" + std::to_string(number) + ")";
    }
  }
  return actions;
}

QAccessible::Role LightAccessible::role() const {
  if (!isValid()) return QAccessible::NoRole;
  const SpokenAs spoken = TraitsOf(control_->GetKind()).Spoken;
  if (spoken == SpokenAs::Group) return QAccessible::Grouping;
  if (control_->On().SpokenPlace) return QAccessible::ListItem;
  if (CanBePressed() && !IsText()) return QAccessible::Button;
  return spoken == SpokenAs::Text ? QAccessible::StaticText : QAccessible::Graphic;
}

QAccessible::State LightAccessible::state() const {
  QAccessible::State state;
  if (!isValid()) {
    state.invalid = true;
    return state;
  }
  state.focusable = CanBePressed() && !IsText();
  state.focused = control_->HasFocus() || IsChosen();
  if (control_->On().SpokenPlace) {
    state.selectable = true;
    state.selected = control_->On().SpokenPlace(*control_.Get()).Chosen;
  }
  state.disabled = !control_->Enabled();
  state.invisible = !control_->IsShown() || control_->ShownRect().IsEmpty();
  return state;
}

void* LightAccessible::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList LightAccessible::actionNames() const {
  if (!isValid() || !control_->Enabled()) return {};
  QStringList names;
  if (CanBePressed()) names.append(pressAction());
  for (const NamedAction& action : OwnActions()) names.append(ToQString(action.Name));
  return names;
}

QStringList LightAccessible::keyBindingsForAction(const QString& name) const {
  if (!isValid()) return {};
  for (const NamedAction& action : OwnActions()) {
    if (ToQString(action.Name) == name && !action.Keys.empty()) return {ToQString(action.Keys)};
  }
  return {};
}

// Neither is done below a modal form. The control may be gone afterwards, and this with it.
void LightAccessible::doAction(const QString& name) {
  if (!actionNames().contains(name)) return;
  if (name == pressAction()) {
    Press();
    return;
  }
  FormPeer* peer = FormPeerOf(*control_.Get());
  if (peer == nullptr || !peer->GetBackend().GetToolkit().TakesInput(peer->GetForm())) return;
  for (const NamedAction& action : OwnActions()) {
    if (ToQString(action.Name) != name) continue;
    peer->GetBackend().Dispatch(action.Run);
    return;
  }
}

// As a hand would press it.
void LightAccessible::Press() {
  FormPeer* peer = FormPeerOf(*control_.Get());
  if (peer == nullptr) return;
  QtBackend& backend = peer->GetBackend();
  const std::optional<QPoint> at = PointOn(backend.GetToolkit(), *control_.Get());
  if (!at) return;
  backend.Dispatch([&, form = Watch<Form>(control_->GetForm()), x = at->x(), y = at->y()] {
    const Events& events = control_->On();
    if (events.DblClick && !events.Click && !events.MouseDown) {
      backend.GetToolkit().MouseDoubleClicked(*form.Get(), x, y, button::Left, 0);
    } else {
      backend.GetToolkit().MousePressed(*form.Get(), x, y, button::Left, 0);
    }
    if (form) backend.GetToolkit().MouseReleased(*form.Get(), x, y, button::Left, 0);
  });
}

}  // namespace pixorra
