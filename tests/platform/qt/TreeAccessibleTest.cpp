// A tree's nodes as a screen reader finds them: where each is, what it says of itself, and what it offers.
#include <QAccessible>
#include <QTreeWidget>

#include "platform/controls/Buttons.h"
#include "platform/controls/TreeView.h"
#include "platform/qt/Accessibility.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class TreeAccessibleTest : public QtTest {
 protected:
  TreeAccessibleTest() {
    InstallAccessibility();
    form.SetClientSize(400, 300);
    tree.Move(0, 0, 200, 120);
    tree.Fill(tree.Root(), {Entry("home", "Home", true), Entry("net", "Network", false)});
    tree.Fill(*tree.Find("home"), {Entry("card", "Card", false)});
    button.Move(0, 200, 100, 30);
    form.Show();
    Settle();
  }
  static TreeEntry Entry(const std::string& key, const std::string& text, bool hasChildren) {
    TreeEntry entry;
    entry.Key = key;
    entry.Text = text;
    entry.HasChildren = hasChildren;
    return entry;
  }
  QTreeWidget& Widget() { return WidgetOf<QTreeWidget>(tree); }
  QAccessibleInterface& Spoken() { return *QAccessible::queryAccessibleInterface(&Widget()); }
  QAccessibleInterface& Home() { return *Spoken().child(0); }
  QAccessibleInterface& Net() { return *Spoken().child(1); }
  void Do(QAccessibleInterface& at, const QString& action) {
    at.actionInterface()->doAction(action);
    Settle();
  }

  Form form{toolkit, "TreeForm"};
  TreeView tree{form, "Tree"};
  CommandButton button{form, "Button"};
};

TEST_F(TreeAccessibleTest, ANodeSaysWhetherItIsOpenAndWhatIsInItIsFoundOnlyThen) {
  EXPECT_TRUE(Home().state().expandable);
  EXPECT_TRUE(Home().state().collapsed);
  EXPECT_FALSE(Home().state().expanded);
  EXPECT_EQ(Home().childCount(), 0);
  EXPECT_EQ(Home().child(0), nullptr);
  Do(Home(), "Expand");
  EXPECT_TRUE(Home().state().expanded);
  EXPECT_FALSE(Home().state().collapsed);
  ASSERT_EQ(Home().childCount(), 1);
  EXPECT_EQ(Home().indexOfChild(Home().child(0)), 0);
  EXPECT_EQ(Spoken().indexOfChild(Home().child(0)), -1) << "it is of another node";
  EXPECT_EQ(Spoken().indexOfChild(&Net()), 1);
  EXPECT_EQ(Spoken().child(-1), nullptr);
  EXPECT_EQ(Spoken().child(2), nullptr);
  EXPECT_EQ(&Net(), Spoken().child(1)) << "the same each time";
  EXPECT_FALSE(Net().state().expandable);
  EXPECT_FALSE(Net().state().collapsed);
  EXPECT_FALSE(Net().state().expanded);
}

TEST_F(TreeAccessibleTest, TheSelectedNodeIsTheFocusWhileTheTreeHasIt) {
  EXPECT_EQ(Spoken().focusChild(), nullptr);
  tree.Select(tree.Find("net"));
  button.SetFocus();
  Settle();
  EXPECT_EQ(Spoken().focusChild(), nullptr);
  EXPECT_TRUE(Net().state().selected);
  EXPECT_FALSE(Net().state().focused);
  tree.SetFocus();
  Settle();
  EXPECT_EQ(Spoken().focusChild(), &Net());
  EXPECT_TRUE(Net().state().focused);
  EXPECT_FALSE(Home().state().focused);
  EXPECT_FALSE(Home().state().selected);
}

