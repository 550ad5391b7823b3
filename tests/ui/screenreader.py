"""What a screen reader finds in the running program: it works the program through the system's
accessibility tree alone, on a display and a session bus of its own.

Usage: dbus-run-session -- screenreader.py PROGRAM
"""

import os
import subprocess
import sys
import tempfile
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

warnings.simplefilter("ignore", DeprecationWarning)

PATIENCE = 60  # seconds
heard = []


def things(parent):
    """Everything below a thing of the tree, windows in front first."""
    for index in reversed(range(parent.get_child_count())):
        child = parent.get_child_at_index(index)
        if child:
            yield child
            yield from things(child)


def names():
    return sorted({thing.get_name() for thing in things(Atspi.get_desktop(0))} - {""})


def until(find, what):
    """Waits for what is found, while events come in."""
    end = time.monotonic() + PATIENCE
    context = GLib.MainContext.default()
    GLib.timeout_add(50, lambda: True)
    while time.monotonic() < end:
        try:
            found = find()
            if found:
                return found
        except GLib.Error:
            pass  # the tree changed while it was read
        context.iteration(True)
    sys.exit(f"{what} did not come; there are: " + "\n".join(names()))


def named(name, role):
    def find():
        for thing in things(Atspi.get_desktop(0)):
            if thing.get_name() == name and thing.get_role() == role:
                return thing
        return None

    return until(find, f"{role.value_nick} {name}")


def press(name, role=Atspi.Role.PUSH_BUTTON):
    button = named(name, role)
    for index in range(button.get_n_actions()):
        if button.get_action_name(index) == "Press":
            return button.do_action(index)
    sys.exit(f"{name} has no action Press")


def take_bets():
    press("OK")  # the drive
    press("No")  # the printer
    press("GO TO MENU")
    press("Place a Bet")
    press("Make bet amount $5")
    named("Bet amount, 5 dollars", Atspi.Role.PUSH_BUTTON)
    press("SECOND WIND, number 1A, win, no bet")
    named("SECOND WIND, number 1A, win, 5 dollars", Atspi.Role.PUSH_BUTTON)
    press("Add 0.25 dollars")
    named("Bet amount, 5.25 dollars", Atspi.Role.PUSH_BUTTON)
    press("Clear Sheet Entries")
    note = "The sheet is empty. Undo brings the entries back until the next one."
    named(note, Atspi.Role.ALERT)
    until(lambda: note in heard, "the note as an event")
    press("Multi Bets")
    press("Race 1", Atspi.Role.RADIO_BUTTON)
    press("EXACTA", Atspi.Role.CHECK_BOX)
    named("Exacta in Race1: Choose a first horse on line 1", Atspi.Role.LABEL)
    press("Post 1: number 1A SECOND WIND, line 1, not selected")
    named("Post 1: number 1A SECOND WIND, line 1, selected", Atspi.Role.PUSH_BUTTON)


def main():
    listener = Atspi.EventListener.new(lambda event: heard.append(event.source.get_name()))
    listener.register("object:property-change:accessible-name")
    reading, writing = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(writing)], pass_fds=[writing],
                              stderr=subprocess.DEVNULL)
    os.close(writing)
    display = ":" + os.read(reading, 20).decode().strip()
    with tempfile.TemporaryDirectory() as home:
        event = os.path.join(home, "trelawn", "drives", "C", "Trelawn")
        os.makedirs(event)
        for name in ("Horses Race1", "Horsesbackup Race1"):
            with open(os.path.join(event, name), "wb") as file:
                file.write(b'1,0,"1A","SECOND WIND"\r\n')
        environment = dict(os.environ, DISPLAY=display, HOME=home, XDG_DATA_HOME=home,
                           QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        program = subprocess.Popen([sys.argv[1]], env=environment)
        try:
            take_bets()
        finally:
            for started in (program, server):
                started.terminate()
                started.wait()


main()
