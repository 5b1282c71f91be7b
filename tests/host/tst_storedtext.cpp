#include <host/storedtext.h>

#include <host/objectindex.h>

#include "loggingrules.h"
#include "messages.h"
#include "storedsettings.h"

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbsettings.h>
#include <vxsettings/dbsettingsgroupfactory.h>

#include <QTest>

using namespace db::database;
using Kind = SettingProblem::Kind;

class TestStoredText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void value_data();
    void value();
    void members_data();
    void members();
    void words();
    void whatThePageWouldSave_data();
    void whatThePageWouldSave();
    void secretsAreNotTold_data();
    void secretsAreNotTold();
    void anEmptyTextIsNoSecret();
};

namespace {

const ObjectIndex objects({{vantorix::ORGSTRUCTURE_DATANAME,
                            {{3, 0, "OT_DEPARTMENT", "Archive"}, {5, 0, "OT_FIRM", "Secret works", false}}}});

/// A finding in one line: member, problem, stored → shown, repair; "-" for null.
QString line(const SettingFinding &finding)
{
    const auto told = [](const QString &text) { return text.isNull() ? QStringLiteral("-") : text; };
    const QString member = finding.address.member.isEmpty() ? QString() : finding.address.member + ' ';
    return QStringLiteral("%1%2: %3 → %4, %5")
        .arg(member, SettingProblem::name(finding.problem), told(finding.stored), told(finding.shown),
             told(finding.repair));
}

QStringList lines(const QString &key, const QString &text)
{
    QStringList lines;
    for (const SettingFinding &finding : StoredText(key, text, objects).findings())
        lines << line(finding);
    return lines;
}
} // namespace

Q_DECLARE_METATYPE(DBGroups)

void TestStoredText::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestStoredText::value_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("findings");

    QTest::newRow("fine") << MAX_CARD_COUNT << "5" << QStringList();
    QTest::newRow("clamped") << MAX_CARD_COUNT << "25" << QStringList{"out-of-range: 25 → 20, 20"};
    QTest::newRow("no number") << MAX_CARD_COUNT << "many" << QStringList{"not-a-number: many → 1, 1"};
    QTest::newRow("first choice") << ENROLL_MANUAL_CHECK_TEMPLATES_TYPE << "0"
                                  << QStringList{"unknown-choice: 0 → 1, 1"};
    QTest::newRow("gone") << DEFAULT_DEPARTMENT << "77" << QStringList{"object-gone: 77 → 0, 0"};
    QTest::newRow("not granted: another may see it")
        << DEFAULT_DEPARTMENT << "5" << QStringList{"object-not-granted: 5 → 0, -"};
    QTest::newRow("what is shown as it is cannot be repaired")
        << MOBILE_HOST << "a\tb" << QStringList{"not-a-line: a\tb → a\tb, -"};
    QTest::newRow("what is cut off is not given up")
        << MOBILE_HOST << QString(32768, 'x')
        << QStringList{"too-long: " + QString(32768, 'x') + " → " + QString(32767, 'x') + ", -"};
    QTest::newRow("read-only") << VERSION << "anything" << QStringList();
}

void TestStoredText::value()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    QTEST(lines(key, text), "findings");
}

