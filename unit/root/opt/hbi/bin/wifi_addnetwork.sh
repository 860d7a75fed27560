#!/bin/sh
# Adds a network and authenticates with it: wifi_addnetwork.sh NAME PASSWORD.
# Prints OK, or a line with FAILURE and "Fail to complete" that the console counts.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/wifikit.sh"
wifi_setup
{ echo "$#"; for argument in "$@"; do printf '%s\n' "$argument"; done; } > "$WIFI_STATE/last-add"
fail() {
    unitkit_log "add: $1"
    echo "FAILURE: Fail to complete $1"
    exit 0
}
[ "$#" -eq 2 ] || fail "association: expected a name and a password, got $# arguments"
wifi_radio_on || fail "association: no radio"
wifi_take fail-add && fail "association with $1: timed out"
wifi_in_range "$1" || fail "association with $1: not in range"
[ "$(wifi_network_field "$1" 2)" = "$2" ] || fail "key exchange with $1: wrong password"
index=$(wc -l < "$WIFI_STATE/known")
NAME="$1" awk -F'\t' '$2 != ENVIRON["NAME"]' "$WIFI_STATE/known" > "$WIFI_STATE/known.new"
printf '%s\t%s\t%s\n' "$index" "$1" "$2" >> "$WIFI_STATE/known.new"
mv "$WIFI_STATE/known.new" "$WIFI_STATE/known"
printf '%s\n' "$1" > "$WIFI_STATE/pending"
unitkit_log "add: $1 as network $index"
echo "OK"
echo "network $index added"
