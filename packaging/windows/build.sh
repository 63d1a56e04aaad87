#!/usr/bin/env bash
# Builds tezgah.exe on Debian 12: one file that needs no library beside those of Windows 10.
#   packaging/windows/build.sh [--tests] [--prepare]
#     --tests     builds the test programs too
#     --prepare   stops when the compiler, Qt and SQLite are there
# Qt and SQLite are built once from Debian's source packages and kept in the cache folder
# ($XDG_CACHE_HOME or ~/.cache)/tezgah/windows; a step that is done is not done again.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh
. packaging/windows/steps.sh

tests=OFF
only_prepare=
for word in "$@"; do
    case $word in
    --tests) tests=ON ;;
    --prepare) only_prepare=1 ;;
    *) echo "build.sh: $word?" >&2 && exit 2 ;;
    esac
done

need "${build_packages[@]}" "${run_packages[@]}" "${windows_packages[@]}"
step sources fetch_sources
step sqlite build_sqlite
step qt build_qt
[ -n "$only_prepare" ] && exit

export TEZGAH_WINDOWS_CACHE=$cache
cmake --preset windows -DBUILD_TESTING=$tests
cmake --build --preset windows
x86_64-w64-mingw32-strip -o build/windows/tezgah.exe build/windows/src/tezgah.exe
packaging/windows/check_imports.sh build/windows/tezgah.exe
ls -l build/windows/tezgah.exe
