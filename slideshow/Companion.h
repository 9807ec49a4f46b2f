// The show's window: runs a Show on the screen with the pointer, with the other screens black, and ends the program
// when its user touches anything.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls/FadeBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/controls/Timer.h"
#include "platform/controls/Toolkit.h"
#include "platform/services/Files.h"
#include "platform/services/FolderReader.h"
#include "platform/services/PhotoFrames.h"
#include "platform/services/Session.h"
#include "platform/services/Settings.h"
#include "slideshow/CommandLine.h"
#include "slideshow/PointerWatch.h"
#include "slideshow/Show.h"

namespace pixorra {

struct CompanionHost {
  Toolkit& toolkit;
  Files& files;
  FolderReader& folderReader;
  PhotoFrames& frames;
  Settings& settings;
  Session& session;
  // The place of the settings as a person reads it, to be named where they have no folder; empty where it need not be.
  std::string settingsPlace{};
};

class Companion {
  CompanionHost host_;  // ahead of the controls, which are made from it

 public:
  // For a show or a screen saver; the folder is one from the root on, of either spelling.
  Companion(const CompanionHost& host, const Request& request);

  // Shows the window and begins. The program ends when the window does.
  void Start();

  Form Window;
  FadeBox Photo{Window, "Photo"};
  Label TitleLabel{Window, "TitleLabel"};
  Label CounterLabel{Window, "CounterLabel"};
  // In place of photos: what is missing, of which folder, and what to do about it.
  Label NoticeLabel{Window, "NoticeLabel"};
  Label FolderLabel{Window, "FolderLabel"};
  Label AdviceLabel{Window, "AdviceLabel"};
  Timer Clock{Window, "Clock", 1000};

 private:
  void ConnectInput(Form& window, int screen);
  void DressLabels();
  void TakeSavedFolder();
  void CoverOtherScreens();
  void UncoverGoneScreens();
  void Arrange();
  void ArrangeNotice();
  double NoticeHeightFor(const Font& font);
  void Follow();
  void ReadFolder();
  void MakeFrame(const Show::FrameWish& wish);
  void Paint();
  std::string TitleOf(const Slide& slide);
  bool WaitsForFolder();
  void SayWhatIsMissing();
  void Say(const std::string& notice, const std::string& folder, const std::string& advice);
  void SetClock();
  PixelSize OwnPixels();
  double Now() { return host_.toolkit.Seconds(); }
  void End();

  Request request_;
  std::string folder_;  // the program's path; empty where none is known
  std::string
      shownFolder_;  // as it is called for as long as it is there: a card that is pulled out leaves a letter alone
  double began_ = 0;
  std::optional<Show> show_;
  PixelSize screen_;  // what frames are made for
  std::optional<PointerWatch> pointer_;
  std::vector<std::unique_ptr<Form>> covers_;
  std::unique_ptr<FolderReader::Reading> reading_;
  std::unique_ptr<PhotoFrames::Making> making_;
  std::unique_ptr<Session::Awake> awake_;
};

}  // namespace pixorra
