#include <host/hostenvironment.h>
#include <host/installationdatabase.h>
#include <host/settingspages.h>
#include <host/settingssession.h>

#include "editors.h"
#include "messages.h"
#include "sampledatabase.h"
#include "testdatabase.h"

#include <vxsettings/dbkeys.h>

#include <localstorage/localstorage.h>

#include <QAccessible>
#include <QCheckBox>
#include <QLoggingCategory>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using namespace db::database;
using vantorix::LocalStorage;
using vantorix::OBJECT_PARAMETERS;
using Outcome = SaveResult::Outcome;
using Unreadable = SettingsSession::Unreadable;

Q_DECLARE_METATYPE(SettingAddress)

namespace {

const SettingAddress mobileHost{MOBILE_HOST};
const SettingAddress mobilePort{MOBILE_PORT};
const SettingAddress denyEqual{PIN_STRENGTH, json::DENY_EQUAL};
const SettingAddress maxLen{PIN_STRENGTH, json::MAX_LEN};
const SettingAddress minLen{PIN_STRENGTH, json::MIN_LEN};

InstallationDatabase::Limits quickLimits()
{
    InstallationDatabase::Limits limits;
    limits.filePulse = std::chrono::milliseconds(10);
    return limits;
}

/// A program that has a database open, and a window with some of its pages.
class Host
{
public:
    explicit Host(const TestDatabase &file)
        : database(DatabaseLocation::ofFile(file.path()), InstallationDatabase::Missing::CreateSample, quickLimits())
        , session(std::make_unique<SettingsSession>(database))
        , window(std::make_unique<QWidget>())
    {
        QObject::connect(session.get(), &SettingsSession::failed, [](const DatabaseError &error) {
            QTest::qFail(qPrintable(error.text()), __FILE__, __LINE__);
        });
        load();
        new QVBoxLayout(window.get());
        window->show();
    }

    void load()
    {
        QSignalSpy loaded(session.get(), &SettingsSession::loaded);
        session->load();
        if (!loaded.wait())
            throw std::runtime_error("not loaded");
    }

    /// Until everything that the database was asked before has been answered, be the session there or not.
    void waitForAnswers()
    {
        bool isAnswered = false;
        database.load([&isAnswered](const DatabaseResult<Installation> &) { isAnswered = true; });
        if (!QTest::qWaitFor([&isAnswered] { return isAnswered; }, 30000))
            throw std::runtime_error("not answered");
    }

    QWidget *open(DBGroups group)
    {
        QWidget *page = session->openPage(group, window.get());
        window->layout()->addWidget(page);
        return page;
    }
    template <typename Input>
    Input *input(const SettingAddress &address)
    {
        open(groupOf(address));
        return qobject_cast<Input *>(session->editor(address)->centralWidget());
    }
    void type(const SettingAddress &address, const QString &text) { editors::retype(input<QWidget>(address), text); }
    void click(const SettingAddress &address) { editors::click(input<QCheckBox>(address)); }

    SaveResult save(const QString &reason = {}, Unreadable unreadable = Unreadable::Keep)
    {
        session->save(reason, unreadable);
        return saved();
    }
    /// What becomes of the save that is under way.
    SaveResult saved()
    {
        std::optional<SaveResult> result;
        QObject context;
        QObject::connect(session.get(), &SettingsSession::saveFinished, &context,
                         [&result](const SaveResult &finished) { result = finished; });
        if (!QTest::qWaitFor([&result] { return result.has_value(); }, 20000))
            throw std::runtime_error("the save does not end");
        return *result;
    }

    InstallationDatabase database;
    std::unique_ptr<SettingsSession> session;
    std::unique_ptr<QWidget> window;

private:
    static DBGroups groupOf(const SettingAddress &address)
    {
        // A member's page is that of its key.
        return SettingAddress{address.key}.group();
    }
};

/// The same, and it notices what others store.
class WatchingHost : public Host
{
public:
    explicit WatchingHost(const TestDatabase &file)
        : Host(file)
    {
        database.watch();
    }

    /// Stores behind the back of the host, and waits until it has noticed.
    void meets(const TestDatabase &file, const QString &key, const QString &text)
    {
        file.store(key, text);
        if (!QTest::qWaitFor([&] { return session->stored().settings.value(key) == text; }))
            throw std::runtime_error("not noticed");
    }
};

/// Address, base, theirs and mine of each conflict.
QStringList words(const QVector<SettingsSession::Conflict> &conflicts)
{
    QStringList words;
    for (const SettingsSession::Conflict &conflict : conflicts)
        words << QStringList{conflict.address.text(), conflict.base, conflict.theirs, conflict.mine}.join(" | ");
    return words;
}
} // namespace

class TestSettingsSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void loadFillsTheStorage();
    void aFailedLoadIsTold();
    void anotherLoadIsMerged();
    void aPageIsBuiltOnce();
    void aPageWithoutItsWidgetIsBuiltAgain();
    void nothingToSave();
    void onlyEditedSettingsAreWritten();
    void aSaveIsFoundAgain();
    void aSaveMovesTheBaseline();
    void oneParameterIsReverted();
    void revertUndoesAllPages();
    void changesOfAllPagesAreOneSave();
    void theReasonReachesTheHistory();
    void whatIsTypedDuringASaveStaysAnEdit();
    void whatIsTypedBackDuringASaveIsAnEdit();
    void aPageBuiltAgainDuringASaveShowsWhatWasSaved();
    void oneSaveAtATime();
    void noCallSignalsASaveItself();
    void jsonMembersWithoutEditorAreKept();
    void unreadableJsonIsRefused_data();
    void unreadableJsonIsRefused();
    void consentIsForTheTextThatWasNamed();
    void unreadableJsonIsLeftAloneWithoutAnEdit();
    void editsByProgram();
    void editsByHand();
    void editsByAssistiveTechnology();
    void untouchedParametersFollow();
    void anEditedParameterBecomesAConflict();
    void anotherMemberIsNoConflict();
    void theSameMemberIsAConflict();
    void anEqualValueIsNoConflict();
    void aTextThatComesBackIsAConflict();
    void aMemberThatComesBackIsNoConflict();
    void everyLaterValueIsTheirs();
    void theirsIsTaken();
    void mineIsKept();
    void mineIsNotKeptOverWhatWasNotSeen();
    void afterMineWasKeptALaterChangeIsAConflict();
    void aSaveMeetsAConflict();
    void aSaveMergesIntoTheirMembers();
    void aSaveOfWhatTheyHaveStoredIsDone();
    void anEqualTextOfALaterRevisionIsAConflict();
    void aConflictInOneSettingStopsAll();
    void aSettingThatIsGoneIsAConflict();
    void aRevertDuringAConflictingSaveOverwritesNothing();
    void aPageOpenedAfterARefusedSaveShowsTheirs();
    void objectsFollow();
    void aFailedSaveKeepsTheEdits();
    void aBusyDatabaseIsWaitedForUntilCancelled();
    void violationsAreOfWhatWouldBeStored();
    void onlyEditsBreakRulesAnew();
    void findingsAreOfWhatIsStored();
    void aRepairIsAnEdit_data();
    void aRepairIsAnEdit();
    void aRepairThatSomebodyElseMakesIsNoEdit();
    void aWholeTextIsRepaired_data();
    void aWholeTextIsRepaired();
    void aRepairReplacesOnlyWhatWasSeen();
    void anUndoneRepairReplacesNothing();
    void aClosedWindowHasNoChanges();
    void aPageThatIsClosedAnswersNothing();
    void whatIsShownAsItIsStoredReplacesNothing();
    void aRepairIsSavedWithOtherEdits();
    void membersOfOneSettingAreOneConflict();
    void aPageMayBeClosedDuringItsSave();
    void accessIsSavedByItself();
    void theSessionMayGoFirst();
    void secretsReachNoLog();
};

