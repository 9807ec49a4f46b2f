// Forms that are shown without waiting for them.
#include <gtest/gtest.h>
#include <vector>

#include "tests/support/headless/ProgramTest.h"
#include "window/ModelessForms.h"

namespace pixorra {
namespace {

struct NoticeForm {
  explicit NoticeForm(Toolkit& toolkit) : Window(toolkit, "NoticeForm") {}
  Form Window;
};

struct ProgressForm {
  ProgressForm(Toolkit& toolkit, int most) : Window(toolkit, "ProgressForm"), Most(most) {}
  Form Window;
  int Most;
};

class ModelessFormsTest : public ProgramTest {
 protected:
  ProgramRun& run = Started();
  MainForm& main = run.main;
  Toolkit& toolkit = run.platform.toolkit;
};

TEST_F(ModelessFormsTest, AFormIsMadeWhenItIsFirstWantedAndIsTheSameFromThenOn) {
  EXPECT_EQ(main.modeless.Find<NoticeForm>(), nullptr);
  auto& notice = main.modeless.Get<NoticeForm>(toolkit);
  EXPECT_EQ(&main.modeless.Get<NoticeForm>(toolkit), &notice);
  EXPECT_EQ(main.modeless.Find<NoticeForm>(), &notice);
}

TEST_F(ModelessFormsTest, FormsOfSeveralTypesAreHeldBesideEachOther) {
  auto& notice = main.modeless.Get<NoticeForm>(toolkit);
  auto& progress = main.modeless.Get<ProgressForm>(toolkit, 12);
  EXPECT_EQ(progress.Most, 12);
  EXPECT_EQ(main.modeless.Find<NoticeForm>(), &notice);
  EXPECT_EQ(main.modeless.Find<ProgressForm>(), &progress);
}

TEST_F(ModelessFormsTest, WhoShowsOneDoesNotWaitAndItStaysUpUntilTheMainWindowIsClosed) {
  auto& notice = main.modeless.Get<NoticeForm>(toolkit);
  notice.Window.ShowOwned(&main.Window);
  run.Wait(1);
  EXPECT_TRUE(notice.Window.Visible());
  EXPECT_TRUE(toolkit.TakesInput(main.Window));
  run.Close();
  EXPECT_FALSE(notice.Window.Visible());
  EXPECT_FALSE(notice.Window.IsLoaded());
}

TEST_F(ModelessFormsTest, TheLastOneMadeGoesFirst) {
  std::vector<std::string> gone;
  for (Form* window :
       {&main.modeless.Get<NoticeForm>(toolkit).Window, &main.modeless.Get<ProgressForm>(toolkit, 1).Window}) {
    window->On().Unload = [&gone](Control& form) { gone.push_back(form.Name()); };
    window->ShowOwned(&main.Window);
  }
  run.Close();
  EXPECT_EQ(gone, (std::vector<std::string>{"ProgressForm", "NoticeForm"}));
}

}  // namespace
}  // namespace pixorra
