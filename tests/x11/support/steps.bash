# Steps for the scripts of tests/x11, to be sourced. PIXORRA names the program; on-display has made the stage.
set -euo pipefail

program_id=

# The host's own, which finds the modules that its packages install; one that a person has put before it does not.
python=/usr/bin/python3
[ -x "$python" ] || python=python3

fail() {
  echo "FAILED: $*" >&2
  if [ -n "${PIXORRA_SCREENSHOTS:-}" ] && command -v import >/dev/null; then
    import -window root "$PIXORRA_SCREENSHOTS/$(basename "$0" .sh).png" || true
  fi
  exit 1
}

# It saves its state as it goes: its home is not removed before.
end_program() {
  [ -n "$program_id" ] && kill "$program_id" 2>/dev/null || return 0
  local asked
  for ((asked = 0; asked < 200; asked++)); do
    kill -0 "$program_id" 2>/dev/null || return 0
    sleep 0.05
  done
  kill -KILL "$program_id" 2>/dev/null || true
}
trap end_program EXIT

# start_program ARGUMENT...
start_program() {
  "$PIXORRA" "$@" &
  program_id=$!
}

gone() { ! kill -0 "$program_id"; }

# within SECONDS COMMAND...: asks until the command succeeds; 1 when time is up, at once when the program is gone.
within() {
  local seconds=$1 asked=0
  shift
  until "$@" >/dev/null 2>&1; do
    asked=$((asked + 1))
    [ "$asked" -le $((seconds * 20)) ] || return 1
    if gone 2>/dev/null; then
      "$@" >/dev/null 2>&1
      return
    fi
    sleep 0.05
  done
}

# window_named PATTERN: prints the id of a visible window whose title matches.
window_named() {
  xdotool search --onlyvisible --name "$1" | head -n 1 | grep .
}

# A look at all windows fails where one of them goes meanwhile; it is taken again then.
wait_for_window() {
  local asked id
  for ((asked = 0; asked < 400; asked++)); do
    if id=$(window_named "$1" 2>/dev/null); then
      echo "$id"
      return
    fi
    if gone 2>/dev/null; then break; fi
    sleep 0.05
  done
  fail "no window named $1"
}

wait_for_no_window() {
  no_such_window() { ! window_named "$1"; }
  within 20 no_such_window "$1" || fail "the window named $1 stays"
}

# The program ends by itself with this exit code.
expect_exit() {
  local code=0
  within 20 gone || fail "the program does not end"
  wait "$program_id" || code=$?
  program_id=
  [ "$code" -eq "$1" ] || fail "exit code $code instead of $1"
}

# close_window WINDOW: what a person does; the window manager takes the keys and asks the program. A person whose keys were
# lost, because the window was not in front yet, presses them again.
close_window() {
  window_gone() { ! xdotool getwindowname "$1"; }
  local attempt
  for attempt in 1 2 3; do
    xdotool windowactivate --sync "$1" key --clearmodifiers alt+F4 || true
    if within 6 window_gone "$1"; then return; fi
  done
  fail "the window does not close, asked $attempt times"
}

# colours_of WINDOW: how many colours a screenshot of the window shows. An empty window has one or two.
colours_of() {
  import -window "$1" png:- | identify -format '%k' png:-
}
