<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru">
<context>
    <name>DatabaseError</name>
    <message>
        <source>Не удаётся использовать базу данных «%1».
%2
%3</source>
        <translation>The database “%1” cannot be used.
%2
%3</translation>
    </message>
</context>
<context>
    <name>DatabaseFile</name>
    <message>
        <source>Укажите другой файл в параметре --database.</source>
        <translation>Name another file with the option --database.</translation>
    </message>
    <message>
        <source>Разрешите вашей учётной записи чтение и запись файла и его папки.</source>
        <translation>Give your account permission to read and write the file and its folder.</translation>
    </message>
    <message>
        <source>Это папка, а не файл.</source>
        <translation>It is a folder, not a file.</translation>
    </message>
    <message>
        <source>Файла, на который указывает ссылка, нет.</source>
        <translation>The file that the link points to does not exist.</translation>
    </message>
    <message>
        <source>Это не обычный файл.</source>
        <translation>It is not a regular file.</translation>
    </message>
    <message>
        <source>Нет прав на чтение файла.</source>
        <translation>There is no permission to read the file.</translation>
    </message>
    <message>
        <source>Файл пуст.</source>
        <translation>The file is empty.</translation>
    </message>
    <message>
        <source>Удалите его, чтобы создать новую базу данных, или укажите другой файл.</source>
        <translation>Delete it to create a new database, or name another file.</translation>
    </message>
    <message>
        <source>Файл не является базой данных SQLite.</source>
        <translation>The file is not an SQLite database.</translation>
    </message>
    <message>
        <source>Файл доступен только для чтения.</source>
        <translation>The file is read-only.</translation>
    </message>
    <message>
        <source>Папка файла доступна только для чтения.</source>
        <translation>The folder of the file is read-only.</translation>
    </message>
    <message>
        <source>Рядом лежит журнал «%1» другой базы данных.</source>
        <translation>The journal “%1” of another database lies beside it.</translation>
    </message>
    <message>
        <source>В нём могут быть её последние изменения. Уберите его, если он не нужен, или укажите другой файл в параметре --database.</source>
        <translation>It may hold the last changes of that database. Move it away if it is not needed, or name another file with the option --database.</translation>
    </message>
    <message>
        <source>Проверьте путь и права доступа к папке или укажите другой файл в параметре --database.</source>
        <translation>Check the path and the permissions of the folder, or name another file with the option --database.</translation>
    </message>
    <message>
        <source>Не удаётся создать папку «%1».</source>
        <translation>The folder “%1” cannot be created.</translation>
    </message>
    <message>
        <source>Не удаётся создать файл: %1.</source>
        <translation>The file cannot be created: %1.</translation>
    </message>
    <message>
        <source>Файл уже есть.</source>
        <translation>The file already exists.</translation>
    </message>
    <message>
        <source>Он остался как есть. Укажите другой в параметре --database.</source>
        <translation>It was left as it is. Name another one with the option --database.</translation>
    </message>
    <message>
        <source>Рядом лежит «%1», и это не обычный файл.</source>
        <translation>“%1” lies beside it and is not a regular file.</translation>
    </message>
    <message>
        <source>На этом месте база данных хранит свой журнал. Уберите то, что там лежит.</source>
        <translation>This is where the database keeps its journal. Move away what lies there.</translation>
    </message>
</context>
<context>
    <name>DatabaseLocation</name>
    <message>
        <source>Базы данных вида «%1://» не поддерживаются. Укажите файл или адрес postgresql://пользователь@сервер:порт/имя.</source>
        <translation>Databases of the kind “%1://” are not supported. Give a file or an address postgresql://user@server:port/name.</translation>
    </message>
    <message>
        <source>Не указан файл базы данных.</source>
        <translation>No database file is given.</translation>
    </message>
    <message>
        <source>Адрес базы данных записан неверно. Он выглядит так: postgresql://пользователь@сервер:порт/имя.</source>
        <translation>The address of the database is malformed. It looks like this: postgresql://user@server:port/name.</translation>
    </message>
    <message>
        <source>Пароль в адресе базы данных увидели бы другие пользователи компьютера. Уберите его оттуда и запишите в файл ~/.pgpass (или PGPASSFILE) либо передайте в переменной PGPASSWORD.</source>
        <translation>Other users of this computer would see a password in the address of the database. Remove it from there and write it to the file ~/.pgpass (or PGPASSFILE), or pass it in the variable PGPASSWORD.</translation>
    </message>
    <message>
        <source>После имени базы данных в адресе ничего быть не должно. Остальное задают переменные окружения PostgreSQL, например PGSSLMODE.</source>
        <translation>Nothing may follow the name of the database in the address. Everything else is set by environment variables of PostgreSQL, such as PGSSLMODE.</translation>
    </message>
