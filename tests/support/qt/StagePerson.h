// The person of the headless stage, with hands on real widgets: presses, moves, types, picks from menus, handles
// windows, and answers what comes up while the program has the turn. Time is real.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls/Form.h"
#include "platform/headless/Script.h"
#include "platform/services/Dialogs.h"
#include "tests/platform/qt/hands/Hands.h"

namespace pixorra {

class ComboBox;
class QtBackend;
class TextBox;
class TreeView;

class StagePerson {
 public:
  using Action = std::function<void()>;
  using FormAction = std::function<void(StagePerson&, Form&)>;

  StagePerson(QtBackend& backend, Script& script, Failures& failures);
  ~StagePerson();
  StagePerson(const StagePerson&) = delete;
  StagePerson& operator=(const StagePerson&) = delete;

  void PressAt(Form& form, int x, int y, int button = button::Left, int shift = 0);
  void MoveTo(Form& form, int x, int y, int shift = 0);
  void Release(int shift = 0);
  void ClickAt(Form& form, int x, int y, int button = button::Left, int shift = 0);
  void DoubleClickAt(Form& form, int x, int y);
  void TurnWheelAt(Form& form, int x, int y, const WheelArgs& turn);
  void TurnWheel(Control& control, const WheelArgs& turn);
  void Press(Control& control, int button = button::Left, int shift = 0);
  void MoveTo(Control& control, int shift = 0);
  void Click(Control& control, int shift = 0);
  void RightClick(Control& control);
  void DoubleClick(Control& control);
  void Drag(Control& source, Control& target);
  void DragTo(Control& source, Form& form, int x, int y);
  std::string ToolTip(Control& control);

  void MoveBar(ScrollBar& bar, int value);
  void DragBar(ScrollBar& bar, int value);
  void Choose(ItemList& list, int index);
  void Choose(ItemList& list, const std::string& text);
  void Choose(TreeView& tree, const std::vector<std::string>& path);
  void Expand(TreeView& tree, const std::vector<std::string>& path);
  void Collapse(TreeView& tree, const std::vector<std::string>& path);
  void Fill(TextBox& box, const std::string& text);
  void Fill(ComboBox& box, const std::string& text);
  void Focus(Control& control);

  void Type(const std::string& text);
  void Key(int keyCode, int shift = 0);

  void ChooseMenu(MenuItem& item);
  void ChooseFromPopup(MenuItem& item);

  void Resize(Form& form, int clientWidth, int clientHeight);
  void Maximise(Form& form);
  void Minimise(Form& form);
  void Restore(Form& form);
  void Close(Form& form);
  Form* Window(const std::string& name) const;

  void Wait(double seconds);

  void ExpectBox(const std::string& title, const std::string& text, BoxAnswer answer = BoxAnswer::Ok,
                 Action meanwhile = {});
  void ExpectInput(const std::string& title, const std::string& prompt, const std::string& typed);
  void ExpectForm(const std::string& name, FormAction action);
  void During(Action action);
  void During(std::function<bool()> when, Action action);
  void ExpectMenu(MenuItem& menu, MenuItem* item);

 private:
  // What is put off is done before the next act, as it would be for a real hand.
  void Settle();
  std::optional<QPoint> PointOn(Control& control);
  bool CanReach(Control& control, const std::string& what);
  // Opens what is on the way; null, and a failure, where the node is not to be seen.
  QTreeWidgetItem* WayTo(TreeView& tree, const std::vector<std::string>& path);
  void FillWidget(Control& control, const std::string& text);
  void LookAround();
  void AnswerBoxes();

  QtBackend& backend_;
  Script& script_;
  Failures& failures_;
  Hands hands_;
  QObject context_;
  Watch<Form> mouseForm_;
  QPoint at_;
  int button_ = 0;
  QPointer<QWidget> answered_;  // the box of the host that has had its answer
};

// What tests that are written for either stage call it.
using Person = StagePerson;

}  // namespace pixorra
