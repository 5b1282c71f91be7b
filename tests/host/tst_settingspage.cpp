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
using vantorix::OBJECT_PARAMETERS;

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

    std::unique_ptr<QWidget> window;
    std::unique_ptr<SettingsPage> page;
};

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
    QCOMPARE(shown.page->changes(), OBJECT_PARAMETERS());
    QCOMPARE(shown.page->baseline().count(), DBSettingsHelper::groupParams(DBGroups(group)).count());
    shown.page->revert();
    QCOMPARE(shown.page->changes(), OBJECT_PARAMETERS());
}

void TestSettingsPage::typedTextIsAChange()
{
    const ShownPage shown(DBGroups::Connection);
    QSignalSpy edited(shown.page.get(), &SettingsPage::edited);
    editors::retype(shown.input<QLineEdit>(MOBILE_HOST), "h");
    QCOMPARE(edited.count(), 1);
    QCOMPARE(shown.page->changes(), (OBJECT_PARAMETERS{{MOBILE_HOST, "h"}}));

    editors::retype(shown.input<QSpinBox>(MOBILE_PORT), "9000");
    QCOMPARE(shown.page->changes(), (OBJECT_PARAMETERS{{MOBILE_HOST, "h"}, {MOBILE_PORT, "9000"}}));
}

void TestSettingsPage::anEditPutBackIsNoChange()
{
    const ShownPage shown(DBGroups::Connection);
    editors::retype(shown.input<QSpinBox>(MOBILE_PORT), "9000");
    QVERIFY(!shown.page->changes().isEmpty());
    editors::retype(shown.input<QSpinBox>(MOBILE_PORT), "8443");
    QCOMPARE(shown.page->changes(), OBJECT_PARAMETERS());
}

void TestSettingsPage::aJsonMemberChangesItsSetting()
{
    const ShownPage shown(DBGroups::Employees);
    editors::click(shown.input<QCheckBox>(json::DENY_EQUAL));
    const QString text = "{\n    \"deny_equal\": \"false\",\n    \"deny_sequence\": \"true\",\n"
                         "    \"max_len\": \"8\",\n    \"min_len\": \"4\"\n}\n";
    QCOMPARE(shown.page->changes(), (OBJECT_PARAMETERS{{PIN_STRENGTH, text}}));
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
    const QString before = shown.page->baseline().value(key);
    if (typed == "next")
        editors::chooseNext(shown.input<QComboBox>(key));
    else
        editors::retype(shown.input<QWidget>(key), typed);
    QCOMPARE(shown.page->changes().keys(), QStringList{key});

    QSignalSpy edited(shown.page.get(), &SettingsPage::edited);
    shown.page->revert();
    QVERIFY(edited.count() > 0);
    QCOMPARE(shown.page->changes(), OBJECT_PARAMETERS());
    QCOMPARE(editors::find(shown.window.get(), key)->value().toString(), before);
}

void TestSettingsPage::acceptMovesTheBaseline()
{
    const ShownPage shown(DBGroups::Connection);
    editors::retype(shown.input<QLineEdit>(MOBILE_HOST), "accepted");
    shown.page->accept();
    QCOMPARE(shown.page->changes(), OBJECT_PARAMETERS());
    QCOMPARE(shown.page->baseline().value(MOBILE_HOST), QString("accepted"));

    editors::retype(shown.input<QLineEdit>(MOBILE_HOST), "later");
    shown.page->revert();
    QCOMPARE(shown.input<QLineEdit>(MOBILE_HOST)->text(), QString("accepted"));
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
    shown.page->revert();
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
        QCOMPARE(shown.page->changes(), OBJECT_PARAMETERS());
        shown.page->revert();
        shown.page->accept();
        QCOMPARE(shown.page->changes(), OBJECT_PARAMETERS());
    }
    ShownPage shown{DBGroups(group)};
    QSignalSpy edited(shown.page.get(), &SettingsPage::edited);
    shown.page.reset();
    QCOMPARE(edited.count(), 0);
    QCOMPARE(shown.window->findChildren<DBParamWidget *>().count(), 0);
}

QTEST_MAIN(TestSettingsPage)
#include "tst_settingspage.moc"
