#include "platform/qt/printing/PrintFont.h"

#include "platform/qt/Convert.h"
#include "platform/qt/printing/PageUnits.h"

namespace pixorra {

QFont PrintFont(const std::string& name, double points, bool bold) {
  QStringList families{ToQString(name)};
  if (name == "Arial") {
    families << QStringLiteral("Liberation Sans") << QStringLiteral("Arimo") << QStringLiteral("Nimbus Sans");
  }
  QFont font;
  if (!name.empty()) font.setFamilies(families);
  font.setStyleHint(QFont::SansSerif, QFont::ForceOutline);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setPixelSize(qMax(1, qRound(points * PageTwipsPerPoint)));
  font.setBold(bold);
  return font;
}

}  // namespace pixorra
