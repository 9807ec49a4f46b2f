#!/usr/bin/env bash
# The command line: help and version without a display, what is refused, a folder and a photo as the film strip of the start,
# and a folder that a later start hands over, at once and while a dialog is up.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
state="$HOME/.config/pixorra/Pixorra.sav"
mkdir -p "$(dirname "$state")"

help=$(env -u DISPLAY "$PIXORRA" --help) || fail "--help ends with $?"
[[ "$help" == "Usage: pixorra "* ]] || fail "--help says $help"
[[ "$(env -u DISPLAY "$PIXORRA" --version)" =~ ^pixorra\ [0-9]+\.[0-9]+\.[0-9]+$ ]] || fail "no version is said"
for wrong in --nothing -x -platform ""; do
  code=0
  said=$(env -u DISPLAY "$PIXORRA" "$wrong" 2>&1 >/dev/null) || code=$?
  [ "$code" -eq 2 ] || fail "\"$wrong\" ends with $code"
  [ "$(wc -l <<<"$said")" -eq 1 ] || fail "\"$wrong\" is refused in $(wc -l <<<"$said") lines"
done
[ ! -e "$state" ] || fail "an option that was refused has written a state"

# Its name has blanks, and a byte that is no letter in any language.
card="$HOME/My card "$'\xff'
mkdir -p "$card"
fill_card
cd "$HOME"
start_program "$(basename "$card")/"
window=$(wait_for_window "^Pixorra v")
within 20 cached || fail "the folder of the start is not the film strip"

# A second start hands over what it was given, as a file manager writes it.
given="$card"
card="$HOME/Another card"
mkdir -p "$card"
fill_card
timeout 20 "$PIXORRA" "file://$HOME/Another%20card" || fail "the second start ends with $?"
within 20 cached || fail "the folder that was handed over is not the film strip"

# While a dialog is up the folder waits for its end.
card="$HOME/Third card"
mkdir -p "$card"
fill_card
xdotool windowactivate --sync "$window" key --clearmodifiers ctrl+r
dialog=$(wait_for_window "Preferences")
timeout 20 "$PIXORRA" -- "$card/IMG_0002.JPG" || fail "the third start ends with $?"
in_front() { [ "$(xdotool getactivewindow)" = "$1" ]; }
within 10 in_front "$dialog" || fail "the dialog is not in front"
sleep 0.5
[ ! -e "$card/Thumbnails.tmp" ] || fail "the folder is taken while a dialog is up"
xdotool windowactivate --sync "$dialog" key --clearmodifiers Escape
wait_for_no_window "Preferences"
within 20 cached || fail "the folder is not taken when the dialog is gone"
shot given_photo
# The photo is the selected one: a key shows it at full size.
xdotool windowactivate --sync "$window" key --clearmodifiers space
full=$(wait_for_window "^IMG_0002 - W")
xdotool windowactivate --sync "$full" key Escape
wait_for_no_window "^IMG_0002 - W"

# What is not there is told, and the window stays.
timeout 20 "$PIXORRA" "$HOME/Nowhere" || fail "the fourth start ends with $?"
box=$(wait_for_window "Unable to Select Film Strip")
shot given_nothing
xdotool windowactivate --sync "$box" key --clearmodifiers Return
wait_for_no_window "Unable to Select Film Strip"

close_window "$window"
expect_exit 0
grep -q 'Third card' "$state" || fail "the saved state has another film strip"
[ -e "$given/Thumbnails.tmp" ] || fail "the first folder has lost its thumbnails"
