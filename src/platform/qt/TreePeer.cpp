// Trees as widgets. An item is found by its node's key: nodes come and go. What has not changed since the last time is
// not looked at again, so that a folder of thousands costs no more than what is done in it.
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/TreeView.h"
#include "platform/qt/Convert.h"
#include "platform/qt/NativePeer.h"
#include "platform/qt/NativePeers.h"
#include "platform/qt/QtBackend.h"
#include "platform/qt/TreeWidget.h"

namespace pixorra {

namespace {

class Item final : public QTreeWidgetItem {
 public:
  explicit Item(std::string key) : QTreeWidgetItem(UserType), key_(std::move(key)) {}
  const std::string& Key() const { return key_; }

 private:
  std::string key_;
};

const std::string& KeyOf(const QTreeWidgetItem& item) {
  return static_cast<const Item&>(item).Key();
}

// The pictures of a tree are few, and each is on many nodes.
class TreeIcons {
 public:
  explicit TreeIcons(QtBackend& backend) : backend_(backend) {}
  QIcon IconOf(const Picture& picture, double scale) {
    if (picture.IsNothing()) return {};
    for (const Made& made : made_) {
      if (made.Source == picture) return made.Icon;
    }
    if (made_.size() >= MostKept) made_.clear();
    made_.push_back({picture, QIcon(PixmapOf(picture, scale))});
    return made_.back().Icon;
  }

 private:
  static constexpr std::size_t MostKept = 64;
  struct Made {
    Picture Source;
    QIcon Icon;
  };

  QPixmap PixmapOf(const Picture& picture, double scale) {
    const QSize size(picture.Width(), picture.Height());
    QImage drawn = picture.ArtName().empty() ? QImage() : backend_.Art().Render(picture.ArtName(), size * scale);
    if (drawn.isNull()) return QPixmap::fromImage(SharedImage(picture.Pixels()).copy());
    drawn.setDevicePixelRatio(scale);
    return QPixmap::fromImage(drawn);
  }

  QtBackend& backend_;
  std::vector<Made> made_;
};

class TreePeer final : public PeerOf<TreeWidget, TreeView> {
 public:
  TreePeer(QtBackend& backend, TreeView& control) : PeerOf(backend, control, new TreeWidget(control)), icons_(backend) {
    Widget().setHeaderHidden(true);
    Widget().setColumnCount(1);
    // The one column is as wide as the longest text near those on show, and a bar appears where that is wider than the
    // tree.
    Widget().header()->setStretchLastSection(false);
    Widget().header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    // Of the texts around those on show, as each is laid out to be measured, many times for one change.
    Widget().header()->setResizeContentsPrecision(RowsMeasured);
    QObject::connect(Widget().verticalScrollBar(), &QScrollBar::valueChanged, Context(),
                     [this] { Widget().resizeColumnToContents(0); });
    Widget().setUniformRowHeights(true);
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
    ServeHelpers();
  }
  // The widget lives a little longer.
  ~TreePeer() override { Widget().Choose = {}, Widget().Open = {}, Widget().ItemOf = {}, Widget().NodeOf = {}; }
  TreePeer(const TreePeer&) = delete;
  TreePeer& operator=(const TreePeer&) = delete;

 private:
  void ServeHelpers() {
    Widget().Choose = [this](TreeView::Node& node) { Act([this, &node] { Model().UserSelected(node); }); };
    Widget().Open = [this](TreeView::Node& node, bool open) {
      Act([this, &node, open] { Model().UserExpanded(node, open); });
    };
    Widget().ItemOf = [this](const TreeView::Node& node) { return ItemOf(node); };
    Widget().NodeOf = [this](const QTreeWidgetItem& item) { return Model().Find(KeyOf(item)); };
  }
  void Opened(const QTreeWidgetItem& item, bool expanded) {
    if (Mirroring()) return;
    // The widget is to follow the model again, also where the model has not moved.
    moved_.push_back(KeyOf(item));
    Act([this, expanded, key = KeyOf(item)] {
      if (TreeView::Node* node = Model().Find(key)) Model().UserExpanded(*node, expanded);
    });
  }

