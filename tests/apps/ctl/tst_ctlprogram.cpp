#include "ctlprogram.h"
#include "messages.h"

#include <QTest>

class TestCtlProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void helpAndVersion_data();
    void helpAndVersion();
    void usageErrors_data();
    void usageErrors();
    void aDatabaseIsOnlyMadeByInit_data();
    void aDatabaseIsOnlyMadeByInit();
    void badDatabasesStayAsTheyAre_data();
    void badDatabasesStayAsTheyAre();
    void theOptionGoesBeforeTheEnvironment();
    void theLocaleDoesNotMatter();
    void anOutputThatIsFull();
    void failuresAreOneDocumentToo_data();
    void failuresAreOneDocumentToo();
};

void TestCtlProgram::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestCtlProgram::helpAndVersion_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("part");
    QTest::newRow("help") << QStringList{"--help"} << "Коды завершения:\n  0  выполнено";
    QTest::newRow("short") << QStringList{"-h"} << "Использование: vxsettingsctl [ПАРАМЕТРЫ] КОМАНДА";
    QTest::newRow("of a command") << QStringList{"import", "--help"} << "[ПАРАМЕТРЫ] import ФАЙЛ\n";
    QTest::newRow("before the command") << QStringList{"--help", "check"} << "[ПАРАМЕТРЫ] check\n";
    QTest::newRow("of no command") << QStringList{"destroy", "--help"} << "Команды:";
    QTest::newRow("version") << QStringList{"--version"} << "vxsettingsctl ";
}

void TestCtlProgram::helpAndVersion()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, part);
    const TestDatabase nothing;
    CtlProgram program(nothing, arguments);
    QCOMPARE(program.run(), 0);
    QVERIFY2(program.out.contains(part), qPrintable(program.out));
    QCOMPARE(program.err, QString());
    QCOMPARE(nothing.files(), QStringList());
}

void TestCtlProgram::usageErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("nothing") << QStringList{};
    QTest::newRow("unknown command") << QStringList{"destroy"};
    QTest::newRow("unknown option") << QStringList{"list", "--no-such"};
    QTest::newRow("another kind of server") << QStringList{"list", "--database", "mysql://vx@host/settings"};
    QTest::newRow("another kind of server to create") << QStringList{"init", "--database", "mysql://vx@host/settings"};
    QTest::newRow("no value to set") << QStringList{"set", "PT_MOBILE_PORT"};
    QTest::newRow("no key to set") << QStringList{"set", "=1"};
    QTest::newRow("a key twice") << QStringList{"set", "PT_MOBILE_PORT=1", "PT_MOBILE_PORT=2"};
    QTest::newRow("a key and its member") << QStringList{"set", "PT_PIN_STRENGTH.min_len=4", "PT_PIN_STRENGTH={}"};
    QTest::newRow("a value beside the input") << QStringList{"set", "--stdin", "PT_MOBILE_HOST=x"};
    QTest::newRow("no revision to restore") << QStringList{"restore", "PT_MOBILE_PORT"};
    QTest::newRow("a revision that is no number") << QStringList{"restore", "PT_MOBILE_PORT@x"};
    QTest::newRow("revision 0") << QStringList{"restore", "PT_MOBILE_PORT@0"};
    QTest::newRow("a revision of a member") << QStringList{"restore", "PT_PIN_STRENGTH.min_len@1"};
    QTest::newRow("a revision of nothing") << QStringList{"restore", "@1"};
    QTest::newRow("a reason to read") << QStringList{"list", "--reason", "x"};
    QTest::newRow("two keys from the input") << QStringList{"set", "--stdin", "PT_MOBILE_HOST", "PT_MOBILE_PORT"};
}

void TestCtlProgram::usageErrors()
{
    QFETCH(QStringList, arguments);
    const SampleDatabase database;
    const auto before = database.settings();
    CtlProgram program(database, arguments);
    QCOMPARE(program.run(), 2);
    QCOMPARE(program.out, QString());
    QVERIFY(!program.err.isEmpty());
    QCOMPARE(database.settings(), before);
}

