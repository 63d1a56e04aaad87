#!/usr/bin/env bash
# Start to the first usable window: once in an empty folder (makes the demo shop), then warm, five
# times. Prints the milestones of each start in milliseconds since main().
#   qt      the toolkit stands          folder   settings and databases are there
#   host    both connections are open   window   the stock list is drawn
#   bench/start.sh [path of tezgah]
set -euo pipefail
cd "$(dirname "$0")/.."
tezgah=${1:-build/release/src/tezgah}
shop=$(mktemp -d)
trap 'rm -rf "$shop"' EXIT
for run in first warm warm warm warm warm; do
    log=$shop/start.log
    : >"$log"
    QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES=tezgah.start=true XDG_RUNTIME_DIR=$shop \
        "$tezgah" --directory "$shop" 2>"$log" &
    program=$!
    for _ in $(seq 200); do
        grep -q window "$log" && break
        sleep 0.05
    done
    kill "$program"
    wait "$program" 2>/dev/null || true
    echo "$run: $(grep -oE '(qt|folder|host|window) [0-9.]+ ms' "$log" | tr '\n' ' ')"
done
