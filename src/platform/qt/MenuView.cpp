#include "platform/qt/MenuView.h"

#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/Convert.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

QString MenuText(const MenuItem& item) {
  QString text = ToQString(item.Caption());
  const std::string keys = item.ShortcutText();
  // Behind a tab stands what the program does about keys itself: it is shown and not listened to.
  if (!keys.empty()) text += QLatin1Char('\t') + ToQString(keys);
  return text;
}

MenuView::MenuView(QtBackend& backend, MenuItem& menu, Raises raises, QWidget* parent)
    : QMenu(parent), backend_(backend), menu_(menu), chosen_(std::make_shared<Chosen>()) {
  setObjectName(ToQString(menu.Name()));
  setAccessibleName(ToQString(menu.Caption()).remove(QLatin1Char('&')));
  setLayoutDirection(Qt::LeftToRight);  // as the form's window; a menu does not have it from there
  QObject::connect(this, &QMenu::aboutToShow, this, [this, raises] {
    if (raises == Raises::Self) {
      backend_.Dispatch([this] {
        if (menu_) menu_->UserClicked();
      });
    }
    Fill();
  });
}

void MenuView::OnChosen(const Chosen& chosen) {
  *chosen_ = chosen;
}

void MenuView::Fill() {
  if (!menu_) return;
  const auto& items = menu_->Items();
  if (static_cast<std::size_t>(actions().size()) != items.size()) Rebuild();
  const QList<QAction*> shown = actions();
  for (std::size_t i = 0; i < items.size(); ++i) Show(*shown[static_cast<qsizetype>(i)], *items[i]);
}

void MenuView::Rebuild() {
  clear();
  qDeleteAll(findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
  for (MenuItem* item : menu_->Items()) {
    if (!item->Items().empty()) {
      auto* below = new MenuView(backend_, *item, Raises::Self, this);
      below->chosen_ = chosen_;
      below->Fill();
      addMenu(below);
      continue;
    }
    QAction* action = addAction(QString());
    QObject::connect(action, &QAction::triggered, this, [this, watch = Watch<MenuItem>(*item)] { Choose(watch); });
  }
}

void MenuView::Show(QAction& action, const MenuItem& item) {
  action.setSeparator(item.IsSeparator());
  action.setText(item.IsSeparator() ? QString() : MenuText(item));
  action.setVisible(item.Visible());
  action.setEnabled(item.Enabled());
  action.setCheckable(item.Checked());
  action.setChecked(item.Checked());
}

void MenuView::Choose(const Watch<MenuItem>& item) {
  if (!item) return;
  if (*chosen_) {
    (*chosen_)(*item.Get());
    return;
  }
  if (!backend_.GetToolkit().TakesInput(item->GetForm())) return;
  backend_.Dispatch([item] { item->UserClicked(); });
}

}  // namespace pixorra
