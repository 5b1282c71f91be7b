#include <host/schema.h>
#include <host/settingsstore.h>
#include <host/sqlconnection.h>

#include "messages.h"
#include "testserver.h"

#include <QTest>

using Kind = DatabaseError::Kind;
using Mode = SqlConnection::Mode;
using Outcome = SaveResult::Outcome;

Q_DECLARE_METATYPE(Authority)
Q_DECLARE_METATYPE(Installation)
Q_DECLARE_METATYPE(Kind)
Q_DECLARE_METATYPE(Outcome)

/// What becomes of a call if one of its statements fails on the server.
class TestStoreFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void tablesThatCannotBeLookedAtAreAnError();
    void aVersionThatIsGoneIsAnError();
    void aServersEncodingMustHoldEveryText();
    void othersWhoMakeTheTablesAreWaitedFor();
    void whatCannotBeFilledIsNotMade_data();
    void whatCannotBeFilledIsNotMade();
    void whatCannotBeReadIsAnError_data();
    void whatCannotBeReadIsAnError();
    void aSaveThatFailsStoresNothing_data();
    void aSaveThatFailsStoresNothing();
    void aSaveOfTheSameNumberIsWaitedFor();
    void anOutcomeThatCannotBeAskedForIsAnError_data();
    void anOutcomeThatCannotBeAskedForIsAnError();
    void aLostServerIsAnErrorOfEveryCall();
};

namespace {

const QString key = QStringLiteral("PT_MOBILE_HOST");
const QString schemaLock = QStringLiteral("SELECT pg_advisory_xact_lock(hashtext('vxsettings schema'))");

/// A database with one setting.
void makeTables(const TestServer &server)
{
    if (const auto error = SettingsStore::create(server.location(), {{{key, QStringLiteral("before")}}, {}}))
        throw std::runtime_error(error->text().toStdString());
}

/// From the next connection on, calls of @p function, which names its parameters and result, fail with the state VX001.
void breakFunction(const TestServer &server, const QString &function)
{
    server.execute(QStringLiteral("CREATE FUNCTION public.%1 LANGUAGE plpgsql AS "
                                  "$$ BEGIN RAISE EXCEPTION 'broken' USING ERRCODE = 'VX001'; END $$")
                       .arg(function));
    server.execute(
        QStringLiteral("ALTER DATABASE %1 SET search_path = public, pg_catalog").arg(server.location().database()));
}

/// Whenever a setting is to be updated, @p body is run, for each row.
void addTrigger(const TestServer &server, const QString &trigger, const QString &body)
{
    server.execute(
        QStringLiteral("CREATE FUNCTION fault() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN %1 END $$").arg(body));
    server.execute(trigger + QStringLiteral(" FOR EACH ROW EXECUTE FUNCTION fault()"));
}

bool isThere(const TestServer &server, const QString &table)
{
    return server.ask(QStringLiteral("SELECT to_regclass('%1') IS NOT NULL").arg(table)).toBool();
}
} // namespace

void TestStoreFaults::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestStoreFaults::tablesThatCannotBeLookedAtAreAnError()
{
    const TestServer server;
    makeTables(server);
    breakFunction(server, "current_schema() RETURNS name");
    SqlConnection connection(server.location(), Mode::ReadWrite);
    const auto problem = Schema::problem(connection);
    QVERIFY(problem);
    QVERIFY2(problem->reason.contains("VX001"), qPrintable(problem->reason));
    const auto error = Schema::create(connection, {});
    QVERIFY(error);
    QVERIFY2(error->reason.contains("VX001"), qPrintable(error->reason));
}

void TestStoreFaults::aVersionThatIsGoneIsAnError()
{
    const TestServer server;
    makeTables(server);
    server.execute("DROP TABLE schema_version");
    SqlConnection connection(server.location(), Mode::ReadWrite);
    for (const auto &error : {Schema::problem(connection), Schema::migrate(connection)}) {
        QVERIFY(error);
        QVERIFY2(error->reason.contains("42P01"), qPrintable(error->reason)); // no such table
    }
    QCOMPARE(server.stored(key), QString("before"));
}

void TestStoreFaults::aServersEncodingMustHoldEveryText()
{
    const TestServer server;
    const QString latin = server.location().database() + "_latin";
    server.execute("CREATE DATABASE " + latin + " ENCODING 'LATIN1' LOCALE 'C' TEMPLATE template0");
    const DatabaseLocation location(server.url() + "_latin");
    const auto error = SettingsStore().open(location);
    server.execute("DROP DATABASE " + latin + " WITH (FORCE)");
    QVERIFY(error);
    QCOMPARE(error->reason, QString("Кодировка базы данных — LATIN1, а не UTF8."));
    QCOMPARE(error->path, location.name());
}

