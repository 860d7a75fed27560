#!/bin/sh
# Installs the build tree as the Debian package would into a scratch folder and checks
# that the unit's files are there and the simulated unit's kit is not:
#   packaging/check-install-tree.sh BUILD_DIR
set -eu
build="${1:?usage: check-install-tree.sh BUILD_DIR}"
dest=$(mktemp -d)
trap 'rm -rf "$dest"' EXIT
DESTDIR="$dest" cmake --install "$build" --prefix /usr >/dev/null

missing=0
for path in opt/hbi/Ductline opt/hbi/version opt/hbi/bin/videoRecord.sh opt/hbi/bin/copy_file.sh \
    opt/hbi/reporting/createPDF.sh opt/hbi/tables/coiler_table.txt opt/hbi/tables/camera_table.txt \
    opt/hbi/etc/WinCan/catalogues/WRC_MSCC-4_UK_ENG_SEC.xml opt/hbi/languages/en-GB/en-GB \
    opt/hbi/languages/en-GB/help/index.html opt/hbi/languages/en-GB/ostra/PDFtemplate.txt \
    opt/hbi/lanthorn_splash.png opt/hbi/bin/3DPipe.png usr/local/lib/unitkit.sh \
    lib/systemd/system/ductline.service usr/lib/ductline/ductline-session etc/default/ductline; do
    [ -e "$dest/$path" ] || { echo "missing: /$path"; missing=$((missing + 1)); }
done
for lib in libWCCat.so.1 libwcweb.so.1; do
    [ -n "$(find "$dest/usr/lib" -name "$lib")" ] || { echo "missing: $lib"; missing=$((missing + 1)); }
done
# The kit: simulator, shims, unit-* commands, stand-ins and the test recorder.
for name in powerboard-sim videorecorder sudo killall fbset v4l2-ctl wkhtmltopdf unit-storage unit-wifi \
    unit-ftp unit-wcweb unit-app unitftp.py wcwstandin.py; do
    found=$(find "$dest" -name "$name")
    [ -z "$found" ] || { echo "kit file packaged: $found"; missing=$((missing + 1)); }
done
[ -x "$dest/opt/hbi/Ductline" ] && [ -x "$dest/opt/hbi/bin/videoRecord.sh" ] || { echo "not executable"; missing=$((missing + 1)); }
echo "$(find "$dest" -type f | wc -l) files; $missing problems"
[ "$missing" -eq 0 ]
