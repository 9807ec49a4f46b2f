#include <gmock/gmock.h>

#include "platform/controls/Buttons.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Lists.h"
#include "platform/controls/Menu.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Timer.h"
#include "platform/headless/Person.h"
#include "tests/support/headless/HeadlessTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class PersonTest : public HeadlessTest {
 protected:
  PersonTest() {
    form.SetClientSize(400, 300);
    form.SetSizable(true);
    picture.Move(10, 10, 50, 40);
    button.Move(100, 10, 60, 20);
    form.Show();
  }

  std::vector<std::string> Failures() { return platform.failures.Take(); }

  Form form{toolkit, "TestForm"};
  ImageBox picture{form, "PhotoImage"};
  CommandButton button{form, "OkButton"};
};

TEST_F(PersonTest, ClickPressesAndReleasesInTheMiddle) {
  std::vector<std::string> heard;
  picture.On().MouseDown = [&](Control&, const MouseArgs& at) {
    heard.push_back("down " + std::to_string(at.X) + " " + std::to_string(at.Y));
  };
  picture.On().Click = [&](Control&) { heard.push_back("click"); };
  person.Click(picture);
  EXPECT_THAT(heard, ElementsAre("down 25.000000 20.000000", "click"));
}

TEST_F(PersonTest, ClickFindsThePointThatIsNotCovered) {
  ImageBox cover(form, "Cover");
  cover.Move(10, 10, 45, 40);
  int clicks = 0;
  picture.On().Click = [&](Control&) { ++clicks; };
  person.Click(picture);
  EXPECT_EQ(clicks, 1);
}

TEST_F(PersonTest, ClickOnWhatIsCoveredHiddenOrDisabledIsAFailure) {
  KeepFailures();
  ImageBox cover(form, "Cover");
  cover.Move(0, 0, 90, 90);
  person.Click(picture);
  EXPECT_THAT(Failures(), ElementsAre(HasSubstr("covered by Cover")));
  cover.SetVisible(false);
  picture.SetEnabled(false);
  person.Click(picture);
  EXPECT_THAT(Failures(), ElementsAre(HasSubstr("disabled")));
  picture.SetVisible(false);
  person.Click(picture);
  EXPECT_THAT(Failures(), ElementsAre(HasSubstr("hidden")));
}

TEST_F(PersonTest, ButtonIsPressedOnlyWhenLetGoOverIt) {
  int clicks = 0;
  button.On().Click = [&](Control&) { ++clicks; };
  person.Press(button);
  EXPECT_TRUE(button.HasFocus());
  person.MoveTo(form, 300, 200);
  person.Release();
  EXPECT_EQ(clicks, 0);
  person.Click(button);
  EXPECT_EQ(clicks, 1);
}

TEST_F(PersonTest, DragGoesInSeveralMovesAndDrops) {
  ImageBox folder(form, "Folder");
  folder.Move(200, 100, 80, 80);
  picture.SetAutomaticDrag(true);
  std::vector<DragState> states;
  folder.On().DragOver = [&](Control&, const DragArgs& drag) { states.push_back(drag.State); };
  int drops = 0;
  folder.On().DragDrop = [&](Control&, const DragArgs& drag) {
    EXPECT_EQ(&drag.Source, &picture);
    EXPECT_EQ(drag.X, 40);
    EXPECT_EQ(drag.Y, 40);
    ++drops;
  };
  person.Drag(picture, folder);
  EXPECT_EQ(drops, 1);
  EXPECT_THAT(states, ElementsAre(DragState::Enter, DragState::Over));
}

TEST_F(PersonTest, ADropThatNothingTakesFails) {
  picture.SetAutomaticDrag(true);
  ImageBox table(form, "Table");
  table.Move(200, 100, 80, 80);
  KeepFailures();
  person.Drag(picture, table);
  EXPECT_THAT(Failures(), ElementsAre("drag: Table takes no drop"));
}

