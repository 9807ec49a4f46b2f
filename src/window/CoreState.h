// State of the window as a whole: pattern, printer, layout.
#pragma once

#include <string>

#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/controls/Timer.h"

namespace pixorra {

inline constexpr const char* ApplicationTitle = "Pixorra";
inline constexpr int VersionMajor = 1;
inline constexpr int VersionMinor = 0;
inline constexpr int VersionRevision = 0;

struct CoreState {
  explicit CoreState(Form& window);

  std::string PicturePattern = "*.jpeg;*.jpg;*.bmp;*.gif";
  std::string DefaultPrinterName;
  int LayoutCountdown = 1;  // ticks of ThumbsTimer until Window_Layout runs
  // The window's size at the last layout, twips.
  double LastWidth = 0;
  double LastHeight = 0;

  Label CompanyNameLabel;
  Timer SystemResourceStatusTimer;
};

}  // namespace pixorra
