#!/bin/sh
# Frees cached memory after a capture fault. On the unit this writes to
# /proc/sys/vm/drop_caches; the simulated unit shares its machine with other work,
# so it only records the request.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
unitkit_log "page cache drop requested; left alone on the simulated unit"
