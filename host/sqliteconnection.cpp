#include "sqliteconnection.h"

#include <QUrl>
#include <QUuid>

namespace {

/// A statement waits two seconds for another writer. The user waits as well, so it is not longer.
const QString connectOptions = QStringLiteral("QSQLITE_BUSY_TIMEOUT=2000;QSQLITE_OPEN_URI");

/// The driver's own options would create a missing file.
QString uri(const QString &path, SqliteConnection::Mode mode)
{
    const auto query = mode == SqliteConnection::Mode::ReadOnly ? QStringLiteral("mode=ro") : QStringLiteral("mode=rw");
    QUrl url = QUrl::fromLocalFile(path);
    url.setQuery(query);
    return QString::fromLatin1(url.toEncoded());
}
} // namespace

SqliteConnection::SqliteConnection(const QString &path, Mode mode)
    : m_path(path)
    , m_name(QUuid::createUuid().toString())
    , m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name))
{
    m_database.setDatabaseName(uri(path, mode));
    m_database.setConnectOptions(connectOptions);
    if (!m_database.open())
        m_error = m_database.lastError();
}

SqliteConnection::~SqliteConnection()
{
    // A connection can only be removed when no object refers to it any more.
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

QString SqliteConnection::path() const
{
    return m_path;
}

QSqlError SqliteConnection::lastError() const
{
    return m_error;
}

bool SqliteConnection::isOpen() const
{
    return m_database.isOpen();
}

bool SqliteConnection::execute(const QString &statement)
{
    return executePrepared(statement, {});
}

bool SqliteConnection::executePrepared(const QString &statement, const QVariantList &values)
{
    QSqlQuery query(m_database);
    const bool done = run(query, statement, values);
    m_affectedRows = done ? query.numRowsAffected() : 0;
    return done;
}

std::optional<QSqlQuery> SqliteConnection::select(const QString &statement, const QVariantList &values)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!run(query, statement, values))
        return {};
    return query;
}

QVariant SqliteConnection::selectOne(const QString &statement, const QVariantList &values)
{
    auto rows = select(statement, values);
    return rows && rows->next() ? rows->value(0) : QVariant();
}

int SqliteConnection::affectedRows() const
{
    return m_affectedRows;
}

bool SqliteConnection::run(QSqlQuery &query, const QString &statement, const QVariantList &values)
{
    bool done = query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    done = done && query.exec();
    if (!done)
        m_error = query.lastError();
    return done;
}
