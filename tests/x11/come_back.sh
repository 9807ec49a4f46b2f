#!/usr/bin/env bash
# A window that was minimised, or maximised, when the program ended comes back so. Minimised it stays down until its user
# brings it up, and is then arranged for its normal size; maximised it is as large as the screen, and arranged for that.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"

state="$HOME/.config/pixorra/Pixorra.sav"
mkdir -p "$(dirname "$state")"

# write_state WIDTH,HEIGHT,TOP,LEFT,STATE: twips, and 0 normal, 1 minimised, 2 maximised.
write_state() {
  printf '%s\r\n' "$1" '"Pixorra - Kestrelia Corp"' 2 2 1 1 1 1 1 1 1 0 '""' '""' '""' '""' '""' '""' '""' '""' '""' '""' \
    0 >"$state"
}
any_window() { xdotool search --name "^Pixorra v" | head -n 1 | grep .; }
minimised() { xprop -id "$window" WM_STATE | grep -q Iconic; }
shown() { xprop -id "$window" WM_STATE | grep -q Normal; }
width() { xwininfo -id "$window" | sed -n 's/.*Width: //p'; }
saved_state() { head -n 1 "$state" | tr -d '\r' | cut -d, -f5; }

write_state '11730,9090,300,600,1'
start_program
within 20 any_window || fail "no window comes"
window=$(any_window)
within 20 minimised || fail "the window does not come back minimised"
# The program is settled, and it has had the time to bring its window up, when it waits without work.
sleeping() { grep -q '^State:.S' "/proc/$program_id/status"; }
for ((looked = 0; looked < 20; looked++)); do
  within 5 sleeping || fail "the program is busy"
  minimised || fail "the window that was minimised comes up by itself"
  sleep 0.05
done
xdotool windowactivate --sync "$window"
within 20 shown || fail "the window does not come up"
painted() { [ "$(colours_of "$window")" -gt 8 ]; }
within 20 painted || fail "the window stays empty"
[ "$(width)" -ge 700 ] || fail "the window is $(width) pixels wide"
close_window "$window"
expect_exit 0
[ "$(saved_state)" = 0 ] || fail "the window that was brought up is saved as $(saved_state)"

write_state '19200,15360,0,0,2'
start_program
window=$(wait_for_window "^Pixorra v")
within 20 painted || fail "the window stays empty"
maximised() { xprop -id "$window" _NET_WM_STATE | grep -q MAXIMIZED; }
within 20 maximised || fail "the window does not come back maximised"
[ "$(width)" -ge 1270 ] || fail "the maximised window is $(width) pixels wide"
close_window "$window"
expect_exit 0
[ "$(saved_state)" = 2 ] || fail "the maximised window is saved as $(saved_state)"
