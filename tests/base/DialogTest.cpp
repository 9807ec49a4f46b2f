// A dialog asks, and what it answers.
#include <gtest/gtest.h>

#include "base/Dialog.h"
#include "tests/support/headless/HeadlessTest.h"

namespace pixorra {
namespace {

class DialogTest : public HeadlessTest {
 protected:
  DialogTest() {
    owner.Show();
    yes.Move(10, 10, 80, 30);
    no.Move(100, 10, 80, 30);
    dialog.AnswerBy(yes, 1);
    dialog.AnswerBy(no, 2);
  }

  Form owner{toolkit, "Owner"};
  Form window{toolkit, "AskForm"};
  CommandButton yes{window, "Yes"};
  CommandButton no{window, "No"};
  Dialog<int> dialog{window, -1};
};

TEST_F(DialogTest, TheButtonThatIsClickedGivesTheAnswerAndTheFormGoes) {
  person.ExpectForm("AskForm", [this](Person& hand, Form&) { hand.Click(no); });
  EXPECT_EQ(dialog.Ask(owner), 2);
  EXPECT_FALSE(window.Visible());
  EXPECT_FALSE(window.IsLoaded());
}

TEST_F(DialogTest, ClosedByItsFrameItGivesTheDefaultAnswer) {
  person.ExpectForm("AskForm", [](Person& hand, Form& form) { hand.Close(form); });
  EXPECT_EQ(dialog.Ask(owner), -1);
}

TEST_F(DialogTest, EachQuestionIsAnsweredAnew) {
  person.ExpectForm("AskForm", [this](Person& hand, Form&) { hand.Click(yes); });
  EXPECT_EQ(dialog.Ask(owner), 1);
  person.ExpectForm("AskForm", [](Person& hand, Form& form) { hand.Close(form); });
  EXPECT_EQ(dialog.Ask(owner), -1);
}

TEST_F(DialogTest, ItIsModalAndInTheMiddleOfItsOwner) {
  owner.SetTwipsLeft(3000);
  owner.SetTwipsTop(1500);
  person.ExpectForm("AskForm", [this](Person& hand, Form& form) {
    EXPECT_TRUE(form.IsModal());
    EXPECT_FALSE(toolkit.TakesInput(owner));
    EXPECT_EQ(form.TwipsLeft() + form.TwipsWidth() / 2, owner.TwipsLeft() + owner.TwipsWidth() / 2);
    hand.Click(yes);
  });
  dialog.Ask(owner);
}

TEST_F(DialogTest, HiddenWithoutAnAnswerItKeepsWaitingForOne) {
  person.ExpectForm("AskForm", [this](Person&, Form& form) {
    form.Hide();
    person.During([this] { dialog.Give(7); });
  });
  EXPECT_EQ(dialog.Ask(owner), 7);
}

TEST_F(DialogTest, WithTheProgramsEndItGivesTheDefaultAnswer) {
  person.ExpectForm("AskForm", [this](Person&, Form&) { toolkit.End(); });
  EXPECT_EQ(dialog.Ask(owner), -1);
}

}  // namespace
}  // namespace pixorra
