# Shared by the simulated unit's scripts and shims (POSIX sh: the console runs them with /bin/sh).
# DUCTLINE_ROOT is the simulated unit's root; on a real unit it is empty.
ROOT="${DUCTLINE_ROOT:-}"
UNITKIT_LOG="$ROOT/opt/hbi/log/unitkit.log"
UNITKIT_RUN="$ROOT/run/unitkit"

unitkit_log() {
    mkdir -p "$(dirname "$UNITKIT_LOG")"
    printf '%s %s[%s]: %s\n' "$(date '+%Y-%m-%d %H:%M:%S')" "$(basename "$0")" "$$" "$*" >> "$UNITKIT_LOG"
}

# Remembers a process the unit kit started, so the killall shim can stop it by PID.
unitkit_remember() {
    mkdir -p "$UNITKIT_RUN"
    printf '%s\n' "$2" > "$UNITKIT_RUN/$1.pid"
}

# True when PID is a live process of this simulated unit: a PID file can outlive
# its process and the number be reused by something that is not ours.
unitkit_owns() {
    [ -r "/proc/$1/environ" ] || return 1
    tr '\0' '\n' < "/proc/$1/environ" 2>/dev/null | grep -qx "DUCTLINE_ROOT=$ROOT"
}
