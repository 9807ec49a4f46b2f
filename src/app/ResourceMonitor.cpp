#include "app/ResourceMonitor.h"

#include "platform/runtime/Text.h"
#include "platform/services/Dialogs.h"
#include "utility/MemStats.h"
#include "window/CoreState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

void SystemResourceStatusTimer_Timer(MainForm& main) {
  FilmStripState& strip = main.strip;
  const bool ok = ResourcesOk(main.host.memory);
  if (ok != EqualIgnoringCase(strip.ThumbsPaused, "True")) {
    main.core.SystemResourceStatusTimer.WasIdle(0);
    return;
  }
  if (ok) {
    strip.ThumbsPaused = "False";
    return;
  }
  main.host.dialogs.MsgBox(
      "The System Graphic Resources are running low.\r\n"
      "All thumbnails CANNOT be displayed at this time.\r\n"
      "\r\n"
      "Try closing unnecessary programs to free-up\r\n"
      "memory, or reduce the number of photos contained\r\n"
      "in the Film-Strip and/or Open-Folder.",
      BoxIcon::Critical, BoxButtons::Ok, "Pixorra - Resource Warning");
  strip.ThumbsPaused = "True";
}

}  // namespace pixorra
