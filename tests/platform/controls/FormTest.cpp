#include <gmock/gmock.h>
#include <memory>

#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"
#include "platform/controls/Menu.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Toolkit.h"
#include "tests/platform/controls/ModelTest.h"
#include "tests/platform/runtime/RaisesError.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FormTest : public ModelTest {
 protected:
  void LogLife(Form& which) {
    const auto plain = [this](const char* event) {
      return [this, event](Control& source) { Log(source.Name() + " " + event); };
    };
    which.On().Load = plain("Load");
    which.On().QueryUnload = plain("QueryUnload");
    which.On().Unload = plain("Unload");
    which.On().Resize = plain("Resize");
  }
};

TEST_F(FormTest, InsideIsTheOuterSizeLessFrameAndMenuBar) {
  EXPECT_EQ(form.TwipsWidth(), (400 + 8) * 15);
  EXPECT_EQ(form.TwipsHeight(), (300 + 27) * 15);
  EXPECT_EQ(form.ScaleHeight(), 300);
  MenuItem menu(form, "FileMenu", "&File");
  EXPECT_EQ(form.ScaleHeight(), 280);
  EXPECT_EQ(form.Height(), 280);
  menu.SetVisible(false);
  EXPECT_EQ(form.Height(), 300);
  menu.SetVisible(true);
  form.SetClientSize(400, 300);
  EXPECT_EQ(form.ScaleHeight(), 300);
}

TEST_F(FormTest, InsideIsTheOuterSizeLessTheFrameThatIsCounted) {
  form.SetFrame(60, 370);
  form.SetTwipsWidth(640 * 15 + 60);
  form.SetTwipsHeight(480 * 15 + 370);
  EXPECT_EQ(form.ScaleWidth(), 640);
  EXPECT_EQ(form.ScaleHeight(), 480);
  form.SetClientSize(200, 100);
  EXPECT_EQ(form.TwipsWidth(), 200 * 15 + 60);
  EXPECT_EQ(form.ScaleWidth(), 200);
  EXPECT_EQ(form.ScaleHeight(), 100);
}

TEST_F(FormTest, ResizeComesWithADifferentSizeOnly) {
  LogLife(form);
  form.SetTwipsWidth(form.TwipsWidth());
  EXPECT_THAT(Heard(), IsEmpty());
  form.SetTwipsWidth(6000);
  form.SetTwipsHeight(4500.5);
  EXPECT_EQ(form.TwipsHeight(), 4500);
  EXPECT_THAT(Heard(), ElementsAre("MainForm Resize", "MainForm Resize"));
}

TEST_F(FormTest, FormThatIsNotInItsNormalStateIsNotSized) {
  form.SetWindowState(windowstate::Maximised);
  EXPECT_EQ(ErrorOf([&] { form.SetTwipsWidth(100); }), error::BadPropertyValue);
  EXPECT_EQ(ErrorOf([&] { form.SetWindowState(3); }), error::BadPropertyValue);
}

TEST_F(FormTest, CentredOnTheScreenOrItsOwnerAndKeptOnTheScreen) {
  form.CentreOn(nullptr);
  EXPECT_EQ(form.TwipsLeft(), (1280 * 15 - 408 * 15) / 2);
  Form dialog(toolkit, "Dialog");
  dialog.SetClientSize(200, 100);
  dialog.CentreOn(&form);
  EXPECT_EQ(dialog.TwipsLeft(), form.TwipsLeft() + (408 - 208) * 15 / 2.0);
  dialog.SetClientSize(5000, 100);
  dialog.CentreOn(&form);
  EXPECT_EQ(dialog.TwipsLeft(), 0);
}

TEST_F(FormTest, ADialogIsCentredOverAnOwnerOnAnotherScreenThanTheMainOne) {
  platform.backend.AddScreen(1000, 800);
  Form dialog(toolkit, "Dialog");
  dialog.SetClientSize(200, 100);
  form.SetTwipsLeft(1500 * 15);
  form.SetTwipsTop(100 * 15);
  dialog.CentreOn(&form);
  EXPECT_EQ(dialog.TwipsLeft(), 1500 * 15 + (form.TwipsWidth() - dialog.TwipsWidth()) / 2);
  EXPECT_EQ(dialog.TwipsTop(), 100 * 15 + (form.TwipsHeight() - dialog.TwipsHeight()) / 2);
}

