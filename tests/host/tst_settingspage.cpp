#include <host/hostenvironment.h>
#include <host/sampleinstallation.h>
#include <host/settingspage.h>
#include <host/settingspages.h>

#include "editors.h"
#include "messages.h"

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbsettingshelper.h>

#include <localstorage/localstorage.h>

#include <QCheckBox>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using namespace db::database;

/// A shown page, with some of the stored texts of the sample replaced.
class ShownPage
{
public:
    explicit ShownPage(DBGroups group, const QHash<QString, QString> &replaced = {})
    {
        QHash<QString, QString> settings = SampleInstallation::make().settings;
        for (auto text = replaced.begin(); text != replaced.end(); ++text)
            settings.insert(text.key(), text.value());
        vantorix::LocalStorage::instance()->setDbSettings(settings);

        window = std::make_unique<QWidget>();
        auto *layout = new QVBoxLayout(window.get());
        page = std::make_unique<SettingsPage>(group, window.get());
        layout->addWidget(page->widget());
        window->show();
    }

    template <typename Input>
    Input *input(const QString &key) const
    {
        return editors::input<Input>(window.get(), key);
    }

    /// What is changed, as address and text.
    QHash<QString, QString> changes() const
    {
        QHash<QString, QString> changes;
        for (const SettingAddress &address : page->changed())
            changes.insert(address.text(), page->shown(address));
        return changes;
    }
    void revert() const
    {
        for (const SettingAddress &address : page->addresses())
            page->revert(address);
    }

    std::unique_ptr<QWidget> window;
    std::unique_ptr<SettingsPage> page;
};

using Changes = QHash<QString, QString>;

Q_DECLARE_METATYPE(SettingAddress)

/// What the catalogue has on a page, in its order.
QVector<SettingAddress> addressesOf(DBGroups page)
{
    QVector<SettingAddress> addresses;
    for (const QString &key : DBSettingsHelper::groupParams(page)) {
        const bool isJson = DBSettingsHelper::paramType(key) == DBSettingsType::JsonGroup;
        if (!isJson)
            addresses.append({key});
        for (const QString &member :
             isJson ? DBSettingsHelper::groupParams(DBSettingsHelper::jsonGroup(key)) : QStringList())
            addresses.append({key, member});
    }
    return addresses;
}

class TestSettingsPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aFreshPageHasNoChanges_data();
    void aFreshPageHasNoChanges();
    void typedTextIsAChange();
    void anEditPutBackIsNoChange();
    void aJsonMemberChangesItsSetting();
    void revertBringsTheBaselineBack_data();
    void revertBringsTheBaselineBack();
    void acceptMovesTheBaseline();
    void whatIsTypedAfterASaveStaysAChange();
    void acceptLeavesTheCursorAlone();
    void editsByProgram_data();
    void editsByProgram();
    void insistingMakesAChange_data();
    void insistingMakesAChange();
    void anUntouchedParameterFollows();
    void anEditedParameterIsKept();
    void dependentsFollowOthers();
    void anObjectThatIsGoneCannotComeBack();
    void anUnknownParameterIsNothing();
    void dependentsAreSwitchedOnLoad_data();
    void dependentsAreSwitchedOnLoad();
    void dependentsFollowTheUser();
    void dependentsFollowAJsonMember();
    void dependentsFollowARevert();
    void theOrderOfDestruction_data();
    void theOrderOfDestruction();
};

void TestSettingsPage::initTestCase()
{
    failOnUnexpectedMessages();
    HostEnvironment::prepare();
    qRegisterMetaType<SettingAddress>();
    const Installation sample = SampleInstallation::make();
    for (auto objects = sample.objects.begin(); objects != sample.objects.end(); ++objects)
        vantorix::LocalStorage::instance()->setObjects(objects.key(), objects.value());
}

