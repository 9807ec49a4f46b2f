// The window that says what the program is. It is shown while the program starts, with a bar and without buttons, and
// as the about window, with buttons.
#pragma once

#include <cstdint>
#include <string>

#include "base/Host.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/Timer.h"

namespace pixorra {

struct MainForm;

class frmAbout {
 public:
  explicit frmAbout(Host& host);

  // Measures the machine, which takes 0.2 seconds, and shows the form above its owner, on the screen when this returns.
  // The bar moves on while events run. It is unloaded with its owner, or when this object goes.
  void ShowSplash(Form& owner);
  // Opens what the desktop has to show of the machine; a message where it has nothing.
  void StartSysInfo();

  Form Window;
  ImageBox Picture1{Window, "Picture1"};
  Label lblTitle{Window, "lblTitle"};
  Label lblDisclaimer{Window, "lblDisclaimer"};
  ProgressBar ProgressBar1{Window, "ProgressBar1"};
  CommandButton SystemInfoButton{Window, "SystemInfoButton"};
  CommandButton OKButton{Window, "OKButton"};
  Timer BarTimer{Window, "BarTimer", 0};

 private:
  void PlaceControls();
  void Form_Load();
  void BarTimer_Timer();

  Host& host_;
};

// Milliseconds between two steps of the bar, 5 to 65,000, for what the clock has counted in 0.2 seconds: a faster
// machine has a slower bar.
int BarIntervalOf(std::int64_t count);
// The maker's home page: "WebAddress" of "About" in the program's settings, empty where none is set.
std::string WebAddress(Host& host);
// Shows the about window and returns when it has been closed.
void AboutMenuItem_Click(MainForm& main);
// Whether there is a home page to visit.
void HelpMenu_Click(MainForm& main);
// Opens the maker's home page in the desktop's web browser.
void VisitKestreliaMenuItem_Click(MainForm& main);

}  // namespace pixorra
