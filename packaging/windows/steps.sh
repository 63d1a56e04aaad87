# Sourced by build.sh: the steps that make what tezgah.exe is built with.

cache=${XDG_CACHE_HOME:-$HOME/.cache}/tezgah/windows
host=x86_64-w64-mingw32
mkdir -p "$cache"

# step NAME COMMAND: runs the command once; a stamp file remembers that it ended well.
step() {
    [ -e "$cache/done-$1" ] && return
    echo "== $1"
    local started=$SECONDS
    "$2"
    echo "$((SECONDS - started)) s" >"$cache/done-$1"
    echo "== $1: $(cat "$cache/done-$1")"
}

# Asks for source packages where this machine gets its binary packages, with lists of its own: the
# configuration of the machine stays as it is.
fetch_sources() {
    local apt=$cache/apt uri release component signed qt
    qt=$(dpkg-query -W -f='${source:Version}' qt6-base-dev) # its tools build the other one
    rm -rf "$apt" "$cache/src"
    mkdir -p "$apt/lists/partial" "$cache/src"
    apt-get indextargets --format '$(REPO_URI)|$(CODENAME)|$(COMPONENT)' \
        'Identifier: Packages' 'Origin: Debian' | sort -u |
        while IFS='|' read -r uri release component; do
            signed=/usr/share/keyrings/debian-archive-keyring.gpg
            echo "deb-src [signed-by=$signed] $uri $release $component"
        done >"$apt/sources.list"
    local own=(-o "Dir::Etc::SourceList=$apt/sources.list" -o Dir::Etc::SourceParts=-
        -o "Dir::State::Lists=$apt/lists" -o "Dir::Cache=$apt" -o APT::Sandbox::User=)
    [ -s "$apt/sources.list" ] || {
        echo 'No package lists of Debian are on this machine: run "apt-get update" first.' >&2
        return 1
    }
    apt-get "${own[@]}" update -q
    (
        cd "$cache/src"
        apt-get "${own[@]}" source -q --download-only "qt6-base=$qt" sqlite3
        local description
        for description in *.dsc; do
            dpkg-source -x "$description" "${description%%_*}"
        done
    )
}

build_sqlite() {
    local source=$cache/src/sqlite3 build=$cache/sqlite-build
    rm -rf "$build"
    mkdir -p "$build" "$cache/sqlite/include" "$cache/sqlite/lib"
    (
        cd "$build"
        "$source/configure" --disable-tcl >configure.log
        make sqlite3.c >make.log
        "$host-gcc" -O2 -DSQLITE_THREADSAFE=1 -DSQLITE_DQS=0 -DSQLITE_OMIT_LOAD_EXTENSION \
            -c sqlite3.c -o sqlite3.o
        rm -f "$cache/sqlite/lib/libsqlite3.a"
        "$host-ar" rcs "$cache/sqlite/lib/libsqlite3.a" sqlite3.o
        cp sqlite3.h "$cache/sqlite/include"
    )
}

# Qt base without what the program does not use. DirectWrite, which draws the text, is built only
# beside Direct2D; without its version 1.1 the platform plugin of that name stays away.
build_qt() {
    local build=$cache/qt-build feature
    local off=()
    for feature in dbus network vulkan tabletevent concurrent system_zlib sql direct2d1_1 \
        graphicsview opengl opengl_dynamic dynamicgl; do
        off+=("-DFEATURE_$feature=OFF")
    done
    nice -n 5 cmake -S "$cache/src/qt6-base" -B "$build" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$PWD/packaging/windows/mingw.cmake" \
        -DCMAKE_INSTALL_PREFIX="$cache/qt" -DCMAKE_BUILD_TYPE=Release \
        -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
        -DINPUT_opengl=no -DBUILD_SHARED_LIBS=OFF -DQT_BUILD_TESTS=OFF -DQT_BUILD_EXAMPLES=OFF \
        "${off[@]}"
    nice -n 5 cmake --build "$build" -j "$(nproc)"
    cmake --install "$build" >"$cache/qt-install.log"
    rm -rf "$build"
}
