#include "session.h"

#include "stampwords.h"
#include "valuewords.h"

#include <host/databasefile.h>

#include <localstorage/localstorage.h>

#include <QJsonArray>
#include <QJsonObject>

using vantorix::OBJECT_PARAMETERS;

Session::Session(const CommandLine &commandLine)
    : m_commandLine(commandLine)
    , m_location(DatabaseLocation::chosen(commandLine.database()))
    , m_objects({})
{}

const CommandLine &Session::commandLine() const
{
    return m_commandLine;
}

QString Session::databasePath() const
{
    return m_location.filePath();
}

std::optional<Report> Session::locationProblem() const
{
    if (m_location.isValid())
        return {};
    return Report::failure(ExitUsage, m_location.problem());
}

std::optional<Report> Session::load()
{
    if (auto problem = locationProblem())
        return problem;
    if (!DatabaseFile(databasePath()).exists()) {
        const DatabaseError error{databasePath(), tr("Файла нет."),
                                  tr("Проверьте параметр --database или создайте базу данных: vxsettingsctl init.")};
        return Report::failure(ExitDatabase, error.text());
    }
    auto error = m_store.open(m_location);
    if (!error)
        error = m_store.load(m_installation);
    if (error)
        return Report::failure(ExitDatabase, error->text());

    m_objects = ObjectIndex(m_installation.objects);
    // The names of objects are looked up there.
    for (auto list = m_installation.objects.cbegin(); list != m_installation.objects.cend(); ++list)
        vantorix::LocalStorage::instance()->setObjects(list.key(), list.value());
    return {};
}

const QHash<QString, QString> &Session::settings() const
{
    return m_installation.settings;
}

const ObjectIndex &Session::objects() const
{
    return m_objects;
}

std::optional<Report> Session::readHistory(const QString &key, QVector<HistoryRecord> &records)
{
    const auto error = m_store.history(key, records);
    return error ? std::optional(Report::failure(ExitDatabase, error->text())) : std::nullopt;
}

std::optional<Report> Session::readTextAt(const QString &key, qint64 revision, QString &text)
{
    const auto error = m_store.textAt(key, revision, text);
    return error ? std::optional(Report::failure(ExitDatabase, error->text())) : std::nullopt;
}

std::optional<Report> Session::save(const OBJECT_PARAMETERS &changes)
{
    const SaveResult result = m_store.save(changes, m_installation, m_commandLine.reason());
    if (result.error)
        return Report::failure(ExitDatabase, result.error->text());
    if (!result.conflicts.isEmpty())
        return conflictReport(result.conflicts);
    for (auto change = changes.begin(); change != changes.end(); ++change)
        m_installation.settings.insert(change.key(), change.value());
    for (auto revision = result.revisions.begin(); revision != result.revisions.end(); ++revision)
        m_installation.revisions.insert(revision.key(), revision.value());
    return {};
}

Report Session::conflictReport(const QVector<SettingConflict> &conflicts) const
{
    QStringList lines{tr("Ничего не сохранено: настройки одновременно изменил кто-то другой.")};
    QJsonArray rows;
    for (const SettingConflict &conflict : conflicts) {
        const SettingAddress address{conflict.key};
        lines.append(tr("%1: было %2, сейчас %3 (%4), вы задаёте %5")
                         .arg(conflict.key, ValueWords::words(address, conflict.loaded),
                              ValueWords::words(address, conflict.stored), StampWords::sentence(conflict.stamp),
                              ValueWords::words(address, conflict.wanted)));
        QJsonObject row = ValueWords::json(address, {{QStringLiteral("base"), conflict.loaded},
                                                     {QStringLiteral("theirs"), conflict.stored},
                                                     {QStringLiteral("mine"), conflict.wanted}});
        StampWords::insertInto(row, conflict.stamp);
        rows.append(row);
    }
    Report report = Report::failure(ExitConflict, lines.join(QLatin1Char('\n')));
    QJsonObject json = report.json.object();
    json.insert(QStringLiteral("conflicts"), rows);
    report.json.setObject(json);
    return report;
}
