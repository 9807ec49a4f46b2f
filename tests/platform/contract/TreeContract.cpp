// Trees: what is filled when it is opened, at once, later or never; what a person does by mouse and keys.
#include <gmock/gmock.h>
#include <memory>

#include "platform/controls/Timer.h"
#include "platform/controls/TreeView.h"
#include "tests/platform/contract/ContractTest.h"
#include "tests/platform/runtime/RaisesError.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TreeEntry Named(const std::string& key, bool hasChildren = false) {
  TreeEntry entry;
  entry.Key = key;
  entry.Text = key.substr(key.rfind('/') + 1);
  entry.HasChildren = hasChildren;
  return entry;
}

Picture Flat(Colour colour) {
  Bitmap pixels(16, 16, PixelFormat::Bgr24);
  pixels.Fill(colour);
  return Picture(std::move(pixels));
}

class TreeContract : public FormContract {
 protected:
  TreeContract() {
    tree.Move(0, 0, 220, 200);
    tree.On().Change = [this](Control&) { Log("change " + (tree.Selected() ? tree.Selected()->Key() : "none")); };
  }
  std::vector<std::string> Look() {
    platform->Settle();
    return platform->LookAtTree(tree);
  }
  // "a" with "a/1" and "a/2" below it, and "b".
  void AddTwo() {
    TreeView::Node& a = tree.Add(tree.Root(), Named("a", true));
    tree.Fill(a, {Named("a/1"), Named("a/2", true)});
    tree.Add(tree.Root(), Named("b"));
  }
  // Names of one node that has very many below it.
  static std::vector<TreeEntry> Many(int count) {
    std::vector<TreeEntry> entries;
    for (int i = 0; i < count; ++i) entries.push_back(Named("many/" + std::to_string(i), i % 2 == 0));
    return entries;
  }
  TreeView tree{form, "Tree"};
};

// --- filling ---------------------------------------------------------------------------------------------------------

TEST_F(TreeContract, NodeThatIsOpenedForTheFirstTimeIsAskedForOnceAndShowsTheAnswer) {
  tree.Add(tree.Root(), Named("a", true));
  tree.SetFiller([this](TreeView& view, TreeView::Node& node) {
    Log("fill " + node.Key());
    view.Fill(node, {Named("a/1"), Named("a/2", true)});
  });
  Show();
  EXPECT_THAT(Look(), ElementsAre("+ a"));
  platform->ClickOpener(tree, {"a"}, true);
  EXPECT_THAT(Look(), ElementsAre("- a", "  . 1", "  + 2"));
  platform->ClickOpener(tree, {"a"}, false);
  EXPECT_THAT(Look(), ElementsAre("+ a"));
  platform->ClickOpener(tree, {"a"}, true);
  EXPECT_THAT(Look(), ElementsAre("- a", "  . 1", "  + 2"));
  EXPECT_THAT(Heard(), ElementsAre("fill a"));
}

TEST_F(TreeContract, NodeWithNothingBelowItCannotBeOpenedAnyMore) {
  TreeView::Node& a = tree.Add(tree.Root(), Named("a", true));
  tree.SetFiller([](TreeView& view, TreeView::Node& node) { view.Fill(node, {}); });
  Show();
  platform->ClickOpener(tree, {"a"}, true);
  EXPECT_THAT(Look(), ElementsAre(". a"));
  EXPECT_FALSE(a.Expanded());
}

TEST_F(TreeContract, AnswerMayComeLaterWhileEventsRun) {
  tree.Add(tree.Root(), Named("a", true));
  Timer later(form, "Later", 20);
  TreeHandle asked;
  tree.SetFiller([&](TreeView&, TreeView::Node& node) { asked = TreeHandle(node); });
  later.SetEnabled(false);
  later.On().Timer = [&](Control&) {
    later.SetEnabled(false);
    if (asked) tree.Fill(*asked.Get(), {Named("a/1")});
  };
  Show();
  platform->ClickOpener(tree, {"a"}, true);
  EXPECT_THAT(Look(), ElementsAre("- a"));
  EXPECT_FALSE(asked.Get()->Known());
  later.SetEnabled(true);
  toolkit.WaitUntil([&] { return asked.Get()->Known(); });
  EXPECT_THAT(Look(), ElementsAre("- a", "  . 1"));
}

TEST_F(TreeContract, AnswerThatNeverComesLeavesTheTreeInUse) {
  tree.Add(tree.Root(), Named("a", true));
  tree.Add(tree.Root(), Named("b"));
  tree.SetFiller([](TreeView&, TreeView::Node&) {});
  Show();
  platform->ClickOpener(tree, {"a"}, true);
  platform->ChooseNode(tree, {"b"});
  platform->ClickOpener(tree, {"a"}, false);
  platform->ClickOpener(tree, {"a"}, true);
  EXPECT_THAT(Look(), ElementsAre("- a", ". b *"));
}

