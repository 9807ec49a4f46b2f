#include "window/ModelessForms.h"

namespace pixorra {

// By number, as a handler that runs meanwhile may make another form.
void ModelessForms::UnloadAll() {
  for (std::size_t i = held_.size(); i > 0; --i) held_[i - 1]->Window().Unload();
}

}  // namespace pixorra
