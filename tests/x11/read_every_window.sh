#!/usr/bin/env bash
# Every window of the program as a screen reader finds it: each control that takes the focus has a name and a role, each button
# something to do, each bar a value; boxes and notices are told when they come up. The slide show's texts can be read.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/bus.bash"

need_bus
start_bus
photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/Card"
family="$HOME/Family"
state="$HOME/.config/pixorra/Pixorra.sav"
mkdir -p "$card" "$family" "$(dirname "$state")"
fill_card
cp "$card/IMG_0001.JPG" "$family/"
cp "$card/IMG_0005.JPG" "$family/IMG_0004.JPG"
printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra - Kestrelia Corp"' 3 2 1 1 1 1 1 1 1 0 '""' \
  "\"$(backslash "$card")\"" "\"$(backslash "$family")\"" '""' '""' '""' '""' '""' '""' '""' 1 >"$state"
export CUPS_SERVER=localhost:9

can_be_read() { access check >"$HOME/faults" || fail "in $1: $(cat "$HOME/faults")"; }
# window TITLE: it is told, and all of it can be read.
window() {
  heard "^window (dialog|alert|alert message|frame) .*$1"
  can_be_read "$1"
}
# closes TITLE: as by its frame, which a box of the desktop has no action for.
closes() {
  access "do" Close "dialog|alert.*" "$1"
  access gone "dialog|alert.*" "$1"
}
answers() {
  access press "push button" "$1"
  access gone "dialog|alert.*" "$2"
}

start_program
access wait frame "^Pixorra v"
access wait "list item" "^IMG_0005.JPG, not dragged, 5 of $count$"
access wait "list item" "^IMG_0004.JPG, 2 of 2$"
listen
can_be_read "the main window"
access press "radio button" "^All$"
access press "list item" "^IMG_0002.JPG"
heard "^focus list item IMG_0002.JPG, not dragged, 2 of $count$"

access press "push button" "^Select a Film Strip$"
window "Select a Film Strip"
access "do" Collapse "tree item" "^Computer$"
access gone "tree item" "^File System$"
access "do" Expand "tree item" "^Computer$"
access wait "tree item" "^File System$"
access "do" SetFocus text "^Folder$"
access write "$card" text "^Folder$"
access "do" Enter dialog "Select a Film Strip"
access wait label "^1 of $count pics$"
access "do" Toggle "list item" "^IMG_0003.JPG"
access wait label "^3 of $count pics$"
can_be_read "the browser with a folder"
closes "Select a Film Strip"

choose "^File$" "^Preferences"
window "Preferences"
closes "Preferences"
choose "^File$" "^Company Name"
window "Company Name"
answers "^Cancel$" "Company Name"
choose "^File$" "^Change Background"
window "Change Background"
closes "Change Background"
choose "^File$" "^Printer Setup"
heard "^window dialog"
answers "^Cancel$" "Setup"

choose "^Selected Photo$" "^Print"
window "Print Selected Photo"
access value 60 slider "^Zoom$"
closes "Print Selected Photo"
choose "^File$" "^Print$" "^Proof Sheet$" "^Film Strip"
window "Print Proof Sheet"
access "do" ShowMenu "combo box" "^All"
access press "list item" "^1$"
access wait "combo box" "^1$"
access gone "list item" "^All"
closes "Print Proof Sheet"
choose "^Selected Photo$" "^Rename"
window "Rename Selected Photo"
closes "Rename Selected Photo"
choose "^Selected Photo$" "^View Full Size"
window "IMG_0002 - W"
access press "push button" "^Next Photo$"
heard "^(window|name) .*IMG_0003"
closes "IMG_0003 - W"
choose "^Selected Photo$" "^Delete"
window "Delete Selected Photo"
access wait label "^Do you want to delete this photo"
closes "Delete Selected Photo"
access press "push button" "^Delete Photos in Film Strip$"
window "Delete Photos in Film Strip"
closes "Delete Photos in Film Strip"

# A notice of two seconds, a box, the pages of help.
choose "^Selected Photo$" "^COPY"
heard "^window (alert|alert message|notification) Pixorra"
choose "^Help$" "^Tips$" "^General$"
window "HELP - General"
answers "^OK$" "HELP - General .*1 of"
window "HELP - General .*2 of"
answers "^OK$" "HELP - General .*2 of"
window "HELP - General .*3 of"
answers "^OK$" "HELP - General .*3 of"
choose "^Help$" "^Read Me$"
window "Read Me"
access says "Pixorra" text "^Read Me$"
closes "Read Me"
choose "^Help$" "^About"
window "About Pixorra"
closes "About Pixorra"

# The question of a drop.
access "do" "Copy to Family" "list item" "^IMG_0004.JPG, not dragged"
window "Photo Name Already Exists"
closes "Photo Name Already Exists"

choose "^Slide Show$" "^Play$" "^Film Strip"
access wait frame "^Pixorra SlideShow"
access wait "label" "^IMG_000[1-9]$"
access wait "label" "^[1-9] / $count$"
can_be_read "the slide show"
access "do" Close frame "^Pixorra SlideShow"
access gone frame "^Pixorra SlideShow"
access "do" Close frame "^Pixorra v"
expect_exit 0
