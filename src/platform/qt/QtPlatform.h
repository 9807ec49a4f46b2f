// All that the toolkit below offers, in one object: the back end of the controls and the services beside it. No header
// of that toolkit is needed to use it.
#pragma once

#include <memory>

#include "platform/controls/Backend.h"
#include "platform/services/Clipboard.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Pictures.h"

namespace pixorra {

class Toolkit;

class QtPlatform {
 public:
  // Connects to the desktop; one may stand at a time. `argc` and `argv` stay in use.
  QtPlatform(int& argc, char** argv);
  ~QtPlatform();
  QtPlatform(const QtPlatform&) = delete;
  QtPlatform& operator=(const QtPlatform&) = delete;

  // The toolkit is made from the back end, and attached before the first form is made.
  Backend& GetBackend();
  void Attach(Toolkit& toolkit);
  // Handles events until the program ends. An error that no handler wanted is shown in a box, and the program goes on.
  void Run();

  Dialogs& GetDialogs();
  Clipboard& GetClipboard();
  Artwork& GetArtwork();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace pixorra
