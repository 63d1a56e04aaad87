#!/usr/bin/env bash
# Whether every file of ours is formatted as .clang-format says.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run --Werror
echo "format: well"
