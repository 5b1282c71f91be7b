#include <host/settingsstore.h>

#include "messages.h"
#include "testdatabase.h"
#include "testrun.h"

#include <QHash>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

/// Saves of a program that dies, or whose disk fails, at one of its system calls.
class TestDiskFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void whatWasToldOfASaveIsTrue_data();
    void whatWasToldOfASaveIsTrue();
};

namespace {

/// Saves all counters four times with the seed 1.
const QStringList fourSaves{"all", "4", "1"};
/// An outcome that cannot be found out is given up soon.
const QStringList impatientSaves = fourSaves + QStringList{"300"};
/// With a short deadline for calls, after which a thread is made that has calls number N of its own.
const QStringList hastySave{"all", "1", "1", "3000", "200"};
constexpr int counters = 20;

/// Of these, SQLite and Qt make every change of a file and its folder.
const QStringList fileCalls{"pwrite64",  "pwritev", "writev", "fsync",  "fdatasync", "truncate", "ftruncate",
                            "renameat2", "rename",  "link",   "linkat", "unlink",    "unlinkat"};
/// The same, and what else a program writes. A failure of that would break the event loop and not a file.
const QStringList writingCalls = fileCalls + QStringList{"write"};
const QStringList syncCalls{"fsync", "fdatasync"};
const QStringList hangingCalls{"fcntl", "pwrite64", "fdatasync"};

struct Run
{
    bool isHurt = false; ///< whether it came as far as the fault
    bool isKilled = false;
    int exitCode = 0;
    QList<QByteArray> lines;
    QByteArray complaint;
    QByteArray log;
};

/// A saver below strace, which writes down its calls of the kinds @p calls and does to them what @p injection says.
Run runSaver(const TestDatabase &database, const QStringList &calls, const QStringList &saverArguments,
             const QString &injection = {})
{
    const TestDatabase logPlace;
    QStringList arguments{"-f", "-o", logPlace.path(), "-e", "trace=" + calls.join(',')};
    if (!injection.isEmpty())
        arguments << "-e"
                  << "inject=" + injection;
    arguments << QCoreApplication::applicationDirPath() + "/settingssaver" << database.path() << saverArguments;

    QProcess strace;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // There can only be one tracer, and the search for leaks is another.
    environment.insert("ASAN_OPTIONS", environment.value("ASAN_OPTIONS") + ":detect_leaks=0");
    strace.setProcessEnvironment(environment);
    strace.start("strace", arguments);
    if (!strace.waitForFinished(60000))
        throw std::runtime_error("the saving program hangs, or strace cannot be run");

    QList<QByteArray> lines = strace.readAllStandardOutput().split('\n');
    lines.removeLast();
    const QByteArray log = QFile::exists(logPlace.path()) ? logPlace.bytes() : QByteArray();
    const bool isKilled = strace.exitStatus() == QProcess::CrashExit;
    return {isKilled || log.contains("(INJECTED)") || log.contains("(DELAYED)"),
            isKilled,
            strace.exitCode(),
            lines,
            strace.readAllStandardError(),
            log};
}

/// One call of a program: the kind, and the number of it among those of its kind in its thread.
using Call = QPair<QString, int>;

/// Every call of the kinds @p kinds that a saver makes, and one past the last of each kind.
QVector<Call> callsOfSaver(const TestDatabase &database, const QStringList &kinds, const QStringList &saver)
{
    QMap<QString, QMap<QString, int>> counts; // kind, thread
    static const QRegularExpression call("^(\\d+) +(\\w+)\\(", QRegularExpression::MultilineOption);
    auto found = call.globalMatch(runSaver(database, kinds, saver).log);
    while (found.hasNext()) {
        const auto match = found.next();
        ++counts[match.captured(2)][match.captured(1)];
    }
    QVector<Call> calls;
    for (const QString &kind : kinds) {
        const auto threads = counts.value(kind);
        const int last = threads.isEmpty() ? 0 : *std::max_element(threads.begin(), threads.end());
        for (int number = 1; number <= last + 1; ++number)
            calls.append({kind, number});
    }
    return calls;
}

/// What a saver has said of its saves, each by its reason.
struct Told
{
    QStringList saved;
    QStringList failed;
    QStringList unknown; ///< it said so
    QStringList open;    ///< it died before it said anything

