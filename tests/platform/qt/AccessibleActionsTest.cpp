// What a screen reader does to a form's controls. What it is told meanwhile goes over the desktop's bus: tests/x11.
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStringList>
#include <QTreeWidget>

#include "platform/controls/Buttons.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/Lists.h"
#include "platform/controls/Menu.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/TreeView.h"
#include "platform/qt/Accessibility.h"
#include "platform/qt/TreeAccessible.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class AccessibleActionsTest : public QtTest {
 protected:
  AccessibleActionsTest() {
    InstallAccessibility();
    form.SetClientSize(400, 300);
  }
  void Show() {
    form.Show();
    Settle();
  }
  static QAccessibleInterface& Of(QWidget& widget) { return *QAccessible::queryAccessibleInterface(&widget); }
  QAccessibleInterface& Light(const QString& begin) {
    QAccessibleInterface& client = Of(ClientOf(form));
    for (int i = 0; i < client.childCount(); ++i) {
      if (client.child(i)->text(QAccessible::Name).startsWith(begin)) return *client.child(i);
    }
    throw std::runtime_error("nothing says " + begin.toStdString());
  }
  void Do(QAccessibleInterface& at, const QString& action) {
    at.actionInterface()->doAction(action);
    Settle();
  }

  Form form{toolkit, "ReadForm"};
};

TEST_F(AccessibleActionsTest, AnOptionThatIsToggledIsSetAndTheOthersAreNot) {
  OptionButton first(form, "First");
  OptionButton second(form, "Second");
  first.SetValue(true);
  Show();
  Do(Of(WidgetOf<QRadioButton>(second)), QAccessibleActionInterface::toggleAction());
  EXPECT_TRUE(second.Value());
  EXPECT_FALSE(first.Value());
  EXPECT_FALSE(WidgetOf<QRadioButton>(first).isChecked());
}

TEST_F(AccessibleActionsTest, ABoxThatIsToggledIsClickedOnce) {
  CheckBox box(form, "Box");
  box.Move(0, 0, 100, 20);
  int clicks = 0;
  box.On().Click = [&clicks](Control&) { ++clicks; };
  Show();
  Do(Of(WidgetOf<QCheckBox>(box)), QAccessibleActionInterface::toggleAction());
  EXPECT_EQ(box.Value(), 1);
  EXPECT_EQ(clicks, 1);
  Click(WidgetOf<QCheckBox>(box), QPoint(5, 5));
  Settle();
  EXPECT_EQ(box.Value(), 0);
  EXPECT_EQ(clicks, 2);
}

TEST_F(AccessibleActionsTest, ABarIsMovedByItsValue) {
  ScrollBar bar(form, "Bar", Orientation::Horizontal);
  bar.SetMax(100);
  int changes = 0;
  bar.On().Change = [&changes](Control&) { ++changes; };
  Show();
  QAccessibleInterface& spoken = Of(WidgetOf<QScrollBar>(bar));
  EXPECT_EQ(spoken.role(), QAccessible::ScrollBar);
  spoken.valueInterface()->setCurrentValue(40);
  Settle();
  EXPECT_EQ(bar.Value(), 40);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(spoken.valueInterface()->currentValue().toInt(), 40);
}

TEST_F(AccessibleActionsTest, WhatIsWrittenIntoABoxIsTyped) {
  TextBox box(form, "Box");
  box.SetText("IMG_0001");
  int changes = 0;
  box.On().Change = [&changes](Control&) { ++changes; };
  Show();
  Of(WidgetOf<QLineEdit>(box)).editableTextInterface()->replaceText(0, 8, "Lake");
  Settle();
  EXPECT_EQ(box.Text(), "Lake");
  EXPECT_EQ(changes, 1);
}

