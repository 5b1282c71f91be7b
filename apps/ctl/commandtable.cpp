#include "commandtable.h"

#include "checkcommand.h"
#include "describecommand.h"
#include "diffcommand.h"
#include "exportcommand.h"
#include "getcommand.h"
#include "historycommand.h"
#include "importcommand.h"
#include "initcommand.h"
#include "listcommand.h"
#include "restorecommand.h"
#include "setcommand.h"
#include "texttable.h"
#include "watchcommand.h"

#include <algorithm>

namespace {

// clang-format off
constexpr OptionDescription optionTable[] = {
    {Option::Help,            'h', "help",             nullptr,                                   WordKind::Text, QT_TRANSLATE_NOOP("CommandTable", "Показать справку о программе или, после имени команды, о команде.")},
    {Option::Version,         'v', "version",          nullptr,                                   WordKind::Text, QT_TRANSLATE_NOOP("CommandTable", "Показать версию программы.")},
    {Option::Language,        0  , "language",         "ru|en",                                   WordKind::Text, QT_TRANSLATE_NOOP("CommandTable", "Язык программы: ru (русский) или en (английский); иначе язык системы.")},
    {Option::Database,        0  , "database",         QT_TRANSLATE_NOOP("CommandTable", "URL"),   WordKind::File, QT_TRANSLATE_NOOP("CommandTable", "База данных: файл (sqlite:ПУТЬ, ПУТЬ) или сервер (postgresql://КТО@УЗЕЛ:ПОРТ/ИМЯ).")},
    {Option::Json,            0  , "json",             nullptr,                                   WordKind::Text, QT_TRANSLATE_NOOP("CommandTable", "Вывести один документ JSON вместо текста.")},
    {Option::DryRun,          0  , "dry-run",          nullptr,                                   WordKind::Text, QT_TRANSLATE_NOOP("CommandTable", "Показать, что изменится, и ничего не записывать.")},
    {Option::Reason,          0  , "reason",           QT_TRANSLATE_NOOP("CommandTable", "ТЕКСТ"), WordKind::Text, QT_TRANSLATE_NOOP("CommandTable", "Записать в историю причину изменения.")},
    {Option::AsAdministrator, 0  , "as-administrator", nullptr,                                   WordKind::Text, QT_TRANSLATE_NOOP("CommandTable", "Сохранить как администратор: и то, что операторам изменять нельзя.")},
    {Option::WithSecrets,     0  , "with-secrets",     nullptr,                                   WordKind::Text, QT_TRANSLATE_NOOP("CommandTable", "Не скрывать пароли и токены.")},
    {Option::Stdin,           0  , "stdin",            nullptr,                                   WordKind::Text, QT_TRANSLATE_NOOP("CommandTable", "Прочитать значение из стандартного ввода.")},
    {Option::Repair,          0  , "repair",           nullptr,                                   WordKind::Text, QT_TRANSLATE_NOOP("CommandTable", "Исправить то, что можно исправить без потери данных.")},
    {Option::Sample,          0  , "sample",           nullptr,                                   WordKind::Text, QT_TRANSLATE_NOOP("CommandTable", "Заполнить базу данных примером.")},
};

constexpr Command commandTable[] = {
    {"list", QT_TRANSLATE_NOOP("CommandTable", "[ГРУППА]"), {0, 1}, WordKind::Page, {},
     QT_TRANSLATE_NOOP("CommandTable", "Показать настройки, все или одной группы."),
     QT_TRANSLATE_NOOP("CommandTable",
        "ГРУППА — имя («users») или заголовок («Пользователи») страницы настроек. Без неё показаны и настройки, которых нет\n"
        "в каталоге. Пароли и токены скрыты."),
     ListCommand::run},
    {"get", QT_TRANSLATE_NOOP("CommandTable", "КЛЮЧ[.ПОЛЕ]"), {1, 1}, WordKind::Address, Option::WithSecrets,
     QT_TRANSLATE_NOOP("CommandTable", "Вывести сохранённое значение как есть."),
     QT_TRANSLATE_NOOP("CommandTable", "Пароли и токены выводятся только с параметром --with-secrets."),
     GetCommand::run},
    {"set", QT_TRANSLATE_NOOP("CommandTable", "КЛЮЧ[.ПОЛЕ]=ЗНАЧЕНИЕ…"), {1}, WordKind::Assignment, Option::DryRun | Option::Reason | Option::AsAdministrator | Option::Stdin,
     QT_TRANSLATE_NOOP("CommandTable", "Изменить настройки, все вместе или ни одной."),
     QT_TRANSLATE_NOOP("CommandTable",
        "Вариант выбора указывается номером или названием. Если хотя бы одно имя или значение не подходит, не меняется ничего.\n"
        "С параметром --stdin указывается один КЛЮЧ[.ПОЛЕ] без значения. Так задаются пароли и токены: командную строку видят\n"
        "другие пользователи компьютера, и она остаётся в истории команд."),
     SetCommand::run},
    {"describe", QT_TRANSLATE_NOOP("CommandTable", "[КЛЮЧ[.ПОЛЕ]]"), {0, 1}, WordKind::Address, {},
     QT_TRANSLATE_NOOP("CommandTable", "Рассказать, что известно о настройке: название, вид, допустимые и зависимые значения."),
     QT_TRANSLATE_NOOP("CommandTable", "База данных для этого не нужна."),
     DescribeCommand::run},
    {"check", nullptr, {0, 0}, WordKind::Text, Option::Repair | Option::Reason | Option::AsAdministrator,
     QT_TRANSLATE_NOOP("CommandTable", "Проверить сохранённые значения."),
     QT_TRANSLATE_NOOP("CommandTable",
        "Код завершения 1 — есть ошибки, а после --repair — остались ошибки, которые может исправить только человек.\n"
        "Настройки и поля, которых нет в каталоге, — замечания, а не ошибки."),
     CheckCommand::run},
    {"export", QT_TRANSLATE_NOOP("CommandTable", "ФАЙЛ"), {1, 1}, WordKind::File, Option::WithSecrets,
     QT_TRANSLATE_NOOP("CommandTable", "Записать настройки в файл JSON."),
     QT_TRANSLATE_NOOP("CommandTable",
        "Без --with-secrets паролей и токенов в файле нет. С ними файл доступен только владельцу. Имеющийся файл заменяется."),
     ExportCommand::run},
    {"import", QT_TRANSLATE_NOOP("CommandTable", "ФАЙЛ"), {1, 1}, WordKind::File, Option::DryRun | Option::Reason | Option::AsAdministrator,
     QT_TRANSLATE_NOOP("CommandTable", "Сохранить настройки из файла, все вместе или ни одной."),
     QT_TRANSLATE_NOOP("CommandTable",
        "Настройки, которых нет в файле, не меняются. Настройки, которых нет в каталоге, сохраняются без проверки."),
     ImportCommand::run},
    {"diff", QT_TRANSLATE_NOOP("CommandTable", "ФАЙЛ"), {1, 1}, WordKind::File, {},
     QT_TRANSLATE_NOOP("CommandTable", "Сравнить сохранённые настройки с файлом."), nullptr,
     DiffCommand::run},
    {"history", QT_TRANSLATE_NOOP("CommandTable", "[КЛЮЧ[.ПОЛЕ]]"), {0, 1}, WordKind::Address, {},
     QT_TRANSLATE_NOOP("CommandTable", "Показать, кто, когда и что изменил, от старых изменений к новым."),
     QT_TRANSLATE_NOOP("CommandTable",
        "Время местное, в JSON — UTC. О паролях и токенах известно только, что они изменились."),
     HistoryCommand::run},
    {"restore", QT_TRANSLATE_NOOP("CommandTable", "КЛЮЧ@РЕВИЗИЯ"), {1, 1}, WordKind::Revision, Option::DryRun | Option::Reason | Option::AsAdministrator,
     QT_TRANSLATE_NOOP("CommandTable", "Вернуть настройке значение, которое у неё было."),
     QT_TRANSLATE_NOOP("CommandTable",
        "РЕВИЗИЯ — число из первого столбца команды history. Это новое изменение: оно проверяется, как в команде set, и\n"
        "попадает в историю. Код завершения 1 — такой ревизии нет, или её значение не хранится, как у паролей и токенов."),
     RestoreCommand::run},
    {"init", nullptr, {0, 0}, WordKind::Text, Option::Sample,
     QT_TRANSLATE_NOOP("CommandTable", "Создать базу данных, пустую или с примером."),
     QT_TRANSLATE_NOOP("CommandTable",
        "Другие команды базу данных не создают. Имеющаяся база данных остаётся как есть. На сервере PostgreSQL пустая база\n"
        "данных уже должна быть, в ней создаются таблицы."),
     InitCommand::run},
    {"watch", nullptr, {0, 0}, WordKind::Text, {},
     QT_TRANSLATE_NOOP("CommandTable", "Показывать изменения по мере того, как их сохраняют."),
     QT_TRANSLATE_NOOP("CommandTable",
        "Работает, пока её не прервут (Ctrl+C); код завершения тогда 0. С параметром --json каждое изменение — отдельный\n"
        "документ JSON в одной строке, такой же, как в команде history."),
     WatchCommand::run},
};

constexpr EnvironmentVariable environmentTable[] = {
    {"VXSETTINGS_DATABASE",    QT_TRANSLATE_NOOP("CommandTable", "База данных, если нет --database. Без неё — файл в папке данных пользователя.")},
    {"PGPASSFILE, PGPASSWORD", QT_TRANSLATE_NOOP("CommandTable", "Файл с паролями сервера PostgreSQL (иначе ~/.pgpass) или сам пароль.")},
};
// clang-format on

const QString indent = QStringLiteral("  ");
} // namespace

