"""Takes the pictures of the folder that is named by its argument; scripts/pictures.sh starts it on a desktop."""

import os
import pathlib
import subprocess
import sys
import tempfile

import programs
from accessibility import wait_for
from devices import click, press, replace, write
from programs import CTL, FOLDER, MANAGER, Ctl, Manager

PICTURES = pathlib.Path(sys.argv[1])
# Suffix of the file name → arguments and environment.
KINDS = {
    "": (["--language", "ru", "--theme", "light"], {}),
    "-dark": (["--language", "ru", "--theme", "dark"], {}),
    "-en": (["--language", "en", "--theme", "light"], {}),
    "-200": (["--language", "ru", "--theme", "light"], {"QT_SCALE_FACTOR": "2"}),
}


def new_database(name):
    database = FOLDER / f"{name}.db"
    Ctl(str(database)).run("init", "--sample")
    return str(database)


def draw_pages(database):
    for suffix, (arguments, environment) in KINDS.items():
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run(
                [MANAGER, "--database", database, "--render", folder, *arguments],
                env={**os.environ, "QT_QPA_PLATFORM": "xcb", **environment},
                check=True,
                stdout=subprocess.DEVNULL,
            )
            for page in pathlib.Path(folder).glob("*.png"):
                (PICTURES / f"{page.stem}{suffix}.png").write_bytes(page.read_bytes())


def take(window, name):
    """What is seen at the place of the window, once it has been painted; with an outline, because no desktop frames it."""
    left, top, width, height = window.box
    crop = f"{width}x{height}+{left}+{top}"
    outline = ["-bordercolor", "#808080", "-border", "1"]
    pictures = []

    def is_painted():
        command = ["import", "-window", "root", "-crop", crop, "+repage", *outline, "png:-"]
        pictures.append(subprocess.run(command, check=True, capture_output=True).stdout)
        return len(pictures) > 1 and pictures[-1] == pictures[-2]

    wait_for(is_painted, f"{name} to be painted")
    (PICTURES / f"{name}.png").write_bytes(pictures[-1])


def start(database, *arguments):
    return Manager(database, *(arguments or ("--language", "ru", "--theme", "light")))


def take_search(database):
    manager = start(database)
    press("ctrl+f")
    write("палец")
    manager.find("list", "Результаты поиска")
    take(manager.window, "window-search")
    manager.kill()


def take_changes_and_review(database):
    manager = start(database)
    manager.page("Пользователи")
    click(manager.editor("Срок действия пароля (дней)"))
    replace("60")
    click(manager.editor("Минимальная длина"))
    replace("80")
    manager.find("label", "Изменено настроек: 2")
    take(manager.window, "window-rule")
    replace("12")
    take(manager.window, "manager")
    press("ctrl+s")
    review = manager.dialog("Изменения перед сохранением")
    write("Правила с нового года")
    take(review, "review")
    press("Return")
    manager.wait_closed(review)
    manager.find("label", "Несохранённых изменений нет")
    manager.choose("Правка", "История")
    history = manager.dialog("История изменений")
    history.find("label", "Изменений: 2")
    take(history, "history")
    manager.kill()


def take_conflict(database):
    manager = start(database)
    manager.page("Настройки подключения")
    host = manager.editor("Хост")
    click(host)
    replace("mobile.head-office.example")
    Ctl(database).set("PT_MOBILE_HOST", "mobile.branch.example")
    manager.find("label", "Изменено настроек: 1 (в другом месте тоже: 1)")
    press("ctrl+s")
    review = manager.dialog("Изменения перед сохранением")
    press("Return")
    manager.wait_closed(review)
    take(manager.dialog("Настройки изменены в другом месте"), "conflict")
    manager.kill()


def take_access(database, suffix, *arguments):
    """Where pages are locked, and what a locked one is like."""
    Ctl(database).run("set", "--as-administrator", "VX_PAGE_ACCESS.users=нет", "--reason", "Правила утверждены")
    manager = start(database, *arguments)
    manager.page("Пользователи")
    take(manager.window, f"window-locked{suffix}")
    manager.choose("Правка", "Доступ операторов")
    take(manager.dialog("Доступ операторов"), f"access{suffix}")
    manager.kill()


def take_window(database, name, *arguments):
    manager = start(database, *arguments)
    take(manager.window, name)
    manager.kill()


programs.start_desktop()
draw_pages(new_database("pages"))
# As programs leave it: each starts on the page of the one before, and finds no draft of it.
take_search(new_database("search"))
take_changes_and_review(new_database("review"))
take_conflict(new_database("conflict"))
take_access(new_database("access"), "", "--language", "ru", "--theme", "light")
take_access(new_database("access-dark"), "-dark", "--language", "ru", "--theme", "dark")
take_window(new_database("window-dark"), "window-dark", "--language", "ru", "--theme", "dark")
take_window(new_database("window-en"), "window-en", "--language", "en", "--theme", "light")
