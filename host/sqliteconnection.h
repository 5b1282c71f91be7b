#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <optional>

/// An open SQLite file, closed with this object.
class SqliteConnection
{
public:
    /// Neither of them creates a file that is not there.
    enum class Mode { ReadOnly, ReadWrite };

    SqliteConnection(const QString &path, Mode mode);
    ~SqliteConnection();
    SqliteConnection(const SqliteConnection &) = delete;
    SqliteConnection &operator=(const SqliteConnection &) = delete;

    QString path() const;
    /// Of the last operation of this object that failed.
    QSqlError lastError() const;

    /// Whether the file is open. SQLite itself looks into it with the first statement only.
    bool isOpen() const;
    bool execute(const QString &statement);
    bool executePrepared(const QString &statement, const QVariantList &values);
    /// The rows of a query, at their start; nothing if it failed.
    std::optional<QSqlQuery> select(const QString &statement, const QVariantList &values = {});
    /// The first column of the first row; invalid if there is none or the query failed.
    QVariant selectOne(const QString &statement, const QVariantList &values = {});
    /// How many rows the last executed statement has inserted, updated or deleted by itself, triggers not counted.
    int affectedRows() const;

private:
    /// Runs it, and remembers the error if it fails.
    bool run(QSqlQuery &query, const QString &statement, const QVariantList &values);

    QString m_path;
    QString m_name; ///< of the connection, unique in this process
    QSqlDatabase m_database;
    QSqlError m_error;
    int m_affectedRows = 0;
};
