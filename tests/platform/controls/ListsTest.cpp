// Texts, lists and trees.
#include <gmock/gmock.h>

#include "platform/controls/Lists.h"
#include "platform/controls/TextBox.h"
#include "tests/platform/controls/ModelTest.h"
#include "tests/platform/runtime/RaisesError.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

class ListsTest : public ShownModelTest {};

TEST_F(ListsTest, DifferentTextRaisesChangeAndTakesTheSelectionToItsStart) {
  TextBox box(form, "Box");
  box.On().Change = [&](Control&) { Log(box.Text() + " " + std::to_string(box.SelStart())); };
  box.SetText("hello");
  box.Select(1, 3);
  box.SetText("hello");
  EXPECT_EQ(box.SelLength(), 3);
  box.SetText("world");
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_EQ(box.SelLength(), 0);
  EXPECT_THAT(Heard(), ElementsAre("hello 0", "world 0"));
}

TEST_F(ListsTest, SelectionStaysWithinTheText) {
  TextBox box(form, "Box");
  box.SetText("hello");
  box.Select(3, 100);
  EXPECT_EQ(box.SelLength(), 2);
  box.Select(-5, -5);
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_EQ(box.SelLength(), 0);
  box.Select(2, 3);
  box.UserTyped("he");
  EXPECT_EQ(box.SelStart(), 2);
  EXPECT_EQ(box.SelLength(), 0);
  box.UserSelected(7, 7);
  EXPECT_EQ(box.SelStart(), 2);
}

TEST_F(ListsTest, LockedAndDisabledBoxesAreNotTypedIn) {
  TextBox box(form, "Box");
  box.SetLocked(true);
  box.UserTyped("x");
  box.SetLocked(false);
  box.SetEnabled(false);
  box.UserTyped("x");
  EXPECT_EQ(box.Text(), "");
  box.SetText("code may");
  EXPECT_EQ(box.Text(), "code may");
}

TEST_F(ListsTest, ListKeepsItsEntriesAndTheirNumbers) {
  ListBox list(form, "List");
  Listen(list);
  list.AddItem("b");
  list.AddItem("c");
  list.SetListIndex(1);
  list.AddItem("a", 0);
  list.SetItemData(0, 42);
  EXPECT_EQ(list.ListIndex(), 2);
  EXPECT_EQ(list.List(0), "a");
  EXPECT_EQ(list.ItemData(0), 42);
  EXPECT_EQ(ErrorOf([&] { list.List(3); }), error::BadSubscript);
  EXPECT_EQ(ErrorOf([&] { list.SetListIndex(3); }), error::BadSubscript);
  EXPECT_EQ(ErrorOf([&] { list.AddItem("x", 4); }), error::BadSubscript);
  EXPECT_EQ(ErrorOf([&] { list.RemoveItem(-1); }), error::BadSubscript);
  list.RemoveItem(0);
  EXPECT_EQ(list.ListIndex(), 1);
  list.RemoveItem(1);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_THAT(Heard(), ElementsAre("List Click"));
}

TEST_F(ListsTest, ComboShowsTheChosenEntryAndNoneThatHasGone) {
  ComboBox box(form, "Combo");
  Listen(box);
  box.AddItem("one");
  box.AddItem("two");
  box.UserChose(1);
  box.UserChose(2);
  EXPECT_EQ(box.Text(), "two");
  box.RemoveItem(1);
  EXPECT_EQ(box.Text(), "");
  box.SetListIndex(0);
  box.Clear();
  EXPECT_EQ(box.Text(), "");
  EXPECT_EQ(box.ListIndex(), -1);
  EXPECT_THAT(Heard(), ElementsAre("Combo Click", "Combo Click"));
}

}  // namespace
}  // namespace pixorra
