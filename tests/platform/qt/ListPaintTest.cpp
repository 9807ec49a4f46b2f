// The cells of a list are painted in their columns.
#include <QListWidget>
#include <QPaintEvent>
#include <QStyleOptionViewItem>

#include "platform/controls/Lists.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class ListPaintTest : public QtTest {
 protected:
  ListPaintTest() {
    form.SetClientSize(300, 200);
    list.Move(10, 10, 220, 120);
  }
  // The columns of pixels, counted in the list's rows, that a row has dark pixels in.
  struct Ink {
    int First = -1;
    int Last = -1;
  };
  Ink InkOf(int row, int left, int right) {
    Settle();
    auto& widget = WidgetOf<QListWidget>(list);
    const QImage shot = widget.viewport()->grab(widget.visualItemRect(widget.item(row))).toImage();
    Ink ink;
    for (int x = left; x < std::min(right, shot.width()); ++x) {
      for (int y = 1; y < shot.height() - 1; ++y) {
        if (shot.pixelColor(x, y).lightness() >= 128) continue;
        if (ink.First < 0) ink.First = x;
        ink.Last = x;
        break;
      }
    }
    return ink;
  }
  int RowWidth() { return WidgetOf<QListWidget>(list).viewport()->width(); }

  Form form{toolkit, "ListForm"};
  ListBox list{form, "List"};
};

// What of a widget is painted while this lives.
class Painted : public QObject {
 public:
  explicit Painted(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) Region += static_cast<QPaintEvent*>(event)->region();
    return QObject::eventFilter(watched, event);
  }
  QRegion Region;
};

TEST_F(ListPaintTest, ARightColumnEndsAtTheEdgeWhateverItsTexts) {
  list.SetColumns({{0, Alignment::Left}, {70, Alignment::Right}});
  list.AddItem("H     \t 1H");
  list.AddItem("HHHHHH\t1000H");
  form.Show();
  Settle();
  const int border = RowWidth() - 70;
  const Ink small = InkOf(0, border, 1000);
  const Ink large = InkOf(1, border, 1000);
  EXPECT_NEAR(small.Last, large.Last, 1);
  EXPECT_GT(small.First, large.First + 10);
  EXPECT_GT(small.Last, RowWidth() - 8);
  EXPECT_NEAR(InkOf(0, 0, border).First, InkOf(1, 0, border).First, 1);
  EXPECT_LT(InkOf(0, 0, border).First, 8);
}

TEST_F(ListPaintTest, ACellThatIsTooLongStaysInItsColumn) {
  list.SetColumns({{0, Alignment::Left}, {70, Alignment::Right}});
  list.AddItem("HHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHH\t1H");
  form.Show();
  Settle();
  const int border = RowWidth() - 70;
  EXPECT_GT(InkOf(0, 0, border).Last, border - 20);
  EXPECT_EQ(InkOf(0, border, border + 30).First, -1);
}

TEST_F(ListPaintTest, AMiddleColumnHasItsTextInItsMiddle) {
  list.SetColumns({{40, Alignment::Left}, {100, Alignment::Center}});
  list.AddItem("\tHHH");
  form.Show();
  const Ink ink = InkOf(0, 0, 1000);
  EXPECT_NEAR((ink.First + ink.Last) / 2, 90, 2);
}

TEST_F(ListPaintTest, ColumnsThatComeLaterAreShownAtOnce) {
  list.AddItem("\tHHH");
  form.Show();
  Settle();
  list.SetColumns({{100, Alignment::Left}, {60, Alignment::Left}});
  EXPECT_GE(InkOf(0, 0, 1000).First, 100);
}

TEST_F(ListPaintTest, AListThatIsEmptiedIsPaintedEmpty) {
  list.SetColumns({{0, Alignment::Left}, {70, Alignment::Right}});
  for (int i = 0; i < 5; ++i) list.AddItem("H\tH");
  list.SetListIndex(0);
  form.Show();
  Settle();
  QWidget& rows = *WidgetOf<QListWidget>(list).viewport();
  const Painted painted(rows);
  list.Clear();
  Settle();
  EXPECT_EQ(QRegion(rows.rect()) - painted.Region, QRegion());
}

}  // namespace
}  // namespace pixorra