</context>
<context>
    <name>DatabaseWorker</name>
    <message>
        <source>Ожидание прервано.</source>
        <translation>Waiting was interrupted.</translation>
    </message>
    <message>
        <source>Ничего не записано.</source>
        <translation>Nothing was saved.</translation>
    </message>
    <message>
        <source>Связь с сервером базы данных потеряна.</source>
        <translation>The connection to the database server is lost.</translation>
    </message>
    <message>
        <source>Проверьте сеть и сервер.</source>
        <translation>Check the network and the server.</translation>
    </message>
</context>
<context>
    <name>DraftEdit</name>
    <message>
        <source>С тех пор настройку никто не менял.</source>
        <translation>Nobody has changed the setting since.</translation>
    </message>
    <message>
        <source>Это значение уже сохранено.</source>
        <translation>This value is already stored.</translation>
    </message>
    <message>
        <source>С тех пор настройку изменил кто-то другой.</source>
        <translation>Somebody else has changed the setting since.</translation>
    </message>
    <message>
        <source>Такой настройки больше нет.</source>
        <translation>There is no such setting any more.</translation>
    </message>
    <message>
        <source>Черновик сделан не в этой базе данных или база восстановлена из старой копии.</source>
        <translation>The draft was not made in this database, or the database was restored from an old copy.</translation>
    </message>
</context>
<context>
    <name>DurableFile</name>
    <message>
        <source>Не удаётся записать «%1»: это не обычный файл.</source>
        <translation>“%1” cannot be written: it is not a regular file.</translation>
    </message>
    <message>
        <source>Не удаётся записать файл «%1»: %2.</source>
        <translation>The file “%1” cannot be written: %2.</translation>
    </message>
    <message>
        <source>Файл «%1» записан, но может пропасть при сбое питания: не удаётся сохранить его папку.</source>
        <translation>The file “%1” was written but may be lost in a power failure: its folder cannot be synchronised.</translation>
    </message>
</context>
<context>
    <name>InstallationDatabase</name>
    <message>
        <source>База данных не ответила вовремя.</source>
        <translation>The database did not answer in time.</translation>
    </message>
    <message>
        <source>Проверьте диск, сеть и сервер и повторите попытку.</source>
        <translation>Check the disk, the network and the server, and try again.</translation>
    </message>
</context>
<context>
    <name>PageAccess</name>
    <message>
        <source>Текст не читается как объект JSON, поэтому операторам закрыты все страницы.</source>
        <translation>The text cannot be read as a JSON object, so every page is locked for operators.</translation>
    </message>
    <message>
        <source>Поле записано несколько раз, поэтому операторам закрыты все страницы.</source>
        <translation>The member is written several times, so every page is locked for operators.</translation>
    </message>
    <message>
        <source>Такой страницы нет; при сохранении поле остаётся как есть.</source>
        <translation>There is no such page; a save leaves the member as it is.</translation>
    </message>
    <message>
        <source>Это не true и не false: страница операторам закрыта.</source>
        <translation>This is neither true nor false: the page is locked for operators.</translation>
    </message>
