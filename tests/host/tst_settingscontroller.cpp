#include <host/hostenvironment.h>
#include <host/settingscontroller.h>
#include <host/settingspages.h>
#include <host/settingsstore.h>

#include "editors.h"
#include "messages.h"
#include "testdatabase.h"

#include <vxsettings/dbkeys.h>

#include <localstorage/localstorage.h>

#include <QCheckBox>
#include <QLoggingCategory>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace db::database;
using vantorix::LocalStorage;
using vantorix::OBJECT_PARAMETERS;
using Outcome = SaveResult::Outcome;

namespace {

/// A program that has a database open, and a window with some of its pages.
class Host
{
public:
    explicit Host(const TestDatabase &database)
        : controller(store)
    {
        auto error = store.open(DatabaseLocation::ofFile(database.path()));
        if (!error)
            error = controller.load();
        if (error)
            throw std::runtime_error(error->text().toStdString());
        new QVBoxLayout(&window);
        window.show();
    }

    QWidget *open(DBGroups group)
    {
        QWidget *page = controller.openPage(group, &window);
        window.layout()->addWidget(page);
        return page;
    }

    SettingsStore store;
    SettingsController controller;
    QWidget window;
};

void makeSample(const TestDatabase &database)
{
    if (auto error = SettingsStore().open(DatabaseLocation::ofFile(database.path())))
        throw std::runtime_error(error->text().toStdString());
}
} // namespace

class TestSettingsController : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void loadFillsTheStorage();
    void loadClosesThePages();
    void loadEmptiesDataNamesThatAreGone();
    void aFailedLoadKeepsThePages();
    void aPageIsBuiltOnce();
    void nothingToSave();
    void onlyEditedSettingsAreWritten();
    void aSaveIsFoundAgain();
    void aSaveMovesTheBaseline();
    void revertUndoesAllPages();
    void changesOfAllPagesAreOneSave();
    void jsonMembersWithoutEditorAreKept();
    void unreadableJsonIsRefused_data();
    void unreadableJsonIsRefused();
    void unreadableJsonIsLeftAloneWithoutAnEdit();
    void aConflictIsReported();
    void anEqualTextOfALaterRevisionIsAConflict();
    void savesFollowEachOther();
    void aConflictInOneSettingStopsAll();
    void anOverwriteWantsConsentForWhatWasSeen();
    void anOverwriteMergesIntoTheirJson();
    void aFailedSaveKeepsTheEdits();
    void aClosedWindowHasNoChanges();
    void secretsReachNoLog();
};

void TestSettingsController::initTestCase()
{
    failOnUnexpectedMessages();
    HostEnvironment::prepare();
}

void TestSettingsController::loadFillsTheStorage()
{
    const TestDatabase database;
    const Host host(database);
    QCOMPARE(LocalStorage::instance()->dbSettings(), database.settings());
    QCOMPARE(LocalStorage::instance()->objects(vantorix::SMARTCARD_PROFILE_DATANAME).count(), 5);
    QCOMPARE(LocalStorage::instance()->objects(vantorix::ORGSTRUCTURE_DATANAME).count(), 200);
}

void TestSettingsController::loadClosesThePages()
{
    const TestDatabase database;
    Host host(database);
    editors::retype(editors::input<QLineEdit>(host.open(DBGroups::Connection), MOBILE_HOST), "edited");
    database.store(MOBILE_HOST, "stored meanwhile");

    QSignalSpy edited(&host.controller, &SettingsController::edited);
    QVERIFY(!host.controller.load());
    QCOMPARE(edited.count(), 1);
    QVERIFY(!host.controller.isOpen(DBGroups::Connection));
    QVERIFY(!host.controller.hasChanges());
    QCOMPARE(editors::input<QLineEdit>(host.open(DBGroups::Connection), MOBILE_HOST)->text(),
             QString("stored meanwhile"));
}

