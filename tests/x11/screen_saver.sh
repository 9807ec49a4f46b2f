#!/usr/bin/env bash
# The slide show in a window that another program gives it, as a screen saver's daemon does: it is drawn in there, follows its
# size, leaves keys and mouse alone, and ends when it is told to or the window goes.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/show.bash"

"$python" -c 'import Xlib' 2>/dev/null || { echo "Skipped: python3-xlib is missing."; exit 77; }

plain_photos red blue
mkdir -p "$HOME/.config/pixorra"
settings="$HOME/.config/pixorra/settings"
escaped=$(backslash "$photos")
printf '[pixorra/screensaver]\nsourcelocation=%s\nduration=1\n' "${escaped//\\/\\\\}" >"$settings"

# A plain window at (600, 200), over all others, that stays until its keeper is killed; its number comes first.
mkfifo "$HOME/number"
"$python" "$(dirname "${BASH_SOURCE[0]}")/support/plain_window.py" 600 200 400 300 >"$HOME/number" &
keeper=$!
trap 'kill "$keeper" 2>/dev/null || true; end_program' EXIT
read -r -t 20 host <"$HOME/number" || fail "there is no window to draw in"

is_red_or_blue() { [[ "$(colour_at "$1" "$2")" =~ ^(red|blue)$ ]]; }

start_show --window-id "$host"
within 20 is_red_or_blue 800 350 || fail "nothing is drawn in the window"
shot inside
if is_red_or_blue 300 350; then fail "it is drawn outside of the window as well"; fi
[ "$(xdotool search --onlyvisible --name '^Pixorra SlideShow' | wc -l)" -eq 1 ] || fail "it has more than one window"
xdotool mousemove 700 300 mousemove 850 400 key space
sleep 0.5
if gone 2>/dev/null; then fail "keys and mouse are not left to the other program"; fi
xdotool windowsize --sync "$host" 500 600
follows() { is_red_or_blue 850 500 && [ "$(xdotool getwindowgeometry --shell "$(window_named '^Pixorra SlideShow')" | grep -c -e WIDTH=500 -e HEIGHT=600)" -eq 2 ]; }
within 20 follows || fail "it does not follow the window's size"
shot resized
kill -TERM "$program_id"
within 20 gone || fail "it does not end when it is told to"

# By the variable, as the newer daemons do; without a folder it says how to choose one.
rm "$settings"
XSCREENSAVER_WINDOW=$host start_show -root
written() { [ "$(import -silent -window root -crop 500x600+600+200 png:- | identify -format '%k' png:-)" -gt 8 ]; }
within 20 written || fail "nothing is said without a folder"
shot no_folder
kill "$keeper"
expect_exit 0

if "$PIXORRA_SLIDESHOW" --window-id 0x7fffff0 2>/dev/null; then fail "a window that is not there is taken"; fi
if env -u DISPLAY "$PIXORRA_SLIDESHOW" --window-id 1 2>"$HOME/said"; then fail "a window without an X server is taken"; else code=$?; fi
[ "$code" -eq 1 ] || fail "without an X server it ends with $code"
[ "$(wc -l <"$HOME/said")" -eq 1 ] || fail "without an X server it says: $(cat "$HOME/said")"

# A window that has no whole number of the screen's larger pixels is covered to its last row and column.
printf '[pixorra/screensaver]\nsourcelocation=%s\nduration=1\n' "${escaped//\\/\\\\}" >"$settings"
"$python" "$(dirname "${BASH_SOURCE[0]}")/support/plain_window.py" 600 200 398 301 white >"$HOME/number" &
keeper=$!
read -r -t 20 host <"$HOME/number" || fail "there is no second window to draw in"
QT_SCALE_FACTOR=1.75 start_show --window-id "$host"
within 20 is_red_or_blue 800 350 || fail "nothing is drawn in the window at another scale"
shot broken_scale
covered() { [ "$(import -silent -window root -crop 398x301+600+200 png:- | convert png:- -fill black +opaque white -format '%[fx:maxima]' info:-)" = 0 ]; }
within 10 covered || fail "the window is not covered whole"
kill "$keeper"
expect_exit 0
