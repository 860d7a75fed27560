# Shared by the simulated unit's scripts and shims. The console runs the scripts with
# /bin/sh; they are written in POSIX sh, but a log line stamped by sh needs a date
# process, so a script that sources this under another shell is run again by bash
# (an exec, not a fork), whose printf reads the clock itself.
if [ -z "${BASH_VERSION:-}" ] && [ -f "$0" ] && [ -x /bin/bash ]; then
    exec /bin/bash "$0" "$@"
fi
# DUCTLINE_ROOT is the simulated unit's root; on a real unit it is empty.
ROOT="${DUCTLINE_ROOT:-}"
UNITKIT_LOG="$ROOT/opt/hbi/log/unitkit.log"
UNITKIT_RUN="$ROOT/run/unitkit"
[ -d "${UNITKIT_LOG%/*}" ] || mkdir -p "${UNITKIT_LOG%/*}"

if [ -n "${BASH_VERSION:-}" ]; then
    unitkit_log() {
        printf '%(%Y-%m-%d %H:%M:%S)T %s[%s]: %s\n' -1 "${0##*/}" "$$" "$*" >> "$UNITKIT_LOG"
    }
else
    unitkit_log() {
        printf '%s %s[%s]: %s\n' "$(date '+%Y-%m-%d %H:%M:%S')" "${0##*/}" "$$" "$*" >> "$UNITKIT_LOG"
    }
fi

# Remembers a process the unit kit started, so the killall shim can stop it by PID.
unitkit_remember() {
    [ -d "$UNITKIT_RUN" ] || mkdir -p "$UNITKIT_RUN"
    printf '%s\n' "$2" > "$UNITKIT_RUN/$1.pid"
}

# True when PID is a live process of this simulated unit: a PID file can outlive
# its process and the number be reused by something that is not ours.
unitkit_owns() {
    [ -r "/proc/$1/environ" ] || return 1
    tr '\0' '\n' < "/proc/$1/environ" 2>/dev/null | grep -qx "DUCTLINE_ROOT=$ROOT"
}
