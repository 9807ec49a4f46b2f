// What screen readers and other helpers find of forms and light controls: a form is a window or, with an owner, a
// dialog; each light control that can be seen and says something is a child of its form's client area, beside the
// widgets there, and can be pressed.
#pragma once

namespace pixorra {

class ClientArea;
class Control;
class FormWindow;

// A light control on the client area has taken the focus.
void TellFocused(ClientArea& client, Control& control);

// A window has another title: of a photo at full size it is all that says which one is shown.
void TellRenamed(FormWindow& window);

// At the end of a turn: helpers hear of another choice of the form, and of a new name of that or of what has the focus.
void FollowSpoken(ClientArea& client);

// Once, when the application stands.
void InstallAccessibility();

}  // namespace pixorra
