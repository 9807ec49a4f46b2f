// Photos on paper, one a page: the selected one, or all of the film strip or of the open folder as one document.
#pragma once

#include "printing/BatchSource.h"

namespace pixorra {

// Both ask by PrintPhotoForm first.
void PrintSelectedPhoto(MainForm& main);
void PrintPhotoBatch(MainForm& main, BatchSource source);
// The menu's command for the open folder. A message where none is open.
void BatchPrintOpenFolderMenuItem_Click(MainForm& main);

}  // namespace pixorra
