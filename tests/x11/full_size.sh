#!/usr/bin/env bash
# A photo at full size with real events: a right click on the pane brings up its window, what is painted is there again after
# the window was away, and a key closes it. The main window is in front then.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/Card"
state="$HOME/.config/pixorra/Pixorra.sav"
mkdir -p "$card" "$(dirname "$state")"
fill_card
# The first one is larger than the screen.
convert "$card/IMG_0001.JPG" -resize 2400x1600! "$card/IMG_0001.JPG"

printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra - Kestrelia Corp"' 2 2 1 1 1 1 1 1 1 0 '""' \
  "\"$(backslash "$card")\"" '""' '""' '""' '""' '""' '""' '""' '""' 0 >"$state"

start_program
main=$(wait_for_window "^Pixorra v")
window=$main
within 20 cached || fail "the strip's thumbnails do not come up"

# The pixels inside the window, as a digest; a window that is not there has none.
inside() { import -silent -window "$1" png:- | identify -format '%#' png:-; }
width_of() { xdotool getwindowgeometry --shell "$1" | sed -n 's/^WIDTH=//p'; }
in_front() { [ "$(xdotool getactivewindow)" = "$1" ]; }

click 320 80
xdotool mousemove --window "$main" --sync 100 100 click 3
full=$(wait_for_window "^IMG_0001 - W2400 x H1600")
shot full
within 10 in_front "$full" || fail "the photo's window is not in front"
[ "$(width_of "$full")" -eq 1268 ] || fail "the window is $(width_of "$full") pixels wide"
painted() { [ "$(colours_of "$full")" -gt 5000 ]; }
within 10 painted || fail "the photo is not painted"

seen=$(inside "$full")
xdotool windowunmap --sync "$full"
xdotool windowmap --sync "$full"
again() { [ "$(inside "$full")" = "$seen" ]; }
within 10 again || fail "what was painted has gone"

xdotool windowactivate --sync "$full" key Escape
wait_for_no_window "^IMG_0001 - W"
within 10 in_front "$main" || fail "the main window is not in front"

# A photo of the strip, for as long as the right button is held.
xdotool mousemove --window "$main" --sync 420 80 mousedown 3
wait_for_window "^IMG_0002 - W" >/dev/null
shot held
xdotool mouseup 3
wait_for_no_window "^IMG_0002 - W"

close_window "$main"
expect_exit 0
