<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru">
<context>
    <name>AccessDialog</name>
    <message>
        <source>Доступ операторов</source>
        <translation>Operator access</translation>
    </message>
    <message>
        <source>Отмеченные страницы операторы могут изменять. Остальные им видны, но сохранить на них ничего нельзя ни в одной программе. Это защита от случайных изменений: отметки меняет администратор, и каждое их изменение остаётся в истории.</source>
        <translation>Operators may change the checked pages. They see the others, but no program lets them save anything there. This protects from changes by mistake: an administrator sets the check marks, and each change of them stays in the history.</translation>
    </message>
    <message>
        <source>&amp;Причина:</source>
        <translation>&amp;Reason:</translation>
    </message>
    <message>
        <source>Причина</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>Необязательно. Останется в истории изменений</source>
        <translation>Optional. It stays in the history of changes</translation>
    </message>
    <message>
        <source>&amp;Взять из базы</source>
        <translation>&amp;Take from the database</translation>
    </message>
    <message>
        <source>Показать то, что записано сейчас, вместо своих отметок</source>
        <translation>Show what is stored now in the place of your check marks</translation>
    </message>
    <message>
        <source>&amp;Сохранить</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>&amp;Закрыть</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <source>Страницы, которые могут изменять операторы</source>
        <translation>Pages that operators may change</translation>
    </message>
    <message>
        <source>Сохранение…</source>
        <translation>Saving…</translation>
    </message>
    <message>
        <source>Пока вы ставили отметки, доступ изменил кто-то другой (%1). Там записано: %2. Если сохранить, останутся ваши отметки.</source>
        <translation>While you were setting check marks, somebody else has changed the access (%1). Stored now: %2. If you save, your check marks stay.</translation>
    </message>
    <message>
        <source>Записанный доступ не читается, поэтому закрыты все страницы: «%1». Если сохранить, этот текст заменят ваши отметки.</source>
        <translation>The stored access cannot be read, so every page is locked: “%1”. If you save, your check marks replace this text.</translation>
    </message>
</context>
<context>
    <name>ChangeBar</name>
    <message>
        <source>&amp;Отменить</source>
        <translation>&amp;Revert</translation>
    </message>
    <message>
        <source>&amp;Сохранить</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>Вернуть сохранённые значения на всех страницах</source>
        <translation>Go back to the stored values on all pages</translation>
    </message>
    <message>
        <source>Записать изменения всех страниц в базу данных (Ctrl+S)</source>
        <translation>Save the changes of all pages to the database (Ctrl+S)</translation>
    </message>
    <message>
        <source>Несохранённых изменений нет</source>
        <translation>No unsaved changes</translation>
    </message>
    <message>
        <source>Изменено настроек: %1</source>
        <translation>Settings changed: %1</translation>
    </message>
    <message>
        <source>&amp;Прервать</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Больше не ждать. Изменения останутся несохранёнными</source>
        <translation>Stop waiting. The changes stay unsaved</translation>
    </message>
    <message>
        <source> (в другом месте тоже: %1)</source>
        <translation> (elsewhere as well: %1)</translation>
    </message>
</context>
<context>
    <name>ChangeStampWords</name>
    <message>
        <source>пользователь %1</source>
        <translation>user %1</translation>
    </message>
    <message>
        <source>рабочее место %1</source>
        <translation>workstation %1</translation>
    </message>
    <message>
        <source>программа %1</source>
        <translation>program %1</translation>
    </message>
    <message>
        <source>Кто изменил, не известно</source>
        <translation>It is not known who changed it</translation>
    </message>
