#!/bin/sh
# Makes one PDF of a report too long to convert in one go. The console wrote it
# in parts (ostra_split_00000.html, 00001, ...); each part is converted on its
# own, two at a time, and the pieces are joined in order.
# Usage: createPDF.sh <output pdf>
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"

out="${1:?usage: createPDF.sh <output pdf>}"
parallel=2
parts_dir="$ROOT/opt/hbi/reporting"
work=$(mktemp -d "${TMPDIR:-/tmp}/ostra_report.XXXXXX")
trap 'rm -rf "$work"' EXIT

set --
running=0
for part in "$parts_dir"/ostra_split_*.html; do
    if [ ! -e "$part" ]; then
        unitkit_log "no report parts in $parts_dir"
        exit 1
    fi
    piece="$work/$(basename "$part" .html).pdf"
    # A part with a missing picture still converts, with a warning and exit code 1;
    # whether each piece was written is checked below.
    wkhtmltopdf "$part" "$piece" >/dev/null 2>&1 &
    running=$((running + 1))
    if [ "$running" -ge "$parallel" ]; then
        wait
        running=0
    fi
    set -- "$@" "$piece"
done
wait

for piece in "$@"; do
    if [ ! -s "$piece" ]; then
        unitkit_log "converting $(basename "$piece" .pdf) failed"
        exit 1
    fi
done
if [ "$#" -eq 1 ]; then
    cp "$1" "$out"
else
    pdfunite "$@" "$out"
fi
rm -f "$parts_dir"/ostra_split_*.html
unitkit_log "report of $# parts converted and joined into $out"
