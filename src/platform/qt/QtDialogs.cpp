#include "platform/qt/QtDialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QFontMetrics>
#include <QGridLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <cstdio>

#include "platform/controls/Toolkit.h"
#include "platform/qt/BoxGuard.h"
#include "platform/qt/Convert.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

namespace {

QMessageBox::Icon ToQt(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Critical:
      return QMessageBox::Critical;
    case BoxIcon::Question:
      return QMessageBox::Question;
    case BoxIcon::Exclamation:
      return QMessageBox::Warning;
    case BoxIcon::Information:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

// Pixels beside a title for the icon, the buttons and the edges of a window's frame.
constexpr int FrameParts = 140;

// A box is as wide as its text, and frames cut off what they have no room for.
void MakeRoomForTitle(QMessageBox& box) {
  auto* grid = qobject_cast<QGridLayout*>(box.layout());
  if (grid == nullptr) return;
  QFont font = QApplication::font();
  font.setBold(true);
  const int width = QFontMetrics(font).horizontalAdvance(box.windowTitle()) + FrameParts;
  grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

// What nobody is there to read.
void WriteToLog(const std::string& title, const std::string& text) {
  std::fprintf(stderr, "%s: %s\n", title.c_str(), text.c_str());
}

// A text comes in lines of its own, which are broken once more only where the screen has no room for them.
void MakeRoomForText(QMessageBox& box) {
  constexpr double ShareOfScreen = 0.8;
  auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  if (label == nullptr) return;
  label->ensurePolished();
  const int own = label->fontMetrics().size(0, box.text()).width() + 1;
  label->setMinimumWidth(std::min(own, static_cast<int>(box.screen()->availableSize().width() * ShareOfScreen)));
}

// A box with one button is closed by Esc as by that button; this one knows the difference.
class MessageBox : public QMessageBox {
 public:
  using QMessageBox::QMessageBox;
  bool ClosedByEsc = false;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    ClosedByEsc = event->matches(QKeySequence::Cancel);
    QMessageBox::keyPressEvent(event);
  }
};

}  // namespace

BoxAnswer QtDialogs::MsgBox(const std::string& text, BoxIcon icon, BoxButtons buttons, const std::string& title) {
  auto* box = new MessageBox(backend_.WindowForBoxes());
  OwnedBox owned(box);
  box->setTextFormat(Qt::PlainText);
  box->setWindowTitle(ToQString(title));
  box->setText(ToLines(text));
  box->setIcon(ToQt(icon));
  const bool asks = buttons == BoxButtons::YesNo;
  box->setStandardButtons(asks ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
  box->setDefaultButton(asks ? QMessageBox::Yes : QMessageBox::Ok);
  box->setEscapeButton(asks ? QMessageBox::No : QMessageBox::Ok);
  MakeRoomForTitle(*box);
  MakeRoomForText(*box);
  int answer = QMessageBox::NoButton;
  bool byEsc = false;
  QObject::connect(box, &QDialog::finished, [&answer, &byEsc, box](int result) {
    answer = result;
    byEsc = box->ClosedByEsc;
  });
  if (backend_.GetToolkit().EndAsked()) WriteToLog(title, text);
  owned.Run(backend_);
  if (!asks) return byEsc ? BoxAnswer::Cancel : BoxAnswer::Ok;
  return answer == QMessageBox::Yes ? BoxAnswer::Yes : BoxAnswer::No;
}

std::string QtDialogs::InputBox(const std::string& prompt, const std::string& title, const std::string& present) {
  auto* box = new QInputDialog(backend_.WindowForBoxes());
  OwnedBox owned(box);
  box->setWindowTitle(ToQString(title));
  box->setLabelText(ToLines(prompt).toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>")));
  box->setTextValue(ToQString(present));
  // Its label is read as marked up otherwise.
  if (auto* line = box->findChild<QLineEdit*>()) line->setAccessibleName(ToLines(prompt));
  return owned.Run(backend_) ? ToUtf8(box->textValue()) : std::string();
}

std::optional<Colour> QtDialogs::ChooseColour(Colour start) {
  auto* box = new QColorDialog(backend_.WindowForBoxes());
  OwnedBox owned(box);
  box->setCurrentColor(ToQColor(start, box->palette()));
  if (!owned.Run(backend_)) return std::nullopt;
  return ToColour(box->selectedColor());
}

void QtDialogs::Beep() {
  QApplication::beep();
}

}  // namespace pixorra
