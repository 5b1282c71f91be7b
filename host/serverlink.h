#pragma once

#include <QSqlError>
#include <QVariant>

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
    /// Runs one statement that gives no rows; each "?" stands for the next of the values. How many rows it has changed
    /// by itself; -1 if it failed.
    ///
    /// The driver would make the values a part of the statement, which a server writes into its log when it fails.
    int execute(const QString &statement, const QVariantList &values);
    /// Of the last execute() that failed.
    QSqlError lastError() const;
    /// The descriptor to wait at; -1 without a connection.
    int socket() const;
    /// Takes in what has arrived; what this connection itself has caused does not count. Never waits.
    News takeNews();

private:
    pg_conn *m_connection;
    QSqlError m_error;
};
