// What screen readers and other helpers find of light controls: each that can be seen and says something is a child of
// its form's client area, beside the widgets there, and can be pressed.
#pragma once

namespace pixorra {

// Once, when the application stands.
void InstallAccessibility();

}  // namespace pixorra