</context>
<context>
    <name>PageAccessWords</name>
    <message>
        <source>Доступ операторов к страницам</source>
        <translation>Operator access to pages</translation>
    </message>
    <message>
        <source>Доступ операторов: %1</source>
        <translation>Operator access: %1</translation>
    </message>
    <message>
        <source>можно изменять</source>
        <translation>may be changed</translation>
    </message>
    <message>
        <source>закрыто</source>
        <translation>locked</translation>
    </message>
    <message>
        <source>не читается, закрыты все страницы</source>
        <translation>cannot be read, every page is locked</translation>
    </message>
    <message>
        <source>можно изменять всё</source>
        <translation>everything may be changed</translation>
    </message>
    <message>
        <source>закрыты: %1</source>
        <translation>locked: %1</translation>
    </message>
    <message>
        <source>Операторам нельзя изменять страницы: %1.</source>
        <translation>Operators may not change these pages: %1.</translation>
    </message>
    <message>
        <source>Администратор открывает их в окне «Доступ операторов» программы vxsettings-manager или сохраняет командой vxsettingsctl с параметром --as-administrator.</source>
        <translation>An administrator unlocks them in the “Operator access” window of vxsettings-manager, or saves with vxsettingsctl and the option --as-administrator.</translation>
    </message>
    <message>
        <source>Доступ операторов меняет администратор: в окне «Доступ операторов» программы vxsettings-manager или командой vxsettingsctl с параметром --as-administrator.</source>
        <translation>Operator access is changed by an administrator: in the “Operator access” window of vxsettings-manager, or with vxsettingsctl and the option --as-administrator.</translation>
    </message>
    <message>
        <source>Записанный доступ операторов не читается, поэтому закрыты все страницы. Исправить его может администратор.</source>
        <translation>The stored operator access cannot be read, so every page is locked. An administrator can repair it.</translation>
    </message>
    <message>
        <source>Администратор закрыл эту страницу для операторов: изменить её нельзя.</source>
        <translation>An administrator has locked this page for operators: it cannot be changed.</translation>
    </message>
    <message>
        <source>«%1»</source>
        <translation>“%1”</translation>
    </message>
</context>
<context>
    <name>ParameterDomain</name>
    <message>
        <source>Допустимы целые числа от %1 до %2.</source>
        <translation>Whole numbers from %1 to %2 are allowed.</translation>
    </message>
    <message>
        <source>Допустимы целые числа от %1 до %2; %1 означает «%3».</source>
        <translation>Whole numbers from %1 to %2 are allowed; %1 means “%3”.</translation>
    </message>
    <message>
        <source>Допустимые значения: %1.</source>
        <translation>Allowed values: %1.</translation>
    </message>
    <message>
        <source>да</source>
        <extracomment>What a user types to switch a flag on, in lower case.</extracomment>
        <translation>yes</translation>
    </message>
    <message>
        <source>нет</source>
        <extracomment>What a user types to switch a flag off, in lower case.</extracomment>
        <translation>no</translation>
    </message>
    <message>
        <source>Допустимые значения: true (да), false (нет).</source>
        <translation>Allowed values: true (yes), false (no).</translation>
    </message>
    <message>
        <source>Допустим номер объекта, который предлагает страница настроек, или 0: не выбран.</source>
        <translation>The number of an object that the settings page offers is allowed, or 0: none selected.</translation>
    </message>
    <message>
        <source>Допустима одна строка длиной до %1 знаков.</source>
        <translation>One line of up to %1 characters is allowed.</translation>
    </message>
</context>
<context>
    <name>Schema</name>
    <message>
        <source>Это база данных с другой схемой: в таблице «%1» нет столбцов: %2.</source>
        <translation>This database has a different schema: the table “%1” lacks the columns: %2.</translation>
    </message>
    <message>
        <source>Укажите базу данных настроек в параметре --database.</source>
        <translation>Name a settings database with the option --database.</translation>
    </message>
    <message>
        <source>Файл базы данных повреждён: %1.</source>
        <translation>The database file is damaged: %1.</translation>
    </message>
    <message>
        <source>Восстановите файл из резервной копии.</source>
        <translation>Restore the file from a backup.</translation>
    </message>
    <message>
        <source>Кодировка базы данных — %1, а не UTF8.</source>
        <translation>The encoding of the database is %1, not UTF8.</translation>
    </message>
    <message>
        <source>Создайте на сервере базу данных в кодировке UTF8.</source>
        <translation>Create a database with the encoding UTF8 on the server.</translation>
    </message>
    <message>
        <source>В базе данных нет таблиц настроек.</source>
        <translation>The database has no settings tables.</translation>
    </message>
    <message>
        <source>Проверьте адрес или создайте таблицы: vxsettingsctl init.</source>
        <translation>Check the address, or create the tables: vxsettingsctl init.</translation>
    </message>
    <message>
        <source>В базе данных уже есть такие таблицы.</source>
        <translation>The database already has these tables.</translation>
    </message>
    <message>
        <source>Она осталась как есть. Укажите другую в параметре --database.</source>
        <translation>It was left as it is. Name another one with the option --database.</translation>
    </message>
    <message>
        <source>Версия схемы базы данных %1, программа знает версии до %2.</source>
        <translation>The schema of the database has version %1; the program knows versions up to %2.</translation>
    </message>
    <message>
        <source>Обновите программу.</source>
        <translation>Update the program.</translation>
    </message>
