#include <host/installationdatabase.h>
#include <host/sampleinstallation.h>
#include <host/sqltransaction.h>

#include "eventloopwatch.h"
#include "loggingrules.h"
#include "messages.h"
#include "testinstallation.h"

#include <localstorage/localstorage.h>

#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace std::chrono_literals;
using vantorix::LocalStorage;
using vantorix::OBJECT_PARAMETERS;
using Engine = TestInstallation::Engine;
using Kind = DatabaseError::Kind;
using Limits = InstallationDatabase::Limits;
using Loaded = DatabaseResult<Installation>;
using Missing = InstallationDatabase::Missing;
using Outcome = SaveResult::Outcome;
using Wait = InstallationDatabase::Wait;
Q_DECLARE_METATYPE(Wait)

/// Calls on real databases: files, and a PostgreSQL server.
class TestInstallationDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void loadFillsTheHostsCopy_data() { engines(); }
    void loadFillsTheHostsCopy();
    void loadEmptiesDataNamesThatAreGone_data() { engines(); }
    void loadEmptiesDataNamesThatAreGone();
    void nothingIsCreatedUnlessAskedFor_data() { engines(); }
    void nothingIsCreatedUnlessAskedFor();
    void createMakesADatabaseOnce_data() { engines(); }
    void createMakesADatabaseOnce();
    void aSaveIsStoredAndAdopted_data() { engines(); }
    void aSaveIsStoredAndAdopted();
    void aSaveOverSomebodyElsesIsRefused_data() { engines(); }
    void aSaveOverSomebodyElsesIsRefused();
    void historyTellsOfSaves_data() { engines(); }
    void historyTellsOfSaves();
    void callsAreAnsweredInOrderAndNeverFromWithin_data() { engines(); }
    void callsAreAnsweredInOrderAndNeverFromWithin();
    void anObjectThatGoesAnswersNothing_data() { engines(); }
    void anObjectThatGoesAnswersNothing();
    void aLockedDatabaseIsWaitedForVisibly_data() { engines(); }
    void aLockedDatabaseIsWaitedForVisibly();
    void waitingEnds_data() { engines(); }
    void waitingEnds();
    void waitingCanBeCancelled_data() { engines(); }
    void waitingCanBeCancelled();
    void foreignSavesArriveByThemselves_data() { engines(); }
    void foreignSavesArriveByThemselves();
    void foreignObjectsArriveByThemselves_data() { engines(); }
    void foreignObjectsArriveByThemselves();
    void ownSavesAreNoNews_data() { engines(); }
    void ownSavesAreNoNews();
    void aFileThatIsReplacedIsNotWrittenTo();
    void aFileThatComesBackIsReadAgain();
    void aFileThatIsGoneIsNotMadeAnew();
    void aHungServerIsLeftAfterTheDeadline();
    void aSaveOnAHungServerIsToldWhenItIsKnown_data();
    void aSaveOnAHungServerIsToldWhenItIsKnown();
    void findingOutCanBeGivenUp();
    void theLogTellsOfConnectionsIfAskedTo();
    void theLogTellsWhatBecameOfASave_data();
    void theLogTellsWhatBecameOfASave();
    void theLogIsSilentUnlessAsked();
    void aServerThatGoesIsNoticedAndFoundAgain();
    void aServerThatIsNotThereIsAnError();
    void aServerOfANewerSchemaIsLeftAlone();
    void aServersDatabaseOfSomebodyElseIsLeftAlone();
    void aServersOlderSchemaIsBroughtUpToDate();
    void aServersHistoryIsNotChanged_data();
    void aServersHistoryIsNotChanged();
    void aServersRevisionsNeverComeBack();
    void aNulCharacterIsRefusedByAServer();

private:
    static void engines();
};

