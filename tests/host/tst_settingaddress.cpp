#include <host/settingaddress.h>

#include "messages.h"
#include "translation.h"

#include <vxsettings/dbkeys.h>

#include <QSet>
#include <QTest>

using namespace db::database;

class TestSettingAddress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void fromText_data();
    void fromText();
    void all();
    void catalogue_data();
    void catalogue();
    void caption_data();
    void caption();
    void captionsAreDifferent();
    void captionFollowsTheLanguage();
    void valueIn_data();
    void valueIn();
    void textWith_data();
    void textWith();
};

Q_DECLARE_METATYPE(DBGroups)

void TestSettingAddress::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSettingAddress::fromText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("member");
    QTest::addColumn<bool>("known");

    QTest::newRow("key") << "PT_MOBILE_PORT" << MOBILE_PORT << "" << true;
    QTest::newRow("JSON object") << "PT_PIN_STRENGTH" << PIN_STRENGTH << "" << true;
    QTest::newRow("member") << "PT_PIN_STRENGTH.min_len" << PIN_STRENGTH << "min_len" << true;
    QTest::newRow("member of another object")
        << "PT_PIN_STRENGTH.admit_empty_password" << PIN_STRENGTH << "admit_empty_password" << false;
    QTest::newRow("member of no object") << "PT_MOBILE_PORT.min_len" << MOBILE_PORT << "min_len" << false;
    QTest::newRow("member of a member") << "PT_PIN_STRENGTH.min_len.x" << PIN_STRENGTH << "min_len.x" << false;
    QTest::newRow("member without its key") << "min_len"
                                            << "min_len"
                                            << "" << false;
    QTest::newRow("dot at the end") << "PT_PIN_STRENGTH."
                                    << "PT_PIN_STRENGTH."
                                    << "" << false;
    QTest::newRow("dot at the beginning") << ".min_len"
                                          << ""
                                          << "min_len" << false;
    QTest::newRow("dot alone") << "."
                               << "."
                               << "" << false;
    QTest::newRow("empty") << ""
                           << ""
                           << "" << false;
    QTest::newRow("case differs") << "pt_mobile_port"
                                  << "pt_mobile_port"
                                  << "" << false;
    QTest::newRow("blank behind it") << "PT_MOBILE_PORT "
                                     << "PT_MOBILE_PORT "
                                     << "" << false;
}

void TestSettingAddress::fromText()
{
    QFETCH(QString, text);
    const SettingAddress address = SettingAddress::fromText(text);
    QTEST(address.key, "key");
    QTEST(address.member, "member");
    QTEST(address.isKnown(), "known");
    QCOMPARE(address.text(), text);
}

void TestSettingAddress::all()
{
    const QVector<SettingAddress> all = SettingAddress::all();
    QCOMPARE(all.size(), 41 + 4 + 10 + 10); // keys, and the members of the three objects
    QCOMPARE(all.first().text(), QString("PT_VERSION"));
    QCOMPARE(all.at(5).text(), QString("PT_PIN_STRENGTH"));
    QCOMPARE(all.at(6).text(), QString("PT_PIN_STRENGTH.min_len"));
    QCOMPARE(all.last().text(), QString("PT_INTEGRATION_DEFAULT_DEPARTMENT"));

    QSet<QString> texts;
    for (const SettingAddress &address : all) {
        QVERIFY(address.isKnown());
        QVERIFY(SettingAddress::fromText(address.text()) == address);
        texts.insert(address.text());
    }
    QCOMPARE(texts.size(), all.size());
    // A key that merely looks like an address.
    QVERIFY(!SettingAddress{"PT_PIN_STRENGTH.min_len"}.isKnown());
}

void TestSettingAddress::catalogue_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("parameter");
    QTest::addColumn<DBGroups>("group");
    QTest::addColumn<bool>("isObject");

    QTest::newRow("key") << "PT_MOBILE_PORT" << MOBILE_PORT << DBGroups::Connection << false;
    QTest::newRow("JSON object") << "PT_PASSWORD_STRENGTH" << PASSWORD_STRENGTH << DBGroups::Users << true;
    QTest::newRow("member") << "PT_PASSWORD_STRENGTH.min_len" << json::MIN_LEN << DBGroups::PasswordStrength << false;
    QTest::newRow("member that two objects have")
        << "PT_PIN_STRENGTH.min_len" << json::MIN_LEN << DBGroups::PinStrength << false;
}

void TestSettingAddress::catalogue()
{
    QFETCH(QString, text);
    const SettingAddress address = SettingAddress::fromText(text);
    QTEST(address.parameter(), "parameter");
    QTEST(address.group(), "group");
    QTEST(address.isJsonObject(), "isObject");
}

