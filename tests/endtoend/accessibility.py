"""Programs as assistive technology sees them: a tree of named things with states, actions, texts and values.

The accessibility bus is asked for everything anew, so nothing here is ever out of date. The program answers in its
event loop: a call that takes long is a window that is frozen.
"""

import time

from gi.repository import Gio, GLib

INTERFACE = "org.a11y.atspi."
ROOT = ("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
PATIENCE = 30  # seconds, for everything that is waited for
LONGEST_CALL = 5000  # milliseconds
PASSWORD_ROLE = 40
LABEL_FOR = 1
STATES = (
    "invalid active armed busy checked collapsed defunct editable enabled expandable expanded focusable focused "
    "has-tooltip horizontal iconified modal multi-line multiselectable opaque pressed resizable selectable selected "
    "sensitive showing single-line stale transient vertical visible manages-descendants indeterminate required "
    "truncated animated invalid-entry supports-autocompletion selectable-text is-default visited checkable has-popup "
    "read-only"
).split()


class Gone(Exception):
    """What was asked is not there any more."""


def wait_for(condition, what):
    """The first true value of condition(), which may be about things that come and go."""
    end = time.monotonic() + PATIENCE
    while True:
        try:
            result = condition()
        except Gone:
            result = None
        if result:
            return result
        if time.monotonic() > end:
            raise AssertionError(f"waited in vain for {what() if callable(what) else what}")
        time.sleep(0.02)


def _connect():
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    address = session.call_sync(
        "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None, Gio.DBusCallFlags.NONE, -1
    ).unpack()[0]
    flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
    return Gio.DBusConnection.new_for_address_sync(address, flags, None, None)


class Node:
    """One thing in the tree."""

    bus = None

    def __init__(self, reference):
        self.reference = tuple(reference)
        self._role = None

    def __eq__(self, other):
        return self.reference == other.reference

    def __hash__(self):
        return hash(self.reference)

    def __repr__(self):
        try:
            return f"{self.role} «{self.name}»"
        except Gone:
            return "something that is gone"

    def _call(self, interface, method, signature="()", arguments=()):
        Node.bus = Node.bus or _connect()
        service, path = self.reference
        try:
            answer = Node.bus.call_sync(
                service,
                path,
                interface,
                method,
                GLib.Variant(signature, arguments),
                None,
                Gio.DBusCallFlags.NONE,
                LONGEST_CALL,
            ).unpack()
        except GLib.Error as error:
            if error.matches(Gio.io_error_quark(), Gio.IOErrorEnum.TIMED_OUT):
                raise AssertionError(f"{method} was not answered: the program is frozen") from error
            raise Gone(error.message) from error
        return answer[0] if answer else None

    def _ask(self, interface, method, *arguments):
        return self._call(INTERFACE + interface, method, *arguments)

    def _property(self, interface, name):
        return self._call("org.freedesktop.DBus.Properties", "Get", "(ss)", (INTERFACE + interface, name))

    @property
    def name(self):
        return self._property("Accessible", "Name")

    @property
    def description(self):
        return self._property("Accessible", "Description")

    @property
    def role(self):
        if not self._role:
            self._role = self._ask("Accessible", "GetRoleName")
            # The toolkit has no word of its own for it.
            if self._role == "text" and self._ask("Accessible", "GetRole") == PASSWORD_ROLE:
                self._role = "password"
        return self._role

    @property
    def process(self):
        return self._call_bus("GetConnectionUnixProcessID")

    def _call_bus(self, question):
        bus = Node(("org.freedesktop.DBus", "/org/freedesktop/DBus"))
        return bus._call("org.freedesktop.DBus", question, "(s)", (self.reference[0],))

    @property
    def states(self):
        low, high = self._ask("Accessible", "GetState")
        bits = low | high << 32
        return {state for bit, state in enumerate(STATES) if bits >> bit & 1}

    @property
    def interfaces(self):
        names = self._ask("Accessible", "GetInterfaces")
        return {name[len(INTERFACE) :] for name in names if name.startswith(INTERFACE)}

    @property
    def children(self):
        return [Node(child) for child in self._ask("Accessible", "GetChildren")]

    def is_(self, *states):
        return set(states) <= self.states

    def labelled(self):
        """What this is the caption of."""
        relations = dict(self._ask("Accessible", "GetRelationSet"))
        return [Node(target) for target in relations.get(LABEL_FOR, [])]

    def walk(self):
        """This and everything below it that shows, from the top."""
        try:
            if self.role != "application" and not self.is_("showing"):
                return
            children = self.children
        except Gone:
            return
        yield self
        for child in children:
            yield from child.walk()

    def all(self, role=None, name=None):
        """Whatever shows below this. A name may be the beginning of one, with '…' at its end."""

        def is_meant(node):
            if role and node.role != role:
                return False
            return name is None or (node.name.startswith(name[:-1]) if name.endswith("…") else node.name == name)

        return [node for node in self.walk() if is_meant(node)]

    def find(self, role=None, name=None):
        """The first that shows, which is waited for."""
        return wait_for(lambda: next(iter(self.all(role, name)), None), f"{role or 'something'} «{name}»")

    @property
    def actions(self):
        return [action[0] for action in self._ask("Action", "GetActions")] if "Action" in self.interfaces else []

    def act(self, action):
        """Does it and does not wait until it is done: what opens a dialog is done only when that is closed."""
        wait_for(lambda: action in self.actions, lambda: f"the action {action} of {self}")
        service, path = self.reference
        index = GLib.Variant("(i)", (self.actions.index(action),))
        flags = Gio.DBusCallFlags.NONE
        Node.bus.call(service, path, INTERFACE + "Action", "DoAction", index, None, flags, -1, None, None)
        Node.bus.flush_sync()

    def press(self):
        self.act("Press")

    def toggle(self):
        self.act("Toggle")

    @property
    def text(self):
        return self._ask("Text", "GetText", "(ii)", (0, -1))

    @text.setter
    def text(self, text):
        assert self._ask("EditableText", "SetTextContents", "(s)", (text,)), f"{self} takes no text"

    @property
    def value(self):
        return self._property("Value", "CurrentValue")

    @value.setter
    def value(self, value):
        arguments = (INTERFACE + "Value", "CurrentValue", GLib.Variant("d", value))
        self._call("org.freedesktop.DBus.Properties", "Set", "(ssv)", arguments)

    @property
    def box(self):
        """Left, top, width and height on the screen."""
        on_screen = 0
        return self._ask("Component", "GetExtents", "(u)", (on_screen,))


def program(process):
    """The tree of a running program."""

    def look():
        for node in Node(ROOT).children:
            if node.process == process and node.children:
                return node
        return None

    return wait_for(look, f"the program {process} on the accessibility bus")


def type_key(name):
    """A key that goes to what has the keyboard, pressed by the assistive technology."""
    keys = {"Return": 0xFF0D, "Escape": 0xFF1B, "Down": 0xFF54, "Up": 0xFF52}
    by_symbol = 3
    devices = Node((ROOT[0], "/org/a11y/atspi/registry/deviceeventcontroller"))
    devices._ask("DeviceEventController", "GenerateKeyboardEvent", "(isu)", (keys[name], "", by_symbol))
