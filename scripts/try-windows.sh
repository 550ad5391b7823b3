#!/usr/bin/env bash
# Builds the program and its tests for Windows and runs the tests there, as far as Wine is Windows.
# Debian has no Qt for Windows: the first run builds one from Debian's sources of Qt, which takes about
# an hour and 3 GB below build/windows. Where the program lies is said at the end.
# Usage: try-windows.sh [TEST...]   (default: all tests that Windows can run)
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh run windows wine
work=$PWD/build/windows
qt=$work/qt
mkdir -p "$work"

# --- Qt, of the version whose tools this computer has
fetch_qt() {
    local version lists
    version=$(dpkg-query -W -f='${Version}' qt6-base-dev)
    . /etc/os-release
    mkdir -p "$work/apt/lists/partial" "$work/apt/cache/archives/partial"
    echo "deb-src http://deb.debian.org/debian $VERSION_CODENAME main" >"$work/apt/sources.list"
    lists=(-o Dir::Etc::sourcelist="$work/apt/sources.list" -o Dir::Etc::sourceparts=-
        -o Dir::State::lists="$work/apt/lists" -o Dir::Cache="$work/apt/cache"
        -o APT::Sandbox::User=root)
    apt-get -qq "${lists[@]}" update
    (cd "$work/apt" && apt-get -qq "${lists[@]}" source --download-only "qt6-base=$version")
    mkdir -p "$work/qt-source"
    tar -xf "$work"/apt/qt6-base_*.orig.tar.xz -C "$work/qt-source" --strip-components 1
}
build_qt() {
    [ -e "$work/qt-source/CMakeLists.txt" ] || fetch_qt
    cmake -G Ninja -S "$work/qt-source" -B "$work/qt-build" \
        -DCMAKE_TOOLCHAIN_FILE="$PWD/packaging/mingw.cmake" -DCMAKE_INSTALL_PREFIX="$qt" \
        -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(gcc -print-multiarch)/cmake" \
        -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG" -DBUILD_SHARED_LIBS=OFF \
        -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DINPUT_opengl=no -DINPUT_openssl=no \
        -DFEATURE_opengl=OFF -DFEATURE_vulkan=OFF -DFEATURE_sql=OFF -DFEATURE_dbus=OFF \
        -DFEATURE_concurrent=OFF -DFEATURE_icu=OFF -DFEATURE_glib=OFF -DFEATURE_tabletevent=OFF \
        -DFEATURE_direct2d=OFF
    cmake --build "$work/qt-build"
    cmake --install "$work/qt-build"
    mkdir -p "$qt/lib/fonts"
    cp /usr/share/fonts/truetype/liberation*/*.ttf "$qt/lib/fonts"
    touch "$qt/complete"
}
if [ ! -e "$qt/complete" ]; then
    echo "Building Qt for Windows, once: see $work/qt.log"
    build_qt >"$work/qt.log" 2>&1 || { tail -20 "$work/qt.log" && exit 1; }
fi

# --- the program and its tests; to an administrator Wine allows what it should not
build=$work/trelawn
prefix=$work/prefix
mkdir -p "$prefix"
windows=(env "HOME=$prefix" "WINEPREFIX=$prefix" WINEDEBUG=-all wine)
if [ "$(id -u)" -eq 0 ]; then
    chown -R nobody "$prefix"
    windows=(setpriv --reuid nobody --clear-groups "${windows[@]}")
fi
cmake --preset dev -B "$build" -DCMAKE_TOOLCHAIN_FILE="$qt/lib/cmake/Qt6/qt.toolchain.cmake" \
    -DCMAKE_EXE_LINKER_FLAGS=-static \
    "-DCMAKE_CROSSCOMPILING_EMULATOR=$(IFS=';' && echo "${windows[*]}")" >"$work/configure.log" 2>&1 ||
    { cat "$work/configure.log" && exit 1; }
cmake --build "$build" -- --quiet

"${windows[@]}" wineboot --init >/dev/null 2>&1
ctest --test-dir "$build" -j "$(nproc)" --output-on-failure ${1:+-R "$(IFS='|' && echo "$*")"}
echo "The program is $build/src/trelawn.exe"
