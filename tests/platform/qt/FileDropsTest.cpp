// Files and folders that another program drags over a window and drops there.
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <gmock/gmock.h>

#include "platform/controls/ImageBox.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FileDropsTest : public QtTest {
 protected:
  FileDropsTest() {
    form.SetClientSize(300, 200);
    target.Move(100, 50, 150, 100);
    Connect(target.On().FilesDropped, [this](Control&, const FilesArgs& files) { dropped = files.Paths; });
    data.setUrls({QUrl::fromLocalFile("/home/anna/My photos"), QUrl("smb://nas/our%20photos/2024")});
    form.Show();
    Settle();
  }
  // The drag enters at this place; the action that the window agrees to, none where it refuses.
  Qt::DropAction DragTo(QPoint at, Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction) {
    QDragEnterEvent enter(at, possible, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&ClientOf(form), &enter);
    QDragMoveEvent move(at, possible, &data, Qt::LeftButton, Qt::NoModifier);
    move.ignore();
    QCoreApplication::sendEvent(&ClientOf(form), &move);
    return move.isAccepted() ? move.dropAction() : Qt::IgnoreAction;
  }
  void DropAt(QPoint at) {
    QDropEvent drop(at, Qt::CopyAction | Qt::LinkAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&ClientOf(form), &drop);
  }
  Form form{toolkit, "DropForm"};
  ImageBox target{form, "Target"};
  QMimeData data;
  std::vector<std::string> dropped;
};

TEST_F(FileDropsTest, WhatIsDroppedComesWithItsPathsWhenTheOtherProgramIsDone) {
  EXPECT_NE(DragTo({120, 70}), Qt::IgnoreAction);
  DropAt({120, 70});
  EXPECT_THAT(dropped, IsEmpty()) << "the other program waits for the drop's end";
  Settle();
  EXPECT_THAT(dropped, ElementsAre("/home/anna/My photos", "smb://nas/our photos/2024"));
}

TEST_F(FileDropsTest, OtherPlacesRefuseThem) {
  EXPECT_EQ(DragTo({20, 20}), Qt::IgnoreAction);
  DropAt({20, 20});
  Settle();
  EXPECT_THAT(dropped, IsEmpty());
}

TEST_F(FileDropsTest, NothingIsEverTakenForMoved) {
  EXPECT_EQ(DragTo({120, 70}), Qt::LinkAction);
  EXPECT_EQ(DragTo({120, 70}, Qt::CopyAction | Qt::MoveAction), Qt::CopyAction);
  EXPECT_EQ(DragTo({120, 70}, Qt::MoveAction), Qt::IgnoreAction);
}

}  // namespace
}  // namespace pixorra
