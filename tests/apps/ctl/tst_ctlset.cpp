#include "ctlprogram.h"
#include "messages.h"
#include "terminal.h"

#include <vxsettings/dbkeys.h>

#include <QTest>

#include <csignal>

using namespace db::database;

class TestCtlSet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void values_data();
    void values();
    void invalidValues_data();
    void invalidValues();
    void oneBadValueAndNothingIsSet_data();
    void oneBadValueAndNothingIsSet();
    void allErrorsAreTold();
    void rules_data();
    void rules();
    void whatWasBrokenBeforeIsNoHindrance();
    void membersKeepTheOthers();
    void membersOfABrokenObject_data();
    void membersOfABrokenObject();
    void whatIsThereStaysAsItIsWritten();
    void dryRunWritesNothing();
    void forPrograms();
    void secretsAreRefusedOnTheCommandLine();
    void secretsComeFromTheInput_data();
    void secretsComeFromTheInput();
    void badInput_data();
    void badInput();
    void aTerminalDoesNotShowWhatIsTyped();
    void anInterruptedProgramLeavesTheTerminalAsItWas();
    void initMakesADatabase_data();
    void initMakesADatabase();
    void initLeavesWhatIsThere_data();
    void initLeavesWhatIsThere();
};

void TestCtlSet::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestCtlSet::values_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("stored");
    QTest::newRow("number") << "PT_MOBILE_PORT=9443" << MOBILE_PORT << "9443";
    QTest::newRow("lowest number") << "PT_MAX_CARD_COUNT=1" << MAX_CARD_COUNT << "1";
    QTest::newRow("highest number") << "PT_MAX_CARD_COUNT=20" << MAX_CARD_COUNT << "20";
    QTest::newRow("choice by number") << "PT_CARD_VIEW_FORMAT=1" << CARD_VIEW_FORMAT << "1";
    QTest::newRow("choice by caption") << "PT_CARD_VIEW_FORMAT=Шестнадцатеричный" << CARD_VIEW_FORMAT << "1";
    QTest::newRow("choice in another case") << "PT_CARD_VIEW_FORMAT=десятичный" << CARD_VIEW_FORMAT << "0";
    QTest::newRow("choice that reads backwards") << "PT_MOBILE_WITHOUT_PHOTO=Нет" << MOBILE_WITHOUT_PHOTO << "1";
    QTest::newRow("object") << "PT_MOBILE_SMARTCARD_PROFILE_ID=12" << MOBILE_SMARTCARD_PROFILE_ID << "12";
    QTest::newRow("text") << "PT_MOBILE_HOST=host name" << MOBILE_HOST << "host name";
    QTest::newRow("text with an equals sign") << "PT_MOBILE_HOST=a=b==" << MOBILE_HOST << "a=b==";
    QTest::newRow("empty text") << "PT_MOBILE_HOST=" << MOBILE_HOST << "";
    QTest::newRow("quotes and SQL") << "PT_MOBILE_HOST='; DROP TABLE settings; --" << MOBILE_HOST
                                    << "'; DROP TABLE settings; --";
    QTest::newRow("beyond the basic plane") << "PT_MOBILE_HOST=\U0001F600 ё" << MOBILE_HOST << "\U0001F600 ё";
    QTest::newRow("longest text") << "PT_MOBILE_HOST=" + QString(32767, 'x') << MOBILE_HOST << QString(32767, 'x');
    QTest::newRow("object as a whole") << R"(PT_PIN_STRENGTH={"min_len": "4", "x": [1]})" << PIN_STRENGTH
                                       << R"({"min_len": "4", "x": [1]})";
}

void TestCtlSet::values()
{
    QFETCH(QString, argument);
    QFETCH(QString, key);
    QFETCH(QString, stored);
    const SampleDatabase database;
    auto expected = database.settings();
    expected[key] = stored;
    CtlProgram program(database, {"set", argument});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.err, QString());
    QCOMPARE(database.settings(), expected);
    QVERIFY2(program.out.contains(key), qPrintable(program.out));
}

