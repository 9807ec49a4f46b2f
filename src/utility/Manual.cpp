#include "utility/Manual.h"

#include <string>

#include "platform/runtime/Errors.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "platform/services/Shell.h"
#include "window/CoreState.h"
#include "window/MainForm.h"

namespace pixorra {

void ManualMenuItem_Click(MainForm& main) {
  Host& host = main.host;
  const auto say = [&host](const std::string& text) {
    host.dialogs.MsgBox(text, BoxIcon::Information, BoxButtons::Ok, ApplicationTitle);
  };
  const std::string page = host.shell.FindManual();
  if (page.empty()) {
    say("The manual is not installed with this copy of Pixorra.\nA page on each topic is in 'Help', 'Tips'.");
    return;
  }
  if (OrElse(std::string(), [&] { return host.shell.FindExecutable(page); }).empty()) {
    say("There is no web browser to show the manual. Its first page is\n" + host.files.ShownPath(page));
    return;
  }
  host.shell.Open(page, "");
}

}  // namespace pixorra
