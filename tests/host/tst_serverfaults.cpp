#include <host/installationdatabase.h>
#include <host/sampleinstallation.h>

#include "eventloopwatch.h"
#include "messages.h"
#include "testrun.h"
#include "testserver.h"

#include <QEventLoop>
#include <QRandomGenerator>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

#include <future>
#include <memory>
#include <thread>

using namespace std::chrono_literals;
using vantorix::OBJECT_PARAMETERS;
using Limits = InstallationDatabase::Limits;
using Missing = InstallationDatabase::Missing;
using Outcome = SaveResult::Outcome;
using Wait = InstallationDatabase::Wait;

/// Saves and watching on a PostgreSQL server that fails in the middle of it.
class TestServerFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void whatWasToldOfASaveIsTrue_data() { faults(); }
    void whatWasToldOfASaveIsTrue();
    void othersAreHeardAfterALoss_data() { faults(); }
    void othersAreHeardAfterALoss();

private:
    static void faults();
};

namespace {

enum class Fault { StoppedHard, BackendKilled, BackendTerminated, BackendHung, BackendHungAndKilled };

constexpr int blockedLimit = 100; // milliseconds
constexpr int counters = 20;
constexpr int rounds = 2;
constexpr int savesAfterwards = 3;

const Limits shortLimits{700ms, 2000ms, 400ms, 20ms, 200ms, 50ms, 300ms};
/// Longer than a call may take.
constexpr auto hang = 1200ms;

QtMessageHandler strictHandler = nullptr;

/// Lets pass what Qt's driver says, in words of its own, when the server goes while a connection is being made.
void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const bool isOfDriver = text.startsWith("This version of PostgreSQL is not supported") ||
                            text.startsWith("no connection to the server") ||
                            text.startsWith("FATAL:  terminating connection");
    if (!isOfDriver)
        strictHandler(type, context, text);
}

/// Runs the event loop, without any sleep that would count as being blocked. False after a long time.
template <typename Condition>
bool runUntil(const Condition &isMet)
{
    QEventLoop loop;
    QTimer check;
    QTimer end;
    end.setSingleShot(true);
    QObject::connect(&check, &QTimer::timeout, &loop, [&] {
        if (isMet())
            loop.quit();
    });
    QObject::connect(&end, &QTimer::timeout, &loop, &QEventLoop::quit);
    check.start(2);
    end.start(60000);
    if (!isMet())
        loop.exec();
    return isMet();
}

void signalAll(const QVector<qint64> &processes, int signal)
{
    for (const qint64 process : processes)
        ::kill(pid_t(process), signal);
}

/// Makes @p fault happen and end. Waits, so it has a thread of its own.
void strike(const TestServer &server, Fault fault)
{
    const QVector<qint64> backends = server.backends();
    switch (fault) {
    case Fault::StoppedHard:
        TestServer::stopHard();
        TestServer::start();
        break;
    case Fault::BackendKilled:
        signalAll(backends, SIGKILL);
        break;
    case Fault::BackendTerminated:
        signalAll(backends, SIGTERM);
        break;
    case Fault::BackendHung:
    case Fault::BackendHungAndKilled:
        signalAll(backends, SIGSTOP);
        std::this_thread::sleep_for(hang);
        signalAll(backends, fault == Fault::BackendHung ? SIGCONT : SIGKILL);
        break;
    }
}

/// Another program saves, as soon as the server lets it: one that notices the end of a backend throws out everybody.
void storeNow(const TestServer &server, const QString &key)
{
    for (bool isStored = false; !isStored;) {
        SqlConnection connection(server.location(), SqlConnection::Mode::ReadWrite);
        isStored = connection.execute("UPDATE settings SET value = value || '0' WHERE key = ?", {key});
        if (!isStored)
            std::this_thread::sleep_for(10ms);
    }
}

/// The same without waiting for it here.
std::future<void> storeSoon(const TestServer &server, const QString &key)
{
    return std::async(std::launch::async, [&server, key] { storeNow(server, key); });
}

bool isReady(const std::future<void> &future)
{
    return future.wait_for(0s) == std::future_status::ready;
}

/// A commit takes a while, so that a fault often hits one: twenty times a millisecond.
void makeCommitsSlow(const TestServer &server)
{
    server.execute("CREATE FUNCTION dawdle() RETURNS trigger LANGUAGE plpgsql AS "
                   "$$ BEGIN PERFORM pg_sleep(0.001); RETURN NULL; END $$");
    server.execute("CREATE CONSTRAINT TRIGGER slow_commit AFTER INSERT ON history DEFERRABLE INITIALLY DEFERRED "
                   "FOR EACH ROW EXECUTE FUNCTION dawdle()");
}

/// A database with the sample in it.
std::unique_ptr<TestServer> sampleServer()
{
    auto server = std::make_unique<TestServer>();
    if (auto error = SettingsStore::create(server->location(), SampleInstallation::make()))
        throw std::runtime_error(error->text().toStdString());
    return server;
}

