#pragma once

#include <QtGlobal>

class QSqlDatabase;
struct pg_conn;

/// What the connection to a PostgreSQL server knows and Qt's driver does not tell. Belongs to the connection's thread.
class ServerLink
{
public:
    /// What has arrived from the server without having been asked for.
    enum class News { Nothing, SomethingChanged, ConnectionLost };

    /// @p database is open, and a connection of the driver QPSQL.
    explicit ServerLink(const QSqlDatabase &database);

    /// Whether the last exchange found the server there.
    bool isAlive() const;
    /// The descriptor to wait at; -1 without a connection.
    int socket() const;
    /// Takes in what has arrived; what this connection itself has caused does not count. Never waits.
    News takeNews();

private:
    pg_conn *m_connection;
};