    Told() = default;
    explicit Told(const QList<QByteArray> &lines)
    {
        QString reason;
        for (const QByteArray &line : lines) {
            const QByteArray word = line.left(line.indexOf(' '));
            if (word == "saving")
                open.append(reason = line.mid(7));
            else if (QStringList *outcome = outcomeOf(word); outcome && open.removeAll(reason) == 1)
                outcome->append(reason);
        }
    }

    void add(const Told &other)
    {
        saved += other.saved;
        failed += other.failed;
        unknown += other.unknown;
        open += other.open;
    }

private:
    QStringList *outcomeOf(const QByteArray &word)
    {
        return word == "saved" ? &saved : word == "failed" ? &failed : word == "unknown" ? &unknown : nullptr;
    }
};

QStringList storedReasons(const TestDatabase &database)
{
    return database.ask("SELECT coalesce(group_concat(DISTINCT reason), '') FROM history")
        .toString()
        .split(',', Qt::SkipEmptyParts);
}

/// What is wrong with the database itself: damage, half a save, or a history that does not tell of every change.
QString damage(const TestDatabase &database)
{
    if (auto error = SettingsStore().open(DatabaseLocation::ofFile(database.path()), SettingsStore::Missing::Refuse))
        return error->text();
    const QString integrity = database.ask("PRAGMA integrity_check").toString();
    if (integrity != "ok")
        return "integrity_check: " + integrity;
    const QString facts = database
                              .ask("SELECT count(*) || ' of value ' || coalesce(min(value), 0) || '-' || "
                                   "coalesce(max(value), 0) || ', revision ' || coalesce(min(revision), 0) || '-' || "
                                   "coalesce(max(revision), 0) FROM settings WHERE key LIKE 'COUNTER%'")
                              .toString();
    const int saves = storedReasons(database).count();
    const QString expected = QString("%1 of value %2-%2, revision %2-%2").arg(saves > 0 ? counters : 0).arg(saves);
    if (facts != expected)
        return QString("%1 saves in the history, settings: %2").arg(saves).arg(facts);
    if (database.ask("SELECT count(*) FROM history").toInt() != saves * counters)
        return "the history has too few or too many records";
    if (database
            .ask("SELECT count(*) FROM history WHERE new_value <> revision OR new_value <> coalesce(old_value, 0) "
                 "+ 1 OR save_id IS NULL")
            .toInt() != 0)
        return "the history tells of other changes";
    return {};
}

/// What was told otherwise than it is; empty if all is true.
QString lie(const Told &told, const QStringList &stored)
{
    for (const QString &save : told.saved) {
        if (!stored.contains(save))
            return save + " was told to be saved, but is not stored";
    }
    for (const QString &save : stored) {
        if (told.failed.contains(save))
            return save + " was told to have failed, but is stored";
        if (!(told.saved + told.unknown + told.open).contains(save))
            return save + " is stored, but was never told of";
    }
    return {};
}

/// What another program finds, which is all there is to see unless somebody was told of a save.
QString problem(const TestDatabase &database, const Told &told)
{
    if (!QFile::exists(database.path()))
        return told.saved.isEmpty() ? QString() : "the file is gone";
    const QString found = damage(database);
    return found.isEmpty() ? lie(told, storedReasons(database)) : found;
}

/// What a machine would find that loses its power now: the files without what is only in memory.
void copyFiles(const TestDatabase &from, const TestDatabase &to)
{
    for (const QString &suffix : {QString(), QString("-wal"), QString("-journal")}) {
        if (QFile::exists(from.path() + suffix) && !QFile::copy(from.path() + suffix, to.path() + suffix))
            throw std::runtime_error("a file cannot be copied");
    }
}

/// Another program that has the database open, so that nobody else tidies up behind himself.
void openAndRead(SettingsStore &store, const TestDatabase &database)
{
    Installation installation;
    auto error = store.open(DatabaseLocation::ofFile(database.path()));
    if (!error)
        error = store.load(installation);
    if (error)
        throw std::runtime_error(error->text().toStdString());
}

/// Every call of these kinds that a saver makes, and one past the last of each.
QVector<Call> allCalls(const QStringList &kinds, const QStringList &saver, bool hasCompany)
{
    const TestDatabase database;
    SettingsStore company;
    if (hasCompany)
        openAndRead(company, database);
    return callsOfSaver(database, kinds, saver);
}

/// One of each quarter of a run, from before the first save is stored to after the last.
QVector<Call> sample(QVector<Call> calls, quint32 seed)
{
    QHash<QString, int> counts;
    for (const Call &call : calls)
        counts[call.first] = qMax(counts[call.first], call.second);
    std::sort(calls.begin(), calls.end(), [&counts](const Call &left, const Call &right) {
        return double(left.second) / counts[left.first] < double(right.second) / counts[right.first];
    });

    QRandomGenerator random(seed);
    QVector<Call> chosen;
    for (int quarter = 0; quarter < 4; ++quarter) {
        const int begin = calls.count() * quarter / 4;
        const int end = calls.count() * (quarter + 1) / 4;
        if (begin < end)
            chosen.append(calls[random.bounded(begin, end)]);
    }
    return chosen;
}
} // namespace