void TestStoreFaults::othersWhoMakeTheTablesAreWaitedFor()
{
    const TestServer server;
    SqlConnection other(server.location(), Mode::ReadWrite);
    SqlConnection connection(server.location(), Mode::ReadWrite);
    QVERIFY(other.execute("BEGIN"));
    QVERIFY(other.execute(schemaLock));
    QCOMPARE(Schema::create(connection, {})->kind, Kind::Busy);
    QVERIFY(other.execute("ROLLBACK"));
    QVERIFY(!Schema::create(connection, {}));

    server.execute("UPDATE schema_version SET version = 1");
    QVERIFY(other.execute("BEGIN"));
    QVERIFY(other.execute(schemaLock));
    QCOMPARE(Schema::migrate(connection)->kind, Kind::Busy);
    QCOMPARE(server.ask("SELECT version FROM schema_version").toInt(), 1);
}

void TestStoreFaults::whatCannotBeFilledIsNotMade_data()
{
    QTest::addColumn<Installation>("content");
    QTest::addColumn<QString>("obstacle");
    const QString unstorable = QString("a") + QChar(0);
    QTest::newRow("a table of the same name") << Installation() << "CREATE TABLE schema_version(a INTEGER)";
    QTest::newRow("a setting") << Installation{{{key, unstorable}}, {}} << "";
    QTest::newRow("an object") << Installation{{}, {{"d", {{1, 0, "T", unstorable, true}}}}} << "";
}

void TestStoreFaults::whatCannotBeFilledIsNotMade()
{
    QFETCH(Installation, content);
    QFETCH(QString, obstacle);
    const TestServer server;
    if (!obstacle.isEmpty())
        server.execute(obstacle);
    const auto error = SettingsStore::create(server.location(), content);
    QVERIFY(error);
    QVERIFY(!error->reason.isEmpty());
    QVERIFY(!isThere(server, "settings"));
}

void TestStoreFaults::whatCannotBeReadIsAnError_data()
{
    QTest::addColumn<QString>("table");
    QTest::newRow("settings") << "settings";
    QTest::newRow("objects") << "objects";
}

void TestStoreFaults::whatCannotBeReadIsAnError()
{
    QFETCH(QString, table);
    const TestServer server;
    makeTables(server);
    SettingsStore store;
    QVERIFY(!store.open(server.location()));
    server.execute("ALTER TABLE " + table + " RENAME TO hidden");
    Installation installation;
    const auto error = store.load(installation);
    QVERIFY(error);
    QVERIFY2(error->reason.contains("42P01"), qPrintable(error->reason)); // no such table
    QVERIFY(installation.settings.isEmpty());
}

void TestStoreFaults::aSaveThatFailsStoresNothing_data()
{
    QTest::addColumn<Authority>("authority");
    QTest::addColumn<QString>("trigger"); // or a statement that spoils the database
    QTest::addColumn<QString>("body");
    QTest::addColumn<Outcome>("outcome");
    QTest::addColumn<Kind>("kind");

    const QString rename = "ALTER TABLE settings RENAME TO hidden";
    const QString before = "CREATE TRIGGER fault BEFORE UPDATE ON settings";
    const QString atTheEnd = "CREATE CONSTRAINT TRIGGER fault AFTER UPDATE ON settings DEFERRABLE INITIALLY DEFERRED";
    QTest::newRow("access cannot be read")
        << Authority::Operator << rename << QString() << Outcome::Failed << Kind::Refused;
    QTest::newRow("the setting cannot be read")
        << Authority::Administrator << rename << QString() << Outcome::Failed << Kind::Refused;
    QTest::newRow("the history cannot be written") << Authority::Operator << "ALTER TABLE history RENAME TO hidden"
                                                   << QString() << Outcome::Failed << Kind::Refused;
    QTest::newRow("the setting cannot be written")
        << Authority::Operator << before << "RAISE EXCEPTION 'no';" << Outcome::Failed << Kind::Refused;
    QTest::newRow("the new revision cannot be read")
        << Authority::Operator << "CREATE TRIGGER fault AFTER UPDATE ON settings"
        << "PERFORM set_config('search_path', 'nowhere', true); RETURN NULL;" << Outcome::Failed << Kind::Refused;
    QTest::newRow("what is stored instead cannot be read")
        << Authority::Operator << before << "PERFORM set_config('search_path', 'nowhere', true); RETURN NULL;"
        << Outcome::Failed << Kind::Refused;
    QTest::newRow("the end is refused") << Authority::Operator << atTheEnd << "RAISE EXCEPTION 'no';" << Outcome::Failed
                                        << Kind::Refused;
    QTest::newRow("the end meets another writer")
        << Authority::Operator << atTheEnd << "RAISE EXCEPTION 'no' USING ERRCODE = '55P03';" << Outcome::Failed
        << Kind::Busy;
    QTest::newRow("the connection is lost at the end")
        << Authority::Operator << atTheEnd << "PERFORM pg_terminate_backend(pg_backend_pid()); RETURN NULL;"
        << Outcome::Unknown << Kind::Disconnected;
}

