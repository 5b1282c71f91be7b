"""The manager on a server that goes away and comes back. tests/withserver.sh names the server."""

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

    def drop_connections(self, database):
        others = (
            "SELECT pg_terminate_backend(pid) FROM pg_stat_activity "
            "WHERE pid <> pg_backend_pid() AND datname = current_database()"
        )
        subprocess.run(["psql", "-qAtc", others, database], check=True, capture_output=True, timeout=60)


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


if __name__ == "__main__":
    programs.start_desktop()
    unittest.main()
