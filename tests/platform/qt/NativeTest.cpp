// Native controls as widgets: what a person does goes into the model, the model's own changes do not come back, and a
// peer may go in an event of its own.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <memory>

#include "platform/controls/Buttons.h"
#include "platform/controls/Lists.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/TextBox.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class NativeTest : public QtTest {
 protected:
  NativeTest() { form.SetClientSize(400, 300); }
  void ShowForm() {
    form.Show();
    Settle();
    WindowOf(form).activateWindow();
    Settle();
  }
  Form form{toolkit, "NativeForm"};
};

// --- place and visibility ----------------------------------------------------------------------------------------

TEST_F(NativeTest, AWidgetStandsWhereItsContainersPutIt) {
  PictureBox box(form, "Box");
  box.Move(50, 60, 100, 100);
  CommandButton button(box, "Button");
  button.Move(10, 20, 30, 25);
  ShowForm();
  EXPECT_EQ(WidgetOf<QPushButton>(button).geometry(), QRect(60, 80, 30, 25));
  box.Move(0, 0);
  EXPECT_EQ(WidgetOf<QPushButton>(button).geometry(), QRect(10, 20, 30, 25));
}

TEST_F(NativeTest, AControlThatIsMadeWhenItsFormIsOnShowHasAWidgetToo) {
  PictureBox box(form, "Box");
  box.Move(50, 60, 100, 100);
  ShowForm();
  CommandButton button(box, "Button");
  button.Move(10, 20, 30, 25);
  auto gone = std::make_unique<TextBox>(form, "Gone");
  gone.reset();
  ScrollBar slider(form, "Slider", Orientation::Horizontal);
  slider.SetSlider(true);
  Settle();
  EXPECT_EQ(WidgetOf<QPushButton>(button).geometry(), QRect(60, 80, 30, 25));
  EXPECT_TRUE(WidgetOf<QPushButton>(button).isVisible());
  EXPECT_TRUE(WidgetOf<QSlider>(slider).isVisible());
}

TEST_F(NativeTest, AControlThatChangesItsSortHasTheWidgetForIt) {
  ScrollBar bar(form, "Bar", Orientation::Vertical);
  bar.Move(10, 10, 20, 100);
  bar.SetMax(10);
  TextBox text(form, "Text");
  text.SetText("one\r\ntwo");
  ComboBox combo(form, "Combo");
  ShowForm();
  text.SetFocus();
  bar.SetSlider(true);
  text.SetMultiLine(true);
  combo.SetEditable(true);
  Settle();
  EXPECT_EQ(WidgetOf<QSlider>(bar).geometry(), QRect(10, 10, 20, 100));
  EXPECT_EQ(WidgetOf<QSlider>(bar).maximum(), 10);
  EXPECT_EQ(WidgetOf<QPlainTextEdit>(text).toPlainText(), "one\ntwo");
  EXPECT_TRUE(text.HasFocus());
  EXPECT_TRUE(WidgetOf<QPlainTextEdit>(text).hasFocus());
  EXPECT_TRUE(WidgetOf<QComboBox>(combo).isEditable());
  WidgetOf<QSlider>(bar).setSliderPosition(4);
  EXPECT_EQ(bar.Value(), 4);
}

TEST_F(NativeTest, AWidgetIsSeenOnlyWhileItsContainersAre) {
  PictureBox box(form, "Box");
  CommandButton button(box, "Button");
  ShowForm();
  EXPECT_TRUE(WidgetOf<QPushButton>(button).isVisible());
  box.SetVisible(false);
  EXPECT_FALSE(WidgetOf<QPushButton>(button).isVisible());
  box.SetVisible(true);
  button.SetEnabled(false);
  EXPECT_TRUE(WidgetOf<QPushButton>(button).isVisible());
  EXPECT_FALSE(WidgetOf<QPushButton>(button).isEnabled());
}

TEST_F(NativeTest, AButtonThatBecomesTheDefaultOneOrBoldWhileItIsShownLooksSo) {
  CommandButton button(form, "Button");
  TextBox box(form, "Box");
  ShowForm();
  button.SetDefault(true);
  button.SetBold(true);
  box.SetLocked(true);
  Settle();
  EXPECT_TRUE(WidgetOf<QPushButton>(button).isDefault());
  EXPECT_TRUE(WidgetOf<QPushButton>(button).font().bold());
  EXPECT_TRUE(WidgetOf<QLineEdit>(box).isReadOnly());
}