namespace {

const QString key = QStringLiteral("PT_MOBILE_HOST");

const Limits shortLimits{2000ms, 4000ms, 400ms, 50ms, 200ms, 50ms, 300ms};

TestInstallation fetched()
{
    return TestInstallation(*static_cast<Engine *>(QTest::qData("engine", qMetaTypeId<Engine>())));
}

/// Runs the event loop until the call has answered.
template <typename Result, typename Call>
Result answerTo(const Call &call)
{
    std::optional<Result> answer;
    call([&answer](const Result &result) { answer = result; });
    if (!QTest::qWaitFor([&answer] { return answer.has_value(); }, 30000))
        throw std::runtime_error("there was no answer");
    return *answer;
}

Loaded load(InstallationDatabase &database)
{
    return answerTo<Loaded>([&](const auto &done) { database.load(done); });
}

/// What is stored, which must be readable.
Installation loaded(InstallationDatabase &database)
{
    const Loaded result = load(database);
    if (result.error)
        throw std::runtime_error(result.error->text().toStdString());
    return result.value;
}

SaveResult save(InstallationDatabase &database, const OBJECT_PARAMETERS &changes, const Installation &base,
                const QString &reason = {})
{
    return answerTo<SaveResult>([&](const auto &done) { database.save(changes, base, reason, done); });
}

DatabaseResult<int> create(InstallationDatabase &database, const Installation &content)
{
    return answerTo<DatabaseResult<int>>([&](const auto &done) { database.create(content, done); });
}

QVector<HistoryRecord> history(InstallationDatabase &database)
{
    using Result = DatabaseResult<QVector<HistoryRecord>>;
    return answerTo<Result>([&](const auto &done) { database.history({}, done); }).value;
}

/// Somebody who keeps others from writing one setting, or anything, while this object lives.
class Writer
{
public:
    explicit Writer(const TestInstallation &installation)
        : m_connection(installation.location(), SqlConnection::Mode::ReadWrite)
        , m_transaction(m_connection, SqlTransaction::Kind::Write)
    {
        if (!m_connection.execute(QStringLiteral("UPDATE settings SET value = 'locked' WHERE key = '%1'").arg(key)))
            throw std::runtime_error(m_connection.error().text().toStdString());
    }

private:
    SqlConnection m_connection;
    SqlTransaction m_transaction;
};

/// From now on a commit takes a while. A backend that is stopped in it holds everything that it needs to end it.
void holdCommitsFor(const TestInstallation &installation, int seconds)
{
    installation.execute(QStringLiteral("CREATE FUNCTION hang() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN "
                                        "PERFORM pg_sleep(%1); RETURN NULL; END $$")
                             .arg(seconds));
    installation.execute("CREATE CONSTRAINT TRIGGER hang AFTER INSERT ON history DEFERRABLE INITIALLY DEFERRED "
                         "FOR EACH ROW EXECUTE FUNCTION hang()");
}

/// What the host has logged.
QStringList hostLines(const CapturedMessages &log)
{
    QStringList lines;
    for (const CapturedMessage &message : log.all()) {
        if (message.category == QLatin1String("vxsettings.host"))
            lines << message.text;
    }
    return lines;
}

/// How many of @p lines begin with @p start.
int count(const QStringList &lines, const QString &start)
{
    return int(std::count_if(lines.begin(), lines.end(), [&](const QString &line) { return line.startsWith(start); }));
}

/// Takes the database's file away, and brings it back once that was noticed.
void loseForAWhile(InstallationDatabase &database, const QString &path)
{
    database.watch();
    QSignalSpy lost(&database, &InstallationDatabase::connectionLost);
    QSignalSpy restored(&database, &InstallationDatabase::connectionRestored);
    QVERIFY(QFile::rename(path, path + ".old"));
    QTRY_COMPARE(lost.count(), 1);
    QVERIFY(QFile::rename(path + ".old", path));
    QTRY_COMPARE(restored.count(), 1);
}
} // namespace

void TestInstallationDatabase::engines()
{
    QTest::addColumn<Engine>("engine");
    QTest::newRow("file") << Engine::File;
    QTest::newRow("server") << Engine::Server;
}

void TestInstallationDatabase::initTestCase()
{
    qRegisterMetaType<Wait>("InstallationDatabase::Wait");
    failOnUnexpectedMessages();
}

void TestInstallationDatabase::loadFillsTheHostsCopy()
{
    const TestInstallation installation = fetched();
    const Installation sample = SampleInstallation::make();
    InstallationDatabase database(installation.location(), Missing::CreateSample);
    LocalStorage::instance()->setDbSettings({{"left over", "x"}});
    const Loaded result = load(database);
    QVERIFY(!result.error);
    QCOMPARE(result.value.settings, sample.settings);
    QCOMPARE(database.installation().settings, sample.settings);
    QCOMPARE(LocalStorage::instance()->dbSettings(), sample.settings);
    for (const QString &dataName : sample.objects.keys()) {
        const auto objects = LocalStorage::instance()->objects(dataName);
        QCOMPARE(objects.count(), sample.objects[dataName].count());
        for (int i = 0; i < objects.count(); ++i) {
            QCOMPARE(objects[i].uid, sample.objects[dataName][i].uid);
            QCOMPARE(objects[i].parentUid, sample.objects[dataName][i].parentUid);
            QCOMPARE(objects[i].type, sample.objects[dataName][i].type);
            QCOMPARE(objects[i].name, sample.objects[dataName][i].name);
            QCOMPARE(objects[i].granted, sample.objects[dataName][i].granted);
        }
    }
    QCOMPARE(result.value.revisions.value(key), 1);
    QVERIFY(result.value.stamps.value(key).at.isValid());
    QVERIFY(database.isConnected());
}

