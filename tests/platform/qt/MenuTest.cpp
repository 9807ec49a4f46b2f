// Menus: the bar, what opening them does, pop-up menus.
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

#include "platform/controls/Lists.h"
#include "platform/controls/Menu.h"
#include "platform/qt/FormPeer.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class MenuTest : public QtTest {
 protected:
  MenuTest() {
    popup.SetVisible(false);
    form.SetClientSize(300, 200);
    form.Show();
    Settle();
  }
  QMenuBar& Bar() { return static_cast<FormPeer*>(form.GetPeer())->Window().MenuBar(); }
  QMenu& FileMenu() { return *Bar().actions().at(0)->menu(); }
  QAction& OpenAction() { return *FileMenu().actions().at(0); }
  // As the bar does when a person opens it.
  static void Open(QMenu& menu) {
    menu.popup(QPoint(0, 0));
    QCoreApplication::processEvents();
  }

  Form form{toolkit, "MenuForm"};
  MenuItem file{form, "FileMenu", "&File"};
  MenuItem open{file, "OpenItem", "&Open", 'O', shift::Ctrl};
  MenuItem line{file, "Line", "-"};
  MenuItem recent{file, "RecentMenu", "&Recent"};
  MenuItem first{recent, "FirstItem", "First"};
  MenuItem popup{form, "PopupMenu", "Popup"};
  MenuItem one{popup, "OneItem", "One"};
  MenuItem two{popup, "TwoItem", "Two"};
};

TEST_F(MenuTest, TheBarShowsTheVisibleMenus) {
  ASSERT_EQ(Bar().actions().size(), 2);
  EXPECT_EQ(Bar().actions().at(0)->text(), "&File");
  EXPECT_FALSE(Bar().actions().at(1)->isVisible());
}

TEST_F(MenuTest, ItemsShowCaptionsKeysMarksAndLines) {
  open.SetChecked(true);
  recent.SetEnabled(false);
  Open(FileMenu());
  EXPECT_EQ(OpenAction().text(), "&Open\tCtrl+O");
  EXPECT_TRUE(OpenAction().shortcut().isEmpty());
  EXPECT_TRUE(OpenAction().isChecked());
  EXPECT_TRUE(FileMenu().actions().at(1)->isSeparator());
  EXPECT_FALSE(FileMenu().actions().at(2)->isEnabled());
  FileMenu().close();
}

TEST_F(MenuTest, OpeningAMenuRunsItsClickBeforeTheItemsAreSeen) {
  int opened = 0;
  file.On().Click = [&](Control&) {
    ++opened;
    open.SetCaption("&Open again");
    open.SetEnabled(false);
    line.SetVisible(false);
  };
  Open(FileMenu());
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(OpenAction().text(), "&Open again\tCtrl+O");
  EXPECT_FALSE(OpenAction().isEnabled());
  EXPECT_FALSE(FileMenu().actions().at(1)->isVisible());
  FileMenu().close();
}

TEST_F(MenuTest, ASubmenuRaisesItsOwnClickWhenItOpens) {
  int opened = 0;
  recent.On().Click = [&](Control&) { ++opened; };
  Open(FileMenu());
  EXPECT_EQ(opened, 0);
  Open(*FileMenu().actions().at(2)->menu());
  EXPECT_EQ(opened, 1);
  FileMenu().close();
}

TEST_F(MenuTest, AChosenItemRaisesClick) {
  int clicks = 0;
  open.On().Click = [&](Control&) { ++clicks; };
  Open(FileMenu());
  OpenAction().trigger();
  EXPECT_EQ(clicks, 1);
  FileMenu().close();
}

TEST_F(MenuTest, AFormMayUnloadByAnItemOfItsOwn) {
  open.On().Click = [&](Control&) { form.Unload(); };
  Open(FileMenu());
  OpenAction().trigger();
  EXPECT_FALSE(form.IsLoaded());
  Settle();
}

