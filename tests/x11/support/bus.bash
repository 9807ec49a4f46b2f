# The accessibility bus for scripts of tests/x11, to be sourced after steps.bash: what a screen reader finds and does.

support="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
children=()

skip() {
  echo "Skipped: $1."
  exit 77
}

# need_bus TOOL...: skips the script where these, or the bus, are missing.
need_bus() {
  local tool
  for tool in dbus-daemon "$@"; do command -v "$tool" >/dev/null || skip "$tool is missing"; done
  [ -x /usr/libexec/at-spi-bus-launcher ] || skip "at-spi2-core is missing"
  /usr/bin/python3 -c 'from gi.repository import Gio' 2>/dev/null || skip "python3-gi is missing"
}

end_all() {
  end_program
  local child
  for child in "${children[@]}"; do
    kill "$child" 2>/dev/null || true
    wait "$child" 2>/dev/null || true
  done
}
trap end_all EXIT

# start_bus: a session's bus of its own.
start_bus() {
  mkfifo "$HOME/address"
  dbus-daemon --session --nofork --nopidfile --print-address 2>/dev/null >"$HOME/address" &
  children+=($!)
  read -r -t 20 DBUS_SESSION_BUS_ADDRESS <"$HOME/address" || fail "no bus"
  export DBUS_SESSION_BUS_ADDRESS QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
}

access() { "$support/access.py" "$@" || fail "by the accessibility bus, in line ${BASH_LINENO[*]}: $*"; }

# choose ITEM...: from the menu bar down.
choose() {
  local item
  for item in "$@"; do access press "menu item" "$item"; done
}

# listen: what is told from now on is in $HOME/heard.
listen() {
  "$support/access.py" listen >"$HOME/heard" &
  children+=($!)
  within 20 grep -q "^listening" "$HOME/heard" || fail "nobody listens"
}
# heard PATTERN: it has been told since the last time.
heard() {
  has_been_told() { tail -n "+$((told + 1))" "$HOME/heard" | grep -qE "$1"; }
  within 10 has_been_told "$1" || fail "not told: $1; but $(tail -n "+$((told + 1))" "$HOME/heard" | tr '\n' ';')"
  told=$(wc -l <"$HOME/heard")
}
told=0
