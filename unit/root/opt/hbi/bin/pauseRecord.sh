#!/bin/sh
# Pauses the running recording; resumeRecord.sh carries on in the same file, which
# then plays without the paused stretch.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/recorderkit.sh"
recorder_signal USR1 paused pause
