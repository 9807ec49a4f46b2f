#include "platform/qt/BoxRoom.h"

#include <QApplication>
#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QTextBoundaryFinder>
#include <algorithm>

namespace pixorra {

namespace {

// Pixels beside a title for the icon, the buttons and the edges of a window's frame.
constexpr int FrameParts = 140;

// The widest that Qt makes a box; what needs more of it is cut off.
int MostWidth(const QMessageBox& box) {
  constexpr int SmallScreen = 1024;
  constexpr int Beside = 480;
  constexpr int Widest = 1000;
  const int screen = box.screen()->availableGeometry().width();
  return screen <= SmallScreen ? screen : std::min(screen - Beside, Widest);
}

// A box is as wide as its text, and frames cut off what they have no room for.
void MakeRoomForTitle(QMessageBox& box, QGridLayout& grid) {
  QFont font = QApplication::font();
  font.setBold(true);
  const QMargins margins = grid.contentsMargins();
  const int width = std::min(QFontMetrics(font).horizontalAdvance(box.windowTitle()) + FrameParts,
                             MostWidth(box) - margins.left() - margins.right());
  grid.addItem(new QSpacerItem(width, 0), grid.rowCount(), 0, 1, grid.columnCount());
}

// So many pixels wide, the label takes this many less for its text.
int EdgesOf(const QLabel& label) {
  return label.sizeHint().width() - label.fontMetrics().size(0, label.text()).width() + 1;
}

// A word of a text that is too wide for a line, with places in it where lines may end.
QString Breakable(const QString& word, const QFontMetrics& metrics, int room) {
  constexpr QChar MayBreakHere(0x200B);
  QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, word);
  QString all;
  QString line;
  for (qsizetype from = 0, to = characters.toNextBoundary(); to > from; from = to, to = characters.toNextBoundary()) {
    const QString character = word.mid(from, to - from);
    if (!line.isEmpty() && metrics.horizontalAdvance(line + character) > room) {
      all += line + MayBreakHere;
      line.clear();
    }
    line += character;
  }
  return all + line;
}

QString WithoutWideWords(const QString& text, const QFontMetrics& metrics, int room) {
  QTextBoundaryFinder words(QTextBoundaryFinder::Line, text);
  QString all;
  for (qsizetype from = 0, to = words.toNextBoundary(); to > from; from = to, to = words.toNextBoundary()) {
    const QString word = text.mid(from, to - from);
    const bool fits = metrics.horizontalAdvance(word.trimmed()) <= room;
    all += fits ? word : Breakable(word, metrics, room);
  }
  return all;
}

// A text comes in lines of its own, which are broken once more only where there is no room for them.
void MakeRoomForText(QMessageBox& box, const QGridLayout& grid) {
  constexpr double ShareOfScreen = 0.8;
  constexpr int Probe = 10000;  // wider than anything else in the box
  auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  if (label == nullptr) return;
  label->ensurePolished();
  const int own = label->sizeHint().width() + 1;
  const int edges = EdgesOf(*label);
  label->setMinimumWidth(Probe);
  const int beside = grid.totalMinimumSize().width() - Probe;
  const int share = static_cast<int>(box.screen()->availableSize().width() * ShareOfScreen);
  const int room = std::min(MostWidth(box) - beside, share);
  label->setMinimumWidth(std::min(own, room));
  if (own > room) box.setText(WithoutWideWords(box.text(), label->fontMetrics(), room - edges));
}

}  // namespace

void MakeRoom(QMessageBox& box) {
  auto* grid = qobject_cast<QGridLayout*>(box.layout());
  if (grid == nullptr) return;
  MakeRoomForTitle(box, *grid);
  MakeRoomForText(box, *grid);
}

}  // namespace pixorra
