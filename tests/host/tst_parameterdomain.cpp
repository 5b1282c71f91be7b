#include <host/parameterdomain.h>

#include <host/settingaddress.h>
#include <host/settingspages.h>

#include "loggingrules.h"
#include "messages.h"
#include "storedsettings.h"
#include "translation.h"

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettings.h>
#include <vxsettings/dbsettingsgroupfactory.h>
#include <vxsettings/dbsettingshelper.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace db::database;
using Kind = SettingProblem::Kind;

namespace {

const QHash<QString, QVector<vantorix::ObjectRecord>> objects{
    {vantorix::ORGSTRUCTURE_DATANAME,
     {
         {1, 0, "OT_SUBJECTROOT", "Holding"},
         {2, 1, "OT_FIRM", "Works"},
         {3, 2, "OT_DEPARTMENT", "Archive"},
         {4, 3, "OT_WORKER", "Somebody"},
         {5, 1, "OT_FIRM", "Secret works", false},
         {8, 5, "OT_DEPARTMENT", "Below"},
     }},
    {vantorix::SMARTCARD_PROFILE_DATANAME,
     {{1, 0, "OT_SMARTCARD_PROFILE", "Staff"}, {5, 0, "OT_SMARTCARD_PROFILE", "Guards", false}}},
};
const ObjectIndex objectIndex(objects);

QString describe(const QString &key, const QString &text)
{
    return QStringLiteral("%1 from %2").arg(key, text.left(40));
}
} // namespace

class TestParameterDomain : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void stored_data();
    void stored();
    void captionsInTheLanguageOfTheMoment();
    void ambiguousCaptionsAreNotGuessed();
    void problem_data();
    void problem();
    void allowed_data();
    void allowed();
    void shownAsTheEditorsShowIt_data();
    void shownAsTheEditorsShowIt();
    void membersShownAsTheEditorsShowThem_data();
    void membersShownAsTheEditorsShowThem();
    void whatIsFineIsShownAsItIs();
};

Q_DECLARE_METATYPE(SettingProblem::Kind)

void TestParameterDomain::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestParameterDomain::stored_data()
{
    QTest::addColumn<QString>("parameter");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("stored");

    QTest::newRow("number") << MAX_CARD_COUNT << "5"
                            << "5";
    QTest::newRow("number with zeros before it") << MAX_CARD_COUNT << "007"
                                                 << "7";
    QTest::newRow("number below zero") << MAX_CARD_COUNT << "-05"
                                       << "-5";
    QTest::newRow("minus zero") << MAX_CARD_COUNT << "-0"
                                << "0";
    QTest::newRow("number with blanks") << MAX_CARD_COUNT << " 5"
                                        << " 5";
    QTest::newRow("number with a plus") << MAX_CARD_COUNT << "+5"
                                        << "+5";
    QTest::newRow("what stands for the minimum") << USER_SESSION_TIMEOUT << "без ограничений"
                                                 << "0";
    QTest::newRow("the same where it does not") << PASSWORD_EXPIRED << "Без ограничений"
                                                << "Без ограничений";
    QTest::newRow("choice by number") << CARD_VIEW_FORMAT << "1"
                                      << "1";
    QTest::newRow("choice by caption") << CARD_VIEW_FORMAT << "Шестнадцатеричный"
                                       << "1";
    QTest::newRow("choice by caption in capitals") << CARD_VIEW_FORMAT << "СЕМЕЙСТВО-КОД"
                                                   << "2";
    QTest::newRow("choice whose captions are turned round") << MOBILE_WITHOUT_PHOTO << "да"
                                                            << "0";
    QTest::newRow("no choice") << CARD_VIEW_FORMAT << "Шестнадцатеричн"
                               << "Шестнадцатеричн";
    QTest::newRow("flag") << json::DENY_EQUAL << "true"
                          << "true";
    QTest::newRow("flag as a number") << json::DENY_EQUAL << "0"
                                      << "false";
    QTest::newRow("flag in words") << json::DENY_EQUAL << "Да"
                                   << "true";
    QTest::newRow("flag in other words") << json::DENY_EQUAL << "NO"
                                         << "false";
    QTest::newRow("no flag") << json::DENY_EQUAL << "2"
                             << "2";
    QTest::newRow("object") << DEFAULT_DEPARTMENT << "0003"
                            << "3";
    QTest::newRow("no object") << DEFAULT_DEPARTMENT << ""
                               << "0";
    QTest::newRow("text") << MOBILE_HOST << " Host "
                          << " Host ";
    QTest::newRow("empty text") << MOBILE_HOST << ""
                                << "";
}