void TestCtlProgram::aDatabaseIsOnlyMadeByInit_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("list") << QStringList{"list"};
    QTest::newRow("get") << QStringList{"get", "PT_MOBILE_PORT"};
    QTest::newRow("set") << QStringList{"set", "PT_MOBILE_PORT=1"};
    QTest::newRow("check") << QStringList{"check", "--repair"};
    QTest::newRow("export") << QStringList{"export", "x.json"};
    QTest::newRow("import") << QStringList{"import", "x.json"};
    QTest::newRow("diff") << QStringList{"diff", "x.json"};
    QTest::newRow("history") << QStringList{"history"};
    QTest::newRow("restore") << QStringList{"restore", "PT_MOBILE_PORT@1"};
    QTest::newRow("watch") << QStringList{"watch"};
}

void TestCtlProgram::aDatabaseIsOnlyMadeByInit()
{
    QFETCH(QStringList, arguments);
    const TestDatabase nothing;
    CtlProgram program(nothing, arguments);
    QCOMPARE(program.run(), 5);
    QCOMPARE(program.out, QString());
    QVERIFY2(program.err.contains(nothing.path()), qPrintable(program.err));
    QVERIFY2(program.err.contains("vxsettingsctl init"), qPrintable(program.err));
    QCOMPARE(nothing.files(), QStringList());
}

void TestCtlProgram::badDatabasesStayAsTheyAre_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("a text") << QByteArray("PT_MOBILE_PORT=8443\n");
    QTest::newRow("a broken database") << QByteArray("SQLite format 3\0", 16) + QByteArray(4080, 'x');
}

void TestCtlProgram::badDatabasesStayAsTheyAre()
{
    QFETCH(QByteArray, bytes);
    const TestDatabase database;
    database.setBytes(bytes);
    CtlProgram program(database, {"set", "PT_MOBILE_PORT=1"});
    QCOMPARE(program.run(), 5);
    QVERIFY2(program.err.contains(database.path()), qPrintable(program.err));
    QCOMPARE(database.bytes(), bytes);
}

void TestCtlProgram::theOptionGoesBeforeTheEnvironment()
{
    const SampleDatabase database;
    const SampleDatabase other;
    other.store("PT_MOBILE_PORT", "4711");
    for (const QString &url : {other.path(), "sqlite:" + other.path()}) {
        CtlProgram program(database, {"get", "PT_MOBILE_PORT", "--database", url});
        QCOMPARE(program.run(), 0);
        QCOMPARE(program.out, QString("4711\n"));
    }
    CtlProgram program(database, {"get", "PT_MOBILE_PORT"});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.out, QString("8443\n"));
}

void TestCtlProgram::theLocaleDoesNotMatter()
{
    const SampleDatabase database;
    CtlProgram program(database, {"set", "PT_MOBILE_HOST=хост", "PT_CARD_VIEW_FORMAT=Десятичный"});
    QProcessEnvironment environment = program.processEnvironment();
    environment.insert("LC_ALL", "C");
    program.setProcessEnvironment(environment);
    QCOMPARE(program.run(), 0);
    QCOMPARE(database.stored("PT_MOBILE_HOST"), QString("хост"));
    QCOMPARE(database.stored("PT_CARD_VIEW_FORMAT"), QString("0"));
}

void TestCtlProgram::anOutputThatIsFull()
{
    const SampleDatabase database;
    CtlProgram program(database, {"list"});
    program.setStandardOutputFile("/dev/full");
    QCOMPARE(program.run(), 5);
}

void TestCtlProgram::failuresAreOneDocumentToo_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::newRow("nothing found") << QStringList{"get", "PT_NO_SUCH"} << 1;
    QTest::newRow("usage") << QStringList{"destroy"} << 2;
    QTest::newRow("invalid value") << QStringList{"set", "PT_MOBILE_PORT=x"} << 3;
    QTest::newRow("no database") << QStringList{"list", "--database", "no-such.db"} << 5;
    QTest::newRow("no file") << QStringList{"diff", "no-such.json"} << 5;
}

void TestCtlProgram::failuresAreOneDocumentToo()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    const SampleDatabase database;
    CtlProgram program(database, arguments + QStringList{"--json"});
    QCOMPARE(program.run(), status);
    const QJsonObject json = program.json().object();
    QCOMPARE(json["status"].toInt(), status);
    QVERIFY(!json["error"].toString().isEmpty());
    QCOMPARE(program.err.trimmed(), json["error"].toString());
}

QTEST_MAIN(TestCtlProgram)
#include "tst_ctlprogram.moc"
