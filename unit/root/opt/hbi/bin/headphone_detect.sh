#!/bin/sh
# Tells whether a microphone headset is plugged in, by the exit status the
# console reads: 1 a headset is present, 0 none. The simulated unit's headset
# is the file var/hbi/sim/headset holding 1 or 0; no file means no headset.
# The console asks every few seconds, so this stays one small shell with no
# helper processes, and it logs only when the answer changes.
root="${DUCTLINE_ROOT:-}"
state=0
if [ -f "$root/var/hbi/sim/headset" ]; then
    read -r state < "$root/var/hbi/sim/headset" || true
fi
case "$state" in
    1 | 1[[:cntrl:]]) present=1 ;;
    *) present=0 ;;
esac
last=
[ -f "$root/run/unitkit/headset" ] && read -r last < "$root/run/unitkit/headset"
if [ "$last" != "$present" ]; then
    # Sourcing the kit runs this script again under bash; the second pass finds
    # the same answer still unrecorded and logs it.
    . "$root/usr/local/lib/unitkit.sh"
    [ -d "$UNITKIT_RUN" ] || mkdir -p "$UNITKIT_RUN"
    printf '%s\n' "$present" > "$UNITKIT_RUN/headset"
    if [ "$present" = 1 ]; then
        unitkit_log "headset present"
    else
        unitkit_log "no headset"
    fi
fi
exit "$present"
