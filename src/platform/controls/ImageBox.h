// A picture on a form, with no surface of its own.
#pragma once

#include <memory>
#include <string>

#include "platform/controls/Container.h"

namespace pixorra {

class ImageBox : public Control {
 public:
  ImageBox(Container& container, const std::string& name);
  ImageBox(Container& container, std::shared_ptr<Identity> identity, int index);
  void CopyFrom(const ImageBox& source);

  const Picture& GetPicture() const { return picture_; }
  // Without Stretch the control takes the size of a picture that is given to it.
  void SetPicture(const Picture& picture);
  bool Stretch() const { return stretch_; }
  void SetStretch(bool stretch);
  // 0 none, 1 fixed single; a picture button with 1 looks pressed.
  int BorderStyle() const { return borderStyle_; }
  void SetBorderStyle(int style);
  // Shown in place of the picture while the border style is 1; nothing: the picture itself.
  const Picture& PressedPicture() const { return pressedPicture_; }
  void SetPressedPicture(const Picture& picture);
  // The picture is a thumbnail of the photo whose path is the Tag: on a screen that has more pixels than the picture, a
  // back end may show the photo itself in its place.
  bool ShowsPhotoOfTag() const { return showsPhotoOfTag_; }
  void SetShowsPhotoOfTag(bool shows) { showsPhotoOfTag_ = shows; }

 private:
  Picture picture_;
  Picture pressedPicture_;
  bool stretch_ = false;
  bool showsPhotoOfTag_ = false;
  std::uint8_t borderStyle_ = 0;
};

}  // namespace pixorra