</context>
<context>
    <name>SettingProblem</name>
    <message>
        <source>Это не целое число.</source>
        <translation>This is not a whole number.</translation>
    </message>
    <message>
        <source>Число вне допустимых границ.</source>
        <translation>The number is out of range.</translation>
    </message>
    <message>
        <source>Такого варианта нет.</source>
        <translation>There is no such choice.</translation>
    </message>
    <message>
        <source>Это не «да» и не «нет».</source>
        <translation>This is neither “yes” nor “no”.</translation>
    </message>
    <message>
        <source>В тексте есть перевод строки, другой управляющий или недопустимый знак.</source>
        <translation>The text contains a line break, another control character or an invalid character.</translation>
    </message>
    <message>
        <source>Текст слишком длинный.</source>
        <translation>The text is too long.</translation>
    </message>
    <message>
        <source>Объекта с таким номером нет.</source>
        <translation>There is no object with this number.</translation>
    </message>
    <message>
        <source>Объект с таким номером есть, но здесь его выбрать нельзя: он другого вида.</source>
        <translation>There is an object with this number, but it cannot be selected here: it is of another kind.</translation>
    </message>
    <message>
        <source>Объект с таким номером есть, но оператору он не виден.</source>
        <translation>There is an object with this number, but the operator may not see it.</translation>
    </message>
    <message>
        <source>Текст не читается как объект JSON.</source>
        <translation>The text cannot be read as a JSON object.</translation>
    </message>
    <message>
        <source>Значение поля — не текст, не число и не true или false.</source>
        <translation>The value of the member is neither a text nor a number nor true or false.</translation>
    </message>
    <message>
        <source>Такого поля нет в каталоге; при сохранении оно остаётся как есть.</source>
        <translation>The catalogue has no such member; it is kept as it is when saving.</translation>
    </message>
    <message>
        <source>Такой настройки нет в каталоге; она остаётся как есть.</source>
        <translation>The catalogue has no such setting; it is left as it is.</translation>
    </message>
    <message>
        <source>Поле записано несколько раз; действует одно из значений.</source>
        <translation>The member is written several times; one of the values counts.</translation>
    </message>
</context>
<context>
    <name>SettingRules</name>
    <message>
        <source>«%1» (%2) больше, чем «%3» (%4). Уменьшите первое или увеличьте второе.</source>
        <translation>“%1” (%2) is greater than “%3” (%4). Decrease the first or increase the second.</translation>
    </message>
</context>
<context>
    <name>SettingValue</name>
    <message>
        <source>%1 (%2): только для чтения. Уберите эту настройку.</source>
        <translation>%1 (%2): read-only. Remove this setting.</translation>
    </message>
    <message>
        <source>Настройки «%1» нет. Проверьте имя: прописные и строчные буквы различаются.</source>
        <translation>There is no setting “%1”. Check the name: upper and lower case differ.</translation>
    </message>
    <message>
        <source>У настройки «%1» нет полей. Укажите имя без «.%2».</source>
        <translation>The setting “%1” has no members. Give the name without “.%2”.</translation>
    </message>
    <message>
        <source>У настройки «%1» нет поля «%2». Её поля: %3.</source>
        <translation>The setting “%1” has no member “%2”. Its members: %3.</translation>
    </message>
    <message>
        <source>%1: значение «%2» не подходит. %3</source>
        <translation>%1: the value “%2” does not fit. %3</translation>
    </message>
    <message>
        <source>Страницы «%1» нет. Страницы: %2.</source>
        <translation>There is no page “%1”. Pages: %2.</translation>
    </message>
</context>
<context>
    <name>SettingWords</name>
    <message>
        <source>да</source>
        <translation>yes</translation>
    </message>
    <message>
        <source>нет</source>
        <translation>no</translation>
    </message>
    <message>
        <source>не задано</source>
        <translation>not set</translation>
    </message>
    <message>
        <source>скрыто</source>
        <translation>hidden</translation>
    </message>
    <message>
        <source>не выбрано</source>
        <translation>none selected</translation>
    </message>
    <message>
        <source>«%1»</source>
        <translation>“%1”</translation>
    </message>
