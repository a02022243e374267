#!/bin/sh
# An assistive tool reads and edits in ztedit, on a session bus and an X server of its own:
# accessibility.sh ZTEDIT
set -eu

ztedit=$1
here=$(dirname -- "$(readlink -f -- "$0")")
patience=20 # seconds; what is waited for comes in a fraction of one
skipped=77

skip() {
    echo "$*"
    exit $skipped
}

for tool in Xvfb xdotool dbus-run-session; do
    command -v $tool >/dev/null || skip "There is no $tool"
done
python=
for tried in python3 /usr/bin/python3; do # the system's packages may belong to the second one
    "$tried" -c 'import pyatspi' 2>/dev/null && python=$tried && break
done
[ -n "$python" ] || skip 'There is no pyatspi'
[ -e /usr/share/dbus-1/services/org.a11y.Bus.service ] || skip 'There is no bus for assistive tools'

# On a bus of its own, so that no tool of the desktop is in the way.
if [ -z "${ZT_OWN_BUS-}" ]; then
    export ZT_OWN_BUS=1
    exec dbus-run-session -- "$0" "$ztedit"
fi

folder=$(mktemp -d)
export XDG_STATE_HOME="$folder/state" XDG_CONFIG_HOME="$folder/config" # not the user's own
export XDG_RUNTIME_DIR="$folder/run"
export LC_ALL=C.UTF-8 LANGUAGE= # things are found by their English names
mkdir -m 700 "$XDG_RUNTIME_DIR"
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

Xvfb -displayfd 3 -screen 0 1024x768x24 -noreset -nolisten tcp 3>"$folder/display" 2>"$folder/xvfb.log" &
server=$!
until=$(($(date +%s) + patience))
until [ -s "$folder/display" ]; do
    [ "$(date +%s)" -le $until ] || fail 'no X server'
    sleep 0.02
done
DISPLAY=:$(cat "$folder/display")
export DISPLAY

printf 'begin\n  x := 1;\nend.\n' >"$folder/unit.pas"
env -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb QT_QPA_PLATFORMTHEME= QT_SCALE_FACTOR=1 QT_IM_MODULE=none \
    QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 "$ztedit" --size 800x600 "$folder/unit.pas" &
editor=$!
window=$(timeout $patience xdotool search --sync --onlyvisible --pid $editor) || fail 'no window'
xdotool windowfocus --sync "$window"
xdotool mousemove --window "$window" 300 300 click 1
xdotool key --delay 4 ctrl+Home
timeout 60 "$python" "$here/accessibility.py" "$editor"
