#!/bin/sh
# Run after an export or report has written its files: flushes them to the medium
# and frees the page cache they filled. The simulated unit shares its machine with
# other work, so it flushes but only records the cache request.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
sync
unitkit_log "cache clear requested; files flushed, page cache left alone on the simulated unit"