void TestSettingsSession::initTestCase()
{
    failOnUnexpectedMessages();
    HostEnvironment::prepare();
    QCoreApplication::setApplicationName("tst_settingssession");
    qRegisterMetaType<SettingAddress>();
}

void TestSettingsSession::loadFillsTheStorage()
{
    const TestDatabase database;
    const Host host(database);
    QCOMPARE(LocalStorage::instance()->dbSettings(), database.settings());
    QCOMPARE(host.session->stored().settings, database.settings());
    QCOMPARE(LocalStorage::instance()->objects(vantorix::ORGSTRUCTURE_DATANAME).count(), 200);
}

void TestSettingsSession::aFailedLoadIsTold()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobileHost, "edited");
    database.execute("ALTER TABLE objects RENAME TO gone");
    host.session->disconnect(SIGNAL(failed(DatabaseError)));
    DatabaseError error;
    connect(host.session.get(), &SettingsSession::failed, this, [&](const DatabaseError &told) { error = told; });
    host.session->load();
    QTRY_COMPARE(error.path, database.path());
    QCOMPARE(host.session->changes(), (OBJECT_PARAMETERS{{MOBILE_HOST, "edited"}}));
    QCOMPARE(host.session->stored().settings.value(MOBILE_HOST), QString("mobile.installation.example"));
}

void TestSettingsSession::anotherLoadIsMerged()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobileHost, "mine");
    database.store(MOBILE_HOST, "theirs");
    database.store(MOBILE_PORT, "90");
    host.load();
    QCOMPARE(host.input<QSpinBox>(mobilePort)->value(), 90);
    QCOMPARE(words(host.session->conflicts()),
             QStringList{"PT_MOBILE_HOST | mobile.installation.example | theirs | mine"});
}

void TestSettingsSession::aPageIsBuiltOnce()
{
    const TestDatabase database;
    Host host(database);
    QVERIFY(!host.session->isOpen(DBGroups::Users));
    QVERIFY(!host.session->editor({PASSWORD_DEF}));
    QWidget *page = host.open(DBGroups::Users);
    QVERIFY(host.session->isOpen(DBGroups::Users));
    QVERIFY(host.session->editor({PASSWORD_DEF}));
    QCOMPARE(host.session->openPage(DBGroups::Users, host.window.get()), page);
    QCOMPARE(host.window->findChildren<DBParamWidget *>().count(), 16);
}

void TestSettingsSession::aPageWithoutItsWidgetIsBuiltAgain()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobileHost, "lost");
    delete host.open(DBGroups::Connection);
    QVERIFY(!host.session->isOpen(DBGroups::Connection));
    QCOMPARE(host.input<QLineEdit>(mobileHost)->text(), QString("mobile.installation.example"));
    QVERIFY(!host.session->hasChanges());
    host.type(mobileHost, "kept");
    QCOMPARE(host.session->changes(), (OBJECT_PARAMETERS{{MOBILE_HOST, "kept"}}));
}

void TestSettingsSession::nothingToSave()
{
    const TestDatabase database;
    // A text that an editor clamps, choices and objects that are not there, another JSON: nobody has edited them.
    makeSample(database, {{MAX_CARD_COUNT, "500"},
                          {CARD_VIEW_FORMAT, "77"},
                          {DEFAULT_DEPARTMENT, "4000000"},
                          {PIN_STRENGTH, R"({"max_len": 1, "extra": true})"}});
    database.execute("DELETE FROM settings WHERE key = 'PT_MOBILE_PORT'");
    const QHash<QString, QString> before = database.settings();
    const QVariant revisions = database.ask("SELECT sum(revision) FROM settings");
    {
        Host host(database);
        for (const SettingsPageName &page : settingsPages)
            host.open(page.group);
        QCOMPARE(host.session->changes(), OBJECT_PARAMETERS());
        QCOMPARE(host.save().outcome, Outcome::NothingToDo);
    }
    QCOMPARE(database.settings(), before);
    QCOMPARE(database.ask("SELECT sum(revision) FROM settings"), revisions);
}

void TestSettingsSession::onlyEditedSettingsAreWritten()
{
    const TestDatabase database;
    makeSample(database, {{MAX_CARD_COUNT, "500"}});
    QHash<QString, QString> expected = database.settings();
    Host host(database);
    const SettingAddress photo{EMPLOYEE_PHOTO_TYPE};
    editors::chooseNext(host.input<QComboBox>(photo)); // is the last one already
    QVERIFY(!host.session->hasChanges());
    QTest::keyClick(host.input<QComboBox>(photo), Qt::Key_Up);
    QVERIFY(host.session->hasChanges(DBGroups::Employees));
    QVERIFY(!host.session->hasChanges(DBGroups::Users));
    QVERIFY(host.session->isChanged(photo));
    QVERIFY(!host.session->isChanged({MAX_CARD_COUNT}));
    QCOMPARE(host.session->changedAddresses(), QVector<SettingAddress>{photo});

    QCOMPARE(host.save().outcome, Outcome::Saved);
    expected[EMPLOYEE_PHOTO_TYPE] = "0";
    QCOMPARE(database.settings(), expected);
    QCOMPARE(LocalStorage::instance()->dbSettings(), expected);
    QCOMPARE(host.session->stored().settings, expected);
    QCOMPARE(host.session->stamp(EMPLOYEE_PHOTO_TYPE).program, QString("tst_settingssession"));
}

void TestSettingsSession::aSaveIsFoundAgain()
{
    const TestDatabase database;
    {
        Host host(database);
        host.type(mobileHost, "saved.example");
        host.type(mobilePort, "9000");
        QVERIFY(host.save().isDone());
    }
    Host host(database);
    QCOMPARE(host.input<QLineEdit>(mobileHost)->text(), QString("saved.example"));
    QCOMPARE(host.input<QSpinBox>(mobilePort)->value(), 9000);
}

void TestSettingsSession::aSaveMovesTheBaseline()
{
    const TestDatabase database;
    Host host(database);
    for (const char *text : {"9000", "9001", "9002"}) {
        host.type(mobilePort, text);
        const QSignalSpy edited(host.session.get(), &SettingsSession::edited);
        QVERIFY(host.save().isDone());
        QVERIFY(edited.count() > 0);
        QVERIFY(!host.session->hasChanges());
        QCOMPARE(database.stored(MOBILE_PORT), QString(text));
    }
    host.type(mobilePort, "1");
    host.session->revert();
    QCOMPARE(host.input<QSpinBox>(mobilePort)->value(), 9002);
}

