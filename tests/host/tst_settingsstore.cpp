#include <host/sampleinstallation.h>
#include <host/settingsstore.h>

#include "messages.h"
#include "simultaneousopening.h"
#include "testdatabase.h"

#include <QTest>

#include <sys/stat.h>

class TestSettingsStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aMissingFileIsCreatedWithTheSample();
    void aFileThatCannotBeMadeIsAnError();
    void anExistingFileIsReadAsItIs();
    void aLoadReadsEverything();
    void aFailedLoadChangesNothing();
    void aSaveIsDurable();
    void aSaveWritesWhatItIsGiven();
    void aSaveTakesAnyText_data();
    void aSaveTakesAnyText();
    void aConflictWritesNothing_data();
    void aConflictWritesNothing();
    void anEqualTextOfALaterRevisionIsAConflict();
    void aSettingThatHasAppearedIsAConflict();
    void aConflictTellsWhoseItIs();
    void aSaveContinuesFromItsOwnRevisions();
    void aChangedSettingThatIsNotSavedIsNoConflict();
    void aLockedDatabaseIsAnError();
    void aSaveThatFailsHalfwayWritesNothing();
    void badDatabasesStayAsTheyAre_data();
    void badDatabasesStayAsTheyAre();
    void aForeignLogIsNotCarriedOver();
    void ownLogOfAKilledProgramIsRead();
    void halfAChangeOfAKilledProgramIsTakenBack();
    void aCopyHoldsWhatTheOriginalHolds();
    void aBadDatabaseIsNotCopied();
    void aCopyReplacesNothing();
    void aPathThatIsTooLongIsAnError();
    void severalProgramsCreateTheSampleAtOnce();
    void aDatabaseThatSomebodyReadsIsNotPrepared();
    void aSaveThatIsGivenUpWritesNothing();
    void aTableThatGoesIsAnErrorOfASave_data();
    void aTableThatGoesIsAnErrorOfASave();
    void theOutcomeOfASaveCanBeAskedFor();
    void aHistoryThatGoesTellsNoOutcome();
    void aFileHasNoNewsOfItsOwn();
};

namespace {

SettingsStore &opened(SettingsStore &store, const TestDatabase &database)
{
    if (auto error = store.open(DatabaseLocation::ofFile(database.path())))
        throw std::runtime_error(error->text().toStdString());
    return store;
}

Installation loaded(SettingsStore &store)
{
    Installation installation;
    if (auto error = store.load(installation))
        throw std::runtime_error(error->text().toStdString());
    return installation;
}

/// A sample database that nobody has open.
void makeSample(const TestDatabase &database)
{
    SettingsStore store;
    opened(store, database);
}

/// A file with a table "settings" of another program.
void makeForeign(const TestDatabase &database)
{
    database.setBytes({});
    database.execute("CREATE TABLE settings(name TEXT, data BLOB)");
}
} // namespace

namespace vantorix {
bool operator==(const ObjectRecord &a, const ObjectRecord &b)
{
    return a.uid == b.uid && a.parentUid == b.parentUid && a.type == b.type && a.name == b.name &&
           a.granted == b.granted;
}
} // namespace vantorix

void TestSettingsStore::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSettingsStore::aMissingFileIsCreatedWithTheSample()
{
    const TestDatabase database;
    {
        SettingsStore store;
        QVERIFY(!store.isOpen());
        opened(store, database);
        QVERIFY(store.isOpen());
        const Installation sample = SampleInstallation::make();
        const Installation read = loaded(store);
        QCOMPARE(read.settings, sample.settings);
        QVERIFY(read.objects == sample.objects);
    }
    QCOMPARE(database.files(), QStringList{"installation.db"});
    struct stat status = {};
    QCOMPARE(stat(database.path().toUtf8().constData(), &status), 0);
    QCOMPARE(status.st_mode & 0777u, 0600u);
}

