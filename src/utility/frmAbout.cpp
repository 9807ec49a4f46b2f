#include "utility/frmAbout.h"

#include "base/Definition.h"
#include "base/Dialog.h"
#include "platform/services/Clock.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Settings.h"
#include "platform/services/Shell.h"
#include "window/CoreState.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"

namespace pixorra {

namespace {

// Pixels.
constexpr int PictureWidth = 400;
constexpr int PictureHeight = 240;
constexpr int Margin = 16;
constexpr int TextWidth = PictureWidth - 2 * Margin;
constexpr int TitleHeight = 26;
constexpr int DisclaimerHeight = 144;
constexpr int ButtonHeight = 28;
constexpr int ButtonWidth = 96;
constexpr int WideButtonWidth = 168;
constexpr int BarHeight = 12;

constexpr double MeasuredSeconds = 0.2;

constexpr const char* LegalLines =
    "Made by Kestrelia Corp. Copyright 2026 the Pixorra developers. Free under the MIT licence; there is no "
    "warranty.\n\n"
    "It uses Qt (GNU LGPL 3), GLib (GNU LGPL 2.1 or later), libjpeg-turbo (IJG and BSD licences), CUPS (Apache License "
    "2.0) "
    "and libxcb, libX11 and libXss (MIT and alike). "
    "This software is based in part on the work of the Independent JPEG Group.";

}  // namespace

int BarIntervalOf(std::int64_t count) {
  constexpr std::int64_t passes = 100;
  constexpr std::int64_t most = 65'000;
  constexpr std::int64_t least = 5;
  constexpr int forSlowMachines = 10;
  const std::int64_t interval = count / passes;
  if (interval > most) return most;
  return interval < least ? forSlowMachines : static_cast<int>(interval);
}

std::string WebAddress(Host& host) {
  return host.settings.GetSetting(ApplicationTitle, "About", "WebAddress", "");
}

frmAbout::frmAbout(Host& host) : Window(host.toolkit, "frmAbout"), host_(host) {
  Picture1.SetPicture(Drawing(host, "Splash", PictureWidth, PictureHeight));
  PlaceControls();
  SystemInfoButton.SetCaption("&System Information");
  OKButton.SetCaption("OK");
  OKButton.SetDefault(true);
  OKButton.SetCancel(true);
  Connect(Window.On().Load, [this](Control&) { Form_Load(); });
  Connect(BarTimer.On().Timer, [this](Control&) { BarTimer_Timer(); });
  Connect(SystemInfoButton.On().Click, [this](Control&) { StartSysInfo(); });
  Connect(OKButton.On().Click, [this](Control&) { Window.Unload(); });
}

// The bar takes the buttons' place.
void frmAbout::PlaceControls() {
  constexpr int title = PictureHeight + Margin;
  constexpr int disclaimer = title + TitleHeight;
  constexpr int foot = disclaimer + DisclaimerHeight + Margin / 2;
  Picture1.Move(0, 0, PictureWidth, PictureHeight);
  lblTitle.SetFont({"", 12, true});
  lblTitle.Move(Margin, title, TextWidth, TitleHeight);
  lblDisclaimer.SetWordWrap(true);
  lblDisclaimer.Move(Margin, disclaimer, TextWidth, DisclaimerHeight);
  ProgressBar1.Move(Margin, foot + (ButtonHeight - BarHeight) / 2.0, TextWidth, BarHeight);
  SystemInfoButton.Move(Margin, foot, WideButtonWidth, ButtonHeight);
  OKButton.Move(PictureWidth - Margin - ButtonWidth, foot, ButtonWidth, ButtonHeight);
  Window.SetClientSize(PictureWidth, foot + ButtonHeight + Margin);
}

void frmAbout::Form_Load() {
  Window.SetCaption(std::string("About ") + ApplicationTitle);
  lblTitle.SetCaption(std::string(ApplicationTitle) + " V" + std::to_string(VersionMajor) + "." +
                      std::to_string(VersionMinor) + "." + std::to_string(VersionRevision));
  const std::string address = WebAddress(host_);
  lblDisclaimer.SetCaption(address.empty() ? LegalLines : LegalLines + ("\n\n" + address));
  ProgressBar1.SetValue(0);
  ProgressBar1.SetVisible(false);
  BarTimer.SetEnabled(false);
  SystemInfoButton.SetVisible(true);
  OKButton.SetVisible(true);
}

void frmAbout::ShowSplash(Form& owner) {
  Window.Load();
  Window.SetCaption(std::string("Starting ") + ApplicationTitle);
  SystemInfoButton.SetVisible(false);
  OKButton.SetVisible(false);
  ProgressBar1.SetVisible(true);
  BarTimer.SetInterval(BarIntervalOf(host_.clock.CountFor(MeasuredSeconds)));
  BarTimer.SetEnabled(true);
  Window.CentreOn(nullptr);
  Window.ShowOwned(&owner);
  // No events run while the program starts.
  Window.Refresh();
}

void frmAbout::BarTimer_Timer() {
  if (ProgressBar1.Value() < ProgressBar1.Max()) ProgressBar1.SetValue(ProgressBar1.Value() + 1);
}

void frmAbout::StartSysInfo() {
  if (host_.shell.OpenSystemInformation()) return;
  host_.dialogs.MsgBox("System Information Is Unavailable At This Time", BoxIcon::None, BoxButtons::Ok,
                       ApplicationTitle);
}

void AboutMenuItem_Click(MainForm& main) {
  frmAbout about(main.host);
  ShowDialog(about.Window, main.Window);
}

void HelpMenu_Click(MainForm& main) {
  main.menu.VisitKestreliaMenuItem.SetEnabled(!WebAddress(main.host).empty());
}

void VisitKestreliaMenuItem_Click(MainForm& main) {
  main.host.shell.Open(WebAddress(main.host), "");
}

}  // namespace pixorra
