#!/usr/bin/env bash
# CPU of the console and of the kit's recorder, run by hand: the console under
# scripts/run-unit's Xvfb showing the simulated camera's live picture, then
# recording it. Figures are percent of one core over SECONDS each.
#   bench/cpu.sh [SECONDS] [BUILD_DIR]
set -euo pipefail
repo=$(cd "$(dirname "$0")/.." && pwd)
seconds="${1:-15}"
build="${2:-$repo/build}"
out=$(mktemp)
trap 'kill "${unit:-}" 2>/dev/null || true; rm -f "$out"' EXIT

env -u DISPLAY DUCTLINE_BUILD_DIR="$build" "$repo/scripts/run-unit" $((seconds * 2 + 40)) >"$out" 2>&1 &
unit=$!
for _ in $(seq 600); do grep -q '^Display:' "$out" && break; sleep 0.2; done
display=$(sed -n 's/^Display: *\(:[0-9]*\).*/\1/p' "$out")
root=$(sed -n 's/^Simulated unit: *//p' "$out")
log="$(dirname "$root")/console.out"
console=$(cat "$root/run/unitkit/Ductline.pid")
for _ in $(seq 100); do grep -q 'Screen 1: Login' "$log" 2>/dev/null && break; sleep 0.2; done
DISPLAY="$display" xdotool key Return
for _ in $(seq 50); do grep -q 'Screen 2: Main' "$log" && break; sleep 0.2; done
sleep 3

ticks() { awk '{ print $14 + $15 }' "/proc/$1/stat"; }
hz=$(getconf CLK_TCK)
# percent PID...: CPU of each process over $seconds, in percent of one core.
measure() {
    local before=() pid
    for pid in "$@"; do before+=("$(ticks "$pid")"); done
    sleep "$seconds"
    local i=0
    for pid in "$@"; do
        awk -v a="${before[$i]}" -v b="$(ticks "$pid")" -v hz="$hz" -v s="$seconds" \
            'BEGIN { printf "%.1f", 100 * (b - a) / hz / s }'
        printf ' '
        i=$((i + 1))
    done
    echo
}

read -r console_live < <(measure "$console")
echo "console, live picture:          $console_live%"
DISPLAY="$display" xdotool key F21
for _ in $(seq 100); do [ -f "$root/run/unitkit/videorecorder.pid" ] && break; sleep 0.1; done
sleep 2
recorder=$(cat "$root/run/unitkit/videorecorder.pid")
read -r console_rec recorder_rec < <(measure "$console" "$recorder")
echo "console, recording:             $console_rec%"
echo "recorder, recording:            $recorder_rec%"
DISPLAY="$display" xdotool key F19
echo "(one core = 100%; $(nproc) cores; $seconds s each)"
