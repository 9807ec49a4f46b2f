#!/usr/bin/env bash
# A long card with real events: its last photo, the only red one, is reached by the bar's thumb, by the wheel, by the bar's
# arrow and by the auto scroll past marked photos. LONG_STRIP is the number of photos: a strip of more than 680 is wider than
# a bar of 16 bits counts in steps of two pixels. Photos come up one by one, 50 in a second.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

count="${LONG_STRIP:-750}"
card="$HOME/Card"
state="$HOME/.config/pixorra/Pixorra.sav"
mkdir -p "$card" "$(dirname "$state")"
convert -size 80x60 xc:gray40 "$HOME/grey.jpg"
convert -size 80x60 xc:red "$HOME/red.jpg"
for ((photo = 1; photo < count; photo++)); do ln "$HOME/grey.jpg" "$card/$(printf 'IMG_%05d.JPG' "$photo")"; done
cp "$HOME/red.jpg" "$card/$(printf 'IMG_%05d.JPG' "$count")"
printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra - Kestrelia Corp"' 2 2 1 1 1 1 1 1 1 0 '""' \
  "\"$(backslash "$card")\"" '""' '""' '""' '""' '""' '""' '""' '""' 0 >"$state"

# How many points of the strip's window are red.
red() {
  import -window "$window" -crop 488x70+272+40 png:- |
    convert png:- -fuzz 20% -fill black +opaque red -channel R -separate -format '%[fx:int(mean*w*h)]' info:
}
last_in_view() { [ "$(red)" -gt 3000 ]; }
last_out_of_view() { [ "$(red)" -eq 0 ]; }
bar=153       # the middle of the bar, and its ends; pixels of the window
bar_left=296
bar_right=752
# Without --sync, which waits long for a mouse that is there already.
wheel() { xdotool mousemove --window "$window" 500 80 click --repeat "$2" --delay 5 "$1"; }
back() { wheel 4 "$1"; }
on() { wheel 5 "$1"; }

start_program
window=$(wait_for_window "^Pixorra v")
loaded() { [ -f "$card/Thumbnails.tmp" ] && [ "$(stat -c %s "$card/Thumbnails.tmp")" -ge $(((2 * count - 1) * record)) ]; }
within 90 loaded || fail "the strip's thumbnails do not come up"
click 596 187 # All
within 20 stands_still || fail "the strip does not come to a stop"

drag "$bar_left" "$bar" "$bar_right" "$bar"
within 10 last_in_view || fail "the thumb does not reach the last photo"
shot long-thumb

# A hand's width back, and on by the wheel; then all the way, both ways.
back 8
within 10 last_out_of_view || fail "the wheel does not move the strip back"
on 8
within 10 last_in_view || fail "the wheel does not reach the last photo"
back "$count"
first_still() { last_out_of_view && stands_still; }
within 10 first_still || fail "the wheel does not reach the first photo"
on "$count"
within 10 last_in_view || fail "the wheel does not reach the last photo from the first"
shot long-wheel

# Behind the last photo the strip has room for another one.
back 3
within 10 last_out_of_view || fail "the wheel does not move the strip back"
xdotool mousemove --window "$window" "$bar_right" "$bar" click --repeat 120 --delay 10 1
within 10 last_in_view || fail "the bar's arrow does not reach the last photo"
shot long-arrow

# The photos from the left edge on are marked, on the film's edge above them, and the strip runs past them.
on 8
back 4
within 10 last_out_of_view || fail "the wheel does not move the strip back"
within 10 stands_still || fail "the strip does not come to a stop"
for slot in 0 1 2 3 4; do
  double_click $((280 + 97 * slot)) 44
  sleep 0.6 # a click so soon would count as one more of the same
done
[ "$(marks)" -ge 4 ] || fail "the photos are not marked: $(marked)"
click 719 187 # Auto
within 20 last_in_view || fail "the auto scroll does not reach the last photo"
shot long-auto
close_window "$window"
expect_exit 0
