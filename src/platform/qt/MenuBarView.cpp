#include "platform/qt/MenuBarView.h"

#include <QMenuBar>

#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/Convert.h"
#include "platform/qt/MenuView.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

namespace {

void Rebuild(QtBackend& backend, Form& form, QMenuBar& bar) {
  bar.clear();
  qDeleteAll(bar.findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
  for (MenuItem* menu : form.Menus()) {
    if (!menu->Items().empty()) {
      bar.addMenu(new MenuView(backend, *menu, MenuView::Raises::Self, &bar));
      continue;
    }
    QAction* action = bar.addAction(QString());
    QObject::connect(action, &QAction::triggered, &bar, [&backend, watch = Watch<MenuItem>(*menu)] {
      if (!watch || !backend.GetToolkit().TakesInput(watch->GetForm())) return;
      backend.Dispatch([watch] { watch->UserClicked(); });
    });
  }
}

}  // namespace

void SyncMenuBar(QtBackend& backend, Form& form, QMenuBar& bar) {
  const auto& menus = form.Menus();
  if (static_cast<std::size_t>(bar.actions().size()) != menus.size()) Rebuild(backend, form, bar);
  const QList<QAction*> actions = bar.actions();
  for (std::size_t i = 0; i < menus.size(); ++i) {
    QAction& action = *actions[static_cast<qsizetype>(i)];
    action.setText(ToQString(menus[i]->Caption()));
    action.setVisible(menus[i]->Visible());
    action.setEnabled(menus[i]->Enabled());
    // An open one shows the change at once; others are filled when they open.
    if (action.menu() != nullptr && action.menu()->isVisible()) static_cast<MenuView*>(action.menu())->Fill();
  }
}

}  // namespace pixorra
