#!/usr/bin/env bash
# Installs the Debian package into a clean Debian bookworm root and starts the kiosk
# session there under Xvfb, to the login screen; run by hand (not in CI), as root:
#   bench/deb-install.sh [DEB] [WORK_DIR]
# DEB defaults to the package packaging/build-deb.sh makes in build/. WORK_DIR
# (default /work/deb-root) keeps a pristine `debootstrap --variant=minbase bookworm`
# tree in base/ (made on the first run) and copies it to root/ for each run, so the
# package always meets a system that has none of its dependencies. apt inside the
# root pulls what the package declares. The service's ExecStart is run by hand in
# the chroot with Xvfb in place of the X server (no virtual terminal or graphics
# card here): xinit, the kiosk session and the console, as systemd would start them.
# Prints the package's listing, the console's log lines up to the login screen and
# the path of a screenshot.
set -euo pipefail
repo=$(cd "$(dirname "$0")/.." && pwd)
deb="${1:-}"
work="${2:-/work/deb-root}"
mirror="${DEB_MIRROR:-http://deb.debian.org/debian}"

if [ -z "$deb" ]; then
    "$repo/packaging/build-deb.sh" "$repo/build" >/dev/null
    deb=$(ls -t "$repo"/build/ductline_*_amd64.deb | head -n 1)
fi
deb=$(cd "$(dirname "$deb")" && pwd)/$(basename "$deb")
echo "== package: $deb"
dpkg-deb --info "$deb" | sed -n 's/^ Depends: /Depends: /p'
dpkg-deb --contents "$deb" | awk '{ print $1, $6, $7, $8 }'

base="$work/base"
root="$work/root"
if [ ! -x "$base/usr/bin/apt-get" ]; then
    command -v debootstrap >/dev/null || apt-get install -y debootstrap
    debootstrap --variant=minbase bookworm "$base" "$mirror"
fi

mounts=()
xinit_pid=""
cleanup() {
    [ -n "$xinit_pid" ] && kill "$xinit_pid" 2>/dev/null || true
    [ -n "$xinit_pid" ] && wait "$xinit_pid" 2>/dev/null || true
    for ((i = ${#mounts[@]} - 1; i >= 0; i--)); do
        umount -l "${mounts[$i]}" 2>/dev/null || true
    done
}
trap cleanup EXIT
trap 'exit 130' INT TERM

# A run that was killed leaves the host's /dev, /proc and /sys bound under the old
# root: unbind them (deepest first) before the old root goes, and never remove across
# file systems.
awk -v r="$root/" 'index($2, r) == 1 { print $2 }' /proc/mounts | sort -r | while read -r mnt; do
    umount -l "$mnt"
done
if awk -v r="$root/" 'index($2, r) == 1 { found = 1 } END { exit !found }' /proc/mounts; then
    echo "deb-install: something is still mounted under $root; not removing it" >&2
    exit 1
fi
rm -rf --one-file-system "$root"
cp -a "$base" "$root"
for fs in proc sys dev dev/pts dev/shm; do
    mkdir -p "$root/$fs"
    mount --bind "/$fs" "$root/$fs"
    mounts+=("$root/$fs")
done
cp /etc/resolv.conf "$root/etc/resolv.conf"
cp "$deb" "$root/tmp/"
in_root() { chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 "$@"; }

echo "== apt install ./$(basename "$deb") in a clean bookworm root ($root)"
in_root apt-get update -q >/dev/null
in_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends \
    "./tmp/$(basename "$deb")" > "$work/apt-install.log" 2>&1 || { tail -n 30 "$work/apt-install.log"; exit 1; }
grep -E '^(Setting up ductline|[0-9]+ upgraded)' "$work/apt-install.log"
# The screen of this test; the unit has its own X server.
in_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends xvfb xauth \
    >> "$work/apt-install.log" 2>&1
in_root dpkg -s ductline | grep -E '^(Status|Version)'
in_root systemctl is-enabled ductline.service 2>/dev/null | sed 's/^/ductline.service: /' || true
ls -l "$root/var/hbi/fifo"

# The service's start command, with Xvfb for X.
service="$root/lib/systemd/system/ductline.service"
exec_start=$(sed -n 's/^ExecStart=//p' "$service")
client=${exec_start%% -- *}
display=$((150 + RANDOM % 100))
echo "== service ExecStart: $exec_start"
echo "== run here:          $client -- /usr/bin/Xvfb :$display -screen 0 800x600x24 -nolisten tcp"
environment=$(sed -n 's/^Environment=//p' "$service")
mkdir -p -m 0700 "$root/run/ductline"
# shellcheck disable=SC2086
chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 $environment \
    $client -- /usr/bin/Xvfb ":$display" -screen 0 800x600x24 -nolisten tcp > "$work/session.out" 2>&1 &
xinit_pid=$!

log="$root/opt/hbi/log/Ductline-$(date +%d%m%Y).log"
for _ in $(seq 600); do
    grep -q 'Screen 1: Login' "$log" 2>/dev/null && break
    kill -0 "$xinit_pid" 2>/dev/null || break
    sleep 0.1
done
echo "== the console's log ($log):"
grep -E 'Starting Ductline|Application:|WCCat library|Screen [0-9]+:' "$log" || tail -n 20 "$work/session.out"
sleep 2
shot="$work/login.png"
# Xvfb in the chroot listens on the abstract socket too, which the host reaches.
gst-launch-1.0 -q ximagesrc display-name=":$display" use-damage=false show-pointer=false num-buffers=1 \
    ! videoconvert ! pngenc ! filesink location="$shot" >/dev/null 2>&1 || true
if grep -q 'Screen 1: Login' "$log" 2>/dev/null && [ -s "$shot" ]; then
    echo "RESULT: the console reached its login screen; screenshot: $shot"
else
    echo "RESULT: the console did not reach its login screen (session output: $work/session.out)"
    exit 1
fi