void TestSettingsPage::aFreshPageHasNoChanges_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("text"); // stored for every key of the page; null for the sample's
    const QVector<std::pair<const char *, QString>> texts{
        {"the sample", QString()},
        {"nothing", QString("")},
        {"words", "some words"},
        {"huge number", "99999999999999999999"},
        {"negative number", "-1"},
        {"HTML", "<b>bold</b>&nbsp;"},
        {"lines", "a\nb\r\n\tc"},
        {"zero character", QString("1") + QChar(0) + "2"},
        {"broken JSON", "{\"min_len\": "},
        {"JSON array", "[1, 2]"},
        {"JSON of other kinds", R"({"min_len": 7.5, "max_len": null, "deny_equal": [], "use_password_strength": 1})"},
    };
    for (const SettingsPageName &page : settingsPages) {
        for (const auto &[name, text] : texts)
            QTest::addRow("%s: %s", page.name, name) << int(page.group) << text;
    }
}

void TestSettingsPage::aFreshPageHasNoChanges()
{
    QFETCH(int, group);
    QFETCH(QString, text);
    QHash<QString, QString> stored;
    if (!text.isNull()) {
        for (const QString &key : DBSettingsHelper::groupParams(DBGroups(group)))
            stored.insert(key, text);
    }
    const ShownPage shown(DBGroups(group), stored);
    QCOMPARE(shown.page->group(), DBGroups(group));
    QCOMPARE(shown.changes(), Changes());
    QCOMPARE(shown.page->addresses(), addressesOf(DBGroups(group)));
    for (const SettingAddress &address : shown.page->addresses())
        QCOMPARE(shown.page->shown(address), shown.page->baseline(address));
    shown.revert();
    QCOMPARE(shown.changes(), Changes());
}

void TestSettingsPage::typedTextIsAChange()
{
    const ShownPage shown(DBGroups::Connection);
    QSignalSpy edited(shown.page.get(), &SettingsPage::edited);
    editors::retype(shown.input<QLineEdit>(MOBILE_HOST), "h");
    QCOMPARE(edited.count(), 1);
    QCOMPARE(shown.changes(), (Changes{{MOBILE_HOST, "h"}}));

    editors::retype(shown.input<QSpinBox>(MOBILE_PORT), "9000");
    QCOMPARE(shown.changes(), (Changes{{MOBILE_HOST, "h"}, {MOBILE_PORT, "9000"}}));
}

void TestSettingsPage::anEditPutBackIsNoChange()
{
    const ShownPage shown(DBGroups::Connection);
    editors::retype(shown.input<QSpinBox>(MOBILE_PORT), "9000");
    QVERIFY(!shown.changes().isEmpty());
    editors::retype(shown.input<QSpinBox>(MOBILE_PORT), "8443");
    QCOMPARE(shown.changes(), Changes());
}

void TestSettingsPage::aJsonMemberChangesItsSetting()
{
    const ShownPage shown(DBGroups::Employees);
    editors::click(shown.input<QCheckBox>(json::DENY_EQUAL));
    QCOMPARE(shown.changes(), (Changes{{PIN_STRENGTH + ".deny_equal", "false"}}));
    const SettingAddress address{PIN_STRENGTH, json::DENY_EQUAL};
    QVERIFY(shown.page->isChanged(address));
    QCOMPARE(shown.page->baseline(address), QString("true"));
    QVERIFY(!shown.page->isChanged({PIN_STRENGTH, json::DENY_SEQUENCE}));
    QVERIFY(!shown.page->isChanged({PASSWORD_STRENGTH, json::DENY_EQUAL}));
}

