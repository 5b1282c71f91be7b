#include "commandline.h"

#include "commandtable.h"

#include <host/translations.h>

namespace {

QStringList names(const OptionDescription &row)
{
    QStringList names{QString::fromLatin1(row.name)};
    if (row.letter)
        names.prepend(QChar::fromLatin1(row.letter));
    return names;
}
} // namespace

CommandLine::CommandLine(const QStringList &arguments)
{
    for (const OptionDescription &row : CommandTable::options())
        m_parser.addOption({names(row), {}, QString::fromUtf8(row.value)});
    m_isUtf8 = !arguments.join(QChar()).contains(QChar::ReplacementCharacter);
    m_parsed = m_parser.parse(arguments);
}

QString CommandLine::error() const
{
    if (!m_isUtf8)
        return tr("Командная строка записана не в кодировке UTF-8.");
    if (!m_parsed)
        return m_parser.errorText();
    if (isSet(Option::Language) && !Translations::languages().contains(language()))
        return tr("Нет такого языка: «%1». Языки: %2.")
            .arg(language(), Translations::languages().join(QStringLiteral(", ")));
    if (isSet(Option::Database) && database().isEmpty())
        return tr("Не указана база данных.");
    if (m_parser.positionalArguments().isEmpty())
        return tr("Не указана команда.");
    if (!command())
        return tr("Нет такой команды: «%1».").arg(m_parser.positionalArguments().constFirst());
    return commandError();
}

bool CommandLine::isSet(Option option) const
{
    return m_parser.isSet(CommandTable::name(option));
}

const Command *CommandLine::command() const
{
    return CommandTable::find(m_parser.positionalArguments().value(0));
}

QStringList CommandLine::arguments() const
{
    return m_parser.positionalArguments().mid(1);
}

QString CommandLine::language() const
{
    return m_parser.value(CommandTable::name(Option::Language));
}

QString CommandLine::database() const
{
    return m_parser.value(CommandTable::name(Option::Database));
}

QString CommandLine::reason() const
{
    return m_parser.value(CommandTable::name(Option::Reason));
}

QString CommandLine::commandError() const
{
    const Command &command = *this->command();
    const QString name = QString::fromLatin1(command.name);
    for (const OptionDescription &row : CommandTable::options()) {
        if (isSet(row.option) && !(commonOptions | command.options).testFlag(row.option))
            return tr("У команды «%1» нет параметра «--%2».").arg(name, CommandTable::name(row.option));
    }
    if (arguments().size() < command.count.least)
        return tr("Команде «%1» не хватает аргументов.").arg(name);
    if (arguments().size() > command.count.most)
        return tr("У команды «%1» слишком много аргументов.").arg(name);
    return {};
}
