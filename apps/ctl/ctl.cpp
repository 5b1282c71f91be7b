#include "ctl.h"

#include "commandtable.h"
#include "console.h"
#include "session.h"

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
    if (!report.message.isEmpty())
        Console::tell(report.message);
    return Console::print(asJson ? QString::fromUtf8(report.json.toJson()) : report.text);
}
