#!/bin/sh
# Types with dead keys and Compose, drags text and uses the primary selection in ztedit, on an X
# server of its own: input.sh ZTEDIT
set -eu

ztedit=$1
input_method=compose # Qt's own, which reads the table of the locale
. "$(dirname -- "$0")/session.sh"
needs setxkbmap xclip
export LC_ALL=C.UTF-8

composing() {
    printf 'one\n' >"$folder/compose.txt"
    start_editor "$folder/compose.txt"
    keys dead_acute e
    keys Multi_key s s
    keys dead_acute space
    printf "éß'one\n" | saves_as 'composed'
    keys ctrl+z
    printf 'one\n' | saves_as 'undone'
    quit_editor
}

selects() { [ "$(timeout 5 xclip -o -selection primary)" = "$1" ]; }

primary() {
    printf 'one two\nthree\n' >"$folder/primary.txt"
    start_editor "$folder/primary.txt"
    keys shift+Right shift+Right shift+Right
    wait_for 'a selection is not the primary one' selects one
    printf 'X\nY' | xclip -i -selection primary
    points_at 600 60 # right of a line's end, which it goes behind
    xdotool click 2
    keys ctrl+End
    types '!'
    keys ctrl+s
    wait_for 'the middle button inserts nothing' grep -q Y "$file"
    keys ctrl+z ctrl+z
    printf 'one two\nthree\n' | saves_as 'undone'
    quit_editor
}

# A line that is dragged into another one leaves an empty line behind.
dragging() {
    awk 'BEGIN { for (i = 10; i < 45; ++i) print i ":abcdefghijklmnopqrstuvwxyz" }' >"$folder/lines"
    cp "$folder/lines" "$folder/drag.txt"
    start_editor "$folder/drag.txt"
    click 160 180
    keys Home Home shift+End
    points_at 160 180
    xdotool mousedown 1
    for y in 190 200 220 300 359 360; do
        points_at 160 $y
        sleep 0.05 # for the desktop's answers
    done
    xdotool mouseup 1
    sleep 0.2
    keys ctrl+s
    wait_for 'a line does not move' grep -q '^$' "$file"
    grep -Eq '^[0-9]+:[a-z]*[0-9]+:[a-z]+$' "$file" || fail 'what was dragged is nowhere'
    keys ctrl+z
    saves_as 'undone' <"$folder/lines"
    quit_editor
}

start_server
setxkbmap us -variant intl
composing
primary
dragging
