// What a tree view holds: nodes, each with a text, pictures, and nodes below it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/pixels/Picture.h"

namespace pixorra {

class TreeView;

// What a node shows.
struct TreeEntry {
  std::string Key;  // names the node; unique in its tree
  std::string Text;
  bool HasChildren = false;  // it can be opened; what is below it may be unknown yet
  Picture Icon;              // nothing: no picture
  Picture OpenIcon;          // while the node is open; nothing: the same as Icon
  std::string Spoken;        // what a screen reader says in place of the text; empty: the text
};

// Only its tree changes it.
class TreeNode {
 public:
  TreeNode(const TreeNode&) = delete;
  TreeNode& operator=(const TreeNode&) = delete;

  const std::string& Key() const { return entry_.Key; }
  const std::string& Text() const { return entry_.Text; }
  const std::string& Spoken() const { return entry_.Spoken.empty() ? entry_.Text : entry_.Spoken; }
  // The picture on show.
  const Picture& Icon() const { return expanded_ && !entry_.OpenIcon.IsNothing() ? entry_.OpenIcon : entry_.Icon; }
  bool HasChildren() const { return entry_.HasChildren; }
  bool Expanded() const { return expanded_; }
  // Its children have been asked for; they are known when the answer has come.
  bool Asked() const { return asked_; }
  bool Known() const { return known_; }
  TreeNode* Parent() const { return parent_; }  // null for the root of all
  const std::vector<std::unique_ptr<TreeNode>>& Children() const { return children_; }
  std::size_t Place() const { return place_; }  // among the children of its parent, from 0
  bool IsBelow(const TreeNode& node) const;
  // Grows with each change of this node or of one below it.
  std::uint64_t Stamp() const { return stamp_; }

 private:
  friend class TreeView;
  friend class TreeHandle;
  TreeNode(TreeEntry entry, TreeNode* parent) : entry_(std::move(entry)), parent_(parent) {}

  TreeEntry entry_;
  TreeNode* parent_;
  std::vector<std::unique_ptr<TreeNode>> children_;
  std::shared_ptr<TreeNode*> life_;
  std::size_t place_ = 0;
  std::uint64_t stamp_ = 0;
  bool expanded_ = false;
  bool asked_ = false;
  bool known_ = false;
};

// Holds on to a node weakly: empty once the node has gone, or the whole tree has.
class TreeHandle {
 public:
  TreeHandle() = default;
  explicit TreeHandle(TreeNode& node);
  TreeNode* Get() const;
  explicit operator bool() const { return Get() != nullptr; }

 private:
  std::weak_ptr<TreeNode*> life_;
};

}  // namespace pixorra
