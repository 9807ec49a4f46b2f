// What a back end must offer to be held to the contract: its services, a person's hands, time, and a look at what it
// shows. Each test program that builds these tests defines MakeContractPlatform for its own back end.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls/Geometry.h"
#include "platform/pixels/Picture.h"
#include "platform/services/Clipboard.h"
#include "platform/services/Clock.h"
#include "platform/services/Dialogs.h"
#include "platform/services/FolderReader.h"
#include "platform/services/PhotoFrames.h"
#include "platform/services/Pictures.h"
#include "platform/services/Posting.h"
#include "platform/services/Printing.h"
#include "platform/services/Shipped.h"
#include "platform/services/TextDrawing.h"

namespace pixorra {

class Control;
class Form;
class ItemList;
class MenuItem;
class ScrollBar;
class Toolkit;
class TreeView;
struct WheelArgs;

// What a person sees of a form or a control with a widget of its own.
struct Seen {
  bool Visible = false;
  bool Enabled = false;
  Rect At;           // pixels of its form's client area; of a form, its client area from (0, 0)
  std::string Text;  // caption, title or text, as it was set
  int Value = 0;     // of a bar; 1 for a button that is set; the chosen entry of a list
  int Count = 0;     // entries of a list
  // Of a form.
  bool Framed = false;
  bool OnTop = false;  // of all windows
};

// A sheet that was printed.
struct PrintedSheet {
  bool Landscape = false;
  Bitmap Shown;  // the printable area, 20 twips to a pixel
};

// What a person sees and hears of a node of a tree.
struct SeenNode {
  bool InView = false;  // scrolled to
  Colour Icon = 0;      // at the picture's middle
  std::string Spoken;
};

class TemporaryDrive;

class ContractPlatform {
 public:
  virtual ~ContractPlatform() = default;

  virtual Toolkit& GetToolkit() = 0;
  virtual Dialogs& GetDialogs() = 0;
  virtual Clipboard& GetClipboard() = 0;
  virtual TextDrawing& GetText() = 0;
  virtual Artwork& GetArtwork() = 0;
  virtual Printing& GetPrinting() = 0;
  virtual Clock& GetClock() = 0;
  virtual Posting& GetPosting() = 0;
  virtual Shipped& GetShipped() = 0;
  // For the folders of that drive, which outlives it.
  virtual std::unique_ptr<FolderReader> MakeFolderReader(TemporaryDrive& drive) = 0;

  virtual std::unique_ptr<PhotoFrames> MakeFrames(TemporaryDrive& drive) = 0;

  // Another program puts a picture on the clipboard.
  virtual void CopyElsewhere(const Picture& picture) = 0;

  // From here on documents are kept. False where this host has no program to look at them with.
  virtual bool CatchPrint() = 0;
  // The last document that was ended.
  virtual std::vector<PrintedSheet> Printed() = 0;

  // From here on documents become files whose names are asked for.
  virtual void PrintIntoFiles() = 0;
  // The next time a document's file is asked for: this name in a folder of the test's, or cancel where it is empty.
  virtual void AnswerPrintFile(const std::string& name) = 0;
  // The names of the files that documents have become.
  virtual std::vector<std::string> PrintedFiles() = 0;

  // Handles everything that is pending, until windows stand as the model says.
  virtual void Settle() = 0;
  virtual Seen Look(Control& control) = 0;
  // What keeps one form in front of the other holds, whichever of them is active.
  virtual bool IsAbove(Form& front, Form& other) = 0;
  virtual bool IsPointerHidden(Form& form) = 0;

  // The mouse, by events at the back end's edge; pixels of the form's client area.
  virtual void Press(Form& form, int x, int y, int button, int shift) = 0;
  virtual void Move(Form& form, int x, int y) = 0;  // with the button held that was pressed, if one is
  virtual void Release(Form& form, int x, int y, int button, int shift) = 0;
  virtual void DoubleClick(Form& form, int x, int y) = 0;                       // the whole of it, both clicks
  virtual void TurnWheel(Form& form, int x, int y, const WheelArgs& turn) = 0;  // over what is there
  // At a control's middle, with the left button, press and release; widgets of their own included.
  virtual void Click(Control& control) = 0;
  virtual void MoveBar(ScrollBar& bar, int value) = 0;  // as by its arrows
  virtual void DragBar(ScrollBar& bar, int value) = 0;  // by its thumb, let go at the end
  virtual void Choose(ItemList& list, int index) = 0;
  // Trees; nodes are told by the texts on the way to them, and the nodes on the way are open.
  using NodePath = std::vector<std::string>;
  virtual void ChooseNode(TreeView& tree, const NodePath& path) = 0;
  virtual void ClickOpener(TreeView& tree, const NodePath& path, bool open) = 0;
  // A line for each node that is not hidden in a closed one, from the top: two blanks for each node above it, "+ " for
  // one that can be opened, "- " for an open one and ". " for any other, the text, and " *" for the selected one.
  virtual std::vector<std::string> LookAtTree(TreeView& tree) = 0;
  virtual SeenNode LookAtNode(TreeView& tree, const NodePath& path) = 0;
  // The keyboard, to the active window.
  virtual void Type(const std::string& text) = 0;
  virtual void Key(int keyCode, int shift) = 0;
  virtual void ChooseMenu(MenuItem& item) = 0;
  // The window's frame.
  virtual void CloseWindow(Form& form) = 0;
  virtual void ResizeWindow(Form& form, int clientWidth, int clientHeight) = 0;

  // Runs once, inside the next wait or loop of events in which `when` holds.
  virtual void Meanwhile(std::function<bool()> when, std::function<void()> act) = 0;
  // The next box of the host gets this answer as soon as `when` holds (nothing: at once).
  virtual void AnswerBox(BoxAnswer answer, std::function<bool()> when) = 0;
  virtual void AnswerInput(const std::string& typed) = 0;  // empty: it is cancelled
  // At the next pop-up menu, when `meanwhile` has run; no item: it is closed. Nothing is done with one that is not up
  // any more.
  virtual void AnswerPopup(MenuItem* item, std::function<void()> meanwhile) = 0;
};

std::unique_ptr<ContractPlatform> MakeContractPlatform();

}  // namespace pixorra
