// Renders what ships as pixels from the SVG sources: the cloud scene and the icon theme.
// Kept out of the build, since its results are committed. To run it from the repository's root:
//   g++ -std=c++20 -fPIC assets/render/RenderArt.cpp -o /tmp/render_art $(pkg-config --cflags --libs Qt6Svg)
//   QT_QPA_PLATFORM=offscreen /tmp/render_art assets
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

namespace {

// The drawing at `size` pixels, on `ground`; a null image if the source can't be read.
QImage Render(const QString& source, QSize size, const QColor& ground) {
  QSvgRenderer renderer(source);
  if (!renderer.isValid()) return {};
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(ground);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  renderer.render(&painter);
  return image;
}

bool Save(const QImage& image, const QString& target, int quality) {
  QDir().mkpath(QFileInfo(target).path());
  if (!image.isNull() && image.save(target, nullptr, quality)) return true;
  std::fprintf(stderr, "can't render %s\n", qPrintable(target));
  return false;
}

// Small sizes have drawings of their own: what reads at 256 pixels is mud at 16.
QString IconSource(const QString& assets, int size) {
  if (size <= 24) return assets + "/icons/pixorra-16.svg";
  if (size <= 32) return assets + "/icons/pixorra-32.svg";
  return assets + "/icons/pixorra.svg";
}

}  // namespace

int main(int argc, char** argv) {
  QGuiApplication application(argc, argv);
  const QString assets = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("assets");
  const QImage clouds = Render(assets + "/art/Clouds.svg", QSize(1600, 1200), Qt::white);
  bool done = Save(clouds.convertToFormat(QImage::Format_RGB32), assets + "/Clouds.jpg", 88);
  for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
    const QString target = QString("%1/icons/hicolor/%2x%2/apps/pixorra.png").arg(assets).arg(size);
    done = Save(Render(IconSource(assets, size), QSize(size, size), Qt::transparent), target, -1) && done;
  }
  return done ? 0 : 1;
}
