// A person's hands on a tree.
#include "platform/controls/Toolkit.h"
#include "platform/controls/TreeView.h"
#include "platform/headless/Person.h"

namespace pixorra {

namespace {

TreeNode* ChildOf(const TreeNode& node, const std::string& text) {
  for (const auto& child : node.Children()) {
    if (child->Text() == text) return child.get();
  }
  return nullptr;
}

}  // namespace

// Null, and a failure, where a node is not there or cannot be opened. What opening asks for may come later: then the
// node is not there yet.
TreeNode* Person::WayTo(TreeView& tree, const std::vector<std::string>& path) {
  const Watch<TreeView> watch(tree);
  TreeNode* node = &tree.Root();
  for (const std::string& text : path) {
    if (!node->Expanded()) Act([&] { tree.UserExpanded(*node, true); });
    if (!watch) return nullptr;
    node = node->Expanded() ? ChildOf(*node, text) : nullptr;
    if (node != nullptr) continue;
    Fail("tree " + tree.Name() + " shows no node \"" + text + "\"");
    return nullptr;
  }
  return node;
}

void Person::Choose(TreeView& tree, const std::vector<std::string>& path) {
  if (!CanUse(tree)) return;
  const Watch<TreeView> watch(tree);
  Focus(tree);
  if (!watch) return;
  if (TreeNode* node = WayTo(tree, path)) Act([&] { tree.UserSelected(*node); });
}

void Person::Expand(TreeView& tree, const std::vector<std::string>& path) {
  if (!CanUse(tree)) return;
  TreeNode* node = WayTo(tree, path);
  if (node == nullptr) return;
  if (!node->HasChildren()) Fail("tree " + tree.Name() + ": \"" + node->Text() + "\" cannot be opened");
  Act([&] { tree.UserExpanded(*node, true); });
}

void Person::Collapse(TreeView& tree, const std::vector<std::string>& path) {
  if (!CanUse(tree)) return;
  if (TreeNode* node = WayTo(tree, path)) Act([&] { tree.UserExpanded(*node, false); });
}

}  // namespace pixorra