void TestInstallationDatabase::loadEmptiesDataNamesThatAreGone()
{
    const TestInstallation installation = fetched();
    InstallationDatabase database(installation.location(), Missing::CreateSample);
    const QString dataName = loaded(database).objects.keys().constFirst();
    QVERIFY(!LocalStorage::instance()->objects(dataName).isEmpty());
    installation.execute("DELETE FROM objects WHERE data_name = ?", {dataName});
    loaded(database);
    QVERIFY(LocalStorage::instance()->objects(dataName).isEmpty());
}

void TestInstallationDatabase::nothingIsCreatedUnlessAskedFor()
{
    const TestInstallation installation = fetched();
    InstallationDatabase database(installation.location());
    const Loaded result = load(database);
    QVERIFY(result.error);
    QCOMPARE(result.error->kind, Kind::Missing);
    QCOMPARE(result.error->path, installation.location().name());
    QVERIFY(!result.error->advice.isEmpty());
    QVERIFY(!database.isConnected());
    if (installation.isFile())
        QCOMPARE(installation.file().files(), QStringList());
    else
        QCOMPARE(installation
                     .ask("SELECT count(*) FROM information_schema.tables "
                          "WHERE table_schema = 'public'")
                     .toInt(),
                 0);
}

void TestInstallationDatabase::createMakesADatabaseOnce()
{
    const TestInstallation installation = fetched();
    InstallationDatabase database(installation.location());
    const DatabaseResult<int> made = create(database, {{{key, "mine"}}, {}});
    QVERIFY2(!made.error, made.error ? qPrintable(made.error->text()) : "");
    QCOMPARE(made.value, 1);
    const DatabaseResult<int> again = create(database, {{{key, "another"}}, {}});
    QVERIFY(again.error);
    QCOMPARE(again.error->kind, Kind::Exists);
    QCOMPARE(loaded(database).settings, (QHash<QString, QString>{{key, "mine"}}));
}

void TestInstallationDatabase::aSaveIsStoredAndAdopted()
{
    const TestInstallation installation = fetched();
    InstallationDatabase database(installation.location(), Missing::CreateSample);
    const Installation base = loaded(database);
    QSignalSpy changed(&database, &InstallationDatabase::changed);
    const QString text = QString::fromUtf8("«новый» '; DROP TABLE settings; -- \\ ? \xF0\x9F\x94\x91");
    const SaveResult result = save(database, {{key, text}, {"PT_NEW", ""}}, base, "a reason");
    QCOMPARE(result.outcome, Outcome::Saved);
    QCOMPARE(result.revisions, (QHash<QString, qint64>{{key, 2}, {"PT_NEW", 1}}));
    QCOMPARE(installation.stored(key), text);
    QCOMPARE(database.installation().settings.value(key), text);
    QCOMPARE(database.installation().revisions.value(key), 2);
    QCOMPARE(database.installation().stamps.value(key).by, result.stamp.by);
    QCOMPARE(LocalStorage::instance()->dbSettings().value(key), text);
    QCOMPARE(save(database, {{key, "next"}}, database.installation()).outcome, Outcome::Saved);
    QCOMPARE(changed.count(), 0);
}

void TestInstallationDatabase::aSaveOverSomebodyElsesIsRefused()
{
    const TestInstallation installation = fetched();
    InstallationDatabase mine(installation.location(), Missing::CreateSample);
    const Installation base = loaded(mine);
    InstallationDatabase other(installation.location());
    QVERIFY(save(other, {{key, "theirs"}}, loaded(other)).isDone());

    const SaveResult result = save(mine, {{key, "mine"}, {"PT_MOBILE_PORT", "9000"}}, base);
    QCOMPARE(result.outcome, Outcome::Conflicting);
    QCOMPARE(result.conflicts.count(), 1);
    const SettingConflict &conflict = result.conflicts[0];
    QCOMPARE(conflict.key, key);
    QCOMPARE(conflict.loaded, base.settings[key]);
    QCOMPARE(conflict.stored, QString("theirs"));
    QCOMPARE(conflict.wanted, QString("mine"));
    QCOMPARE(conflict.revision, 2);
    QVERIFY(!conflict.stamp.by.isEmpty() && !conflict.stamp.workstation.isEmpty() && conflict.stamp.at.isValid());
    QCOMPARE(installation.stored("PT_MOBILE_PORT"), base.settings["PT_MOBILE_PORT"]);
    QTRY_COMPARE(mine.installation().settings.value(key), QString("theirs"));
}

