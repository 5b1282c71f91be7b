#include <host/settingsstore.h>

#include "messages.h"
#include "testinstallation.h"
#include "testrun.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <memory>
#include <vector>

using Engine = TestInstallation::Engine;

/// Saves of several processes at once, and of processes that are killed.
class TestSaveFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void noUpdateIsLost_data() { engines(); }
    void noUpdateIsLost();
    void aKilledSaveIsWholeOrNotThere_data() { engines(); }
    void aKilledSaveIsWholeOrNotThere();

private:
    static void engines();
};

namespace {

constexpr int processCount = 8;
constexpr int savesPerProcess = 40;
constexpr int kills = 20;
constexpr int counters = 20;

/// A database that is there, without a counter in it.
void makeSample(const TestInstallation &database)
{
    if (auto error = SettingsStore().open(database.location(), SettingsStore::Missing::CreateSample))
        throw std::runtime_error(error->text().toStdString());
}

std::unique_ptr<QProcess> startedSaver(const TestInstallation &database, const QString &mode, int saves, quint32 seed)
{
    auto saver = std::make_unique<QProcess>();
    saver->start(QCoreApplication::applicationDirPath() + "/settingssaver",
                 {database.location().name(), mode, QString::number(saves), QString::number(seed)});
    return saver;
}

/// What savers have said, in whole lines.
struct Told
{
    int saves = 0;
    int changes = 0;
    int refusals = 0;
    QByteArrayList others;

    void read(QProcess &saver)
    {
        while (saver.canReadLine())
            read(saver.readLine().trimmed());
    }

private:
    void read(const QByteArray &line)
    {
        const bool isSaved = line.startsWith("saved ");
        saves += isSaved ? 1 : 0;
        changes += isSaved ? line.mid(6).toInt() : 0;
        refusals += line.startsWith("refused ") ? 1 : 0;
        if (!isSaved && !line.startsWith("refused ") && !line.startsWith("saving ") && line != "busy")
            others.append(line);
    }
};

/// What everybody reads there now.
Installation read(const TestInstallation &database)
{
    SettingsStore store;
    Installation installation;
    auto error = store.open(database.location(), SettingsStore::Missing::Refuse);
    if (!error)
        error = store.load(installation);
    if (error)
        throw std::runtime_error(error->text().toStdString());
    return installation;
}

/// Whether the records of each counter lead from one value to the next, without a gap.
bool isHistoryComplete(const TestInstallation &database)
{
    const QString wrong = "SELECT count(*) FROM history WHERE CAST(new_value AS INTEGER) <> revision "
                          "OR revision <> 1 + CAST(coalesce(old_value, '0') AS INTEGER)";
    return database.ask(wrong) == 0;
}

bool isWhole(const TestInstallation &database)
{
    return !database.isFile() || database.ask("PRAGMA integrity_check") == "ok";
}
} // namespace

void TestSaveFaults::engines()
{
    QTest::addColumn<Engine>("engine");
    QTest::newRow("file") << Engine::File;
    QTest::newRow("server") << Engine::Server;
}

void TestSaveFaults::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSaveFaults::noUpdateIsLost()
{
    QFETCH(Engine, engine);
    const quint32 seed = testrun::seed();
    const TestInstallation database(engine);
    makeSample(database);
    const int saves = testrun::times(savesPerProcess);
    QElapsedTimer timer;
    timer.start();
    std::vector<std::unique_ptr<QProcess>> savers;
    for (quint32 i = 0; i < processCount; ++i)
        savers.push_back(startedSaver(database, "some", saves, seed + i));
    Told told;
    for (const auto &saver : savers) {
        QVERIFY(saver->waitForFinished(testrun::times(120000)));
        QCOMPARE(saver->exitStatus(), QProcess::NormalExit);
        QCOMPARE(saver->exitCode(), 0);
        told.read(*saver);
    }
    qInfo("seed %u: %d processes, %d saves of %d changes acknowledged, %d refused, %lld ms", seed, processCount,
          told.saves, told.changes, told.refusals, timer.elapsed());
    QVERIFY2(told.others.isEmpty(), "a save failed, or a refusal did not tell everything: " + told.others.join("; "));
    QCOMPARE(told.saves, processCount * saves);

    const QString counter = " WHERE key LIKE 'COUNTER%'";
    QCOMPARE(database.ask("SELECT sum(CAST(value AS INTEGER)) FROM settings" + counter).toInt(), told.changes);
    QCOMPARE(database.ask("SELECT sum(revision) FROM settings" + counter).toInt(), told.changes);
    QCOMPARE(database.ask("SELECT count(*) FROM history").toInt(), told.changes);
    QCOMPARE(database.ask("SELECT count(DISTINCT save_id) FROM history").toInt(), told.saves);
    QVERIFY(isHistoryComplete(database));
    QVERIFY(isWhole(database));
    QVERIFY2(told.refusals > 0, "nobody got into anybody's way");
}

void TestSaveFaults::aKilledSaveIsWholeOrNotThere()
{
    QFETCH(Engine, engine);
    const quint32 seed = testrun::seed();
    QRandomGenerator random(seed);
    const TestInstallation database(engine);
    makeSample(database);
    int acknowledged = 0;
    int unacknowledged = 0;
    for (int i = 0; i < testrun::times(kills); ++i) {
        const auto saver = startedSaver(database, "all", 1000000, seed);
        Told told;
        while (told.saves == 0 && saver->waitForReadyRead(30000))
            told.read(*saver);
        QVERIFY(told.saves > 0);
        // Not to wait for anything, but to hit another moment of a save each time.
        QTest::qSleep(int(random.bounded(40)) + 1);
        saver->kill();
        QVERIFY(saver->waitForFinished(30000));
        told.read(*saver);
        QVERIFY2(told.others.isEmpty(), told.others.join("; "));
        acknowledged += told.saves;
        // A server may still be carrying out what it was asked for.
        QTRY_VERIFY_WITH_TIMEOUT(database.isFile() || database.server().backends().isEmpty(), 30000);

        QVERIFY(isWhole(database));
        const Installation installation = read(database);
        const int stored = installation.settings.value("COUNTER_1").toInt();
        // The last save may be stored although nobody was told.
        QVERIFY2(stored == acknowledged || stored == acknowledged + 1,
                 qPrintable(QString("seed %1: %2 acknowledged, %3 stored").arg(seed).arg(acknowledged).arg(stored)));
        unacknowledged += stored - acknowledged;
        acknowledged = stored;
        for (int key = 1; key <= counters; ++key) {
            QCOMPARE(installation.settings.value(QString("COUNTER_%1").arg(key)).toInt(), stored);
            QCOMPARE(installation.revisions.value(QString("COUNTER_%1").arg(key)), stored);
        }
        QCOMPARE(database.ask("SELECT count(*) FROM history").toInt(), stored * counters);
        QCOMPARE(database.ask("SELECT count(DISTINCT save_id) FROM history").toInt(), stored);
        QVERIFY(isHistoryComplete(database));
    }
    qInfo("seed %u: %d processes killed, %d saves, %d of them stored but not acknowledged", seed, testrun::times(kills),
          acknowledged, unacknowledged);
}

QTEST_MAIN(TestSaveFaults)
#include "tst_savefaults.moc"
