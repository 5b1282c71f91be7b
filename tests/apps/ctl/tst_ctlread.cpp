#include "ctlprogram.h"
#include "messages.h"

#include <vxsettings/dbkeys.h>

#include <QSet>
#include <QTest>

using namespace db::database;

class TestCtlRead : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void listIsATable();
    void listForPrograms();
    void listOfAGroup_data();
    void listOfAGroup();
    void listOfNoGroup();
    void listHidesSecrets();
    void listOfHostileValues();
    void listTellsWhatIsNotStored();
    void get_data();
    void get();
    void getFindsNothing_data();
    void getFindsNothing();
    void getGuardsSecrets();
    void getForPrograms();
    void describe_data();
    void describe();
    void describeNothingKnown();
    void describeNeedsNoDatabase();
};

void TestCtlRead::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestCtlRead::listIsATable()
{
    const SampleDatabase database;
    CtlProgram program(database, {"list"});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.err, QString());
    const QStringList lines = program.out.split('\n', Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 1 + 38 + 24); // titles, plain settings, members of the three JSON settings
    QVERIFY(lines[0].startsWith("КЛЮЧ "));
    QVERIFY2(program.out.contains("Сложность пин-кода: Минимальная длина"), qPrintable(program.out));
    QVERIFY2(program.out.contains("Семейство-код"), qPrintable(program.out));
}

void TestCtlRead::listForPrograms()
{
    const SampleDatabase database;
    CtlProgram program(database, {"list", "--json"});
    QCOMPARE(program.run(), 0);
    const QJsonArray rows = program.json().array();
    QCOMPARE(rows.size(), 41);
    QSet<QString> keys;
    for (const QJsonValue &row : rows) {
        for (const char *name : {"key", "group", "caption", "value"})
            QVERIFY2(row.toObject().contains(QLatin1String(name)), name);
        keys.insert(row["key"].toString());
    }
    QCOMPARE(keys.size(), 41);
    const QJsonObject format = program.row(CARD_VIEW_FORMAT);
    QCOMPARE(format["group"].toString(), QString("employees"));
    QCOMPARE(format["caption"].toString(), QString("Формат отображения номеров карт"));
    QCOMPARE(format["value"].toString(), QString("2"));
    QCOMPARE(program.row(PIN_STRENGTH)["value"].toString(), database.stored(PIN_STRENGTH));
}

void TestCtlRead::listOfAGroup_data()
{
    QTest::addColumn<QString>("group");
    QTest::newRow("name") << "connection";
    QTest::newRow("title") << "Настройки подключения";
    QTest::newRow("in another case") << "CONNECTION";
    QTest::newRow("title in another case") << "настройки ПОДКЛЮЧЕНИЯ";
}

void TestCtlRead::listOfAGroup()
{
    QFETCH(QString, group);
    const SampleDatabase database;
    database.store("PT_OTHER", "x");
    CtlProgram program(database, {"list", group, "--json"});
    QCOMPARE(program.run(), 0);
    QStringList keys;
    for (const QJsonValue &row : program.json().array())
        keys.append(row["key"].toString());
    const QStringList expected{"PT_MOBILE_HOST", "PT_MOBILE_PORT", "PT_LOCKER_ACCESS_TOKEN"};
    QCOMPARE(keys, expected);
}

void TestCtlRead::listOfNoGroup()
{
    const SampleDatabase database;
    CtlProgram program(database, {"list", "nowhere"});
    QCOMPARE(program.run(), 1);
    QCOMPARE(program.out, QString());
    QVERIFY2(program.err.contains("«nowhere»") && program.err.contains("palm-scanning"), qPrintable(program.err));
}

void TestCtlRead::listHidesSecrets()
{
    const SampleDatabase database;
    for (const QStringList &arguments : {QStringList{"list"}, QStringList{"list", "--json"}}) {
        CtlProgram program(database, arguments);
        QCOMPARE(program.run(), 0);
        for (const QString &key : {PASSWORD_DEF, LOCKER_ACCESS_TOKEN}) {
            QVERIFY(program.out.contains(key));
            QVERIFY(!program.out.contains(database.stored(key)));
        }
    }
    CtlProgram program(database, {"list", "--json"});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.row(PASSWORD_DEF)["value"], QJsonValue());
    QCOMPARE(program.row(PASSWORD_DEF)["hidden"], QJsonValue(true));
    QVERIFY(!program.row(MOBILE_PORT).contains("hidden"));
}

