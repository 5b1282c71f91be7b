#include <host/healthcheck.h>
#include <host/objectindex.h>
#include <host/pageaccess.h>
#include <host/pageaccesswords.h>
#include <host/settingchange.h>
#include <host/settingsdifference.h>
#include <host/settingsdocument.h>
#include <host/settingspages.h>
#include <host/settingvalue.h>

#include "messages.h"

#include <vxsettings/dbkeys.h>
#include <vxsettings/dependentwidgetsbox.h>

#include <QJsonDocument>
#include <QTest>

using namespace db::database;
using Kind = SettingProblem::Kind;
using vantorix::OBJECT_PARAMETERS;

Q_DECLARE_METATYPE(SettingProblem::Kind)

class TestPageAccess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void whereNothingIsStoredEverythingMayBeEdited();
    void aTextLocksPages_data();
    void aTextLocksPages();
    void keysAreLockedWithTheirPage();
    void theBoxShowsAndGivesTheFlags();
    void aTextIsWrittenAroundWhatElseIsStored_data();
    void aTextIsWrittenAroundWhatElseIsStored();
    void findingsTellWhatIsWrong_data();
    void findingsTellWhatIsWrong();
    void theHealthCheckRepairsNothingOfIt();
    void aFlagIsJudgedLikeAnyFlag_data();
    void aFlagIsJudgedLikeAnyFlag();
    void aChangeIsToldPageByPage_data();
    void aChangeIsToldPageByPage();
    void aFileThatSpoilsItIsInvalid();
    void anExportHasIt();
    void aRefusalNamesPagesAndAWayOn_data();
    void aRefusalNamesPagesAndAWayOn();
};

namespace {

/// Page names that @p access locks.
QStringList lockedPages(const PageAccess &access)
{
    QStringList locked;
    for (const SettingsPageName &page : settingsPages) {
        if (!access.mayEdit(page.group))
            locked << page.name;
    }
    return locked;
}

QStringList allPages()
{
    return {"database",      "employees",     "users",         "scanning-common", "fingerprint-scanning",
            "palm-scanning", "face-scanning", "pass-requests", "connection",      "studio-mobile",
            "mobile-id",     "integration"};
}

const QString usersLocked = R"({"checked": true, "users": false})";
} // namespace

void TestPageAccess::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestPageAccess::whereNothingIsStoredEverythingMayBeEdited()
{
    const PageAccess access = PageAccess::in({{MOBILE_PORT, "1"}});
    QVERIFY(access.isReadable());
    QCOMPARE(lockedPages(access), QStringList());
    QVERIFY(access.findings().isEmpty());
    QCOMPARE(access.locked({MOBILE_PORT, VERSION, "PT_OLD"}), QStringList());
}

void TestPageAccess::aTextLocksPages_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("locked");
    QTest::newRow("no flags") << "{}" << QStringList();
    QTest::newRow("flags that are true") << R"({"users": true, "connection": true})" << QStringList();
    QTest::newRow("flags that are false")
        << R"({"users": false, "connection": false})" << QStringList{"users", "connection"};
    QTest::newRow("the group's flag decides nothing") << R"({"checked": false, "users": true})" << QStringList();
    QTest::newRow("a flag that is a number") << R"({"users": 1})" << QStringList{"users"};
    QTest::newRow("a flag that is a text") << R"({"users": "true"})" << QStringList{"users"};
    QTest::newRow("a flag that is null") << R"({"users": null})" << QStringList{"users"};
    QTest::newRow("another page's name") << R"({"Users": false})" << QStringList();
    QTest::newRow("a name that occurs twice") << R"({"users": true, "users": true})" << allPages();
    QTest::newRow("no object") << R"(["users"])" << allPages();
    QTest::newRow("cut off") << R"({"users": tr)" << allPages();
    QTest::newRow("an empty text") << "" << allPages();
}

void TestPageAccess::aTextLocksPages()
{
    QFETCH(QString, text);
    QTEST(lockedPages(PageAccess::in({{PageAccess::KEY, text}})), "locked");
}

