#include "printing/PrinterSetup.h"

#include "platform/controls/Toolkit.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Printing.h"
#include "printing/PrintUnits.h"
#include "window/MainForm.h"

namespace pixorra {

void PrinterSetupMenuItem_Click(MainForm& main) {
  Toolkit& toolkit = main.host.toolkit;
  Printing& printing = main.host.printing;
  const AtExit done([&main] { main.Window.SetMousePointer(pointer::Default); });
  main.Window.SetMousePointer(pointer::Hourglass);
  const auto step = [&](auto statement) {
    ErrorsIgnored(statement);
    toolkit.DoEvents();
  };
  step([&] { printing.SetTrackDefault(false); });
  step([&] { printing.ShowPrintSetup(); });
  step([&] { printing.Printer().EndDoc(); });
  step([&] { printing.SetTrackDefault(true); });
  step([&] { printing.Printer().SetScaleMode(ScaleInTwips); });
  step([&] { printing.Printer().SetOrientation(Portrait); });
}

}  // namespace pixorra
