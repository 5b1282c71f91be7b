#include "ctl.h"

#include "commandtable.h"
#include "session.h"
#include "texttable.h"

#include <QTextStream>

#include <cstdio>

namespace {

/// Messages quote what was written by hand.
QString harmless(const QString &message)
{
    QStringList lines;
    for (const QString &line : message.split(QLatin1Char('\n')))
        lines.append(TextTable::visible(line));
    return lines.join(QLatin1Char('\n'));
}
} // namespace

int Ctl::run(const QStringList &arguments)
{
    const CommandLine commandLine(arguments);
    const Report report = Ctl::report(commandLine);
    const bool asJson = commandLine.isSet(Option::Json) && !report.json.isNull();
    return print(report, asJson) ? report.status : ExitDatabase;
}

Report Ctl::report(const CommandLine &commandLine)
{
    Report report;
    if (commandLine.isSet(Option::Help))
        report.text = commandLine.command() ? CommandTable::help(*commandLine.command()) : CommandTable::help();
    else if (commandLine.isSet(Option::Version))
        report.text = QStringLiteral("vxsettingsctl %1\n").arg(QCoreApplication::applicationVersion());
    else if (!commandLine.error().isNull())
        return usageError(commandLine.error());
    else {
        Session session(commandLine);
        return commandLine.command()->run(session);
    }
    return report;
}

Report Ctl::usageError(const QString &message)
{
    return Report::failure(ExitUsage, tr("%1\nСправка: vxsettingsctl --help").arg(message));
}

bool Ctl::print(const Report &report, bool asJson)
{
    QTextStream out(stdout);
    QTextStream err(stderr);
    out.setCodec("UTF-8");
    err.setCodec("UTF-8");
    if (!report.message.isEmpty())
        err << harmless(report.message) << '\n';
    out << (asJson ? QString::fromUtf8(report.json.toJson()) : report.text);
    out.flush();
    return out.status() == QTextStream::Ok && fflush(stdout) == 0;
}
