#include <host/schema.h>
#include <host/settingsstore.h>

#include "messages.h"
#include "simultaneousopening.h"
#include "testdatabase.h"

#include <QTest>

class TestSchema : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aNewDatabaseIsOfTheNewestVersion();
    void anOlderDatabaseIsMigrated_data();
    void anOlderDatabaseIsMigrated();
    void tablesAreTheSameHoweverTheyWereMade();
    void aFailedMigrationLeavesTheFile_data();
    void aFailedMigrationLeavesTheFile();
    void aCopyIsNotMigrated();
    void severalProgramsMigrateAtOnce();
    void anOlderProgramThatIsStillRunningIsNoticed();
    void aTableOfTheStoredVersionThatIsGoneIsAProblem();
    void aBusyDatabaseIsNotMigrated_data();
    void aBusyDatabaseIsNotMigrated();
    void whatIsInTheWayIsAnError();
};

namespace {

/// What a program of version 1 has left: two settings and two objects.
void makeVersion1(const TestDatabase &database)
{
    database.setBytes({});
    database.execute("PRAGMA journal_mode = WAL");
    database.execute("CREATE TABLE settings(key TEXT PRIMARY KEY, value TEXT)");
    database.execute("CREATE TABLE objects(data_name TEXT NOT NULL, uid INTEGER NOT NULL, "
                     "parent_uid INTEGER NOT NULL DEFAULT 0, type TEXT NOT NULL, name TEXT NOT NULL, "
                     "granted INTEGER NOT NULL DEFAULT 1, PRIMARY KEY(data_name, uid))");
    database.execute("INSERT INTO settings VALUES('PT_MOBILE_HOST', 'хост'), ('PT_MOBILE_PORT', NULL)");
    database.execute("INSERT INTO objects VALUES('d', 2, 0, 'T', 'второй', 1), ('d', 1, 2, 'T', 'первый', 0)");
    database.execute("PRAGMA user_version = 1");
}

/// Everything that a database consists of, without the contents of its tables.
QString structure(const TestDatabase &database)
{
    const QString columns = database
                                .ask("SELECT group_concat(c.name || c.type || c.\"notnull\" || c.pk, ',') "
                                     "FROM (SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name) t, "
                                     "pragma_table_info(t.name) c")
                                .toString();
    const QString others = database
                               .ask("SELECT group_concat(coalesce(sql, name), '|') FROM (SELECT sql, name FROM "
                                    "sqlite_master WHERE type <> 'table' ORDER BY name)")
                               .toString();
    return columns + others;
}

Installation loaded(const TestDatabase &database)
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

void TestSchema::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSchema::aNewDatabaseIsOfTheNewestVersion()
{
    const TestDatabase database;
    database.setBytes({});
    {
        SqlConnection connection(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
        const ChangeStamp stamp{QDateTime({2026, 3, 1}, {12, 30, 15, 7}, Qt::UTC), "anna", "desk-4", "setup"};
        QVERIFY(!Schema::create(connection, {{{"KEY", "text"}}, {}, {}}, stamp));
        QVERIFY(!Schema::problem(connection));
    }
    QCOMPARE(Schema::version(), 2);
    QCOMPARE(database.ask("PRAGMA user_version").toInt(), 2);
    QCOMPARE(database
                 .ask("SELECT key || ',' || value || ',' || revision || ',' || changed_at || ',' || changed_by || "
                      "',' || workstation || ',' || program FROM settings")
                 .toString(),
             QString("KEY,text,1,2026-03-01T12:30:15.007Z,anna,desk-4,setup"));
    QCOMPARE(database.ask("SELECT count(*) FROM history").toInt(), 0);
}

void TestSchema::anOlderDatabaseIsMigrated_data()
{
    QTest::addColumn<int>("version");
    QTest::newRow("version 1") << 1;
    QTest::newRow("the tables of version 1 without a number") << 0;
}

void TestSchema::anOlderDatabaseIsMigrated()
{
    QFETCH(int, version);
    const TestDatabase database;
    makeVersion1(database);
    database.execute(QString("PRAGMA user_version = %1").arg(version));

    const Installation installation = loaded(database);
    QCOMPARE(installation.settings,
             (QHash<QString, QString>{{"PT_MOBILE_HOST", "хост"}, {"PT_MOBILE_PORT", QString()}}));
    QCOMPARE(installation.revisions, (QHash<QString, qint64>{{"PT_MOBILE_HOST", 1}, {"PT_MOBILE_PORT", 1}}));
    QCOMPARE(installation.objects.keys(), QStringList{"d"});
    QCOMPARE(installation.objects["d"].count(), 2);
    QCOMPARE(installation.objects["d"][0].name, QString("второй"));
    QCOMPARE(installation.objects["d"][1].parentUid, 2u);

    QCOMPARE(database.ask("PRAGMA user_version").toInt(), 2);
    QCOMPARE(database
                 .ask("SELECT count(*) FROM settings WHERE changed_at IS NOT NULL OR changed_by IS NOT NULL "
                      "OR workstation IS NOT NULL OR program IS NOT NULL")
                 .toInt(),
             0);
    QCOMPARE(database.ask("SELECT count(*) FROM history").toInt(), 0);
    QCOMPARE(database.ask("PRAGMA integrity_check").toString(), QString("ok"));

    SettingsStore store;
    QVERIFY(!store.open(DatabaseLocation::ofFile(database.path())));
    QVERIFY(store.save({{"PT_MOBILE_HOST", "new"}}, installation).isDone());
    QCOMPARE(loaded(database).revisions["PT_MOBILE_HOST"], 2);
}

void TestSchema::tablesAreTheSameHoweverTheyWereMade()
{
    const TestDatabase migrated;
    makeVersion1(migrated);
    loaded(migrated);
    const TestDatabase made;
    loaded(made); // there was nothing
    QVERIFY(structure(made).contains("history_is_not_deleted"));
    QCOMPARE(structure(migrated), structure(made));
}

void TestSchema::aFailedMigrationLeavesTheFile_data()
{
    QTest::addColumn<QString>("obstacle");
    QTest::addColumn<QString>("removal");
    QTest::newRow("a column at its start") << "ALTER TABLE settings ADD COLUMN revision TEXT"
                                           << "ALTER TABLE settings DROP COLUMN revision";
    QTest::newRow("a table in its middle") << "CREATE TABLE history(a)"
                                           << "DROP TABLE history";
    QTest::newRow("a trigger at its end") << "CREATE TRIGGER settings_always_get_a_revision AFTER DELETE ON settings "
                                             "BEGIN SELECT 1; END"
                                          << "DROP TRIGGER settings_always_get_a_revision";
}

void TestSchema::aFailedMigrationLeavesTheFile()
{
    QFETCH(QString, obstacle);
    QFETCH(QString, removal);
    const TestDatabase database;
    makeVersion1(database);
    database.execute(obstacle);
    // To be changed as well by whoever opens it to write.
    database.execute("PRAGMA journal_mode = DELETE");
    const QByteArray before = database.bytes();

    const auto error = SettingsStore().open(DatabaseLocation::ofFile(database.path()));
    QVERIFY(error);
    QCOMPARE(error->path, database.path());
    QVERIFY(!error->reason.isEmpty() && !error->advice.isEmpty());
    QCOMPARE(database.bytes(), before);
    QCOMPARE(database.files(), QStringList{"installation.db"});

    database.execute(removal);
    QCOMPARE(loaded(database).settings["PT_MOBILE_HOST"], QString("хост"));
    QCOMPARE(database.ask("PRAGMA user_version").toInt(), 2);
}

void TestSchema::aCopyIsNotMigrated()
{
    const TestDatabase database;
    makeVersion1(database);
    const QByteArray before = database.bytes();
    const TestDatabase copy;
    QVERIFY(!SettingsStore::copy(database.path(), copy.path()));
    QCOMPARE(database.bytes(), before);
    QCOMPARE(copy.ask("PRAGMA user_version").toInt(), 1);
    QCOMPARE(copy.settings(), database.settings());
}

void TestSchema::severalProgramsMigrateAtOnce()
{
    const TestDatabase database;
    makeVersion1(database);
    for (const QString &text : openAtOnce(database))
        QCOMPARE(text, QString());
    QCOMPARE(loaded(database).settings.count(), 2);
}

void TestSchema::anOlderProgramThatIsStillRunningIsNoticed()
{
    const TestDatabase database;
    makeVersion1(database);
    SqlConnection older(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
    QCOMPARE(older.selectOne("SELECT count(*) FROM settings").toInt(), 2);

    const Installation installation = loaded(database);
    const QString upsert = "INSERT INTO settings(key, value) VALUES(?, ?) "
                           "ON CONFLICT(key) DO UPDATE SET value = excluded.value";
    QVERIFY(older.execute(upsert, {"PT_MOBILE_HOST", "theirs"}));
    QVERIFY(older.execute(upsert, {"PT_MOBILE_HOST", "хост"}));

    SettingsStore store;
    QVERIFY(!store.open(DatabaseLocation::ofFile(database.path())));
    const SaveResult result = store.save({{"PT_MOBILE_HOST", "mine"}}, installation);
    QCOMPARE(result.outcome, SaveResult::Outcome::Conflicting);
    QCOMPARE(result.conflicts[0].revision, 3);
    QVERIFY(result.conflicts[0].stamp.at.isValid());
    QVERIFY(result.conflicts[0].stamp.by.isNull());
}

void TestSchema::aTableOfTheStoredVersionThatIsGoneIsAProblem()
{
    const TestDatabase database;
    loaded(database);
    database.execute("DROP TABLE history");
    const auto error = SettingsStore().open(DatabaseLocation::ofFile(database.path()));
    QVERIFY(error);
    QVERIFY2(error->reason.contains("history"), qPrintable(error->reason));
}

void TestSchema::aBusyDatabaseIsNotMigrated_data()
{
    QTest::addColumn<QString>("begin"); // what another program is in the middle of
    QTest::newRow("somebody writes") << "BEGIN IMMEDIATE";
    QTest::newRow("somebody reads") << "BEGIN";
}

void TestSchema::aBusyDatabaseIsNotMigrated()
{
    QFETCH(QString, begin);
    const TestDatabase database;
    makeVersion1(database);
    database.execute("PRAGMA journal_mode = DELETE"); // no reader sees the state before a change that has ended
    {
        SqlConnection other(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
        QVERIFY(other.execute(begin));
        QCOMPARE(other.selectOne("SELECT count(*) FROM settings").toInt(), 2);
        SqlConnection connection(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
        const auto error = Schema::migrate(connection);
        QVERIFY(error);
        QCOMPARE(error->kind, DatabaseError::Kind::Busy);
    }
    QCOMPARE(database.ask("PRAGMA user_version").toInt(), 1);
    QCOMPARE(loaded(database).settings.count(), 2);
}

void TestSchema::whatIsInTheWayIsAnError()
{
    const TestDatabase database;
    database.setBytes({});
    database.execute("CREATE TABLE history_save(a)"); // the name of an index
    SqlConnection connection(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
    const auto error = Schema::create(connection, {});
    QVERIFY(error);
    QVERIFY2(error->reason.contains("history_save"), qPrintable(error->reason));
    QCOMPARE(database.ask("SELECT group_concat(name) FROM sqlite_master").toString(), QString("history_save"));
}

QTEST_MAIN(TestSchema)
#include "tst_schema.moc"
