# For scripts about a film strip, to be sourced after steps.bash: its folder, its cache, and a hand on it. `window` is
# the main window, `card` the strip's folder, `count` the number of its photos.

record=14776

# backslash PATH: a host path as the program writes it.
backslash() { printf 'C:%s' "${1//\//\\}"; }

shot() {
  if [ -n "${PIXORRA_SCREENSHOTS:-}" ]; then import -window root "$PIXORRA_SCREENSHOTS/$1.png"; fi
}

# fill_card: the photos of tests/data on the card, each with a date of its own.
fill_card() {
  local photo
  count=0
  for photo in "$photos"/*.JPG; do
    count=$((count + 1))
    cp "$photo" "$card/"
    touch -d "2004-03-0$count 10:2$count:3$count" "$card/$(basename "$photo")"
  done
}

# drag X1 Y1 X2 Y2: pixels of the window.
drag() {
  local part
  xdotool mousemove --window "$window" --sync "$1" "$2" mousedown 1
  for part in 1 2 3 4; do
    xdotool mousemove --window "$window" --sync $(($1 + ($3 - $1) * part / 4)) $(($2 + ($4 - $2) * part / 4))
  done
  xdotool mouseup 1
}
click() { xdotool mousemove --window "$window" --sync "$1" "$2" click 1; }
double_click() { xdotool mousemove --window "$window" --sync "$1" "$2" click --repeat 2 --delay 40 1; }

# Each thumbnail after the first leaves an empty record between.
cached() { [ "$(stat -c %s "$card/Thumbnails.tmp")" -eq $(((2 * count - 1) * record)) ]; }
# marked: the names of the photos whose records in the card's cache carry the mark of a dragged photo.
marked() {
  local at size
  size=$(stat -c %s "$card/Thumbnails.tmp")
  for ((at = 0; at < size; at += record)); do
    if [ "$(od -An -tx1 -j $((at + 14567)) -N 2 "$card/Thumbnails.tmp" | tr -d ' ')" = ffff ]; then
      dd if="$card/Thumbnails.tmp" bs=1 skip=$((at + 14455)) count=100 status=none | tr -d ' '
      echo
    fi
  done | sort
}
# marks: how many they are.
marks() { marked | wc -l; }
has_marks() { [ "$(marks)" -eq "$1" ]; }

# The strip has come to a stop: two pictures of it, a few of its steps apart, are the same.
stands_still() {
  local one
  one=$(import -window "$window" -crop x140+260+20 png:- | identify -format '%#' png:-)
  sleep 0.2
  [ "$one" = "$(import -window "$window" -crop x140+260+20 png:- | identify -format '%#' png:-)" ]
}