void TestPageAccess::keysAreLockedWithTheirPage()
{
    const PageAccess access(R"({"users": false, "employees": false})");
    const QStringList keys{PIN_STRENGTH, MOBILE_PORT, USER_SESSION_COUNT, "PT_OLD", PageAccess::KEY};
    QCOMPARE(access.locked(keys), (QStringList{PIN_STRENGTH, USER_SESSION_COUNT, PageAccess::KEY}));
    QCOMPARE(PageAccess().locked({PageAccess::KEY}), QStringList{PageAccess::KEY});
}

void TestPageAccess::theBoxShowsAndGivesTheFlags()
{
    dependent_widget::GroupInfo info{"Страницы", {}, {}};
    for (int i = 0; i < allPages().size(); ++i)
        info.params.insert(allPages()[i], {"Страница", i});
    DependentWidgetsBox box(nullptr);
    const QJsonObject flags = PageAccess(usersLocked).flags();
    box.setData("TestPageAccess", info, flags);
    QCOMPARE(box.getData(), flags);
    QCOMPARE(flags.size(), 13);
    QCOMPARE(flags["users"], QJsonValue(false));
    QCOMPARE(flags["database"], QJsonValue(true));
    QCOMPARE(flags["checked"], QJsonValue(true));
    QCOMPARE(PageAccess("spoilt").flags()["checked"], QJsonValue(false));
}

void TestPageAccess::aTextIsWrittenAroundWhatElseIsStored_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("written");
    QTest::newRow("nothing is stored") << QString() << R"({"checked":true,"users":false})";
    QTest::newRow("another flag") << R"({"connection": false})"
                                  << R"({"checked":true,"connection":false,"users":false})";
    QTest::newRow("a member of a later version") << R"({"later": [1, 2], "users": true})"
                                                 << R"({"checked":true,"later":[1,2],"users":false})";
    QTest::newRow("a text that cannot be read") << "spoilt"
                                                << R"({"checked":true,"users":false})";
}

void TestPageAccess::aTextIsWrittenAroundWhatElseIsStored()
{
    QFETCH(QString, stored);
    const PageAccess access = stored.isNull() ? PageAccess() : PageAccess(stored);
    const QString text = access.textWith({{"users", false}});
    QTEST(QString::fromUtf8(QJsonDocument::fromJson(text.toUtf8()).toJson(QJsonDocument::Compact)), "written");
}

void TestPageAccess::findingsTellWhatIsWrong_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("address");
    QTest::addColumn<Kind>("problem");
    QTest::newRow("no object") << "[]"
                               << "VX_PAGE_ACCESS" << Kind::NotAJsonObject;
    QTest::newRow("an empty text") << ""
                                   << "VX_PAGE_ACCESS" << Kind::NotAJsonObject;
    QTest::newRow("a name that occurs twice") << R"({"users": true, "users": false})"
                                              << "VX_PAGE_ACCESS.users" << Kind::DuplicateMember;
    QTest::newRow("no flag") << R"({"users": "да"})"
                             << "VX_PAGE_ACCESS.users" << Kind::NotAFlag;
    QTest::newRow("no page") << R"({"user": true})"
                             << "VX_PAGE_ACCESS.user" << Kind::UnknownMember;
}

void TestPageAccess::findingsTellWhatIsWrong()
{
    QFETCH(QString, text);
    const ObjectIndex noObjects({});
    const auto findings = HealthCheck({{PageAccess::KEY, text}}, noObjects).findings();
    QCOMPARE(findings.size(), 1);
    QTEST(findings.first().address.text(), "address");
    QTEST(findings.first().problem, "problem");
    QVERIFY(!findings.first().words.isEmpty());
    QVERIFY(!findings.first().stored.isNull());
}

void TestPageAccess::theHealthCheckRepairsNothingOfIt()
{
    const ObjectIndex noObjects({});
    const OBJECT_PARAMETERS good{{PageAccess::KEY, usersLocked}};
    QVERIFY(HealthCheck(good, noObjects).findings().isEmpty()); // and no unknown key
    for (const char *text : {"[]", R"({"users": 1})", R"({"users": true, "users": true})"}) {
        const HealthCheck check({{PageAccess::KEY, text}}, noObjects);
        QVERIFY2(check.repairs(check.findings()).isEmpty(), text);
    }
}

