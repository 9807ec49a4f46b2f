#!/usr/bin/env bash
# A new user with real events, from an empty home: finds the photos in the tree by mouse, makes them the film strip, makes a
# folder and names it, drags a photo into it, sets the camera, lets strip and folder change places, and starts again.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/Card/DCIM"
mkdir -p "$card"
fill_card

# click_in WINDOW X Y: pixels of that window.
click_in() { xdotool mousemove --window "$1" --sync "$2" "$3" click 1; }
key_in() { xdotool windowactivate --sync "$1" key --clearmodifiers "$2"; }
exists() { [ -e "$1" ]; }
# Of the browser: its rows from the top, its box to type in, its buttons.
row() { echo $((59 + 18 * $1)); }
select_button="378 434"
create_button="86 434"

start_program
window=$(wait_for_window "^Pixorra v")

# The tree: Home, Computer with what is mounted, Network. Home is opened, then Card in it, and DCIM in that is chosen.
click 321 184
browser=$(wait_for_window "Select a Film Strip")
shot browser
opened() { [ "$(colours_at "$1")" != "$2" ]; }
# colours_at Y: what a row of the tree looks like.
colours_at() { import -window "$browser" -crop "150x16+40+$(($1 - 8))" png:- | identify -format '%#' png:-; }
before=$(colours_at "$(row 1)")
click_in "$browser" 22 "$(row 0)"
within 10 opened "$(row 1)" "$before" || fail "Home does not open"
before=$(colours_at "$(row 2)")
click_in "$browser" 42 "$(row 1)"
within 10 opened "$(row 2)" "$before" || fail "Card does not open"
click_in "$browser" 100 "$(row 2)"
within 20 exists "$card/Thumbnails.tmp" || fail "the first photo is not shown"
shot chosen
# A node that is no folder has no photos to list.
colours_of_list() { import -window "$browser" -crop 280x200+360+80 png:- | identify -format '%k' png:-; }
list_is_empty() { [ "$(colours_of_list)" -eq 1 ]; }
if list_is_empty; then fail "the photos are not listed"; fi
click_in "$browser" 100 "$(row 3)"
within 10 list_is_empty || fail "the list of photos stays"
click_in "$browser" 100 "$(row 2)"
list_is_full() { ! list_is_empty; }
within 10 list_is_full || fail "the photos are not listed again"
# shellcheck disable=SC2086
click_in "$browser" $select_button
wait_for_no_window "Select a Film Strip"
within 20 cached || fail "the strip's thumbnails do not come up"

# A folder in the home folder, named at once.
key_in "$window" ctrl+s
browser=$(wait_for_window "Show a Folder")
click_in "$browser" 200 25
xdotool key ctrl+a type "~"
xdotool key Return
# shellcheck disable=SC2086
click_in "$browser" $create_button
wait_for_no_window "Show a Folder"
within 10 exists "$HOME/New Folder" || fail "no folder was made"
xdotool windowactivate --sync "$window" type "Family"
shot naming
xdotool key Return
within 10 exists "$HOME/Family" || fail "the folder was not renamed"
drag 320 80 110 262
within 10 has_marks 1 || fail "the drop is not marked"
cmp "$card/IMG_0001.JPG" "$HOME"/Family/PXR*.* || fail "the copy differs"

# The camera, and the swap there and back.
key_in "$window" ctrl+l
browser=$(wait_for_window "Set Camera Location")
# shellcheck disable=SC2086
click_in "$browser" $select_button
question=$(wait_for_window "^Set Camera Location$")
shot question
key_in "$question" alt+y
wait_for_no_window "Set Camera Location"
click 364 184
within 20 exists "$HOME/Family/Thumbnails.tmp" || fail "the folder does not become the strip"
click 364 184
shot swapped
close_window "$window"
expect_exit 0

state="$HOME/.config/pixorra/Pixorra.sav"
grep -qF "$(backslash "$card")" "$state" || fail "the saved state has lost the strip"
grep -qF "$(backslash "$HOME/Family")" "$state" || fail "the saved state has lost the folder"
start_program
window=$(wait_for_window "^Pixorra v")
shot again
close_window "$window"
expect_exit 0