TEST_F(PersonTest, ADragToAFolderWhoseMiddleIsCoveredFails) {
  picture.SetAutomaticDrag(true);
  ImageBox folder(form, "Folder");
  folder.Move(200, 100, 80, 80);
  folder.On().DragDrop = [](Control&, const DragArgs&) { ADD_FAILURE() << "dropped beside the preview"; };
  ImageBox preview(form, "Preview");
  preview.Move(210, 110, 60, 60);
  KeepFailures();
  person.Drag(picture, folder);
  EXPECT_THAT(Failures(), ElementsAre("drag to: Folder(0) is covered by Preview"));
}

TEST_F(PersonTest, TypesIntoTheFocusedBoxAndEditsIt) {
  TextBox box(form, "NameBox");
  box.Move(10, 100, 200, 20);
  int changes = 0;
  box.On().Change = [&](Control&) { ++changes; };
  person.Click(box);
  person.Type("Häuser 2");
  EXPECT_EQ(box.Text(), "Häuser 2");
  EXPECT_EQ(changes, 8);
  person.Key(key::Back);
  person.Key(key::Back);
  EXPECT_EQ(box.Text(), "Häuser");
  person.Key(key::Home);
  person.Key(key::Delete);
  EXPECT_EQ(box.Text(), "äuser");
  person.Key(key::Delete);
  EXPECT_EQ(box.Text(), "user");
  person.Fill(box, "x");
  EXPECT_EQ(box.Text(), "x");
}

TEST_F(PersonTest, RefusedCharacterIsNotTyped) {
  TextBox box(form, "NameBox");
  box.Move(10, 100, 200, 20);
  box.On().KeyPress = [](Control&, int& code) {
    if (code == '*') code = 0;
  };
  person.Click(box);
  person.Type("a*b");
  EXPECT_EQ(box.Text(), "ab");
}

TEST_F(PersonTest, BarScrollsWhileHeldAndChangesWhenLetGo) {
  ScrollBar bar(form, "Bar", Orientation::Horizontal);
  bar.Move(10, 200, 200, 16);
  std::vector<std::string> heard;
  bar.On().Scroll = [&](Control&) { heard.push_back("scroll " + std::to_string(bar.Value())); };
  bar.On().Change = [&](Control&) { heard.push_back("change " + std::to_string(bar.Value())); };
  person.DragBar(bar, 100);
  EXPECT_THAT(heard, ElementsAre("scroll 20", "scroll 40", "scroll 60", "scroll 80", "scroll 100", "change 100"));
  heard.clear();
  person.MoveBar(bar, 5);
  EXPECT_THAT(heard, ElementsAre("change 5"));
}

TEST_F(PersonTest, MenuOpensItsParentsFirst) {
  MenuItem file(form, "FileMenu", "&File");
  MenuItem open(file, "OpenItem", "&Open");
  open.SetEnabled(false);
  file.On().Click = [&](Control&) { open.SetEnabled(true); };
  int opened = 0;
  open.On().Click = [&](Control&) { ++opened; };
  person.ChooseMenu(open);
  EXPECT_EQ(opened, 1);
}

TEST_F(PersonTest, MenuItemThatIsDisabledCannotBeChosen) {
  KeepFailures();
  MenuItem file(form, "FileMenu", "&File");
  MenuItem open(file, "OpenItem", "&Open");
  open.SetEnabled(false);
  open.On().Click = [](Control&) { FAIL(); };
  person.ChooseMenu(open);
  EXPECT_THAT(Failures(), ElementsAre("menu item OpenItem is disabled"));
}

TEST_F(PersonTest, PopupMenuGivesTheExpectedItemWhenItIsClosed) {
  MenuItem popup(form, "FolderPopup", "Folder");
  popup.SetVisible(false);
  MenuItem rename(popup, "RenameItem", "Rename");
  std::vector<std::string> heard;
  popup.On().Click = [&](Control&) { heard.push_back("open"); };
  rename.On().Click = [&](Control&) {
    EXPECT_EQ(platform.backend.PopupUp(), nullptr);
    heard.push_back("rename");
  };
  picture.On().MouseDown = [&](Control&, const MouseArgs& args) {
    if (args.Button == button::Right) form.PopupMenu(popup);
    heard.push_back("after");
  };
  person.ExpectMenu(popup, &rename);
  person.RightClick(picture);
  EXPECT_THAT(heard, ElementsAre("open", "rename", "after"));
}

