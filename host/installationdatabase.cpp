#include "installationdatabase.h"

#include "databaseworker.h"
#include "hostlog.h"

#include <localstorage/localstorage.h>

#include <QPointer>

#include <algorithm>
#include <utility>

using std::chrono::milliseconds;
using vantorix::LocalStorage;
using vantorix::OBJECT_PARAMETERS;
using vantorix::ObjectRecord;
using Engine = DatabaseLocation::Engine;
using Kind = DatabaseError::Kind;

namespace {

/// How long this object waits at its end for a thread that is breaking off.
constexpr milliseconds farewell{2000};

/// Starts @p timer, each time with twice the delay.
void startLater(QTimer &timer, const InstallationDatabase::Limits &limits)
{
    const auto delay = std::clamp(2 * timer.intervalAsDuration(), limits.firstRetry, limits.lastRetry);
    timer.start(delay);
}

/// Stops @p timer, and makes the next delay the first one.
void reset(QTimer &timer)
{
    timer.stop();
    timer.setInterval(0);
}

bool areSame(const ObjectRecord &left, const ObjectRecord &right)
{
    return left.uid == right.uid && left.parentUid == right.parentUid && left.type == right.type &&
           left.name == right.name && left.granted == right.granted;
}

bool areSame(const QVector<ObjectRecord> &left, const QVector<ObjectRecord> &right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const ObjectRecord &a, const ObjectRecord &b) { return areSame(a, b); });
}

/// Data names whose objects differ; one that is gone differs from one with objects.
QStringList changedDataNames(const Installation &before, const Installation &now)
{
    QStringList names = before.objects.keys() + now.objects.keys();
    names.removeDuplicates();
    const auto isUnchanged = [&before, &now](const QString &name) {
        return areSame(before.objects.value(name), now.objects.value(name));
    };
    names.erase(std::remove_if(names.begin(), names.end(), isUnchanged), names.end());
    return names;
}

/// Settings that have another revision, are new or gone; sorted.
QStringList changedKeys(const Installation &before, const Installation &now)
{
    QStringList keys;
    for (auto revision = now.revisions.begin(); revision != now.revisions.end(); ++revision) {
        if (before.revisions.value(revision.key()) != *revision)
            keys.append(revision.key());
    }
    for (auto revision = before.revisions.begin(); revision != before.revisions.end(); ++revision) {
        if (!now.revisions.contains(revision.key()))
            keys.append(revision.key());
    }
    keys.sort();
    return keys;
}

/// What a save has become, as the history tells it.
SaveResult resultOf(const QString &saveId, const QVector<HistoryRecord> &records)
{
    QHash<QString, qint64> revisions;
    for (const HistoryRecord &record : records)
        revisions.insert(record.key, record.revision);
    return SaveResult::saved(saveId, revisions, records.first().stamp);
}

DatabaseResult<Installation> loaded(SettingsStore &store)
{
    Installation installation;
    const auto error = store.load(installation);
    return error ? DatabaseResult<Installation>(*error) : DatabaseResult<Installation>(installation);
}
} // namespace

InstallationDatabase::InstallationDatabase(const DatabaseLocation &location, Missing missing, QObject *parent)
    : InstallationDatabase(location, missing, Limits(), parent)
{}

InstallationDatabase::InstallationDatabase(const DatabaseLocation &location, Missing missing, const Limits &limits,
                                           QObject *parent)
    : QObject(parent)
    , m_location(location)
    , m_missing(missing)
    , m_limits(limits)
{
    qRegisterMetaType<DatabaseError>("DatabaseError");
    for (QTimer *timer : {&m_deadline, &m_resolveRetry, &m_reconnectRetry})
        timer->setSingleShot(true);
    connect(&m_deadline, &QTimer::timeout, this, &InstallationDatabase::overrun);
    connect(&m_resolveRetry, &QTimer::timeout, this, &InstallationDatabase::resolve);
    connect(&m_reconnectRetry, &QTimer::timeout, this, &InstallationDatabase::reconnect);
    connect(&m_pulse, &QTimer::timeout, this, &InstallationDatabase::pulse);
}

InstallationDatabase::~InstallationDatabase()
{
    if (!m_worker)
        return;
    m_worker->abandon();
    m_worker->wait(QDeadlineTimer(farewell));
}

