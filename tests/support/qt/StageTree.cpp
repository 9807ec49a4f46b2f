// The person's hands on trees.
#include <QTreeWidget>

#include "platform/controls/TreeView.h"
#include "tests/support/qt/StagePerson.h"

namespace pixorra {

QTreeWidgetItem* StagePerson::WayTo(TreeView& tree, const std::vector<std::string>& path) {
  if (!CanReach(tree, "use")) return nullptr;
  std::vector<std::string> way;
  QTreeWidgetItem* item = nullptr;
  for (const std::string& text : path) {
    if (item != nullptr && !item->isExpanded()) {
      hands_.ClickOpener(*item);
      Settle();
    }
    way.push_back(text);
    item = Hands::ItemOf(tree, way);
    if (item != nullptr) continue;
    failures_.Report("tree " + tree.Name() + " shows no node \"" + text + "\"");
    return nullptr;
  }
  return item;
}

void StagePerson::Choose(TreeView& tree, const std::vector<std::string>& path) {
  if (QTreeWidgetItem* item = WayTo(tree, path)) hands_.ChooseItem(*item);
  Settle();
}

void StagePerson::Expand(TreeView& tree, const std::vector<std::string>& path) {
  QTreeWidgetItem* item = WayTo(tree, path);
  if (item != nullptr && !item->isExpanded()) hands_.ClickOpener(*item);
  Settle();
}

void StagePerson::Collapse(TreeView& tree, const std::vector<std::string>& path) {
  QTreeWidgetItem* item = WayTo(tree, path);
  if (item != nullptr && item->isExpanded()) hands_.ClickOpener(*item);
  Settle();
}

}  // namespace pixorra
