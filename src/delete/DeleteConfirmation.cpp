#include "delete/DeleteConfirmation.h"

#include <algorithm>

#include "base/Dialog.h"
#include "platform/runtime/AtExit.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

// Pixels.
constexpr int Margin = 16;
constexpr int TextWidth = 300;
constexpr int QuestionHeight = 72;
constexpr int SubjectHeight = 20;
constexpr int ButtonHeight = 28;
constexpr int DeleteWidth = 140;
constexpr int CancelWidth = 96;
constexpr int ButtonGap = 12;

}  // namespace

DeleteConfirmation::DeleteConfirmation(MainForm& main, const Texts& texts, const Picture& picture, int width,
                                       int height)
    : main_(main), window_(main.host.toolkit, texts.Form), subject_(window_, texts.Subject) {
  window_.SetCaption(texts.Caption);
  picture_.SetStretch(true);
  picture_.SetPicture(picture);
  question_.SetCaption(texts.Question);
  delete_.SetCaption(texts.Button);
  PlaceControls(width, height);
}

void DeleteConfirmation::PlaceControls(int pictureWidth, int pictureHeight) {
  const int left = 2 * Margin + pictureWidth;
  const int height = std::max(pictureHeight, QuestionHeight + SubjectHeight);
  picture_.Move(Margin, Margin, pictureWidth, pictureHeight);
  question_.SetWordWrap(true);
  question_.Move(left, Margin, TextWidth, QuestionHeight);
  subject_.SetFont({"", 9, true});
  subject_.SetShortensInMiddle(true);
  subject_.Move(left, Margin + height - SubjectHeight, TextWidth, SubjectHeight);
  const int width = left + TextWidth + Margin;
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

void DeleteConfirmation::Describe(const std::string& subject) {
  subject_.SetCaption(subject);
  subject_.SetToolTipText(subject);
}

void DeleteConfirmation::Show(DeleteRun& run, const std::function<void()>& deletes) {
  bool running = false;
  Connect(delete_.On().Click, [&](Control&) {
    running = true;
    delete_.SetEnabled(false);
    window_.SetMousePointer(pointer::Hourglass);
    const AtExit done([this] { window_.Unload(); });
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