void TestSettingsStore::aFileThatCannotBeMadeIsAnError()
{
    const TestDatabase database;
    QVERIFY(QFile(database.folder() + "/file").open(QIODevice::WriteOnly));
    SettingsStore store;
    const auto error = store.open(DatabaseLocation::ofFile(database.folder() + "/file/installation.db"));
    QVERIFY(error);
    QCOMPARE(error->path, database.folder() + "/file/installation.db");
    QCOMPARE(error->reason, QString("Не удаётся создать папку «%1/file».").arg(database.folder()));
    QVERIFY(!store.isOpen());
    QCOMPARE(database.files(), QStringList{"file"});
}

void TestSettingsStore::anExistingFileIsReadAsItIs()
{
    const TestDatabase database;
    makeSample(database);
    database.execute("DELETE FROM settings WHERE key <> 'PT_VERSION'");
    const QByteArray before = database.bytes();
    {
        SettingsStore store;
        QCOMPARE(loaded(opened(store, database)).settings, (QHash<QString, QString>{{"PT_VERSION", "7.4.2.118"}}));
    }
    QCOMPARE(database.bytes(), before);
    QCOMPARE(database.files(), QStringList{"installation.db"});
}

void TestSettingsStore::aLoadReadsEverything()
{
    const TestDatabase database;
    makeSample(database);
    database.execute("DELETE FROM objects");
    database.execute("INSERT INTO objects VALUES('b', 4294967295, 7, 'T', 'последний', 0), ('a', 2, 0, 'T', 'x', 1), "
                     "('b', 1, 0, 'T', '', 1)");
    database.execute("INSERT INTO settings(key, value) VALUES('unknown', NULL)");

    SettingsStore store;
    const Installation read = loaded(opened(store, database));
    QCOMPARE(read.settings.count(), 42);
    QVERIFY(read.settings.contains("unknown") && read.settings["unknown"].isEmpty());
    const QHash<QString, QVector<vantorix::ObjectRecord>> objects{
        {"a", {{2, 0, "T", "x", true}}},
        {"b", {{4294967295u, 7, "T", "последний", false}, {1, 0, "T", "", true}}},
    };
    QVERIFY(read.objects == objects);
}

void TestSettingsStore::aFailedLoadChangesNothing()
{
    const TestDatabase database;
    SettingsStore store;
    opened(store, database);
    database.execute("DROP TABLE objects");
    Installation installation;
    installation.settings.insert("before", "1");
    const auto error = store.load(installation);
    QVERIFY(error);
    QVERIFY2(error->reason.contains("objects"), qPrintable(error->reason));
    QCOMPARE(installation.settings, (QHash<QString, QString>{{"before", "1"}}));
}

void TestSettingsStore::aSaveIsDurable()
{
    const TestDatabase database;
    SettingsStore store;
    opened(store, database);
    SqlConnection connection(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
    QCOMPARE(connection.selectOne("PRAGMA journal_mode").toString(), QString("wal"));
}

void TestSettingsStore::aSaveWritesWhatItIsGiven()
{
    const TestDatabase database;
    SettingsStore store;
    const Installation before = loaded(opened(store, database));
    const SaveResult result =
        store.save({{"PT_MOBILE_PORT", "9000"}, {"PT_MOBILE_HOST", "h"}, {"PT_NEW", "1"}}, before);
    QCOMPARE(result.outcome, SaveResult::Outcome::Saved);
    QVERIFY(result.isDone());

    QHash<QString, QString> expected = before.settings;
    expected["PT_MOBILE_PORT"] = "9000";
    expected["PT_MOBILE_HOST"] = "h";
    expected["PT_NEW"] = "1";
    QCOMPARE(database.settings(), expected);
}

void TestSettingsStore::aSaveTakesAnyText_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("Cyrillic") << "Порт «ё»";
    QTest::newRow("beyond the first plane") << QString::fromUtf8("\xF0\x9F\x94\x91");
    QTest::newRow("SQL") << "'; DROP TABLE settings; --";
    QTest::newRow("a zero character") << QString("a") + QChar(0) + "b";
    QTest::newRow("lines") << "a\r\nb\n";
    QTest::newRow("a megabyte") << QString(1024 * 1024, 'x');
    QTest::newRow("a number with leading zeros") << "007";
}

