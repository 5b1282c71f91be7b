"""The manager in a real window, with the mouse and the keyboard of its display. The accessible tree says what shows."""

import contextlib
import sqlite3
import stat
import unittest

import programs
from accessibility import PATIENCE, wait_for
from desktopportal import DARK, NO_WISH, Portal
from devices import WHEEL_DOWN, brightness, click, press, replace, write
from programs import FOLDER, TestCase

DAYS = "Срок действия пароля (дней)"
SECRET = "Zq8-unheard-of"


class RealWindow(TestCase):
    def setUp(self):
        super().setUp()
        for leftover in (*FOLDER.glob("config/*/*.conf"), *FOLDER.rglob("drafts/*")):
            leftover.unlink()

    def click_page(self, manager, title):
        click(manager.pages().find("list item", title))
        manager.window.find("layered pane").find("panel", title)

    def start_edited(self, days):
        """With one change, before the eyes and under the fingers of who made it."""
        manager = self.start()
        self.click_page(manager, "Пользователи")
        click(manager.editor(DAYS))
        replace(days)
        self.wait_changes(manager, 1)
        return manager

    def wait_changes(self, manager, count):
        manager.find("label", f"Изменено настроек: {count}" if count else "Несохранённых изменений нет")

    def wait_value(self, editor, value):
        wait_for(lambda: editor.value == value, lambda: f"{value} instead of {editor.value}")

    def test_with_the_mouse_and_digits(self):
        manager = self.start()
        self.click_page(manager, "Пользователи")
        days = manager.editor(DAYS)
        click(days)
        replace("60")
        self.wait_value(days, 60)
        self.assertEqual("Изменено. Сохранено: 90.", days.description)
        self.wait_changes(manager, 1)
        wait_for(lambda: manager.window.name.startswith("*") or "*" in manager.window.name, "a star in the title")
        press("ctrl+z")
        self.wait_value(days, 90)
        self.wait_changes(manager, 0)
        press("ctrl+shift+z")
        self.wait_value(days, 60)

        click(manager.window.find("push button", "Сохранить"))
        review = manager.dialog("Изменения перед сохранением")
        self.assertIn("60", [cell.name for cell in review.find("tree").children])
        click(review.find("text", "Причина"))
        write("from now on")
        click(review.find("push button", "Сохранить"))
        self.wait_changes(manager, 0)
        self.wait_stored("PT_PASSWORD_EXPIRED", "60")
        self.assertEqual("from now on", self.ctl.history()[-1]["reason"])

    def test_an_edit_put_back_by_hand_is_no_change(self):
        manager = self.start_edited("91")
        press("BackSpace", "0")
        self.wait_changes(manager, 0)

    def test_undo_leads_to_another_page(self):
        manager = self.start_edited("60")
        self.click_page(manager, "Заявки")
        press("ctrl+z")
        manager.window.find("layered pane").find("panel", "Пользователи")
        self.wait_value(manager.editor(DAYS), 90)

    def test_keyboard_only(self):
        manager = self.start()
        press("ctrl+f")
        write("порт")
        manager.find("list", "Результаты поиска").find("list item", "Порт, Настройки подключения")
        press("Return")
        port = manager.editor("Порт")
        wait_for(lambda: port.is_("focused"), "the keyboard to be at what was found")
        write("9443")  # in place of what is there
        self.wait_changes(manager, 1)
        press("ctrl+s")
        review = manager.dialog("Изменения перед сохранением")
        write("keys")
        press("Return")
        manager.wait_closed(review)
        self.wait_stored("PT_MOBILE_PORT", "9443")
        self.wait_changes(manager, 0)
        self.assertEqual("keys", self.ctl.history()[-1]["reason"])

        press("Alt_L", "Right", "Down")
        entry = manager.find("menu item", "История изменений…")
        wait_for(lambda: entry.is_("focused") or press("Down"), "the keyboard to be at the entry")
        press("Return")
        history = manager.dialog("История изменений")
        history.find("label", "Изменений: 1")
        restore = history.find("push button", "Вернуть прежнее значение")
        press("Tab")
        wait_for(lambda: restore.is_("focused"), "the keyboard to be at the button")
        press("space")
        self.wait_value(port, 8443)
        press("Escape")
        manager.wait_closed(history)
        press("ctrl+q")
        question = manager.find("alert message")
        press("Escape")
        manager.wait_closed(question)
        press("ctrl+z", "ctrl+q")
        manager.process.wait(timeout=PATIENCE)
        self.assertEqual(0, manager.process.returncode)

    def test_every_page_by_arrow_keys(self):
        manager = self.start()
        seen = []
        pages = [page.name for page in manager.pages().children if page.is_("selectable")]
        for title in pages:
            manager.window.find("layered pane").find("panel", title)
            seen.append(title)
            press("Down")
        self.assertEqual(12, len(seen))

    def test_the_wheel_over_an_unfocused_editor_changes_nothing(self):
        manager = self.start()
        self.click_page(manager, "Пользователи")
        for caption in (DAYS, "Тип идентификации для входа в Vantorix-Studio"):
            click(manager.editor(caption), WHEEL_DOWN)
        click(manager.editor(DAYS))
        press("Down")
        self.wait_changes(manager, 1)
        self.assertEqual(89, manager.editor(DAYS).value)

    def test_filters_show_what_is_changed(self):
        manager = self.start()
        self.click_page(manager, "Пользователи")
        click(manager.editor(DAYS))
        replace("60")
        click(manager.find("check box", "Изменённые (1)"))
        results = manager.find("list", "Результаты поиска")
        self.assertEqual([f"{DAYS}, Пользователи"], [item.name for item in results.children])

    def test_others_saves_appear_and_conflicts_are_settled(self):
        manager = self.start()
        self.click_page(manager, "Настройки подключения")
        host, port = manager.editor("Хост"), manager.editor("Порт")
        click(host)
        replace("mine.example")
        self.ctl.run("set", "PT_MOBILE_HOST=theirs.example", "PT_MOBILE_PORT=2222", "--reason", "moved")
        self.wait_value(port, 2222)
        self.assertEqual("mine.example", host.text)
        manager.find("label", "Изменено настроек: 1 (в другом месте тоже: 1)")
        press("ctrl+s")
        manager.dialog("Изменения перед сохранением")
        press("Return")
        conflict = manager.dialog("Настройки изменены в другом месте")
        for words in ("Было: «mobile.installation.example»", "«theirs.example»", "«mine.example»"):
            conflict.find("label", words)
        click(conflict.find("radio button", "Хост: Взять из базы данных"))
        click(conflict.find("push button", "Записать выбранное"))
        manager.wait_closed(conflict)
        wait_for(lambda: host.text == "theirs.example", "their value")
        self.wait_changes(manager, 0)
        self.assertEqual("theirs.example", self.ctl.get("PT_MOBILE_HOST"))

    def test_closing_asks_and_lists(self):
        manager = self.start_edited("60")
        press("ctrl+q")
        question = manager.find("alert message")
        question.find("label", f"{DAYS}: 90 → 60")
        click(question.find("push button", "Вернуться"))
        manager.wait_closed(question)
        self.wait_changes(manager, 1)
        press("ctrl+q")
        click(manager.find("alert message").find("push button", "Сохранить"))
        manager.process.wait(timeout=PATIENCE)
        self.assertEqual("60", self.ctl.get("PT_PASSWORD_EXPIRED"))

    def test_closing_discards_and_remembers_the_page(self):
        manager = self.start_edited("60")
        press("ctrl+q")
        click(manager.find("alert message").find("push button", "Не сохранять"))
        manager.process.wait(timeout=PATIENCE)
        self.assertEqual("90", self.ctl.get("PT_PASSWORD_EXPIRED"))
        again = self.start()
        again.window.find("layered pane").find("panel", "Пользователи")
        self.assertEqual([], again.tree.all("alert message"))

    def name_file(self, manager, path):
        manager.dialog()
        replace(str(path))
        press("Return")

    def close_message(self, manager, title):
        message = manager.find("alert message", title)
        press("Return")
        manager.wait_closed(message)

    def test_an_import_is_shown_chosen_and_saved(self):
        backup = FOLDER / "backup.json"
        self.ctl.run("export", str(backup))
        self.ctl.run("set", "PT_MOBILE_PORT=1", "PT_PASSWORD_EXPIRED=50")
        manager = self.start()
        manager.choose("Файл", "Импорт")
        self.name_file(manager, backup)
        preview = manager.dialog("Загрузка настроек из файла")
        self.assertIn("изменятся: 2", preview.find("label", "Файл «backup.json»…").name)
        press("space")  # takes the first one out: the page of users comes before that of connections
        click(preview.find("push button", "Взять отмеченные: 1"))
        manager.wait_closed(preview)
        self.wait_changes(manager, 1)
        press("ctrl+s")
        manager.dialog("Изменения перед сохранением")
        press("Return")
        self.wait_stored("PT_MOBILE_PORT", "8443")
        self.assertEqual("50", self.ctl.get("PT_PASSWORD_EXPIRED"))

    def test_files_are_written(self):
        manager = self.start()
        report, backup = FOLDER / "report.pdf", FOLDER / "export.json"
        manager.choose("Файл", "Отчёт")
        self.name_file(manager, report)
        self.close_message(manager, "Файл записан")
        self.assertTrue(report.read_bytes().startswith(b"%PDF"))

        manager.choose("Файл", "Экспорт")
        click(manager.find("alert message").find("push button", "Без паролей"))
        self.name_file(manager, backup)
        self.close_message(manager, "Файл записан")
        self.ctl.run("diff", str(backup))

    def test_what_is_stored_wrongly_is_marked_and_found(self):
        with contextlib.closing(sqlite3.connect(self.database)) as database:
            database.execute("UPDATE settings SET value = '99' WHERE key = 'PT_MAX_CARD_COUNT'")
            database.commit()
        manager = self.start()
        click(manager.find("check box", "С ошибками (1)"))
        manager.find("list", "Результаты поиска")
        press("Return")
        cards = manager.editor("Максимальное количество карт сотрудника")
        wait_for(lambda: cards.is_("focused"), "the keyboard to be at what is wrong")
        self.assertIn("Сохранено: «99», показано: 20.", cards.description)
        write("7")
        self.wait_value(cards, 7)
        press("ctrl+s")
        manager.dialog("Изменения перед сохранением")
        press("Return")
        self.wait_stored("PT_MAX_CARD_COUNT", "7")
        manager.find("check box", "С ошибками (0)")
        wait_for(lambda: not cards.description, "the mark to go")

    def drafts(self):
        return list(FOLDER.rglob("drafts/*.json"))

    def test_a_killed_program_offers_its_edits_again(self):
        manager = self.start()
        self.click_page(manager, "Пользователи")
        click(manager.editor("Пароль по умолчанию"))
        replace(SECRET)
        click(manager.editor(DAYS))
        replace("60")
        self.wait_changes(manager, 2)
        wait_for(lambda: any("60" in draft.read_text() for draft in self.drafts()), "the draft")
        for draft in self.drafts():
            self.assertEqual(0o600, stat.S_IMODE(draft.stat().st_mode))
            self.assertNotIn(SECRET, draft.read_text())
        manager.kill()

        again = programs.Manager(self.database, "--language", "ru")
        self.managers.append(again)
        question = again.find("alert message")
        question.find("label", f"{DAYS}: 90 → 60")
        click(question.find("push button", "Восстановить"))
        again.wait_closed(question)
        self.wait_changes(again, 1)
        self.click_page(again, "Пользователи")
        self.wait_value(again.editor(DAYS), 60)
        self.assertEqual("90", self.ctl.get("PT_PASSWORD_EXPIRED"))

    def test_another_language_keeps_the_edits(self):
        manager = self.start_edited("60")
        for entry in ("Вид", "Язык", "English"):
            click(manager.find("menu item", entry))
        days = manager.editor("Password validity (days)")
        self.assertEqual(60, days.value)
        wait_for(lambda: days.description == "Changed. Saved: 90.", lambda: days.description)
        manager.find("label", "Settings changed: 1")

    def test_a_dark_desktop_is_followed(self):
        portal = Portal(DARK)
        manager = self.start()

        def wait_look(is_dark):
            wait_for(lambda: (brightness(manager.window) < 128) == is_dark, lambda: brightness(manager.window))

        wait_look(is_dark=True)
        portal.change(NO_WISH)
        wait_look(is_dark=False)
        portal.change(DARK)
        wait_look(is_dark=True)
        for entry in ("Вид", "Оформление", "Светлое"):
            click(manager.find("menu item", entry))
        wait_look(is_dark=False)
        portal.change(NO_WISH)

    def test_in_english(self):
        manager = self.start("--language", "en")
        press("ctrl+f")
        write("port")
        press("Return")
        port = manager.editor("Port")
        wait_for(lambda: port.is_("focused"), "the keyboard to be at what was found")
        write("9443")  # in place of what is there
        press("ctrl+s")
        review = manager.dialog("Changes before they are saved")
        self.assertIn("9443", [cell.name for cell in review.find("tree").children])
        press("Return")
        self.wait_stored("PT_MOBILE_PORT", "9443")
        russian = [node for node in manager.tree.walk() if any("а" <= letter <= "я" for letter in node.name.lower())]
        self.assertEqual([], [node for node in russian if node.role != "menu item"])


if __name__ == "__main__":
    programs.start_desktop()
    unittest.main()
