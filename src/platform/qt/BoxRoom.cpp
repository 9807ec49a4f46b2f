#include "platform/qt/BoxRoom.h"

#include <QApplication>
#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <functional>

namespace pixorra {

namespace {

// Pixels of a window's frame, its title included.
constexpr int FrameHeight = 48;

constexpr QChar LeftOut(0x2026);

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

// So many characters of a line: its middle is left out.
QString WithoutMiddle(const QString& line, qsizetype most) {
  if (line.size() <= most) return line;
  QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, line);
  const auto boundaryBefore = [&](qsizetype at) {
    characters.setPosition(at);
    return characters.isAtBoundary() ? at : characters.toPreviousBoundary();
  };
  const qsizetype head = boundaryBefore(most / 2);
  const qsizetype tail = boundaryBefore(line.size() - most / 2);
  return line.left(head) + LeftOut + line.mid(tail);
}

QStringList WithoutMiddleLines(const QStringList& lines, qsizetype most) {
  if (lines.size() <= most) return lines;
  return lines.mid(0, (most - 1) / 2) + QStringList(LeftOut) + lines.mid(lines.size() - most / 2);
}

// The largest number from 1 on for which it fits, or 1.
qsizetype Most(qsizetype all, const std::function<bool(qsizetype)>& fits) {
  qsizetype most = 1;
  for (qsizetype above = all + 1; above - most > 1;) {
    const qsizetype middle = most + (above - most) / 2;
    (fits(middle) ? most : above) = middle;
  }
  return most;
}

// The whole text where it fits. What does not leaves out lines in its middle where there is no room for all of them,
// each with a few characters, and then the middle of its long lines.
QString Shortened(const QString& text, const std::function<bool(const QString&)>& fits) {
  constexpr qsizetype Few = 30;
  if (fits(text)) return text;
  const QStringList lines = text.split(QLatin1Char('\n'));
  const auto of = [&](qsizetype count, qsizetype length) {
    QStringList shorter;
    for (const QString& line : WithoutMiddleLines(lines, count)) shorter += WithoutMiddle(line, length);
    return shorter.join(QLatin1Char('\n'));
  };
  const qsizetype count = Most(lines.size(), [&](qsizetype number) { return fits(of(number, Few)); });
  return of(count, Most(text.size(), [&](qsizetype length) { return fits(of(count, length)); }));
}

// How much larger than its label the box is.
QSize BesideLabel(QLabel& label, const QGridLayout& grid) {
  constexpr QSize Probe(10000, 10000);  // more than anything else in the box
  label.setMinimumSize(Probe);
  const QSize all = grid.totalMinimumSize();
  label.setMinimumSize(0, 0);
  return all - Probe;
}

// A text comes in lines of its own, which are broken once more only where there is no room for them.
void MakeRoomForText(QMessageBox& box, const QGridLayout& grid) {
  constexpr double ShareOfScreen = 0.8;
  auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  if (label == nullptr) return;
  label->ensurePolished();
  const QString text = box.text();
  const QFontMetrics metrics = label->fontMetrics();
  const QSize own = label->sizeHint() + QSize(1, 1);
  const QSize edges = own - metrics.size(0, text);
  const QSize beside = BesideLabel(*label, grid);
  const QSize screen = box.screen()->availableSize();
  const int share = static_cast<int>(screen.width() * ShareOfScreen);
  const QSize room(std::min({own.width(), MostWidth(box) - beside.width(), share}),
                   screen.height() - FrameHeight - beside.height());
  label->setMinimumWidth(room.width());
  const QSize most = room - edges;
  const auto broken = [&](const QString& lines) {
    return own.width() > room.width() ? WithoutWideWords(lines, metrics, most.width()) : lines;
  };
  const auto fits = [&](const QString& lines) {
    const QRect shown = metrics.boundingRect(QRect(0, 0, most.width(), 1), Qt::TextWordWrap, broken(lines));
    return shown.height() <= most.height();
  };
  const QString shown = broken(Shortened(text, fits));
  if (shown == text) return;
  box.setText(shown);
  box.setTextInteractionFlags(Qt::NoTextInteraction);  // what is marked of it could be copied
  label->setAccessibleName(text);
}

}  // namespace

void MakeRoom(QMessageBox& box) {
  auto* grid = qobject_cast<QGridLayout*>(box.layout());
  if (grid == nullptr) return;
  MakeRoomForTitle(box, *grid);
  MakeRoomForText(box, *grid);
}

}  // namespace pixorra
