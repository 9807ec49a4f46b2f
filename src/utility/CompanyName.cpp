#include "utility/CompanyName.h"

#include "platform/services/Dialogs.h"
#include "window/CoreState.h"
#include "window/MainForm.h"

namespace pixorra {

void CompanyNameMenuItem_Click(MainForm& main) {
  const std::string present = main.core.CompanyNameLabel.Caption();
  const std::string name = main.host.dialogs.InputBox(
      "The Company Name entered below is printed on\n"
      "the bottom of every page. It is also displayed\n"
      "at the top of the screen when Pixorra is\n"
      "Maximised. (enter spaces to leave blank)",
      "Pixorra - Enter Company Name", present);
  if (!name.empty()) main.core.CompanyNameLabel.SetCaption(name);
}

}  // namespace pixorra
