#include "schema.h"

#include "sqlconnection.h"
#include "sqltransaction.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QVector>

#include <algorithm>

using vantorix::ObjectRecord;

// The resources of a static library are not there by themselves.
static void makeResourcesAvailable()
{
    Q_INIT_RESOURCE(schema);
}

namespace {

/// Columns that a version has added to a table.
struct AddedColumns
{
    int version;
    const char *table;
    const char *names;
};

// clang-format off
constexpr AddedColumns addedColumns[] = {
    {1, "settings", "key value"},
    {1, "objects",  "data_name uid parent_uid type name granted"},
    {2, "settings", "revision changed_at changed_by workstation program"},
    {2, "history",  "id save_id key revision old_value new_value changed_at changed_by workstation program reason"},
};
// clang-format on

using TableColumns = QHash<QString, QStringList>; // by the table, which has none if it is not there

/// What is put in different words to each engine.
struct Dialect
{
    const char *folder;
    const char *selectVersion;
    const char *updateVersion;
    const char *selectColumns;
    /// Nobody else makes or updates tables until the transaction ends. A file is locked by the transaction itself.
    const char *lock;
};

// clang-format off
constexpr Dialect sqlite{
    ":/vxsettings/schema/sqlite",
    "PRAGMA user_version",
    "PRAGMA user_version = %1",
    "SELECT name FROM pragma_table_info(?)",
    nullptr};
constexpr Dialect postgreSql{
    ":/vxsettings/schema/postgresql",
    "SELECT version FROM schema_version",
    "UPDATE schema_version SET version = %1",
    "SELECT column_name FROM information_schema.columns WHERE table_schema = current_schema() AND table_name = ?",
    "SELECT pg_advisory_xact_lock(hashtext('vxsettings schema'))"};
// clang-format on

const Dialect &dialect(const SqlConnection &connection)
{
    return connection.engine() == DatabaseLocation::Engine::Sqlite ? sqlite : postgreSql;
}

/// The files that lead from one version to the next, the first one to version 1.
QFileInfoList scripts(const Dialect &dialect)
{
    makeResourcesAvailable();
    return QDir(QLatin1String(dialect.folder)).entryInfoList(QDir::Files, QDir::Name);
}

/// A blank line ends a statement: a semicolon may be inside of a trigger.
QStringList statements(const QFileInfo &script)
{
    QFile file(script.filePath());
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll()).split(QStringLiteral("\n\n"));
}

bool runScript(SqlConnection &connection, const QFileInfo &script)
{
    for (const QString &statement : statements(script)) {
        if (!connection.execute(statement))
            return false;
    }
    return true;
}

/// Leads from @p version to the newest one.
bool runScripts(SqlConnection &connection, int version)
{
    for (const QFileInfo &script : scripts(dialect(connection)).mid(version)) {
        if (!runScript(connection, script))
            return false;
    }
    const QString update = QLatin1String(dialect(connection).updateVersion);
    return connection.execute(update.arg(qMax(version, Schema::version())));
}

/// Of a database with the tables, which are of version 1 if it tells none. Nothing if it could not be read.
std::optional<int> storedVersion(SqlConnection &connection)
{
    const QVariant version = connection.selectOne(QLatin1String(dialect(connection).selectVersion));
    return version.isValid() ? std::optional<int>(qMax(1, version.toInt())) : std::nullopt;
}

/// Of our tables. Nothing if they could not be read.
std::optional<TableColumns> readColumns(SqlConnection &connection)
{
    TableColumns columns;
    for (const AddedColumns &added : addedColumns) {
        const QString table = QLatin1String(added.table);
        QStringList names;
        auto rows = connection.select(QLatin1String(dialect(connection).selectColumns), {table});
        while (rows && rows->next())
            names.append(rows->value(0).toString());
        if (!connection.isComplete(rows))
            return {};
        columns.insert(table, names);
    }
    return columns;
}

/// Whether one of our tables is there.
bool isMade(const TableColumns &columns)
{
    return std::any_of(columns.begin(), columns.end(), [](const QStringList &names) { return !names.isEmpty(); });
}

bool lock(SqlConnection &connection)
{
    const char *statement = dialect(connection).lock;
    return !statement || connection.execute(QLatin1String(statement));
}

bool insertSettings(SqlConnection &connection, const QHash<QString, QString> &settings, const ChangeStamp &stamp)
{
    const QString insert = QStringLiteral(
        "INSERT INTO settings(key, value, changed_at, changed_by, workstation, program) VALUES(?, ?, ?, ?, ?, ?)");
    QStringList keys = settings.keys();
    keys.sort();
    for (const QString &key : keys) {
        if (!connection.execute(insert, QVariantList{key, settings[key]} + stamp.toColumns()))
            return false;
    }
    return true;
}

bool insertObjects(SqlConnection &connection, const QString &dataName, const QVector<ObjectRecord> &objects)
{
    for (const ObjectRecord &object : objects) {
        if (!connection.execute(QStringLiteral("INSERT INTO objects(data_name, uid, parent_uid, type, name, granted) "
                                               "VALUES(?, ?, ?, ?, ?, ?)"),
                                {dataName, object.uid, object.parentUid, object.type, object.name, object.granted}))
            return false;
    }
    return true;
}

