#include "platform/qt/printing/PrintBoxes.h"

#include <QMessageBox>

#include "platform/qt/BoxGuard.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

namespace {

bool Show(QtBackend& backend, const QString& text, QMessageBox::StandardButtons buttons,
          QMessageBox::StandardButton usual) {
  auto* const box =
      new QMessageBox(QMessageBox::Warning, QStringLiteral("Print"), text, buttons, backend.WindowForBoxes());
  OwnedBox owned(box);
  box->setTextFormat(Qt::PlainText);
  box->setDefaultButton(usual);
  bool yes = false;
  QObject::connect(box, &QDialog::finished, [&yes](int result) { yes = result == QMessageBox::Yes; });
  owned.Run(backend);
  return yes;
}

}  // namespace

void TellOfPrinting(QtBackend& backend, const QString& text) {
  Show(backend, text, QMessageBox::Ok, QMessageBox::Ok);
}

bool AskAboutPrinting(QtBackend& backend, const QString& question) {
  return Show(backend, question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
}

}  // namespace pixorra
