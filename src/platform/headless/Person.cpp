// A person's windows, menus, time, and what they do when something comes up.
#include "platform/headless/Person.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/controls/Menu.h"
#include "platform/controls/Toolkit.h"

namespace pixorra {

Person::Person(Toolkit& toolkit, HeadlessBackend& backend, HeadlessDialogs& dialogs, Script& script, Failures& failures)
    : toolkit_(toolkit), backend_(backend), dialogs_(dialogs), script_(script), failures_(failures) {}

void Person::Act(const Action& act) {
  backend_.Stir();
  backend_.Dispatch(act);
}

bool Person::MustTakeInput(Form& form, const std::string& what) {
  if (form.Visible() && toolkit_.TakesInput(form)) return true;
  Fail(what + ": window " + form.Name() + (form.Visible() ? " takes no input" : " is not shown"));
  return false;
}

// --- windows -------------------------------------------------------------------------------------------------------

void Person::Activate(Form& form) {
  if (form.Visible() && toolkit_.TakesInput(form) && toolkit_.ActiveForm() != &form) toolkit_.Activate(form);
}

void Person::Resize(Form& form, int clientWidth, int clientHeight) {
  HeadlessWindow* window = backend_.WindowOf(form);
  if (!MustTakeInput(form, "resize") || window == nullptr) return;
  if (!form.Sizable() || form.WindowState() != windowstate::Normal) {
    Fail("resize: window " + form.Name() + " has no frame to pull at");
    return;
  }
  const int menu = form.HasMenuBar() ? backend_.MenuBarHeight() : 0;
  Act([&] {
    window->UserResized((clientWidth + Form::FrameWidth) * TwipsPerPixel,
                        (clientHeight + Form::FrameHeight + menu) * TwipsPerPixel);
  });
}

void Person::MoveWindow(Form& form, double twipsLeft, double twipsTop) {
  if (MustTakeInput(form, "move")) Act([&] { form.UserMoved(twipsLeft, twipsTop); });
}

void Person::Maximise(Form& form) {
  SetState(form, windowstate::Maximised);
}

void Person::Minimise(Form& form) {
  SetState(form, windowstate::Minimised);
}

void Person::Restore(Form& form) {
  SetState(form, windowstate::Normal);
}

void Person::SetState(Form& form, int state) {
  HeadlessWindow* window = backend_.WindowOf(form);
  if (!MustTakeInput(form, "window button") || window == nullptr) return;
  Act([&] { window->UserSetState(state); });
}

void Person::Close(Form& form) {
  if (MustTakeInput(form, "close")) Act([&] { form.UserClosed(); });
}

Form* Person::Window(const std::string& name) const {
  const std::vector<Form*>& forms = toolkit_.Forms();
  const auto found = std::find_if(forms.rbegin(), forms.rend(),
                                  [&](const Form* form) { return form->Visible() && form->Name() == name; });
  return found != forms.rend() ? *found : nullptr;
}

// --- menus ---------------------------------------------------------------------------------------------------------

bool Person::Choosable(const MenuItem& item) {
  if (item.Visible() && item.Enabled() && !item.IsSeparator()) return true;
  Fail("menu item " + item.Name() + (item.Visible() ? " is disabled" : " is not shown"));
  return false;
}

void Person::ChooseMenu(MenuItem& item, const Action& meanwhile) {
  std::vector<MenuItem*> way;
  for (MenuItem* menu = &item; menu != nullptr; menu = menu->Parent()) way.insert(way.begin(), menu);
  const Watch<Form> form(item.GetForm());
  for (MenuItem* menu : way) {
    if (menu == &item && meanwhile) {
      backend_.SetBarMenuUp(true);
      Act(meanwhile);
      backend_.SetBarMenuUp(false);
    }
    if (!form || !MustTakeInput(*form.Get(), "menu item " + item.Name()) || !Choosable(*menu)) return;
    Act([&] { menu->UserClicked(); });
  }
}

void Person::ChooseFromPopup(MenuItem& item) {
  const MenuItem* const up = backend_.PopupUp();
  std::vector<MenuItem*> way;
  MenuItem* top = &item;
  for (; top != nullptr && top != up; top = top->Parent()) way.insert(way.begin(), top);
  if (up == nullptr || top != up) {
    Fail("menu item " + item.Name() + " is in no menu that is up");
    return;
  }
  for (MenuItem* menu : way) {
    if (!Choosable(*menu)) return;
    if (menu != &item) Act([&] { menu->UserClicked(); });
  }
  backend_.ChooseFromPopup(&item);
}

// --- time, and what comes up -----------------------------------------------------------------------------------------

void Person::Wait(double seconds) {
  backend_.Stir();
  backend_.Advance(seconds);
}

void Person::ExpectBox(const std::string& title, const std::string& text, BoxAnswer answer, Action meanwhile) {
  dialogs_.ExpectBox(title, text, answer, std::move(meanwhile));
}

void Person::ExpectInput(const std::string& title, const std::string& prompt, const std::string& typed) {
  dialogs_.ExpectInput(title, prompt, typed);
}

void Person::ExpectForm(const std::string& name, FormAction action) {
  const auto up = [this, name]() -> Form* {
    Form* form = Window(name);
    return form != nullptr && backend_.PopupUp() == nullptr && toolkit_.TakesInput(*form) ? form : nullptr;
  };
  script_.Add(Script::Reaction{"window " + name, Script::Moment::Wait, [up] { return up() != nullptr; },
                               [this, up, act = std::move(action)] { act(*this, *up()); }});
}

void Person::During(Action action) {
  During({}, std::move(action));
}

void Person::During(std::function<bool()> when, Action action) {
  script_.Add(
      Script::Reaction{"something to do meanwhile", Script::Moment::Events, std::move(when), std::move(action)});
}

void Person::ExpectMenu(MenuItem& menu, MenuItem* item) {
  ExpectMenu(menu, [this, item] {
    if (item != nullptr) ChooseFromPopup(*item);
  });
}

void Person::ExpectMenu(MenuItem& menu, Action action) {
  script_.Add(Script::Reaction{"pop-up menu " + menu.Name(), Script::Moment::Popup,
                               [this, up = &menu] { return backend_.PopupUp() == up; }, std::move(action)});
}

}  // namespace pixorra
