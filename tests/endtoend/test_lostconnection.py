"""The manager on a server that goes away and comes back. tests/withserver.sh names the server."""

import contextlib
import os
import subprocess
import unittest

import programs
from accessibility import wait_for
from devices import click, press, replace
from programs import Ctl, TestCase

DAYS = "Срок действия пароля (дней)"
NOTICE = "Изменения можно будет сохранить, когда связь восстановится."


class Server:
    """The cluster that was made for this test."""

    def do(self, action, *options):
        cluster = [os.environ["PGVERSION"], "regress"]
        subprocess.run(["pg_ctlcluster", *cluster, action, *options], check=True, capture_output=True, timeout=60)

    def stop(self):
        self.do("stop", "-m", "immediate")

    def start(self):
        self.do("start")

    def query(self, database, *statements):
        # Never held up by what holds up the others.
        statements = ["SET synchronous_commit = off", *statements]
        command = ["psql", "-qAt", *(f"-c{statement}" for statement in statements), database]
        return subprocess.run(command, check=True, capture_output=True, text=True, timeout=60).stdout.strip()

    def drop_connections(self, database):
        others = f"FROM pg_stat_activity WHERE pid <> pg_backend_pid() AND datname = '{database}'"
        self.query("postgres", f"SELECT pg_terminate_backend(pid) {others}")

    def let_in(self, database, allowed):
        self.query("postgres", f"ALTER DATABASE {database} ALLOW_CONNECTIONS {allowed}")

    @contextlib.contextmanager
    def commits_last(self):
        """What is committed is stored at once, but nobody is told so: a copy is waited for that does not come."""
        self.query("postgres", "ALTER SYSTEM SET synchronous_standby_names = 'nobody'", "SELECT pg_reload_conf()")
        try:
            yield "SyncRep"
        finally:
            self.query("postgres", "ALTER SYSTEM RESET synchronous_standby_names", "SELECT pg_reload_conf()")

    @contextlib.contextmanager
    def commits_wait(self, database):
        """Nothing is stored yet when a commit is held up."""
        self.query("postgres", "CREATE ROLE hold_up")  # what can be taken away from another database
        self.query(
            database,
            "CREATE FUNCTION hold_up() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN "
            "IF EXISTS (SELECT FROM pg_roles WHERE rolname = 'hold_up') THEN PERFORM pg_sleep(3600); END IF; "
            "RETURN NULL; END $$",
            "CREATE CONSTRAINT TRIGGER hold_up AFTER INSERT ON history DEFERRABLE INITIALLY DEFERRED "
            "FOR EACH ROW EXECUTE FUNCTION hold_up()",
        )
        try:
            yield "PgSleep"
        finally:
            self.query("postgres", "DROP ROLE hold_up")

    def is_held_up(self, database, event):
        waiting = f"FROM pg_stat_activity WHERE datname = '{database}' AND wait_event = '{event}' AND query = 'COMMIT'"
        return self.query("postgres", f"SELECT count(*) {waiting}") == "1"


class LostConnection(TestCase):
    def new_database(self):
        self.name = f"installation_{TestCase.count}"
        subprocess.run(["createdb", self.name], check=True, timeout=60)
        host, port, user = (os.environ[name] for name in ("PGHOST", "PGPORT", "PGUSER"))
        database = f"postgresql://{user}@{host}:{port}/{self.name}"
        Ctl(database).run("init", "--sample")
        return database

    def notices(self, manager):
        return [label for label in manager.window.all("label") if label.name.endswith(NOTICE)]

    def edit(self, manager, value):
        editor = manager.editor(DAYS)
        click(editor)
        replace(str(value))
        wait_for(lambda: editor.value == value, f"the value {value}")
        manager.find("label", "Изменено настроек: 1")

    def save(self, manager):
        press("ctrl+s")
        review = manager.dialog("Изменения перед сохранением")
        press("Return")
        manager.wait_closed(review)

    def test_a_save_waits_for_the_connection(self):
        server = Server()
        manager = self.start()
        manager.page("Пользователи")
        server.stop()
        wait_for(lambda: self.notices(manager), "the notice of a lost connection")
        self.edit(manager, 60)
        self.save(manager)
        manager.find("label", "Нет связи с базой данных. Изменения запишутся, когда она восстановится.")
        server.start()
        manager.find("label", "Несохранённых изменений нет")
        self.assertEqual("60", self.ctl.get("PT_PASSWORD_EXPIRED"))

    def test_editing_goes_on_and_is_saved_afterwards(self):
        server = Server()
        manager = self.start()
        manager.page("Пользователи")
        server.stop()
        wait_for(lambda: self.notices(manager), "the notice of a lost connection")
        self.edit(manager, 60)
        self.assertTrue(self.notices(manager))
        server.start()
        wait_for(lambda: not self.notices(manager), "the notice to go")
        self.assertEqual("90", self.ctl.get("PT_PASSWORD_EXPIRED"))
        self.save(manager)
        manager.find("label", "Несохранённых изменений нет")
        self.assertEqual("60", self.ctl.get("PT_PASSWORD_EXPIRED"))

        server.drop_connections(self.name)
        self.edit(manager, 70)
        self.save(manager)
        manager.find("label", "Несохранённых изменений нет")
        self.assertEqual("70", self.ctl.get("PT_PASSWORD_EXPIRED"))
        self.ctl.set("PT_PASSWORD_EXPIRED", "80")
        wait_for(lambda: manager.editor(DAYS).value == 80, "what others save after the loss")

    def lose_answer(self, manager, held_up):
        """Ends the connection of a save that is being committed."""
        server = Server()
        self.edit(manager, 60)
        with held_up as event:
            self.save(manager)
            wait_for(lambda: server.is_held_up(self.name, event), "the commit to be held up")
            manager.find("label", "Сохранение…")
            server.let_in(self.name, False)
            server.drop_connections(self.name)
            manager.find("label", "Выясняется, записаны ли изменения…")
            self.assertEqual([], manager.window.all("label", "Несохранённых изменений нет"))
        server.let_in(self.name, True)

    def check_saved(self, attempts):
        """Once only. The numbers of attempts that came to nothing are not used again."""
        self.assertEqual("60", self.ctl.get("PT_PASSWORD_EXPIRED"))
        self.assertEqual(["vxsettings-manager"], [record["program"] for record in self.ctl.history()])
        self.assertEqual(str(attempts), Server().query(self.name, "SELECT id FROM history"))

    def test_a_save_whose_answer_is_lost_is_found_to_be_stored(self):
        manager = self.start()
        manager.page("Пользователи")
        self.lose_answer(manager, Server().commits_last())
        manager.find("label", "Несохранённых изменений нет")
        self.check_saved(attempts=1)

    def test_a_save_whose_answer_is_lost_is_found_not_to_be_stored(self):
        manager = self.start()
        manager.page("Пользователи")
        self.lose_answer(manager, Server().commits_wait(self.name))
        manager.find("label", "Несохранённых изменений нет")  # as it is saved once more
        self.check_saved(attempts=2)


if __name__ == "__main__":
    programs.start_desktop()
    unittest.main()
