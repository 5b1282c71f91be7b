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
    <message>
        <source>: «%1»</source>
        <translation>: “%1”</translation>
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
    <message>
        <source>Нет такого языка: «%1». Языки: %2.</source>
        <translation>There is no such language: “%1”. The languages: %2.</translation>
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
    <message>
        <source>URL</source>
        <translation>URL</translation>
    </message>
    <message>
        <source>База данных: файл (sqlite:ПУТЬ, ПУТЬ) или сервер (postgresql://КТО@УЗЕЛ:ПОРТ/ИМЯ).</source>
        <translation>The database: a file (sqlite:PATH, PATH) or a server (postgresql://USER@HOST:PORT/NAME).</translation>
    </message>
    <message>
        <source>ТЕКСТ</source>
        <translation>TEXT</translation>
    </message>
    <message>
        <source>Записать в историю причину изменения.</source>
        <translation>Record the reason for the change in the history.</translation>
    </message>
    <message>
        <source>Показать, кто, когда и что изменил, от старых изменений к новым.</source>
        <translation>Show who changed what and when, from the oldest change to the newest.</translation>
    </message>
    <message>
        <source>Время местное, в JSON — UTC. О паролях и токенах известно только, что они изменились.</source>
        <translation>Times are local, in JSON they are UTC. Of passwords and tokens it is known only that they changed.</translation>
    </message>
    <message>
        <source>КЛЮЧ@РЕВИЗИЯ</source>
        <translation>KEY@REVISION</translation>
    </message>
    <message>
        <source>Вернуть настройке значение, которое у неё было.</source>
        <translation>Give a setting back a value that it had.</translation>
    </message>
    <message>
        <source>РЕВИЗИЯ — число из первого столбца команды history. Это новое изменение: оно проверяется, как в команде set, и
попадает в историю. Код завершения 1 — такой ревизии нет, или её значение не хранится, как у паролей и токенов.</source>
        <translation>REVISION is a number from the first column of the command history. This is a new change: it is checked as in the
command set, and recorded in the history. Exit status 1: there is no such revision, or its value is not kept, as with
passwords and tokens.</translation>
    </message>
    <message>
        <source>Другие команды базу данных не создают. Имеющаяся база данных остаётся как есть. На сервере PostgreSQL пустая база
данных уже должна быть, в ней создаются таблицы.</source>
        <translation>Other commands never create a database. An existing database is left as it is. On a PostgreSQL server there must
already be an empty database, in which the tables are created.</translation>
    </message>
    <message>
        <source>Показывать изменения по мере того, как их сохраняют.</source>
        <translation>Show changes as they are saved.</translation>
    </message>
    <message>
        <source>Работает, пока её не прервут (Ctrl+C); код завершения тогда 0. С параметром --json каждое изменение — отдельный
документ JSON в одной строке, такой же, как в команде history.</source>
        <translation>Runs until it is interrupted (Ctrl+C); the exit status is 0 then. With the option --json, every change is a JSON
document of its own on one line, the same as in the command history.</translation>
    </message>
    <message>
        <source>База данных, если нет --database. Без неё — файл в папке данных пользователя.</source>
        <translation>The database, unless --database is given. Without it, a file in the user’s data folder.</translation>
    </message>
    <message>
        <source>Файл с паролями сервера PostgreSQL (иначе ~/.pgpass) или сам пароль.</source>
        <translation>The file with the passwords of the PostgreSQL server (else ~/.pgpass), or the password itself.</translation>
    </message>
    <message>
        <source>Использование: vxsettingsctl %1

%2

Команды:
</source>
        <translation>Usage: vxsettingsctl %1

%2

Commands:
</translation>
    </message>
    <message>
        <source>
Переменные окружения:
</source>
        <translation>
Environment variables:
</translation>
    </message>
    <message>
        <source>Настройки базы данных системы контроля доступа из командной строки.</source>
        <translation>Database settings of an access-control system from the command line.</translation>
    </message>
    <message>
        <source>[ПАРАМЕТРЫ] КОМАНДА [АРГУМЕНТЫ]</source>
        <translation>[OPTIONS] COMMAND [ARGUMENTS]</translation>
    </message>
    <message>
        <source>да</source>
        <translation>yes</translation>
    </message>
    <message>
        <source>нет</source>
        <translation>no</translation>
    </message>
    <message>
        <source>Язык программы: ru (русский) или en (английский); иначе язык системы.</source>
        <translation>The language of the program: ru (Russian) or en (English); else that of the system.</translation>
    </message>
    <message>
        <source>Сохранить как администратор: и то, что операторам изменять нельзя.</source>
        <translation>Save as an administrator: also what operators may not change.</translation>
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
    <message>
        <source>true — операторы могут изменять страницу, false — нет; пока ничего не записано, можно изменять всё. Меняется с параметром --as-administrator.</source>
        <translation>true: operators may change the page, false: they may not; while nothing is stored, everything may be changed. It is changed with the option --as-administrator.</translation>
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
        <source>настройку одновременно изменил кто-то другой; ничего не сохранено</source>
        <translation>somebody else changed a setting at the same time; nothing was saved</translation>
    </message>
    <message>
        <source>ошибка базы данных или файла; ожидание прервано; неизвестно, сохранены ли изменения</source>
        <translation>database or file error; waiting interrupted; unknown whether the changes were saved</translation>
    </message>
    <message>
        <source>недопустимое имя, значение или сочетание значений, закрытая страница; ничего не сохранено</source>
        <translation>invalid name, value or combination of values, a locked page; nothing was saved</translation>
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
    <name>HistoryCommand</name>
    <message>
        <source>РЕВИЗИЯ</source>
        <translation>REVISION</translation>
    </message>
    <message>
        <source>КОГДА</source>
        <translation>WHEN</translation>
    </message>
    <message>
        <source>КТО</source>
        <translation>WHO</translation>
    </message>
    <message>
        <source>НАСТРОЙКА</source>
        <translation>SETTING</translation>
    </message>
    <message>
        <source>БЫЛО</source>
        <translation>BEFORE</translation>
    </message>
    <message>
        <source>СТАЛО</source>
        <translation>AFTER</translation>
    </message>
    <message>
        <source>СОХРАНЕНИЕ</source>
        <translation>SAVE</translation>
    </message>
    <message>
        <source>ПРИЧИНА</source>
        <translation>REASON</translation>
    </message>
    <message>
        <source>Настройки «%1» нет.</source>
        <translation>There is no setting “%1”.</translation>
    </message>
    <message>
        <source>Изменений не было.
</source>
        <translation>There were no changes.
</translation>
    </message>
</context>
<context>
    <name>HistoryWords</name>
    <message>
        <source>скрыто</source>
        <translation>hidden</translation>
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
    <name>ManualPage</name>
    <message>
        <source>НАЗВАНИЕ</source>
        <translation>NAME</translation>
    </message>
    <message>
        <source>ВЫЗОВ</source>
        <translation>SYNOPSIS</translation>
    </message>
    <message>
        <source>КОМАНДЫ</source>
        <translation>COMMANDS</translation>
    </message>
    <message>
        <source>ПАРАМЕТРЫ</source>
        <translation>OPTIONS</translation>
    </message>
    <message>
        <source>ПЕРЕМЕННЫЕ ОКРУЖЕНИЯ</source>
        <translation>ENVIRONMENT</translation>
    </message>
    <message>
        <source>КОДЫ ЗАВЕРШЕНИЯ</source>
        <translation>EXIT STATUS</translation>
    </message>
</context>
<context>
    <name>ParameterKind</name>
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
</context>
<context>
    <name>RestoreCommand</name>
    <message>
        <source>«%1» — пароль или токен. Прежние значения паролей и токенов не хранятся.</source>
        <translation>“%1” is a password or token. Previous values of passwords and tokens are not kept.</translation>
    </message>
    <message>
        <source>У настройки «%1» нет ревизии %2, или её значение не сохранилось. Посмотрите: vxsettingsctl history %1</source>
        <translation>The setting “%1” has no revision %2, or its value was not kept. See: vxsettingsctl history %1</translation>
    </message>
    <message>
        <source>«%1» — не КЛЮЧ@РЕВИЗИЯ. Настройка восстанавливается целиком, ревизия — число из команды history.</source>
        <translation>“%1” is not KEY@REVISION. A setting is restored as a whole, the revision is a number from the command history.</translation>
    </message>
</context>
<context>
    <name>Session</name>
    <message>
        <source>Проверьте параметр --database или создайте базу данных: vxsettingsctl init.</source>
        <translation>Check the option --database, or create the database: vxsettingsctl init.</translation>
    </message>
    <message>
        <source>Ничего не сохранено: настройки одновременно изменил кто-то другой.</source>
        <translation>Nothing was saved: somebody else changed settings at the same time.</translation>
    </message>
    <message>
        <source>Прервано.</source>
        <translation>Interrupted.</translation>
    </message>
    <message>
        <source>%1: было %2, сейчас %3 (%4), вы задаёте %5</source>
        <translation>%1: was %2, now is %3 (%4), you are setting %5</translation>
    </message>
    <message>
        <source>Неизвестно, сохранены ли изменения.
%1
Когда связь восстановится, посмотрите: vxsettingsctl history. Если сохранение %2 там есть, изменения сохранены все, иначе не сохранено ни одно.</source>
        <translation>It is unknown whether the changes were saved.
%1
When the connection is back, see: vxsettingsctl history. If the save %2 is there, all changes were saved, otherwise none.</translation>
    </message>
    <message>
        <source>Ничего не сохранено.
%1</source>
        <translation>Nothing was saved.
%1</translation>
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
    <message>
        <source>%1: в базе данных не объект JSON, поле задать нельзя. Задайте %2 целиком.</source>
        <translation>%1: the database does not hold a JSON object, so the member cannot be set. Set %2 as a whole.</translation>
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
    <name>StampWords</name>
    <message>
        <source>изменено: %1, %2</source>
        <translation>changed: %1, %2</translation>
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
        <extracomment>A key and its caption.</extracomment>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>ValueWords</name>
    <message>
        <source>—</source>
        <extracomment>Where there is no value.</extracomment>
        <translation>—</translation>
    </message>
    <message>
        <source>«%1»</source>
        <translation>“%1”</translation>
    </message>
</context>
<context>
    <name>WaitNotices</name>
    <message>
        <source>База данных занята другой программой, ожидание… Прервать: Ctrl+C.</source>
        <translation>The database is in use by another program, waiting… To interrupt: Ctrl+C.</translation>
    </message>
    <message>
        <source>Связь прервалась во время сохранения. Выясняется, сохранены ли изменения… Прервать: Ctrl+C.</source>
        <translation>The connection broke while saving. Finding out whether the changes were saved… To interrupt: Ctrl+C.</translation>
    </message>
    <message>
        <source>Связи с базой данных нет, подключение… Прервать: Ctrl+C.</source>
        <translation>There is no connection to the database, connecting… To interrupt: Ctrl+C.</translation>
    </message>
</context>
<context>
    <name>WatchCommand</name>
    <message>
        <source>Связь с базой данных потеряна, подключение повторяется.
%1</source>
        <translation>The connection to the database is lost, trying to connect again.
%1</translation>
    </message>
    <message>
        <source>Связь с базой данных восстановлена.</source>
        <translation>The connection to the database is back.</translation>
    </message>
    <message>
        <source>Наблюдение за базой данных «%1». Прервать: Ctrl+C.</source>
        <translation>Watching the database “%1”. To interrupt: Ctrl+C.</translation>
    </message>
</context>
</TS>
