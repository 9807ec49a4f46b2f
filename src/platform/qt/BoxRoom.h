// Room in the host's boxes: for their titles and for the lines of their texts.
#pragma once

class QMessageBox;

namespace pixorra {

// Makes a box, which has its title, icon, text and buttons, wide enough for them. Lines that are wider than a box may
// be are broken, between words where there are any, so that nothing is cut off. A text that is too long for the
// screen's height leaves out lines in its middle, and the middle of long ones; screen readers still get all of it.
void MakeRoom(QMessageBox& box);

}  // namespace pixorra