void TestDiskFaults::initTestCase()
{
    failOnUnexpectedMessages();
    const TestDatabase database;
    const Run run = runSaver(database, {"pwrite64"}, fourSaves, "pwrite64:signal=SIGKILL:when=2");
    QVERIFY2(run.isKilled, "strace must be installed and allowed to trace: " + run.complaint);
}

void TestDiskFaults::whatWasToldOfASaveIsTrue_data()
{
    QTest::addColumn<QStringList>("kinds");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QStringList>("saver");
    QTest::addColumn<bool>("hasCompany");
    for (const bool hasCompany : {false, true}) {
        const auto row = [hasCompany](const char *name, const QStringList &kinds, const char *fault,
                                      const QStringList &saver) {
            const char *company = hasCompany ? "beside another program" : "alone";
            QTest::addRow("%s, %s", name, company) << kinds << QString(fault) << saver << hasCompany;
        };
        row("killed", writingCalls, "signal=SIGKILL", fourSaves);
        row("disk full once", fileCalls, "error=ENOSPC", fourSaves);
        row("disk full from then on", fileCalls, "error=ENOSPC", impatientSaves);
        row("disk that does not sync", syncCalls, "error=EIO", fourSaves);
        row("disk broken once", fileCalls, "error=EIO", fourSaves);
        row("disk broken from then on", fileCalls, "error=EIO", impatientSaves);
    }
    QTest::addRow("disk that hangs") << hangingCalls << "delay_enter=800000" << hastySave << true;
}

void TestDiskFaults::whatWasToldOfASaveIsTrue()
{
    QFETCH(QStringList, kinds);
    QFETCH(QString, fault);
    QFETCH(QStringList, saver);
    QFETCH(bool, hasCompany);
    const quint32 seed = testrun::seed();
    const QVector<Call> all = allCalls(kinds, saver, hasCompany);
    const QVector<Call> calls = testrun::isLong() || kinds == syncCalls ? all : sample(all, seed);
    const bool lasts = saver == impatientSaves;
    const bool mayStayUnknown = saver != fourSaves;
    int hurt = 0;
    Told sum;
    for (const Call &call : calls) {
        const TestDatabase database;
        SettingsStore company;
        if (hasCompany)
            openAndRead(company, database);
        const QString injection =
            QString("%1:%2:when=%3%4").arg(call.first, fault).arg(call.second).arg(lasts ? "+" : "");
        const Run run = runSaver(database, {call.first}, saver, injection);
        const Told told(run.lines);
        const QByteArray where = QString("seed %1, %2: ").arg(seed).arg(injection).toUtf8();
        const QByteArray output = "\n" + run.lines.join('\n') + run.complaint;
        QVERIFY2(run.isKilled || run.exitCode == 0, where + "the program crashed" + output);

        const TestDatabase afterPowerCut;
        copyFiles(database, afterPowerCut);
        QString wrong = problem(afterPowerCut, told);
        QVERIFY2(wrong.isEmpty(), where + "after a power cut: " + wrong.toUtf8() + output);
        wrong = problem(database, told);
        QVERIFY2(wrong.isEmpty(), where + wrong.toUtf8() + output);
        QVERIFY2(mayStayUnknown || told.unknown.isEmpty(), where + "an outcome was not found out" + output);
        QVERIFY2(run.isKilled || told.open.isEmpty(), where + "nothing was told" + output);
        hurt += run.isHurt ? 1 : 0;
        sum.add(told);
    }
    qInfo("seed %u: %d of %d calls tried, %d programs hurt; of their saves %d were told to be stored, %d failed, %d "
          "unknown, %d were not told",
          seed, int(calls.count()), int(all.count()), hurt, int(sum.saved.count()), int(sum.failed.count()),
          int(sum.unknown.count()), int(sum.open.count()));
    QVERIFY(hurt > 0);
    QVERIFY(sum.saved.count() > 0);
}

QTEST_MAIN(TestDiskFaults)
#include "tst_diskfaults.moc"
