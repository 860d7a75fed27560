#!/bin/sh
# Forgets a known network: wifi_forgetNetwork.sh INDEX; leaves it if joined.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/wifikit.sh"
wifi_setup
name=$(INDEX="${1:-}" awk -F'\t' '$1 == ENVIRON["INDEX"] { print $2; exit }' "$WIFI_STATE/known")
INDEX="${1:-}" awk -F'\t' '$1 != ENVIRON["INDEX"]' "$WIFI_STATE/known" > "$WIFI_STATE/known.new"
mv "$WIFI_STATE/known.new" "$WIFI_STATE/known"
[ -n "$name" ] && [ "$(wifi_get joined)" = "$name" ] && rm -f "$WIFI_STATE/joined"
unitkit_log "forget: ${name:-nothing at ${1:-}}"
echo "OK"
