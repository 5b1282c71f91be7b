#include "initcommand.h"

#include "session.h"

#include <host/sampleinstallation.h>

#include <QJsonObject>

Report InitCommand::run(Session &session)
{
    const bool isSample = session.commandLine().isSet(Option::Sample);
    const Installation installation = isSample ? SampleInstallation::make() : Installation();
    if (auto failure = session.create(installation))
        return *failure;

    const QString name = session.database().location().name();
    const int count = installation.settings.size();
    Report report;
    report.text = tr("Создана база данных «%1», настроек: %2.\n").arg(name).arg(count);
    report.json.setObject({{QStringLiteral("database"), name}, {QStringLiteral("settings"), count}});
    return report;
}
