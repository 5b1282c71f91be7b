#include <host/databaseerror.h>
#include <host/sqlconnection.h>
#include <host/sqlerrorwords.h>
#include <host/sqltransaction.h>

#include "messages.h"
#include "testdatabase.h"

#include <QTest>

using Kind = SqlTransaction::Kind;
using Mode = SqlConnection::Mode;

class TestSqlTransaction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void whatIsNotCommittedIsGone();
    void whatIsCommittedStays();
    void aReaderSeesOneState();
    void aSecondWriterIsRefused();
    void aReadOnlyConnectionDoesNotWrite();
    void anyPathIsOpened_data();
    void anyPathIsOpened();
    void aMissingFileIsNotCreated_data();
    void aMissingFileIsNotCreated();
    void connectionsAreRemoved();
    void errorsAreExplained_data();
    void errorsAreExplained();

private:
    int count(const TestDatabase &database)
    {
        SqlConnection connection(DatabaseLocation::ofFile(database.path()), Mode::ReadWrite);
        return connection.selectOne("SELECT count(*) FROM t").toInt();
    }
    void makeTable(const TestDatabase &database)
    {
        database.setBytes({});
        database.execute("PRAGMA journal_mode = WAL");
        database.execute("CREATE TABLE t(a)");
    }
};

void TestSqlTransaction::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSqlTransaction::whatIsNotCommittedIsGone()
{
    const TestDatabase database;
    makeTable(database);
    SqlConnection connection(DatabaseLocation::ofFile(database.path()), Mode::ReadWrite);
    {
        const SqlTransaction transaction(connection, Kind::Write);
        QVERIFY(transaction.isActive());
        QVERIFY(connection.execute("INSERT INTO t VALUES(1)"));
    }
    QCOMPARE(count(database), 0);
}

void TestSqlTransaction::whatIsCommittedStays()
{
    const TestDatabase database;
    makeTable(database);
    SqlConnection connection(DatabaseLocation::ofFile(database.path()), Mode::ReadWrite);
    {
        SqlTransaction transaction(connection, Kind::Write);
        QVERIFY(connection.execute("INSERT INTO t VALUES(1)"));
        QVERIFY(transaction.commit());
        QVERIFY(!transaction.isActive());
        QVERIFY(!transaction.commit());
    }
    QCOMPARE(count(database), 1);
}

void TestSqlTransaction::aReaderSeesOneState()
{
    const TestDatabase database;
    makeTable(database);
    SqlConnection reader(DatabaseLocation::ofFile(database.path()), Mode::ReadWrite);
    const SqlTransaction transaction(reader, Kind::Read);
    QCOMPARE(reader.selectOne("SELECT count(*) FROM t").toInt(), 0);
    database.execute("INSERT INTO t VALUES(1)");
    QCOMPARE(reader.selectOne("SELECT count(*) FROM t").toInt(), 0);
    QCOMPARE(count(database), 1);
}

void TestSqlTransaction::aSecondWriterIsRefused()
{
    const TestDatabase database;
    makeTable(database);
    SqlConnection first(DatabaseLocation::ofFile(database.path()), Mode::ReadWrite);
    SqlConnection second(DatabaseLocation::ofFile(database.path()), Mode::ReadWrite);
    const SqlTransaction writing(first, Kind::Write);
    SqlTransaction waiting(second, Kind::Write);
    QVERIFY(!waiting.isActive());
    QVERIFY(!waiting.commit());
    QCOMPARE(second.error().reason, QString("База данных занята другой программой. (SQLite: database is locked)"));
}

void TestSqlTransaction::aReadOnlyConnectionDoesNotWrite()
{
    const TestDatabase database;
    makeTable(database);
    const QByteArray before = database.bytes();
    {
        SqlConnection connection(DatabaseLocation::ofFile(database.path()), Mode::ReadOnly);
        QVERIFY(connection.isOpen());
        QVERIFY(!connection.execute("INSERT INTO t VALUES(1)"));
        QVERIFY(connection.error().reason.startsWith("База данных доступна только для чтения."));
    }
    QCOMPARE(database.bytes(), before);
}

void TestSqlTransaction::anyPathIsOpened_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "x.db";
    QTest::newRow("Cyrillic and blanks") << "база данных.db";
    QTest::newRow("what means something in a URI") << "50%20a?mode=memory#b&c=d;e.db";
    QTest::newRow("quotes") << "'\"`.db";
}

void TestSqlTransaction::anyPathIsOpened()
{
    QFETCH(QString, name);
    const TestDatabase database;
    makeTable(database);
    const QString path = database.folder() + "/" + name;
    QVERIFY(QFile::rename(database.path(), path));
    SqlConnection connection(DatabaseLocation::ofFile(path), Mode::ReadWrite);
    QCOMPARE(connection.location().filePath(), path);
    QVERIFY(connection.execute("INSERT INTO t VALUES(1)"));
    QCOMPARE(SqlConnection(DatabaseLocation::ofFile(path), Mode::ReadOnly).selectOne("SELECT count(*) FROM t").toInt(),
             1);
}

void TestSqlTransaction::aMissingFileIsNotCreated_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("to read") << int(Mode::ReadOnly);
    QTest::newRow("to write") << int(Mode::ReadWrite);
}

void TestSqlTransaction::aMissingFileIsNotCreated()
{
    QFETCH(int, mode);
    const TestDatabase database;
    {
        SqlConnection connection(DatabaseLocation::ofFile(database.path()), Mode(mode));
        QVERIFY(!connection.isOpen() || !connection.selectOne("SELECT 1 FROM sqlite_master").isValid());
        QVERIFY(!connection.error().reason.isEmpty());
    }
    QCOMPARE(database.files(), QStringList());
}

void TestSqlTransaction::connectionsAreRemoved()
{
    const TestDatabase database;
    makeTable(database);
    QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    {
        const SqlConnection connection(DatabaseLocation::ofFile(database.path()), Mode::ReadWrite);
        QCOMPARE(QSqlDatabase::connectionNames().count(), 1);
    }
    QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
}

void TestSqlTransaction::errorsAreExplained_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("reason");

    QTest::newRow("corrupt") << "11"
                             << "Файл базы данных повреждён. (SQLite: said so)";
    QTest::newRow("an extended code of it") << "267"
                                            << "Файл базы данных повреждён. (SQLite: said so)";
    QTest::newRow("full") << "13"
                          << "На диске нет места. (SQLite: said so)";
    QTest::newRow("no database") << "26"
                                 << "Файл не является базой данных. (SQLite: said so)";
    QTest::newRow("unknown") << "99"
                             << "Ошибка базы данных. (SQLite: said so)";
    QTest::newRow("none") << ""
                          << "Ошибка базы данных. (SQLite: said so)";
}

void TestSqlTransaction::errorsAreExplained()
{
    QFETCH(QString, code);
    const QSqlError driverError("driver text", "said so", QSqlError::StatementError, code);
    const DatabaseError error = SqlErrorWords::error(DatabaseLocation("/the/path"), driverError, false);
    QTEST(error.reason, "reason");
    QVERIFY(!error.advice.isEmpty());
    QCOMPARE(error.text(),
             QString("Не удаётся использовать базу данных «/the/path».\n%1\n%2").arg(error.reason, error.advice));
}

QTEST_MAIN(TestSqlTransaction)
#include "tst_sqltransaction.moc"
