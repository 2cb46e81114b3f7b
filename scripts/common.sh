# Shared by run.sh and test.sh: says what is done, installs what is missing, builds.

say() { printf '\n== %s\n' "$*"; }

# Packages that building and running the program takes, on Debian 12.
build_packages=(
    g++ cmake ninja-build
    qt6-base-dev qt6-svg-dev qt6-translations-l10n libcups2-dev
    fonts-liberation fonts-dejavu-core python3-markdown
)

# What the programs for Windows take beyond that, and to try them.
windows_packages=(
    g++-mingw-w64-x86-64-posix dpkg-dev googletest
    wine wine64 xvfb
)

# install_packages <package>...: installs those that are missing, with apt, through sudo where the
# user isn't root.
install_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep '^install ok installed$' >/dev/null ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    say "Installing ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then as_root=(sudo); fi
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# build <preset> [target...]: configures once and builds what has changed; the tests, too, where the
# script that calls it sets `tests` to ON.
build() {
    local preset=$1
    shift
    say "Building (preset $preset)"
    if [ ! -f "build/$preset/build.ninja" ] ||
        { [ "${tests:-OFF}" = ON ] && grep -q '^VELMORA_TESTS:.*=OFF' "build/$preset/CMakeCache.txt"; }; then
        cmake --preset "$preset" -DVELMORA_TESTS="${tests:-OFF}" >/dev/null
    fi
    cmake --build --preset "$preset" ${1:+--target "$@"}
}

# The program writes numbers with the locale's decimal separator and reads them with a point, so it
# is started under a numeric locale with a point. LC_ALL would win over that: it is handed on to the
# other categories and dropped, so that the rest stays as the user has it.
use_decimal_point() {
    if [ -n "${LC_ALL:-}" ]; then
        export LANG=$LC_ALL LC_CTYPE=$LC_ALL LC_MESSAGES=$LC_ALL LC_TIME=$LC_ALL \
            LC_COLLATE=$LC_ALL LC_MONETARY=$LC_ALL
        unset LC_ALL
    fi
    export LC_NUMERIC=C
}
