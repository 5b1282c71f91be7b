<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru">
<context>
    <name>PasswordEdit</name>
    <message>
        <source>Скрыть пароль</source>
        <translation>Hide the password</translation>
    </message>
    <message>
        <source>Показать пароль</source>
        <translation>Show the password</translation>
    </message>
</context>
<context>
    <name>SettingsGroupHeader</name>
    <message>
        <source>Свернуть</source>
        <translation>Collapse</translation>
    </message>
    <message>
        <source>Развернуть</source>
        <translation>Expand</translation>
    </message>
</context>
<context>
    <name>SmartCardKeyDialog</name>
    <message>
        <source>Ключ смарт-карты</source>
        <translation>Smart card key</translation>
    </message>
    <message>
        <source>ОК</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>&amp;Ключ в шестнадцатеричном виде:</source>
        <translation>&amp;Key in hexadecimal:</translation>
    </message>
    <message>
        <source>Длина ключа в байтах: %1.</source>
        <translation>Key length in bytes: %1.</translation>
    </message>
    <message>
        <source>Символ «%1» на месте %2 не подходит: допустимы цифры 0–9 и латинские буквы A–F.</source>
        <translation>The character “%1” at position %2 does not fit: only the digits 0–9 and the letters A–F are allowed.</translation>
    </message>
    <message>
        <source>Введите ключ: %1 цифр.</source>
        <translation>Enter the key: %1 digits.</translation>
    </message>
    <message>
        <source>Введено цифр: %1, нужно %2.</source>
        <translation>Digits entered: %1, needed: %2.</translation>
    </message>
    <message>
        <source>%1 или %2</source>
        <comment>a list of numbers and the last of them</comment>
        <translation>%1 or %2</translation>
    </message>
</context>
<context>
    <name>VXTreeBox</name>
    <message>
        <source>Дерево выбора</source>
        <translation>Selection tree</translation>
    </message>
</context>
</TS>
