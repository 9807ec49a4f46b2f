// The desktop session of this process: its bus, its X server and its settings. Apart from the other back ends, as only
// the slide show needs it and brings the libraries for it.
#pragma once

#include <memory>
#include <string>

#include "platform/services/Session.h"

namespace pixorra {

struct Environment;

class DesktopSession final : public Session {
 public:
  explicit DesktopSession(const Environment& environment);

  // Asks at the bus, by the interface that screen savers share or by the portal, and at the X server; each forgets the
  // wish when this process ends, however that is. A thread does it: a service may have to be started first.
  std::unique_ptr<Awake> KeepAwake(const std::string& why) override;
  bool WantsLessMotion() override;

 private:
  std::string kdeSettings_;
};

}  // namespace pixorra
