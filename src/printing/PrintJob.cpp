#include "printing/PrintJob.h"

#include "platform/controls/Toolkit.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/ErrorReport.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Printing.h"
#include "printing/PrintUnits.h"
#include "window/CoreState.h"
#include "window/MainForm.h"

namespace pixorra {

void RunPrintJob(MainForm& main, const std::function<void()>& job) {
  if (main.core.PrintJobRuns) {
    main.host.dialogs.Beep();
    return;
  }
  main.core.PrintJobRuns = true;
  // The printer that the dialog shows is the one that prints.
  main.host.printing.HoldPrinter(true);
  const AtExit done([&main] {
    main.host.printing.HoldPrinter(false);
    main.core.PrintJobRuns = false;
  });
  job();
}

bool BeginDocument(MainForm& main) {
  PrintSurface& printer = main.host.printing.Printer();
  ErrorsIgnored([&] { printer.SetScaleMode(ScaleInTwips); });
  ErrorsIgnored([&] { printer.SetOrientation(Landscape); });
  try {
    printer.Print(" ");
    // Who prints into a file is asked for its name there, and may end the program meanwhile.
    if (main.host.toolkit.Ended()) printer.KillDoc();
    return !main.host.toolkit.Ended();
  } catch (const RuntimeError& failure) {
    ErrorsIgnored([&] { printer.EndDoc(); });
    ErrorsIgnored([&] { printer.SetOrientation(Portrait); });
    if (failure.Number() != error::Printer)
      main.host.dialogs.MsgBox(ErrorReport(failure), BoxIcon::Exclamation, BoxButtons::Ok, "Can't Print");
    return false;
  }
}

bool IsPrintingStopped(const MainForm& main) {
  return main.core.PrintAborted || main.host.toolkit.Ended();
}

}  // namespace pixorra
