#include "platform/controls/FileDrops.h"

#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"

namespace pixorra {

Control* TargetOfFiles(Form& form, int x, int y) {
  Toolkit& toolkit = form.OwnToolkit();
  if (!toolkit.TakesInput(form)) return nullptr;
  Control* target = toolkit.ControlAt(form, x, y);
  while (target != nullptr && !target->On().FilesDropped) target = target->GetContainer();
  return target;
}

bool UserDroppedFiles(Form& form, int x, int y, const std::vector<std::string>& paths) {
  Control* target = TargetOfFiles(form, x, y);
  if (target == nullptr) return false;
  const Rect place = target->FormRect();
  const FilesArgs args{paths, static_cast<double>(x - place.Left), static_cast<double>(y - place.Top)};
  Raise(target->On().FilesDropped, *target, args);
  return true;
}

}  // namespace pixorra
