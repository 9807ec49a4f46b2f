#include "window/CoreState.h"

#include "base/Palette.h"

namespace pixorra {

const int VersionMajor = PIXORRA_VERSION_MAJOR;
const int VersionMinor = PIXORRA_VERSION_MINOR;
const int VersionRevision = PIXORRA_VERSION_REVISION;

CoreState::CoreState(Form& window) : window_(window) {
  CompanyNameLabel.SetCaption("Pixorra - Kestrelia Corp");
  CompanyNameLabel.SetForeColor(palette::CompanyText);
  CompanyNameLabel.SetShrinks(true);
  CompanyNameLabel.SetShortensInMiddle(true);
  CompanyNameLabel.SetAlignment(Alignment::Center);
  CompanyNameLabel.SetVisible(false);
}

}  // namespace pixorra
