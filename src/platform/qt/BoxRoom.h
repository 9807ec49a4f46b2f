// Room in the host's boxes: for their titles and for the lines of their texts.
#pragma once

class QMessageBox;

namespace pixorra {

// Makes a box, which has its title, icon and text, wide enough for them. Lines that are wider than a box may be are
// broken, between words where there are any, so that nothing is cut off.
void MakeRoom(QMessageBox& box);

}  // namespace pixorra