void TestSettingsSession::oneParameterIsReverted()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobileHost, "mine");
    host.type(mobilePort, "1");
    const QSignalSpy edited(host.session.get(), &SettingsSession::edited);
    host.session->revert(mobilePort);
    QCOMPARE(edited.count(), 1);
    QCOMPARE(host.input<QSpinBox>(mobilePort)->value(), 8443);
    QCOMPARE(host.session->changes(), (OBJECT_PARAMETERS{{MOBILE_HOST, "mine"}}));
}

void TestSettingsSession::revertUndoesAllPages()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobilePort, "1");
    host.type({MAX_CARD_COUNT}, "7");
    host.click(denyEqual);
    QCOMPARE(host.session->changes().count(), 3);
    host.session->revert();
    QVERIFY(!host.session->hasChanges());
    QCOMPARE(host.input<QSpinBox>(mobilePort)->value(), 8443);
    QCOMPARE(host.input<QSpinBox>({MAX_CARD_COUNT})->value(), 3);
}

void TestSettingsSession::changesOfAllPagesAreOneSave()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobilePort, "1");
    host.type({MAX_CARD_COUNT}, "7");
    database.execute("CREATE TRIGGER stop BEFORE UPDATE ON settings WHEN NEW.key = 'PT_MAX_CARD_COUNT' "
                     "BEGIN SELECT RAISE(ABORT, 'no'); END");
    QCOMPARE(host.save().outcome, Outcome::Failed);
    QCOMPARE(database.stored(MOBILE_PORT), QString("8443"));
    QCOMPARE(host.session->changes().count(), 2);

    database.execute("DROP TRIGGER stop");
    QCOMPARE(host.save().outcome, Outcome::Saved);
    QCOMPARE(database.stored(MOBILE_PORT), QString("1"));
    QCOMPARE(database.stored(MAX_CARD_COUNT), QString("7"));
}

void TestSettingsSession::theReasonReachesTheHistory()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobilePort, "1");
    const SaveResult result = host.save("a new server");
    QCOMPARE(database.ask("SELECT reason FROM history WHERE key = 'PT_MOBILE_PORT'").toString(),
             QString("a new server"));
    QCOMPARE(database.ask("SELECT save_id FROM history WHERE key = 'PT_MOBILE_PORT'").toString(), result.saveId);
}

void TestSettingsSession::whatIsTypedDuringASaveStaysAnEdit()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobileHost, "first");
    host.type(mobilePort, "90");
    host.session->save();
    QVERIFY(host.session->isSaving());
    host.type(mobileHost, "second");
    host.click(denyEqual);
    QCOMPARE(host.saved().outcome, Outcome::Saved);
    QVERIFY(!host.session->isSaving());

    QCOMPARE(database.stored(MOBILE_HOST), QString("first"));
    QCOMPARE(database.stored(MOBILE_PORT), QString("90"));
    QCOMPARE(host.session->changedAddresses(), (QVector<SettingAddress>{mobileHost, denyEqual}));
    QCOMPARE(words(host.session->conflicts()), QStringList());
    QVERIFY(host.save().isDone());
    QCOMPARE(database.stored(MOBILE_HOST), QString("second"));
    QVERIFY(!host.session->hasChanges());
}

void TestSettingsSession::whatIsTypedBackDuringASaveIsAnEdit()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobilePort, "90");
    host.session->save();
    host.type(mobilePort, "8443");
    QVERIFY(!host.session->hasChanges());
    QCOMPARE(host.saved().outcome, Outcome::Saved);
    QCOMPARE(database.stored(MOBILE_PORT), QString("90"));
    QCOMPARE(host.session->changes(), (OBJECT_PARAMETERS{{MOBILE_PORT, "8443"}}));
}

void TestSettingsSession::aPageBuiltAgainDuringASaveShowsWhatWasSaved()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobilePort, "90");
    host.session->save();
    delete host.open(DBGroups::Connection);
    QCOMPARE(host.input<QSpinBox>(mobilePort)->value(), 8443);
    QCOMPARE(host.saved().outcome, Outcome::Saved);
    QCOMPARE(host.input<QSpinBox>(mobilePort)->value(), 90);
    QVERIFY(!host.session->hasChanges());
}

void TestSettingsSession::oneSaveAtATime()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobileHost, "mine");
    int finished = 0;
    connect(host.session.get(), &SettingsSession::saveFinished, this, [&finished] { ++finished; });
    host.session->save("once");
    host.session->save("twice");
    QVERIFY(host.saved().isDone());
    QCOMPARE(host.save().outcome, Outcome::NothingToDo);
    QCOMPARE(finished, 2);
    QCOMPARE(database.ask("SELECT group_concat(reason) FROM history").toString(), QString("once"));
}

void TestSettingsSession::noCallSignalsASaveItself()
{
    const TestDatabase database;
    Host host(database);
    bool isReturned = false;
    connect(host.session.get(), &SettingsSession::saveFinished, this, [&] { QVERIFY(isReturned); });
    host.session->save(); // nothing to do
    isReturned = true;
    QCOMPARE(host.saved().outcome, Outcome::NothingToDo);
}

void TestSettingsSession::jsonMembersWithoutEditorAreKept()
{
    const TestDatabase database;
    makeSample(database, {{PIN_STRENGTH,
                           R"({"max_len": 12, "future": {"levels": [1, 2]}, "deny_equal": "true", "min_len": -3})"}});
    Host host(database);
    host.click(denyEqual);
    QVERIFY(host.save().isDone());
    QCOMPARE(database.stored(PIN_STRENGTH), QString("{\n    \"deny_equal\": \"false\",\n"
                                                    "    \"future\": {\"levels\": [1, 2]},\n"
                                                    "    \"max_len\": 12,\n    \"min_len\": -3\n}\n"));
    QVERIFY(!host.session->hasChanges());
}

void TestSettingsSession::unreadableJsonIsRefused_data()
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

void TestSettingsSession::unreadableJsonIsRefused()
{
    QFETCH(QString, stored);
    const TestDatabase database;
    makeSample(database, {{PIN_STRENGTH, stored}});
    Host host(database);
    host.click(denyEqual);

    for (const Unreadable unasked : {Unreadable::Replace, Unreadable::Keep}) {
        const SaveResult refused = host.save({}, unasked);
        QCOMPARE(refused.outcome, Outcome::Unreadable);
        QCOMPARE(refused.unreadableKeys, QStringList{PIN_STRENGTH});
        QCOMPARE(database.stored(PIN_STRENGTH), stored);
        QVERIFY(host.session->hasChanges());
    }
    QVERIFY(host.save({}, Unreadable::Replace).isDone());
    QTEST(database.stored(PIN_STRENGTH), "replaced");
    QVERIFY(!host.session->hasChanges());
}

void TestSettingsSession::consentIsForTheTextThatWasNamed()
{
    const TestDatabase database;
    makeSample(database, {{PIN_STRENGTH, "min=4"}});
    Host host(database);
    host.click(denyEqual);
    QCOMPARE(host.save().outcome, Outcome::Unreadable);
    database.store(PIN_STRENGTH, "min=5");
    QCOMPARE(host.save({}, Unreadable::Replace).outcome, Outcome::Unreadable);
    QCOMPARE(database.stored(PIN_STRENGTH), QString("min=5"));
    QVERIFY(host.save({}, Unreadable::Replace).isDone());
}