void TestInstallationDatabase::historyTellsOfSaves()
{
    const TestInstallation installation = fetched();
    InstallationDatabase database(installation.location(), Missing::CreateSample);
    const QString before = loaded(database).settings[key];
    const SaveResult first = save(database, {{key, "one"}}, database.installation(), "why");
    QVERIFY(save(database, {{key, "two"}}, database.installation()).isDone());
    const auto records = history(database);
    QVERIFY(records.count() >= 2);
    QCOMPARE(records[0].saveId, first.saveId);
    QCOMPARE(records[0].oldValue, before);
    QCOMPARE(records[0].newValue, QString("one"));
    QCOMPARE(records[0].reason, QString("why"));
    QVERIFY(records[1].reason.isNull());

    using Result = DatabaseResult<QString>;
    const auto textAt = [&database](qint64 revision) {
        return answerTo<Result>([&](const auto &done) { database.textAt(key, revision, done); }).value;
    };
    QCOMPARE(textAt(1), before);
    QCOMPARE(textAt(2), QString("one"));
    QCOMPARE(textAt(3), QString("two"));
    QVERIFY(textAt(4).isNull());
}

void TestInstallationDatabase::callsAreAnsweredInOrderAndNeverFromWithin()
{
    const TestInstallation installation = fetched();
    InstallationDatabase database(installation.location(), Missing::CreateSample);
    QStringList answers;
    database.load([&](const Loaded &) {
        answers << "load";
        database.history({}, [&](const auto &) { answers << "from an answer"; });
    });
    database.history({}, [&](const auto &) { answers << "history"; });
    database.textAt(key, 1, [&](const auto &) { answers << "text"; });
    QCOMPARE(answers, QStringList());
    QTRY_COMPARE(answers, (QStringList{"load", "history", "text", "from an answer"}));
}

void TestInstallationDatabase::anObjectThatGoesAnswersNothing()
{
    const TestInstallation installation = fetched();
    int answers = 0;
    auto database = std::make_unique<InstallationDatabase>(installation.location(), Missing::CreateSample);
    database->load([&](const Loaded &) { ++answers; });
    QCoreApplication::processEvents();
    database.reset();
    QCoreApplication::processEvents();
    QCOMPARE(answers, 0);

    database = std::make_unique<InstallationDatabase>(installation.location(), Missing::CreateSample);
    database->history({}, [&](const auto &) { ++answers; });
    database->load([&](const Loaded &) {
        ++answers;
        database.reset();
    });
    database->load([&](const Loaded &) { ++answers; });
    QTRY_COMPARE(answers, 2);
    QVERIFY(!database);
}

void TestInstallationDatabase::aLockedDatabaseIsWaitedForVisibly()
{
    const TestInstallation installation = fetched();
    InstallationDatabase database(installation.location(), Missing::CreateSample);
    const Installation base = loaded(database);
    auto writer = std::make_unique<Writer>(installation);
    EventLoopWatch watch;
    QVector<Wait> waits;
    connect(&database, &InstallationDatabase::waiting, this, [&](Wait wait) {
        waits << wait;
        writer.reset();
    });
    const SaveResult result = save(database, {{key, "mine"}}, base);
    QCOMPARE(result.outcome, Outcome::Saved);
    QVERIFY(!waits.isEmpty());
    QCOMPARE(waits.first(), Wait::Busy);
    QVERIFY2(watch.longest() < 100, qPrintable(QString::number(watch.longest())));
}

void TestInstallationDatabase::waitingEnds()
{
    const TestInstallation installation = fetched();
    InstallationDatabase database(installation.location(), Missing::CreateSample, shortLimits);
    const Installation base = loaded(database);
    const Writer writer(installation);
    const SaveResult result = save(database, {{key, "mine"}}, base);
    QCOMPARE(result.outcome, Outcome::Failed);
    QCOMPARE(result.error->kind, Kind::Busy);
    QVERIFY2(result.error->reason.startsWith("База данных занята"), qPrintable(result.error->reason));
    QCOMPARE(database.installation().settings, base.settings);
}

void TestInstallationDatabase::waitingCanBeCancelled()
{
    const TestInstallation installation = fetched();
    Limits patient = shortLimits;
    patient.busy = 1h;
    InstallationDatabase database(installation.location(), Missing::CreateSample, patient);
    const Installation base = loaded(database);
    {
        const Writer writer(installation);
        connect(&database, &InstallationDatabase::waiting, &database, &InstallationDatabase::cancel);
        const SaveResult result = save(database, {{key, "mine"}}, base);
        QCOMPARE(result.outcome, Outcome::Failed);
        QCOMPARE(result.error->kind, Kind::Cancelled);
    }
    // Only the call that waited was cancelled.
    QCOMPARE(save(database, {{key, "mine"}}, base).outcome, Outcome::Saved);
}

