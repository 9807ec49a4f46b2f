// The menu of the slide show. Photos are shown by a program of its own, the companion, which is started by a command
// line and then left to itself.
#pragma once

#include <string>

namespace pixorra {

class MenuBar;
class Places;
class Shell;
struct MainForm;

// What the companion is called in the Windows folder.
inline constexpr const char* CompanionName = "Pixorra SlideShow.scr";

// Puts the companion that was installed with this program into the Windows folder, under its name there. Failures are
// ignored: a show then says that the file was not found.
void ProvideCompanion(Places& places, Shell& shell);

// By the menu's ticks: 1 fast, 3 medium, 7 slow.
int SlideShowSpeed(const MenuBar& menu);
// The companion's command for this folder, by the menu's ticks: plain text without quotes.
std::string SlideShowCommand(Places& places, const MenuBar& menu, const std::string& folder);

// The menus are about to open: what cannot be done now is disabled.
void SlideShowMenu_Click(MainForm& main);
void SlideShowPlayMenuItem_Click(MainForm& main);

// A companion that does not start is told of in a box.
void SlideShowPlayFilmStripMenuItem_Click(MainForm& main);
void SlideShowPlayOpenFolderMenuItem_Click(MainForm& main);
void SlideShowSpeedFastMenuItem_Click(MenuBar& menu);
void SlideShowSpeedMediumMenuItem_Click(MenuBar& menu);
void SlideShowSpeedSlowMenuItem_Click(MenuBar& menu);
void SlideShowTitleCounterMenuItem_Click(MenuBar& menu);

// Leaves the last show's folder, and the speed, for the companion to find as a screen saver, opens the desktop's own
// settings for it, and shows what to do there. Lets events run for a moment.
void SlideShowScreenSaverMenuItem_Click(MainForm& main);

}  // namespace pixorra
