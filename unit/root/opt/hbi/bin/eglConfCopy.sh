#!/bin/sh
# Repairs the display configuration when the console found no screen.
# The simulated unit has nothing to repair.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
unitkit_log "no display configuration to copy on the simulated unit"
echo "eglConfCopy: nothing to do"
