#include "settingsstore.h"

#include "databasefile.h"
#include "sampleinstallation.h"
#include "schema.h"
#include "settingshistory.h"
#include "settingswriter.h"
#include "sqliteconnection.h"
#include "sqlitetransaction.h"

#include <QFileInfo>

using vantorix::OBJECT_PARAMETERS;

namespace {

/// What no setting has: a save that expects it always meets a conflict.
constexpr qint64 noRevision = -1;

std::optional<DatabaseError> createSample(const QString &path)
{
    SqliteConnection connection(path, SqliteConnection::Mode::ReadWrite);
    return Schema::create(connection, SampleInstallation::make());
}

bool hasContent(const QString &path)
{
    return QFileInfo(path).size() > 0;
}

/// How to look into a database so that nothing changes. A writer that closes it tidies up: it carries over what a
/// killed program has left in its logs. A reader leaves empty logs behind where there were none.
SqliteConnection::Mode modeForLooking(const QString &path)
{
    const bool hasLogs = hasContent(path + QStringLiteral("-wal")) || hasContent(path + QStringLiteral("-journal"));
    return hasLogs ? SqliteConnection::Mode::ReadOnly : SqliteConnection::Mode::ReadWrite;
}

std::optional<DatabaseError> problemOf(const QString &path)
{
    if (auto problem = DatabaseFile(path).problem())
        return problem;
    SqliteConnection connection(path, modeForLooking(path));
    if (!connection.isOpen())
        return DatabaseError::fromDriver(path, connection.lastError());
    return Schema::problem(connection);
}

/// With WAL a reader never waits for a writer; with FULL a save that was acknowledged survives a power cut. Without
/// secure deletion a replaced password would stay in the file.
bool prepareForSaves(SqliteConnection &connection)
{
    return connection.execute(QStringLiteral("PRAGMA journal_mode = WAL")) &&
           connection.execute(QStringLiteral("PRAGMA synchronous = FULL")) &&
           connection.execute(QStringLiteral("PRAGMA secure_delete = ON"));
}
} // namespace

SettingsStore::SettingsStore() = default;

SettingsStore::~SettingsStore() = default;

std::optional<DatabaseError> SettingsStore::copy(const QString &path, const QString &copy)
{
    if (auto problem = problemOf(path))
        return problem;
    SqliteConnection connection(path, modeForLooking(path));
    if (!connection.isOpen() || !connection.executePrepared(QStringLiteral("VACUUM INTO ?"), {copy}))
        return DatabaseError::fromDriver(path, connection.lastError());
    return {};
}

std::optional<DatabaseError> SettingsStore::open(const QString &path)
{
    m_connection.reset();
    const DatabaseFile file(path);
    if (!file.exists()) {
        if (auto error = file.create(createSample))
            return error;
    }
    if (auto problem = problemOf(path))
        return problem;

    auto connection = std::make_unique<SqliteConnection>(path, SqliteConnection::Mode::ReadWrite);
    if (!connection->isOpen())
        return DatabaseError::fromDriver(path, connection->lastError());
    if (auto error = Schema::migrate(*connection))
        return error;
    if (!prepareForSaves(*connection))
        return DatabaseError::fromDriver(path, connection->lastError());
    m_connection = std::move(connection);
    return {};
}

QString SettingsStore::path() const
{
    return m_connection ? m_connection->path() : QString();
}

std::optional<DatabaseError> SettingsStore::load(Installation &installation)
{
    Installation read;
    const SqliteTransaction transaction(*m_connection, SqliteTransaction::Kind::Read);
    if (!transaction.isActive() || !readSettings(read) || !readObjects(read))
        return lastError();
    installation = read;
    return {};
}

SaveResult SettingsStore::save(const OBJECT_PARAMETERS &changes, const Installation &loaded, const QString &reason)
{
    SqliteTransaction transaction(*m_connection, SqliteTransaction::Kind::Write);
    if (!transaction.isActive())
        return SaveResult::failed(lastError());

    SettingsWriter writer(*m_connection, reason);
    for (auto change = changes.begin(); change != changes.end(); ++change) {
        const QString &key = change.key();
        if (!writer.write(key, change.value(), loaded.settings.value(key), loaded.revisions.value(key)))
            return SaveResult::failed(lastError());
    }
    if (!writer.conflicts().isEmpty())
        return SaveResult::conflicting(writer.conflicts());
    if (!transaction.commit())
        return SaveResult::failed(lastError());
    return SaveResult::saved(writer.saveId(), writer.revisions());
}

SaveResult SettingsStore::save(const OBJECT_PARAMETERS &changes, const QHash<QString, QString> &loaded)
{
    Installation base;
    if (auto error = load(base))
        return SaveResult::failed(*error);
    for (const QString &key : changes.keys()) {
        if (base.settings.value(key) != loaded.value(key))
            base.revisions[key] = noRevision;
    }
    base.settings = loaded;
    return save(changes, base);
}

std::optional<DatabaseError> SettingsStore::history(const QString &key, QVector<HistoryRecord> &records)
{
    const auto found = SettingsHistory(*m_connection).records(key);
    if (!found)
        return lastError();
    records = *found;
    return {};
}

std::optional<DatabaseError> SettingsStore::textAt(const QString &key, qint64 revision, QString &text)
{
    const auto found = SettingsHistory(*m_connection).textAt(key, revision);
    if (!found)
        return lastError();
    text = *found;
    return {};
}

bool SettingsStore::readSettings(Installation &installation)
{
    auto rows = m_connection->select(QStringLiteral("SELECT key, value, revision FROM settings"));
    while (rows && rows->next()) {
        installation.settings.insert(rows->value(0).toString(), rows->value(1).toString());
        installation.revisions.insert(rows->value(0).toString(), rows->value(2).toLongLong());
    }
    return rows && !rows->lastError().isValid();
}

bool SettingsStore::readObjects(Installation &installation)
{
    auto rows = m_connection->select(
        QStringLiteral("SELECT data_name, uid, parent_uid, type, name, granted FROM objects ORDER BY rowid"));
    while (rows && rows->next()) {
        installation.objects[rows->value(0).toString()].append({rows->value(1).toUInt(), rows->value(2).toUInt(),
                                                                rows->value(3).toString(), rows->value(4).toString(),
                                                                rows->value(5).toBool()});
    }
    return rows && !rows->lastError().isValid();
}

DatabaseError SettingsStore::lastError() const
{
    return DatabaseError::fromDriver(m_connection->path(), m_connection->lastError());
}
