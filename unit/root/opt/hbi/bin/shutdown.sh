#!/bin/sh
# Powers the unit off. The simulated unit ends the console's session instead:
# the launcher remembers the console's PID and tears the rest down when it ends.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
unitkit_log "shutdown requested"
touch "$ROOT/var/hbi/shutdown-requested"
pidfile="$UNITKIT_RUN/Ductline.pid"
if [ -f "$pidfile" ]; then
    pid=$(cat "$pidfile")
    kill -TERM "$pid" 2>/dev/null && unitkit_log "ended console session ($pid)"
fi
echo "shutting down"
