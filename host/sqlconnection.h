#pragma once

#include <host/databaseerror.h>
#include <host/databaselocation.h>

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <optional>

/// An open database, closed with this object. Belongs to the thread that made it.
class SqlConnection
{
    Q_DECLARE_TR_FUNCTIONS(SqlConnection)

public:
    /// Neither of them creates a file that is not there.
    enum class Mode { ReadOnly, ReadWrite };

    SqlConnection(const DatabaseLocation &location, Mode mode);
    ~SqlConnection();
    SqlConnection(const SqlConnection &) = delete;
    SqlConnection &operator=(const SqlConnection &) = delete;

    const DatabaseLocation &location() const;
    DatabaseLocation::Engine engine() const;
    QSqlDatabase database() const;
    /// Why the last operation of this object that failed did so.
    DatabaseError error() const;

    /// Whether the database is open. SQLite itself looks into a file with the first statement only.
    bool isOpen() const;
    /// Runs one statement that gives no rows; each "?" stands for the next of the values.
    bool execute(const QString &statement, const QVariantList &values = {});
    /// The rows of a query, at their start; nothing if it failed. The values are no secrets: a server may log them.
    std::optional<QSqlQuery> select(const QString &statement, const QVariantList &values = {});
    /// The first column of the first row; invalid if there is none or the query failed.
    QVariant selectOne(const QString &statement, const QVariantList &values = {});
    /// Whether the rows were read to their end, and not only until the connection broke.
    bool isComplete(const std::optional<QSqlQuery> &rows);
    /// How many rows the last executed statement has inserted, updated or deleted by itself, triggers not counted.
    int affectedRows() const;

private:
    void openFile(Mode mode);
    void openServer(Mode mode);
    /// The number of changed rows; -1 if it failed.
    int executeInFile(const QString &statement, const QVariantList &values);
    int executeOnServer(const QString &statement, const QVariantList &values);
    bool run(QSqlQuery &query, const QString &statement, const QVariantList &values);
    bool runWithLiterals(QSqlQuery &query, const QString &statement, const QVariantList &values);
    void remember(const QSqlError &error);

    DatabaseLocation m_location;
    QString m_name; ///< of the connection, unique in this process
    QSqlDatabase m_database;
    DatabaseError m_error;
    int m_affectedRows = 0;
};
