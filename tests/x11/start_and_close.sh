#!/usr/bin/env bash
# The program shows its main window, filled, and ends with 0 when the window is closed.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"

start_program
window=$(wait_for_window "^Pixorra")
painted() { [ "$(colours_of "$window")" -gt 8 ]; }
within 20 painted || fail "the main window stays empty"
close_window "$window"
expect_exit 0
