// Drop-down lists as a screen reader works them: an entry is chosen without a key.
#include <QAccessible>
#include <QComboBox>
#include <QListView>
#include <QPushButton>
#include <QStringList>

#include "platform/controls/Buttons.h"
#include "platform/controls/Lists.h"
#include "platform/qt/Accessibility.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class DropDownAccessibleTest : public QtTest {
 protected:
  DropDownAccessibleTest() {
    InstallAccessibility();
    form.SetClientSize(400, 300);
    list.Move(10, 10, 200, 26);
    list.SetAccessibleName("Printer");
    for (const char* name : {"Office", "Annex", "Save as PDF"}) list.AddItem(name);
    list.SetListIndex(0);
    list.On().Click = [this](Control&) { ++clicks; };
  }
  void Show() {
    form.Show();
    Settle();
  }
  QComboBox& Widget() { return WidgetOf<QComboBox>(list); }
  QAccessibleInterface& Spoken() { return *QAccessible::queryAccessibleInterface(&Widget()); }
  QAccessibleInterface& Entries() { return *Spoken().child(0); }
  QAccessibleInterface& Entry(int row) { return *Entries().child(row); }
  void Press(QAccessibleInterface& entry) {
    entry.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    Settle();
  }
  // The toolkit shows a button as pressed for a while first.
  void PressButton(CommandButton& button) {
    auto& widget = WidgetOf<QPushButton>(button);
    Press(*QAccessible::queryAccessibleInterface(&widget));
    EXPECT_TRUE(toolkit.WaitUntil([&] { return !widget.isDown(); }, 60));
    Settle();
  }

  Form form{toolkit, "ReadForm"};
  ComboBox list{form, "List"};
  int clicks = 0;
};

TEST_F(DropDownAccessibleTest, ItsEntriesAreReadAndOneIsChosenWithoutOpeningTheList) {
  Show();
  EXPECT_EQ(Entries().role(), QAccessible::List);
  EXPECT_EQ(Entries().text(QAccessible::Name), "Printer");
  EXPECT_EQ(Entries().parent(), &Spoken());
  ASSERT_EQ(Entries().childCount(), 3);
  EXPECT_EQ(Entries().child(3), nullptr);
  EXPECT_EQ(Entries().child(-1), nullptr);
  QAccessibleInterface& annex = Entry(1);
  EXPECT_EQ(annex.role(), QAccessible::ListItem);
  EXPECT_EQ(annex.text(QAccessible::Name), "Annex");
  EXPECT_TRUE(annex.text(QAccessible::Description).isEmpty());
  EXPECT_EQ(annex.parent(), &Entries());
  EXPECT_EQ(Entries().indexOfChild(&annex), 1);
  EXPECT_EQ(&Entry(1), &annex);
  EXPECT_TRUE(Entry(0).state().selected);
  EXPECT_FALSE(annex.state().selected);
  EXPECT_TRUE(annex.state().invisible);
  EXPECT_FALSE(Entry(0).state().focused) << "the list is not open";
  annex.actionInterface()->doAction("Show");
  EXPECT_EQ(list.ListIndex(), 0);
  clicks = 0;
  Press(annex);
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(Widget().currentIndex(), 1);
  EXPECT_TRUE(annex.state().selected);
  EXPECT_FALSE(Entry(0).state().selected);
}

TEST_F(DropDownAccessibleTest, AnEntryOfTheOpenListIsFoundOnTheScreenAndClosesTheListWhenItIsChosen) {
  Show();
  Spoken().actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  Settle();
  ASSERT_TRUE(Widget().view()->isVisible());
  QAccessibleInterface& pdf = Entry(2);
  EXPECT_FALSE(pdf.state().invisible);
  EXPECT_FALSE(pdf.state().focused);
  EXPECT_TRUE(Entry(0).state().focused) << "the keys are on it";
  EXPECT_EQ(Entries().focusChild(), &Entry(0));
  Key(*Widget().view(), Qt::Key_Down);
  EXPECT_TRUE(Entry(1).state().focused);
  EXPECT_TRUE(Entry(1).state().selected);
  EXPECT_EQ(list.ListIndex(), 0) << "it is not chosen yet";
  const QPoint middle = pdf.rect().center();
  EXPECT_TRUE(Widget().view()->rect().contains(Widget().view()->mapFromGlobal(middle)));
  EXPECT_EQ(Entries().childAt(middle.x(), middle.y()), &pdf);
  Press(pdf);
  EXPECT_FALSE(Widget().view()->isVisible());
  EXPECT_EQ(list.ListIndex(), 2);
  EXPECT_TRUE(pdf.rect().isEmpty());
}

TEST_F(DropDownAccessibleTest, AnEntryThatTheOpenListHasNoRoomForIsOutOfSight) {
  for (int i = 0; i < 60; ++i) list.AddItem("Printer " + std::to_string(i));
  Show();
  Spoken().actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  Settle();
  EXPECT_FALSE(Entry(0).state().offscreen);
  EXPECT_TRUE(Entry(62).state().offscreen);
  Press(Entry(62));
  EXPECT_EQ(list.ListIndex(), 62);
}

TEST_F(DropDownAccessibleTest, ItsEntriesGoWithIt) {
  auto gone = std::make_unique<ComboBox>(form, "Gone");
  gone->AddItem("One");
  Show();
  QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&WidgetOf<QComboBox>(*gone));
  const QAccessible::Id id = QAccessible::uniqueId(spoken.child(0)->child(0));
  gone.reset();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

TEST_F(DropDownAccessibleTest, AnEntryOfAListThatTakesTextsGivesItsText) {
  ComboBox folders(form, "Folders");
  folders.SetEditable(true);
  folders.Move(10, 50, 200, 26);
  folders.AddItem("C:\\Card");
  folders.AddItem("C:\\Home");
  folders.SetText("C:\\");
  Show();
  QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&WidgetOf<QComboBox>(folders));
  Press(*spoken.child(0)->child(1));
  EXPECT_EQ(folders.Text(), "C:\\Home");
  EXPECT_EQ(folders.ListIndex(), 1);
}

TEST_F(DropDownAccessibleTest, AListThatIsNotEnabledOffersNothing) {
  list.SetEnabled(false);
  Show();
  EXPECT_TRUE(Entry(1).state().disabled);
  EXPECT_TRUE(Entry(1).actionInterface()->actionNames().isEmpty());
  Press(Entry(1));
  EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(DropDownAccessibleTest, AnEntryThatHasGoneIsNoLongerValid) {
  Show();
  QAccessibleInterface& last = Entry(2);
  list.RemoveItem(2);
  Settle();
  EXPECT_FALSE(last.isValid());
  EXPECT_TRUE(last.state().invalid);
  EXPECT_TRUE(last.text(QAccessible::Name).isEmpty());
  EXPECT_EQ(Entries().childCount(), 2);
  EXPECT_EQ(Entries().indexOfChild(&last), -1);
  Press(last);
  EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(DropDownAccessibleTest, WhatLiesBelowABoxIsWorkedByNoReader) {
  CommandButton button(form, "Button");
  button.Move(10, 90, 100, 30);
  button.On().Click = [this](Control&) { ++clicks; };
  Show();
  clicks = 0;
  toolkit.PushBox();
  PressButton(button);
  Press(Entry(1));
  toolkit.PopBox();
  Settle();
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(list.ListIndex(), 0);
  EXPECT_EQ(Widget().currentIndex(), 0) << "it shows what is chosen still";
  PressButton(button);
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace pixorra
