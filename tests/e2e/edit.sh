#!/bin/sh
# Edits files in ztedit with the keys and the mouse of an X server of its own, and compares what is
# on disk after each save with what it has to be: edit.sh ZTEDIT
set -eu

ztedit=$1
. "$(dirname -- "$0")/session.sh"

typing() {
    printf 'sub Greet\n' >"$folder/greet.vbs"
    start_editor "$folder/greet.vbs"

    # Enter goes on under the first blank of the line above; two times Backspace leads back.
    keys ctrl+End Return
    types '  say 1'
    keys Return
    types 'say 2'
    keys Return
    types 'say 3'
    keys Return BackSpace BackSpace
    types 'end sub'
    printf 'sub Greet\n  say 1\n  say 2\n  say 3\nend sub\n' | saves_as 'typed'

    keys Up Up Home shift+Down ctrl+x
    printf 'sub Greet\n  say 1\n  say 3\nend sub\n' | saves_as 'cut'
    keys Up ctrl+v
    printf 'sub Greet\n  say 2\n  say 1\n  say 3\nend sub\n' | saves_as 'pasted'
    keys ctrl+z
    printf 'sub Greet\n  say 1\n  say 3\nend sub\n' | saves_as 'undone'

    # The commands run in the order of the keys, also when all of these are there at once.
    kill -STOP "$editor"
    keys End shift+Left shift+Left shift+Left shift+Left shift+Left ctrl+x a ctrl+v b ctrl+v
    kill -CONT "$editor"
    printf 'sub Greet\n  asay 1bsay 1\n  say 3\nend sub\n' | saves_as 'cut and pasted while typing'
    kill -STOP "$editor"
    keys ctrl+z ctrl+z x
    kill -CONT "$editor"
    printf 'sub Greet\n  asay 1x\n  say 3\nend sub\n' | saves_as 'undone while typing'
    quit_editor
}

# Where a click puts the caret, in `line` and `column`, both from 1: the mark that is typed there is
# found in the file.
find_caret_of_click() {
    click "$1" "$2"
    types '^'
    keys ctrl+s
    wait_for 'a click leads nowhere' grep -q '\^' "$file"
    line=$(grep -n '\^' "$file" | cut -d: -f1)
    column=$(awk '/\^/ { print index($0, "^") }' "$file")
    keys ctrl+z
    saves_as 'a click' <"$folder/grid"
}

pointing() {
    awk 'BEGIN { for (i = 10; i < 45; ++i)
        print i ":abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789" }' >"$folder/grid"
    cp "$folder/grid" "$folder/grid.txt"
    start_editor "$folder/grid.txt"

    find_caret_of_click 160 360
    last=$line
    find_caret_of_click 160 180
    first=$line
    if [ $((last - first)) -le 3 ] || [ "$column" -le 3 ]; then
        fail "lines $first and $last, column $column: too close to tell a drag"
    fi

    # Down a column, so that it does not matter how many of the moves arrive.
    points_at 160 180
    xdotool mousedown 1
    points_at 160 240
    points_at 160 360
    xdotool mouseup 1
    keys ctrl+x
    awk -v first="$first" -v last="$last" -v column="$column" '
        NR == first { printf "%s", substr($0, 1, column - 1) }
        NR == last { print substr($0, column) }
        NR < first || NR > last' "$folder/grid" | saves_as 'dragged and cut'
    keys ctrl+z
    saves_as 'undone' <"$folder/grid"
    quit_editor
}

has_journal() { ls "$XDG_STATE_HOME"/ztedit/*.journal >/dev/null; }
has_no_journal() { ! has_journal; }
focuses() {
    dialog=$(xdotool search --onlyvisible --name "$1") && xdotool windowfocus --sync "$dialog"
}

# What a crash took comes back when Enter is pressed, and is asked about only once.
crashing() {
    printf 'saved\n' >"$folder/crash.txt"
    start_editor "$folder/crash.txt"
    types 'not '
    wait_for 'nothing is written down' has_journal
    sleep 1 # for the last key
    kill -KILL "$editor"
    wait "$editor" || true
    start_program "$folder/crash.txt"
    wait_for 'nothing is offered' focuses '^Restore'
    keys Return
    wait_for 'the dialog stays' sh -c '! xdotool search --onlyvisible --name "^Restore"'
    focus_window
    printf 'not saved\n' | saves_as 'restored'
    wait_for 'the journal stays' has_no_journal
    quit_editor
    start_editor "$folder/crash.txt"
    quit_editor
}

start_server
typing
pointing
crashing
