// A line of text on a form, or several when it wraps.
#pragma once

#include <memory>
#include <string>

#include "platform/controls/Container.h"
#include "platform/services/TextDrawing.h"

namespace pixorra {

enum class Alignment : std::uint8_t { Left = 0, Right = 1, Center = 2 };

class Label : public Control {
 public:
  Label(Container& container, const std::string& name);
  Label(Container& container, std::shared_ptr<Identity> identity, int index);
  void CopyFrom(const Label& source);

  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);
  Colour ForeColor() const { return foreColor_; }
  void SetForeColor(Colour colour);
  Colour BackColor() const { return backColor_; }
  void SetBackColor(Colour colour);
  // The background is painted, not seen through.
  bool Opaque() const { return opaque_; }
  void SetOpaque(bool opaque);
  Alignment GetAlignment() const { return alignment_; }
  void SetAlignment(Alignment alignment);
  const Font& GetFont() const;
  void SetFont(const Font& font);
  // The control is as large as its caption; a change of caption keeps the edge, or the middle, that the text is set to.
  bool AutoSize() const { return autoSize_; }
  void SetAutoSize(bool autoSize);
  // Pixels that an AutoSize label does not grow beyond; 0 for no limit.
  int MaxWidth() const { return maxWidth_; }
  void SetMaxWidth(int width);
  bool WordWrap() const { return wordWrap_; }
  void SetWordWrap(bool wrap);
  // A caption too long for one line keeps both its ends, with dots between.
  bool ShortensInMiddle() const { return shortens_; }
  void SetShortensInMiddle(bool shortens);
  // A caption too long for one line is shown in smaller letters, down to half of the font's size.
  bool Shrinks() const { return shrinks_; }
  void SetShrinks(bool shrinks);
  // The letters have an edge in the background colour: they can be read on any picture.
  bool HasHalo() const { return halo_; }
  void SetHalo(bool halo);

 private:
  void FitToCaption();

  std::string caption_;
  std::shared_ptr<const Font> font_;
  Colour foreColor_ = ButtonText;
  Colour backColor_ = ButtonFace;
  Alignment alignment_ = Alignment::Left;
  bool opaque_ = false;
  bool autoSize_ = false;
  bool wordWrap_ = false;
  bool shortens_ = false;
  bool shrinks_ = false;
  bool halo_ = false;
  std::uint16_t maxWidth_ = 0;
};

}  // namespace pixorra
