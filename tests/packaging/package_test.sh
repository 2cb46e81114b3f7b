#!/usr/bin/env bash
# Makes the Debian package of a build, checks it, installs it, starts the installed program, removes
# it, and looks whether anything of it is left.
#
#   tests/packaging/package_test.sh <build folder>
#
# The build folder holds a finished build (cmake --build). Needs lintian, desktop-file-utils,
# appstream and man-db, and the packages that velmora depends on; with xvfb the program is started on
# a display, without it on the toolkit's platform `offscreen`. Status 0: all passed. 77: the package
# is in order, but it could not be installed here. Anything else: a fault.
set -euo pipefail

skipped=77
package=velmora
here=$(cd "$(dirname "$0")" && pwd)
version=$(sed -n 's/^project(velmora VERSION \([0-9.]*\).*/\1/p' "$here/../../CMakeLists.txt")

say() { printf '%s\n' "-- $*"; }
fail() {
    printf 'FAILED: %s\n' "$*" >&2
    exit 1
}

[ $# -eq 1 ] || { echo "Usage: $0 <build folder>" >&2; exit 2; }
build=$(cd "$1" && pwd)
[ -f "$build/CPackConfig.cmake" ] || fail "$build is no build folder with packaging"
for tool in cpack lintian desktop-file-validate appstreamcli man dpkg-deb; do
    command -v "$tool" >/dev/null || fail "$tool is missing (apt-get install lintian \
desktop-file-utils appstream man-db)"
done

work=$(mktemp -d)
chmod 755 "$work"
installed=
xvfb=
cleanup() {
    [ -z "$xvfb" ] || kill "$xvfb" 2>/dev/null || true
    [ -z "$installed" ] || "${as_root[@]}" dpkg --purge "$package" >/dev/null 2>&1 || true
    rm -rf "$work"
}
trap cleanup EXIT

as_root=()
can_install=yes
if [ "$(id -u)" -ne 0 ]; then
    if sudo -n true 2>/dev/null; then as_root=(sudo -n); else can_install=; fi
fi

# --- The package itself.

make_package() {
    (cd "$work" && umask 022 && cpack --config "$build/CPackConfig.cmake" -B "$work/cpack" \
        >"$work/cpack.log" 2>&1) || { cat "$work/cpack.log"; fail "cpack"; }
    deb=$(find "$work/cpack" -maxdepth 1 -name '*.deb')
    [ -f "$deb" ] || fail "cpack made no package, or several: $deb"
    say "made $(basename "$deb"), $(stat --format %s "$deb") bytes"
}

check_control() {
    field() { dpkg-deb --field "$deb" "$1"; }
    [ "$(field Package)" = "$package" ] || fail "the package is called $(field Package)"
    case $(field Version) in "$version"-*) ;; *) fail "version $(field Version), not $version" ;; esac
    [ "$(field Section)" = science ] || fail "section $(field Section)"
    for dependency in qt6-translations-l10n fonts-liberation fonts-dejavu-core libqt6widgets6 \
        libqt6printsupport6; do
        field Depends | tr ',' '\n' | grep "^ *$dependency\( \|$\)" >/dev/null ||
            fail "no dependency on $dependency: $(field Depends)"
    done
    say "depends on $(field Depends)"
}

# Everything that the user is promised is in it.
check_content() {
    local root=$work/content file size
    mkdir "$root"
    dpkg-deb --extract "$deb" "$root"
    for file in bin/velmora bin/velmora-punto bin/velmora-guia bin/velmora-informe \
        libexec/velmora/velmora; do
        [ -x "$root/usr/$file" ] || fail "no program $file"
    done
    for size in 16 24 32 48 64 128 256 512; do
        file=$root/usr/share/icons/hicolor/${size}x$size/apps/velmora.png
        [ -f "$file" ] || fail "no icon of $size pixels"
        # Width and height stand in bytes 16 to 23 of a PNG.
        [ "$(od -An -tu1 -j16 -N8 "$file" | awk '{print $3 * 256 + $4, $7 * 256 + $8}')" = \
            "$size $size" ] || fail "the icon of $size pixels has another size"
    done
    for file in icons/hicolor/scalable/apps/velmora.svg doc/velmora/guia.md doc/velmora/guia.html \
        doc/velmora/copyright doc/velmora/changelog.Debian.gz man/man1/velmora-informe.1.gz \
        bash-completion/completions/velmora-informe applications/velmora-informe.desktop; do
        [ -s "$root/usr/share/$file" ] || fail "no $file"
    done
    [ -s "$root/usr/share/doc-base/velmora" ] || fail "the guide isn't registered as a document"
    compgen -G "$root/usr/share/doc/velmora/examples/*.doc" >/dev/null || fail "no example"
    check_guide "$root/usr/share/doc/velmora"
    say "programs, icons, guide and examples are in it"
}

