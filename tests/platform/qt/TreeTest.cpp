// A tree as a widget: what is only to be seen there.
#include <QScrollBar>
#include <QTreeWidget>

#include "platform/controls/TreeView.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class TreeTest : public QtTest {
 protected:
  Form form{toolkit, "TreeForm"};
};

TEST_F(TreeTest, ALongNameFarDownCanBeReadToItsEndOnceItIsScrolledTo) {
  form.SetClientSize(400, 300);
  TreeView tree(form, "Tree");
  tree.Move(0, 0, 200, 200);
  std::vector<TreeEntry> entries;
  for (int i = 0; i < 500; ++i)
    entries.push_back({std::to_string(i), i == 400 ? std::string(80, 'W') : "folder", false, {}, {}, {}});
  tree.Fill(tree.Root(), std::move(entries));
  form.Show();
  Settle();
  const QScrollBar& bar = *WidgetOf<QTreeWidget>(tree).horizontalScrollBar();
  tree.EnsureVisible(*tree.Find("400"));
  Settle();
  EXPECT_GT(bar.maximum(), 0);
  tree.EnsureVisible(*tree.Find("0"));
  Settle();
  EXPECT_EQ(bar.maximum(), 0);
}

// The widget makes its first item the current one then, which nobody has chosen.
TEST_F(TreeTest, TheFocusAloneSelectsNothingAndAClickDoes) {
  TreeView tree(form, "Tree");
  tree.Move(0, 0, 200, 200);
  tree.Fill(tree.Root(), {{"1", "Home", false, {}, {}, {}}, {"2", "Computer", false, {}, {}, {}}});
  int changes = 0;
  Connect(tree.On().Change, [&](Control&) { ++changes; });
  form.Show();
  Settle();
  auto& widget = WidgetOf<QTreeWidget>(tree);
  QFocusEvent comes(QEvent::FocusIn, Qt::TabFocusReason);
  QApplication::sendEvent(&widget, &comes);
  Settle();
  EXPECT_EQ(tree.Selected(), nullptr);
  EXPECT_EQ(changes, 0);
  Click(*widget.viewport(), widget.visualItemRect(widget.topLevelItem(1)).center());
  Settle();
  ASSERT_NE(tree.Selected(), nullptr);
  EXPECT_EQ(tree.Selected()->Text(), "Computer");
}

}  // namespace
}  // namespace pixorra
