// Where the plain style of widgets is hard to see: thumbs of scroll bars, edges of text boxes and menus, captions
// beside marks, icons of boxes.
#pragma once

namespace pixorra {

// Once, before the first widget. A desktop that brings a style of its own keeps it as it is.
void InstallLook();

}  // namespace pixorra
