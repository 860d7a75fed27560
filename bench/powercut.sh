#!/usr/bin/env bash
# Power cuts in the middle of an ostra survey, run by hand (not in CI):
#   bench/powercut.sh [CUTS] [BUILD_DIR]
#   bench/powercut.sh --check RUN_DIR     checks an earlier run's folder again
# On a fresh simulated unit, build/bench/bench_surveyloop (the real main window and
# controller, walked by keys) records section after section with a snapshot and a
# comment every 1.5 s, three to a section. At CUTS random moments (default 20) the
# console, the scripts it has running and the kit's recorder are killed together with
# SIGKILL, as a power cut would, and the console is started again on the same unit;
# it opens the project and goes on.
# At the end one more console opens the project and records a whole section.
# Then every section on the stick is checked:
#   - every observation the console had accepted before a cut is in the section's
#     observation file, and every line of that file is whole;
#   - every video.mp4 decodes to its end, and the recording that a cut broke holds
#     all but at most 2 s of what had been recorded when the cut came;
#   - the project and section files are there and the console opened the project
#     after each cut.
# Needs build/bench/bench_surveyloop and the unit kit (cmake --build build --target
# bench_surveyloop unit_kit). Kills only the processes it started.
set -euo pipefail
repo=$(cd "$(dirname "$0")/.." && pwd)
check_only=false
if [ "${1:-}" = --check ]; then
    check_only=true
    run=$(cd "${2:?usage: powercut.sh --check RUN_DIR}" && pwd)
    cuts=$(wc -l < "$run/cuts.txt")
else
    cuts="${1:-20}"
    build="${2:-$repo/build}"
    driver="$build/bench/bench_surveyloop"
    [ -x "$driver" ] || { echo "powercut: build $driver first" >&2; exit 1; }
    run=$(mktemp -d /tmp/powercut.XXXXXX)
fi
root="$run/root"
project="$root/media/usb1/corvane/powercut_lane.sur"
cutlog="$run/cuts.txt"

board=""
console=""
cleanup() {
    [ -n "$console" ] && kill -9 "$console" 2>/dev/null || true
    kill_recorder
    [ -n "$board" ] && kill "$board" 2>/dev/null || true
    wait 2>/dev/null || true
}
# The kit's recorder of this unit only: its PID file, and the process's own
# environment naming this unit's root.
recorder_of_this_unit() {
    local pid
    pid=$(cat "$root/run/unitkit/videorecorder.pid" 2>/dev/null) || return 1
    [ "$(cat "/proc/$pid/comm" 2>/dev/null)" = videorecorder ] || return 1
    tr '\0' '\n' < "/proc/$pid/environ" 2>/dev/null | grep -qx "DUCTLINE_ROOT=$root" || return 1
    echo "$pid"
}
kill_recorder() {
    local pid
    if pid=$(recorder_of_this_unit); then kill -9 "$pid" 2>/dev/null || true; fi
}
trap cleanup EXIT
trap 'exit 130' INT TERM

now_ms() { date +%s%3N; }
# When a process started, in ms since the epoch: its start in clock ticks after boot.
started_ms() {
    local ticks hz boot
    ticks=$(awk '{ sub(/^.*\) /, ""); print $20 }' "/proc/$1/stat" 2>/dev/null) || return 1
    hz=$(getconf CLK_TCK)
    boot=$(awk '/^btime/ { print $2 }' /proc/stat)
    echo $((boot * 1000 + ticks * 1000 / hz))
}

# Runs the survey, cuts the power CUTS times, and lets a last console finish a section.
cut_and_restart() {
    eval "$("$repo/unit/make-root" "$root" "$build")" >/dev/null
    export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="$run/xdg"
    mkdir -p -m 0700 "$XDG_RUNTIME_DIR"
    : > "$cutlog"
    "$root/usr/local/bin/powerboard-sim" --root "$root" >"$run/powerboard.log" 2>&1 &
    board=$!
    for _ in $(seq 100); do [ -e "$root/dev/ttyAMA1" ] && break; sleep 0.1; done

    for i in $(seq "$cuts"); do
        # In a session of its own, so the cut takes every script the console started too.
        (cd "$run" && exec setsid "$driver" --observations 3 --every 1500) >"$run/console.$i.out" 2>&1 &
        console=$!
        # Wait until the survey is under way (a project open or a section recording),
        # then cut at a random moment of the next 3 to 25 s: a section takes about 10 s,
        # so questions, recording, observations, the end of a section all get their turn.
        for _ in $(seq 600); do
            grep -q -E '^BENCH (recording|opened)' "$run/console.$i.out" && break
            grep -q '^BENCH failed' "$run/console.$i.out" && break
            sleep 0.1
        done
        sleep "$(awk -v r="$RANDOM" 'BEGIN { printf "%.2f", 3 + 22 * r / 32767 }')"
        recorder=$(recorder_of_this_unit || true)
        began=none file=none
        if [ -n "$recorder" ]; then
            began=$(started_ms "$recorder" || echo none)
            file=$(tr '\0' '\n' < "/proc/$recorder/cmdline" | tail -n 1)
        fi
        cut=$(now_ms)
        # The power goes: the console, every script it had running, and the recorder.
        kill -9 -- "-$console" "$console" ${recorder:+"$recorder"} 2>/dev/null || true
        wait "$console" 2>/dev/null || true
        console=""
        echo "$i $cut ${recorder:-none} $began $file" >> "$cutlog"
        echo "cut $i at $cut (recorder ${recorder:-not running}): $(grep '^BENCH' "$run/console.$i.out" | tail -n 1)"
        for _ in $(seq 50); do [ -z "$recorder" ] || ! kill -0 "$recorder" 2>/dev/null && break; sleep 0.1; done
    done

    # After the last cut: the console opens the project once more and records a section.
    (cd "$run" && exec "$driver" --observations 2 --every 1000 --sections 1) >"$run/console.final.out" 2>&1 &
    console=$!
    for _ in $(seq 1200); do
        grep -q -E '^BENCH (section|failed)' "$run/console.final.out" && break
        kill -0 "$console" 2>/dev/null || break
        sleep 0.1
    done
    kill -9 "$console" 2>/dev/null || true
    wait "$console" 2>/dev/null || true
    console=""
}
$check_only || cut_and_restart

