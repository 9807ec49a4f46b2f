// The selected photo on the clipboard.
#pragma once

namespace pixorra {

struct MainForm;

// At full size. A photo that cannot be read leaves the clipboard as it is, after a message. Nothing where none is
// selected.
void CopyMenuItem_Click(MainForm& main);

}  // namespace pixorra
