#!/bin/sh
# Copies a site or survey directory into PARENT, keeping its name, and prints
# "PROGRESS <percent>" after each file so the console can show how far it is.
# Stops at the first file that cannot be written: a medium pulled during the copy
# leaves the source as it was and the copy incomplete, and the exit code says so.
#   copy_file.sh SOURCE PARENT
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"

source="${1:?usage: copy_file.sh SOURCE PARENT}"
parent="${2:?usage: copy_file.sh SOURCE PARENT}"
source="${source%/}"
if [ ! -d "$source" ] || [ ! -d "$parent" ]; then
    unitkit_log "cannot copy $source into $parent: a folder is missing"
    exit 1
fi
target="$parent/$(basename -- "$source")"
total=$(find "$source" -type f | wc -l)
[ "$total" -gt 0 ] || total=1
counter=$(mktemp)
trap 'rm -f -- "$counter"' EXIT
echo 0 > "$counter"
unitkit_log "copying $source into $parent"

# Names reach the copy as arguments, never as shell text. find gives a folder
# before what it holds, so each file's folder is there when the file comes.
copy_batch='
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/storagekit.sh"
source=$1 target=$2 parent=$3 total=$4 counter=$5
shift 5
copied=$(cat "$counter")
for entry do
    storage_present "$parent" || exit 1
    destination="$target${entry#"$source"}"
    if [ -d "$entry" ]; then
        mkdir -p -- "$destination" || exit 1
        continue
    fi
    cp -p -- "$entry" "$destination" || exit 1
    copied=$((copied + 1))
    echo "$copied" > "$counter"
    echo "PROGRESS $((copied * 100 / total))"
done'
if ! find "$source" \( -type d -o -type f \) -exec sh -c "$copy_batch" copy_file.sh \
        "$source" "$target" "$parent" "$total" "$counter" {} +; then
    unitkit_log "copy of $source into $parent failed after $(cat "$counter") of $total file(s)"
    exit 1
fi
sync
unitkit_log "copied $total file(s) of $source into $parent"
