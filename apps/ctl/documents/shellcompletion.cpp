#include "shellcompletion.h"

#include "commandtable.h"
#include "completiontables.h"

#include <QFile>
#include <QStringList>

namespace {

/// How one family of shells writes what the templates leave open.
struct Dialect
{
    const char *table;     ///< a case: %1 its name, %2 its quoted lines
    const char *command;   ///< a case: %1 its name, %2 the kind of its arguments, %3 how many there can be
    const char *separator; ///< between the patterns of a case
    QString (*quoted)(QString text);
};

QString quotedForSh(QString text)
{
    return QLatin1Char('\'') + text.replace(QLatin1Char('\''), QStringLiteral("'\\''")) + QLatin1Char('\'');
}

QString quotedForFish(QString text)
{
    text.replace(QLatin1Char('\\'), QStringLiteral("\\\\")).replace(QLatin1Char('\''), QStringLiteral("\\'"));
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

constexpr Dialect sh{"    %1) table=%2 ;;\n", "    %1) kind=%2 most=%3 ;;\n", " | ", quotedForSh};
constexpr Dialect fishShell{"        case %1\n            echo %2\n", "        case %1\n            echo %2\\n%3\n",
                            " ", quotedForFish};

/// A word, a tab and its description in each line.
QString lines(const CompletionTable &table)
{
    QStringList lines;
    for (const CompletionTable::Word &word : table.words)
        lines.append(word.word + QLatin1Char('\t') + word.description);
    return lines.join(QLatin1Char('\n'));
}

QString tables(const Dialect &dialect)
{
    QString text;
    for (const CompletionTable &table : CompletionTables::all())
        text += QString::fromLatin1(dialect.table).arg(dialect.quoted(table.name), dialect.quoted(lines(table)));
    return text;
}

QString commands(const Dialect &dialect)
{
    QString text;
    for (const Command &command : CommandTable::commands())
        text += QString::fromLatin1(dialect.command)
                    .arg(QLatin1String(command.name), CompletionTables::kindName(command.argumentKind))
                    .arg(command.count.most);
    return text;
}

template <typename Condition>
QString options(const Dialect &dialect, Condition condition)
{
    QStringList names;
    for (const OptionDescription &row : CommandTable::options()) {
        if (row.value && condition(row))
            names.append(QStringLiteral("--") + QLatin1String(row.name));
    }
    return names.join(QLatin1String(dialect.separator));
}

QString filled(const QString &name, const Dialect &dialect)
{
    QFile file(QStringLiteral(":/documents/") + name);
    const bool isOpen = file.open(QIODevice::ReadOnly);
    Q_ASSERT(isOpen);
    const auto any = [](const OptionDescription &) { return true; };
    const auto isFile = [](const OptionDescription &row) { return row.valueKind == WordKind::File; };
    return QString::fromUtf8(isOpen ? file.readAll() : QByteArray())
        .replace(QStringLiteral("@TABLES@\n"), tables(dialect))
        .replace(QStringLiteral("@COMMANDS@\n"), commands(dialect))
        .replace(QStringLiteral("@VALUE_OPTIONS@"), options(dialect, any))
        .replace(QStringLiteral("@FILE_OPTIONS@"), options(dialect, isFile));
}
} // namespace

QString ShellCompletion::bash()
{
    return filled(QStringLiteral("completion.bash"), sh);
}

QString ShellCompletion::zsh()
{
    return filled(QStringLiteral("completion.zsh"), sh);
}

QString ShellCompletion::fish()
{
    return filled(QStringLiteral("completion.fish"), fishShell);
}
