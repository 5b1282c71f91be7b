#include "serverlink.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QVariant>

#include <libpq-fe.h>

#include <cstring>

namespace {

pg_conn *connectionOf(const QSqlDatabase &database)
{
    const QVariant handle = database.driver()->handle();
    const bool isPostgreSql = handle.isValid() && std::strcmp(handle.typeName(), "PGconn*") == 0;
    return isPostgreSql ? *static_cast<pg_conn *const *>(handle.constData()) : nullptr;
}
} // namespace

ServerLink::ServerLink(const QSqlDatabase &database)
    : m_connection(connectionOf(database))
{}

bool ServerLink::isAlive() const
{
    return PQstatus(m_connection) == CONNECTION_OK;
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
