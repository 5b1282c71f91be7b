#include <host/healthcheck.h>

#include <host/objectindex.h>
#include <host/sampleinstallation.h>

#include "messages.h"

#include <vxsettings/dbkeys.h>

#include <QTest>

using namespace db::database;
using Kind = SettingProblem::Kind;
using vantorix::OBJECT_PARAMETERS;

class TestHealthCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theSampleIsHealthy();
    void nothingStoredIsHealthy();
    void findings();
    void aBrokenRule();
    void repairs_data();
    void repairs();
    void onlyTheGivenFindingsAreRepaired();
    void afterTheRepairsNoneIsLeft_data();
    void afterTheRepairsNoneIsLeft();
    void manyStrangersTakeTheirTimeOnce();
};

namespace {

const ObjectIndex noObjects({});

QStringList problems(const OBJECT_PARAMETERS &settings, const ObjectIndex &objects)
{
    QStringList problems;
    for (const SettingFinding &finding : HealthCheck(settings, objects).findings())
        problems << finding.address.text() + ": " + SettingProblem::name(finding.problem);
    return problems;
}

OBJECT_PARAMETERS repaired(OBJECT_PARAMETERS settings)
{
    const HealthCheck check(settings, noObjects);
    const OBJECT_PARAMETERS repairs = check.repairs(check.findings());
    for (auto repair = repairs.begin(); repair != repairs.end(); ++repair)
        settings.insert(repair.key(), *repair);
    return settings;
}
} // namespace

void TestHealthCheck::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestHealthCheck::theSampleIsHealthy()
{
    const Installation sample = SampleInstallation::make();
    QCOMPARE(problems(sample.settings, ObjectIndex(sample.objects)), QStringList());
}

void TestHealthCheck::nothingStoredIsHealthy()
{
    QCOMPARE(problems({}, noObjects), QStringList());
}

void TestHealthCheck::findings()
{
    Installation installation = SampleInstallation::make();
    const auto replacements = OBJECT_PARAMETERS{
        {"PT_PIN_STRENGTH.min_len", "4"}, // a key that merely looks like an address
        {"PT_ALPHA", "1"},
        {INTEGRATION_DEFAULT_DEPARTMENT, "7"},
        {MOBILE_SMARTCARD_PROFILE_ID, "15"},
        {MAX_CARD_COUNT, "25"},
        {PASSWORD_NOTIFY, "91"},
        {PIN_STRENGTH, R"({"min_len": "9", "max_len": "8", "min_len": "10", "zone": 1})"},
        {PASSWORD_STRENGTH, "none"},
    };
    for (auto setting = replacements.begin(); setting != replacements.end(); ++setting)
        installation.settings.insert(setting.key(), *setting);

    QCOMPARE(problems(installation.settings, ObjectIndex(installation.objects)),
             QStringList({"PT_MAX_CARD_COUNT: out-of-range", "PT_PIN_STRENGTH.min_len: duplicate-member",
                          "PT_PIN_STRENGTH.zone: unknown-member", "PT_PASSWORD_STRENGTH: not-a-json-object",
                          "PT_MOBILE_SMARTCARD_PROFILE_ID: object-not-granted",
                          "PT_INTEGRATION_DEFAULT_DEPARTMENT: object-gone", "PT_PIN_STRENGTH.min_len: broken-rule",
                          "PT_PASSWORD_NOTIFY: broken-rule", "PT_ALPHA: unknown-key",
                          "PT_PIN_STRENGTH.min_len: unknown-key"}));
}

void TestHealthCheck::aBrokenRule()
{
    const auto findings = HealthCheck({{PASSWORD_NOTIFY, "091"}, {PASSWORD_EXPIRED, "90"}}, noObjects).findings();
    QCOMPARE(findings.size(), 1);
    QVERIFY(findings.first().words.startsWith("«Срок уведомления"));
    QCOMPARE(findings.first().stored, QString("091"));
    QCOMPARE(findings.first().shown, QString("091"));
    QVERIFY(findings.first().repair.isNull()); // either value may be the wrong one
}

