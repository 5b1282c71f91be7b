#include "settingsstore.h"

#include "databasefile.h"
#include "pageaccess.h"
#include "sampleinstallation.h"
#include "schema.h"
#include "settingshistory.h"
#include "settingswriter.h"
#include "sqlconnection.h"
#include "sqltransaction.h"

#include <QCoreApplication>
#include <QFileInfo>

using vantorix::OBJECT_PARAMETERS;
using Engine = DatabaseLocation::Engine;
using Mode = SqlConnection::Mode;

namespace {

const QString objectOrder[] = {QStringLiteral("rowid"), QStringLiteral("position")};
const QString selectDataVersion = QStringLiteral("PRAGMA data_version");

/// Held by a save until it is stored or given up, also by one whose program or connection is gone.
const QString lockSave = QStringLiteral("SELECT pg_advisory_xact_lock(hashtextextended(?, 0))");
const QString tryLockSave = QStringLiteral("SELECT pg_try_advisory_xact_lock(hashtextextended(?, 0))");

bool hasContent(const QString &path)
{
    return QFileInfo(path).size() > 0;
}

/// How to look into a database so that nothing changes. A writer that closes it tidies up: it carries over what a
/// killed program has left in its log. A reader leaves an empty log behind where there was none, and can read nothing
/// at all where a killed program has left half a change that must be taken back by its journal.
Mode modeForLooking(const QString &path)
{
    return hasContent(path + QStringLiteral("-wal")) ? Mode::ReadOnly : Mode::ReadWrite;
}

std::optional<DatabaseError> fileProblem(const DatabaseLocation &location)
{
    const QString path = location.filePath();
    if (auto problem = DatabaseFile(path).problem())
        return problem;
    SqlConnection connection(location, modeForLooking(path));
    return Schema::problem(connection);
}

/// With WAL a reader never waits for a writer; with FULL a save that was acknowledged survives a power cut. Without
/// secure deletion a replaced password would stay in the file.
bool prepareForSaves(SqlConnection &connection)
{
    if (connection.engine() == Engine::PostgreSql)
        return true;
    for (const char *pragma : {"journal_mode = WAL", "synchronous = FULL", "secure_delete = ON"}) {
        if (!connection.execute(QStringLiteral("PRAGMA ") + QLatin1String(pragma)))
            return false;
    }
    return true;
}

std::optional<DatabaseError> createTables(const DatabaseLocation &location, const Installation &content)
{
    SqlConnection connection(location, Mode::ReadWrite);
    return Schema::create(connection, content);
}

std::optional<DatabaseError> createSampleUnlessThere(const DatabaseLocation &location)
{
    auto error = SettingsStore::create(location, SampleInstallation::make());
    return error && error->kind == DatabaseError::Kind::Exists ? std::nullopt : error;
}

DatabaseError fileIsMissing(const DatabaseLocation &location)
{
    return {location.name(), QCoreApplication::translate("SettingsStore", "Файла нет."),
            QCoreApplication::translate("SettingsStore",
                                        "Проверьте параметр --database или создайте базу данных: vxsettingsctl init."),
            DatabaseError::Kind::Missing};
}

DatabaseError cancelled(const DatabaseLocation &location)
{
    return {location.name(), QCoreApplication::translate("SettingsStore", "Запись отменена."),
            QCoreApplication::translate("SettingsStore", "Ничего не записано."), DatabaseError::Kind::Cancelled};
}

DatabaseError stillUnderWay(const DatabaseLocation &location)
{
    return {location.name(), QCoreApplication::translate("SettingsStore", "Сервер ещё не закончил эту запись."),
            QCoreApplication::translate("SettingsStore", "Подождите и повторите попытку."), DatabaseError::Kind::Busy};
}
} // namespace

SettingsStore::SettingsStore() = default;

SettingsStore::~SettingsStore() = default;

std::optional<DatabaseError> SettingsStore::copy(const QString &path, const QString &copy)
{
    const auto location = DatabaseLocation::ofFile(path);
    if (auto problem = fileProblem(location))
        return problem;
    SqlConnection connection(location, modeForLooking(path));
    if (!connection.execute(QStringLiteral("VACUUM INTO ?"), {copy}))
        return connection.error();
    return {};
}

std::optional<DatabaseError> SettingsStore::create(const DatabaseLocation &location, const Installation &content)
{
    if (location.engine() == Engine::PostgreSql)
        return createTables(location, content);
    return DatabaseFile(location.filePath()).create([&content](const QString &path) {
        return createTables(DatabaseLocation::ofFile(path), content);
    });
}

