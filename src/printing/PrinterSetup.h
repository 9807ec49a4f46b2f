// The choice of the printer by the system's own dialog.
#pragma once

namespace pixorra {

struct MainForm;

// The printer is set to portrait and to twips afterwards, whatever was chosen. Raises nothing.
void PrinterSetupMenuItem_Click(MainForm& main);

}  // namespace pixorra
