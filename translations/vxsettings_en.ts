<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru">
<context>
    <name>DBButtonWidget</name>
    <message>
        <source>Изменить</source>
        <translation>Change</translation>
    </message>
</context>
<context>
    <name>DBParamWidget</name>
    <message>
        <source>Form</source>
        <extracomment>A placeholder that nobody sees.</extracomment>
        <translation>Form</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <extracomment>A placeholder that nobody sees.</extracomment>
        <translation>TextLabel</translation>
    </message>
</context>
<context>
    <name>DependentWidgetsBox</name>
    <message>
        <source>Form</source>
        <extracomment>A placeholder that nobody sees.</extracomment>
        <translation>Form</translation>
    </message>
    <message>
        <source>Название группы</source>
        <extracomment>A placeholder that nobody sees.</extracomment>
        <translation>Group name</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Нет</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Да</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>Выкл.</source>
        <translation>Off</translation>
    </message>
    <message>
        <source>Вкл.</source>
        <translation>On</translation>
    </message>
    <message>
        <source>Десятичный</source>
        <translation>Decimal</translation>
    </message>
    <message>
        <source>Шестнадцатеричный</source>
        <translation>Hexadecimal</translation>
    </message>
    <message>
        <source>Семейство-код</source>
        <extracomment>A card number in two parts: the family (facility) and the code of the card in it.</extracomment>
        <translation>Family and code</translation>
    </message>
    <message>
        <source>Круглая</source>
        <extracomment>The outline of a photograph.</extracomment>
        <translation>Round</translation>
    </message>
    <message>
        <source>Прямоугольная</source>
        <extracomment>The outline of a photograph.</extracomment>
        <translation>Rectangular</translation>
    </message>
    <message>
        <source>Логин + пароль</source>
        <extracomment>What an operator signs in with.</extracomment>
        <translation>Login + password</translation>
    </message>
    <message>
        <source>Логин + биометрическая информация</source>
        <translation>Login + biometrics</translation>
    </message>
    <message>
        <source>Логин + пароль + биометрическая информация</source>
        <translation>Login + password + biometrics</translation>
    </message>
    <message>
        <source>По всей базе</source>
        <translation>Across the whole database</translation>
    </message>
    <message>
        <source>По предприятию</source>
        <translation>Within the company</translation>
    </message>
    <message>
        <source>По подразделению</source>
        <translation>Within the department</translation>
    </message>
    <message>
        <source>По своим шаблонам</source>
        <extracomment>Against which templates a new one is checked: only the other templates of the same person.</extracomment>
        <translation>Against the person’s own templates</translation>
    </message>
    <message>
        <source>Vantorix</source>
        <translation>Vantorix</translation>
    </message>
    <message>
        <source>Corvalen</source>
        <translation>Corvalen</translation>
    </message>
    <message>
        <source>Без ограничений</source>
        <extracomment>Shown instead of 0 for a number of sessions and for minutes of inactivity.</extracomment>
        <translation>No limit</translation>
    </message>
    <message>
        <source>&lt;html&gt;Возможные параметры:&lt;br/&gt;&lt;b&gt;${year}&lt;/b&gt; - текущий год&lt;br/&gt;&lt;b&gt;${month}&lt;/b&gt; - текущий месяц&lt;br/&gt;&lt;b&gt;${day}&lt;/b&gt; - текущий день&lt;br/&gt;&lt;b&gt;${num} ${zero6-num} ${zero8-num} ${zero10-num}&lt;/b&gt; - следующий номер&lt;br/&gt;Например: &lt;b&gt;РОГ-${year}${month}-${zero8-num}&lt;/b&gt;&lt;/html&gt;</source>
        <extracomment>What stands in ${} and between &lt;&gt; stays as it is. РОГ is the prefix of an example: any letters.</extracomment>
        <translation>&lt;html&gt;Placeholders:&lt;br/&gt;&lt;b&gt;${year}&lt;/b&gt; - current year&lt;br/&gt;&lt;b&gt;${month}&lt;/b&gt; - current month&lt;br/&gt;&lt;b&gt;${day}&lt;/b&gt; - current day&lt;br/&gt;&lt;b&gt;${num} ${zero6-num} ${zero8-num} ${zero10-num}&lt;/b&gt; - next number, plain or padded with zeros to 6, 8 or 10 digits&lt;br/&gt;Example: &lt;b&gt;REQ-${year}${month}-${zero8-num}&lt;/b&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Минимальная длина</source>
        <translation>Minimum length</translation>
    </message>
    <message>
        <source>Максимальная длина</source>
        <translation>Maximum length</translation>
    </message>
    <message>
        <source>Версия базы данных</source>
        <translation>Database version</translation>
    </message>
    <message>
        <source>Максимальное количество карт сотрудника</source>
        <translation>Maximum number of cards per employee</translation>
    </message>
    <message>
        <source>Строгое сравнение номеров карт</source>
        <translation>Strict comparison of card numbers</translation>
    </message>
    <message>
        <source>Формат отображения номеров карт</source>
        <translation>Display format of card numbers</translation>
    </message>
    <message>
        <source>Граница фотографии сотрудника</source>
        <extracomment>The choices are &quot;Круглая&quot; (round) and &quot;Прямоугольная&quot; (rectangular).</extracomment>
        <translation>Outline of the employee photo</translation>
    </message>
    <message>
        <source>Пароль по умолчанию</source>
        <translation>Default password</translation>
    </message>
    <message>
        <source>Срок действия пароля (дней)</source>
        <translation>Password validity (days)</translation>
    </message>
    <message>
        <source>Срок уведомления об изменении пароля (дней)</source>
        <extracomment>How many days before a password expires its user is told to change it.</extracomment>
        <translation>Password change notice period (days)</translation>
    </message>
    <message>
        <source>Тип идентификации для входа в Vantorix-Studio</source>
        <translation>Identification for signing in to Vantorix-Studio</translation>
    </message>
    <message>
        <source>Количество одновременных сессий пользователя</source>
        <translation>Simultaneous sessions per user</translation>
    </message>
    <message>
        <source>Время бездействия пользователя (минут)</source>
        <translation>User inactivity limit (minutes)</translation>
    </message>
    <message>
        <source>Использовать настройки БД</source>
        <extracomment>Whether enrolment follows the settings of the database rather than those of the workstation.</extracomment>
        <translation>Use the database settings</translation>
    </message>
    <message>
        <source>Автоматическая проверка шаблонов</source>
        <translation>Automatic template check</translation>
    </message>
    <message>
        <source>Ручная проверка шаблонов</source>
        <translation>Manual template check</translation>
    </message>
    <message>
        <source>Включить возможность сканирования по отпечатку пальца</source>
        <translation>Enable fingerprint scanning</translation>
    </message>
    <message>
        <source>Поиск ядра</source>
        <extracomment>The core is the centre of the pattern of a fingerprint.</extracomment>
        <translation>Search for the fingerprint core</translation>
    </message>
    <message>
        <source>Требуемое качество шаблона отпечатка пальца</source>
        <translation>Required quality of the fingerprint template</translation>
    </message>
    <message>
        <source>Максимальное количество шаблонов отпечатков для сотрудника</source>
        <translation>Maximum number of fingerprint templates per employee</translation>
    </message>
    <message>
        <source>Антифейк при сканировании</source>
        <extracomment>Whether the scanner must see that it has a living hand before it and not a copy.</extracomment>
        <translation>Liveness detection while scanning</translation>
    </message>
    <message>
        <source>Включить возможность сканирования по ладони</source>
        <translation>Enable palm scanning</translation>
    </message>
    <message>
        <source>Требуемое качество шаблона ладони KLV-RT</source>
        <translation>Required quality of the palm template, KLV-RT</translation>
    </message>
    <message>
        <source>Требуемое качество шаблона ладони SkyHand</source>
        <translation>Required quality of the palm template, SkyHand</translation>
    </message>
    <message>
        <source>Включить возможность сканирования по лицу</source>
        <translation>Enable face scanning</translation>
    </message>
    <message>
        <source>Требуемое качество размытости изображения лица</source>
        <extracomment>In percent, as every quality.</extracomment>
        <translation>Required blur quality of the face image</translation>
    </message>
    <message>
        <source>Минимальный размер диагонали лица (px)</source>
        <translation>Minimum face diagonal (px)</translation>
    </message>
    <message>
        <source>Требуемое качество цветности изображения лица</source>
        <translation>Required colour quality of the face image</translation>
    </message>
    <message>
        <source>Показывать параметры качества</source>
        <translation>Show the quality parameters</translation>
    </message>
    <message>
        <source>Подразделение по умолчанию</source>
        <translation>Default department</translation>
    </message>
    <message>
        <source>Формат номера заявки</source>
        <translation>Pass request number format</translation>
    </message>
    <message>
        <source>Хост</source>
        <extracomment>The address of the mobile service.</extracomment>
        <translation>Host</translation>
    </message>
    <message>
        <source>Порт</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>Токен доступа</source>
        <extracomment>A secret that lockers identify themselves with.</extracomment>
        <translation>Access token</translation>
    </message>
    <message>
        <source>Отправлять фотографию</source>
        <translation>Send the photo</translation>
    </message>
    <message>
        <source>Выполнять верификацию</source>
        <extracomment>Of a face, by the photograph that is sent.</extracomment>
        <translation>Verify the face</translation>
    </message>
    <message>
        <source>Стиль мобильного приложения</source>
        <translation>Mobile application style</translation>
    </message>
    <message>
        <source>Профиль смарткарт</source>
        <translation>Smart card profile</translation>
    </message>
    <message>
        <source>Запрещать последовательные цифры</source>
        <extracomment>Such as 1234.</extracomment>
        <translation>Forbid sequential digits</translation>
    </message>
    <message>
        <source>Запрещать одинаковые цифры подряд</source>
        <extracomment>Such as 1111.</extracomment>
        <translation>Forbid identical digits in a row</translation>
    </message>
    <message>
        <source>Использовать ограничения для пароля</source>
        <translation>Use password restrictions</translation>
    </message>
    <message>
        <source>Запрет пустого пароля</source>
        <translation>Forbid an empty password</translation>
    </message>
    <message>
        <source>Использовать цифры</source>
        <translation>Require digits</translation>
    </message>
    <message>
        <source>Использовать специальные знаки</source>
        <translation>Require special characters</translation>
    </message>
    <message>
        <source>Использовать буквы</source>
        <translation>Require letters</translation>
    </message>
    <message>
        <source>Использовать буквы в верхнем регистре</source>
        <translation>Require upper-case letters</translation>
    </message>
    <message>
        <source>Использовать буквы в нижнем регистре</source>
        <translation>Require lower-case letters</translation>
    </message>
    <message>
        <source>Запрет использования нелатинских букв</source>
        <translation>Forbid non-Latin letters</translation>
    </message>
    <message>
        <source>Требование количества ладоней для контактных вен</source>
        <extracomment>A switch: whether the minimum and maximum numbers of palms below it count.</extracomment>
        <translation>Limit the number of palms for contact vein scanning</translation>
    </message>
    <message>
        <source>Требование количества ладоней для бесконтактных вен</source>
        <extracomment>A switch: whether the minimum and maximum numbers of palms below it count.</extracomment>
        <translation>Limit the number of palms for contactless vein scanning</translation>
    </message>
    <message>
        <source>Минимальное количество левых ладоней</source>
        <translation>Minimum number of left palms</translation>
    </message>
    <message>
        <source>Минимальное количество правых ладоней</source>
        <translation>Minimum number of right palms</translation>
    </message>
    <message>
        <source>Максимальное количество левых ладоней</source>
        <translation>Maximum number of left palms</translation>
    </message>
    <message>
        <source>Максимальное количество правых ладоней</source>
        <translation>Maximum number of right palms</translation>
    </message>
    <message>
        <source>База данных</source>
        <translation>Database</translation>
    </message>
    <message>
        <source>Сотрудники</source>
        <translation>Employees</translation>
    </message>
    <message>
        <source>Пользователи</source>
        <translation>Users</translation>
    </message>
    <message>
        <source>Сканирование общие</source>
        <translation>General scanning</translation>
    </message>
    <message>
        <source>Сканирование отпечатков пальцев</source>
        <translation>Fingerprint scanning</translation>
    </message>
    <message>
        <source>Сканирование вен ладоней</source>
        <translation>Palm vein scanning</translation>
    </message>
    <message>
        <source>Сканирование лица</source>
        <translation>Face scanning</translation>
    </message>
    <message>
        <source>Заявки</source>
        <translation>Pass requests</translation>
    </message>
    <message>
        <source>Настройки подключения</source>
        <translation>Connection settings</translation>
    </message>
    <message>
        <source>Vantorix Studio</source>
        <translation>Vantorix Studio</translation>
    </message>
    <message>
        <source>Vantorix ID</source>
        <translation>Vantorix ID</translation>
    </message>
    <message>
        <source>Интеграция</source>
        <translation>Integration</translation>
    </message>
    <message>
        <source>Сложность пин-кода</source>
        <translation>PIN complexity</translation>
    </message>
    <message>
        <source>Сложность пароля</source>
        <translation>Password complexity</translation>
    </message>
    <message>
        <source>Настройки количества шаблонов</source>
        <translation>Number of templates</translation>
    </message>
