// The items of the Help menu, and the Help buttons of forms that are there from the start.
#include "app/Wiring.h"
#include "utility/HelpPages.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"
#include "window/PreferencesForm.h"

namespace pixorra {

void ConnectHelp(MainForm& main) {
  MenuBar& menu = main.menu;
  const struct {
    MenuItem& Item;
    HelpTopic Topic;
  } topics[] = {
      {menu.HelpMenuItem_General, HelpTopic::General},
      {menu.HelpSelectFilmStripMenuItem, HelpTopic::SelectFilmStrip},
      {menu.HelpShowFolderMenuItem, HelpTopic::ShowFolder},
      {menu.HelpSetCameraLocationMenuItem, HelpTopic::SetCameraLocation},
      {menu.HelpMenuItem_Preferences, HelpTopic::Preferences},
      {menu.HelpMenuItem_Rename, HelpTopic::Rename},
      {menu.HelpMenuItem_Duplicate, HelpTopic::Duplicate},
      {menu.HelpMenuItem_Delete, HelpTopic::Delete},
      {menu.HelpMenuItem_Printing, HelpTopic::Printing},
      {menu.HelpMenuItem_SlideShow, HelpTopic::SlideShow},
  };
  for (const auto& [item, topic] : topics) Connect(item, [&main, topic = topic] { ShowHelp(main, topic); });
  Connect(main.preferences.HelpButton.On().Click, [&main](Control&) { ShowHelp(main, HelpTopic::Preferences); });
}

}  // namespace pixorra
