// What screen readers and other helpers find of forms and light controls: a form is a window or, with an owner, a
// dialog; each light control that can be seen and says something is a child of its form's client area, beside the
// widgets there, and can be pressed.
#pragma once

namespace pixorra {

class ClientArea;
class Control;

// A light control on the client area has taken the focus.
void TellFocused(ClientArea& client, Control& control);

// Once, when the application stands.
void InstallAccessibility();

}  // namespace pixorra