void TestInstallationDatabase::foreignSavesArriveByThemselves()
{
    const TestInstallation installation = fetched();
    InstallationDatabase database(installation.location(), Missing::CreateSample, shortLimits);
    loaded(database);
    database.watch();
    QSignalSpy changed(&database, &InstallationDatabase::changed);
    InstallationDatabase other(installation.location());
    QVERIFY(save(other, {{key, "theirs"}, {"PT_NEW", "1"}}, loaded(other)).isDone());
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(changed[0][0].toStringList(), (QStringList{key, "PT_NEW"}));
    QCOMPARE(LocalStorage::instance()->dbSettings().value(key), QString("theirs"));
    QCOMPARE(database.installation().revisions.value(key), 2);

    // A program that knows nothing of revisions, and one that removes a setting.
    installation.store(key, "another program's");
    QTRY_COMPARE(changed.count(), 2);
    QCOMPARE(changed[1][0].toStringList(), QStringList{key});
    installation.execute("DELETE FROM settings WHERE key = 'PT_NEW'");
    QTRY_COMPARE(changed.count(), 3);
    QCOMPARE(changed[2][0].toStringList(), QStringList{"PT_NEW"});
    QVERIFY(!database.installation().settings.contains("PT_NEW"));
}

void TestInstallationDatabase::foreignObjectsArriveByThemselves()
{
    const TestInstallation installation = fetched();
    InstallationDatabase database(installation.location(), Missing::CreateSample, shortLimits);
    const QString dataName = loaded(database).objects.keys().constFirst();
    database.watch();
    QSignalSpy changed(&database, &InstallationDatabase::changed);
    QSignalSpy objectsChanged(LocalStorage::instance(), &LocalStorage::objectsChanged);
    installation.execute("UPDATE objects SET name = 'renamed' WHERE data_name = ?", {dataName});
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(changed[0][0].toStringList(), QStringList());
    QCOMPARE(objectsChanged.count(), 1);
    QCOMPARE(objectsChanged[0][0].toString(), dataName);
    QCOMPARE(LocalStorage::instance()->objects(dataName).first().name, QString("renamed"));
}

void TestInstallationDatabase::ownSavesAreNoNews()
{
    const TestInstallation installation = fetched();
    InstallationDatabase database(installation.location(), Missing::CreateSample, shortLimits);
    loaded(database);
    database.watch();
    QSignalSpy changed(&database, &InstallationDatabase::changed);
    QVERIFY(save(database, {{key, "mine"}}, database.installation()).isDone());
    // What is noticed afterwards shows that there was time to notice this.
    installation.store("PT_MOBILE_PORT", "1");
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(changed[0][0].toStringList(), QStringList{"PT_MOBILE_PORT"});
}

void TestInstallationDatabase::aFileThatIsReplacedIsNotWrittenTo()
{
    const TestInstallation installation(Engine::File);
    InstallationDatabase database(installation.location(), Missing::CreateSample, shortLimits);
    const Installation base = loaded(database);
    QVERIFY(QFile::rename(installation.file().path(), installation.file().path() + ".old"));
    const SaveResult result = save(database, {{key, "mine"}}, base);
    QCOMPARE(result.outcome, Outcome::Failed);
    QCOMPARE(result.error->kind, Kind::Disconnected);
    QVERIFY2(result.error->reason.contains("удалён или заменён"), qPrintable(result.error->reason));
}

void TestInstallationDatabase::aFileThatComesBackIsReadAgain()
{
    const TestInstallation installation(Engine::File);
    const QString path = installation.file().path();
    InstallationDatabase database(installation.location(), Missing::Refuse, shortLimits);
    QVERIFY(!create(database, SampleInstallation::make()).error);
    loaded(database);
    database.watch();
    QSignalSpy lost(&database, &InstallationDatabase::connectionLost);
    QSignalSpy restored(&database, &InstallationDatabase::connectionRestored);
    QSignalSpy changed(&database, &InstallationDatabase::changed);
    QVERIFY(QFile::rename(path, path + ".old"));
    QTRY_COMPARE(lost.count(), 1);
    QVERIFY(!database.isConnected());
    QVERIFY(QFile::copy(path + ".old", path));
    installation.store(key, "restored from elsewhere");
    QTRY_COMPARE(restored.count(), 1);
    QVERIFY(database.isConnected());
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(changed[0][0].toStringList(), QStringList{key});
}

