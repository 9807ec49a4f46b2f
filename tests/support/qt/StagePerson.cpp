#include "tests/support/qt/StagePerson.h"

#include <QApplication>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <algorithm>

#include "platform/controls/Lists.h"
#include "platform/controls/Menu.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

namespace {

constexpr int DragSteps = 5;
constexpr int LookEvery = 2;  // milliseconds

}  // namespace

StagePerson::StagePerson(QtBackend& backend, Script& script, Failures& failures)
    : backend_(backend), script_(script), failures_(failures) {
  QTimer::singleShot(LookEvery, &context_, [this] { LookAround(); });
}

StagePerson::~StagePerson() = default;

// No events run in it: what the person waits for might come up in the middle of an act.
void StagePerson::Settle() {
  backend_.AtEndOfTurn().RunAll();
}

std::optional<QPoint> StagePerson::PointOn(Control& control) {
  Settle();
  const Rect shown = control.ShownRect();
  if (!control.IsShown() || shown.IsEmpty()) return std::nullopt;
  Toolkit& toolkit = backend_.GetToolkit();
  const auto reaches = [&](int x, int y) { return toolkit.ControlAt(control.GetForm(), x, y) == &control; };
  const QPoint middle = Hands::MiddleOf(control);
  if (reaches(middle.x(), middle.y())) return middle;
  for (int y = shown.Top; y < shown.Bottom(); ++y) {
    for (int x = shown.Left; x < shown.Right(); ++x) {
      if (reaches(x, y)) return QPoint(x, y);
    }
  }
  return std::nullopt;
}

bool StagePerson::CanReach(Control& control, const std::string& what) {
  const QWidget* window = Hands::WindowOf(control.GetForm());
  const bool usable = window != nullptr && window->isVisible() && backend_.GetToolkit().TakesInput(control.GetForm());
  if (usable && PointOn(control)) return true;
  failures_.Report(what + ": " + control.Name() + "(" + std::to_string(control.Index()) + ") is out of reach");
  return false;
}

// --- mouse -----------------------------------------------------------------------------------------------------------

void StagePerson::PressAt(Form& form, int x, int y, int button, int shift) {
  Settle();
  mouseForm_ = Watch<Form>(form);
  at_ = {x, y};
  button_ = button;
  hands_.Press(form, at_, button, shift);
}

void StagePerson::MoveTo(Form& form, int x, int y, int shift) {
  mouseForm_ = Watch<Form>(form);
  at_ = {x, y};
  hands_.Move(form, at_, shift);
}

void StagePerson::Release(int shift) {
  const int button = std::exchange(button_, 0);
  if (mouseForm_) hands_.Release(*mouseForm_.Get(), at_, button, shift);
  Settle();
}

void StagePerson::ClickAt(Form& form, int x, int y, int button, int shift) {
  PressAt(form, x, y, button, shift);
  Release(shift);
}

void StagePerson::DoubleClickAt(Form& form, int x, int y) {
  Settle();
  hands_.DoubleClick(form, {x, y});
  Settle();
}

void StagePerson::TurnWheelAt(Form& form, int x, int y, const WheelArgs& turn) {
  Settle();
  Hands::TurnWheel(form, {x, y}, turn);
  Settle();
}

void StagePerson::TurnWheel(Control& control, const WheelArgs& turn) {
  if (!CanReach(control, "wheel over")) return;
  const QPoint at = *PointOn(control);
  TurnWheelAt(control.GetForm(), at.x(), at.y(), turn);
}

void StagePerson::Press(Control& control, int button, int shift) {
  if (!CanReach(control, "press")) return;
  const QPoint at = *PointOn(control);
  PressAt(control.GetForm(), at.x(), at.y(), button, shift);
}

void StagePerson::MoveTo(Control& control, int shift) {
  if (!CanReach(control, "move to")) return;
  const QPoint at = *PointOn(control);
  MoveTo(control.GetForm(), at.x(), at.y(), shift);
}

void StagePerson::Click(Control& control, int shift) {
  Press(control, button::Left, shift);
  Release(shift);
}

void StagePerson::RightClick(Control& control) {
  Press(control, button::Right);
  Release();
}

void StagePerson::DoubleClick(Control& control) {
  if (!CanReach(control, "double click")) return;
  const QPoint at = *PointOn(control);
  DoubleClickAt(control.GetForm(), at.x(), at.y());
}

