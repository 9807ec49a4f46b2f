#include "printing/PrintJob.h"

#include "platform/controls/Toolkit.h"
#include "platform/runtime/ErrorReport.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Printing.h"
#include "printing/PrintUnits.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/MainForm.h"

namespace pixorra {

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

bool HasOpenFolder(MainForm& main, const std::string& title) {
  if (main.desk.OpenFolderIndex != 0) return true;
  main.host.dialogs.MsgBox("No Folder is Open.\r\nTry opening a folder first.", BoxIcon::Exclamation, BoxButtons::Ok,
                           title);
  return false;
}

bool IsPrintingStopped(const MainForm& main) {
  return main.core.PrintAborted || main.host.toolkit.Ended();
}

}  // namespace pixorra