void TestSettingsSession::unreadableJsonIsLeftAloneWithoutAnEdit()
{
    const TestDatabase database;
    makeSample(database, {{PIN_STRENGTH, "min=4"}});
    Host host(database);
    host.type({MAX_CARD_COUNT}, "7");
    QVERIFY(host.save().isDone());
    QCOMPARE(database.stored(PIN_STRENGTH), QString("min=4"));
    QCOMPARE(database.stored(MAX_CARD_COUNT), QString("7"));
}

void TestSettingsSession::editsByProgram()
{
    const TestDatabase database;
    Host host(database);
    QVERIFY(!host.session->setParameter(mobileHost, "a closed page"));
    host.open(DBGroups::Connection);
    const QSignalSpy edited(host.session.get(), &SettingsSession::edited);
    const QSignalSpy parameterEdited(host.session.get(), &SettingsSession::parameterEdited);
    QVERIFY(host.session->setParameter(mobileHost, "set"));
    QCOMPARE(edited.count(), 1);
    QVERIFY(!host.session->setParameter(mobilePort, "99999999"));
    QCOMPARE(host.session->shownText(mobileHost), QString("set"));
    QCOMPARE(host.session->storedText(mobileHost), QString("mobile.installation.example"));
    QVERIFY(host.session->isChanged(mobileHost));
    QCOMPARE(parameterEdited.count(), 0);

    QVERIFY(host.session->setParameter(mobileHost, "mobile.installation.example"));
    QVERIFY(!host.session->isChanged(mobileHost));
}

void TestSettingsSession::editsByHand()
{
    const TestDatabase database;
    Host host(database);
    auto *port = host.input<QSpinBox>(mobilePort);
    QSignalSpy parameterEdited(host.session.get(), &SettingsSession::parameterEdited);
    QTest::keyClick(port, Qt::Key_Up);
    QCOMPARE(parameterEdited.count(), 1);
    QCOMPARE(parameterEdited[0][0].value<SettingAddress>(), mobilePort);
    QTest::keyClick(port, Qt::Key_Down);
    QVERIFY(!host.session->hasChanges());
    QCOMPARE(parameterEdited.count(), 2);
}

void TestSettingsSession::editsByAssistiveTechnology()
{
    const TestDatabase database;
    Host host(database);
    auto *line = host.input<QLineEdit>(mobileHost);
    QSignalSpy parameterEdited(host.session.get(), &SettingsSession::parameterEdited);
    QAccessible::queryAccessibleInterface(line)->setText(QAccessible::Value, "spoken.example");
    QCOMPARE(parameterEdited.count(), 1);
    QCOMPARE(parameterEdited[0][0].value<SettingAddress>(), mobileHost);
    host.session->revert();
    QCOMPARE(line->text(), QString("mobile.installation.example"));
    QCOMPARE(parameterEdited.count(), 1);
}

void TestSettingsSession::untouchedParametersFollow()
{
    const TestDatabase database;
    WatchingHost host(database);
    host.type(mobileHost, "mine");
    host.open(DBGroups::Employees);
    const QSignalSpy stored(host.session.get(), &SettingsSession::storedChanged);
    const QSignalSpy parameterEdited(host.session.get(), &SettingsSession::parameterEdited);
    host.meets(database, MOBILE_PORT, "90");
    QCOMPARE(stored.count(), 1);
    host.meets(database, PIN_STRENGTH, R"({"deny_equal": "false", "max_len": 6})");
    host.meets(database, CARD_VIEW_FORMAT, "77");

    QCOMPARE(host.input<QSpinBox>(mobilePort)->value(), 90);
    QVERIFY(!host.input<QCheckBox>(denyEqual)->isChecked());
    QCOMPARE(host.input<QSpinBox>(maxLen)->value(), 6);
    QCOMPARE(host.input<QComboBox>({CARD_VIEW_FORMAT})->currentIndex(), 0); // no such choice
    QCOMPARE(host.session->changes(), (OBJECT_PARAMETERS{{MOBILE_HOST, "mine"}}));
    QCOMPARE(words(host.session->conflicts()), QStringList());
    QCOMPARE(parameterEdited.count(), 0);
    QVERIFY(host.save().isDone());
    QCOMPARE(database.stored(MOBILE_PORT), QString("90"));
    QCOMPARE(database.stored(CARD_VIEW_FORMAT), QString("77"));
}

void TestSettingsSession::anEditedParameterBecomesAConflict()
{
    const TestDatabase database;
    WatchingHost mine(database);
    mine.type(mobileHost, "mine");
    Host theirs(database);
    theirs.type(mobileHost, "theirs");
    QVERIFY(theirs.save().isDone());

    QTRY_COMPARE(words(mine.session->conflicts()),
                 QStringList{"PT_MOBILE_HOST | mobile.installation.example | theirs | mine"});
    const ChangeStamp stamp = mine.session->conflicts()[0].stamp;
    QCOMPARE(stamp.program, QString("tst_settingssession"));
    QCOMPARE(stamp.workstation, QSysInfo::machineHostName());
    QVERIFY(!stamp.by.isEmpty() && stamp.at.isValid());
    QCOMPARE(mine.input<QLineEdit>(mobileHost)->text(), QString("mine"));

    const SaveResult result = mine.save();
    QCOMPARE(result.outcome, Outcome::Conflicting);
    QCOMPARE(result.conflicts.count(), 1);
    QCOMPARE(result.conflicts[0].loaded, QString("mobile.installation.example"));
    QCOMPARE(result.conflicts[0].stored, QString("theirs"));
    QCOMPARE(result.conflicts[0].wanted, QString("mine"));
    QCOMPARE(result.conflicts[0].stamp.program, QString("tst_settingssession"));
    QCOMPARE(database.stored(MOBILE_HOST), QString("theirs"));
}

void TestSettingsSession::anotherMemberIsNoConflict()
{
    const TestDatabase database;
    WatchingHost host(database);
    host.click(denyEqual);
    host.meets(database, PIN_STRENGTH, R"({"deny_equal": "true", "max_len": "6", "new": [1]})");
    QCOMPARE(words(host.session->conflicts()), QStringList());
    QCOMPARE(host.input<QSpinBox>(maxLen)->value(), 6);
    QCOMPARE(host.session->changedAddresses(), QVector<SettingAddress>{denyEqual});
    QCOMPARE(host.save().outcome, Outcome::Saved);
    QCOMPARE(database.stored(PIN_STRENGTH),
             QString("{\n    \"deny_equal\": \"false\",\n    \"max_len\": \"6\",\n    \"new\": [1]\n}\n"));
}

