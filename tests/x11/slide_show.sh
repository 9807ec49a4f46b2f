#!/usr/bin/env bash
# A slide show with real events: the photos change, the whole screen is covered, and a key, a button or a move of the pointer
# ends it. It is started as Pixorra does, and as file managers do.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/show.bash"

plain_photos red lime blue
xdotool mousemove 400 400

# As Pixorra starts it: each blank parts two arguments.
# shellcheck disable=SC2046 # they are to be parted
start_show /S :SS $(printf '11%s' "$(backslash "$photos")")
window=$(wait_for_window "^Pixorra SlideShow")
wait_for_colour red
shot red
[ "$(xdotool getwindowgeometry --shell "$window" | grep -E '^(X|Y|WIDTH|HEIGHT)=' | tr '\n' ' ')" = "X=0 Y=0 WIDTH=1280 HEIGHT=1024 " ] ||
  fail "the window does not cover the screen"
[ "$(xdotool getactivewindow)" = "$window" ] || fail "the window is not in front"
wait_for_colour green
shot green
wait_for_colour blue
shot blue
wait_for_colour red
# A mouse that trembles ends nothing.
xdotool mousemove 403 402
sleep 0.5
if gone 2>/dev/null; then fail "a tremble of the mouse ends the show"; fi
xdotool key space
ends_with_success

# As a folder's menu starts it.
odd="$HOME/"$'7 "odd" %L 100%\n\xFF '
cp -r "$photos" "$odd"
begin_show "21$odd"
xdotool click 3
ends_with_success

# A new one ends the one before, which no key would reach any more.
begin_show "71$photos"
before=$program_id
start_show "71$photos"
ended_before() { ! kill -0 "$before" 2>/dev/null; }
within 20 ended_before || fail "two shows run"
wait "$before" || fail "the show before ends with $?"
wait_for_window "^Pixorra SlideShow" >/dev/null
wait_for_colour red
xdotool key space
ends_with_success

# A key that makes no character.
begin_show "$photos"
xdotool key Shift_L
ends_with_success

begin_show "71$photos"
sleep 0.6
# A hand moves a mouse in many steps, of which the first only tells where it was.
for step in 1 2 3 4 5 6; do
  xdotool mousemove $((500 + step * 5)) 500 || true
  sleep 0.05
done
ends_with_success

# The screen does not go to sleep meanwhile, and does afterwards.
if "$python" -c 'import Xlib' 2>/dev/null; then
  saver="$(dirname "${BASH_SOURCE[0]}")/support/screen_sleeps.py"
  "$python" "$saver" || fail "this screen never goes to sleep"
  begin_show "71$photos"
  if "$python" "$saver"; then fail "the screen goes to sleep"; fi
  xdotool key space
  ends_with_success
fi

# Words in place of photos.
mkdir "$HOME/Empty"
start_show "21$HOME/Empty"
window=$(wait_for_window "^Pixorra SlideShow")
written() { [ "$(colours_of "$window")" -gt 8 ]; }
within 20 written || fail "nothing is said of an empty folder"
shot empty
xdotool key Escape
ends_with_success

[ "$("$PIXORRA_SLIDESHOW" --help | head -n 1)" = "Usage: pixorra-slideshow FOLDER" ] || fail "no help"
"$PIXORRA_SLIDESHOW" --version | grep -q '^pixorra-slideshow [0-9]' || fail "no version"
if "$PIXORRA_SLIDESHOW" --nonsense 2>/dev/null; then fail "nonsense is taken"; fi
