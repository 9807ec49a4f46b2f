// What a form's controls and windows are to a screen reader, and what they do not offer.
#include <QAccessible>
#include <QComboBox>
#include <QListWidget>
#include <QScrollBar>
#include <QSlider>
#include <QStringList>

#include "platform/controls/Buttons.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/Lists.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/TextBox.h"
#include "platform/qt/Accessibility.h"
#include "platform/qt/BarAccessible.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class AccessibleRolesTest : public QtTest {
 protected:
  AccessibleRolesTest() {
    InstallAccessibility();
    form.SetClientSize(400, 300);
    label.SetCaption("The photo is old");
    label.Move(0, 0, 200, 20);
    image.SetAccessibleName("Photo");
    image.Move(0, 40, 80, 60);
    form.Show();
    Settle();
  }
  static QAccessibleInterface& Spoken(QWidget& widget) { return *QAccessible::queryAccessibleInterface(&widget); }
  QAccessibleInterface& Light(const QString& begin) {
    QAccessibleInterface& client = Spoken(ClientOf(form));
    for (int i = 0; i < client.childCount(); ++i)
      if (client.child(i)->text(QAccessible::Name).startsWith(begin)) return *client.child(i);
    throw std::runtime_error("nothing says " + begin.toStdString());
  }
  QAccessible::Role RoleOf(Form& window) {
    window.ShowOwned(&form);
    Settle();
    const QAccessible::Role role = Spoken(WindowOf(window)).role();
    window.Unload();
    Settle();
    return role;
  }

  Form form{toolkit, "ReadForm"};
  Label label{form, "Label"};
  ImageBox image{form, "Image"};
};

TEST_F(AccessibleRolesTest, WhatIsInAWindowIsAPane) {
  EXPECT_EQ(Spoken(ClientOf(form)).role(), QAccessible::Pane);
}

TEST_F(AccessibleRolesTest, TheBarOfAListIsTheListsOwn) {
  ListBox list(form, "List");
  list.Move(100, 100, 100, 60);
  for (int i = 0; i < 20; ++i) list.AddItem("a.jpg");
  Settle();
  QScrollBar& bar = *WidgetOf<QListWidget>(list).verticalScrollBar();
  EXPECT_EQ(dynamic_cast<BarAccessible*>(&Spoken(bar)), nullptr);
}

TEST_F(AccessibleRolesTest, TheElementsOfAnArrayFollowEachOtherWhereTheFirstOfThemIs) {
  ControlArray<Label> names(form, "Name");
  ControlArray<Label> counts(form, "Count");
  for (int i = 3; i >= 1; --i) {
    for (ControlArray<Label>* array : {&names, &counts}) {
      Label& made = array->Load(i);
      made.Move(200, 20 * i + (array == &names ? 0 : 100), 100, 20);
      made.SetCaption((array == &names ? "Name " : "Count ") + std::to_string(i));
      made.SetVisible(true);
    }
  }
  Settle();
  QStringList said;
  QAccessibleInterface& client = Spoken(ClientOf(form));
  for (int i = 0; i < client.childCount(); ++i) said.append(client.child(i)->text(QAccessible::Name));
  said.removeAll("The photo is old");
  said.removeAll("Photo");
  EXPECT_TRUE(said == QStringList({"Name 1", "Name 2", "Name 3", "Count 1", "Count 2", "Count 3"}) ||
              said == QStringList({"Count 1", "Count 2", "Count 3", "Name 1", "Name 2", "Name 3"}))
      << said.join(", ").toStdString();
}

TEST_F(AccessibleRolesTest, ATextThatIsPressedAsAllOfItsWindowIsIsThereToBeRead) {
  const auto click = [](Control&) {};
  const auto press = [](Control&, const MouseArgs&) {};
  struct OnEither {
    std::function<void(Events&)> Takes;
    const char* What;
  };
  for (const OnEither& one : {OnEither{[&](Events& on) { on.Click = click; }, "click"},
                              {[&](Events& on) { on.MouseDown = press; }, "press"},
                              {[&](Events& on) { on.DblClick = click; }, "double click"}}) {
    SCOPED_TRACE(one.What);
    one.Takes(label.On());
    one.Takes(image.On());
    EXPECT_EQ(Light("The photo").role(), QAccessible::Button);
    EXPECT_TRUE(Light("The photo").state().focusable);
    one.Takes(form.On());
    EXPECT_EQ(Light("The photo").role(), QAccessible::StaticText);
    EXPECT_FALSE(Light("The photo").state().focusable);
    EXPECT_EQ(Light("Photo").role(), QAccessible::Button) << "a picture is no text";
    for (Events* on : {&label.On(), &image.On(), &form.On()}) on->Click = {}, on->MouseDown = {}, on->DblClick = {};
  }
}

TEST_F(AccessibleRolesTest, AnEntryOfAListIsSelectableAndOneWithoutAPlaceSaysNone) {
  PlaceAmong place{2, 5, true};
  EXPECT_FALSE(Light("Photo").state().selectable);
  image.On().SpokenPlace = [&place](const Control&) { return place; };
  EXPECT_EQ(Light("Photo").text(QAccessible::Name), "Photo, 2 of 5");
  EXPECT_TRUE(Light("Photo").state().selectable);
  EXPECT_TRUE(Light("Photo").state().selected);
  place = {0, 5, false};
  EXPECT_EQ(Light("Photo").text(QAccessible::Name), "Photo");
  EXPECT_FALSE(Light("Photo").state().selected);
}