void TestSettingsSession::theSameMemberIsAConflict()
{
    const TestDatabase database;
    WatchingHost host(database);
    host.click(denyEqual);
    host.type(maxLen, "7");
    host.meets(database, PIN_STRENGTH, R"({"deny_equal": "true", "max_len": "6"})");
    QCOMPARE(words(host.session->conflicts()), QStringList{"PT_PIN_STRENGTH.max_len | 8 | 6 | 7"});
    const SaveResult result = host.save();
    QCOMPARE(result.outcome, Outcome::Conflicting);
    QCOMPARE(result.conflicts.count(), 1);
    QCOMPARE(result.conflicts[0].key, PIN_STRENGTH);

    host.session->revert(maxLen);
    QCOMPARE(host.save().outcome, Outcome::Saved);
    QCOMPARE(database.stored(PIN_STRENGTH), QString("{\n    \"deny_equal\": \"false\",\n    \"max_len\": \"6\"\n}\n"));
}

void TestSettingsSession::anEqualValueIsNoConflict()
{
    const TestDatabase database;
    WatchingHost host(database);
    host.type(mobileHost, "the same");
    host.meets(database, MOBILE_HOST, "the same");
    QCOMPARE(words(host.session->conflicts()), QStringList());
    QVERIFY(!host.session->hasChanges());
    QCOMPARE(host.save().outcome, Outcome::NothingToDo);
    host.meets(database, MOBILE_HOST, "something else");
    QCOMPARE(host.input<QLineEdit>(mobileHost)->text(), QString("something else"));
}

void TestSettingsSession::aTextThatComesBackIsAConflict()
{
    const TestDatabase database;
    WatchingHost host(database);
    host.type(mobileHost, "mine");
    host.meets(database, MOBILE_HOST, "theirs");
    host.meets(database, MOBILE_HOST, "mobile.installation.example");
    QCOMPARE(words(host.session->conflicts()),
             QStringList{"PT_MOBILE_HOST | mobile.installation.example | mobile.installation.example | mine"});
    QCOMPARE(host.save().outcome, Outcome::Conflicting);
}

void TestSettingsSession::aMemberThatComesBackIsNoConflict()
{
    const TestDatabase database;
    WatchingHost host(database);
    host.type(maxLen, "7");
    host.meets(database, PIN_STRENGTH, R"({"max_len": "6"})");
    QCOMPARE(words(host.session->conflicts()), QStringList{"PT_PIN_STRENGTH.max_len | 8 | 6 | 7"});
    host.meets(database, PIN_STRENGTH, R"({"max_len": "8"})");
    QCOMPARE(words(host.session->conflicts()), QStringList());
    QVERIFY(host.save().isDone());
    QCOMPARE(database.stored(PIN_STRENGTH), QString("{\n    \"max_len\": \"7\"\n}\n"));
}

void TestSettingsSession::everyLaterValueIsTheirs()
{
    const TestDatabase database;
    WatchingHost host(database);
    host.type(mobileHost, "mine");
    host.meets(database, MOBILE_HOST, "theirs");
    host.meets(database, MOBILE_HOST, "theirs, later");
    host.type(mobileHost, "mine, later");
    QCOMPARE(words(host.session->conflicts()),
             QStringList{"PT_MOBILE_HOST | mobile.installation.example | theirs, later | mine, later"});
}

void TestSettingsSession::theirsIsTaken()
{
    const TestDatabase database;
    WatchingHost host(database);
    host.type(mobileHost, "mine");
    host.type(mobilePort, "1");
    host.meets(database, MOBILE_HOST, "theirs");
    host.session->revert(mobileHost);
    QCOMPARE(host.input<QLineEdit>(mobileHost)->text(), QString("theirs"));
    QCOMPARE(words(host.session->conflicts()), QStringList());
    QCOMPARE(host.session->changes(), (OBJECT_PARAMETERS{{MOBILE_PORT, "1"}}));
    // A later edit starts from what was taken.
    host.type(mobileHost, "mine after all");
    QCOMPARE(words(host.session->conflicts()), QStringList());
    QVERIFY(host.save().isDone());
    QCOMPARE(database.stored(MOBILE_HOST), QString("mine after all"));
}

void TestSettingsSession::mineIsKept()
{
    const TestDatabase database;
    WatchingHost host(database);
    host.type(mobileHost, "mine");
    host.meets(database, MOBILE_HOST, "theirs");
    QVERIFY(host.session->keepMine(host.session->conflicts()[0]));
    QCOMPARE(words(host.session->conflicts()), QStringList());
    QCOMPARE(host.session->changes(), (OBJECT_PARAMETERS{{MOBILE_HOST, "mine"}}));
    QCOMPARE(host.save().outcome, Outcome::Saved);
    QCOMPARE(database.stored(MOBILE_HOST), QString("mine"));
}

void TestSettingsSession::mineIsNotKeptOverWhatWasNotSeen()
{
    const TestDatabase database;
    WatchingHost host(database);
    host.type(mobileHost, "mine");
    host.meets(database, MOBILE_HOST, "theirs");
    const SettingsSession::Conflict seen = host.session->conflicts()[0];
    host.meets(database, MOBILE_HOST, "theirs, later");
    QVERIFY(!host.session->keepMine(seen));
    QCOMPARE(host.save().outcome, Outcome::Conflicting);
    QCOMPARE(database.stored(MOBILE_HOST), QString("theirs, later"));
}

void TestSettingsSession::afterMineWasKeptALaterChangeIsAConflict()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobileHost, "mine");
    database.store(MOBILE_HOST, "theirs");
    QCOMPARE(host.save().outcome, Outcome::Conflicting);
    QVERIFY(host.session->keepMine(host.session->conflicts()[0]));
    database.store(MOBILE_HOST, "theirs, later");
    QCOMPARE(host.save().outcome, Outcome::Conflicting);
    QCOMPARE(words(host.session->conflicts()), QStringList{"PT_MOBILE_HOST | theirs | theirs, later | mine"});
    QCOMPARE(database.stored(MOBILE_HOST), QString("theirs, later"));
    QVERIFY(host.session->keepMine(host.session->conflicts()[0]));
    QVERIFY(host.save().isDone());
    QCOMPARE(database.stored(MOBILE_HOST), QString("mine"));
}

void TestSettingsSession::aSaveMeetsAConflict()
{
    const TestDatabase database;
    Host mine(database);
    mine.type(mobileHost, "mine");
    {
        Host theirs(database);
        theirs.type(mobileHost, "theirs");
        QVERIFY(theirs.save().isDone());
    }
    QCOMPARE(words(mine.session->conflicts()), QStringList());
    const SaveResult result = mine.save();
    QCOMPARE(result.outcome, Outcome::Conflicting);
    QCOMPARE(result.conflicts.count(), 1);
    QCOMPARE(words(mine.session->conflicts()),
             QStringList{"PT_MOBILE_HOST | mobile.installation.example | theirs | mine"});
    QCOMPARE(mine.session->conflicts()[0].stamp.program, QString("tst_settingssession"));
    QCOMPARE(mine.session->changes(), (OBJECT_PARAMETERS{{MOBILE_HOST, "mine"}}));
    QCOMPARE(mine.session->storedText(mobileHost), QString("theirs"));

    mine.session->revert(mobileHost);
    QCOMPARE(mine.input<QLineEdit>(mobileHost)->text(), QString("theirs"));
}