void TestStoreFaults::aSaveThatFailsStoresNothing()
{
    QFETCH(Authority, authority);
    QFETCH(QString, trigger);
    QFETCH(QString, body);
    const TestServer server;
    makeTables(server);
    SettingsStore store;
    QVERIFY(!store.open(server.location()));
    Installation base;
    QVERIFY(!store.load(base));
    if (body.isNull())
        server.execute(trigger);
    else
        addTrigger(server, trigger, body);

    const SaveResult result = store.save(SaveOrder{{{key, "mine"}}, base, {}, authority});
    QTEST(result.outcome, "outcome");
    QTEST(result.error->kind, "kind");
    const QString table = isThere(server, "settings") ? "settings" : "hidden";
    QCOMPARE(server.ask("SELECT value FROM " + table).toString(), QString("before"));
}

void TestStoreFaults::aSaveOfTheSameNumberIsWaitedFor()
{
    const TestServer server;
    makeTables(server);
    SettingsStore store;
    QVERIFY(!store.open(server.location()));
    const SaveOrder order{{{key, "mine"}}, {{}, {}, {{key, 1}}}};
    SqlConnection other(server.location(), Mode::ReadWrite);
    QVERIFY(other.execute("BEGIN"));
    QVERIFY(other.execute("SELECT pg_advisory_xact_lock(hashtextextended(?, 0))", {order.id}));
    QCOMPARE(store.save(order).error->kind, Kind::Busy);
    QVERIFY(other.execute("ROLLBACK"));
    QVERIFY(store.save(order).isDone());
    QCOMPARE(server.stored(key), QString("mine"));
}

void TestStoreFaults::anOutcomeThatCannotBeAskedForIsAnError_data()
{
    QTest::addColumn<bool>("isLockBroken");
    QTest::newRow("the history is gone") << false;
    QTest::newRow("a save that may be under way cannot be asked for") << true;
}

void TestStoreFaults::anOutcomeThatCannotBeAskedForIsAnError()
{
    QFETCH(bool, isLockBroken);
    const TestServer server;
    makeTables(server);
    if (isLockBroken)
        breakFunction(server, "pg_try_advisory_xact_lock(bigint) RETURNS boolean");
    SettingsStore store;
    QVERIFY(!store.open(server.location()));
    if (!isLockBroken)
        server.execute("ALTER TABLE history RENAME TO hidden");
    const auto outcome = store.outcome("the number of a save");
    QVERIFY(outcome.error);
    QVERIFY2(outcome.error->reason.contains(isLockBroken ? "VX001" : "42P01"), qPrintable(outcome.error->reason));
}

void TestStoreFaults::aLostServerIsAnErrorOfEveryCall()
{
    const TestServer server;
    makeTables(server);
    SettingsStore store;
    QVERIFY(!store.open(server.location()));
    SqlConnection connection(server.location(), Mode::ReadWrite);
    server.signalBackends(SIGTERM);
    QTRY_VERIFY(server.backends().isEmpty());

    Installation installation;
    const auto error = store.load(installation);
    QVERIFY(error);
    QCOMPARE(error->kind, Kind::Disconnected);
    QVERIFY(installation.settings.isEmpty());
    QCOMPARE(store.hasNews().error->kind, Kind::Disconnected);
    QCOMPARE(store.listen()->kind, Kind::Disconnected);
    QCOMPARE(store.outcome("the number of a save").error->kind, Kind::Disconnected);
    QCOMPARE(store.save({{key, "mine"}}, {}).error->kind, Kind::Disconnected);
    QCOMPARE(Schema::problem(connection)->kind, Kind::Disconnected);
    QCOMPARE(server.stored(key), QString("before"));
}

QTEST_MAIN(TestStoreFaults)
#include "tst_storefaults.moc"
