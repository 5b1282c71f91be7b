#include "mainwindow.h"

#include "host/editors.h"
#include "host/testdatabase.h"
#include "messages.h"
#include "modalanswer.h"
#include "pagelist.h"
#include "sessionwait.h"

#include <host/hostenvironment.h>
#include <host/installationdatabase.h>
#include <host/settingspages.h>
#include <host/settingssession.h>

#include <vxsettings/dbkeys.h>

#include <QCheckBox>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QStackedWidget>
#include <QStandardPaths>
#include <QTest>

#include <memory>

using namespace db::database;

namespace {

InstallationDatabase::Limits quickLimits()
{
    InstallationDatabase::Limits limits;
    limits.filePulse = std::chrono::milliseconds(10);
    return limits;
}
} // namespace

/// The manager's window on a database, shown.
class Window
{
public:
    explicit Window(const TestDatabase &file)
        : database(DatabaseLocation::ofFile(file.path()), InstallationDatabase::Missing::CreateSample, quickLimits())
        , session(database)
    {
        if (const auto error = SessionWait::load(session))
            throw std::runtime_error(error->text().toStdString());
        window = std::make_unique<MainWindow>(database, session);
        window->show();
        if (!QTest::qWaitForWindowExposed(window.get()))
            throw std::runtime_error("no window");
    }

    PageList *list() const { return window->findChild<PageList *>(); }
    QWidget *page() const { return window->findChild<QStackedWidget *>()->currentWidget(); }
    QPushButton *save() const { return window->findChild<QPushButton *>("saveButton"); }
    QPushButton *revert() const { return window->findChild<QPushButton *>("revertButton"); }
    QString changeText() const { return window->findChild<QLabel *>("changeLabel")->text(); }

    /// Goes to a page with the mouse.
    QWidget *go(DBGroups group) const
    {
        for (int row = 0; row < list()->count(); ++row) {
            if (settingsPages[row].group == group)
                QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
                                  list()->visualItemRect(list()->item(row)).center());
        }
        return page();
    }
    template <typename Input>
    Input *input(const QString &key) const
    {
        return editors::input<Input>(window.get(), key);
    }
    void typeHost(const QString &text) const
    {
        go(DBGroups::Connection);
        editors::retype(input<QLineEdit>(MOBILE_HOST), text);
    }
    bool isMarked(int row) const { return list()->item(row)->font().bold(); }

    InstallationDatabase database;
    SettingsSession session;
    std::unique_ptr<MainWindow> window;
};

class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void aPageIsBuiltWhenItIsFirstShown();
    void aFreshWindowHasNothingToSave();
    void anEditIsShownEverywhere();
    void anEditPutBackIsNoChange();
    void savingWritesAndCalmsDown();
    void ctrlSSaves();
    void revertBringsEverythingBack();
    void anUndoLeadsToItsParameter();
    void aDependentFollows();
    void theLastPageAndTheSizeAreRemembered();
    void closingWithoutChangesAsksNothing();
    void closingWithChangesAsks_data();
    void closingWithChangesAsks();
    void closingSavesOnlyWhatCanBeSaved();
    void closingDuringASaveWaitsForIt();
    void theWindowLivesWhileItSaves();
    void aSaveCanBeCancelled();
    void whatOthersSaveIsShown();
    void aLostConnectionIsANotice();
    void aConflictCanBeOverwritten();
    void aConflictCanBeLeft();
    void theirsCanBeTaken();
    void unreadableJsonAsks_data();
    void unreadableJsonAsks();
    void aFailedSaveIsShown();
    void nothingIsCutOff_data();
    void nothingIsCutOff();
    void theKeyboardReachesEverything();

private:
    QTemporaryDir m_config;
};

void TestMainWindow::initTestCase()
{
    failOnUnexpectedMessages();
    HostEnvironment::prepare();
    QCoreApplication::setOrganizationName("vxsettings-tests");
    QCoreApplication::setApplicationName("tst_mainwindow");
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_config.path());
}

void TestMainWindow::init()
{
    QSettings().clear();
}

