#!/usr/bin/env bash
# Takes the pictures of the documents anew: builds the program, drives its forms offscreen in a
# fresh demo shop and copies the pictures that README.md and docs/*.md show to docs/resimler.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
need "${build_packages[@]}" "${run_packages[@]}" poppler-utils

cmake --preset release -DTEZGAH_BENCH=OFF >/dev/null
cmake --build --preset release --target tezgah

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# A folder of its own for the lock: a tour that finds another one running ends without a word.
mkdir -m 700 "$work/run" "$work/shop"
XDG_RUNTIME_DIR="$work/run" QT_QPA_PLATFORM=offscreen:configfile=$PWD/scripts/screen.json timeout 300 \
    build/release/src/tezgah --directory "$work/shop" --tour "$work/pictures"

# The first three rows of the first sheet that was printed.
mapfile -t sheets < <(ls -tr "$work"/pictures/Etiket-Raf-*.pdf) # the oldest first
pdftoppm -png -singlefile -r 96 -x 0 -y 0 -W 794 -H 421 "${sheets[0]}" "$work/pictures/etiketler"

mapfile -t shown < <(grep -ohE 'resimler/[A-Za-z0-9_-]+\.png' README.md docs/*.md | sort -u)
mkdir -p docs/resimler
rm -f docs/resimler/*.png
for picture in "${shown[@]##*/}"; do
    cp "$work/pictures/$picture" docs/resimler/
done
echo "docs/resimler: ${#shown[@]} pictures"
