// Push buttons, check boxes and option buttons as widgets.
#include <QButtonGroup>
#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/controls/Buttons.h"
#include "platform/qt/Convert.h"
#include "platform/qt/NativePeer.h"
#include "platform/qt/NativePeers.h"

namespace pixorra {

namespace {

class ButtonPeer final : public PeerOf<QPushButton, CommandButton> {
 public:
  ButtonPeer(QtBackend& backend, CommandButton& control) : PeerOf(backend, control, new QPushButton) {
    Widget().setAutoDefault(false);
    QObject::connect(&Widget(), &QPushButton::clicked, Context(), [this] { Act([this] { Model().UserClicked(); }); });
  }

 private:
  void Mirror() override {
    Widget().setText(ToQString(Model().Caption()));
    Widget().setDefault(Model().IsDefault());
    QFont font = ToQFont(Font{});
    font.setBold(Model().Bold());
    Widget().setFont(font);
  }
};

// A click on any part of the control is one on its mark, as far as its caption may be from there.
template <typename ButtonType>
class WholeButton final : public ButtonType {
 protected:
  bool hitButton(const QPoint& at) const override { return this->rect().contains(at); }
};

// Runs `click` for a click on the mark, and when a screen reader has set it without one: `differs` is asked for that in
// a later turn, unless a click has come meanwhile. By what the model sets, both are the same again by then.
void WhenClicked(QAbstractButton& button, QObject* context, const std::function<bool()>& differs,
                 const std::function<void()>& click) {
  const auto looks = std::make_shared<bool>(false);
  QObject::connect(&button, &QAbstractButton::clicked, context, [looks, click] {
    *looks = false;
    click();
  });
  QObject::connect(&button, &QAbstractButton::toggled, context, [context, looks, differs, click] {
    *looks = true;
    QMetaObject::invokeMethod(
        context,
        [looks, differs, click] {
          if (std::exchange(*looks, false) && differs()) click();
        },
        Qt::QueuedConnection);
  });
}

class CheckPeer final : public PeerOf<QCheckBox, CheckBox> {
 public:
  CheckPeer(QtBackend& backend, CheckBox& control) : PeerOf(backend, control, new WholeButton<QCheckBox>) {
    WhenClicked(
        Widget(), Context(), [this] { return Widget().isChecked() != (Model().Value() != 0); },
        [this] { Act([this] { Model().UserClicked(); }); });
  }

 private:
  void Mirror() override {
    Widget().setText(ToQString(Model().Caption()));
    Widget().setChecked(Model().Value() != 0);
  }
};

class OptionPeer final : public PeerOf<QRadioButton, OptionButton> {
 public:
  OptionPeer(QtBackend& backend, OptionButton& control) : PeerOf(backend, control, new WholeButton<QRadioButton>) {
    // The model settles which one of a group is set, so each is alone in a group that settles nothing. Without
    // `autoExclusive` helpers would take it for a check box.
    group_.setExclusive(false);
    group_.addButton(&Widget());
    Widget().setAutoExclusive(true);
    WhenClicked(
        Widget(), Context(), [this] { return Widget().isChecked() != Model().Value(); },
        [this] { Act([this] { Model().UserClicked(); }); });
  }

 private:
  void Mirror() override {
    Widget().setText(ToQString(Model().Caption()));
    Widget().setChecked(Model().Value());
  }
  // Arrow keys choose among the group, in the order in which the options stand.
  bool OwnKey(const QKeyEvent& event) override {
    int step = 0;
    if (event.key() == Qt::Key_Down || event.key() == Qt::Key_Right) step = 1;
    if (event.key() == Qt::Key_Up || event.key() == Qt::Key_Left) step = -1;
    if (step == 0) return false;
    Act([this, step] {
      const Watch<OptionButton> next(Neighbour(step));
      next->SetFocus();
      if (next) next->UserClicked();
    });
    return true;
  }
  OptionButton& Neighbour(int step) const {
    std::vector<OptionButton*> group;
    for (Control* other : Model().GetContainer()->Controls()) {
      if (other->GetKind() != Kind::OptionButton || !other->IsShown() || !other->Enabled()) continue;
      group.push_back(static_cast<OptionButton*>(other));
    }
    std::stable_sort(group.begin(), group.end(), [](const OptionButton* a, const OptionButton* b) {
      return a->Top() != b->Top() ? a->Top() < b->Top() : a->Left() < b->Left();
    });
    const auto at = static_cast<int>(std::find(group.begin(), group.end(), &Model()) - group.begin());
    const auto count = static_cast<int>(group.size());
    return at == count ? Model() : *group[static_cast<std::size_t>((at + step + count) % count)];
  }

  QButtonGroup group_;
};

}  // namespace

std::unique_ptr<Peer> MakeButtonPeer(QtBackend& backend, CommandButton& button) {
  return std::make_unique<ButtonPeer>(backend, button);
}

std::unique_ptr<Peer> MakeCheckPeer(QtBackend& backend, CheckBox& box) {
  return std::make_unique<CheckPeer>(backend, box);
}

std::unique_ptr<Peer> MakeOptionPeer(QtBackend& backend, OptionButton& option) {
  return std::make_unique<OptionPeer>(backend, option);
}

}  // namespace pixorra
