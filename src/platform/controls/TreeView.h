// A tree of named nodes, one of which is selected; what lies below a node is asked for when it is first opened.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls/Container.h"

namespace pixorra {

class TreeView : public Control {
 public:
  struct Node {
    std::string Key;  // unique in the tree
    std::string Text;
    bool HasChildren = false;  // an opener is shown
    bool Expanded = false;
    bool Filled = false;  // its children have been asked for
    Node* Parent = nullptr;
    std::vector<std::unique_ptr<Node>> Children;
  };

  TreeView(Container& container, const std::string& name);

  Node& Root() { return root_; }  // not shown itself
  Node& Add(Node& parent, const std::string& key, const std::string& text, bool hasChildren);
  void Clear();
  Node* Find(const std::string& key);
  // Asks for the children of a node that is opened for the first time.
  void SetFiller(std::function<void(TreeView&, Node&)> filler) { filler_ = std::move(filler); }
  void Expand(Node& node);
  void Collapse(Node& node);
  // A different node raises Change, whoever selects it; the nodes above it are opened.
  Node* Selected() const { return selected_; }
  void Select(Node* node);

  void UserSelected(Node& node);
  void UserExpanded(Node& node, bool expanded);

 private:
  Node root_;
  Node* selected_ = nullptr;
  std::function<void(TreeView&, Node&)> filler_;
};

}  // namespace pixorra
