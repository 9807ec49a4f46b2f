// A session that dies while photos are deleted or renamed: whatever the point, nothing has gone that was not to go, no
// file has changed, and the next start finds its way.
#include <algorithm>
#include <cerrno>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/controls/TextBox.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"

namespace pixorra {
namespace {

const std::string StripFolder = "C:\\Strip";
const std::string FamilyFolder = "C:\\Home\\Family";
constexpr int SessionEnded = 0;
constexpr int SessionFailed = 3;

class DeleteKillTest : public ProgramTest {
 protected:
  // What a person does in a session that has been loaded.
  using Session = std::function<void(ProgramRun&)>;

  static std::string InStrip(const std::string& name) { return StripFolder + "\\" + name; }

  void LayOut() {
    drive.Remove("C:\\");
    drive.MakeFolder("C:\\");
    kept_.clear();
    Colour colour = 0x00102030;
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp", "d.bmp"})
      Keep(InStrip(name), BmpOf(PlainBitmap(80, 60, colour += 0x00101010)));
    Keep(FamilyFolder + "\\kept.bmp", BmpPhoto(80, 60));
    Keep(InStrip("notes.txt"), "kept");
    SavedState saved;
    saved.Window = "17500,11000,0,0,0";  // wide enough for the whole strip
    saved.Rename = 2;
    saved.Duplicates = 3;
    saved.FilmStrip = StripFolder;
    saved.Folders = {FamilyFolder};
    WriteSavedState(saved);
  }
  void Keep(const std::string& path, const std::string& bytes) {
    drive.Write(path, bytes);
    kept_[path] = bytes;
  }

  [[noreturn]] void SitThrough(const Session& session, int n) {
    ProgramRun& run = NewRun();
    run.platform.failures.OnFailure = [](const std::string& text) {
      static_cast<void>(!write(STDERR_FILENO, text.data(), text.size()));
      _exit(SessionFailed);
    };
    run.Start();
    run.LoadAll();
    run.person.Click(run.main.strip.AllOption);
    run.files.DieBeforeChange(n);
    session(run);
    _exit(SessionEnded);
  }
  // False when the session ran to its end before that point.
  bool Dies(const Session& session, int n) {
    const pid_t child = fork();
    if (child < 0) {
      ADD_FAILURE() << "no process: " << errno;
      return false;
    }
    if (child == 0) SitThrough(session, n);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status)) {
      EXPECT_EQ(WTERMSIG(status), SIGKILL);
      return WTERMSIG(status) == SIGKILL;
    }
    EXPECT_EQ(WEXITSTATUS(status), SessionEnded);
    return false;
  }

  // Everything that is not to go is there as it was, under its name or, for one photo, the other that it is given.
  void ExpectKept(const std::set<std::string>& toGo, const std::string& renamed) {
    for (const auto& [path, bytes] : kept_) {
      if (toGo.contains(path)) continue;
      const bool hasMoved = !renamed.empty() && path == InStrip("b.bmp") && !drive.Exists(path);
      const std::string now = hasMoved ? renamed : path;
      ASSERT_TRUE(drive.Exists(now)) << now;
      EXPECT_TRUE(drive.Read(now) == bytes) << now << " has changed";
    }
    EXPECT_FALSE(!renamed.empty() && drive.Exists(renamed) && drive.Exists(InStrip("b.bmp")));
  }
  void ExpectAStart() {
    ProgramRun& run = Started();
    run.LoadAll();
    std::vector<std::string> onDisk = drive.DriveFiles().Names(StripFolder, "*.bmp", 0);
    EXPECT_EQ(static_cast<std::size_t>(run.main.strip.SrcSlotCount), onDisk.size());
    for (int i = 1; i <= run.main.strip.SrcSlotCount; ++i)
      EXPECT_TRUE(drive.Exists(PhotoOf(run.main.strip, i))) << PhotoOf(run.main.strip, i);
    run.Close();
  }

  // Dies at each point, until a session runs to its end.
  void DieAtEachPoint(const Session& session, const std::set<std::string>& toGo, const std::string& renamed = {}) {
    int deaths = 0;
    for (int n = 1; !HasFatalFailure(); ++n) {
      SCOPED_TRACE("killed at " + std::to_string(n));
      EndRun();
      LayOut();
      const bool died = Dies(session, n);
      ExpectKept(toGo, renamed);
      ExpectAStart();
      ExpectKept(toGo, renamed);
      if (!died) break;
      ++deaths;
    }
    EXPECT_GE(deaths, 2);
    RecordProperty("deaths", deaths);
  }

  static void Answer(ProgramRun& run, const std::string& form, const std::string& button) {
    run.person.ExpectForm(form, [button](Person& hand, Form& shown) {
      for (Control* control : shown.Controls()) {
        if (control->Name() != button) continue;
        hand.Click(*control);
        return;
      }
    });
  }
  static void Choose(ProgramRun& run, const std::string& way, const std::string& form) {
    Answer(run, "DeletePhotosForm", way);
    Answer(run, form, "DeleteButton");
    run.person.Click(run.main.strip.DeleteButton);
  }

  std::map<std::string, std::string> kept_;
};

TEST_F(DeleteKillTest, InTheDeletionOfTheSelectedPhotoOnlyThatOneGoes) {
  DieAtEachPoint(
      [](ProgramRun& run) {
        run.person.Click(run.main.strip.SrcThumbnail(2));
        Choose(run, "DeleteSelectedButton", "DeleteSelectedForm");
      },
      {InStrip("b.bmp")});
}

TEST_F(DeleteKillTest, InTheDeletionOfTheDraggedPhotosOnlyThoseGoAndTheirCopiesStay) {
  DieAtEachPoint(
      [](ProgramRun& run) {
        for (const int slot : {1, 3}) run.person.DoubleClick(run.main.strip.SrcBackground(slot));
        Choose(run, "DeleteDraggedButton", "DeleteDraggedForm");
      },
      {InStrip("a.bmp"), InStrip("c.bmp")});
}

TEST_F(DeleteKillTest, InTheDeletionOfTheWholeStripOnlyItsPhotosGo) {
  DieAtEachPoint(
      [](ProgramRun& run) {
        run.person.ExpectBox("Photos have been Deleted", "still contains other files");
        Choose(run, "DeleteAllButton", "DeleteAllForm");
      },
      {InStrip("a.bmp"), InStrip("b.bmp"), InStrip("c.bmp"), InStrip("d.bmp")});
}

TEST_F(DeleteKillTest, InARenameThePhotoHasOneOfItsTwoNames) {
  DieAtEachPoint(
      [](ProgramRun& run) {
        run.person.DoubleClick(run.main.strip.SrcBackground(2));
        run.person.Click(run.main.strip.SrcThumbnail(2));
        run.person.ExpectForm("RenamePreviewPicForm", [](Person& hand, Form& form) {
          hand.Fill(static_cast<TextBox&>(*form.Controls().front()), "z");
          hand.Key(key::Return);
        });
        run.person.ChooseMenu(run.main.menu.RenameMenuItem);
      },
      {}, InStrip("z.bmp"));
}

}  // namespace
}  // namespace pixorra
