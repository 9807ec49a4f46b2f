// List boxes and drop-down lists as widgets.
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPointer>
#include <QStyledItemDelegate>
#include <algorithm>
#include <optional>

#include "platform/controls/Lists.h"
#include "platform/qt/Convert.h"
#include "platform/qt/NativePeer.h"
#include "platform/qt/NativePeers.h"

namespace pixorra {

namespace {

constexpr int CellMargin = 3;  // pixels at each side of a cell's text

// Shows the cells of an entry, each in its column.
class CellDelegate final : public QStyledItemDelegate {
 public:
  CellDelegate(const ListBox& list, QObject* parent) : QStyledItemDelegate(parent), list_(&list) {}
  // The list is about to go.
  void Detach() { list_ = nullptr; }

  // A row with columns is as wide as the list: what does not fit into a cell is cut there.
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return list_ == nullptr || list_->Columns().empty() ? size : QSize(0, size.height());
  }
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    if (list_ == nullptr || list_->Columns().empty() || index.row() >= list_->ListCount()) {
      QStyledItemDelegate::paint(painter, option, index);
      return;
    }
    row.text.clear();
    const QStyle& style = *row.widget->style();
    style.drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
    const bool chosen = row.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setFont(row.font);
    painter->setLayoutDirection(row.direction);  // a painter begins with the application's
    painter->setPen(row.palette.color(chosen ? QPalette::HighlightedText : QPalette::Text));
    PaintCells(*painter, row, list_->Cells(index.row()));
    painter->restore();
  }

 private:
  void PaintCells(QPainter& painter, const QStyleOptionViewItem& row, const std::vector<std::string>& cells) const {
    const std::vector<ListColumn>& columns = list_->Columns();
    int left = row.rect.width();
    int open = 0;
    for (const ListColumn& column : columns) {
      left -= column.Width;
      if (column.Width <= 0) ++open;
    }
    int x = row.rect.left();
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const int width = columns[i].Width > 0 ? columns[i].Width : std::max(0, left) / open;
      const QRect cell(x + CellMargin, row.rect.top(), width - 2 * CellMargin, row.rect.height());
      const QString text = painter.fontMetrics().elidedText(ToQString(cells[i]), Qt::ElideRight, cell.width());
      painter.drawText(cell, (ToQt(columns[i].Side) | Qt::AlignVCenter).toInt(), text);
      x += width;
    }
  }

  const ListBox* list_;
};

class ListPeer final : public PeerOf<QListWidget, ListBox> {
 public:
  ListPeer(QtBackend& backend, ListBox& control)
      : PeerOf(backend, control, new QListWidget), cells_(new CellDelegate(control, &Widget())) {
    // Thousands of rows are laid out from the height of one.
    Widget().setUniformItemSizes(true);
    Widget().setItemDelegate(cells_);
    QObject::connect(&Widget(), &QListWidget::currentRowChanged, Context(), [this](int row) {
      if (row < 0 || !Knows(row)) return;
      Act([this, row] { Model().UserChose(row); });
    });
    // A screen reader selects an entry without moving there. A hand does both, one after the other.
    QObject::connect(&Widget(), &QListWidget::itemSelectionChanged, Context(), [this] {
      if (!Mirroring())
        QMetaObject::invokeMethod(
            Context(), [this] { GoToSelected(); }, Qt::QueuedConnection);
    });
  }
  // The widget lives a little longer.
  ~ListPeer() override {
    if (cells_ != nullptr) cells_->Detach();
  }
  ListPeer(const ListPeer&) = delete;
  ListPeer& operator=(const ListPeer&) = delete;

 private:
  void GoToSelected() {
    const QList<QListWidgetItem*> selected = Widget().selectedItems();
    if (selected.size() == 1) Widget().setCurrentItem(selected.first());
  }
  // The entry that a person sees there is the model's.
  bool Knows(int row) const {
    return row < Model().ListCount() && Widget().item(row)->text() == ToQString(Model().List(row));
  }
  void Mirror() override {
    if (mirrored_ != Model().Revision()) MirrorEntries();
    mirrored_ = Model().Revision();
    if (columns_ != Model().Columns()) {
      columns_ = Model().Columns();
      Widget().doItemsLayout();
    }
    Widget().setCurrentRow(Model().ListIndex());
    // Without a chosen entry none looks chosen, though the keyboard may stand on one.
    if (Model().ListIndex() < 0) Widget().clearSelection();
  }
  void MirrorEntries() {
    const int count = Model().ListCount();
    if (count == 0) Widget().clear();
    // The view paints what comes at once, and what has gone at its next layout only, which may be long after.
    if (count < Widget().count() || count == 0) Widget().viewport()->update();
    while (Widget().count() > count) delete Widget().takeItem(Widget().count() - 1);
    for (int i = 0; i < Widget().count(); ++i) {
      const QString text = ToQString(Model().List(i));
      if (Widget().item(i)->text() != text) Widget().item(i)->setText(text);
    }
    QStringList added;
    for (int i = Widget().count(); i < count; ++i) added.append(ToQString(Model().List(i)));
    Widget().addItems(added);
  }

