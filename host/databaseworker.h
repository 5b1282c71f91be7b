#pragma once

#include <host/callcontrol.h>
#include <host/databaseerror.h>
#include <host/databaselocation.h>
#include <host/mailbox.h>
#include <host/settingsstore.h>

#include <QRandomGenerator>
#include <QThread>

#include <any>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

class QSocketNotifier;

/// A thread with a connection of its own to an installation database.
///
/// It is told what to do with the connection by call(), and waits for another writer in the middle of it. The functions
/// named there are called in this thread; everything else belongs to the thread of the owner.
class DatabaseWorker : public QThread
{
    Q_OBJECT

public:
    /// Yields what came of it. Copied and destroyed in both threads.
    using Work = std::function<std::any(DatabaseWorker &)>;

    struct Options
    {
        DatabaseLocation location;
        SettingsStore::Missing missing;
        std::chrono::milliseconds busyLimit; ///< how long a locked database is tried again
        bool isWatching;                     ///< whether the server is to tell of news
    };

    /// Starts the thread, and opens nothing yet.
    explicit DatabaseWorker(const Options &options);
    ~DatabaseWorker() override;

    /// Does @p work in this thread, then emits answered(). One call at a time.
    void call(const Work &work);
    /// What came of the call, once.
    std::optional<std::any> takeAnswer();
    /// What made disconnected() be emitted, once.
    std::optional<DatabaseError> takeLoss();
    /// Ends the waiting of the call under way.
    void cancel();
    /// Leaves the thread to itself: it breaks off what it does, and deletes this object. There are no signals any more.
    void abandon();

    /// In this thread: @p access on the open store, again and again while somebody else writes. What goes wrong is in
    /// the result, as is what keeps the store from being opened. A connection that failed is thrown away.
    template <typename Result>
    Result access(const std::function<Result(SettingsStore &)> &use);
    /// In this thread: the same for a store that is not open yet.
    template <typename Result>
    Result patiently(const std::function<Result()> &attempt);
    /// In this thread: whether a save may still be committed.
    bool mayCommit() const;
    /// In this thread: from now on the server is to tell of news.
    DatabaseResult<bool> watch();

Q_SIGNALS:
    /// A call waits.
    void called();
    void answered();
    /// Another writer has the database locked.
    void blocked();
    /// Others may have written.
    void hinted();
    void disconnected();

protected:
    void run() override;

private:
    void doCall();
    DatabaseError cancelled() const;
    std::optional<DatabaseError> open();
    void close();
    std::optional<DatabaseError> listen();
    void takeNews();

    Options m_options;
    CallControl m_control;
    Mailbox<Work> m_calls;
    Mailbox<std::any> m_answers;
    Mailbox<DatabaseError> m_losses;
    std::unique_ptr<QObject> m_context;     ///< lives in the thread
    std::unique_ptr<SettingsStore> m_store; ///< lives in the thread; null while there is no connection
    std::unique_ptr<QSocketNotifier> m_notifier;
    bool m_wasOpen = false;
};

template <typename Result>
Result DatabaseWorker::patiently(const std::function<Result()> &attempt)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + m_options.busyLimit;
    for (;;) {
        Result result = attempt();
        const bool isBusy = result.error && result.error->kind == DatabaseError::Kind::Busy;
        if (!isBusy || Clock::now() >= end)
            return result;
        Q_EMIT blocked();
        // Not in step with others who wait.
        if (!m_control.pause(std::chrono::milliseconds(QRandomGenerator::global()->bounded(5, 25))))
            return Result::failed(cancelled());
    }
}

template <typename Result>
Result DatabaseWorker::access(const std::function<Result(SettingsStore &)> &use)
{
    Result result = patiently<Result>([this, &use] {
        const auto error = open();
        return error ? Result::failed(*error) : use(*m_store);
    });
    using Kind = DatabaseError::Kind;
    if (result.error && result.error->kind != Kind::Busy && result.error->kind != Kind::Cancelled)
        close();
    else
        takeNews();
    return result;
}