void TestMainWindow::aPageIsBuiltWhenItIsFirstShown()
{
    const TestDatabase database;
    const Window window(database);
    QCOMPARE(window.list()->chosen(), DBGroups::Database);
    QVERIFY(window.input<QLineEdit>(VERSION));
    QVERIFY(!window.input<QLineEdit>(MOBILE_HOST));

    QWidget *connection = window.go(DBGroups::Connection);
    const auto *host = window.input<QLineEdit>(MOBILE_HOST);
    QVERIFY(host && host->isVisible());
    window.go(DBGroups::Users);
    QVERIFY(!host->isVisible());
    QCOMPARE(window.go(DBGroups::Connection), connection);
    QCOMPARE(window.input<QLineEdit>(MOBILE_HOST), host);

    for (const SettingsPageName &page : settingsPages)
        window.go(page.group);
    QCOMPARE(window.window->findChild<QStackedWidget *>()->count(), 12);
    QVERIFY(!window.session.hasChanges());
}

void TestMainWindow::aFreshWindowHasNothingToSave()
{
    const TestDatabase database;
    const Window window(database);
    QVERIFY(!window.save()->isEnabled());
    QVERIFY(!window.revert()->isEnabled());
    QVERIFY(!window.window->isWindowModified());
    QCOMPARE(window.changeText(), QString("Несохранённых изменений нет"));
    QVERIFY(window.window->windowTitle().contains("installation.db[*]"));
    QVERIFY(!window.window->windowIcon().isNull());
}

void TestMainWindow::anEditIsShownEverywhere()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("h");
    QVERIFY(window.save()->isEnabled());
    QVERIFY(window.revert()->isEnabled());
    QVERIFY(window.window->isWindowModified());
    QCOMPARE(window.changeText(), QString("Изменено настроек: 1"));
    QVERIFY(window.isMarked(8));
    QVERIFY(!window.isMarked(7));

    window.go(DBGroups::Users);
    editors::retype(window.input<QSpinBox>(PASSWORD_EXPIRED), "30");
    QCOMPARE(window.changeText(), QString("Изменено настроек: 2"));
    QVERIFY(window.isMarked(2) && window.isMarked(8));
}

void TestMainWindow::anEditPutBackIsNoChange()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("h");
    window.typeHost("mobile.installation.example");
    QVERIFY(!window.save()->isEnabled());
    QVERIFY(!window.window->isWindowModified());
    QVERIFY(!window.isMarked(8));
}

void TestMainWindow::savingWritesAndCalmsDown()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("saved");
    QTest::mouseClick(window.save(), Qt::LeftButton);
    QVERIFY(!window.save()->isEnabled());
    QCOMPARE(window.changeText(), QString("Сохранение…"));
    QTRY_COMPARE(window.changeText(), QString("Несохранённых изменений нет"));
    QCOMPARE(database.stored(MOBILE_HOST), QString("saved"));
    QVERIFY(!window.save()->isEnabled());
    QVERIFY(!window.revert()->isEnabled());
    QVERIFY(!window.window->isWindowModified());
    QVERIFY(!window.isMarked(8));

    const Window again(database);
    again.go(DBGroups::Connection);
    QCOMPARE(again.input<QLineEdit>(MOBILE_HOST)->text(), QString("saved"));
}

void TestMainWindow::ctrlSSaves()
{
    const TestDatabase database;
    const Window window(database);
    QApplication::setActiveWindow(window.window.get());
    window.typeHost("saved by keys");
    QTest::keyClick(window.window->windowHandle(), Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(!window.window->isWindowModified());
    QCOMPARE(database.stored(MOBILE_HOST), QString("saved by keys"));
}

void TestMainWindow::revertBringsEverythingBack()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("h");
    window.go(DBGroups::Employees);
    editors::click(window.input<QCheckBox>(json::DENY_EQUAL));
    QCOMPARE(window.changeText(), QString("Изменено настроек: 2"));

    QTest::mouseClick(window.revert(), Qt::LeftButton);
    QVERIFY(!window.revert()->isEnabled());
    QVERIFY(!window.window->isWindowModified());
    QVERIFY(window.input<QCheckBox>(json::DENY_EQUAL)->isChecked());
    QCOMPARE(window.input<QLineEdit>(MOBILE_HOST)->text(), QString("mobile.installation.example"));
}