void TestParameterDomain::stored()
{
    QFETCH(QString, parameter);
    QFETCH(QString, words);
    QTEST(ParameterDomain(parameter, objectIndex).stored(words), "stored");
}

void TestParameterDomain::captionsInTheLanguageOfTheMoment()
{
    const InstalledTranslation english({{"QObject", "Да", "Yes"}, {"ParameterDomain", "да", "aye"}});
    const ParameterDomain choice(ENABLE_FACE_SCANNING, objectIndex);
    QCOMPARE(choice.stored("yes"), QString("1"));
    QCOMPARE(choice.stored("Да"), QString("Да"));
    QCOMPARE(ParameterDomain(json::DENY_EQUAL, objectIndex).stored("Aye"), QString("true"));
    QCOMPARE(ParameterDomain(json::DENY_EQUAL, objectIndex).stored("да"), QString("true"));
}

void TestParameterDomain::ambiguousCaptionsAreNotGuessed()
{
    const InstalledTranslation careless({{"QObject", "Нет", "same"}, {"QObject", "Да", "SAME"}});
    const ParameterDomain choice(ENABLE_FACE_SCANNING, objectIndex);
    QCOMPARE(choice.stored("same"), QString("0"));
    QCOMPARE(choice.stored("SAME"), QString("1"));
    QCOMPARE(choice.stored("Same"), QString("Same"));
}

void TestParameterDomain::problem_data()
{
    QTest::addColumn<QString>("parameter");
    QTest::addColumn<QString>("text");
    QTest::addColumn<Kind>("problem");

    QTest::newRow("minimum") << MAX_CARD_COUNT << "1" << Kind::None;
    QTest::newRow("maximum") << MAX_CARD_COUNT << "20" << Kind::None;
    QTest::newRow("zeros before it") << MAX_CARD_COUNT << "0020" << Kind::None;
    QTest::newRow("below the minimum") << MAX_CARD_COUNT << "0" << Kind::OutOfRange;
    QTest::newRow("above the maximum") << MAX_CARD_COUNT << "21" << Kind::OutOfRange;
    QTest::newRow("beyond int") << USER_SESSION_COUNT << "2147483648" << Kind::OutOfRange;
    QTest::newRow("int's end") << USER_SESSION_COUNT << "2147483647" << Kind::None;
    QTest::newRow("beyond every type") << USER_SESSION_COUNT << "99999999999999999999" << Kind::OutOfRange;
    QTest::newRow("no number") << MAX_CARD_COUNT << "five" << Kind::NotANumber;
    QTest::newRow("empty number") << MAX_CARD_COUNT << "" << Kind::NotANumber;
    QTest::newRow("minus alone") << MAX_CARD_COUNT << "-" << Kind::NotANumber;
    QTest::newRow("fraction") << MAX_CARD_COUNT << "5.0" << Kind::NotANumber;
    QTest::newRow("blank") << MAX_CARD_COUNT << "5 " << Kind::NotANumber;
    QTest::newRow("digits of another script") << MAX_CARD_COUNT << "٥" << Kind::NotANumber;
    QTest::newRow("choice") << ENROLL_MANUAL_CHECK_TEMPLATES_TYPE << "4" << Kind::None;
    QTest::newRow("choice that only a sister list has")
        << ENROLL_MANUAL_CHECK_TEMPLATES_TYPE << "0" << Kind::UnknownChoice;
    QTest::newRow("choice below zero") << CARD_VIEW_FORMAT << "-1" << Kind::UnknownChoice;
    QTest::newRow("choice by caption") << CARD_VIEW_FORMAT << "Десятичный" << Kind::UnknownChoice;
    QTest::newRow("choice with a blank") << CARD_VIEW_FORMAT << " 1" << Kind::UnknownChoice;
    QTest::newRow("true") << json::DENY_EQUAL << "true" << Kind::None;
    QTest::newRow("0") << json::DENY_EQUAL << "0" << Kind::None;
    QTest::newRow("flag in capitals") << json::DENY_EQUAL << "TRUE" << Kind::NotAFlag;
    QTest::newRow("empty flag") << json::DENY_EQUAL << "" << Kind::NotAFlag;
    QTest::newRow("object") << DEFAULT_DEPARTMENT << "3" << Kind::None;
    QTest::newRow("object is gone") << DEFAULT_DEPARTMENT << "77" << Kind::ObjectGone;
    QTest::newRow("object of another list") << MOBILE_SMARTCARD_PROFILE_ID << "3" << Kind::ObjectGone;
    QTest::newRow("object of another type") << DEFAULT_DEPARTMENT << "4" << Kind::ObjectOfOtherType;
    QTest::newRow("object not granted") << MOBILE_SMARTCARD_PROFILE_ID << "5" << Kind::ObjectNotGranted;
    QTest::newRow("object below one not granted") << DEFAULT_DEPARTMENT << "8" << Kind::ObjectNotGranted;
    QTest::newRow("no object") << DEFAULT_DEPARTMENT << "0" << Kind::None;
    QTest::newRow("no object, never chosen") << DEFAULT_DEPARTMENT << "" << Kind::None;
    QTest::newRow("object below zero") << DEFAULT_DEPARTMENT << "-3" << Kind::ObjectGone;
    QTest::newRow("uid beyond its type") << DEFAULT_DEPARTMENT << "4294967299" << Kind::ObjectGone;
    QTest::newRow("object by name") << DEFAULT_DEPARTMENT << "Archive" << Kind::NotANumber;
    QTest::newRow("text") << MOBILE_HOST << "хост.example" << Kind::None;
    QTest::newRow("empty text") << MOBILE_HOST << "" << Kind::None;
    QTest::newRow("two lines") << MOBILE_HOST << "a\nb" << Kind::NotALine;
    QTest::newRow("zero character") << PASSWORD_DEF << QString("a") + QChar(0) << Kind::NotALine;
    QTest::newRow("half a character") << PASSWORD_DEF << QString(QChar(0xd83d)) << Kind::NotALine;
    QTest::newRow("longest line") << MOBILE_HOST << QString(32767, 'x') << Kind::None;
    QTest::newRow("too long a line") << MOBILE_HOST << QString(32768, 'x') << Kind::TooLong;
    QTest::newRow("read-only text") << VERSION << "7.4" << Kind::None;
}

