<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru">
<context>
    <name>CheckCommand</name>
    <message>
        <source>ошибка</source>
        <translation>error</translation>
    </message>
    <message>
        <source>замечание</source>
        <translation>notice</translation>
    </message>
    <message>
        <source>Исправлено на «%1».</source>
        <translation>Repaired to “%1”.</translation>
    </message>
    <message>
        <source>Исправление: «%1».</source>
        <translation>Repair: “%1”.</translation>
    </message>
    <message>
        <source>Ошибок нет.
</source>
        <translation>No errors.
</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Командная строка записана не в кодировке UTF-8.</source>
        <translation>The command line is not encoded in UTF-8.</translation>
    </message>
    <message>
        <source>Не указана база данных.</source>
        <translation>No database is given.</translation>
    </message>
    <message>
        <source>Не указана команда.</source>
        <translation>No command is given.</translation>
    </message>
    <message>
        <source>Нет такой команды: «%1».</source>
        <translation>There is no such command: “%1”.</translation>
    </message>
    <message>
        <source>У команды «%1» нет параметра «--%2».</source>
        <translation>The command “%1” has no option “--%2”.</translation>
    </message>
    <message>
        <source>Команде «%1» не хватает аргументов.</source>
        <translation>The command “%1” needs more arguments.</translation>
    </message>
    <message>
        <source>У команды «%1» слишком много аргументов.</source>
        <translation>The command “%1” has too many arguments.</translation>
    </message>
</context>
<context>
    <name>CommandTable</name>
    <message>
        <source>Показать справку о программе или, после имени команды, о команде.</source>
        <translation>Show help on the program or, after the name of a command, on the command.</translation>
    </message>
    <message>
        <source>Показать версию программы.</source>
        <translation>Show the version of the program.</translation>
    </message>
    <message>
        <source>База данных: sqlite:ПУТЬ или путь; иначе VXSETTINGS_DATABASE, иначе файл в папке данных пользователя.</source>
        <translation>The database: sqlite:PATH or a path; else VXSETTINGS_DATABASE, else a file in the user’s data folder.</translation>
    </message>
    <message>
        <source>Вывести один документ JSON вместо текста.</source>
        <translation>Print one JSON document instead of text.</translation>
    </message>
    <message>
        <source>Показать, что изменится, и ничего не записывать.</source>
        <translation>Show what would change, and save nothing.</translation>
    </message>
    <message>
        <source>Не скрывать пароли и токены.</source>
        <translation>Do not hide passwords and tokens.</translation>
    </message>
    <message>
        <source>Прочитать значение из стандартного ввода.</source>
        <translation>Read the value from standard input.</translation>
    </message>
    <message>
        <source>Исправить то, что можно исправить без потери данных.</source>
        <translation>Repair what can be repaired without losing data.</translation>
    </message>
    <message>
        <source>Заполнить базу данных примером.</source>
        <translation>Fill the database with a sample.</translation>
    </message>
    <message>
        <source>[ГРУППА]</source>
        <translation>[GROUP]</translation>
    </message>
    <message>
        <source>Показать настройки, все или одной группы.</source>
        <translation>Show the settings, all of them or those of one group.</translation>
    </message>
    <message>
        <source>ГРУППА — имя («users») или заголовок («Пользователи») страницы настроек. Без неё показаны и настройки, которых нет
в каталоге. Пароли и токены скрыты.</source>
        <translation>GROUP is the name (“users”) or the title (“Users”) of a settings page. Without it, settings that the catalogue does
not have are shown as well. Passwords and tokens are hidden.</translation>
    </message>
    <message>
        <source>КЛЮЧ[.ПОЛЕ]</source>
        <translation>KEY[.MEMBER]</translation>
    </message>
    <message>
        <source>Вывести сохранённое значение как есть.</source>
        <translation>Print a stored value as it is.</translation>
    </message>
    <message>
        <source>Пароли и токены выводятся только с параметром --with-secrets.</source>
        <translation>Passwords and tokens are printed only with the option --with-secrets.</translation>
    </message>
    <message>
        <source>КЛЮЧ[.ПОЛЕ]=ЗНАЧЕНИЕ…</source>
        <translation>KEY[.MEMBER]=VALUE…</translation>
    </message>
    <message>
        <source>Изменить настройки, все вместе или ни одной.</source>
        <translation>Change settings, all of them or none.</translation>
    </message>
    <message>
        <source>Вариант выбора указывается номером или названием. Если хотя бы одно имя или значение не подходит, не меняется ничего.
