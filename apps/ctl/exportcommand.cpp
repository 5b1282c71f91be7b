#include "exportcommand.h"

#include "session.h"
#include "settingsfile.h"

#include <host/settingsdocument.h>

#include <QJsonObject>

using Secrets = SettingsDocument::Secrets;

Report ExportCommand::run(Session &session)
{
    const QString path = session.commandLine().arguments().constFirst();
    if (auto failure = session.load())
        return *failure;
    if (SettingsFile(path).isPartOf(session.database().location()))
        return Report::failure(ExitUsage, tr("Файл «%1» принадлежит базе данных. Укажите другой.").arg(path));

    const bool hasSecrets = session.commandLine().isSet(Option::WithSecrets);
    const auto document = SettingsDocument::of(session.settings(), hasSecrets ? Secrets::Include : Secrets::LeaveOut);
    if (auto error = document.write(path))
        return Report::failure(ExitDatabase, *error);

    const int count = document.settings().size();
    Report report;
    report.text = tr("Записано настроек: %1, файл «%2».\n").arg(count).arg(path);
    report.json.setObject({{QStringLiteral("file"), path},
                           {QStringLiteral("settings"), count},
                           {QStringLiteral("withSecrets"), hasSecrets}});
    return report;
}
