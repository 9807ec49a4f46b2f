// The end that the host asks for: what is in front is closed as by its frame, until the main window is.
#include <gmock/gmock.h>
#include <optional>

#include "tests/platform/contract/ContractTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EndContract : public FormContract {
 protected:
  EndContract() {
    for (Form* each : {&form, &dialog, &inner}) {
      each->On().QueryUnload = [this](Control& source) { Log(source.Name() + " query"); };
      each->On().Unload = [this](Control& source) { Log(source.Name() + " unload"); };
    }
    toolkit.SetEnder([this] {
      form.Unload();
      toolkit.End();
    });
  }
  // As soon as it is in front.
  void AskOver(Form& front) {
    platform->Meanwhile([this, &front] { return toolkit.ActiveForm() == &front && toolkit.TakesInput(front); },
                        [this] { toolkit.AskToEnd(); });
  }

  Form dialog{toolkit, "Dialog"};
  Form inner{toolkit, "Inner"};
};

TEST_F(EndContract, IdleTheMainWindowIsClosedInATurnOfItsOwn) {
  Show();
  toolkit.AskToEnd();
  EXPECT_TRUE(toolkit.EndAsked());
  EXPECT_THAT(Heard(), IsEmpty());
  EXPECT_FALSE(toolkit.WaitFor(10));
  EXPECT_THAT(Heard(), ElementsAre("ContractForm query", "ContractForm unload"));
}

TEST_F(EndContract, AskedAgainItIsClosedOnce) {
  Show();
  for (int i = 0; i < 3; ++i) toolkit.AskToEnd();
  toolkit.WaitFor(10);
  toolkit.AskToEnd();
  toolkit.DoEvents();
  EXPECT_THAT(Heard(), ElementsAre("ContractForm query", "ContractForm unload"));
}

TEST_F(EndContract, AskedWhileItClosesNothingOfItIsLeftOut) {
  Show();
  toolkit.SetEnder([this] {
    toolkit.AskToEnd();
    toolkit.DoEvents();
    form.Unload();
    toolkit.End();
  });
  toolkit.AskToEnd();
  toolkit.WaitFor(10);
  EXPECT_THAT(Heard(), ElementsAre("ContractForm query", "ContractForm unload"));
}

TEST_F(EndContract, ModalFormsAreClosedFromTheOneInFront) {
  Show();
  platform->Meanwhile([this] { return toolkit.TakesInput(dialog); },
                      [this] {
                        inner.ShowModal(&dialog);
                        Log("after Inner");
                      });
  AskOver(inner);
  dialog.ShowModal(&form);
  Log("after Dialog");
  toolkit.WaitFor(10);
  EXPECT_THAT(Heard(), ElementsAre("Inner query", "Inner unload", "after Inner", "Dialog query", "Dialog unload",
                                   "after Dialog", "ContractForm query", "ContractForm unload"));
}

TEST_F(EndContract, AFormThatHidesWhenItIsClosedIsHidden) {
  Show();
  dialog.SetHidesWhenClosed(true);
  AskOver(dialog);
  dialog.ShowModal(&form);
  EXPECT_TRUE(dialog.IsLoaded());
  toolkit.WaitFor(10);
  EXPECT_THAT(Heard(), ElementsAre("ContractForm query", "ContractForm unload", "Dialog query", "Dialog unload"));
}

TEST_F(EndContract, AFormThatComesUpOnTheWayIsClosedToo) {
  Show();
  AskOver(dialog);
  dialog.ShowModal(&form);
  inner.ShowModal(&form);
  Log("after Inner");
  toolkit.WaitFor(10);
  EXPECT_THAT(Heard(), ElementsAre("Dialog query", "Dialog unload", "Inner query", "Inner unload", "after Inner",
                                   "ContractForm query", "ContractForm unload"));
}

TEST_F(EndContract, ABoxThatComesUpOnTheWayIsNotShown) {
  Show();
  toolkit.AskToEnd();
  EXPECT_EQ(platform->GetDialogs().MsgBox("Go?", BoxIcon::Question, BoxButtons::YesNo, "Title"), BoxAnswer::No);
  EXPECT_EQ(platform->GetDialogs().MsgBox("Oh", BoxIcon::Critical, BoxButtons::Ok, "Title"), BoxAnswer::Ok);
  EXPECT_EQ(platform->GetDialogs().InputBox("Name", "Title", "x"), "");
  EXPECT_EQ(platform->GetDialogs().ChooseColour(0), std::nullopt);
}

TEST_F(EndContract, AskedBeforeTheProgramIsReadyItWaitsForThat) {
  toolkit.SetEnder({});
  toolkit.AskToEnd();
  toolkit.DoEvents();
  EXPECT_FALSE(toolkit.Ended());
  Show();
  toolkit.SetEnder([this] { form.Unload(); });
  toolkit.WaitFor(10);
  EXPECT_THAT(Heard(), ElementsAre("ContractForm query", "ContractForm unload"));
  EXPECT_TRUE(toolkit.Ended());
}

TEST_F(EndContract, InTheMiddleOfALongWorkTheMainWindowIsClosedAndTheWorkFindsThatOut) {
  Show();
  toolkit.AskToEnd();
  int steps = 0;
  while (!toolkit.Ended() && steps < 100) {
    ++steps;
    toolkit.DoEvents();
  }
  EXPECT_LT(steps, 100);
  EXPECT_THAT(Heard(), ElementsAre("ContractForm query", "ContractForm unload"));
}

}  // namespace
}  // namespace pixorra
