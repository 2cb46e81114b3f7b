#!/usr/bin/env bash
# qt.sh: builds a static qtbase for Windows from Debian's source package, once for each version and
# set of options, and prints the folder that it is installed in.
# Needs the packages of build.sh.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
cache=${XDG_CACHE_HOME:-$HOME/.cache}/velmora-windows

# What the program doesn't use, what Debian's source lacks, and Debian's own copies of libraries,
# which aren't there for Windows.
off=(sql network dbus opengl opengles2 vulkan concurrent xml icu glib zstd brotli tabletevent jpeg gif
    direct2d directwrite gssapi androiddeployqt windeployqt system_zlib system_png system_pcre2
    system_doubleconversion system_harfbuzz system_freetype fontconfig markdown qmake sessionmanager)
options=(-DCMAKE_BUILD_TYPE=Release -DQT_QMAKE_TARGET_MKSPEC=win32-g++
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake
    -DQT_FORCE_BUILD_TOOLS=OFF -DQT_BUILD_TOOLS_WHEN_CROSSCOMPILING=OFF -DBUILD_SHARED_LIBS=OFF
    -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DINPUT_opengl=no -DINPUT_libjpeg=no)
for feature in "${off[@]}"; do options+=("-DFEATURE_$feature=OFF"); done

# The file dialog would keep its history in the registry, and show the other programs' one: what it
# does with settings is left out of it.
without_history='s/QT_CONFIG(settings)/0/'
dialog=src/widgets/dialogs/qfiledialog.cpp

source=$("$here/sources.sh" qt6-base)
version=$(dpkg-parsechangelog -l "$source/debian/changelog" -S Version)
key=$(printf '%s\n' "$version" "${options[@]}" "$without_history" | cat - "$here/mingw64.cmake" |
    sha256sum | cut -c 1-12)
installed=$cache/qt-$version-$key
if [ -f "$installed/complete" ]; then
    echo "$installed"
    exit
fi

# The pictures and the table of file types that the toolkit packs bear a time: one for all commits, or
# its bytes would tell when it was built and, called by build.sh, at which commit.
export SOURCE_DATE_EPOCH=1
sed -i "$without_history" "$source/$dialog"
if grep -q 'QT_CONFIG(settings)' "$source/$dialog"; then exit 1; fi
grep -q '#if 0' "$source/$dialog"
build=$cache/qt-build-own
rm -rf "$build" "$installed"
# Neither the paths of this machine nor the prefix get into the library.
map=-ffile-prefix-map=$cache=.
cmake -S "$source" -B "$build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$here/mingw64.cmake" \
    -DCMAKE_INSTALL_PREFIX=/velmora-qt -DCMAKE_C_FLAGS="$map" -DCMAKE_CXX_FLAGS="$map" \
    "${options[@]}" >&2
cmake --build "$build" ${JOBS:+-j "$JOBS"} >&2
DESTDIR=$build/root cmake --install "$build" --strip >&2
mv "$build/root/velmora-qt" "$installed"
rm -rf "$build"
touch "$installed/complete"
echo "$installed"