# Every picture that the guide shows is there, every link inside it leads somewhere.
check_guide() {
    local folder=$1 picture anchor
    while read -r picture; do
        [ -s "$folder/$picture" ] || fail "the guide shows $picture, which is missing"
    done < <(grep -o 'src="[^"]*"' "$folder/guia.html" | sed 's/src="\(.*\)"/\1/' | sort -u)
    while read -r anchor; do
        grep -q "id=\"$anchor\"" "$folder/guia.html" || fail "the guide links to #$anchor"
    done < <(grep -o 'href="#[^"]*"' "$folder/guia.html" | sed 's/href="#\(.*\)"/\1/' | sort -u)
}

run_validators() {
    local share=$work/content/usr/share page warnings
    lintian --allow-root --fail-on error,warning "$deb" || fail "lintian"
    say "lintian: clean"
    desktop-file-validate "$share"/applications/*.desktop || fail "desktop-file-validate"
    say "desktop-file-validate: clean"
    appstreamcli validate --no-net "$share/metainfo/org.velmora.velmora.metainfo.xml" ||
        fail "appstreamcli"
    for page in "$share"/man/man1/*.1.gz; do
        warnings=$(cd "$share/man" && LC_ALL=C.UTF-8 MANROFFSEQ='' man --warnings -E UTF-8 -l \
            "$page" 2>&1 >/dev/null)
        [ -z "$warnings" ] || fail "$page: $warnings"
    done
    say "manual pages: no warning"
}

# --- The installed program.

install_package() {
    if dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep ' installed$' >/dev/null; then
        fail "$package is installed already; remove it first"
    fi
    installed=yes
    "${as_root[@]}" dpkg --install "$deb" >"$work/dpkg.log" 2>&1 ||
        { cat "$work/dpkg.log"; fail "dpkg --install"; }
    dpkg --listfiles "$package" >"$work/files"
    say "installed, $(wc -l <"$work/files") files and folders"
}

# Starts it in each way that people have, under a locale with a comma that wins over everything, and
# looks into the running process.
start_program() {
    local home=$work/home
    mkdir "$home" "$work/run"
    chmod 700 "$work/run"
    environment=(HOME="$home" XDG_RUNTIME_DIR="$work/run" LC_ALL=es_ES.UTF-8
        PATH="$PATH" LANG=es_ES.UTF-8)
    local desktop
    desktop=$(sed -n 's/^Exec=\(velmora[^ ]*\)$/\1/p;T;q' /usr/share/applications/velmora.desktop)
    if command -v Xvfb >/dev/null; then
        Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$work/display" \
            >/dev/null 2>&1 &
        xvfb=$!
        for _ in $(seq 50); do [ -s "$work/display" ] && break; sleep 0.1; done
        environment+=(DISPLAY=":$(cat "$work/display")" QT_QPA_PLATFORM=xcb)
    else
        environment+=(QT_QPA_PLATFORM=offscreen)
    fi

    ln -s /usr/bin/velmora "$work/mi-velmora"
    local command
    for command in "$desktop" velmora-punto "$work/mi-velmora"; do start_by "$command"; done
    [ -z "$(find "$home" -type f)" ] || fail "it left in the home folder: $(find "$home" -type f)"
    say "started ${xvfb:+under Xvfb }under the decimal point, ended on SIGTERM, left no file"
}

start_by() {
    local command=$1 pid program
    env -i "${environment[@]}" "$command" >"$work/output" 2>&1 &
    pid=$!
    sleep 2
    kill -0 "$pid" 2>/dev/null || { cat "$work/output"; fail "$command was not alive after 2 s"; }
    program=$(readlink "/proc/$pid/exe")
    [ "$program" = /usr/libexec/velmora/velmora ] || fail "$command runs $program"
    tr '\0' '\n' <"/proc/$pid/environ" >"$work/environ"
    kill -TERM "$pid"
    for _ in $(seq 50); do kill -0 "$pid" 2>/dev/null || break; sleep 0.1; done
    kill -0 "$pid" 2>/dev/null && { kill -KILL "$pid"; fail "$command did not end on SIGTERM"; }
    wait "$pid" 2>/dev/null || true

    grep -qx 'LC_NUMERIC=C' "$work/environ" || fail "LC_NUMERIC isn't C in the running program"
    ! grep -q '^LC_ALL=' "$work/environ" || fail "LC_ALL is set in the running program"
    grep -qx 'LC_MESSAGES=es_ES.UTF-8' "$work/environ" || fail "the user's language got lost"
    [ ! -s "$work/output" ] || fail "$command says: $(cat "$work/output")"
}

# Goes the whole road on the installed program from outside, where the accessibility bus is at hand.
drive_program() {
    local status=0
    VELMORA=/usr/bin/velmora /usr/bin/python3 -B "$here/../accessibility/accessibility_test.py" WholeRoad \
        >"$work/road" 2>&1 || status=$?
    case $status in
        0) say "driven from \"Iniciar\" to the final table through the accessibility bus" ;;
        "$skipped") say "not driven from outside: $(tail -n 1 "$work/road")" ;;
        *) cat "$work/road"; fail "the installed program could not be driven from outside" ;;
    esac
}

# The installed program of the report, without a display: the example's report is the one beside it.
make_report() {
    local examples=/usr/share/doc/velmora/examples
    env -i PATH="$PATH" velmora-informe --salida "$work/informe.html" \
        "$examples/tres-dias-tres-tareas.doc" || fail "velmora-informe"
    cmp "$work/informe.html" "$examples/tres-dias-tres-tareas.html" || fail "another report"
    say "velmora-informe made the example's report"
}

# What bash offers behind the installed program's name.
complete_report() {
    local offered
    offered=$(cd "$work" && touch uno.doc && bash -c '
        . /usr/share/bash-completion/completions/velmora-informe
        offer() { COMP_WORDS=(velmora-informe "$@"); COMP_CWORD=$#; _velmora_informe 2>/dev/null
            echo "${COMPREPLY[*]}"; }
        offer --re; offer un; offer --csv = un')
    [ "$offered" = $'--reemplazar --resumen\nuno.doc\nuno.doc' ] || fail "bash offers $offered"
    say "bash completes the options and names of velmora-informe"
}

remove_package() {
    local path left=()
    "${as_root[@]}" dpkg --purge "$package" >"$work/dpkg.log" 2>&1 ||
        { cat "$work/dpkg.log"; fail "dpkg --purge"; }
    installed=
    while read -r path; do
        # Folders that other packages use stay; none of them bears the name.
        if [ -d "$path" ] && [ ! -L "$path" ]; then
            case $path in *velmora*) left+=("$path") ;; esac
        elif [ -e "$path" ] || [ -L "$path" ]; then
            left+=("$path")
        fi
    done <"$work/files"
    while read -r path; do left+=("$path"); done < <(
        find /usr /etc /opt /var/lib /var/cache -xdev -iname '*velmora*' \
            -not -path '/usr/src/*' -not -path '/usr/local/src/*' 2>/dev/null)
    [ ${#left[@]} -eq 0 ] || fail "left behind: ${left[*]}"
    say "removed without a trace"
}

make_package
check_control
check_content
run_validators
if [ -z "$can_install" ]; then
    say "SKIPPED: installing needs root or sudo without a password"
    exit $skipped
fi
install_package
start_program
drive_program
make_report
complete_report
remove_package
say "passed"