DatabaseLocation InstallationDatabase::location() const
{
    return m_location;
}

const Installation &InstallationDatabase::installation() const
{
    return m_installation;
}

void InstallationDatabase::create(const Installation &content, const Callback<DatabaseResult<int>> &done)
{
    const std::function<DatabaseResult<int>()> attempt = [location = m_location, content]() -> DatabaseResult<int> {
        if (auto error = SettingsStore::create(location, content))
            return *error;
        return content.settings.size();
    };
    enqueue(
        callFor<DatabaseResult<int>>([attempt](DatabaseWorker &worker) { return worker.patiently(attempt); }, done));
}

void InstallationDatabase::load(const Callback<DatabaseResult<Installation>> &done)
{
    ask<DatabaseResult<Installation>>(loaded, [this, done](const DatabaseResult<Installation> &result) {
        if (!result.error) {
            publish(result.value);
            m_installation = result.value;
        }
        done(result);
    });
    m_calls.back().limit = m_limits.load;
}

void InstallationDatabase::save(const OBJECT_PARAMETERS &changes, const Installation &base, const QString &reason,
                                const Callback<SaveResult> &done)
{
    save(SaveOrder{changes, base, reason}, done);
}

void InstallationDatabase::save(const SaveOrder &order, const Callback<SaveResult> &done)
{
    const auto work = [order](DatabaseWorker &worker) {
        return worker.access<SaveResult>([&order, &worker](SettingsStore &store) {
            return store.save(order, [&worker] { return worker.mayCommit(); });
        });
    };
    Call call =
        callFor<SaveResult>(work, [this, order, done](const SaveResult &result) { finishSave(order, result, done); });
    // Without an answer it may be stored, or may still be.
    call.overrun = [this, order, done](const DatabaseError &error) {
        finishSave(order, SaveResult::unknown(order.id, error), done);
    };
    enqueue(call);
}

void InstallationDatabase::history(const QString &key, const Callback<DatabaseResult<QVector<HistoryRecord>>> &done)
{
    using Result = DatabaseResult<QVector<HistoryRecord>>;
    ask<Result>(
        [key](SettingsStore &store) {
            QVector<HistoryRecord> records;
            const auto error = store.history(key, records);
            return error ? Result(*error) : Result(records);
        },
        done);
}

void InstallationDatabase::textAt(const QString &key, qint64 revision, const Callback<DatabaseResult<QString>> &done)
{
    using Result = DatabaseResult<QString>;
    ask<Result>(
        [key, revision](SettingsStore &store) {
            QString text;
            const auto error = store.textAt(key, revision, text);
            return error ? Result(*error) : Result(text);
        },
        done);
}

void InstallationDatabase::cancel()
{
    if (m_unknown) {
        m_unknown->isGivenUp = true;
        if (m_resolveRetry.isActive())
            m_resolveRetry.start(0);
    }
    if (m_running)
        m_worker->cancel();
}

void InstallationDatabase::watch()
{
    m_isWatching = true;
    m_pulse.start(m_location.engine() == Engine::Sqlite ? m_limits.filePulse : m_limits.serverPulse);
    if (m_worker)
        enqueue(callFor<DatabaseResult<bool>>([](DatabaseWorker &worker) { return worker.watch(); },
                                              [this](const DatabaseResult<bool> &result) { note(result.error); }));
}

bool InstallationDatabase::isConnected() const
{
    return m_connection == Connection::Alive;
}

template <typename Result>
InstallationDatabase::Call InstallationDatabase::callFor(const std::function<Result(DatabaseWorker &)> &work,
                                                         const Callback<Result> &done) const
{
    return {[work](DatabaseWorker &worker) { return std::any(work(worker)); },
            [done](const std::any &answer) { done(std::any_cast<const Result &>(answer)); },
            [done](const DatabaseError &error) { done(Result::failed(error)); }, m_limits.call};
}

template <typename Result>
void InstallationDatabase::ask(const std::function<Result(SettingsStore &)> &use, const Callback<Result> &done)
{
    enqueue(callFor<Result>([use](DatabaseWorker &worker) { return worker.access<Result>(use); },
                            [this, done](const Result &result) {
                                note(result.error);
                                done(result);
                            }));
}

