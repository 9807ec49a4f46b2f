#include "shell/SlideShow.h"

#include "base/Routines.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Places.h"
#include "platform/services/Settings.h"
#include "platform/services/Shell.h"
#include "utility/MyMsgBoxForm.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"

namespace pixorra {

namespace {

// As it was installed with this program.
constexpr const char* InstalledName = "pixorra-slideshow";
constexpr const char* MarkOfShow = " /S :SS ";
constexpr const char* SaverSection = "ScreenSaver";
constexpr double SecondsForSettings = 0.7;  // in which the desktop's window comes up

constexpr const char* SaverInstructions =
    "To enable the Screen Saver you must first select\n"
    "'Pixorra SlideShow' from the drop-down list of\n"
    "available screen savers. Then click on the <APPLY>\n"
    "button and you're ready to go.\n"
    "\n"
    "You can test the screen saver using the <PREVIEW>\n"
    "button and make changes using the <SETTINGS> button.";

void Play(MainForm& main, const std::string& folder) {
  main.core.SlideShowFolder = folder;
  const int failure =
      ErrorsIgnored([&] { main.host.shell.Run(SlideShowCommand(main.host.places, main.menu, folder)); });
  if (failure == error::None) return;
  main.host.dialogs.MsgBox(ErrorDescription(failure), BoxIcon::Exclamation, BoxButtons::Ok, "Pixorra - SlideShow");
}

void CheckSpeed(MenuBar& menu, const MenuItem& chosen) {
  for (MenuItem* item :
       {&menu.SlideShowSpeedFastMenuItem, &menu.SlideShowSpeedMediumMenuItem, &menu.SlideShowSpeedSlowMenuItem})
    item->SetChecked(item == &chosen);
}

void SaveForSaver(MainForm& main, const char* key, const std::string& text) {
  static_cast<void>(ErrorsIgnored([&] { main.host.settings.SaveSetting(ApplicationTitle, SaverSection, key, text); }));
}

}  // namespace

void ProvideCompanion(Places& places, Shell& shell) {
  shell.OfferProgram(WindowsFolderPath(places) + CompanionName, InstalledName);
}

int SlideShowSpeed(const MenuBar& menu) {
  if (menu.SlideShowSpeedSlowMenuItem.Checked()) return 7;
  return menu.SlideShowSpeedMediumMenuItem.Checked() ? 3 : 1;
}

std::string SlideShowCommand(Places& places, const MenuBar& menu, const std::string& folder) {
  const char* const title = menu.SlideShowTitleCounterMenuItem.Checked() ? "1" : "0";
  // Deliberate: two backslashes ahead of the name.
  return WindowsFolderPath(places) + "\\" + CompanionName + MarkOfShow + std::to_string(SlideShowSpeed(menu)) + title +
         folder;
}

void SlideShowMenu_Click(MainForm& main) {
  main.menu.SlideShowScreenSaverMenuItem.SetEnabled(!main.core.SlideShowFolder.empty());
}

void SlideShowPlayMenuItem_Click(MainForm& main) {
  main.menu.SlideShowPlayFilmStripMenuItem.SetEnabled(!main.strip.NoFilmStrip);
  main.menu.SlideShowPlayOpenFolderMenuItem.SetEnabled(main.desk.OpenFolderIndex != 0);
}

// What is on show may have gone since the menu opened: a message may have been up.
void SlideShowPlayFilmStripMenuItem_Click(MainForm& main) {
  if (main.strip.NoFilmStrip) return;
  Play(main, main.strip.SrcFileList.Path());
}

void SlideShowPlayOpenFolderMenuItem_Click(MainForm& main) {
  if (main.desk.OpenFolderIndex == 0) return;
  Play(main, main.desk.DestFolderFiles(main.desk.OpenFolderIndex).Path());
}

void SlideShowSpeedFastMenuItem_Click(MenuBar& menu) {
  CheckSpeed(menu, menu.SlideShowSpeedFastMenuItem);
}

void SlideShowSpeedMediumMenuItem_Click(MenuBar& menu) {
  CheckSpeed(menu, menu.SlideShowSpeedMediumMenuItem);
}

void SlideShowSpeedSlowMenuItem_Click(MenuBar& menu) {
  CheckSpeed(menu, menu.SlideShowSpeedSlowMenuItem);
}

void SlideShowTitleCounterMenuItem_Click(MenuBar& menu) {
  menu.SlideShowTitleCounterMenuItem.SetChecked(!menu.SlideShowTitleCounterMenuItem.Checked());
}

void SlideShowScreenSaverMenuItem_Click(MainForm& main) {
  SaveForSaver(main, "SourceLocation", main.core.SlideShowFolder);
  SaveForSaver(main, "Duration", std::to_string(SlideShowSpeed(main.menu)));
  main.host.shell.OpenScreenSaverSettings();
  {
    // Only while waiting: a pointer of the window hides those of all its controls.
    const AtExit restored([&main, before = main.Window.MousePointer()] { main.Window.SetMousePointer(before); });
    main.Window.SetMousePointer(pointer::Arrow);
    if (!main.host.toolkit.WaitFor(SecondsForSettings)) return;
  }
  MyMsgBoxForm::Of(main).ShowIt(SaverInstructions, "Pixorra - ScreenSaver");
}

}  // namespace pixorra
