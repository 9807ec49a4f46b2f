#!/usr/bin/env bash
# start.sh FOLDER: starts the program with the folder as its film strip, beside the least that a program with windows does,
# and prints when its window was mapped, when its page came to rest, the wake-ups of the idle program, and its memory once all
# thumbnails are loaded. The splash takes 0.2 seconds of it. PIXORRA names the program, start_bench and floor_bench are in
# the build folder beside it; run it by tests/x11/support/on-display, which gives it a screen and a home.
set -euo pipefail

folder=$(realpath "$1")
tools=$(dirname "$PIXORRA")/bench
mkdir -p "$HOME/.config/pixorra"
state="$HOME/.config/pixorra/Pixorra.sav"
{
  printf '11730,9090,300,300,0\r\n"Pixorra - Kestrelia Corp"\r\n1\r\n2\r\n'
  for _ in 1 2 3 4 5 6 7; do printf '1\r\n'; done
  printf '0\r\n""\r\n"C:%s"\r\n' "${folder//\//\\}"
  for _ in 1 2 3 4 5 6 7 8; do printf '""\r\n'; done
  printf '0\r\n'
} >"$HOME/state"

memory() { awk '/^Rss:/ { sum = $2 } END { printf "%.1f MiB", sum / 1024 }' "/proc/$program/smaps_rollup"; }
# sleeps: how often the program's first thread has gone to sleep.
sleeps() { sed -n 's/^voluntary_ctxt_switches:\t//p' "/proc/$program/status"; }

for _ in 1 2 3 4 5; do
  echo "an empty window:       $("$tools/start_bench" Floor "$tools/floor_bench")"
  echo "a list of the names:   $("$tools/start_bench" Floor "$tools/floor_bench" "$folder")"
  cp "$HOME/state" "$state"
  echo "the program:           $("$tools/start_bench" "Pixorra v" "$PIXORRA")"
done

cp "$HOME/state" "$state"
"$PIXORRA" &
program=$!
trap 'kill $program 2>/dev/null || true' EXIT
photos=$(find "$folder" -maxdepth 1 -iname '*.jp*g' | wc -l)
size=0
for _ in $(seq 1200); do
  before=$size
  sleep 5
  size=$(stat -c %s "$folder/Thumbnails.tmp" 2>/dev/null || echo 0)
  [ "$size" != "$before" ] || [ "$size" -eq 0 ] || break
done
echo "all loaded, $((size / 14776 / 2)) of $photos thumbnails in the cache: memory $(memory)"
before=$(sleeps)
sleep 30
echo "wake-ups in 30 idle seconds: $(($(sleeps) - before))"
