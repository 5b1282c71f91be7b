#include "importcommand.h"

#include "session.h"
#include "settingchanges.h"
#include "settingsfile.h"
#include "texttable.h"

#include <host/settingsdifference.h>

using vantorix::OBJECT_PARAMETERS;

namespace {

QString unknownKeysNotice(const QStringList &keys)
{
    return ImportCommand::tr("Этих настроек нет в каталоге, их значения не проверены: %1.")
        .arg(TextTable::visible(keys.join(QStringLiteral(", "))));
}
} // namespace

Report ImportCommand::run(Session &session)
{
    if (auto failure = session.load())
        return *failure;
    OBJECT_PARAMETERS wanted;
    if (auto failure = SettingsFile(session.commandLine().arguments().constFirst()).read(wanted))
        return *failure;

    using State = SettingsDifference::State;
    SettingChanges changes(session);
    QStringList unknownKeys;
    QStringList notices;
    for (const auto &row : SettingsDifference::rows(wanted, session.settings(), session.objects())) {
        if (row.state == State::Changed || row.state == State::Unknown)
            changes.put(row.key, wanted[row.key]);
        if (row.state == State::Unknown)
            unknownKeys.append(row.key);
        const QString error = QStringLiteral("%1: %2").arg(TextTable::visible(row.key), row.error);
        if (row.state == State::Invalid)
            changes.refuse(error);
        else if (!row.error.isNull())
            notices.append(error);
    }
    if (!unknownKeys.isEmpty())
        notices.append(unknownKeysNotice(unknownKeys));
    Report report = changes.apply();
    if (report.status == ExitDone)
        report.message = (notices + QStringList{report.message}).join(QLatin1Char('\n')).trimmed();
    return report;
}
