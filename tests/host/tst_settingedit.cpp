#include <host/objectindex.h>
#include <host/settingedit.h>

#include "messages.h"

#include <vxsettings/dbkeys.h>

#include <QTest>

using namespace db::database;
using vantorix::OBJECT_PARAMETERS;

class TestSettingEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void valueIn_data();
    void valueIn();
    void shownIn_data();
    void shownIn();
    void clashes_data();
    void clashes();
    void texts_data();
    void texts();
};

Q_DECLARE_METATYPE(SettingAddress)
Q_DECLARE_METATYPE(SettingEdit)

namespace {

const SettingAddress host{MOBILE_HOST};
const SettingAddress maxLen{PIN_STRENGTH, json::MAX_LEN};
const SettingAddress minLen{PIN_STRENGTH, json::MIN_LEN};
const SettingAddress denyEqual{PIN_STRENGTH, json::DENY_EQUAL};
} // namespace

void TestSettingEdit::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSettingEdit::valueIn_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<SettingAddress>("address");
    QTest::addColumn<QString>("value");

    QTest::newRow("a text") << "some host" << host << "some host";
    QTest::newRow("nothing") << QString() << host << QString();
    QTest::newRow("a whole JSON text") << "{broken" << SettingAddress{PIN_STRENGTH} << "{broken";
    QTest::newRow("a text of a member") << R"({"max_len": "8"})" << maxLen << "8";
    QTest::newRow("a number of a member") << R"({"max_len": 8})" << maxLen << "8";
    QTest::newRow("a flag of a member") << R"({"deny_equal": true})" << denyEqual << "true";
    QTest::newRow("a member that is no scalar") << R"({"max_len": [1, 2.50]})" << maxLen << "[1, 2.50]";
    QTest::newRow("null") << R"({"max_len": null})" << maxLen << "null";
    QTest::newRow("the last of two") << R"({"max_len": 1, "max_len": 2})" << maxLen << "2";
    QTest::newRow("no such member") << R"({"min_len": "8"})" << maxLen << QString();
    QTest::newRow("no object") << "8" << maxLen << QString();
}

void TestSettingEdit::valueIn()
{
    QFETCH(QString, stored);
    QFETCH(SettingAddress, address);
    QTEST(SettingEdit::valueIn(stored, address), "value");
}

void TestSettingEdit::shownIn_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<SettingAddress>("address");
    QTest::addColumn<QString>("shown");

    QTest::newRow("a text") << "some host" << host << "some host";
    QTest::newRow("a number beyond the range") << "500" << SettingAddress{MAX_CARD_COUNT} << "20";
    QTest::newRow("an unknown choice") << "77" << SettingAddress{CARD_VIEW_FORMAT} << "0";
    QTest::newRow("an object that is gone") << "12" << SettingAddress{MOBILE_SMARTCARD_PROFILE_ID} << "0";
    QTest::newRow("an object") << "11" << SettingAddress{MOBILE_SMARTCARD_PROFILE_ID} << "11";
    QTest::newRow("a member as a number") << R"({"max_len": 8})" << maxLen << "8";
    QTest::newRow("a member as a text") << R"({"deny_equal": "1"})" << denyEqual << "true";
    QTest::newRow("no object at all") << "words" << denyEqual << "false";
}

void TestSettingEdit::shownIn()
{
    QFETCH(QString, stored);
    QFETCH(SettingAddress, address);
    const ObjectIndex objects({{vantorix::SMARTCARD_PROFILE_DATANAME, {{11, 0, "", "Visitors"}}}});
    QTEST(SettingEdit::shownIn(stored, address, objects), "shown");
}

void TestSettingEdit::clashes_data()
{
    QTest::addColumn<SettingEdit>("edit");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("revision");
    QTest::addColumn<bool>("clashes");

    const SettingEdit text{host, "mine", "base", 5};
    QTest::newRow("nobody else") << text << "base" << 5 << false;
    QTest::newRow("somebody else") << text << "theirs" << 6 << true;
    QTest::newRow("somebody else, back to the base") << text << "base" << 7 << true;
    QTest::newRow("the same as wanted") << text << "mine" << 6 << false;
    QTest::newRow("gone") << text << QString() << 0 << true;
    QTest::newRow("nothing stored, still nothing") << SettingEdit{host, "mine", {}, 0} << QString() << 0 << false;

    const SettingEdit member{maxLen, "9", R"({"max_len": "8", "min_len": "4"})", 5};
    QTest::newRow("the same member") << member << R"({"max_len": "7", "min_len": "4"})" << 6 << true;
    QTest::newRow("another member") << member << R"({"max_len": "8", "min_len": "5", "new": 1})" << 6 << false;
    QTest::newRow("another way to write it") << member << R"({"min_len":"4","max_len":8})" << 6 << false;
    QTest::newRow("the same member, as wanted") << member << R"({"max_len": 9})" << 6 << false;
    QTest::newRow("the member is gone") << member << "{}" << 6 << true;
    QTest::newRow("no object any more") << member << "words" << 6 << true;
    QTest::newRow("another list") << SettingEdit{maxLen, "9", R"({"max_len": [1]})", 5} << R"({"max_len": [2]})" << 6
                                  << true;
    QTest::newRow("what the editor shows as wanted")
        << SettingEdit{denyEqual, "true", R"({"deny_equal": "false"})", 5} << R"({"deny_equal": "1"})" << 6 << false;
}

void TestSettingEdit::clashes()
{
    QFETCH(SettingEdit, edit);
    QFETCH(QString, stored);
    QFETCH(int, revision);
    QTEST(edit.clashesWith(stored, revision, ObjectIndex({})), "clashes");
}

void TestSettingEdit::texts_data()
{
    QTest::addColumn<QVector<SettingEdit>>("edits");
    QTest::addColumn<QString>("stored"); // under PIN_STRENGTH
    QTest::addColumn<OBJECT_PARAMETERS>("texts");

    const SettingEdit text{host, "mine", "base", 1};
    const SettingEdit longest{maxLen, "9", "", 1};
    const SettingEdit shortest{minLen, "3", "", 1};
    QTest::newRow("none") << QVector<SettingEdit>() << "{}" << OBJECT_PARAMETERS();
    QTest::newRow("a text") << QVector<SettingEdit>{text} << "{}" << OBJECT_PARAMETERS{{MOBILE_HOST, "mine"}};
    QTest::newRow("a text and two members")
        << QVector<SettingEdit>{longest, text, shortest} << R"({"min_len": 4, "other": [1.0]})"
        << OBJECT_PARAMETERS{
               {MOBILE_HOST, "mine"},
               {PIN_STRENGTH, "{\n    \"max_len\": \"9\",\n    \"min_len\": \"3\",\n    \"other\": [1.0]\n}\n"}};
    QTest::newRow("a member where nothing is stored")
        << QVector<SettingEdit>{longest} << QString()
        << OBJECT_PARAMETERS{{PIN_STRENGTH, "{\n    \"max_len\": \"9\",\n    \"min_len\": \"4\"\n}\n"}};
}

void TestSettingEdit::texts()
{
    QFETCH(QVector<SettingEdit>, edits);
    QFETCH(QString, stored);
    const QHash<QString, JsonSetting::Texts> shown{{PIN_STRENGTH, {{"max_len", "8"}, {"min_len", "4"}}}};
    QTEST(SettingEdit::texts(edits, {{PIN_STRENGTH, stored}}, shown), "texts");
}

QTEST_MAIN(TestSettingEdit)
#include "tst_settingedit.moc"
