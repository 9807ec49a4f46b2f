// A clipboard of the test's own.
#pragma once

#include <utility>

#include "platform/pixels/Stretch.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Clipboard.h"

namespace pixorra {

class HeadlessClipboard : public Clipboard {
 public:
  bool HasBitmap() override {
    ++asked_;
    return !bitmap_.IsNothing();
  }
  Picture GetBitmap() override {
    if (const int failure = std::exchange(getFailure_, error::None); failure != error::None)
      throw RuntimeError(failure);
    return readable_ ? bitmap_ : Picture();
  }
  void Clear() override { bitmap_ = Picture(); }
  void SetBitmap(const Picture& picture) override {
    if (const int failure = std::exchange(failure_, error::None); failure != error::None) throw RuntimeError(failure);
    if (picture.IsNothing()) return;
    const Bitmap& pixels = picture.Pixels();
    Bitmap flat(pixels.Width(), pixels.Height(), PixelFormat::Bgr24);
    flat.Fill(0xFFFFFF);
    Stretch(pixels, flat, 0, 0, pixels.Width(), pixels.Height());
    bitmap_ = Picture(std::move(flat));
  }

  // As another program does it.
  void CopyElsewhere(const Picture& picture) { bitmap_ = picture; }
  // Whether the program that has put the picture there hands it out; it does at first.
  void SetReadable(bool readable) { readable_ = readable; }
  // How often it has been asked whether a picture is there.
  int Asked() const { return asked_; }
  // The next picture that is set raises this error.
  void FailNextSet(int number) { failure_ = number; }
  // The next picture that is asked for raises this error.
  void FailNextGet(int number) { getFailure_ = number; }

 private:
  Picture bitmap_;
  bool readable_ = true;
  int failure_ = error::None;
  int getFailure_ = error::None;
  int asked_ = 0;
};

}  // namespace pixorra
