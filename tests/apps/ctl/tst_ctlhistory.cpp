#include "ctlprogram.h"
#include "messages.h"

#include <host/changestamp.h>

#include <vxsettings/dbkeys.h>

#include <QTest>

using namespace db::database;

namespace {

/// A sample database in which somebody has set the port to 9443 and two members of a JSON setting in one save, then the
/// port to 9444, then a password.
class ChangedDatabase : public SampleDatabase
{
public:
    ChangedDatabase()
    {
        run({"set", "PT_MOBILE_PORT=9443", "PT_PIN_STRENGTH.min_len=5", "PT_PIN_STRENGTH.max_len=9", "--reason",
             "Переезд"});
        run({"set", "PT_MOBILE_PORT=9444"});
        run({"set", "--stdin", PASSWORD_DEF}, "Geheim-1\n");
    }

private:
    void run(const QStringList &arguments, const QByteArray &input = {}) const
    {
        CtlProgram program(*this, arguments);
        if (program.run(input) != 0)
            throw std::runtime_error(program.err.toStdString());
    }
};

/// The lines of a table without its titles, each without surplus blanks.
QStringList lines(const QString &table)
{
    QStringList lines;
    for (const QString &line : table.split('\n', Qt::SkipEmptyParts))
        lines.append(line.simplified());
    return lines.mid(1);
}
} // namespace

class TestCtlHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void historyForPrograms();
    void historyOfOneSetting();
    void historyOfAMember();
    void historyForPeople();
    void timesAreLocalForPeople();
    void secretsAreNotRemembered();
    void whatHasNoHistory_data();
    void whatHasNoHistory();
    void reasonsAreKept_data();
    void reasonsAreKept();
    void restoreIsANewChange();
    void restoreOfAWholeObject();
    void restoreInAJsonDocument();
    void restoreTriesFirst();
    void restoreOfWhatIsStored();
    void whatCannotBeRestored_data();
    void whatCannotBeRestored();
    void restoreIsJudgedLikeANewValue_data();
    void restoreIsJudgedLikeANewValue();
};

void TestCtlHistory::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestCtlHistory::historyForPrograms()
{
    const ChangedDatabase database;
    CtlProgram program(database, {"history", "--json"});
    QCOMPARE(program.run(), 0);
    const QJsonArray rows = program.json().array();
    QCOMPARE(rows.size(), 4);
    QCOMPARE(rows[0]["save"], rows[1]["save"]);
    QVERIFY(rows[1]["save"] != rows[2]["save"]);
    const QJsonObject first = rows[0]["key"] == MOBILE_PORT ? rows[0].toObject() : rows[1].toObject();
    const ChangeStamp me = ChangeStamp::now();
    const QJsonObject expected{{"key", MOBILE_PORT},    {"old", "8443"},
                               {"new", "9443"},         {"revision", 2},
                               {"by", me.by},           {"workstation", me.workstation},
                               {"at", first["at"]},     {"program", "vxsettingsctl"},
                               {"save", first["save"]}, {"reason", "Переезд"}};
    QCOMPARE(first, expected);
    QVERIFY(!first["save"].toString().isEmpty());
    const auto at = QDateTime::fromString(first["at"].toString(), Qt::ISODateWithMs);
    QVERIFY2(first["at"].toString().endsWith('Z') && qAbs(at.secsTo(me.at)) < 60, qPrintable(at.toString()));
    QCOMPARE(rows[2]["new"].toString(), QString("9444"));
    QCOMPARE(rows[2]["reason"], QJsonValue());
    QCOMPARE(rows[3]["key"].toString(), PASSWORD_DEF);
}

void TestCtlHistory::historyOfOneSetting()
{
    const ChangedDatabase database;
    CtlProgram program(database, {"history", "PT_MOBILE_PORT", "--json"});
    QCOMPARE(program.run(), 0);
    const QJsonArray rows = program.json().array();
    QCOMPARE(rows.size(), 2);
    QCOMPARE(rows[0]["new"].toString(), QString("9443"));
    QCOMPARE(rows[1]["old"].toString(), QString("9443"));
    QCOMPARE(rows[1]["new"].toString(), QString("9444"));
    QCOMPARE(rows[1]["revision"].toInt(), 3);
}

