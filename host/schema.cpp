#include "schema.h"

#include "sqliteconnection.h"
#include "sqlitetransaction.h"

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

/// The files that lead from one version to the next, the first one to version 1.
QFileInfoList scripts()
{
    makeResourcesAvailable();
    return QDir(QStringLiteral(":/vxsettings/schema")).entryInfoList(QDir::Files, QDir::Name);
}

/// A blank line ends a statement: a semicolon may be inside of a trigger.
QStringList statements(const QFileInfo &script)
{
    QFile file(script.filePath());
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll()).split(QStringLiteral("\n\n"));
}

bool runScript(SqliteConnection &connection, const QFileInfo &script)
{
    for (const QString &statement : statements(script)) {
        if (!connection.execute(statement))
            return false;
    }
    return true;
}

/// Leads from @p version to the newest one.
bool runScripts(SqliteConnection &connection, int version)
{
    for (const QFileInfo &script : scripts().mid(version)) {
        if (!runScript(connection, script))
            return false;
    }
    return connection.execute(QStringLiteral("PRAGMA user_version = %1").arg(qMax(version, Schema::version())));
}

/// Of a database with the tables, which are of version 1 if it tells none. Nothing if it could not be read.
std::optional<int> storedVersion(SqliteConnection &connection)
{
    const QVariant version = connection.selectOne(QStringLiteral("PRAGMA user_version"));
    return version.isValid() ? std::optional<int>(qMax(1, version.toInt())) : std::nullopt;
}

bool insertSettings(SqliteConnection &connection, const QHash<QString, QString> &settings, const ChangeStamp &stamp)
{
    const QString insert = QStringLiteral(
        "INSERT INTO settings(key, value, changed_at, changed_by, workstation, program) VALUES(?, ?, ?, ?, ?, ?)");
    QStringList keys = settings.keys();
    keys.sort();
    for (const QString &key : keys) {
        if (!connection.executePrepared(insert, QVariantList{key, settings[key]} + stamp.toColumns()))
            return false;
    }
    return true;
}

bool insertObjects(SqliteConnection &connection, const QString &dataName, const QVector<ObjectRecord> &objects)
{
    for (const ObjectRecord &object : objects) {
        if (!connection.executePrepared(
                QStringLiteral("INSERT INTO objects VALUES(?, ?, ?, ?, ?, ?)"),
                {dataName, object.uid, object.parentUid, object.type, object.name, object.granted}))
            return false;
    }
    return true;
}

bool insertAllObjects(SqliteConnection &connection, const QHash<QString, QVector<ObjectRecord>> &objects)
{
    QStringList dataNames = objects.keys();
    dataNames.sort();
    for (const QString &dataName : dataNames) {
        if (!insertObjects(connection, dataName, objects[dataName]))
            return false;
    }
    return true;
}

/// What a table lacks of some columns. Null if it lacks nothing, or the query failed.
QStringList missingColumns(SqliteConnection &connection, const AddedColumns &columns)
{
    QStringList missing = columns.names;
    auto rows = connection.select(QStringLiteral("SELECT name FROM pragma_table_info(?)"), {columns.table});
    while (rows && rows->next())
        missing.removeAll(rows->value(0).toString());
    return rows ? missing : QStringList();
}

/// Why the tables are not even those of @p version.
std::optional<DatabaseError> tableProblem(SqliteConnection &connection, int version)
{
    for (const AddedColumns &columns : addedColumns()) {
        const QStringList missing = missingColumns(connection, columns);
        if (columns.version <= version && !missing.isEmpty())
            return DatabaseError{connection.path(),
                                 Schema::tr("Это база данных с другой схемой: в таблице «%1» нет столбцов: %2.")
                                     .arg(columns.table, missing.join(QStringLiteral(", "))),
                                 Schema::tr("Укажите базу данных настроек в параметре --database.")};
    }
    return {};
}
} // namespace

int Schema::version()
{
    return scripts().count();
}

std::optional<DatabaseError> Schema::create(SqliteConnection &connection, const Installation &installation,
                                            const ChangeStamp &stamp)
{
    SqliteTransaction transaction(connection, SqliteTransaction::Kind::Write);
    const bool done = transaction.isActive() && runScripts(connection, 0) &&
                      insertSettings(connection, installation.settings, stamp) &&
                      insertAllObjects(connection, installation.objects) && transaction.commit();
    if (!done)
        return DatabaseError::fromDriver(connection.path(), connection.lastError());
    return {};
}

std::optional<DatabaseError> Schema::migrate(SqliteConnection &connection)
{
    // Asked again below: another program may be about to do the same. Most often there is nothing to wait for.
    const auto seen = storedVersion(connection);
    if (seen && *seen >= version())
        return {};

    SqliteTransaction transaction(connection, SqliteTransaction::Kind::Write);
    const auto stored = transaction.isActive() ? storedVersion(connection) : std::nullopt;
    if (!stored || !runScripts(connection, *stored) || !transaction.commit())
        return DatabaseError::fromDriver(connection.path(), connection.lastError());
    return {};
}

std::optional<DatabaseError> Schema::problem(SqliteConnection &connection)
{
    const QString path = connection.path();
    const QVariant health = connection.selectOne(QStringLiteral("PRAGMA quick_check(1)"));
    if (!health.isValid())
        return DatabaseError::fromDriver(path, connection.lastError());
    if (health.toString() != QLatin1String("ok"))
        return DatabaseError{path, tr("Файл базы данных повреждён: %1.").arg(health.toString()),
                             tr("Восстановите файл из резервной копии.")};

    if (auto problem = tableProblem(connection, 1))
        return problem;
    const auto stored = storedVersion(connection);
    if (!stored)
        return DatabaseError::fromDriver(path, connection.lastError());
    if (*stored > version())
        return DatabaseError{
            path, tr("Версия схемы базы данных %1, программа знает версии до %2.").arg(*stored).arg(version()),
            tr("Обновите программу.")};
    return tableProblem(connection, *stored);
}
