// What all print jobs have in common: only one runs at a time, and how a document begins.
#pragma once

#include <functional>

namespace pixorra {

struct MainForm;

// Runs a print job with its dialog. A job lets events run: while one runs, a second is refused with a beep.
void RunPrintJob(MainForm& main, const std::function<void()>& job);
// Begins a document on a landscape page, lengths in twips, by printing one blank. False where it cannot be begun: no
// document is left open then. `Printer` is passed over in silence, as its user may have thought better of it; a message
// tells any other reason, such as that of a printer that takes no documents.
bool BeginDocument(MainForm& main);
// Nothing more is to be printed: its user has stopped the job, or the program has ended.
bool IsPrintingStopped(const MainForm& main);

}  // namespace pixorra
