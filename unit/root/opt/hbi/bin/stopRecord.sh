#!/bin/sh
# Finishes the running recording and returns once the file is complete; the
# console reads the recording as done a second after starting this script. The
# record script, which runs as long as the recording, ends with it.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/recorderkit.sh"

# The console starts a resume and this stop together when the operator stops a
# paused recording; the recorder hears the resume first. A recording asked for
# just before has its recorder started, so there is something to stop.
recorder_wait_earlier 100 pauseRecord.sh resumeRecord.sh
recorder_wait_for_start 150

if ! pid=$(recorder_pid); then
    unitkit_log "no recording to stop"
    rm -f "$RECORDER_PIDFILE"
    exit 0
fi
kill -TERM "$pid"
# The recorder gives up on its own after five seconds; past that it is stuck, and
# the file is still playable up to its last index update.
if ! recorder_wait_end "$pid" 80; then
    kill -KILL "$pid" 2>/dev/null || true
    unitkit_log "recorder $pid did not finish; killed"
fi
rm -f "$RECORDER_PIDFILE"
state=$(recorder_state)
unitkit_log "recording stopped ($pid, $state)"
[ "$state" = stopped ]
