"""Everything that the manager is for, done through its accessible tree alone: no picture is looked at, nothing is
clicked, and keys are used where the toolkit offers no action: to choose a result of the search."""

import json
import subprocess
import unittest

import programs
from accessibility import type_key, wait_for
from programs import TestCase

ROLES = {
    "number": "spin box",
    "choice": "combo box",
    "department": "combo box",
    "smart-card-profile": "combo box",
    "flag": "check box",
    "text": "text",
    "read-only": "text",
    "secret": "password",
}
PAGES = {
    "database": "База данных",
    "pass-requests": "Заявки",
    "employees": "Сотрудники",
    "users": "Пользователи",
    "scanning-common": "Сканирование общие",
    "fingerprint-scanning": "Сканирование отпечатков пальцев",
    "palm-scanning": "Сканирование вен ладоней",
    "face-scanning": "Сканирование лица",
    "connection": "Настройки подключения",
    "studio-mobile": "Vantorix Studio",
    "mobile-id": "Vantorix ID",
    "integration": "Интеграция",
}
SECRET = "Zq8-unheard-of"


class AccessibleTree(TestCase):
    def setUp(self):
        super().setUp()
        catalogue = json.loads(self.ctl.run("describe", "--json"))
        self.parameters = [parameter for parameter in catalogue if parameter["kind"] in ROLES]

    def inputs(self, nodes):
        """The input widgets among the nodes, without the parts that they are made of."""
        inputs = [node for node in nodes if node.role in ROLES.values()]
        parts = {part for node in inputs for part in node.children}
        return [node for node in inputs if node not in parts]

    def captions(self, nodes):
        """Input widget → the captions among the nodes that are its own."""
        captions = {}
        for label in nodes:
            for target in label.labelled() if label.role == "label" else []:
                captions.setdefault(target, []).append(label.name)
        return captions

    def bounds(self, node):
        return [node._property("Value", bound) for bound in ("MinimumValue", "MaximumValue")]

    def choices(self, node):
        return [item.name for item in node.children[0].children]

    def test_every_editor_has_name_role_caption_and_bounds(self):
        manager = self.start()
        self.assertEqual(62, len(self.parameters))
        for group, title in PAGES.items():
            with self.subTest(page=title):
                nodes = list(manager.page(title).walk())
                inputs = self.inputs(nodes)
                parameters = [parameter for parameter in self.parameters if parameter["group"] == group]
                self.assertCountEqual(
                    [(ROLES[parameter["kind"]], parameter["caption"].split(": ")[-1]) for parameter in parameters],
                    [(node.role, node.name) for node in inputs],
                )
                captions = self.captions(nodes)
                for node in inputs:
                    own = [] if node.role == "check box" else [node.name]
                    self.assertEqual(own, captions.get(node, []), node)
                self.assertEqual([], [node for node in nodes if node.is_("focusable") and not node.name])
                self.check_bounds(parameters, inputs)

    def check_bounds(self, parameters, inputs):
        numbers = [[p["minimum"], p["maximum"]] for p in parameters if p["kind"] == "number"]
        self.assertCountEqual(numbers, [self.bounds(node) for node in inputs if node.role == "spin box"])
        for parameter in parameters:
            if parameter["kind"] == "choice":
                editor = next(node for node in inputs if node.name == parameter["caption"].split(": ")[-1])
                self.assertEqual([choice["caption"] for choice in parameter["choices"]], self.choices(editor))

    def test_nothing_around_the_pages_that_takes_the_keyboard_is_nameless(self):
        manager = self.start()
        manager.find("text", "Поиск настроек").text = "порт"
        manager.find("push button", "Очистить")
        self.assertEqual([], [node for node in manager.tree.walk() if node.is_("focusable") and not node.name])

    def test_descriptions_have_tool_tips_states_and_reasons(self):
        manager = self.start()
        manager.page("Заявки")
        self.assertIn("${zero8-num} ", manager.editor("Формат номера заявки").description)

        manager.page("Сканирование отпечатков пальцев")
        switch = manager.editor("Включить возможность сканирования по отпечатку пальца")
        dependent = manager.editor("Поиск ядра")
        self.assertEqual("", dependent.description)
        switch.act("Increase" if switch.text == "Нет" else "Decrease")
        wait_for(lambda: switch.text == "Нет", "the switch to be off")
        wait_for(lambda: switch.description == "Изменено. Сохранено: Да.", lambda: switch.description)
        reason = (
            "Недоступно. Включается параметром «Включить возможность сканирования по отпечатку пальца», "
            "сейчас там: Нет."
        )
        wait_for(lambda: dependent.description == reason, lambda: dependent.description)
        self.assertFalse(dependent.is_("enabled"))

    def test_secrets_are_told_to_nobody(self):
        secrets = {"PT_PASSWORD_DEF": "Пользователи", "PT_LOCKER_ACCESS_TOKEN": "Настройки подключения"}
        for key in secrets:
            command = [programs.CTL, "--database", self.database, "set", "--stdin", key]
            subprocess.run(command, input=SECRET, text=True, check=True, capture_output=True)
        manager = self.start()
        for key, title in secrets.items():
            page = manager.page(title)
            editor = next(node for node in page.walk() if node.role == "password")
            self.assertNotIn(SECRET, editor.text, key)
            for node in manager.tree.walk():
                self.assertNotIn(SECRET, node.name + node.description)

        editor.text = "another"
        wait_for(lambda: editor.description, "the mark of a change")
        self.assertEqual("Изменено. Сохранено: скрыто.", editor.description)
        self.save(manager)
        wait_for(lambda: manager.find("label", "Несохранённых изменений нет"), "the save")
        self.assertEqual("another", self.ctl.run("get", "--with-secrets", "PT_LOCKER_ACCESS_TOKEN").strip())

    def save(self, manager, reason=""):
        manager.window.find("push button", "Сохранить").press()
        review = manager.dialog("Изменения перед сохранением")
        if reason:
            review.find("text", "Причина").text = reason
        review.find("push button", "Сохранить").press()
        manager.wait_closed(review)

    def test_a_setting_is_found_by_a_word(self):
        manager = self.start()
        field = manager.find("text", "Поиск настроек")
        field.act("SetFocus")
        wait_for(lambda: field.is_("focused"), "the search to have the keyboard")
        field.text = "порт"
        results = manager.find("list", "Результаты поиска")
        result = results.find("list item", "Порт, Настройки подключения")
        self.assertIn(f"Найдено: {len(results.children)}.", field.description)
        last = results.children[-1]
        last.toggle()
        wait_for(lambda: last.name in field.description, "the last result to be read out")
        result.toggle()
        wait_for(lambda: result.name in field.description, "the result to be read out")
        pages = manager.pages()
        pages.find("list item", "Настройки подключения (1)")
        type_key("Return")
        manager.window.find("layered pane").find("panel", "Настройки подключения")
        port = manager.editor("Порт")
        wait_for(lambda: port.is_("focused"), "the parameter to have the keyboard")

    def test_a_change_is_undone_redone_and_reverted(self):
        manager = self.start()
        manager.page("Пользователи")
        days = manager.editor("Срок действия пароля (дней)")
        days.value = 60
        wait_for(lambda: days.description == "Изменено. Сохранено: 90.", lambda: days.description)
        manager.choose("Правка", "Отменить")
        wait_for(lambda: days.value == 90, "the undo")
        self.assertEqual("", days.description)
        manager.choose("Правка", "Повторить")
        wait_for(lambda: days.value == 60, "the redo")
        manager.find("label", "Изменено настроек: 1")
        manager.window.find("push button", "Отменить").press()
        wait_for(lambda: days.value == 90, "the stored value")
        manager.find("label", "Несохранённых изменений нет")
        self.assertEqual("90", self.ctl.get("PT_PASSWORD_EXPIRED"))

    def test_a_broken_rule_is_told_beside_both_parameters(self):
        manager = self.start()
        manager.page("Сотрудники")
        shortest, longest = manager.editor("Минимальная длина"), manager.editor("Максимальная длина")
        shortest.value = 9
        wait_for(lambda: "\n" in shortest.description, lambda: shortest.description)
        problem = shortest.description.splitlines()[-1]
        self.assertIn("9", problem)
        self.assertIn("8", problem)
        self.assertEqual(problem, longest.description.splitlines()[-1])
        self.assertEqual(2, len(manager.window.all("label", problem)))
        manager.page("Заявки")
        manager.window.find("push button", "Сохранить").press()
        manager.window.find("layered pane").find("panel", "Сотрудники")
        wait_for(lambda: shortest.is_("focused"), "the save to lead to what is wrong")
        self.assertEqual([], manager.tree.all("dialog"))
        shortest.value = 4
        wait_for(lambda: not shortest.description and not longest.description, "the problem to go")
        self.assertEqual([], manager.window.all("label", problem))

    def test_a_change_is_saved_with_its_reason(self):
        manager = self.start()
        manager.page("Настройки подключения")
        host, port = manager.editor("Хост"), manager.editor("Порт")
        host.text = "gate.example"
        port.value = 9443
        manager.find("label", "Изменено настроек: 2")
        manager.window.find("push button", "Сохранить").press()
        review = manager.dialog("Изменения перед сохранением")
        words = [node.name for node in review.find("tree", "Изменения").children]
        for expected in ("Хост", "«mobile.installation.example»", "«gate.example»", "Порт", "8443", "9443"):
            self.assertIn(expected, words)
        review.find("text", "Причина").text = "Новый узел"
        review.find("push button", "Сохранить").press()
        manager.find("label", "Несохранённых изменений нет")
        self.assertEqual("gate.example", self.ctl.get("PT_MOBILE_HOST"))
        self.assertEqual("9443", self.ctl.get("PT_MOBILE_PORT"))
        self.assertEqual({"Новый узел"}, {record["reason"] for record in self.ctl.history()})

    def test_a_conflict_is_resolved(self):
        manager = self.start()
        manager.page("Настройки подключения")
        host, port = manager.editor("Хост"), manager.editor("Порт")
        host.text = "mine.example"
        port.value = 1111
        self.ctl.run("set", "PT_MOBILE_HOST=theirs.example", "PT_MOBILE_PORT=2222")
        wait_for(lambda: "theirs.example" in host.description, lambda: f"theirs in «{host.description}»")
        self.assertEqual("mine.example", host.text)
        self.save(manager)

        conflict = manager.dialog("Настройки изменены в другом месте")
        accept = conflict.find("push button", "Записать выбранное")
        self.assertFalse(accept.is_("enabled"))
        mine = conflict.find("radio button", "Хост: Записать моё")
        theirs = conflict.find("radio button", "Порт: Взять из базы данных")
        self.assertIn("mine.example", mine.description)
        self.assertIn("vxsettingsctl", theirs.description)
        mine.toggle()
        theirs.toggle()
        wait_for(lambda: accept.is_("enabled"), "the choice to be complete")
        accept.press()
        manager.wait_closed(conflict)
        self.wait_stored("PT_MOBILE_HOST", "mine.example")
        self.assertEqual("2222", self.ctl.get("PT_MOBILE_PORT"))
        wait_for(lambda: port.value == 2222, "their value")
        manager.find("label", "Несохранённых изменений нет")


if __name__ == "__main__":
    programs.start_desktop()
    unittest.main()
