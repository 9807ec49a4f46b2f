// Control arrays: elements of one kind under one name, told apart by their index. Element 0 is the template in the
// window's definition; further ones are loaded from it, hidden and behind all others, and unloaded again.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/Container.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

// T has a constructor (Container&, shared_ptr<Identity>, int index, extra ...) and CopyFrom(const T&).
template <typename T>
class ControlArray {
 public:
  // What elements need beside their container, such as the file service of file lists, is passed on to each.
  template <typename... Extra>
  ControlArray(Container& container, const std::string& name, Extra&... extra)
      : identity_(std::make_shared<Identity>(Identity{name, {}})) {
    make_ = [&container, identity = identity_, &extra...](int index) {
      return std::make_unique<T>(container, identity, index, extra...);
    };
    elements_.push_back(make_(0));
    elements_[0]->SetVisible(false);
  }

  // Raises error 340 where no such element is loaded.
  T& operator()(int index) const {
    if (!IsLoaded(index)) throw RuntimeError(error::NoSuchElement);
    return *elements_[static_cast<std::size_t>(index)];
  }
  bool IsLoaded(int index) const {
    return index >= 0 && static_cast<std::size_t>(index) < elements_.size() &&
           elements_[static_cast<std::size_t>(index)] != nullptr;
  }
  // The highest index that is loaded.
  int UBound() const { return static_cast<int>(elements_.size()) - 1; }

  // Raises error 360 where it is loaded already, 340 for an index below 0.
  T& Load(int index) {
    if (index < 0) throw RuntimeError(error::NoSuchElement);
    if (IsLoaded(index)) throw RuntimeError(error::AlreadyLoaded);
    const auto at = static_cast<std::size_t>(index);
    if (at >= elements_.size()) elements_.resize(at + 1);
    elements_[at] = make_(index);
    elements_[at]->CopyFrom(*elements_[0]);
    return *elements_[at];
  }
  // Raises error 340 where it is not loaded. The template stays.
  void Unload(int index) {
    if (index == 0 || !IsLoaded(index)) throw RuntimeError(error::NoSuchElement);
    std::unique_ptr<T> gone = std::move(elements_[static_cast<std::size_t>(index)]);
    while (elements_.back() == nullptr) elements_.pop_back();
  }

  // The handlers of all elements, those to be loaded included.
  Events& On() { return identity_->On; }

 private:
  std::shared_ptr<Identity> identity_;
  std::function<std::unique_ptr<T>(int)> make_;
  std::vector<std::unique_ptr<T>> elements_;
};

}  // namespace pixorra