void TestInstallationDatabase::aFileThatIsGoneIsNotMadeAnew()
{
    const TestInstallation installation(Engine::File);
    const QString path = installation.file().path();
    InstallationDatabase database(installation.location(), Missing::CreateSample, shortLimits);
    const Installation base = loaded(database);
    for (const char *suffix : {"", "-wal", "-shm"})
        QFile::remove(path + suffix);
    QCOMPARE(save(database, {{key, "mine"}}, base).error->kind, Kind::Disconnected);
    QCOMPARE(load(database).error->kind, Kind::Missing);
    QVERIFY(!QFile::exists(path));
}

void TestInstallationDatabase::aHungServerIsLeftAfterTheDeadline()
{
    const TestInstallation installation(Engine::Server);
    InstallationDatabase database(installation.location(), Missing::CreateSample, shortLimits);
    loaded(database);
    const auto hung = installation.server().backends();
    QVERIFY(!hung.isEmpty());
    installation.server().signalBackends(SIGSTOP);
    EventLoopWatch watch;
    using Result = DatabaseResult<QVector<HistoryRecord>>;
    const auto result = answerTo<Result>([&](const auto &done) { database.history({}, done); });
    QVERIFY(result.error);
    QCOMPARE(result.error->kind, Kind::Disconnected);
    QVERIFY(!database.isConnected());
    // The next call has a connection of its own.
    QVERIFY(!load(database).error);
    QVERIFY(database.isConnected());
    QVERIFY2(watch.longest() < 100, qPrintable(QString::number(watch.longest())));
    for (const qint64 pid : hung)
        ::kill(pid_t(pid), SIGCONT);
}

void TestInstallationDatabase::aSaveOnAHungServerIsToldWhenItIsKnown_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("the server goes on") << SIGCONT;
    QTest::newRow("the server's process is killed") << SIGKILL;
}

void TestInstallationDatabase::aSaveOnAHungServerIsToldWhenItIsKnown()
{
    QFETCH(int, signal);
    const TestInstallation installation(Engine::Server);
    InstallationDatabase database(installation.location(), Missing::CreateSample, shortLimits);
    const Installation base = loaded(database);
    holdCommitsFor(installation, 3);
    std::optional<SaveResult> answer;
    QSignalSpy waiting(&database, &InstallationDatabase::waiting);
    database.save({{key, "mine"}}, base, {}, [&](const SaveResult &result) { answer = result; });
    QVector<qint64> saving;
    QTRY_VERIFY(installation.ask("SELECT count(*) FROM pg_stat_activity WHERE wait_event = 'PgSleep'").toInt() == 1);
    saving = installation.server().backends();
    for (const qint64 pid : saving)
        ::kill(pid_t(pid), SIGSTOP);
    QTRY_VERIFY_WITH_TIMEOUT(waiting.count() > 2, 10000);
    QVERIFY2(!answer, "nobody can know yet");
    for (const qint64 pid : saving)
        ::kill(pid_t(pid), signal);
    QTRY_VERIFY_WITH_TIMEOUT(answer.has_value(), 20000);
    QCOMPARE(installation.stored(key), answer->isDone() ? QString("mine") : base.settings[key]);
    QVERIFY(answer->outcome == Outcome::Saved || answer->outcome == Outcome::Failed);
    QCOMPARE(database.installation().settings.value(key), installation.stored(key));
}

void TestInstallationDatabase::findingOutCanBeGivenUp()
{
    const TestInstallation installation(Engine::Server);
    InstallationDatabase database(installation.location(), Missing::CreateSample, shortLimits);
    const Installation base = loaded(database);
    const auto hung = installation.server().backends();
    installation.server().signalBackends(SIGSTOP);
    connect(&database, &InstallationDatabase::waiting, &database, [&](Wait wait) {
        if (wait == Wait::Resolving)
            TestServer::stopHard();
        database.cancel();
    });
    const SaveResult result = save(database, {{key, "mine"}}, base);
    TestServer::start();
    QCOMPARE(result.outcome, Outcome::Unknown);
    QVERIFY(!result.saveId.isEmpty());
    QVERIFY(result.error);
}

void TestInstallationDatabase::theLogTellsOfConnectionsIfAskedTo()
{
    const LoggingRules rules("vxsettings.host.debug=true\nvxsettings.host.info=true");
    const TestInstallation installation(Engine::File);
    InstallationDatabase database(installation.location(), Missing::CreateSample, shortLimits);
    loaded(database);
    const CapturedMessages log;
    loseForAWhile(database, installation.file().path());
    const QStringList lines = hostLines(log);
    QCOMPARE(count(lines, "Connection lost:"), 1);
    QVERIFY2(count(lines, "Connecting again:") >= 1, qPrintable(lines.join('\n')));
    QCOMPARE(count(lines, "Connection restored:"), 1);
    for (const QString &line : lines)
        QVERIFY2(line.contains(installation.file().path()), qPrintable(line));
}

