#!/usr/bin/env bash
# The program on Wayland: a compositor without a screen, and the accessibility bus for hands and eyes. It starts with a photo,
# shows it at full size, opens the print dialog, and ends by a signal with the dialog up.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/bus.bash"

need_bus weston

photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/Card"
state="$HOME/.config/pixorra/Pixorra.sav"
mkdir -p "$card"
fill_card
# No print system, and no X server.
export CUPS_SERVER=localhost:9
unset DISPLAY

weston --backend=headless-backend.so --socket=pixorra-test --width=1280 --height=1024 --no-config 2>"$HOME/weston.log" &
compositor=$!
children+=("$compositor")
for ((asked = 0; ; asked++)); do
  if [ -S "$XDG_RUNTIME_DIR/pixorra-test" ]; then break; fi
  kill -0 "$compositor" 2>/dev/null || skip "weston has no headless back end: $(tail -n 1 "$HOME/weston.log")"
  [ "$asked" -lt 200 ] || fail "weston does not start"
  sleep 0.05
done
start_bus
export WAYLAND_DISPLAY=pixorra-test QT_QPA_PLATFORM=wayland

start_program "$card/IMG_0002.JPG"
access wait "frame|dialog" "^Pixorra v"
within 20 cached || fail "the folder of the start is not the film strip"
access wait ".*" "^Preview of IMG_0002"

choose "^Selected Photo" "^View Full Size"
access wait "frame|dialog" "^IMG_0002 - W"
timeout 20 "$PIXORRA" "$card" || fail "a second start ends with $?"
access wait "dialog|alert.*" "The Film Strip has not changed"
access press "push button" "^No$"
access gone "dialog|alert.*" "The Film Strip has not changed"

choose "^Selected Photo" "^Print"
access wait "frame|dialog" "^Print Selected Photo - "
kill -TERM "$program_id"
expect_exit 0
grep -qF "\"$(backslash "$card")\"" "$state" || fail "the saved state has lost the strip"

# A compositor that goes takes the program along at once, and nothing that is kept.
kept=$(md5sum <"$state")
start_program
access wait "frame|dialog" "^Pixorra v"
kill "$compositor"
within 20 gone || fail "the program outlives the compositor"
program_id=
[ "$kept" = "$(md5sum <"$state")" ] || fail "the saved state has changed"