TEST_F(NativeTest, HidingTheFocusedControlGivesTheFocusToNoOther) {
  TextBox first(form, "First");
  TextBox second(form, "Second");
  second.Move(0, 50);
  ShowForm();
  first.SetFocus();
  EXPECT_TRUE(WidgetOf<QLineEdit>(first).hasFocus());
  int focused = 0;
  second.On().GotFocus = [&](Control&) { ++focused; };
  first.SetVisible(false);
  Settle();
  EXPECT_EQ(focused, 0);
  EXPECT_EQ(toolkit.Focus(), nullptr);
}

// --- buttons -----------------------------------------------------------------------------------------------------

TEST_F(NativeTest, APushButtonClicksOnce) {
  CommandButton button(form, "Button");
  button.SetCaption("&Go");
  int clicks = 0;
  button.On().Click = [&](Control&) { ++clicks; };
  ShowForm();
  EXPECT_EQ(WidgetOf<QPushButton>(button).text(), "&Go");
  WidgetOf<QPushButton>(button).click();
  EXPECT_EQ(clicks, 1);
}

TEST_F(NativeTest, APeerMayGoInItsOwnClick) {
  auto button = std::make_unique<CommandButton>(form, "Button");
  button->On().Click = [&](Control&) { button.reset(); };
  ShowForm();
  WidgetOf<QPushButton>(*button).click();
  EXPECT_EQ(button, nullptr);
  Settle();
}

TEST_F(NativeTest, AFormMayUnloadInAClickAndComeBack) {
  CommandButton button(form, "Button");
  button.On().Click = [&](Control&) {
    form.Unload();
    form.Show();
  };
  ShowForm();
  WidgetOf<QPushButton>(button).click();
  Settle();
  EXPECT_TRUE(WindowOf(form).isVisible());
  EXPECT_NE(button.GetPeer(), nullptr);
}

TEST_F(NativeTest, ACheckBoxFollowsTheModelEvenWhereThatRefuses) {
  CheckBox box(form, "Box");
  int clicks = 0;
  box.On().Click = [&](Control&) { ++clicks; };
  ShowForm();
  WidgetOf<QCheckBox>(box).click();
  EXPECT_EQ(box.Value(), 1);
  EXPECT_EQ(clicks, 1);
  box.SetValue(0);
  Settle();
  EXPECT_FALSE(WidgetOf<QCheckBox>(box).isChecked());
  EXPECT_EQ(clicks, 2);
  // Set back, it is clicked once more.
  box.On().Click = [&](Control&) {
    ++clicks;
    box.SetValue(0);
  };
  WidgetOf<QCheckBox>(box).click();
  QCoreApplication::processEvents();  // in the order in which they were posted
  EXPECT_FALSE(WidgetOf<QCheckBox>(box).isChecked());
  EXPECT_EQ(clicks, 4);
}

TEST_F(NativeTest, AnOptionThatIsRefusedIsClickedOnce) {
  OptionButton one(form, "One");
  OptionButton two(form, "Two");
  two.Move(0, 40);
  one.SetValue(true);
  int clicks = 0;
  two.On().Click = [&](Control&) {
    ++clicks;
    one.SetValue(true);
  };
  ShowForm();
  WidgetOf<QRadioButton>(two).click();
  QCoreApplication::processEvents();
  EXPECT_TRUE(WidgetOf<QRadioButton>(one).isChecked());
  EXPECT_FALSE(WidgetOf<QRadioButton>(two).isChecked());
  EXPECT_EQ(clicks, 1);
}

TEST_F(NativeTest, OfOptionButtonsInOneContainerOneIsSet) {
  OptionButton one(form, "One");
  OptionButton two(form, "Two");
  two.Move(0, 40);
  ShowForm();
  WidgetOf<QRadioButton>(one).click();
  WidgetOf<QRadioButton>(two).click();
  Settle();
  EXPECT_FALSE(WidgetOf<QRadioButton>(one).isChecked());
  EXPECT_TRUE(WidgetOf<QRadioButton>(two).isChecked());
  WidgetOf<QRadioButton>(two).click();
  Settle();
  EXPECT_TRUE(WidgetOf<QRadioButton>(two).isChecked());
}