void TestCtlSet::invalidValues_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("part"); // of the message
    QTest::newRow("no number") << "PT_MOBILE_PORT=x"
                               << "Это не целое число.";
    QTest::newRow("number with a blank") << "PT_MOBILE_PORT= 1"
                                         << "Это не целое число.";
    QTest::newRow("empty number") << "PT_MOBILE_PORT="
                                  << "Это не целое число.";
    QTest::newRow("fraction") << "PT_MOBILE_PORT=1.5"
                              << "Это не целое число.";
    QTest::newRow("too high") << "PT_MAX_CARD_COUNT=21"
                              << "от 1 до 20";
    QTest::newRow("too low") << "PT_MAX_CARD_COUNT=0"
                             << "от 1 до 20";
    QTest::newRow("beyond any number") << "PT_MOBILE_PORT=99999999999999999999"
                                       << "вне допустимых границ";
    QTest::newRow("unknown choice") << "PT_CARD_VIEW_FORMAT=3"
                                    << "Семейство-код";
    QTest::newRow("unknown caption") << "PT_CARD_VIEW_FORMAT=Двоичный"
                                     << "Такого варианта нет.";
    QTest::newRow("no flag") << "PT_PIN_STRENGTH.deny_equal=maybe"
                             << "не «да» и не «нет»";
    QTest::newRow("object that is gone") << "PT_MOBILE_SMARTCARD_PROFILE_ID=4711"
                                         << "Объекта с таким номером нет.";
    QTest::newRow("line break") << "PT_MOBILE_HOST=a\nb"
                                << "перевод строки";
    QTest::newRow("escape sequence") << "PT_MOBILE_HOST=\x1b[31m"
                                     << "управляющий";
    QTest::newRow("too long") << "PT_MOBILE_HOST=" + QString(32768, 'x') << "слишком длинный";
    QTest::newRow("read-only") << "PT_VERSION=1"
                               << "только для чтения";
    QTest::newRow("unknown key") << "PT_NO_SUCH=1"
                                 << "Настройки «PT_NO_SUCH» нет.";
    QTest::newRow("key in another case") << "pt_mobile_port=1"
                                         << "Настройки «pt_mobile_port» нет.";
    QTest::newRow("unknown member") << "PT_PIN_STRENGTH.no_such=1"
                                    << "нет поля «no_such»";
    QTest::newRow("member of no object") << "PT_MOBILE_PORT.x=1"
                                         << "нет полей";
    QTest::newRow("no object") << "PT_PIN_STRENGTH=[1]"
                               << "не читается как объект JSON";
    QTest::newRow("object with a bad member") << R"(PT_PIN_STRENGTH={"min_len": "x"})"
                                              << "Это не целое число.";
    QTest::newRow("object with a member twice") << R"(PT_PIN_STRENGTH={"min_len": "4", "min_len": "5"})"
                                                << "несколько раз";
    QTest::newRow("object of endless depth")
        << "PT_PIN_STRENGTH={\"x\":" + QString(5000, '[') + QString(5000, ']') + "}"
        << "не читается как объект JSON";
}

void TestCtlSet::invalidValues()
{
    QFETCH(QString, argument);
    QFETCH(QString, part);
    const SampleDatabase database;
    const auto before = database.settings();
    CtlProgram program(database, {"set", argument});
    QCOMPARE(program.run(), 3);
    QCOMPARE(program.out, QString());
    QVERIFY2(program.err.contains(part), qPrintable(program.err));
    QVERIFY2(!program.err.contains('\x1b'), "a terminal would obey");
    QCOMPARE(database.settings(), before);
}

void TestCtlSet::oneBadValueAndNothingIsSet_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("bad value last") << QStringList{"PT_MOBILE_PORT=1", "PT_MAX_CARD_COUNT=5",
                                                   "PT_MOBILE_STYLE_INDEX=x"};
    QTest::newRow("bad value first") << QStringList{"PT_MOBILE_STYLE_INDEX=x", "PT_MOBILE_PORT=1"};
    QTest::newRow("bad name") << QStringList{"PT_MOBILE_PORT=1", "PT_NO_SUCH=1"};
    QTest::newRow("bad member") << QStringList{"PT_PIN_STRENGTH.min_len=5", "PT_PIN_STRENGTH.max_len=x"};
    QTest::newRow("broken rule") << QStringList{"PT_MOBILE_PORT=1", "PT_PASSWORD_NOTIFY=91"};
}

void TestCtlSet::oneBadValueAndNothingIsSet()
{
    QFETCH(QStringList, arguments);
    const SampleDatabase database;
    const auto before = database.settings();
    CtlProgram program(database, QStringList{"set"} + arguments);
    QCOMPARE(program.run(), 3);
    QVERIFY2(program.err.startsWith("Ничего не сохранено."), qPrintable(program.err));
    QCOMPARE(database.settings(), before);
}

