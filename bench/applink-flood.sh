#!/usr/bin/env bash
# App link flood, run by hand: the real console on a fresh simulated unit under
# Xvfb is linked to the kit's unit-app by a long Survey press, then flooded with
# commands. Prints the console's resident memory every 5 s and, at the end,
# whether a heartbeat is still answered.
#   bench/applink-flood.sh [SECONDS] [PERSEC] [WORD] [BUILD_DIR]
set -euo pipefail
repo=$(cd "$(dirname "$0")/.." && pwd)
seconds="${1:-60}"
persec="${2:-10000}"
word="${3:-LampUp}"
build="${4:-$repo/build}"
work=$(mktemp -d)
cleanup() {
    [ -n "${console:-}" ] && kill "$console" 2>/dev/null || true
    [ -n "${DUCTLINE_ROOT:-}" ] && unit-app stop 2>/dev/null || true
    [ -n "${xvfb:-}" ] && kill "$xvfb" 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

number=$((200 + RANDOM % 50))
Xvfb ":$number" -screen 0 800x600x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
export DISPLAY=":$number"
for _ in $(seq 50); do [ -S "/tmp/.X11-unix/X$number" ] && break; sleep 0.1; done
export XDG_RUNTIME_DIR="$work/xdg"; mkdir -m 0700 "$XDG_RUNTIME_DIR"

wait_for() { # file pattern
    for _ in $(seq 3000); do grep -q "$2" "$1" 2>/dev/null && return 0; sleep 0.01; done
    echo "timed out waiting for '$2' in $1" >&2; return 1
}
rss() { awk '/VmRSS/ {print $2}' "/proc/$console/status"; }

eval "$("$repo/unit/make-root" "$work/root" "$build")"
log="$DUCTLINE_ROOT/opt/hbi/log/Ductline-$(date +%d%m%Y).log"
applog="$DUCTLINE_ROOT/opt/hbi/log/unit-app.log"
unit-app start >/dev/null
(cd "$DUCTLINE_ROOT" && exec "$build/src/Ductline") >/dev/null 2>&1 &
console=$!
wait_for "$log" "Screen 1: Login screen"
sleep 0.3
xdotool search --sync --class Ductline windowactivate --sync 2>/dev/null || true
xdotool key Return
wait_for "$log" "Screen 2: Main screen"
# Key_Survey is F2; held, it auto-repeats into the long press that links the app.
for _ in 1 2 3; do
    xdotool keydown F2; sleep 2.5; xdotool keyup F2
    grep -q "Connected To LanthornPi" "$applog" && break
    sleep 1
done
wait_for "$applog" "Connected To LanthornPi"
echo "linked; RSS before: $(rss) KiB"

unit-app flood $((seconds * persec)) "$persec" "$word" >/dev/null
for elapsed in $(seq 5 5 "$seconds"); do
    sleep 5
    kill -0 "$console" || { echo "console ended during the flood" >&2; exit 1; }
    printf '%4ss  RSS %s KiB\n' "$elapsed" "$(rss)"
done
wait_for "$applog" " 0 left"
unit-app silence on >/dev/null
unit-app send "*IDN?" >/dev/null
wait_for "$applog" "recv QX7106"
echo "replies to the flood: $(grep -o 'the line before [0-9]* more times' "$applog" | awk '{s += $4 + 1} END {print s + 0}')"
unit-app clear-log >/dev/null
unit-app beat >/dev/null
if wait_for "$applog" "recv Lanthorn Beat"; then
    echo "heartbeat answered after the flood; RSS after: $(rss) KiB"
else
    echo "heartbeat NOT answered after the flood" >&2
    exit 1
fi