void TestInstallationDatabase::theLogTellsWhatBecameOfASave_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("it goes on") << SIGCONT << "that it is stored";
    QTest::newRow("it is killed") << SIGKILL << "that it is not";
}

/// The backend is stopped in the middle of the commit.
void TestInstallationDatabase::theLogTellsWhatBecameOfASave()
{
    QFETCH(int, signal);
    QFETCH(QString, outcome);
    const LoggingRules rules("vxsettings.host.info=true");
    const TestInstallation installation(Engine::Server);
    InstallationDatabase database(installation.location(), Missing::CreateSample, shortLimits);
    const Installation base = loaded(database);
    holdCommitsFor(installation, 1);
    const CapturedMessages log;
    std::optional<SaveResult> answer;
    QSignalSpy waiting(&database, &InstallationDatabase::waiting);
    database.save({{key, "none of the log's business"}}, base, {}, [&](const SaveResult &result) { answer = result; });
    QTRY_VERIFY(installation.ask("SELECT count(*) FROM pg_stat_activity WHERE wait_event = 'PgSleep'").toInt() == 1);
    const auto saving = installation.server().backends();
    for (const qint64 pid : saving)
        ::kill(pid_t(pid), SIGSTOP);
    QTRY_VERIFY_WITH_TIMEOUT(waiting.count() > 2, 10000);
    for (const qint64 pid : saving)
        ::kill(pid_t(pid), signal);
    QTRY_VERIFY_WITH_TIMEOUT(answer.has_value(), 20000);

    const QStringList lines = hostLines(log);
    QVERIFY2(count(lines, "No answer in time, connection thrown away:") >= 1, qPrintable(lines.join('\n')));
    QCOMPARE(count(lines, "Nobody knows yet whether save"), 1);
    QCOMPARE(count(lines, "Found out about save"), 1);
    QVERIFY2(lines.last().endsWith(outcome), qPrintable(lines.last()));
    QVERIFY(!lines.join('\n').contains("none of the log's business"));
}

void TestInstallationDatabase::theLogIsSilentUnlessAsked()
{
    const TestInstallation installation(Engine::File);
    InstallationDatabase database(installation.location(), Missing::CreateSample, shortLimits);
    loaded(database);
    const CapturedMessages log;
    loseForAWhile(database, installation.file().path());
    QCOMPARE(hostLines(log), QStringList());
}

void TestInstallationDatabase::aServerThatGoesIsNoticedAndFoundAgain()
{
    const TestInstallation installation(Engine::Server);
    InstallationDatabase database(installation.location(), Missing::CreateSample, shortLimits);
    loaded(database);
    database.watch();
    QSignalSpy lost(&database, &InstallationDatabase::connectionLost);
    QSignalSpy restored(&database, &InstallationDatabase::connectionRestored);
    QSignalSpy changed(&database, &InstallationDatabase::changed);
    TestServer::stopHard();
    EventLoopWatch watch;
    QTRY_COMPARE(lost.count(), 1);
    QVERIFY(!database.isConnected());
    const SaveResult refused = save(database, {{key, "mine"}}, database.installation());
    QCOMPARE(refused.outcome, Outcome::Failed);
    QCOMPARE(refused.error->kind, Kind::Disconnected);
    QVERIFY2(refused.error->reason.startsWith("Нет связи с сервером"), qPrintable(refused.error->reason));
    QVERIFY2(watch.longest() < 100, qPrintable(QString::number(watch.longest())));

    TestServer::start();
    QTRY_COMPARE_WITH_TIMEOUT(restored.count(), 1, 20000);
    QCOMPARE(lost.count(), 1);
    QVERIFY(database.isConnected());
    installation.store(key, "theirs");
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(save(database, {{key, "mine"}}, database.installation()).outcome, Outcome::Saved);
}

void TestInstallationDatabase::aServerThatIsNotThereIsAnError()
{
    InstallationDatabase database(DatabaseLocation("postgresql://nobody@localhost:1/nothing"));
    const Loaded result = load(database);
    QVERIFY(result.error);
    QCOMPARE(result.error->kind, Kind::Disconnected);
    QCOMPARE(result.error->path, QString("postgresql://nobody@localhost:1/nothing"));
    QVERIFY2(result.error->reason.startsWith("Нет связи с сервером"), qPrintable(result.error->reason));
}

