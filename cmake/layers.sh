#!/bin/sh
# Fails when a file includes one of a layer above its own, or when units include each other in a
# circle. A unit is a header with the source of the same name.
set -eu
cd "$(dirname -- "$(readlink -f -- "$0")")/.."

# Each layer and the ones that it may include besides itself, lowest first.
layers='toolkit/core
toolkit/ui          toolkit/core
toolkit/db          toolkit/core
controls/parsers    toolkit/core
controls/text       controls/parsers toolkit/core
controls/view       controls/text controls/parsers toolkit/ui toolkit/core
controls/codeeditor controls/view controls/text controls/parsers toolkit/ui toolkit/core
controls/dbeditor   controls/codeeditor controls/view controls/text controls/parsers toolkit/db toolkit/ui toolkit/core
controls/package    controls/dbeditor controls/codeeditor controls/view controls/text controls/parsers toolkit/db toolkit/ui toolkit/core
designer            controls/dbeditor controls/codeeditor controls/view controls/text controls/parsers toolkit/db toolkit/ui toolkit/core
apps/ztedit         controls/dbeditor controls/codeeditor controls/view controls/text controls/parsers toolkit/db toolkit/ui toolkit/core'

files=$(mktemp)
trap 'rm -f "$files"' EXIT
find toolkit controls apps designer \( -name '*.h' -o -name '*.cpp' \) | sort >"$files"

# "file included-header" for each quoted include, checked against the table; what is left for the
# search of circles is "unit included-unit".
units=$(grep -H '^#include "' $(cat "$files") | sed 's/:#include "\([^"]*\)".*/ \1/' |
    awk -v layers="$layers" -v files="$files" '
        function folder(path) { sub("/[^/]*$", "", path); return path }
        function unit(path) { sub("^.*/", "", path); sub("[.][a-z]*$", "", path); return path }
        BEGIN {
            count = split(layers, rows, "\n")
            for (i = 1; i <= count; ++i) {
                fields = split(rows[i], names, " ")
                for (k = 1; k <= fields; ++k)
                    may[names[1], names[k]] = 1
                known[names[1]] = 1
            }
            while ((getline path < files) > 0) {
                home[path] = folder(path)
                sub("^.*/", "", path)
            }
            for (path in home) {
                name = path
                sub("^.*/", "", name)
                place[name] = home[path]
            }
        }
        {
            from = folder($1)
            to = place[$2]
            if (!(from in known)) {
                print from ": no layer of this name is in cmake/layers.sh" > "/dev/stderr"
                bad = 1
            } else if (to == "") {
                print $1 ": there is no " $2 > "/dev/stderr"
                bad = 1
            } else if (!((from, to) in may)) {
                print $1 ": " from " must not include " $2 " of " to > "/dev/stderr"
                bad = 1
            }
            if (unit($1) != unit($2))
                print unit($1), unit($2)
        }
        END { exit bad }')
printf '%s\n' "$units" | tsort >/dev/null
