#!/usr/bin/env bash
# Format, layer guards, clang-tidy.
#   scripts/check.sh [--quick]     --quick: without clang-tidy
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
need "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}" "${bench_packages[@]}" \
    "${check_packages[@]}"

scripts/format.sh
scripts/layers.sh

if [ "${1:-}" = --quick ]; then
    exit
fi
cmake --preset tidy >/dev/null
# Headers that are generated (forms, moc) must be there before the files that include them.
cmake --build --preset tidy --target tezgah_core_autogen tezgah_forms_autogen \
    tezgah_platform_autogen
# The Windows files have no compile command here; their own build warns about them.
git ls-files -z 'src/*.cpp' ':!src/*_windows.cpp' | xargs -0 -n 8 -P "$(nproc)" clang-tidy -p build/tidy --quiet
echo "clang-tidy: well"
