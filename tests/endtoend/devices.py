"""The mouse and the keyboard."""

import subprocess

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
