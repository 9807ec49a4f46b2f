// A box that holds other controls, and a surface that is drawn on: what was drawn stays, and can be taken as a picture.
#pragma once

#include <memory>
#include <string>

#include "platform/controls/Container.h"
#include "platform/services/TextDrawing.h"

namespace pixorra {

class PictureBox : public Container {
 public:
  PictureBox(Container& container, const std::string& name);
  PictureBox(Container& container, std::shared_ptr<Identity> identity, int index);
  void CopyFrom(const PictureBox& source);

  Colour BackColor() const { return backColor_; }
  void SetBackColor(Colour colour);  // clears what was drawn
  int BorderStyle() const { return borderStyle_; }
  void SetBorderStyle(int style);

  // One that stands side by side along the top, over the back colour and below all else.
  const Picture& RowPicture() const { return rowPicture_; }
  void SetRowPicture(const Picture& picture);

  // A picture lies at its own size at the top left, below what is drawn; setting one clears what was drawn.
  const Picture& GetPicture() const { return picture_; }
  void SetPicture(const Picture& picture);
  // The box takes the size of its picture, now and with each picture that is set; no picture leaves it as it is.
  bool AutoSize() const { return autoSize_; }
  void SetAutoSize(bool autoSize);
  // What the box shows. With a picture and nothing drawn on it, that picture, whole; otherwise the surface, of the
  // box's size.
  Picture Image();
  bool HasDrawing() const { return !surface_.IsEmpty() || !image_.IsNothing(); }
  const Bitmap& Surface() const { return image_.IsNothing() ? surface_ : image_.Pixels(); }
  // The same drawing in the screen's finer pixels, to be shown in place of the surface; empty where there is none.
  const Bitmap& FineSurface() const { return fine_; }

  // Drawing; pixels of the box, the parts that lie outside are cut off.
  void Cls();
  void PaintPicture(const Picture& picture, double x, double y, double width, double height);
  void PSet(int x, int y, Colour colour);
  Colour Point(int x, int y);  // 0xFFFFFFFF outside
  void Box(double x1, double y1, double x2, double y2, Colour colour, bool filled);
  void SetFont(const Font& font) { font_ = font; }
  const Font& GetFont() const { return font_; }
  void SetForeColor(Colour colour) { foreColor_ = colour; }
  double TextWidth(const std::string& text) const;
  double TextHeight(const std::string& text) const;
  void PrintAt(double x, double y, const std::string& text);

 protected:
  void BoundsChanged(const Rect& before) override;

 private:
  void DropSurface();
  Bitmap& MakeSurface();
  void MakeFineSurface();
  void FitToPicture();
  void Drawn();

  Picture picture_;
  Picture rowPicture_;
  Bitmap surface_;
  Picture image_;  // the surface, from when it was asked for until it is drawn on again
  Bitmap fine_;
  double fineness_ = 1;  // fine pixels to one of the box
  Font font_;
  Colour backColor_ = ButtonFace;
  Colour foreColor_ = 0;
  int borderStyle_ = 0;
  bool autoSize_ = false;
};

// A colour of the system as the program draws it into bitmaps: the classic light grey of buttons, white for windows.
Colour SolidColour(Colour colour);

}  // namespace pixorra
