// What pictures look like at the sizes that the screen asks for: the program's drawings, rendered from their vector
// sources, and photos made smaller. What was made is kept for a while.
#pragma once

#include <QCache>
#include <QHash>
#include <QImage>
#include <QSize>
#include <QString>
#include <memory>
#include <string>

#include "platform/pixels/Picture.h"

class QSvgRenderer;

namespace pixorra {

class ArtStore {
 public:
  ArtStore();
  ~ArtStore();
  ArtStore(const ArtStore&) = delete;
  ArtStore& operator=(const ArtStore&) = delete;

  // From now on the drawings can be read as files too, such as ":/art/Logo.svg".
  static void InitArt();
  // Without reading it.
  bool Has(const std::string& name) const;
  // Filled to that size in device pixels; null where there is no such drawing. Some have a twin for dark desktops.
  QImage Render(const std::string& name, QSize size);
  // A picture's pixels averaged into fewer.
  QImage Reduce(const Picture& picture, QSize size);

 private:
  // The picture is kept along with what was made of it: its address is a part of the key.
  struct Reduced {
    Picture Source;
    QImage Image;
  };
  QSvgRenderer* Find(const QString& name);
  QImage Draw(const QString& name, QSize size);

  QHash<QString, std::shared_ptr<QSvgRenderer>> sources_;
  QCache<QString, QImage> rendered_;  // cost in kilobytes
  QCache<QString, Reduced> reduced_;
  QCache<QString, Reduced> reducedLarge_;  // cost 1 each
};

}  // namespace pixorra
