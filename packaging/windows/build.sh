#!/usr/bin/env bash
# Builds Velmora for Windows on Debian 12, from nothing: installs what is missing, builds the toolkit
# once, then the programs, and leaves in build/windows/dist the portable zip, the installer, the list
# of what is inside and the checksums. A second run builds what has changed.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/common.sh
here=packaging/windows
build=build/windows
dist=$build/dist

install_packages "${build_packages[@]}" "${windows_packages[@]}" nsis zip

version=$(sed -n 's/^project(velmora VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
# The time that the files bear: the commit's, or outside of a repository that of the last release.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2>/dev/null || stat --format %Y CHANGELOG.md)
export SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C.UTF-8

# What the programs carry as recorded strokes is drawn by Debian's toolkit.
record_drawings() {
    cmake -S assets/recorder -B $build-drawings -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
    cmake --build $build-drawings
    mkdir -p $build-drawings/recorded
    QT_QPA_PLATFORM=offscreen $build-drawings/record_drawings $build-drawings/recorded assets/*.svg
}

build_programs() {
    # Another toolkit than that of the last build: nothing of it is kept.
    grep -sqxF "VELMORA_WINDOWS_QT:PATH=$qt" $build/CMakeCache.txt || rm -rf $build
    [ -f $build/build.ninja ] || cmake --preset windows -DVELMORA_MUSL="$musl" -DVELMORA_WINDOWS_QT="$qt" \
        -DVELMORA_DRAWINGS="$PWD/$build-drawings/recorded" >/dev/null
    # What the program carries inside bears a date: one for all commits, or what an earlier build left
    # would give other bytes than a build from nothing.
    SOURCE_DATE_EPOCH=1 cmake --build --preset windows \
        --target velmora velmora_informe velmora_of_the_region velmora_tour
}

# The folder as it stands in the zip and on the user's disk.
stage() {
    local root=$build/stage/Velmora licence
    rm -rf $build/stage
    mkdir -p $root/programa $root/examples $root/images $root/licencias
    cp $build/windows/velmora.exe $build/windows/velmora-informe.exe $root/
    cp -r $build/windows/programa/{velmora.exe,velmora.dll,letras} $root/programa/
    x86_64-w64-mingw32-strip $root/*.exe $root/programa/velmora.*
    cp examples/*.doc $root/examples/
    find docs/images -name '*.png' -not -name hoja.png -exec cp {} $root/images/ \;
    /usr/bin/python3 packaging/guia_html.py docs/guia.md packaging/guia.css $root/guia.html
    sed 's/$/\r/' $here/LEEME.txt >$root/LEEME.txt
    licences $root/licencias
    $here/contents.sh "$qt" >$root/licencias/contenido.txt
    find $build/stage -exec touch --no-dereference --date "@$SOURCE_DATE_EPOCH" {} +
}

# The terms of every part, as Debian keeps them with its source.
licences() {
    cp packaging/copyright "$1/velmora.txt"
    cp $here/licencias.txt "$1/LEEME.txt"
    cp "$qt_source/debian/copyright" "$1/qt.txt"
    cp "$musl/COPYRIGHT" "$1/musl.txt"
    cp /usr/share/doc/mingw-w64-common/copyright "$1/mingw-w64.txt"
    cp /usr/share/doc/gcc-mingw-w64-base/copyright "$1/gcc.txt"
    cp /usr/share/doc/fonts-liberation/copyright "$1/liberation.txt"
    cp /usr/share/doc/qt6-translations-l10n/copyright "$1/qt-traducciones.txt"
    cp /usr/share/doc/nsis/copyright "$1/nsis.txt"
    cp /usr/share/common-licenses/{GPL-2,GPL-3,LGPL-2.1,LGPL-3} "$1/"
}

# In a fixed order, without what a file system adds.
make_zip() {
    (cd $build/stage && find Velmora | LC_ALL=C sort |
        zip -X -9 -q -@ "$OLDPWD/$dist/velmora-$version-windows.zip")
}

# What the remover deletes is what was installed, file by file; anything else stays.
make_installer() {
    (cd $build/stage/Velmora &&
        find . -type f -printf 'Delete "$INSTDIR\\%P"\n' | LC_ALL=C sort | tr / '\\' &&
        find . -mindepth 1 -type d -printf 'RMDir "$INSTDIR\\%P"\n' | LC_ALL=C sort -r | tr / '\\') \
        >$build/remove.nsh
    makensis -V2 -NOCD -DVERSION="$version" -DFILES="$PWD/$build/stage/Velmora" \
        -DREMOVE="$PWD/$build/remove.nsh" -DICON="$PWD/$build/windows/velmora.ico" \
        -DOUTPUT="$PWD/$dist/velmora-$version-windows-instalador.exe" $here/velmora.nsi
}

say "Sources and toolkit"
musl=$($here/sources.sh musl)
qt=$($here/qt.sh)
qt_source=$($here/sources.sh qt6-base)
say "Programs"
record_drawings
build_programs
say "Zip and installer"
rm -rf $dist
mkdir -p $dist
stage
make_zip
make_installer
cp $build/stage/Velmora/licencias/contenido.txt $dist/
(cd $dist && sha256sum -- *.exe *.txt *.zip >SHA256SUMS)
ls -l $dist