</context>
<context>
    <name>ChangeTree</name>
    <message>
        <source>%1, другое значение</source>
        <translation>%1, another value</translation>
    </message>
    <message>
        <source>Настройки, которых нет в каталоге</source>
        <translation>Settings that are not in the catalogue</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Показать эту справку.</source>
        <translation>Show this help.</translation>
    </message>
    <message>
        <source>Показать версию программы.</source>
        <translation>Show the version of the program.</translation>
    </message>
    <message>
        <source>Записать изображение каждой страницы (PNG) в папку ПАПКА. Дисплей не нужен.</source>
        <translation>Write a picture of every page (PNG) to the folder FOLDER. No display is needed.</translation>
    </message>
    <message>
        <source>ПАПКА</source>
        <translation>FOLDER</translation>
    </message>
    <message>
        <source>Изменить, сохранить и перечитать все настройки на временной копии базы данных и рассказать, что получилось. Сама база данных не меняется. Дисплей не нужен.</source>
        <translation>Change, save and reload all settings on a temporary copy of the database and report the outcome. The database itself is not changed. No display is needed.</translation>
    </message>
    <message>
        <source>Оформление: light (светлое) или dark (тёмное).</source>
        <translation>The look: light or dark.</translation>
    </message>
    <message>
        <source>Настройки базы данных системы контроля доступа.

Код завершения: 0 — выполнено, 1 — не выполнено, 2 — ошибка в командной строке, 5 — ошибка базы данных.</source>
        <translation>Database settings of an access-control system.

