#include <host/installationdatabase.h>
#include <host/pageaccess.h>
#include <host/settingssession.h>
#include <host/settingsstore.h>

#include "messages.h"
#include "testinstallation.h"

#include <vxsettings/dbkeys.h>

#include <QSignalSpy>
#include <QTest>
#include <QWidget>

using namespace db::database;
using Engine = TestInstallation::Engine;
using Outcome = SaveResult::Outcome;
using vantorix::OBJECT_PARAMETERS;

/// Saves of what operators may not change, on a file and on a server.
class TestPageLock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void anOperatorIsRefused_data() { engines(); }
    void anOperatorIsRefused();
    void anAdministratorIsNot_data() { engines(); }
    void anAdministratorIsNot();
    void theFlagsAreThoseOfTheMomentOfTheSave_data() { engines(); }
    void theFlagsAreThoseOfTheMomentOfTheSave();
    void flagsThatCannotBeReadLockEverything_data() { engines(); }
    void flagsThatCannotBeReadLockEverything();
    void twoAdministratorsAreAConflict_data() { engines(); }
    void twoAdministratorsAreAConflict();
    void aSessionRefusesWithoutAskingTheDatabase_data() { engines(); }
    void aSessionRefusesWithoutAskingTheDatabase();
    void aSessionIsToldByTheDatabase_data() { engines(); }
    void aSessionIsToldByTheDatabase();

private:
    static void engines()
    {
        QTest::addColumn<Engine>("engine");
        QTest::newRow("a file") << Engine::File;
        QTest::newRow("a server") << Engine::Server;
    }
};

namespace {

const QString connectionLocked = R"({"checked": true, "connection": false})";
const OBJECT_PARAMETERS otherPort{{MOBILE_PORT, "9443"}};

/// A connection to a sample installation.
struct Opened
{
    explicit Opened(const TestInstallation &database)
    {
        if (auto error = store.open(database.location(), SettingsStore::Missing::CreateSample))
            throw std::runtime_error(error->text().toStdString());
        load();
    }
    void load()
    {
        if (auto error = store.load(base))
            throw std::runtime_error(error->text().toStdString());
    }
    SaveResult save(const OBJECT_PARAMETERS &changes, Authority authority = Authority::Operator)
    {
        return store.save(SaveOrder{changes, base, {}, authority});
    }

    SettingsStore store;
    Installation base;
};

SaveResult saved(SettingsSession &session)
{
    std::optional<SaveResult> result;
    QObject context;
    QObject::connect(&session, &SettingsSession::saveFinished, &context,
                     [&result](const SaveResult &finished) { result = finished; });
    session.save();
    if (!QTest::qWaitFor([&result] { return result.has_value(); }, 20000))
        throw std::runtime_error("the save does not end");
    return *result;
}
} // namespace

void TestPageLock::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestPageLock::anOperatorIsRefused()
{
    QFETCH(Engine, engine);
    const TestInstallation database(engine);
    Opened opened(database);
    database.store(PageAccess::KEY, connectionLocked);
    opened.load();

    // All or nothing: the other page is open.
    const SaveResult result = opened.save({{MOBILE_PORT, "9443"}, {USER_SESSION_COUNT, "3"}});
    QCOMPARE(result.outcome, Outcome::Forbidden);
    QCOMPARE(result.forbiddenKeys, QStringList{MOBILE_PORT});
    QVERIFY(!result.isDone());
    QCOMPARE(database.stored(MOBILE_PORT), QString("8443"));
    QVERIFY(database.stored(USER_SESSION_COUNT) != "3");
    QCOMPARE(opened.save({{PageAccess::KEY, "{}"}}).forbiddenKeys, QStringList{PageAccess::KEY});
    QCOMPARE(database.stored(PageAccess::KEY), connectionLocked);
    QCOMPARE(database.ask("SELECT count(*) FROM history").toInt(), 0);
    QCOMPARE(opened.save({{USER_SESSION_COUNT, "3"}}).outcome, Outcome::Saved);
}

void TestPageLock::anAdministratorIsNot()
{
    QFETCH(Engine, engine);
    const TestInstallation database(engine);
    Opened opened(database);
    QCOMPARE(opened.save({{PageAccess::KEY, connectionLocked}}, Authority::Administrator).outcome, Outcome::Saved);
    QCOMPARE(opened.save(otherPort, Authority::Administrator).outcome, Outcome::Saved);
    QCOMPARE(database.stored(MOBILE_PORT), QString("9443"));
    QCOMPARE(database.ask("SELECT new_value FROM history ORDER BY id LIMIT 1").toString(), connectionLocked);
}

