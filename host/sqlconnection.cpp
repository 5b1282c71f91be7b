#include "sqlconnection.h"

#include "serverlink.h"
#include "sqlerrorwords.h"

#include <qtcompat.h>

#include <QSqlDriver>
#include <QSqlField>
#include <QUrl>
#include <QUuid>

using Engine = DatabaseLocation::Engine;

namespace {

/// A statement waits this long for another writer. The caller knows how often it is worth trying again.
const QString fileOptions = QStringLiteral("QSQLITE_BUSY_TIMEOUT=250;QSQLITE_OPEN_URI");

/// A server that is not there is noticed in seconds, one that has gone in less than a minute.
const QString serverOptions = QStringLiteral("connect_timeout=5;client_encoding=UTF8;keepalives_idle=10;"
                                             "keepalives_interval=5;keepalives_count=3;tcp_user_timeout=20000");

/// A statement waits no longer for another writer than in a file. A program that was stopped in the middle of a save
/// holds the others up for half a minute at most. What the server's settings say of durability, a save that was
/// acknowledged survives a power cut.
const QString serverSettings = QStringLiteral(
    "SELECT set_config('lock_timeout', '250ms', false), "
    "set_config('idle_in_transaction_session_timeout', '30s', false), "
    "set_config('client_min_messages', 'error', false), "
    "set_config('synchronous_commit', replace(current_setting('synchronous_commit'), 'off', 'on'), false)");

const QString readOnly = QStringLiteral(", set_config('default_transaction_read_only', 'on', false)");

QString driverName(Engine engine)
{
    return engine == Engine::Sqlite ? QStringLiteral("QSQLITE") : QStringLiteral("QPSQL");
}

/// The driver's own options would create a missing file.
QString uri(const QString &path, SqlConnection::Mode mode)
{
    const auto query = mode == SqlConnection::Mode::ReadOnly ? QStringLiteral("mode=ro") : QStringLiteral("mode=rw");
    QUrl url = QUrl::fromLocalFile(path);
    url.setQuery(query);
    return QString::fromLatin1(url.toEncoded());
}

QString literal(const QSqlDriver &driver, const QVariant &value)
{
    QSqlField field({}, qtcompat::typeOf(value));
    field.setValue(value);
    return driver.formatValue(field);
}

bool holdsNul(const QVariantList &values)
{
    return std::any_of(values.begin(), values.end(),
                       [](const QVariant &value) { return value.toString().contains(QChar(QChar::Null)); });
}
} // namespace

SqlConnection::SqlConnection(const DatabaseLocation &location, Mode mode)
    : m_location(location)
    , m_name(QUuid::createUuid().toString())
{
    if (!QSqlDatabase::isDriverAvailable(driverName(engine()))) {
        m_error = {location.name(), tr("Нет драйвера базы данных %1.").arg(driverName(engine())),
                   tr("Установите пакет libqt5sql5-sqlite или libqt5sql5-psql.")};
        return;
    }
    m_database = QSqlDatabase::addDatabase(driverName(engine()), m_name);
    if (engine() == Engine::Sqlite)
        openFile(mode);
    else
        openServer(mode);
}

SqlConnection::~SqlConnection()
{
    // A connection can only be removed when no object refers to it any more.
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

const DatabaseLocation &SqlConnection::location() const
{
    return m_location;
}

Engine SqlConnection::engine() const
{
    return m_location.engine();
}

QSqlDatabase SqlConnection::database() const
{
    return m_database;
}

DatabaseError SqlConnection::error() const
{
    return m_error;
}

bool SqlConnection::isOpen() const
{
    return m_database.isOpen();
}

bool SqlConnection::execute(const QString &statement, const QVariantList &values)
{
    if (!isOpen())
        return false;
    m_affectedRows = engine() == Engine::Sqlite ? executeInFile(statement, values) : executeOnServer(statement, values);
    return m_affectedRows >= 0;
}

std::optional<QSqlQuery> SqlConnection::select(const QString &statement, const QVariantList &values)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    const bool isFile = engine() == Engine::Sqlite;
    if (!isOpen() || !(isFile ? run(query, statement, values) : runWithLiterals(query, statement, values)))
        return {};
    return query;
}

QVariant SqlConnection::selectOne(const QString &statement, const QVariantList &values)
{
    auto rows = select(statement, values);
    return rows && rows->next() ? rows->value(0) : QVariant();
}

bool SqlConnection::isComplete(const std::optional<QSqlQuery> &rows)
{
    if (rows && rows->lastError().isValid())
        remember(rows->lastError());
    return rows && !rows->lastError().isValid();
}

int SqlConnection::affectedRows() const
{
    return m_affectedRows;
}

void SqlConnection::openFile(Mode mode)
{
    m_database.setDatabaseName(uri(m_location.filePath(), mode));
    m_database.setConnectOptions(fileOptions);
    if (!m_database.open())
        remember(m_database.lastError());
}

void SqlConnection::openServer(Mode mode)
{
    m_database.setHostName(m_location.host());
    m_database.setPort(m_location.port() > 0 ? m_location.port() : -1);
    m_database.setUserName(m_location.user());
    m_database.setDatabaseName(m_location.database());
    m_database.setConnectOptions(serverOptions);
    if (!m_database.open())
        remember(m_database.lastError());
    else if (!select(mode == Mode::ReadOnly ? serverSettings + readOnly : serverSettings))
        m_database.close();
}

int SqlConnection::executeInFile(const QString &statement, const QVariantList &values)
{
    QSqlQuery query(m_database);
    return run(query, statement, values) ? qMax(0, query.numRowsAffected()) : -1;
}

int SqlConnection::executeOnServer(const QString &statement, const QVariantList &values)
{
    if (holdsNul(values)) {
        m_error = {m_location.name(), tr("В тексте есть нулевой символ, которого PostgreSQL не хранит."),
                   tr("Уберите его из текста.")};
        return -1;
    }
    ServerLink link(m_database);
    const int affectedRows = link.execute(statement, values);
    if (affectedRows < 0)
        remember(link.lastError());
    return affectedRows;
}

bool SqlConnection::run(QSqlQuery &query, const QString &statement, const QVariantList &values)
{
    bool done = query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    done = done && query.exec();
    if (!done)
        remember(query.lastError());
    return done;
}

/// With this driver a prepared statement costs two more round trips, and complains in the log if the connection or the
/// transaction does not outlive it.
bool SqlConnection::runWithLiterals(QSqlQuery &query, const QString &statement, const QVariantList &values)
{
    const QStringList parts = statement.split(QLatin1Char('?'));
    QString complete = parts.first();
    for (int i = 0; i < values.size(); ++i)
        complete += literal(*m_database.driver(), values[i]) + parts[i + 1];
    const bool done = query.exec(complete);
    if (!done)
        remember(query.lastError());
    return done;
}

void SqlConnection::remember(const QSqlError &error)
{
    const bool isLost = engine() == Engine::PostgreSql && !isOpen();
    m_error = SqlErrorWords::error(m_location, error, isLost);
}
