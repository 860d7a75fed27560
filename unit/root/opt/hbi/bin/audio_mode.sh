#!/bin/sh
# Switches the unit's audio path: 0 the headset, 1 the built-in microphone and
# speaker. The simulated unit keeps the chosen mode in var/hbi/sim/audio_mode.
#   audio_mode.sh 0|1
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"

mode="${1:-}"
case "$mode" in
    0) name=headset ;;
    1) name=built-in ;;
    *)
        unitkit_log "unknown audio mode '$mode'"
        echo "usage: audio_mode.sh 0|1" >&2
        exit 2 ;;
esac
mkdir -p "$ROOT/var/hbi/sim"
printf '%s\n' "$mode" > "$ROOT/var/hbi/sim/audio_mode"
unitkit_log "audio mode $mode ($name)"
