#include "core/MainForm.h"

#include "core/Definition.h"
#include "core/Palette.h"
#include "platform/controls/Toolkit.h"

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
  host.toolkit.SetTones(palette::Tones);
  host.toolkit.SetHand(Drawing(host, "HandPointer", 32, 32));
  Window.SetTwipsWidth(11730);
  Window.SetTwipsHeight(9090);
  Window.SetSizable(true);
  Window.SetKeyPreview(true);
  // The company name lies on the strip's band, which is made after it.
  core.CompanyNameLabel.BringToFront();
}

}  // namespace pixorra