void TestSettingsPage::revertBringsTheBaselineBack_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("typed"); // "next" for the next choice

    QTest::newRow("line edit") << int(DBGroups::Connection) << MOBILE_HOST << "host"
                               << "other";
    QTest::newRow("password") << int(DBGroups::Users) << PASSWORD_DEF << "old"
                              << "new";
    QTest::newRow("spin box") << int(DBGroups::Connection) << MOBILE_PORT << "80"
                              << "90";
    QTest::newRow("spin box that clamped") << int(DBGroups::Employees) << MAX_CARD_COUNT << "500"
                                           << "3";
    QTest::newRow("combo box") << int(DBGroups::Employees) << CARD_VIEW_FORMAT << "0"
                               << "next";
    QTest::newRow("combo box with an unknown choice") << int(DBGroups::Employees) << CARD_VIEW_FORMAT << "77"
                                                      << "next";
    QTest::newRow("combo box without a stored choice") << int(DBGroups::Employees) << CARD_VIEW_FORMAT << ""
                                                       << "next";
}

void TestSettingsPage::revertBringsTheBaselineBack()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    QFETCH(QString, stored);
    QFETCH(QString, typed);
    const ShownPage shown(DBGroups(group), {{key, stored}});
    const QString before = shown.page->baseline({key});
    if (typed == "next")
        editors::chooseNext(shown.input<QComboBox>(key));
    else
        editors::retype(shown.input<QWidget>(key), typed);
    QCOMPARE(shown.changes().keys(), QStringList{key});

    QSignalSpy edited(shown.page.get(), &SettingsPage::edited);
    shown.page->revert({key});
    QCOMPARE(edited.count(), 0);
    QCOMPARE(shown.changes(), Changes());
    QCOMPARE(editors::find(shown.window.get(), key)->value().toString(), before);
}

void TestSettingsPage::acceptMovesTheBaseline()
{
    const ShownPage shown(DBGroups::Connection);
    editors::retype(shown.input<QLineEdit>(MOBILE_HOST), "accepted");
    shown.page->accept({MOBILE_HOST}, "accepted");
    QCOMPARE(shown.changes(), Changes());
    QCOMPARE(shown.page->baseline({MOBILE_HOST}), QString("accepted"));

    editors::retype(shown.input<QLineEdit>(MOBILE_HOST), "later");
    shown.revert();
    QCOMPARE(shown.input<QLineEdit>(MOBILE_HOST)->text(), QString("accepted"));
}

void TestSettingsPage::whatIsTypedAfterASaveStaysAChange()
{
    const ShownPage shown(DBGroups::Connection);
    editors::retype(shown.input<QLineEdit>(MOBILE_HOST), "later");
    shown.page->accept({MOBILE_HOST}, "saved");
    QCOMPARE(shown.changes(), (Changes{{MOBILE_HOST, "later"}}));
    shown.revert();
    QCOMPARE(shown.input<QLineEdit>(MOBILE_HOST)->text(), QString("saved"));
}

void TestSettingsPage::acceptLeavesTheCursorAlone()
{
    const ShownPage shown(DBGroups::Connection);
    auto *input = shown.input<QLineEdit>(MOBILE_HOST);
    editors::retype(input, "host");
    QTest::keyClick(input, Qt::Key_Home);
    shown.page->accept({MOBILE_HOST}, "host");
    QTest::keyClicks(input, "my");
    QCOMPARE(input->text(), QString("myhost"));
}

void TestSettingsPage::editsByProgram_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<SettingAddress>("address");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");

    const auto row = [](const char *name, DBGroups group, const SettingAddress &address, const QString &text,
                        const QString &shown) { QTest::newRow(name) << int(group) << address << text << shown; };
    row("line edit", DBGroups::Connection, {MOBILE_HOST}, "other", "other");
    row("password", DBGroups::Users, {PASSWORD_DEF}, "new", "new");
    row("spin box", DBGroups::Connection, {MOBILE_PORT}, "90", "90");
    row("spin box beyond its range", DBGroups::Employees, {MAX_CARD_COUNT}, "900", "20");
    row("combo box", DBGroups::Employees, {CARD_VIEW_FORMAT}, "1", "1");
    row("check box", DBGroups::Employees, {PIN_STRENGTH, json::DENY_EQUAL}, "false", "false");
    row("object", DBGroups::MobileId, {MOBILE_SMARTCARD_PROFILE_ID}, "13", "13");
    row("no object", DBGroups::MobileId, {MOBILE_SMARTCARD_PROFILE_ID}, "0", "0");
}