/// Tells whether losses and returns of the connection take turns.
class ConnectionLog
{
public:
    explicit ConnectionLog(const InstallationDatabase &database)
    {
        QObject::connect(&database, &InstallationDatabase::connectionLost, [this] { note(true); });
        QObject::connect(&database, &InstallationDatabase::connectionRestored, [this] { note(false); });
    }
    bool isLost() const { return m_isLost; }
    bool isConsistent() const { return m_isConsistent; }
    int losses() const { return m_losses; }

private:
    void note(bool isLost)
    {
        m_isConsistent = m_isConsistent && isLost != m_isLost;
        m_isLost = isLost;
        m_losses += isLost ? 1 : 0;
    }

    bool m_isLost = false;
    bool m_isConsistent = true;
    int m_losses = 0;
};

/// Saves one time after the other, each time all counters, and remembers what it was told.
class Saver
{
public:
    explicit Saver(InstallationDatabase &database)
        : m_database(database)
    {
        QObject::connect(&database, &InstallationDatabase::waiting,
                         [this](Wait wait) { m_isResolving = m_isResolving || wait == Wait::Resolving; });
    }

    void start()
    {
        m_isStopping = false;
        save();
    }
    /// After the save that is under way.
    void stop() { m_isStopping = true; }
    bool isIdle() const { return m_isIdle; }

    QSet<QString> saved;   ///< reasons
    QSet<QString> failed;  ///< reasons
    QSet<QString> unknown; ///< reasons
    int conflicts = 0;
    int resolvedAsSaved = 0;
    int resolvedAsFailed = 0;

private:
    void save()
    {
        m_isIdle = false;
        m_isResolving = false;
        const Installation &base = m_database.installation();
        OBJECT_PARAMETERS changes;
        for (int i = 1; i <= counters; ++i) {
            const QString key = QStringLiteral("COUNTER_%1").arg(i);
            changes.insert(key, QString::number(base.settings.value(key).toInt() + 1));
        }
        const QString reason = QString::number(++m_number);
        m_database.save(changes, base, reason, [this, reason](const SaveResult &result) { conclude(reason, result); });
    }

    void conclude(const QString &reason, const SaveResult &result)
    {
        if (result.outcome == Outcome::Saved)
            saved.insert(reason);
        else if (result.outcome == Outcome::Unknown)
            unknown.insert(reason);
        else
            failed.insert(reason);
        conflicts += result.outcome == Outcome::Conflicting ? 1 : 0;
        if (m_isResolving)
            ++(result.isDone() ? resolvedAsSaved : resolvedAsFailed);
        m_isIdle = m_isStopping;
        if (!m_isStopping)
            QTimer::singleShot(0, &m_database, [this] { save(); });
    }

    InstallationDatabase &m_database;
    int m_number = 0;
    bool m_isStopping = false;
    bool m_isIdle = true;
    bool m_isResolving = false;
};

QSet<QString> storedReasons(const TestServer &server)
{
    const QStringList reasons = server.ask("SELECT coalesce(string_agg(DISTINCT reason, ','), '') FROM history")
                                    .toString()
                                    .split(',', Qt::SkipEmptyParts);
    return {reasons.begin(), reasons.end()};
}

/// How many counters are not what so many saves have made of them.
int wrongCounters(const TestServer &server, int saves)
{
    const auto right = QStringLiteral("SELECT count(*) FROM settings WHERE key LIKE 'COUNTER%' AND "
                                      "value = '%1' AND revision = %1")
                           .arg(saves);
    return (saves > 0 ? counters : 0) - server.ask(right).toInt();
}

bool isLoaded(InstallationDatabase &database)
{
    std::optional<bool> isLoaded;
    database.load([&isLoaded](const DatabaseResult<Installation> &result) { isLoaded = !result.error; });
    return runUntil([&isLoaded] { return isLoaded.has_value(); }) && *isLoaded;
}

QByteArray words(const QSet<QString> &reasons)
{
    return reasons.values().join(' ').toUtf8();
}
} // namespace
Q_DECLARE_METATYPE(Fault)

void TestServerFaults::faults()
{
    QTest::addColumn<Fault>("fault");
    QTest::newRow("server stopped hard") << Fault::StoppedHard;
    QTest::newRow("backend killed") << Fault::BackendKilled;
    QTest::newRow("backend terminated") << Fault::BackendTerminated;
    QTest::newRow("backend hung") << Fault::BackendHung;
    QTest::newRow("backend hung and killed") << Fault::BackendHungAndKilled;
}

void TestServerFaults::initTestCase()
{
    failOnUnexpectedMessages();
    strictHandler = qInstallMessageHandler(handleMessage);
}

