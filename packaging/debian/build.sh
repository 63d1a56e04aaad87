#!/usr/bin/env bash
# Makes the Debian package of this machine's Debian release: build/package/tezgah_VERSION_ARCH.deb
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh
need "${build_packages[@]}" "${run_packages[@]}" dpkg-dev file

cmake --preset release -B build/package -DTEZGAH_BENCH=OFF -DBUILD_TESTING=OFF \
    -DCMAKE_INSTALL_PREFIX=/usr >/dev/null
cmake --build build/package
(cd build/package && rm -f -- *.deb && cpack >/dev/null)
ls build/package/*.deb