void TestCtlSet::allErrorsAreTold()
{
    const SampleDatabase database;
    CtlProgram program(database, {"set", "PT_MOBILE_PORT=x", "PT_CARD_VIEW_FORMAT=9", "PT_NO_SUCH=1"});
    QCOMPARE(program.run(), 3);
    for (const char *key : {"PT_MOBILE_PORT", "PT_CARD_VIEW_FORMAT", "PT_NO_SUCH"})
        QVERIFY2(program.err.contains(key), qPrintable(program.err));
}

void TestCtlSet::rules_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::newRow("least above most") << QStringList{"PT_PIN_STRENGTH.min_len=9"} << 3;
    QTest::newRow("least equals most") << QStringList{"PT_PIN_STRENGTH.min_len=8"} << 0;
    QTest::newRow("both moved together") << QStringList{"PT_PIN_STRENGTH.min_len=9", "PT_PIN_STRENGTH.max_len=10"} << 0;
    QTest::newRow("notice after the end") << QStringList{"PT_PASSWORD_NOTIFY=91"} << 3;
    QTest::newRow("palms while limited") << QStringList{"PT_PALM_TEMPLATES_AMOUNT_SETTINGS.left_contact_palm_min=5"}
                                         << 3;
    QTest::newRow("palms while not limited")
        << QStringList{"PT_PALM_TEMPLATES_AMOUNT_SETTINGS.left_contact_palm_min=5",
                       "PT_PALM_TEMPLATES_AMOUNT_SETTINGS.enable_palm_contact_limit=нет"}
        << 0;
}

void TestCtlSet::rules()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    const SampleDatabase database;
    const auto before = database.settings();
    CtlProgram program(database, QStringList{"set"} + arguments);
    QCOMPARE(program.run(), status);
    QCOMPARE(database.settings() == before, status != 0);
}

void TestCtlSet::whatWasBrokenBeforeIsNoHindrance()
{
    const SampleDatabase database;
    database.store(PASSWORD_NOTIFY, "365");
    CtlProgram other(database, {"set", "PT_MOBILE_PORT=1"});
    QCOMPARE(other.run(), 0);
    CtlProgram stillBroken(database, {"set", "PT_PASSWORD_NOTIFY=364"});
    QCOMPARE(stillBroken.run(), 3);
    QCOMPARE(database.stored(PASSWORD_NOTIFY), QString("365"));
}

void TestCtlSet::membersKeepTheOthers()
{
    const SampleDatabase database;
    database.store(PIN_STRENGTH, R"({"min_len": "4", "max_len": 8, "future": {"a": [1.50, null]}, "ё": "\u0451"})");
    CtlProgram program(database, {"set", "PT_PIN_STRENGTH.min_len=5", "PT_PIN_STRENGTH.deny_equal=да"});
    QCOMPARE(program.run(), 0);
    const QString stored = database.stored(PIN_STRENGTH);
    for (const char *member : {R"("min_len": "5")", R"("max_len": 8)", R"("future": {"a": [1.50, null]})",
                               R"("ё": "\u0451")", R"("deny_equal": "true")"})
        QVERIFY2(stored.contains(QString(member)), qPrintable(stored));
}

void TestCtlSet::membersOfABrokenObject_data()
{
    QTest::addColumn<QString>("stored");
    QTest::newRow("a text") << "abc";
    QTest::newRow("an array") << "[]";
    QTest::newRow("a member twice") << R"({"x": 1, "x": 2})";
}

void TestCtlSet::membersOfABrokenObject()
{
    QFETCH(QString, stored);
    const SampleDatabase database;
    database.store(PIN_STRENGTH, stored);
    CtlProgram program(database, {"set", "PT_PIN_STRENGTH.min_len=5"});
    QCOMPARE(program.run(), 3);
    QVERIFY2(program.err.contains("check --repair"), qPrintable(program.err));
    QCOMPARE(database.stored(PIN_STRENGTH), stored);
}

