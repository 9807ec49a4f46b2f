#include <cmath>

#include "app/BackgroundLoading.h"
#include "app/ResourceMonitor.h"
#include "app/Wiring.h"
#include "desktop/FolderRename.h"
#include "filmstrip/Listing.h"
#include "filmstrip/Marks.h"
#include "filmstrip/Scrolling.h"
#include "filmstrip/Views.h"
#include "window/CoreState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

// A picture button looks pressed from a left press until it is let go.
void ConnectPressedLook(MainForm& main, ImageBox& box) {
  Connect(box.On().MouseDown, EndingRename(main, [](Control& control, const MouseArgs& mouse) {
            if (mouse.Button == button::Left) static_cast<ImageBox&>(control).SetBorderStyle(1);
          }));
  Connect(box.On().MouseUp,
          [](Control& control, const MouseArgs&) { static_cast<ImageBox&>(control).SetBorderStyle(0); });
}

// A notch is one frame. A wheel that only turns up and down moves the strip too; a stroke that is not quite straight
// counts by its main direction.
void TurnStrip(MainForm& main, const WheelArgs& turn) {
  const auto along = [](double x, double y) { return std::abs(x) > std::abs(y) ? x : y; };
  ScrollStripBy(main, along(turn.NotchesX, turn.NotchesY) * SrcFrameWidth + along(turn.PixelsX, turn.PixelsY));
}

}  // namespace

void ConnectFilmStrip(MainForm& main) {
  FilmStripState& strip = main.strip;
  Connect(strip.SrcFileList.On().PathChange, [&main](Control&) { SrcFileList_PathChange(main); });
  Connect(strip.ThumbsTimer.On().Timer, [&main](Control&) { ThumbsTimer_Timer(main); });
  Connect(main.core.SystemResourceStatusTimer.On().Timer, [&main](Control&) { SystemResourceStatusTimer_Timer(main); });
  Connect(strip.AutoScrollTimer.On().Timer, [&main](Control&) { AutoScrollStep(main); });
  Connect(strip.SrcScrollbar.On().Change, [&main](Control&) { SrcScrollbar_Change(main); });
  Connect(strip.SrcScrollbar.On().Scroll, [&main](Control&) { SrcScrollbar_Scroll(main); });
  for (Control* control : {static_cast<Control*>(&strip.SrcThumbsWindow), static_cast<Control*>(&strip.SrcScrollbar)}) {
    Connect(control->On().MouseWheel, [&main](Control&, const WheelArgs& turn) { TurnStrip(main, turn); });
  }
  // The arrow keys are the selection's, not the bar's. The character that Esc makes is the window's.
  Connect(strip.SrcScrollbar.On().KeyDown, [](Control&, int& code, int) {
    if (code != key::Escape) code = 0;
  });
  Connect(strip.AllOption.On().Click, [&main](Control&) { AllOption_Click(main); });
  Connect(strip.RemainingOption.On().Click, [&main](Control&) { RemainingOption_Click(main); });
  Connect(strip.AutoScrollOption.On().Click, [&main](Control&) { AutoScrollOption_Click(main); });
  Connect(strip.SrcBackground.On().DblClick, [&main](Control& slot) { SrcBackground_DblClick(main, slot.Index()); });
  Connect(strip.SrcThumbName.On().DblClick, [&main](Control& slot) { SrcBackground_DblClick(main, slot.Index()); });
  Connect(strip.SrcBackground.On().MouseMove,
          [&main](Control& slot, const MouseArgs&) { SrcBackground_MouseMove(main, slot.Index()); });
  for (ImageBox* box : {&strip.CameraButton, &strip.BrowseButton, &strip.DeleteButton}) {
    ConnectPressedLook(main, *box);
  }
}

}  // namespace pixorra