void TestMainWindow::anUndoLeadsToItsParameter()
{
    const TestDatabase database;
    const Window window(database);
    QApplication::setActiveWindow(window.window.get());
    window.typeHost("edited");
    window.go(DBGroups::Users);
    QTest::keyClick(window.window->windowHandle(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(window.list()->chosen(), DBGroups::Connection);
    QCOMPARE(window.input<QLineEdit>(MOBILE_HOST)->text(), QString("mobile.installation.example"));
    QCOMPARE(QApplication::focusWidget(), window.input<QWidget>(MOBILE_HOST));
    QVERIFY(!window.window->isWindowModified());
}

void TestMainWindow::aDependentFollows()
{
    const TestDatabase database;
    const Window window(database);
    window.go(DBGroups::FaceScanning);
    QVERIFY(!window.input<QSpinBox>(ENROLL_FACE_MIN_SIZE)->isEnabled());
    QTest::keyClick(window.input<QComboBox>(ENABLE_FACE_SCANNING), Qt::Key_Down);
    QVERIFY(window.input<QSpinBox>(ENROLL_FACE_MIN_SIZE)->isEnabled());
}

void TestMainWindow::theLastPageAndTheSizeAreRemembered()
{
    const TestDatabase database;
    {
        const Window window(database);
        QCOMPARE(window.window->size(), QSize(1024, 700));
        window.window->resize(780, 520);
        window.go(DBGroups::PalmScanning);
        window.window->close();
    }
    const Window window(database);
    QCOMPARE(window.list()->chosen(), DBGroups::PalmScanning);
    QVERIFY(window.input<QWidget>(ENROLL_PALM_QUALITY));
    QCOMPARE(window.window->size(), QSize(780, 520));
}

void TestMainWindow::closingWithoutChangesAsksNothing()
{
    const TestDatabase database;
    const Window window(database);
    const ModalAnswer answer("Вернуться");
    QVERIFY(window.window->close());
    QVERIFY(!answer.wasGiven());
}

void TestMainWindow::closingWithChangesAsks_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<QString>("stored");
    QTest::newRow("save") << "Сохранить" << true << "edited";
    QTest::newRow("discard") << "Не сохранять" << true << "mobile.installation.example";
    QTest::newRow("stay") << "Вернуться" << false << "mobile.installation.example";
}

void TestMainWindow::closingWithChangesAsks()
{
    QFETCH(QString, button);
    QFETCH(bool, closed);
    const TestDatabase database;
    const Window window(database);
    window.typeHost("edited");
    const ModalAnswer answer(button);
    // A save that has to be waited for closes the window when it has succeeded.
    QCOMPARE(window.window->close(), button == "Не сохранять");
    QVERIFY(answer.wasGiven());
    QTRY_COMPARE(window.window->isVisible(), !closed);
    QTEST(database.stored(MOBILE_HOST), "stored");
    if (!closed)
        QCOMPARE(window.input<QLineEdit>(MOBILE_HOST)->text(), QString("edited"));
}

void TestMainWindow::closingSavesOnlyWhatCanBeSaved()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("mine");
    database.store(MOBILE_HOST, "theirs");
    const ModalAnswer answers(QStringList{"Сохранить", "Вернуться"});
    QVERIFY(!window.window->close());
    QTRY_VERIFY(answers.wasGiven());
    QVERIFY(window.window->isVisible());
    QCOMPARE(database.stored(MOBILE_HOST), QString("theirs"));
    QVERIFY(window.session.hasChanges());

    // A later save is no wish to leave.
    const ModalAnswer mine(QStringList{"Все мои", "Записать выбранное"});
    QTest::mouseClick(window.save(), Qt::LeftButton);
    QTRY_VERIFY(!window.session.hasChanges());
    QCoreApplication::processEvents();
    QVERIFY(window.window->isVisible());
}

void TestMainWindow::closingDuringASaveWaitsForIt()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("saved");
    QTest::mouseClick(window.save(), Qt::LeftButton);
    QVERIFY(!window.window->close());
    QTRY_VERIFY(!window.window->isVisible());
    QCOMPARE(database.stored(MOBILE_HOST), QString("saved"));
}

void TestMainWindow::theWindowLivesWhileItSaves()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("saved");
    SqlConnection other(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
    QVERIFY(other.execute("BEGIN IMMEDIATE"));
    QTest::mouseClick(window.save(), Qt::LeftButton);
    QTRY_COMPARE(window.changeText(), QString("База данных занята другой программой. Ожидание…"));
    editors::retype(window.input<QSpinBox>(MOBILE_PORT), "90");
    QCOMPARE(window.input<QSpinBox>(MOBILE_PORT)->value(), 90);
    QVERIFY(other.execute("COMMIT"));
    QTRY_COMPARE(window.changeText(), QString("Изменено настроек: 1"));
    QCOMPARE(database.stored(MOBILE_HOST), QString("saved"));
    QCOMPARE(database.stored(MOBILE_PORT), QString("8443"));
}