  // The model acts on keys, as without a window; the widget has none of its own.
  bool OwnKey(const QKeyEvent& event) override {
    const bool command = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    if (command) return true;
    Act([this, code = ToKeyCode(event), text = event.text()] {
      const bool makesText = !text.isEmpty() && text.at(0).isPrint();
      if (!Model().UserKey(code) && makesText) Model().UserTyped(ToUtf8(text));
    });
    return true;
  }

  void Mirror() override {
    QTreeWidgetItem& root = *Widget().invisibleRootItem();
    // One that is to go would hand its place on to the next, again and again.
    const QTreeWidgetItem* before = Widget().currentItem();
    if (before != nullptr && (Model().Selected() == nullptr || KeyOf(*before) != Model().Selected()->Key()))
      Widget().setCurrentItem(nullptr);
    if (Model().Root().Stamp() > mirrored_) MirrorChildren(root, Model().Root());
    mirrored_ = Model().Root().Stamp();
    for (const std::string& key : std::exchange(moved_, {})) {
      const TreeView::Node* node = Model().Find(key);
      if (QTreeWidgetItem* item = node != nullptr ? ItemOf(*node) : nullptr) item->setExpanded(node->Expanded());
    }
    QTreeWidgetItem* current = Model().Selected() != nullptr ? ItemOf(*Model().Selected()) : nullptr;
    if (Widget().currentItem() != current) Widget().setCurrentItem(current);
    const std::string selected = Model().Selected() != nullptr ? Model().Selected()->Key() : std::string();
    if (std::exchange(told_, selected) != selected) Widget().TellSelected();
    if (revealed_ == Model().Reveals()) return;
    revealed_ = Model().Reveals();
    if (const TreeView::Node* node = Model().Revealed()) Widget().scrollToItem(ItemOf(*node));
  }

  QTreeWidgetItem* ItemOf(const TreeView::Node& node) {
    if (node.Parent() == nullptr) return Widget().invisibleRootItem();
    QTreeWidgetItem* parent = ItemOf(*node.Parent());
    return parent != nullptr ? parent->child(static_cast<int>(node.Place())) : nullptr;
  }

  static bool IsInStep(const QTreeWidgetItem& parent, const TreeView::Node& node) {
    if (static_cast<std::size_t>(parent.childCount()) != node.Children().size()) return false;
    int i = 0;
    for (const auto& child : node.Children()) {
      if (KeyOf(*parent.child(i++)) != child->Key()) return false;
    }
    return true;
  }

  // The widget measures itself anew after most changes of an item that it shows; so items are made ready first, and
  // come and go in runs.
  void InsertRun(QTreeWidgetItem& parent, const TreeView::Node& node, std::size_t first, std::size_t end) {
    QList<QTreeWidgetItem*> run;
    for (std::size_t i = first; i < end; ++i) run.append(NewItem(*node.Children()[i]));
    parent.insertChildren(static_cast<int>(first), run);
    for (std::size_t i = first; i < end; ++i) ExpandNew(*parent.child(static_cast<int>(i)), *node.Children()[i]);
  }

  QTreeWidgetItem* NewItem(const TreeView::Node& node) {
    auto* item = new Item(node.Key());
    MirrorLook(*item, node);
    for (const auto& child : node.Children()) item->addChild(NewItem(*child));
    return item;
  }

  static void ExpandNew(QTreeWidgetItem& item, const TreeView::Node& node) {
    if (node.Expanded()) item.setExpanded(true);
    int i = 0;
    for (const auto& child : node.Children()) ExpandNew(*item.child(i++), *child);
  }

