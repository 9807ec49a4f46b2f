#!/usr/bin/env bash
# Signals that ask for the end: idle, with dialogs up, twice, and in the middle of a long drop. Each time the program ends as by
# its window: with 0, its state written, and every copy whole.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/Card"
folder="$HOME/Family"
trash="$HOME/.local/share/pixorra/Trashcan"
state="$HOME/.config/pixorra/Pixorra.sav"
mkdir -p "$card" "$folder" "$trash" "$(dirname "$state")"
fill_card

write_state() {
  printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra - Kestrelia Corp"' 2 2 1 1 1 1 1 1 1 0 '""' \
    "\"$(backslash "$card")\"" "\"$(backslash "$folder")\"" '""' '""' '""' '""' '""' '""' '""' 0 >"$state"
}
# begin: with a state that the end must write anew, and a photo in the Trashcan.
begin() {
  write_state
  cp "$photos/IMG_0001.JPG" "$trash/"
  start_program
  window=$(wait_for_window "^Pixorra v")
  rm "$state"
}
expect_saved() {
  expect_exit 0
  grep -qF "\"$(backslash "$folder")\"" "$state" || fail "the saved state has lost the folder"
  grep -qF "\"$(backslash "$card")\"" "$state" || fail "the saved state has lost the strip"
  [ "$(wc -l <"$state")" -eq 23 ] || fail "the saved state has $(wc -l <"$state") lines"
  [ -z "$(find "$trash" -name '*.JPG')" ] || fail "the Trashcan is not emptied"
}

for signal in TERM HUP; do
  begin
  within 20 cached || fail "the strip's thumbnails do not come up"
  kill "-$signal" "$program_id"
  expect_saved
done

# A dialog, and a question over it.
begin
within 20 cached
click 320 80
xdotool windowactivate --sync "$window" key --clearmodifiers Delete
wait_for_window "Delete" >/dev/null
kill -TERM "$program_id"
expect_saved
[ -e "$card/IMG_0001.JPG" ] || fail "the photo of the question is deleted"

# Again and again until it is gone.
begin
while kill -TERM "$program_id" 2>/dev/null; do :; done
expect_saved

# The screen goes: there is nothing to close any more, but the state is kept.
mkfifo "$HOME/number"
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset 3>"$HOME/number" 2>"$HOME/xvfb.log" &
server=$!
read -r -t 30 number <"$HOME/number" || fail "a second X server does not start"
write_state
rm -f "$card/Thumbnails.tmp"
DISPLAY=":$number" start_program
within 20 cached || fail "the strip's thumbnails do not come up"
rm "$state"
kill "$server"
wait "$server" || true
within 20 gone || fail "the program outlives its screen"
program_id=
grep -qF "\"$(backslash "$folder")\"" "$state" || fail "the state is not kept when the screen goes"

# In the middle of a drop of many photos.
rm -f "$card"/*
for i in $(seq 1000 1199); do cp "$photos/IMG_0001.JPG" "$card/P$i.JPG"; echo "$i" >>"$card/P$i.JPG"; done
begin
loaded() { [ "$(stat -c %s "$card/Thumbnails.tmp")" -eq $((399 * record)) ]; }
within 60 loaded || fail "the strip's thumbnails do not come up"
sleep 0.5
drag 497 184 110 262
copies() { [ "$(find "$folder" -name '*.JPG' | wc -l)" -ge "$1" ]; }
within 30 copies 5 || fail "the drop does not begin"
kill -TERM "$program_id"
expect_saved
whole=0
for copy in "$folder"/*; do
  [ "$(basename "$copy")" != Thumbnails.tmp ] || continue
  cmp "$copy" "$card/$(basename "$copy")" || fail "$copy is not whole"
  whole=$((whole + 1))
done
[ "$whole" -ge 5 ] || fail "copies have gone"
[ "$whole" -lt 200 ] || fail "the drop has run to its end"