void TestMainWindow::aSaveCanBeCancelled()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("mine");
    SqlConnection other(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
    QVERIFY(other.execute("BEGIN IMMEDIATE"));
    QTest::mouseClick(window.save(), Qt::LeftButton);
    QTRY_VERIFY(window.changeText().contains("занята"));
    QTest::mouseClick(window.window->findChild<QPushButton *>("cancelButton"), Qt::LeftButton);
    QTRY_COMPARE(window.changeText(), QString("Изменено настроек: 1"));
    QVERIFY(window.save()->isEnabled());
    QVERIFY(other.execute("COMMIT"));
    QCOMPARE(database.stored(MOBILE_HOST), QString("mobile.installation.example"));
}

void TestMainWindow::whatOthersSaveIsShown()
{
    const TestDatabase database;
    Window window(database);
    window.database.watch();
    window.typeHost("mine");
    database.store(MOBILE_PORT, "90");
    QTRY_COMPARE(window.input<QSpinBox>(MOBILE_PORT)->value(), 90);
    QCOMPARE(window.changeText(), QString("Изменено настроек: 1"));
    database.store(MOBILE_HOST, "theirs");
    QTRY_COMPARE(window.changeText(), QString("Изменено настроек: 1 (в другом месте тоже: 1)"));
    QCOMPARE(window.input<QLineEdit>(MOBILE_HOST)->text(), QString("mine"));
}

void TestMainWindow::aLostConnectionIsANotice()
{
    const TestDatabase database;
    Window window(database);
    const auto *notice = window.window->findChild<QLabel *>("noticeLabel");
    QVERIFY(!notice->isVisible());
    Q_EMIT window.database.connectionLost({"path", "Сервер не отвечает.", "", DatabaseError::Kind::Disconnected});
    QVERIFY(notice->isVisible());
    QCOMPARE(notice->text(),
             QString("Сервер не отвечает. Изменения можно будет сохранить, когда связь восстановится."));
    Q_EMIT window.database.connectionRestored();
    QVERIFY(!notice->isVisible());
}

void TestMainWindow::aConflictCanBeOverwritten()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("mine");
    database.store(MOBILE_HOST, "theirs");
    const ModalAnswer answer(QStringList{"Все мои", "Записать выбранное"});
    QTest::mouseClick(window.save(), Qt::LeftButton);
    QTRY_COMPARE(database.stored(MOBILE_HOST), QString("mine"));
    QVERIFY(answer.wasGiven());
    QVERIFY2(answer.text().contains("«theirs»") && answer.text().contains("«mine»"), qPrintable(answer.text()));
    QTRY_VERIFY(!window.window->isWindowModified());
}

void TestMainWindow::aConflictCanBeLeft()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("mine");
    database.store(MOBILE_HOST, "theirs");
    const ModalAnswer answer("Вернуться");
    QTest::mouseClick(window.save(), Qt::LeftButton);
    QTRY_VERIFY(answer.wasGiven());
    QCOMPARE(database.stored(MOBILE_HOST), QString("theirs"));
    QCOMPARE(window.input<QLineEdit>(MOBILE_HOST)->text(), QString("mine"));
    QTRY_VERIFY(window.save()->isEnabled());
}

void TestMainWindow::theirsCanBeTaken()
{
    const TestDatabase database;
    const Window window(database);
    window.go(DBGroups::Users);
    editors::retype(window.input<QSpinBox>(PASSWORD_EXPIRED), "30");
    window.typeHost("mine");
    database.store(MOBILE_HOST, "theirs");
    const ModalAnswer answer(QStringList{"Все из базы", "Записать выбранное"});
    QTest::mouseClick(window.save(), Qt::LeftButton);
    QTRY_VERIFY(!window.window->isWindowModified());
    QVERIFY(answer.wasGiven());

    QCOMPARE(window.input<QLineEdit>(MOBILE_HOST)->text(), QString("theirs"));
    QCOMPARE(database.stored(MOBILE_HOST), QString("theirs"));
    QCOMPARE(database.stored(PASSWORD_EXPIRED), QString("30"));
    QVERIFY(!window.isMarked(2));
}

