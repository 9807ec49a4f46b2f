#!/usr/bin/env bash
# Marks by hand and a duplicate, with real events: a drag, a photo marked and recovered by double clicks, the view of what
# remains, a photo that its folder holds already, all that remain, the end, and a second start.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/Card"
family="$HOME/Family"
holiday="$HOME/Holiday"
state="$HOME/.config/pixorra/Pixorra.sav"
mkdir -p "$card" "$family" "$holiday" "$(dirname "$state")"
fill_card
# The third photo is in a folder already, by another name and date; a duplicate is resolved without asking.
cp "$card/IMG_0003.JPG" "$family/Earlier.jpg"
printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra - Kestrelia Corp"' 2 1 1 1 1 1 1 1 1 0 '""' \
  "\"$(backslash "$card")\"" "\"$(backslash "$family")\"" "\"$(backslash "$holiday")\"" \
  '""' '""' '""' '""' '""' '""' 0 >"$state"
before="$(md5sum "$card"/*.JPG "$family"/*.jpg)"

has_marked() { [ "$(marked | tr '\n' ' ')" = "$1 " ]; }

start_program
window=$(wait_for_window "^Pixorra v")
within 20 cached || fail "the strip's thumbnails do not come up"
within 20 stands_still || fail "the strip does not come to a stop"
# In All the strip stays where it is: the first photo at 320, the others 97 pixels apart.
click 596 187
within 20 stands_still || fail "the strip does not come to a stop"
shot marks-begin

drag 320 80 110 262
within 10 has_marked IMG_0001.JPG || fail "the drop is not marked: $(marked)"
# On the film's edge, between the photos' names and above them.
double_click 417 44
within 10 has_marked "IMG_0001.JPG IMG_0002.JPG" || fail "the double click marks nothing: $(marked)"
sleep 0.6 # a third click so soon would count as one more of the same
double_click 417 44
within 10 has_marked IMG_0001.JPG || fail "the second double click recovers nothing: $(marked)"
double_click 611 44
within 10 has_marked "IMG_0001.JPG IMG_0004.JPG" || fail "the fourth photo is not marked: $(marked)"
shot marks-set

# In Remaining 2, 3, 5 and 6 close up.
click 636 187
within 20 stands_still || fail "the strip does not come to a stop"
shot remaining
drag 417 80 110 262
within 10 has_marked "IMG_0001.JPG IMG_0003.JPG IMG_0004.JPG" || fail "not the third photo was dragged: $(marked)"
[ "$(cd "$family" && echo *[gG])" = "Earlier.jpg IMG_0001.JPG" ] || fail "the duplicate stays: $(ls "$family")"

# AllButton, the film reel, takes all that remain.
drag 497 184 280 262
within 20 has_marks "$count" || fail "what remained was not dragged: $(marked)"
shot marks-all
close_window "$window"
expect_exit 0

[ "$(cd "$holiday" && echo *.JPG)" = "IMG_0002.JPG IMG_0005.JPG IMG_0006.JPG" ] || fail "the folder holds $(ls "$holiday")"
for copy in "$family"/*.JPG "$holiday"/*.JPG; do
  cmp "$card/$(basename "$copy")" "$copy" || fail "$copy differs"
done
[ "$before" = "$(md5sum "$card"/*.JPG "$family"/*.jpg)" ] || fail "a file that was there has changed"
saved="$(cat "$state")"
thumbnails="$(md5sum <"$card/Thumbnails.tmp")"

# Once more: nothing was lost, nothing was decoded again.
start_program
window=$(wait_for_window "^Pixorra v")
second_look() { [ "$(stat -c %s "$holiday/Thumbnails.tmp")" -eq $((5 * record)) ]; }
within 20 second_look || fail "the open folder's thumbnails do not come up again"
within 20 stands_still || fail "the strip does not come to a stop"
shot marks-again
[ "$thumbnails" = "$(md5sum <"$card/Thumbnails.tmp")" ] || fail "the cache was written again"
close_window "$window"
expect_exit 0
[ "$saved" = "$(cat "$state")" ] || fail "the saved state differs after the second run: $(diff <(echo "$saved") "$state")"