void TestCtlHistory::historyOfAMember()
{
    const ChangedDatabase database;
    CtlProgram program(database, {"history", "PT_PIN_STRENGTH.max_len", "--json"});
    QCOMPARE(program.run(), 0);
    const QJsonArray rows = program.json().array();
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows[0]["key"].toString(), QString("PT_PIN_STRENGTH.max_len"));
    QCOMPARE(rows[0]["old"].toString(), QString("8"));
    QCOMPARE(rows[0]["new"].toString(), QString("9"));

    CtlProgram forPeople(database, {"history", "PT_PIN_STRENGTH.max_len"});
    QCOMPARE(forPeople.run(), 0);
    QCOMPARE(lines(forPeople.out).size(), 1);
    CtlProgram unchanged(database, {"history", "PT_PIN_STRENGTH.deny_equal"});
    QCOMPARE(unchanged.run(), 0);
    QCOMPARE(unchanged.out, QString("Изменений не было.\n"));
}

void TestCtlHistory::historyForPeople()
{
    const ChangedDatabase database;
    CtlProgram program(database, {"history"});
    QCOMPARE(program.run(), 0);
    QVERIFY2(program.out.startsWith("РЕВИЗИЯ"), qPrintable(program.out));
    const QStringList rows = lines(program.out);
    QCOMPARE(rows.size(), 5); // a JSON setting has a line for each member
    const ChangeStamp me = ChangeStamp::now();
    const QString who = me.by + '@' + me.workstation;
    QVERIFY2(rows[3].startsWith("3 ") && rows[3].contains(who + " PT_MOBILE_PORT «9443» «9444» "), qPrintable(rows[3]));
    QVERIFY2(rows[0].endsWith(" Переезд"), qPrintable(rows[0]));
    QVERIFY2(program.out.contains("PT_PIN_STRENGTH.max_len"), qPrintable(program.out));
    QVERIFY2(rows[4].contains("PT_PASSWORD_DEF скрыто скрыто"), qPrintable(rows[4]));
}

void TestCtlHistory::timesAreLocalForPeople()
{
    const SampleDatabase database;
    database.execute("INSERT INTO history(save_id, key, revision, old_value, new_value, changed_at, changed_by, "
                     "workstation, program) VALUES('s', 'PT_MOBILE_PORT', 2, '1', '2', '2026-01-31T22:15:16.123Z', "
                     "'anna', 'gate\x1b', 'p')");
    CtlProgram forPeople(database, {"history"});
    QProcessEnvironment environment = forPeople.processEnvironment();
    environment.insert("TZ", "UTC-3");
    forPeople.setProcessEnvironment(environment);
    QCOMPARE(forPeople.run(), 0);
    QVERIFY2(forPeople.out.contains("01.02.2026 01:15:16"), qPrintable(forPeople.out));
    QVERIFY2(forPeople.out.contains("anna@gate\\u001b"), "a terminal would obey");

    CtlProgram forPrograms(database, {"history", "--json"});
    forPrograms.setProcessEnvironment(environment);
    QCOMPARE(forPrograms.run(), 0);
    QCOMPARE(forPrograms.row(MOBILE_PORT)["at"].toString(), QString("2026-01-31T22:15:16.123Z"));
}

void TestCtlHistory::secretsAreNotRemembered()
{
    const ChangedDatabase database;
    for (const QStringList &form : {QStringList{"history"}, {"history", PASSWORD_DEF}, {"history", "--json"}}) {
        CtlProgram program(database, form);
        QCOMPARE(program.run(), 0);
        QVERIFY2(program.out.contains(PASSWORD_DEF), qPrintable(program.out));
        for (const char *secret : {"Geheim-1", "Vhod-2024"})
            QVERIFY2(!(program.out + program.err).contains(secret), qPrintable(program.out));
    }
    CtlProgram program(database, {"history", PASSWORD_DEF, "--json"});
    QCOMPARE(program.run(), 0);
    const QJsonObject row = program.row(PASSWORD_DEF);
    QCOMPARE(row["hidden"], QJsonValue(true));
    QCOMPARE(row["old"], QJsonValue());
    QCOMPARE(row["new"], QJsonValue());
    QCOMPARE(row["by"].toString(), ChangeStamp::now().by);
}