void TestSettingsStore::aSaveTakesAnyText()
{
    QFETCH(QString, text);
    const TestDatabase database;
    SettingsStore store;
    const Installation before = loaded(opened(store, database));
    QVERIFY(store.save({{"PT_MOBILE_HOST", text}}, before).isDone());
    SettingsStore other;
    QCOMPARE(loaded(opened(other, database)).settings["PT_MOBILE_HOST"], text);
}

void TestSettingsStore::aConflictWritesNothing_data()
{
    QTest::addColumn<QString>("statement"); // of the other program
    QTest::addColumn<QString>("stored");
    QTest::newRow("changed") << "UPDATE settings SET value = 'theirs' WHERE key = 'PT_MOBILE_HOST'"
                             << "theirs";
    QTest::newRow("emptied") << "UPDATE settings SET value = '' WHERE key = 'PT_MOBILE_HOST'"
                             << "";
    QTest::newRow("set to nothing") << "UPDATE settings SET value = NULL WHERE key = 'PT_MOBILE_HOST'"
                                    << "";
    QTest::newRow("removed") << "DELETE FROM settings WHERE key = 'PT_MOBILE_HOST'"
                             << "";
    QTest::newRow("changed to what is to be saved") << "UPDATE settings SET value = 'mine' WHERE key = 'PT_MOBILE_HOST'"
                                                    << "mine";
}

void TestSettingsStore::aConflictWritesNothing()
{
    QFETCH(QString, statement);
    const TestDatabase database;
    SettingsStore store;
    const Installation before = loaded(opened(store, database));
    database.execute(statement);
    const auto theirs = database.settings();

    const SaveResult result = store.save({{"PT_MOBILE_PORT", "9000"}, {"PT_MOBILE_HOST", "mine"}}, before);
    QCOMPARE(result.outcome, SaveResult::Outcome::Conflicting);
    QVERIFY(!result.isDone());
    QCOMPARE(result.conflicts.count(), 1);
    QCOMPARE(result.conflicts[0].key, QString("PT_MOBILE_HOST"));
    QCOMPARE(result.conflicts[0].loaded, QString("mobile.installation.example"));
    QTEST(result.conflicts[0].stored, "stored");
    QCOMPARE(result.conflicts[0].wanted, QString("mine"));
    QCOMPARE(database.settings(), theirs);
}

void TestSettingsStore::anEqualTextOfALaterRevisionIsAConflict()
{
    const TestDatabase database;
    SettingsStore mine;
    SettingsStore theirs;
    const Installation before = loaded(opened(mine, database));
    const QString text = before.settings["PT_MOBILE_HOST"];
    opened(theirs, database);
    QVERIFY(theirs.save({{"PT_MOBILE_HOST", "theirs"}}, loaded(theirs)).isDone());
    QVERIFY(theirs.save({{"PT_MOBILE_HOST", text}}, loaded(theirs)).isDone());

    const SaveResult result = mine.save({{"PT_MOBILE_HOST", "mine"}, {"PT_MOBILE_PORT", "1"}}, before);
    QCOMPARE(result.outcome, SaveResult::Outcome::Conflicting);
    QCOMPARE(result.conflicts.count(), 1);
    QCOMPARE(result.conflicts[0].loaded, text);
    QCOMPARE(result.conflicts[0].stored, text);
    QCOMPARE(result.conflicts[0].wanted, QString("mine"));
    QCOMPARE(result.conflicts[0].revision, 3);
    QCOMPARE(database.settings(), before.settings);
}

void TestSettingsStore::aSettingThatHasAppearedIsAConflict()
{
    const TestDatabase database;
    SettingsStore mine;
    SettingsStore theirs;
    const Installation before = loaded(opened(mine, database));
    QVERIFY(opened(theirs, database).save({{"PT_NEW", ""}}, before).isDone());
    const SaveResult result = mine.save({{"PT_NEW", "mine"}}, before);
    QCOMPARE(result.outcome, SaveResult::Outcome::Conflicting);
    QCOMPARE(result.conflicts[0].revision, 1);
    QVERIFY(mine.save({{"PT_NEW", "mine"}}, loaded(mine)).isDone());
}