TEST_F(TreeContract, NodeThatIsGivenUpClosesAndIsAskedWhenItIsOpenedNext) {
  TreeView::Node& a = tree.Add(tree.Root(), Named("a", true));
  int asked = 0;
  tree.SetFiller([&](TreeView&, TreeView::Node&) { ++asked; });
  Show();
  platform->ClickOpener(tree, {"a"}, true);
  tree.GiveUp(a);
  EXPECT_THAT(Look(), ElementsAre("+ a"));
  platform->ClickOpener(tree, {"a"}, true);
  EXPECT_EQ(asked, 2);
  tree.Fill(a, {Named("a/1")});
  tree.GiveUp(a);
  EXPECT_THAT(Look(), ElementsAre("- a", "  . 1"));
}

TEST_F(TreeContract, AnswerForANodeThatHasGoneFindsThatOut) {
  TreeView::Node& a = tree.Add(tree.Root(), Named("a", true));
  TreeHandle asked;
  TreeHandle below;
  tree.SetFiller([&](TreeView&, TreeView::Node& node) { asked = TreeHandle(node); });
  Show();
  platform->ClickOpener(tree, {"a"}, true);
  tree.Fill(a, {Named("a/1")});
  below = TreeHandle(*tree.Find("a/1"));
  tree.Remove(a);
  EXPECT_FALSE(asked);
  EXPECT_FALSE(below);
  tree.Add(tree.Root(), Named("a"));
  EXPECT_FALSE(asked);
  EXPECT_THAT(Look(), ElementsAre(". a"));
}

TEST_F(TreeContract, HandleIsEmptyAfterTheTreeHasGone) {
  TreeHandle handle;
  {
    TreeView other(form, "Other");
    handle = TreeHandle(other.Add(other.Root(), Named("a")));
    EXPECT_TRUE(handle);
  }
  EXPECT_FALSE(handle);
}

TEST_F(TreeContract, NodeMayGoWhileItIsAskedFor) {
  tree.Add(tree.Root(), Named("a", true));
  tree.Add(tree.Root(), Named("b"));
  tree.SetFiller([](TreeView& view, TreeView::Node& node) { view.Remove(node); });
  Show();
  platform->ClickOpener(tree, {"a"}, true);
  EXPECT_THAT(Look(), ElementsAre(". b"));
}

TEST_F(TreeContract, TreeMayGoWhileANodeIsAskedFor) {
  auto other = std::make_unique<TreeView>(form, "Other");
  other->Move(0, 0, 200, 200);
  other->BringToFront();
  other->Add(other->Root(), Named("a", true));
  other->SetFiller([&](TreeView&, TreeView::Node&) { other.reset(); });
  Show();
  platform->ClickOpener(*other, {"a"}, true);
  platform->Settle();
  EXPECT_EQ(other, nullptr);
}

