#pragma once

#include <host/databaselocation.h>
#include <host/databaseresult.h>
#include <host/historyrecord.h>
#include <host/installation.h>
#include <host/saveorder.h>
#include <host/saveresult.h>
#include <host/settingsstore.h>

#include <vxsettings/objectparameters.h>

#include <QObject>
#include <QTimer>
#include <QVector>

#include <any>
#include <chrono>
#include <deque>
#include <functional>
#include <optional>

class DatabaseWorker;

/// An installation database, used from a thread of its own, so that no call ever waits for a disk, a server or another
/// writer.
///
/// Calls are carried out one after another, in their order. What comes of one reaches its callback in the thread of
/// this object, from the event loop, never from within the call; there is no callback any more once this object is
/// gone.
///
/// vantorix::LocalStorage is kept equal to installation(): it is filled before a callback or a signal tells of the
/// change.
///
/// Every call has a deadline. A connection that overran it is thrown away, together with its thread, and the next call
/// gets new ones. A save whose outcome is not known is told to nobody before the database has been asked, on a new
/// connection, whether it holds it.
class InstallationDatabase : public QObject
{
    Q_OBJECT

public:
    template <typename Result>
    using Callback = std::function<void(const Result &)>;

    using Missing = SettingsStore::Missing;

    /// Why a call takes long. Told again and again while it lasts.
    enum class Wait {
        Busy,       ///< another writer has the database locked
        Resolving,  ///< a save may or may not have been stored, which is being found out
        Connecting, ///< the connection is lost, and being made again
    };

    struct Limits
    {
        std::chrono::milliseconds call{10000};     ///< without an answer, before the connection is thrown away
        std::chrono::milliseconds load{60000};     ///< the same for load(), which takes longer the more is stored
        std::chrono::milliseconds busy{8000};      ///< how long a locked database is tried again
        std::chrono::milliseconds firstRetry{200}; ///< before a lost connection is made again; doubled each time
        std::chrono::milliseconds lastRetry{10000};
        std::chrono::milliseconds filePulse{500};    ///< how often a file is asked whether it has changed
        std::chrono::milliseconds serverPulse{5000}; ///< how often a server that says nothing is asked if it is there
    };

    /// Opens nothing yet.
    explicit InstallationDatabase(const DatabaseLocation &location, Missing missing = Missing::Refuse,
                                  QObject *parent = nullptr);
    /// The same with limits other than the usual ones.
    InstallationDatabase(const DatabaseLocation &location, Missing missing, const Limits &limits,
                         QObject *parent = nullptr);
    /// Gives up what is under way. A save that is being committed may still be stored.
    ~InstallationDatabase() override;

    DatabaseLocation location() const;
    /// As it was read or saved last; empty before that.
    const Installation &installation() const;

    /// Makes a new database of @p content, or fails if there is one. Yields the number of settings.
    void create(const Installation &content, const Callback<DatabaseResult<int>> &done);
    /// Reads everything as it was at one moment. On an error installation() stays as it was.
    void load(const Callback<DatabaseResult<Installation>> &done);
    /// Writes @p changes, all or none, unless one of these settings has been changed since @p base was read, be it to
    /// the same text. Every change is remembered in the history, with @p reason unless it is empty.
    void save(const vantorix::OBJECT_PARAMETERS &changes, const Installation &base, const QString &reason,
              const Callback<SaveResult> &done);
    void save(const SaveOrder &order, const Callback<SaveResult> &done);
    /// Reads the changes of @p key, of all settings if it is empty, oldest first.
    void history(const QString &key, const Callback<DatabaseResult<QVector<HistoryRecord>>> &done);
    /// Reads what the setting held at @p revision, null if that is not remembered: a secret's earlier texts are not.
    void textAt(const QString &key, qint64 revision, const Callback<DatabaseResult<QString>> &done);

    /// Ends the waiting of the call under way: it fails with DatabaseError::Kind::Cancelled, or, if a save's outcome
    /// was being found out, with SaveResult::Outcome::Unknown. Does nothing if no call waits.
    void cancel();

    /// From now on notices what others save, and whether the connection is lost.
    void watch();
    bool isConnected() const;

Q_SIGNALS:
    void waiting(InstallationDatabase::Wait wait);
    /// Others have saved: @p keys are the settings with a new revision, sorted; empty if only objects are others.
    /// installation() says what is stored now.
    void changed(const QStringList &keys);
    /// From now on it is tried again and again to get the connection back.
    void connectionLost(const DatabaseError &error);
    /// Everything was read again. changed() follows if something is.
    void connectionRestored();

private:
    struct Call
    {
        std::function<std::any(DatabaseWorker &)> work;     ///< in the worker's thread
        std::function<void(const std::any &)> done;         ///< with what came of it
        std::function<void(const DatabaseError &)> overrun; ///< instead of that
        std::chrono::milliseconds limit;
        bool isRefresh = false;
    };
    struct UnknownSave
    {
        SaveOrder order;
        DatabaseError error; ///< that made the outcome unknown
        Callback<SaveResult> done;
        bool isGivenUp = false;
    };
    enum class Connection { None, Alive, Lost }; ///< lost only while others are watched

    template <typename Result>
    Call callFor(const std::function<Result(DatabaseWorker &)> &work, const Callback<Result> &done) const;
    template <typename Result>
    void ask(const std::function<Result(SettingsStore &)> &use, const Callback<Result> &done);
    void enqueue(const Call &call);
    void startNext();
    void startWorker();
    void finish();
    void overrun();

    void finishSave(const SaveOrder &order, const SaveResult &result, const Callback<SaveResult> &done);
    void resolve();
    void concludeUnknown(const SaveResult &result);
    void adoptSave(const SaveOrder &order, const SaveResult &result);

    void refresh();
    void takeIn(const Installation &now);
    void publish(const Installation &now);
    void pulse();
    void note(const std::optional<DatabaseError> &error);
    void lose(const DatabaseError &error);
    void reconnect();

    DatabaseLocation m_location;
    Missing m_missing;
    Limits m_limits;
    Installation m_installation;

    DatabaseWorker *m_worker = nullptr; ///< deletes itself once it is abandoned
    std::deque<Call> m_calls;
    std::optional<Call> m_running;
    QTimer m_deadline;

    std::optional<UnknownSave> m_unknown;
    QTimer m_resolveRetry;

    Connection m_connection = Connection::None;
    bool m_isWatching = false;
    bool m_isRefreshQueued = false;
    QTimer m_pulse;
    QTimer m_reconnectRetry;
    bool m_isReconnecting = false; ///< a call for it is waiting or under way
};