void TestSettingsSession::aSaveMergesIntoTheirMembers()
{
    const TestDatabase database;
    Host host(database);
    host.click(denyEqual);
    database.store(PIN_STRENGTH, R"({"deny_equal": "true", "theirs": 1, "max_len": "20"})");
    QCOMPARE(host.save().outcome, Outcome::Saved);
    QCOMPARE(database.stored(PIN_STRENGTH),
             QString("{\n    \"deny_equal\": \"false\",\n    \"max_len\": \"20\",\n    \"theirs\": 1\n}\n"));
    QVERIFY(!host.session->hasChanges());
}

void TestSettingsSession::aSaveOfWhatTheyHaveStoredIsDone()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobileHost, "the same");
    database.store(MOBILE_HOST, "the same");
    QVERIFY(host.save().isDone());
    QVERIFY(!host.session->hasChanges());
    QCOMPARE(host.session->stored().settings.value(MOBILE_HOST), QString("the same"));
}

void TestSettingsSession::anEqualTextOfALaterRevisionIsAConflict()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobileHost, "mine");
    database.store(MOBILE_HOST, "theirs");
    database.store(MOBILE_HOST, "mobile.installation.example");
    QCOMPARE(host.save().outcome, Outcome::Conflicting);
    QCOMPARE(words(host.session->conflicts()),
             QStringList{"PT_MOBILE_HOST | mobile.installation.example | mobile.installation.example | mine"});
    QVERIFY(host.session->keepMine(host.session->conflicts()[0]));
    QCOMPARE(host.save().outcome, Outcome::Saved);
    QCOMPARE(database.stored(MOBILE_HOST), QString("mine"));
}

void TestSettingsSession::aConflictInOneSettingStopsAll()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobileHost, "mine");
    host.type(mobilePort, "9000");
    database.store(MOBILE_HOST, "theirs");
    QCOMPARE(host.save().outcome, Outcome::Conflicting);
    QCOMPARE(database.stored(MOBILE_PORT), QString("8443"));
    QCOMPARE(host.session->changedAddresses().count(), 2);
}

void TestSettingsSession::aSettingThatIsGoneIsAConflict()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobileHost, "mine");
    database.execute("DELETE FROM settings WHERE key = 'PT_MOBILE_HOST'");
    QCOMPARE(host.save().outcome, Outcome::Conflicting);
    QCOMPARE(words(host.session->conflicts()), QStringList{"PT_MOBILE_HOST | mobile.installation.example |  | mine"});
    QVERIFY(host.session->keepMine(host.session->conflicts()[0]));
    QVERIFY(host.save().isDone());
    QCOMPARE(database.stored(MOBILE_HOST), QString("mine"));
}

void TestSettingsSession::aRevertDuringAConflictingSaveOverwritesNothing()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobileHost, "mine");
    database.store(MOBILE_HOST, "theirs");
    host.session->save();
    host.session->revert();
    QCOMPARE(host.saved().outcome, Outcome::Conflicting);
    QCOMPARE(database.stored(MOBILE_HOST), QString("theirs"));
    QCOMPARE(host.input<QLineEdit>(mobileHost)->text(), QString("theirs"));
    QVERIFY(!host.session->hasChanges());
    QCOMPARE(words(host.session->conflicts()), QStringList());
}

void TestSettingsSession::aPageOpenedAfterARefusedSaveShowsTheirs()
{
    const TestDatabase database;
    Host host(database);
    host.click(denyEqual);
    database.store(PIN_STRENGTH, R"({"deny_equal": "", "max_len": "6"})");
    // The page goes while the save is under way, and comes back before everything was read again.
    bool isSeen = false;
    connect(host.session.get(), &SettingsSession::saveFinished, this, [&](const SaveResult &result) {
        QCOMPARE(result.outcome, Outcome::Conflicting);
        delete host.open(DBGroups::Employees);
        QCOMPARE(host.input<QSpinBox>(maxLen)->value(), 6);
        QVERIFY(!host.session->hasChanges());
        isSeen = true;
    });
    host.type(maxLen, "7");
    host.session->save();
    QTRY_VERIFY(isSeen);
}

void TestSettingsSession::objectsFollow()
{
    const TestDatabase database;
    WatchingHost host(database);
    const SettingAddress profile{MOBILE_SMARTCARD_PROFILE_ID};
    host.open(DBGroups::MobileId);
    host.open(DBGroups::PassRequests);
    QCOMPARE(host.session->shownText(profile), QString("11"));
    const auto objectCount = [&host](const QString &dataName) {
        return host.session->stored().objects.value(dataName).count();
    };

    database.execute("DELETE FROM objects WHERE data_name = ? AND uid = 11", {vantorix::SMARTCARD_PROFILE_DATANAME});
    QTRY_COMPARE(objectCount(vantorix::SMARTCARD_PROFILE_DATANAME), 4);
    QCOMPARE(host.session->changes(), OBJECT_PARAMETERS());
    QCOMPARE(host.session->shownText(profile), QString("0"));
    QCOMPARE(host.session->findings().count(), 1);

    host.meets(database, MOBILE_SMARTCARD_PROFILE_ID, "12");
    QCOMPARE(host.session->shownText(profile), QString("12"));
    QCOMPARE(host.session->findings().count(), 0);
    host.meets(database, MOBILE_SMARTCARD_PROFILE_ID, "16");
    QCOMPARE(host.session->shownText(profile), QString("0"));
    database.execute("UPDATE objects SET uid = 16 WHERE data_name = ? AND uid = 13",
                     {vantorix::SMARTCARD_PROFILE_DATANAME});
    QTRY_COMPARE(host.session->shownText(profile), QString("16"));
    QCOMPARE(host.session->changes(), OBJECT_PARAMETERS());
}

void TestSettingsSession::aFailedSaveKeepsTheEdits()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobileHost, "mine");
    database.execute("ALTER TABLE history RENAME TO gone");
    const SaveResult result = host.save();
    QCOMPARE(result.outcome, Outcome::Failed);
    QCOMPARE(result.error->path, database.path());
    QCOMPARE(host.session->changes(), (OBJECT_PARAMETERS{{MOBILE_HOST, "mine"}}));
    QCOMPARE(words(host.session->conflicts()), QStringList());

    database.execute("ALTER TABLE gone RENAME TO history");
    QVERIFY(host.save().isDone());
}

void TestSettingsSession::aBusyDatabaseIsWaitedForUntilCancelled()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobileHost, "mine");
    SqlConnection other(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
    QVERIFY(other.execute("BEGIN IMMEDIATE"));
    connect(&host.database, &InstallationDatabase::waiting, this, [&host] { host.database.cancel(); });
    const SaveResult result = host.save();
    QCOMPARE(result.outcome, Outcome::Failed);
    QCOMPARE(result.error->kind, DatabaseError::Kind::Cancelled);
    QCOMPARE(host.session->changes(), (OBJECT_PARAMETERS{{MOBILE_HOST, "mine"}}));
    QVERIFY(other.execute("COMMIT"));
    QVERIFY(host.save().isDone());
}

void TestSettingsSession::violationsAreOfWhatWouldBeStored()
{
    const TestDatabase database;
    Host host(database);
    QVERIFY(host.session->violations().isEmpty());
    host.type(maxLen, "6");
    QVERIFY(host.session->violations().isEmpty());
    host.type({PIN_STRENGTH, json::MIN_LEN}, "7");
    QCOMPARE(host.session->violations().count(), 1);
    QCOMPARE(host.session->violations()[0].upper, maxLen);
    host.session->revert(maxLen);
    QVERIFY(host.session->violations().isEmpty());
}