QVector<Command> CommandTable::commands()
{
    return {std::begin(commandTable), std::end(commandTable)};
}

QVector<OptionDescription> CommandTable::options()
{
    return {std::begin(optionTable), std::end(optionTable)};
}

QVector<EnvironmentVariable> CommandTable::environment()
{
    return {std::begin(environmentTable), std::end(environmentTable)};
}

const Command *CommandTable::find(const QString &name)
{
    const auto found = std::find_if(std::begin(commandTable), std::end(commandTable),
                                    [&name](const Command &command) { return name == QLatin1String(command.name); });
    return found == std::end(commandTable) ? nullptr : found;
}

QString CommandTable::name(Option option)
{
    const auto found = std::find_if(std::begin(optionTable), std::end(optionTable),
                                    [option](const OptionDescription &row) { return row.option == option; });
    return QString::fromLatin1(found->name);
}

QString CommandTable::help()
{
    TextTable commands;
    Options options = commonOptions;
    for (const Command &command : commandTable) {
        commands.addRow({synopsis(command), tr(command.summary)});
        options |= command.options;
    }
    return tr("Использование: vxsettingsctl %1\n\n%2\n\nКоманды:\n").arg(synopsis(), purpose()) +
           commands.text(indent) + optionHelp(options) + environmentHelp() + statusHelp();
}

