// Takes a form's menus over into its menu bar.
#pragma once

class QMenuBar;

namespace pixorra {

class Form;
class QtBackend;

void SyncMenuBar(QtBackend& backend, Form& form, QMenuBar& bar);

}  // namespace pixorra