void TestSettingsController::loadEmptiesDataNamesThatAreGone()
{
    const TestDatabase database;
    Host host(database);
    database.execute("DELETE FROM objects WHERE data_name = 'orgstructure'");
    QVERIFY(!host.controller.load());
    QCOMPARE(LocalStorage::instance()->objects(vantorix::ORGSTRUCTURE_DATANAME).count(), 0);
    QCOMPARE(LocalStorage::instance()->objects(vantorix::SMARTCARD_PROFILE_DATANAME).count(), 5);
}

void TestSettingsController::aFailedLoadKeepsThePages()
{
    const TestDatabase database;
    Host host(database);
    editors::retype(editors::input<QLineEdit>(host.open(DBGroups::Connection), MOBILE_HOST), "edited");
    database.execute("DROP TABLE objects");
    QVERIFY(host.controller.load());
    QCOMPARE(host.controller.changes(), (OBJECT_PARAMETERS{{MOBILE_HOST, "edited"}}));
}

void TestSettingsController::aPageIsBuiltOnce()
{
    const TestDatabase database;
    Host host(database);
    QVERIFY(!host.controller.isOpen(DBGroups::Users));
    QWidget *page = host.open(DBGroups::Users);
    QVERIFY(host.controller.isOpen(DBGroups::Users));
    QCOMPARE(host.controller.openPage(DBGroups::Users, &host.window), page);
    QCOMPARE(host.window.findChildren<DBParamWidget *>().count(), 16);
}

void TestSettingsController::nothingToSave()
{
    const TestDatabase database;
    makeSample(database);
    // A text that an editor clamps, choices and objects that are not there, another JSON: nobody has edited them.
    database.store(MAX_CARD_COUNT, "500");
    database.store(CARD_VIEW_FORMAT, "77");
    database.store(DEFAULT_DEPARTMENT, "4000000");
    database.store(PIN_STRENGTH, R"({"max_len": 1, "extra": true})");
    database.execute("DELETE FROM settings WHERE key = 'PT_MOBILE_PORT'");
    const QByteArray before = database.bytes();
    {
        Host host(database);
        for (const SettingsPageName &page : settingsPages)
            host.open(page.group);
        QCOMPARE(host.controller.changes(), OBJECT_PARAMETERS());
        QCOMPARE(host.controller.save().outcome, Outcome::NothingToDo);
    }
    QCOMPARE(database.bytes(), before);
}

void TestSettingsController::onlyEditedSettingsAreWritten()
{
    const TestDatabase database;
    makeSample(database);
    database.store(MAX_CARD_COUNT, "500");
    QHash<QString, QString> expected = database.settings();
    Host host(database);
    QWidget *page = host.open(DBGroups::Employees);
    editors::chooseNext(editors::input<QComboBox>(page, EMPLOYEE_PHOTO_TYPE)); // is the last one already
    QVERIFY(!host.controller.hasChanges());
    QTest::keyClick(editors::input<QComboBox>(page, EMPLOYEE_PHOTO_TYPE), Qt::Key_Up);
    QVERIFY(host.controller.hasChanges(DBGroups::Employees));
    QVERIFY(!host.controller.hasChanges(DBGroups::Users));

    QCOMPARE(host.controller.save().outcome, Outcome::Saved);
    expected[EMPLOYEE_PHOTO_TYPE] = "0";
    QCOMPARE(database.settings(), expected);
    QCOMPARE(LocalStorage::instance()->dbSettings(), expected);
}

void TestSettingsController::aSaveIsFoundAgain()
{
    const TestDatabase database;
    {
        Host host(database);
        QWidget *page = host.open(DBGroups::Connection);
        editors::retype(editors::input<QLineEdit>(page, MOBILE_HOST), "saved.example");
        editors::retype(editors::input<QSpinBox>(page, MOBILE_PORT), "9000");
        QVERIFY(host.controller.save().isDone());
    }
    Host host(database);
    QWidget *page = host.open(DBGroups::Connection);
    QCOMPARE(editors::input<QLineEdit>(page, MOBILE_HOST)->text(), QString("saved.example"));
    QCOMPARE(editors::input<QSpinBox>(page, MOBILE_PORT)->value(), 9000);
}

