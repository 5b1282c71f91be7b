#include "initcommand.h"

#include "session.h"

#include <host/databasefile.h>
#include <host/sampleinstallation.h>
#include <host/schema.h>
#include <host/sqliteconnection.h>

#include <QJsonObject>

namespace {

std::optional<DatabaseError> create(const QString &path, const Installation &installation)
{
    const DatabaseFile file(path);
    if (file.exists())
        return DatabaseError{path, InitCommand::tr("Файл уже есть."),
                             InitCommand::tr("Он остался как есть. Укажите другой в параметре --database.")};
    return file.create([&installation](const QString &draft) {
        SqliteConnection connection(draft, SqliteConnection::Mode::ReadWrite);
        return Schema::create(connection, installation);
    });
}
} // namespace

Report InitCommand::run(Session &session)
{
    if (auto problem = session.locationProblem())
        return *problem;
    const bool isSample = session.commandLine().isSet(Option::Sample);
    const Installation installation = isSample ? SampleInstallation::make() : Installation();
    const QString path = session.databasePath();
    if (auto error = create(path, installation))
        return Report::failure(ExitDatabase, error->text());

    const int count = installation.settings.size();
    Report report;
    report.text = tr("Создана база данных «%1», настроек: %2.\n").arg(path).arg(count);
    report.json.setObject({{QStringLiteral("database"), path}, {QStringLiteral("settings"), count}});
    return report;
}
