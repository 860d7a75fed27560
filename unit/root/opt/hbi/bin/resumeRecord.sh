#!/bin/sh
# Resumes a paused recording in the same file.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/recorderkit.sh"
recorder_signal USR2 recording resume
