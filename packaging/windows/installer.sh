#!/usr/bin/env bash
# Builds the program and its installer, build/windows/Tezgah-Kur-VERSION.exe.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh
need nsis librsvg2-bin imagemagick
packaging/windows/build.sh

version=$(sed -n 's/^project(tezgah VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
output=$PWD/build/windows/Tezgah-Kur-$version.exe
picture=build/windows/windows/kurulum.bmp # the left side of the first and the last page
rsvg-convert -w 112 packaging/tezgah.svg |
    convert -size 164x314 'xc:#0b6e6e' - -gravity center -composite -alpha off "BMP3:$picture"
licences=build/windows/windows/lisanslar.txt
carried=${XDG_CACHE_HOME:-$HOME/.cache}/tezgah/windows/src/qt6-base/src/3rdparty
{
    cat packaging/windows/lisanslar.txt /usr/share/common-licenses/{LGPL-3,GPL-3}
    for part in freetype harfbuzz-ng libjpeg libpng zlib pcre2 double-conversion md4c; do
        printf '\n==== %s\n\n' "$part"
        find "$carried/$part" -maxdepth 2 -type f \( -iname '*licen*' -o -iname 'copy*' -o -name FTL.TXT \) \
            -exec cat {} +
    done
    printf '\n==== MinGW-w64\n\n'
    cat /usr/share/doc/mingw-w64-x86-64-dev/copyright
} | sed 's/$/\r/' >"$licences"
makensis -V2 -INPUTCHARSET UTF8 "-DVERSION=$version" "-DPROGRAM=$PWD/build/windows/tezgah.exe" \
    "-DICON=$PWD/build/windows/windows/tezgah.ico" "-DPICTURE=$PWD/$picture" \
    "-DLICENCES=$PWD/$licences" "-DOUTPUT=$output" packaging/windows/tezgah.nsi
ls -l "$output"
