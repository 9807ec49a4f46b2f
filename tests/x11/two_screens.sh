#!/usr/bin/env bash
# Two screens, one of twice as many pixels to each side: a window that a person drags over keeps its size on the other, and all of
# it is there.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"

for tool in Xorg xrandr xwininfo; do
  command -v "$tool" >/dev/null || { echo "Skipped: $tool is missing."; exit 77; }
done
[ -e /usr/lib/xorg/modules/drivers/dummy_drv.so ] || { echo "Skipped: the X server has no driver without a screen."; exit 77; }

# A server of its own, as the other one has a single screen. It touches no device of the machine.
cat >"$HOME/screens.conf" <<'END'
Section "ServerFlags"
  Option "AutoAddDevices" "false"
  Option "AutoAddGPU" "false"
EndSection
Section "Device"
  Identifier "Card"
  Driver "dummy"
  VideoRam 64000
EndSection
Section "Monitor"
  Identifier "Monitor"
  HorizSync 5.0-1000.0
  VertRefresh 5.0-200.0
EndSection
Section "Screen"
  Identifier "Screen"
  Device "Card"
  Monitor "Monitor"
  DefaultDepth 24
EndSection
END
mkfifo "$HOME/number"
Xorg -displayfd 3 -config "$HOME/screens.conf" -logfile "$HOME/xorg.log" -noreset -nolisten tcp -novtswitch -sharevts \
  3>"$HOME/number" 2>"$HOME/xorg.err" &
server=$!
end_server() {
  end_program
  kill "$server" 2>/dev/null || true
  wait "$server" || true
}
trap end_server EXIT
if ! read -r -t 30 number <"$HOME/number"; then
  cat "$HOME/xorg.err"
  # A server may want rights that nobody has here; a file of screens that it does not take is a fault.
  ! grep -q "rror parsing the config file" "$HOME/xorg.err" || fail "the X server does not take its screens"
  echo "Skipped: Xorg does not start here."
  exit 77
fi
export DISPLAY=":$number"
xrandr --newmode small 108.88 1280 1360 1496 1712 1024 1025 1028 1060
xrandr --addmode DUMMY1 small
xrandr --output DUMMY0 --mode 2048x1536 --pos 0x0 --output DUMMY1 --mode small --pos 2048x0
export QT_SCREEN_SCALE_FACTORS="DUMMY0=2;DUMMY1=1"
unset QT_SCALE_FACTOR
openbox >"$HOME/openbox.log" 2>&1 &
manages() { xprop -root _NET_CLIENT_LIST | grep -q "window id"; }
is_framed() { xprop -id "$window" _NET_FRAME_EXTENTS | grep -q "= .*[1-9]"; }
for ((asked = 0; asked < 600; asked++)); do
  if manages 2>/dev/null; then break; fi
  sleep 0.05
done

start_program
window=$(wait_for_window "^Pixorra v")
within 20 is_framed || fail "the window has no frame"

# place: the window's inside as LEFT TOP WIDTH HEIGHT.
place() {
  xwininfo -id "$window" | sed -n 's/^ *Absolute upper-left [XY]: *//p; s/^ *\(Width\|Height\): *//p' | tr '\n' ' '
}
is_of() {
  local now
  read -r -a now <<<"$(place)"
  [ "${now[2]}" -eq "$1" ] && [ "${now[3]}" -eq "$2" ]
}
# drag_to X Y: by the middle of the title bar.
drag_to() {
  local now part from_x from_y
  read -r -a now <<<"$(place)"
  from_x=$((now[0] + now[2] / 2))
  from_y=$((now[1] - 10))
  xdotool mousemove --sync "$from_x" "$from_y" mousedown 1
  for part in 1 2 3 4 5 6 7 8; do
    xdotool mousemove --sync $((from_x + ($1 - from_x) * part / 8)) $((from_y + ($2 - from_y) * part / 8))
    sleep 0.02
  done
  xdotool mouseup 1
}

read -r -a first <<<"$(place)"
drag_to 2700 300
within 10 is_of $((first[2] / 2)) $((first[3] / 2)) || fail "on the coarse screen it is not as large as on the fine one: $(place)"
is_whole() {
  local now
  read -r -a now <<<"$(place)"
  [ "${now[0]}" -ge 2048 ] && [ $((now[0] + now[2])) -le 3328 ] && [ $((now[1] + now[3])) -le 1024 ]
}
within 10 is_whole || fail "on the coarse screen there is not all of it: $(place)"
drag_to 900 100
within 10 is_of "${first[2]}" "${first[3]}" || fail "back on the fine screen it is not as large as before: $(place)"

# Maximised, with the fine screen pulled: its own size comes back on the other one.
is_maximised() { xprop -id "$window" _NET_WM_STATE | grep -q MAXIMIZED; }
is_not_maximised() { ! is_maximised; }
press_title_twice() {
  local now
  read -r -a now <<<"$(place)"
  xdotool mousemove --sync $((now[0] + now[2] / 2)) $((now[1] - 10)) click --repeat 2 --delay 60 1
}
press_title_twice
within 10 is_maximised || fail "the window is not maximised"
xrandr --output DUMMY0 --off --output DUMMY1 --pos 0x0
is_across() { [ "$(place | cut -d' ' -f3)" -eq 1280 ]; }
within 10 is_across || fail "the window does not come to the other screen: $(place)"
press_title_twice
within 10 is_not_maximised || fail "the window stays maximised"
within 10 is_of $((first[2] / 2)) $((first[3] / 2)) || fail "after that it is not as large as on the fine screen: $(place)"

close_window "$window"
expect_exit 0
