#!/usr/bin/env bash
# Start-up benchmark, run by hand: time from process start to the event loop,
# and resident memory once the main screen is showing. Runs the real console on
# a fresh simulated unit under Xvfb and presses Return on the login screen.
#   bench/startup.sh [RUNS] [BUILD_DIR]
set -euo pipefail
repo=$(cd "$(dirname "$0")/.." && pwd)
runs="${1:-5}"
build="${2:-$repo/build}"
work=$(mktemp -d)
trap 'kill "${xvfb:-}" 2>/dev/null || true; rm -rf "$work"' EXIT

number=$((150 + RANDOM % 50))
Xvfb ":$number" -screen 0 800x600x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
export DISPLAY=":$number"
for _ in $(seq 50); do [ -S "/tmp/.X11-unix/X$number" ] && break; sleep 0.1; done
export XDG_RUNTIME_DIR="$work/xdg"; mkdir -m 0700 "$XDG_RUNTIME_DIR"

now_ms() { date +%s%3N; }
wait_for() { # file pattern
    for _ in $(seq 2000); do grep -q "$2" "$1" 2>/dev/null && return 0; sleep 0.005; done
    echo "timed out waiting for '$2'" >&2; return 1
}

printf '%-4s %14s %14s %12s\n' run "to loop (ms)" "in main (ms)" "RSS (KiB)"
for run in $(seq "$runs"); do
    root="$work/root$run"
    (eval "$("$repo/unit/make-root" "$root" "$build")"
     log="$root/opt/hbi/log/Ductline-$(date +%d%m%Y).log"
     start=$(now_ms)
     (cd "$root" && exec "$build/src/Ductline") >/dev/null 2>&1 &
     pid=$!
     wait_for "$log" "Event loop running"
     loop=$(( $(now_ms) - start ))
     inmain=$(grep -o 'Event loop running [0-9]*' "$log" | grep -o '[0-9]*$')
     wait_for "$log" "Screen 1: Login screen"
     sleep 0.3
     xdotool search --sync --class Ductline windowactivate --sync 2>/dev/null || true
     xdotool key Return
     wait_for "$log" "Screen 2: Main screen"
     sleep 0.5
     rss=$(awk '/VmRSS/ {print $2}' "/proc/$pid/status")
     kill -TERM "$pid"; wait "$pid" 2>/dev/null || true
     printf '%-4s %14s %14s %12s\n' "$run" "$loop" "$inmain" "$rss")
done
