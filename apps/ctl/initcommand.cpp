#include "initcommand.h"

#include "session.h"

#include <host/sampleinstallation.h>
#include <host/settingsstore.h>

#include <QJsonObject>

Report InitCommand::run(Session &session)
{
    if (auto problem = session.locationProblem())
        return *problem;
    const bool isSample = session.commandLine().isSet(Option::Sample);
    const Installation installation = isSample ? SampleInstallation::make() : Installation();
    const QString path = session.databasePath();
    if (auto error = SettingsStore::create(DatabaseLocation::ofFile(path), installation))
        return Report::failure(ExitDatabase, error->text());

    const int count = installation.settings.size();
    Report report;
    report.text = tr("Создана база данных «%1», настроек: %2.\n").arg(path).arg(count);
    report.json.setObject({{QStringLiteral("database"), path}, {QStringLiteral("settings"), count}});
    return report;
}