void TestInstallationDatabase::aServerOfANewerSchemaIsLeftAlone()
{
    const TestInstallation installation(Engine::Server);
    InstallationDatabase database(installation.location(), Missing::CreateSample);
    loaded(database);
    installation.execute("UPDATE schema_version SET version = 99");
    InstallationDatabase other(installation.location(), Missing::CreateSample);
    const Loaded result = load(other);
    QVERIFY(result.error);
    QVERIFY2(result.error->reason.startsWith("Версия схемы базы данных 99"), qPrintable(result.error->reason));
    QCOMPARE(installation.ask("SELECT version FROM schema_version").toInt(), 99);
}

void TestInstallationDatabase::aServersDatabaseOfSomebodyElseIsLeftAlone()
{
    const TestInstallation installation(Engine::Server);
    installation.execute("CREATE TABLE settings(id INTEGER)");
    InstallationDatabase database(installation.location(), Missing::CreateSample);
    const Loaded result = load(database);
    QVERIFY(result.error);
    QVERIFY2(result.error->reason.startsWith("Это база данных с другой схемой"), qPrintable(result.error->reason));
    QCOMPARE(create(database, {}).error->kind, Kind::Exists);
    QCOMPARE(installation.ask("SELECT count(*) FROM information_schema.tables WHERE table_schema = 'public'").toInt(),
             1);
}

void TestInstallationDatabase::aServersOlderSchemaIsBroughtUpToDate()
{
    const TestInstallation installation(Engine::Server);
    {
        InstallationDatabase made(installation.location());
        QVERIFY(!create(made, {{{key, "old"}}, {}}).error);
    }
    installation.execute("DROP TABLE history");
    for (const char *trigger : {"settings_come_back", "settings_always_get_a_revision"})
        installation.execute(QString("DROP TRIGGER %1 ON settings").arg(trigger));
    for (const char *function : {"vxsettings_keep_history", "vxsettings_come_back", "vxsettings_count_revision"})
        installation.execute(QString("DROP FUNCTION %1").arg(function));
    installation.execute("ALTER TABLE settings DROP revision, DROP changed_at, DROP changed_by, DROP workstation, "
                         "DROP program");
    installation.execute("UPDATE schema_version SET version = 1");

    InstallationDatabase database(installation.location());
    QCOMPARE(loaded(database).settings, (QHash<QString, QString>{{key, "old"}}));
    QCOMPARE(installation.ask("SELECT version FROM schema_version").toInt(), 2);
    QCOMPARE(save(database, {{key, "new"}}, database.installation()).revisions.value(key), 2);
}

void TestInstallationDatabase::aServersHistoryIsNotChanged_data()
{
    QTest::addColumn<QString>("statement");
    QTest::newRow("changed") << "UPDATE history SET new_value = 'forged'";
    QTest::newRow("deleted") << "DELETE FROM history";
    QTest::newRow("emptied") << "TRUNCATE history";
}

void TestInstallationDatabase::aServersHistoryIsNotChanged()
{
    QFETCH(QString, statement);
    const TestInstallation installation(Engine::Server);
    InstallationDatabase database(installation.location(), Missing::CreateSample);
    QVERIFY(save(database, {{key, "mine"}}, loaded(database)).isDone());
    QVERIFY_EXCEPTION_THROWN(installation.execute(statement), std::runtime_error);
    QCOMPARE(history(database).count(), 1);
    QCOMPARE(history(database)[0].newValue, QString("mine"));
}

void TestInstallationDatabase::aServersRevisionsNeverComeBack()
{
    const TestInstallation installation(Engine::Server);
    InstallationDatabase database(installation.location(), Missing::CreateSample);
    QCOMPARE(save(database, {{key, "mine"}}, loaded(database)).revisions.value(key), 2);
    installation.execute("DELETE FROM settings WHERE key = ?", {key});
    QCOMPARE(save(database, {{key, "again"}}, loaded(database)).revisions.value(key), 3);
    installation.execute("UPDATE settings SET value = 'unknowing' WHERE key = ?", {key});
    QCOMPARE(loaded(database).revisions.value(key), 4);
    QVERIFY(database.installation().stamps.value(key).by.isNull());
    QVERIFY(database.installation().stamps.value(key).at.isValid());
}

void TestInstallationDatabase::aNulCharacterIsRefusedByAServer()
{
    const TestInstallation installation(Engine::Server);
    InstallationDatabase database(installation.location(), Missing::CreateSample);
    const SaveResult result = save(database, {{key, QString("a") + QChar(0) + "b"}}, loaded(database));
    QCOMPARE(result.outcome, Outcome::Failed);
    QVERIFY2(result.error->reason.contains("нулевой символ"), qPrintable(result.error->reason));
    QCOMPARE(save(database, {{key, "ab"}}, database.installation()).outcome, Outcome::Saved);
}

QTEST_GUILESS_MAIN(TestInstallationDatabase)
#include "tst_installationdatabase.moc"
