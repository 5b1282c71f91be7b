#include <host/databaselocation.h>

#include "messages.h"

#include <QDir>
#include <QStandardPaths>
#include <QTest>

class TestDatabaseLocation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void filePath_data();
    void filePath();
    void isValid_data();
    void isValid();
    void commandLineGoesBeforeEnvironment();
    void environmentGoesBeforeDefault();
    void emptyEnvironmentIsNone();
};

void TestDatabaseLocation::initTestCase()
{
    failOnUnexpectedMessages();
    QStandardPaths::setTestModeEnabled(true);
}

void TestDatabaseLocation::cleanup()
{
    qunsetenv("VXSETTINGS_DATABASE");
}

void TestDatabaseLocation::filePath_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("path");

    QTest::newRow("bare absolute path") << "/var/lib/x.db"
                                        << "/var/lib/x.db";
    QTest::newRow("with scheme") << "sqlite:/var/lib/x.db"
                                 << "/var/lib/x.db";
    QTest::newRow("with scheme and slashes") << "sqlite:///var/lib/x.db"
                                             << "/var/lib/x.db";
    QTest::newRow("relative path") << "x.db" << QDir::currentPath() + "/x.db";
    QTest::newRow("relative path upwards") << "../x.db" << QDir::cleanPath(QDir::currentPath() + "/../x.db");
    QTest::newRow("relative path with scheme") << "sqlite:x.db" << QDir::currentPath() + "/x.db";
    QTest::newRow("home folder") << "sqlite:~/x.db" << QDir::homePath() + "/x.db";
    QTest::newRow("Cyrillic and blanks") << "/база данных/x y.db"
                                         << "/база данных/x y.db";
    QTest::newRow("a colon is no scheme") << "a:b" << QDir::currentPath() + "/a:b";
    QTest::newRow("a name that SQLite takes for something else") << ":memory:" << QDir::currentPath() + "/:memory:";
}

void TestDatabaseLocation::filePath()
{
    QFETCH(QString, url);
    QTEST(DatabaseLocation(url).filePath(), "path");
    QVERIFY(DatabaseLocation(url).isValid());
}

void TestDatabaseLocation::isValid_data()
{
    QTest::addColumn<QString>("url");

    QTest::newRow("another kind of database") << "postgresql://user@host/name";
    QTest::newRow("any other scheme") << "file:///x.db";
    QTest::newRow("no path") << "sqlite:";
    QTest::newRow("empty") << "";
}

void TestDatabaseLocation::isValid()
{
    QFETCH(QString, url);
    QVERIFY(!DatabaseLocation(url).isValid());
    QCOMPARE(DatabaseLocation(url).url(), url);
}

void TestDatabaseLocation::commandLineGoesBeforeEnvironment()
{
    qputenv("VXSETTINGS_DATABASE", "/from/environment.db");
    QCOMPARE(DatabaseLocation::chosen("/from/command/line.db").filePath(), QString("/from/command/line.db"));
}

void TestDatabaseLocation::environmentGoesBeforeDefault()
{
    qputenv("VXSETTINGS_DATABASE", "sqlite:/from/environment.db");
    QCOMPARE(DatabaseLocation::chosen({}).filePath(), QString("/from/environment.db"));
}

void TestDatabaseLocation::emptyEnvironmentIsNone()
{
    qputenv("VXSETTINGS_DATABASE", "");
    const QString dataFolder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    QCOMPARE(DatabaseLocation::chosen({}).filePath(), dataFolder + "/vxsettings/installation.db");
}

QTEST_MAIN(TestDatabaseLocation)
#include "tst_databaselocation.moc"
