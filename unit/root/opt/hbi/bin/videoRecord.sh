#!/bin/sh
# Records the camera, with the console's overlay picture burnt in, into the given
# MP4 file: videoRecord.sh <path>
# Runs for as long as the recording does, as the unit's own record script does:
# it ends when stopRecord.sh (or the killall shim, by the PID remembered as
# videorecorder) has finished the file, with 0 for a finished recording and 1
# when the recorder did not start or died on the way. The recorder keeps the file
# playable at all times (see the recorder's notes) and is steered by
# pauseRecord.sh, resumeRecord.sh and stopRecord.sh.
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
# A stop the console asked for before this recording finishes the last one first.
recorder_wait_earlier 150 stopRecord.sh
if pid=$(recorder_pid); then
    fail "already recording ($pid); $out not started"
fi

mkdir -p "$UNITKIT_RUN"
rm -f "$RECORDER_STATE"
"$ROOT/usr/local/bin/$RECORDER_NAME" --overlay "$ROOT/dev/shm/overlay.png" --state "$RECORDER_STATE" "$out" \
    </dev/null >>"$UNITKIT_LOG" 2>&1 &
pid=$!
unitkit_remember "$RECORDER_NAME" "$pid"
# Ending this script politely finishes the recording; the recorder ends it in turn.
trap 'kill -TERM "$pid" 2>/dev/null || true' TERM INT HUP

forget_recorder() {
    if [ "$(cat "$RECORDER_PIDFILE" 2>/dev/null)" = "$pid" ]; then
        rm -f "$RECORDER_PIDFILE"
    fi
}

if ! recorder_wait_state "$pid" recording 100; then
    kill -TERM "$pid" 2>/dev/null || true
    forget_recorder
    # The recorder's own words say why: its first error, else its last line.
    said=$(grep -F "$RECORDER_NAME[$pid]: " "$UNITKIT_LOG" 2>/dev/null | sed 's/^[^]]*]: //' | grep -v "ended with a fault" || true)
    cause=$(printf '%s\n' "$said" | grep '^error from' | head -n 1)
    [ -n "$cause" ] || cause=$(printf '%s\n' "$said" | tail -n 1)
    fail "recorder $pid did not start recording $out (state: $(recorder_state))${cause:+: $cause}"
fi
unitkit_log "recording $out ($pid)"
# Scripts started after this one take their turn from here on.
started_mark=$(recorder_started_mark "$$")
touch "$started_mark"
trap 'rm -f "$started_mark"' EXIT

while :; do
    status=0
    wait "$pid" || status=$?
    # A signal caught above interrupts the wait while the recorder finishes.
    recorder_running "$pid" || break
done
forget_recorder
# The recorder's own exit says how it ended: its state file may already be the
# next recording's.
if [ "$status" -eq 0 ]; then
    unitkit_log "recording $out finished ($pid)"
    exit 0
fi
fail "recorder $pid ended during the recording of $out (exit $status)"
