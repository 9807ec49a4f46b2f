// The mouse on light controls, drags, the keyboard, and menus.
#include <gmock/gmock.h>
#include <memory>

#include "platform/controls/Buttons.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/Menu.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/TextBox.h"
#include "tests/platform/contract/ContractTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MouseContract : public FormContract {
 protected:
  MouseContract() {
    box.Move(100, 50, 200, 200);
    image.Move(10, 20, 80, 60);
    Listen(image);
    Show();
  }
  PictureBox box{form, "Box"};
  ImageBox image{box, "Image"};
};

TEST_F(MouseContract, ClickIsPressReleaseAndClickInTheControlsPixels) {
  image.On().MouseDown = [this](Control&, const MouseArgs& args) {
    Log(std::to_string(args.Button) + " " + std::to_string(args.Shift) + " " +
        std::to_string(static_cast<int>(args.X)) + "," + std::to_string(static_cast<int>(args.Y)));
  };
  platform->Press(form, 115, 77, button::Left, shift::Ctrl);
  platform->Release(form, 115, 77, button::Left, shift::Ctrl);
  EXPECT_THAT(Heard(), ElementsAre("1 2 5,7", "Image MouseUp", "Image Click"));
}

TEST_F(MouseContract, RightButtonIsTold) {
  image.On().MouseDown = [this](Control&, const MouseArgs& args) { Log(std::to_string(args.Button)); };
  platform->Press(form, 115, 77, button::Right, 0);
  platform->Release(form, 115, 77, button::Right, 0);
  EXPECT_THAT(Heard(), ElementsAre("2", "Image MouseUp"));
}

TEST_F(MouseContract, DoubleClickIsOneClickAndOneDoubleClick) {
  platform->DoubleClick(form, 115, 77);
  EXPECT_THAT(Heard(),
              ElementsAre("Image MouseDown", "Image MouseUp", "Image Click", "Image DblClick", "Image MouseUp"));
}

TEST_F(MouseContract, MovesAreToldWithTheButtonsHeld) {
  image.On().MouseMove = [this](Control&, const MouseArgs& args) {
    Log(std::to_string(args.Button) + " " + std::to_string(static_cast<int>(args.X)));
  };
  platform->Move(form, 120, 80);
  platform->Press(form, 120, 80, button::Left, 0);
  Heard();
  platform->Move(form, 350, 80);
  platform->Release(form, 350, 80, button::Left, 0);
  EXPECT_THAT(Heard(), ElementsAre("1 240", "Image MouseUp"));
}

TEST_F(MouseContract, WheelIsTurnedOverALightControlAWidgetAndTheirContainer) {
  ScrollBar bar(box, "Bar", Orientation::Vertical);
  bar.Move(150, 0, 17, 100);
  Show();
  for (Control* control : {static_cast<Control*>(&box), static_cast<Control*>(&bar)}) {
    control->On().MouseWheel = [this](Control& turned, const WheelArgs& turn) {
      Log(turned.Name() + " " + std::to_string(static_cast<int>(turn.NotchesX * 100)) + "," +
          std::to_string(static_cast<int>(turn.NotchesY * 100)) + " " + std::to_string(static_cast<int>(turn.PixelsX)) +
          "," + std::to_string(static_cast<int>(turn.PixelsY)) + " at " + std::to_string(static_cast<int>(turn.X)) +
          "," + std::to_string(static_cast<int>(turn.Y)));
    };
  }
  platform->TurnWheel(form, 115, 77, {.NotchesY = 1});
  platform->TurnWheel(form, 115, 77, {.NotchesX = -0.5});
  platform->TurnWheel(form, 115, 77, {.PixelsX = 3, .PixelsY = -7});
  platform->TurnWheel(form, 115, 77, {.NotchesY = 2, .Shift = shift::Shift});
  platform->TurnWheel(form, 255, 60, {.NotchesY = -1});
  platform->TurnWheel(form, 20, 20, {.NotchesY = 1});
  EXPECT_THAT(Heard(), ElementsAre("Box 0,100 0,0 at 15,27", "Box -50,0 0,0 at 15,27", "Box 0,0 3,-7 at 15,27",
                                   "Box 200,0 0,0 at 15,27", "Bar 0,-100 0,0 at 5,10"));
  EXPECT_EQ(bar.Value(), 0);
}

