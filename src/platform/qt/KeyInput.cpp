#include "platform/qt/KeyInput.h"

#include <QElapsedTimer>
#include <QKeyEvent>

#include "platform/controls/Form.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/Convert.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

namespace {

// With these held a key is a command and makes no character.
constexpr Qt::KeyboardModifiers CommandModifiers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

// About the time between two repeats of a key, in milliseconds: while a key was handled for longer, others have piled
// up.
constexpr int LongHandling = 25;

bool IsCharacter(char32_t code) {
  if (code == key::Back || code == key::Return || code == key::Escape) return true;
  return code >= key::Space && code != 127;
}

bool Writes(const Control* control) {
  if (control == nullptr) return false;
  const Kind kind = control->GetKind();
  return kind == Kind::TextBox || kind == Kind::ComboBox || kind == Kind::ListBox || kind == Kind::TreeView;
}

bool WritesLines(const Control* control) {
  return control != nullptr && control->GetKind() == Kind::TextBox && static_cast<const TextBox*>(control)->MultiLine();
}

// A key that is held down goes on where it moves something or writes; a command runs once for each press. So do Return
// and Escape, which may bring up or answer a question each time.
bool GoesOnWhileHeld(int code, const Control* focus) {
  if (code == key::Escape) return false;
  if (code == key::Return) return WritesLines(focus);
  const bool moves = (code >= key::PageUp && code <= key::Down) || code == key::Tab;
  return moves || Writes(focus);
}

// The key and the keys held with it, as the control model has them.
struct Stroke {
  int Code = 0;
  int Shift = 0;
};

Stroke StrokeOf(const Form& form, const QKeyEvent& event) {
  constexpr int F10 = key::F1 + 9;
  if (event.key() == Qt::Key_Menu) return {.Code = F10, .Shift = shift::Shift};
  const int code = ToKeyCode(event);
  return {.Code = code == 0 && form.TakesEveryKey() ? key::Other : code, .Shift = ToShift(event.modifiers())};
}

}  // namespace

bool DeliverText(QtBackend& backend, Form& form, const QString& text) {
  Watch<Form> watch(form);
  bool used = false;
  backend.Dispatch([&] {
    for (const char32_t code : text.toStdU32String()) {
      if (used || !watch || !IsCharacter(code)) continue;
      used = backend.GetToolkit().CharacterTyped(form, static_cast<int>(code));
    }
  });
  return used || !watch;
}

bool DeliverKey(QtBackend& backend, Form& form, const QKeyEvent& event) {
  const Stroke stroke = StrokeOf(form, event);
  if (stroke.Code == key::Tab && !form.KeyPreview()) return false;
  const bool repeated = backend.Held().Repeats(event);
  const bool ends =
      stroke.Code != 0 && stroke.Code != key::Other && !GoesOnWhileHeld(stroke.Code, backend.GetToolkit().Focus());
  // Whoever takes every key waits for one to be pressed, and not for one that has been held since before it came up.
  if (repeated && (ends || form.TakesEveryKey() || backend.DropsRepeats())) return true;
  Watch<Form> watch(form);
  bool used = false;
  QElapsedTimer handling;
  handling.start();
  backend.Dispatch([&] {
    const KeyStroke held = repeated ? KeyStroke::Repeated : KeyStroke::Pressed;
    if (stroke.Code != 0) used = backend.GetToolkit().KeyPressed(form, stroke.Code, stroke.Shift, held);
  });
  if (handling.elapsed() > LongHandling) backend.DropWaitingRepeats();
  if (used || !watch) return true;
  if ((event.modifiers() & CommandModifiers) != Qt::NoModifier) return false;
  return DeliverText(backend, form, event.text());
}

}  // namespace pixorra
