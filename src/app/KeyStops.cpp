#include "app/KeyStops.h"

#include <algorithm>
#include <vector>

#include "app/SelectionKeys.h"
#include "base/Bars.h"
#include "desktop/FolderSlots.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Dialogs.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

constexpr int F10 = key::F1 + 9;

// Where Tab stops, from the window's top to its bottom. A bar stands for the photos that it scrolls. AllButton is not
// among them: it can only be dragged.
std::vector<Control*> Stops(const MainForm& main) {
  FilmStripState& strip = main.strip;
  DesktopState& desk = main.desk;
  std::vector<Control*> stops = {&strip.SrcScrollbar,    &strip.CameraButton,    &strip.BrowseButton, &strip.SwapButton,
                                 &strip.DeleteButton,    &strip.UndoButton,      &strip.PrintButton,  &strip.AllOption,
                                 &strip.RemainingOption, &strip.AutoScrollOption};
  for (int i = 1; i <= FolderSlots; ++i) {
    if (IsSlotInUse(desk, i)) stops.push_back(&desk.DestFolder(i));
  }
  stops.insert(stops.end(), {&desk.ShowFolder, &desk.HideFolder});
  if (IsSlotInUse(desk, TrashcanSlot)) stops.push_back(&desk.DestFolder(TrashcanSlot));
  stops.push_back(&desk.DestScrollbar);
  // A picture button that has no operation is passed over. Three have theirs on the press.
  std::erase_if(stops, [&strip](const Control* stop) {
    const bool onPress = stop == &strip.SwapButton || stop == &strip.UndoButton || stop == &strip.PrintButton;
    const bool acts = stop->GetKind() != Kind::ImageBox || stop->On().Click || onPress;
    return !acts || !stop->IsShown() || !stop->Enabled();
  });
  return stops;
}

void MoveFocus(MainForm& main, bool back) {
  const std::vector<Control*> stops = Stops(main);
  const auto count = std::ssize(stops);
  if (count == 0) return;
  const auto at = std::ranges::find(stops, main.host.toolkit.Focus()) - stops.begin();
  // From elsewhere it begins at the first, or at the last.
  auto next = back ? at - 1 : at + 1;
  if (at == count) next = back ? count - 1 : 0;
  stops[static_cast<std::size_t>((next + count) % count)]->SetFocus();
}

// As the left button of the mouse does. What is pressed may be hidden for a moment, which takes the focus off it.
void PressPicture(MainForm& main, ImageBox& box) {
  const Watch<ImageBox> pressed(box);
  const MouseArgs left{.Button = button::Left};
  const auto raise = [&pressed](const auto& handler, const auto&... args) {
    if (pressed) Raise(handler, static_cast<Control&>(*pressed.Get()), args...);
  };
  raise(box.On().MouseDown, left);
  if (pressed) raise(pressed->On().MouseUp, left);
  if (pressed && pressed->IsShown()) raise(pressed->On().Click);
  if (pressed && pressed->IsShown() && main.host.toolkit.Focus() == nullptr) pressed->SetFocus();
}

// The control of the main window that has the focus; null for none.
Control* FocusIn(const MainForm& main) {
  Control* focus = main.host.toolkit.Focus();
  return focus != nullptr && &focus->GetForm() == &main.Window ? focus : nullptr;
}

bool PressFocused(MainForm& main) {
  Control* const focus = FocusIn(main);
  if (focus == nullptr) return false;
  if (focus == &main.strip.SrcScrollbar) {
    SelectInStrip(main);
  } else if (focus == &main.desk.DestScrollbar) {
    SelectInOpenFolder(main);
  } else if (focus->GetKind() == Kind::OptionButton) {
    static_cast<OptionButton*>(focus)->UserClicked();
  } else if (focus->GetKind() == Kind::ImageBox) {
    PressPicture(main, *static_cast<ImageBox*>(focus));
  } else {
    return false;
  }
  return true;
}

void PressRight(Control& control) {
  Raise(control.On().MouseDown, control, MouseArgs{.Button = button::Right});
}

// Of the print button while that has the focus; else of the folder that has it or, where none has, of the open one.
void ShowPopupMenu(MainForm& main) {
  DesktopState& desk = main.desk;
  const Control* const focus = FocusIn(main);
  if (focus == &main.strip.PrintButton) {
    PressRight(main.strip.PrintButton);
    return;
  }
  const bool onFolder = focus != nullptr && focus->Name() == desk.DestFolder(0).Name();
  const int slot = onFolder ? focus->Index() : desk.OpenFolderIndex;
  if (!IsSlotInUse(desk, slot)) {
    main.host.dialogs.Beep();
    return;
  }
  PressRight(desk.DestFolder(slot));
}

// Whole frames or rows.
double PageOf(int room, int step) {
  return std::max(1, room / step) * static_cast<double>(step);
}

// The bars give the focus up with each change. One that had it has it afterwards, so that the next key is its own too.
class FocusStays {
 public:
  FocusStays(MainForm& main, ScrollBar& bar) : toolkit_(main.host.toolkit), bar_(bar), had_(toolkit_.Focus() == &bar) {}
  ~FocusStays() {
    if (had_ && toolkit_.Focus() == nullptr && bar_.IsShown() && bar_.Enabled())
      ErrorsIgnored([&] { bar_.SetFocus(); });
  }
  FocusStays(const FocusStays&) = delete;
  FocusStays& operator=(const FocusStays&) = delete;

 private:
  Toolkit& toolkit_;
  ScrollBar& bar_;
  bool had_;
};

bool Scroll(MainForm& main, int keyCode) {
  FilmStripState& strip = main.strip;
  DesktopState& desk = main.desk;
  const bool inFolder = desk.DestThumbFrame.Visible() || FocusIn(main) == &desk.DestScrollbar;
  ScrollBar& bar = inFolder ? desk.DestScrollbar : strip.SrcScrollbar;
  BarScale& scale = inFolder ? desk.DestBarScale : strip.SrcBarScale;
  const double page = inFolder ? PageOf(desk.DestThumbsWindow.Height(), CellHeight)
                               : PageOf(strip.SrcThumbsWindow.Width(), SrcFrameWidth);
  const FocusStays focus(main, bar);
  switch (keyCode) {
    case key::PageUp:
      MoveBarBy(bar, scale, -page);
      break;
    case key::PageDown:
      MoveBarBy(bar, scale, page);
      break;
    case key::Home:
      bar.SetValue(bar.Min());
      break;
    case key::End:
      bar.SetValue(bar.Max());
      break;
    default:
      return false;
  }
  if (!inFolder) strip.AutoScrollPending = false;
  return true;
}

}  // namespace

bool UseKeyOnFocus(MainForm& main, int keyCode, int shift) {
  if (keyCode == key::Tab && (shift & ~shift::Shift) == 0) {
    MoveFocus(main, shift == shift::Shift);
    return true;
  }
  if (keyCode == F10 && shift == shift::Shift) {
    ShowPopupMenu(main);
    return true;
  }
  if (shift != shift::None) return false;
  return keyCode == key::Return ? PressFocused(main) : Scroll(main, keyCode);
}

}  // namespace pixorra
