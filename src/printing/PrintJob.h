// What all print jobs have in common: only one runs at a time, and how a document begins.
#pragma once

#include <functional>

namespace pixorra {

struct MainForm;

// Runs a print job with its dialog. A job lets events run: while one runs, a second is refused with a beep.
void RunPrintJob(MainForm& main, const std::function<void()>& job);
// Begins a document on a landscape page, lengths in twips, by printing one blank. False where there is no printer to
// be had, or its user has thought better of it: no document is left open then, and nobody need be told.
bool BeginDocument(MainForm& main);
// Nothing more is to be printed: its user has stopped the job, or the program has ended.
bool IsPrintingStopped(const MainForm& main);

}  // namespace pixorra