TEST_F(AccessibleActionsTest, WhatIsWrittenIntoADropDownListIsTypedAndAChoiceIsNot) {
  ComboBox list(form, "List");
  list.SetEditable(true);
  list.AddItem("C:\\Card");
  int changes = 0;
  list.On().Change = [&changes](Control&) { ++changes; };
  Show();
  list.SetFocus();
  Settle();
  auto& widget = WidgetOf<QComboBox>(list);
  Of(*widget.lineEdit()).editableTextInterface()->replaceText(0, 0, "C:\\Home");
  Settle();
  EXPECT_EQ(list.Text(), "C:\\Home");
  EXPECT_EQ(changes, 1);
  Key(widget, Qt::Key_Down);
  Settle();
  EXPECT_EQ(list.Text(), "C:\\Card");
  EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(AccessibleActionsTest, BelowAQuestionAButtonAndAMarkDoNothing) {
  CommandButton button(form, "Button");
  CheckBox box(form, "Box");
  OptionButton first(form, "First");
  OptionButton second(form, "Second");
  first.SetValue(true);
  int clicks = 0;
  for (Control* control : std::vector<Control*>{&button, &box, &first, &second}) {
    control->On().Click = [&clicks](Control&) { ++clicks; };
  }
  Show();
  toolkit.PushBox();
  WidgetOf<QPushButton>(button).click();
  Do(Of(WidgetOf<QCheckBox>(box)), QAccessibleActionInterface::toggleAction());
  Do(Of(WidgetOf<QRadioButton>(second)), QAccessibleActionInterface::toggleAction());
  toolkit.PopBox();
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(box.Value(), 0);
  EXPECT_TRUE(first.Value());
  EXPECT_FALSE(WidgetOf<QCheckBox>(box).isChecked());
  EXPECT_TRUE(WidgetOf<QRadioButton>(first).isChecked());
  EXPECT_FALSE(WidgetOf<QRadioButton>(second).isChecked());
}

TEST_F(AccessibleActionsTest, BelowAQuestionBarsListsAndTextsStay) {
  ScrollBar bar(form, "Bar", Orientation::Horizontal);
  TextBox text(form, "Text");
  ListBox list(form, "List");
  bar.SetMax(100);
  text.SetText("IMG_0001");
  for (const char* name : {"a.jpg", "b.jpg"}) list.AddItem(name);
  int changes = 0;
  for (Control* control : std::vector<Control*>{&bar, &text, &list}) {
    control->On().Change = control->On().Click = [&changes](Control&) { ++changes; };
  }
  Show();
  toolkit.PushBox();
  Of(WidgetOf<QScrollBar>(bar)).valueInterface()->setCurrentValue(40);
  Of(WidgetOf<QLineEdit>(text)).editableTextInterface()->replaceText(0, 8, "Lake");
  Do(*Of(WidgetOf<QListWidget>(list)).child(1), QAccessibleActionInterface::toggleAction());
  toolkit.PopBox();
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(bar.Value(), 0);
  EXPECT_EQ(WidgetOf<QScrollBar>(bar).value(), 0);
  EXPECT_EQ(text.Text(), "IMG_0001");
  EXPECT_EQ(WidgetOf<QLineEdit>(text).text(), "IMG_0001");
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_TRUE(WidgetOf<QListWidget>(list).selectedItems().isEmpty());
}

TEST_F(AccessibleActionsTest, TheFocusIsWhereAReaderPutsIt) {
  TextBox first(form, "First");
  TextBox second(form, "Second");
  first.Move(0, 0, 100, 20);
  second.Move(0, 30, 100, 20);
  Show();
  first.SetFocus();
  Settle();
  Do(Of(WidgetOf<QLineEdit>(second)), QAccessibleActionInterface::setFocusAction());
  EXPECT_EQ(toolkit.Focus(), &second);
}

TEST_F(AccessibleActionsTest, AnOptionSaysWhatItsFrameIsAbout) {
  Frame frame(form, "Group");
  frame.SetCaption("Duplicate Photos");
  OptionButton option(frame, "Option");
  option.SetCaption("Auto Resolve");
  Show();
  EXPECT_EQ(Of(WidgetOf<QRadioButton>(option)).text(QAccessible::Description), "Duplicate Photos");
  option.SetToolTipText("By date and size");
  Settle();
  EXPECT_EQ(Of(WidgetOf<QRadioButton>(option)).text(QAccessible::Description), "By date and size");
}

TEST_F(AccessibleActionsTest, AListGoesToTheEntryThatIsSelected) {
  ListBox list(form, "List");
  list.Move(0, 0, 200, 100);
  for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) list.AddItem(name);
  int clicks = 0;
  list.On().Click = [&clicks](Control&) { ++clicks; };
  Show();
  Do(*Of(WidgetOf<QListWidget>(list)).child(1), QAccessibleActionInterface::toggleAction());
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(AccessibleActionsTest, ADropDownListHasALabelBesideWhatIsChosenInIt) {
  ComboBox list(form, "List");
  list.SetAccessibleName("Printer");
  list.AddItem("Save as PDF");
  Show();
  const auto labels = Of(WidgetOf<QComboBox>(list)).relations(QAccessible::Label);
  ASSERT_EQ(labels.size(), 1);
  EXPECT_EQ(labels.first().first->text(QAccessible::Name), "Printer");
  EXPECT_FALSE(ClientOf(form).findChild<QLabel*>()->isVisible());
}

TEST_F(AccessibleActionsTest, ADropDownListThatGoesTakesItsLabelAlongAndOneForTextsNamesItsLine) {
  auto list = std::make_unique<ComboBox>(form, "List");
  list->SetEditable(true);
  list->SetAccessibleName("Folder");
  Show();
  EXPECT_EQ(Of(*WidgetOf<QComboBox>(*list).lineEdit()).text(QAccessible::Name), "Folder");
  list.reset();
  EXPECT_EQ(ClientOf(form).findChild<QLabel*>(), nullptr);
}

TEST_F(AccessibleActionsTest, ATextThatItsLineCannotShowAsItIsIsNotTakenForWritten) {
  ComboBox list(form, "List");
  list.SetEditable(true);
  int changes = 0;
  Show();
  list.On().Change = [&changes](Control&) { ++changes; };
  list.SetText("C:\\a\nb");
  changes = 0;
  Settle();
  EXPECT_EQ(list.Text(), "C:\\a\nb");
  EXPECT_EQ(changes, 0);
}

class AccessibleTreeTest : public AccessibleActionsTest {
 protected:
  AccessibleTreeTest() {
    tree.Move(0, 0, 200, 200);
    tree.SetAccessibleName("Folders");
    tree.Fill(tree.Root(), {{"home", "Home", true, {}, {}, {}}, {"net", "Network", false, {}, {}, {}}});
    tree.Fill(*tree.Find("home"), {{"card", "Card", false, {}, {}, {}}});
    Show();
  }
  QAccessibleInterface& Spoken() { return Of(WidgetOf<QTreeWidget>(tree)); }

  TreeView tree{form, "Tree"};
};

TEST_F(AccessibleTreeTest, ANodeIsOpenedAndTheOneBelowItIsChosen) {
  ASSERT_EQ(Spoken().childCount(), 2);
  QAccessibleInterface& home = *Spoken().child(0);
  EXPECT_EQ(home.role(), QAccessible::TreeItem);
  EXPECT_EQ(home.text(QAccessible::Name), "Home");
  EXPECT_EQ(home.childCount(), 0);
  EXPECT_TRUE(home.state().collapsed);
  Do(home, "Expand");
  EXPECT_TRUE(tree.Find("home")->Expanded());
  ASSERT_EQ(home.childCount(), 1);
  QAccessibleInterface& card = *home.child(0);
  EXPECT_EQ(card.parent(), &home);
  EXPECT_EQ(home.parent(), &Spoken());
  Do(card, QAccessibleActionInterface::pressAction());
  EXPECT_EQ(tree.Selected(), tree.Find("card"));
  EXPECT_TRUE(card.state().selected);
  Do(home, "Collapse");
  EXPECT_FALSE(tree.Find("home")->Expanded());
  EXPECT_EQ(Spoken().child(1)->actionInterface()->actionNames(),
            QStringList(QAccessibleActionInterface::pressAction()));
}

TEST_F(AccessibleTreeTest, BelowAQuestionNoNodeIsOpenedOrChosen) {
  toolkit.PushBox();
  Do(*Spoken().child(0), "Expand");
  Do(*Spoken().child(1), QAccessibleActionInterface::pressAction());
  WidgetOf<QTreeWidget>(tree).topLevelItem(0)->setExpanded(true);
  Settle();
  toolkit.PopBox();
  EXPECT_FALSE(tree.Find("home")->Expanded());
  EXPECT_FALSE(WidgetOf<QTreeWidget>(tree).topLevelItem(0)->isExpanded());
  EXPECT_EQ(tree.Selected(), nullptr);
}

TEST_F(AccessibleTreeTest, ANodeThatHasGoneIsNoLongerValid) {
  QAccessibleInterface& net = *Spoken().child(1);
  tree.Fill(tree.Root(), {});
  Settle();
  EXPECT_FALSE(net.isValid());
  EXPECT_TRUE(net.text(QAccessible::Name).isEmpty());
  EXPECT_EQ(Spoken().childCount(), 0);
}

TEST_F(AccessibleTreeTest, ManyNodesThatStayAreNotLookedThroughForEachFurtherOne) {
  std::vector<TreeEntry> children;
  for (int i = 0; i < 4400; ++i) children.push_back({"key" + std::to_string(i), "Folder", false, {}, {}, {}});
  tree.Fill(tree.Root(), children);
  Settle();
  for (int i = 0; i < Spoken().childCount(); ++i) ASSERT_NE(Spoken().child(i), nullptr);
  const auto& read = static_cast<const TreeAccessible&>(Spoken());
  EXPECT_EQ(read.Sweeps(), 1);
  // Those that have gone meanwhile are let go in their turn, however many come and go.
  for (int round = 1; round <= 3; ++round) {
    for (TreeEntry& child : children) child.Key += "+";
    tree.Fill(tree.Root(), children);
    Settle();
    for (int i = 0; i < Spoken().childCount(); ++i) ASSERT_NE(Spoken().child(i), nullptr);
  }
  EXPECT_GE(read.Sweeps(), 3);
  EXPECT_LE(read.Sweeps(), 5);
}

class AccessiblePhotosTest : public AccessibleActionsTest {
 protected:
  AccessiblePhotosTest() {
    for (int i = 1; i <= 3; ++i) {
      ImageBox& photo = photos.Load(i);
      photo.Move((i - 1) * 100, 0, 80, 60);
      photo.SetVisible(true);
    }
    photos.On().SpokenName = [this](const Control& photo) { return names[static_cast<std::size_t>(photo.Index())]; };
    photos.On().SpokenPlace = [this](const Control& photo) {
      return PlaceAmong{photo.Index(), 345, photo.Index() == chosen};
    };
    photos.On().SpokenActions = [this](const Control& photo) {
      std::vector<NamedAction> actions{{"Copy to Family", "1", [this, at = photo.Index()] { copied.push_back(at); }}};
      for (const std::string& name : more) actions.push_back({name, "2", [this, name] { done.push_back(name); }});
      return actions;
    };
    form.On().SpokenChoice = [this](const Control&) { return chosen != 0 ? &photos(chosen) : nullptr; };
    Show();
  }
  void Choose(int photo) {
    chosen = photo;
    form.Refresh();
    photos(photo).SetBorderStyle(1);
    Settle();
  }

  ControlArray<ImageBox> photos{form, "Photo"};
  std::vector<std::string> names{"", "a.jpg", "b.jpg", "c.jpg"};
  std::vector<int> copied;
  std::vector<std::string> more;  // actions beside that
  std::vector<std::string> done;
  int chosen = 0;
};

TEST_F(AccessiblePhotosTest, PhotosAreEntriesOfAListInTheirOrderWithTheirPlace) {
  QStringList said;
  QAccessibleInterface& client = Of(ClientOf(form));
  for (int i = 0; i < client.childCount(); ++i) said.append(client.child(i)->text(QAccessible::Name));
  EXPECT_EQ(said, QStringList({"a.jpg, 1 of 345", "b.jpg, 2 of 345", "c.jpg, 3 of 345"}));
  EXPECT_EQ(Light("b.jpg").role(), QAccessible::ListItem);
  EXPECT_FALSE(Light("b.jpg").state().selected);
  Choose(2);
  EXPECT_TRUE(Light("b.jpg").state().selected);
  EXPECT_TRUE(Light("b.jpg").state().focused);
}

TEST_F(AccessiblePhotosTest, WhatADragWouldDoIsAnAction) {
  QAccessibleActionInterface& actions = *Light("b.jpg").actionInterface();
  EXPECT_EQ(actions.actionNames(), QStringList("Copy to Family"));
  EXPECT_EQ(actions.keyBindingsForAction("Copy to Family"), QStringList("1"));
  Do(Light("b.jpg"), "Copy to Family");
  EXPECT_EQ(copied, std::vector({2}));
  toolkit.PushBox();
  Do(Light("b.jpg"), "Copy to Family");
  EXPECT_EQ(copied, std::vector({2}));
  toolkit.PopBox();
}

TEST_F(AccessiblePhotosTest, OfActionsOfOneNameEachRunsByANameOfItsOwn) {
  more = {"Copy to Family", "Copy to Family (2)", "Press"};
  photos.On().Click = [this](Control&) { done.emplace_back("pressed"); };
  QAccessibleActionInterface& actions = *Light("b.jpg").actionInterface();
  EXPECT_EQ(actions.actionNames(),
            QStringList({"Press", "Copy to Family", "Copy to Family (2)", "Copy to Family (2) (2)", "Press (2)"}));
  EXPECT_EQ(actions.keyBindingsForAction("Copy to Family"), QStringList("1"));
  EXPECT_EQ(actions.keyBindingsForAction("Copy to Family (2)"), QStringList("2"));
  for (const char* name : {"Copy to Family (2)", "Copy to Family (2) (2)", "Press (2)", "Press"}) {
    Do(Light("b.jpg"), name);
  }
  EXPECT_TRUE(copied.empty());
  EXPECT_EQ(done, (std::vector<std::string>{"Copy to Family", "Copy to Family (2)", "Press", "pressed"}));
}

TEST_F(AccessibleActionsTest, AWindowIsClosedAsByItsFrame) {
  Show();
  int asked = 0;
  form.On().QueryUnload = [&asked](Control&) { ++asked; };
  QAccessibleInterface& window = Of(WindowOf(form));
  EXPECT_EQ(window.actionInterface()->actionNames(), QStringList("Close"));
  toolkit.PushBox();
  EXPECT_TRUE(window.actionInterface()->actionNames().isEmpty());
  toolkit.PopBox();
  Do(window, "Close");
  EXPECT_EQ(asked, 1);
  EXPECT_FALSE(form.Visible());
}

TEST_F(AccessibleActionsTest, AMenuThatIsUpIsFoundInItsWindow) {
  MenuItem popup(form, "FolderPopup", "Folder &Popup");
  MenuItem item(popup, "Remove", "Delete");
  Show();
  QAccessibleInterface& window = Of(WindowOf(form));
  const int before = window.childCount();
  int chosenWith = -1;
  item.On().Click = [&](Control&) { chosenWith = window.childCount(); };
  Meanwhile([&] {
    ASSERT_EQ(window.childCount(), before + 1);
    QAccessibleInterface& menu = *window.child(before);
    EXPECT_EQ(menu.role(), QAccessible::PopupMenu);
    EXPECT_EQ(menu.text(QAccessible::Name), "Folder Popup");
    EXPECT_EQ(menu.child(0)->text(QAccessible::Name), "Delete");
    EXPECT_EQ(window.indexOfChild(&menu), before);
    qobject_cast<QMenu*>(QApplication::activePopupWidget())->actions().first()->trigger();
  });
  form.PopupMenu(popup);
  EXPECT_EQ(chosenWith, before) << "it is no longer up";
  Settle();
  EXPECT_EQ(window.childCount(), before);
}

TEST_F(AccessibleActionsTest, OfTwoMenusTheLaterOneIsFound) {
  MenuItem first(form, "FolderPopup", "Folder Popup");
  MenuItem second(form, "TrashcanPopup", "Trashcan Popup");
  MenuItem item(first, "Remove", "Delete");
  MenuItem other(second, "Empty", "Empty Trashcan");
  Show();
  QAccessibleInterface& window = Of(WindowOf(form));
  const int before = window.childCount();
  Meanwhile([&] {
    Meanwhile([&] {
      EXPECT_EQ(window.child(before)->text(QAccessible::Name), "Trashcan Popup");
      while (QWidget* up = QApplication::activePopupWidget()) up->close();
    });
    form.PopupMenu(second);
  });
  form.PopupMenu(first);
}

TEST_F(AccessibleActionsTest, AnEntryIsFinishedAsByTheKeyEnter) {
  TextBox box(form, "Box");
  std::vector<int> keys;
  box.On().KeyPress = [&keys](Control&, int& code) { keys.push_back(code); };
  Show();
  box.SetFocus();
  Settle();
  QAccessibleInterface& window = Of(WindowOf(form));
  EXPECT_TRUE(window.actionInterface()->actionNames().contains("Enter"));
  Do(window, "Enter");
  EXPECT_EQ(keys, std::vector({static_cast<int>(key::Return)}));
}

TEST_F(AccessibleActionsTest, AWindowThatOnlyTellsSomethingIsAnAlert) {
  Show();
  Form notice(toolkit, "NoticeForm");
  Label text(notice, "Text");
  text.SetCaption("Copied to Clipboard");
  notice.ShowOwned(&form);
  Settle();
  EXPECT_EQ(Of(WindowOf(notice)).role(), QAccessible::AlertMessage);
  CommandButton button(notice, "Button");
  Settle();
  EXPECT_EQ(Of(WindowOf(notice)).role(), QAccessible::Dialog);
}

}  // namespace
}  // namespace pixorra