bool insertAllObjects(SqlConnection &connection, const QHash<QString, QVector<ObjectRecord>> &objects)
{
    QStringList dataNames = objects.keys();
    dataNames.sort();
    for (const QString &dataName : dataNames) {
        if (!insertObjects(connection, dataName, objects[dataName]))
            return false;
    }
    return true;
}

/// Why the tables are not even those of @p version.
std::optional<DatabaseError> tableProblem(const DatabaseLocation &location, const TableColumns &columns, int version)
{
    for (const AddedColumns &added : addedColumns) {
        const QString table = QLatin1String(added.table);
        QStringList missing = QString::fromLatin1(added.names).split(QLatin1Char(' '));
        for (const QString &name : columns[table])
            missing.removeAll(name);
        if (added.version <= version && !missing.isEmpty())
            return DatabaseError{location.name(),
                                 Schema::tr("Это база данных с другой схемой: в таблице «%1» нет столбцов: %2.")
                                     .arg(table, missing.join(QStringLiteral(", "))),
                                 Schema::tr("Укажите базу данных настроек в параметре --database.")};
    }
    return {};
}

/// Whether the file is whole.
std::optional<DatabaseError> fileProblem(SqlConnection &connection)
{
    const QVariant health = connection.selectOne(QStringLiteral("PRAGMA integrity_check(1)"));
    if (!health.isValid())
        return connection.error();
    if (health.toString() != QLatin1String("ok"))
        return DatabaseError{connection.location().name(),
                             Schema::tr("Файл базы данных повреждён: %1.").arg(health.toString()),
                             Schema::tr("Восстановите файл из резервной копии.")};
    return {};
}

/// Whether the server's database can hold every text.
std::optional<DatabaseError> serverProblem(SqlConnection &connection)
{
    const QString encoding = connection.selectOne(QStringLiteral("SHOW server_encoding")).toString();
    if (encoding.isEmpty())
        return connection.error();
    if (encoding != QLatin1String("UTF8"))
        return DatabaseError{connection.location().name(),
                             Schema::tr("Кодировка базы данных — %1, а не UTF8.").arg(encoding),
                             Schema::tr("Создайте на сервере базу данных в кодировке UTF8.")};
    return {};
}

DatabaseError tablesAreMissing(const DatabaseLocation &location)
{
    return {location.name(), Schema::tr("В базе данных нет таблиц настроек."),
            Schema::tr("Проверьте адрес или создайте таблицы: vxsettingsctl init."), DatabaseError::Kind::Missing};
}
} // namespace

int Schema::version()
{
    return scripts(sqlite).count();
}

std::optional<DatabaseError> Schema::create(SqlConnection &connection, const Installation &installation,
                                            const ChangeStamp &stamp)
{
    SqlTransaction transaction(connection, SqlTransaction::Kind::Write);
    const auto columns = transaction.isActive() && lock(connection) ? readColumns(connection) : std::nullopt;
    if (columns && isMade(*columns))
        return DatabaseError{connection.location().name(), tr("В базе данных уже есть такие таблицы."),
                             tr("Она осталась как есть. Укажите другую в параметре --database."),
                             DatabaseError::Kind::Exists};
    const bool done = columns && runScripts(connection, 0) &&
                      insertSettings(connection, installation.settings, stamp) &&
                      insertAllObjects(connection, installation.objects) && transaction.commit();
    if (!done)
        return connection.error();
    return {};
}

std::optional<DatabaseError> Schema::migrate(SqlConnection &connection)
{
    // Asked again below: another program may be about to do the same. Most often there is nothing to wait for.
    const auto seen = storedVersion(connection);
    if (seen && *seen >= version())
        return {};

    SqlTransaction transaction(connection, SqlTransaction::Kind::Write);
    const auto stored = transaction.isActive() && lock(connection) ? storedVersion(connection) : std::nullopt;
    if (!stored || !runScripts(connection, *stored) || !transaction.commit())
        return connection.error();
    return {};
}

std::optional<DatabaseError> Schema::problem(SqlConnection &connection)
{
    const bool isFile = connection.engine() == DatabaseLocation::Engine::Sqlite;
    if (auto problem = isFile ? fileProblem(connection) : serverProblem(connection))
        return problem;
    const auto columns = readColumns(connection);
    if (!columns)
        return connection.error();
    if (!isFile && !isMade(*columns))
        return tablesAreMissing(connection.location());
    if (auto problem = tableProblem(connection.location(), *columns, 1))
        return problem;
    const auto stored = storedVersion(connection);
    if (!stored)
        return connection.error();
    if (*stored > version())
        return DatabaseError{
            connection.location().name(),
            tr("Версия схемы базы данных %1, программа знает версии до %2.").arg(*stored).arg(version()),
            tr("Обновите программу.")};
    return tableProblem(connection.location(), *columns, *stored);
}
