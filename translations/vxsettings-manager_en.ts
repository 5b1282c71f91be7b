<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru">
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
        <source>Файл базы данных: sqlite:ПУТЬ или просто путь. Если файла нет, он создаётся с примером настроек. Без параметра берётся значение переменной VXSETTINGS_DATABASE, без неё — файл в папке данных пользователя.</source>
        <translation>The database file: sqlite:PATH or just a path. If there is no such file, it is created with sample settings. Without this option, the variable VXSETTINGS_DATABASE names the database; without that, it is a file in the user’s data folder.</translation>
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
        <source>Не указан файл базы данных.</source>
        <translation>No database file is given.</translation>
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
</context>
<context>
    <name>ConflictDialog</name>
    <message>
        <source>Настройки изменены в другом месте</source>
        <translation>Settings were changed elsewhere</translation>
    </message>
    <message>
        <source>Пока вы редактировали настройки, эти параметры изменила другая программа. Ничего не записано.</source>
        <translation>While you were editing, another program changed these settings. Nothing has been saved.</translation>
    </message>
    <message>
        <source>Сейчас в базе данных:</source>
        <translation>Now in the database:</translation>
    </message>
    <message>
        <source>У вас:</source>
        <translation>Yours:</translation>
    </message>
    <message>
        <source>Было:</source>
        <translation>Before:</translation>
    </message>
    <message>
        <source>Различия</source>
        <translation>Differences</translation>
    </message>
    <message>
        <source>&amp;Записать мои</source>
        <translation>&amp;Save mine</translation>
    </message>
    <message>
        <source>Заменить значения в базе данных вашими</source>
        <translation>Replace the values in the database with yours</translation>
    </message>
    <message>
        <source>&amp;Перечитать базу</source>
        <translation>&amp;Reload the database</translation>
    </message>
    <message>
        <source>Взять значения из базы данных. Все ваши несохранённые изменения будут потеряны</source>
        <translation>Take the values from the database. All your unsaved changes will be lost</translation>
    </message>
    <message>
        <source>&amp;Вернуться</source>
        <translation>&amp;Go back</translation>
    </message>
    <message>
        <source>Ничего не записывать и продолжить</source>
        <translation>Save nothing and continue editing</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>%1[*] — Настройки базы данных</source>
        <translation>%1[*] – Database settings</translation>
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
    <name>PageList</name>
    <message>
        <source>Страницы настроек</source>
        <translation>Settings pages</translation>
    </message>
    <message>
        <source>Есть несохранённые изменения</source>
        <translation>There are unsaved changes</translation>
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
</TS>