void TestSettingsPage::editsByProgram()
{
    QFETCH(int, group);
    QFETCH(SettingAddress, address);
    QFETCH(QString, text);
    QFETCH(QString, shown);
    const ShownPage page{DBGroups(group)};
    const QString before = page.page->shown(address);
    QVERIFY(before != shown);
    const QSignalSpy edited(page.page.get(), &SettingsPage::edited);
    QCOMPARE(page.page->edit(address, text), text == shown);
    QCOMPARE(page.changes(), (Changes{{address.text(), shown}}));
    QCOMPARE(page.page->baseline(address), before);
    QCOMPARE(edited.count(), 0);
    page.revert();
    QCOMPARE(page.page->shown(address), before);
}

void TestSettingsPage::insistingMakesAChange_data()
{
    QTest::addColumn<QString>("end");
    for (const char *end : {"typed", "reverted", "accepted"})
        QTest::newRow(end) << QString(end);
}

void TestSettingsPage::insistingMakesAChange()
{
    QFETCH(QString, end);
    const ShownPage shown(DBGroups::Employees, {{MAX_CARD_COUNT, "500"}});
    const SettingAddress cards{MAX_CARD_COUNT};
    QCOMPARE(shown.changes(), Changes());
    shown.page->insist(cards);
    QCOMPARE(shown.changes(), (Changes{{MAX_CARD_COUNT, "20"}}));
    shown.page->follow(cards, "19");
    QCOMPARE(shown.changes(), (Changes{{MAX_CARD_COUNT, "20"}}));
    shown.page->follow(cards, "20");
    QCOMPARE(shown.changes(), (Changes{{MAX_CARD_COUNT, "20"}}));

    if (end == "typed")
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up})
            QTest::keyClick(shown.input<QSpinBox>(MAX_CARD_COUNT), key);
    else if (end == "reverted")
        shown.page->revert(cards);
    else
        shown.page->accept(cards, "20");
    QCOMPARE(shown.page->shown(cards), QString("20"));
    QCOMPARE(shown.changes(), Changes());
}

void TestSettingsPage::anUntouchedParameterFollows()
{
    const ShownPage shown(DBGroups::Connection);
    const QSignalSpy edited(shown.page.get(), &SettingsPage::edited);
    shown.page->follow({MOBILE_HOST}, "theirs");
    shown.page->follow({MOBILE_PORT}, "90");
    QCOMPARE(shown.input<QLineEdit>(MOBILE_HOST)->text(), QString("theirs"));
    QCOMPARE(shown.input<QSpinBox>(MOBILE_PORT)->value(), 90);
    QCOMPARE(shown.changes(), Changes());
    QCOMPARE(edited.count(), 0);
}

void TestSettingsPage::anEditedParameterIsKept()
{
    const ShownPage shown(DBGroups::Connection);
    editors::retype(shown.input<QLineEdit>(MOBILE_HOST), "mine");
    shown.page->follow({MOBILE_HOST}, "theirs");
    QCOMPARE(shown.changes(), (Changes{{MOBILE_HOST, "mine"}}));
    shown.page->follow({MOBILE_HOST}, "mine");
    QCOMPARE(shown.changes(), Changes());
    shown.page->follow({MOBILE_HOST}, "theirs, later");
    QCOMPARE(shown.input<QLineEdit>(MOBILE_HOST)->text(), QString("theirs, later"));
}

void TestSettingsPage::dependentsFollowOthers()
{
    const ShownPage shown(DBGroups::FaceScanning, {{ENABLE_FACE_SCANNING, "0"}});
    QVERIFY(!shown.input<QSpinBox>(ENROLL_FACE_MIN_SIZE)->isEnabled());
    shown.page->follow({ENABLE_FACE_SCANNING}, "1");
    QVERIFY(shown.input<QSpinBox>(ENROLL_FACE_MIN_SIZE)->isEnabled());
}

