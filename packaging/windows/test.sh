#!/usr/bin/env bash
# Builds the program and its tests for Windows and runs them under Wine, on a screen of their own,
# one after another because only one form can be active on it, then reads the bars of the sheets that
# the tour printed.
#   packaging/windows/test.sh [ctest options]
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh
need "${windows_test_packages[@]}"
packaging/windows/build.sh --tests

work=$(mktemp -d)
export WINEPREFIX=$work/wine WINEDEBUG=-all XDG_RUNTIME_DIR=$work
export TEZGAH_WINDOWS_CACHE=${XDG_CACHE_HOME:-$HOME/.cache}/tezgah/windows
trap 'wineserver -k || true; rm -rf "$work"' EXIT
xvfb-run -a -s '-screen 0 1366x768x24' bash -euo pipefail -c '
    . packaging/windows/prefix.sh
    # Stays for as long as the tests run: what Wine starts beside its first program would else hold
    # that program'"'"'s output open, and would be ended and started again between two tests.
    coproc packaging/windows/wine.sh cmd >/dev/null 2>&1
    ctest --preset windows "$@"' test "$@"
packaging/windows/read_bars.sh build/windows/tests/tour/cikti
