#!/usr/bin/env bash
# A card that has been sorted, with real events: a photo gets another name, one is dragged and deleted as dragged, one is
# deleted by key, Cancel and Return delete nothing, and at the end the whole strip goes with its folder.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/Card/DCIM"
family="$HOME/Family"
state="$HOME/.config/pixorra/Pixorra.sav"
mkdir -p "$card" "$family" "$(dirname "$state")"
fill_card
printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra - Kestrelia Corp"' 2 2 1 1 1 1 1 1 1 0 '""' \
  "\"$(backslash "$card")\"" "\"$(backslash "$family")\"" '""' '""' '""' '""' '""' '""' '""' 0 >"$state"

exists() { [ -e "$1" ]; }
missing() { [ ! -e "$1" ]; }
# open_form: by the button below the strip.
open_form() {
  click 409 187
  wait_for_window "Delete Photos in Film Strip" >/dev/null
}
# confirm TITLE KEY: what is asked under that title is answered by a key.
confirm() {
  local form
  form=$(wait_for_window "$1")
  xdotool windowactivate --sync "$form" key --clearmodifiers "$2"
  wait_for_no_window "$1"
}

start_program
window=$(wait_for_window "^Pixorra v")
within 20 cached || fail "the strip's thumbnails do not come up"
# In All the strip stays where it is: the first photo at 320, the others 97 pixels apart.
click 596 187
within 20 stands_still || fail "the strip does not come to a stop"

# Esc leaves the name, Enter gives the new one.
click 320 80
xdotool windowactivate --sync "$window" key ctrl+n
confirm "Rename Selected Photo" Escape
exists "$card/IMG_0001.JPG" || fail "Esc has renamed the photo"
xdotool windowactivate --sync "$window" key ctrl+n
form=$(wait_for_window "Rename Selected Photo")
xdotool windowactivate --sync "$form" type "The lake"
xdotool key Return
within 10 exists "$card/The lake.JPG" || fail "the photo has not been renamed: $(ls "$card")"
missing "$card/IMG_0001.JPG" || fail "the photo has both names"

# Dragged under its new name, and deleted as dragged.
drag 320 80 110 262
within 10 has_marks 1 || fail "the drop is not marked"
open_form
xdotool key alt+d
shot delete-dragged
confirm "Delete All Dragged Photos" alt+d
within 10 missing "$card/The lake.JPG" || fail "the dragged photo has not been deleted"
cmp "$photos/IMG_0001.JPG" "$family/The lake.JPG" || fail "the copy differs"
[ "$(ls "$card" | grep -c JPG)" -eq $((count - 1)) ] || fail "more than one photo has gone: $(ls "$card")"

# The first one of the strip is now the second photo. Return and Esc delete nothing, Alt and D does.
within 20 stands_still || fail "the strip does not come to a stop"
click 320 80
for key in Return Escape alt+d; do
  exists "$card/IMG_0002.JPG" || fail "the photo has gone before it was confirmed"
  xdotool windowactivate --sync "$window" key Delete
  confirm "Delete Selected Photo" "$key"
done
within 10 missing "$card/IMG_0002.JPG" || fail "the selected photo has not been deleted"
[ "$(ls "$card" | grep -c JPG)" -eq $((count - 2)) ] || fail "more than one photo has gone: $(ls "$card")"

open_form
xdotool key alt+a
shot delete-all
confirm "Delete all photos in Film Strip" alt+d
within 20 missing "$card" || fail "the folder is still there: $(ls -a "$card")"
exists "$HOME/Card" || fail "the folder above has gone too"
shot no-strip
close_window "$window"
expect_exit 0
[ "$(ls "$family" | grep -c JPG)" -eq 1 ] || fail "the folder holds $(ls "$family")"
