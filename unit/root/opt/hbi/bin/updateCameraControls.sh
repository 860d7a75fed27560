#!/bin/sh
# Applies the operator's picture values to the capture device:
#   updateCameraControls.sh <brightness> <contrast> <saturation> <hue>
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"

if [ "$#" -ne 4 ]; then
    unitkit_log "expected brightness, contrast, saturation and hue, got: $*"
    exit 1
fi
for value in "$@"; do
    case "$value" in
        ''|-|*[!0-9-]*|?*-*)
            unitkit_log "not a whole number: '$value'"
            exit 1 ;;
    esac
done
v4l2-ctl -d "$ROOT/dev/video2" --set-ctrl "brightness=$1,contrast=$2,saturation=$3,hue=$4"
unitkit_log "picture set: brightness $1, contrast $2, saturation $3, hue $4"