void TestHealthCheck::repairs_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("repaired");

    QTest::newRow("fine") << MAX_CARD_COUNT << "5"
                          << "5";
    QTest::newRow("number") << MAX_CARD_COUNT << "25"
                            << "20";
    QTest::newRow("reference") << DEFAULT_DEPARTMENT << "25"
                               << "0";
    QTest::newRow("nothing to propose") << MOBILE_HOST << "a\nb"
                                        << "a\nb";
    QTest::newRow("unknown key") << "PT_OTHER"
                                 << "\n"
                                 << "\n";
    QTest::newRow("members, others as they are written")
        << PIN_STRENGTH << R"({"zone": [1, 2.50], "min_len": "-5", "deny_equal": 2, "max_len": 8})"
        << "{\n    \"deny_equal\": \"true\",\n    \"max_len\": 8,\n    \"min_len\": \"0\",\n    \"zone\": [1, "
           "2.50]\n}\n";
    QTest::newRow("duplicates: the last as it is written")
        << PIN_STRENGTH << R"({"zone": 1, "min_len": 5, "zone": [2], "min_len": 6})"
        << "{\n    \"min_len\": 6,\n    \"zone\": [2]\n}\n";
    QTest::newRow("duplicates without a name") << PIN_STRENGTH << R"({"": 1, "min_len": 5, "": [2]})"
                                               << "{\n    \"\": [2],\n    \"min_len\": 5\n}\n";
    QTest::newRow("duplicate whose last value is wrong") << PIN_STRENGTH << R"({"min_len": 5, "min_len": "x"})"
                                                         << "{\n    \"min_len\": \"0\"\n}\n";
    QTest::newRow("only a stranger") << PIN_STRENGTH << R"({"zone":1})"
                                     << R"({"zone":1})";
    QTest::newRow("no object") << PIN_STRENGTH << "[]"
                               << "{\n    \"deny_equal\": \"false\",\n    \"deny_sequence\": \"false\",\n"
                                  "    \"max_len\": \"4\",\n    \"min_len\": \"0\"\n}\n";
}

void TestHealthCheck::repairs()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    QTEST(repaired({{key, text}}).value(key), "repaired");
}

void TestHealthCheck::onlyTheGivenFindingsAreRepaired()
{
    const HealthCheck check({{MAX_CARD_COUNT, "25"}, {MOBILE_PORT, "70000"}}, noObjects);
    const QVector<SettingFinding> findings = check.findings();
    QCOMPARE(findings.size(), 2);
    QCOMPARE(check.repairs({findings.last()}), (OBJECT_PARAMETERS{{MOBILE_PORT, "65535"}}));
    QCOMPARE(check.repairs({}), OBJECT_PARAMETERS());
}

void TestHealthCheck::afterTheRepairsNoneIsLeft_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text :
         {"", "-1", "abc", "5.5", "99999999999999999999", "{}", "[]", "null", "true", "two\nlines",
          R"({"min_len": "x", "min_len": "-1", "max_len": 1, "deny_equal": [], "left_contact_palm_min": 99})",
          R"({"min_len": "20", "max_len": "x", "zone": 1, "zone": 2})"})
        QTest::newRow(text[0] ? text : "empty") << QString::fromUtf8(text);
}

void TestHealthCheck::afterTheRepairsNoneIsLeft()
{
    QFETCH(QString, text);
    OBJECT_PARAMETERS settings{{"PT_OTHER", text}};
    for (const SettingAddress &address : SettingAddress::all())
        settings.insert(address.key, text);

    const auto left = HealthCheck(repaired(settings), noObjects).findings();
    for (const SettingFinding &finding : left)
        QVERIFY2(finding.repair.isNull(), qPrintable(finding.address.text() + ": " + finding.words));
}

void TestHealthCheck::manyStrangersTakeTheirTimeOnce()
{
    OBJECT_PARAMETERS settings;
    QStringList members;
    for (int i = 0; i < 20000; ++i) {
        settings.insert(QStringLiteral("PT_STRANGER_%1").arg(i, 5, 10, QLatin1Char('0')), "x");
        members << QStringLiteral("\"m%1\": 1, \"m%1\": 2").arg(i);
    }
    settings.insert(PIN_STRENGTH, '{' + members.join(',') + '}');
    const HealthCheck check(settings, noObjects);
    const QVector<SettingFinding> findings = check.findings();
    QCOMPARE(findings.size(), 20000 + 2 * 20000);
    QCOMPARE(findings.last().address.key, QString("PT_STRANGER_19999"));
    QCOMPARE(check.repairs(findings).size(), 1);
}

QTEST_MAIN(TestHealthCheck)
#include "tst_healthcheck.moc"
