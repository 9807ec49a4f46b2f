#include "platform/qt/KeyInput.h"

#include <QElapsedTimer>
#include <QKeyEvent>

#include "platform/controls/Form.h"
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
  if (event.isAutoRepeat() && backend.DropsRepeats()) return true;
  Watch<Form> watch(form);
  bool used = false;
  QElapsedTimer handling;
  handling.start();
  backend.Dispatch([&] {
    const int code = ToKeyCode(event);
    const KeyStroke stroke = event.isAutoRepeat() ? KeyStroke::Repeated : KeyStroke::Pressed;
    if (code != 0) used = backend.GetToolkit().KeyPressed(form, code, ToShift(event.modifiers()), stroke);
  });
  if (handling.elapsed() > LongHandling) backend.DropWaitingRepeats();
  if (used || !watch) return true;
  if ((event.modifiers() & CommandModifiers) != Qt::NoModifier) return false;
  return DeliverText(backend, form, event.text());
}

}  // namespace pixorra
