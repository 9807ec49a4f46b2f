// The headless back end held to the contract.
#include <algorithm>
#include <gtest/gtest.h>

#include "platform/codecs/CodecPictures.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/Lists.h"
#include "platform/controls/Menu.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/TreeView.h"
#include "platform/headless/HeadlessFolderReader.h"
#include "platform/headless/HeadlessFrames.h"
#include "platform/headless/HeadlessPlatform.h"
#include "tests/platform/contract/ContractPlatform.h"
#include "tests/platform/headless/PageImage.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

void LookAtList(const ItemList& list, Seen& seen) {
  seen.Value = list.ListIndex();
  seen.Count = list.ListCount();
}

TreeNode* NodeAt(TreeView& tree, const std::vector<std::string>& path) {
  TreeNode* node = &tree.Root();
  for (const std::string& text : path) {
    TreeNode* found = nullptr;
    for (const auto& child : node->Children()) {
      if (child->Text() == text) found = child.get();
    }
    if (found == nullptr) return nullptr;
    node = found;
  }
  return node;
}

int RowOf(const TreeView& tree, const TreeNode& wanted) {
  int row = 0;
  for (const TreeNode* node = tree.FirstShown(); node != nullptr; node = TreeView::NextShown(*node), ++row) {
    if (node == &wanted) return row;
  }
  return -1;
}

class HeadlessContract : public ContractPlatform {
 public:
  HeadlessContract() {
    host_.failures.OnFailure = [](const std::string& text) { ADD_FAILURE() << text; };
  }
  ~HeadlessContract() override { host_.Finish(); }

  Toolkit& GetToolkit() override { return host_.toolkit; }
  Dialogs& GetDialogs() override { return host_.dialogs; }
  Clipboard& GetClipboard() override { return host_.clipboard; }
  TextDrawing& GetText() override { return host_.backend.Text(); }
  Artwork& GetArtwork() override { return host_.artwork; }
  Printing& GetPrinting() override { return host_.printing; }
  Clock& GetClock() override { return host_.clock; }
  Posting& GetPosting() override { return host_.posting; }
  Shipped& GetShipped() override { return host_.shipped; }
  std::unique_ptr<FolderReader> MakeFolderReader(TemporaryDrive& drive) override {
    return std::make_unique<HeadlessFolderReader>(drive.DriveFiles(), host_.posting);
  }

  std::unique_ptr<PhotoFrames> MakeFrames(TemporaryDrive& drive) override {
    pictures_ = std::make_unique<CodecPictures>(drive.DriveFiles());
    return std::make_unique<HeadlessFrames>(drive.DriveFiles(), *pictures_, host_.posting);
  }

  void CopyElsewhere(const Picture& picture) override { host_.clipboard.CopyElsewhere(picture); }

  bool CatchPrint() override { return true; }
  std::vector<PrintedSheet> Printed() override {
    std::vector<PrintedSheet> sheets;
    if (host_.printing.Documents().empty()) return sheets;
    const HeadlessPrinter& printer = host_.printing.Printers.front();
    for (const PrintedPage& page : host_.printing.Documents().back().Pages) {
      sheets.push_back({page.Orientation == 2, PageImage(printer, page)});
    }
    return sheets;
  }

  void PrintIntoFiles() override { host_.printing.Printers.front().AsksForFile = true; }
  void AnswerPrintFile(const std::string& name) override { host_.printing.ExpectFileName(name); }
  std::vector<std::string> PrintedFiles() override {
    std::vector<std::string> names;
    for (const PrintedDocument& document : host_.printing.Documents()) names.push_back(document.FileName);
    return names;
  }

  void Settle() override { host_.toolkit.DoEvents(); }
  // There are no widgets: what would be seen is what the model says.
  Seen Look(Control& control) override {
    Seen seen;
    seen.Visible = control.IsShown();
    seen.Enabled = control.Enabled();
    seen.At = control.GetContainer() != nullptr ? control.FormRect() : Rect{0, 0, control.Width(), control.Height()};
    switch (control.GetKind()) {
      case Kind::Form:
        seen.Text = static_cast<Form&>(control).Caption();
        seen.Framed = !static_cast<Form&>(control).FullScreen();
        seen.OnTop = static_cast<Form&>(control).StaysOnTop() || static_cast<Form&>(control).FullScreen();
        seen.Visible = seen.Visible && host_.backend.WindowOf(static_cast<Form&>(control)) != nullptr;
        break;
      case Kind::CommandButton:
        seen.Text = static_cast<CommandButton&>(control).Caption();
        break;
      case Kind::CheckBox:
        seen.Value = static_cast<CheckBox&>(control).Value();
        break;
      case Kind::OptionButton:
        seen.Value = static_cast<OptionButton&>(control).Value() ? 1 : 0;
        break;
      case Kind::ScrollBar:
        seen.Value = static_cast<ScrollBar&>(control).Value();
        break;
      case Kind::ProgressBar:
        seen.Value = static_cast<ProgressBar&>(control).Value();
        break;
      case Kind::TextBox:
        seen.Text = static_cast<TextBox&>(control).Text();
        break;
      case Kind::ComboBox:
        seen.Text = static_cast<ComboBox&>(control).Text();
        LookAtList(static_cast<ItemList&>(control), seen);
        break;
      case Kind::ListBox:
        LookAtList(static_cast<ItemList&>(control), seen);
        break;
      default:
        break;
    }
    return seen;
  }