std::optional<DatabaseError> SettingsStore::open(const DatabaseLocation &location, Missing missing)
{
    m_connection.reset();
    const bool isFile = location.engine() == Engine::Sqlite;
    if (isFile && !DatabaseFile(location.filePath()).exists()) {
        if (missing == Missing::Refuse)
            return fileIsMissing(location);
        if (auto error = createSampleUnlessThere(location))
            return error;
    }
    if (auto problem = isFile ? fileProblem(location) : std::nullopt)
        return problem;

    const QByteArray fileIdentity = isFile ? DatabaseFile(location.filePath()).identity() : QByteArray();
    auto connection = std::make_unique<SqlConnection>(location, Mode::ReadWrite);
    if (!connection->isOpen())
        return connection->error();
    auto problem = isFile ? std::nullopt : Schema::problem(*connection);
    if (problem && problem->kind == DatabaseError::Kind::Missing && missing == Missing::CreateSample)
        problem = createSampleUnlessThere(location);
    if (problem)
        return problem;
    if (auto error = Schema::migrate(*connection))
        return error;
    if (!prepareForSaves(*connection))
        return connection->error();
    m_fileIdentity = fileIdentity;
    m_connection = std::move(connection);
    return {};
}

bool SettingsStore::isOpen() const
{
    return m_connection != nullptr;
}

std::optional<DatabaseError> SettingsStore::load(Installation &installation)
{
    Installation read;
    const SqlTransaction transaction(*m_connection, SqlTransaction::Kind::Read);
    if (!transaction.isActive() || !readSettings(read) || !readObjects(read))
        return m_connection->error();
    if (isFile())
        m_dataVersion = m_connection->selectOne(selectDataVersion).toLongLong();
    installation = read;
    return {};
}

SaveResult SettingsStore::save(const SaveOrder &order, const std::function<bool()> &mayCommit)
{
    if (auto problem = placeProblem())
        return SaveResult::failed(*problem);
    return write(order, mayCommit);
}

SaveResult SettingsStore::save(const OBJECT_PARAMETERS &changes, const Installation &base, const QString &reason)
{
    return save(SaveOrder{changes, base, reason});
}

SaveResult SettingsStore::write(const SaveOrder &order, const std::function<bool()> &mayCommit)
{
    SqlTransaction transaction(*m_connection, SqlTransaction::Kind::Write);
    if (!transaction.isActive() || (!isFile() && !m_connection->execute(lockSave, {order.id})))
        return SaveResult::failed(m_connection->error());

    const auto forbidden = forbiddenKeys(order);
    if (!forbidden)
        return SaveResult::failed(m_connection->error());
    if (!forbidden->isEmpty())
        return SaveResult::forbidden(*forbidden);

    SettingsWriter writer(*m_connection, order.id, order.reason);
    // Two savers on a server that lock the same rows in the same order never wait for each other in a circle.
    QStringList keys = order.changes.keys();
    keys.sort();
    for (const QString &key : qAsConst(keys)) {
        if (!writer.write(key, order.changes[key], order.base.settings.value(key), order.base.revisions.value(key)))
            return SaveResult::failed(m_connection->error());
    }
    if (!writer.conflicts().isEmpty())
        return SaveResult::conflicting(writer.conflicts());
    if (!mayCommit())
        return SaveResult::failed(cancelled(m_connection->location()));
    if (!writer.revisions().isEmpty() && !transaction.commit())
        return isRefusal(m_connection->error()) ? SaveResult::failed(m_connection->error())
                                                : SaveResult::unknown(order.id, m_connection->error());
    return SaveResult::saved(order.id, writer.revisions(), writer.stamp());
}

std::optional<QStringList> SettingsStore::forbiddenKeys(const SaveOrder &order)
{
    if (order.authority == Authority::Administrator)
        return QStringList();
    auto row = m_connection->select(QStringLiteral("SELECT value FROM settings WHERE key = ?"), {PageAccess::KEY});
    const bool isStored = row && row->next();
    if (!m_connection->isComplete(row))
        return {};
    const PageAccess access = isStored ? PageAccess(row->value(0).toString()) : PageAccess();
    return access.locked(order.changes.keys());
}

/// Whether a commit that failed with @p error has stored nothing. After an error of the disk, or without an answer of
/// the server, it may have. A file that finds no room lacks the end of the change, and counts for nothing.
bool SettingsStore::isRefusal(const DatabaseError &error) const
{
    using Kind = DatabaseError::Kind;
    return error.kind == Kind::Busy || error.kind == Kind::Full || (!isFile() && error.kind != Kind::Disconnected);
}

