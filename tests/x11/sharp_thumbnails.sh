#!/usr/bin/env bash
# The film strip on a screen of half as many pixels again to each side: a thumbnail and the preview pane show what the screen has
# the pixels for, the thumbnail shaded too, and the cache holds the small records all the same.
export QT_SCALE_FACTOR=1.5
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/strip.bash"

card="$HOME/Card"
state="$HOME/.config/pixorra/Pixorra.sav"
count=3
mkdir -p "$card" "$(dirname "$state")"
# Stripes of one of the screen's pixels each, too fine for the record.
convert -size 24x1080 xc:black -fill white -draw 'rectangle 0,0 11,1079' "$HOME/stripes.png"
convert -size 1440x1080 tile:"$HOME/stripes.png" -quality 95 "$card/IMG_0001.JPG"
convert "$card/IMG_0001.JPG" -quality 96 "$card/IMG_0002.JPG"
# And for the preview pane.
convert -size 8x1080 xc:black -fill white -draw 'rectangle 0,0 3,1079' "$HOME/fine.png"
convert -size 1440x1080 tile:"$HOME/fine.png" -quality 95 "$card/IMG_0003.JPG"
printf '%s\r\n' '11730,9090,300,600,0' '"Pixorra - Kestrelia Corp"' 2 2 1 1 1 1 1 1 1 0 '""' \
  "\"$(backslash "$card")\"" '""' '""' '""' '""' '""' '""' '""' '""' 0 >"$state"

start_program
window=$(wait_for_window "^Pixorra v")
within 20 cached || fail "the strip's thumbnails do not come up"

# light_at PLACE MEASURE: of the light in a part of the window, from 0 to 1, in hundredths.
light_at() {
  import -window "$window" -crop "60x45$1" png:- |
    convert png:- +repage -colorspace Gray -format "%[fx:int(100*$2)]" info:
}
of_thumbnail() { light_at +458+98 "$1"; }
is_sharp() { [ "$(of_thumbnail standard_deviation)" -ge 22 ]; }
within 5 is_sharp || fail "the thumbnail has not the screen's pixels: $(of_thumbnail standard_deviation)"
shot sharp

click 780 120
is_sharp_pane() { [ "$(light_at +160+120 standard_deviation)" -ge 20 ]; }
within 5 is_sharp_pane || fail "the preview pane has not the screen's pixels: $(light_at +160+120 standard_deviation)"
shot pane

click 894 280 # All: the strip stays where it is
xdotool mousemove --window "$window" --sync 450 180 click --repeat 2 --delay 40 1
within 20 has_marks 1 || fail "the photo is not marked"
is_shaded() { [ "$(of_thumbnail mean)" -le 20 ] && [ "$(of_thumbnail standard_deviation)" -ge 15 ]; }
within 5 is_shaded || fail "the shading is not kept: $(of_thumbnail mean), $(of_thumbnail standard_deviation)"
shot shaded

close_window "$window"
expect_exit 0