TEST_F(AccessibleRolesTest, WhatIsNotOfferedIsNotDone) {
  int done = 0;
  image.On().Click = [&done](Control&) { ++done; };
  image.On().SpokenActions = [&done](const Control&) {
    return std::vector<NamedAction>{{"Copy", "", [&done] { ++done; }}};
  };
  QAccessibleActionInterface& actions = *Light("Photo").actionInterface();
  EXPECT_EQ(actions.actionNames(), QStringList({QAccessibleActionInterface::pressAction(), "Copy"}));
  EXPECT_TRUE(actions.keyBindingsForAction("Copy").isEmpty()) << "no key does it";
  actions.doAction("Move");
  image.SetEnabled(false);
  EXPECT_TRUE(actions.actionNames().isEmpty());
  actions.doAction("Copy");
  Settle();
  EXPECT_EQ(done, 0);
  image.SetEnabled(true);
  actions.doAction("Copy");
  EXPECT_EQ(done, 1);
}

TEST_F(AccessibleRolesTest, AnActionsErrorIsToldAndTheProgramGoesOn) {
  int told = 0;
  backend.SetErrorHandler([&](int number, const std::string&) { told = number; });
  image.On().SpokenActions = [](const Control&) {
    return std::vector<NamedAction>{{"Copy", "", [] { throw RuntimeError(error::Overflow); }}};
  };
  Light("Photo").actionInterface()->doAction("Copy");
  EXPECT_EQ(told, error::Overflow);
}

TEST_F(AccessibleRolesTest, AWindowIsAnAlertOnlyWhereItWaitsForNothing) {
  Form notice(toolkit, "NoticeForm");
  PictureBox canvas(notice, "Canvas");
  EXPECT_EQ(RoleOf(notice), QAccessible::AlertMessage);
  notice.SetFullScreen(true);
  EXPECT_EQ(RoleOf(notice), QAccessible::Dialog) << "it is there to be looked at";
  notice.SetFullScreen(false);
  CommandButton button(canvas, "Button");
  EXPECT_EQ(RoleOf(notice), QAccessible::Dialog) << "its button may be pressed";
  Form modal(toolkit, "ModalForm");
  QAccessible::Role role = QAccessible::NoRole;
  Meanwhile([&] {
    role = Spoken(WindowOf(modal)).role();
    modal.Unload();
  });
  modal.ShowModal(&form);
  EXPECT_EQ(role, QAccessible::Dialog) << "the program waits for it";
}

TEST_F(AccessibleRolesTest, BarsAndSlidersHaveTheirRolesAndRangesAndOnesThatAreNotEnabledStay) {
  ScrollBar bar(form, "Bar", Orientation::Vertical);
  ScrollBar slider(form, "Slider", Orientation::Horizontal);
  slider.SetSlider(true);
  bar.SetMax(50);
  Settle();
  EXPECT_EQ(Spoken(WidgetOf<QSlider>(slider)).role(), QAccessible::Slider);
  QAccessibleInterface& spoken = Spoken(WidgetOf<QScrollBar>(bar));
  EXPECT_EQ(spoken.role(), QAccessible::ScrollBar);
  EXPECT_EQ(spoken.valueInterface()->minimumValue().toInt(), bar.Min());
  EXPECT_EQ(spoken.valueInterface()->maximumValue().toInt(), 50);
  bar.SetEnabled(false);
  Settle();
  spoken.valueInterface()->setCurrentValue(20);
  Settle();
  EXPECT_EQ(bar.Value(), 0);
  EXPECT_EQ(WidgetOf<QScrollBar>(bar).value(), 0);
}

TEST_F(AccessibleRolesTest, OnlyALineOffersTheKeyEnter) {
  ComboBox choice(form, "Choice");
  choice.AddItem("One");
  ComboBox folders(form, "Folders");
  folders.SetEditable(true);
  CommandButton button(form, "Button");
  TextBox text(form, "Text");
  Settle();
  const auto offers = [&](Control& control) {
    control.SetFocus();
    Settle();
    return Spoken(WindowOf(form)).actionInterface()->actionNames().contains("Enter");
  };
  EXPECT_TRUE(offers(text));
  EXPECT_FALSE(offers(button));
  EXPECT_TRUE(offers(folders));
  EXPECT_FALSE(offers(choice));
}

TEST_F(AccessibleRolesTest, TheKeyEnterIsPressedAnewEachTimeAndNotHeld) {
  TextBox box(form, "Box");
  int keys = 0;
  box.On().KeyPress = [&keys](Control&, int&) { ++keys; };
  box.SetFocus();
  Settle();
  for (int i = 0; i < 3; ++i) Spoken(WindowOf(form)).actionInterface()->doAction("Enter");
  EXPECT_EQ(keys, 3);
}

TEST_F(AccessibleRolesTest, AWindowBelowAnotherIsNotClosedByAReader) {
  toolkit.PushBox();
  Spoken(WindowOf(form)).actionInterface()->doAction("Close");
  Settle();
  toolkit.PopBox();
  EXPECT_TRUE(form.Visible());
  form.Hide();
  Settle();
  EXPECT_FALSE(Spoken(WindowOf(form)).actionInterface()->actionNames().contains("Close")) << "it is closed already";
}

}  // namespace
}  // namespace pixorra
