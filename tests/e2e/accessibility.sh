#!/bin/sh
# An assistive tool reads and edits in ztedit, on a session bus and an X server of its own:
# accessibility.sh ZTEDIT
set -eu

ztedit=$1
here=$(dirname -- "$(readlink -f -- "$0")")

# On a bus of its own, so that no tool of the desktop is in the way.
if [ -z "${ZT_OWN_BUS-}" ] && command -v dbus-run-session >/dev/null; then
    export ZT_OWN_BUS=1
    exec dbus-run-session -- "$0" "$ztedit"
fi

. "$here/session.sh"
needs dbus-run-session
skip() {
    echo "$*"
    exit $skipped
}
python=
for tried in python3 /usr/bin/python3; do # the system's packages may belong to the second one
    "$tried" -c 'import pyatspi' 2>/dev/null && python=$tried && break
done
[ -n "$python" ] || skip 'There is no pyatspi'
[ -e /usr/share/dbus-1/services/org.a11y.Bus.service ] || skip 'There is no bus for assistive tools'

export XDG_RUNTIME_DIR="$folder/run" QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
mkdir -m 700 "$XDG_RUNTIME_DIR"
start_server
printf 'begin\n  x := 1;\nend.\n' >"$folder/unit.pas"
start_editor "$folder/unit.pas"
timeout 60 "$python" "$here/accessibility.py" "$editor"