TEST_F(PersonTest, PopupMenuIsClosedByTheFirstChoice) {
  KeepFailures();
  MenuItem popup(form, "FolderPopup", "Folder");
  MenuItem rename(popup, "RenameItem", "Rename");
  person.ExpectMenu(popup, [&] {
    person.ChooseFromPopup(rename);
    person.ChooseFromPopup(rename);
  });
  form.PopupMenu(popup);
  EXPECT_THAT(Failures(), ElementsAre("menu item RenameItem is in no menu that is up"));
}

TEST_F(PersonTest, PopupMenuThatNobodyExpectedIsAFailure) {
  KeepFailures();
  MenuItem popup(form, "FolderPopup", "Folder");
  form.PopupMenu(popup);
  EXPECT_THAT(Failures(), ElementsAre("unexpected pop-up menu FolderPopup"));
}

TEST_F(PersonTest, ModalFormIsAnsweredInsideItsWait) {
  Form ask(toolkit, "AskForm");
  CommandButton yes(ask, "YesButton");
  yes.Move(10, 10, 50, 20);
  bool reply = false;
  yes.On().Click = [&](Control&) {
    reply = true;
    ask.Unload();
  };
  person.ExpectForm("AskForm", [&](Person& p, Form& shown) {
    EXPECT_EQ(&shown, &ask);
    EXPECT_TRUE(shown.IsModal());
    EXPECT_FALSE(toolkit.TakesInput(form));
    p.Click(yes);
  });
  ask.ShowModal(&form);
  EXPECT_TRUE(reply);
  EXPECT_TRUE(toolkit.TakesInput(form));
}

TEST_F(PersonTest, ClickOnAWindowBelowAModalOneIsAFailure) {
  KeepFailures();
  Form ask(toolkit, "AskForm");
  person.ExpectForm("AskForm", [&](Person& p, Form& shown) {
    p.Click(button);
    p.Close(shown);
  });
  ask.ShowModal(&form);
  EXPECT_THAT(Failures(), ElementsAre(HasSubstr("TestForm takes no input")));
}

TEST_F(PersonTest, ActionsMeanwhileRunInTheNextEventsOnly) {
  std::vector<std::string> heard;
  bool ready = false;
  person.During([&] { heard.push_back("first"); });
  person.During([&] { return ready; }, [&] { heard.push_back("second"); });
  EXPECT_THAT(heard, IsEmpty());
  toolkit.DoEvents();
  toolkit.DoEvents();
  EXPECT_THAT(heard, ElementsAre("first"));
  ready = true;
  toolkit.DoEvents();
  EXPECT_THAT(heard, ElementsAre("first", "second"));
}

TEST_F(PersonTest, WindowIsResizedMaximisedAndRestored) {
  std::vector<std::string> sizes;
  form.On().Resize = [&](Control&) {
    sizes.push_back(std::to_string(form.ScaleWidth()) + "x" + std::to_string(form.ScaleHeight()));
  };
  form.SetTwipsLeft(1500);
  person.Resize(form, 500, 350);
  person.Maximise(form);
  EXPECT_EQ(form.WindowState(), windowstate::Maximised);
  EXPECT_EQ(form.TwipsWidth(), 1280 * 15);
  person.Restore(form);
  EXPECT_EQ(form.TwipsLeft(), 1500);
  EXPECT_THAT(sizes, ElementsAre("500x350", "1272x997", "500x350"));
}

TEST_F(PersonTest, ErrorThatNoHandlerWantedIsReportedAndTheProgramGoesOn) {
  KeepFailures();
  button.On().Click = [](Control&) { throw RuntimeError(error::Overflow); };
  person.Click(button);
  EXPECT_THAT(Failures(), ElementsAre(HasSubstr("unhandled error 6")));
  EXPECT_FALSE(toolkit.Ended());
}

TEST_F(PersonTest, ListEntryIsChosenByItsText) {
  ListBox list(form, "List");
  list.Move(10, 100, 100, 100);
  list.AddItem("one");
  list.AddItem("two");
  int clicks = 0;
  list.On().Click = [&](Control&) { ++clicks; };
  person.Choose(list, "two");
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace pixorra