</context>
<context>
    <name>SettingsDifference</name>
    <message>
        <source>Настройка доступна только для чтения.</source>
        <translation>The setting is read-only.</translation>
    </message>
</context>
<context>
    <name>SettingsDocument</name>
    <message>
        <source>Документ записан не в кодировке UTF-8.</source>
        <translation>The document is not encoded in UTF-8.</translation>
    </message>
    <message>
        <source>Это не документ JSON: ошибка в строке %1.</source>
        <translation>This is not a JSON document: error in line %1.</translation>
    </message>
    <message>
        <source>Не удаётся прочитать файл «%1»: %2.</source>
        <translation>The file “%1” cannot be read: %2.</translation>
    </message>
    <message>
        <source>Файл «%1» нельзя использовать. %2</source>
        <translation>The file “%1” cannot be used. %2</translation>
    </message>
    <message>
        <source>Это не выгрузка настроек: документ — не объект JSON.</source>
        <translation>This is not a settings export: the document is not a JSON object.</translation>
    </message>
    <message>
        <source>Поле «settings» — не объект JSON.</source>
        <translation>The field “settings” is not a JSON object.</translation>
    </message>
    <message>
        <source>Это не выгрузка настроек: поле «format» должно содержать «%1».</source>
        <translation>This is not a settings export: the field “format” must contain “%1”.</translation>
    </message>
    <message>
        <source>Версия выгрузки не поддерживается: поле «version» должно содержать число %1.</source>
        <translation>This version of the export is not supported: the field “version” must contain the number %1.</translation>
    </message>
    <message>
        <source>Поле «%1» неизвестно: в выгрузке версии %2 его нет.</source>
        <translation>The field “%1” is unknown: an export of version %2 does not have it.</translation>
    </message>
    <message>
        <source>Поле «%1» записано несколько раз.</source>
        <translation>The field “%1” is written several times.</translation>
    </message>
    <message>
        <source>Настройка «%1» записана несколько раз.</source>
        <translation>The setting “%1” is written several times.</translation>
    </message>
    <message>
        <source>Значение настройки «%1» — не текст.</source>
        <translation>The value of the setting “%1” is not a text.</translation>
    </message>
</context>
<context>
    <name>SettingsDraft</name>
    <message>
        <source>Черновик несохранённых изменений «%1» не читается: %2.</source>
        <translation>The draft of unsaved changes “%1” cannot be read: %2.</translation>
    </message>
    <message>
        <source>Файл «%1» — не черновик изменений этой базы данных.</source>
        <translation>The file “%1” is no draft of changes to this database.</translation>
    </message>
    <message>
        <source>Не удаётся создать черновик несохранённых изменений в папке «%1».</source>
        <translation>The draft of unsaved changes cannot be created in the folder “%1”.</translation>
    </message>
    <message>
        <source>Не удаётся удалить файл «%1»: %2.</source>
        <translation>The file “%1” cannot be deleted: %2.</translation>
    </message>
</context>
<context>
    <name>SettingsReport</name>
    <message>
        <source>Настройки базы данных</source>
        <translation>Database settings</translation>
    </message>
    <message>
        <source>База данных: %1</source>
        <translation>Database: %1</translation>
    </message>
    <message>
        <source>Дата: %1</source>
        <translation>Date: %1</translation>
    </message>
    <message>
        <source>Замечаний: %1</source>
        <translation>Findings: %1</translation>
    </message>
    <message>
        <source>Настройки, которых нет в каталоге</source>
        <translation>Settings that the catalogue does not have</translation>
    </message>
    <message>
        <source>%1 — лист %2 из %3</source>
        <translation>%1 – page %2 of %3</translation>
    </message>
</context>
<context>
    <name>SettingsStore</name>
    <message>
        <source>Файла нет.</source>
        <translation>The file does not exist.</translation>
    </message>
    <message>
        <source>Проверьте параметр --database или создайте базу данных: vxsettingsctl init.</source>
        <translation>Check the option --database, or create the database: vxsettingsctl init.</translation>
    </message>
    <message>
        <source>Запись отменена.</source>
        <translation>Saving was cancelled.</translation>
    </message>
    <message>
        <source>Ничего не записано.</source>
        <translation>Nothing was saved.</translation>
    </message>
    <message>
        <source>Сервер ещё не закончил эту запись.</source>
        <translation>The server has not finished this save yet.</translation>
    </message>
    <message>
        <source>Подождите и повторите попытку.</source>
        <translation>Wait, then try again.</translation>
    </message>
    <message>
        <source>Файл базы данных удалён или заменён другим.</source>
        <translation>The database file was removed or replaced by another.</translation>
    </message>
    <message>
        <source>Верните файл на место и повторите попытку.</source>
        <translation>Put the file back and try again.</translation>
    </message>