void TestStoredText::members_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("findings");

    const QString none =
        "{\n    \"deny_equal\": \"false\",\n    \"deny_sequence\": \"false\",\n    \"max_len\": \"4\",\n"
        "    \"min_len\": \"0\"\n}\n";
    QTest::newRow("fine") << R"({"min_len": "4", "max_len": 8, "deny_equal": true})" << QStringList();
    QTest::newRow("missing members") << "{}" << QStringList();
    QTest::newRow("no JSON") << "{min_len: 4}"
                             << QStringList{"not-a-json-object: {min_len: 4} → " + none + ", " + none};
    QTest::newRow("an array") << "[]" << QStringList{"not-a-json-object: [] → " + none + ", " + none};
    QTest::newRow("empty") << "" << QStringList{"not-a-json-object:  → " + none + ", " + none};
    QTest::newRow("in the order of the page, strangers behind")
        << R"({"deny_equal": "maybe", "app": [1], "min_len": "-5", "\u0444": "2"})"
        << QStringList{"min_len out-of-range: -5 → 0, 0", "deny_equal not-a-flag: maybe → true, true",
                       "app unknown-member: [1] → -, -", "ф unknown-member: 2 → -, -"};
    QTest::newRow("no scalar") << R"({"min_len": null, "max_len": [9], "deny_equal": {}})"
                               << QStringList{"min_len not-a-scalar: null → 0, 0", "max_len not-a-scalar: [9] → 4, 4",
                                              "deny_equal not-a-scalar: {} → false, false"};
    QTest::newRow("fraction") << R"({"min_len": 4.5})" << QStringList{"min_len not-a-number: 4.5 → 5, 5"};
    QTest::newRow("duplicate") << R"({"min_len": "4", "min_len": 5})"
                               << QStringList{"min_len duplicate-member: \"4\", 5 → 5, 5"};
    QTest::newRow("duplicate whose last value is wrong")
        << R"({"min_len": "4", "min_len": "-5"})"
        << QStringList{"min_len duplicate-member: \"4\", \"-5\" → 0, -5", "min_len out-of-range: -5 → 0, 0"};
    QTest::newRow("a stranger without a name") << R"({"": "4"})" << QStringList{"unknown-member: 4 → -, -"};
    QTest::newRow("two strangers without a name")
        << R"({"": 1, "": [2]})" << QStringList{"duplicate-member: 1, [2] → -, [2]", "unknown-member: [2] → -, -"};
    QTest::newRow("duplicate stranger") << R"({"app": 1, "app": [2]})"
                                        << QStringList{"app duplicate-member: 1, [2] → -, [2]",
                                                       "app unknown-member: [2] → -, -"};
    QTest::newRow("member of another setting")
        << R"({"use_password_strength": "true"})" << QStringList{"use_password_strength unknown-member: true → -, -"};
}

void TestStoredText::members()
{
    QFETCH(QString, text);
    QTEST(lines(PIN_STRENGTH, text), "findings");
}

void TestStoredText::words()
{
    const auto findings = StoredText(MAX_CARD_COUNT, "25", objects).findings();
    QCOMPARE(findings.first().words, QString("Число вне допустимых границ. Допустимы целые числа от 1 до 20."));
}

void TestStoredText::whatThePageWouldSave_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<DBGroups>("page");

    QTest::newRow("PIN") << PIN_STRENGTH << DBGroups::Employees;
    QTest::newRow("password") << PASSWORD_STRENGTH << DBGroups::Users;
    QTest::newRow("palms") << PALM_TEMPLATES_AMOUNT_SETTINGS << DBGroups::PalmScanning;
}

void TestStoredText::whatThePageWouldSave()
{
    QFETCH(QString, key);
    QFETCH(DBGroups, page);
    const LoggingRules quiet("gui.lib.dbsettings.debug=false");
    const StoredSettings stored({{key, "no object"}});
    const auto tree = DBSettingsGroupFactory::create(page, nullptr, nullptr);
    QCOMPARE(StoredText(key, "no object", objects).shownInstead(), tree->parameters().value(key));
}

void TestStoredText::secretsAreNotTold_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");

    QTest::newRow("two lines") << PASSWORD_DEF << "canary\n";
    QTest::newRow("too long") << LOCKER_ACCESS_TOKEN << QString("canary").repeated(10000);
}

void TestStoredText::secretsAreNotTold()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    const auto findings = StoredText(key, text, objects).findings();
    QCOMPARE(findings.size(), 1);
    QVERIFY(findings.first().stored.isNull());
    QVERIFY(findings.first().shown.isNull());
    QVERIFY(findings.first().repair.isNull());
    QVERIFY(!findings.first().words.contains("canary"));
}

void TestStoredText::anEmptyTextIsNoSecret()
{
    const auto findings = StoredText(MAX_CARD_COUNT, QString(), objects).findings();
    QCOMPARE(findings.size(), 1);
    QVERIFY(!findings.first().stored.isNull());
}

QTEST_MAIN(TestStoredText)
#include "tst_storedtext.moc"
