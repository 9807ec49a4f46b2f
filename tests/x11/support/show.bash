# For scripts about the slide show, to be sourced after steps.bash. PIXORRA_SLIDESHOW names the program.

photos="$HOME/My photos"

# plain_photos COLOUR...: a photo of the screen's size for each, named by its place and its colour.
plain_photos() {
  local colour place=0
  mkdir -p "$photos"
  for colour in "$@"; do
    place=$((place + 1))
    convert -size 1280x1024 "xc:$colour" "$photos/$place $colour.jpg"
  done
}

# backslash PATH: a host path as the programs write it.
backslash() { printf 'C:%s' "${1//\//\\}"; }

start_show() {
  "$PIXORRA_SLIDESHOW" "$@" &
  program_id=$!
}

# colour_at X Y: what is seen there of the screen, as red, green or blue; nothing while it is none of them.
colour_at() {
  import -silent -window root -crop "1x1+$1+$2" png:- |
    convert png:- -format '%[fx:round(p.r)]%[fx:round(p.g)]%[fx:round(p.b)] %[fx:abs(p.r-.5)>.4&&abs(p.g-.5)>.4&&abs(p.b-.5)>.4]' info:- |
    sed -n 's/^100 1$/red/p; s/^010 1$/green/p; s/^001 1$/blue/p; s/^000 1$/black/p; s/^111 1$/white/p'
}
seen() { [ "$(colour_at 640 300)" = "$1" ]; }
wait_for_colour() { within 20 seen "$1" || fail "no $1 photo is seen, but $(colour_at 640 300)"; }

# begin_show ARGUMENT...: until its first photo is seen. What a show before it has left on the screen is not taken for that.
begin_show() {
  start_show "$@"
  wait_for_window "^Pixorra SlideShow" >/dev/null
  wait_for_colour red
}

shot() {
  if [ -n "${PIXORRA_SCREENSHOTS:-}" ]; then import -window root "$PIXORRA_SCREENSHOTS/$1.png"; fi
}

# ends_with_success: by now, or soon.
ends_with_success() { expect_exit 0; }