TEST_F(NativeTest, ArrowKeysWalkThroughAGroupOfOptions) {
  OptionButton one(form, "One");
  OptionButton two(form, "Two");
  two.Move(0, 40);
  one.SetValue(true);
  ShowForm();
  one.SetFocus();
  Key(WidgetOf<QRadioButton>(one), Qt::Key_Down);
  EXPECT_TRUE(two.Value());
  EXPECT_TRUE(two.HasFocus());
  Key(WidgetOf<QRadioButton>(two), Qt::Key_Down);
  EXPECT_TRUE(one.Value());
}

// --- bars --------------------------------------------------------------------------------------------------------

class BarTest : public NativeTest {
 protected:
  BarTest() {
    bar.SetMax(100);
    bar.SetLargeChange(10);
    bar.On().Change = [this](Control&) { events.push_back("change " + std::to_string(bar.Value())); };
    bar.On().Scroll = [this](Control&) { events.push_back("scroll " + std::to_string(bar.Value())); };
  }
  std::vector<std::string> Taken() { return std::exchange(events, {}); }
  ScrollBar bar{form, "Bar", Orientation::Horizontal};
  std::vector<std::string> events;
};

TEST_F(BarTest, CodesOwnChangesDoNotComeBack) {
  ShowForm();
  bar.SetValue(40);
  EXPECT_EQ(Taken(), std::vector<std::string>{"change 40"});
  Settle();
  EXPECT_EQ(WidgetOf<QScrollBar>(bar).value(), 40);
  EXPECT_EQ(Taken(), std::vector<std::string>{});
  bar.SetMax(20);
  EXPECT_EQ(Taken(), std::vector<std::string>{"change 20"});
  Settle();
  EXPECT_EQ(WidgetOf<QScrollBar>(bar).maximum(), 20);
  EXPECT_EQ(WidgetOf<QScrollBar>(bar).value(), 20);
  EXPECT_EQ(Taken(), std::vector<std::string>{});
}

TEST_F(BarTest, ArrowsAndPagesChangeAtOnce) {
  ShowForm();
  WidgetOf<QScrollBar>(bar).triggerAction(QAbstractSlider::SliderSingleStepAdd);
  WidgetOf<QScrollBar>(bar).triggerAction(QAbstractSlider::SliderPageStepAdd);
  EXPECT_EQ(Taken(), (std::vector<std::string>{"change 1", "change 11"}));
  Settle();
  EXPECT_EQ(WidgetOf<QScrollBar>(bar).value(), 11);
}

TEST_F(BarTest, TheThumbScrollsWhileItIsHeldAndChangesWhenItIsLetGo) {
  ShowForm();
  auto& widget = WidgetOf<QScrollBar>(bar);
  widget.setSliderDown(true);
  widget.setSliderPosition(30);
  widget.setSliderPosition(35);
  EXPECT_EQ(Taken(), (std::vector<std::string>{"scroll 30", "scroll 35"}));
  widget.setSliderDown(false);
  EXPECT_EQ(Taken(), std::vector<std::string>{"change 35"});
}

TEST_F(BarTest, ARangeThatRunsDownIsTurnedRound) {
  bar.SetMin(100);
  bar.SetMax(0);
  events.clear();
  ShowForm();
  bar.SetValue(90);
  Settle();
  EXPECT_EQ(WidgetOf<QScrollBar>(bar).value(), 10);
  WidgetOf<QScrollBar>(bar).triggerAction(QAbstractSlider::SliderSingleStepAdd);
  EXPECT_EQ(bar.Value(), 89);
}

TEST_F(BarTest, AHandlerMaySetAnotherValue) {
  ShowForm();
  bar.On().Change = [this](Control&) {
    if (bar.Value() == 1) bar.SetValue(50);
  };
  WidgetOf<QScrollBar>(bar).triggerAction(QAbstractSlider::SliderSingleStepAdd);
  Settle();
  EXPECT_EQ(bar.Value(), 50);
  EXPECT_EQ(WidgetOf<QScrollBar>(bar).value(), 50);
}

