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

# recorder_signal SIGNAL STATE VERB: asks the running recorder to change state and
# waits for it to confirm; VERB names the action in the log.
recorder_signal() {
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
