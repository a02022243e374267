"""An assistive tool: finds the editor of a running program through AT-SPI, reads it, listens to what
is typed, and edits through the interface. Prints what it sees; leaves with 1 where it is not what it
has to be. The arguments are the program's process and the id of its window."""

import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import GLib  # noqa: E402
import pyatspi  # noqa: E402

PATIENCE = 15  # seconds; what is waited for comes in a fraction of one
process = int(sys.argv[1])
events = []


def turn():
    """Lets what has come in be seen."""
    context = GLib.MainContext.default()
    while context.iteration(False):
        pass
    time.sleep(0.01)


def wait_for(what, condition):
    until = time.monotonic() + PATIENCE
    while time.monotonic() < until:
        try:
            found = condition()
        except GLib.Error:  # gone meanwhile, or not there yet
            found = None
        if found:
            return found
        turn()
    print(f"FAILED: {what}; the text is {text.getText(0, -1)!r}, events are {events}" if text
          else f"FAILED: {what}")
    sys.exit(1)


def descendants(accessible):
    for child in accessible or ():
        if child is not None:
            yield child
            yield from descendants(child)


def find_editor():
    for program in pyatspi.Registry.getDesktop(0):
        if program is not None and program.get_process_id() == process:
            for child in descendants(program):
                if child.getRole() == pyatspi.ROLE_TEXT and child.name:
                    states = child.getState()
                    if states.contains(pyatspi.STATE_MULTI_LINE) and \
                            states.contains(pyatspi.STATE_SHOWING):
                        return child
    return None


def keys(*names):
    subprocess.run(["xdotool", "key", "--delay", "4", *names], check=True)


def remember(event):
    if event.source == editor:
        events.append((str(event.type), event.detail1, event.detail2, event.any_data))


def told(kind, first=None):
    """Whether an event has come of that kind, and with that first number."""
    return lambda: [e for e in events if e[0].startswith(kind) and first in (None, e[1])]


def check(what, got, wanted):
    print(f"{what}: {got!r}")
    if got != wanted:
        print(f"FAILED: {what} has to be {wanted!r}")
        sys.exit(1)


text = None
editor = wait_for("no editor is found", find_editor)
text = editor.queryText()
print("role:", editor.getRoleName())
print("name:", repr(editor.name))
states = editor.getState()
check("states", [s for s in ("EDITABLE", "FOCUSABLE", "MULTI_LINE", "READ_ONLY")
                 if states.contains(getattr(pyatspi, "STATE_" + s))],
      ["EDITABLE", "FOCUSABLE", "MULTI_LINE"])
check("text", text.getText(0, -1), "begin\n  x := 1;\nend.")
check("characters", text.characterCount, 20)
check("caret", text.caretOffset, 0)
check("line at 8", text.getTextAtOffset(8, pyatspi.TEXT_BOUNDARY_LINE_START), ("  x := 1;\n", 6, 16))
check("word at 1", text.getTextAtOffset(1, pyatspi.TEXT_BOUNDARY_WORD_START), ("begin", 0, 5))
attributes, start, end = text.getAttributes(1)
print(f"attributes at 1, {start} to {end}: {attributes}")
check("run at 1", (start, end), (0, 5))
first = text.getCharacterExtents(0, pyatspi.DESKTOP_COORDS)
second = text.getCharacterExtents(1, pyatspi.DESKTOP_COORDS)
check("cells touch", (second[0] - first[0], second[1]), (first[2], first[1]))
check("offset in a cell", text.getOffsetAtPoint(second[0] + 2, second[1] + 2,
                                                pyatspi.DESKTOP_COORDS), 1)

pyatspi.Registry.registerEventListener(
    remember, "object:text-changed", "object:text-caret-moved", "object:text-selection-changed")
turn()
keys("End")
wait_for("no caret is told", told("object:text-caret-moved", 5))
keys("y")
wait_for("nothing typed is told", told("object:text-changed:insert", 5))
keys("BackSpace")
wait_for("nothing erased is told", told("object:text-changed:delete", 5))
keys("shift+Down")
wait_for("no selection is told", told("object:text-selection-changed"))
print("events:")
for event in events:
    print("   ", *event)
check("selection", text.getSelection(0), (5, 11))

editor.queryEditableText().insertText(6, "-- told\n", 8)
wait_for("nothing is inserted", lambda: text.getText(0, 14) == "begin\n-- told\n")
check("text", text.getText(0, -1), "begin\n-- told\n  x := 1;\nend.")
text.setCaretOffset(3)
wait_for("the caret stays", lambda: text.caretOffset == 3)
keys("ctrl+z")
wait_for("the edit is not undone", lambda: text.getText(0, -1) == "begin\n  x := 1;\nend.")
print("undone:", repr(text.getText(0, -1)))