void TestCtlSet::whatIsThereStaysAsItIsWritten()
{
    const SampleDatabase database;
    const QString written = R"({"min_len":4})";
    database.store(PIN_STRENGTH, written);
    CtlProgram program(database, {"set", "PT_PIN_STRENGTH.min_len=4", "PT_MOBILE_PORT=8443", "--json"});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.json().object()["changes"].toArray(), QJsonArray());
    QCOMPARE(database.stored(PIN_STRENGTH), written);
}

void TestCtlSet::dryRunWritesNothing()
{
    const SampleDatabase database;
    const auto before = database.settings();
    const QStringList arguments{"set", "PT_MOBILE_PORT=1", "PT_PIN_STRENGTH.min_len=5", "--dry-run"};
    CtlProgram program(database, arguments);
    QCOMPARE(program.run(), 0);
    QVERIFY2(program.out.contains("PT_MOBILE_PORT (Порт): «8443» → «1»"), qPrintable(program.out));
    QVERIFY2(program.out.contains("PT_PIN_STRENGTH.min_len"), qPrintable(program.out));
    QVERIFY2(program.err.contains("ничего не записано"), qPrintable(program.err));

    CtlProgram forPrograms(database, arguments + QStringList{"--json"});
    QCOMPARE(forPrograms.run(), 0);
    QCOMPARE(forPrograms.json().object()["saved"], QJsonValue(false));

    CtlProgram invalid(database, {"set", "PT_MOBILE_PORT=x", "--dry-run"});
    QCOMPARE(invalid.run(), 3);
    QCOMPARE(database.settings(), before);
}

void TestCtlSet::forPrograms()
{
    const SampleDatabase database;
    CtlProgram program(database, {"set", "PT_PIN_STRENGTH.min_len=5", "--json"});
    QCOMPARE(program.run(), 0);
    const QJsonObject change{{"key", "PT_PIN_STRENGTH.min_len"},
                             {"caption", "Сложность пин-кода: Минимальная длина"},
                             {"old", "4"},
                             {"new", "5"}};
    const QJsonObject expected{{"saved", true}, {"changes", QJsonArray{change}}};
    QCOMPARE(program.json().object(), expected);
}

void TestCtlSet::secretsAreRefusedOnTheCommandLine()
{
    const SampleDatabase database;
    const auto before = database.settings();
    CtlProgram program(database, {"set", "PT_MOBILE_PORT=1", "PT_PASSWORD_DEF=Geheim-1"});
    QCOMPARE(program.run(), 2);
    QVERIFY2(program.err.contains("остался бы в истории команд"), qPrintable(program.err));
    QVERIFY2(program.err.contains("set --stdin PT_PASSWORD_DEF"), qPrintable(program.err));
    QVERIFY(!(program.out + program.err).contains("Geheim-1"));
    QCOMPARE(database.settings(), before);
}

void TestCtlSet::secretsComeFromTheInput_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QString>("stored");
    QTest::newRow("a line") << QByteArray("Geheim-1\n") << "Geheim-1";
    QTest::newRow("without a line break") << QByteArray("Geheim-1") << "Geheim-1";
    QTest::newRow("line break of another system") << QByteArray("Geheim-1\r\n") << "Geheim-1";
    QTest::newRow("blanks belong to it") << QByteArray(" Geheim-1 \n") << " Geheim-1 ";
    QTest::newRow("dashes and signs") << QByteArray("--Geheim-1='\"$(x)") << "--Geheim-1='\"$(x)";
    QTest::newRow("other letters") << QByteArray("Geheim-1-ёЖ") << "Geheim-1-ёЖ";
    QTest::newRow("nothing") << QByteArray() << "";
}

void TestCtlSet::secretsComeFromTheInput()
{
    QFETCH(QByteArray, input);
    QFETCH(QString, stored);
    const SampleDatabase database;
    for (const QStringList &form : {QStringList{"--dry-run"}, QStringList{"--dry-run", "--json"}, QStringList{}}) {
        CtlProgram program(database, QStringList{"set", "--stdin", PASSWORD_DEF} + form);
        QCOMPARE(program.run(input), 0);
        QVERIFY2(!(program.out + program.err).contains("Geheim-1"), qPrintable(program.out));
        QVERIFY2(!(program.out + program.err).contains("Vhod-2024"), qPrintable(program.out));
    }
    QCOMPARE(database.stored(PASSWORD_DEF), stored);
}

