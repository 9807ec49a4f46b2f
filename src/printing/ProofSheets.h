// Proof sheets: pages of small photos in a square grid, with their names.
#pragma once

#include "printing/BatchSource.h"

namespace pixorra {

// Asks how many photos a page, and prints the sheets.
void PrintProofSheets(MainForm& main, BatchSource source);
// The menu's command for the open folder. A message where none is open.
void PrintProofOpenFolderMenuItem_Click(MainForm& main);

}  // namespace pixorra