С параметром --stdin указывается один КЛЮЧ[.ПОЛЕ] без значения. Так задаются пароли и токены: командную строку видят
другие пользователи компьютера, и она остаётся в истории команд.</source>
        <translation>A choice is given by its number or its name. If any name or value does not fit, nothing is changed. With the option
--stdin, one KEY[.MEMBER] is given without a value. This is the way to set passwords and tokens: other users of the
computer see the command line, and it stays in the command history.</translation>
    </message>
    <message>
        <source>[КЛЮЧ[.ПОЛЕ]]</source>
        <translation>[KEY[.MEMBER]]</translation>
    </message>
    <message>
        <source>Рассказать, что известно о настройке: название, вид, допустимые и зависимые значения.</source>
        <translation>Tell what is known of a setting: its name, kind, allowed values and dependents.</translation>
    </message>
    <message>
        <source>База данных для этого не нужна.</source>
        <translation>This needs no database.</translation>
    </message>
    <message>
        <source>Проверить сохранённые значения.</source>
        <translation>Check the stored values.</translation>
    </message>
    <message>
        <source>Код завершения 1 — есть ошибки, а после --repair — остались ошибки, которые может исправить только человек.
Настройки и поля, которых нет в каталоге, — замечания, а не ошибки.</source>
        <translation>Exit status 1: there are errors or, after --repair, errors are left that only a person can repair.
Settings and members that the catalogue does not have are notices, not errors.</translation>
    </message>
    <message>
        <source>ФАЙЛ</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>Записать настройки в файл JSON.</source>
        <translation>Write the settings to a JSON file.</translation>
    </message>
    <message>
        <source>Без --with-secrets паролей и токенов в файле нет. С ними файл доступен только владельцу. Имеющийся файл заменяется.</source>
        <translation>Without --with-secrets, the file has no passwords and tokens. With them, only its owner can read it. An existing file
is replaced.</translation>
    </message>
    <message>
        <source>Сохранить настройки из файла, все вместе или ни одной.</source>
        <translation>Save the settings of a file, all of them or none.</translation>
    </message>
    <message>
        <source>Настройки, которых нет в файле, не меняются. Настройки, которых нет в каталоге, сохраняются без проверки.</source>
        <translation>Settings that the file does not have stay unchanged. Settings that the catalogue does not have are saved unchecked.</translation>
    </message>
    <message>
        <source>Сравнить сохранённые настройки с файлом.</source>
        <translation>Compare the stored settings with a file.</translation>
    </message>
    <message>
        <source>Создать базу данных, пустую или с примером.</source>
        <translation>Create a database, empty or with a sample.</translation>
    </message>
    <message>
        <source>Другие команды базу данных не создают. Имеющийся файл остаётся как есть.</source>
        <translation>Other commands never create a database. An existing file is left as it is.</translation>
    </message>
    <message>
        <source>Использование: vxsettingsctl [ПАРАМЕТРЫ] КОМАНДА [АРГУМЕНТЫ]

Настройки базы данных системы контроля доступа из командной строки.

Команды:
</source>
        <translation>Usage: vxsettingsctl [OPTIONS] COMMAND [ARGUMENTS]

Database settings of an access-control system from the command line.

Commands:
</translation>
    </message>
    <message>
        <source>Использование: vxsettingsctl [ПАРАМЕТРЫ] %1

%2
</source>
        <translation>Usage: vxsettingsctl [OPTIONS] %1

%2
</translation>
    </message>
    <message>
        <source>
Параметры:
</source>
        <translation>
Options:
</translation>
    </message>
    <message>
        <source>
Коды завершения:
</source>
        <translation>
Exit statuses:
</translation>
    </message>
</context>
<context>
    <name>Ctl</name>
    <message>
        <source>%1
Справка: vxsettingsctl --help</source>
        <translation>%1
For help: vxsettingsctl --help</translation>
    </message>
