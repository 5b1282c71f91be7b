#pragma once

#include <host/saveresult.h>

#include <optional>

class SqlConnection;

/// Writes the settings of one save and their history, in a transaction of its owner.
class SettingsWriter
{
public:
    /// @p connection must live longer and have a write transaction open.
    /// @p saveId is unique for all times; @p reason may be empty.
    SettingsWriter(SqlConnection &connection, const QString &saveId, const QString &reason);

    /// Stores @p text, unless @p loadedRevision, 0 for a setting that was not there, is no longer the setting's own.
    /// In that case conflicts() grows. A text that is stored already is left alone. False if the database failed.
    bool write(const QString &key, const QString &text, const QString &loadedText, qint64 loadedRevision);

    const QVector<SettingConflict> &conflicts() const;
    /// What write() has made of them: stored key → revision.
    const QHash<QString, qint64> &revisions() const;
    /// With which it has marked them.
    const ChangeStamp &stamp() const;

private:
    struct Stored
    {
        QString text;
        qint64 revision = 0; ///< 0 if there is no such setting
        ChangeStamp stamp;
    };
    std::optional<Stored> read(const QString &key);
    /// The number of settings that were written, 0 or 1; -1 if the database failed.
    int compareAndSet(const QString &key, const QString &text, qint64 loadedRevision);
    bool remember(const QString &key, const QString &text, const QString &textBefore);
    bool addConflict(const QString &key, const QString &text, const QString &loadedText);

    SqlConnection &m_connection;
    QString m_saveId;
    QString m_reason;
    ChangeStamp m_stamp;
    QVector<SettingConflict> m_conflicts;
    QHash<QString, qint64> m_revisions;
};
