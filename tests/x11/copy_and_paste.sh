#!/usr/bin/env bash
# The clipboard, shared with a program that is not this one: a picture of its own is pasted, a photo of the strip is copied
# and read back there, and a picture that no JPEG file can hold is refused.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

for tool in xclip convert compare; do
  if ! command -v "$tool" >/dev/null; then
    echo "Skipped: $tool is missing."
    exit 77
  fi
done

photos="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data/photos" && pwd)"
card="$HOME/Card"
family="$HOME/Family"
state="$HOME/.config/pixorra/Pixorra.sav"
mkdir -p "$card" "$family" "$(dirname "$state")"
fill_card
printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra - Kestrelia Corp"' 2 3 1 1 1 1 1 1 1 0 '""' \
  "\"$(backslash "$card")\"" "\"$(backslash "$family")\"" '""' '""' '""' '""' '""' '""' '""' 0 >"$state"

# offer FILE: the other program has this picture on the clipboard.
offer() { xclip -selection clipboard -t image/png -i "$1"; }
# take FILE: the other program reads the clipboard.
take() { timeout 20 xclip -selection clipboard -t image/png -o >"$1"; }
size_of() { identify -format '%wx%h' "$1"; }
colour() { convert "$1" -crop "1x1+$2+$3" -format '%[fx:round(255*u.r)] %[fx:round(255*u.g)] %[fx:round(255*u.b)]' info:; }
in_front() { xdotool windowactivate --sync "$window"; }

convert -size 300x200 xc:none -fill 'rgb(20,120,220)' -draw 'rectangle 150,0 299,199' "$HOME/offered.png"
# One wider than any JPEG file, and one as large as cameras of our day make them.
"$python" - "$HOME" <<'PNG'
import struct, sys, zlib
def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
def write(path, width, height):
    rows = (b"\0" + b"\xff\x80\x00" * width) * height
    with open(path, "wb") as out:
        out.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
                  + chunk(b"IDAT", zlib.compress(rows, 1)) + chunk(b"IEND", b""))
write(sys.argv[1] + "/wide.png", 65501, 2)
write(sys.argv[1] + "/large.png", 8000, 5000)
PNG

start_program
window=$(wait_for_window "^Pixorra v")
within 20 cached || fail "the strip's thumbnails do not come up"
within 20 stands_still || fail "the strip does not come to a stop"

# Pasted, on white where it is transparent.
offer "$HOME/offered.png"
in_front
xdotool key ctrl+v
pasted() { [ "$(size_of "$family/Clipboard.jpg")" = 300x200 ]; }
within 20 pasted || fail "the picture is not pasted"
[ "$(colour "$family/Clipboard.jpg" 40 100)" = "255 255 255" ] || fail "transparent is $(colour "$family/Clipboard.jpg" 40 100)"
read -r red green blue <<<"$(colour "$family/Clipboard.jpg" 250 100)"
((red < 30 && green > 110 && green < 130 && blue > 210)) || fail "the rest is $red $green $blue"
shot pasted

# Taken back.
in_front
xdotool key ctrl+z
unpasted() { [ ! -e "$family/Clipboard.jpg" ]; }
within 20 unpasted || fail "the paste is not taken back"

# Large, and not too large.
offer "$HOME/large.png"
in_front
xdotool key ctrl+v
large_pasted() { [ "$(size_of "$family/Clipboard.jpg")" = 8000x5000 ]; }
within 30 large_pasted || fail "the large picture is not pasted"
in_front
xdotool key ctrl+z
within 20 unpasted || fail "the large picture is not taken back"

# Too large for a JPEG file.
offer "$HOME/wide.png"
in_front
xdotool key ctrl+v
box=$(wait_for_window "^Can't Paste Photo")
shot too-large
[ "$(find "$family" -name 'Clipboard*' | wc -l)" -eq 0 ] || fail "something is left of the large picture"
xdotool windowactivate --sync "$box" key Return
wait_for_no_window "^Can't Paste Photo"
[ "$(find "$family" -name 'Clipboard*' | wc -l)" -eq 0 ] || fail "something is left of the large picture"

# Copied, at full size and upright.
click 320 80
sleep 0.3
in_front
xdotool key ctrl+c
wait_for_window "^Pixorra$" >/dev/null
shot copied
convert "$card/IMG_0001.JPG" -auto-orient "$HOME/whole.png"
copied() { take "$HOME/copied.png" && [ "$(size_of "$HOME/copied.png")" = "$(size_of "$HOME/whole.png")" ]; }
within 20 copied || fail "the copy is $(size_of "$HOME/copied.png") instead of $(size_of "$HOME/whole.png")"
difference=$(compare -metric MAE "$HOME/whole.png" "$HOME/copied.png" null: 2>&1 | sed 's/ .*//') || true
awk -v difference="$difference" 'BEGIN { exit !(difference < 400) }' || fail "the copy differs from the photo by $difference"
# While the notice is up, keys are the main window's.
in_front
xdotool key ctrl+c
notice=$(wait_for_window "^Pixorra$")
xdotool windowactivate --sync "$notice" key ctrl+v
copy_pasted() { [ "$(size_of "$family/Clipboard.jpg")" = "$(size_of "$HOME/whole.png")" ]; }
within 20 copy_pasted || fail "a key that the notice has got goes nowhere"
# The notice goes by itself, and keys are the main window's again.
wait_for_no_window "^Pixorra$"
sleep 0.3
xdotool key ctrl+z
within 20 unpasted || fail "a key after the notice goes nowhere"

# What was copied outlives the program where a clipboard manager runs.
if "$python" -c 'import Xlib' 2>/dev/null; then
  mkfifo "$HOME/ready"
  timeout 30 "$python" "$(dirname "${BASH_SOURCE[0]}")/support/clipboard_keeper.py" "$HOME/kept.png" >"$HOME/ready" &
  keeper=$!
  read -r -t 20 _ <"$HOME/ready" || fail "the clipboard manager does not start"
  close_window "$window"
  expect_exit 0
  wait "$keeper" || fail "the clipboard manager fails"
  [ "$(size_of "$HOME/kept.png")" = "$(size_of "$HOME/whole.png")" ] || fail "the copy is gone with the program"
else
  close_window "$window"
  expect_exit 0
fi
