#pragma once

#include <host/historyrecord.h>

#include <QVector>

#include <optional>

class QSqlQuery;
class SqliteConnection;

/// The saves that an installation database remembers.
class SettingsHistory
{
public:
    /// @p connection must live longer.
    explicit SettingsHistory(SqliteConnection &connection);

    /// The changes of @p key, of all settings if it is empty, oldest first. Nothing if they could not be read.
    std::optional<QVector<HistoryRecord>> records(const QString &key);
    /// What the setting held at @p revision, null if that is not remembered. Nothing if it could not be read.
    std::optional<QString> textAt(const QString &key, qint64 revision);

private:
    static HistoryRecord record(const QSqlQuery &row);

    SqliteConnection &m_connection;
};
