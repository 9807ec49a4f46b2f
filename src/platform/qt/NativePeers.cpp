#include "platform/qt/NativePeers.h"

#include "platform/controls/Buttons.h"
#include "platform/controls/Lists.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/TreeView.h"

namespace pixorra {

std::unique_ptr<Peer> MakeNativePeer(QtBackend& backend, Control& control) {
  switch (control.GetKind()) {
    case Kind::CommandButton:
      return MakeButtonPeer(backend, static_cast<CommandButton&>(control));
    case Kind::CheckBox:
      return MakeCheckPeer(backend, static_cast<CheckBox&>(control));
    case Kind::OptionButton:
      return MakeOptionPeer(backend, static_cast<OptionButton&>(control));
    case Kind::ScrollBar:
      return MakeBarPeer(backend, static_cast<ScrollBar&>(control));
    case Kind::TextBox:
      return MakeTextPeer(backend, static_cast<TextBox&>(control));
    case Kind::ListBox:
      return MakeListPeer(backend, static_cast<ListBox&>(control));
    case Kind::ComboBox:
      return MakeComboPeer(backend, static_cast<ComboBox&>(control));
    case Kind::ProgressBar:
      return MakeProgressPeer(backend, static_cast<ProgressBar&>(control));
    case Kind::TreeView:
      return MakeTreePeer(backend, static_cast<TreeView&>(control));
    default:
      return nullptr;
  }
}

}  // namespace pixorra
