#!/usr/bin/env bash
# Runs a program of ours under Wine, as ctest starts it.
export WINEDEBUG=${WINEDEBUG:--all}
exec "$(command -v wine64 || echo /usr/lib/wine/wine64)" "$@"