  QPointer<CellDelegate> cells_;
  std::vector<ListColumn> columns_;
  std::optional<unsigned> mirrored_;
};

class ComboPeer final : public PeerOf<QComboBox, ComboBox> {
 public:
  ComboPeer(QtBackend& backend, ComboBox& control) : PeerOf(backend, control, new QComboBox) {
    Widget().setEditable(control.Editable());
    Widget().setInsertPolicy(QComboBox::NoInsert);
    NameForHelpers();
    QObject::connect(&Widget(), &QComboBox::activated, Context(), [this](int index) {
      if (!Knows(index)) return;
      Act([this, index] { Model().UserChose(index); });
    });
    if (Widget().lineEdit() == nullptr) return;
    Widget().setCompleter(nullptr);
    QObject::connect(Widget().lineEdit(), &QLineEdit::textEdited, Context(),
                     [this](const QString& text) { Act([this, typed = ToUtf8(text)] { Model().UserTyped(typed); }); });
    // A screen reader writes without typing. After a choice, as after what is typed, the model has the text when this
    // runs.
    QObject::connect(Widget().lineEdit(), &QLineEdit::textChanged, Context(), [this] {
      if (!Mirroring())
        QMetaObject::invokeMethod(
            Context(), [this] { TakeWritten(); }, Qt::QueuedConnection);
    });
  }
  ~ComboPeer() override { delete label_; }
  ComboPeer(const ComboPeer&) = delete;
  ComboPeer& operator=(const ComboPeer&) = delete;

 private:
  // To them a list's own name is what is chosen in it, and what it is for is its label.
  void NameForHelpers() {
    const QString name = ToQString(Model().AccessibleName());
    if (name.isEmpty()) return;
    label_ = new QLabel(name, Widget().parentWidget());
    label_->hide();
    label_->setBuddy(&Widget());
    if (Widget().lineEdit() != nullptr) Widget().lineEdit()->setAccessibleName(name);
  }
  void TakeWritten() {
    const std::string text = ToUtf8(Widget().lineEdit()->text());
    if (text != Model().Text()) Act([this, text] { Model().UserTyped(text); });
  }
  // Enter is for the program: the widget would take it for a choice of the entry of that text.
  bool OwnKey(const QKeyEvent& event) override {
    return Widget().isEditable() && (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter);
  }
  bool Knows(int index) const {
    return index < Model().ListCount() && Widget().itemText(index) == ToQString(Model().List(index));
  }
  void Mirror() override {
    while (Widget().count() > Model().ListCount()) Widget().removeItem(Widget().count() - 1);
    for (int i = 0; i < Model().ListCount(); ++i) {
      const QString text = ToQString(Model().List(i));
      if (i >= Widget().count()) {
        Widget().addItem(text);
      } else if (Widget().itemText(i) != text) {
        Widget().setItemText(i, text);
      }
    }
    const QString text = ToQString(Model().Text());
    if (!Widget().isEditable()) {
      Widget().setCurrentIndex(Model().ListIndex());
      // A text that is none of the entries still shows.
      Widget().setPlaceholderText(text);
      return;
    }
    QLineEdit& line = *Widget().lineEdit();
    // The entry that is chosen, or none, would bring its own text: what is being typed keeps its cursor.
    const int cursor = line.text() == text ? line.cursorPosition() : -1;
    if (Widget().currentIndex() != Model().ListIndex()) Widget().setCurrentIndex(Model().ListIndex());
    if (line.text() != text) line.setText(text);
    if (cursor >= 0 && line.cursorPosition() != cursor) line.setCursorPosition(cursor);
  }

  QPointer<QLabel> label_;
};

}  // namespace

std::unique_ptr<Peer> MakeListPeer(QtBackend& backend, ListBox& list) {
  return std::make_unique<ListPeer>(backend, list);
}

std::unique_ptr<Peer> MakeComboPeer(QtBackend& backend, ComboBox& combo) {
  return std::make_unique<ComboPeer>(backend, combo);
}

}  // namespace pixorra
