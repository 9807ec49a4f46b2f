#!/usr/bin/env bash
# A screen without a window manager: the program starts and paints, shows a photo at full size, a dialog, and closes by key.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

kill "$WINDOW_MANAGER_ID"
alone() { ! kill -0 "$WINDOW_MANAGER_ID"; }
for ((asked = 0; asked < 200; asked++)); do if alone 2>/dev/null; then break; fi; sleep 0.05; done

photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/Card"
mkdir -p "$card"
fill_card
start_program "$card/IMG_0002.JPG"
window=$(wait_for_window "^Pixorra v")
within 20 cached || fail "the strip's thumbnails do not come up"
painted() { [ "$(colours_of "$window")" -gt 200 ]; }
within 20 painted || fail "the window is not painted"
shot without_manager

key_in() { xdotool windowfocus --sync "$1" key --clearmodifiers "$2"; }
sleep 0.5
key_in "$window" space
full=$(wait_for_window "^IMG_0002 - W")
filled() { [ "$(colours_of "$full")" -gt 200 ]; }
within 20 filled || fail "the photo is not painted"
shot full_without_manager
key_in "$full" Escape
wait_for_no_window "^IMG_0002 - W"

key_in "$window" ctrl+r
dialog=$(wait_for_window "Preferences")
shot dialog_without_manager
key_in "$dialog" Escape
wait_for_no_window "Preferences"

key_in "$window" ctrl+x
expect_exit 0
