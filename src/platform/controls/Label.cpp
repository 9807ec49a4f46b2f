#include "platform/controls/Label.h"

#include <algorithm>
#include <cmath>

#include "platform/controls/Toolkit.h"
#include "platform/runtime/Text.h"

namespace pixorra {

Label::Label(Container& container, const std::string& name)
    : Label(container, std::make_shared<Identity>(Identity{name, {}}), 0) {}

Label::Label(Container& container, std::shared_ptr<Identity> identity, int index)
    : Control(&container, Kind::Label, std::move(identity), index) {}

void Label::CopyFrom(const Label& source) {
  Control::CopyFrom(source);
  caption_ = source.caption_;
  font_ = source.font_;
  foreColor_ = source.foreColor_;
  backColor_ = source.backColor_;
  alignment_ = source.alignment_;
  opaque_ = source.opaque_;
  autoSize_ = source.autoSize_;
  wordWrap_ = source.wordWrap_;
  shortens_ = source.shortens_;
  shrinks_ = source.shrinks_;
  halo_ = source.halo_;
  maxWidth_ = source.maxWidth_;
}

void Label::SetCaption(const std::string& caption) {
  if (caption == caption_) return;
  caption_ = caption;
  FitToCaption();
  Changed(Change::Text);
}

void Label::SetForeColor(Colour colour) {
  if (colour == foreColor_) return;
  foreColor_ = colour;
  Changed(Change::Look);
}

void Label::SetBackColor(Colour colour) {
  if (colour == backColor_) return;
  backColor_ = colour;
  Changed(Change::Look);
}

void Label::SetOpaque(bool opaque) {
  opaque_ = opaque;
  Changed(Change::Look);
}

void Label::SetAlignment(Alignment alignment) {
  alignment_ = alignment;
  Changed(Change::Look);
}

const Font& Label::GetFont() const {
  static const Font standard;
  return font_ ? *font_ : standard;
}

void Label::SetFont(const Font& font) {
  if (font == GetFont()) return;
  font_ = std::make_shared<const Font>(font);
  FitToCaption();
  Changed(Change::Text);
}

void Label::SetAutoSize(bool autoSize) {
  autoSize_ = autoSize;
  FitToCaption();
}

void Label::SetMaxWidth(int width) {
  maxWidth_ = static_cast<std::uint16_t>(std::clamp(width, 0, 0xFFFF));
  FitToCaption();
}

void Label::SetHalo(bool halo) {
  halo_ = halo;
  Changed(Change::Look);
}

void Label::SetWordWrap(bool wrap) {
  wordWrap_ = wrap;
  Changed(Change::Text);
}

void Label::SetShortensInMiddle(bool shortens) {
  if (shortens == shortens_) return;
  shortens_ = shortens;
  Changed(Change::Text);
}

void Label::SetShrinks(bool shrinks) {
  if (shrinks == shrinks_) return;
  shrinks_ = shrinks;
  Changed(Change::Text);
}

void Label::FitToCaption() {
  if (!autoSize_) return;
  const auto [textWidth, textHeight] = GetToolkit().Text().Measure(GetFont(), caption_);
  double width = std::ceil(textWidth);
  if (maxWidth_ > 0) width = std::min(width, static_cast<double>(maxWidth_));
  double left = Left();
  if (alignment_ == Alignment::Center) left += (Width() - width) / 2;
  if (alignment_ == Alignment::Right) left += Width() - width;
  Move(left, Top(), width, std::ceil(textHeight));
}

}  // namespace pixorra
