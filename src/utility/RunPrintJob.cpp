#include "utility/RunPrintJob.h"

#include "platform/runtime/AtExit.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Printing.h"
#include "window/CoreState.h"
#include "window/MainForm.h"

namespace pixorra {

void RunPrintJob(MainForm& main, const std::function<void()>& job) {
  if (main.core.PrintJobRuns) {
    main.host.dialogs.Beep();
    return;
  }
  main.core.PrintJobRuns = true;
  main.host.printing.HoldPrinter(true);
  const AtExit done([&main] {
    main.host.printing.HoldPrinter(false);
    main.core.PrintJobRuns = false;
  });
  job();
}

}  // namespace pixorra
