// Keys on their way to the control model.
#pragma once

class QKeyEvent;
class QString;

namespace pixorra {

class Form;
class QtBackend;

// The key, and then the character that it makes. True: it has been used, and the widget that had the focus gets none of
// it. The form may be gone afterwards. Tab comes to forms that preview keys alone; the key for menus is Shift+F10.
bool DeliverKey(QtBackend& backend, Form& form, const QKeyEvent& event);
// Characters that come without a key of their own, from an input method. True where one of them has been refused.
bool DeliverText(QtBackend& backend, Form& form, const QString& text);

}  // namespace pixorra