void TestSettingsStore::aConflictTellsWhoseItIs()
{
    const TestDatabase database;
    SettingsStore store;
    const Installation before = loaded(opened(store, database));
    database.execute("UPDATE settings SET value = 'theirs', revision = 7, changed_at = '2026-03-01T12:30:15.007Z', "
                     "changed_by = 'anna', workstation = 'desk-4', program = 'ctl' WHERE key = 'PT_MOBILE_HOST'");
    const SaveResult result = store.save({{"PT_MOBILE_HOST", "mine"}}, before);
    QCOMPARE(result.conflicts.count(), 1);
    QCOMPARE(result.conflicts[0].revision, 7);
    const ChangeStamp &stamp = result.conflicts[0].stamp;
    QCOMPARE(stamp.at, QDateTime({2026, 3, 1}, {12, 30, 15, 7}, Qt::UTC));
    QCOMPARE(stamp.by, QString("anna"));
    QCOMPARE(stamp.workstation, QString("desk-4"));
    QCOMPARE(stamp.program, QString("ctl"));
}

void TestSettingsStore::aSaveContinuesFromItsOwnRevisions()
{
    const TestDatabase database;
    SettingsStore store;
    Installation current = loaded(opened(store, database));
    for (const char *text : {"one", "two"}) {
        const SaveResult result = store.save({{"PT_MOBILE_HOST", text}}, current);
        QVERIFY(result.isDone());
        QCOMPARE(store.save({{"PT_MOBILE_HOST", "again"}}, current).outcome, SaveResult::Outcome::Conflicting);
        current.revisions["PT_MOBILE_HOST"] = result.revisions["PT_MOBILE_HOST"];
    }
    QCOMPARE(loaded(store).revisions, current.revisions);
}

void TestSettingsStore::aChangedSettingThatIsNotSavedIsNoConflict()
{
    const TestDatabase database;
    SettingsStore store;
    const Installation before = loaded(opened(store, database));
    database.store("PT_MOBILE_PORT", "1");
    QVERIFY(store.save({{"PT_MOBILE_HOST", "mine"}}, before).isDone());
    QCOMPARE(database.stored("PT_MOBILE_HOST"), QString("mine"));
    QCOMPARE(database.stored("PT_MOBILE_PORT"), QString("1"));
}

