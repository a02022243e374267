# shellcheck shell=sh disable=SC2034,SC2154
# What ./run and ./test share. The sourcing script has set `root` to the checkout.

# Debian package names: what building and running need, and what the tests need beyond it.
# Liberation Mono stands in for Courier New, with the same widths; DejaVu draws the menus.
build_packages='g++ cmake ninja-build qt6-base-dev qt6-svg-dev qt6-tools-dev
    qt6-l10n-tools qt6-translations-l10n libqt6sql6-sqlite libicu-dev
    fontconfig fonts-liberation fonts-dejavu-core'
test_packages='doxygen libgtest-dev pkgconf dpkg-dev libqt6opengl6-dev
    xvfb xdotool x11-xkb-utils xclip poppler-utils
    at-spi2-core dbus-daemon gir1.2-atspi-2.0 python3-pyatspi'

elsewhere='a C++20 compiler, CMake 3.25, Ninja, Qt 6.4 (Widgets, Svg, Sql with SQLite, and the Linguist tools), ICU, GoogleTest, the Liberation fonts, Xvfb, xdotool, setxkbmap, xclip and poppler-utils, and AT-SPI with pyatspi'
build_folder="$root/build/release"

say() { printf '%s\n' "== $*" >&2; }

fail() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# Those of the named packages that are not installed.
missing_packages() {
    installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
    for package in "$@"; do
        printf '%s\n' "$installed" | grep -qx "$package installed" || printf '%s ' "$package"
    done
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# Installs what is missing of the named packages; says nothing and needs no network when all are
# there.
ensure_packages() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        for tool in c++ cmake ninja; do
            command -v $tool >/dev/null ||
                fail "there is no $tool and no apt to install it with; please install $elsewhere"
        done
        return 0
    fi
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    [ "$(id -u)" -eq 0 ] || command -v sudo >/dev/null ||
        fail "neither root nor sudo; please have these installed: $missing"
    say "Installing: $missing"
    as_root apt-get update || say 'The package lists could not be updated; trying with the old ones'
    # shellcheck disable=SC2086 # one word a package
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $missing ||
        fail "could not install: $missing"
}

in_cache() { grep -qxF "$1" "$build_folder/CMakeCache.txt" 2>/dev/null; }

# Configures when that was not done yet, was done for another place, or was done without the tests
# that are wanted now; the build itself notices changed build files. The arguments go to cmake.
configure() {
    if [ -f "$build_folder/build.ninja" ] && in_cache "CMAKE_HOME_DIRECTORY:INTERNAL=$root"; then
        [ "${1-}" = -DZT_TESTS=ON ] || return 0
        ! in_cache ZT_TESTS:BOOL=ON || return 0
    else
        set -- --fresh "$@"
    fi
    ! command -v ccache >/dev/null || set -- "$@" -DCMAKE_CXX_COMPILER_LAUNCHER=ccache
    say "Configuring: cmake --preset release $*"
    (cd "$root" && cmake --preset release "$@") >&2 ||
        fail "could not configure; the build needs $elsewhere"
}

# Builds the named target, or everything.
build() {
    say "Building: build/release"
    (cd "$root" && cmake --build --preset release ${1:+--target "$1"}) >&2 || fail 'could not build'
}
