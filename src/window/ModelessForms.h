// The forms that are shown without waiting for them. Each is made when it is first wanted, is unloaded
// with the main window.
#pragma once

#include <memory>
#include <typeindex>
#include <utility>
#include <vector>

#include "platform/controls/Form.h"

namespace pixorra {

class ModelessForms {
 public:
  // The one form of type T, which has its Form as `Window`. Made from the arguments where there is none yet.
  template <typename T, typename... Args>
  T& Get(Args&&... args) {
    if (T* made = Find<T>()) return *made;
    auto held = std::make_unique<HeldForm<T>>(std::forward<Args>(args)...);
    T& form = held->form;
    held_.push_back(std::move(held));
    return form;
  }
  // Null where none has been made.
  template <typename T>
  T* Find() const {
    for (const auto& held : held_) {
      if (held->type == typeid(T)) return &static_cast<HeldForm<T>&>(*held).form;
    }
    return nullptr;
  }
  // With the main window: unloads each form, the last one made first.
  void UnloadAll();

 private:
  struct Held {
    explicit Held(std::type_index formType) : type(formType) {}
    virtual ~Held() = default;
    virtual Form& Window() = 0;
    std::type_index type;
  };
  template <typename T>
  struct HeldForm : Held {
    template <typename... Args>
    explicit HeldForm(Args&&... args) : Held(typeid(T)), form(std::forward<Args>(args)...) {}
    Form& Window() override { return form.Window; }
    T form;
  };

  std::vector<std::unique_ptr<Held>> held_;
};

}  // namespace pixorra
