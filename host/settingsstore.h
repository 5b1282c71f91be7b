#pragma once

#include <host/databaseerror.h>
#include <host/historyrecord.h>
#include <host/installation.h>
#include <host/saveresult.h>

#include <vxsettings/objectparameters.h>

#include <memory>
#include <optional>

class SqliteConnection;

/// An installation database in an SQLite file.
///
/// A database that cannot be used is left as it was, byte for byte. Calls wait for the disk, and up to two seconds for
/// another writer.
class SettingsStore
{
public:
    SettingsStore();
    ~SettingsStore();

    /// Writes a copy of the database at @p path, of all that was saved so far, to @p copy, where nothing must be. The
    /// original stays as it was, byte for byte.
    [[nodiscard]] static std::optional<DatabaseError> copy(const QString &path, const QString &copy);

    /// Opens the file at the absolute @p path to be written; creates it with sample content if there is nothing, and
    /// brings the tables of an older program up to date.
    [[nodiscard]] std::optional<DatabaseError> open(const QString &path);
    /// Empty unless a database is open.
    QString path() const;

    /// Reads everything into @p installation, as it was at one moment. On an error that stays as it was.
    [[nodiscard]] std::optional<DatabaseError> load(Installation &installation);

    /// Writes @p changes, all or none, unless one of these settings has been changed since it was @p loaded, be it to
    /// the same text. Every change is remembered in the history, with @p reason.
    SaveResult save(const vantorix::OBJECT_PARAMETERS &changes, const Installation &loaded, const QString &reason = {});
    /// The same for a caller that has texts without their revisions: @p changes are written unless one of these
    /// settings is no longer what @p loaded says. A setting that is not there counts as an empty text.
    SaveResult save(const vantorix::OBJECT_PARAMETERS &changes, const QHash<QString, QString> &loaded);

    /// Reads the changes of @p key, of all settings if it is empty, oldest first. On an error @p records stay.
    [[nodiscard]] std::optional<DatabaseError> history(const QString &key, QVector<HistoryRecord> &records);
    /// Reads what the setting held at @p revision, null if that is not remembered: a secret's earlier texts are not.
    [[nodiscard]] std::optional<DatabaseError> textAt(const QString &key, qint64 revision, QString &text);

private:
    bool readSettings(Installation &installation);
    bool readObjects(Installation &installation);
    DatabaseError lastError() const;

    std::unique_ptr<SqliteConnection> m_connection;
};
