#!/bin/sh
# Prints "0" while a camera is attached, "1" while none is.
# On the simulated unit the power-board simulator keeps the camera's presence in
# /var/hbi/sim/camera: "1" attached, "0" detached; no file means attached.
# The console asks every two seconds, so only a change is logged.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"

presence="$ROOT/var/hbi/sim/camera"
attached=1
note=""
if [ -f "$presence" ]; then
    value=$(tr -d ' \t\r\n' < "$presence")
    case "$value" in
        0) attached=0 ;;
        1) ;;
        *) note=" (unreadable presence '$value' taken as attached)" ;;
    esac
fi

answer=1
[ "$attached" -eq 1 ] && answer=0

last="$UNITKIT_RUN/camera-detect"
if [ "$(cat "$last" 2>/dev/null || true)" != "$answer" ]; then
    mkdir -p "$UNITKIT_RUN"
    printf '%s\n' "$answer" > "$last"
    if [ "$answer" = 0 ]; then
        unitkit_log "camera attached$note"
    else
        unitkit_log "camera detached"
    fi
fi
echo "$answer"
