#include "ctlprogram.h"
#include "messages.h"

#include <vxsettings/dbkeys.h>

#include <QTest>

using namespace db::database;

class TestCtlCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nothingIsWrong();
    void findings_data();
    void findings();
    void noticesAreNoErrors();
    void checkingWritesNothing();
    void repair();
    void repairThatBringsABrokenRuleToLight();
    void secretsAreNotTold();
};

void TestCtlCheck::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestCtlCheck::nothingIsWrong()
{
    const SampleDatabase database;
    CtlProgram program(database, {"check"});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.out, QString("Ошибок нет.\n"));
    CtlProgram forPrograms(database, {"check", "--json"});
    QCOMPARE(forPrograms.run(), 0);
    QVERIFY(forPrograms.json().isArray());
    QVERIFY(forPrograms.json().array().isEmpty());
}

void TestCtlCheck::findings_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text"); // stored under it
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("problem");
    QTest::newRow("no number") << MOBILE_PORT << "x"
                               << "PT_MOBILE_PORT"
                               << "x"
                               << "not-a-number";
    QTest::newRow("out of range") << MAX_CARD_COUNT << "21"
                                  << "PT_MAX_CARD_COUNT"
                                  << "21"
                                  << "out-of-range";
    QTest::newRow("unknown choice") << CARD_VIEW_FORMAT << "7"
                                    << "PT_CARD_VIEW_FORMAT"
                                    << "7"
                                    << "unknown-choice";
    QTest::newRow("object gone") << DEFAULT_DEPARTMENT << "9"
                                 << "PT_DEFAULT_DEPARTMENT"
                                 << "9"
                                 << "object-gone";
    QTest::newRow("no object") << PIN_STRENGTH << "["
                               << "PT_PIN_STRENGTH"
                               << "["
                               << "not-a-json-object";
    QTest::newRow("a bad member") << PIN_STRENGTH << R"({"min_len": "x"})"
                                  << "PT_PIN_STRENGTH.min_len"
                                  << "x"
                                  << "not-a-number";
    QTest::newRow("broken rule") << PASSWORD_NOTIFY << "91"
                                 << "PT_PASSWORD_NOTIFY"
                                 << "91"
                                 << "broken-rule";
}

void TestCtlCheck::findings()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    QFETCH(QString, address);
    QFETCH(QString, stored);
    QFETCH(QString, problem);
    const SampleDatabase database;
    database.store(key, text);
    CtlProgram forPrograms(database, {"check", "--json"});
    QCOMPARE(forPrograms.run(), 1);
    QCOMPARE(forPrograms.json().array().size(), 1);
    const QJsonObject row = forPrograms.json().array().at(0).toObject();
    QCOMPARE(row["key"].toString(), address);
    QCOMPARE(row["stored"].toString(), stored);
    QCOMPARE(row["problem"].toString(), problem);
    QVERIFY(!row["message"].toString().isEmpty());
    QCOMPARE(row["isError"], QJsonValue(true));
    QCOMPARE(row["isRepaired"], QJsonValue(false));

    CtlProgram program(database, {"check"});
    QCOMPARE(program.run(), 1);
    QVERIFY2(program.out.startsWith("ошибка: " + address + " ("), qPrintable(program.out));
}

void TestCtlCheck::noticesAreNoErrors()
{
    const SampleDatabase database;
    database.store("PT_OTHER\n", "\x1b[2J");
    CtlProgram program(database, {"check"});
    QCOMPARE(program.run(), 0);
    QVERIFY2(program.out.startsWith("замечание: PT_OTHER\\n: «\\u001b[2J»"), qPrintable(program.out));
    QCOMPARE(program.out.count('\n'), 1);
}

void TestCtlCheck::checkingWritesNothing()
{
    const SampleDatabase database;
    database.store(MOBILE_PORT, "x");
    const auto before = database.settings();
    CtlProgram program(database, {"check"});
    QCOMPARE(program.run(), 1);
    QCOMPARE(database.settings(), before);
}

void TestCtlCheck::repair()
{
    const SampleDatabase database;
    database.store(MAX_CARD_COUNT, "21");
    database.store(CARD_VIEW_FORMAT, "7");
    database.store(PIN_STRENGTH, R"({"min_len": "-5", "max_len": "8", "future": [1.50]})");
    database.store("PT_OTHER", "kept");
    auto expected = database.settings();
    expected[MAX_CARD_COUNT] = "20";
    expected[CARD_VIEW_FORMAT] = "0";
    expected.remove(PIN_STRENGTH);

    CtlProgram program(database, {"check", "--repair", "--json"});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.row("PT_MAX_CARD_COUNT")["isRepaired"], QJsonValue(true));
    QCOMPARE(program.row("PT_MAX_CARD_COUNT")["stored"].toString(), QString("21"));
    QCOMPARE(program.row("PT_MAX_CARD_COUNT")["repair"].toString(), QString("20"));
    QCOMPARE(program.row("PT_OTHER")["isRepaired"], QJsonValue(false));

    auto after = database.settings();
    const QString object = after.take(PIN_STRENGTH);
    QCOMPARE(after, expected);
    QVERIFY2(object.contains(R"("min_len": "0")") && object.contains(R"("future": [1.50])"), qPrintable(object));
    CtlProgram again(database, {"check", "--repair"});
    QCOMPARE(again.run(), 0);
    QCOMPARE(database.stored(PIN_STRENGTH), object);
}

void TestCtlCheck::repairThatBringsABrokenRuleToLight()
{
    const SampleDatabase database;
    database.store(PASSWORD_EXPIRED, "x"); // its editor shows less than the notice period
    CtlProgram program(database, {"check", "--repair", "--json"});
    QCOMPARE(program.run(), 1);
    QCOMPARE(program.row("PT_PASSWORD_EXPIRED")["isRepaired"], QJsonValue(true));
    QCOMPARE(program.row("PT_PASSWORD_NOTIFY")["problem"].toString(), QString("broken-rule"));
}

void TestCtlCheck::secretsAreNotTold()
{
    const SampleDatabase database;
    database.store(PASSWORD_DEF, "Geheim\n1");
    for (const QStringList &form : {QStringList{}, QStringList{"--json"}, QStringList{"--repair"}}) {
        CtlProgram program(database, QStringList{"check"} + form);
        QCOMPARE(program.run(), 1);
        QVERIFY2(program.out.contains("PT_PASSWORD_DEF"), qPrintable(program.out));
        QVERIFY2(!(program.out + program.err).contains("Geheim"), qPrintable(program.out));
    }
    QCOMPARE(database.stored(PASSWORD_DEF), QString("Geheim\n1"));
}

QTEST_MAIN(TestCtlCheck)
#include "tst_ctlcheck.moc"
