#!/usr/bin/env bash
# Builds the program and starts it in the folder `dukkan` with the demo shop.
# Without a display it drives the same forms offscreen in a fresh shop and leaves what they printed,
# and a picture of every form, in the folder `cikti`.
#   scripts/run.sh [--tour]     --tour: drive the forms although there is a display
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
need "${build_packages[@]}" "${run_packages[@]}"

cmake --preset release -DTEZGAH_BENCH=OFF >/dev/null
cmake --build --preset release

tezgah=build/release/src/tezgah
if [ "${1:-}" != --tour ] && [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    mkdir -p dukkan
    exec "$tezgah" --directory dukkan --demo
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -m 700 "$work/run" "$work/dukkan" # with a lock of its own, apart from a program that runs
rm -rf cikti
mkdir -p cikti
XDG_RUNTIME_DIR=$work/run QT_QPA_PLATFORM=offscreen:configfile=$PWD/scripts/screen.json \
    "$tezgah" --directory "$work/dukkan" --tour cikti