void StagePerson::Drag(Control& source, Control& target) {
  if (!CanReach(target, "drag to")) return;
  // Onto its middle, as on the other stage.
  const QPoint middle = Hands::MiddleOf(target);
  const Control* front = backend_.GetToolkit().ControlAt(target.GetForm(), middle.x(), middle.y());
  if (front == &target) {
    DragTo(source, target.GetForm(), middle.x(), middle.y());
  } else {
    failures_.Report("drag to: " + target.Name() + " is covered by " + front->Name());
  }
}

void StagePerson::DragTo(Control& source, Form& form, int x, int y) {
  const Watch<Form> watch(form);
  Press(source);
  const QPoint from = at_;
  for (int step = 1; step <= DragSteps && watch && button_ != 0; ++step) {
    MoveTo(form, from.x() + (x - from.x()) * step / DragSteps, from.y() + (y - from.y()) * step / DragSteps);
  }
  Toolkit& toolkit = backend_.GetToolkit();
  if (watch && toolkit.Drag().Source != nullptr && !toolkit.ControlAt(form, x, y)->On().DragDrop) {
    failures_.Report("drag: " + toolkit.ControlAt(form, x, y)->Name() + " takes no drop");
  }
  Release();
}

std::string StagePerson::ToolTip(Control& control) {
  const auto at = PointOn(control);
  return at ? backend_.GetToolkit().ToolTipAt(control.GetForm(), at->x(), at->y()) : std::string();
}

// --- controls with a widget ------------------------------------------------------------------------------------------

void StagePerson::MoveBar(ScrollBar& bar, int value) {
  if (CanReach(bar, "use")) Hands::MoveBar(bar, value);
}

void StagePerson::DragBar(ScrollBar& bar, int value) {
  if (CanReach(bar, "use")) Hands::DragBar(bar, value);
}

void StagePerson::Choose(ItemList& list, int index) {
  if (CanReach(list, "choose")) hands_.Choose(list, index);
  Settle();
}

void StagePerson::Choose(ItemList& list, const std::string& text) {
  for (int i = 0; i < list.ListCount(); ++i) {
    if (list.List(i) == text) {
      Choose(list, i);
      return;
    }
  }
  failures_.Report("choose: " + list.Name() + " has no entry \"" + text + "\"");
}

void StagePerson::FillWidget(Control& control, const std::string& text) {
  if (!CanReach(control, "fill")) return;
  Focus(control);
  Hands::Key('A', shift::Ctrl);
  Hands::Key(key::Delete, 0);
  Type(text);
}

void StagePerson::Fill(TextBox& box, const std::string& text) {
  FillWidget(box, text);
}

void StagePerson::Fill(ComboBox& box, const std::string& text) {
  FillWidget(box, text);
}

void StagePerson::Focus(Control& control) {
  Settle();
  if (QWidget* widget = Hands::WidgetOf(control)) widget->setFocus(Qt::MouseFocusReason);
}

void StagePerson::Type(const std::string& text) {
  Settle();
  Hands::Type(text);
  Settle();
}

void StagePerson::Key(int keyCode, int shift) {
  Settle();
  Hands::Key(keyCode, shift);
  Settle();
}

// --- menus and windows -----------------------------------------------------------------------------------------------

void StagePerson::ChooseMenu(MenuItem& item) {
  Settle();
  hands_.ChooseMenu(item);
  Settle();
}

void StagePerson::ChooseFromPopup(MenuItem& item) {
  hands_.ChooseFromPopup(&item);
}

void StagePerson::Resize(Form& form, int clientWidth, int clientHeight) {
  QWidget* window = Hands::WindowOf(form);
  window->resize(clientWidth, clientHeight + window->height() - Hands::ClientOf(form)->height());
  backend_.GetToolkit().DoEvents();
}

void StagePerson::Maximise(Form& form) {
  Hands::WindowOf(form)->showMaximized();
  backend_.GetToolkit().DoEvents();
}

void StagePerson::Minimise(Form& form) {
  Hands::WindowOf(form)->showMinimized();
  backend_.GetToolkit().DoEvents();
}

void StagePerson::Restore(Form& form) {
  Hands::WindowOf(form)->showNormal();
  backend_.GetToolkit().DoEvents();
}

