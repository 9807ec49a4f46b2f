#!/usr/bin/env bash
# A program that is left alone sleeps: fewer than 5 wake-ups a second, of all its threads together, with a strip and an open
# folder on show, and with the desktop's folder of mounts, which nothing but looks from a thread says anything of. A double click
# then finds it as awake as ever.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

card="$HOME/Card"
state="$HOME/.config/pixorra/Pixorra.sav"
mkdir -p "$card" "$HOME/One" "$(dirname "$state")"
count=12
convert -size 80x60 xc:gray40 "$HOME/grey.jpg"
for ((photo = 1; photo <= count; photo++)); do cp "$HOME/grey.jpg" "$card/$(printf 'IMG_%05d.JPG' "$photo")"; done
cp "$HOME/grey.jpg" "$HOME/One/1.JPG"
printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra - Kestrelia Corp"' 2 2 1 1 1 1 1 1 1 0 '""' \
  "\"$(backslash "$card")\"" "\"$(backslash "$HOME/One")\"" '""' '""' '""' '""' '""' '""' '""' 1 >"$state"

# Of each thread, one line: its number and how often it went to sleep so far.
sleeps() {
  local thread
  for thread in "/proc/$program_id/task/"*; do
    printf '%s %s\n' "${thread##*/}" "$(sed -n 's/^voluntary_ctxt_switches:\t//p' "$thread/status" 2>/dev/null)"
  done | sort
}
# wake_ups SECONDS: of the threads that are there at both ends, in so much time; a busy machine takes more over it.
wake_ups() {
  local before after begin end
  begin=$EPOCHREALTIME
  before=$(sleeps)
  sleep "$1"
  end=$EPOCHREALTIME
  after=$(sleeps)
  join <(echo "$before") <(echo "$after") |
    awk -v part="$1" -v whole="$((${end/[.,]/} - ${begin/[.,]/}))" '{ sum += $3 - $2 } END { printf "%d\n", sum * part * 1e6 / whole }'
}

# As the desktop's own file system is mounted there in a session. Only the program sees it.
mounts="$XDG_RUNTIME_DIR/gvfs"
mkdir -p "$mounts"
alone=()
for namespace in "unshare -m" "unshare -rm"; do
  # shellcheck disable=SC2206 # two words
  if $namespace mount -t tmpfs none "$mounts" 2>/dev/null; then alone=($namespace) && break; fi
done
if [ ${#alone[@]} -gt 0 ]; then
  # shellcheck disable=SC2016 # the inner shell's own
  "${alone[@]}" bash -c 'mount -t tmpfs none "$0" && mkdir "$0/smb-share:server=nas,share=photos" && exec "$1"' "$mounts" "$PIXORRA" &
  program_id=$!
else
  echo "Nothing can be mounted here: without the desktop's mounts."
  start_program
fi
window=$(wait_for_window "^Pixorra v")
within 20 cached || fail "the strip's thumbnails do not come up"
settled() { [ "$(wake_ups 1)" -lt 10 ]; }
within 20 settled || fail "it does not come to rest: $(wake_ups 1) wake-ups in a second"
# A machine that is short of memory or waits for its disk puts it to sleep and wakes it more often.
seconds=10
for _ in 1 2 3; do
  number=$(wake_ups $seconds)
  echo "$number wake-ups in $seconds seconds"
  [ "$number" -ge $((5 * seconds)) ] || break
done
[ "$number" -lt $((5 * seconds)) ] || fail "$number wake-ups in $seconds seconds"

# With the auto scroll waiting for a mark as well.
click 719 187 # Auto
wake_ups 2 >/dev/null
double_click 280 44
first_marked() { has_marks 1; }
within 10 first_marked || fail "the double click marks nothing"
close_window "$window"
expect_exit 0
