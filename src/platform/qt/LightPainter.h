// Paints a form's ground and its light controls.
#pragma once

#include <QColor>
#include <QRect>
#include <QString>

#include "platform/controls/Geometry.h"
#include "platform/pixels/Picture.h"

class QPainter;
class QWidget;

namespace pixorra {

class ArtStore;
class Control;
class FadeBox;
class Form;
class Frame;
class ImageBox;
class Label;
class PictureBox;
class Shape;
class SharpThumbnails;
class Toolkit;

class LightPainter {
 public:
  // The palette and the style are those of the widget.
  LightPainter(QPainter& painter, const QWidget& on, ArtStore& art, SharpThumbnails& sharp)
      : painter_(painter), on_(on), art_(art), sharp_(sharp) {}

  // `exposed` is in pixels of the client area.
  void PaintForm(const Form& form, const Rect& exposed);

 private:
  void Paint(const Control& control, const QRect& at);
  void PaintImage(const ImageBox& image, const QRect& at);
  void PaintLabel(const Label& label, const QRect& room);
  void PaintShape(const Shape& shape, const QRect& at);
  void PaintFade(const FadeBox& box, const QRect& at);
  void PaintOpaque(const Picture& picture, const QRect& at);
  void PaintFrame(const Frame& frame, const QRect& at);
  void PaintRow(const Picture& picture, const QRect& at);
  void PaintPictureBox(const PictureBox& box, const QRect& at);
  void PaintFocus(const QRect& at);
  QColor Shown(Colour colour) const;
  void DrawHalo(const QRect& at, int flags, const QString& text, const QColor& colour);
  void Fill(const QRect& at, Colour colour);
  void Edge(const QRect& at);

  QPainter& painter_;
  const QWidget& on_;
  ArtStore& art_;
  SharpThumbnails& sharp_;
  const Toolkit* toolkit_ = nullptr;
};

}  // namespace pixorra
