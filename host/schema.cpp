#include "schema.h"

#include "sqlconnection.h"
#include "sqltransaction.h"

#include <QDir>
#include <QFile>
#include <QVector>

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
    QString table;
    QStringList names;
};

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

const QVector<AddedColumns> &addedColumns()
{
    static const QVector<AddedColumns> columns{
        {1, QStringLiteral("settings"), words("key value")},
        {1, QStringLiteral("objects"), words("data_name uid parent_uid type name granted")},
        {2, QStringLiteral("settings"), words("revision changed_at changed_by workstation program")},
        {2, QStringLiteral("history"),
         words("id save_id key revision old_value new_value changed_at changed_by workstation program reason")},
    };
    return columns;
}

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

/// Of a table; empty if there is no such table. Nothing if they could not be read.
std::optional<QStringList> columnsOf(SqlConnection &connection, const QString &table)
{
    QStringList columns;
    auto rows = connection.select(QLatin1String(dialect(connection).selectColumns), {table});
    while (rows && rows->next())
        columns.append(rows->value(0).toString());
    return connection.isComplete(rows) ? std::optional(columns) : std::nullopt;
}

/// Whether there is one of the tables. Nothing if they could not be asked for.
std::optional<bool> hasTables(SqlConnection &connection)
{
    for (const AddedColumns &columns : addedColumns()) {
        const auto found = columnsOf(connection, columns.table);
        if (!found || !found->isEmpty())
            return found ? std::optional(true) : std::nullopt;
    }
    return false;
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
std::optional<DatabaseError> tableProblem(SqlConnection &connection, int version)
{
    for (const AddedColumns &columns : addedColumns()) {
        const auto found = columnsOf(connection, columns.table);
        if (!found)
            return connection.error();
        QStringList missing = columns.names;
        for (const QString &name : *found)
            missing.removeAll(name);
        if (columns.version <= version && !missing.isEmpty())
            return DatabaseError{connection.location().name(),
                                 Schema::tr("Это база данных с другой схемой: в таблице «%1» нет столбцов: %2.")
                                     .arg(columns.table, missing.join(QStringLiteral(", "))),
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

/// Whether the server's database can hold every text, and has tables of ours.
std::optional<DatabaseError> serverProblem(SqlConnection &connection)
{
    const QString encoding = connection.selectOne(QStringLiteral("SHOW server_encoding")).toString();
    const auto isMade = hasTables(connection);
    if (encoding.isEmpty() || !isMade)
        return connection.error();
    if (encoding != QLatin1String("UTF8"))
        return DatabaseError{connection.location().name(),
                             Schema::tr("Кодировка базы данных — %1, а не UTF8.").arg(encoding),
                             Schema::tr("Создайте на сервере базу данных в кодировке UTF8.")};
    if (!*isMade)
        return DatabaseError{connection.location().name(), Schema::tr("В базе данных нет таблиц настроек."),
                             Schema::tr("Проверьте адрес или создайте таблицы: vxsettingsctl init."),
                             DatabaseError::Kind::Missing};
    return {};
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
    const auto isMade = transaction.isActive() && lock(connection) ? hasTables(connection) : std::nullopt;
    if (isMade.value_or(false))
        return DatabaseError{connection.location().name(), tr("В базе данных уже есть такие таблицы."),
                             tr("Она осталась как есть. Укажите другую в параметре --database."),
                             DatabaseError::Kind::Exists};
    const bool done = isMade && runScripts(connection, 0) && insertSettings(connection, installation.settings, stamp) &&
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
    if (auto problem = tableProblem(connection, 1))
        return problem;
    const auto stored = storedVersion(connection);
    if (!stored)
        return connection.error();
    if (*stored > version())
        return DatabaseError{
            connection.location().name(),
            tr("Версия схемы базы данных %1, программа знает версии до %2.").arg(*stored).arg(version()),
            tr("Обновите программу.")};
    return tableProblem(connection, *stored);
}
