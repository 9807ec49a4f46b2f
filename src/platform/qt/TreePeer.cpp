// Trees as widgets. The widget's items are told by their nodes' keys: nodes come and go.
#include <QTreeWidget>

#include "platform/controls/TreeView.h"
#include "platform/qt/Convert.h"
#include "platform/qt/NativePeer.h"
#include "platform/qt/NativePeers.h"

namespace pixorra {

namespace {

constexpr int KeyRole = Qt::UserRole;

class TreePeer final : public PeerOf<QTreeWidget, TreeView> {
 public:
  TreePeer(QtBackend& backend, TreeView& control) : PeerOf(backend, control, new QTreeWidget) {
    Widget().setHeaderHidden(true);
    Widget().setColumnCount(1);
    QObject::connect(&Widget(), &QTreeWidget::itemExpanded, Context(),
                     [this](const QTreeWidgetItem* item) { Opened(*item, true); });
    QObject::connect(&Widget(), &QTreeWidget::itemCollapsed, Context(),
                     [this](const QTreeWidgetItem* item) { Opened(*item, false); });
    QObject::connect(&Widget(), &QTreeWidget::currentItemChanged, Context(), [this](const QTreeWidgetItem* item) {
      if (item == nullptr) return;
      Act([this, key = KeyOf(*item)] {
        if (TreeView::Node* node = Model().Find(key)) Model().UserSelected(*node);
      });
    });
  }

 private:
  static std::string KeyOf(const QTreeWidgetItem& item) { return ToUtf8(item.data(0, KeyRole).toString()); }

  void Opened(const QTreeWidgetItem& item, bool expanded) {
    Act([this, expanded, key = KeyOf(item)] {
      if (TreeView::Node* node = Model().Find(key)) Model().UserExpanded(*node, expanded);
    });
  }

  void Mirror() override {
    MirrorChildren(*Widget().invisibleRootItem(), Model().Root());
    if (Model().Selected() == nullptr) Widget().setCurrentItem(nullptr);
  }

  void MirrorChildren(QTreeWidgetItem& parent, const TreeView::Node& node) {
    const auto count = static_cast<int>(node.Children.size());
    while (parent.childCount() > count) delete parent.takeChild(parent.childCount() - 1);
    for (int i = 0; i < count; ++i) {
      const TreeView::Node& child = *node.Children[static_cast<std::size_t>(i)];
      if (i >= parent.childCount()) new QTreeWidgetItem(&parent);
      MirrorNode(*parent.child(i), child);
    }
  }

  void MirrorNode(QTreeWidgetItem& item, const TreeView::Node& node) {
    item.setText(0, ToQString(node.Text));
    item.setData(0, KeyRole, ToQString(node.Key));
    MirrorChildren(item, node);
    item.setChildIndicatorPolicy(node.HasChildren ? QTreeWidgetItem::ShowIndicator
                                                  : QTreeWidgetItem::DontShowIndicatorWhenChildless);
    item.setExpanded(node.Expanded);
    if (&node == Model().Selected() && Widget().currentItem() != &item) {
      Widget().setCurrentItem(&item);
      Widget().scrollToItem(&item);
    }
  }
};

}  // namespace

std::unique_ptr<Peer> MakeTreePeer(QtBackend& backend, TreeView& tree) {
  return std::make_unique<TreePeer>(backend, tree);
}

}  // namespace pixorra
