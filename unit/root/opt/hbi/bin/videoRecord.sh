#!/bin/sh
# Starts recording the camera, with the console's overlay picture burnt in, into
# the given MP4 file: videoRecord.sh <path>
# Returns once the first frame is on its way to the file. The recorder keeps the
# file playable at all times (see the recorder's notes), is steered by
# pauseRecord.sh, resumeRecord.sh and stopRecord.sh, and its PID is remembered for
# the killall shim.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/recorderkit.sh"

# The console shows the last line printed as the cause of a failure.
fail() {
    unitkit_log "$*"
    printf '%s\n' "$*" >&2
    exit 1
}

out="${1:-}"
[ -n "$out" ] || fail "no recording path given"
if pid=$(recorder_pid); then
    fail "already recording ($pid); $out not started"
fi

mkdir -p "$UNITKIT_RUN"
rm -f "$RECORDER_STATE"
"$ROOT/usr/local/bin/$RECORDER_NAME" --overlay "$ROOT/dev/shm/overlay.png" --state "$RECORDER_STATE" "$out" \
    </dev/null >>"$UNITKIT_LOG" 2>&1 &
pid=$!
unitkit_remember "$RECORDER_NAME" "$pid"

if recorder_wait_state "$pid" recording 100; then
    unitkit_log "recording $out ($pid)"
    exit 0
fi
# The recorder's own words say why: its first error, else its last line.
said=$(grep -F "$RECORDER_NAME[$pid]: " "$UNITKIT_LOG" 2>/dev/null | sed 's/^[^]]*]: //' | grep -v "ended with a fault" || true)
cause=$(printf '%s\n' "$said" | grep '^error from' | head -n 1)
[ -n "$cause" ] || cause=$(printf '%s\n' "$said" | tail -n 1)
fail "recorder $pid did not start recording $out (state: $(recorder_state))${cause:+: $cause}"
