# shellcheck shell=sh disable=SC2154
# A program in an X server of its own, for the scripts that use it like a person. The sourcing script
# has set `ztedit`.

patience=20 # seconds; what is waited for comes in a fraction of one
skipped=77

# Skips the test where a tool is missing.
needs() {
    for tool in "$@"; do
        command -v "$tool" >/dev/null || {
            echo "There is no $tool"
            exit $skipped
        }
    done
}

needs Xvfb xdotool
folder=$(mktemp -d)
export LC_ALL=C.UTF-8 LANGUAGE= # windows are found by their English titles
export XDG_STATE_HOME="$folder/state" XDG_CONFIG_HOME="$folder/config" # not the user's own
server=
editor=

cleanup() {
    trap - EXIT
    [ -z "$editor" ] || kill -KILL "$editor" 2>/dev/null || true
    [ -z "$server" ] || kill -KILL "$server" 2>/dev/null || true
    wait
    rm -rf "$folder"
}
trap cleanup EXIT
trap 'exit 1' HUP INT TERM

fail() {
    echo "FAILED: $*"
    exit 1
}

# Runs a command until it succeeds; fails with `what` when that takes too long.
wait_for() {
    what=$1
    shift
    until=$(($(date +%s) + patience))
    until "$@" 2>/dev/null; do
        [ "$(date +%s)" -le $until ] || fail "$what"
        sleep 0.02
    done
}

start_server() {
    Xvfb -displayfd 3 -screen 0 1024x768x24 -noreset -nolisten tcp 3>"$folder/display" 2>"$folder/xvfb.log" &
    server=$!
    wait_for 'no X server' test -s "$folder/display"
    DISPLAY=:$(cat "$folder/display")
    export DISPLAY
}

start_program() {
    file=$1
    env -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb QT_QPA_PLATFORMTHEME= QT_SCALE_FACTOR=1 \
        QT_IM_MODULE=${input_method:-none} "$ztedit" --size 800x600 "$file" &
    editor=$!
}

# Gives the editor the focus, which without a window manager a click alone does not.
focus_window() {
    window=$(timeout $patience xdotool search --sync --onlyvisible --pid $editor) || fail 'no window'
    xdotool windowfocus --sync "$window"
    click 300 300
    keys ctrl+Home
}

start_editor() {
    start_program "$1"
    focus_window
}

quit_editor() {
    keys ctrl+q
    wait_for 'ztedit does not quit' sh -c "! kill -0 $editor || grep -q '^State:.Z' /proc/$editor/status"
    wait $editor || fail "ztedit left with code $?"
    editor=
}

keys() { xdotool key --delay 4 "$@"; }
types() { xdotool type --delay 4 "$1"; }
# A pixel of the window.
points_at() { xdotool mousemove --window "$window" "$1" "$2"; }

click() {
    points_at "$1" "$2"
    xdotool click 1
}

# Saves, and waits until the file is what the standard input says.
saves_as() {
    cat >"$folder/expected"
    keys ctrl+s
    until=$(($(date +%s) + patience))
    until cmp -s "$file" "$folder/expected"; do
        [ "$(date +%s)" -le $until ] || {
            diff -u "$folder/expected" "$file" | cat -A
            fail "$1: the file is not as expected"
        }
        sleep 0.02
    done
}
