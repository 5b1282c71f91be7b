"""The programs that are tested, started as a user starts them."""

import json
import os
import pathlib
import signal
import subprocess
import unittest

import accessibility
from accessibility import wait_for
from focus import FocusGiver

MANAGER = os.environ["MANAGER"]
CTL = os.environ["CTL"]
FOLDER = pathlib.Path(os.environ["HOME"])


def start_desktop():
    """Once a program: the one who gives the keyboard to windows, and the registry that programs make themselves known to.
    Otherwise the first of them would come while that is still starting."""
    FocusGiver().start()
    wait_for(lambda: accessibility.Node(accessibility.ROOT).role, "the registry of accessible programs")


EXPECTED = (
    # When it is asked about what has gone a moment before: a row of a dialog that was closed.
    "qt.accessibility.atspi: WARNING Qt AtSpiAdaptor: Accessible invalid",
    # Of the database's own library, when the server ends the connection.
    "FATAL:  terminating connection due to administrator command",
)


class Ctl:
    """The command-line tool on one database."""

    def __init__(self, database):
        self.database = database

    def attempt(self, *arguments):
        command = [CTL, "--database", self.database, *arguments]
        return subprocess.run(command, capture_output=True, text=True, timeout=30, check=False)

    def run(self, *arguments):
        done = self.attempt(*arguments)
        assert done.returncode == 0, f"{arguments}: {done.stdout}{done.stderr}"
        return done.stdout

    def get(self, address):
        return self.run("get", address).strip()

    def set(self, address, text):
        self.run("set", f"{address}={text}")

    def history(self):
        return json.loads(self.run("history", "--json"))


class Manager:
    """A running manager. Its texts are found by the words that it shows."""

    def __init__(self, database, *arguments, **environment):
        self.process = subprocess.Popen(
            [MANAGER, "--database", database, *arguments], stderr=subprocess.PIPE, env={**os.environ, **environment}
        )
        self.tree = accessibility.program(self.process.pid)
        self.window = self.tree.find("frame")
        wait_for(lambda: any(shown.is_("active") for shown in self.tree.children), "a window to have the keyboard")
        # Until the settings are read, the window takes neither keys nor clicks.
        wait_for(lambda: self.window.find("menu bar").is_("sensitive"), "the settings to be read")

    def find(self, role=None, name=None):
        return self.tree.find(role, name)

    def dialog(self, title=None):
        return self.tree.find("dialog", title)

    def wait_closed(self, dialog):
        wait_for(lambda: dialog not in self.tree.children, f"{dialog} to close")

    def page(self, title):
        """Chooses a page in the list and gives what shows of it."""
        self.pages().find("list item", title).toggle()
        self.window.find("layered pane").find("panel", title)
        return self.window.find("layered pane")

    def pages(self):
        names = ("Страницы настроек", "Settings pages")
        return wait_for(
            lambda: next((node for node in self.window.all("list") if node.name in names), None), "the list of pages"
        )

    def editor(self, caption):
        """The input widget of that caption on the page that shows."""
        editors = ("spin box", "combo box", "text", "password", "check box", "push button")
        pane = self.window.find("layered pane")
        return wait_for(
            lambda: next((node for node in pane.walk() if node.name == caption and node.role in editors), None),
            f"the editor «{caption}»",
        )

    def choose(self, *menu):
        """An entry of the menu bar, by its words."""
        entries = self.window.find("menu bar").children
        for level, words in enumerate(menu):
            entry = next(node for node in entries if node.name.startswith(words))
            if level < len(menu) - 1:
                entries = entry.children[0].children
        entry.press()

    def quit(self):
        """Ends it as the session does, which asks nothing; the draft is left to the next start."""
        self.kill(signal.SIGTERM)

    def kill(self, number=signal.SIGKILL):
        self.process.send_signal(number)
        self.process.wait(timeout=accessibility.PATIENCE)

    def close(self):
        """What it has said meanwhile, once it is gone."""
        if self.process.poll() is None:
            self.kill()
        said = self.process.stderr.read().decode()
        self.process.stderr.close()
        return said


class TestCase(unittest.TestCase):
    """A new database for each test, and a manager on it that is gone afterwards and has had nothing to complain of."""

    count = 0

    def setUp(self):
        TestCase.count += 1
        self.database = self.new_database()
        self.ctl = Ctl(self.database)
        self.managers = []

    def new_database(self):
        database = str(FOLDER / f"installation-{TestCase.count}.db")
        Ctl(database).run("init", "--sample")
        return database

    def start(self, *arguments, **environment):
        manager = Manager(self.database, *(arguments or ("--language", "ru")), **environment)
        self.managers.append(manager)
        return manager

    def tearDown(self):
        said = [line for manager in self.managers for line in manager.close().splitlines()]
        self.assertEqual([], [line for line in said if not line.startswith(EXPECTED)])

    def wait_stored(self, address, text):
        wait_for(lambda: self.ctl.get(address) == text, lambda: f"{address}={text}, which is {self.ctl.get(address)}")