DatabaseResult<QVector<HistoryRecord>> SettingsStore::outcome(const QString &saveId)
{
    // Waits for the end of the save in question: the writer of a file is alone, that on a server holds its lock.
    SqlTransaction transaction(*m_connection, SqlTransaction::Kind::Write);
    if (!transaction.isActive())
        return m_connection->error();
    const QVariant isOver = isFile() ? QVariant(true) : m_connection->selectOne(tryLockSave, {saveId});
    if (!isOver.isValid())
        return m_connection->error();
    if (!isOver.toBool())
        return stillUnderWay(m_connection->location());
    const auto records = SettingsHistory(*m_connection).recordsOfSave(saveId);
    if (!records || (isFile() && !commitAnything(transaction)))
        return m_connection->error();
    return *records;
}

/// A change whose last step, the syncing of the disk, has failed stands in the log of a file and counts for nothing,
/// but only until the machine starts again, when it is taken for a save. The next change takes its place.
bool SettingsStore::commitAnything(SqlTransaction &transaction)
{
    const QVariant version = m_connection->selectOne(QStringLiteral("PRAGMA user_version")); // without it, no statement
    const bool isWritten = m_connection->execute(QStringLiteral("PRAGMA user_version = ") + version.toString());
    // Uncovered from here: the number stays in memory until the commit; nothing but a lack of memory refuses it.
    return isWritten && transaction.commit();
    // Uncovered to here
}

std::optional<DatabaseError> SettingsStore::history(const QString &key, QVector<HistoryRecord> &records)
{
    const auto found = SettingsHistory(*m_connection).records(key);
    if (!found)
        return m_connection->error();
    records = *found;
    return {};
}

std::optional<DatabaseError> SettingsStore::textAt(const QString &key, qint64 revision, QString &text)
{
    const auto found = SettingsHistory(*m_connection).textAt(key, revision);
    if (!found)
        return m_connection->error();
    text = *found;
    return {};
}

DatabaseResult<bool> SettingsStore::hasNews()
{
    if (auto problem = placeProblem())
        return *problem;
    const QVariant answer = m_connection->selectOne(isFile() ? selectDataVersion : QStringLiteral("SELECT 0"));
    if (!answer.isValid())
        return m_connection->error();
    return isFile() && answer.toLongLong() != m_dataVersion;
}

std::optional<DatabaseError> SettingsStore::listen()
{
    if (isFile() || m_connection->execute(QStringLiteral("LISTEN vxsettings")))
        return {};
    return m_connection->error();
}

int SettingsStore::socket() const
{
    return isFile() ? -1 : ServerLink(m_connection->database()).socket();
}

ServerLink::News SettingsStore::takeNews()
{
    return isFile() ? ServerLink::News::Nothing : ServerLink(m_connection->database()).takeNews();
}

bool SettingsStore::isFile() const
{
    return m_connection->engine() == Engine::Sqlite;
}

std::optional<DatabaseError> SettingsStore::placeProblem() const
{
    // What is written to a file without a name is gone when it is closed.
    const DatabaseLocation &location = m_connection->location();
    if (!isFile() || DatabaseFile(location.filePath()).identity() == m_fileIdentity)
        return {};
    return DatabaseError{location.name(),
                         QCoreApplication::translate("SettingsStore", "Файл базы данных удалён или заменён другим."),
                         QCoreApplication::translate("SettingsStore", "Верните файл на место и повторите попытку."),
                         DatabaseError::Kind::Disconnected};
}

bool SettingsStore::readSettings(Installation &installation)
{
    auto rows = m_connection->select(
        QStringLiteral("SELECT key, value, revision, changed_at, changed_by, workstation, program FROM settings"));
    while (rows && rows->next()) {
        const QString key = rows->value(0).toString();
        installation.settings.insert(key, rows->value(1).toString());
        installation.revisions.insert(key, rows->value(2).toLongLong());
        installation.stamps.insert(
            key, ChangeStamp::fromColumns({rows->value(3), rows->value(4), rows->value(5), rows->value(6)}));
    }
    return m_connection->isComplete(rows);
}

bool SettingsStore::readObjects(Installation &installation)
{
    const QString order = objectOrder[isFile() ? 0 : 1];
    auto rows = m_connection->select(
        QStringLiteral("SELECT data_name, uid, parent_uid, type, name, granted FROM objects ORDER BY ") + order);
    while (rows && rows->next()) {
        installation.objects[rows->value(0).toString()].append({rows->value(1).toUInt(), rows->value(2).toUInt(),
                                                                rows->value(3).toString(), rows->value(4).toString(),
                                                                rows->value(5).toBool()});
    }
    return m_connection->isComplete(rows);
}