TEST_F(TreeContract, FillingAgainKeepsWhatStaysWithAllBelowItInTheNewOrder) {
  AddTwo();
  tree.Fill(*tree.Find("a/2"), {Named("a/2/x")});
  tree.Expand(*tree.Find("a"));
  tree.Expand(*tree.Find("a/2"));
  tree.Select(tree.Find("a/2/x"));
  Heard();
  Show();
  EXPECT_THAT(Look(), ElementsAre("- a", "  . 1", "  - 2", "    . x *", ". b"));
  tree.Fill(*tree.Find("a"), {Named("a/0"), Named("a/2"), Named("a/3")});
  EXPECT_THAT(Look(), ElementsAre("- a", "  . 0", "  - 2", "    . x *", "  . 3", ". b"));
  tree.Fill(*tree.Find("a"), {Named("a/3"), Named("a/2"), Named("a/1")});
  EXPECT_THAT(Look(), ElementsAre("- a", "  . 3", "  - 2", "    . x *", "  . 1", ". b"));
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(TreeContract, SelectionInWhatGoesMovesToTheNodeAbove) {
  AddTwo();
  tree.Select(tree.Find("a/2"));
  Show();
  tree.Fill(*tree.Find("a"), {Named("a/1")});
  EXPECT_THAT(Look(), ElementsAre("- a *", "  . 1", ". b"));
  tree.Remove(*tree.Find("a"));
  EXPECT_THAT(Look(), ElementsAre(". b"));
  EXPECT_THAT(Heard(), ElementsAre("change a/2", "change a", "change none"));
}

TEST_F(TreeContract, KeyThatIsTakenIsRefusedAndNothingChanges) {
  AddTwo();
  EXPECT_EQ(ErrorOf([&] { tree.Add(tree.Root(), Named("a/1")); }), error::BadPropertyValue);
  EXPECT_EQ(ErrorOf([&] { tree.Fill(tree.Root(), {Named("b"), Named("a/1")}); }), error::BadPropertyValue);
  EXPECT_EQ(ErrorOf([&] { tree.Fill(tree.Root(), {Named("c"), Named("c")}); }), error::BadPropertyValue);
  Show();
  EXPECT_THAT(Look(), ElementsAre("+ a", ". b"));
}

TEST_F(TreeContract, ClearedTreeShowsNothingAndCanBeFilledAgain) {
  AddTwo();
  tree.Select(tree.Find("a/1"));
  Show();
  tree.Clear();
  EXPECT_THAT(Look(), IsEmpty());
  EXPECT_EQ(tree.Selected(), nullptr);
  AddTwo();
  tree.SetText(*tree.Find("b"), "Other");
  EXPECT_THAT(Look(), ElementsAre("+ a", ". Other"));
}

// --- selecting and opening -------------------------------------------------------------------------------------------

TEST_F(TreeContract, PersonsChoiceAndCodesRaiseChangeOnce) {
  AddTwo();
  Show();
  platform->ChooseNode(tree, {"b"});
  platform->ChooseNode(tree, {"b"});
  EXPECT_THAT(Heard(), ElementsAre("change b"));
  tree.Select(tree.Find("a/2"));
  EXPECT_THAT(Look(), ElementsAre("- a", "  . 1", "  + 2 *", ". b"));
  tree.Select(nullptr);
  EXPECT_THAT(Look(), ElementsAre("- a", "  . 1", "  + 2", ". b"));
  EXPECT_THAT(Heard(), ElementsAre("change a/2", "change none"));
}

TEST_F(TreeContract, ClosingANodeTakesTheSelectionOutOfIt) {
  AddTwo();
  tree.Select(tree.Find("a/2"));
  Show();
  platform->ClickOpener(tree, {"a"}, false);
  EXPECT_THAT(Look(), ElementsAre("+ a *", ". b"));
  EXPECT_THAT(Heard(), ElementsAre("change a/2", "change a"));
}

TEST_F(TreeContract, DisabledTreeIsLeftAsItIs) {
  AddTwo();
  Show();
  tree.SetEnabled(false);
  tree.UserSelected(*tree.Find("b"));
  tree.UserExpanded(*tree.Find("a"), true);
  tree.UserKey(key::Home);
  EXPECT_THAT(Look(), ElementsAre("+ a", ". b"));
}

TEST_F(TreeContract, NodeIsScrolledToWhenItIsSelectedOrAskedFor) {
  TreeView::Node& many = tree.Add(tree.Root(), Named("many", true));
  tree.Fill(many, Many(200));
  Show();
  tree.EnsureVisible(*tree.Find("many/150"));
  platform->Settle();
  EXPECT_TRUE(many.Expanded());
  EXPECT_EQ(tree.Selected(), nullptr);
  EXPECT_TRUE(platform->LookAtNode(tree, {"many", "150"}).InView);
  EXPECT_FALSE(platform->LookAtNode(tree, {"many", "0"}).InView);
  tree.Select(tree.Find("many/199"));
  platform->Settle();
  EXPECT_TRUE(platform->LookAtNode(tree, {"many", "199"}).InView);
}

TEST_F(TreeContract, OpenNodeHasThePictureOfAnOpenOne) {
  TreeEntry entry = Named("a", true);
  entry.Icon = Flat(0x0000FF);
  entry.OpenIcon = Flat(0x00C000);
  TreeView::Node& a = tree.Add(tree.Root(), entry);
  tree.Fill(a, {Named("a/1")});
  Show();
  EXPECT_EQ(platform->LookAtNode(tree, {"a"}).Icon, 0x0000FFU);
  tree.Expand(a);
  platform->Settle();
  EXPECT_EQ(platform->LookAtNode(tree, {"a"}).Icon, 0x00C000U);
  tree.Collapse(a);
  platform->Settle();
  EXPECT_EQ(platform->LookAtNode(tree, {"a"}).Icon, 0x0000FFU);
}

TEST_F(TreeContract, ScreenReaderSaysTheTextOrWhatStandsForIt) {
  TreeEntry entry = Named("a");
  entry.Spoken = "Memory card a";
  tree.Add(tree.Root(), entry);
  tree.Add(tree.Root(), Named("b"));
  Show();
  EXPECT_EQ(platform->LookAtNode(tree, {"a"}).Spoken, "Memory card a");
  EXPECT_EQ(platform->LookAtNode(tree, {"b"}).Spoken, "b");
}

// --- keys ------------------------------------------------------------------------------------------------------------

class TreeKeysContract : public TreeContract {
 protected:
  TreeKeysContract() {
    AddTwo();
    tree.Add(tree.Root(), Named("bench"));
    Show();
    platform->ChooseNode(tree, {"a"});
    Heard();
  }
  std::string After(int keyCode) {
    platform->Key(keyCode, 0);
    platform->Settle();
    return tree.Selected() != nullptr ? tree.Selected()->Key() : "none";
  }
  std::string AfterTyping(const std::string& text) {
    platform->Type(text);
    platform->Settle();
    return tree.Selected()->Key();
  }
};

TEST_F(TreeKeysContract, ArrowsWalkOpenAndClose) {
  EXPECT_EQ(After(key::Right), "a");
  EXPECT_THAT(Look(), ElementsAre("- a *", "  . 1", "  + 2", ". b", ". bench"));
  EXPECT_EQ(After(key::Right), "a/1");
  EXPECT_EQ(After(key::Right), "a/1");
  EXPECT_EQ(After(key::Down), "a/2");
  EXPECT_EQ(After(key::Down), "b");
  EXPECT_EQ(After(key::Up), "a/2");
  EXPECT_EQ(After(key::Left), "a");
  EXPECT_EQ(After(key::Left), "a");
  EXPECT_THAT(Look(), ElementsAre("+ a *", ". b", ". bench"));
  EXPECT_EQ(After(key::Up), "a");
  EXPECT_EQ(After(key::Left), "a");
}

TEST_F(TreeKeysContract, HomeAndEndGoToTheEndsOfWhatIsShown) {
  tree.Expand(*tree.Find("a"));
  EXPECT_EQ(After(key::End), "bench");
  EXPECT_EQ(After(key::Down), "bench");
  EXPECT_EQ(After(key::Home), "a");
  EXPECT_THAT(Heard(), ElementsAre("change bench", "change a"));
}

TEST_F(TreeKeysContract, PageKeysGoAPageAndStayWithinTheTree) {
  tree.Fill(tree.Root(), Many(100));
  tree.Select(tree.Find("many/0"));
  EXPECT_EQ(After(key::PageDown), "many/10");
  EXPECT_EQ(After(key::PageDown), "many/20");
  EXPECT_EQ(After(key::PageUp), "many/10");
  tree.Select(tree.Find("many/95"));
  EXPECT_EQ(After(key::PageDown), "many/99");
}

TEST_F(TreeKeysContract, TypedNamesAreFound) {
  EXPECT_EQ(AfterTyping("be"), "bench");
  toolkit.WaitFor(TreeView::SearchPause + 0.1);
  EXPECT_EQ(AfterTyping("b"), "b");
  EXPECT_EQ(AfterTyping("b"), "bench");
  EXPECT_EQ(AfterTyping("b"), "b");
  toolkit.WaitFor(TreeView::SearchPause + 0.1);
  EXPECT_EQ(AfterTyping("2"), "b");  // not shown: its node is closed
}

TEST_F(TreeKeysContract, ProgramMayTakeAKeyFirst) {
  tree.On().KeyDown = [this](Control&, int& code, int) {
    Log("key " + std::to_string(code));
    if (code == key::Down) code = 0;
  };
  constexpr int f5 = key::F1 + 4;
  EXPECT_EQ(After(f5), "a");
  EXPECT_EQ(After(key::Down), "a");
  EXPECT_EQ(After(key::End), "bench");
  EXPECT_THAT(Heard(), ElementsAre("key 116", "key 40", "key 35", "change bench"));
}

TEST_F(TreeContract, TreeMayGoInTheChangeThatAKeyRaises) {
  auto other = std::make_unique<TreeView>(form, "Other");
  other->Move(0, 0, 200, 200);
  other->BringToFront();
  other->Add(other->Root(), Named("x"));
  other->Add(other->Root(), Named("y"));
  Show();
  platform->ChooseNode(*other, {"x"});
  other->On().Change = [&](Control&) { other.reset(); };
  platform->Key(key::Down, 0);
  platform->Settle();
  EXPECT_EQ(other, nullptr);
}

// --- thousands -------------------------------------------------------------------------------------------------------

TEST_F(TreeContract, TenThousandNodesAreFilledSelectedReplacedAndRemoved) {
  Show();
  TreeView::Node& many = tree.Add(tree.Root(), Named("many", true));
  tree.Expand(many);
  tree.Fill(many, Many(10000));
  platform->Settle();
  for (int i = 9980; i < 10000; ++i) {
    tree.Select(tree.Find("many/" + std::to_string(i)));
    platform->Settle();
  }
  ASSERT_NE(tree.Selected(), nullptr);
  EXPECT_EQ(tree.Selected()->Text(), "9999");
  tree.Fill(many, Many(5000));
  platform->Settle();
  EXPECT_EQ(tree.Find("many/9999"), nullptr);
  EXPECT_NE(tree.Find("many/4999"), nullptr);
  tree.Remove(many);
  platform->Settle();
  EXPECT_EQ(tree.Find("many"), nullptr);
}

}  // namespace
}  // namespace pixorra
