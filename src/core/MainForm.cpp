#include "core/MainForm.h"

namespace pixorra {

MainForm::MainForm(Host& services)
    : host(services),
      Window(services.toolkit, "MainForm"),
      menu(Window),
      core(Window),
      preview(Window, services),
      strip(Window, services),
      desk(Window, services),
      drop(services),
      pictures(Window, services),
      preferences(services.toolkit) {
  Window.SetTwipsWidth(11730);
  Window.SetTwipsHeight(9090);
  Window.SetSizable(true);
  Window.SetKeyPreview(true);
  // The company name lies on the strip's band, which is made after it.
  core.CompanyNameLabel.BringToFront();
}

}  // namespace pixorra
