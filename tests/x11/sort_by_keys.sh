#!/usr/bin/env bash
# Sorting by real keys alone: photos are chosen by arrows and dropped by digits, a folder is opened by Tab and Return, the
# Desktop's background is chosen and the program is reset. What counts is read from the disk.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/Card"
first="$HOME/Family"
second="$HOME/Holiday"
state="$HOME/.config/pixorra/Pixorra.sav"
own="$HOME/.local/share/pixorra"
mkdir -p "$card" "$first" "$second" "$(dirname "$state")"
fill_card
before="$(md5sum "$card"/*.JPG)"

printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra - Kestrelia Corp"' 2 2 1 1 1 1 1 1 1 0 '""' \
  "\"$(backslash "$card")\"" "\"$(backslash "$first")\"" "\"$(backslash "$second")\"" \
  '""' '""' '""' '""' '""' '""' 0 >"$state"

keys() { xdotool key --clearmodifiers --delay 60 "$@"; }
exists() { [ -e "$1" ]; }
is_missing() { [ ! -e "$1" ]; }

start_program
window=$(wait_for_window "^Pixorra v")
within 20 cached || fail "the strip's thumbnails do not come up"
xdotool windowactivate --sync "$window"

keys Right 1
within 10 has_marks 1 || fail "the key 1 drops nothing"
cmp "$card/IMG_0001.JPG" "$first/IMG_0001.JPG" || fail "the first copy differs"
keys Right 2
within 10 has_marks 2 || fail "the key 2 drops nothing"
cmp "$card/IMG_0002.JPG" "$second/IMG_0002.JPG" || fail "the second copy differs"
keys Right 9
within 10 exists "$own/Trashcan/IMG_0003.JPG" || fail "the key 9 drops nothing into the Trashcan"
shot selected

# A key that is held down is one drop, and one step is one photo back.
xdotool keydown Left
sleep 0.05
xdotool keyup Left
xdotool keydown 1
sleep 1.2
xdotool keyup 1
within 10 exists "$first/IMG_0002.JPG" || fail "a held key drops nothing"
[ "$(find "$first" -name '*.JPG' | wc -l)" -eq 2 ] || fail "a held key has dropped more than once: $(ls "$first")"

# Back through the window: the open folder, the Trashcan, what hides and shows folders, the second folder, the first one.
keys shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab
shot focus
keys Return
within 10 exists "$first/Thumbnails.tmp" || fail "Return opens no folder"
keys Menu
sleep 0.5
shot menu
keys Escape

keys ctrl+b
dialog=$(wait_for_window "Change Background")
shot background
keys Tab space
within 10 cmp "$card/IMG_0002.JPG" "$own/Background.pic" || fail "the selected photo does not become the background"
xdotool windowactivate --sync "$dialog" key Escape
wait_for_no_window "Change Background"
shot photo

keys shift+ctrl+alt+F1
within 10 is_missing "$own/Background.pic" || fail "the reset leaves the background"
sleep 0.5
shot reset
keys ctrl+x
expect_exit 0
[ "$(md5sum "$card"/*.JPG)" = "$before" ] || fail "a photo of the strip has changed"
! grep -qF "$(backslash "$card")" "$state" || fail "the strip is still in the saved state"
