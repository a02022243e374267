#!/bin/sh
# Brings the files of texts in a folder up to date with the sources: lupdate.sh LUPDATE FOLDER
# The English files have the plural forms alone.
set -eu
lupdate=$1
folder=$(cd "$2" && pwd)
cd "$(dirname -- "$(readlink -f -- "$0")")/.."

# An enumeration that is only declared is taken for a class that has not begun, whose body is the
# next one's: the texts of that are found in no class then. So the tool reads copies without them.
copies=$(mktemp -d)
trap 'rm -rf "$copies"' EXIT
cp -R toolkit controls apps "$copies"
find "$copies" -name '*.h' -exec sed -i 's/^enum class [A-Za-z]* : [a-z0-9]*;$//' {} +

# Files of one name, and the folders of their sources.
update() {
    name=$1
    shift
    for file in "$folder/$name"_*.ts; do
        case $file in
        *_en.ts) plural=-pluralonly ;;
        *) plural= ;;
        esac
        # shellcheck disable=SC2086 # none, or one word
        (cd "$copies" && "$lupdate" -silent -locations none -no-obsolete $plural "$@" -ts "$file")
    done
}

update ztcodeeditor toolkit controls
update ztedit apps/ztedit