void StagePerson::Close(Form& form) {
  Settle();
  if (QWidget* window = Hands::WindowOf(form)) {
    window->close();
  } else {
    failures_.Report("close: " + form.Name() + " has no window");
  }
}

Form* StagePerson::Window(const std::string& name) const {
  for (Form* form : backend_.GetToolkit().Forms()) {
    const QWidget* window = Hands::WindowOf(*form);
    if (form->Visible() && form->Name() == name && window != nullptr && window->isVisible()) return form;
  }
  return nullptr;
}

// In so many turns of the loop, so that the program does on a busy machine what it would do on another one.
void StagePerson::Wait(double seconds) {
  constexpr double Turn = 0.02;
  Toolkit& toolkit = backend_.GetToolkit();
  for (double left = seconds; left > Turn / 2; left -= Turn) {
    if (!toolkit.WaitFor(std::min(left, Turn))) return;
  }
}

// --- what to do when something comes up ------------------------------------------------------------------------------

void StagePerson::ExpectBox(const std::string& title, const std::string& text, BoxAnswer answer, Action meanwhile) {
  script_.Add(Script::Answer{"box", title, text, static_cast<int>(answer), {}, std::move(meanwhile)});
}

void StagePerson::ExpectInput(const std::string& title, const std::string& prompt, const std::string& typed) {
  script_.Add(Script::Answer{"input box", title, prompt, 0, typed, {}});
}

void StagePerson::ExpectForm(const std::string& name, FormAction action) {
  const auto up = [this, name]() -> Form* {
    Form* form = Window(name);
    return form != nullptr && backend_.GetToolkit().TakesInput(*form) ? form : nullptr;
  };
  script_.Add(Script::Reaction{"window " + name, Script::Moment::Wait, [up] { return up() != nullptr; },
                               [this, up, act = std::move(action)] { act(*this, *up()); }});
}

void StagePerson::During(Action action) {
  During({}, std::move(action));
}

void StagePerson::During(std::function<bool()> when, Action action) {
  script_.Add(
      Script::Reaction{"something to do meanwhile", Script::Moment::Events, std::move(when), std::move(action)});
}

void StagePerson::ExpectMenu(MenuItem& menu, MenuItem* item) {
  const auto up = [name = QString::fromStdString(menu.Name())] {
    return QApplication::activePopupWidget() != nullptr && QApplication::activePopupWidget()->objectName() == name;
  };
  script_.Add(Script::Reaction{"pop-up menu " + menu.Name(), Script::Moment::Popup, up,
                               [this, item] { hands_.ChooseFromPopup(item); }});
}

// The next look is taken also while what this one sets off runs a loop of its own.
void StagePerson::LookAround() {
  QTimer::singleShot(LookEvery, &context_, [this] { LookAround(); });
  const QPointer<QObject> alive = &context_;
  backend_.Dispatch([&] {
    if (QApplication::activePopupWidget() != nullptr) {
      script_.RunOne(Script::Moment::Popup);
    } else {
      script_.RunOne(Script::Moment::Wait);
    }
  });
  if (alive != nullptr) AnswerBoxes();
}

void StagePerson::AnswerBoxes() {
  QWidget* up = QApplication::activeModalWidget();
  if (up == nullptr || up == answered_) return;
  if (const QPointer<QMessageBox> box = qobject_cast<QMessageBox*>(up)) {
    answered_ = up;
    const auto answer = script_.AnswerFor("box", box->windowTitle().toStdString(), box->text().toStdString());
    if (answer && answer->Meanwhile) answer->Meanwhile();
    if (box == nullptr) return;
    if (answer && answer->Number == static_cast<int>(BoxAnswer::Cancel)) {
      Hands::Key(key::Escape, 0);
      return;
    }
    const bool yes = answer && answer->Number == static_cast<int>(BoxAnswer::Yes);
    if (QAbstractButton* button = box->button(yes ? QMessageBox::Yes : QMessageBox::No)) {
      button->click();
    } else {
      box->accept();
    }
  } else if (const QPointer<QInputDialog> input = qobject_cast<QInputDialog*>(up)) {
    answered_ = up;
    const auto answer =
        script_.AnswerFor("input box", input->windowTitle().toStdString(), input->labelText().toStdString());
    if (answer) input->setTextValue(QString::fromStdString(answer->Typed));
    input->done(answer && !answer->Typed.empty() ? QDialog::Accepted : QDialog::Rejected);
  }
}

}  // namespace pixorra
