"""What a person sees and does at a computer: the screen's controls by their accessible names, real keys and clicks."""

import os
import subprocess
import time
from contextlib import contextmanager
from dataclasses import dataclass

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 30
INTERVAL = 0.1


class Missing(Exception):
    """What was waited for has not come."""


@contextmanager
def screen():
    """A screen of its own, for this program and those that it starts."""
    number, told = os.pipe()
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(told), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"], pass_fds=[told]
    )
    os.close(told)
    try:
        with os.fdopen(number) as answer:
            os.environ["DISPLAY"] = ":" + answer.readline().strip()
        yield
    finally:
        server.terminate()
        server.wait()


def wait_for(what, condition):
    """The condition's first answer that is not empty."""
    answer = patiently(PATIENCE, condition)
    if not answer:
        raise Missing(f"waited too long for {what}; on the screen:\n{on_screen()}")
    return answer


def patiently(seconds, condition):
    """As `wait_for`; nothing when that takes longer."""
    end = time.monotonic() + seconds
    while True:
        try:
            if answer := condition():
                return answer
        except GLib.Error:
            pass  # what was looked at has gone meanwhile
        if time.monotonic() > end:
            return None
        time.sleep(INTERVAL)


def start(*command):
    """A program whose controls can be found by their names."""
    named = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QTWEBENGINE_CHROMIUM_FLAGS": "--force-renderer-accessibility"}
    return subprocess.Popen(command, env=os.environ | named)


def find(role, name):
    """The visible control of that role ("button") whose name or description that is, once it stays in its place."""

    def condition():
        control = next((seen.control for seen in look() if seen.role == role and name in seen.names), None)
        if control is None:
            return None
        place = place_of(control)
        time.sleep(INTERVAL)
        return control if is_showing(control) and place_of(control) == place else None

    return wait_for(f'the {role} "{name}"', condition)


def click(control):
    x, y, width, height = place_of(control)
    xdotool("mousemove", x + width // 2, y + height // 2, "click", 1)


def type_into(window):
    """Keys go to that window from now on. There is no window manager to see to it."""
    xdotool("search", "--onlyvisible", "--name", window, "windowfocus", "--sync")


def press(*keys):
    xdotool("key", *keys)


def enter(text):
    xdotool("type", "--", text)


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)


@dataclass
class Seen:
    control: Atspi.Accessible
    depth: int
    role: str
    names: tuple


def look():
    """Every control that is on the screen, from the outermost to the innermost; not the cells of tables."""
    waiting = [(Atspi.get_desktop(0), 0)]
    while waiting:
        control, depth = waiting.pop()
        try:
            role = control.get_role_name().removeprefix("push ")  # which older systems say in front of "button"
            if is_showing(control):
                yield Seen(control, depth, role, (control.get_name(), control.get_description()))
            if role != "table":
                children = [control.get_child_at_index(i) for i in range(control.get_child_count())]
                waiting += [(child, depth + 1) for child in reversed(children) if child]
        except GLib.Error:
            continue  # it has gone meanwhile


def place_of(control):
    """Left, top, width and height on the screen; nothing for a control that has no place."""
    component = control.get_component_iface()
    if not component:
        return None
    extents = component.get_extents(Atspi.CoordType.SCREEN)
    return extents.x, extents.y, extents.width, extents.height


def is_showing(control):
    place = place_of(control)
    return place is not None and place[2] > 0 and control.get_state_set().contains(Atspi.StateType.SHOWING)


def on_screen():
    return "\n".join(f'{"  " * seen.depth}{seen.role} "{seen.names[0]}"' for seen in look())