TEST_F(MouseContract, DragEntersLeavesAndDrops) {
  image.SetAutomaticDrag(true);
  ImageBox target(form, "Target");
  target.Move(10, 220, 60, 60);
  for (Control* control : {static_cast<Control*>(&image), static_cast<Control*>(&target)}) {
    control->On().DragOver = [this](Control& over, const DragArgs& drag) {
      if (drag.State != DragState::Over) Log(over.Name() + (drag.State == DragState::Enter ? " entered" : " left"));
    };
    control->On().DragDrop = [this](Control& over, const DragArgs& drag) {
      Log(drag.Source.Name() + " on " + over.Name() + " " + std::to_string(static_cast<int>(drag.X)) + "," +
          std::to_string(static_cast<int>(drag.Y)));
    };
  }
  platform->Settle();
  platform->Press(form, 120, 80, button::Left, 0);
  platform->Move(form, 110, 100);
  platform->Move(form, 90, 200);
  platform->Move(form, 30, 230);
  platform->Release(form, 30, 230, button::Left, 0);
  EXPECT_THAT(Heard(), ElementsAre("Image entered", "Image left", "Target entered", "Image on Target 20,10"));
  EXPECT_EQ(toolkit.Drag().Source, nullptr);
}

TEST_F(MouseContract, DropMayAskAndTheMouseIsFreeThen) {
  image.SetAutomaticDrag(true);
  image.On().DragDrop = [this](Control&, const DragArgs&) {
    const BoxAnswer answer = platform->GetDialogs().MsgBox("Sure?", BoxIcon::Question, BoxButtons::YesNo, "Contract");
    Log(answer == BoxAnswer::Yes ? "yes" : "no");
  };
  platform->AnswerBox(BoxAnswer::Yes, {});
  platform->Press(form, 120, 80, button::Left, 0);
  platform->Release(form, 120, 80, button::Left, 0);
  EXPECT_THAT(Heard(), ElementsAre("yes"));
  image.SetAutomaticDrag(false);
  platform->Click(image);
  EXPECT_THAT(Heard(), ElementsAre("Image MouseDown", "Image MouseUp", "Image Click"));
}

TEST_F(MouseContract, DisabledLightControlLetsThePressThrough) {
  Listen(box);
  image.SetEnabled(false);
  platform->Press(form, 115, 77, button::Left, 0);
  platform->Release(form, 115, 77, button::Left, 0);
  EXPECT_THAT(Heard(), ElementsAre("Box MouseDown", "Box MouseUp", "Box Click"));
}

TEST_F(MouseContract, ElementsMayGoInTheirOwnClick) {
  auto gone = std::make_unique<Label>(form, "Gone");
  gone->Move(0, 0, 50, 20);
  gone->On().Click = [&](Control&) { gone.reset(); };
  platform->Click(*gone);
  platform->Settle();
  EXPECT_EQ(gone, nullptr);
}

// --- keyboard ------------------------------------------------------------------------------------------------------

class KeyContract : public FormContract {
 protected:
  KeyContract() {
    form.On().KeyDown = [this](Control&, int& code, int shift) {
      Log(std::to_string(code) + " " + std::to_string(shift));
      if (code == swallowed) code = 0;
    };
  }
  int swallowed = -1;
};

TEST_F(KeyContract, AKeyWithoutACodeIsHeardOnlyWhereEveryKeyIs) {
  form.SetKeyPreview(true);
  Show();
  platform->Key(key::Other, 0);
  EXPECT_THAT(Heard(), IsEmpty());
  form.SetTakesEveryKey(true);
  platform->Key(key::Other, 0);
  EXPECT_THAT(Heard(), ElementsAre("255 0"));
}

TEST_F(KeyContract, FormThatPreviewsKeysHearsTheirCodes) {
  form.SetKeyPreview(true);
  Show();
  platform->Key(key::Delete, 0);
  platform->Key(key::Left, 0);
  platform->Key(key::PageDown, 0);
  platform->Key(key::F1, 0);
  platform->Key('D', shift::Ctrl);
  platform->Key(key::Escape, 0);
  EXPECT_THAT(Heard(), ElementsAre("46 0", "37 0", "34 0", "112 0", "68 2", "27 0"));
}

TEST_F(KeyContract, PreviewComesBeforeTheFocusedBoxAndMaySwallow) {
  form.SetKeyPreview(true);
  TextBox box(form, "Box");
  box.Move(10, 10, 200, 24);
  box.On().KeyDown = [this](Control&, int& code, int) { Log("box " + std::to_string(code)); };
  Show();
  box.SetFocus();
  platform->Settle();
  swallowed = 'B';
  platform->Type("ab");
  EXPECT_THAT(Heard(), ElementsAre("65 0", "box 65", "66 0"));
  EXPECT_EQ(box.Text(), "a");
}

