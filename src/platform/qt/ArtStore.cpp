#include "platform/qt/ArtStore.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include "platform/qt/Convert.h"

// Resources of a static library must be asked for by name, from outside any namespace.
static void InitArt() {
  Q_INIT_RESOURCE(art);
}

namespace pixorra {

namespace {

constexpr int CacheKilobytes = 64 * 1024;

int Kilobytes(qsizetype bytes) {
  return 1 + static_cast<int>(bytes / 1024);
}

}  // namespace

ArtStore::ArtStore() : rendered_(CacheKilobytes), reduced_(CacheKilobytes) {
  InitArt();
}

ArtStore::~ArtStore() = default;

QSvgRenderer* ArtStore::Find(const QString& name) {
  const auto known = sources_.constFind(name);
  if (known != sources_.constEnd()) return known->get();
  std::shared_ptr<QSvgRenderer> source;
  const QString file = QLatin1String(":/art/") + name + QLatin1String(".svg");
  if (QFile::exists(file)) source = std::make_shared<QSvgRenderer>(file);
  if (source != nullptr && !source->isValid()) source.reset();
  sources_.insert(name, source);
  return source.get();
}

bool ArtStore::Has(const std::string& name) {
  return Find(ToQString(name)) != nullptr;
}

QImage ArtStore::Render(const std::string& name, QSize size) {
  if (size.isEmpty()) return {};
  const QString drawing = ToQString(name);
  const QString entry = drawing + QStringLiteral(" %1 %2").arg(size.width()).arg(size.height());
  if (const QImage* known = rendered_.object(entry)) return *known;
  QSvgRenderer* source = Find(drawing);
  if (source == nullptr) return {};
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  source->render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
  painter.end();
  rendered_.insert(entry, new QImage(image), Kilobytes(image.sizeInBytes()));
  return image;
}

QImage ArtStore::Reduce(const Picture& picture, QSize size) {
  const QString entry = QStringLiteral("%1 %2 %3")
                            .arg(reinterpret_cast<quintptr>(&picture.Pixels()))
                            .arg(size.width())
                            .arg(size.height());
  if (const Reduced* known = reduced_.object(entry)) return known->Image;
  QImage image = SharedImage(picture.Pixels()).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  const qsizetype bytes = image.sizeInBytes() + SharedImage(picture.Pixels()).sizeInBytes();
  reduced_.insert(entry, new Reduced{picture, image}, Kilobytes(bytes));
  return image;
}

}  // namespace pixorra
