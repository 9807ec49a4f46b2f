#!/usr/bin/env bash
# A whole sort by the accessibility bus alone, without a key and without a mouse: the film strip is chosen in the browser, a
# folder is made and named, photos are copied into it, one of them twice, one into the Trashcan and out again, a photo gets
# another name, and the program is left. What counts is read from the disk; what a person hears, from the bus.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/bus.bash"

need_bus
start_bus
photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/Card"
family="$HOME/Family"
can="$HOME/.local/share/pixorra/Trashcan"
state="$HOME/.config/pixorra/Pixorra.sav"
mkdir -p "$card"
fill_card
before="$(md5sum "$card"/*.JPG)"
exists() { [ -e "$1" ]; }
is_missing() { [ ! -e "$1" ]; }
# Made by this script: the photo of that number in the folder, byte by byte.
has_copy() { cmp "$card/IMG_000$1.JPG" "$2/IMG_000$1.JPG"; }

start_program
access wait frame "^Pixorra v"
listen

# The browser: a node is opened, and the one below it is chosen.
access press "push button" "^Select a Film Strip$"
heard "^window dialog .*Select a Film Strip"
access "do" Expand "tree item" "^Home$"
access press "tree item" "^Card$"
access wait "label" "^1 of $count pics$"
access press "push button" "^Select Film Strip$"
access gone dialog "Select a Film Strip"
access wait "list item" "^IMG_0001.JPG, not dragged, 1 of $count$"
within 20 cached || fail "the strip's thumbnails do not come up"

# A folder below Home is made, and named where it lies on the Desktop.
access press "push button" "^Show a Folder$"
access wait dialog "Show a Folder"
access press "tree item" "^Home$"
access press "push button" "^Create New Folder$"
access write Family text "^New name of the folder$"
access "do" Enter frame "^Pixorra v"
within 10 exists "$family" || fail "the folder is not made: $(ls "$HOME")"
access wait "push button" "^Family, Empty, open$"

# Copies are to keep their names.
choose "^File$" "^Preferences"
access wait "radio button" "^Always "
access press "radio button" "^Auto, if name exists"
access press "push button" "^Close$"
access gone dialog "Preferences"

# By the photo's own action, and by the folder's with the photo that is selected.
access "do" "Copy to Family" "list item" "^IMG_0001.JPG, not dragged, 1 of $count$"
within 10 has_marks 1 || fail "the first photo is not marked"
heard "^focus list item IMG_0001.JPG, (not )?dragged, 1 of $count$"
access wait "list item" "^IMG_0001.JPG, dragged, 1 of $count$"
access wait "push button" "^Family, 1 pics, open$"
has_copy 1 "$family" || fail "the first copy differs: $(ls "$family" "$HOME")"
access press "list item" "^IMG_0002.JPG, not dragged"
heard "^focus list item IMG_0002.JPG, not dragged, 2 of $count$"
access wait "push button" "^Preview of IMG_0002.JPG$"
access "do" "Copy the selected photo here" "push button" "^Family, "
heard "^name list item IMG_0002.JPG, dragged, 2 of $count$"
access wait "push button" "^Family, 2 pics, open$"
has_copy 2 "$family" || fail "the second copy differs"
access wait "list item" "^IMG_0002.JPG, 2 of 2$"

# Into the Trashcan, out of it, and into it again.
access "do" "Copy to Trashcan" "list item" "^IMG_0003.JPG, not dragged"
access wait "push button" "^Trashcan, 1 pics, closed$"
has_copy 3 "$can" || fail "the Trashcan has no copy"
choose "^Open Folder$" "^Drop$" "^Undo Last"
access wait "list item" "^IMG_0003.JPG, not dragged, 3 of $count$"
access wait "push button" "^Trashcan, Empty, closed$"
within 10 is_missing "$can/IMG_0003.JPG" || fail "the drop is not taken back"
access "do" "Copy to Trashcan" "list item" "^IMG_0003.JPG, not dragged"
within 10 has_copy 3 "$can" || fail "the Trashcan has no copy again"

# A photo that the folder has already: the strip is moved back to it by its bar, the question is read, and the new copy is
# not kept.
access value 0 "scroll bar" "^Film Strip$"
access "do" "Copy to Family" "list item" "^IMG_0001.JPG, dragged"
heard "^window dialog .*Duplicate Photo Found"
access wait label "^Duplicate Photo Found$"
access wait label "^IMG_0001.JPG$"
access check || fail "some of the question cannot be read or answered"
access press "push button" "^Delete Duplicate$"
access gone dialog "Duplicate Photo Found"
[ "$(find "$family" -name '*.JPG' | wc -l)" -eq 2 ] || fail "the duplicate has stayed: $(ls "$family")"

# Discarded by hand, and recovered. A name is written, and left as it was; then it is written for good.
access "do" Discard "list item" "^IMG_0004.JPG, not dragged"
access "do" Recover "list item" "^IMG_0004.JPG, dragged"
access wait "list item" "^IMG_0004.JPG, not dragged"
choose "^Selected Photo$" "^Rename"
access write Elsewhere text "^New name of the photo$"
access "do" Close dialog "Rename Selected Photo"
access gone dialog "Rename Selected Photo"
choose "^Selected Photo$" "^Rename"
access write Lake text "^New name of the photo$"
access "do" Enter dialog "Rename Selected Photo"
access wait "list item" "^Lake.JPG, not dragged, 4 of $count$"
exists "$card/Lake.JPG" || fail "the photo has no other name: $(ls "$card")"
is_missing "$card/IMG_0004.JPG" || fail "the photo has both names"

# What is left is shown by itself, and copied at one go.
access press "radio button" "^Remaining$"
access wait "list item" "^Lake.JPG, not dragged, 1 of $((count - 3))$"
access "do" "Copy all remaining to Family" "push button" "^Drag All Remaining Photos$"
access wait "push button" "^Family, $((count - 1)) pics, open$"
within 10 has_marks "$count" || fail "marked: $(marked)"
access press "radio button" "^All$"

choose "^File$" "^Exit"
expect_exit 0
for photo in "$card"/*.JPG; do
  grep -qF "$(md5sum <"$photo" | cut -d ' ' -f 1)" <<<"$before" || fail "$photo has changed"
done
[ "$(find "$family" -name '*.JPG' | wc -l)" -eq $((count - 1)) ] || fail "the folder has $(ls "$family")"
for folder in "$card" "$family"; do
  grep -qF "\"$(backslash "$folder")\"" "$state" || fail "the saved state has not $folder"
done
is_missing "$can/IMG_0003.JPG" || fail "the Trashcan is not emptied"