echo
echo "== check: $project"
fail=0
problem() { echo "PROBLEM: $*"; fail=$((fail + 1)); }

[ -s "$project/.project.sdb" ] || problem ".project.sdb missing or empty"
opened=$(cat "$run"/console.*.out | grep -c '^BENCH opened' || true)
failed=$(cat "$run"/console.*.out | grep '^BENCH failed' || true)
[ -z "$failed" ] || problem "the operator got stuck: $failed"
echo "console runs after a cut that opened the project: $opened of $cuts"
grep -q '^BENCH section' "$run/console.final.out" \
    || problem "the console started after the last cut did not record a whole section"

accepted=0 missing=0 inflight=0
for i in $(seq "$cuts") final; do
    out="$run/console.$i.out"
    [ -f "$out" ] || continue
    last=$(grep '^BENCH observation' "$out" | tail -n 1 | awk '{print $5}' || true)
    while read -r _ _ _ dir comment; do
        accepted=$((accepted + 1))
        if ! grep -q -F ", $comment" "$dir/.observations.sdb" 2>/dev/null; then
            if [ "$comment" = "$last" ] && [ "$i" != final ]; then
                inflight=$((inflight + 1))
            else
                missing=$((missing + 1))
                problem "observation $comment accepted but not in $dir/.observations.sdb"
            fi
        fi
    done < <(grep '^BENCH observation' "$out")
done
echo "observations accepted: $accepted; missing: $missing; the line in flight at a cut missing: $inflight"

sections=0 broken=0 empty=0 unstarted=0
for dir in "$project"/section_*; do
    [ -d "$dir" ] || continue
    sections=$((sections + 1))
    # Cut after Record made the folder and before anything was written: nothing to lose.
    if [ -z "$(ls -A "$dir")" ]; then
        empty=$((empty + 1))
        continue
    fi
    for file in .section.sdb .observations.sdb; do
        [ -f "$dir/$file" ] || problem "$dir/$file missing"
    done
    if [ -s "$dir/.observations.sdb" ] && [ -n "$(tail -c 1 "$dir/.observations.sdb")" ]; then
        problem "$dir/.observations.sdb ends in a broken line"
    fi
    # Cut before the recorder wrote its first frame: an empty file, nothing recorded lost.
    if [ -f "$dir/video.mp4" ] && [ ! -s "$dir/video.mp4" ]; then
        unstarted=$((unstarted + 1))
    elif [ -f "$dir/video.mp4" ] && ! timeout 120 gst-launch-1.0 -q filesrc location="$dir/video.mp4" ! qtdemux \
        ! h264parse ! avdec_h264 ! fakesink >/dev/null 2>&1; then
        broken=$((broken + 1))
        problem "$dir/video.mp4 does not decode to its end"
    fi
done
echo "sections on the stick: $sections ($empty empty: cut before anything was recorded); videos that do not decode: $broken; empty videos (cut before the first frame): $unstarted"

# Video lost at each cut: how long the recorder had run when the cut came (from its
# process's start, so its own start-up counts as lost), less what the file holds.
duration() {
    gst-discoverer-1.0 "$1" 2>/dev/null | sed -n 's/^ *Duration: \([0-9]*\):\([0-9]*\):\([0-9.]*\)$/\1 \2 \3/p' \
        | awk '{ printf "%.3f", $1 * 3600 + $2 * 60 + $3 }' || true
}
echo "video lost at the cuts that came while recording (s):"
losses=()
while read -r i cut _ started file; do
    out="$run/console.$i.out"
    [ "$started" != none ] && [ -n "$file" ] && [ "$file" != none ] || continue
    dir=$(dirname "$file")
    # A recording already stopped and being finished is not a cut recording.
    grep -q -F "BENCH stopped" <(grep -F " $dir" "$out") && continue
    have=$(duration "$file")
    lost=$(awk -v c="$cut" -v s="$started" -v h="${have:-0}" 'BEGIN { printf "%.2f", (c - s) / 1000 - h }')
    losses+=("$lost")
    echo "  cut $i: recorded $(awk -v c="$cut" -v s="$started" 'BEGIN { printf "%.2f", (c - s) / 1000 }') s," \
         "file holds ${have:-0} s, lost $lost s"
    awk -v l="$lost" 'BEGIN { exit !(l > 2.0) }' && problem "cut $i lost $lost s of video in $dir"
done < "$cutlog"
if [ ${#losses[@]} -gt 0 ]; then
    printf '%s\n' "${losses[@]}" | sort -n | awk '{ a[NR] = $1 } END { printf "  %d cuts while recording: lost %.2f to %.2f s, median %.2f s\n", NR, a[1], a[NR], a[int((NR + 1) / 2)] }'
fi

echo "run folder: $run"
if [ "$fail" -eq 0 ]; then
    echo "RESULT: pass ($cuts cuts)"
else
    echo "RESULT: $fail problems"
    exit 1
fi
