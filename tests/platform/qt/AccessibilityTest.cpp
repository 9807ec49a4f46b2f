// What a screen reader finds on a form.
#include <QAccessible>
#include <QStringList>

#include "platform/controls/Buttons.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/PictureBox.h"
#include "platform/qt/Accessibility.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class AccessibilityTest : public QtTest {
 protected:
  AccessibilityTest() {
    InstallAccessibility();
    form.SetClientSize(400, 300);
    image.Move(10, 10, 40, 40);
    image.SetToolTipText("Open a folder");
    image.On().Click = [this](Control&) { ++clicks; };
    label.Move(10, 60, 100, 20);
    label.SetCaption("Select a Film Strip");
    silent.Move(200, 10, 40, 40);
    form.Show();
    Settle();
  }
  QAccessibleInterface& Client() { return *QAccessible::queryAccessibleInterface(&ClientOf(form)); }
  QStringList Names() {
    QStringList names;
    for (int i = 0; i < Client().childCount(); ++i) names.append(Client().child(i)->text(QAccessible::Name));
    return names;
  }
  QAccessibleInterface& Named(const QString& name) { return *Client().child(static_cast<int>(Names().indexOf(name))); }

  Form form{toolkit, "SpokenForm"};
  ImageBox image{form, "Image"};
  Label label{form, "Label"};
  ImageBox silent{form, "Silent"};
  int clicks = 0;
};

TEST_F(AccessibilityTest, ControlsThatSaySomethingAreFoundByIt) {
  EXPECT_EQ(Names(), QStringList({"Open a folder", "Select a Film Strip"}));
  image.SetAccessibleName("Browse");
  EXPECT_EQ(Names(), QStringList({"Browse", "Select a Film Strip"}));
}

TEST_F(AccessibilityTest, WidgetsStandBesideThem) {
  CommandButton button(form, "Button");
  button.SetCaption("Go");
  form.Show();
  Settle();
  EXPECT_EQ(Names(), QStringList({"Go", "Open a folder", "Select a Film Strip"}));
}

TEST_F(AccessibilityTest, AFormIsAWindowAndADialogWhereItHasAnOwner) {
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&WindowOf(form))->role(), QAccessible::Window);
  Form ask(toolkit, "AskForm");
  CommandButton yes(ask, "Yes");
  ask.ShowOwned(&form);
  Settle();
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&WindowOf(ask))->role(), QAccessible::Dialog);
}

TEST_F(AccessibilityTest, AnOptionIsARadioButtonAndABoxACheckBox) {
  OptionButton option(form, "Option");
  option.SetCaption("One of three");
  CheckBox box(form, "Box");
  box.SetCaption("By itself");
  Settle();
  EXPECT_EQ(Named("One of three").role(), QAccessible::RadioButton);
  EXPECT_EQ(Named("By itself").role(), QAccessible::CheckBox);
}

TEST_F(AccessibilityTest, WhatCanBePressedIsAButtonAndPressed) {
  QAccessibleInterface& button = Named("Open a folder");
  EXPECT_EQ(button.role(), QAccessible::Button);
  ASSERT_NE(button.actionInterface(), nullptr);
  EXPECT_EQ(button.actionInterface()->actionNames(), QStringList(QAccessibleActionInterface::pressAction()));
  button.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(Named("Select a Film Strip").role(), QAccessible::StaticText);
  EXPECT_TRUE(Named("Select a Film Strip").actionInterface()->actionNames().isEmpty());
}

TEST_F(AccessibilityTest, PlacesAreOnTheScreen) {
  QAccessibleInterface& button = Named("Open a folder");
  const QPoint corner = ClientOf(form).mapToGlobal(QPoint(10, 10));
  EXPECT_EQ(button.rect(), QRect(corner, QSize(40, 40)));
  EXPECT_EQ(Client().childAt(corner.x() + 5, corner.y() + 5), &button);
  EXPECT_EQ(button.parent(), &Client());
  EXPECT_EQ(Client().indexOfChild(&button), 0);
}

TEST_F(AccessibilityTest, ThousandsOutOfSightAreNotListed) {
  PictureBox strip(form, "Strip");
  strip.Move(0, 100, 400, 100);
  ControlArray<ImageBox> photos(strip, "Photo");
  for (int i = 1; i <= 5000; ++i) {
    ImageBox& photo = photos.Load(i);
    photo.Move((i - 1) * 100, 0, 80, 60);
    photo.SetToolTipText("Photo " + std::to_string(i));
    photo.SetVisible(true);
  }
  EXPECT_EQ(Client().childCount(), 2 + 4);
}

TEST_F(AccessibilityTest, AControlThatHasGoneIsNoLongerValid) {
  auto gone = std::make_unique<Label>(form, "Gone");
  gone->SetCaption("Here for now");
  gone->Move(10, 90, 100, 20);
  QAccessibleInterface& spoken = Named("Here for now");
  EXPECT_TRUE(spoken.isValid());
  gone.reset();
  EXPECT_FALSE(spoken.isValid());
  EXPECT_TRUE(spoken.text(QAccessible::Name).isEmpty());
  EXPECT_EQ(Names().size(), 2);
}

TEST_F(AccessibilityTest, WhatIsSaidIsAskedForWhenItIsWanted) {
  std::string name = "IMG_0001.JPG, not dragged";
  image.SetAccessibleName("Photo");
  image.On().SpokenName = [&name](const Control&) { return name; };
  image.On().SpokenDescription = [](const Control&) { return std::string("Double-Click to Discard Photo"); };
  EXPECT_EQ(Named("IMG_0001.JPG, not dragged").text(QAccessible::Description), "Double-Click to Discard Photo");
  name = "IMG_0001.JPG, dragged";
  EXPECT_EQ(Names(), QStringList({"IMG_0001.JPG, dragged", "Select a Film Strip"}));
  name.clear();
  EXPECT_EQ(Names(), QStringList({"Select a Film Strip"}));
}

TEST_F(AccessibilityTest, WhatIsDoubleClickedByHandIsPressedHereToo) {
  int second = 0;
  label.On().DblClick = [&second](Control&) { ++second; };
  QAccessibleInterface& spoken = Named("Select a Film Strip");
  EXPECT_EQ(spoken.role(), QAccessible::Button);
  spoken.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(second, 1);
}

TEST_F(AccessibilityTest, WhatIsCoveredInItsMiddleIsPressedBesideThat) {
  int frames = 0;
  int photos = 0;
  silent.SetAccessibleName("Frame");
  silent.On().DblClick = [&frames](Control&) { ++frames; };
  ImageBox photo(form, "Photo");
  photo.Move(204, 14, 32, 32);
  photo.On().DblClick = [&photos](Control&) { ++photos; };
  Named("Frame").actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(frames, 1);
  EXPECT_EQ(photos, 0);
  // Nothing of it is to be seen.
  photo.Move(200, 10, 40, 40);
  Named("Frame").actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(frames, 1);
  EXPECT_EQ(photos, 0);
}

}  // namespace
}  // namespace pixorra
