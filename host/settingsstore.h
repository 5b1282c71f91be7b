#pragma once

#include <host/databaseerror.h>
#include <host/databaselocation.h>
#include <host/databaseresult.h>
#include <host/historyrecord.h>
#include <host/installation.h>
#include <host/saveorder.h>
#include <host/saveresult.h>
#include <host/serverlink.h>

#include <vxsettings/objectparameters.h>

#include <functional>
#include <memory>
#include <optional>

class SqlConnection;
class SqlTransaction;

/// A connection to an installation database, in a file or on a server.
///
/// A database that cannot be used is left as it was; a file, byte for byte. Calls wait for the disk or the server, and
/// a quarter of a second for another writer, after which they fail with DatabaseError::Kind::Busy. All but the static
/// calls and open() need an open store, see isOpen().
class SettingsStore
{
public:
    /// What open() does where there is no database yet.
    enum class Missing { Refuse, CreateSample };

    SettingsStore();
    ~SettingsStore();

    /// Writes a copy of the database file at @p path, of all that was saved so far, to @p copy, where nothing must be.
    /// The original stays as it was, byte for byte.
    [[nodiscard]] static std::optional<DatabaseError> copy(const QString &path, const QString &copy);
    /// Makes a new database; an error of the kind Exists if there is one. The file is complete from its first moment.
    [[nodiscard]] static std::optional<DatabaseError> create(const DatabaseLocation &location,
                                                             const Installation &content);

    /// Opens a database to be written, and brings the tables of an older program up to date.
    [[nodiscard]] std::optional<DatabaseError> open(const DatabaseLocation &location,
                                                    Missing missing = Missing::CreateSample);
    bool isOpen() const;

    /// Reads everything into @p installation, as it was at one moment. On an error that stays as it was.
    [[nodiscard]] std::optional<DatabaseError> load(Installation &installation);

    /// Writes the changes, all or none, unless one of these settings has been changed since the base was read, be it to
    /// the same text. Every change is remembered in the history.
    ///
    /// What PageAccess keeps from operators is refused unless an administrator wants it; the flags that hold are those
    /// that are stored in the moment of the save.
    ///
    /// @p mayCommit is asked at the last moment; nothing is written if it says no, and the error is of the kind
    /// Cancelled.
    SaveResult save(
        const SaveOrder &order, const std::function<bool()> &mayCommit = [] { return true; });
    SaveResult save(const vantorix::OBJECT_PARAMETERS &changes, const Installation &base, const QString &reason = {});

    /// What the history has of a save, on this or any other connection; nothing if it was not stored, and never will
    /// be. An error of the kind Busy if it is still under way.
    DatabaseResult<QVector<HistoryRecord>> outcome(const QString &saveId);

    /// Reads the changes of @p key, of all settings if it is empty, oldest first. On an error @p records stay.
    [[nodiscard]] std::optional<DatabaseError> history(const QString &key, QVector<HistoryRecord> &records);
    /// Reads what the setting held at @p revision, null if that is not remembered: a secret's earlier texts are not.
    [[nodiscard]] std::optional<DatabaseError> textAt(const QString &key, qint64 revision, QString &text);

    /// Asks a file whether others have written since the last load(), and a server whether it is there.
    DatabaseResult<bool> hasNews();

    /// From now on the server tells of what others write; see takeNews(). Needs an open store.
    [[nodiscard]] std::optional<DatabaseError> listen();
    /// At what to wait for the server's news; -1 for a file.
    int socket() const;
    ServerLink::News takeNews();

private:
    bool isFile() const;
    /// Why the file at the path is not the one that was opened.
    std::optional<DatabaseError> placeProblem() const;
    /// Those of the changes that PageAccess forbids; nothing if the database failed.
    std::optional<QStringList> forbiddenKeys(const SaveOrder &order);
    SaveResult write(const SaveOrder &order, const std::function<bool()> &mayCommit);
    bool isRefusal(const DatabaseError &error) const;
    bool commitAnything(SqlTransaction &transaction);
    bool readSettings(Installation &installation);
    bool readObjects(Installation &installation);

    std::unique_ptr<SqlConnection> m_connection;
    QByteArray m_fileIdentity;
    qint64 m_dataVersion = 0; ///< of the file when it was loaded
};
