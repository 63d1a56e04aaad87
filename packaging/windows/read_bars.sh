#!/usr/bin/env bash
# Reads the bars of the label sheets that a tour printed, as a till's scanner would:
#   read_bars.sh FOLDER
# Every sheet must hold some; the reader checks their check digits.
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for sheet in "$1"/Etiket-*.pdf; do
    rm -f "$work"/*
    pdftoppm -gray -r 300 "$sheet" "$work/page"
    read=$(zbarimg --quiet --nodbus -S disable -S ean8.enable -S ean13.enable "$work"/page* | sort | uniq -c)
    if [ -z "$read" ]; then
        echo "$sheet: no bars could be read" >&2
        exit 1
    fi
    labels=$(awk '{n += $1} END {print n}' <<<"$read")
    echo "${sheet##*/}: $labels labels of $(wc -l <<<"$read") barcodes"
done
