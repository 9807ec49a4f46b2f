#!/usr/bin/env bash
# Sorting by real keys alone: photos are chosen by arrows and dropped by digits, a folder is opened by Tab and Return, photos
# are looked at full size, a drop is taken back, a photo is copied, pasted and given another name, the Desktop's background is
# chosen, what has been dragged is deleted and the program is reset. What counts is read from the disk.
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

# A look at full size, one photo on and one back.
keys space
full=$(wait_for_window "^IMG_0002 - W")
xdotool windowactivate --sync "$full" key Right
wait_for_window "^IMG_0003 - W" >/dev/null
xdotool key Left
wait_for_window "^IMG_0002 - W" >/dev/null
sleep 0.3
shot full-size
xdotool key Escape
wait_for_no_window "^IMG_0002 - W"
xdotool windowactivate --sync "$window"

# The last drop is taken back; the one before it stays.
keys ctrl+z
within 10 is_missing "$first/IMG_0002.JPG" || fail "the drop is not taken back"
exists "$second/IMG_0002.JPG" || fail "more than one drop is taken back"

# Copied and pasted: the open folder has the photo once more, and then no longer.
keys ctrl+c
wait_for_window "^Pixorra$" >/dev/null
shot notice-by-key
wait_for_no_window "^Pixorra$"
xdotool windowactivate --sync "$window"
keys ctrl+v
pasted() { [ "$(identify -format '%wx%h' "$first/Clipboard.jpg")" = "$(convert "$card/IMG_0002.JPG" -auto-orient -format '%wx%h' info:)" ]; }
within 20 pasted || fail "the copy is not pasted: $(ls "$first")"
shot pasted-by-key
keys ctrl+z
within 10 is_missing "$first/Clipboard.jpg" || fail "the paste is not taken back"

keys ctrl+b
dialog=$(wait_for_window "Change Background")
shot background
keys Tab space
within 10 cmp "$card/IMG_0002.JPG" "$own/Background.pic" || fail "the selected photo does not become the background"
xdotool windowactivate --sync "$dialog" key Escape
wait_for_no_window "Change Background"
shot photo

# Another name for the next photo but one, which is dropped under it.
xdotool windowactivate --sync "$window"
keys Right Right ctrl+n
form=$(wait_for_window "Rename Selected Photo")
xdotool windowactivate --sync "$form" type "The lake"
shot rename-by-key
xdotool key Return
wait_for_no_window "Rename Selected Photo"
within 10 exists "$card/The lake.JPG" || fail "the photo has not been renamed: $(ls "$card")"
is_missing "$card/IMG_0004.JPG" || fail "the photo has both names"
xdotool windowactivate --sync "$window"
keys 2
within 10 exists "$second/The lake.JPG" || fail "the photo is not dropped under its new name"

# What has been dragged is deleted, by the button below the strip; the copies stay.
kept="$(find "$card" -name "*.JPG" | wc -l)"
keys Tab Tab Tab Tab
shot delete-button
keys Return
form=$(wait_for_window "Delete Photos in Film Strip")
xdotool windowactivate --sync "$form" key alt+d
form=$(wait_for_window "Delete All Dragged Photos")
shot delete-dragged-by-key
xdotool windowactivate --sync "$form" key alt+d
wait_for_no_window "Delete All Dragged Photos"
within 10 is_missing "$card/The lake.JPG" || fail "the dragged photos are not deleted: $(ls "$card")"
[ "$(find "$card" -name "*.JPG" | wc -l)" -eq $((kept - 3)) ] || fail "not the dragged photos alone are deleted: $(ls "$card")"
exists "$second/The lake.JPG" || fail "a copy has gone too"
xdotool windowactivate --sync "$window"
keys shift+ctrl+alt+F1
within 10 is_missing "$own/Background.pic" || fail "the reset leaves the background"
sleep 0.5
shot reset
keys ctrl+x
expect_exit 0
for photo in "$card"/*.JPG; do
  grep -qF "$(md5sum "$photo")" <<<"$before" || fail "$photo has changed"
done
! grep -qF "$(backslash "$card")" "$state" || fail "the strip is still in the saved state"