void TestSettingAddress::caption_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("caption");

    QTest::newRow("only one of that caption") << "PT_MOBILE_PORT"
                                              << "Порт";
    QTest::newRow("JSON object") << "PT_PIN_STRENGTH"
                                 << "Сложность пин-кода";
    QTest::newRow("member, only one of that caption") << "PT_PIN_STRENGTH.deny_equal"
                                                      << "Запрещать одинаковые цифры подряд";
    QTest::newRow("another page has the same") << "PT_DEFAULT_DEPARTMENT"
                                               << "Заявки: Подразделение по умолчанию";
    QTest::newRow("another object has the same") << "PT_PASSWORD_STRENGTH.min_len"
                                                 << "Сложность пароля: Минимальная длина";
    QTest::newRow("the same object has the same")
        << "PT_PALM_TEMPLATES_AMOUNT_SETTINGS.left_contact_palm_min"
        << "Требование количества ладоней для контактных вен: Минимальное количество левых ладоней";
    QTest::newRow("member that no editor shows") << "PT_PIN_STRENGTH.zone"
                                                 << "Сложность пин-кода: zone";
    QTest::newRow("its twin")
        << "PT_PALM_TEMPLATES_AMOUNT_SETTINGS.left_non_contact_palm_min"
        << "Требование количества ладоней для бесконтактных вен: Минимальное количество левых ладоней";
}

void TestSettingAddress::caption()
{
    QFETCH(QString, text);
    QTEST(SettingAddress::fromText(text).caption(), "caption");
}

void TestSettingAddress::captionsAreDifferent()
{
    QHash<QString, QString> seen;
    for (const SettingAddress &address : SettingAddress::all()) {
        const QString caption = address.caption();
        QVERIFY(!caption.isEmpty());
        QVERIFY2(!seen.contains(caption), qPrintable(address.text() + " and " + seen.value(caption)));
        seen.insert(caption, address.text());
    }
}

void TestSettingAddress::captionFollowsTheLanguage()
{
    const InstalledTranslation english(
        {{"QObject", "Минимальная длина", "Minimum length"}, {"QObject", "Сложность пин-кода", "PIN"}});
    QCOMPARE(SettingAddress::fromText("PT_PIN_STRENGTH.min_len").caption(), QString("PIN: Minimum length"));
}

void TestSettingAddress::valueIn_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("value"); // null for none

    QTest::newRow("key") << "PT_MOBILE_PORT"
                         << "8443";
    QTest::newRow("key with an empty text") << "PT_MOBILE_HOST"
                                            << "";
    QTest::newRow("key that is not stored") << "PT_MAX_CARD_COUNT" << QString();
    QTest::newRow("whole object") << "PT_PIN_STRENGTH"
                                  << R"({"min_len": "4", "max_len": 8, "deny_equal": null})";
    QTest::newRow("member") << "PT_PIN_STRENGTH.min_len"
                            << "4";
    QTest::newRow("member that is a number") << "PT_PIN_STRENGTH.max_len"
                                             << "8";
    QTest::newRow("member that is null") << "PT_PIN_STRENGTH.deny_equal" << QString();
    QTest::newRow("member that is missing") << "PT_PIN_STRENGTH.deny_sequence" << QString();
    QTest::newRow("member of what is no object") << "PT_PASSWORD_STRENGTH.min_len" << QString();
    QTest::newRow("member of what is not stored") << "PT_PALM_TEMPLATES_AMOUNT_SETTINGS.x" << QString();
    QTest::newRow("member that no editor shows") << "PT_OTHER.zone"
                                                 << "7";
}

void TestSettingAddress::valueIn()
{
    const QHash<QString, QString> settings{
        {MOBILE_PORT, "8443"},
        {MOBILE_HOST, ""},
        {PIN_STRENGTH, R"({"min_len": "4", "max_len": 8, "deny_equal": null})"},
        {PASSWORD_STRENGTH, "min_len=4"},
        {"PT_OTHER", R"({"zone": 7})"},
    };
    QFETCH(QString, text);
    QFETCH(QString, value);
    const auto found = SettingAddress::fromText(text).valueIn(settings);
    QCOMPARE(found.has_value(), !value.isNull());
    QCOMPARE(found.value_or(QString()), value);
}

void TestSettingAddress::textWith_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("text"); // null for none

    const QString alone = "{\n    \"min_len\": \"6\"\n}\n";
    QTest::newRow("key") << "PT_MOBILE_PORT"
                         << "8443"
                         << "6";
    QTest::newRow("member beside others") << "PT_PIN_STRENGTH.min_len"
                                          << R"({"zone": [1], "min_len": 4, "x": 2.50})"
                                          << "{\n    \"min_len\": \"6\",\n    \"x\": 2.50,\n    \"zone\": [1]\n}\n";
    QTest::newRow("member of an empty object") << "PT_PIN_STRENGTH.min_len"
                                               << "{}" << alone;
    QTest::newRow("member where nothing is stored") << "PT_PIN_STRENGTH.min_len" << QString() << alone;
    QTest::newRow("member where only blanks are stored") << "PT_PIN_STRENGTH.min_len"
                                                         << " \n"
                                                         << alone;
    QTest::newRow("member of another text") << "PT_PIN_STRENGTH.min_len"
                                            << "[]" << QString();
    QTest::newRow("member beside duplicates") << "PT_PIN_STRENGTH.min_len"
                                              << R"({"x": 1, "x": 2})" << QString();
}

void TestSettingAddress::textWith()
{
    QFETCH(QString, address);
    QFETCH(QString, stored);
    QFETCH(QString, text);
    const auto result = SettingAddress::fromText(address).textWith("6", stored);
    QCOMPARE(result.has_value(), !text.isNull());
    QCOMPARE(result.value_or(QString()), text);
}

QTEST_MAIN(TestSettingAddress)
#include "tst_settingaddress.moc"