TEST_F(FormTest, TheEdgeBetweenTwoScreensIsTheSecondOnes) {
  platform.backend.AddScreen(1000, 800);
  EXPECT_EQ(toolkit.ScreenAt(1279 * 15, 100), 0);
  EXPECT_EQ(toolkit.ScreenAt(1280 * 15, 100), 1);
  EXPECT_EQ(toolkit.ScreenAt(2279 * 15, 799 * 15), 1);
  EXPECT_EQ(toolkit.ScreenAt(2280 * 15, 100), 1) << "the nearest one";
}

TEST_F(FormTest, ADialogIsWhollyOnTheScreenThatHoldsTheMiddleOfItsOwner) {
  platform.backend.AddScreen(1000, 800);
  Form dialog(toolkit, "Dialog");
  dialog.SetClientSize(900, 500);
  form.SetTwipsLeft(1300 * 15);
  form.SetTwipsTop(600 * 15);
  dialog.CentreOn(&form);
  EXPECT_EQ(dialog.TwipsLeft(), 1280 * 15);
  EXPECT_EQ(dialog.TwipsTop() + dialog.TwipsHeight(), 800 * 15);
  form.SetTwipsLeft(2000 * 15);
  form.SetTwipsTop(-50 * 15);
  dialog.CentreOn(&form);
  EXPECT_EQ(dialog.TwipsLeft() + dialog.TwipsWidth(), 2280 * 15);
  EXPECT_EQ(dialog.TwipsTop(), 0);
}

TEST_F(FormTest, ADialogOfAnOwnerThatIsOnNoScreenIsOnTheNearestOne) {
  platform.backend.AddScreen(1000, 800);
  Form dialog(toolkit, "Dialog");
  dialog.SetClientSize(200, 100);
  const double width = dialog.TwipsWidth();
  const double height = dialog.TwipsHeight();
  struct Case {
    double OwnerLeft, OwnerTop, Left, Top;
  };
  const double centred = (form.TwipsWidth() - width) / 2;
  for (const Case& one : {Case{100 * 15, -600 * 15, 100 * 15 + centred, 0},
                          {1500 * 15, 1000 * 15, 1500 * 15 + centred, 800 * 15 - height},
                          {-900 * 15, 1000 * 15, 0, 1024 * 15 - height},
                          {4000 * 15, -600 * 15, 2280 * 15 - width, 0}}) {
    form.SetTwipsLeft(one.OwnerLeft);
    form.SetTwipsTop(one.OwnerTop);
    dialog.CentreOn(&form);
    EXPECT_EQ(dialog.TwipsLeft(), one.Left) << one.OwnerLeft << " " << one.OwnerTop;
    EXPECT_EQ(dialog.TwipsTop(), one.Top) << one.OwnerLeft << " " << one.OwnerTop;
  }
}

TEST_F(FormTest, LoadComesOnceAndAgainAfterAnUnload) {
  LogLife(form);
  form.Load();
  form.Show();
  form.Unload();
  form.Show();
  EXPECT_THAT(Heard(), ElementsAre("MainForm Load", "MainForm QueryUnload", "MainForm Unload", "MainForm Load"));
}

TEST_F(FormTest, UnloadComesOnceEvenFromItsOwnHandlers) {
  LogLife(form);
  form.Show();
  form.On().QueryUnload = [&](Control&) {
    Log("query");
    form.Unload();
  };
  form.Unload();
  form.Unload();
  EXPECT_THAT(Heard(), ElementsAre("MainForm Load", "query", "MainForm Unload"));
  EXPECT_FALSE(form.Visible());
}

