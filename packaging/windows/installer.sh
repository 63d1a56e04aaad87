#!/usr/bin/env bash
# Makes the installer, build/windows/Tezgah-Kur-VERSION.exe, of the program that build.sh left.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh
need nsis librsvg2-bin imagemagick
[ -e build/windows/tezgah.exe ] || packaging/windows/build.sh

version=$(sed -n 's/^project(tezgah VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
output=$PWD/build/windows/Tezgah-Kur-$version.exe
picture=build/windows/windows/kurulum.bmp # the left side of the first and the last page
rsvg-convert -w 112 packaging/tezgah.svg |
    convert -size 164x314 'xc:#0b6e6e' - -gravity center -composite -alpha off "BMP3:$picture"
licences=build/windows/windows/lisanslar.txt
cat packaging/windows/lisanslar.txt /usr/share/common-licenses/{LGPL-3,GPL-3} | sed 's/$/\r/' >"$licences"
makensis -V2 -INPUTCHARSET UTF8 "-DVERSION=$version" "-DPROGRAM=$PWD/build/windows/tezgah.exe" \
    "-DICON=$PWD/build/windows/windows/tezgah.ico" "-DPICTURE=$PWD/$picture" \
    "-DLICENCES=$PWD/$licences" "-DOUTPUT=$output" packaging/windows/tezgah.nsi
ls -l "$output"
