#include "ctlprogram.h"
#include "messages.h"

#include <vxsettings/dbkeys.h>

#include <QTest>

using namespace db::database;

namespace {

/// The program while it watches.
class WatchingProgram : public CtlProgram
{
public:
    WatchingProgram(const TestDatabase &database, const QStringList &options = {})
        : CtlProgram(database, QStringList{"watch"} + options)
    {
        start();
    }
    bool isWatching() { return hasSaid("Наблюдение"); }
    QStringList lines()
    {
        takeOutput();
        return out.split('\n', Qt::SkipEmptyParts);
    }
};

void change(const TestDatabase &database, const QStringList &arguments, const QByteArray &input = {})
{
    CtlProgram program(database, arguments);
    if (program.run(input) != 0)
        throw std::runtime_error(program.err.toStdString());
}

QJsonObject document(const QString &line)
{
    return QJsonDocument::fromJson(line.toUtf8()).object();
}
} // namespace

class TestCtlWatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void endsWhenItIsTold_data();
    void endsWhenItIsTold();
    void changesAreToldAsTheyCome();
    void eachChangeIsADocument();
    void secretsAreNotTold();
    void noChangeIsLeftOut();
    void changesPastTheHistory();
    void anOutputThatIsFull();
};

void TestCtlWatch::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestCtlWatch::endsWhenItIsTold_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("by Ctrl+C") << SIGINT;
    QTest::newRow("by the system") << SIGTERM;
}

void TestCtlWatch::endsWhenItIsTold()
{
    QFETCH(int, signal);
    const SampleDatabase database;
    WatchingProgram program(database);
    QTRY_VERIFY(program.isWatching());
    QVERIFY2(program.err.contains(database.path()), qPrintable(program.err));
    program.interrupt(signal);
    QCOMPARE(program.finish(), 0);
    QCOMPARE(program.out, QString());
}

void TestCtlWatch::changesAreToldAsTheyCome()
{
    const SampleDatabase database;
    WatchingProgram program(database);
    QTRY_VERIFY(program.isWatching());
    change(database, {"set", "PT_MOBILE_PORT=9443", "--reason", "Переезд"});
    QTRY_COMPARE(program.lines().size(), 1);
    const ChangeStamp me = ChangeStamp::now();
    const QString end = QString("  %1@%2  PT_MOBILE_PORT: «8443» → «9443» (Переезд)").arg(me.by, me.workstation);
    QVERIFY2(program.lines()[0].endsWith(end), qPrintable(program.out));
    change(database, {"set", "PT_PIN_STRENGTH.min_len=5", "PT_PIN_STRENGTH.max_len=9"});
    QTRY_COMPARE(program.lines().size(), 3);
    QVERIFY2(program.lines()[1].endsWith("PT_PIN_STRENGTH.max_len: «8» → «9»"), qPrintable(program.out));
    QVERIFY2(program.lines()[2].endsWith("PT_PIN_STRENGTH.min_len: «4» → «5»"), qPrintable(program.out));
    program.interrupt();
    QCOMPARE(program.finish(), 0);
}

void TestCtlWatch::eachChangeIsADocument()
{
    const SampleDatabase database;
    WatchingProgram program(database, {"--json"});
    QTRY_VERIFY(program.isWatching());
    change(database, {"set", "PT_MOBILE_PORT=9443", "PT_MOBILE_HOST=a\u2028b", "--reason", "Переезд"});
    QTRY_COMPARE(program.lines().size(), 2);
    program.interrupt();
    QCOMPARE(program.finish(), 0);

    CtlProgram history(database, {"history", "--json"});
    QCOMPARE(history.run(), 0);
    const QJsonArray told{document(program.lines()[0]), document(program.lines()[1])};
    QCOMPARE(told, history.json().array());
}

void TestCtlWatch::secretsAreNotTold()
{
    const SampleDatabase database;
    WatchingProgram forPeople(database);
    WatchingProgram forPrograms(database, {"--json"});
    QTRY_VERIFY(forPeople.isWatching());
    QTRY_VERIFY(forPrograms.isWatching());
    change(database, {"set", "--stdin", PASSWORD_DEF}, "Geheim-1\n");
    QTRY_COMPARE(forPeople.lines().size(), 1);
    QTRY_COMPARE(forPrograms.lines().size(), 1);
    QVERIFY2(forPeople.out.contains("PT_PASSWORD_DEF: скрыто → скрыто"), qPrintable(forPeople.out));
    QCOMPARE(document(forPrograms.lines()[0])["hidden"], QJsonValue(true));
    for (const QString &text : {forPeople.out, forPeople.err, forPrograms.out, forPrograms.err}) {
        for (const char *secret : {"Geheim-1", "Vhod-2024"})
            QVERIFY2(!text.contains(secret), qPrintable(text));
    }
}

void TestCtlWatch::noChangeIsLeftOut()
{
    const SampleDatabase database;
    WatchingProgram program(database, {"--json"});
    QTRY_VERIFY(program.isWatching());
    constexpr int count = 20; // faster than the program looks
    for (int port = 1; port <= count; ++port)
        change(database, {"set", QString("PT_MOBILE_PORT=%1").arg(port)});
    QTRY_COMPARE(program.lines().size(), count);
    for (int port = 1; port <= count; ++port)
        QCOMPARE(document(program.lines()[port - 1])["new"].toString(), QString::number(port));
}

void TestCtlWatch::changesPastTheHistory()
{
    const SampleDatabase database;
    WatchingProgram program(database);
    QTRY_VERIFY(program.isWatching());
    change(database, {"set", "PT_MOBILE_PORT=9443"});
    database.store(MOBILE_PORT, "4711");
    QTRY_COMPARE(program.lines().size(), 2);
    QVERIFY2(program.lines()[1].endsWith("  —  PT_MOBILE_PORT: «9443» → «4711»"), qPrintable(program.out));
    database.execute("DELETE FROM settings WHERE key = 'PT_MOBILE_HOST'");
    QTRY_COMPARE(program.lines().size(), 3);
    QVERIFY2(program.lines()[2].contains("PT_MOBILE_HOST: «mobile.installation.example» → —"), qPrintable(program.out));
    database.store(MOBILE_HOST, "back");
    QTRY_COMPARE(program.lines().size(), 4);
    QVERIFY2(program.lines()[3].contains("PT_MOBILE_HOST: — → «back»"), qPrintable(program.out));
    database.store("PT_NEW\x1b", "\x1b[31m");
    QTRY_COMPARE(program.lines().size(), 5);
    QVERIFY2(!program.out.contains('\x1b'), "a terminal would obey");
}

void TestCtlWatch::anOutputThatIsFull()
{
    const SampleDatabase database;
    CtlProgram program(database, {"watch"});
    program.setStandardOutputFile("/dev/full");
    program.start();
    QTRY_VERIFY(program.hasSaid("Наблюдение"));
    change(database, {"set", "PT_MOBILE_PORT=9443"});
    QCOMPARE(program.finish(), 5);
}

QTEST_MAIN(TestCtlWatch)
#include "tst_ctlwatch.moc"
