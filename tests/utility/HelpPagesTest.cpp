// The pages of help: their titles, their number, their shape, and how they are shown.
#include <gtest/gtest.h>
#include <vector>

#include "platform/runtime/Text.h"
#include "tests/support/headless/ProgramTest.h"
#include "utility/HelpPages.h"
#include "window/MenuBar.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

constexpr HelpTopic Topics[] = {HelpTopic::General,           HelpTopic::SelectFilmStrip, HelpTopic::ShowFolder,
                                HelpTopic::SetCameraLocation, HelpTopic::Preferences,     HelpTopic::Rename,
                                HelpTopic::Duplicate,         HelpTopic::Delete,          HelpTopic::Printing,
                                HelpTopic::SlideShow};

TEST(HelpPages, TitlesCountTheirPagesAndSpellHelpInTwoWays) {
  std::vector<std::string> titles;
  for (const HelpTopic topic : Topics) {
    for (std::size_t page = 1; page <= PagesOf(topic).size(); ++page)
      titles.push_back(TitleOf(topic, static_cast<int>(page)));
  }
  EXPECT_EQ(titles,
            (std::vector<std::string>{
                "HELP - General     [1 of 3]", "HELP - General     [2 of 3]", "HELP - General     [3 of 3]",
                "Help - Select a Film Strip     [1 of 1]", "Help - Show a Folder     [1 of 1]",
                "Help - Set Camera Location     [1 of 1]", "HELP - Preferences     [1 of 5]",
                "HELP - Preferences     [2 of 5]", "HELP - Preferences     [3 of 5]", "HELP - Preferences     [4 of 5]",
                "HELP - Preferences     [5 of 5]", "HELP - Rename     [1 of 1]", "HELP - Duplicate Photos     [1 of 1]",
                "HELP - Delete Photos in Film Strip     [1 of 1]", "HELP - Printing     [1 of 2]",
                "HELP - Printing     [2 of 2]", "HELP - Slide Show     [1 of 1]"}));
}

TEST(HelpPages, APageIsADozenLinesOfSomeSixtyCharactersAtMost) {
  for (const HelpTopic topic : Topics) {
    for (const char* page : PagesOf(topic)) {
      const auto lines = Lines(page);
      EXPECT_LE(lines.size(), 12U) << page;
      for (const std::string_view line : lines) EXPECT_LE(line.size(), 63U) << line;
    }
  }
}

TEST(HelpPages, TheFilmStripsPageKeepsItsSpelling) {
  EXPECT_STREQ(PagesOf(HelpTopic::SelectFilmStrip)[0],
               "Select an existing source folder/location/path. This will\n"
               "be openned as the 'Film-Strip'. Photos can be dragged from\n"
               "the film-strip down into one of the destination folders");
}

class HelpTest : public ProgramTest {
 protected:
  void ExpectPages(Person& person, HelpTopic topic) {
    int page = 0;
    for (const char* text : PagesOf(topic)) person.ExpectBox(TitleOf(topic, ++page), text);
  }
};

TEST_F(HelpTest, EachItemOfTheMenuShowsTheWholeTopicPageByPage) {
  ProgramRun& run = Started();
  MenuBar& menu = run.main.menu;
  const struct {
    MenuItem& Item;
    HelpTopic Topic;
  } items[] = {{menu.HelpMenuItem_General, HelpTopic::General},
               {menu.HelpSelectFilmStripMenuItem, HelpTopic::SelectFilmStrip},
               {menu.HelpShowFolderMenuItem, HelpTopic::ShowFolder},
               {menu.HelpSetCameraLocationMenuItem, HelpTopic::SetCameraLocation},
               {menu.HelpMenuItem_Preferences, HelpTopic::Preferences},
               {menu.HelpMenuItem_Rename, HelpTopic::Rename},
               {menu.HelpMenuItem_Duplicate, HelpTopic::Duplicate},
               {menu.HelpMenuItem_Delete, HelpTopic::Delete},
               {menu.HelpMenuItem_Printing, HelpTopic::Printing},
               {menu.HelpMenuItem_SlideShow, HelpTopic::SlideShow}};
  for (const auto& [item, topic] : items) {
    ExpectPages(run.person, topic);
    run.person.ChooseMenu(item);
  }
}

TEST_F(HelpTest, TheHelpButtonOfPreferencesShowsAllFivePages) {
  ProgramRun& run = Started();
  run.person.ExpectForm("PreferencesForm", [&](Person& hand, Form& form) {
    ExpectPages(hand, HelpTopic::Preferences);
    hand.Click(run.main.preferences.HelpButton);
    hand.Close(form);
  });
  run.person.ChooseMenu(run.main.menu.PreferenceMenuItem);
}

}  // namespace
}  // namespace pixorra
