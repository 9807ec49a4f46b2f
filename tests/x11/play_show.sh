#!/usr/bin/env bash
# A slide show by real keys, and by the commands of the file managers' menus, on a companion that notes how it was started.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/My  Card %F"
config="$HOME/.config/pixorra"
companion="$config/Pixorra SlideShow.scr"
data="$HOME/.local/share"
heard="$HOME/heard"
mkdir -p "$card" "$config"
fill_card

printf '#!/bin/sh\nprintf "%%s|" "$@" >"%s.part"; mv "%s.part" "%s"\n' "$heard" "$heard" "$heard" >"$companion"
chmod +x "$companion"
printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra - Kestrelia Corp"' 2 2 1 1 1 1 1 1 1 0 '""' \
  "\"$(backslash "$card")\"" '""' '""' '""' '""' '""' '""' '""' '""' 0 >"$config/Pixorra.sav"

keys() { xdotool key --clearmodifiers --delay 60 "$@"; }
# expect_heard TEXT: the companion has been started with these arguments since the last look.
expect_heard() {
  within 10 test -e "$heard" || fail "the companion is not started"
  [ "$(cat "$heard")" = "$1" ] || fail "the companion hears $(cat "$heard") instead of $1"
  rm "$heard"
}

start_program
window=$(wait_for_window "^Pixorra v")
within 20 cached || fail "the strip's thumbnails do not come up"
xdotool windowactivate --sync "$window"

keys F9
keys F8
expect_heard "/S|:SS|31$(backslash "$HOME/My||Card|%F")|"
keys ctrl+F1 ctrl+F4 F8
expect_heard "/S|:SS|10$(backslash "$HOME/My||Card|%F")|"

keys ctrl+F3 ctrl+F5
hints=$(wait_for_window "^Pixorra - ScreenSaver$")
shot hints
grep -q '^sourcelocation=.*My  Card %F$' "$config/settings" || fail "no folder is kept for the screen saver"
grep -q '^duration=7$' "$config/settings" || fail "no speed is kept for the screen saver"
xdotool windowactivate --sync "$hints" key Return
wait_for_no_window "^Pixorra - ScreenSaver$"

starter="$data/Thunar/sendto/pixorra-slideshow-by-pixorra.desktop"
if command -v gio >/dev/null; then
  gio launch "$starter" "$card"
  expect_heard "21$card|"
fi
(cd "$HOME" && NAUTILUS_SCRIPT_SELECTED_FILE_PATHS="$card
" "$data/nautilus/scripts/SlideShow by Pixorra" "My  Card %F")
expect_heard "21$card|"

# What the preferences remove stays removed.
keys ctrl+r
dialog=$(wait_for_window "Pixorra - Preferences")
shot preferences
is_missing() { [ ! -e "$1" ]; }
xdotool mousemove --window "$dialog" --sync 90 295 click 1
within 10 is_missing "$starter" || fail "clearing the box leaves the command"
is_missing "$HOME/.config/caja" || fail "a folder of the command is left"
xdotool windowactivate --sync "$dialog" key Escape
wait_for_no_window "Pixorra - Preferences"
xdotool windowactivate --sync "$window"
keys ctrl+x
expect_exit 0

start_program
window=$(wait_for_window "^Pixorra v")
within 20 cached || fail "the strip's thumbnails do not come up again"
is_missing "$starter" || fail "the second start adds the command again"
xdotool windowactivate --sync "$window"

# A companion that is gone is told of, in a box of its own.
rm "$companion"
keys F8
box=$(wait_for_window "^Pixorra - SlideShow$")
shot missing
xdotool windowactivate --sync "$box" key Return
wait_for_no_window "^Pixorra - SlideShow$"
xdotool windowactivate --sync "$window"
keys ctrl+x
expect_exit 0

# The companion that was built with the program takes the name that is free now.
built="$(dirname "$PIXORRA")/pixorra-slideshow"
if [ -x "$built" ]; then
  start_program
  window=$(wait_for_window "^Pixorra v")
  within 20 cached || fail "the strip's thumbnails do not come up for the third time"
  [ "$companion" -ef "$built" ] || fail "the companion is not in its place"
  xdotool windowactivate --sync "$window"
  keys F8
  wait_for_window "^Pixorra SlideShow$" >/dev/null
  # Long enough for the pointer and the first photo to come to rest.
  sleep 2
  shot show
  keys space
  wait_for_no_window "^Pixorra SlideShow$"
  xdotool windowactivate --sync "$window"
  keys ctrl+x
  expect_exit 0
fi
