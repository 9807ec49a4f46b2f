// A scratch element of a control array for as long as a routine needs it.
#pragma once

#include <algorithm>

#include "window/PicturesState.h"

namespace pixorra {

// Loads the element at an index, and gives it back on every way out.
template <typename T>
class Scratch {
 public:
  Scratch(ControlArray<T>& array, int index) : array_(array), index_(index) { array_.Load(index_); }
  explicit Scratch(ControlArray<T>& array) : Scratch(array, array.UBound() + 1) {}
  ~Scratch() {
    if (array_.IsLoaded(index_)) array_.Unload(index_);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  // A new element in its place.
  void Renew() {
    array_.Unload(index_);
    array_.Load(index_);
  }
  T& operator*() const { return array_(index_); }
  T* operator->() const { return &array_(index_); }

 private:
  ControlArray<T>& array_;
  int index_;
};

// The index past all scratch elements, pictures and images alike.
inline int NextScratchIndex(const PicturesState& pictures) {
  return std::max(pictures.TempPic.UBound(), pictures.TempImage.UBound()) + 1;
}

}  // namespace pixorra