TEST_F(TreeAccessibleTest, ANodeIsFoundWhereItIsOnTheScreenAndNowhereWhenItIsOutOfSight) {
  const QPoint middle = Net().rect().center();
  EXPECT_EQ(Spoken().childAt(middle.x(), middle.y()), &Net());
  const QPoint corner = Widget().viewport()->mapToGlobal(QPoint(0, 0));
  EXPECT_TRUE(QRect(corner, Widget().viewport()->size()).contains(Net().rect()));
  EXPECT_FALSE(Net().state().offscreen);
  std::vector<TreeEntry> many;
  for (int i = 0; i < 50; ++i) many.push_back(Entry("f" + std::to_string(i), "Folder", false));
  tree.Fill(tree.Root(), many);
  Settle();
  QAccessibleInterface& last = *Spoken().child(49);
  EXPECT_TRUE(last.rect().isEmpty());
  EXPECT_TRUE(last.state().offscreen);
  tree.EnsureVisible(*tree.Find("f49"));
  Settle();
  EXPECT_FALSE(last.rect().isEmpty());
  EXPECT_FALSE(last.state().offscreen);
  EXPECT_FALSE(last.state().invisible);
  tree.SetVisible(false);
  Settle();
  EXPECT_TRUE(last.state().invisible);
}

TEST_F(TreeAccessibleTest, ANodeSaysWhatIsToBeSpokenInsteadOfItsText) {
  TreeEntry dots = Entry("dots", "...", false);
  dots.Spoken = "Loading";
  tree.Fill(tree.Root(), {dots});
  Settle();
  EXPECT_EQ(Home().text(QAccessible::Name), "Loading");
  EXPECT_TRUE(Home().text(QAccessible::Description).isEmpty());
}

TEST_F(TreeAccessibleTest, ATreeThatIsNotEnabledOffersNothing) {
  tree.SetEnabled(false);
  Settle();
  EXPECT_TRUE(Home().state().disabled);
  EXPECT_TRUE(Home().actionInterface()->actionNames().isEmpty());
  Do(Home(), QAccessibleActionInterface::pressAction());
  EXPECT_EQ(tree.Selected(), nullptr);
  tree.SetEnabled(true);
  Settle();
  EXPECT_FALSE(Home().state().disabled);
}

TEST_F(TreeAccessibleTest, WhatANodeDoesNotOfferIsNotDone) {
  Do(Home(), "Collapse");
  Do(Net(), "Expand");
  Do(Net(), "Show");
  EXPECT_FALSE(tree.Find("home")->Expanded());
  EXPECT_FALSE(tree.Find("net")->Expanded());
  EXPECT_EQ(tree.Selected(), nullptr);
}

TEST_F(TreeAccessibleTest, ANodeThatHasGoneSaysSo) {
  QAccessibleInterface& net = Net();
  tree.Remove(*tree.Find("net"));
  Settle();
  EXPECT_TRUE(net.state().invalid);
  EXPECT_EQ(net.parent(), nullptr);
  EXPECT_EQ(Spoken().indexOfChild(&net), -1);
  EXPECT_TRUE(net.actionInterface()->actionNames().isEmpty());
  Do(net, QAccessibleActionInterface::pressAction());
  EXPECT_EQ(tree.Selected(), nullptr);
}

TEST_F(TreeAccessibleTest, ANodeOfAWindowThatHasBeenClosedIsWorkedNoMore) {
  QAccessibleInterface& home = Home();
  form.Unload();
  for (const QString& action : {QAccessibleActionInterface::pressAction(), QStringLiteral("Expand")})
    home.actionInterface()->doAction(action);
  EXPECT_EQ(tree.Selected(), nullptr);
  EXPECT_FALSE(tree.Find("home")->Expanded());
}

TEST_F(TreeAccessibleTest, ItsNodesGoWithIt) {
  auto gone = std::make_unique<TreeView>(form, "Gone");
  gone->Fill(gone->Root(), {Entry("a", "Attic", false)});
  Settle();
  QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&WidgetOf<QTreeWidget>(*gone));
  const QAccessible::Id id = QAccessible::uniqueId(spoken.child(0));
  gone.reset();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

TEST_F(TreeAccessibleTest, NodesThatHaveGoneAreForgottenOverTime) {
  std::vector<QAccessible::Id> ids;
  for (int i = 0; i < 5000; ++i) {
    tree.Fill(tree.Root(), {Entry("f" + std::to_string(i), "Folder", false)});
    ids.push_back(QAccessible::uniqueId(Spoken().child(0)));
  }
  EXPECT_EQ(QAccessible::accessibleInterface(ids.front()), nullptr);
  EXPECT_NE(QAccessible::accessibleInterface(ids.back()), nullptr);
}

}  // namespace
}  // namespace pixorra