void TestSettingsController::aSaveMovesTheBaseline()
{
    const TestDatabase database;
    Host host(database);
    auto *port = editors::input<QSpinBox>(host.open(DBGroups::Connection), MOBILE_PORT);
    editors::retype(port, "9000");
    QSignalSpy edited(&host.controller, &SettingsController::edited);
    QVERIFY(host.controller.save().isDone());
    QVERIFY(edited.count() > 0);
    QVERIFY(!host.controller.hasChanges());

    editors::retype(port, "9001");
    QVERIFY(host.controller.save().isDone());
    QCOMPARE(database.stored(MOBILE_PORT), QString("9001"));
    editors::retype(port, "1");
    host.controller.revert();
    QCOMPARE(port->value(), 9001);
}

void TestSettingsController::revertUndoesAllPages()
{
    const TestDatabase database;
    Host host(database);
    auto *port = editors::input<QSpinBox>(host.open(DBGroups::Connection), MOBILE_PORT);
    auto *cards = editors::input<QSpinBox>(host.open(DBGroups::Employees), MAX_CARD_COUNT);
    editors::retype(port, "1");
    editors::retype(cards, "7");
    QCOMPARE(host.controller.changes().count(), 2);
    host.controller.revert();
    QVERIFY(!host.controller.hasChanges());
    QCOMPARE(port->value(), 8443);
    QCOMPARE(cards->value(), 3);
}

void TestSettingsController::changesOfAllPagesAreOneSave()
{
    const TestDatabase database;
    Host host(database);
    editors::retype(editors::input<QSpinBox>(host.open(DBGroups::Connection), MOBILE_PORT), "1");
    editors::retype(editors::input<QSpinBox>(host.open(DBGroups::Employees), MAX_CARD_COUNT), "7");
    database.execute("CREATE TRIGGER stop BEFORE UPDATE ON settings WHEN NEW.key = 'PT_MAX_CARD_COUNT' "
                     "BEGIN SELECT RAISE(ABORT, 'no'); END");
    QCOMPARE(host.controller.save().outcome, Outcome::Failed);
    QCOMPARE(database.stored(MOBILE_PORT), QString("8443"));
    QCOMPARE(host.controller.changes().count(), 2);

    database.execute("DROP TRIGGER stop");
    QCOMPARE(host.controller.save().outcome, Outcome::Saved);
    QCOMPARE(database.stored(MOBILE_PORT), QString("1"));
    QCOMPARE(database.stored(MAX_CARD_COUNT), QString("7"));
}

void TestSettingsController::jsonMembersWithoutEditorAreKept()
{
    const TestDatabase database;
    makeSample(database);
    database.store(PIN_STRENGTH,
                   R"({"max_len": 12, "future": {"levels": [1, 2]}, "deny_equal": "true", "min_len": -3})");
    Host host(database);
    editors::click(editors::input<QCheckBox>(host.open(DBGroups::Employees), json::DENY_EQUAL));
    QVERIFY(host.controller.save().isDone());
    QCOMPARE(database.stored(PIN_STRENGTH), QString("{\n    \"deny_equal\": \"false\",\n"
                                                    "    \"future\": {\"levels\": [1, 2]},\n"
                                                    "    \"max_len\": 12,\n    \"min_len\": -3\n}\n"));
    QVERIFY(!host.controller.hasChanges());
}

void TestSettingsController::unreadableJsonIsRefused_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("replaced");

    QTest::newRow("words") << "min=4"
                           << "{\n    \"deny_equal\": \"true\",\n    \"deny_sequence\": \"false\",\n"
                              "    \"max_len\": \"4\",\n    \"min_len\": \"0\"\n}\n";
    QTest::newRow("the same member twice")
        << R"({"min_len": "4", "x": 1, "min_len": "5"})"
        << "{\n    \"deny_equal\": \"true\",\n    \"min_len\": \"5\",\n    \"x\": 1\n}\n";
}

