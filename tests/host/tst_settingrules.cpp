#include <host/settingrules.h>

#include <host/sampleinstallation.h>

#include "messages.h"

#include <vxsettings/dbkeys.h>

#include <QTest>

using namespace db::database;

class TestSettingRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void violations_data();
    void violations();
    void messages_data();
    void messages();
    void allAtOnceInTheOrderOfThePages();
    void theSampleKeepsThem();
};

namespace {

QString object(const QString &members)
{
    return '{' + members + '}';
}

QStringList broken(const vantorix::OBJECT_PARAMETERS &settings)
{
    QStringList broken;
    for (const SettingRules::Violation &violation : SettingRules::violations(settings))
        broken << violation.lower.text() + " > " + violation.upper.text();
    return broken;
}
} // namespace

void TestSettingRules::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSettingRules::violations_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("violation"); // null for none

    const QString pin = "PT_PIN_STRENGTH.min_len > PT_PIN_STRENGTH.max_len";
    QTest::newRow("minimum below maximum") << PIN_STRENGTH << object(R"("min_len": "4", "max_len": "8")") << QString();
    QTest::newRow("both alike") << PIN_STRENGTH << object(R"("min_len": "8", "max_len": "8")") << QString();
    QTest::newRow("minimum above maximum") << PIN_STRENGTH << object(R"("min_len": "9", "max_len": "8")") << pin;
    QTest::newRow("by number, not by letter")
        << PIN_STRENGTH << object(R"("min_len": "9", "max_len": "10")") << QString();
    QTest::newRow("JSON numbers") << PIN_STRENGTH << object(R"("min_len": 10, "max_len": 9)") << pin;
    QTest::newRow("the last of duplicates")
        << PIN_STRENGTH << object(R"("min_len": 1, "max_len": 9, "min_len": 10)") << pin;
    QTest::newRow("maximum is missing") << PIN_STRENGTH << object(R"("min_len": "9")") << QString();
    QTest::newRow("minimum is no number")
        << PIN_STRENGTH << object(R"("min_len": "many", "max_len": "8")") << QString();
    QTest::newRow("no object") << PIN_STRENGTH << "min_len=9" << QString();
    QTest::newRow("password, its restrictions off")
        << PASSWORD_STRENGTH << object(R"("use_password_strength": "false", "min_len": "9", "max_len": "8")")
        << "PT_PASSWORD_STRENGTH.min_len > PT_PASSWORD_STRENGTH.max_len";

    struct Pair
    {
        const char *limitation;
        const char *lower;
        const char *upper;
    };
    for (const Pair &pair :
         {Pair{"enable_palm_contact_limit", "left_contact_palm_min", "left_contact_palm_max"},
          Pair{"enable_palm_contact_limit", "right_contact_palm_min", "right_contact_palm_max"},
          Pair{"enable_palm_non_contact_limit", "left_non_contact_palm_min", "left_non_contact_palm_max"},
          Pair{"enable_palm_non_contact_limit", "right_non_contact_palm_min", "right_non_contact_palm_max"}}) {
        const QString amounts = QStringLiteral(R"("%1": "5", "%2": "4")").arg(pair.lower, pair.upper);
        const QString on = QStringLiteral(R"("%1": "true", )").arg(pair.limitation);
        const QString off = QStringLiteral(R"("%1": "false", )").arg(pair.limitation);
        const QString violation =
            QStringLiteral("PT_PALM_TEMPLATES_AMOUNT_SETTINGS.%1 > PT_PALM_TEMPLATES_AMOUNT_SETTINGS.%2")
                .arg(pair.lower, pair.upper);
        const QString &key = PALM_TEMPLATES_AMOUNT_SETTINGS;
        QTest::addRow("%s, limitation on", pair.lower) << key << object(on + amounts) << violation;
        QTest::addRow("%s, limitation off", pair.lower) << key << object(off + amounts) << QString();
        QTest::addRow("%s, limitation missing", pair.lower) << key << object(amounts) << QString();
    }
    QTest::newRow("the other limitation is on")
        << PALM_TEMPLATES_AMOUNT_SETTINGS
        << object(R"("enable_palm_non_contact_limit": 1, "left_contact_palm_min": "5", "left_contact_palm_max": "4")")
        << QString();
}

void TestSettingRules::violations()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    QFETCH(QString, violation);
    QCOMPARE(broken({{key, text}}), violation.isNull() ? QStringList() : QStringList{violation});
}

void TestSettingRules::messages_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");

    QTest::newRow("notice") << PASSWORD_NOTIFY << "14"
                            << "«Срок уведомления об изменении пароля (дней)» (14) больше, чем «Срок действия пароля "
                               "(дней)» (0). Уменьшите первое или увеличьте второе.";
    QTest::newRow("captions that occur twice") << PASSWORD_STRENGTH << R"({"min_len": "09", "max_len": "8"})"
                                               << "«Сложность пароля: Минимальная длина» (9) больше, чем «Сложность "
                                                  "пароля: Максимальная длина» (8). Уменьшите "
                                                  "первое или увеличьте второе.";
    QTest::newRow("captions that occur twice in one group")
        << PALM_TEMPLATES_AMOUNT_SETTINGS
        << R"({"enable_palm_contact_limit": "1", "right_contact_palm_min": "5", "right_contact_palm_max": "4"})"
        << "«Требование количества ладоней для контактных вен: Минимальное количество правых ладоней» (5) больше, чем "
           "«Требование количества ладоней для контактных вен: Максимальное количество правых ладоней» (4). Уменьшите "
           "первое или увеличьте второе.";
}

void TestSettingRules::messages()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    const auto violations = SettingRules::violations({{PASSWORD_EXPIRED, "0"}, {key, text}});
    QCOMPARE(violations.size(), 1);
    QTEST(violations.first().message, "message");
}

void TestSettingRules::allAtOnceInTheOrderOfThePages()
{
    const QString lengths = R"({"min_len": "9", "max_len": "8"})";
    QCOMPARE(broken({{PASSWORD_NOTIFY, "91"},
                     {PASSWORD_EXPIRED, "90"},
                     {PASSWORD_STRENGTH, lengths},
                     {PIN_STRENGTH, lengths},
                     {"PT_OTHER", lengths}}),
             QStringList({"PT_PIN_STRENGTH.min_len > PT_PIN_STRENGTH.max_len",
                          "PT_PASSWORD_STRENGTH.min_len > PT_PASSWORD_STRENGTH.max_len",
                          "PT_PASSWORD_NOTIFY > PT_PASSWORD_EXPIRED"}));
    QCOMPARE(broken({}), QStringList());
    QCOMPARE(broken({{PASSWORD_NOTIFY, "90"}, {PASSWORD_EXPIRED, "90"}}), QStringList());
}

void TestSettingRules::theSampleKeepsThem()
{
    QCOMPARE(broken(SampleInstallation::make().settings), QStringList());
}

QTEST_MAIN(TestSettingRules)
#include "tst_settingrules.moc"
