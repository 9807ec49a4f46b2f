// The kinds of controls, and what sets them apart: one line for each.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace pixorra {

enum class Kind : std::uint8_t {
  Form,
  PictureBox,
  Frame,
  ImageBox,
  Label,
  Shape,
  FadeBox,
  CommandButton,
  CheckBox,
  OptionButton,
  ScrollBar,
  TextBox,
  ListBox,
  ComboBox,
  ProgressBar,
  TreeView,
  FileListBox,
  Timer,
  MenuItem,
  Last = MenuItem,
};

enum class ShownAs : std::uint8_t {
  Window,   // of its own
  Widget,   // of its own, on its form
  Light,    // painted by its form
  Nothing,  // not seen, or seen in a menu only
};

// What screen readers take it for.
enum class SpokenAs : std::uint8_t {
  Itself,  // as its window or widget says
  Group,
  Text,
  Graphic,
  Nothing,
};

struct KindTraits {
  Kind Of;
  ShownAs Shown;
  bool HoldsOthers;  // it is a Container
  bool TakesMouse;   // while it is visible and enabled
  bool TakesFocus;   // by a person's click or Tab
  int Reach;         // pixels by which it may be painted beyond its bounds
  SpokenAs Spoken;
};

// In the order of Kind. The columns: shown as, holds others, takes mouse, takes focus, reach, spoken as.
inline constexpr std::array<KindTraits, static_cast<std::size_t>(Kind::Last) + 1> AllKinds{{
    {Kind::Form, ShownAs::Window, true, true, false, 0, SpokenAs::Itself},
    {Kind::PictureBox, ShownAs::Light, true, true, false, 0, SpokenAs::Graphic},
    {Kind::Frame, ShownAs::Light, true, true, false, 0, SpokenAs::Group},
    {Kind::ImageBox, ShownAs::Light, false, true, false, 0, SpokenAs::Graphic},
    {Kind::Label, ShownAs::Light, false, true, false, 0, SpokenAs::Text},
    {Kind::Shape, ShownAs::Light, false, false, false, 4, SpokenAs::Nothing},
    {Kind::FadeBox, ShownAs::Light, false, false, false, 0, SpokenAs::Graphic},
    {Kind::CommandButton, ShownAs::Widget, false, true, true, 0, SpokenAs::Itself},
    {Kind::CheckBox, ShownAs::Widget, false, true, true, 0, SpokenAs::Itself},
    {Kind::OptionButton, ShownAs::Widget, false, true, true, 0, SpokenAs::Itself},
    {Kind::ScrollBar, ShownAs::Widget, false, true, true, 0, SpokenAs::Itself},
    {Kind::TextBox, ShownAs::Widget, false, true, true, 0, SpokenAs::Itself},
    {Kind::ListBox, ShownAs::Widget, false, true, true, 0, SpokenAs::Itself},
    {Kind::ComboBox, ShownAs::Widget, false, true, true, 0, SpokenAs::Itself},
    {Kind::ProgressBar, ShownAs::Widget, false, true, false, 0, SpokenAs::Itself},
    {Kind::TreeView, ShownAs::Widget, false, true, true, 0, SpokenAs::Itself},
    {Kind::FileListBox, ShownAs::Nothing, false, false, false, 0, SpokenAs::Nothing},
    {Kind::Timer, ShownAs::Nothing, false, false, false, 0, SpokenAs::Nothing},
    {Kind::MenuItem, ShownAs::Nothing, false, false, false, 0, SpokenAs::Nothing},
}};

constexpr bool EveryKindHasItsLine() {
  for (std::size_t i = 0; i < AllKinds.size(); ++i) {
    if (AllKinds[i].Of != static_cast<Kind>(i)) return false;
  }
  return true;
}
static_assert(EveryKindHasItsLine());

constexpr const KindTraits& TraitsOf(Kind kind) {
  return AllKinds[static_cast<std::size_t>(kind)];
}

}  // namespace pixorra
