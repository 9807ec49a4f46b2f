// How print jobs follow one another.
#pragma once

#include <functional>

namespace pixorra {

struct MainForm;

// Runs a print job with its dialog, and holds the printer for it: the one that the dialog shows is the one that prints.
// A job lets events run: while one runs, a second is refused with a beep.
void RunPrintJob(MainForm& main, const std::function<void()>& job);

}  // namespace pixorra