void TestParameterDomain::problem()
{
    QFETCH(QString, parameter);
    QFETCH(QString, text);
    QTEST(ParameterDomain(parameter, objectIndex).problem(text), "problem");
}

void TestParameterDomain::allowed_data()
{
    QTest::addColumn<QString>("parameter");
    QTest::addColumn<QString>("allowed");

    QTest::newRow("number") << MAX_CARD_COUNT << "Допустимы целые числа от 1 до 20.";
    QTest::newRow("number with a word for its minimum")
        << USER_SESSION_TIMEOUT << "Допустимы целые числа от 0 до 1440; 0 означает «Без ограничений».";
    QTest::newRow("choice") << CARD_VIEW_FORMAT
                            << "Допустимые значения: 0 (Десятичный), 1 (Шестнадцатеричный), 2 (Семейство-код).";
    QTest::newRow("flag") << json::DENY_EQUAL << "Допустимые значения: true (да), false (нет).";
    QTest::newRow("object") << DEFAULT_DEPARTMENT
                            << "Допустим номер объекта, который предлагает страница настроек, или 0: не выбран.";
    QTest::newRow("text") << MOBILE_HOST << "Допустима одна строка длиной до 32767 знаков.";
}

void TestParameterDomain::allowed()
{
    QFETCH(QString, parameter);
    QTEST(ParameterDomain(parameter, objectIndex).allowed(), "allowed");
}

void TestParameterDomain::shownAsTheEditorsShowIt_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"",
                             "0",
                             "1",
                             "2",
                             "3",
                             "4",
                             "5",
                             "8",
                             "9",
                             "19",
                             "21",
                             "99",
                             "100",
                             "9999",
                             "10000",
                             "65536",
                             "-1",
                             "-5",
                             "007",
                             "+4",
                             " 5",
                             "5 ",
                             "5.5",
                             "1e3",
                             "0x10",
                             "2147483647",
                             "2147483648",
                             "-2147483649",
                             "4294967295",
                             "4294967297",
                             "99999999999999999999",
                             "true",
                             "false",
                             "TRUE",
                             "False",
                             "Да",
                             "abc",
                             "two\nlines",
                             "\t",
                             "{}",
                             "null"})
        QTest::newRow(text[0] ? text : "empty") << QString::fromUtf8(text);
    QTest::newRow("longer than any line") << QString(40000, '7');
}

