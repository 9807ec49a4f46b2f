// What a person does with a tree, by mouse and by keys.
#include <algorithm>
#include <cstddef>

#include "platform/controls/Toolkit.h"
#include "platform/controls/TreeView.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

bool ShowsChildren(const TreeView::Node& node) {
  return node.Expanded() && !node.Children().empty();
}

TreeView::Node* LastWithin(const TreeView::Node& node) {
  const TreeView::Node* last = &node;
  while (ShowsChildren(*last)) last = last->Children().back().get();
  return const_cast<TreeView::Node*>(last);
}

bool BeginsWith(const std::string& text, const std::string& start) {
  return EqualIgnoringCase(CutToBytes(text, start.size()), start);
}

}  // namespace

TreeView::Node* TreeView::FirstShown() const {
  return root_.Children().empty() ? nullptr : root_.Children().front().get();
}

TreeView::Node* TreeView::LastShown() const {
  return root_.Children().empty() ? nullptr : LastWithin(*root_.Children().back());
}

TreeView::Node* TreeView::NextShown(const Node& node) {
  if (ShowsChildren(node)) return node.Children().front().get();
  for (const Node* at = &node; at->Parent() != nullptr; at = at->Parent()) {
    const auto& siblings = at->Parent()->Children();
    const std::size_t next = at->Place() + 1;
    if (next < siblings.size()) return siblings[next].get();
  }
  return nullptr;
}

TreeView::Node* TreeView::PreviousShown(const Node& node) {
  if (node.Place() > 0) return LastWithin(*node.Parent()->Children()[node.Place() - 1]);
  return node.Parent()->Parent() != nullptr ? node.Parent() : nullptr;
}

void TreeView::UserSelected(Node& node) {
  if (Enabled()) Select(&node);
}

void TreeView::UserExpanded(Node& node, bool expanded) {
  if (!Enabled()) return;
  if (expanded) {
    Expand(node);
  } else {
    Collapse(node);
  }
}

bool TreeView::UserGoesTo(Node* node) {
  if (node != nullptr && Enabled()) Select(node);
  return true;
}

bool TreeView::UserKey(int keyCode) {
  const int page = std::max(1, Height() / RowHeight - 1);
  const auto away = [&](Node* (*step)(const Node&)) {
    Node* node = selected_;
    for (int i = 0; i < page && node != nullptr; ++i) {
      Node* next = step(*node);
      if (next == nullptr) break;
      node = next;
    }
    return node;
  };
  Node* const first = FirstShown();
  const bool opened = selected_ != nullptr && selected_->HasChildren() && selected_->Expanded();
  switch (keyCode) {
    case key::Home:
      return UserGoesTo(first);
    case key::End:
      return UserGoesTo(LastShown());
    case key::Down:
      return UserGoesTo(selected_ != nullptr ? NextShown(*selected_) : first);
    case key::Up:
      return UserGoesTo(selected_ != nullptr ? PreviousShown(*selected_) : first);
    case key::PageDown:
      return UserGoesTo(selected_ != nullptr ? away(NextShown) : first);
    case key::PageUp:
      return UserGoesTo(selected_ != nullptr ? away(PreviousShown) : first);
    case key::Left:
      if (selected_ == nullptr) return true;
      if (!opened) return UserGoesTo(selected_->Parent() != &root_ ? selected_->Parent() : nullptr);
      UserExpanded(*selected_, false);
      return true;
    case key::Right:
      if (selected_ == nullptr) return true;
      if (opened) return UserGoesTo(ShowsChildren(*selected_) ? selected_->Children().front().get() : nullptr);
      UserExpanded(*selected_, true);
      return true;
    default:
      return false;
  }
}

void TreeView::UserTyped(const std::string& character) {
  const double now = GetToolkit().Seconds();
  const bool goesOn = !search_.empty() && now - searchedAt_ < SearchPause;
  searchedAt_ = now;
  if (!goesOn) search_.clear();
  // No name begins with a blank.
  if (FirstShown() == nullptr || (search_.empty() && character == " ")) return;
  const bool again = goesOn && EqualIgnoringCase(search_, character);
  if (!again) search_ += character;
  // A search that goes on may stay where it is; one that begins, or begins again, moves.
  Node* const from = selected_ != nullptr ? selected_ : LastShown();
  const bool stays = goesOn && !again;
  const auto after = [this](const Node& node) {
    Node* next = NextShown(node);
    return next != nullptr ? next : FirstShown();
  };
  Node* node = stays ? from : after(*from);
  Node* const start = node;
  while (!BeginsWith(node->Text(), search_)) {
    node = after(*node);
    if (node == start) return;
  }
  UserGoesTo(node);
}

}  // namespace pixorra