</context>
<context>
    <name>DescribeCommand</name>
    <message>
        <source>да или нет</source>
        <translation>yes or no</translation>
    </message>
    <message>
        <source>выбор</source>
        <translation>choice</translation>
    </message>
    <message>
        <source>строка</source>
        <translation>text</translation>
    </message>
    <message>
        <source>число</source>
        <translation>number</translation>
    </message>
    <message>
        <source>объект JSON</source>
        <translation>JSON object</translation>
    </message>
    <message>
        <source>только для чтения</source>
        <translation>read-only</translation>
    </message>
    <message>
        <source>пароль или токен</source>
        <translation>password or token</translation>
    </message>
    <message>
        <source>подразделение</source>
        <translation>department</translation>
    </message>
    <message>
        <source>профиль смарткарт</source>
        <translation>smart card profile</translation>
    </message>
    <message>
        <source>Ключ:</source>
        <translation>Key:</translation>
    </message>
    <message>
        <source>Название:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Группа:</source>
        <translation>Group:</translation>
    </message>
    <message>
        <source>Вид:</source>
        <translation>Kind:</translation>
    </message>
    <message>
        <source>Значения:</source>
        <translation>Values:</translation>
    </message>
    <message>
        <source>Поля:</source>
        <translation>Members:</translation>
    </message>
    <message>
        <source>Зависимые:</source>
        <translation>Dependents:</translation>
    </message>
    <message>
        <source>
%1
</source>
        <translation>
%1
</translation>
    </message>
    <message>
        <source>КЛЮЧ</source>
        <translation>KEY</translation>
    </message>
    <message>
        <source>НАЗВАНИЕ</source>
        <translation>NAME</translation>
    </message>
    <message>
        <source>ВИД</source>
        <translation>KIND</translation>
    </message>
    <message>
        <source>ЗНАЧЕНИЯ</source>
        <translation>VALUES</translation>
    </message>
    <message>
        <source>Настройки «%1» нет в каталоге.</source>
        <translation>The catalogue has no setting “%1”.</translation>
    </message>
</context>
<context>
    <name>DiffCommand</name>
    <message>
        <source>отличается</source>
        <translation>differs</translation>
    </message>
    <message>
        <source>нет в каталоге</source>
        <translation>not in the catalogue</translation>
    </message>
    <message>
        <source>недопустимо</source>
        <translation>invalid</translation>
    </message>
    <message>
        <source>нет в файле</source>
        <translation>not in the file</translation>
    </message>
    <message>
        <source>КЛЮЧ</source>
        <translation>KEY</translation>
    </message>
    <message>
        <source>ОТЛИЧИЕ</source>
        <translation>DIFFERENCE</translation>
    </message>
    <message>
        <source>СОХРАНЕНО</source>
        <translation>STORED</translation>
    </message>
    <message>
        <source>В ФАЙЛЕ</source>
        <translation>IN THE FILE</translation>
    </message>
    <message>
        <source>Отличий нет.
</source>
        <translation>No differences.
</translation>
    </message>
</context>
<context>
    <name>ExitStatus</name>
    <message>
        <source>выполнено</source>
        <translation>done</translation>
    </message>
    <message>
        <source>есть отличия или ошибки в сохранённых значениях; ничего не найдено</source>
        <translation>there are differences, or errors in stored values; nothing found</translation>
    </message>
    <message>
        <source>ошибка в командной строке</source>
        <translation>error in the command line</translation>
    </message>
    <message>
        <source>недопустимое имя, значение или сочетание значений; ничего не сохранено</source>
        <translation>invalid name, value or combination of values; nothing was saved</translation>
    </message>
    <message>
        <source>настройку одновременно изменил кто-то другой; ничего не сохранено</source>
        <translation>somebody else changed a setting at the same time; nothing was saved</translation>
    </message>
    <message>
        <source>ошибка базы данных или файла</source>
        <translation>database or file error</translation>
    </message>
</context>
<context>
    <name>ExportCommand</name>
    <message>
        <source>Файл «%1» принадлежит базе данных. Укажите другой.</source>
        <translation>The file “%1” belongs to the database. Name another one.</translation>
    </message>
    <message>
        <source>Записано настроек: %1, файл «%2».
</source>
        <translation>Settings written: %1, file “%2”.
</translation>
    </message>
</context>
<context>
    <name>GetCommand</name>
    <message>
        <source>Настройки «%1» нет.</source>
        <translation>There is no setting “%1”.</translation>
    </message>
    <message>
        <source>Настройка «%1» не задана.</source>
        <translation>The setting “%1” is not set.</translation>
    </message>
    <message>
        <source>«%1» — пароль или токен. Чтобы вывести его, укажите --with-secrets.</source>
        <translation>“%1” is a password or token. To print it, give the option --with-secrets.</translation>
    </message>
