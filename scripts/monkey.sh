#!/usr/bin/env bash
# Random keys, clicks and texts on the real forms under the sanitizers, over a demo shop of its own
# whose host goes away and comes back. Ends with an error, the seed and the last steps when the
# program crashes, stands still for longer than six seconds, or loses goods.
#   scripts/monkey.sh [minutes, 10] [seed]     again with a seed to look at what was found
# TEZGAH_MONKEY names another build of it.
set -euo pipefail
cd "$(dirname "$0")/.."
minutes=${1:-10}
seed=${2:-$((RANDOM * 32768 + RANDOM))}
monkey=${TEZGAH_MONKEY:-build/dev/tests/monkey/test_monkey}
if [ -z "${TEZGAH_MONKEY:-}" ]; then
    . scripts/packages.sh
    need "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"
    cmake --preset dev >/dev/null
    cmake --build --preset dev --target test_monkey
fi
log=$PWD/build/monkey-$seed.log
if ! ASAN_OPTIONS=handle_abort=1 LSAN_OPTIONS=suppressions=tests/support/lsan.supp:print_suppressions=0 \
    "$monkey" --seconds "$(awk "BEGIN { print int($minutes * 60) }")" --seed "$seed" --log "$log"; then
    echo "seed $seed; the last steps:"
    tail -n 40 "$log"
    exit 1
fi
