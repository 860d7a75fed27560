# The simulated radio shared by the Wi-Fi scripts and unit-wifi (POSIX sh).
# State lives in files under $WIFI_STATE, so it can be steered while the console runs:
#   networks      one network in range a line: name<TAB>password<TAB>quality out of 70
#   known         networks added so far: index<TAB>name<TAB>password
#   pending       the name the next connect joins
#   joined        the name joined now (absent: not joined)
#   radio         "on" or "off" (the dongle is pulled)
#   wired         "on" when a cable or tethered phone is up
#   fail-add, fail-connect, empty-scans
#                 how many of the coming adds, connects and scans fail or print nothing
#   last-add      the arguments the last add received, their count first, one a line
WIFI_STATE="$ROOT/var/hbi/sim/wifi"
WIFI_TOTAL=70
WIFI_ADDRESS=192.168.1.23
TAB=$(printf '\t')

wifi_setup() {
    mkdir -p "$WIFI_STATE"
    [ -f "$WIFI_STATE/networks" ] && return 0
    {
        printf 'Depot Office\tmanhole42\t62\n'
        printf 'Van Hotspot\trodding rain\t35\n'
        printf 'Site "North"; Gate\tit'"'"'s a "pass"; $(x)\t20\n'
    } > "$WIFI_STATE/networks"
    echo on > "$WIFI_STATE/radio"
    : > "$WIFI_STATE/known"
}

wifi_get() {
    cat "$WIFI_STATE/$1" 2>/dev/null || true
}

wifi_radio_on() {
    [ "$(wifi_get radio)" != off ]
}

# The field FIELD (1 name, 2 password, 3 quality) of the network NAME in range.
wifi_network_field() {
    NAME="$1" FIELD="$2" awk -F'\t' '$1 == ENVIRON["NAME"] { print $ENVIRON["FIELD"]; exit }' "$WIFI_STATE/networks"
}

wifi_in_range() {
    NAME="$1" awk -F'\t' '$1 == ENVIRON["NAME"] { found = 1 } END { exit !found }' "$WIFI_STATE/networks"
}

# Counts one down from a failure counter; true while it had some left.
wifi_take() {
    count=$(wifi_get "$1")
    [ -n "$count" ] && [ "$count" -gt 0 ] 2>/dev/null || return 1
    echo $((count - 1)) > "$WIFI_STATE/$1"
}

# Replaces the network NAME's line in range (or adds it).
wifi_set_network() {
    NAME="$1" awk -F'\t' '$1 != ENVIRON["NAME"]' "$WIFI_STATE/networks" > "$WIFI_STATE/networks.new"
    printf '%s\t%s\t%s\n' "$1" "$2" "$3" >> "$WIFI_STATE/networks.new"
    mv "$WIFI_STATE/networks.new" "$WIFI_STATE/networks"
}

wifi_remove_network() {
    NAME="$1" awk -F'\t' '$1 != ENVIRON["NAME"]' "$WIFI_STATE/networks" > "$WIFI_STATE/networks.new"
    mv "$WIFI_STATE/networks.new" "$WIFI_STATE/networks"
}

# The joined network, if it is still in range and the radio is on.
wifi_joined() {
    wifi_radio_on || return 1
    joined=$(wifi_get joined)
    [ -n "$joined" ] && wifi_in_range "$joined" || return 1
    printf '%s\n' "$joined"
}