TEST_F(BarTest, AFormMayUnloadWhileItsBarIsScrolled) {
  bar.On().Scroll = [this](Control&) { form.Unload(); };
  ShowForm();
  auto& widget = WidgetOf<QScrollBar>(bar);
  widget.setSliderDown(true);
  widget.setSliderPosition(30);
  widget.setSliderDown(false);
  Settle();
  EXPECT_EQ(bar.GetPeer(), nullptr);
}

TEST_F(BarTest, ASliderIsAWidgetOfItsOwnKind) {
  bar.SetSlider(true);
  ShowForm();
  EXPECT_EQ(WidgetOf<QSlider>(bar).maximum(), 100);
}

TEST_F(NativeTest, AProgressBarFills) {
  ProgressBar progress(form, "Progress");
  progress.SetMax(50);
  ShowForm();
  progress.SetValue(20);
  Settle();
  EXPECT_EQ(WidgetOf<QProgressBar>(progress).maximum(), 50);
  EXPECT_EQ(WidgetOf<QProgressBar>(progress).value(), 20);
}

// --- lists -------------------------------------------------------------------------------------------------------

TEST_F(NativeTest, AListFollowsTheModelAndTellsAPersonsChoice) {
  ListBox list(form, "List");
  list.Move(0, 0, 100, 100);
  int clicks = 0;
  list.On().Click = [&](Control&) { ++clicks; };
  list.AddItem("b");
  list.AddItem("a", 0);
  list.AddItem("c");
  ShowForm();
  auto& widget = WidgetOf<QListWidget>(list);
  ASSERT_EQ(widget.count(), 3);
  EXPECT_EQ(widget.item(0)->text(), "a");
  widget.setCurrentRow(2);
  EXPECT_EQ(list.ListIndex(), 2);
  EXPECT_EQ(clicks, 1);
  list.RemoveItem(0);
  Settle();
  EXPECT_EQ(widget.count(), 2);
  EXPECT_EQ(widget.currentRow(), 1);
  EXPECT_EQ(clicks, 1);
  list.Clear();
  Settle();
  EXPECT_EQ(widget.count(), 0);
  EXPECT_EQ(clicks, 1);
}

TEST_F(NativeTest, AListMayBeEmptiedByTheChoiceOfAnEntry) {
  ListBox list(form, "List");
  list.AddItem("a");
  list.AddItem("b");
  list.On().Click = [&](Control&) { list.Clear(); };
  ShowForm();
  WidgetOf<QListWidget>(list).setCurrentRow(1);
  Settle();
  EXPECT_EQ(WidgetOf<QListWidget>(list).count(), 0);
}

TEST_F(NativeTest, ADropDownListShowsItsEntryOrATextOfItsOwn) {
  ComboBox combo(form, "Combo");
  combo.AddItem("one");
  combo.AddItem("two");
  ShowForm();
  auto& widget = WidgetOf<QComboBox>(combo);
  EXPECT_EQ(widget.currentIndex(), -1);
  widget.setCurrentIndex(1);
  Q_EMIT widget.activated(1);
  EXPECT_EQ(combo.ListIndex(), 1);
  combo.SetListIndex(0);
  Settle();
  EXPECT_EQ(widget.currentText(), "one");
}

TEST_F(NativeTest, AnEditableListTakesWhatIsTyped) {
  ComboBox combo(form, "Combo");
  combo.SetEditable(true);
  combo.AddItem("one");
  combo.SetText("start");
  int changes = 0;
  combo.On().Change = [&](Control&) { ++changes; };
  ShowForm();
  combo.SetFocus();
  auto& widget = WidgetOf<QComboBox>(combo);
  EXPECT_EQ(widget.currentText(), "start");
  widget.lineEdit()->end(false);
  Type(widget, "ed");
  EXPECT_EQ(combo.Text(), "started");
  EXPECT_EQ(changes, 2);
}

// --- trees -------------------------------------------------------------------------------------------------------

}  // namespace
}  // namespace pixorra
