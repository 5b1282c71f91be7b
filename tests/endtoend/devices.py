"""The mouse, the keyboard and the screen."""

import contextlib
import subprocess

from Xlib import X, display, error

from accessibility import wait_for

LEFT, MIDDLE, RIGHT, WHEEL_UP, WHEEL_DOWN = range(1, 6)


def _do(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True, timeout=30)


def _resting_place(node):
    """Its box, once that stays where it is: a page that has just come is still being laid out."""
    boxes = []

    def is_at_rest():
        boxes.append(node.box)
        return len(boxes) >= 4 and len(set(boxes[-4:])) == 1

    wait_for(is_at_rest, lambda: f"{node} to lie still")
    return boxes[-1]


def click(node, button=LEFT):
    """The middle of it."""
    left, top, width, height = _resting_place(node)
    _do("mousemove", left + width // 2, top + height // 2, "click", button)


def press(*keys):
    """Key after key, each with its modifiers: "ctrl+s"."""
    _do("key", "--delay", 20, *keys)


def write(text):
    """As it is typed, in place of what is selected."""
    _do("type", "--delay", 20, text)


def replace(text):
    press("ctrl+a")
    write(text)


def brightness(node):
    """Of its place on the screen, on the average, from 0 for black to 255."""
    with contextlib.closing(display.Display()) as screen:
        pixels = screen.screen().root.get_image(*node.box, X.ZPixmap, 0xFFFFFF).data
    colours = [value for place, value in enumerate(pixels) if place % 4 != 3]
    return sum(colours) / len(colours)


def popup_menus():
    """The windows of those that are open, which the accessible tree does not have."""
    with contextlib.closing(display.Display()) as screen:
        menu = screen.intern_atom("_NET_WM_WINDOW_TYPE_POPUP_MENU")
        return [window.id for window in screen.screen().root.query_tree().children if _is_shown(window, menu)]


def _is_shown(window, kind):
    try:
        kinds = window.get_full_property(window.display.get_atom("_NET_WM_WINDOW_TYPE"), X.AnyPropertyType)
        return bool(kinds) and kind in kinds.value and window.get_attributes().map_state == X.IsViewable
    except error.XError:  # it is gone
        return False