TEST_F(KeyContract, ReturnAndEscapePressTheirButtons) {
  CommandButton ok(form, "Ok");
  CommandButton cancel(form, "Cancel");
  TextBox box(form, "Box");
  ok.Move(10, 50, 80, 25);
  cancel.Move(100, 50, 80, 25);
  box.Move(10, 10, 200, 24);
  ok.SetDefault(true);
  cancel.SetCancel(true);
  for (Control* control : {&ok, &cancel}) control->On().Click = [this](Control& source) { Log(source.Name()); };
  Show();
  box.SetFocus();
  platform->Settle();
  platform->Key(key::Return, 0);
  platform->Key(key::Escape, 0);
  EXPECT_THAT(Heard(), ElementsAre("Ok", "Cancel"));
}

// --- menus ---------------------------------------------------------------------------------------------------------

class MenuContract : public FormContract {
 protected:
  MenuContract() {
    file.On().Click = [this](Control&) { Log("opened"); };
    save.On().Click = [this](Control&) { Log("save"); };
    rename.On().Click = [this](Control&) { Log("rename"); };
    popup.SetVisible(false);
  }
  MenuItem file{form, "FileMenu", "&File"};
  MenuItem save{file, "SaveItem", "&Save", 'S', shift::Ctrl};
  MenuItem popup{form, "PopupMenu", "Popup"};
  MenuItem rename{popup, "RenameItem", "Rename"};
};

TEST_F(MenuContract, OpeningAMenuRaisesItsClickAndThenTheItems) {
  Show();
  platform->ChooseMenu(save);
  EXPECT_THAT(Heard(), ElementsAre("opened", "save"));
}

TEST_F(MenuContract, ItemEnabledWhenItsMenuOpensCanBeChosen) {
  save.SetEnabled(false);
  file.On().Click = [this](Control&) { save.SetEnabled(true); };
  Show();
  platform->ChooseMenu(save);
  EXPECT_THAT(Heard(), ElementsAre("save"));
}

TEST_F(MenuContract, ShortcutRunsItsItem) {
  Show();
  platform->Key('S', shift::Ctrl);
  EXPECT_THAT(Heard(), ElementsAre("opened", "save"));
  save.SetEnabled(false);
  platform->Key('S', shift::Ctrl);
  EXPECT_THAT(Heard(), ElementsAre("opened"));
}

TEST_F(MenuContract, ShortcutOfAnItemThatItsMenuWouldEnableOrDisableActsByThat) {
  bool can = true;
  file.On().Click = [this, &can](Control&) { save.SetEnabled(can); };
  save.SetEnabled(false);
  Show();
  platform->Key('S', shift::Ctrl);
  EXPECT_THAT(Heard(), ElementsAre("save"));
  can = false;
  platform->Key('S', shift::Ctrl);
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(MenuContract, PopupReturnsWhenItIsClosedAndTheItemHasRun) {
  Show();
  platform->AnswerPopup(&rename, {});
  form.PopupMenu(popup);
  Log("after");
  EXPECT_THAT(Heard(), ElementsAre("rename", "after"));
}

TEST_F(MenuContract, PopupThatIsClosedRunsNothing) {
  Show();
  platform->AnswerPopup(nullptr, {});
  form.PopupMenu(popup);
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(MenuContract, PopupIsUpUntilItsItemRuns) {
  const auto say = [this] { Log(toolkit.IsMenuUp() ? "up" : "closed"); };
  rename.On().Click = [say](Control&) { say(); };
  Show();
  say();
  platform->AnswerPopup(&rename, say);
  form.PopupMenu(popup);
  say();
  EXPECT_THAT(Heard(), ElementsAre("closed", "up", "closed", "closed"));
}

TEST_F(MenuContract, PopupClosesWhenAnotherOneComesUpAndNothingOfItRuns) {
  MenuItem second(form, "SecondPopup", "Second");
  MenuItem remove(second, "RemoveItem", "Remove");
  second.SetVisible(false);
  remove.On().Click = [this](Control&) { Log("remove"); };
  Show();
  platform->AnswerPopup(&rename, [&] {
    platform->AnswerPopup(&remove, {});
    form.PopupMenu(second);
    Log("after the second");
  });
  form.PopupMenu(popup);
  Log("after the first");
  EXPECT_THAT(Heard(), ElementsAre("remove", "after the second", "after the first"));
}

}  // namespace
}  // namespace pixorra
