#!/usr/bin/env bash
# A desktop's session manager: a session that is to end has the state saved, also where the end is taken back; at the end the
# program ends as by its window. The next session begins with the program, and with no slide show.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/show.bash"

support="$(cd "$(dirname "${BASH_SOURCE[0]}")/support" && pwd)"
if ! "$python" -c 'import ctypes; ctypes.CDLL("libSM.so.6")' 2>/dev/null; then
  echo "Skipped: libSM is missing."
  exit 77
fi

photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/Card"
state="$HOME/.config/pixorra/Pixorra.sav"
mkdir -p "$card"
fill_card

coproc manager { exec "$python" "$support/session_manager.py"; }
manager_id=$!
end_both() {
  end_program
  kill "$manager_id" 2>/dev/null || true
}
trap end_both EXIT
hear() {
  local said
  read -r -t 20 said <&"${manager[0]}" || fail "the session manager says nothing, where $1 is expected"
  [ "$said" = "$1" ] || fail "the session manager says $said, not $1"
}
tell() { echo "$1" >&"${manager[1]}"; }
read -r -t 20 address <&"${manager[0]}" || fail "no session manager"
export SESSION_MANAGER="$address"

start_program "$card"
window=$(wait_for_window "^Pixorra v")
hear registered
within 20 cached || fail "the strip's thumbnails do not come up"

[ ! -e "$state" ] || fail "a state is written ahead of any end"
tell "shut down"
hear saved
grep -qF "\"$(backslash "$card")\"" "$state" || fail "the state is not saved with the session"
tell cancel
rm "$state"
tell save
hear saved
[ -e "$state" ] || fail "a second session does not save the state"
tell ask
hear "0 $PIXORRA"
xdotool getwindowname "$window" >/dev/null || fail "the window does not outlive a session that was saved"

# At the end with a dialog up.
xdotool windowactivate --sync "$window" key --clearmodifiers ctrl+r
wait_for_window "Preferences" >/dev/null
rm "$state"
tell die
expect_exit 0
[ -e "$state" ] || fail "the end of the session has not written the state"
hear gone

# A slide show is nothing that a session begins with: it would come up over the whole screen.
photos="$HOME/My photos"
plain_photos red
start_show "$photos"
wait_for_window "^Pixorra SlideShow" >/dev/null
hear registered
tell save
hear saved
tell ask
read -r -t 20 said <&"${manager[0]}" || fail "the session manager says nothing of the slide show"
[[ "$said" = "3 "* ]] || fail "the session is to begin with the slide show: $said"
tell die
expect_exit 0
