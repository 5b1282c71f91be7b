#include <host/settingwords.h>

#include "messages.h"

#include <host/settingaddress.h>

#include <vxsettings/dbkeys.h>

#include <localstorage/localstorage.h>

#include <QTest>

using namespace db::database;

class TestSettingWords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void caption_data();
    void caption();
    void value_data();
    void value();
    void valueAtAnAddress_data();
    void valueAtAnAddress();
    void secrets_data();
    void secrets();
};

Q_DECLARE_METATYPE(SettingAddress)

void TestSettingWords::initTestCase()
{
    failOnUnexpectedMessages();
    auto *storage = vantorix::LocalStorage::instance();
    storage->setObjects(vantorix::ORGSTRUCTURE_DATANAME, {{5, 0, "OT_DEPARTMENT", "Отдел кадров"}});
    storage->setObjects(vantorix::SMARTCARD_PROFILE_DATANAME, {{5, 0, "OT_SMARTCARD_PROFILE", "Посетители"}});
}

void TestSettingWords::caption_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("caption");
    QTest::newRow("parameter") << MOBILE_PORT << "Порт";
    QTest::newRow("JSON setting") << PIN_STRENGTH << "Сложность пин-кода";
}

void TestSettingWords::caption()
{
    QFETCH(QString, key);
    QTEST(SettingWords::caption(key), "caption");
}

void TestSettingWords::value_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("words");

    QTest::newRow("text") << MOBILE_HOST << "host"
                          << "«host»";
    QTest::newRow("empty text") << MOBILE_HOST << ""
                                << "«»";
    QTest::newRow("number") << MOBILE_PORT << "8443"
                            << "«8443»";
    QTest::newRow("choice") << CARD_VIEW_FORMAT << "1"
                            << "Шестнадцатеричный";
    QTest::newRow("unknown choice") << CARD_VIEW_FORMAT << "9"
                                    << "«9»";
    QTest::newRow("no number where a choice should be") << CARD_VIEW_FORMAT << ""
                                                        << "«»";
    QTest::newRow("object") << DEFAULT_DEPARTMENT << "5"
                            << "Отдел кадров";
    QTest::newRow("object of another data name") << MOBILE_SMARTCARD_PROFILE_ID << "5"
                                                 << "Посетители";
    QTest::newRow("unknown object") << DEFAULT_DEPARTMENT << "6"
                                    << "«6»";
    QTest::newRow("JSON members in the order of the page")
        << PIN_STRENGTH << R"({"deny_equal": "true", "min_len": 4, "other": "x", "deny_sequence": "false"})"
        << "Минимальная длина: «4»; Запрещать последовательные цифры: нет; Запрещать одинаковые цифры подряд: да";
    QTest::newRow("no JSON where it should be") << PIN_STRENGTH << "words"
                                                << "«words»";
}

void TestSettingWords::value()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    QTEST(SettingWords::value(key, text), "words");
}

void TestSettingWords::valueAtAnAddress_data()
{
    QTest::addColumn<SettingAddress>("address");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("words");

    const auto row = [](const char *name, const SettingAddress &address, const QString &text, const char *words) {
        QTest::newRow(name) << address << text << QString(words);
    };
    row("nothing", {MOBILE_HOST}, QString(), "не задано");
    row("text", {MOBILE_HOST}, "host", "«host»");
    row("text with control characters", {MOBILE_HOST}, "a\tb\nc", "«a b c»");
    row("number", {MOBILE_PORT}, "08443", "8443");
    row("number out of range", {MOBILE_PORT}, "70000", "«70000»");
    row("what stands for a number", {USER_SESSION_COUNT}, "0", "Без ограничений");
    row("number of a member", {PIN_STRENGTH, "min_len"}, "4", "4");
    row("flag of a member", {PIN_STRENGTH, "deny_equal"}, "true", "да");
    row("choice", {CARD_VIEW_FORMAT}, "1", "Шестнадцатеричный");
    row("object", {DEFAULT_DEPARTMENT}, "5", "Отдел кадров");
    row("no object", {DEFAULT_DEPARTMENT}, "0", "не выбрано");
    row("empty reference", {DEFAULT_DEPARTMENT}, "", "не выбрано");
    row("unknown key", {"PT_OTHER"}, "5", "«5»");
    row("unknown member", {PIN_STRENGTH, "zone"}, "[1]", "«[1]»");
    row("secret", {PASSWORD_DEF}, "canary", "скрыто");
    row("no secret", {PASSWORD_DEF}, "", "не задано");
}

void TestSettingWords::valueAtAnAddress()
{
    QFETCH(SettingAddress, address);
    QFETCH(QString, text);
    QTEST(SettingWords::value(address, text), "words");
    const QString words = SettingWords::value(SettingAddress{MOBILE_HOST}, QString(1000000, 'x'));
    QVERIFY(words.size() < 1000 && words.endsWith("…"));
}

void TestSettingWords::secrets_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("password") << PASSWORD_DEF;
    QTest::newRow("token") << LOCKER_ACCESS_TOKEN;
}

void TestSettingWords::secrets()
{
    QFETCH(QString, key);
    QVERIFY(SettingWords::isSecret(key));
    QVERIFY(!SettingWords::isSecret(MOBILE_HOST));
    QCOMPARE(SettingWords::value(key, "secret"), QString("скрыто"));
    QCOMPARE(SettingWords::value(key, ""), QString("не задано"));
}

QTEST_MAIN(TestSettingWords)
#include "tst_settingwords.moc"
