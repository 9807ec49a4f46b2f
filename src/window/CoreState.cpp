#include "window/CoreState.h"

#include "base/Palette.h"

namespace pixorra {

CoreState::CoreState(Form& window)
    : CompanyNameLabel(window, "CompanyNameLabel"),
      SystemResourceStatusTimer(window, "SystemResourceStatusTimer", 300) {
  CompanyNameLabel.SetCaption("Pixorra - Kestrelia Corp");
  CompanyNameLabel.SetForeColor(palette::CompanyText);
  CompanyNameLabel.SetShrinks(true);
  CompanyNameLabel.SetShortensInMiddle(true);
  CompanyNameLabel.SetAlignment(Alignment::Center);
  CompanyNameLabel.SetVisible(false);
}

}  // namespace pixorra
