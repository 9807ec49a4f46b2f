// Makes the peers of native controls.
#pragma once

#include <memory>

#include "platform/controls/Peer.h"

namespace pixorra {

class CheckBox;
class ComboBox;
class CommandButton;
class Control;
class ListBox;
class OptionButton;
class ProgressBar;
class QtBackend;
class ScrollBar;
class TextBox;
class TreeView;

// Null for a kind that has no widget. The form's peer must stand already.
std::unique_ptr<Peer> MakeNativePeer(QtBackend& backend, Control& control);

std::unique_ptr<Peer> MakeButtonPeer(QtBackend& backend, CommandButton& button);
std::unique_ptr<Peer> MakeCheckPeer(QtBackend& backend, CheckBox& box);
std::unique_ptr<Peer> MakeOptionPeer(QtBackend& backend, OptionButton& option);
std::unique_ptr<Peer> MakeBarPeer(QtBackend& backend, ScrollBar& bar);
std::unique_ptr<Peer> MakeProgressPeer(QtBackend& backend, ProgressBar& bar);
std::unique_ptr<Peer> MakeTextPeer(QtBackend& backend, TextBox& box);
std::unique_ptr<Peer> MakeListPeer(QtBackend& backend, ListBox& list);
std::unique_ptr<Peer> MakeComboPeer(QtBackend& backend, ComboBox& combo);
std::unique_ptr<Peer> MakeTreePeer(QtBackend& backend, TreeView& tree);

}  // namespace pixorra
