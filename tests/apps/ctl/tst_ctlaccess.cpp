#include "ctlprogram.h"
#include "messages.h"

#include <host/pageaccess.h>

#include <vxsettings/dbkeys.h>

#include <QTest>

using namespace db::database;

/// What operators may not change, on the command line.
class TestCtlAccess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }
    void onlyAnAdministratorSetsFlags();
    void aLockedPageIsRefused_data();
    void aLockedPageIsRefused();
    void anAdministratorChangesItAllTheSame();
    void flagsAreReadAsTheyAreStored();
    void describeTellsTheFlags();
    void checkTellsWhatIsWrongWithThem();
    void aTextThatCannotBeReadIsSetAsAWhole();
    void anExportComesBack();
};

namespace {

const QString connectionLocked = R"({"checked": true, "connection": false})";
} // namespace

void TestCtlAccess::onlyAnAdministratorSetsFlags()
{
    const SampleDatabase database;
    CtlProgram refused(database, {"set", "VX_PAGE_ACCESS.connection=нет"});
    QCOMPARE(refused.run(), 3);
    QVERIFY2(refused.err.contains("--as-administrator"), qPrintable(refused.err));
    QVERIFY(!database.settings().contains(PageAccess::KEY));

    CtlProgram done(database, {"set", "--as-administrator", "VX_PAGE_ACCESS.connection=нет"});
    QCOMPARE(done.run(), 0);
    QVERIFY2(done.out.contains("закрыты: «Настройки подключения»"), qPrintable(done.out));
    QCOMPARE(database.stored(PageAccess::KEY), QString("{\n    \"checked\": true,\n    \"connection\": false\n}\n"));
}

void TestCtlAccess::aLockedPageIsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("set") << QStringList{"set", "PT_MOBILE_PORT=9443"};
    QTest::newRow("with another page") << QStringList{"set", "PT_MOBILE_PORT=9443", "PT_USER_SESSION_COUNT=3"};
    QTest::newRow("a trial") << QStringList{"set", "--dry-run", "PT_MOBILE_PORT=9443"};
    QTest::newRow("repair") << QStringList{"check", "--repair"};
    QTest::newRow("restore") << QStringList{"restore", "PT_MOBILE_PORT@1"};
}

void TestCtlAccess::aLockedPageIsRefused()
{
    QFETCH(QStringList, arguments);
    const SampleDatabase database;
    QCOMPARE(CtlProgram(database, {"set", "PT_MOBILE_PORT=8500"}).run(), 0);
    database.store(PageAccess::KEY, connectionLocked);
    database.store(MOBILE_PORT, "70000"); // out of range, so that there is something to repair
    const auto before = database.settings();

    CtlProgram program(database, arguments);
    QCOMPARE(program.run(), 3);
    QVERIFY2(program.err.contains("«Настройки подключения»"), qPrintable(program.err));
    QCOMPARE(database.settings(), before);
    arguments << "--json";
    CtlProgram json(database, arguments);
    QCOMPARE(json.run(), 3);
    QCOMPARE(json.json()["status"].toInt(), 3);
}

void TestCtlAccess::anAdministratorChangesItAllTheSame()
{
    const SampleDatabase database;
    database.store(PageAccess::KEY, connectionLocked);
    QCOMPARE(CtlProgram(database, {"set", "--as-administrator", "PT_MOBILE_PORT=9443"}).run(), 0);
    QCOMPARE(database.stored(MOBILE_PORT), QString("9443"));
}

void TestCtlAccess::flagsAreReadAsTheyAreStored()
{
    const SampleDatabase database;
    CtlProgram missing(database, {"get", "VX_PAGE_ACCESS"});
    QCOMPARE(missing.run(), 1);
    QVERIFY2(missing.err.contains("не задана"), qPrintable(missing.err));

    database.store(PageAccess::KEY, connectionLocked);
    CtlProgram whole(database, {"get", "VX_PAGE_ACCESS"});
    QCOMPARE(whole.run(), 0);
    QCOMPARE(whole.out, connectionLocked + '\n');
    CtlProgram flag(database, {"get", "VX_PAGE_ACCESS.connection"});
    QCOMPARE(flag.run(), 0);
    QCOMPARE(flag.out, QString("false\n"));
    CtlProgram list(database, {"list", "--json"});
    QCOMPARE(list.run(), 0);
    QCOMPARE(list.row("VX_PAGE_ACCESS")["caption"].toString(), QString("Доступ операторов к страницам"));
}

void TestCtlAccess::describeTellsTheFlags()
{
    const SampleDatabase database;
    CtlProgram text(database, {"describe", "VX_PAGE_ACCESS"});
    QCOMPARE(text.run(), 0);
    QVERIFY(text.out.contains("VX_PAGE_ACCESS.connection"));
    QVERIFY(text.out.contains("--as-administrator"));
    CtlProgram json(database, {"describe", "--json", "VX_PAGE_ACCESS"});
    QCOMPARE(json.run(), 0);
    QCOMPARE(json.json()["members"].toArray().size(), 12);
}

void TestCtlAccess::checkTellsWhatIsWrongWithThem()
{
    const SampleDatabase database;
    database.store(PageAccess::KEY, connectionLocked);
    CtlProgram good(database, {"check", "--json"});
    QCOMPARE(good.run(), 0);
    QVERIFY(good.row("VX_PAGE_ACCESS").isEmpty());

    database.store(PageAccess::KEY, "[]");
    CtlProgram spoilt(database, {"check", "--json"});
    QCOMPARE(spoilt.run(), 1);
    QCOMPARE(spoilt.row("VX_PAGE_ACCESS")["problem"].toString(), QString("not-a-json-object"));
    QCOMPARE(CtlProgram(database, {"check", "--repair", "--as-administrator"}).run(), 1);
    QCOMPARE(database.stored(PageAccess::KEY), QString("[]")); // which pages to open is for a person to say
}

void TestCtlAccess::aTextThatCannotBeReadIsSetAsAWhole()
{
    const SampleDatabase database;
    database.store(PageAccess::KEY, "[]");
    CtlProgram refused(database, {"set", "--as-administrator", "VX_PAGE_ACCESS.users=да"});
    QCOMPARE(refused.run(), 3);
    QVERIFY2(refused.err.contains("Задайте VX_PAGE_ACCESS целиком"), qPrintable(refused.err));
    QCOMPARE(database.stored(PageAccess::KEY), QString("[]"));
    QCOMPARE(CtlProgram(database, {"set", "--as-administrator", "VX_PAGE_ACCESS={\"users\": false}"}).run(), 0);
    QCOMPARE(database.stored(PageAccess::KEY), QString("{\"users\": false}"));
}

void TestCtlAccess::anExportComesBack()
{
    const SampleDatabase database;
    database.store(PageAccess::KEY, connectionLocked);
    QCOMPARE(CtlProgram(database, {"export", "settings.json"}).run(), 0);
    // The same flags are no change, whoever imports them.
    QCOMPARE(CtlProgram(database, {"import", "settings.json"}).run(), 0);

    database.store(PageAccess::KEY, "{}");
    CtlProgram refused(database, {"import", "settings.json"});
    QCOMPARE(refused.run(), 3);
    QVERIFY2(refused.err.contains("--as-administrator"), qPrintable(refused.err));
    QCOMPARE(CtlProgram(database, {"import", "--as-administrator", "settings.json"}).run(), 0);
    QCOMPARE(database.stored(PageAccess::KEY), connectionLocked);
}

QTEST_MAIN(TestCtlAccess)
#include "tst_ctlaccess.moc"