  bool IsAbove(Form& front, Form& other) override {
    const std::vector<Form*>& forms = host_.toolkit.Forms();
    return std::find(forms.begin(), forms.end(), &front) > std::find(forms.begin(), forms.end(), &other);
  }
  bool IsPointerHidden(Form& form) override { return host_.toolkit.PointerFor(form).Pointer == pointer::Hidden; }

  void Press(Form& form, int x, int y, int button, int shift) override {
    host_.person.PressAt(form, x, y, button, shift);
  }
  void Move(Form& form, int x, int y) override { host_.person.MoveTo(form, x, y); }
  void Release(Form&, int, int, int, int shift) override { host_.person.Release(shift); }
  void DoubleClick(Form& form, int x, int y) override { host_.person.DoubleClickAt(form, x, y); }
  void TurnWheel(Form& form, int x, int y, const WheelArgs& turn) override {
    host_.person.TurnWheelAt(form, x, y, turn);
  }
  void Click(Control& control) override {
    const Rect at = control.FormRect();
    host_.person.ClickAt(control.GetForm(), at.Left + at.Width / 2, at.Top + at.Height / 2);
  }
  void MoveBar(ScrollBar& bar, int value) override { host_.person.MoveBar(bar, value); }
  void DragBar(ScrollBar& bar, int value) override { host_.person.DragBar(bar, value); }
  void Choose(ItemList& list, int index) override { host_.person.Choose(list, index); }
  void ChooseNode(TreeView& tree, const NodePath& path) override { host_.person.Choose(tree, path); }
  void ClickOpener(TreeView& tree, const NodePath& path, bool open) override {
    if (open) {
      host_.person.Expand(tree, path);
    } else {
      host_.person.Collapse(tree, path);
    }
  }
  std::vector<std::string> LookAtTree(TreeView& tree) override {
    std::vector<std::string> lines;
    for (const TreeNode* node = tree.FirstShown(); node != nullptr; node = TreeView::NextShown(*node)) {
      std::string line;
      for (const TreeNode* above = node->Parent(); above->Parent() != nullptr; above = above->Parent()) line += "  ";
      line += !node->HasChildren() ? ". " : node->Expanded() ? "- " : "+ ";
      lines.push_back(line + node->Text() + (node == tree.Selected() ? " *" : ""));
    }
    return lines;
  }
  // As if the tree had been scrolled down from its top, only as far as was asked for.
  SeenNode LookAtNode(TreeView& tree, const NodePath& path) override {
    const TreeNode* node = NodeAt(tree, path);
    if (node == nullptr) return {};
    const int page = tree.Height() / TreeView::RowHeight;
    const int bottom = tree.Revealed() != nullptr ? std::max(page, RowOf(tree, *tree.Revealed()) + 1) : page;
    const int row = RowOf(tree, *node);
    SeenNode seen{row >= bottom - page && row < bottom, 0, node->Spoken()};
    if (!node->Icon().IsNothing()) {
      const Bitmap& pixels = node->Icon().Pixels();
      const std::uint8_t* at = pixels.Row(pixels.Height() / 2) + pixels.Width() / 2 * pixels.BytesPerPixel();
      seen.Icon = static_cast<Colour>(at[2] | at[1] << 8 | at[0] << 16);
    }
    return seen;
  }
  void Type(const std::string& text) override { host_.person.Type(text); }
  void Key(int keyCode, int shift) override { host_.person.Key(keyCode, shift); }
  void ChooseMenu(MenuItem& item) override { host_.person.ChooseMenu(item); }
  void CloseWindow(Form& form) override { form.UserClosed(); }
  void ResizeWindow(Form& form, int clientWidth, int clientHeight) override {
    host_.person.Resize(form, clientWidth, clientHeight);
  }

  void Meanwhile(std::function<bool()> when, std::function<void()> act) override {
    host_.person.During(std::move(when), std::move(act));
  }
  void AnswerBox(BoxAnswer answer, std::function<bool()> when) override {
    host_.person.ExpectBox("", "", answer, [this, ready = std::move(when)] {
      for (int i = 0; ready && !ready(); ++i) {
        ASSERT_LT(i, 1000) << "the box is never answered";
        host_.person.Wait(0.01);
      }
    });
  }
  void AnswerInput(const std::string& typed) override { host_.person.ExpectInput("", "", typed); }
  void AnswerPopup(MenuItem* item, std::function<void()> meanwhile) override {
    host_.script.Add(
        Script::Reaction{"pop-up menu", Script::Moment::Popup, {}, [this, item, act = std::move(meanwhile)] {
                           if (act) act();
                           const bool up = host_.backend.PopupUp() != nullptr;
                           if (item != nullptr && up) host_.person.ChooseFromPopup(*item);
                         }});
  }

 private:
  HeadlessPlatform host_;
  std::unique_ptr<CodecPictures> pictures_;
};

}  // namespace

std::unique_ptr<ContractPlatform> MakeContractPlatform() {
  return std::make_unique<HeadlessContract>();
}

}  // namespace pixorra