TEST_F(FormTest, UnloadThatRaisesCanBeTriedAgain) {
  form.Show();
  form.On().Unload = [](Control&) { throw RuntimeError(error::DiskFull); };
  EXPECT_EQ(ErrorOf([&] { form.Unload(); }), error::DiskFull);
  form.On().Unload = {};
  form.Unload();
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(FormTest, FormMayGoInItsOwnUnload) {
  auto other = std::make_unique<Form>(toolkit, "Other");
  other->On().Unload = [&](Control&) { other.reset(); };
  other->Show();
  other->Unload();
  EXPECT_EQ(other, nullptr);
}

TEST_F(FormTest, FormThatUnloadsInItsLoadIsNotShown) {
  form.On().Load = [&](Control&) { form.Unload(); };
  form.Show();
  EXPECT_FALSE(form.Visible());
  form.ShowModal(nullptr);
  EXPECT_FALSE(form.IsModal());
}

TEST_F(FormTest, ShownFormIsActiveAndTheOneBelowFollowsWhenItGoes) {
  Form other(toolkit, "Other");
  form.Show();
  other.Show();
  EXPECT_EQ(toolkit.ActiveForm(), &other);
  EXPECT_EQ(toolkit.Forms().back(), &other);
  other.Hide();
  EXPECT_EQ(toolkit.ActiveForm(), &form);
  form.Hide();
  EXPECT_EQ(toolkit.ActiveForm(), nullptr);
}

TEST_F(FormTest, FormThatIsDestroyedLeavesTheActivePlace) {
  form.Show();
  {
    Form other(toolkit, "Other");
    other.Show();
  }
  EXPECT_EQ(toolkit.ActiveForm(), &form);
}

TEST_F(FormTest, OwnedFormsStayAboveTheirOwnerAndTopmostAboveAll) {
  Form owned(toolkit, "Owned");
  Form top(toolkit, "Top");
  Form other(toolkit, "Other");
  form.Show();
  owned.ShowOwned(&form);
  top.SetStaysOnTop(true);
  top.Show();
  other.Show();
  toolkit.Activate(form);
  EXPECT_THAT(toolkit.Forms(), ElementsAre(&other, &form, &owned, &top));
  EXPECT_EQ(toolkit.ActiveForm(), &form);
}

TEST_F(FormTest, OwnerMayGoBeforeItsOwnedForm) {
  Form owned(toolkit, "Owned");
  {
    Form owner(toolkit, "Owner");
    owner.Show();
    owned.ShowOwned(&owner);
  }
  EXPECT_EQ(owned.Owner(), nullptr);
  toolkit.Activate(owned);
}

// --- modal forms ---------------------------------------------------------------------------------------------------

TEST_F(FormTest, ModalFormsNest) {
  Form outer(toolkit, "Outer");
  Form inner(toolkit, "Inner");
  form.Show();
  person.ExpectForm("Outer", [&](Person&, Form&) {
    EXPECT_FALSE(toolkit.TakesInput(form));
    inner.ShowModal(&outer);
    Log("inner is closed");
    EXPECT_TRUE(toolkit.TakesInput(outer));
    outer.Hide();
    EXPECT_TRUE(toolkit.TakesInput(form));
  });
  person.ExpectForm("Inner", [&](Person&, Form&) {
    EXPECT_FALSE(toolkit.TakesInput(outer));
    EXPECT_FALSE(toolkit.TakesInput(form));
    inner.Hide();
  });
  outer.ShowModal(&form);
  Log("outer is closed");
  EXPECT_THAT(Heard(), ElementsAre("inner is closed", "outer is closed"));
  EXPECT_FALSE(outer.IsModal());
  EXPECT_TRUE(toolkit.TakesInput(form));
  EXPECT_EQ(toolkit.ActiveForm(), &form);
}

TEST_F(FormTest, ModalFormBelowAnotherMayBeUnloadedFirst) {
  Form outer(toolkit, "Outer");
  Form inner(toolkit, "Inner");
  form.Show();
  person.ExpectForm("Outer", [&](Person&, Form&) { inner.ShowModal(&outer); });
  person.ExpectForm("Inner", [&](Person&, Form&) {
    outer.Unload();
    EXPECT_TRUE(toolkit.TakesInput(inner));
    EXPECT_FALSE(toolkit.TakesInput(form));
    inner.Unload();
  });
  outer.ShowModal(&form);
  EXPECT_TRUE(toolkit.TakesInput(form));
}

TEST_F(FormTest, ModalFormMayBeDestroyedWhileItIsUp) {
  form.Show();
  auto ask = std::make_unique<Form>(toolkit, "AskForm");
  person.ExpectForm("AskForm", [&](Person&, Form&) { ask.reset(); });
  ask->ShowModal(&form);
  EXPECT_TRUE(toolkit.TakesInput(form));
}

TEST_F(FormTest, ModalFormUnloadedByItsOwnButtonReturns) {
  Form ask(toolkit, "AskForm");
  CommandButton yes(ask, "Yes");
  yes.Move(0, 0, 50, 20);
  yes.On().Click = [&](Control&) { ask.Unload(); };
  LogLife(ask);
  person.ExpectForm("AskForm", [&](Person& p, Form&) { p.Click(yes); });
  ask.ShowModal(nullptr);
  EXPECT_THAT(Heard(), ElementsAre("AskForm Load", "AskForm QueryUnload", "AskForm Unload"));
}

TEST_F(FormTest, ModalFormWhoseLoadRaisesBlocksNothing) {
  form.Show();
  Form ask(toolkit, "AskForm");
  ask.On().Load = [](Control&) { throw RuntimeError(error::PathNotFound); };
  EXPECT_EQ(ErrorOf([&] { ask.ShowModal(&form); }), error::PathNotFound);
  EXPECT_TRUE(toolkit.TakesInput(form));
  EXPECT_FALSE(ask.IsModal());
}

TEST_F(FormTest, NothingComesInFrontOfAModalForm) {
  form.Show();
  Form ask(toolkit, "AskForm");
  person.ExpectForm("AskForm", [&](Person&, Form& shown) {
    toolkit.Activate(form);
    EXPECT_EQ(toolkit.ActiveForm(), &ask);
    EXPECT_EQ(toolkit.Forms().back(), &ask);
    shown.Unload();
  });
  ask.ShowModal(&form);
}

TEST_F(FormTest, ClosingABlockedFormDoesNothing) {
  LogLife(form);
  form.Show();
  Heard();
  Form ask(toolkit, "AskForm");
  person.ExpectForm("AskForm", [&](Person&, Form& shown) {
    form.UserClosed();
    shown.UserClosed();
  });
  ask.ShowModal(&form);
  EXPECT_THAT(Heard(), IsEmpty());
  form.UserClosed();
  EXPECT_THAT(Heard(), ElementsAre("MainForm QueryUnload", "MainForm Unload"));
}

TEST_F(FormTest, EveryWaitEndsWithTheProgram) {
  Form outer(toolkit, "Outer");
  Form inner(toolkit, "Inner");
  person.ExpectForm("Outer", [&](Person&, Form&) {
    inner.ShowModal(&outer);
    EXPECT_FALSE(toolkit.WaitFor(100));
    EXPECT_FALSE(toolkit.WaitUntil([] { return false; }));
  });
  person.ExpectForm("Inner", [&](Person&, Form&) { toolkit.End(); });
  outer.ShowModal(nullptr);
  EXPECT_TRUE(toolkit.Ended());
  EXPECT_TRUE(platform.backend.LoopEnded());
  EXPECT_LT(toolkit.Seconds(), 1);
  inner.Hide();
  inner.ShowModal(nullptr);
}

TEST_F(FormTest, WaitWhoseEndHasComeLooksNoFurther) {
  EXPECT_TRUE(toolkit.WaitUntil([] { return true; }));
  EXPECT_EQ(toolkit.Seconds(), 0);
}

TEST_F(FormTest, AfterAModalFormTheControlThatHadTheFocusHasItAgain) {
  form.Show();
  TextBox name(form, "Name");
  Listen(name);
  name.SetFocus();
  Form ask(toolkit, "AskForm");
  TextBox answer(ask, "Answer");
  person.ExpectForm("AskForm", [&](Person&, Form&) {
    answer.SetFocus();
    ask.Hide();
  });
  ask.ShowModal(&form);
  EXPECT_THAT(Heard(), ElementsAre("Name GotFocus", "Name LostFocus", "Name GotFocus"));
  EXPECT_EQ(toolkit.Focus(), &name);
}

TEST_F(FormTest, TheFocusReturnsAlsoWhereTheModalFormTookItBeforeItWasShown) {
  form.Show();
  TextBox name(form, "Name");
  name.SetFocus();
  Form ask(toolkit, "AskForm");
  TextBox answer(ask, "Answer");
  answer.SetFocus();
  person.ExpectForm("AskForm", [&](Person&, Form&) {
    EXPECT_EQ(toolkit.Focus(), &answer);
    ask.Unload();
  });
  ask.ShowModal(&form);
  EXPECT_EQ(toolkit.Focus(), &name);
}

TEST_F(FormTest, TheFocusReturnsFormByFormWhereModalFormsNest) {
  form.Show();
  TextBox name(form, "Name");
  name.SetFocus();
  Form outer(toolkit, "Outer");
  TextBox middle(outer, "Middle");
  Form inner(toolkit, "Inner");
  person.ExpectForm("Outer", [&](Person&, Form&) {
    middle.SetFocus();
    inner.ShowModal(&outer);
    EXPECT_EQ(toolkit.Focus(), &middle);
    outer.Hide();
  });
  person.ExpectForm("Inner", [&](Person&, Form&) { inner.Hide(); });
  outer.ShowModal(&form);
  EXPECT_EQ(toolkit.Focus(), &name);
}

TEST_F(FormTest, TheFocusReturnsOnlyToAControlThatCanStillBeSeenAndUsed) {
  form.Show();
  auto name = std::make_unique<TextBox>(form, "Name");
  Form ask(toolkit, "AskForm");
  TextBox answer(ask, "Answer");
  const auto focusAfter = [&](const std::function<void()>& meanwhile) {
    name->SetFocus();
    person.ExpectForm("AskForm", [&](Person&, Form&) {
      answer.SetFocus();
      meanwhile();
      ask.Hide();
    });
    ask.ShowModal(&form);
    return toolkit.Focus();
  };
  EXPECT_EQ(focusAfter([] {}), name.get());
  EXPECT_EQ(focusAfter([&] { name->SetVisible(false); }), nullptr);
  name->SetVisible(true);
  EXPECT_EQ(focusAfter([&] { name->SetEnabled(false); }), nullptr);
  name->SetEnabled(true);
  EXPECT_EQ(focusAfter([&] { name.reset(); }), nullptr);
}

// --- menus ---------------------------------------------------------------------------------------------------------

TEST_F(FormTest, MenuItemCanBeChosenWhenAllAboveItAreEnabled) {
  MenuItem file(form, "FileMenu", "&File");
  MenuItem recent(file, "RecentMenu", "Recent");
  MenuItem first(recent, "FirstItem", "1", key::F1 + 4, shift::Ctrl | shift::Shift);
  first.On().Click = [this](Control&) { Log("first"); };
  first.UserClicked();
  file.SetEnabled(false);
  EXPECT_FALSE(first.CanBeChosen());
  first.UserClicked();
  EXPECT_THAT(Heard(), ElementsAre("first"));
  EXPECT_EQ(first.ShortcutText(), "Shift+Ctrl+F5");
  EXPECT_EQ(first.Parent(), &recent);
}

TEST_F(FormTest, MenuItemThatGoesIsGoneFromItsMenu) {
  MenuItem file(form, "FileMenu", "&File");
  {
    MenuItem gone(file, "Gone", "Gone");
    MenuItem bar(form, "Bar", "Bar");
    EXPECT_EQ(form.Menus().size(), 2U);
  }
  EXPECT_THAT(file.Items(), IsEmpty());
  EXPECT_THAT(form.Menus(), ElementsAre(&file));
}

}  // namespace
}  // namespace pixorra