void TestCtlRead::listOfHostileValues()
{
    const SampleDatabase database;
    database.store(MOBILE_HOST, "a\n\x1b[2Jb");
    database.store("PT_\x1b]0;x", "\t");
    database.store(PIN_STRENGTH, "{not JSON");
    database.store(CARD_VIEW_FORMAT, "-1");
    CtlProgram program(database, {"list"});
    QCOMPARE(program.run(), 0);
    QVERIFY2(program.out.contains("«a\\n\\u001b[2Jb»"), qPrintable(program.out));
    QVERIFY2(program.out.contains("PT_\\u001b]0;x"), qPrintable(program.out));
    QVERIFY2(program.out.contains("«-1»"), qPrintable(program.out));
    QVERIFY(!program.output.contains('\x1b') && !program.output.contains('\t'));

    CtlProgram forPrograms(database, {"list", "--json"});
    QCOMPARE(forPrograms.run(), 0);
    QCOMPARE(forPrograms.json().array().size(), 42);
    QCOMPARE(forPrograms.row(MOBILE_HOST)["value"].toString(), QString("a\n\x1b[2Jb"));
    QCOMPARE(forPrograms.row(PIN_STRENGTH)["value"].toString(), QString("{not JSON"));
    QCOMPARE(forPrograms.row("PT_\x1b]0;x")["value"].toString(), QString("\t"));
}

void TestCtlRead::listTellsWhatIsNotStored()
{
    const SampleDatabase database;
    database.execute("DELETE FROM settings WHERE key IN (?, ?)", {MOBILE_HOST, PASSWORD_DEF});
    CtlProgram program(database, {"list", "--json"});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.row(MOBILE_HOST)["value"], QJsonValue());
    QCOMPARE(program.row(PASSWORD_DEF)["value"], QJsonValue());
    QVERIFY(!program.row(PASSWORD_DEF).contains("hidden"));
}

void TestCtlRead::get_data()
{
    QTest::addColumn<QString>("stored"); // under PT_PIN_STRENGTH
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("value");
    QTest::newRow("a setting") << "{}"
                               << "PT_MOBILE_PORT"
                               << "8443";
    QTest::newRow("a choice as it is stored") << "{}"
                                              << "PT_CARD_VIEW_FORMAT"
                                              << "2";
    QTest::newRow("not in the catalogue") << "{}"
                                          << "PT_OTHER"
                                          << "other text";
    QTest::newRow("an object") << "{\"x\": 1}\n"
                               << "PT_PIN_STRENGTH"
                               << "{\"x\": 1}\n";
    QTest::newRow("a member") << R"({"min_len": "4"})"
                              << "PT_PIN_STRENGTH.min_len"
                              << "4";
    QTest::newRow("a number") << R"({"min_len": 4})"
                              << "PT_PIN_STRENGTH.min_len"
                              << "4";
    QTest::newRow("a member that no editor shows") << R"({"x.y": "z"})"
                                                   << "PT_PIN_STRENGTH.x.y"
                                                   << "z";
    QTest::newRow("a broken object") << "{"
                                     << "PT_PIN_STRENGTH"
                                     << "{";
    QTest::newRow("an empty text") << ""
                                   << "PT_PIN_STRENGTH"
                                   << "";
    QTest::newRow("control characters") << "\x1b[2J\n"
                                        << "PT_PIN_STRENGTH"
                                        << "\x1b[2J\n";
}

void TestCtlRead::get()
{
    QFETCH(QString, stored);
    QFETCH(QString, address);
    QFETCH(QString, value);
    const SampleDatabase database;
    database.store("PT_OTHER", "other text");
    database.store(PIN_STRENGTH, stored);
    CtlProgram program(database, {"get", address});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.out, value + '\n');
    QCOMPARE(program.err, QString());
}

void TestCtlRead::getFindsNothing_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("unknown") << "PT_NO_SUCH";
    QTest::newRow("in another case") << "pt_mobile_port";
    QTest::newRow("not stored") << "PT_MOBILE_HOST";
    QTest::newRow("no such member") << "PT_PIN_STRENGTH.no_such";
    QTest::newRow("no object") << "PT_MOBILE_PORT.min_len";
    QTest::newRow("a dot and nothing") << "PT_MOBILE_PORT.";
    QTest::newRow("empty") << "";
    QTest::newRow("SQL") << "' OR 1=1 --";
}

void TestCtlRead::getFindsNothing()
{
    QFETCH(QString, address);
    const SampleDatabase database;
    database.execute("DELETE FROM settings WHERE key = ?", {MOBILE_HOST});
    CtlProgram program(database, {"get", "--", address});
    QCOMPARE(program.run(), 1);
    QCOMPARE(program.out, QString());
    QVERIFY2(program.err.contains("«" + address + "»"), qPrintable(program.err));
}