void TestServerFaults::whatWasToldOfASaveIsTrue()
{
    QFETCH(Fault, fault);
    const quint32 seed = testrun::seed();
    QRandomGenerator random(seed);
    const auto server = sampleServer();
    makeCommitsSlow(*server);
    auto database = std::make_unique<InstallationDatabase>(server->location(), Missing::Refuse, shortLimits);
    const ConnectionLog connection(*database);
    Saver saver(*database);
    QVERIFY(isLoaded(*database));
    database->watch();

    EventLoopWatch watch;
    const int times = testrun::times(rounds);
    for (int round = 0; round < times; ++round) {
        saver.start();
        const auto before = std::chrono::microseconds(random.bounded(100000));
        auto striking = std::async(std::launch::async, [&server, fault, before] {
            std::this_thread::sleep_for(before);
            strike(*server, fault);
        });
        QVERIFY(runUntil([&] { return isReady(striking); }));
        striking.get();
        const int savedBefore = saver.saved.count();
        QVERIFY(runUntil([&] { return saver.saved.count() >= savedBefore + savesAfterwards; }));
        saver.stop();
        QVERIFY(runUntil([&] { return saver.isIdle() && !connection.isLost(); }));
    }
    const int blocked = watch.longest();
    database.reset();
    QVERIFY(runUntil([&] { return server->backends().isEmpty(); }));

    const QSet<QString> stored = storedReasons(*server);
    qInfo("seed %u: %d faults, %d losses noticed; %d saves stored, %d failed (%d conflicts); outcomes found out: %d "
          "stored, %d not; event loop blocked for at most %d ms (%d with what others took of the processor)",
          seed, times, connection.losses(), int(saver.saved.count()), int(saver.failed.count()), saver.conflicts,
          saver.resolvedAsSaved, saver.resolvedAsFailed, blocked, watch.longestWithOthers());
    QVERIFY2(saver.unknown.isEmpty(), "not found out: " + words(saver.unknown));
    QVERIFY2((saver.saved - stored).isEmpty(), "told to be saved, but lost: " + words(saver.saved - stored));
    QVERIFY2((stored - saver.saved).isEmpty(), "stored, but not told to be: " + words(stored - saver.saved));
    QCOMPARE(server->ask("SELECT count(*) FROM history").toInt(), stored.count() * counters);
    QCOMPARE(wrongCounters(*server, stored.count()), 0);
    QVERIFY2(connection.isConsistent(), "lost or restored twice in a row");
    QVERIFY(connection.losses() > 0);
    QVERIFY2(blocked <= blockedLimit, qPrintable(QString("blocked for %1 ms").arg(blocked)));
}

void TestServerFaults::othersAreHeardAfterALoss()
{
    QFETCH(Fault, fault);
    const auto server = sampleServer();
    Limits limits = shortLimits;
    // Time for somebody else to save before the connection is back.
    limits.firstRetry = 600ms;
    limits.lastRetry = 600ms;
    InstallationDatabase database(server->location(), Missing::Refuse, limits);
    const ConnectionLog connection(database);
    QStringList heard;
    connect(&database, &InstallationDatabase::changed, &database, [&heard](const QStringList &keys) { heard += keys; });
    QVERIFY(isLoaded(database));
    database.watch();

    EventLoopWatch watch;
    const int times = testrun::times(1);
    int savedMeanwhile = 0;
    for (int round = 0; round < times; ++round) {
        heard.clear();
        auto storing = storeSoon(*server, "PT_MOBILE_HOST");
        QVERIFY(runUntil([&] { return heard.contains("PT_MOBILE_HOST") && isReady(storing); }));
        storing.get();

        const int losses = connection.losses();
        auto striking = std::async(std::launch::async, [&] {
            strike(*server, fault);
            storeNow(*server, "PT_MOBILE_PORT");
        });
        QVERIFY(runUntil([&] { return connection.losses() > losses; }));
        QVERIFY(!heard.contains("PT_MOBILE_PORT"));
        QVERIFY(runUntil([&] { return !connection.isLost() || isReady(striking); }));
        savedMeanwhile += connection.isLost() ? 1 : 0;
        QVERIFY(runUntil([&] { return !connection.isLost() && isReady(striking); }));
        striking.get();
        QVERIFY(runUntil([&] { return heard.contains("PT_MOBILE_PORT"); }));

        storing = storeSoon(*server, "PT_USER_SESSION_TIMEOUT");
        QVERIFY(runUntil([&] { return heard.contains("PT_USER_SESSION_TIMEOUT") && isReady(storing); }));
        storing.get();
    }
    const int blocked = watch.longest();
    qInfo("%d faults, %d losses noticed, %d times somebody saved before the connection was back; event loop blocked "
          "for at most %d ms (%d with what others took of the processor)",
          times, connection.losses(), savedMeanwhile, blocked, watch.longestWithOthers());
    QVERIFY2(connection.isConsistent(), "lost or restored twice in a row");
    for (const char *key : {"PT_MOBILE_HOST", "PT_MOBILE_PORT", "PT_USER_SESSION_TIMEOUT"})
        QCOMPARE(database.installation().settings.value(key), server->stored(key));
    QVERIFY2(blocked <= blockedLimit, qPrintable(QString("blocked for %1 ms").arg(blocked)));
}

QTEST_MAIN(TestServerFaults)
#include "tst_serverfaults.moc"