</context>
<context>
    <name>SqlConnection</name>
    <message>
        <source>Нет драйвера базы данных %1.</source>
        <translation>There is no database driver %1.</translation>
    </message>
    <message>
        <source>Установите пакет libqt5sql5-sqlite или libqt5sql5-psql.</source>
        <translation>Install the package libqt5sql5-sqlite or libqt5sql5-psql.</translation>
    </message>
    <message>
        <source>В тексте есть нулевой символ, которого PostgreSQL не хранит.</source>
        <translation>The text contains a null character, which PostgreSQL does not store.</translation>
    </message>
    <message>
        <source>Уберите его из текста.</source>
        <translation>Remove it from the text.</translation>
    </message>
</context>
<context>
    <name>SqlErrorWords</name>
    <message>
        <source>Восстановите файл из резервной копии.</source>
        <translation>Restore the file from a backup.</translation>
    </message>
    <message>
        <source>Повторите попытку; если ошибка остаётся, сообщите о ней администратору.</source>
        <translation>Try again; if the error persists, report it to the administrator.</translation>
    </message>
    <message>
        <source>Подождите, пока она закончит запись, и повторите попытку.</source>
        <translation>Wait until it has finished saving, then try again.</translation>
    </message>
    <message>
        <source>База данных занята другой программой.</source>
        <translation>The database is in use by another program.</translation>
    </message>
    <message>
        <source>Нет связи с сервером базы данных.</source>
        <translation>There is no connection to the database server.</translation>
    </message>
    <message>
        <source>Проверьте адрес, сеть и сервер, имя пользователя и его пароль в файле ~/.pgpass.</source>
        <translation>Check the address, the network and the server, the user name, and the password in the file ~/.pgpass.</translation>
    </message>
    <message>
        <source>Обратитесь к администратору сервера базы данных.</source>
        <translation>Contact the administrator of the database server.</translation>
    </message>
    <message>
        <source>Ошибка базы данных.</source>
        <translation>Database error.</translation>
    </message>
    <message>
        <source>База данных доступна только для чтения.</source>
        <translation>The database is read-only.</translation>
    </message>
    <message>
        <source>Разрешите запись в файл и в его папку.</source>
        <translation>Allow writing to the file and its folder.</translation>
    </message>
    <message>
        <source>Ошибка чтения или записи на диск.</source>
        <translation>The disk could not be read or written.</translation>
    </message>
    <message>
        <source>Проверьте диск и подключение к нему.</source>
        <translation>Check the disk and its connection.</translation>
    </message>
    <message>
        <source>Файл базы данных повреждён.</source>
        <translation>The database file is damaged.</translation>
    </message>
    <message>
        <source>На диске нет места.</source>
        <translation>The disk is full.</translation>
    </message>
    <message>
        <source>Освободите место и повторите попытку.</source>
        <translation>Free some space and try again.</translation>
    </message>
    <message>
        <source>Файл базы данных не открывается.</source>
        <translation>The database file cannot be opened.</translation>
    </message>
    <message>
        <source>Проверьте путь и права доступа к файлу и его папке.</source>
        <translation>Check the path and the permissions of the file and its folder.</translation>
    </message>
    <message>
        <source>Файл не является базой данных.</source>
        <translation>The file is not a database.</translation>
    </message>
    <message>
        <source>Сервер базы данных не ответил вовремя.</source>
        <translation>The database server did not answer in time.</translation>
    </message>
    <message>
        <source>Сервер базы данных не принимает пользователя или пароль.</source>
        <translation>The database server does not accept the user or the password.</translation>
    </message>
    <message>
        <source>На сервере нет такой базы данных.</source>
        <translation>The server has no such database.</translation>
    </message>
    <message>
        <source>У пользователя базы данных нет прав на это.</source>
        <translation>The database user has no permission for this.</translation>
    </message>
    <message>
        <source>У сервера базы данных не хватает места, памяти или соединений.</source>
        <translation>The database server is short of space, memory or connections.</translation>
    </message>
</context>
</TS>