void TestPageLock::theFlagsAreThoseOfTheMomentOfTheSave()
{
    QFETCH(Engine, engine);
    const TestInstallation database(engine);
    Opened opened(database);
    database.store(PageAccess::KEY, connectionLocked); // after it was read
    QCOMPARE(opened.save(otherPort).outcome, Outcome::Forbidden);
    database.store(PageAccess::KEY, "{}");
    QCOMPARE(opened.save(otherPort).outcome, Outcome::Saved);
}

void TestPageLock::flagsThatCannotBeReadLockEverything()
{
    QFETCH(Engine, engine);
    const TestInstallation database(engine);
    Opened opened(database);
    for (const char *text : {"", "spoilt", R"({"users": true, "users": true})"}) {
        database.store(PageAccess::KEY, text);
        QCOMPARE(opened.save(otherPort).forbiddenKeys, QStringList{MOBILE_PORT});
        QCOMPARE(database.stored(PageAccess::KEY), QString(text));
    }
}

void TestPageLock::twoAdministratorsAreAConflict()
{
    QFETCH(Engine, engine);
    const TestInstallation database(engine);
    Opened one(database);
    Opened other(database);
    QCOMPARE(one.save({{PageAccess::KEY, connectionLocked}}, Authority::Administrator).outcome, Outcome::Saved);
    const SaveResult result = other.save({{PageAccess::KEY, "{}"}}, Authority::Administrator);
    QCOMPARE(result.outcome, Outcome::Conflicting);
    QCOMPARE(result.conflicts.first().stored, connectionLocked);
}

void TestPageLock::aSessionRefusesWithoutAskingTheDatabase()
{
    QFETCH(Engine, engine);
    const TestInstallation installation(engine);
    QVERIFY(Opened(installation).save({{PageAccess::KEY, connectionLocked}}, Authority::Administrator).isDone());
    InstallationDatabase database(installation.location());
    SettingsSession session(database);
    QSignalSpy loaded(&session, &SettingsSession::loaded);
    session.load();
    QVERIFY(loaded.wait());
    QVERIFY(!session.mayEdit(DBGroups::Connection));
    QVERIFY(session.mayEdit(DBGroups::Users));

    QWidget window;
    session.openPage(DBGroups::Connection, &window);
    QVERIFY(session.setParameter({MOBILE_PORT}, "9443"));
    installation.execute("ALTER TABLE settings RENAME TO away"); // whoever asks now fails
    const SaveResult refused = saved(session);
    installation.execute("ALTER TABLE away RENAME TO settings");
    QCOMPARE(refused.outcome, Outcome::Forbidden);
    QCOMPARE(refused.forbiddenKeys, QStringList{MOBILE_PORT});
    QVERIFY(session.hasChanges()); // nothing is lost

    session.setAuthority(Authority::Administrator);
    QVERIFY(session.mayEdit(DBGroups::Connection));
    QCOMPARE(saved(session).outcome, Outcome::Saved);
    QCOMPARE(installation.stored(MOBILE_PORT), QString("9443"));
}

void TestPageLock::aSessionIsToldByTheDatabase()
{
    QFETCH(Engine, engine);
    const TestInstallation installation(engine);
    Opened administrator(installation);
    InstallationDatabase database(installation.location());
    SettingsSession session(database);
    QSignalSpy loaded(&session, &SettingsSession::loaded);
    session.load();
    QVERIFY(loaded.wait());
    QWidget window;
    session.openPage(DBGroups::Connection, &window);
    session.setParameter({MOBILE_PORT}, "9443");

    // Nobody watches, so the session does not know of it yet.
    QVERIFY(administrator.save({{PageAccess::KEY, connectionLocked}}, Authority::Administrator).isDone());
    QVERIFY(session.mayEdit(DBGroups::Connection));
    const SaveResult refused = saved(session);
    QCOMPARE(refused.outcome, Outcome::Forbidden);
    QCOMPARE(refused.forbiddenKeys, QStringList{MOBILE_PORT});
    QVERIFY(session.hasChanges());
    QTRY_VERIFY(!session.mayEdit(DBGroups::Connection)); // it was read again
}

QTEST_MAIN(TestPageLock)
#include "tst_pagelock.moc"
