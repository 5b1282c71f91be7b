#include "commandline.h"

#include <host/translations.h>

CommandLine::CommandLine(const QStringList &arguments)
    : m_help({QStringLiteral("h"), QStringLiteral("help")}, tr("Показать эту справку."))
    , m_version({QStringLiteral("v"), QStringLiteral("version")}, tr("Показать версию программы."))
    , m_database(
          QStringLiteral("database"),
          tr("База данных: файл (sqlite:ПУТЬ, ПУТЬ) или сервер (postgresql://КТО@УЗЕЛ:ПОРТ/ИМЯ). Где её ещё нет, "
             "она создаётся с примером настроек. Без параметра берётся значение переменной VXSETTINGS_DATABASE, без "
             "неё — файл в папке данных "
             "пользователя."),
          QStringLiteral("URL"))
    , m_render(QStringLiteral("render"),
               tr("Записать изображение каждой страницы (PNG) в папку ПАПКА. Дисплей не нужен."), tr("ПАПКА"))
    , m_selfTest(QStringLiteral("self-test"),
                 tr("Изменить, сохранить и перечитать все настройки на временной копии базы данных и рассказать, что "
                    "получилось. Сама база данных не меняется. Дисплей не нужен."))
    , m_language(QStringLiteral("language"),
                 tr("Язык программы: ru (русский) или en (английский). Без параметра — выбранный в прошлый раз, иначе "
                    "язык системы."),
                 QStringLiteral("ru|en"))
    , m_theme(QStringLiteral("theme"), tr("Оформление: light (светлое) или dark (тёмное)."),
              QStringLiteral("light|dark"))
{
    m_parser.setApplicationDescription(
        tr("Настройки базы данных системы контроля доступа.\n\n"
           "Код завершения: 0 — выполнено, 1 — не выполнено, 2 — ошибка в командной строке, 5 — ошибка базы данных."));
    m_parser.addOptions({m_help, m_version, m_database, m_render, m_selfTest, m_language, m_theme});
    m_parsed = m_parser.parse(arguments);
}

QString CommandLine::error() const
{
    if (!m_parsed)
        return m_parser.errorText();
    if (!m_parser.positionalArguments().isEmpty())
        return tr("Лишний аргумент: «%1».").arg(m_parser.positionalArguments().constFirst());
    if (m_parser.isSet(m_database) && database().isEmpty())
        return tr("Не указана база данных.");
    if (m_parser.isSet(m_render) && pictureFolder().isEmpty())
        return tr("Не указана папка для изображений.");
    if (m_parser.isSet(m_language) && !Translations::languages().contains(language()))
        return tr("Нет такого языка: «%1». Языки: %2.")
            .arg(language(), Translations::languages().join(QStringLiteral(", ")));
    if (m_parser.isSet(m_theme) && !theme())
        return tr("Нет такого оформления: «%1».").arg(m_parser.value(m_theme));
    return {};
}

bool CommandLine::isHelpWanted() const
{
    return m_parser.isSet(m_help);
}

bool CommandLine::isVersionWanted() const
{
    return m_parser.isSet(m_version);
}

bool CommandLine::isSelfTestWanted() const
{
    return m_parser.isSet(m_selfTest);
}

bool CommandLine::isWindowWanted() const
{
    return !isSelfTestWanted() && !m_parser.isSet(m_render);
}

QString CommandLine::helpText() const
{
    // Where the program lies is no part of how to use it.
    return m_parser.helpText().replace(QCoreApplication::arguments().constFirst(),
                                       QStringLiteral("vxsettings-manager"));
}

QString CommandLine::database() const
{
    return m_parser.value(m_database);
}

QString CommandLine::pictureFolder() const
{
    return m_parser.value(m_render);
}

QString CommandLine::language() const
{
    return m_parser.value(m_language);
}

std::optional<Theme::Kind> CommandLine::theme() const
{
    return Theme::fromName(m_parser.value(m_theme));
}