QString CommandTable::help(const Command &command)
{
    const QString details = command.details ? tr(command.details) + QLatin1Char('\n') : QString();
    return tr("Использование: vxsettingsctl [ПАРАМЕТРЫ] %1\n\n%2\n").arg(synopsis(command), tr(command.summary)) +
           details + optionHelp(commonOptions | command.options) + statusHelp();
}

QString CommandTable::optionHelp(Options options)
{
    TextTable table;
    for (const OptionDescription &row : optionTable) {
        if (options.testFlag(row.option))
            table.addRow({synopsis(row), tr(row.text)});
    }
    return tr("\nПараметры:\n") + table.text(indent);
}

QString CommandTable::environmentHelp()
{
    TextTable table;
    for (const EnvironmentVariable &row : environmentTable)
        table.addRow({QString::fromLatin1(row.names), tr(row.text)});
    return tr("\nПеременные окружения:\n") + table.text(indent);
}

QString CommandTable::statusHelp()
{
    TextTable table;
    for (const ExitStatusText &row : exitStatusTexts)
        table.addRow({QString::number(row.status), QCoreApplication::translate("ExitStatus", row.text)});
    return tr("\nКоды завершения:\n") + table.text(indent);
}

QString CommandTable::purpose()
{
    return tr("Настройки базы данных системы контроля доступа из командной строки.");
}

QString CommandTable::synopsis()
{
    return tr("[ПАРАМЕТРЫ] КОМАНДА [АРГУМЕНТЫ]");
}

QString CommandTable::synopsis(const Command &command)
{
    const QString name = QString::fromLatin1(command.name);
    return command.arguments ? name + QLatin1Char(' ') + tr(command.arguments) : name;
}

QString CommandTable::synopsis(const OptionDescription &row)
{
    QString synopsis = QStringLiteral("--") + QLatin1String(row.name);
    if (row.letter)
        synopsis.prepend(QStringLiteral("-%1, ").arg(QLatin1Char(row.letter)));
    if (row.value)
        synopsis += QStringLiteral(" <%1>").arg(tr(row.value));
    return synopsis;
}