void TestCtlHistory::whatHasNoHistory_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("status");
    QTest::newRow("never changed") << "PT_MOBILE_HOST" << 0;
    QTest::newRow("no such setting") << "PT_NO_SUCH" << 1;
    QTest::newRow("no such member") << "PT_PIN_STRENGTH.no_such" << 1;
    QTest::newRow("member of a text") << "PT_MOBILE_PORT.x" << 1;
}

void TestCtlHistory::whatHasNoHistory()
{
    QFETCH(QString, name);
    QFETCH(int, status);
    const ChangedDatabase database;
    CtlProgram program(database, {"history", name});
    QCOMPARE(program.run(), status);
    CtlProgram forPrograms(database, {"history", name, "--json"});
    QCOMPARE(forPrograms.run(), status);
    if (status == 0)
        QCOMPARE(forPrograms.json().array(), QJsonArray());
    else
        QVERIFY2(program.err.contains(name), qPrintable(program.err));
}

void TestCtlHistory::reasonsAreKept_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("set") << QStringList{"set", "PT_MOBILE_HOST=x"};
    QTest::newRow("import") << QStringList{"import", "settings.json"};
    QTest::newRow("restore") << QStringList{"restore", "PT_MOBILE_PORT@2"};
    QTest::newRow("repair") << QStringList{"check", "--repair"};
}

void TestCtlHistory::reasonsAreKept()
{
    QFETCH(QStringList, arguments);
    const ChangedDatabase database;
    QFile file(database.folder() + "/settings.json");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"format": "vxsettings-export", "version": 1, "settings": {"PT_MOBILE_HOST": "x"}})");
    file.close();
    database.store(MAX_CARD_COUNT, "21"); // to be repaired
    const QString reason = "Почему? «Так» — 'x'; \"y\"";
    CtlProgram program(database, arguments + QStringList{"--reason", reason});
    QCOMPARE(program.run(), 0);
    CtlProgram history(database, {"history", "--json"});
    QCOMPARE(history.run(), 0);
    QCOMPARE(history.json().array().last()["reason"].toString(), reason);
}

void TestCtlHistory::restoreIsANewChange()
{
    const ChangedDatabase database;
    CtlProgram program(database, {"restore", "PT_MOBILE_PORT@2"});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.out, QString("PT_MOBILE_PORT (Порт): «9444» → «9443»\n"));
    QCOMPARE(database.stored(MOBILE_PORT), QString("9443"));
    CtlProgram history(database, {"history", "PT_MOBILE_PORT", "--json"});
    QCOMPARE(history.run(), 0);
    QCOMPARE(history.json().array().size(), 3);
    QCOMPARE(history.json()[2]["revision"].toInt(), 4);
    QCOMPARE(history.json()[2]["old"].toString(), QString("9444"));

    CtlProgram toTheStart(database, {"restore", "PT_MOBILE_PORT@1"});
    QCOMPARE(toTheStart.run(), 0);
    QCOMPARE(database.stored(MOBILE_PORT), QString("8443"));
}

void TestCtlHistory::restoreOfAWholeObject()
{
    const SampleDatabase database;
    const QString written = R"({"min_len":4,"max_len":"8","future":[1.50]})";
    database.store(PIN_STRENGTH, written); // revision 2
    CtlProgram set(database, {"set", "PT_PIN_STRENGTH.min_len=5"});
    QCOMPARE(set.run(), 0);
    CtlProgram program(database, {"restore", "PT_PIN_STRENGTH@2"});
    QCOMPARE(program.run(), 0);
    QVERIFY2(program.out.contains("PT_PIN_STRENGTH.min_len"), qPrintable(program.out));
    QCOMPARE(database.stored(PIN_STRENGTH), written);
}