void InstallationDatabase::enqueue(const Call &call)
{
    m_calls.push_back(call);
    // Not before the caller has returned, so that the order of calls is that of their answers.
    QMetaObject::invokeMethod(this, &InstallationDatabase::startNext, Qt::QueuedConnection);
}

void InstallationDatabase::startNext()
{
    if (m_running || m_resolveRetry.isActive() || m_calls.empty())
        return;
    m_running = m_calls.front();
    m_calls.pop_front();
    // What changes from now on is for the next one.
    if (m_running->isRefresh)
        m_isRefreshQueued = false;
    if (!m_worker)
        startWorker();
    m_deadline.start(m_running->limit);
    m_worker->call(m_running->work);
}

void InstallationDatabase::startWorker()
{
    m_worker = new DatabaseWorker({m_location, m_missing, m_limits.busy, m_isWatching});
    // What a worker has said before it was abandoned may still arrive.
    const auto unlessAbandoned = [this, worker = m_worker](auto slot) {
        return [this, worker, slot] {
            if (worker == m_worker)
                slot();
        };
    };
    connect(m_worker, &DatabaseWorker::answered, this, unlessAbandoned([this] { finish(); }));
    connect(m_worker, &DatabaseWorker::blocked, this, unlessAbandoned([this] {
                m_deadline.start();
                Q_EMIT waiting(Wait::Busy);
            }));
    connect(m_worker, &DatabaseWorker::hinted, this, unlessAbandoned([this] { refresh(); }));
    connect(m_worker, &DatabaseWorker::disconnected, this, unlessAbandoned([this] {
                if (const auto error = m_worker->takeLoss())
                    lose(*error);
            }));
}

void InstallationDatabase::finish()
{
    const auto answer = m_worker->takeAnswer();
    if (!answer)
        return;
    m_deadline.stop();
    const Call call = *std::exchange(m_running, std::nullopt);
    const QPointer<InstallationDatabase> guard(this);
    call.done(*answer);
    if (guard)
        startNext();
}

void InstallationDatabase::overrun()
{
    const DatabaseError error{m_location.name(), tr("База данных не ответила вовремя."),
                              tr("Проверьте диск, сеть и сервер и повторите попытку."), Kind::Disconnected};
    qCInfo(hostLog()) << "No answer in time, connection thrown away:" << m_location.name();
    m_worker->abandon();
    m_worker = nullptr;
    const Call call = *std::exchange(m_running, std::nullopt);
    const QPointer<InstallationDatabase> guard(this);
    call.overrun(error);
    if (guard)
        startNext();
}

void InstallationDatabase::finishSave(const SaveOrder &order, const SaveResult &result,
                                      const Callback<SaveResult> &done)
{
    note(result.error);
    if (result.outcome == SaveResult::Outcome::Unknown) {
        qCInfo(hostLog()) << "Nobody knows yet whether save" << order.id << "is stored:" << result.error->reason;
        m_unknown = UnknownSave{order, *result.error, done};
        resolve();
        return;
    }
    adoptSave(order, result);
    done(result);
}

/// Asks for the unknown save before anything else is done.
void InstallationDatabase::resolve()
{
    if (m_unknown->isGivenUp) {
        qCInfo(hostLog()) << "Given up to find out about save" << m_unknown->order.id;
        return concludeUnknown(SaveResult::unknown(m_unknown->order.id, m_unknown->error));
    }
    Q_EMIT waiting(Wait::Resolving);

    using Result = DatabaseResult<QVector<HistoryRecord>>;
    const QString id = m_unknown->order.id;
    m_calls.push_front(callFor<Result>(
        [id](DatabaseWorker &worker) {
            return worker.access<Result>([id](SettingsStore &store) { return store.outcome(id); });
        },
        [this, id](const Result &result) {
            if (result.error)
                return startLater(m_resolveRetry, m_limits);
            const bool isStored = !result.value.isEmpty();
            qCInfo(hostLog()) << "Found out about save" << id << (isStored ? "that it is stored" : "that it is not");
            concludeUnknown(isStored ? resultOf(id, result.value) : SaveResult::failed(m_unknown->error));
        }));
    startNext();
}

