#include "schema.h"

#include "sqliteconnection.h"
#include "sqlitetransaction.h"

using vantorix::ObjectRecord;

namespace {

constexpr int version = 1;

const QString createSettings = QStringLiteral("CREATE TABLE settings(key TEXT PRIMARY KEY, value TEXT)");
const QString createObjects = QStringLiteral("CREATE TABLE objects("
                                             "data_name TEXT NOT NULL, "
                                             "uid INTEGER NOT NULL, "
                                             "parent_uid INTEGER NOT NULL DEFAULT 0, "
                                             "type TEXT NOT NULL, "
                                             "name TEXT NOT NULL, "
                                             "granted INTEGER NOT NULL DEFAULT 1, "
                                             "PRIMARY KEY(data_name, uid))");

const QHash<QString, QStringList> &requiredColumns()
{
    static const QHash<QString, QStringList> columns{
        {QStringLiteral("settings"), {QStringLiteral("key"), QStringLiteral("value")}},
        {QStringLiteral("objects"),
         {QStringLiteral("data_name"), QStringLiteral("uid"), QStringLiteral("parent_uid"), QStringLiteral("type"),
          QStringLiteral("name"), QStringLiteral("granted")}},
    };
    return columns;
}

bool insertSettings(SqliteConnection &connection, const QHash<QString, QString> &settings)
{
    QStringList keys = settings.keys();
    keys.sort();
    for (const QString &key : keys) {
        if (!connection.executePrepared(QStringLiteral("INSERT INTO settings VALUES(?, ?)"), {key, settings[key]}))
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

/// What a table lacks: itself, or some of its columns. Null if it lacks nothing, or the query failed.
QStringList missingColumns(SqliteConnection &connection, const QString &table)
{
    QStringList missing = requiredColumns()[table];
    auto columns = connection.select(QStringLiteral("SELECT name FROM pragma_table_info(?)"), {table});
    while (columns && columns->next())
        missing.removeAll(columns->value(0).toString());
    return columns ? missing : QStringList();
}
} // namespace

std::optional<DatabaseError> Schema::create(SqliteConnection &connection, const Installation &installation)
{
    SqliteTransaction transaction(connection, SqliteTransaction::Kind::Write);
    const bool done = transaction.isActive() && connection.execute(createSettings) &&
                      connection.execute(createObjects) &&
                      connection.execute(QStringLiteral("PRAGMA user_version = %1").arg(version)) &&
                      insertSettings(connection, installation.settings) &&
                      insertAllObjects(connection, installation.objects) && transaction.commit();
    if (!done)
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

    for (const QString &table : requiredColumns().keys()) {
        const QStringList missing = missingColumns(connection, table);
        if (!missing.isEmpty())
            return DatabaseError{path,
                                 tr("Это база данных с другой схемой: в таблице «%1» нет столбцов: %2.")
                                     .arg(table, missing.join(QStringLiteral(", "))),
                                 tr("Укажите базу данных настроек в параметре --database.")};
    }

    const int stored = connection.selectOne(QStringLiteral("PRAGMA user_version")).toInt();
    if (stored > version)
        return DatabaseError{path,
                             tr("Версия схемы базы данных %1, программа знает версии до %2.").arg(stored).arg(version),
                             tr("Обновите программу.")};
    return {};
}
