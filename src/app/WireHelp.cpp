// The items of the Help menu, the Help buttons of forms that are there from the start, and the company name.
#include "app/Wiring.h"
#include "desktop/FolderRename.h"
#include "utility/CompanyName.h"
#include "utility/HelpPages.h"
#include "utility/Manual.h"
#include "utility/ViewReadmeForm.h"
#include "utility/frmAbout.h"
#include "window/CoreState.h"
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
  Connect(menu.ManualMenuItem, EndingRename(main, [&main] { ManualMenuItem_Click(main); }));
  Connect(menu.ViewReadmeMenuItem, EndingRename(main, [&main] { ViewReadmeMenuItem_Click(main); }));
  Connect(menu.VisitKestreliaMenuItem, EndingRename(main, [&main] { VisitKestreliaMenuItem_Click(main); }));
  Connect(menu.HelpMenu, [&main] { HelpMenu_Click(main); });
  HelpMenu_Click(main);
  Connect(menu.AboutMenuItem, EndingRename(main, [&main] { AboutMenuItem_Click(main); }));
  Connect(menu.CompanyNameMenuItem, EndingRename(main, [&main] { CompanyNameMenuItem_Click(main); }));
  Connect(main.core.CompanyNameLabel.On().DblClick,
          EndingRename(main, [&main](Control&) { CompanyNameMenuItem_Click(main); }));
  Connect(main.preferences.HelpButton.On().Click, [&main](Control&) { ShowHelp(main, HelpTopic::Preferences); });
}

}  // namespace pixorra
