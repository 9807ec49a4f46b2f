#!/usr/bin/env bash
# The main job with real events: a strip and two folders from the saved state, two photos dragged onto two folders, all that
# remain onto one, the end, and a second start. What counts is read from the disk.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"

photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/Card"
first="$HOME/Family"
second="$HOME/Holiday"
state="$HOME/.config/pixorra/Pixorra.sav"
cache="$card/Thumbnails.tmp"
record=14776
mkdir -p "$card" "$first" "$second" "$(dirname "$state")"
count=0
for photo in "$photos"/*.JPG; do
  count=$((count + 1))
  cp "$photo" "$card/"
  touch -d "2004-03-0$count 10:2$count:3$count" "$card/$(basename "$photo")"
done

backslash() { printf 'C:%s' "${1//\//\\}"; }
printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra - Kestrelia Corp"' 2 2 1 1 1 1 1 1 1 0 '""' \
  "\"$(backslash "$card")\"" "\"$(backslash "$first")\"" "\"$(backslash "$second")\"" \
  '""' '""' '""' '""' '""' '""' 0 >"$state"
before="$(md5sum "$card"/*.JPG)"

shot() {
  if [ -n "${PIXORRA_SCREENSHOTS:-}" ]; then import -window root "$PIXORRA_SCREENSHOTS/$1.png"; fi
}
# drag X1 Y1 X2 Y2: pixels of the window.
drag() {
  xdotool mousemove --window "$window" --sync "$1" "$2" mousedown 1
  for part in 1 2 3 4; do
    xdotool mousemove --window "$window" --sync $(($1 + ($3 - $1) * part / 4)) $(($2 + ($4 - $2) * part / 4))
  done
  xdotool mouseup 1
}
# Each thumbnail after the first leaves an empty record between.
cached() { [ "$(stat -c %s "$cache")" -eq $(((2 * count - 1) * record)) ]; }
# marks: how many records of the cache carry the mark of a dragged photo.
marks() {
  local at found=0 size
  size=$(stat -c %s "$cache")
  for ((at = 14567; at < size; at += record)); do
    if [ "$(od -An -tx1 -j "$at" -N 2 "$cache" | tr -d ' ')" = ffff ]; then found=$((found + 1)); fi
  done
  echo "$found"
}
has_marks() { [ "$(marks)" -eq "$1" ]; }

# The strip has come to a stop: two pictures of it, a few of its steps apart, are the same.
stands_still() {
  local one
  one=$(import -window "$window" -crop x140+260+20 png:- | identify -format '%#' png:-)
  sleep 0.2
  [ "$one" = "$(import -window "$window" -crop x140+260+20 png:- | identify -format '%#' png:-)" ]
}

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