void TestSettingsSession::onlyEditsBreakRulesAnew()
{
    const TestDatabase database;
    makeSample(database);
    database.store(PIN_STRENGTH, R"({"min_len": "9", "max_len": "8"})");
    Host host(database);
    host.click(denyEqual);
    QCOMPARE(host.session->violations().count(), 1);
    QVERIFY(host.session->newViolations().isEmpty());
    host.type(maxLen, "7");
    QCOMPARE(host.session->newViolations().count(), 1);
    QCOMPARE(host.session->newViolations()[0].upper, maxLen);
    host.type(maxLen, "10");
    QVERIFY(host.session->newViolations().isEmpty());
}

void TestSettingsSession::findingsAreOfWhatIsStored()
{
    const TestDatabase database;
    makeSample(database, {{MAX_CARD_COUNT, "500"}});
    Host host(database); // without any page
    const QVector<SettingFinding> findings = host.session->findings();
    QCOMPARE(findings.count(), 1);
    QCOMPARE(findings[0].stored, QString("500"));
    QCOMPARE(findings[0].shown, QString("20"));
    host.open(DBGroups::Employees);
    QVERIFY(!host.session->hasChanges());
}

void TestSettingsSession::aRepairIsAnEdit_data()
{
    QTest::addColumn<SettingAddress>("address");
    QTest::addColumn<QString>("stored"); // under the key
    QTest::addColumn<QString>("saved");

    QTest::newRow("a number") << SettingAddress{MAX_CARD_COUNT} << "500"
                              << "20";
    QTest::newRow("a choice") << SettingAddress{CARD_VIEW_FORMAT} << "77"
                              << "0";
    QTest::newRow("a member") << maxLen << R"({"max_len": "-1"})"
                              << "{\n    \"max_len\": \"4\"\n}\n";
}

void TestSettingsSession::aRepairIsAnEdit()
{
    QFETCH(SettingAddress, address);
    QFETCH(QString, stored);
    const TestDatabase database;
    makeSample(database, {{address.key, stored}});
    Host host(database);
    host.open(DBGroups::Employees);
    const SettingFinding finding = host.session->findings().constFirst();
    QCOMPARE(host.session->shownText(address), finding.repair);

    QVERIFY(host.session->setParameter(address, finding.repair));
    QVERIFY(!host.session->hasChanges());
    QVERIFY(host.session->replaceStored(address, finding.repair));
    QVERIFY(host.session->isChanged(address));
    host.session->revert(address);
    QVERIFY(!host.session->hasChanges());

    QVERIFY(host.session->replaceStored(address, finding.repair));
    QCOMPARE(host.save().outcome, Outcome::Saved);
    QTEST(database.stored(address.key), "saved");
    QVERIFY(!host.session->hasChanges());
    QVERIFY(host.session->findings().isEmpty());
    QVERIFY(host.session->replaceStored(address, finding.repair));
    QVERIFY(!host.session->hasChanges());
}

void TestSettingsSession::aRepairThatSomebodyElseMakesIsNoEdit()
{
    const TestDatabase database;
    makeSample(database, {{MAX_CARD_COUNT, "500"}});
    WatchingHost host(database);
    host.open(DBGroups::Employees);
    QVERIFY(host.session->replaceStored({MAX_CARD_COUNT}, "20"));
    host.meets(database, MAX_CARD_COUNT, "600");
    QVERIFY(host.session->hasChanges());
    host.meets(database, MAX_CARD_COUNT, "20");
    QVERIFY(!host.session->hasChanges());
    QVERIFY(host.session->replaceStored({MAX_CARD_COUNT}, "19"));
    QTest::keyClick(host.input<QSpinBox>({MAX_CARD_COUNT}), Qt::Key_Up);
    QVERIFY(!host.session->hasChanges());
}

void TestSettingsSession::aWholeTextIsRepaired_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("repaired");
    QTest::newRow("no object") << "spoilt"
                               << R"({
    "deny_equal": "false",
    "deny_sequence": "false",
    "max_len": "4",
    "min_len": "0"
}
)";
    QTest::newRow("a name that occurs twice")
        << R"({"later": [1], "min_len": "4", "min_len": "5", "max_len": "8", "deny_equal": "true", "deny_sequence": "true"})"
        << R"({
    "deny_equal": "true",
    "deny_sequence": "true",
    "later": [1],
    "max_len": "8",
    "min_len": "5"
}
)";
}

void TestSettingsSession::aWholeTextIsRepaired()
{
    QFETCH(QString, stored);
    QFETCH(QString, repaired);
    const TestDatabase database;
    makeSample(database);
    database.store(PIN_STRENGTH, stored);
    Host host(database);
    host.open(DBGroups::Employees);
    QVERIFY(host.session->isUnreadable(PIN_STRENGTH));
    QVERIFY(!host.session->isUnreadable(PASSWORD_STRENGTH));
    QVERIFY(!host.session->isUnreadable(MOBILE_PORT));
    QCOMPARE(host.session->repairedText(PIN_STRENGTH), repaired);
    QVERIFY(!host.session->hasChanges());

    host.session->repair(PIN_STRENGTH);
    QVERIFY(host.session->hasChanges());
    QCOMPARE(database.stored(PIN_STRENGTH), stored);
    QCOMPARE(host.save().outcome, Outcome::Saved); // without another question
    QCOMPARE(database.stored(PIN_STRENGTH), repaired);
    QVERIFY(!host.session->isUnreadable(PIN_STRENGTH));
}

void TestSettingsSession::aRepairReplacesOnlyWhatWasSeen()
{
    const TestDatabase database;
    makeSample(database);
    database.store(PIN_STRENGTH, "spoilt");
    WatchingHost host(database);
    host.open(DBGroups::Employees);
    host.session->repair(PIN_STRENGTH);
    host.meets(database, PIN_STRENGTH, "spoilt otherwise");
    const SaveResult asked = host.save();
    QCOMPARE(asked.outcome, Outcome::Unreadable);
    QCOMPARE(asked.unreadableKeys, QStringList{PIN_STRENGTH});
    QCOMPARE(database.stored(PIN_STRENGTH), QString("spoilt otherwise"));
}

void TestSettingsSession::anUndoneRepairReplacesNothing()
{
    const TestDatabase database;
    makeSample(database);
    database.store(PIN_STRENGTH, "spoilt");
    Host host(database);
    host.open(DBGroups::Employees);
    host.session->repair(PIN_STRENGTH);
    host.session->revert();
    QVERIFY(!host.session->hasChanges());
    host.click(denyEqual);
    QCOMPARE(host.save().outcome, Outcome::Unreadable);
    QCOMPARE(database.stored(PIN_STRENGTH), QString("spoilt"));
}

