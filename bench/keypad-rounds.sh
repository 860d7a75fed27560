#!/usr/bin/env bash
# Keys and recordings under scripts/run-unit, run by hand: presses Record,
# Snapshot and Stop with xdotool ROUNDS times on run-unit's display, then counts
# in the console's log how many of each arrived and checks every recording plays
# for its full length.
#   bench/keypad-rounds.sh [ROUNDS] [BUILD_DIR]
set -euo pipefail
repo=$(cd "$(dirname "$0")/.." && pwd)
rounds="${1:-67}"
build="${2:-$repo/build}"
out=$(mktemp)
trap 'kill "${unit:-}" 2>/dev/null || true; rm -f "$out"' EXIT

# Each round takes about 2.5 s; run-unit ends on its own afterwards.
env -u DISPLAY DUCTLINE_BUILD_DIR="$build" "$repo/scripts/run-unit" $((rounds * 3 + 40)) >"$out" 2>&1 &
unit=$!
for _ in $(seq 600); do grep -q '^Display:' "$out" && break; sleep 0.2; done
display=$(sed -n 's/^Display: *\(:[0-9]*\).*/\1/p' "$out")
root=$(sed -n 's/^Simulated unit: *//p' "$out")
run=$(dirname "$root")
log="$run/console.out"
for _ in $(seq 100); do grep -q 'Screen 1: Login' "$log" 2>/dev/null && break; sleep 0.2; done

key() { DISPLAY="$display" xdotool key "$1"; }
key Return
for _ in $(seq 50); do grep -q 'Screen 2: Main' "$log" && break; sleep 0.2; done

for _ in $(seq "$rounds"); do
    key F21   # Record
    sleep 1
    key F22   # Snapshot
    sleep 0.3
    key F19   # Stop
    sleep 1.2 # the second the console gives the recording to save
done
sleep 2

count() { grep -c -- "$1" "$log" || true; }
echo "rounds:     $rounds"
echo "Record:     $(count 'kActionRecord')"
echo "Snapshot:   $(count ', Snapshot ')"
echo "Stop:       $(count 'kActionStop')"
echo "recordings: $(grep -c 'videoRecord.sh.*: recording ' "$root/opt/hbi/log/unitkit.log" || true) started," \
     "$(grep -c 'recording stopped (.*, stopped)' "$root/opt/hbi/log/unitkit.log" || true) finished"
# Each file must play to its end, and hold most of the 1.3 s between the keys
# (the recorder's start takes its share).
bad=0
durations=()
while IFS= read -r file; do
    seconds=$(gst-discoverer-1.0 "$file" 2>/dev/null | sed -n 's/.*Duration: 0:00:\([0-9.]*\).*/\1/p' | head -n 1)
    durations+=("${seconds:-0}")
    if ! gst-launch-1.0 -q filesrc location="$file" ! qtdemux ! h264parse ! avdec_h264 ! fakesink >/dev/null 2>&1 \
        || ! awk -v s="${seconds:-0}" 'BEGIN { exit !(s >= 0.4) }'; then
        bad=$((bad + 1))
        echo "bad: $file ${seconds:-?} s"
    fi
done < <(find "$root/media" -name '*.mp4')
printf '%s\n' "${durations[@]}" | sort -n | awk '{ a[NR] = $1 } END { if (NR) printf "durations:  %d files, %.2f to %.2f s\n", NR, a[1], a[NR] }'
echo "bad recordings: $bad"
echo "run: $run"
