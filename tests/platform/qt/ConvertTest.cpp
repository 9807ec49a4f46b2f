// Between the toolkit's values and the program's.
#include <QKeyEvent>
#include <gtest/gtest.h>

#include "platform/qt/Convert.h"

namespace pixorra {
namespace {

int CodeOf(int qtKey, quint32 place, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  return ToKeyCode(QKeyEvent(QEvent::KeyPress, qtKey, modifiers, place, 0, 0));
}

TEST(ConvertKeys, TheTopRowIsDigitsByItsPlaceWhereTheLayoutHasThemOnlyWithShift) {
  EXPECT_EQ(CodeOf(Qt::Key_Ampersand, 10), '1');
  EXPECT_EQ(CodeOf(Qt::Key_Eacute, 11), '2');
  EXPECT_EQ(CodeOf(Qt::Key_Ccedilla, 18), '9');
  EXPECT_EQ(CodeOf(Qt::Key_1, 10, Qt::ShiftModifier), '1');
  EXPECT_EQ(CodeOf(Qt::Key_Agrave, 19), 0) << "there is no folder 0";
}

TEST(ConvertKeys, ASignOfTheTopRowIsNoDigitWhereItIsAskedForWithOtherKeys) {
  EXPECT_EQ(CodeOf(Qt::Key_Exclam, 10, Qt::ShiftModifier), 0);
  EXPECT_EQ(CodeOf(Qt::Key_Ampersand, 10, Qt::ControlModifier), 0);
  EXPECT_EQ(CodeOf(Qt::Key_Ampersand, 0), 0) << "from no keyboard at all";
  EXPECT_EQ(CodeOf(Qt::Key_Ampersand, 24), 0);
}

}  // namespace
}  // namespace pixorra
