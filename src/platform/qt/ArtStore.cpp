#include "platform/qt/ArtStore.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QImageReader>
#include <QPainter>
#include <QStyle>
#include <QSvgRenderer>

#include "platform/qt/Convert.h"

// Resources of a static library must be asked for by name, from outside any namespace.
static void InitArtResource() {
  Q_INIT_RESOURCE(art);
}

namespace pixorra {

namespace {

constexpr int CacheKilobytes = 64 * 1024;
// A picture of more bytes than this is kept by count: the cost of one would drop all others.
constexpr qsizetype LargeBytes = qsizetype{16} * 1024 * 1024;
constexpr int LargeKept = 2;

int Kilobytes(qsizetype bytes) {
  return 1 + static_cast<int>(bytes / 1024);
}

QString DrawingFile(const QString& name) {
  return QLatin1String(":/art/") + name + QLatin1String(".svg");
}

// A scene too rich for a drawing ships as a photograph.
QString PhotographFile(const QString& name) {
  return QLatin1String(":/") + name + QLatin1String(".jpg");
}

const QLatin1String desktopPrefix("desktop:");

QImage DesktopIcon(const QString& name, QSize size) {
  const QStyle& style = *QApplication::style();
  QStyle::StandardPixmap plain = QStyle::SP_DirIcon;
  if (name == QLatin1String("user-home")) plain = QStyle::SP_DirHomeIcon;
  if (name == QLatin1String("user-desktop")) plain = QStyle::SP_DesktopIcon;
  if (name == QLatin1String("computer")) plain = QStyle::SP_ComputerIcon;
  if (name == QLatin1String("drive-harddisk") || name.startsWith(QLatin1String("media-")))
    plain = QStyle::SP_DriveHDIcon;
  if (name == QLatin1String("network-workgroup")) plain = QStyle::SP_DriveNetIcon;
  const QIcon icon = QIcon::fromTheme(name, style.standardIcon(plain));
  QImage image = icon.pixmap(size, 1).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(1);
  return image.size() == size ? image : image.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

ArtStore::ArtStore() : rendered_(CacheKilobytes), reduced_(CacheKilobytes), reducedLarge_(LargeKept) {
  InitArt();
}

void ArtStore::InitArt() {
  InitArtResource();
}

ArtStore::~ArtStore() = default;

QSvgRenderer* ArtStore::Find(const QString& name) {
  const auto known = sources_.constFind(name);
  if (known != sources_.constEnd()) return known->get();
  std::shared_ptr<QSvgRenderer> source;
  if (QFile::exists(DrawingFile(name))) source = std::make_shared<QSvgRenderer>(DrawingFile(name));
  if (source != nullptr && !source->isValid()) source.reset();
  sources_.insert(name, source);
  return source.get();
}

bool ArtStore::Has(const std::string& name) const {
  if (name.starts_with(desktopPrefix.data())) return true;
  return QFile::exists(DrawingFile(ToQString(name))) || QFile::exists(PhotographFile(ToQString(name)));
}

QImage ArtStore::Draw(const QString& name, QSize size) {
  if (name.startsWith(desktopPrefix)) return DesktopIcon(name.sliced(desktopPrefix.size()), size);
  QSvgRenderer* source = Find(name);
  if (source == nullptr) {
    // The decoder leaves out what would be scaled away.
    QImageReader photograph(PhotographFile(name));
    photograph.setScaledSize(size);
    photograph.setQuality(95);  // of the scaling
    return photograph.read();
  }
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  source->render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
  return image;
}

QImage ArtStore::Render(const std::string& name, QSize size) {
  if (size.isEmpty()) return {};
  QString drawing = ToQString(name);
  const QString twin = drawing + QLatin1String("Dark");
  if (IsDark(QGuiApplication::palette()) && Find(twin) != nullptr) drawing = twin;
  const QString entry = drawing + QStringLiteral(" %1 %2").arg(size.width()).arg(size.height());
  if (const QImage* known = rendered_.object(entry)) return *known;
  QImage image = Draw(drawing, size);
  if (!image.isNull()) rendered_.insert(entry, new QImage(image), Kilobytes(image.sizeInBytes()));
  return image;
}

QImage ArtStore::Reduce(const Picture& picture, QSize size) {
  const QString entry = QStringLiteral("%1 %2 %3")
                            .arg(reinterpret_cast<quintptr>(&picture.Pixels()))
                            .arg(size.width())
                            .arg(size.height());
  const qsizetype sourceBytes = SharedImage(picture.Pixels()).sizeInBytes();
  const bool large = sourceBytes > LargeBytes;
  QCache<QString, Reduced>& cache = large ? reducedLarge_ : reduced_;
  if (const Reduced* known = cache.object(entry)) return known->Image;
  QImage image = SharedImage(picture.Pixels()).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  cache.insert(entry, new Reduced{picture, image}, large ? 1 : Kilobytes(image.sizeInBytes() + sourceBytes));
  return image;
}

}  // namespace pixorra
