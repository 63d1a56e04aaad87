#!/usr/bin/env bash
# Makes the installer, build/windows/Tezgah-Kur-VERSION.exe, of the program that build.sh left.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh
need nsis
[ -e build/windows/tezgah.exe ] || packaging/windows/build.sh

version=$(sed -n 's/^project(tezgah VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
output=$PWD/build/windows/Tezgah-Kur-$version.exe
makensis -V2 -INPUTCHARSET UTF8 "-DVERSION=$version" "-DPROGRAM=$PWD/build/windows/tezgah.exe" \
    "-DICON=$PWD/build/windows/windows/tezgah.ico" "-DOUTPUT=$output" packaging/windows/tezgah.nsi
ls -l "$output"