void TestMainWindow::unreadableJsonAsks_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("replaced");
    QTest::newRow("replace") << "Заменить" << true;
    QTest::newRow("do not save") << "Не сохранять" << false;
}

void TestMainWindow::unreadableJsonAsks()
{
    QFETCH(QString, button);
    QFETCH(bool, replaced);
    const TestDatabase database;
    {
        const Window created(database);
    }
    database.store(PIN_STRENGTH, "not JSON");
    const Window window(database);
    window.go(DBGroups::Employees);
    editors::click(window.input<QCheckBox>(json::DENY_EQUAL));
    const ModalAnswer answer(button);
    QTest::mouseClick(window.save(), Qt::LeftButton);
    QTRY_VERIFY(answer.wasGiven());
    QVERIFY(answer.text().contains("PT_PIN_STRENGTH"));
    QTRY_COMPARE(database.stored(PIN_STRENGTH) != "not JSON", replaced);
    QTRY_COMPARE(window.save()->isEnabled(), !replaced);
}

void TestMainWindow::aFailedSaveIsShown()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("canary");
    database.execute("ALTER TABLE settings RENAME TO gone");
    const ModalAnswer answer("Закрыть");
    QTest::mouseClick(window.save(), Qt::LeftButton);
    QTRY_VERIFY(answer.wasGiven());
    QVERIFY(answer.text().contains(database.path()));
    QVERIFY(!answer.text().contains("canary"));
    QVERIFY(window.save()->isEnabled());
}

void TestMainWindow::nothingIsCutOff_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("fontSize"); // pixels
    for (const int fontSize : {13, 14}) {
        for (const SettingsPageName &page : settingsPages)
            QTest::addRow("%s, letters of %d", page.name, fontSize) << int(page.group) << fontSize;
    }
}

void TestMainWindow::nothingIsCutOff()
{
    QFETCH(int, group);
    QFETCH(int, fontSize);
    QFont font("Sans Serif");
    font.setPixelSize(fontSize);
    QApplication::setFont(font);
    const TestDatabase database;
    const Window window(database);
    window.window->resize(1024, 700);
    auto *area = qobject_cast<QScrollArea *>(window.go(DBGroups(group)));
    QTRY_VERIFY(!area->verticalScrollBar()->isVisible());

    QStringList cutCaptions;
    for (const QLabel *label : area->findChildren<QLabel *>()) {
        if (label->isVisible() && label->height() < label->heightForWidth(label->width()))
            cutCaptions << label->text();
    }
    QCOMPARE(cutCaptions, QStringList());

    // What is wider than the window can be scrolled to.
    QVERIFY(area->widget()->width() >= area->widget()->minimumSizeHint().width());
    const QWidget *bar = window.save()->parentWidget();
    QVERIFY(bar->geometry().bottom() <= window.window->height());
    QVERIFY(window.save()->width() >= window.save()->sizeHint().width());
    QVERIFY(window.list()->sizeHintForColumn(0) <= window.list()->viewport()->width());
}

void TestMainWindow::theKeyboardReachesEverything()
{
    const TestDatabase database;
    const Window window(database);
    QApplication::setActiveWindow(window.window.get());
    QVERIFY(QTest::qWaitForWindowActive(window.window.get()));
    QTRY_VERIFY(window.list()->hasFocus());
    for (int row = 0; row < 8; ++row)
        QTest::keyClick(window.list(), Qt::Key_Down);
    QCOMPARE(window.list()->chosen(), DBGroups::Connection);
    QTest::keyClick(window.list(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), window.input<QWidget>(MOBILE_HOST));
    QTest::keyClicks(QApplication::focusWidget(), "x");

    QVector<QWidget *> visited;
    while (!visited.contains(QApplication::focusWidget())) {
        visited << QApplication::focusWidget();
        QTest::keyClick(visited.last(), Qt::Key_Tab);
    }
    const QVector<QWidget *> order{window.input<QWidget>(MOBILE_HOST),
                                   window.input<QWidget>(MOBILE_PORT),
                                   window.input<QWidget>(LOCKER_ACCESS_TOKEN),
                                   window.revert(),
                                   window.save(),
                                   window.list()};
    QCOMPARE(visited, order);
    QTest::keyClick(window.save(), Qt::Key_Space);
    QTRY_COMPARE(database.stored(MOBILE_HOST), QString("x"));
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
