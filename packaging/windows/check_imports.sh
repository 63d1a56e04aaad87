#!/usr/bin/env bash
# The program may need no library but those every Windows 10 has:  check_imports.sh PROGRAM.exe
set -euo pipefail
windows='advapi32|api-ms-win-core-.*|authz|bcrypt|comctl32|comdlg32|crypt32|d2d1|d3d11|d3d9|dnsapi|dwmapi|dwrite|dxgi|gdi32|imm32|iphlpapi|kernel32|mpr|msvcrt|netapi32|odbc32|ole32|oleaut32|opengl32|rpcrt4|secur32|setupapi|shcore|shell32|shlwapi|user32|userenv|uxtheme|version|winmm|winspool\.drv|ws2_32|wtsapi32'
foreign=$(x86_64-w64-mingw32-objdump -p "$1" | sed -n 's/.*DLL Name: //p' | sed 's/\.dll$//I' |
    grep -v -i -x -E "$windows" || true)
if [ -n "$foreign" ]; then
    echo "$1 needs libraries that Windows does not have:" $foreign >&2
    exit 1
fi