void TestSettingsPage::anObjectThatIsGoneCannotComeBack()
{
    const ShownPage shown(DBGroups::MobileId, {{MOBILE_SMARTCARD_PROFILE_ID, "11"}});
    const SettingAddress profile{MOBILE_SMARTCARD_PROFILE_ID};
    QVERIFY(shown.page->edit(profile, "12"));
    auto *storage = vantorix::LocalStorage::instance();
    const auto objects = storage->objects(vantorix::SMARTCARD_PROFILE_DATANAME);
    storage->setObjects(vantorix::SMARTCARD_PROFILE_DATANAME, {objects[1]});
    shown.page->revert(profile);
    const QString reverted = shown.page->shown(profile);
    const Changes changes = shown.changes();
    storage->setObjects(vantorix::SMARTCARD_PROFILE_DATANAME, objects);
    QCOMPARE(reverted, QString("0"));
    QCOMPARE(changes, Changes());
}

void TestSettingsPage::anUnknownParameterIsNothing()
{
    const ShownPage shown(DBGroups::Connection);
    const SettingAddress elsewhere{MAX_CARD_COUNT};
    QVERIFY(!shown.page->editor(elsewhere));
    QVERIFY(!shown.page->edit(elsewhere, "1"));
    QVERIFY(!shown.page->isChanged(elsewhere));
    QVERIFY(shown.page->shown(elsewhere).isNull());
    shown.page->revert(elsewhere);
    shown.page->accept(elsewhere, "1");
    shown.page->follow(elsewhere, "1");
    QCOMPARE(shown.changes(), Changes());
    QCOMPARE(shown.page->addresses(MOBILE_HOST), QVector<SettingAddress>{{MOBILE_HOST}});
    QCOMPARE(shown.page->addresses(MAX_CARD_COUNT), QVector<SettingAddress>());
}

void TestSettingsPage::dependentsAreSwitchedOnLoad_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("dependent");
    QTest::addColumn<bool>("enabled");

    const auto row = [](const char *name, DBGroups group, const QString &key, const QString &stored,
                        const QString &dependent,
                        bool enabled) { QTest::newRow(name) << int(group) << key << stored << dependent << enabled; };
    row("fingerprints on", DBGroups::FingerprintScanning, ENABLE_FINGERPRINT_SCANNING, "1", ENROLL_FINGERPRINT_QUALITY,
        true);
    row("fingerprints off", DBGroups::FingerprintScanning, ENABLE_FINGERPRINT_SCANNING, "0", ENROLL_FINGERPRINT_QUALITY,
        false);
    row("palms off", DBGroups::PalmScanning, ENABLE_PALM_SCANNING, "0", ENROLL_SKYHAND_QUALITY, false);
    row("palms off leaves the amounts alone", DBGroups::PalmScanning, ENABLE_PALM_SCANNING, "0",
        json::ENABLE_CONTACT_PALM_AMOUNT_LIMITATIONS, true);
    row("faces on", DBGroups::FaceScanning, ENABLE_FACE_SCANNING, "1", ENROLL_SHOW_FACE_QUALITY, true);
    row("photograph withheld", DBGroups::StudioMobile, MOBILE_WITHOUT_PHOTO, "1", MOBILE_VERIFY_FACE, false);
    row("photograph sent", DBGroups::StudioMobile, MOBILE_WITHOUT_PHOTO, "0", MOBILE_VERIFY_FACE, true);
    row("password restrictions off", DBGroups::Users, PASSWORD_STRENGTH, R"({"use_password_strength": "false"})",
        json::MIN_LEN, false);
    row("password restrictions on", DBGroups::Users, PASSWORD_STRENGTH, R"({"use_password_strength": "true"})",
        json::MIN_LEN, true);
    row("contactless limits on", DBGroups::PalmScanning, PALM_TEMPLATES_AMOUNT_SETTINGS,
        R"({"enable_palm_non_contact_limit": "true"})", json::NON_CONTACT_LEFT_PALM_MAX_AMOUNT, true);
    row("contact limits not stored", DBGroups::PalmScanning, PALM_TEMPLATES_AMOUNT_SETTINGS, "{}",
        json::CONTACT_LEFT_PALM_MAX_AMOUNT, false);
    row("PIN lengths have no switch", DBGroups::Employees, PIN_STRENGTH, "{}", json::MIN_LEN, true);
}

