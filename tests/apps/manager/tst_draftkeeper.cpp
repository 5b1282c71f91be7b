#include "draftkeeper.h"

#include "host/editors.h"
#include "host/testdatabase.h"
#include "mainwindow.h"
#include "messages.h"
#include "modalanswer.h"
#include "sessionwait.h"

#include <host/hostenvironment.h>
#include <host/installationdatabase.h>
#include <host/settingsdraft.h>
#include <host/settingssession.h>

#include <vxsettings/dbkeys.h>

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>

using namespace db::database;

class TestDraftKeeper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void editsAreOfferedAtTheNextStart_data();
    void editsAreOfferedAtTheNextStart();
    void nothingIsOfferedAfterAnOrderlyEnd();
    void whatIsStoredByNowIsNotOffered();
    void aRepairIsStillAgreed_data();
    void aRepairIsStillAgreed();

private:
    QTemporaryDir m_home;
};

namespace {

/// A start of the program.
class Start
{
public:
    explicit Start(const TestDatabase &file)
        : location(DatabaseLocation::ofFile(file.path()))
        , database(location, InstallationDatabase::Missing::CreateSample)
        , session(database)
    {
        if (const auto error = SessionWait::load(session))
            throw std::runtime_error(error->text().toStdString());
        window = std::make_unique<MainWindow>(database, session);
        draft = std::make_unique<SettingsDraft>(location);
        keeper = std::make_unique<DraftKeeper>(*draft, session, *window);
        window->show();
    }

    void type(const QString &text) const
    {
        window->showParameter({MOBILE_HOST});
        editors::retype(editors::input<QLineEdit>(window.get(), MOBILE_HOST), text);
    }

    DatabaseLocation location;
    InstallationDatabase database;
    SettingsSession session;
    std::unique_ptr<MainWindow> window;
    std::unique_ptr<SettingsDraft> draft;
    std::unique_ptr<DraftKeeper> keeper; // dies first, without a word, as after a crash
};
} // namespace

Q_DECLARE_METATYPE(SaveResult::Outcome)

void TestDraftKeeper::initTestCase()
{
    failOnUnexpectedMessages();
    HostEnvironment::prepare();
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_home.path()));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_home.path());
}

void TestDraftKeeper::editsAreOfferedAtTheNextStart_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("shown");
    QTest::newRow("restore") << "Восстановить"
                             << "typed";
    QTest::newRow("delete") << "Удалить черновик" << QString();
}

void TestDraftKeeper::editsAreOfferedAtTheNextStart()
{
    QFETCH(QString, button);
    QFETCH(QString, shown);
    const TestDatabase database;
    {
        const Start crashed(database);
        crashed.type("typed");
    }
    {
        const Start next(database);
        const ModalAnswer answer(button);
        next.keeper->offer();
        QVERIFY(answer.wasGiven());
        QVERIFY2(answer.text().contains("Хост: «mobile.installation.example» → «typed»"), qPrintable(answer.text()));
        QCOMPARE(next.session.shownText({MOBILE_HOST}), shown);
        QCOMPARE(next.session.hasChanges(), !shown.isNull());
    }
    const Start third(database);
    QCOMPARE(third.draft->found().edits.size(), shown.isNull() ? 0 : 1);
}

void TestDraftKeeper::nothingIsOfferedAfterAnOrderlyEnd()
{
    const TestDatabase database;
    {
        const Start start(database);
        start.type("typed");
        start.keeper->drop();
    }
    const Start next(database);
    QVERIFY(next.draft->found().edits.isEmpty());
    next.keeper->offer(); // would wait for an answer
}

void TestDraftKeeper::whatIsStoredByNowIsNotOffered()
{
    const TestDatabase database;
    {
        const Start crashed(database);
        crashed.type("typed");
    }
    database.store(MOBILE_HOST, "typed");
    const Start next(database);
    QCOMPARE(next.draft->found().edits.size(), 1);
    next.keeper->offer(); // would wait for an answer
    QVERIFY(!next.session.hasChanges());
}

void TestDraftKeeper::aRepairIsStillAgreed_data()
{
    QTest::addColumn<QString>("meanwhile");
    QTest::addColumn<SaveResult::Outcome>("outcome");
    QTest::newRow("of the text that was seen") << QString() << SaveResult::Outcome::Saved;
    QTest::newRow("not of another one") << "spoilt otherwise" << SaveResult::Outcome::Unreadable;
}

void TestDraftKeeper::aRepairIsStillAgreed()
{
    QFETCH(QString, meanwhile);
    QFETCH(SaveResult::Outcome, outcome);
    const TestDatabase database;
    {
        const Start sample(database);
        sample.keeper->drop();
    }
    database.store(PIN_STRENGTH, "spoilt");
    QString repaired;
    {
        Start crashed(database);
        crashed.window->showParameter({PIN_STRENGTH, json::MIN_LEN});
        crashed.session.repair(PIN_STRENGTH);
        repaired = crashed.session.repairedText(PIN_STRENGTH);
    }
    if (!meanwhile.isNull())
        database.store(PIN_STRENGTH, meanwhile);
    Start next(database);
    const ModalAnswer answer("Восстановить");
    next.keeper->offer();
    QVERIFY(answer.wasGiven());

    std::optional<SaveResult> result;
    connect(&next.session, &SettingsSession::saveFinished, &next.session,
            [&result](const auto &done) { result = done; });
    next.session.save();
    QTRY_VERIFY(result);
    QCOMPARE(result->outcome, outcome);
    QCOMPARE(database.stored(PIN_STRENGTH), outcome == SaveResult::Outcome::Saved ? repaired : meanwhile);
}

QTEST_MAIN(TestDraftKeeper)
#include "tst_draftkeeper.moc"
