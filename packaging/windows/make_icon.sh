#!/usr/bin/env bash
# Draws the icon in the sizes that Windows shows:  make_icon.sh PICTURE.svg ICON.ico
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for size in 16 20 24 32 48 64 256; do
    rsvg-convert -w "$size" -h "$size" -o "$work/$size.png" "$1"
done
icotool --create -o "$2" "$work"/{16,20,24,32,48,64}.png --raw="$work/256.png"
