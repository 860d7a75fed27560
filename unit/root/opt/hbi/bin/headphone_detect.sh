#!/bin/sh
# Tells whether a microphone headset is plugged in, by the exit status the
# console reads: 1 a headset is present, 0 none. The simulated unit's headset
# is the file var/hbi/sim/headset holding 1 or 0; no file means no headset.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"

state_file="$ROOT/var/hbi/sim/headset"
state=0
if [ -f "$state_file" ]; then
    state=$(tr -d ' \t\r\n' < "$state_file")
fi
if [ "$state" = "1" ]; then
    unitkit_log "headset present"
    exit 1
fi
unitkit_log "no headset"
exit 0
