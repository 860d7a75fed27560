#!/bin/sh
# Prints "0" while a camera is attached, "1" while none is.
# On the simulated unit the power-board simulator keeps the camera's presence in
# /var/hbi/sim/camera: "1" attached, "0" detached; no file means attached.
# The console asks every two seconds, so this stays one small shell with no
# helper processes, and only a change is logged.
root="${DUCTLINE_ROOT:-}"
value=
if [ -f "$root/var/hbi/sim/camera" ]; then
    read -r value < "$root/var/hbi/sim/camera" || true
fi
note=""
case "$value" in
    0 | 0[[:cntrl:]]) answer=1 ;;
    '' | 1 | 1[[:cntrl:]]) answer=0 ;;
    *) answer=0; note=" (unreadable presence '$value' taken as attached)" ;;
esac

last=
[ -f "$root/run/unitkit/camera-detect" ] && read -r last < "$root/run/unitkit/camera-detect"
if [ "$last" != "$answer" ]; then
    # Sourcing the kit runs this script again under bash; the second pass finds
    # the same answer still unrecorded and logs it.
    . "$root/usr/local/lib/unitkit.sh"
    [ -d "$UNITKIT_RUN" ] || mkdir -p "$UNITKIT_RUN"
    printf '%s\n' "$answer" > "$UNITKIT_RUN/camera-detect"
    if [ "$answer" = 0 ]; then
        unitkit_log "camera attached$note"
    else
        unitkit_log "camera detached"
    fi
fi
echo "$answer"
