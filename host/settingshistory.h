#pragma once

#include <host/historyrecord.h>

#include <QVariant>
#include <QVector>

#include <optional>

class QSqlQuery;
class SqlConnection;

/// The saves that an installation database remembers.
class SettingsHistory
{
public:
    /// @p connection must live longer.
    explicit SettingsHistory(SqlConnection &connection);

    /// The changes of @p key, of all settings if it is empty, oldest first. Nothing if they could not be read.
    std::optional<QVector<HistoryRecord>> records(const QString &key);
    /// The changes that one save has made; none if it was not stored. Nothing if they could not be read.
    std::optional<QVector<HistoryRecord>> recordsOfSave(const QString &saveId);
    /// What the setting held at @p revision, null if that is not remembered. Nothing if it could not be read.
    std::optional<QString> textAt(const QString &key, qint64 revision);

private:
    std::optional<QVector<HistoryRecord>> select(const QString &where, const QVariantList &values);
    static HistoryRecord record(const QSqlQuery &row);

    SqlConnection &m_connection;
};