void TestSettingsController::unreadableJsonIsRefused()
{
    QFETCH(QString, stored);
    const TestDatabase database;
    makeSample(database);
    database.store(PIN_STRENGTH, stored);
    Host host(database);
    editors::click(editors::input<QCheckBox>(host.open(DBGroups::Employees), json::DENY_EQUAL));

    const SaveResult refused = host.controller.save();
    QCOMPARE(refused.outcome, Outcome::Unreadable);
    QCOMPARE(refused.unreadableKeys, QStringList{PIN_STRENGTH});
    QCOMPARE(database.stored(PIN_STRENGTH), stored);
    QVERIFY(host.controller.hasChanges());

    QVERIFY(host.controller.save({true, {}}).isDone());
    QTEST(database.stored(PIN_STRENGTH), "replaced");
}

void TestSettingsController::unreadableJsonIsLeftAloneWithoutAnEdit()
{
    const TestDatabase database;
    makeSample(database);
    database.store(PIN_STRENGTH, "min=4");
    Host host(database);
    editors::retype(editors::input<QSpinBox>(host.open(DBGroups::Employees), MAX_CARD_COUNT), "7");
    QVERIFY(host.controller.save().isDone());
    QCOMPARE(database.stored(PIN_STRENGTH), QString("min=4"));
    QCOMPARE(database.stored(MAX_CARD_COUNT), QString("7"));
}

void TestSettingsController::aConflictIsReported()
{
    const TestDatabase database;
    Host host(database);
    editors::retype(editors::input<QLineEdit>(host.open(DBGroups::Connection), MOBILE_HOST), "mine");
    database.store(MOBILE_HOST, "theirs");

    const SaveResult result = host.controller.save();
    QCOMPARE(result.outcome, Outcome::Conflicting);
    QCOMPARE(result.conflicts.count(), 1);
    QCOMPARE(result.conflicts[0].stored, QString("theirs"));
    QCOMPARE(result.conflicts[0].wanted, QString("mine"));
    QCOMPARE(database.stored(MOBILE_HOST), QString("theirs"));
    QCOMPARE(host.controller.changes(), (OBJECT_PARAMETERS{{MOBILE_HOST, "mine"}}));
}

void TestSettingsController::anEqualTextOfALaterRevisionIsAConflict()
{
    const TestDatabase database;
    Host host(database);
    const QString text = database.stored(MOBILE_HOST);
    editors::retype(editors::input<QLineEdit>(host.open(DBGroups::Connection), MOBILE_HOST), "mine");
    database.store(MOBILE_HOST, "theirs");
    database.store(MOBILE_HOST, text);
    const SaveResult seen = host.controller.save();
    QCOMPARE(seen.outcome, Outcome::Conflicting);
    QCOMPARE(seen.conflicts[0].stored, text);
    QVERIFY(host.controller.save({false, seen.conflicts}).isDone());
    QCOMPARE(database.stored(MOBILE_HOST), QString("mine"));
}

void TestSettingsController::savesFollowEachOther()
{
    const TestDatabase database;
    Host host(database);
    auto *input = editors::input<QLineEdit>(host.open(DBGroups::Connection), MOBILE_HOST);
    for (const char *text : {"one", "two", "three"}) {
        editors::retype(input, text);
        QVERIFY(host.controller.save().isDone());
        QCOMPARE(database.stored(MOBILE_HOST), QString(text));
    }
}

void TestSettingsController::aConflictInOneSettingStopsAll()
{
    const TestDatabase database;
    Host host(database);
    QWidget *page = host.open(DBGroups::Connection);
    editors::retype(editors::input<QLineEdit>(page, MOBILE_HOST), "mine");
    editors::retype(editors::input<QSpinBox>(page, MOBILE_PORT), "9000");
    database.store(MOBILE_HOST, "theirs");
    QCOMPARE(host.controller.save().outcome, Outcome::Conflicting);
    QCOMPARE(database.stored(MOBILE_PORT), QString("8443"));
}

