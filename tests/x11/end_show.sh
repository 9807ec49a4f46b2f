#!/usr/bin/env bash
# A slide show that is asked to end by a signal ends as by a key.
source "$(dirname "${BASH_SOURCE[0]}")/support/steps.bash"
source "$(dirname "${BASH_SOURCE[0]}")/support/show.bash"

plain_photos red green
for signal in TERM HUP; do
  begin_show "90$photos"
  kill "-$signal" "$program_id"
  ends_with_success
done