void TestParameterDomain::shownAsTheEditorsShowIt()
{
    QFETCH(QString, text);
    const StoredObjects structure(vantorix::ORGSTRUCTURE_DATANAME, objects[vantorix::ORGSTRUCTURE_DATANAME]);
    const StoredObjects profiles(vantorix::SMARTCARD_PROFILE_DATANAME, objects[vantorix::SMARTCARD_PROFILE_DATANAME]);
    QHash<QString, QString> settings;
    for (const SettingAddress &address : SettingAddress::all())
        settings.insert(address.key, text);
    const StoredSettings stored(settings);

    const LoggingRules quiet("gui.lib.dbsettings.debug=false");
    int compared = 0;
    for (const SettingsPageName &page : settingsPages) {
        const auto tree = DBSettingsGroupFactory::create(page.group, nullptr, nullptr);
        for (const DBParamWidget *editor : tree->widget()->findChildren<DBParamWidget *>()) {
            // A member finds nothing to show in such a text.
            const QVariant read = settings.contains(editor->key()) ? QVariant(text) : QVariant();
            const QString shown = ParameterDomain(editor->key(), objectIndex).shown(read);
            QVERIFY2(shown == editor->value().toString(), qPrintable(describe(editor->key(), text) + ": " + shown));
            ++compared;
        }
    }
    QCOMPARE(compared, 38 + 24);
}

void TestParameterDomain::membersShownAsTheEditorsShowThem_data()
{
    QTest::addColumn<QString>("value");
    for (const char *value :
         {R"("")",      R"("7")",    R"("-5")", R"("abc")", R"("5.5")", R"("true")",  R"("false")",
          R"("0")",     R"("TRUE")", R"(" 6")", "0",        "1",        "5",          "-5",
          "19",         "8.4",       "8.5",     "0.4",      "1e1",      "2147483648", "18446744073709551615",
          "-1e400",     "true",      "false",   "null",     "[]",       "[7]",        "{}",
          R"({"a": 7})"})
        QTest::newRow(value) << QString::fromUtf8(value);
}

void TestParameterDomain::membersShownAsTheEditorsShowThem()
{
    QFETCH(QString, value);
    QHash<QString, QString> settings;
    for (const SettingAddress &address : SettingAddress::all()) {
        QString &text = settings[address.key];
        if (!address.member.isEmpty())
            text += QStringLiteral("%1\"%2\": %3").arg(text.isEmpty() ? "{" : ",", address.member, value);
    }
    for (const QString &key : {PIN_STRENGTH, PASSWORD_STRENGTH, PALM_TEMPLATES_AMOUNT_SETTINGS})
        settings[key] += '}';
    const StoredSettings stored(settings);

    const LoggingRules quiet("gui.lib.dbsettings.debug=false");
    int compared = 0;
    for (const DBGroups group : {DBGroups::Employees, DBGroups::Users, DBGroups::PalmScanning}) {
        const auto tree = DBSettingsGroupFactory::create(group, nullptr, nullptr);
        for (const DBParamWidget *editor : tree->widget()->findChildren<DBParamWidget *>()) {
            if (settings.contains(editor->key()))
                continue;
            const QJsonObject read = QJsonDocument::fromJson("{\"value\":" + value.toUtf8() + '}').object();
            const QString shown = ParameterDomain(editor->key(), objectIndex).shown(read["value"].toVariant());
            QVERIFY2(shown == editor->value().toString(), qPrintable(describe(editor->key(), value) + ": " + shown));
            ++compared;
        }
    }
    QCOMPARE(compared, 24);
}

void TestParameterDomain::whatIsFineIsShownAsItIs()
{
    int fine = 0;
    for (const SettingAddress &address : SettingAddress::all()) {
        if (address.isJsonObject())
            continue;
        const ParameterDomain domain(address.parameter(), objectIndex);
        for (const char *text : {"0", "1", "2", "5", "8", "10", "100", "1024", "true", "false", "host"}) {
            if (domain.problem(text) != Kind::None)
                continue;
            QCOMPARE(domain.shown(QString(text)), domain.stored(text));
            ++fine;
        }
    }
    QVERIFY(fine > 200);
}

QTEST_MAIN(TestParameterDomain)
#include "tst_parameterdomain.moc"
