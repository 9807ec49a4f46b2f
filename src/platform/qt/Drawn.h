// A picture as it is drawn on a screen of some resolution: the program's drawings from their vector sources, others
// scaled.
#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QRect>

#include "platform/pixels/Picture.h"
#include "platform/qt/ArtStore.h"

class QPainter;

namespace pixorra {

// For a rectangle of that many device pixels. What the picture has too few pixels for comes at its own size, to be
// enlarged by the painter. The image may share the picture's pixels: the picture must outlive it.
QImage DrawnAt(const Picture& picture, QSize deviceSize, ArtStore& art);

// At its own size in logical pixels.
QPixmap DrawnPixmap(const Picture& picture, double devicePixelRatio, ArtStore& art);

// Fills a rectangle of logical pixels with an image, its edges moved as below; not scaled where it has as many pixels.
void DrawImage(QPainter& painter, const QRect& at, const QImage& image);

// Lines along the inner edges of a rectangle of logical pixels, which is moved as below: as thick as `width` logical
// pixels in whole device pixels, and equally thick on all four sides.
void DrawOutline(QPainter& painter, const QRect& at, int width, const QColor& topLeft, const QColor& bottomRight);

// Stretched into a rectangle of logical pixels, whose edges are moved to the device pixels next to them: neighbours
// meet without a gap, and drawings stay sharp at broken scale factors.
void DrawPicture(QPainter& painter, const QRect& at, const Picture& picture, ArtStore& art);

}  // namespace pixorra