void TestCtlSet::badInput_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::newRow("two lines") << QByteArray("Geheim-1\nb\n");
    QTest::newRow("not UTF-8") << QByteArray("Geheim-1\xff");
    QTest::newRow("half a letter") << QByteArray("Geheim-1\xd1");
    QTest::newRow("null character") << QByteArray("Geheim-1\0x", 10);
    QTest::newRow("endless") << QByteArray("Geheim-1") + QByteArray(1024 * 1024, 'x');
}

void TestCtlSet::badInput()
{
    QFETCH(QByteArray, input);
    const SampleDatabase database;
    CtlProgram program(database, {"set", "--stdin", PASSWORD_DEF});
    QCOMPARE(program.run(input), 3);
    QVERIFY2(!(program.out + program.err).contains("Geheim-1"), qPrintable(program.err));
    QCOMPARE(database.stored(PASSWORD_DEF), QString("Vhod-2024"));
}

void TestCtlSet::aTerminalDoesNotShowWhatIsTyped()
{
    const SampleDatabase database;
    const Terminal terminal;
    QVERIFY2(terminal.isThere(), "this machine has no pseudo terminals: mount devpts");
    QVERIFY(terminal.showsLetters());
    CtlProgram program(database, {"set", "--stdin", PASSWORD_DEF});
    program.setStandardInputFile(terminal.name());
    program.start();
    QTRY_VERIFY(!terminal.showsLetters());
    terminal.type("Geheim-1\n");
    QCOMPARE(program.finish(), 0);
    QVERIFY(terminal.showsLetters());
    QVERIFY2(program.err.contains("Значение: "), qPrintable(program.err));
    QCOMPARE(database.stored(PASSWORD_DEF), QString("Geheim-1"));
}

void TestCtlSet::anInterruptedProgramLeavesTheTerminalAsItWas()
{
    const SampleDatabase database;
    const Terminal terminal;
    QVERIFY2(terminal.isThere(), "this machine has no pseudo terminals: mount devpts");
    CtlProgram program(database, {"set", "--stdin", PASSWORD_DEF});
    program.setStandardInputFile(terminal.name());
    program.start();
    QTRY_VERIFY(!terminal.showsLetters());
    QCOMPARE(kill(pid_t(program.processId()), SIGINT), 0);
    QCOMPARE(program.finish(), -1);
    QVERIFY(terminal.showsLetters());
    QCOMPARE(database.stored(PASSWORD_DEF), QString("Vhod-2024"));
}

void TestCtlSet::initMakesADatabase_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("settings");
    QTest::newRow("empty") << QStringList{"init"} << 0;
    QTest::newRow("sample") << QStringList{"init", "--sample"} << 41;
}

void TestCtlSet::initMakesADatabase()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, settings);
    const TestDatabase database;
    CtlProgram program(database, arguments + QStringList{"--json"});
    QCOMPARE(program.run(), 0);
    const QJsonObject expected{{"database", database.path()}, {"settings", settings}};
    QCOMPARE(program.json().object(), expected);
    QCOMPARE(database.files(), QStringList{"installation.db"});
    QCOMPARE(QFile::permissions(database.path()) & ~(QFile::ReadUser | QFile::WriteUser),
             QFile::ReadOwner | QFile::WriteOwner);
    QCOMPARE(database.settings().size(), settings);

    CtlProgram check(database, {"check"});
    QCOMPARE(check.run(), 0);
    CtlProgram set(database, {"set", "PT_PIN_STRENGTH.min_len=5", "PT_MOBILE_HOST="});
    QCOMPARE(set.run(), 0);
    QVERIFY(database.settings().contains(MOBILE_HOST));
}

void TestCtlSet::initLeavesWhatIsThere_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a file") << "installation.db";
    QTest::newRow("the log of another database") << "installation.db-wal";
    QTest::newRow("the journal of another database") << "installation.db-journal";
}

void TestCtlSet::initLeavesWhatIsThere()
{
    QFETCH(QString, name);
    const TestDatabase database;
    QFile file(database.folder() + '/' + name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write("kept"), 4);
    file.close();
    CtlProgram program(database, {"init", "--sample"});
    QCOMPARE(program.run(), 5);
    QVERIFY2(program.err.contains(database.path()), qPrintable(program.err));
    QCOMPARE(database.files(), QStringList{name});
    QCOMPARE(file.size(), 4);
}

QTEST_MAIN(TestCtlSet)
#include "tst_ctlset.moc"