void TestSettingsStore::aLockedDatabaseIsAnError()
{
    const TestDatabase database;
    SettingsStore store;
    const Installation before = loaded(opened(store, database));
    {
        SqlConnection other(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
        QVERIFY(other.execute("BEGIN IMMEDIATE"));
        const SaveResult result = store.save({{"PT_MOBILE_HOST", "mine"}}, before);
        QCOMPARE(result.outcome, SaveResult::Outcome::Failed);
        QVERIFY2(result.error->reason.startsWith("База данных занята"), qPrintable(result.error->reason));
        QCOMPARE(result.error->path, database.path());
    }
    QCOMPARE(database.settings(), before.settings);
    QVERIFY(store.save({{"PT_MOBILE_HOST", "mine"}}, before).isDone());
}

void TestSettingsStore::aSaveThatFailsHalfwayWritesNothing()
{
    const TestDatabase database;
    SettingsStore store;
    const Installation before = loaded(opened(store, database));
    // Lets one row pass and stops at the next.
    database.execute("CREATE TABLE counter(n)");
    database.execute("CREATE TRIGGER stop BEFORE UPDATE ON settings WHEN (SELECT count(*) FROM counter) > 0 "
                     "BEGIN SELECT RAISE(ABORT, 'the disk is gone'); END");
    database.execute("CREATE TRIGGER count AFTER UPDATE ON settings BEGIN INSERT INTO counter VALUES(1); END");

    const SaveResult result = store.save({{"PT_MOBILE_HOST", "mine"}, {"PT_MOBILE_PORT", "9000"}}, before);
    QCOMPARE(result.outcome, SaveResult::Outcome::Failed);
    QVERIFY2(result.error->reason.contains("the disk is gone"), qPrintable(result.error->reason));
    QVERIFY(!result.error->text().contains("mine"));
    QCOMPARE(database.settings(), before.settings);
}

void TestSettingsStore::badDatabasesStayAsTheyAre_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");

    const TestDatabase sample;
    makeSample(sample);
    const QByteArray good = sample.bytes();
    const TestDatabase foreign;
    makeForeign(foreign);
    const TestDatabase newer;
    makeSample(newer);
    newer.execute("PRAGMA user_version = 3");
    const TestDatabase tableless;
    makeSample(tableless);
    tableless.execute("DROP TABLE objects");

    QByteArray garbage = good;
    for (int i = 100; i < garbage.size(); ++i)
        garbage[i] = char(i * 31);
    QByteArray damagedPage = good;
    damagedPage.replace(4096, 2000, QByteArray(2000, '\x5a'));

    QTest::newRow("text") << QByteArray("hello\n") << "Файл не является базой данных SQLite.";
    QTest::newRow("empty") << QByteArray() << "Файл пуст.";
    QTest::newRow("the first page only") << good.left(4096) << "";
    QTest::newRow("half") << good.left(good.size() / 2) << "";
    QTest::newRow("the last page is missing") << good.left(good.size() - 4096) << "";
    QTest::newRow("half of a page") << good.left(2048) << "";
    QTest::newRow("garbage behind the signature") << garbage << "";
    QTest::newRow("a damaged page") << damagedPage << "";
    QTest::newRow("of another program") << foreign.bytes() << "Это база данных с другой схемой";
    QTest::newRow("a table is missing") << tableless.bytes() << "Это база данных с другой схемой";
    QTest::newRow("of a newer program") << newer.bytes() << "Версия схемы базы данных 3, программа знает версии до 2.";
}

void TestSettingsStore::badDatabasesStayAsTheyAre()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const TestDatabase database;
    database.setBytes(bytes);
    {
        SettingsStore store;
        const auto error = store.open(DatabaseLocation::ofFile(database.path()));
        QVERIFY(error);
        QCOMPARE(error->path, database.path());
        QVERIFY2(error->reason.startsWith(reason), qPrintable(error->reason));
        QVERIFY(!error->reason.isEmpty() && !error->advice.isEmpty());
        QVERIFY(!store.isOpen());
    }
    QCOMPARE(database.bytes(), bytes);
    QCOMPARE(database.files(), QStringList{"installation.db"});
}

void TestSettingsStore::aForeignLogIsNotCarriedOver()
{
    const TestDatabase killed;
    const TestDatabase database;
    makeForeign(killed);
    {
        SqlConnection writer(DatabaseLocation::ofFile(killed.path()), SqlConnection::Mode::ReadWrite);
        QVERIFY(writer.execute("PRAGMA journal_mode = WAL"));
        QVERIFY(writer.execute("INSERT INTO settings VALUES('a', 'b')"));
        QVERIFY(QFile::copy(killed.path(), database.path()));
        QVERIFY(QFile::copy(killed.path() + "-wal", database.path() + "-wal"));
    }
    const QByteArray before = database.bytes();
    const qint64 logSize = QFileInfo(database.path() + "-wal").size();
    QVERIFY(logSize > 0);

    QVERIFY(SettingsStore().open(DatabaseLocation::ofFile(database.path())));
    QCOMPARE(database.bytes(), before);
    QCOMPARE(QFileInfo(database.path() + "-wal").size(), logSize);
}

void TestSettingsStore::ownLogOfAKilledProgramIsRead()
{
    const TestDatabase killed;
    const TestDatabase database;
    {
        SettingsStore store;
        const Installation before = loaded(opened(store, killed));
        QVERIFY(store.save({{"PT_MOBILE_HOST", "the last words"}}, before).isDone());
        QVERIFY(QFile::copy(killed.path(), database.path()));
        QVERIFY(QFile::copy(killed.path() + "-wal", database.path() + "-wal"));
    }
    SettingsStore store;
    QCOMPARE(loaded(opened(store, database)).settings["PT_MOBILE_HOST"], QString("the last words"));
}

