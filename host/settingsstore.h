#pragma once

#include <host/databaseerror.h>
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

    /// Opens the file at the absolute @p path; creates it with sample content if there is nothing.
    [[nodiscard]] std::optional<DatabaseError> open(const QString &path);
    /// Empty unless a database is open.
    QString path() const;

    /// Reads everything into @p installation, as it was at one moment. On an error that stays as it was.
    [[nodiscard]] std::optional<DatabaseError> load(Installation &installation);

    /// Writes @p changes, all or none, unless one of these settings is no longer what @p loaded says.
    /// A setting that is not there counts as an empty text.
    SaveResult save(const vantorix::OBJECT_PARAMETERS &changes, const QHash<QString, QString> &loaded);

private:
    bool readSettings(Installation &installation);
    bool readObjects(Installation &installation);
    /// Nothing if a setting could not be read.
    std::optional<QVector<SettingConflict>> conflicts(const vantorix::OBJECT_PARAMETERS &changes,
                                                      const QHash<QString, QString> &loaded);
    bool write(const vantorix::OBJECT_PARAMETERS &changes);
    DatabaseError lastError() const;

    std::unique_ptr<SqliteConnection> m_connection;
};
