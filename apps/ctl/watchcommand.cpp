#include "watchcommand.h"

#include "changewatcher.h"
#include "console.h"
#include "historywords.h"
#include "interruption.h"
#include "session.h"
#include "stampwords.h"
#include "texttable.h"
#include "valuewords.h"

#include <QEventLoop>

namespace {

QString lines(const HistoryRecord &record)
{
    QString lines;
    for (const auto &[address, before, after] : HistoryWords::rows(record)) {
        const QString reason = record.reason.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(record.reason);
        lines += QStringLiteral("%1  %2  %3: %4 → %5%6\n")
                     .arg(StampWords::time(record.stamp), StampWords::who(record.stamp),
                          TextTable::visible(address.text()), before, after, TextTable::visible(reason));
    }
    return lines;
}

/// A document in one line, so that each can be read when it comes.
QString document(const HistoryRecord &record)
{
    const auto json = HistoryWords::json(record, {record.key});
    return json ? QString::fromUtf8(QJsonDocument(*json).toJson(QJsonDocument::Compact)) + QLatin1Char('\n')
                : QString();
}

bool print(const QVector<HistoryRecord> &records, bool asJson)
{
    QString text;
    for (const HistoryRecord &record : records)
        text += asJson ? document(record) : lines(record);
    return Console::print(text);
}
} // namespace

Report WatchCommand::run(Session &session)
{
    if (auto failure = session.load())
        return *failure;
    InstallationDatabase &database = session.database();
    const bool asJson = session.commandLine().isSet(Option::Json);
    const Interruption interruption;
    ChangeWatcher watcher(database);
    QEventLoop loop;
    const auto end = [&loop] { loop.exit(ExitDone); };
    QObject::connect(&interruption, &Interruption::requested, &loop, end);
    QObject::connect(&watcher, &ChangeWatcher::changed, &loop, [&loop, asJson](const auto &records) {
        if (!print(records, asJson))
            loop.exit(ExitDatabase);
    });
    QObject::connect(&database, &InstallationDatabase::connectionLost, &loop, [](const DatabaseError &error) {
        Console::tell(tr("Связь с базой данных потеряна, подключение повторяется.\n%1").arg(error.text()));
    });
    QObject::connect(&database, &InstallationDatabase::connectionRestored, &loop,
                     [] { Console::tell(tr("Связь с базой данных восстановлена.")); });
    Console::tell(tr("Наблюдение за базой данных «%1». Прервать: Ctrl+C.").arg(database.location().name()));

    Report report;
    report.status = ExitStatus(loop.exec());
    return report;
}
