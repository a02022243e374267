#!/bin/sh
# Uses the libraries as an application does, outside of the sources' folder:
# consume.sh WAY SOURCE BUILD WORK, where WORK is for what all ways share.
set -eu
way=$1 source=$2 build=$3 work=$4
here=$work/$way
prefix=$work/prefix
rm -rf "$here"
mkdir -p "$here"
export QT_QPA_PLATFORM=offscreen
grep -q '^BUILD_SHARED_LIBS:BOOL=ON' "$build/CMakeCache.txt" && static= || static=--static
# As the libraries themselves: a debug build is the quickest to make.
options="-G Ninja -DCMAKE_BUILD_TYPE=Debug"
! command -v ccache >/dev/null || options="$options -DCMAKE_CXX_COMPILER_LAUNCHER=ccache"

fail() { echo "$*" >&2; exit 1; }

# The Nth block of a language in the README's section for applications.
sample() {
    awk -v language="$1" -v wanted="$2" '
        /^## / { there = $0 ~ /^## Use it in an application/ }
        there && $0 == "```" language { ++count; inside = 1; next }
        /^```$/ { inside = 0 }
        inside && count == wanted' "$source/README.md"
}

# The program shows an editor in light colours: tests/embed/visitor.cpp looks, and ends it.
shows() {
    timeout 60 env QT_PLUGIN_PATH="$build/test-plugins" QT_QPA_GENERIC_PLUGINS=ztvisitor:light "$@" ||
        fail "$1 ended with $?"
}

write_sample() {
    sample cpp 1 >"$here/main.cpp"
    sample cmake 1 >"$here/CMakeLists.txt"
    [ -s "$here/main.cpp" ] || fail 'there is no sample in README.md'
    [ "$(wc -l <"$here/CMakeLists.txt")" -le 6 ] || fail 'more than six lines of CMake'
}

build_sample() { # options of cmake
    # shellcheck disable=SC2086 # one word an option
    cmake -S "$here" -B "$here/build" $options "$@"
    cmake --build "$here/build"
}

case $way in
install) # into one folder, found in another one
    rm -rf "$prefix" "$work/made"
    cmake --install "$build" --prefix "$work/made"
    mv "$work/made" "$prefix"
    ! grep -rlE "$source|$build|$work" "$prefix" --include='*.cmake' --include='*.pc' --include='*.h' ||
        fail 'these name a folder of the build'
    ;;
find_package)
    write_sample
    build_sample -DCMAKE_PREFIX_PATH="$prefix"
    shows "$here/build/hello"
    ;;
pkg-config)
    write_sample
    PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name ztcodeeditor.pc)")
    export PKG_CONFIG_PATH
    LD_LIBRARY_PATH=$(pkg-config --variable=libdir ztcodeeditor)
    export LD_LIBRARY_PATH
    command=$(sample sh 1 | sed "s/pkg-config/pkg-config $static/")
    (cd "$here" && eval "$command")
    shows "$here/hello"
    ;;
subproject) # the lexers alone: whatever else there is would be compiled once more
    {
        sample cmake 1 | sed -n 1,2p
        sample cmake 2 | sed "s,SOURCE_DIR .*),SOURCE_DIR $source EXCLUDE_FROM_ALL),"
        echo 'add_executable(hello main.cpp)'
        echo 'target_link_libraries(hello PRIVATE ZtCodeEditor::Parsers)'
    } >"$here/CMakeLists.txt"
    cp "$source/tests/package/parsers.cpp" "$here/main.cpp"
    # shellcheck disable=SC2086
    cmake -S "$here" -B "$here/build" $options
    cmake --build "$here/build" --target hello
    "$here/build/hello" || fail "the sample ended with $?"
    ;;
subproject_whole) # the README's sample with all that it needs
    write_sample
    sample cmake 2 | sed "s,SOURCE_DIR .*),SOURCE_DIR $source EXCLUDE_FROM_ALL)," >"$here/fetch"
    sed -i -e "/find_package/{r $here/fetch" -e 'd}' "$here/CMakeLists.txt"
    build_sample --target hello
    shows "$here/build/hello"
    ;;
examples) # as they are, but built in one go
    {
        sample cmake 1 | sed 2q
        for example in "$source"/examples/embed/*/ "$source/examples/lexer/"; do
            cp -R "$example" "$here"
            echo "add_subdirectory($(basename "$example"))"
        done
    } >"$here/CMakeLists.txt"
    build_sample -DCMAKE_PREFIX_PATH="$prefix"
    for program in "$here"/build/*/embed_* "$here/build/lexer/example_lexer"; do
        [ -d "$program" ] || shows "$program"
    done
    ;;
designer) # the plugin, which finds the libraries by its own place
    QT_PLUGIN_PATH=$(dirname "$(dirname "$(find "$prefix" -path '*/designer/libztcodeeditor.so')")")
    export QT_PLUGIN_PATH
    "$build/bin/test_designer"
    ;;
headers) # each alone, with the warnings that an application may make errors
    cd "$prefix/include/ZtCodeEditor"
    flags='-std=c++20 -fPIC -Wall -Wextra -Wconversion -Wshadow -Werror -I.'
    for library in Core Gui Widgets Sql; do
        flags="$flags $(pkg-config --cflags-only-I Qt6$library | sed 's/-I/-isystem /g')"
    done
    [ -z "$static" ] || flags="$flags -DZT_STATIC"
    # Most of the time goes into what nearly all include. It is compiled once, and only for those
    # whose own includes lead there, so that one that is missing is still missed.
    for common in QObject QString; do
        echo "#include <$common>" >"$here/$common.h"
        echo "-x c++-header $here/$common.h -o $here/$common.h.gch"
    done >"$here/common"
    # shellcheck disable=SC2086 # one word an option
    xargs -P 2 -L 1 c++ $flags <"$here/common"
    for header in *.h; do
        includes=$(c++ -M -MG -nostdinc -nostdinc++ -I. -x c++ "$header" | tr '\n' ' ')
        case " $includes" in
        *' QObject '*) echo "-include $here/QObject.h -include $header" ;;
        *' QString '*) echo "-include $here/QString.h -include $header" ;;
        *) echo "-include $header" ;;
        esac
    done >"$here/checks"
    [ -s "$here/checks" ] || fail 'there are no headers'
    # shellcheck disable=SC2086
    xargs -P 2 -L 1 c++ $flags -fsyntax-only -x c++ /dev/null <"$here/checks"
    rm "$here"/*.gch # a quarter of a gigabyte
    ;;
deb)
    (cd "$build" && cpack -G DEB -B "$here/packages")
    for package in "$here"/packages/*.deb; do
        dpkg-deb -x "$package" "$here/root"
    done
    write_sample
    build_sample -DCMAKE_PREFIX_PATH="$here/root/usr"
    shows "$here/build/hello"
    ;;
*) fail "there is no way named $way" ;;
esac
