// A tree of named nodes, one of which is selected. What is below a node is asked for when it is first opened, and the
// answer may come at once, later or never.
//
//   tree.SetFiller([](TreeView& tree, TreeView::Node& node) { ... });      is asked for the children of a node
//   tree.Fill(node, entries);                                              answers; an answer that comes later keeps a
//                                                                          TreeHandle, as the node may go meanwhile
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/controls/Container.h"
#include "platform/controls/TreeNode.h"

namespace pixorra {

class TreeView : public Control {
 public:
  using Node = TreeNode;
  using Filler = std::function<void(TreeView&, Node&)>;
  // A person who types looks for a name; after so many seconds without a key a new search begins.
  static constexpr double SearchPause = 1;
  static constexpr int RowHeight = 18;  // pixels, about; tells how far a page is

  TreeView(Container& container, const std::string& name);

  Node& Root() { return root_; }  // not shown itself; always open
  const Node& Root() const { return root_; }
  // At the end of the parent's children. Raises BadPropertyValue for a key that another node has.
  Node& Add(Node& parent, TreeEntry entry);
  // Makes these the children of the node, in this order, and the node known. Those there already with the same key stay
  // with all below them; the others go. Without any children a node can not be opened. Raises BadPropertyValue, with
  // nothing changed, for a key twice in the list or of a node elsewhere. One call for many children, not one for each.
  void Fill(Node& node, std::vector<TreeEntry> children);
  // With all below it; not the root. A selection in it moves to the node above.
  void Remove(Node& node);
  void Clear();
  void SetText(Node& node, const std::string& text);
  Node* Find(const std::string& key) const;

  void SetFiller(Filler filler) { filler_ = std::move(filler); }
  // Asks for the children of a node, also when they were asked for before. The node may be gone when this returns.
  void Ask(Node& node);
  // There is no answer for the node: what it has below it stays, without anything it closes, and it is asked when it is
  // opened next.
  void GiveUp(Node& node);
  // Opens a node that can be opened, and asks for its children if nobody has yet.
  void Expand(Node& node);
  // A selection below the node moves to it.
  void Collapse(Node& node);
  // A different node raises Change, whoever selects it. It is brought into view.
  Node* Selected() const { return selected_; }
  void Select(Node* node);
  // Opens the nodes above it and scrolls there.
  void EnsureVisible(Node& node);
  // The node that was last to be brought into view, if it is still there, and how many have been.
  Node* Revealed() const { return revealed_.Get(); }
  std::uint64_t Reveals() const { return reveals_; }

  // The nodes as they are seen, from the top: those whose nodes above are all open. Null at either end.
  Node* FirstShown() const;
  Node* LastShown() const;
  static Node* NextShown(const Node& node);
  static Node* PreviousShown(const Node& node);

  void UserSelected(Node& node);
  void UserExpanded(Node& node, bool expanded);
  // Arrows, Home, End and the page keys; false for any other.
  bool UserKey(int keyCode);
  // Selects the next node on show whose text begins with what was typed, case ignored; the same character again goes on
  // to the next one.
  void UserTyped(const std::string& character);

 private:
  Node& Insert(Node& parent, TreeEntry entry);
  void Forget(const Node& node);
  void Touch(Node& node);
  void MustBeNew(const Node& node, const std::vector<TreeEntry>& children) const;
  bool Replace(Node& node, std::vector<TreeEntry> children);
  bool TakeOver(Node& node, TreeEntry entry);
  void OpenAbove(const Node& node);
  void Reveal(Node& node);
  // Moves off what goes; true where Change is to be raised.
  bool SelectionLeaves(const Node& going, Node* to);
  void Tell(bool selectionMoved);
  bool UserGoesTo(Node* node);

  Node root_{{}, nullptr};
  Node* selected_ = nullptr;
  Filler filler_;
  std::unordered_map<std::string, Node*> index_;
  TreeHandle revealed_;
  std::uint64_t reveals_ = 0;
  std::uint64_t stamp_ = 0;
  std::string search_;
  double searchedAt_ = 0;
};

}  // namespace pixorra
