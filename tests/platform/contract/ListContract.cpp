// Lists with columns, and lists that can be typed in.
#include <gmock/gmock.h>

#include "platform/controls/Lists.h"
#include "tests/platform/contract/ContractTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ListContract : public FormContract {};

TEST_F(ListContract, RowHasACellForEachColumnAndItsTextStaysWhole) {
  ListBox list(form, "List");
  list.Move(10, 10, 200, 120);
  list.SetColumns({{0, Alignment::Left}, {60, Alignment::Right}});
  list.AddItem("garden.jpg     \t 12Kb");
  list.AddItem("sea.jpg        \t1000Kb");
  list.AddItem("no size");
  Show();
  platform->Choose(list, 1);
  EXPECT_EQ(list.List(list.ListIndex()), "sea.jpg        \t1000Kb");
  EXPECT_THAT(list.Cells(0), ElementsAre("garden.jpg", "12Kb"));
  EXPECT_THAT(list.Cells(1), ElementsAre("sea.jpg", "1000Kb"));
  EXPECT_THAT(list.Cells(2), ElementsAre("no size", ""));
  EXPECT_EQ(platform->Look(list).Count, 3);
  EXPECT_EQ(platform->Look(list).Value, 1);
}

TEST_F(ListContract, ATabInANameStaysInItsCell) {
  ListBox list(form, "List");
  list.Move(10, 10, 200, 120);
  list.SetColumns({{0, Alignment::Left}, {60, Alignment::Right}, {60, Alignment::Left}});
  list.AddItem("a\tb.jpg   \t 12Kb\t 1 May");
  list.AddItem("\t\tc.jpg\t1000Kb\t");
  list.AddItem("sea.jpg\t7Kb");
  list.AddItem("");
  Show();
  EXPECT_THAT(list.Cells(0), ElementsAre("a\tb.jpg", "12Kb", "1 May"));
  EXPECT_THAT(list.Cells(1), ElementsAre("\t\tc.jpg", "1000Kb", ""));
  EXPECT_THAT(list.Cells(2), ElementsAre("sea.jpg", "7Kb", ""));
  EXPECT_THAT(list.Cells(3), ElementsAre("", "", ""));
}

TEST_F(ListContract, ColumnsMayComeAndGoWhileTheListIsSeen) {
  ListBox list(form, "List");
  list.Move(10, 10, 200, 120);
  list.AddItem("a\tb\tc");
  Show();
  EXPECT_THAT(list.Cells(0), ElementsAre("a\tb\tc"));
  list.SetColumns({{50, Alignment::Left}, {50, Alignment::Center}});
  platform->Settle();
  EXPECT_THAT(list.Cells(0), ElementsAre("a\tb", "c"));
  list.SetColumns({});
  platform->Settle();
  EXPECT_THAT(list.Cells(0), ElementsAre("a\tb\tc"));
}

TEST_F(ListContract, TenThousandRowsAreShownAndChosenFrom) {
  ListBox list(form, "List");
  list.Move(10, 10, 200, 120);
  list.SetColumns({{0, Alignment::Left}, {60, Alignment::Right}});
  Show();
  for (int i = 0; i < 10000; ++i) list.AddItem("photo" + std::to_string(i) + ".jpg\t" + std::to_string(i % 999) + "Kb");
  platform->Settle();
  for (int i = 9900; i < 10000; ++i) platform->Choose(list, i);
  EXPECT_EQ(platform->Look(list).Count, 10000);
  EXPECT_EQ(platform->Look(list).Value, 9999);
  list.Clear();
  platform->Settle();
  EXPECT_EQ(platform->Look(list).Count, 0);
}

TEST_F(ListContract, TheSameRowsMayBeReplacedByOthers) {
  ListBox list(form, "List");
  list.Move(10, 10, 200, 120);
  list.AddItem("a");
  list.AddItem("b");
  Show();
  list.Clear();
  list.AddItem("c");
  list.AddItem("d");
  list.On().Click = [&](Control&) { Log(list.List(list.ListIndex())); };
  platform->Settle();
  platform->Choose(list, 1);
  EXPECT_THAT(Heard(), ElementsAre("d"));
}

// --- lists that can be typed in --------------------------------------------------------------------------------------

class ComboContract : public FormContract {
 protected:
  ComboContract() {
    box.Move(10, 10, 150, 24);
    box.SetEditable(true);
    box.AddItem("one");
    box.AddItem("two");
    Listen(box);
    Show();
  }
  ComboBox box{form, "Combo"};
};

TEST_F(ComboContract, ChosenEntryIsClickedAndSoIsTheSameOneAgain) {
  platform->Choose(box, 1);
  platform->Choose(box, 1);
  EXPECT_EQ(box.ListIndex(), 1);
  EXPECT_EQ(platform->Look(box).Text, "two");
  EXPECT_THAT(Heard(), ElementsAre("Combo Click", "Combo Click"));
}

TEST_F(ComboContract, CodeThatChoosesTheChosenEntryDoesNotClick) {
  box.SetListIndex(1);
  box.SetListIndex(1);
  EXPECT_THAT(Heard(), ElementsAre("Combo Click"));
}

TEST_F(ComboContract, TypedTextLeavesNoEntryChosen) {
  platform->Choose(box, 1);
  Heard();
  box.SetFocus();
  platform->Settle();
  platform->Type("x");
  EXPECT_EQ(box.Text(), "twox");
  EXPECT_EQ(box.ListIndex(), -1);
  platform->Settle();
  EXPECT_EQ(platform->Look(box).Text, "twox");
  EXPECT_EQ(platform->Look(box).Value, -1);
  EXPECT_THAT(Heard(), ElementsAre("Combo Change"));
  platform->Choose(box, 1);
  EXPECT_EQ(box.Text(), "two");
  EXPECT_THAT(Heard(), ElementsAre("Combo Click"));
}

TEST_F(ComboContract, TextOfTheCodeLeavesNoEntryChosenUnlessItIsTheChosenOnes) {
  box.SetListIndex(0);
  Heard();
  box.SetText("one");
  EXPECT_EQ(box.ListIndex(), 0);
  box.SetText("C:\\Photos");
  platform->Settle();
  EXPECT_EQ(box.ListIndex(), -1);
  EXPECT_EQ(platform->Look(box).Text, "C:\\Photos");
  EXPECT_EQ(platform->Look(box).Value, -1);
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(ComboContract, TypedTextStaysWhenEntriesComeAndGo) {
  box.SetFocus();
  platform->Settle();
  platform->Type("abc");
  box.AddItem("three");
  box.RemoveItem(0);
  platform->Settle();
  EXPECT_EQ(platform->Look(box).Text, "abc");
  EXPECT_EQ(platform->Look(box).Count, 2);
  platform->Type("d");
  EXPECT_EQ(box.Text(), "abcd");
}

TEST_F(ComboContract, BackspaceTakesTheLastCharacter) {
  box.SetText("gö");
  box.SetFocus();
  platform->Settle();
  platform->Key(key::Back, 0);
  EXPECT_EQ(box.Text(), "g");
}

TEST_F(ComboContract, EnterIsHeardAndLeavesTheTextAlone) {
  box.On().KeyPress = [this](Control&, int& code) { Log("key " + std::to_string(code)); };
  box.SetText("two");
  box.SetFocus();
  platform->Settle();
  platform->Key(key::Return, 0);
  EXPECT_THAT(Heard(), ElementsAre("key 13"));
  EXPECT_EQ(box.Text(), "two");
}

}  // namespace
}  // namespace pixorra
