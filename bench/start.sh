#!/usr/bin/env bash
# start.sh FOLDER: starts the program with the folder as its film strip and tells when its window was mapped, when the
# page stood still, and the memory it has then and once all thumbnails are loaded. PIXORRA names the program; run it by
# tests/x11/support/on-display, which gives it a screen and a home.
set -euo pipefail

folder=$(realpath "$1")
mkdir -p "$HOME/.config/pixorra"
{
  printf '11730,9090,300,300,0\r\n"Pixorra - Kestrelia Corp"\r\n1\r\n2\r\n'
  for _ in 1 2 3 4 5 6 7; do printf '1\r\n'; done
  printf '0\r\n""\r\n"C:%s"\r\n' "${folder//\//\\}"
  for _ in 1 2 3 4 5 6 7 8; do printf '""\r\n'; done
  printf '0\r\n'
} >"$HOME/.config/pixorra/Pixorra.sav"

milliseconds() { echo $(($(date +%s%N) / 1000000)); }
memory() { awk '/^Rss:/ { sum = $2 } END { printf "%.1f MiB", sum / 1024 }' "/proc/$program/smaps_rollup"; }
shown() { xwininfo -root -tree | grep -q '"Pixorra v'; }
page() { import -silent -window root -depth 8 rgb:- | cksum; }

begin=$(milliseconds)
"$PIXORRA" &
program=$!
trap 'kill $program 2>/dev/null || true' EXIT
until shown; do kill -0 "$program"; done
echo "window mapped: $(($(milliseconds) - begin)) ms"
# What is looked for is the moment after which the page without thumbnails is whole: the first page seen twice.
last=$(page)
until now=$(page) && [ "$now" = "$last" ]; do last=$now; done
echo "page stable: $(($(milliseconds) - begin)) ms (read off the screen, so late by a reading)"
echo "memory: $(memory)"
photos=$(find "$folder" -maxdepth 1 -iname '*.jp*g' | wc -l)
size=0
for _ in $(seq 1200); do
  before=$size
  sleep 5
  size=$(stat -c %s "$folder/Thumbnails.tmp" 2>/dev/null || echo 0)
  [ "$size" != "$before" ] || [ "$size" -eq 0 ] || break
done
echo "all loaded, $((size / 14776 / 2)) of $photos thumbnails in the cache: memory $(memory)"
