#include <host/settingsstore.h>

#include "messages.h"
#include "testdatabase.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <memory>
#include <vector>

/// Saves of several processes at once, and of processes that are killed.
class TestSaveFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void noUpdateIsLost();
    void aKilledSaveIsWholeOrNotThere();
};

namespace {

constexpr int processCount = 8;
constexpr int savesPerProcess = 40;
constexpr int kills = 40;
constexpr int counters = 20;

/// A database that is there, without a counter in it.
void makeSample(const TestDatabase &database)
{
    if (auto error = SettingsStore().open(DatabaseLocation::ofFile(database.path())))
        throw std::runtime_error(error->text().toStdString());
}

std::unique_ptr<QProcess> startedSaver(const TestDatabase &database, const QString &mode, int saves, quint32 seed)
{
    auto saver = std::make_unique<QProcess>();
    saver->start(QCoreApplication::applicationDirPath() + "/settingssaver",
                 {database.path(), mode, QString::number(saves), QString::number(seed)});
    return saver;
}

/// What a saver has printed in whole lines.
QList<QByteArray> lines(QProcess &saver)
{
    QList<QByteArray> lines = saver.readAllStandardOutput().split('\n');
    lines.removeLast();
    return lines;
}

/// What everybody reads there now.
Installation read(const TestDatabase &database)
{
    SettingsStore store;
    Installation installation;
    auto error = store.open(DatabaseLocation::ofFile(database.path()));
    if (!error)
        error = store.load(installation);
    if (error)
        throw std::runtime_error(error->text().toStdString());
    return installation;
}

} // namespace

void TestSaveFaults::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSaveFaults::noUpdateIsLost()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    const TestDatabase database;
    makeSample(database);
    std::vector<std::unique_ptr<QProcess>> savers;
    for (quint32 i = 0; i < processCount; ++i)
        savers.push_back(startedSaver(database, "some", savesPerProcess, seed + i));

    int saves = 0;
    int changes = 0;
    int refusals = 0;
    for (const auto &saver : savers) {
        QVERIFY(saver->waitForFinished(120000));
        QCOMPARE(saver->exitCode(), 0);
        for (const QByteArray &line : lines(*saver)) {
            QVERIFY2(line != "incomplete", "a refusal did not tell everything");
            const int count = line.toInt();
            QVERIFY(count != 0);
            saves += count > 0 ? 1 : 0;
            changes += qMax(0, count);
            refusals += count < 0 ? 1 : 0;
        }
    }
    qInfo("seed %u: %d saves of %d changes acknowledged, %d refused", seed, saves, changes, refusals);
    QCOMPARE(saves, processCount * savesPerProcess);

    const QString counter = " WHERE key LIKE 'COUNTER\\_%' ESCAPE '\\'";
    QCOMPARE(database.ask("SELECT sum(CAST(value AS INTEGER)) FROM settings" + counter).toInt(), changes);
    QCOMPARE(database.ask("SELECT sum(revision) FROM settings" + counter).toInt(), changes);
    QCOMPARE(database.ask("SELECT count(*) FROM history").toInt(), changes);
    QCOMPARE(database.ask("SELECT count(DISTINCT save_id) FROM history").toInt(), saves);
    QCOMPARE(database
                 .ask("SELECT count(*) FROM history WHERE new_value <> revision "
                      "OR new_value <> coalesce(old_value, 0) + 1")
                 .toInt(),
             0);
    QCOMPARE(database.ask("PRAGMA integrity_check").toString(), QString("ok"));
    QVERIFY2(refusals > 0, "nobody got into anybody's way");
}

void TestSaveFaults::aKilledSaveIsWholeOrNotThere()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    QRandomGenerator random(seed);
    const TestDatabase database;
    makeSample(database);
    qint64 acknowledged = 0;
    int unacknowledged = 0;
    for (int i = 0; i < kills; ++i) {
        const auto saver = startedSaver(database, "all", 1000000, seed);
        QVERIFY(saver->waitForReadyRead(30000));
        // Not to wait for anything, but to hit another moment of a save each time.
        QTest::qSleep(int(random.bounded(20)) + 1);
        saver->kill();
        QVERIFY(saver->waitForFinished(30000));
        acknowledged += lines(*saver).count();

        QCOMPARE(database.ask("PRAGMA integrity_check").toString(), QString("ok"));
        const Installation installation = read(database);
        const qint64 stored = installation.settings.value("COUNTER_1").toLongLong();
        // The last save may be stored although nobody was told.
        QVERIFY2(stored == acknowledged || stored == acknowledged + 1,
                 qPrintable(QString("seed %1: %2 acknowledged, %3 stored").arg(seed).arg(acknowledged).arg(stored)));
        unacknowledged += int(stored - acknowledged);
        acknowledged = stored;
        for (int key = 1; key <= counters; ++key) {
            QCOMPARE(installation.settings.value(QString("COUNTER_%1").arg(key)).toLongLong(), stored);
            QCOMPARE(installation.revisions.value(QString("COUNTER_%1").arg(key)), stored);
        }
        QCOMPARE(database.ask("SELECT count(*) FROM history").toLongLong(), stored * counters);
        QCOMPARE(database.ask("SELECT count(DISTINCT save_id) FROM history").toLongLong(), stored);
    }
    qInfo("seed %u: %d processes killed, %lld saves, %d of them stored but not acknowledged", seed, kills, acknowledged,
          unacknowledged);
    QVERIFY(acknowledged > kills);
}

QTEST_MAIN(TestSaveFaults)
#include "tst_savefaults.moc"