void TestCtlRead::getGuardsSecrets()
{
    const SampleDatabase database;
    CtlProgram refused(database, {"get", PASSWORD_DEF});
    QCOMPARE(refused.run(), 2);
    QVERIFY2(refused.err.contains("--with-secrets"), qPrintable(refused.err));
    QVERIFY(!(refused.out + refused.err).contains(database.stored(PASSWORD_DEF)));

    CtlProgram program(database, {"get", PASSWORD_DEF, "--with-secrets"});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.out, database.stored(PASSWORD_DEF) + '\n');

    database.store(PASSWORD_DEF, R"({"part": "Geheim"})");
    CtlProgram part(database, {"get", PASSWORD_DEF + ".part"});
    QCOMPARE(part.run(), 2);
    QVERIFY(!(part.out + part.err).contains("Geheim"));
}

void TestCtlRead::getForPrograms()
{
    const SampleDatabase database;
    CtlProgram program(database, {"--json", "get", "PT_PIN_STRENGTH.max_len"});
    QCOMPARE(program.run(), 0);
    const QJsonObject expected{{"key", "PT_PIN_STRENGTH.max_len"}, {"value", "8"}};
    QCOMPARE(program.json().object(), expected);
}

void TestCtlRead::describe_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QJsonObject>("facts");
    QTest::newRow("a number") << "PT_MAX_CARD_COUNT"
                              << QJsonObject{{"kind", "number"},
                                             {"minimum", 1},
                                             {"maximum", 20},
                                             {"group", "employees"},
                                             {"caption", "Максимальное количество карт сотрудника"}};
    QTest::newRow("a choice") << "PT_MOBILE_WITHOUT_PHOTO"
                              << QJsonObject{{"kind", "choice"},
                                             {"minimum", QJsonValue()},
                                             {"dependents", QJsonArray{"PT_MOBILE_VERIFY_FACE"}},
                                             {"choices", QJsonArray{QJsonObject{{"value", "0"}, {"caption", "Да"}},
                                                                    QJsonObject{{"value", "1"}, {"caption", "Нет"}}}}};
    QTest::newRow("a secret") << "PT_PASSWORD_DEF" << QJsonObject{{"kind", "secret"}, {"toolTip", QJsonValue()}};
    QTest::newRow("read-only") << "PT_VERSION" << QJsonObject{{"kind", "read-only"}};
    QTest::newRow("an object")
        << "PT_PIN_STRENGTH"
        << QJsonObject{{"kind", "json-object"},
                       {"caption", "Сложность пин-кода"},
                       {"members", QJsonArray{"PT_PIN_STRENGTH.min_len", "PT_PIN_STRENGTH.max_len",
                                              "PT_PIN_STRENGTH.deny_sequence", "PT_PIN_STRENGTH.deny_equal"}}};
    QTest::newRow("a member") << "PT_PALM_TEMPLATES_AMOUNT_SETTINGS.enable_palm_contact_limit"
                              << QJsonObject{{"kind", "flag"},
                                             {"group", "palm-scanning"},
                                             {"dependents",
                                              QJsonArray{"PT_PALM_TEMPLATES_AMOUNT_SETTINGS.left_contact_palm_min",
                                                         "PT_PALM_TEMPLATES_AMOUNT_SETTINGS.right_contact_palm_min",
                                                         "PT_PALM_TEMPLATES_AMOUNT_SETTINGS.left_contact_palm_max",
                                                         "PT_PALM_TEMPLATES_AMOUNT_SETTINGS.right_contact_palm_max"}}};
}

void TestCtlRead::describe()
{
    QFETCH(QString, address);
    QFETCH(QJsonObject, facts);
    const TestDatabase nothing;
    CtlProgram program(nothing, {"describe", address, "--json"});
    QCOMPARE(program.run(), 0);
    const QJsonObject json = program.json().object();
    QCOMPARE(json["key"].toString(), address);
    for (const QString &name : facts.keys())
        QCOMPARE(json[name], facts[name]);

    CtlProgram text(nothing, {"describe", address});
    QCOMPARE(text.run(), 0);
    QVERIFY2(text.out.contains(address) && text.out.contains(json["caption"].toString()), qPrintable(text.out));
}

void TestCtlRead::describeNothingKnown()
{
    const TestDatabase nothing;
    CtlProgram program(nothing, {"describe", "PT_NO_SUCH"});
    QCOMPARE(program.run(), 1);
    QVERIFY2(program.err.contains("«PT_NO_SUCH»"), qPrintable(program.err));
}

void TestCtlRead::describeNeedsNoDatabase()
{
    const TestDatabase nothing;
    CtlProgram program(nothing, {"describe", "--json"});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.json().array().size(), 41 + 24);
    const QString toolTip = program.row(PASS_REQUEST_SEQUENCE)["toolTip"].toString();
    QVERIFY2(toolTip.contains("${year} - текущий год\n") && !toolTip.contains('<'), qPrintable(toolTip));
    QCOMPARE(nothing.files(), QStringList());
}

QTEST_MAIN(TestCtlRead)
#include "tst_ctlread.moc"
