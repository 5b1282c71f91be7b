#include "awaitedfile.h"
#include "ctlprogram.h"
#include "messages.h"

#include <vxsettings/dbkeys.h>

#include <QTest>

using namespace db::database;

class TestCtlConflict : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aChangeFromElsewhereStopsTheSave_data();
    void aChangeFromElsewhereStopsTheSave();
    void theOtherIsNamed();
    void aChangeOfAnotherSettingDoesNot();
    void aWriterThatDoesNotEnd();
    void theWaitingCanBeEnded_data();
    void theWaitingCanBeEnded();
    void aShortWaitIsNotWorthAWord();
    void twoProgramsLoseNoUpdate();
    void onlyOneMakesTheDatabase();
};

void TestCtlConflict::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestCtlConflict::aChangeFromElsewhereStopsTheSave_data()
{
    QTest::addColumn<bool>("asJson");
    QTest::newRow("for people") << false;
    QTest::newRow("for programs") << true;
}

void TestCtlConflict::aChangeFromElsewhereStopsTheSave()
{
    QFETCH(bool, asJson);
    const SampleDatabase database;
    AwaitedFile file(database.folder() + "/settings.json");
    CtlProgram program(database, {"import", "settings.json"});
    if (asJson)
        program.setArguments({"import", "settings.json", "--json"});
    program.start();
    QTRY_VERIFY(file.isAwaited());
    database.store(MOBILE_PORT, "4711");
    database.store(PASSWORD_DEF, "Geheim-theirs");
    const auto before = database.settings();
    file.finish(AwaitedFile::document({{MOBILE_PORT, "1"}, {MOBILE_HOST, "mine"}, {PASSWORD_DEF, "Geheim-mine"}}));
    QCOMPARE(program.finish(), 4);
    QCOMPARE(database.settings(), before);

    for (const char *part : {"PT_MOBILE_PORT", "8443", "4711", "«1»", "PT_PASSWORD_DEF", "скрыто"})
        QVERIFY2(program.err.contains(part), qPrintable(program.err));
    for (const char *secret : {"Geheim", "Vhod-2024"})
        QVERIFY2(!(program.out + program.err).contains(secret), qPrintable(program.out + program.err));
    QVERIFY2(!program.err.contains("PT_MOBILE_HOST"), "nobody else has changed it");
    if (!asJson)
        return;
    const QJsonArray conflicts = program.json()["conflicts"].toArray();
    QCOMPARE(conflicts.size(), 2);
    QJsonObject port = conflicts[0]["key"] == MOBILE_PORT ? conflicts[0].toObject() : conflicts[1].toObject();
    QVERIFY2(!port.take("at").toString().isEmpty(), "the database itself knows when");
    // Who has written past all programs of this project is not known.
    const QJsonObject expected{{"key", MOBILE_PORT}, {"base", "8443"},         {"theirs", "4711"},
                               {"mine", "1"},        {"by", QJsonValue::Null}, {"workstation", QJsonValue::Null}};
    QCOMPARE(port, expected);
    QCOMPARE(program.json()["status"].toInt(), 4);
}

void TestCtlConflict::theOtherIsNamed()
{
    const SampleDatabase database;
    AwaitedFile file(database.folder() + "/settings.json");
    CtlProgram program(database, {"import", "settings.json", "--json"});
    program.start();
    QTRY_VERIFY(file.isAwaited());
    CtlProgram other(database, {"set", "PT_MOBILE_PORT=4711"});
    QCOMPARE(other.run(), 0);
    file.finish(AwaitedFile::document({{MOBILE_PORT, "1"}}));
    QCOMPARE(program.finish(), 4);

    const ChangeStamp me = ChangeStamp::now();
    const QJsonObject port = program.json()["conflicts"][0].toObject();
    QCOMPARE(port["theirs"].toString(), QString("4711"));
    QCOMPARE(port["by"].toString(), me.by);
    QCOMPARE(port["workstation"].toString(), me.workstation);
    const auto at = QDateTime::fromString(port["at"].toString(), Qt::ISODateWithMs);
    QVERIFY2(port["at"].toString().endsWith('Z'), qPrintable(port["at"].toString()));
    QVERIFY(qAbs(at.secsTo(me.at)) < 60);
    QVERIFY2(program.err.contains(me.by + '@' + me.workstation), qPrintable(program.err));
}

void TestCtlConflict::aChangeOfAnotherSettingDoesNot()
{
    const SampleDatabase database;
    AwaitedFile file(database.folder() + "/settings.json");
    CtlProgram program(database, {"import", "settings.json"});
    program.start();
    QTRY_VERIFY(file.isAwaited());
    database.store(MOBILE_PORT, "4711");
    file.finish(AwaitedFile::document({{MOBILE_HOST, "mine"}}));
    QCOMPARE(program.finish(), 0);
    QCOMPARE(database.stored(MOBILE_PORT), QString("4711"));
    QCOMPARE(database.stored(MOBILE_HOST), QString("mine"));
}

