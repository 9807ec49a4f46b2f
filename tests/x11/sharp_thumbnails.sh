#!/usr/bin/env bash
# The film strip on a screen of half as many pixels again to each side: a thumbnail shows what the screen has the pixels for,
# shaded too, and the cache holds the small records all the same.
export QT_SCALE_FACTOR=1.5
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

card="$HOME/Card"
state="$HOME/.config/pixorra/Pixorra.sav"
count=2
mkdir -p "$card" "$(dirname "$state")"
# Stripes of one of the screen's pixels each, too fine for the record.
convert -size 24x1080 xc:black -fill white -draw 'rectangle 0,0 11,1079' "$HOME/stripes.png"
convert -size 1440x1080 tile:"$HOME/stripes.png" -quality 95 "$card/IMG_0001.JPG"
convert "$card/IMG_0001.JPG" -quality 96 "$card/IMG_0002.JPG"
printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra - Kestrelia Corp"' 2 2 1 1 1 1 1 1 1 0 '""' \
  "\"$(backslash "$card")\"" '""' '""' '""' '""' '""' '""' '""' '""' 0 >"$state"

start_program
window=$(wait_for_window "^Pixorra v")
within 20 cached || fail "the strip's thumbnails do not come up"

# of_thumbnail MEASURE: of the light in the middle of the first thumbnail, from 0 to 1, in hundredths.
of_thumbnail() {
  import -window "$window" -crop 60x45+458+98 png:- |
    convert png:- +repage -colorspace Gray -format "%[fx:int(100*$1)]" info:
}
is_sharp() { [ "$(of_thumbnail standard_deviation)" -ge 22 ]; }
within 5 is_sharp || fail "the thumbnail has not the screen's pixels: $(of_thumbnail standard_deviation)"
shot sharp

click 894 280 # All: the strip stays where it is
xdotool mousemove --window "$window" --sync 450 180 click --repeat 2 --delay 40 1
within 20 has_marks 1 || fail "the photo is not marked"
is_shaded() { [ "$(of_thumbnail mean)" -le 20 ] && [ "$(of_thumbnail standard_deviation)" -ge 15 ]; }
within 5 is_shaded || fail "the shading is not kept: $(of_thumbnail mean), $(of_thumbnail standard_deviation)"
shot shaded

close_window "$window"
expect_exit 0
