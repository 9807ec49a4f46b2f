#include "platform/controls/ImageBox.h"

namespace pixorra {

ImageBox::ImageBox(Container& container, const std::string& name)
    : ImageBox(container, std::make_shared<Identity>(Identity{name, {}}), 0) {}

ImageBox::ImageBox(Container& container, std::shared_ptr<Identity> identity, int index)
    : Control(&container, Kind::ImageBox, std::move(identity), index) {}

void ImageBox::CopyFrom(const ImageBox& source) {
  Control::CopyFrom(source);
  picture_ = source.picture_;
  pressedPicture_ = source.pressedPicture_;
  stretch_ = source.stretch_;
  showsPhotoOfTag_ = source.showsPhotoOfTag_;
  borderStyle_ = source.borderStyle_;
}

void ImageBox::SetPicture(const Picture& picture) {
  if (picture == picture_) return;
  picture_ = picture;
  if (!stretch_ && !picture.IsNothing()) Move(Left(), Top(), picture.Width(), picture.Height());
  Changed(Change::Look);
}

void ImageBox::SetStretch(bool stretch) {
  if (stretch == stretch_) return;
  stretch_ = stretch;
  if (!stretch_ && !picture_.IsNothing()) Move(Left(), Top(), picture_.Width(), picture_.Height());
  Changed(Change::Look);
}

void ImageBox::SetBorderStyle(int style) {
  if (style == borderStyle_) return;
  borderStyle_ = static_cast<std::uint8_t>(style);
  Changed(Change::Look);
}

void ImageBox::SetPressedPicture(const Picture& picture) {
  if (picture == pressedPicture_) return;
  pressedPicture_ = picture;
  if (borderStyle_ != 0) Changed(Change::Look);
}

}  // namespace pixorra
