// A person in front of the program: presses, moves, types, picks from menus, handles windows, and answers what comes up
// while the program has the turn. Acts through the toolkit's raw input alone. What a hand could not do (a control that
// is hidden, covered or blocked by a modal window) is reported as a failure and not done.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"
#include "platform/headless/HeadlessDialogs.h"

namespace pixorra {

class ComboBox;
class ItemList;
class MenuItem;
class ScrollBar;
class TextBox;
class TreeNode;
class TreeView;

class Person {
 public:
  using Action = std::function<void()>;
  using FormAction = std::function<void(Person&, Form&)>;

  Person(Toolkit& toolkit, HeadlessBackend& backend, HeadlessDialogs& dialogs, Script& script, Failures& failures);

  // --- mouse; pixels of a form's client area ----------------------------------------------------------------------
  void PressAt(Form& form, int x, int y, int button = button::Left, int shift = 0);
  void MoveTo(Form& form, int x, int y, int shift = 0);
  // Lets go of the button that is held, where the mouse is.
  void Release(int shift = 0);
  void ClickAt(Form& form, int x, int y, int button = button::Left, int shift = 0);
  void DoubleClickAt(Form& form, int x, int y);
  // The mouse wheel, or a stroke on a touch pad, over what is there; on a widget that acts on it by itself nothing
  // happens.
  void TurnWheelAt(Form& form, int x, int y, const WheelArgs& turn);
  void TurnWheel(Control& control, const WheelArgs& turn);
  // Off the form, to no other one.
  void LeaveForm();
  // On a control, at a point where nothing covers it: its middle if it can be had.
  void Press(Control& control, int button = button::Left, int shift = 0);
  void MoveTo(Control& control, int shift = 0);
  void Click(Control& control, int shift = 0);
  void RightClick(Control& control);
  void DoubleClick(Control& control);
  // Press, several moves on the way, release.
  void Drag(Control& source, Control& target);
  void DragTo(Control& source, Form& form, int x, int y);
  std::string ToolTip(Control& control);

  // --- controls with a widget of their own ------------------------------------------------------------------------
  // By the arrows or the shaft; Change comes at once.
  void MoveBar(ScrollBar& bar, int value);
  // By the thumb: Scroll while it is held, Change when it is let go.
  void DragBar(ScrollBar& bar, int value);
  void Choose(ItemList& list, int index);
  void Choose(ItemList& list, const std::string& text);
  // Nodes of a tree are told by the texts on the way to them, from the top; the nodes on the way are opened.
  void Choose(TreeView& tree, const std::vector<std::string>& path);
  void Expand(TreeView& tree, const std::vector<std::string>& path);
  void Collapse(TreeView& tree, const std::vector<std::string>& path);
  // Replaces the whole text of a box, character by character.
  void Fill(TextBox& box, const std::string& text);
  void Fill(ComboBox& box, const std::string& text);
  void Focus(Control& control);

  // --- keyboard; goes to the active form --------------------------------------------------------------------------
  void Type(const std::string& text);
  void Key(int keyCode, int shift = 0);
  // The same once more, as a keyboard does it for a key that is held down.
  void RepeatKey(int keyCode, int shift = 0);

  // --- menus ------------------------------------------------------------------------------------------------------
  // Opens the menus above the item in their order, so that their Click handlers run first, then chooses it; `meanwhile`
  // runs while they are open.
  void ChooseMenu(MenuItem& item, const Action& meanwhile = {});
  // While a pop-up menu is up, in a reaction to it.
  void ChooseFromPopup(MenuItem& item);

  // --- windows ----------------------------------------------------------------------------------------------------
  void Activate(Form& form);
  void Resize(Form& form, int clientWidth, int clientHeight);  // pixels
  void MoveWindow(Form& form, double twipsLeft, double twipsTop);
  void Maximise(Form& form);
  void Minimise(Form& form);
  void Restore(Form& form);
  void Close(Form& form);
  // The visible form of that name, the one in front first; null where there is none.
  Form* Window(const std::string& name) const;

  // --- time -------------------------------------------------------------------------------------------------------
  void Wait(double seconds);

  // --- what to do when something comes up; each is used once, the first that fits ------------------------------------
  void ExpectBox(const std::string& title, const std::string& text, BoxAnswer answer = BoxAnswer::Ok,
                 Action meanwhile = {});
  void ExpectInput(const std::string& title, const std::string& prompt, const std::string& typed);
  // When a form of that name is up and takes input while the program waits.
  void ExpectForm(const std::string& name, FormAction action);
  // Runs the next time that the program lets events run, or when `when` holds then.
  void During(Action action);
  void During(std::function<bool()> when, Action action);
  // When that menu pops up; no item: it is closed.
  void ExpectMenu(MenuItem& menu, MenuItem* item);
  void ExpectMenu(MenuItem& menu, Action action);

 private:
  struct Place {
    int X = 0;
    int Y = 0;
  };
  void Act(const Action& act);
  void Fail(const std::string& text) { failures_.Report(text); }
  std::optional<Place> PointOn(Control& control);
  std::string WhyOutOfReach(Control& control);
  bool CanUse(Control& control);
  bool MustTakeInput(Form& form, const std::string& what);
  void SetState(Form& form, int state);
  void LetGoNative(Control& control);
  Form* FormForKeys(const std::string& what);
  bool Choosable(const MenuItem& item);
  TreeNode* WayTo(TreeView& tree, const std::vector<std::string>& path);
  void StrikeKey(int keyCode, int shift, KeyStroke stroke);
  void EditByKey(Control& control, int keyCode, int shift);

  Toolkit& toolkit_;
  HeadlessBackend& backend_;
  HeadlessDialogs& dialogs_;
  Script& script_;
  Failures& failures_;
  Watch<Form> mouseForm_;
  Watch<Control> held_;  // a control with a widget of its own that is pressed
  int x_ = 0;
  int y_ = 0;
  int button_ = 0;
};

}  // namespace pixorra
