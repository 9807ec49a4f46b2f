#include "delete/DeleteConfirmation.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Dialog.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/AtExit.h"
#include "platform/services/TextDrawing.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

// Pixels.
constexpr int Margin = 16;
// Of the texts: a long path makes the form wider, up to a bound.
constexpr int TextWidth = 300;
constexpr int MostTextWidth = 540;
constexpr int QuestionHeight = 72;
constexpr int SubjectHeight = 20;
constexpr int ButtonHeight = 28;
constexpr int DeleteWidth = 140;
constexpr int CancelWidth = 96;
constexpr int ButtonGap = 12;

}  // namespace

DeleteConfirmation::DeleteConfirmation(MainForm& main, const Texts& texts, const Shown& shown)
    : main_(main), window_(main.host.toolkit, texts.Form), subject_(window_, texts.Subject) {
  window_.SetCaption(texts.Caption);
  picture_.SetStretch(true);
  picture_.SetPicture(shown.Image);
  picture_.SetAccessibleName(texts.Picture);
  question_.SetCaption(texts.Question);
  subject_.SetFont({"", 9, true});
  subject_.SetCaption(shown.Subject);
  subject_.SetToolTipText(shown.Subject);
  subject_.SetShortensInMiddle(true);
  delete_.SetCaption(texts.Button);
  PlaceControls(shown);
}

void DeleteConfirmation::PlaceControls(const Shown& shown) {
  const int left = 2 * Margin + shown.Width;
  const int height = std::max(shown.Height, QuestionHeight + SubjectHeight);
  const double needed = main_.host.toolkit.Text().Measure(subject_.GetFont(), subject_.Caption()).Width;
  const int textWidth = static_cast<int>(std::clamp<double>(std::ceil(needed) + 2, TextWidth, MostTextWidth));
  picture_.Move(Margin, Margin, shown.Width, shown.Height);
  question_.SetWordWrap(true);
  question_.Move(left, Margin, textWidth, QuestionHeight);
  subject_.Move(left, Margin + height - SubjectHeight, textWidth, SubjectHeight);
  const int width = left + textWidth + Margin;
  const int top = 2 * Margin + height;
  cancel_.SetCaption("&Cancel");
  cancel_.Move(width - Margin - CancelWidth, top, CancelWidth, ButtonHeight);
  delete_.Move(cancel_.Left() - ButtonGap - DeleteWidth, top, DeleteWidth, ButtonHeight);
  // What cannot be undone does not happen by a Return key that was meant for something else.
  cancel_.SetCancel(true);
  cancel_.SetDefault(true);
  cancel_.SetFocus();
  window_.SetClientSize(width, top + ButtonHeight + Margin);
}

void DeleteConfirmation::Show(DeleteRun& run, const std::function<void()>& deletes) {
  bool running = false;
  Connect(delete_.On().Click, [&](Control&) {
    running = true;
    delete_.SetEnabled(false);
    window_.SetMousePointer(pointer::Hourglass);
    const AtExit done([this] { window_.Unload(); });
    // The list has the deleted photos until the strip is shown again: nothing is loaded from it before.
    const int guard = std::exchange(main_.strip.ThumbsTimerGuard, GuardHeld);
    const AtExit loads([this, guard] { main_.strip.ThumbsTimerGuard = guard; });
    deletes();
  });
  Connect(cancel_.On().Click, [&](Control&) {
    run.Stop();
    if (!running) window_.Unload();
  });
  Connect(window_.On().QueryUnload, [&](Control&) { run.Stop(); });
  ShowDialog(window_, main_.Window);
}

}  // namespace pixorra
