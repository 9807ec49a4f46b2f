// Shows a menu of the model, with the menus below it.
#pragma once

#include <QMenu>
#include <functional>
#include <memory>

#include "platform/controls/Menu.h"

namespace pixorra {

class QtBackend;

class MenuView final : public QMenu {
 public:
  // Whether its opening raises the menu's Click, or only that of the menus below it.
  enum class Raises { Self, Below };
  using Chosen = std::function<void(MenuItem&)>;

  MenuView(QtBackend& backend, MenuItem& menu, Raises raises, QWidget* parent = nullptr);
  // Takes over the items as they are now.
  void Fill();
  // What a chosen item does in place of its Click, here and in the menus below.
  void OnChosen(const Chosen& chosen);

 private:
  void Rebuild();
  void Show(QAction& action, const MenuItem& item);
  void Choose(const Watch<MenuItem>& item);

  QtBackend& backend_;
  Watch<MenuItem> menu_;
  std::shared_ptr<Chosen> chosen_;
};

// The caption with the keys that stand at its right.
QString MenuText(const MenuItem& item);

}  // namespace pixorra
