#!/bin/sh
# Streams the live picture to the mobile app: videoStream.sh <ip> <port>
# H.264 in MPEG transport stream over UDP. The stream runs in gst-launch-1.0,
# remembered for the killall shim, through which the console ends it.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"

ip="${1:-}"
port="${2:-}"
case "$port" in
    ''|*[!0-9]*) unitkit_log "no usable address and port: '$ip' '$port'"; exit 1 ;;
esac
if [ -z "$ip" ] || [ "$port" -lt 1 ] || [ "$port" -gt 65535 ]; then
    unitkit_log "no usable address and port: '$ip' '$port'"
    exit 1
fi

pidfile="$UNITKIT_RUN/gst-launch-1.0.pid"
if [ -f "$pidfile" ] && kill -0 "$(cat "$pidfile")" 2>/dev/null; then
    unitkit_log "already streaming ($(cat "$pidfile")); $ip:$port not started"
    exit 1
fi

gst-launch-1.0 -q videotestsrc is-live=true pattern=smpte horizontal-speed=2 \
    ! video/x-raw,width=720,height=576,framerate=25/1 ! videoconvert \
    ! x264enc tune=zerolatency speed-preset=ultrafast key-int-max=25 bitrate=1024 \
    ! h264parse config-interval=-1 ! mpegtsmux ! udpsink host="$ip" port="$port" sync=false \
    </dev/null >>"$UNITKIT_LOG" 2>&1 &
pid=$!
unitkit_remember gst-launch-1.0 "$pid"
unitkit_log "streaming to $ip:$port ($pid)"