void InstallationDatabase::concludeUnknown(const SaveResult &result)
{
    reset(m_resolveRetry);
    const UnknownSave save = *m_unknown;
    m_unknown.reset();
    adoptSave(save.order, result);
    const QPointer<InstallationDatabase> guard(this);
    save.done(result);
    if (guard)
        startNext();
}

void InstallationDatabase::adoptSave(const SaveOrder &order, const SaveResult &result)
{
    if (!result.isDone()) {
        // What others have made of the database meanwhile, and what is left of the save, is only known by reading.
        refresh();
        return;
    }
    Installation now = m_installation;
    for (auto revision = result.revisions.begin(); revision != result.revisions.end(); ++revision) {
        const QString &key = revision.key();
        now.settings.insert(key, order.changes.value(key));
        now.revisions.insert(key, *revision);
        now.stamps.insert(key, result.stamp);
    }
    publish(now);
    m_installation = now;
}

/// Reads everything again, once for all that asked for it meanwhile.
void InstallationDatabase::refresh()
{
    if (m_isRefreshQueued)
        return;
    m_isRefreshQueued = true;
    using Result = DatabaseResult<Installation>;
    ask<Result>(loaded, [this](const Result &result) {
        if (!result.error)
            takeIn(result.value);
    });
    m_calls.back().limit = m_limits.load;
    m_calls.back().isRefresh = true;
}

void InstallationDatabase::takeIn(const Installation &now)
{
    const QStringList keys = changedKeys(m_installation, now);
    const bool isChanged = !keys.isEmpty() || !changedDataNames(m_installation, now).isEmpty();
    if (!isChanged)
        return;
    publish(now);
    m_installation = now;
    Q_EMIT changed(keys);
}

/// Tells the host's copy what is different in @p now.
void InstallationDatabase::publish(const Installation &now)
{
    LocalStorage *storage = LocalStorage::instance();
    if (storage->dbSettings() != now.settings)
        storage->setDbSettings(now.settings);
    for (const QString &dataName : changedDataNames(m_installation, now))
        storage->setObjects(dataName, now.objects.value(dataName));
}

void InstallationDatabase::pulse()
{
    if (!isConnected() || m_running || !m_calls.empty() || m_unknown)
        return;
    ask<DatabaseResult<bool>>([](SettingsStore &store) { return store.hasNews(); },
                              [this](const DatabaseResult<bool> &result) {
                                  if (!result.error && result.value)
                                      refresh();
                              });
}

void InstallationDatabase::note(const std::optional<DatabaseError> &error)
{
    if (!error)
        m_missing = Missing::Refuse; // also for the next worker
    if (error && error->kind == Kind::Disconnected)
        lose(*error);
    else if (!error && m_connection == Connection::None)
        m_connection = Connection::Alive;
    else if (!error && m_connection == Connection::Lost && !m_isReconnecting)
        m_reconnectRetry.start(0);
}

void InstallationDatabase::lose(const DatabaseError &error)
{
    if (m_connection == Connection::Lost)
        return;
    m_connection = m_isWatching ? Connection::Lost : Connection::None;
    if (!m_isWatching)
        return;
    qCInfo(hostLog()) << "Connection lost:" << m_location.name() << error.reason;
    reset(m_reconnectRetry);
    startLater(m_reconnectRetry, m_limits);
    Q_EMIT connectionLost(error);
}

/// What was told while there was no connection is gone, so everything is read again.
void InstallationDatabase::reconnect()
{
    qCDebug(hostLog()) << "Connecting again:" << m_location.name();
    m_isReconnecting = true;
    Q_EMIT waiting(Wait::Connecting);
    using Result = DatabaseResult<Installation>;
    enqueue(callFor<Result>([](DatabaseWorker &worker) { return worker.access<Result>(loaded); },
                            [this](const Result &result) {
                                m_isReconnecting = false;
                                if (result.error)
                                    return startLater(m_reconnectRetry, m_limits);
                                qCInfo(hostLog()) << "Connection restored:" << m_location.name();
                                reset(m_reconnectRetry);
                                m_connection = Connection::Alive;
                                Q_EMIT connectionRestored();
                                takeIn(result.value);
                            }));
    m_calls.back().limit = m_limits.load;
}