</context>
<context>
    <name>ImportCommand</name>
    <message>
        <source>Этих настроек нет в каталоге, их значения не проверены: %1.</source>
        <translation>The catalogue does not have these settings, their values were not checked: %1.</translation>
    </message>
</context>
<context>
    <name>InitCommand</name>
    <message>
        <source>Создана база данных «%1», настроек: %2.
</source>
        <translation>Created the database “%1”, settings: %2.
</translation>
    </message>
</context>
<context>
    <name>ListCommand</name>
    <message>
        <source>КЛЮЧ</source>
        <translation>KEY</translation>
    </message>
    <message>
        <source>НАЗВАНИЕ</source>
        <translation>NAME</translation>
    </message>
    <message>
        <source>ЗНАЧЕНИЕ</source>
        <translation>VALUE</translation>
    </message>
    <message>
        <source>Группы «%1» нет. Группы: %2.</source>
        <translation>There is no group “%1”. The groups: %2.</translation>
    </message>
</context>
<context>
    <name>Session</name>
    <message>
        <source>Файла нет.</source>
        <translation>The file does not exist.</translation>
    </message>
    <message>
        <source>Проверьте параметр --database или создайте базу данных: vxsettingsctl init.</source>
        <translation>Check the option --database, or create the database: vxsettingsctl init.</translation>
    </message>
    <message>
        <source>Ничего не сохранено: настройки одновременно изменил кто-то другой.</source>
        <translation>Nothing was saved: somebody else changed settings at the same time.</translation>
    </message>
    <message>
        <source>%1: было %2, сейчас %3, вы задаёте %4</source>
        <translation>%1: was %2, now is %3, you are setting %4</translation>
    </message>
</context>
<context>
    <name>SetCommand</name>
    <message>
        <source>Аргумент %1 — не КЛЮЧ=ЗНАЧЕНИЕ.</source>
        <translation>Argument %1 is not KEY=VALUE.</translation>
    </message>
    <message>
        <source>«%1» — пароль или токен. В командной строке его увидели бы другие пользователи, и он остался бы в истории команд. Задайте его так: vxsettingsctl set --stdin %1</source>
        <translation>“%1” is a password or token. On the command line, other users would see it, and it would stay in the command history. Set it like this: vxsettingsctl set --stdin %1</translation>
    </message>
    <message>
        <source>Настройка «%1» указана несколько раз.</source>
        <translation>The setting “%1” is given several times.</translation>
    </message>
    <message>
        <source>С параметром --stdin укажите один КЛЮЧ без значения.</source>
        <translation>With the option --stdin, give one KEY without a value.</translation>
    </message>
    <message>
        <source>Ничего не сохранено. Стандартный ввод не читается, длиннее %1 байт или записан не в кодировке UTF-8.</source>
        <translation>Nothing was saved. Standard input cannot be read, is longer than %1 bytes or is not encoded in UTF-8.</translation>
    </message>
</context>
<context>
    <name>SettingChanges</name>
    <message>
        <source>%1: в базе данных не объект JSON, поле задать нельзя. Исправьте: vxsettingsctl check --repair.</source>
        <translation>%1: the database holds no JSON object, so a member cannot be set. To repair it: vxsettingsctl check --repair.</translation>
    </message>
    <message>
        <source>Ничего не сохранено.
%1</source>
        <translation>Nothing was saved.
%1</translation>
    </message>
    <message>
        <source>Ничего не изменилось.
</source>
        <translation>Nothing changed.
</translation>
    </message>
    <message>
        <source>Пробный запуск: ничего не записано.</source>
        <translation>Dry run: nothing was saved.</translation>
    </message>
</context>
<context>
    <name>SettingsFile</name>
    <message>
        <source>Не удаётся прочитать файл «%1»: %2.</source>
        <translation>The file “%1” cannot be read: %2.</translation>
    </message>
    <message>
        <source>Файл «%1» нельзя использовать. %2</source>
        <translation>The file “%1” cannot be used. %2</translation>
    </message>
</context>
<context>
    <name>StandardInput</name>
    <message>
        <source>Значение: </source>
        <translation>Value: </translation>
    </message>
</context>
<context>
    <name>StoredDifference</name>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>ValueWords</name>
    <message>
        <source>—</source>
        <translation>—</translation>
    </message>
</context>
</TS>
