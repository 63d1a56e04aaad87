# Sourced by the other scripts: installs the Debian packages that are missing, and no others.
#   need PACKAGE...

need() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "Installing: ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        as_root=(sudo)
    fi
    # The package lists of a machine that stood for a while name files that are gone.
    "${as_root[@]}" apt-get update -q
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "${missing[@]}"
}

build_packages=(
    g++ cmake ninja-build qt6-base-dev qt6-multimedia-dev libsqlite3-dev unixodbc-dev
)
run_packages=(
    qt6-translations-l10n fonts-liberation fonts-dejavu-core
)
test_packages=(
    libgtest-dev libgmock-dev libzint-dev libzbar-dev libsqliteodbc tdsodbc poppler-utils
    locales clang-format git
)
bench_packages=(
    libbenchmark-dev
)
check_packages=(
    clang clang-tidy libclang-rt-14-dev
)
windows_packages=(
    g++-mingw-w64-x86-64-posix dpkg-dev tcl librsvg2-bin icoutils
)
windows_test_packages=(
    wine wine64 xvfb xauth locales fonts-liberation googletest zbar-tools
    poppler-utils libsqliteodbc
)