void TestSettingsSession::aClosedWindowHasNoChanges()
{
    const TestDatabase database;
    Host host(database);
    host.type({MAX_CARD_COUNT}, "9");
    QVERIFY(host.session->hasChanges());
    host.window.reset();
    QVERIFY(!host.session->hasChanges());
    QVERIFY(!host.session->hasChanges(DBGroups::Employees));
    QVERIFY(host.session->shownText({MAX_CARD_COUNT}).isNull());
    host.session->revert();
    QCOMPARE(host.save().outcome, Outcome::NothingToDo);
}

void TestSettingsSession::aPageThatIsClosedAnswersNothing()
{
    const TestDatabase database;
    makeSample(database, {{PIN_STRENGTH, R"({"min_len":4})"}});
    Host host(database);
    QVERIFY(!host.session->editor(mobileHost));
    QVERIFY(!host.session->isChanged(mobileHost));
    QVERIFY(!host.session->replaceStored(mobileHost, "mine"));
    QVERIFY(!host.session->isReplacing(mobileHost));
    host.session->repair(PIN_STRENGTH);
    host.session->revert(mobileHost);
    QVERIFY(!host.session->hasChanges());
    QCOMPARE(host.session->replacing(), QVector<SettingAddress>());
    QCOMPARE(host.session->repairedText(PIN_STRENGTH), QString("{\n    \"min_len\": 4\n}\n"));
    QVERIFY(!host.session->isUnreadable("PT_OTHER"));
}

void TestSettingsSession::whatIsShownAsItIsStoredReplacesNothing()
{
    const TestDatabase database;
    makeSample(database, {{MOBILE_HOST, "stored"}, {MOBILE_PORT, "80"}});
    Host host(database);
    host.open(DBGroups::Connection);
    QVERIFY(host.session->replaceStored(mobileHost, "stored"));
    QVERIFY(!host.session->isReplacing(mobileHost));
    QVERIFY(!host.session->replaceStored(mobilePort, "99999999")); // is shown as the highest port
    QVERIFY(!host.session->isReplacing(mobilePort));
    QVERIFY(host.session->replaceStored(mobileHost, "mine"));
    QVERIFY(host.session->isReplacing(mobileHost));
    QCOMPARE(host.session->replacing(), QVector<SettingAddress>{mobileHost});
}

void TestSettingsSession::aRepairIsSavedWithOtherEdits()
{
    const TestDatabase database;
    makeSample(database, {{PIN_STRENGTH, "spoilt"}});
    Host host(database);
    host.type({MAX_CARD_COUNT}, "9");
    host.session->repair(PIN_STRENGTH);
    QCOMPARE(host.save().outcome, Outcome::Saved);
    QCOMPARE(database.stored(MAX_CARD_COUNT), QString("9"));
    QVERIFY(!host.session->isUnreadable(PIN_STRENGTH));
}

void TestSettingsSession::membersOfOneSettingAreOneConflict()
{
    const TestDatabase database;
    makeSample(database, {{PIN_STRENGTH, R"({"min_len": "4", "max_len": "8"})"}});
    Host mine(database);
    mine.type(minLen, "5");
    mine.type(maxLen, "9");
    mine.type(mobileHost, "mine");
    database.store(PIN_STRENGTH, R"({"min_len": "6", "max_len": "10"})");
    database.store(MOBILE_HOST, "theirs");
    const SaveResult result = mine.save();
    QCOMPARE(result.outcome, Outcome::Conflicting);
    QStringList keys;
    for (const SettingConflict &conflict : result.conflicts)
        keys << conflict.key;
    keys.sort();
    QCOMPARE(keys, (QStringList{MOBILE_HOST, PIN_STRENGTH}));
    QCOMPARE(mine.session->conflicts().count(), 3);
}

void TestSettingsSession::aPageMayBeClosedDuringItsSave()
{
    const TestDatabase database;
    makeSample(database, {{PIN_STRENGTH, R"({"min_len": "4", "max_len": "8"})"}});
    Host host(database);
    host.type(maxLen, "9");
    database.store(PIN_STRENGTH, R"({"min_len": "6", "max_len": "8"})"); // the save is merged with it
    host.session->save();
    host.window.reset();
    QCOMPARE(host.saved().outcome, Outcome::Saved);
    QCOMPARE(database.stored(PIN_STRENGTH), QString("{\n    \"max_len\": \"9\",\n    \"min_len\": \"6\"\n}\n"));
    QVERIFY(!host.session->hasChanges());
}

void TestSettingsSession::accessIsSavedByItself()
{
    const TestDatabase database;
    Host host(database);
    QVERIFY(host.session->isLoaded());
    QVector<Outcome> outcomes;
    const auto note = [&outcomes](const SaveResult &result) { outcomes.append(result.outcome); };
    const QString closed = R"({"users": false})";
    host.session->saveAccess(closed, 0, {}, note);
    QTRY_COMPARE(outcomes, QVector<Outcome>{Outcome::Saved});
    QCOMPARE(database.stored(PageAccess::KEY), closed);
    QVERIFY(!host.session->mayEdit(DBGroups::Users));

    database.store(PageAccess::KEY, R"({"employees": false})");
    host.session->saveAccess("{}", 1, {}, note);
    QTRY_COMPARE(outcomes, (QVector<Outcome>{Outcome::Saved, Outcome::Conflicting}));
    QVERIFY(host.session->mayEdit(DBGroups::Users));
    QVERIFY(!host.session->mayEdit(DBGroups::Employees));
    QCOMPARE(database.stored(PageAccess::KEY), QString(R"({"employees": false})"));

    host.session->saveAccess("{}", 2, {}, note);
    host.session.reset();
    host.waitForAnswers();
    QCOMPARE(database.stored(PageAccess::KEY), QString("{}"));
    QCOMPARE(outcomes.count(), 2);
}

void TestSettingsSession::theSessionMayGoFirst()
{
    const TestDatabase database;
    Host host(database);
    host.type(mobileHost, "mine");
    host.session->save();
    host.session->load();
    host.session.reset();
    QCOMPARE(host.window->findChildren<DBParamWidget *>().count(), 0);
    // What was sent is carried out all the same.
    host.waitForAnswers();
    QCOMPARE(database.stored(MOBILE_HOST), QString("mine"));
}

void TestSettingsSession::secretsReachNoLog()
{
    const TestDatabase database;
    makeSample(database, {{PASSWORD_DEF, "canary-stored"}, {LOCKER_ACCESS_TOKEN, "canary-stored"}});
    const auto logOfARound = [&] {
        const CapturedMessages messages;
        Host host(database);
        host.type({PASSWORD_DEF}, "canary-typed");
        host.type({LOCKER_ACCESS_TOKEN}, "canary-typed");
        database.store(PASSWORD_DEF, "canary-theirs");
        if (host.save().outcome == Outcome::Conflicting && host.session->keepMine(host.session->conflicts()[0]))
            (void)host.save();
        return messages.texts().join('\n');
    };
    QVERIFY(!logOfARound().contains("canary"));
    QCOMPARE(database.stored(PASSWORD_DEF), QString("canary-typed"));

    // The library does tell them to whoever asks, so the search above can find something.
    QLoggingCategory::setFilterRules("gui.lib.dbsettings.debug=true");
    QVERIFY(logOfARound().contains("canary"));
    HostEnvironment::prepare();
}

QTEST_MAIN(TestSettingsSession)
#include "tst_settingssession.moc"
