// What the print jobs of photos have in common.
#pragma once

#include <string>

namespace pixorra {

struct MainForm;

// Where no folder is open, a message with this title says so.
bool HasOpenFolder(MainForm& main, const std::string& title);
// Begins a document on a landscape page, lengths in twips, by printing one blank. False where it cannot be begun: no
// document is left open then. `Printer` is passed over in silence, as its user may have thought better of it; a message
// tells any other reason, such as that of a printer that takes no documents.
bool BeginDocument(MainForm& main);
// Nothing more is to be printed: its user has stopped the job, or the program has ended.
bool IsPrintingStopped(const MainForm& main);

}  // namespace pixorra
