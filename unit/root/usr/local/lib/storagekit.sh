# Shared by updatemounts.sh and unit-storage; sourced after unitkit.sh.
# The simulated unit's storage: each device is a folder under $ROOT/media, and a
# file under $ROOT/var/hbi/storage marks it plugged. The console hears of devices
# only through lines in its FIFO, as it does from the unit's mount scripts.
STORAGE_DEVICES="internal usb1 usb2 sd"
STORAGE_DEFAULT_PLUGGED="internal usb1"
STORAGE_STATE="$ROOT/var/hbi/storage"
STORAGE_FIFO="$ROOT/var/hbi/fifo"
# Seconds a write may wait for the console to read; nobody reading is no reason to hang.
STORAGE_FIFO_WAIT=2

# The device's name in the console's storage table.
storage_item() {
    case "$1" in
        internal) echo USD ;;
        usb1) echo USB1 ;;
        usb2) echo USB2 ;;
        sd) echo SD ;;
        *) return 1 ;;
    esac
}

storage_path() {
    printf '%s\n' "$ROOT/media/$1"
}

storage_plugged() {
    [ -f "$STORAGE_STATE/$1" ]
}

# Writes one line into the console's FIFO, or gives up after STORAGE_FIFO_WAIT seconds.
storage_tell() {
    if [ ! -p "$STORAGE_FIFO" ]; then
        unitkit_log "no FIFO at $STORAGE_FIFO; not told: $1"
        return 1
    fi
    if timeout "$STORAGE_FIFO_WAIT" sh -c 'printf "%s\n" "$1" > "$2"' storage_tell "$1" "$STORAGE_FIFO"; then
        unitkit_log "told the console: $1"
    else
        unitkit_log "nobody read the FIFO; not told: $1"
        return 1
    fi
}

# The line format has no room for a blank inside a path.
storage_tell_mount() {
    path=$(storage_path "$1")
    case "$path" in
        *[[:space:]]*)
            unitkit_log "cannot announce $1: its path holds a blank: $path"
            return 1 ;;
    esac
    storage_tell "MNT $(storage_item "$1") $path"
}

# False when PATH lies on a simulated device that has been pulled: its folder
# stays, but a real medium would be gone and every write to it fail.
storage_present() {
    for device in $STORAGE_DEVICES; do
        case "$1/" in
            "$(storage_path "$device")"/*)
                storage_plugged "$device"
                return ;;
        esac
    done
    return 0
}
