#!/usr/bin/env bash
# Builds the development tree (address and undefined sanitizers) and runs every test.
#   scripts/test.sh [ctest arguments]
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
need "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"

cmake --preset dev
cmake --build --preset dev
ctest --preset dev "$@"
