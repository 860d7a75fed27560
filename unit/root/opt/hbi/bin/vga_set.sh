#!/bin/sh
# Switches the external display output: start or stop.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
mode="${1:-}"
case "$mode" in
    start|stop) ;;
    *) unitkit_log "unknown mode '$mode'"; exit 1 ;;
esac
printf '%s\n' "$mode" > "$ROOT/var/hbi/vga"
unitkit_log "external display $mode"