void TestCtlHistory::restoreInAJsonDocument()
{
    const ChangedDatabase database;
    CtlProgram program(database, {"restore", "PT_MOBILE_PORT@2", "--json"});
    QCOMPARE(program.run(), 0);
    const QJsonObject change{{"key", MOBILE_PORT}, {"caption", "Порт"}, {"old", "9444"}, {"new", "9443"}};
    const QJsonObject expected{{"saved", true}, {"changes", QJsonArray{change}}};
    QCOMPARE(program.json().object(), expected);
}

void TestCtlHistory::restoreTriesFirst()
{
    const ChangedDatabase database;
    const auto before = database.settings();
    CtlProgram program(database, {"restore", "PT_MOBILE_PORT@1", "--dry-run"});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.out, QString("PT_MOBILE_PORT (Порт): «9444» → «8443»\n"));
    QVERIFY2(program.err.contains("ничего не записано"), qPrintable(program.err));
    QCOMPARE(database.settings(), before);
}

void TestCtlHistory::restoreOfWhatIsStored()
{
    const ChangedDatabase database;
    CtlProgram program(database, {"restore", "PT_MOBILE_PORT@3"});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.out, QString("Ничего не изменилось.\n"));
    QCOMPARE(database.ask("SELECT count(*) FROM history").toInt(), 4);
}

void TestCtlHistory::whatCannotBeRestored_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("part"); // of the message
    QTest::newRow("a later revision") << "PT_MOBILE_PORT@4"
                                      << "нет ревизии 4";
    QTest::newRow("an endless number") << "PT_MOBILE_PORT@9223372036854775807"
                                       << "нет ревизии";
    QTest::newRow("no such setting") << "PT_NO_SUCH@1"
                                     << "PT_NO_SUCH";
    QTest::newRow("a secret") << "PT_PASSWORD_DEF@1"
                              << "не хранятся";
}

void TestCtlHistory::whatCannotBeRestored()
{
    QFETCH(QString, argument);
    QFETCH(QString, part);
    const ChangedDatabase database;
    const auto before = database.settings();
    CtlProgram program(database, {"restore", argument});
    QCOMPARE(program.run(), 1);
    QVERIFY2(program.err.contains(part), qPrintable(program.err));
    QCOMPARE(database.settings(), before);
}

void TestCtlHistory::restoreIsJudgedLikeANewValue_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("earlier");
    QTest::newRow("no number") << MOBILE_PORT << "x";
    QTest::newRow("outside the range") << MOBILE_PORT << "70000";
    QTest::newRow("no JSON object") << PIN_STRENGTH << "abc";
    QTest::newRow("against a rule") << PASSWORD_NOTIFY << "365";
    QTest::newRow("not in the catalogue") << "PT_NO_SUCH"
                                          << "x";
    QTest::newRow("read only") << VERSION << "0";
}

void TestCtlHistory::restoreIsJudgedLikeANewValue()
{
    QFETCH(QString, key);
    QFETCH(QString, earlier);
    const SampleDatabase database;
    const QString good = database.stored(key);
    database.store(key, earlier);
    const auto revision = database.ask("SELECT revision FROM settings WHERE key = '" + key + "'").toString();
    database.store(key, good);
    database.execute("INSERT INTO history(save_id, key, revision, old_value, new_value, changed_at, changed_by, "
                     "workstation, program) VALUES('s', ?, ?, NULL, ?, '2026-01-31T22:15:16.123Z', 'a', 'w', 'p')",
                     {key, revision, earlier});
    const auto before = database.settings();
    CtlProgram program(database, {"restore", key + '@' + revision});
    QCOMPARE(program.run(), 3);
    QVERIFY2(program.err.startsWith("Ничего не сохранено."), qPrintable(program.err));
    QCOMPARE(database.settings(), before);
}

QTEST_MAIN(TestCtlHistory)
#include "tst_ctlhistory.moc"
