#!/bin/sh
# Brings the audio back up after a switch to the headset. The simulated unit has
# no sound card to restart, so it only records the request.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
unitkit_log "audio started up"
