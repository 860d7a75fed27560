#!/bin/sh
# Makes one PDF of a report too long to convert in one go: each part the console
# wrote (ostra_split_00000.html, 00001, ...) is converted on its own, then the
# parts are joined in order. Usage: createPDF.sh <output pdf>
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"

out="${1:?usage: createPDF.sh <output pdf>}"
parts_dir="$ROOT/opt/hbi/reporting"
work=$(mktemp -d "${TMPDIR:-/tmp}/ostra_report.XXXXXX")
trap 'rm -rf "$work"' EXIT

set --
for part in "$parts_dir"/ostra_split_*.html; do
    if [ ! -e "$part" ]; then
        unitkit_log "no report parts in $parts_dir"
        exit 1
    fi
    pdf="$work/$(basename "$part" .html).pdf"
    # A part with a missing picture still converts, with a warning and exit code 1.
    if ! wkhtmltopdf "$part" "$pdf" && [ ! -s "$pdf" ]; then
        unitkit_log "converting $part failed"
        exit 1
    fi
    set -- "$@" "$pdf"
done

if [ "$#" -eq 1 ]; then
    cp "$1" "$out"
else
    pdfunite "$@" "$out"
fi
rm -f "$parts_dir"/ostra_split_*.html
unitkit_log "report of $# parts joined into $out"
