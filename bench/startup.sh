#!/usr/bin/env bash
# Start-up benchmark, run by hand: how long from launch until the event loop turns
# and until the main window first paints, for the real console on a fresh simulated
# unit and for a bare Qt window of the same size started the same way, runs
# interleaved under one Xvfb. Prints each run, the medians and the console's ratios
# to the bare window, and the console's resident memory at the login screen.
#   bench/startup.sh [RUNS (default 7)] [BUILD_DIR]
set -euo pipefail
repo=$(cd "$(dirname "$0")/.." && pwd)
runs="${1:-7}"
build="${2:-$repo/build}"
work=$(mktemp -d)
trap 'kill "${xvfb:-}" 2>/dev/null || true; rm -rf "$work"' EXIT

number=$((150 + RANDOM % 50))
Xvfb ":$number" -screen 0 800x600x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
export DISPLAY=":$number"
for _ in $(seq 50); do [ -S "/tmp/.X11-unix/X$number" ] && break; sleep 0.1; done
export XDG_RUNTIME_DIR="$work/xdg"; mkdir -m 0700 "$XDG_RUNTIME_DIR"

wait_for() { # file pattern
    for _ in $(seq 1500); do grep -q "$2" "$1" 2>/dev/null && return 0; sleep 0.02; done
    echo "timed out waiting for '$2' in $1" >&2; return 1
}
ms_of() { # file label: the milliseconds the program logged for it
    grep -o "$2 [0-9.]* ms after start" "$1" | head -1 | awk '{print $(NF-3)}'
}
# Launched from a subshell that stamps the launch time just before exec, so the
# dynamic loading of the program counts.
launch() { # directory program output
    (cd "$1" && export DUCTLINE_LAUNCHED_AT=${EPOCHREALTIME/./} && exec "$2") >"$3" 2>&1 &
    pid=$!
}

printf '%-4s %10s %10s %12s %12s %10s\n' run "bare loop" "bare paint" "console loop" "console paint" "RSS (KiB)"
: >"$work/figures"
for run in $(seq "$runs"); do
    out="$work/bare$run.out"
    launch "$work" "$build/bench/bench_barewindow" "$out"
    wait "$pid" || true
    bare_loop=$(ms_of "$out" "Event loop running")
    bare_paint=$(ms_of "$out" "Main window painted")

    root="$work/root$run"
    out="$work/console$run.out"
    (eval "$("$repo/unit/make-root" "$root" "$build")"
     launch "$root" "$build/src/Ductline" "$out"
     wait_for "$out" "Main window painted"
     wait_for "$out" "Screen 1: Login screen"
     rss=$(awk '/VmRSS/ {print $2}' "/proc/$pid/status")
     kill -TERM "$pid"; wait "$pid" 2>/dev/null || true
     echo "$rss" >"$work/rss")
    loop=$(ms_of "$out" "Event loop running")
    paint=$(ms_of "$out" "Main window painted")
    rss=$(cat "$work/rss")
    printf '%-4s %10s %10s %12s %12s %10s\n' "$run" "$bare_loop" "$bare_paint" "$loop" "$paint" "$rss"
    echo "$bare_loop $bare_paint $loop $paint $rss" >>"$work/figures"
done

median() { # column
    awk -v c="$1" '{print $c}' "$work/figures" | sort -g | awk '{v[NR]=$1} END {print (NR % 2) ? v[(NR+1)/2] : (v[NR/2]+v[NR/2+1])/2}'
}
bl=$(median 1); bp=$(median 2); cl=$(median 3); cp=$(median 4); rss=$(median 5)
echo
printf 'medians of %s runs: bare window loop %s ms, paint %s ms; console loop %s ms, paint %s ms; RSS %s KiB\n' \
    "$runs" "$bl" "$bp" "$cl" "$cp" "$rss"
awk -v bl="$bl" -v bp="$bp" -v cl="$cl" -v cp="$cp" 'BEGIN {
    printf "console / bare window: event loop %.2f times (target 2.5), window painted %.2f times (target 2)\n", cl / bl, cp / bp }'
printf 'load average at the end: %s\n' "$(cut -d' ' -f1-3 /proc/loadavg)"
