#include "platform/qt/ToolkitLanguage.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace pixorra {

ToolkitLanguage::ToolkitLanguage()
    : installed_(words_.load(QLocale::system(), QStringLiteral("qtbase"), QStringLiteral("_"),
                             QLibraryInfo::path(QLibraryInfo::TranslationsPath)) &&
                 QCoreApplication::installTranslator(&words_)) {}

ToolkitLanguage::~ToolkitLanguage() {
  if (installed_) QCoreApplication::removeTranslator(&words_);
}

}  // namespace pixorra