void TestSettingsStore::halfAChangeOfAKilledProgramIsTakenBack()
{
    const TestDatabase killed;
    const TestDatabase database;
    makeSample(killed);
    {
        // As programs write that do not use a log.
        SqlConnection writer(DatabaseLocation::ofFile(killed.path()), SqlConnection::Mode::ReadWrite);
        QVERIFY(writer.execute("PRAGMA journal_mode = DELETE"));
        QVERIFY(writer.execute("PRAGMA cache_size = 1"));
        QVERIFY(writer.execute("PRAGMA cache_spill = 1"));
        QVERIFY(writer.execute("BEGIN IMMEDIATE"));
        QVERIFY(writer.execute("UPDATE settings SET value = 'half'"));
        QVERIFY(writer.execute("UPDATE objects SET name = 'half'"));
        QVERIFY(QFile::copy(killed.path(), database.path()));
        QVERIFY(QFile::copy(killed.path() + "-journal", database.path() + "-journal"));
        QVERIFY(database.bytes().contains("half"));
    }
    SettingsStore store;
    QVERIFY(!loaded(opened(store, database)).settings.values().contains("half"));
    QCOMPARE(database.ask("PRAGMA integrity_check").toString(), QString("ok"));
}

void TestSettingsStore::aCopyHoldsWhatTheOriginalHolds()
{
    const TestDatabase database;
    makeSample(database);
    database.store("PT_MOBILE_HOST", "copied");
    const QByteArray before = database.bytes();
    const TestDatabase copy;
    QVERIFY(!SettingsStore::copy(database.path(), copy.path()));
    QCOMPARE(copy.settings(), database.settings());
    QCOMPARE(database.bytes(), before);
    QCOMPARE(database.files(), QStringList{"installation.db"});
}

void TestSettingsStore::aBadDatabaseIsNotCopied()
{
    const TestDatabase database;
    makeForeign(database);
    const TestDatabase copy;
    QVERIFY(SettingsStore::copy(database.path(), copy.path()));
    QCOMPARE(copy.files(), QStringList());
}

void TestSettingsStore::aCopyReplacesNothing()
{
    const TestDatabase database;
    makeSample(database);
    const TestDatabase copy;
    makeForeign(copy);
    const QByteArray before = copy.bytes();
    const auto error = SettingsStore::copy(database.path(), copy.path());
    QVERIFY(error);
    QVERIFY(!error->reason.isEmpty());
    QCOMPARE(copy.bytes(), before);
}

void TestSettingsStore::aPathThatIsTooLongIsAnError()
{
    // SQLite takes paths of 512 bytes.
    const TestDatabase place;
    const QString folder = place.folder() + ("/" + QString(200, 'x')).repeated(3);
    const auto location = DatabaseLocation::ofFile(folder + "/installation.db");
    const auto created = SettingsStore::create(location, {});
    QVERIFY(created);
    QVERIFY2(created->reason.startsWith("Файл базы данных не открывается."), qPrintable(created->reason));
    QVERIFY(QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));

    const TestDatabase sample;
    makeSample(sample);
    QVERIFY(QFile::copy(sample.path(), location.filePath()));
    const auto opened = SettingsStore().open(location);
    QVERIFY(opened);
    QVERIFY2(opened->reason.startsWith("Файл базы данных не открывается."), qPrintable(opened->reason));
    QCOMPARE(opened->path, location.filePath());
}

void TestSettingsStore::severalProgramsCreateTheSampleAtOnce()
{
    const TestDatabase database;
    for (const QString &text : openAtOnce(database))
        QCOMPARE(text, QString());
    QCOMPARE(database.files(), QStringList{"installation.db"});
    QCOMPARE(database.settings(), SampleInstallation::make().settings);
}

