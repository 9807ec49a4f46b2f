# The life of the package, on a display: run by tests/package/life, which has made the Debian in PIXORRA_ROOT with both versions
# in /packages, and the list of their files, PIXORRA_FILES.
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
source "$here/../x11/support/steps.bash"
source "$here/../x11/support/strip.bash"

photos="$here/../data/photos"
card="$HOME/Card"
folder="$HOME/Family"
state="$HOME/.config/pixorra/Pixorra.sav"
PIXORRA="$HOME/pixorra-of-package"

inside() { "$here/inside" "$@"; }
install() {
  inside root apt-get install -q -y --no-install-recommends "/packages/$1.deb" >"$HOME/../apt.log" 2>&1 ||
    fail "apt does not install it: $(tail -n 20 "$HOME/../apt.log")"
}
# shellcheck disable=SC2016 # a name that dpkg puts in
version() { inside root dpkg-query -W -f='${Version}' pixorra; }

# sort_one NUMBER X: starts the program, drags the photo at X into the folder, closes it; so many are marked then.
sort_one() {
  start_program
  window=$(wait_for_window "^Pixorra v")
  within 20 cached || fail "the strip's thumbnails do not come up"
  within 20 stands_still || fail "the strip does not come to a stop"
  drag "$2" 80 110 262
  within 10 has_marks "$1" || fail "drop $1 is not marked"
  shot "life-$1"
  close_window "$window"
  expect_exit 0
  [ "$(ls "$folder" | grep -c JPG)" -eq "$1" ] || fail "the folder holds $(ls "$folder")"
}

mkdir -p "$card" "$folder" "$(dirname "$state")"
fill_card
printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra"' 2 2 1 1 1 1 1 1 1 0 '""' "\"$(backslash "$card")\"" \
  "\"$(backslash "$folder")\"" '""' '""' '""' '""' '""' '""' '""' 0 >"$state"
printf '#!/bin/sh\nexec "%s/inside" anna pixorra\n' "$here" >"$PIXORRA"
chmod +x "$PIXORRA"

inside root apt-get update -q >/dev/null 2>&1 || { echo "the archive cannot be reached"; exit 77; }
install earlier
[ "$(version)" = 0.0.9 ] || fail "version $(version) is installed"
for program in pixorra pixorra-slideshow; do
  if inside root ldd "/usr/bin/$program" | grep "not found"; then fail "$program has not all of its libraries"; fi
done
inside anna pixorra-slideshow --version >/dev/null || fail "the slide show does not start"
sort_one 1 320
[ "$(readlink "$HOME/.config/pixorra/Pixorra SlideShow.scr")" = /usr/bin/pixorra-slideshow ] || fail "the slide show is not found"
[ ! -e "$HOME/.local/share/kio" ] || fail "the folders' menus show the command twice"
[ -x "$HOME/.local/share/nautilus/scripts/SlideShow by Pixorra" ] || fail "the first start adds no command to the folders' menus"

install now
[ "$(version)" != 0.0.9 ] || fail "it is not upgraded"
[ ! -e "$PIXORRA_ROOT/usr/share/pixorra" ] || fail "the upgrade leaves a file that it has no more"
# Beside the one that is sorted already.
sort_one 2 420

kept() { find "$HOME" -type f ! -path "$HOME/.cache/*" -exec md5sum {} + | sort; }
before=$(kept)
inside root dpkg --remove pixorra >/dev/null || fail "it is not removed"
inside root dpkg --purge pixorra >/dev/null 2>&1 || fail "it is not purged"
while read -r path; do
  path="$PIXORRA_ROOT/${path#./}"
  if [ "${path%/}" = "$path" ] && { [ -e "$path" ] || [ -L "$path" ]; }; then fail "$path stays"; fi
done <"$PIXORRA_FILES"
left=$(find "$PIXORRA_ROOT" -xdev \( -path "$PIXORRA_ROOT$HOME" -o -path "$PIXORRA_ROOT/packages" -o -path "$PIXORRA_ROOT/var/log" \
  -o -path "$PIXORRA_ROOT/proc" \) -prune -o \( -iname '*pixorra*' -o -path '*xscreensaver*' -o -path '*/kio/*' -o -path '*/Thunar/*' \) -print)
[ -z "$left" ] || fail "something of it stays: $left"
[ "$before" = "$(kept)" ] || fail "the user's own files have changed"
