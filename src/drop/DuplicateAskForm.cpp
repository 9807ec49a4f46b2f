#include "drop/DuplicateAskForm.h"

#include <cstdint>

#include "base/FileDateTime.h"
#include "base/Routines.h"
#include "base/ShownNames.h"
#include "pictures/Painting.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Format.h"
#include "platform/runtime/Numbers.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

// Replies of the buttons.
constexpr std::int16_t Waiting = 0;
constexpr std::int16_t DeleteOriginal = 1;
constexpr std::int16_t DeleteTheDuplicate = 2;
constexpr std::int16_t Ignore = -1;

constexpr int Margin = 12;
constexpr int PreviewWidth = 240;
constexpr int PreviewHeight = 180;
constexpr int SideWidth = 260;

struct DuplicateAskForm {
  explicit DuplicateAskForm(Toolkit& toolkit);
  void Reply(std::int16_t answer);

  std::int16_t reply = Waiting;
  Form Window;
  Label CaptionLabel;
  ImageBox PhotoPreview;
  Label PhotoSize;
  Frame OriginalFrame;
  Label PhotoName1;
  Label PhotoDate1;
  Frame DuplicateFrame;
  Label PhotoName2;
  Label PhotoDate2;
  CommandButton DeleteOriginalButton;
  CommandButton DeleteDuplicateButton;
  CommandButton IgnoreButton;
  CommandButton HelpButton;

 private:
  void PlaceSide(Frame& frame, const char* caption, int top, Label& name, Label& date);
  void PlaceButtons(int top, int width);
};

void DuplicateAskForm::PlaceSide(Frame& frame, const char* caption, int top, Label& name, Label& date) {
  frame.SetCaption(caption);
  frame.Move(2 * Margin + PreviewWidth, top, SideWidth, 74);
  name.Move(Margin, 24, SideWidth - 2 * Margin, 18);
  name.SetShortensInMiddle(true);
  name.SetFont({"", 9, true});
  date.Move(Margin, 46, SideWidth - 2 * Margin, 18);
}

void DuplicateAskForm::PlaceButtons(int top, int width) {
  // From the photo's edge to that of the frames.
  const int step = (width - Margin) / 4;
  int left = Margin;
  for (CommandButton* each : {&DeleteOriginalButton, &DeleteDuplicateButton, &IgnoreButton, &HelpButton}) {
    each->Move(left, top, step - Margin, 28);
    left += step;
  }
  DeleteOriginalButton.SetCaption("Delete &Original");
  DeleteDuplicateButton.SetCaption("Delete &Duplicate");
  IgnoreButton.SetCaption("&Ignore");
  IgnoreButton.SetCancel(true);
  HelpButton.SetCaption("&Help");
  HelpButton.SetEnabled(false);  // waits for its page
}

DuplicateAskForm::DuplicateAskForm(Toolkit& toolkit)
    : Window(toolkit, "DuplicateAskForm"),
      CaptionLabel(Window, "CaptionLabel"),
      PhotoPreview(Window, "PhotoPreview"),
      PhotoSize(Window, "PhotoSize"),
      OriginalFrame(Window, "OriginalFrame"),
      PhotoName1(OriginalFrame, "PhotoName1"),
      PhotoDate1(OriginalFrame, "PhotoDate1"),
      DuplicateFrame(Window, "DuplicateFrame"),
      PhotoName2(DuplicateFrame, "PhotoName2"),
      PhotoDate2(DuplicateFrame, "PhotoDate2"),
      DeleteOriginalButton(Window, "DeleteOriginalButton"),
      DeleteDuplicateButton(Window, "DeleteDuplicateButton"),
      IgnoreButton(Window, "IgnoreButton"),
      HelpButton(Window, "HelpButton") {
  const int width = 3 * Margin + PreviewWidth + SideWidth;
  CaptionLabel.SetCaption("Duplicate Photo Found");
  CaptionLabel.SetFont({"", 12, true});
  CaptionLabel.Move(Margin, Margin, width - 2 * Margin, 24);
  const int top = 2 * Margin + 24;
  PhotoPreview.SetStretch(true);
  PhotoPreview.SetAccessibleName("The photo");
  PhotoPreview.Move(Margin, top, PreviewWidth, PreviewHeight);
  PhotoSize.SetAlignment(Alignment::Center);
  PhotoSize.SetShortensInMiddle(true);
  PhotoSize.Move(Margin, top + PreviewHeight + 4, PreviewWidth, 18);
  PlaceSide(OriginalFrame, "Original", top, PhotoName1, PhotoDate1);
  PlaceSide(DuplicateFrame, "Duplicate", top + 74 + Margin, PhotoName2, PhotoDate2);
  const int buttons = top + PreviewHeight + 22 + Margin;
  PlaceButtons(buttons, width);
  Window.SetClientSize(width, buttons + 28 + Margin);
  Connect(DeleteOriginalButton.On().Click, [this](Control&) { Reply(DeleteOriginal); });
  Connect(DeleteDuplicateButton.On().Click, [this](Control&) { Reply(DeleteTheDuplicate); });
  Connect(IgnoreButton.On().Click, [this](Control&) { Reply(Ignore); });
  // Closing the window decides nothing: both files stay.
  Connect(Window.On().Unload, [this](Control&) {
    if (reply == Waiting) reply = Ignore;
  });
}

void DuplicateAskForm::Reply(std::int16_t answer) {
  reply = answer;
  Window.Hide();
}

std::string DateText(MainForm& main, const std::string& path) {
  const DateValue date = GetFileDate(main.host.files, path);
  return FormatDate(date, "d/mmm/yyyy") + " " + FormatDate(date, "hh:mmampm");
}

}  // namespace

std::string DeleteDuplicate(MainForm& main, const std::string& equalFile, const std::string& newFile) {
  Files& files = main.host.files;
  DuplicateAskForm form(main.host.toolkit);
  const PaintedImage painted = PaintImage(main, equalFile, form.PhotoPreview, ButtonFace);
  form.PhotoSize.SetCaption(painted.ok ? "W" + TrimmedStr(painted.width) + " x H" + TrimmedStr(painted.height)
                                       : ShownFileName(files, equalFile));
  form.PhotoName1.SetCaption(ShownFileName(files, equalFile));
  form.PhotoDate1.SetCaption(DateText(main, equalFile));
  form.PhotoName2.SetCaption(ShownFileName(files, newFile));
  form.PhotoDate2.SetCaption(DateText(main, newFile));
  const std::string parent = ParentPathOf(equalFile);
  form.Window.SetCaption("Duplicate Photo Found in [" +
                         ShownFolderName(files, IsRootPath(parent) ? parent : StripTrailingBackslash(parent)) + "]");
  form.Window.CentreOn(&main.Window);
  form.Window.ShowModal(&main.Window);
  main.host.toolkit.WaitUntil([&] { return form.reply != Waiting; });
  const std::int16_t reply = form.reply;
  form.Window.Unload();
  if (reply == DeleteOriginal) return equalFile;
  if (reply == DeleteTheDuplicate) return newFile;
  return {};
}

}  // namespace pixorra
