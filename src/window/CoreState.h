// State of the window as a whole: pattern, printer, layout.
#pragma once

#include <string>

#include "base/PictureTypes.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/controls/Timer.h"
#include "window/UnreadState.h"

namespace pixorra {

inline constexpr const char* ApplicationTitle = "Pixorra";
// The version that the build is given; see CMakeLists.txt.
extern const int VersionMajor;
extern const int VersionMinor;
extern const int VersionRevision;

struct CoreState {
 private:
  Form& window_;  // ahead of the controls, which lie on it

 public:
  explicit CoreState(Form& window);

  std::string PicturePattern = AllPictures;
  std::string DefaultPrinterName;
  float PrintZoom = 0;          // what PrintPhotoForm was left with; 0: cancelled
  bool PrintPhotoInfo = false;  // the info and the outline are printed; kept for the rest of the run
  bool PrintAborted = false;    // a person has stopped the print job that runs
  bool PrintJobRuns = false;    // from its dialog to its end
  std::string SlideShowFolder;  // of the last slide show that was started; empty before the first
  int LayoutCountdown = 1;      // ticks of ThumbsTimer until Window_Layout runs
  UnreadState StateBefore;
  // The window's size at the last layout, twips.
  double LastWidth = 0;
  double LastHeight = 0;

  Label CompanyNameLabel{window_, "CompanyNameLabel"};
  Timer SystemResourceStatusTimer{window_, "SystemResourceStatusTimer", 300};
};

}  // namespace pixorra
