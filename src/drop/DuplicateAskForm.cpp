#include "drop/DuplicateAskForm.h"

#include "base/Dialog.h"
#include "base/FileDateTime.h"
#include "base/Routines.h"
#include "base/ShownNames.h"
#include "pictures/PaintPhoto.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Format.h"
#include "platform/runtime/Numbers.h"
#include "utility/HelpPages.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

// Which of the two files is to be deleted.
enum class ToDelete { None, Original, Duplicate };

constexpr int Margin = 12;
constexpr int PreviewWidth = 240;
constexpr int PreviewHeight = 180;
constexpr int SideWidth = 260;

struct DuplicateAskForm {
  explicit DuplicateAskForm(Toolkit& toolkit);

  Form Window;
  Label CaptionLabel{Window, "CaptionLabel"};
  ImageBox PhotoPreview{Window, "PhotoPreview"};
  Label PhotoSize{Window, "PhotoSize"};
  Frame OriginalFrame{Window, "OriginalFrame"};
  Label PhotoName1{OriginalFrame, "PhotoName1"};
  Label PhotoDate1{OriginalFrame, "PhotoDate1"};
  Frame DuplicateFrame{Window, "DuplicateFrame"};
  Label PhotoName2{DuplicateFrame, "PhotoName2"};
  Label PhotoDate2{DuplicateFrame, "PhotoDate2"};
  CommandButton DeleteOriginalButton{Window, "DeleteOriginalButton"};
  CommandButton DeleteDuplicateButton{Window, "DeleteDuplicateButton"};
  CommandButton IgnoreButton{Window, "IgnoreButton"};
  CommandButton HelpButton{Window, "HelpButton"};
  Dialog<ToDelete> Question{Window, ToDelete::None};  // closing the window decides nothing

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
}

DuplicateAskForm::DuplicateAskForm(Toolkit& toolkit) : Window(toolkit, "DuplicateAskForm") {
  const int width = 3 * Margin + PreviewWidth + SideWidth;
  CaptionLabel.SetCaption("Duplicate Photo Found");
  CaptionLabel.SetFont({"", 12, true});
  CaptionLabel.Move(Margin, Margin, width - 2 * Margin, 24);
  const int top = 2 * Margin + 24;
  PhotoPreview.SetStretch(true);
  PhotoPreview.SetShowsPhotoOfTag(true);
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
  Question.AnswerBy(DeleteOriginalButton, ToDelete::Original);
  Question.AnswerBy(DeleteDuplicateButton, ToDelete::Duplicate);
  Question.AnswerBy(IgnoreButton, ToDelete::None);
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
  form.PhotoPreview.SetTag(equalFile);
  form.PhotoSize.SetCaption(painted.ok ? "W" + TrimmedStr(painted.width) + " x H" + TrimmedStr(painted.height)
                                       : ShownFileName(files, equalFile));
  form.PhotoName1.SetCaption(ShownFileName(files, equalFile));
  form.PhotoDate1.SetCaption(DateText(main, equalFile));
  form.PhotoName2.SetCaption(ShownFileName(files, newFile));
  form.PhotoDate2.SetCaption(DateText(main, newFile));
  const std::string parent = ParentPathOf(equalFile);
  form.Window.SetCaption("Duplicate Photo Found in [" +
                         ShownFolderName(files, IsRootPath(parent) ? parent : StripTrailingBackslash(parent)) + "]");
  Connect(form.HelpButton.On().Click, [&main](Control&) { ShowHelp(main, HelpTopic::Duplicate); });
  switch (form.Question.Ask(main.Window)) {
    case ToDelete::Original:
      return equalFile;
    case ToDelete::Duplicate:
      return newFile;
    case ToDelete::None:
      break;
  }
  return {};
}

}  // namespace pixorra
