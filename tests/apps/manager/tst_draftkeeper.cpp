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

QTEST_MAIN(TestDraftKeeper)
#include "tst_draftkeeper.moc"
