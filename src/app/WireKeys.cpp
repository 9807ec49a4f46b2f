#include "app/Keys.h"
#include "app/Wiring.h"
#include "window/MainForm.h"

namespace pixorra {

void ConnectKeys(MainForm& main) {
  Connect(main.Window.On().KeyDown, [&main](Control&, int& code, int shift) { Form_KeyDown(main, code, shift); });
}

}  // namespace pixorra
