#!/usr/bin/env bash
# Printing with real events, where the one printer makes PDF files: the selected photo by its key, thought better of at the
# file's name and then printed; all photos of the film strip by the print button's menu; and the end of the program.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

if ! command -v pdfinfo >/dev/null; then
  echo "Skipped: pdfinfo is missing."
  exit 77
fi
# No print system: what it has is not for tests to print on.
export CUPS_SERVER=localhost:9

photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/Card"
state="$HOME/.config/pixorra/Pixorra.sav"
mkdir -p "$card" "$(dirname "$state")"
fill_card
printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra - Kestrelia Corp"' 2 2 1 1 1 1 1 1 1 0 '""' \
  "\"$(backslash "$card")\"" '""' '""' '""' '""' '""' '""' '""' '""' 0 >"$state"

key_in() { xdotool windowactivate --sync "$1" key --clearmodifiers "$2"; }
exists() { [ -e "$1" ]; }
pages() { pdfinfo "$1" | sed -n 's/^Pages: *//p'; }
# name_file NAME: types it into the box that asks for the file.
name_file() {
  local asking
  asking=$(wait_for_window "PDF")
  shot asking
  key_in "$asking" ctrl+a
  xdotool type "$1"
  key_in "$asking" Return
}

start_program
window=$(wait_for_window "^Pixorra v")
within 20 cached || fail "the strip's thumbnails do not come up"
click 320 80

# Thought better of: nothing is left.
key_in "$window" F2
dialog=$(wait_for_window "Print Selected Photo - ")
shot dialog
key_in "$dialog" Return
asking=$(wait_for_window "PDF")
key_in "$asking" Escape
wait_for_no_window "PDF"
[ -z "$(find "$HOME" -name '*.pdf*')" ] || fail "a file is left of what was not printed"

# And printed, two steps of the slider smaller: its pixels are closer together than at first.
key_in "$window" F2
dialog=$(wait_for_window "Print Selected Photo - ")
key_in "$dialog" Left
key_in "$dialog" Left
key_in "$dialog" Return
name_file "$HOME/one.pdf"
within 20 exists "$HOME/one.pdf" || fail "the photo is not printed"
wait_for_no_window "PDF"
[ "$(pages "$HOME/one.pdf")" = 1 ] || fail "the photo has $(pages "$HOME/one.pdf") pages"
dots=$(pdfimages -list "$HOME/one.pdf" | awk 'NR == 3 { print $13 }')
case "$dots" in 49 | 50 | 51) ;; *) fail "the photo is printed with $dots dots to the inch" ;; esac

# All, by the button's menu: its second entry, and the first below that.
menu_is_up() { [ "$(xdotool search --onlyvisible --class pixorra | wc -l)" -eq 2 ]; }
xdotool mousemove --window "$window" --sync 552 186 click 3
within 20 menu_is_up || fail "the print button has no menu"
xdotool key Down Down Right Return
dialog=$(wait_for_window "Batch Print")
shot batch
key_in "$dialog" Return
name_file "$HOME/all.pdf"
within 60 exists "$HOME/all.pdf" || fail "the film strip is not printed"
[ "$(pages "$HOME/all.pdf")" = "$count" ] || fail "the film strip has $(pages "$HOME/all.pdf") pages"
pdfinfo "$HOME/all.pdf" | grep -Eq 'Page size: *(792 x 612|841.89 x 595.276|842 x 595)' || fail "the pages are not landscape"
wait_for_no_window "^Pixorra$"

close_window "$window"
expect_exit 0