Exit status: 0 – done, 1 – not done, 2 – error in the command line, 5 – database error.</translation>
    </message>
    <message>
        <source>Лишний аргумент: «%1».</source>
        <translation>Unexpected argument: “%1”.</translation>
    </message>
    <message>
        <source>Не указана папка для изображений.</source>
        <translation>No folder for the pictures is given.</translation>
    </message>
    <message>
        <source>Нет такого оформления: «%1».</source>
        <translation>There is no such look: “%1”.</translation>
    </message>
    <message>
        <source>Язык программы: ru (русский) или en (английский). Без параметра — выбранный в прошлый раз, иначе язык системы.</source>
        <translation>The language of the program: ru (Russian) or en (English). Without this option, the one chosen last time, else that of the system.</translation>
    </message>
    <message>
        <source>Нет такого языка: «%1». Языки: %2.</source>
        <translation>There is no such language: “%1”. The languages: %2.</translation>
    </message>
    <message>
        <source>База данных: файл (sqlite:ПУТЬ, ПУТЬ) или сервер (postgresql://КТО@УЗЕЛ:ПОРТ/ИМЯ). Где её ещё нет, она создаётся с примером настроек. Без параметра берётся значение переменной VXSETTINGS_DATABASE, без неё — файл в папке данных пользователя.</source>
        <translation>The database: a file (sqlite:PATH, PATH) or a server (postgresql://USER@HOST:PORT/NAME). Where there is none yet, it is created with sample settings. Without this option, the variable VXSETTINGS_DATABASE names the database; without that, it is a file in the user’s data folder.</translation>
    </message>
    <message>
        <source>Не указана база данных.</source>
        <translation>No database is given.</translation>
    </message>
</context>
<context>
    <name>ConflictDialog</name>
    <message>
        <source>Настройки изменены в другом месте</source>
        <translation>Settings were changed elsewhere</translation>
    </message>
    <message>
        <source>&amp;Вернуться</source>
        <translation>&amp;Go back</translation>
    </message>
    <message>
        <source>Ничего не записывать и продолжить</source>
        <translation>Save nothing and continue editing</translation>
    </message>
    <message>
        <source>Пока вы редактировали настройки, эти параметры изменил кто-то другой. Ничего не записано. Выберите, какое значение оставить.</source>
        <translation>While you were editing, somebody else changed these settings. Nothing has been saved. Choose which value to keep.</translation>
    </message>
    <message>
        <source>Было: %1</source>
        <translation>Before: %1</translation>
    </message>
    <message>
        <source>Взять из базы данных</source>
        <translation>Take it from the database</translation>
    </message>
    <message>
        <source>Записать моё</source>
        <translation>Save mine</translation>
    </message>
    <message>
        <source>Все из &amp;базы</source>
        <translation>All from the &amp;database</translation>
    </message>
    <message>
        <source>Все &amp;мои</source>
        <translation>All &amp;mine</translation>
    </message>
    <message>
        <source>&amp;Записать выбранное</source>
        <translation>&amp;Save the selection</translation>
    </message>
</context>
<context>
    <name>DisabledHints</name>
    <message>
        <source>Недоступно. Включается параметром «%1», сейчас там: %2.</source>
        <translation>Not available. “%1” switches it on, and is now: %2.</translation>
    </message>
</context>
<context>
    <name>EditHistory</name>
    <message>
        <source>&amp;Отменить правку</source>
        <translation>&amp;Undo edit</translation>
    </message>
    <message>
        <source>&amp;Повторить правку</source>
        <translation>&amp;Redo edit</translation>
    </message>
</context>
<context>
    <name>HistoryDialog</name>
    <message>
        <source>%1. Причина: %2</source>
        <translation>%1. Reason: %2</translation>
    </message>
    <message>
        <source>История читается…</source>
        <translation>Reading the history…</translation>
    </message>
    <message>
        <source>Настройка</source>
        <translation>Setting</translation>
    </message>
    <message>
        <source>Было</source>
        <translation>Before</translation>
    </message>
    <message>
        <source>Стало</source>
        <translation>After</translation>
    </message>
    <message>
        <source>История: %1</source>
        <translation>History: %1</translation>
    </message>
    <message>
        <source>История изменений</source>
        <translation>History of changes</translation>
    </message>
    <message>
        <source>Вернуть &amp;прежнее значение</source>
        <translation>Bring the &amp;earlier value back</translation>
    </message>
    <message>
        <source>Поставить в редактор значение из столбца «Было». Сохраняется оно обычным образом</source>
        <translation>Put the value of the column “Before” into the editor. It is saved as usual</translation>
    </message>
    <message>
        <source>&amp;Закрыть</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <source>Изменений не было</source>
        <translation>There were no changes</translation>
    </message>
    <message>
        <source>Изменений: %1</source>
        <translation>Changes: %1</translation>
    </message>
    <message>
        <source>скрыто</source>
        <translation>hidden</translation>
    </message>
    <message>
        <source>В редакторе «%1» снова %2. Осталось сохранить.</source>
        <translation>The editor of “%1” has %2 again. It is still to be saved.</translation>
    </message>
</context>
<context>
    <name>ImportDialog</name>
    <message>
        <source>изменятся: %1</source>
        <translation>will change: %1</translation>
    </message>
    <message>
        <source>изменится</source>
        <translation>will change</translation>
    </message>
    <message>
        <source>без изменений: %1</source>
        <translation>unchanged: %1</translation>
    </message>
    <message>
        <source>без изменений</source>
        <translation>unchanged</translation>
    </message>
    <message>
        <source>не подходят: %1</source>
        <translation>not valid: %1</translation>
    </message>
    <message>
        <source>не подходит</source>
        <translation>not valid</translation>
    </message>
    <message>
        <source>нет в каталоге: %1</source>
        <translation>not in the catalogue: %1</translation>
    </message>
    <message>
        <source>нет в каталоге, здесь не меняется</source>
        <translation>not in the catalogue, is not changed here</translation>
    </message>
    <message>
        <source>нет в файле: %1</source>
        <translation>not in the file: %1</translation>
    </message>
    <message>
        <source>нет в файле, не меняется</source>
        <translation>not in the file, is not changed</translation>
    </message>
    <message>
        <source>отличаются: %1</source>
        <translation>different: %1</translation>
    </message>
    <message>
        <source>отличается</source>
        <translation>different</translation>
    </message>
    <message>
        <source>одинаковы: %1</source>
        <translation>equal: %1</translation>
    </message>
    <message>
        <source>одинаково</source>
        <translation>equal</translation>
    </message>
    <message>
        <source>в файле недопустимое значение</source>
        <translation>the value in the file is not valid</translation>
    </message>
    <message>
        <source>нет в каталоге</source>
        <translation>not in the catalogue</translation>
    </message>
    <message>
        <source>нет в файле</source>
        <translation>not in the file</translation>
    </message>
    <message>
        <source>Настройка</source>
        <translation>Setting</translation>
    </message>
    <message>
        <source>В базе данных</source>
        <translation>In the database</translation>
    </message>
    <message>
        <source>В файле</source>
        <translation>In the file</translation>
    </message>
    <message>
        <source>Сравнение</source>
        <translation>Comparison</translation>
    </message>
    <message>
        <source>Загрузка настроек из файла</source>
        <translation>Import settings from a file</translation>
    </message>
    <message>
        <source>Сравнение с файлом</source>
        <translation>Compare with a file</translation>
    </message>
    <message>
        <source>Отличия файла от базы данных</source>
        <translation>Differences between the file and the database</translation>
    </message>
    <message>
        <source>Файл «%1»</source>
        <translation>File “%1”</translation>
    </message>
    <message>
        <source>Искать в списке</source>
        <translation>Search the list</translation>
    </message>
    <message>
        <source>Какие настройки показывать</source>
        <translation>Which settings to show</translation>
    </message>
    <message>
        <source>все: %1</source>
        <translation>all: %1</translation>
    </message>
    <message>
        <source>О&amp;тметить все</source>
        <translation>Check &amp;all</translation>
    </message>
    <message>
        <source>&amp;Снять все</source>
        <translation>&amp;Uncheck all</translation>
    </message>
    <message>
        <source>Только среди тех, которые видны</source>
        <translation>Only among those that are visible</translation>
    </message>
    <message>
        <source>Поставить отмеченные значения в редакторы. Сохраняются они обычным образом</source>
        <translation>Put the checked values into the editors. They are saved as usual</translation>
    </message>
    <message>
        <source>Отме&amp;на</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>&amp;Закрыть</source>
        <translation>C&amp;lose</translation>
    </message>
    <message>
        <source>Настройки — %1</source>
        <translation>Settings — %1</translation>
    </message>
    <message>
        <source>&amp;Взять отмеченные: %1</source>
        <translation>&amp;Take the checked ones: %1</translation>
    </message>
    <message>
        <source>Сравнивается с тем, что сохранено. Несохранённых изменений: %1.</source>
        <translation>Compared with what is stored. Unsaved changes: %1.</translation>
    </message>
    <message>
        <source>Отмеченные значения заменят их у тех же параметров; это можно отменить.</source>
        <translation>The checked values replace them in the same parameters; this can be undone.</translation>
    </message>
</context>
<context>
    <name>ImportPlan</name>
    <message>
        <source>Меняется в окне «Доступ операторов»</source>
        <translation>It is changed in the “Operator access” window</translation>
    </message>
    <message>
        <source>Страница закрыта для операторов</source>
        <translation>The page is locked for operators</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>&amp;Файл</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>П&amp;равка</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>&amp;Вид</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>Спр&amp;авка</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>&amp;О программе</source>
        <translation>A&amp;bout</translation>
    </message>
    <message>
        <source>&amp;Сохранить</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>&amp;Импорт…</source>
        <translation>&amp;Import…</translation>
    </message>
    <message>
        <source>С&amp;равнить с файлом…</source>
        <translation>&amp;Compare with a file…</translation>
    </message>
    <message>
        <source>&amp;Экспорт…</source>
        <translation>E&amp;xport…</translation>
    </message>
    <message>
        <source>&amp;Отчёт в PDF…</source>
        <translation>&amp;Report as PDF…</translation>
    </message>
    <message>
        <source>&amp;Выход</source>
        <translation>&amp;Quit</translation>
    </message>
    <message>
        <source>&amp;Найти…	Ctrl+F</source>
        <translation>Fi&amp;nd…	Ctrl+F</translation>
    </message>
    <message>
        <source>&amp;История изменений…</source>
        <translation>Histor&amp;y…</translation>
    </message>
    <message>
        <source>&amp;Язык</source>
        <translation>&amp;Language</translation>
    </message>
    <message>
        <source>&amp;Оформление</source>
        <translation>&amp;Theme</translation>
    </message>
    <message>
        <source>&amp;Светлое</source>
        <translation>Li&amp;ght</translation>
    </message>
    <message>
        <source>&amp;Тёмное</source>
        <translation>&amp;Dark</translation>
    </message>
    <message>
        <source>&amp;Как в системе</source>
        <translation>Sa&amp;me as the system</translation>
    </message>
    <message>
        <source>&amp;Доступ операторов…</source>
        <translation>&amp;Operator access…</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>%1[*] — Настройки базы данных</source>
        <translation>%1[*] – Database settings</translation>
    </message>
    <message>
        <source>О программе</source>
        <translation>About</translation>
    </message>
    <message>
        <source>Настройки базы данных</source>
        <translation>Database settings</translation>
    </message>
    <message>
        <source>Версия %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>&amp;Закрыть</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <source>Запись «%1» в базе данных не читается целиком. Страница показывает то, что в ней удалось разобрать.</source>
        <translation>The record “%1” cannot be read as a whole in the database. The page shows what could be made of it.</translation>
    </message>
    <message>
        <source>Загрузка настроек…</source>
        <translation>Loading the settings…</translation>
    </message>
</context>
<context>
    <name>Manager</name>
    <message>
        <source>Нет дисплея. Без него доступны --render, --self-test, --help и --version.</source>
        <translation>There is no display. Without one, only --render, --self-test, --help and --version are available.</translation>
    </message>
    <message>
        <source>Справка: vxsettings-manager --help</source>
        <translation>For help: vxsettings-manager --help</translation>
    </message>
</context>
<context>
    <name>PageArea</name>
    <message>
        <source>Доступ операторов…</source>
        <translation>Operator access…</translation>
    </message>
    <message>
        <source>Исправить запись…</source>
        <translation>Repair the record…</translation>
    </message>
</context>
<context>
    <name>PageList</name>
    <message>
        <source>Страницы настроек</source>
        <translation>Settings pages</translation>
    </message>
    <message>
        <source>Есть несохранённые изменения</source>
        <translation>There are unsaved changes</translation>
    </message>
    <message>
        <source>Общие</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Люди</source>
        <translation>People</translation>
    </message>
    <message>
        <source>Биометрия</source>
        <translation>Biometrics</translation>
    </message>
    <message>
        <source>Мобильные приложения</source>
        <translation>Mobile applications</translation>
    </message>
    <message>
        <source>Внешние системы</source>
        <translation>External systems</translation>
    </message>
    <message>
        <source>Закрыта для операторов</source>
        <translation>Locked for operators</translation>
    </message>
</context>
<context>
    <name>PagePictures</name>
    <message>
        <source>Не удаётся создать папку «%1».</source>
        <translation>The folder “%1” cannot be created.</translation>
    </message>
    <message>
        <source>Не удаётся записать файл «%1».</source>
        <translation>The file “%1” cannot be written.</translation>
    </message>
</context>
<context>
    <name>ParameterMarks</name>
    <message>
        <source>Изменено и здесь, и в другом месте. Там сохранено: %1 (%2).</source>
        <translation>Changed here and elsewhere. Saved there: %1 (%2).</translation>
    </message>
    <message>
        <source>Изменено. Сохранено: %1.</source>
        <translation>Changed. Saved: %1.</translation>
    </message>
    <message>
        <source>%1 Сохранено: %2.</source>
        <translation>%1 Saved: %2.</translation>
    </message>
    <message>
        <source>%1 Сохранено: %2, показано: %3.</source>
        <translation>%1 Saved: %2, shown: %3.</translation>
    </message>
    <message>
        <source>%1 Исправить запись можно в контекстном меню.</source>
        <translation>%1 It can be repaired from the context menu.</translation>
    </message>
</context>
<context>
    <name>ParameterMenu</name>
    <message>
        <source>Почему такое значение…</source>
        <translation>Why this value…</translation>
    </message>
    <message>
        <source>Вернуть сохранённое значение</source>
        <translation>Revert to the saved value</translation>
    </message>
    <message>
        <source>Исправить сохранённое: %1</source>
        <translation>Repair what is saved: %1</translation>
    </message>
    <message>
        <source>Перейти к параметру «%1»</source>
        <translation>Go to “%1”</translation>
    </message>
    <message>
        <source>Скопировать ключ</source>
        <translation>Copy the key</translation>
    </message>
    <message>
        <source>Скопировать команду vxsettingsctl</source>
        <translation>Copy the vxsettingsctl command</translation>
    </message>
    <message>
        <source>Ключ: %1</source>
        <translation>Key: %1</translation>
    </message>
    <message>
        <source>Сохранено: %1</source>
        <translation>Saved: %1</translation>
    </message>
    <message>
        <source>Показано: %1</source>
        <translation>Shown: %1</translation>
    </message>
    <message>
        <source>Последнее изменение: %1</source>
        <translation>Last change: %1</translation>
    </message>
    <message>
        <source>Почему такое значение</source>
        <translation>Why this value</translation>
    </message>
    <message>
        <source>&amp;Закрыть</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <source>История параметра…</source>
        <translation>History of this parameter…</translation>
    </message>
    <message>
        <source>Исправить запись «%1»…</source>
        <translation>Repair the record “%1”…</translation>
    </message>
</context>
<context>
    <name>RepairDialog</name>
    <message>
        <source>Исправление записи: %1</source>
        <translation>Repair of the record: %1</translation>
    </message>
    <message>
        <source>&amp;Записано сейчас:</source>
        <translation>&amp;Stored now:</translation>
    </message>
    <message>
        <source>&amp;Будет записано (то, что показывает страница):</source>
        <translation>&amp;Will be stored (what the page shows):</translation>
    </message>
    <message>
        <source>Это обычная правка: до сохранения её можно отменить, а после прежний текст останется в истории изменений.</source>
        <translation>This is an edit like any other: it can be undone until it is saved, and afterwards the earlier text stays in the history of changes.</translation>
    </message>
    <message>
        <source>&amp;Исправить</source>
        <translation>&amp;Repair</translation>
    </message>
    <message>
        <source>&amp;Не исправлять</source>
        <translation>&amp;Do not repair</translation>
    </message>
</context>
<context>
    <name>ReviewDialog</name>
    <message>
        <source>Настройка</source>
        <translation>Setting</translation>
    </message>
    <message>
        <source>Сейчас</source>
        <translation>Now</translation>
    </message>
    <message>
        <source>Станет</source>
        <translation>Afterwards</translation>
    </message>
    <message>
        <source>Изменения</source>
        <translation>Changes</translation>
    </message>
    <message>
        <source>Изменения перед сохранением</source>
        <translation>Changes before they are saved</translation>
    </message>
    <message>
        <source>Необязательно. Останется в истории изменений</source>
        <translation>Optional. It stays in the history of changes</translation>
    </message>
    <message>
        <source>&amp;Причина:</source>
        <translation>&amp;Reason:</translation>
    </message>
    <message>
        <source>Причина</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>&amp;Сохранить</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>&amp;Вернуться</source>
        <translation>&amp;Go back</translation>
    </message>
    <message>
        <source>Изменений: %1</source>
        <translation>Changes: %1</translation>
    </message>
</context>
<context>
    <name>SaveConversation</name>
    <message>
        <source>Сохранение…</source>
        <translation>Saving…</translation>
    </message>
    <message>
        <source>База данных занята другой программой. Ожидание…</source>
        <translation>The database is in use by another program. Waiting…</translation>
    </message>
    <message>
        <source>Выясняется, записаны ли изменения…</source>
        <translation>Finding out whether the changes were saved…</translation>
    </message>
    <message>
        <source>Нет связи с базой данных. Соединение…</source>
        <translation>There is no connection to the database. Connecting…</translation>
    </message>
    <message>
        <source>%1 Изменения можно будет сохранить, когда связь восстановится.</source>
        <translation>%1 The changes can be saved when the connection is back.</translation>
    </message>
    <message>
        <source>Нет связи с базой данных. Изменения запишутся, когда она восстановится.</source>
        <translation>There is no connection to the database. The changes will be saved when it is back.</translation>
    </message>
    <message>
        <source>Связь восстановлена. Пока её не было, изменения стали другими, поэтому они не записаны.</source>
        <translation>The connection is back. While it was gone the changes became others, so they were not saved.</translation>
    </message>
</context>
<context>
    <name>SaveQuestions</name>
    <message>
        <source>Хранимое значение не читается</source>
        <translation>A stored value cannot be read</translation>
    </message>
    <message>
        <source>В базе данных записан текст, который не является объектом JSON с разными именами: %1.</source>
        <translation>The database holds a text that is not a JSON object with distinct names: %1.</translation>
    </message>
    <message>
        <source>Изменения нельзя добавить к этому тексту. Если его заменить, прежний текст пропадёт.</source>
        <translation>The changes cannot be added to this text. If it is replaced, the previous text is lost.</translation>
    </message>
    <message>
        <source>&amp;Заменить</source>
        <translation>&amp;Replace</translation>
    </message>
    <message>
        <source>&amp;Не сохранять</source>
        <translation>&amp;Don’t save</translation>
    </message>
    <message>
        <source>Несохранённые изменения</source>
        <translation>Unsaved changes</translation>
    </message>
    <message>
        <source>Изменено настроек: %1. Сохранить изменения?</source>
        <translation>Settings changed: %1. Save the changes?</translation>
    </message>
    <message>
        <source>&amp;Сохранить</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>&amp;Вернуться</source>
        <translation>&amp;Go back</translation>
    </message>
    <message>
        <source>Ошибка базы данных</source>
        <translation>Database error</translation>
    </message>
    <message>
        <source>&amp;Закрыть</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <source>Неизвестно, записаны ли изменения. Когда связь восстановится, записанное перестанет отмечаться как изменённое.</source>
        <translation>It is unknown whether the changes were saved. When the connection is back, what was saved will no longer be marked as changed.</translation>
    </message>
    <message>
        <source>…и ещё: %1</source>
        <translation>…and more: %1</translation>
    </message>
    <message>
        <source>Черновик изменений</source>
        <translation>Draft of changes</translation>
    </message>
    <message>
        <source>Программа завершилась, не сохранив изменения от %1. Восстановить их?</source>
        <translation>The program ended without saving the changes of %1. Restore them?</translation>
    </message>
    <message>
        <source>&amp;Восстановить</source>
        <translation>R&amp;estore</translation>
    </message>
    <message>
        <source>&amp;Удалить черновик</source>
        <translation>De&amp;lete the draft</translation>
    </message>
    <message>
        <source>%1: %2 → %3</source>
        <translation>%1: %2 → %3</translation>
    </message>
    <message>
        <source>Прежнее значение не подходит</source>
        <translation>The earlier value does not fit</translation>
    </message>
    <message>
        <source>Ничего не изменено.</source>
        <translation>Nothing was changed.</translation>
    </message>
    <message>
        <source>Страница закрыта</source>
        <translation>The page is locked</translation>
    </message>
    <message>
        <source>Ничего не записано. Изменения на закрытых страницах можно отменить и сохранить остальные.</source>
        <translation>Nothing was stored. The changes on locked pages can be undone, and the others saved.</translation>
    </message>
    <message>
        <source>&amp;Отменить их</source>
        <translation>&amp;Undo them</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Найдено: %1. %2</source>
        <translation>Found: %1. %2</translation>
    </message>
    <message>
        <source>Поиск настроек (%1)</source>
        <translation>Search settings (%1)</translation>
    </message>
    <message>
        <source>Поиск настроек</source>
        <translation>Search settings</translation>
    </message>
    <message>
        <source>По названиям, вариантам, подсказкам, ключам и близким по смыслу словам, на русском и английском языках</source>
        <translation>In names, choices, tool tips, keys and words of similar meaning, in Russian and English</translation>
    </message>
    <message>
        <source>Изменённые (%1)</source>
        <translation>Changed (%1)</translation>
    </message>
    <message>
        <source>Показывать только настройки с несохранёнными изменениями</source>
        <translation>Show only settings with unsaved changes</translation>
    </message>
    <message>
        <source>С ошибками (%1)</source>
        <translation>With problems (%1)</translation>
    </message>
    <message>
        <source>Показывать только настройки, с которыми что-то не так</source>
        <translation>Show only settings with which something is wrong</translation>
    </message>
    <message>
        <source>Очистить</source>
        <translation>Clear</translation>
    </message>
</context>
<context>
    <name>SearchResults</name>
    <message>
        <source>Результаты поиска</source>
        <translation>Search results</translation>
    </message>
    <message>
        <source>Ничего не найдено</source>
        <translation>Nothing found</translation>
    </message>
</context>
<context>
    <name>SelfTest</name>
    <message>
        <source>Самопроверка пройдена.</source>
        <translation>The self-test passed.</translation>
    </message>
    <message>
        <source>Самопроверка НЕ пройдена.</source>
        <translation>The self-test FAILED.</translation>
    </message>
    <message>
        <source>Самопроверка на временной копии базы данных «%1».</source>
        <translation>Self-test on a temporary copy of the database “%1”.</translation>
    </message>
    <message>
        <source>Самопроверка на новой временной базе данных: файла «%1» ещё нет.</source>
        <translation>Self-test on a new temporary database: the file “%1” does not exist yet.</translation>
    </message>
    <message>
        <source>построено страниц: %1, изменений в них нет</source>
        <translation>pages built: %1, without any change in them</translation>
    </message>
    <message>
        <source>изменено настроек: %1, замечено: %2</source>
        <translation>settings changed: %1, noticed: %2</translation>
    </message>
    <message>
        <source>изменения сохранены одной транзакцией</source>
        <translation>the changes were saved in one transaction</translation>
    </message>
    <message>
        <source>база данных перечитана, все параметры показаны такими, как сохранены: %1</source>
        <translation>the database was reloaded, all parameters are shown as they were saved: %1</translation>
    </message>
    <message>
        <source>набранный текст отменён</source>
        <translation>typed text was reverted</translation>
    </message>
    <message>
        <source>запись поверх чужого изменения не выполнена, чужое значение цело</source>
        <translation>saving over a change of somebody else was refused, and their value is intact</translation>
    </message>
    <message>
        <source>исходная база данных не тронута</source>
        <translation>the original database is untouched</translation>
    </message>
    <message>
        <source>  верно:  </source>
        <extracomment>As wide as the words for what failed, so that what follows stands in a column.</extracomment>
        <translation>  correct: </translation>
    </message>
    <message>
        <source>  ОШИБКА: </source>
        <extracomment>As wide as the words for what is right.</extracomment>
        <translation>  ERROR:   </translation>
    </message>
</context>
<context>
    <name>SettingsFiles</name>
    <message>
        <source>Экспорт настроек</source>
        <translation>Export settings</translation>
    </message>
    <message>
        <source>Файлы настроек (*.json)</source>
        <translation>Settings files (*.json)</translation>
    </message>
    <message>
        <source>Отчёт о настройках</source>
        <translation>Settings report</translation>
    </message>
    <message>
        <source>Документы PDF (*.pdf)</source>
        <translation>PDF documents (*.pdf)</translation>
    </message>
    <message>
        <source>Импорт настроек</source>
        <translation>Import settings</translation>
    </message>
    <message>
        <source>Сравнение с файлом</source>
        <translation>Comparison with a file</translation>
    </message>
    <message>
        <source>Файл не прочитан</source>
        <translation>File not read</translation>
    </message>
    <message>
        <source>Файл не записан</source>
        <translation>File not written</translation>
    </message>
    <message>
        <source>Файл записан</source>
        <translation>File written</translation>
    </message>
    <message>
        <source>&amp;Закрыть</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <source>В файле есть пароли и токены. Прочитать его может только его владелец.</source>
        <translation>There are passwords and tokens in the file. Only its owner can read it.</translation>
    </message>
    <message>
        <source>Пароли и токены в файл не входят.</source>
        <translation>There are no passwords or tokens in the file.</translation>
    </message>
    <message>
        <source>Пароли и токены в отчёте скрыты.</source>
        <translation>Passwords and tokens are hidden in the report.</translation>
    </message>
    <message>
        <source>Несохранённых изменений: %1. В файл они не войдут.</source>
        <translation>Unsaved changes: %1. They will not be in the file.</translation>
    </message>
    <message>
        <source>Будет записано то, что сохранено в базе данных.</source>
        <translation>What is stored in the database will be written.</translation>
    </message>
    <message>
        <source>&amp;Продолжить</source>
        <translation>C&amp;ontinue</translation>
    </message>
    <message>
        <source>&amp;Вернуться</source>
        <translation>&amp;Go back</translation>
    </message>
    <message>
        <source>Записать в файл пароли и токены?</source>
        <translation>Write passwords and tokens into the file?</translation>
    </message>
    <message>
        <source>В файле они не зашифрованы: кто прочитает файл, узнает их. Без них файл можно передавать другим, а при импорте останутся те, что уже записаны.</source>
        <translation>They are not encrypted in the file: whoever reads the file knows them. Without them the file can be handed on, and an import leaves those that are stored already.</translation>
    </message>
    <message>
        <source>&amp;Без паролей</source>
        <translation>&amp;Without passwords</translation>
    </message>
    <message>
        <source>&amp;С паролями</source>
        <translation>With &amp;passwords</translation>
    </message>
    <message>
        <source>Отме&amp;на</source>
        <translation>C&amp;ancel</translation>
    </message>
</context>
</TS>
