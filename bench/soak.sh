#!/usr/bin/env bash
# A long shift on the simulated unit, run by hand (not in CI):
#   bench/soak.sh [MINUTES] [BUILD_DIR]
# build/bench/bench_surveyloop (the real main window and controller, walked by keys)
# runs an ostra survey for MINUTES (default 120): a section recorded about every two
# minutes (30 s of video with a snapshot and comment every 3 s, then 80 s on the main
# screen), the overlay with date, time and distance redrawn all along, and the
# power board chattering: a battery report every 200 ms instead of every 5 s, an
# ambient light report every second, and a new battery voltage every second. Every 10 s it samples the console's resident memory and open file
# handles (/proc/PID/status, /proc/PID/fd) and at the end reports the growth after
# the first 10 minutes (the target: under 5 MB, and no more handles than at 10 min
# beyond the recording's own). Kills only the processes it started.
set -euo pipefail
repo=$(cd "$(dirname "$0")/.." && pwd)
minutes="${1:-120}"
build="${2:-$repo/build}"
driver="$build/bench/bench_surveyloop"
[ -x "$driver" ] || { echo "soak: build $driver first" >&2; exit 1; }

run=$(mktemp -d /tmp/soak.XXXXXX)
root="$run/root"
eval "$("$repo/unit/make-root" "$root" "$build")" >/dev/null
cat >> "$root/home/pi/.config/Corvane/Ductline.conf" <<'OVERLAY'
[Overlay]
counter=true
date=true
time=true
OVERLAY
export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="$run/xdg"
mkdir -p -m 0700 "$XDG_RUNTIME_DIR"

pids=()
cleanup() {
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
    local rec
    rec=$(cat "$root/run/unitkit/videorecorder.pid" 2>/dev/null || true)
    if [ -n "$rec" ] && tr '\0' '\n' < "/proc/$rec/environ" 2>/dev/null | grep -qx "DUCTLINE_ROOT=$root"; then
        kill "$rec" 2>/dev/null || true
    fi
    wait 2>/dev/null || true
}
trap cleanup EXIT
trap 'exit 130' INT TERM

"$root/usr/local/bin/powerboard-sim" --root "$root" --report-ms 200 --ambient-ms 1000 >"$run/powerboard.log" 2>&1 &
pids+=("$!")
for _ in $(seq 100); do [ -e "$root/dev/ttyAMA1" ] && break; sleep 0.1; done
ctl="$root/run/unitkit/powerboard.ctl"

(cd "$run" && exec "$driver" --observations 10 --every 3000 --idle 80000) >"$run/console.out" 2>&1 &
console=$!
pids+=("$console")

# The board's readings change every second.
(
    n=0
    while sleep 1; do
        n=$((n + 1))
        [ -p "$ctl" ] || continue
        timeout 2 sh -c "printf 'set BFG:VOLT %d\n' $((11500 + (n * 37) % 1500)) > '$ctl'" 2>/dev/null || true
    done
) &
pids+=("$!")

samples="$run/samples.txt"
echo "# seconds rss_kb fds recording" > "$samples"
start=$(date +%s)
end=$((start + minutes * 60))
while [ "$(date +%s)" -lt "$end" ] && kill -0 "$console" 2>/dev/null; do
    rss=$(awk '/^VmRSS:/ { print $2 }' "/proc/$console/status" 2>/dev/null || echo 0)
    fds=$(ls "/proc/$console/fd" 2>/dev/null | wc -l)
    rec=0
    [ -n "$(cat "$root/run/unitkit/videorecorder.pid" 2>/dev/null)" ] \
        && kill -0 "$(cat "$root/run/unitkit/videorecorder.pid")" 2>/dev/null && rec=1
    echo "$(( $(date +%s) - start )) $rss $fds $rec" >> "$samples"
    sleep 10
done
alive=yes
kill -0 "$console" 2>/dev/null || alive=no

sections=$(grep -c '^BENCH section' "$run/console.out" || true)
observations=$(grep -c '^BENCH observation' "$run/console.out" || true)
board_lines=$(grep -c . "$run/powerboard.log" || true)
echo "ran $(( ($(date +%s) - start) / 60 )) min; console alive at the end: $alive"
echo "sections recorded: $sections; observations: $observations; $(grep -c '^BENCH failed' "$run/console.out" || true) failures"
grep '^BENCH failed' "$run/console.out" || true
echo "power-board simulator log lines: $board_lines"
awk -v from=600 '
    /^#/ { next }
    { t = $1; rss = $2; fds = $3 }
    NR == 2 { first = rss; firstfd = fds }
    t <= from { base = rss; basefd = fds }
    t >= from { if (rss > maxafter) maxafter = rss; if (fds > maxfd) maxfd = fds;
                if (!minfd || fds < minfd) minfd = fds; lastrss = rss; lastfd = fds; n++ }
    END {
        printf "resident memory: %.1f MB at start, %.1f MB at 10 min, %.1f MB at the end, at most %.1f MB after 10 min\n", first / 1024, base / 1024, lastrss / 1024, maxafter / 1024
        printf "growth after the first 10 minutes: %.1f MB (%d samples)\n", (maxafter - base) / 1024, n
        printf "open file handles: %d at start, %d at 10 min, %d at the end, %d to %d after 10 min\n", firstfd, basefd, lastfd, minfd, maxfd
    }' "$samples"
echo "samples: $samples"
echo "run folder: $run"
