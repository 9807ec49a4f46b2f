// List boxes and drop-down lists as widgets.
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>

#include "platform/controls/Lists.h"
#include "platform/qt/Convert.h"
#include "platform/qt/NativePeer.h"
#include "platform/qt/NativePeers.h"

namespace pixorra {

namespace {

class ListPeer final : public PeerOf<QListWidget, ListBox> {
 public:
  ListPeer(QtBackend& backend, ListBox& control) : PeerOf(backend, control, new QListWidget) {
    QObject::connect(&Widget(), &QListWidget::currentRowChanged, Context(), [this](int row) {
      if (row < 0 || !Knows(row)) return;
      Act([this, row] { Model().UserChose(row); });
    });
  }

 private:
  // The entry that a person sees there is the model's.
  bool Knows(int row) const {
    return row < Model().ListCount() && Widget().item(row)->text() == ToQString(Model().List(row));
  }
  void Mirror() override {
    while (Widget().count() > Model().ListCount()) delete Widget().takeItem(Widget().count() - 1);
    for (int i = 0; i < Model().ListCount(); ++i) {
      const QString text = ToQString(Model().List(i));
      if (i >= Widget().count()) {
        Widget().addItem(text);
      } else if (Widget().item(i)->text() != text) {
        Widget().item(i)->setText(text);
      }
    }
    Widget().setCurrentRow(Model().ListIndex());
    // Without a chosen entry none looks chosen, though the keyboard may stand on one.
    if (Model().ListIndex() < 0) Widget().clearSelection();
  }
};

class ComboPeer final : public PeerOf<QComboBox, ComboBox> {
 public:
  ComboPeer(QtBackend& backend, ComboBox& control) : PeerOf(backend, control, new QComboBox) {
    Widget().setEditable(control.Editable());
    Widget().setInsertPolicy(QComboBox::NoInsert);
    QObject::connect(&Widget(), &QComboBox::activated, Context(), [this](int index) {
      if (!Knows(index)) return;
      Act([this, index] { Model().UserChose(index); });
    });
    if (Widget().lineEdit() == nullptr) return;
    Widget().setCompleter(nullptr);
    QObject::connect(Widget().lineEdit(), &QLineEdit::textEdited, Context(),
                     [this](const QString& text) { Act([this, typed = ToUtf8(text)] { Model().UserTyped(typed); }); });
  }

 private:
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
    Widget().setCurrentIndex(Model().ListIndex());
    const QString text = ToQString(Model().Text());
    if (!Widget().isEditable()) {
      // A text that is none of the entries still shows.
      Widget().setPlaceholderText(text);
    } else if (Widget().currentText() != text) {
      Widget().setEditText(text);
    }
  }
};

}  // namespace

std::unique_ptr<Peer> MakeListPeer(QtBackend& backend, ListBox& list) {
  return std::make_unique<ListPeer>(backend, list);
}

std::unique_ptr<Peer> MakeComboPeer(QtBackend& backend, ComboBox& combo) {
  return std::make_unique<ComboPeer>(backend, combo);
}

}  // namespace pixorra