</context>
<context>
    <name>SettingsWidget</name>
    <message>
        <source>%1. Ключ параметра каталога в свойстве «parameter» задаёт название, варианты, границы и подсказку.</source>
        <translation>%1. The key of a parameter of the catalogue in the property “parameter” sets caption, choices, bounds and tool tip.</translation>
    </message>
    <message>
        <source>Параметр «да или нет»</source>
        <translation>Yes-or-no parameter</translation>
    </message>
    <message>
        <source>Параметр с выбором из списка</source>
        <translation>Parameter with a list of choices</translation>
    </message>
    <message>
        <source>Параметр — строка</source>
        <translation>Parameter: a line of text</translation>
    </message>
    <message>
        <source>Параметр — пароль или токен</source>
        <translation>Parameter: a password or token</translation>
    </message>
    <message>
        <source>Параметр — целое число в границах</source>
        <translation>Parameter: a whole number within bounds</translation>
    </message>
    <message>
        <source>Параметр — ключ смарт-карты</source>
        <translation>Parameter: a smart card key</translation>
    </message>
    <message>
        <source>Параметр — подразделение</source>
        <translation>Parameter: a department</translation>
    </message>
    <message>
        <source>Группа зависимых флажков</source>
        <translation>Group of dependent check boxes</translation>
    </message>
</context>
</TS>