void TestSettingsStore::aDatabaseThatSomebodyReadsIsNotPrepared()
{
    const TestDatabase database;
    makeSample(database);
    database.execute("PRAGMA journal_mode = DELETE");
    SqlConnection reader(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
    QVERIFY(reader.execute("BEGIN"));
    QCOMPARE(reader.selectOne("SELECT count(*) FROM history").toInt(), 0);
    SettingsStore store;
    const auto error = store.open(DatabaseLocation::ofFile(database.path()));
    QVERIFY(error);
    QCOMPARE(error->kind, DatabaseError::Kind::Busy);
    QVERIFY(!store.isOpen());
    QVERIFY(reader.execute("COMMIT"));
    opened(store, database);
}

void TestSettingsStore::aSaveThatIsGivenUpWritesNothing()
{
    const TestDatabase database;
    SettingsStore store;
    const Installation before = loaded(opened(store, database));
    const SaveResult result = store.save(SaveOrder{{{"PT_MOBILE_HOST", "mine"}}, before}, [] { return false; });
    QCOMPARE(result.outcome, SaveResult::Outcome::Failed);
    QCOMPARE(result.error->kind, DatabaseError::Kind::Cancelled);
    QCOMPARE(result.error->path, database.path());
    QCOMPARE(database.settings(), before.settings);
}

void TestSettingsStore::aTableThatGoesIsAnErrorOfASave_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<bool>("isAdministrator");
    QTest::newRow("settings, of an operator") << "settings" << false;
    QTest::newRow("settings, of an administrator") << "settings" << true;
    QTest::newRow("history") << "history" << true;
}

void TestSettingsStore::aTableThatGoesIsAnErrorOfASave()
{
    QFETCH(QString, table);
    QFETCH(bool, isAdministrator);
    const TestDatabase database;
    SettingsStore store;
    const Installation before = loaded(opened(store, database));
    database.execute("ALTER TABLE " + table + " RENAME TO hidden");
    const Authority authority = isAdministrator ? Authority::Administrator : Authority::Operator;
    const SaveResult result = store.save(SaveOrder{{{"PT_MOBILE_HOST", "mine"}}, before, {}, authority});
    QCOMPARE(result.outcome, SaveResult::Outcome::Failed);
    QVERIFY2(result.error->reason.contains(table), qPrintable(result.error->reason));
    database.execute("ALTER TABLE hidden RENAME TO " + table);
    QCOMPARE(database.settings(), before.settings);
}

void TestSettingsStore::theOutcomeOfASaveCanBeAskedFor()
{
    const TestDatabase database;
    SettingsStore store;
    const SaveOrder order{{{"PT_MOBILE_HOST", "mine"}}, loaded(opened(store, database))};
    QCOMPARE(store.save(order).outcome, SaveResult::Outcome::Saved);

    SettingsStore another;
    opened(another, database);
    const auto outcome = another.outcome(order.id);
    QVERIFY(!outcome.error);
    QCOMPARE(outcome.value.count(), 1);
    QCOMPARE(outcome.value.first().key, QString("PT_MOBILE_HOST"));
    QCOMPARE(outcome.value.first().newValue, QString("mine"));
    const auto never = another.outcome("the number of no save");
    QVERIFY(!never.error);
    QVERIFY(never.value.isEmpty());
}

void TestSettingsStore::aHistoryThatGoesTellsNoOutcome()
{
    const TestDatabase database;
    SettingsStore store;
    opened(store, database);
    database.execute("DROP TABLE history");
    const auto outcome = store.outcome("the number of a save");
    QVERIFY(outcome.error);
    QVERIFY2(outcome.error->reason.contains("history"), qPrintable(outcome.error->reason));
    QVector<HistoryRecord> records;
    QVERIFY(store.history({}, records));
    QString text;
    QVERIFY(store.textAt("PT_MOBILE_HOST", 1, text));
}

void TestSettingsStore::aFileHasNoNewsOfItsOwn()
{
    const TestDatabase database;
    SettingsStore store;
    opened(store, database);
    QVERIFY(!store.listen());
    QCOMPARE(store.socket(), -1);
    QCOMPARE(store.takeNews(), ServerLink::News::Nothing);
}

QTEST_MAIN(TestSettingsStore)
#include "tst_settingsstore.moc"
