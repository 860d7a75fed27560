# Shared by the record scripts (pause, resume, stop, record); sourced after unitkit.sh.
# The recorder's PID lives where the killall shim looks for it, and the recorder
# itself writes its state (starting, recording, paused, stopping, stopped, failed)
# to a file beside it.
RECORDER_NAME=videorecorder
RECORDER_PIDFILE="$UNITKIT_RUN/$RECORDER_NAME.pid"
RECORDER_STATE="$UNITKIT_RUN/$RECORDER_NAME.state"

# True while the process runs; a finished process nobody has reaped yet counts as gone.
recorder_running() {
    kill -0 "$1" 2>/dev/null || return 1
    [ "$(sed 's/^.*) \(.\).*$/\1/' "/proc/$1/stat" 2>/dev/null)" != Z ]
}

# Prints the PID of the running recorder, or fails. A PID file left behind by a
# crash may name another program by now, hence the look at its name.
recorder_pid() {
    [ -f "$RECORDER_PIDFILE" ] || return 1
    pid=$(cat "$RECORDER_PIDFILE")
    [ "$(cat "/proc/$pid/comm" 2>/dev/null)" = "$RECORDER_NAME" ] || return 1
    recorder_running "$pid" || return 1
    printf '%s\n' "$pid"
}

recorder_state() {
    cat "$RECORDER_STATE" 2>/dev/null || true
}

# recorder_wait_state PID STATE TENTHS: waits up to TENTHS tenths of a second for
# the recorder to report STATE; fails at once if it ends first.
recorder_wait_state() {
    tries=0
    while [ "$tries" -lt "$3" ]; do
        [ "$(recorder_state)" = "$2" ] && return 0
        recorder_running "$1" || return 1
        sleep 0.1
        tries=$((tries + 1))
    done
    return 1
}

# recorder_wait_end PID TENTHS: waits for the recorder to end.
recorder_wait_end() {
    tries=0
    while recorder_running "$1"; do
        [ "$tries" -lt "$2" ] || return 1
        sleep 0.1
        tries=$((tries + 1))
    done
}

# The console starts the record, pause, resume and stop scripts the moment the
# operator asks and waits on none of them (the record script runs as long as its
# recording), so two of them can run at once. Each takes its turn here instead:
# it waits for the scripts of this unit that the console started before it.

# recorder_started_before PID: true when PID was started before this script
# (started in the same clock tick: the lower PID came first).
recorder_started_before() {
    local line mine theirs
    read -r line 2>/dev/null < "/proc/$1/stat" || return 1
    set -- "$1" ${line##*) }
    theirs=${21}
    read -r line < "/proc/$$/stat"
    set -- "$1" ${line##*) }
    mine=${21}
    [ "$theirs" -lt "$mine" ] || { [ "$theirs" -eq "$mine" ] && [ "${1}" -lt "$$" ]; }
}

# recorder_earlier SCRIPT...: prints the PIDs of the named scripts of this unit
# that were started before this one and still run.
recorder_earlier() {
    local dir arg name args
    for dir in /proc/[0-9]*; do
        [ "${dir#/proc/}" != "$$" ] || continue
        mapfile -d '' -t args 2>/dev/null < "$dir/cmdline" || continue
        for arg in "${args[@]}"; do
            for name in "$@"; do
                if [ "$arg" = "$ROOT/opt/hbi/bin/$name" ] && recorder_started_before "${dir#/proc/}"; then
                    printf '%s\n' "${dir#/proc/}"
                    continue 3
                fi
            done
        done
    done
}

recorder_earlier_running() {
    [ -n "$(recorder_earlier "$@")" ]
}

# recorder_wait_earlier TENTHS SCRIPT...: waits for the named scripts started
# before this one to end.
recorder_wait_earlier() {
    local tries=0 limit="$1"
    shift
    while recorder_earlier_running "$@"; do
        if [ "$tries" -ge "$limit" ]; then
            unitkit_log "went ahead of an earlier $* still running"
            return 0
        fi
        sleep 0.1
        tries=$((tries + 1))
    done
}

# A record script marks itself once its recorder records, until it ends.
recorder_started_mark() {
    printf '%s\n' "$UNITKIT_RUN/videoRecord.$1.started"
}

# recorder_wait_for_start TENTHS: waits while a record script started before this
# one is still starting its recorder.
recorder_wait_for_start() {
    local tries=0 script starting
    while :; do
        starting=
        for script in $(recorder_earlier videoRecord.sh); do
            [ -e "$(recorder_started_mark "$script")" ] || starting=$script
        done
        [ -n "$starting" ] || return 0
        if [ "$tries" -ge "$1" ]; then
            unitkit_log "went ahead of the record script $starting still starting"
            return 0
        fi
        sleep 0.1
        tries=$((tries + 1))
    done
}

# recorder_signal SIGNAL STATE VERB: asks the running recorder to change state and
# waits for it to confirm; VERB names the action in the log.
recorder_signal() {
    recorder_wait_earlier 100 pauseRecord.sh resumeRecord.sh
    recorder_wait_for_start 150
    if ! pid=$(recorder_pid); then
        unitkit_log "no recording to $3"
        return 1
    fi
    kill "-$1" "$pid"
    if recorder_wait_state "$pid" "$2" 20; then
        unitkit_log "$3: recorder $pid is $2"
        return 0
    fi
    unitkit_log "recorder $pid did not confirm $3 (state: $(recorder_state))"
    return 1
}
