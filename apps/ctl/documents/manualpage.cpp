#include "manualpage.h"

#include "commandtable.h"
#include "exitstatus.h"

#include <QStringList>

namespace {

/// @p text as words of the page: nothing in it is taken for a command of the formatter.
QString escaped(QString text)
{
    text.replace(QLatin1Char('\\'), QStringLiteral("\\e")).replace(QLatin1Char('-'), QStringLiteral("\\-"));
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString &line : lines) {
        if (line.startsWith(QLatin1Char('.')) || line.startsWith(QLatin1Char('\'')))
            line.prepend(QStringLiteral("\\&"));
    }
    return lines.join(QLatin1Char('\n'));
}

QString argument(const QString &text)
{
    return QLatin1Char('"') + escaped(text).replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
}

QString paragraph(const QString &text)
{
    return escaped(text) + QLatin1Char('\n');
}

QString heading(const QString &title)
{
    return QStringLiteral(".SH %1\n").arg(argument(title));
}

/// A bold term and its explanation below.
QString item(const QString &term, const QString &text)
{
    return QStringLiteral(".TP\n.B %1\n").arg(argument(term)) + paragraph(text);
}
} // namespace

QString ManualPage::text()
{
    Options all = commonOptions;
    for (const Command &command : CommandTable::commands())
        all |= command.options;
    return title() + heading(tr("НАЗВАНИЕ")) + QStringLiteral("vxsettingsctl \\- ") +
           paragraph(CommandTable::purpose()) + heading(tr("ВЫЗОВ")) + QStringLiteral(".B vxsettingsctl\n") +
           paragraph(CommandTable::synopsis()) + heading(tr("КОМАНДЫ")) + commands() + heading(tr("ПАРАМЕТРЫ")) +
           options(all) + heading(tr("ПЕРЕМЕННЫЕ ОКРУЖЕНИЯ")) + environment() + heading(tr("КОДЫ ЗАВЕРШЕНИЯ")) +
           statuses();
}

QString ManualPage::title()
{
    const QString version = QStringLiteral("vxsettings ") + QCoreApplication::applicationVersion();
    // Neither hyphenation, for which the formatter knows only English, nor wide gaps.
    return QStringLiteral(".TH VXSETTINGSCTL 1 \"\" %1\n.nh\n.ad l\n").arg(argument(version));
}

QString ManualPage::commands()
{
    QString text;
    for (const Command &command : CommandTable::commands())
        text += ManualPage::command(command);
    return text;
}

QString ManualPage::command(const Command &command)
{
    QString text = QStringLiteral(".SS %1\n").arg(argument(CommandTable::synopsis(command)));
    text += paragraph(CommandTable::tr(command.summary));
    if (command.details)
        text += paragraph(CommandTable::tr(command.details));
    return text + options(command.options);
}

QString ManualPage::options(Options options)
{
    QString text;
    for (const OptionDescription &row : CommandTable::options()) {
        if (options.testFlag(row.option))
            text += item(CommandTable::synopsis(row), CommandTable::tr(row.text));
    }
    return text;
}

QString ManualPage::environment()
{
    QString text;
    for (const EnvironmentVariable &row : CommandTable::environment())
        text += item(QString::fromLatin1(row.names), CommandTable::tr(row.text));
    return text;
}

QString ManualPage::statuses()
{
    QString text;
    for (const ExitStatusText &row : exitStatusTexts)
        text += item(QString::number(row.status), QCoreApplication::translate("ExitStatus", row.text));
    return text;
}