void TestPageAccess::aFlagIsJudgedLikeAnyFlag_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("stored"); // null if it is refused
    QTest::newRow("yes") << "VX_PAGE_ACCESS.users"
                         << "Да"
                         << "true";
    QTest::newRow("no") << "VX_PAGE_ACCESS.users"
                        << "0"
                        << "false";
    QTest::newRow("no flag") << "VX_PAGE_ACCESS.users"
                             << "2" << QString();
    QTest::newRow("no page") << "VX_PAGE_ACCESS.user"
                             << "true" << QString();
    QTest::newRow("the group's flag, which follows") << "VX_PAGE_ACCESS.checked"
                                                     << "true" << QString();
    QTest::newRow("the whole") << "VX_PAGE_ACCESS" << usersLocked << usersLocked;
    QTest::newRow("a whole that is no object") << "VX_PAGE_ACCESS"
                                               << "[]" << QString();
    QTest::newRow("a whole with a number") << "VX_PAGE_ACCESS"
                                           << R"({"users": 0})" << QString();
}

void TestPageAccess::aFlagIsJudgedLikeAnyFlag()
{
    QFETCH(QString, address);
    QFETCH(QString, words);
    QFETCH(QString, stored);
    const auto judgement = SettingValue::judge(SettingAddress::fromText(address), words, ObjectIndex({}));
    QCOMPARE(judgement.stored.value_or(QString()), stored);
    QCOMPARE(judgement.error.isEmpty(), !stored.isNull());
}

void TestPageAccess::aChangeIsToldPageByPage_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QStringList>("told");
    QTest::newRow("the first flags") << QString() << usersLocked
                                     << QStringList{"Доступ операторов: Пользователи: можно изменять → закрыто"};
    QTest::newRow("opened again") << usersLocked << R"({"users": true})"
                                  << QStringList{"Доступ операторов: Пользователи: закрыто → можно изменять"};
    QTest::newRow("another spelling")
        << usersLocked << R"({"users":false})"
        << QStringList{"Доступ операторов к страницам: закрыты: «Пользователи» → закрыты: «Пользователи»"};
    QTest::newRow("nothing") << usersLocked << usersLocked << QStringList();
}

void TestPageAccess::aChangeIsToldPageByPage()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    QStringList told;
    for (const SettingChange &change : SettingChange::between(PageAccess::KEY, before, after)) {
        told << QStringLiteral("%1: %2 → %3")
                    .arg(change.address.caption(), PageAccessWords::value(change.address, change.before),
                         PageAccessWords::value(change.address, change.after));
    }
    QTEST(told, "told");
}

void TestPageAccess::aFileThatSpoilsItIsInvalid()
{
    const ObjectIndex noObjects({});
    const auto state = [&](const QString &text) {
        return SettingsDifference::rows({{PageAccess::KEY, text}}, {}, noObjects).first().state;
    };
    QCOMPARE(state(usersLocked), SettingsDifference::State::Changed);
    QCOMPARE(state("[]"), SettingsDifference::State::Invalid);
}

void TestPageAccess::anExportHasIt()
{
    const auto document = SettingsDocument::of({{PageAccess::KEY, usersLocked}}, SettingsDocument::Secrets::LeaveOut);
    QCOMPARE(document.settings().value(PageAccess::KEY), usersLocked);
}

void TestPageAccess::aRefusalNamesPagesAndAWayOn_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QStringList>("parts");
    QTest::newRow("a page") << QStringList{MOBILE_PORT, MOBILE_HOST}
                            << QStringList{"изменять страницы: «Настройки подключения».", "«Доступ операторов»",
                                           "--as-administrator"};
    QTest::newRow("two pages") << QStringList{MOBILE_PORT, USER_SESSION_COUNT}
                               << QStringList{"«Настройки подключения», «Пользователи»"};
    QTest::newRow("the access itself") << QStringList{PageAccess::KEY}
                                       << QStringList{"меняет администратор", "--as-administrator"};
}

void TestPageAccess::aRefusalNamesPagesAndAWayOn()
{
    QFETCH(QStringList, keys);
    QFETCH(QStringList, parts);
    const QString words = PageAccessWords::refusal(keys);
    for (const QString &part : qAsConst(parts))
        QVERIFY2(words.contains(part), qPrintable(words));
}

QTEST_MAIN(TestPageAccess)
#include "tst_pageaccess.moc"
