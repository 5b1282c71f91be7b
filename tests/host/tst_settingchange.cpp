#include <host/settingchange.h>

#include "messages.h"

#include <vxsettings/dbkeys.h>

#include <QTest>

using namespace db::database;

class TestSettingChange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void between_data();
    void between();
    void theOrderOfThePages();
    void anythingMakesADifference_data();
    void anythingMakesADifference();
};

Q_DECLARE_METATYPE(SettingChange)

void TestSettingChange::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSettingChange::between_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QVector<SettingChange>>("changes");
    using Changes = QVector<SettingChange>;

    const auto pin = [](const QString &member) { return SettingAddress{PIN_STRENGTH, member}; };
    QTest::newRow("a text") << MOBILE_PORT << "80"
                            << "81" << Changes{{{MOBILE_PORT}, "80", "81"}};
    QTest::newRow("the same text") << MOBILE_PORT << "80"
                                   << "80" << Changes{};
    QTest::newRow("a new setting") << MOBILE_HOST << QString() << "" << Changes{{{MOBILE_HOST}, QString(), ""}};
    QTest::newRow("an unknown key") << "PT_OTHER"
                                    << "{}"
                                    << R"({"a": 1})" << Changes{{{"PT_OTHER"}, "{}", R"({"a": 1})"}};
    QTest::newRow("members in the order of the page")
        << PIN_STRENGTH << R"({"deny_equal": "false", "max_len": "9", "min_len": "4"})"
        << R"({"deny_equal": "true", "max_len": "9", "min_len": "5"})"
        << Changes{{pin("min_len"), "4", "5"}, {pin("deny_equal"), "false", "true"}};
    QTest::newRow("members written otherwise") << PIN_STRENGTH << R"({"min_len": "4", "deny_equal": true})"
                                               << R"({ "deny_equal": "true", "min_len": 4 })" << Changes{};
    QTest::newRow("members that come and go")
        << PIN_STRENGTH << R"({"min_len": "4"})"
        << R"({"zone": [1]})" << Changes{{pin("min_len"), "4", QString()}, {pin("zone"), QString(), "[1]"}};
    QTest::newRow("a member that is emptied, and one that comes empty")
        << PIN_STRENGTH << R"({"min_len": "4"})"
        << R"({"min_len": "", "zone": ""})" << Changes{{pin("min_len"), "4", ""}, {pin("zone"), QString(), ""}};
    QTest::newRow("nothing was stored") << PIN_STRENGTH << QString() << R"({"min_len": "4"})"
                                        << Changes{{pin("min_len"), QString(), "4"}};
    QTest::newRow("what was stored cannot be read")
        << PIN_STRENGTH << "{"
        << R"({"min_len": "4"})" << Changes{{pin("min_len"), QString(), "4"}};
    QTest::newRow("what is wanted cannot be read") << PIN_STRENGTH << R"({"min_len": "4"})"
                                                   << "{" << Changes{{{PIN_STRENGTH}, R"({"min_len": "4"})", "{"}};
}

void TestSettingChange::between()
{
    QFETCH(QString, key);
    QFETCH(QString, before);
    QFETCH(QString, after);
    QTEST(SettingChange::between(key, before, after), "changes");
}

void TestSettingChange::theOrderOfThePages()
{
    QVector<SettingChange> changes{{{"PT_OTHER"}}, {{MOBILE_PORT}}, {{PIN_STRENGTH, "min_len"}}, {{MOBILE_HOST}}};
    SettingChange::sort(changes);
    QStringList addresses;
    for (const SettingChange &change : changes)
        addresses << change.address.text();
    QCOMPARE(addresses, (QStringList{"PT_PIN_STRENGTH.min_len", MOBILE_HOST, MOBILE_PORT, "PT_OTHER"}));
}

void TestSettingChange::anythingMakesADifference_data()
{
    QTest::addColumn<SettingChange>("other");
    QTest::newRow("address") << SettingChange{{MOBILE_HOST}, "80", ""};
    QTest::newRow("text before") << SettingChange{{MOBILE_PORT}, "81", ""};
    QTest::newRow("text after") << SettingChange{{MOBILE_PORT}, "80", "81"};
    QTest::newRow("nothing in the place of an empty text") << SettingChange{{MOBILE_PORT}, "80", QString()};
}

void TestSettingChange::anythingMakesADifference()
{
    QFETCH(SettingChange, other);
    const SettingChange change{{MOBILE_PORT}, "80", ""};
    QVERIFY(change == change);
    QVERIFY(!(change == other));
}

QTEST_MAIN(TestSettingChange)
#include "tst_settingchange.moc"
