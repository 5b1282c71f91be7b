"""What an administrator does beside changing values: the menu of a parameter, the comparison with a file, locked pages
and the repair of what cannot be read."""

import contextlib
import json
import sqlite3
import subprocess
import unittest

import programs
from accessibility import wait_for
from devices import RIGHT, click, popup_menus, press, replace, write
from programs import FOLDER, TestCase

DAYS = "Срок действия пароля (дней)"
DAYS_KEY = "PT_PASSWORD_EXPIRED"
REFUSED = 3
# How far from its end an entry of the menu is: it is not in the accessible tree.
COPY_COMMAND, COPY_KEY, HISTORY, EXPLAIN, REVERT = range(1, 6)
REPAIR = SWITCH = 5  # where they are offered, between the reverting and the explaining
UNREADABLE = '{"min_len": "6", "max_len'


class Administration(TestCase):
    def open_page(self, manager, title):
        click(manager.pages().find("list item", title))
        manager.window.find("layered pane").find("panel", title)

    def open_days(self):
        manager = self.start()
        self.open_page(manager, "Пользователи")
        return manager, manager.editor(DAYS)

    def wait_changes(self, manager, count):
        manager.find("label", f"Изменено настроек: {count}" if count else "Несохранённых изменений нет")

    def wait_value(self, editor, value):
        wait_for(lambda: editor.value == value, lambda: f"{value} instead of {editor.value}")

    def save(self, manager):
        press("ctrl+s")
        review = manager.dialog("Изменения перед сохранением")
        press("Return")
        manager.wait_closed(review)
        self.wait_changes(manager, 0)

    def choose_entry(self, place):
        """In the menu that opens just now."""
        wait_for(popup_menus, "the menu")
        press(*["Up"] * place, "Return")
        wait_for(lambda: not popup_menus(), "the menu to close")

    def choose_with_mouse(self, editor, place):
        click(editor, RIGHT)
        self.choose_entry(place)

    def choose_with_key(self, editor, place, key):
        click(editor)
        wait_for(lambda: editor.is_("focused"), "the keyboard to be at the editor")
        press(key)
        self.choose_entry(place)

    def check_copied(self, manager, text):
        field = manager.find("text", "Поиск настроек")
        click(field)
        press("ctrl+a", "ctrl+v")
        wait_for(lambda: field.text == text, lambda: f"«{text}» instead of «{field.text}»")

    def test_one_parameter_is_reverted_and_the_others_stay_changed(self):
        manager, days = self.open_days()
        notify = manager.editor("Срок уведомления об изменении пароля (дней)")
        for editor, value in ((days, 60), (notify, 7)):
            click(editor)
            replace(str(value))
            self.wait_value(editor, value)
        self.wait_changes(manager, 2)
        self.choose_with_mouse(days, REVERT)
        self.wait_value(days, 90)
        self.wait_changes(manager, 1)
        self.assertEqual("", days.description)
        self.choose_with_key(notify, REVERT, "shift+F10")
        self.wait_value(notify, 14)
        self.wait_changes(manager, 0)

    def test_what_is_switched_off_leads_to_its_switch(self):
        manager = self.start()
        self.open_page(manager, "Сканирование лица")
        switch = manager.editor("Включить возможность сканирования по лицу")
        size = manager.editor("Минимальный размер диагонали лица (px)")
        self.assertFalse(size.is_("sensitive"))
        self.choose_with_mouse(size, SWITCH)
        wait_for(lambda: switch.is_("focused"), "the keyboard to be at the switch")
        press("Down")  # from "no" to "yes"
        wait_for(lambda: size.is_("sensitive"), "it to be switched on")

    def test_a_value_is_explained(self):
        self.ctl.set(DAYS_KEY, "60")
        manager, days = self.open_days()
        click(days)
        replace("70")
        self.wait_changes(manager, 1)
        self.choose_with_key(days, EXPLAIN, "Menu")
        explanation = manager.find("alert message", "Почему такое значение")
        explanation.find("label", DAYS)
        words = explanation.find("label", "Ключ: …").name.splitlines()
        self.assertEqual([f"Ключ: {DAYS_KEY}", "Сохранено: «60»", "Показано: 70"], words[:3])
        self.assertTrue(words[3].startswith("Последнее изменение: "), words)
        self.assertTrue(words[3].endswith("программа vxsettingsctl"), words)
        press("Escape")
        manager.wait_closed(explanation)
        self.wait_changes(manager, 1)

    def test_the_key_and_a_command_that_works_are_copied(self):
        manager, days = self.open_days()
        self.choose_with_mouse(days, COPY_KEY)
        self.check_copied(manager, DAYS_KEY)
        press("Escape")
        click(days)
        replace("60")
        self.wait_changes(manager, 1)
        self.choose_with_mouse(days, COPY_COMMAND)
        command = f"vxsettingsctl --database '{self.database}' set '{DAYS_KEY}=60'"
        self.check_copied(manager, command)
        shell = f'vxsettingsctl() {{ "{programs.CTL}" "$@"; }}; {command}'
        subprocess.run(["bash", "-c", shell], check=True, capture_output=True, timeout=30)
        self.assertEqual("60", self.ctl.get(DAYS_KEY))
        self.wait_changes(manager, 0)  # as the edit is what is stored now

    def test_an_earlier_value_is_restored_as_an_edit(self):
        for value in ("60", "70"):
            self.ctl.set(DAYS_KEY, value)
        self.ctl.set("PT_MOBILE_PORT", "1")
        manager, days = self.open_days()
        self.choose_with_mouse(days, HISTORY)
        history = manager.dialog(f"История: {DAYS}")
        history.find("label", "Изменений: 2")
        cells = [cell.name for cell in history.find("tree", "История изменений").children]
        self.assertEqual(["60", "70", "90", "60"], [cell for cell in cells if cell.isdigit()])
        first = history.find("tree", "История изменений").all(name="90")[0]
        click(first)
        click(history.find("push button", "Вернуть прежнее значение"))
        history.find("label", f"В редакторе «{DAYS}» снова 90. Осталось сохранить.")
        press("Escape")
        manager.wait_closed(history)
        self.wait_value(days, 90)
        self.wait_changes(manager, 1)
        self.assertEqual("70", self.ctl.get(DAYS_KEY))
        self.save(manager)
        self.assertEqual("90", self.ctl.get(DAYS_KEY))
        last = self.ctl.history()[-1]
        self.assertEqual((DAYS_KEY, "70", "90"), (last["key"], last["old"], last["new"]))
        self.assertEqual("vxsettings-manager", last["program"])

    def test_a_comparison_with_a_file_tells_and_changes_nothing(self):
        saved = FOLDER / "saved.json"
        self.ctl.run("export", str(saved))
        self.ctl.run("set", "PT_MOBILE_PORT=1", f"{DAYS_KEY}=50")
        before = self.ctl.history()
        manager = self.start()
        for words in ("Файл", "Сравнить с файлом…"):
            click(manager.find("menu item", words))
        manager.dialog()
        replace(str(saved))
        press("Return")
        differences = manager.find("tree", "Отличия файла от базы данных")
        comparison = manager.dialog("Сравнение с файлом")
        self.assertIn("отличаются: 2", comparison.find("label", "Файл «saved.json»…").name)
        cells = [cell.name for cell in differences.children]
        for row in ((DAYS, "50", "90", "отличается"), ("Порт", "1", "8443", "отличается")):
            start = cells.index(row[0])
            self.assertEqual(row, tuple(cells[start : start + 4]))
        self.assertEqual(2, cells.count("отличается"))
        press("Escape")
        manager.wait_closed(comparison)
        self.wait_changes(manager, 0)
        self.assertEqual("50", self.ctl.get(DAYS_KEY))
        self.assertEqual(before, self.ctl.history())

    def switch_access(self, manager, title, reason):
        access = manager.dialog("Доступ операторов")
        click(access.find("check box", title))
        click(access.find("text", "Причина"))
        write(reason)
        save = access.find("push button", "Сохранить")
        wait_for(lambda: save.is_("enabled"), "something to save")
        press("Return")
        manager.wait_closed(access)

    def test_a_page_is_locked_for_operators_and_unlocked(self):
        manager, days = self.open_days()
        for words in ("Правка", "Доступ операторов…"):
            click(manager.find("menu item", words))
        self.switch_access(manager, "Пользователи", "audit")
        page = manager.pages().find("list item", "Пользователи")
        wait_for(lambda: page.description == "Закрыта для операторов", lambda: page.description)
        wait_for(lambda: not days.is_("enabled"), "the editor to be locked")
        manager.window.find("label", "Администратор закрыл эту страницу для операторов…")
        click(days)
        write("5")
        self.assertEqual("audit", self.ctl.history()[-1]["reason"])
        refused = self.ctl.attempt("set", f"{DAYS_KEY}=60")
        self.assertEqual(REFUSED, refused.returncode)
        self.assertIn("«Пользователи»", refused.stderr)
        self.assertEqual("90", self.ctl.get(DAYS_KEY))
        self.ctl.set("PT_MOBILE_PORT", "1")  # of another page
        self.assertEqual(90, days.value)
        self.wait_changes(manager, 0)

        press("ctrl+f")
        write("срок действия")
        manager.find("list", "Результаты поиска").find("list item", f"{DAYS}, Пользователи")
        press("Return", "space")  # leads to the button of the notice, as the editor cannot be reached
        self.switch_access(manager, "Пользователи", "done")
        wait_for(lambda: days.is_("enabled"), "the editor to be unlocked")
        wait_for(lambda: not page.description, lambda: page.description)
        self.ctl.set(DAYS_KEY, "60")
        self.wait_value(days, 60)

    def store_unreadable(self):
        with contextlib.closing(sqlite3.connect(self.database)) as database:
            database.execute("UPDATE settings SET value = ? WHERE key = 'PT_PIN_STRENGTH'", [UNREADABLE])
            database.commit()

    def findings(self):
        return json.loads(self.ctl.attempt("check", "--json").stdout)

    def start_with_unreadable(self):
        self.store_unreadable()
        self.assertEqual(["not-a-json-object"], [finding["problem"] for finding in self.findings()])
        manager = self.start()
        manager.find("check box", "С ошибками (1)")
        self.open_page(manager, "Сотрудники")
        manager.window.find("label", "Запись «Сложность пин-кода» в базе данных не читается целиком…")
        words = "Текст не читается как объект JSON. Исправить запись можно в контекстном меню."
        wait_for(lambda: words in manager.editor("Минимальная длина").description, "the mark of the problem")
        return manager

    def repair_and_save(self, manager):
        repair = manager.dialog("Исправление записи: Сложность пин-кода")
        self.assertEqual(UNREADABLE, repair.find("text", "Записано сейчас:").text)
        repaired = repair.find("text", "Будет записано…").text
        click(repair.find("push button", "Исправить"))
        manager.wait_closed(repair)
        self.assertEqual(1, len(self.findings()))
        self.save(manager)
        self.assertEqual([], self.findings())
        self.assertEqual("", manager.editor("Минимальная длина").description)
        last = self.ctl.history()[-1]
        self.assertEqual(("PT_PIN_STRENGTH", UNREADABLE), (last["key"], last["old"]))
        self.assertEqual(json.loads(repaired), json.loads(last["new"]))
        manager.find("check box", "С ошибками (0)")

    def test_what_cannot_be_read_is_repaired_from_its_page(self):
        manager = self.start_with_unreadable()
        press("Tab", "space")  # from the list of pages to the button of the notice
        question = manager.dialog("Исправление записи: Сложность пин-кода")
        press("Escape")
        manager.wait_closed(question)
        self.wait_changes(manager, 0)
        press("space")
        self.repair_and_save(manager)

    def test_what_cannot_be_read_is_repaired_from_the_menu_of_a_parameter(self):
        manager = self.start_with_unreadable()
        self.choose_with_key(manager.editor("Минимальная длина"), REPAIR, "Menu")
        self.repair_and_save(manager)


if __name__ == "__main__":
    programs.start_desktop()
    unittest.main()