  void RemoveGone(QTreeWidgetItem& parent, const TreeView::Node& node) {
    const auto stays = [&](int i) {
      const TreeView::Node* known = Model().Find(KeyOf(*parent.child(i)));
      return known != nullptr && known->Parent() == &node;
    };
    for (int end = parent.childCount(); end > 0; --end) {
      int first = end;
      while (first > 0 && !stays(first - 1)) --first;
      if (first == end) continue;
      Widget().model()->removeRows(first, end - first, Widget().indexFromItem(&parent));
      end = first + 1;
    }
  }

  // Puts in what is new. False where those that were there have changed places.
  bool InsertNew(QTreeWidgetItem& parent, const TreeView::Node& node) {
    const auto& children = node.Children();
    for (std::size_t i = 0; i < children.size(); ++i) {
      const QTreeWidgetItem* item = parent.child(static_cast<int>(i));
      if (item != nullptr && KeyOf(*item) == children[i]->Key()) continue;
      std::size_t end = i;
      while (end < children.size() && (item == nullptr || KeyOf(*item) != children[end]->Key())) ++end;
      if (item != nullptr && end == children.size()) return false;
      InsertRun(parent, node, i, end);
    }
    return IsInStep(parent, node);
  }

  void MirrorChildren(QTreeWidgetItem& parent, const TreeView::Node& node) {
    const auto& children = node.Children();
    const auto changed = [this](const auto& child) { return child->Stamp() > mirrored_; };
    bool inStep = IsInStep(parent, node);
    if (!inStep) {
      RemoveGone(parent, node);
      inStep = InsertNew(parent, node);
    } else if (std::count_if(children.begin(), children.end(), changed) > MostChanged) {
      inStep = false;
    }
    if (!inStep) {
      qDeleteAll(parent.takeChildren());
      InsertRun(parent, node, 0, children.size());
      return;
    }
    int i = 0;
    for (const auto& child : children) {
      QTreeWidgetItem& item = *parent.child(i++);
      if (changed(child)) MirrorNode(item, *child);
    }
  }

  void MirrorNode(QTreeWidgetItem& item, const TreeView::Node& node) {
    MirrorLook(item, node);
    MirrorChildren(item, node);
    if (item.isExpanded() != node.Expanded()) item.setExpanded(node.Expanded());
  }

  void MirrorLook(QTreeWidgetItem& item, const TreeView::Node& node) {
    item.setText(0, ToQString(node.Text()));
    // An entry that is not set is the item's own text.
    const bool other = node.Spoken() != node.Text();
    item.setData(0, Qt::AccessibleTextRole, other ? QVariant(ToQString(node.Spoken())) : QVariant());
    const auto opener =
        node.HasChildren() ? QTreeWidgetItem::ShowIndicator : QTreeWidgetItem::DontShowIndicatorWhenChildless;
    if (item.childIndicatorPolicy() != opener) item.setChildIndicatorPolicy(opener);
    const Picture& picture = node.Icon();
    if (picture.IsNothing() && item.icon(0).isNull()) return;
    const QSize size = Widget().iconSize().expandedTo(QSize(picture.Width(), picture.Height()));
    if (size != Widget().iconSize()) Widget().setIconSize(size);
    item.setIcon(0, icons_.IconOf(picture, Widget().devicePixelRatioF()));
  }

  static constexpr int RowsMeasured = 100;
  // So many children that have changed are changed one by one; more are made anew.
  static constexpr int MostChanged = 200;

  TreeIcons icons_;
  std::vector<std::string> moved_;  // nodes that a person has opened or closed on the screen
  std::string told_;                // the node that helpers were told of last
  std::uint64_t mirrored_ = 0;
  std::uint64_t revealed_ = 0;
};

}  // namespace

std::unique_ptr<Peer> MakeTreePeer(QtBackend& backend, TreeView& tree) {
  return std::make_unique<TreePeer>(backend, tree);
}

}  // namespace pixorra
