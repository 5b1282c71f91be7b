#include <host/sqlconnection.h>

#include "messages.h"
#include "testdatabase.h"
#include "testserver.h"

#include <QTest>

using Kind = DatabaseError::Kind;
using Mode = SqlConnection::Mode;

class TestSqlConnection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aMissingDriverIsAnError(); // the first: a driver that was found once stays
    void aFileThatCannotBeOpenedIsAnError();
    void rowsThatEndEarlyAreNotComplete();
    void aQueryWithoutRowsHasNoFirstOne();
    void whatIsLeftOutOfAnAddressIsTheUsual();
    void aReaderOnAServerCannotWrite();
    void aServerThatRefusesItsSettingsIsLeft();
    void aServerThatEndsIsToldApartFromAnError();
};

void TestSqlConnection::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSqlConnection::aMissingDriverIsAnError()
{
    const QStringList folders = QCoreApplication::libraryPaths();
    QCoreApplication::setLibraryPaths({});
    const SqlConnection connection(DatabaseLocation::ofFile("/nowhere"), Mode::ReadOnly);
    QCoreApplication::setLibraryPaths(folders);
    QVERIFY(!connection.isOpen());
    QCOMPARE(connection.error().path, QString("/nowhere"));
    QCOMPARE(connection.error().reason, QString("Нет драйвера базы данных QSQLITE."));
    QVERIFY(!connection.error().advice.isEmpty());
}

void TestSqlConnection::aFileThatCannotBeOpenedIsAnError()
{
    SqlConnection connection(DatabaseLocation::ofFile("/nowhere/installation.db"), Mode::ReadWrite);
    QVERIFY(!connection.isOpen());
    const DatabaseError error = connection.error();
    QVERIFY2(error.reason.startsWith("Файл базы данных не открывается."), qPrintable(error.reason));
    QVERIFY(!connection.execute("SELECT 1"));
    QVERIFY(!connection.select("SELECT 1"));
    QCOMPARE(connection.error().reason, error.reason);
}

void TestSqlConnection::rowsThatEndEarlyAreNotComplete()
{
    const TestDatabase database;
    database.setBytes({});
    SqlConnection connection(DatabaseLocation::ofFile(database.path()), Mode::ReadWrite);
    // The second row has a number whose absolute value is none.
    auto rows = connection.select("SELECT abs(column1) FROM (VALUES(-1), (-9223372036854775808))");
    QVERIFY(rows);
    QVERIFY(rows->next());
    QVERIFY(connection.isComplete(rows));
    QVERIFY(!rows->next());
    QVERIFY(!connection.isComplete(rows));
    QVERIFY2(connection.error().reason.contains("integer overflow"), qPrintable(connection.error().reason));
}

void TestSqlConnection::aQueryWithoutRowsHasNoFirstOne()
{
    const TestDatabase database;
    database.setBytes({});
    SqlConnection connection(DatabaseLocation::ofFile(database.path()), Mode::ReadWrite);
    QVERIFY(!connection.selectOne("SELECT 1 WHERE 0").isValid());
    QCOMPARE(connection.selectOne("SELECT 1 WHERE 1").toInt(), 1);
    QVERIFY(!connection.selectOne("SELECT FROM WHERE").isValid());
}

void TestSqlConnection::whatIsLeftOutOfAnAddressIsTheUsual()
{
    const TestServer server;
    // Host, port and user are those that the environment names.
    SqlConnection connection(DatabaseLocation("postgresql:///" + server.location().database()), Mode::ReadWrite);
    QVERIFY2(connection.isOpen(), qPrintable(connection.error().text()));
    QCOMPARE(connection.selectOne("SELECT current_database()").toString(), server.location().database());
    QCOMPARE(connection.selectOne("SHOW port").toString(), qEnvironmentVariable("PGPORT"));
}

void TestSqlConnection::aReaderOnAServerCannotWrite()
{
    const TestServer server;
    server.execute("CREATE TABLE t(a INTEGER)");
    SqlConnection connection(server.location(), Mode::ReadOnly);
    QVERIFY(connection.isOpen());
    QVERIFY(!connection.execute("INSERT INTO t VALUES(1)"));
    QVERIFY2(connection.error().reason.startsWith("База данных доступна только для чтения."),
             qPrintable(connection.error().reason));
    QCOMPARE(connection.selectOne("SHOW lock_timeout").toString(), QString("250ms"));
    QCOMPARE(server.ask("SELECT count(*) FROM t").toInt(), 0);
}

void TestSqlConnection::aServerThatRefusesItsSettingsIsLeft()
{
    const TestServer server;
    // Stands before the one of the server.
    server.execute("CREATE FUNCTION public.current_setting(text) RETURNS text LANGUAGE plpgsql AS "
                   "$$ BEGIN RAISE EXCEPTION 'broken' USING ERRCODE = 'VX001'; END $$");
    server.execute("ALTER DATABASE " + server.location().database() + " SET search_path = public, pg_catalog");
    SqlConnection connection(server.location(), Mode::ReadWrite);
    QVERIFY(!connection.isOpen());
    QVERIFY2(connection.error().reason.contains("VX001"), qPrintable(connection.error().reason));
}

void TestSqlConnection::aServerThatEndsIsToldApartFromAnError()
{
    const TestServer server;
    SqlConnection connection(server.location(), Mode::ReadWrite);
    QVERIFY(!connection.execute("SELECT 1 / 0"));
    QCOMPARE(connection.error().kind, Kind::Refused);
    QVERIFY(!connection.execute("SELECT pg_terminate_backend(pg_backend_pid())"));
    QCOMPARE(connection.error().kind, Kind::Disconnected);
    QVERIFY(!connection.select("SELECT 1"));
    QCOMPARE(connection.error().kind, Kind::Disconnected);
}

QTEST_MAIN(TestSqlConnection)
#include "tst_sqlconnection.moc"