void TestCtlConflict::aWriterThatDoesNotEnd()
{
    const SampleDatabase database;
    SqlConnection writer(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
    QVERIFY(writer.execute("BEGIN IMMEDIATE"));
    CtlProgram program(database, {"set", "PT_MOBILE_PORT=1"});
    QCOMPARE(program.run(), 5);
    QCOMPARE(program.err.count("ожидание…"), 1);
    QVERIFY2(program.err.contains("занята другой программой"), qPrintable(program.err));
    QVERIFY(writer.execute("ROLLBACK"));
    QCOMPARE(database.stored(MOBILE_PORT), QString("8443"));
}

void TestCtlConflict::theWaitingCanBeEnded_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("by Ctrl+C") << SIGINT;
    QTest::newRow("by the system") << SIGTERM;
}

void TestCtlConflict::theWaitingCanBeEnded()
{
    QFETCH(int, signal);
    const SampleDatabase database;
    SqlConnection writer(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
    QVERIFY(writer.execute("BEGIN IMMEDIATE"));
    CtlProgram program(database, {"set", "PT_MOBILE_PORT=1"});
    program.start();
    QTRY_VERIFY(program.hasSaid("ожидание…"));
    program.interrupt(signal);
    QCOMPARE(program.finish(), 5);
    QVERIFY2(program.err.contains("Ожидание прервано"), qPrintable(program.err));
    QVERIFY(writer.execute("ROLLBACK"));
    QCOMPARE(database.stored(MOBILE_PORT), QString("8443"));
}

void TestCtlConflict::aShortWaitIsNotWorthAWord()
{
    const SampleDatabase database;
    AwaitedFile file(database.folder() + "/settings.json");
    CtlProgram program(database, {"import", "settings.json"});
    program.start();
    QTRY_VERIFY(file.isAwaited());
    SqlConnection writer(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
    QVERIFY(writer.execute("BEGIN IMMEDIATE"));
    file.finish(AwaitedFile::document({{MOBILE_PORT, "1"}}));
    QTest::qWait(200); // for the program to find the lock, which nobody outside can see
    QVERIFY(writer.execute("ROLLBACK"));
    QCOMPARE(program.finish(), 0);
    QCOMPARE(program.err, QString());
    QCOMPARE(database.stored(MOBILE_PORT), QString("1"));
}

void TestCtlConflict::twoProgramsLoseNoUpdate()
{
    const SampleDatabase database;
    QString minimum = "4";
    QString maximum = "8";
    int conflicts = 0;
    constexpr int rounds = 40;
    for (int round = 0; round < rounds; ++round) {
        // Both rewrite the same JSON text: whoever overwrote the other's unseen would lose its member.
        const QString newMinimum = QString::number(1 + round % 5);
        const QString newMaximum = QString::number(10 + round % 7);
        CtlProgram left(database, {"set", "PT_PIN_STRENGTH.min_len=" + newMinimum});
        CtlProgram right(database, {"set", "PT_PIN_STRENGTH.max_len=" + newMaximum});
        left.start();
        right.start();
        const int leftStatus = left.finish();
        const int rightStatus = right.finish();
        QVERIFY2(leftStatus == 0 || leftStatus == 4, qPrintable(left.err));
        QVERIFY2(rightStatus == 0 || rightStatus == 4, qPrintable(right.err));
        QVERIFY2(leftStatus == 0 || rightStatus == 0, "one of two always comes first");
        minimum = leftStatus == 0 ? newMinimum : minimum;
        maximum = rightStatus == 0 ? newMaximum : maximum;
        conflicts += (leftStatus == 4) + (rightStatus == 4);
        const QJsonObject stored = QJsonDocument::fromJson(database.stored(PIN_STRENGTH).toUtf8()).object();
        QCOMPARE(stored["min_len"].toString(), minimum);
        QCOMPARE(stored["max_len"].toString(), maximum);
    }
    qInfo("%d rounds of two programs at once: %d refused because of the other, no update lost", rounds, conflicts);
}

void TestCtlConflict::onlyOneMakesTheDatabase()
{
    constexpr int rounds = 25;
    for (int round = 0; round < rounds; ++round) {
        const TestDatabase database;
        CtlProgram withSample(database, {"init", "--sample"});
        CtlProgram withNothing(database, {"init"});
        withSample.start();
        withNothing.start();
        const int sampleStatus = withSample.finish();
        const int emptyStatus = withNothing.finish();
        QVERIFY2((sampleStatus == 0 && emptyStatus == 5) || (sampleStatus == 5 && emptyStatus == 0),
                 qPrintable(withSample.out + withSample.err + withNothing.out + withNothing.err));
        QCOMPARE(database.settings().size(), sampleStatus == 0 ? 41 : 0);
        QCOMPARE(database.files(), QStringList{"installation.db"});
    }
}

QTEST_MAIN(TestCtlConflict)
#include "tst_ctlconflict.moc"
