#include "serverlink.h"

#include <qtcompat.h>

#include <QSqlDatabase>
#include <QSqlDriver>

#include <libpq-fe.h>

#include <cstring>
#include <memory>
#include <optional>
#include <vector>

namespace {

pg_conn *connectionOf(const QSqlDatabase &database)
{
    const QVariant handle = database.driver()->handle();
    const bool isPostgreSql = handle.isValid() && std::strcmp(handle.typeName(), qtcompat::postgreSqlHandle) == 0;
    return isPostgreSql ? *static_cast<pg_conn *const *>(handle.constData()) : nullptr;
}
/// As the server numbers them.
QByteArray withNumberedParameters(const QString &statement)
{
    const QStringList parts = statement.split(QLatin1Char('?'));
    QString numbered = parts.first();
    for (int i = 1; i < parts.size(); ++i)
        numbered += QLatin1Char('$') + QString::number(i) + parts[i];
    return numbered.toUtf8();
}

/// Nothing stands for NULL.
std::optional<QByteArray> parameter(const QVariant &value)
{
    const QString text = value.toString();
    return text.isNull() ? std::nullopt : std::optional(text.toUtf8());
}
} // namespace

ServerLink::ServerLink(const QSqlDatabase &database)
    : m_connection(connectionOf(database))
{}

bool ServerLink::isAlive() const
{
    return PQstatus(m_connection) == CONNECTION_OK;
}

int ServerLink::execute(const QString &statement, const QVariantList &values)
{
    std::vector<std::optional<QByteArray>> texts;
    std::vector<const char *> pointers;
    texts.reserve(size_t(values.size()));
    pointers.reserve(size_t(values.size()));
    for (const QVariant &value : values)
        texts.push_back(parameter(value));
    for (const auto &text : texts)
        pointers.push_back(text ? text->constData() : nullptr);

    const std::unique_ptr<PGresult, decltype(&PQclear)> result(
        PQexecParams(m_connection, withNumberedParameters(statement).constData(), int(pointers.size()), nullptr,
                     pointers.data(), nullptr, nullptr, 0),
        &PQclear);
    const ExecStatusType status = PQresultStatus(result.get());
    if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK)
        return QByteArray(PQcmdTuples(result.get())).toInt();
    const QString words = QString::fromUtf8(PQerrorMessage(m_connection));
    const QString state = QString::fromLatin1(PQresultErrorField(result.get(), PG_DIAG_SQLSTATE));
    m_error = QSqlError({}, words, QSqlError::StatementError, state);
    return -1;
}

QSqlError ServerLink::lastError() const
{
    return m_error;
}

int ServerLink::socket() const
{
    return PQsocket(m_connection);
}

ServerLink::News ServerLink::takeNews()
{
    const bool isRead = PQconsumeInput(m_connection) == 1;
    bool isByOthers = false;
    while (PGnotify *notification = PQnotifies(m_connection)) {
        isByOthers = isByOthers || notification->be_pid != PQbackendPID(m_connection);
        PQfreemem(notification);
    }
    if (!isRead || !isAlive())
        return News::ConnectionLost;
    return isByOthers ? News::SomethingChanged : News::Nothing;
}
