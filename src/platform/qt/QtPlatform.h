// All that the toolkit below offers, in one object: the control model's own toolkit on windows, and the services beside
// it. No header of the toolkit below is needed to use it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/controls/Toolkit.h"
#include "platform/services/Clipboard.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Pictures.h"
#include "platform/services/Posting.h"
#include "platform/services/Printing.h"
#include "platform/services/Shipped.h"
#include "platform/services/ThumbnailTwins.h"

namespace pixorra {

class QtPlatform {
 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;

 public:
  // Whether there is an X server to connect to; without one a platform that is to be on it ends the process.
  static bool HasXServer();

  // Connects to the desktop; one may stand at a time. `argc` and `argv` stay in use.
  QtPlatform(int& argc, char** argv);
  ~QtPlatform();
  QtPlatform(const QtPlatform&) = delete;
  QtPlatform& operator=(const QtPlatform&) = delete;

  Toolkit& toolkit;
  Artwork& artwork;
  Dialogs& dialogs;
  Printing& printing;
  Clipboard& clipboard;
  Shipped& shipped;
  Posting& posting;

  // Runs the start-up, then handles events until the program ends; gives the exit code. An error that no handler wanted
  // is shown in a box, and the program goes on; after a start-up that has shown no window it ends.
  int Run(const std::function<void()>& startUp);
  // Runs the function in the loop whenever the host's descriptor can be read, until the program's end is asked for; it
  // must then read it. A descriptor below 0 never can. An error is shown as in Run.
  void OnReadable(int descriptor, std::function<void()> function);
  // Called when the desktop saves its session, which begins with this program again the next time; a program that does
  // not ask for it is left out then. The session's end is Toolkit::AskToEnd, after that or without it.
  void OnSessionSaves(std::function<void()> function);
  // Shows the windows in front of those of other programs, as their user does by the task bar.
  void ComeToFront();
  // From here on another program's window on the X server is the only screen: forms that cover the screen lie in it,
  // are as large as it is, and take no input. The program ends when it goes. False where there is no such window.
  bool ShowInside(std::uint64_t window);
  // Thumbnails are shown by twins of theirs where a screen has the pixels for that. Null: no more. The twins must live
  // until then, or as long as the loop runs.
  void SharpenThumbnailsBy(ThumbnailTwins* twins);
  // Documents become a PDF file of the host.
  void PrintToFile(const std::string& hostPath);
};

}  // namespace pixorra
