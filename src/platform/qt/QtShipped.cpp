#include "platform/qt/QtShipped.h"

#include <QFile>

#include "platform/qt/Convert.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

std::string QtShipped::Bytes(const std::string& name) {
  QFile file(QLatin1String(":/") + ToQString(name));
  if (!file.open(QIODevice::ReadOnly)) throw RuntimeError(error::FileNotFound);
  return file.readAll().toStdString();
}

}  // namespace pixorra
