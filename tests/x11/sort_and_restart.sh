#!/usr/bin/env bash
# The main job with real events: a strip and two folders from the saved state, two photos dragged onto two folders, all that
# remain onto one, the end, and a second start. What counts is read from the disk.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/Card"
first="$HOME/Family"
second="$HOME/Holiday"
state="$HOME/.config/pixorra/Pixorra.sav"
cache="$card/Thumbnails.tmp"
mkdir -p "$card" "$first" "$second" "$(dirname "$state")"
fill_card

printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra - Kestrelia Corp"' 2 2 1 1 1 1 1 1 1 0 '""' \
  "\"$(backslash "$card")\"" "\"$(backslash "$first")\"" "\"$(backslash "$second")\"" \
  '""' '""' '""' '""' '""' '""' 0 >"$state"
before="$(md5sum "$card"/*.JPG)"

start_program
window=$(wait_for_window "^Pixorra v")
within 20 cached || fail "the strip's thumbnails do not come up"
shot strip

# The strip moves on past a dragged photo, so the next one is taken from where it then stands.
drag 320 80 110 262
within 10 has_marks 1 || fail "the first drop is not marked"
cmp "$card/IMG_0001.JPG" "$first/IMG_0001.JPG" || fail "the first drop's bytes differ"
within 20 stands_still || fail "the strip does not come to a stop"
drag 420 80 280 262
within 10 has_marks 2 || fail "the second drop is not marked"
[ "$(ls "$second" | grep -c JPG)" -eq 1 ] || fail "the second drop is not in its folder"
shot dropped

within 20 stands_still || fail "the strip does not come to a stop"
# AllButton, the film reel, takes all that remain.
drag 497 184 280 262
within 20 has_marks "$count" || fail "what remained was not dragged: $(marks) of $count marks"
shot all

close_window "$window"
expect_exit 0

[ "$(ls "$first" | grep -c JPG)" -eq 1 ] || fail "the first folder holds $(ls "$first")"
[ "$(ls "$second" | grep -c JPG)" -eq $((count - 1)) ] || fail "the second folder holds $(ls "$second")"
for copy in "$first"/*.JPG "$second"/*.JPG; do
  photo="$card/$(basename "$copy")"
  cmp "$photo" "$copy" || fail "$copy differs"
  [ "$(stat -c %y "$photo" | cut -c1-19)" = "$(stat -c %y "$copy" | cut -c1-19)" ] || fail "$copy has another date"
done
[ "$before" = "$(md5sum "$card"/*.JPG)" ] || fail "a photo of the card has changed"
grep -q "$(backslash "$card" | sed 's/\\/\\\\/g')" "$state" || fail "the saved state has lost the strip"
[ "$(wc -l <"$state")" -eq 23 ] || fail "the saved state has $(wc -l <"$state") lines"
saved="$(cat "$state")"
thumbnails="$(md5sum <"$cache")"

# Once more: everything is back, and nothing was decoded again.
start_program
window=$(wait_for_window "^Pixorra v")
second_look() { [ -f "$second/Thumbnails.tmp" ] && [ "$(stat -c %s "$second/Thumbnails.tmp")" -gt $((count * record)) ]; }
within 20 second_look || fail "the open folder's thumbnails do not come up again"
shot again
close_window "$window"
expect_exit 0
[ "$saved" = "$(cat "$state")" ] || fail "the saved state differs after the second run: $(diff <(echo "$saved") "$state")"
[ "$thumbnails" = "$(md5sum <"$cache")" ] || fail "the cache was written again"
