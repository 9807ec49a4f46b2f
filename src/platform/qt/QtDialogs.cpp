#include "platform/qt/QtDialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <cstdio>

#include "platform/controls/Toolkit.h"
#include "platform/qt/BoxGuard.h"
#include "platform/qt/BoxRoom.h"
#include "platform/qt/Convert.h"
#include "platform/qt/QtBackend.h"
#include "platform/runtime/OneLine.h"

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

// What nobody is there to read.
void WriteToLog(const std::string& title, const std::string& text) {
  std::fprintf(stderr, "%s: %s\n", OneLine(title).c_str(), OneLine(text).c_str());
}

// A box with one button is closed by Esc as by that button; this one knows the difference. Ctrl+C copies its text as it
// was given, whatever has been done to it so that it has room.
class MessageBox : public QMessageBox {
 public:
  using QMessageBox::QMessageBox;
  QString Given;
  bool ClosedByEsc = false;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->matches(QKeySequence::Copy)) {
      QApplication::clipboard()->setText(Given);
      return;
    }
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
  box->Given = ToLines(text);
  box->setText(box->Given);
  box->setIcon(ToQt(icon));
  const bool asks = buttons == BoxButtons::YesNo;
  box->setStandardButtons(asks ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
  box->setDefaultButton(asks ? QMessageBox::Yes : QMessageBox::Ok);
  box->setEscapeButton(asks ? QMessageBox::No : QMessageBox::Ok);
  MakeRoom(*box);
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
