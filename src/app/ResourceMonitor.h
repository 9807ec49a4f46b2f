// The watch over memory: thumbnails are not loaded while it runs low.
#pragma once

namespace pixorra {

struct MainForm;

// Sets ThumbsPaused. Warns when loading stops, and says nothing when it is resumed.
void SystemResourceStatusTimer_Timer(MainForm& main);

}  // namespace pixorra