void TestSettingsPage::dependentsAreSwitchedOnLoad()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    QFETCH(QString, stored);
    QFETCH(QString, dependent);
    QFETCH(bool, enabled);
    const ShownPage shown(DBGroups(group), {{key, stored}});
    QCOMPARE(shown.input<QWidget>(dependent)->isEnabled(), enabled);
}

void TestSettingsPage::dependentsFollowTheUser()
{
    const ShownPage shown(DBGroups::FaceScanning, {{ENABLE_FACE_SCANNING, "0"}});
    auto *sizes = shown.input<QSpinBox>(ENROLL_FACE_MIN_SIZE);
    QVERIFY(!sizes->isEnabled());
    QTest::keyClick(shown.input<QComboBox>(ENABLE_FACE_SCANNING), Qt::Key_Down);
    QVERIFY(sizes->isEnabled());
    QTest::keyClick(shown.input<QComboBox>(ENABLE_FACE_SCANNING), Qt::Key_Up);
    QVERIFY(!sizes->isEnabled());
}

void TestSettingsPage::dependentsFollowAJsonMember()
{
    const ShownPage shown(DBGroups::Users);
    auto *minLen = shown.input<QSpinBox>(json::MIN_LEN);
    QVERIFY(minLen->isEnabled());
    editors::click(shown.input<QCheckBox>(json::USE_PASSWORD_STRENGTH));
    QVERIFY(!minLen->isEnabled());
}

void TestSettingsPage::dependentsFollowARevert()
{
    const ShownPage shown(DBGroups::FaceScanning, {{ENABLE_FACE_SCANNING, "0"}});
    QTest::keyClick(shown.input<QComboBox>(ENABLE_FACE_SCANNING), Qt::Key_Down);
    QVERIFY(shown.input<QSpinBox>(ENROLL_FACE_MIN_SIZE)->isEnabled());
    shown.revert();
    QVERIFY(!shown.input<QSpinBox>(ENROLL_FACE_MIN_SIZE)->isEnabled());
}

void TestSettingsPage::theOrderOfDestruction_data()
{
    QTest::addColumn<int>("group");
    for (const SettingsPageName &page : settingsPages)
        QTest::newRow(page.name) << int(page.group);
}

void TestSettingsPage::theOrderOfDestruction()
{
    QFETCH(int, group);
    {
        ShownPage shown{DBGroups(group)};
        shown.window.reset();
        QVERIFY(!shown.page->widget());
        QCOMPARE(shown.changes(), Changes());
        QCOMPARE(shown.page->addresses(), QVector<SettingAddress>());
        for (const SettingAddress &address : addressesOf(DBGroups(group))) {
            QVERIFY(!shown.page->editor(address));
            QVERIFY(!shown.page->edit(address, "1"));
            shown.page->revert(address);
            shown.page->accept(address, "1");
            shown.page->follow(address, "1");
        }
        QCOMPARE(shown.changes(), Changes());
    }
    ShownPage shown{DBGroups(group)};
    QSignalSpy edited(shown.page.get(), &SettingsPage::edited);
    shown.page.reset();
    QCOMPARE(edited.count(), 0);
    QCOMPARE(shown.window->findChildren<DBParamWidget *>().count(), 0);
}

QTEST_MAIN(TestSettingsPage)
#include "tst_settingspage.moc"
