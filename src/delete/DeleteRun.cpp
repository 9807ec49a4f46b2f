#include "delete/DeleteRun.h"

#include <utility>

#include "delete/AskedFolder.h"
#include "filmstrip/Listing.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Clock.h"
#include "platform/services/Dialogs.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

constexpr double EventsPause = 0.05;  // seconds between two turns of the window

}  // namespace

DeleteRun::DeleteRun(MainForm& main, const AskedFolder& folder, std::string failure)
    : main_(main), folder_(folder), failure_(std::move(failure)), eventsRan_(main.host.clock.Seconds()) {}

bool DeleteRun::GoesOn() {
  if (main_.host.clock.Seconds() - eventsRan_ >= EventsPause) {
    main_.host.toolkit.DoEvents();
    eventsRan_ = main_.host.clock.Seconds();
  }
  return !stopped_ && !main_.host.toolkit.Ended();
}

void DeleteRun::Delete(const std::string& path, const std::function<bool()>& another, const char* description) {
  Files& files = main_.host.files;
  std::string failure;
  try {
    folder_.MustBeTheSame();
    if (files.FileExists(path) && !files.IsLink(path) && another()) throw RuntimeError(error::PathAccess, description);
    DeletePhoto(files, folder_, path);
    return;
  } catch (const RuntimeError& raised) {
    failure = raised.Description();
  }
  // The Esc key that closes the box stops the run: what one photo fails at, hundreds may fail at.
  const BoxAnswer answer =
      main_.host.dialogs.MsgBox(files.ShownPath(path) + "\n\n" + failure, BoxIcon::Critical, BoxButtons::Ok, failure_);
  if (answer == BoxAnswer::Cancel) stopped_ = true;
}

void DeleteRun::Flush() const {
  ErrorsIgnored([this] { main_.host.files.FlushFolder(folder_.Path()); });
}

void EmptySrcSlot(FilmStripState& strip, int slot) {
  SetSrcSlotPath(strip, slot, "");
  strip.SrcThumbName(slot).SetTag("");
}

}  // namespace pixorra
