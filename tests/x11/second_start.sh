#!/usr/bin/env bash
# A second start while the program runs: it ends at once without touching a file, and the window that is there comes to the
# front. With a home of its own a second program starts all the same.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"

state="$HOME/.config/pixorra/Pixorra.sav"
mkdir -p "$(dirname "$state")"

start_program
window=$(wait_for_window "^Pixorra v")
files_before="$(find "$HOME" -type f -printf '%p %T@ %s\n' | sort)"
xdotool windowminimize --sync "$window"
minimised() { xprop -id "$window" WM_STATE | grep -q Iconic; }
within 20 minimised || fail "the window is not minimised"

timeout 20 "$PIXORRA" || fail "the second start ends with $?"
shown_again() { [ "$(xdotool getactivewindow)" = "$window" ] && ! minimised; }
within 20 shown_again || fail "the window does not come to the front"
[ "$(xdotool search --onlyvisible --name "^Pixorra v" | wc -l)" -eq 1 ] || fail "there are two windows"
[ "$files_before" = "$(find "$HOME" -type f -printf '%p %T@ %s\n' | sort)" ] || fail "the second start touched a file"

first_id=$program_id
other="$HOME/another home"
mkdir -p "$other"
HOME="$other" XDG_CONFIG_HOME="" start_program
two_windows() { [ "$(xdotool search --onlyvisible --name "^Pixorra v" | wc -l)" -eq 2 ]; }
within 20 two_windows || fail "a home of its own does not get a window of its own"
end_program
program_id=$first_id

# A program that was killed is in nobody's way.
kill -KILL "$program_id"
within 20 gone || fail "the program outlives a kill"
start_program
wait_for_window "^Pixorra v" >/dev/null