void TestSettingsController::anOverwriteWantsConsentForWhatWasSeen()
{
    const TestDatabase database;
    Host host(database);
    editors::retype(editors::input<QLineEdit>(host.open(DBGroups::Connection), MOBILE_HOST), "mine");
    database.store(MOBILE_HOST, "theirs");
    const SaveResult seen = host.controller.save();

    database.store(MOBILE_HOST, "theirs, later");
    const SaveResult again = host.controller.save({false, seen.conflicts});
    QCOMPARE(again.outcome, Outcome::Conflicting);
    QCOMPARE(again.conflicts[0].stored, QString("theirs, later"));
    QCOMPARE(database.stored(MOBILE_HOST), QString("theirs, later"));

    // A consent that was not enough is no consent for later.
    QCOMPARE(host.controller.save().outcome, Outcome::Conflicting);
    QVERIFY(host.controller.save({false, again.conflicts}).isDone());
    QCOMPARE(database.stored(MOBILE_HOST), QString("mine"));
    QVERIFY(!host.controller.hasChanges());
}

void TestSettingsController::anOverwriteMergesIntoTheirJson()
{
    const TestDatabase database;
    Host host(database);
    editors::click(editors::input<QCheckBox>(host.open(DBGroups::Employees), json::DENY_EQUAL));
    database.store(PIN_STRENGTH, R"({"deny_equal": "true", "theirs": 1, "max_len": "20"})");
    const SaveResult seen = host.controller.save();
    QCOMPARE(seen.outcome, Outcome::Conflicting);
    QVERIFY(host.controller.save({false, seen.conflicts}).isDone());
    QCOMPARE(database.stored(PIN_STRENGTH),
             QString("{\n    \"deny_equal\": \"false\",\n    \"max_len\": \"20\",\n    \"theirs\": 1\n}\n"));
}

void TestSettingsController::aFailedSaveKeepsTheEdits()
{
    const TestDatabase database;
    Host host(database);
    editors::retype(editors::input<QLineEdit>(host.open(DBGroups::Connection), MOBILE_HOST), "mine");
    database.execute("ALTER TABLE settings RENAME TO gone");
    const SaveResult result = host.controller.save();
    QCOMPARE(result.outcome, Outcome::Failed);
    QCOMPARE(result.error->path, database.path());
    QCOMPARE(host.controller.changes(), (OBJECT_PARAMETERS{{MOBILE_HOST, "mine"}}));

    database.execute("ALTER TABLE gone RENAME TO settings");
    QVERIFY(host.controller.save().isDone());
}

void TestSettingsController::aClosedWindowHasNoChanges()
{
    const TestDatabase database;
    SettingsStore store;
    QVERIFY(!store.open(DatabaseLocation::ofFile(database.path())));
    SettingsController controller(store);
    QVERIFY(!controller.load());
    {
        QWidget window;
        QWidget *page = controller.openPage(DBGroups::Employees, &window);
        editors::find(page, MAX_CARD_COUNT)->setValue(9);
        QVERIFY(controller.hasChanges());
    }
    QVERIFY(!controller.hasChanges());
    QCOMPARE(controller.save().outcome, Outcome::NothingToDo);
}

void TestSettingsController::secretsReachNoLog()
{
    const TestDatabase database;
    makeSample(database);
    database.store(PASSWORD_DEF, "canary-stored");
    database.store(LOCKER_ACCESS_TOKEN, "canary-stored");
    const auto logOfARound = [&] {
        const CapturedMessages messages;
        Host host(database);
        editors::retype(editors::input<QLineEdit>(host.open(DBGroups::Users), PASSWORD_DEF), "canary-typed");
        editors::retype(editors::input<QLineEdit>(host.open(DBGroups::Connection), LOCKER_ACCESS_TOKEN),
                        "canary-typed");
        database.store(PASSWORD_DEF, "canary-theirs");
        const SaveResult refused = host.controller.save();
        (void)host.controller.save({false, refused.conflicts});
        return messages.texts().join('\n');
    };
    QVERIFY(!logOfARound().contains("canary"));

    // The library does tell them to whoever asks, so the search above can find something.
    QLoggingCategory::setFilterRules("gui.lib.dbsettings.debug=true");
    QVERIFY(logOfARound().contains("canary"));
    HostEnvironment::prepare();
}

QTEST_MAIN(TestSettingsController)
#include "tst_settingscontroller.moc"