TEST_F(MenuTest, ATopMenuFollowsTheModelAtTheTurnsEnd) {
  file.SetCaption("&Datei");
  Settle();
  EXPECT_EQ(Bar().actions().at(0)->text(), "&Datei");
}

TEST_F(MenuTest, APopupRunsTheChosenItemWhenItIsClosed) {
  std::vector<std::string> events;
  popup.On().Click = [&](Control&) { events.emplace_back("opens"); };
  two.On().Click = [&](Control&) {
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    events.emplace_back("two");
  };
  Meanwhile([&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions().size(), 2);
    menu->setActiveAction(menu->actions().at(1));
    Key(*menu, Qt::Key_Return);
  });
  form.PopupMenu(popup);
  events.emplace_back("returned");
  EXPECT_EQ(events, (std::vector<std::string>{"opens", "two", "returned"}));
}

// As the accessibility bus does, which presses no key and no button.
TEST_F(MenuTest, APopupWhoseItemIsTriggeredCloses) {
  int ran = 0;
  two.On().Click = [&](Control&) { ++ran; };
  bool closed = false;
  Meanwhile([&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    menu->actions().at(1)->trigger();
    closed = !menu->isVisible();
    menu->close();
  });
  form.PopupMenu(popup);
  EXPECT_TRUE(closed);
  EXPECT_EQ(ran, 1);
}

TEST_F(MenuTest, APopupThatIsClosedRunsNothing) {
  one.On().Click = [&](Control&) { ADD_FAILURE(); };
  Meanwhile([&] { QApplication::activePopupWidget()->close(); });
  form.PopupMenu(popup);
}

TEST_F(MenuTest, AMenuOfTheBarIsUpUntilItCloses) {
  EXPECT_FALSE(toolkit.IsMenuUp());
  Open(FileMenu());
  EXPECT_TRUE(toolkit.IsMenuUp());
  FileMenu().close();
  EXPECT_FALSE(toolkit.IsMenuUp());
}

TEST_F(MenuTest, ADropDownListIsUpAsAMenuIs) {
  ComboBox list(form, "List");
  for (const char* name : {"Card", "Home"}) list.AddItem(name);
  Settle();
  WidgetOf<QComboBox>(list).showPopup();
  EXPECT_TRUE(toolkit.IsMenuUp());
  WidgetOf<QComboBox>(list).hidePopup();
  EXPECT_FALSE(toolkit.IsMenuUp());
}

// As a helper does, which needs no hand for it.
TEST_F(MenuTest, AChoiceFromAPopupIsDroppedWhereAnotherOneComesUpAtOnce) {
  std::vector<std::string> events;
  MenuItem second(form, "SecondPopup", "Second");
  MenuItem last(second, "LastItem", "Last");
  second.SetVisible(false);
  two.On().Click = [&](Control&) { events.emplace_back("two"); };
  Meanwhile([&] {
    const QPointer<QMenu> before = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    before->actions().at(1)->trigger();
    Meanwhile([&] {
      EXPECT_EQ(QApplication::activePopupWidget()->objectName(), "SecondPopup");
      EXPECT_FALSE(before->isVisible());
      before->actions().at(1)->trigger();
      QApplication::activePopupWidget()->close();
    });
    form.PopupMenu(second);
  });
  form.PopupMenu(popup);
  EXPECT_TRUE(events.empty());
}

TEST_F(MenuTest, APopupClosesAMenuOfTheBar) {
  Open(FileMenu());
  Meanwhile([&] {
    EXPECT_FALSE(FileMenu().isVisible());
    while (QWidget* up = QApplication::activePopupWidget()) up->close();
  });
  form.PopupMenu(popup);
}

TEST_F(MenuTest, TheEndOfTheProgramClosesAPopup) {
  Meanwhile([&] { toolkit.End(); });
  form.PopupMenu(popup);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

}  // namespace
}  // namespace pixorra
