#include "settingshistory.h"

#include "sqlconnection.h"

namespace {

const QString selectRecords = QStringLiteral("SELECT id, save_id, key, revision, old_value, new_value, reason, "
                                             "changed_at, changed_by, workstation, program FROM history");
const QString oldestFirst = QStringLiteral(" ORDER BY id");

/// What a setting started with has no record of its own; the first change tells it.
const QString selectText = QStringLiteral("SELECT value, 1 AS source FROM settings WHERE key = ? AND revision = ? "
                                          "UNION ALL "
                                          "SELECT new_value, 2 FROM history WHERE key = ? AND revision = ? "
                                          "UNION ALL "
                                          "SELECT old_value, 3 FROM history WHERE key = ? AND revision - 1 = ? "
                                          "ORDER BY source LIMIT 1");
} // namespace

SettingsHistory::SettingsHistory(SqlConnection &connection)
    : m_connection(connection)
{}

std::optional<QVector<HistoryRecord>> SettingsHistory::records(const QString &key)
{
    return key.isEmpty() ? select({}, {}) : select(QStringLiteral(" WHERE key = ?"), {key});
}

std::optional<QVector<HistoryRecord>> SettingsHistory::recordsOfSave(const QString &saveId)
{
    return select(QStringLiteral(" WHERE save_id = ?"), {saveId});
}

std::optional<QString> SettingsHistory::textAt(const QString &key, qint64 revision)
{
    auto rows = m_connection.select(selectText, {key, revision, key, revision, key, revision});
    const QString text = rows && rows->next() ? rows->value(0).toString() : QString();
    if (!m_connection.isComplete(rows))
        return {};
    return text;
}

std::optional<QVector<HistoryRecord>> SettingsHistory::select(const QString &where, const QVariantList &values)
{
    QVector<HistoryRecord> records;
    auto rows = m_connection.select(selectRecords + where + oldestFirst, values);
    while (rows && rows->next())
        records.append(record(*rows));
    return m_connection.isComplete(rows) ? std::optional(records) : std::nullopt;
}

HistoryRecord SettingsHistory::record(const QSqlQuery &row)
{
    const ChangeStamp stamp = ChangeStamp::fromColumns({row.value(7), row.value(8), row.value(9), row.value(10)});
    return {row.value(0).toLongLong(),
            row.value(1).toString(),
            row.value(2).toString(),
            row.value(3).toLongLong(),
            row.value(4).toString(),
            row.value(5).toString(),
            stamp,
            row.value(6).toString()};
}
