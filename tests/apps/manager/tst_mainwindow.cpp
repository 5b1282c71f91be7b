#include "mainwindow.h"

#include "changetree.h"
#include "historydialog.h"
#include "host/editors.h"
#include "host/testdatabase.h"
#include "importdialog.h"
#include "messages.h"
#include "modalanswer.h"
#include "pagelist.h"
#include "repairdialog.h"
#include "searchresults.h"
#include "sessionwait.h"
#include "spotlight.h"
#include "theme.h"

#include <host/hostenvironment.h>
#include <host/installationdatabase.h>
#include <host/pageaccess.h>
#include <host/settingsdocument.h>
#include <host/settingspages.h>
#include <host/settingssession.h>
#include <host/translations.h>

#include <vxsettings/dbkeys.h>

#include <vxwidgets/vxsettingsgroupwidget.h>

#include <QCheckBox>
#include <QContextMenuEvent>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QStandardPaths>
#include <QTest>
#include <QToolButton>

#include <memory>
#include <optional>

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
    explicit Window(const TestDatabase &file, Translations *translations = nullptr)
        : database(DatabaseLocation::ofFile(file.path()), InstallationDatabase::Missing::CreateSample, quickLimits())
        , session(database)
    {
        if (const auto error = SessionWait::load(session))
            throw std::runtime_error(error->text().toStdString());
        window = std::make_unique<MainWindow>(database, session, translations);
        window->show();
        if (!QTest::qWaitForWindowExposed(window.get()))
            throw std::runtime_error("no window");
    }

    PageList *list() const { return window->findChild<PageList *>(); }
    QWidget *page() const { return window->findChild<QStackedWidget *>()->currentWidget(); }
    QPushButton *save() const { return window->findChild<QPushButton *>("saveButton"); }
    QPushButton *revert() const { return window->findChild<QPushButton *>("revertButton"); }
    QLineEdit *searchLine() const { return window->findChild<QLineEdit *>("searchLine"); }
    QToolButton *changedFilter() const { return window->findChild<QToolButton *>("changedFilter"); }
    QString changeText() const { return window->findChild<QLabel *>("changeLabel")->text(); }

    /// Types into the search line, to which Ctrl+F leads.
    void search(const QString &words) const
    {
        QApplication::setActiveWindow(window.get());
        QTest::keyClick(window->windowHandle(), Qt::Key_F, Qt::ControlModifier);
        for (const QChar c : words) // keyClicks() knows ASCII only
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, c, Qt::NoModifier);
    }

    /// Saves, and agrees to what the review shows.
    void clickSave() const
    {
        const ModalAnswer review("Сохранить");
        QTest::mouseClick(save(), Qt::LeftButton);
    }

    /// Opens a menu of the bar with the mouse, goes on with the keys, and ends with the entry that the last text names,
    /// all without mnemonics.
    void choose(const QStringList &path) const
    {
        auto *bar = window->menuBar();
        QAction *action = entry(bar, path.first());
        QVERIFY2(action, qPrintable(path.first()));
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(action).center());
        for (const QString &text : path.mid(1)) {
            QMenu *menu = action->menu();
            QTRY_VERIFY(menu->isVisible());
            action = entry(menu, text);
            QVERIFY2(action, qPrintable(text));
            menu->setActiveAction(action);
            QTest::keyClick(menu, action->menu() ? Qt::Key_Right : Qt::Key_Return);
        }
    }

    /// Goes to a page with the mouse.
    QWidget *go(DBGroups group) const
    {
        const QRect row = list()->visualItemRect(list()->itemOf(group));
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, row.center());
        return page();
    }
    template <typename Input>
    Input *input(const QString &key) const
    {
        return editors::input<Input>(window.get(), key);
    }
    /// Chooses an entry of the parameter's context menu.
    void chooseAt(QWidget *input, const QString &text) const
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, input->mapToGlobal(QPoint()));
        QApplication::sendEvent(input, &event);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        menu->setActiveAction(entry(menu, text));
        QTest::keyClick(menu, Qt::Key_Return);
    }
    void typeHost(const QString &text) const
    {
        go(DBGroups::Connection);
        editors::retype(input<QLineEdit>(MOBILE_HOST), text);
    }
    bool isMarked(DBGroups page) const { return list()->itemOf(page)->font().bold(); }

    InstallationDatabase database;
    SettingsSession session;
    std::unique_ptr<MainWindow> window;

private:
    static QAction *entry(const QWidget *menu, const QString &text)
    {
        for (QAction *action : menu->actions()) {
            if (action->text().remove('&').section('\t', 0, 0) == text)
                return action;
        }
        return nullptr;
    }
};

/// Types a name into the file dialog that opens next, and closes the box behind it if there is one.
class FileAnswer
{
public:
    /// Not before @p questions are answered, if there are any.
    explicit FileAnswer(const QString &path, const ModalAnswer *questions = nullptr)
        : m_path(path)
        , m_questions(questions)
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { answer(); });
        m_timer.start(1);
    }
    QString said() const { return m_said; }
    QString details() const { return m_details; }

private:
    void answer()
    {
        if (m_questions && !m_questions->wasGiven())
            return;
        QWidget *modal = QApplication::activeModalWidget();
        if (auto *dialog = qobject_cast<QFileDialog *>(modal); dialog && dialog->isVisible()) {
            dialog->findChild<QLineEdit *>("fileNameEdit")->setText(m_path);
            QTest::keyClick(dialog->findChild<QLineEdit *>("fileNameEdit"), Qt::Key_Return);
        } else if (auto *box = qobject_cast<QMessageBox *>(modal); box && box->isVisible()) {
            m_said = box->text();
            m_details = box->informativeText();
            QTest::keyClick(box, Qt::Key_Escape);
        }
    }

    QTimer m_timer;
    QString m_path;
    QString m_said;
    QString m_details;
    const ModalAnswer *m_questions;
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
    void anEditorsOwnMenuUndoesTheSame();
    void aDependentFollows();
    void theLastPageAndTheSizeAreRemembered();
    void closingWithoutChangesAsksNothing();
    void closingWithChangesAsks_data();
    void closingWithChangesAsks();
    void closingSavesOnlyWhatCanBeSaved();
    void savingLeadsToABrokenRule_data();
    void savingLeadsToABrokenRule();
    void theKeyboardStaysWhereItWas_data();
    void theKeyboardStaysWhereItWas();
    void theEditMenuBeginsWithUndo();
    void closingDuringASaveWaitsForIt();
    void theWindowLivesWhileItSaves();
    void aSaveCanBeCancelled();
    void whatOthersSaveIsShown();
    void aLostConnectionIsANotice();
    void aSaveWaitsForTheConnection();
    void whatIsEditedMeanwhileIsNotSaved();
    void waitingForTheConnectionCanBeCancelled();
    void theWindowIsThereBeforeTheFirstLoad();
    void aLongLoadCanBeCancelled();
    void aConflictCanBeOverwritten();
    void aConflictCanBeLeft();
    void theirsCanBeTaken();
    void unreadableJsonAsks_data();
    void unreadableJsonAsks();
    void aFailedSaveIsShown();
    void nothingIsCutOff_data();
    void nothingIsCutOff();
    void noPageScrolls_data();
    void noPageScrolls();
    void theKeyboardReachesEverything();
    void aSearchLeadsToTheParameter();
    void aSearchForWhatIsOffLeadsToItsSwitch();
    void aSearchScrollsAndUnfolds();
    void aSearchTellsThePages();
    void resultsHideNoPage();
    void changesAndProblemsCanBeFiltered();
    void theMenuFindsSavesAndQuits();
    void theLanguageChangesAtOnce();
    void theLookChangesAtOnce();
    void settingsAreExported();
    void aReportIsWritten();
    void theProgramTellsItsVersion();
    void aSaveIsReviewed();
    void theReasonIsRemembered();
    void aFileIsImported();
    void anUnreadableFileIsRefused();
    void theHistoryRestores();
    void leavingNamesTheChanges();
    void aLockedPageSaysWhy();
    void theMenuLocksAPage();
    void aLockThatComesLateLosesNothing();
    void aLockedPageIsNotImported();
    void whatIsShownInThePlaceOfTheStoredIsImported();
    void theMenuOfAParameterShowsItsHistory();
    void whatIsNotRightTodayIsNotRestored();
    void anUnreadableTextIsShownAndRepaired_data();
    void anUnreadableTextIsShownAndRepaired();
    void secretsAreExportedOnlyIfWanted_data();
    void secretsAreExportedOnlyIfWanted();
    void filesTellThatEditsAreNotInThem_data();
    void filesTellThatEditsAreNotInThem();
    void aComparisonTellsOfEdits();

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
    QVERIFY(!window.window->windowIcon().pixmap(48).isNull());
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
    QVERIFY(window.isMarked(DBGroups::Connection));
    QVERIFY(!window.isMarked(DBGroups::PassRequests));

    window.go(DBGroups::Users);
    editors::retype(window.input<QSpinBox>(PASSWORD_EXPIRED), "30");
    QCOMPARE(window.changeText(), QString("Изменено настроек: 2"));
    QVERIFY(window.isMarked(DBGroups::Users) && window.isMarked(DBGroups::Connection));
}

void TestMainWindow::anEditPutBackIsNoChange()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("h");
    window.typeHost("mobile.installation.example");
    QVERIFY(!window.save()->isEnabled());
    QVERIFY(!window.window->isWindowModified());
    QVERIFY(!window.isMarked(DBGroups::Connection));
}

void TestMainWindow::savingWritesAndCalmsDown()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("saved");
    window.clickSave();
    QVERIFY(!window.save()->isEnabled());
    QCOMPARE(window.changeText(), QString("Сохранение…"));
    QTRY_COMPARE(window.changeText(), QString("Несохранённых изменений нет"));
    QCOMPARE(database.stored(MOBILE_HOST), QString("saved"));
    QVERIFY(!window.save()->isEnabled());
    QVERIFY(!window.revert()->isEnabled());
    QVERIFY(!window.window->isWindowModified());
    QVERIFY(!window.isMarked(DBGroups::Connection));

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
    const ModalAnswer review("Сохранить");
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

void TestMainWindow::anEditorsOwnMenuUndoesTheSame()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("first");
    window.go(DBGroups::Users);
    editors::retype(window.input<QSpinBox>(PASSWORD_EXPIRED), "30");
    window.go(DBGroups::Connection);
    auto *host = window.input<QLineEdit>(MOBILE_HOST);
    QContextMenuEvent event(QContextMenuEvent::Mouse, host->rect().center(), host->mapToGlobal(host->rect().center()));
    QApplication::sendEvent(host, &event);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(menu->actions().value(0)->text(), QString("&Отменить правку"));
    QCOMPARE(menu->actions().value(1)->text(), QString("&Повторить правку"));
    QVERIFY(menu->actions().value(2)->isSeparator());
    // The last edit of all, not that of this line.
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().first()).center());
    QCOMPARE(window.list()->chosen(), DBGroups::Users);
    QCOMPARE(window.changeText(), QString("Изменено настроек: 1"));
    QCOMPARE(host->text(), QString("first"));
    QVERIFY(window.window->menuBar()->isEnabled());
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
    const ModalAnswer mine(QStringList{"Сохранить", "Записать моё", "Записать выбранное"});
    QTest::mouseClick(window.save(), Qt::LeftButton);
    QTRY_VERIFY(!window.session.hasChanges());
    QCoreApplication::processEvents();
    QVERIFY(window.window->isVisible());
}

void TestMainWindow::savingLeadsToABrokenRule_data()
{
    QTest::addColumn<bool>("isClosed");
    QTest::newRow("saved") << false;
    QTest::newRow("closed and saved") << true;
}

void TestMainWindow::savingLeadsToABrokenRule()
{
    QFETCH(bool, isClosed);
    const TestDatabase database;
    const Window window(database);
    QApplication::setActiveWindow(window.window.get());
    window.go(DBGroups::Employees);
    auto *shortest = window.input<QSpinBox>(json::MIN_LEN);
    editors::retype(shortest, "9"); // of 8 at most
    window.go(DBGroups::Connection);
    const ModalAnswer answer(isClosed ? QStringList{"Сохранить"} : QStringList{});
    if (isClosed)
        QVERIFY(!window.window->close());
    else
        QTest::mouseClick(window.save(), Qt::LeftButton); // no review
    QVERIFY(answer.wasGiven());
    QTRY_COMPARE(window.window->focusWidget(), shortest);
    QCOMPARE(window.list()->chosen(), DBGroups::Employees);
    QVERIFY(window.window->isVisible() && !window.session.isSaving() && window.session.hasChanges());

    editors::retype(shortest, "5");
    window.clickSave();
    QTRY_VERIFY(!window.session.hasChanges());
    QCoreApplication::processEvents();
    QVERIFY(window.window->isVisible());
}

void TestMainWindow::theKeyboardStaysWhereItWas_data()
{
    QTest::addColumn<bool>("isClicked");
    QTest::newRow("with the mouse") << true;
    QTest::newRow("with the keyboard") << false;
}

void TestMainWindow::theKeyboardStaysWhereItWas()
{
    QFETCH(bool, isClicked);
    const TestDatabase database;
    const Window window(database);
    QApplication::setActiveWindow(window.window.get());
    window.search("порт");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    editors::retype(QApplication::focusWidget(), "9443");
    if (isClicked) {
        window.clickSave();
    } else {
        while (!window.save()->hasFocus())
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const ModalAnswer review("Сохранить");
        QTest::keyClick(window.save(), Qt::Key_Space);
    }
    QTRY_VERIFY(!window.session.hasChanges() && !window.session.isSaving());
    QCoreApplication::processEvents();
    QVERIFY(window.page()->isAncestorOf(window.window->focusWidget()));
    QVERIFY(!window.window->findChild<SearchResults *>()->isVisible());
}

void TestMainWindow::theEditMenuBeginsWithUndo()
{
    const TestDatabase database;
    const Window window(database);
    QApplication::setActiveWindow(window.window.get());
    QTest::keyClick(window.window->windowHandle(), Qt::Key_F10);
    QTRY_VERIFY(qobject_cast<QMenu *>(QApplication::activePopupWidget()));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Right);
    const QList<QAction *> entries = QApplication::activePopupWidget()->actions();
    QCOMPARE(entries[0]->text(), QString("&Отменить правку"));
    QCOMPARE(entries[1]->text(), QString("&Повторить правку"));
    QVERIFY(entries[2]->isSeparator());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    while (QWidget *menu = QApplication::activePopupWidget())
        menu->close();
}

void TestMainWindow::closingDuringASaveWaitsForIt()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("saved");
    window.clickSave();
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
    window.clickSave();
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
    window.clickSave();
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

void TestMainWindow::aSaveWaitsForTheConnection()
{
    const TestDatabase database;
    Window window(database);
    window.database.watch();
    window.typeHost("mine");
    const auto *notice = window.window->findChild<QLabel *>("noticeLabel");
    QVERIFY(QFile::rename(database.path(), database.path() + ".away"));
    QTRY_VERIFY(notice->isVisible());
    window.clickSave();
    QTRY_VERIFY2(window.changeText().contains("запишутся"), qPrintable(window.changeText()));
    QVERIFY(!window.save()->isEnabled());

    QVERIFY(QFile::rename(database.path() + ".away", database.path()));
    QTRY_COMPARE(window.changeText(), QString("Несохранённых изменений нет"));
    QCOMPARE(database.stored(MOBILE_HOST), QString("mine"));
    QVERIFY(!notice->isVisible());
}

void TestMainWindow::whatIsEditedMeanwhileIsNotSaved()
{
    const TestDatabase database;
    Window window(database);
    window.database.watch();
    window.typeHost("mine");
    QVERIFY(QFile::rename(database.path(), database.path() + ".away"));
    window.clickSave();
    QTRY_VERIFY2(window.changeText().contains("запишутся"), qPrintable(window.changeText()));
    window.typeHost("another");

    QVERIFY(QFile::rename(database.path() + ".away", database.path()));
    const auto *notice = window.window->findChild<QLabel *>("noticeLabel");
    QTRY_VERIFY2(notice->text().startsWith("Связь восстановлена."), qPrintable(notice->text()));
    QVERIFY(notice->isVisible());
    QVERIFY(window.save()->isEnabled());
    QCOMPARE(database.stored(MOBILE_HOST), QString("mobile.installation.example"));
    window.clickSave();
    QVERIFY(!notice->isVisible());
    QTRY_COMPARE(database.stored(MOBILE_HOST), QString("another"));
}

void TestMainWindow::waitingForTheConnectionCanBeCancelled()
{
    const TestDatabase database;
    Window window(database);
    window.database.watch();
    window.typeHost("mine");
    QVERIFY(QFile::rename(database.path(), database.path() + ".away"));
    window.clickSave();
    QTRY_VERIFY2(window.changeText().contains("запишутся"), qPrintable(window.changeText()));
    QTest::mouseClick(window.window->findChild<QPushButton *>("cancelButton"), Qt::LeftButton);
    QCOMPARE(window.changeText(), QString("Изменено настроек: 1"));

    QVERIFY(QFile::rename(database.path() + ".away", database.path()));
    QTRY_VERIFY(!window.window->findChild<QLabel *>("noticeLabel")->isVisible());
    QCOMPARE(window.changeText(), QString("Изменено настроек: 1"));
    QCOMPARE(database.stored(MOBILE_HOST), QString("mobile.installation.example"));
}

void TestMainWindow::theWindowIsThereBeforeTheFirstLoad()
{
    const TestDatabase file;
    InstallationDatabase database(DatabaseLocation::ofFile(file.path()), InstallationDatabase::Missing::CreateSample);
    SettingsSession session(database);
    QSettings().setValue("window/page", "users");
    MainWindow window(database, session);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const auto *list = window.findChild<PageList *>();
    const auto *stack = window.findChild<QStackedWidget *>();
    QCOMPARE(window.findChild<QLabel *>("changeLabel")->text(), QString("Загрузка настроек…"));
    QVERIFY(!list->isEnabled() && !window.menuBar()->isEnabled());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->itemOf(DBGroups::Connection)).center());
    QCOMPARE(stack->count(), 0);

    session.load();
    QTRY_COMPARE(stack->count(), 1);
    QVERIFY(session.isOpen(DBGroups::Users));
    QVERIFY(list->isEnabled() && window.menuBar()->isEnabled() && list->hasFocus());
    QCOMPARE(window.findChild<QLabel *>("changeLabel")->text(), QString("Несохранённых изменений нет"));
    // Loading once more builds nothing again.
    const QWidget *page = stack->currentWidget();
    QSignalSpy loaded(&session, &SettingsSession::loaded);
    session.load();
    QTRY_COMPARE(loaded.count(), 1);
    QCOMPARE(stack->count(), 1);
    QCOMPARE(stack->currentWidget(), page);
}

void TestMainWindow::aLongLoadCanBeCancelled()
{
    const TestDatabase file;
    {
        const Window created(file);
    }
    SqlConnection other(DatabaseLocation::ofFile(file.path()), SqlConnection::Mode::ReadWrite);
    QVERIFY(other.execute("PRAGMA journal_mode = DELETE") && other.execute("BEGIN EXCLUSIVE"));
    InstallationDatabase database(DatabaseLocation::ofFile(file.path()), InstallationDatabase::Missing::CreateSample);
    SettingsSession session(database);
    MainWindow window(database, session);
    window.show();
    std::optional<DatabaseError> failure;
    connect(&session, &SettingsSession::failed, &window, [&](const DatabaseError &error) { failure = error; });
    session.load();
    const auto *label = window.findChild<QLabel *>("changeLabel");
    QTRY_VERIFY2(label->text().contains("занята"), qPrintable(label->text()));
    QTest::mouseClick(window.findChild<QPushButton *>("cancelButton"), Qt::LeftButton);
    QTRY_VERIFY(failure);
    QCOMPARE(failure->kind, DatabaseError::Kind::Cancelled);
}

void TestMainWindow::aConflictCanBeOverwritten()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("mine");
    database.store(MOBILE_HOST, "theirs");
    const ModalAnswer answer(QStringList{"Сохранить", "Записать моё", "Записать выбранное"});
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
    const ModalAnswer answer(QStringList{"Сохранить", "Вернуться"});
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
    const ModalAnswer answer(QStringList{"Сохранить", "Взять из базы данных", "Записать выбранное"});
    QTest::mouseClick(window.save(), Qt::LeftButton);
    QTRY_VERIFY(!window.window->isWindowModified());
    QVERIFY(answer.wasGiven());

    QCOMPARE(window.input<QLineEdit>(MOBILE_HOST)->text(), QString("theirs"));
    QCOMPARE(database.stored(MOBILE_HOST), QString("theirs"));
    QCOMPARE(database.stored(PASSWORD_EXPIRED), QString("30"));
    QVERIFY(!window.isMarked(DBGroups::Users));
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
    const ModalAnswer answer(QStringList{"Сохранить", button});
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
    const ModalAnswer answer(QStringList{"Сохранить", "Закрыть"});
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
    auto *area = window.go(DBGroups(group))->findChild<QScrollArea *>();
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
    QVERIFY(!window.list()->verticalScrollBar()->isVisible());
}

void TestMainWindow::noPageScrolls_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("fontSize"); // points
    for (const char *language : {"ru", "en"}) {
        for (const int fontSize : {8, 9, 10})
            QTest::addRow("%s, letters of %d points", language, fontSize) << language << fontSize;
    }
}

void TestMainWindow::noPageScrolls()
{
    QFETCH(QString, language);
    QFETCH(int, fontSize);
    QApplication::setFont(QFont("Sans Serif", fontSize));
    Translations translations("vxsettings-manager");
    QVERIFY(translations.setLanguage(language));
    const TestDatabase database;
    const Window window(database, &translations);
    QCOMPARE(window.window->size(), QSize(1024, 700));
    for (const SettingsPageName &page : settingsPages) {
        auto *area = window.go(page.group)->findChild<QScrollArea *>();
        QTRY_VERIFY2(!area->horizontalScrollBar()->isVisible() && !area->verticalScrollBar()->isVisible(), page.name);
    }
    QVERIFY(!window.list()->verticalScrollBar()->isVisible());
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
                                   window.searchLine(),
                                   window.changedFilter(),
                                   window.list()};
    QCOMPARE(visited, order);
    const ModalAnswer review("Сохранить");
    QTest::keyClick(window.save(), Qt::Key_Space);
    QTRY_COMPARE(database.stored(MOBILE_HOST), QString("x"));
}

void TestMainWindow::aSearchLeadsToTheParameter()
{
    const TestDatabase database;
    const Window window(database);
    window.search("порт");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(window.list()->chosen(), DBGroups::Connection);
    auto *port = window.input<QSpinBox>(MOBILE_PORT);
    QVERIFY(port->isVisible());
    QCOMPARE(QApplication::focusWidget(), port);

    const QPointer<Spotlight> spotlight = window.window->findChild<Spotlight *>();
    QVERIFY(spotlight && spotlight->isVisible());
    QCOMPARE(spotlight->parentWidget(), editors::find(window.page(), MOBILE_PORT));
    QCOMPARE(spotlight->rect(), spotlight->parentWidget()->rect());
    QVERIFY(!window.session.hasChanges());
    QTRY_VERIFY(!spotlight);
}

void TestMainWindow::aSearchForWhatIsOffLeadsToItsSwitch()
{
    const TestDatabase database;
    const Window window(database);
    window.search("диагонали");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(window.list()->chosen(), DBGroups::FaceScanning);
    QVERIFY(!window.input<QSpinBox>(ENROLL_FACE_MIN_SIZE)->isEnabled());
    QCOMPARE(window.window->focusWidget(), window.input<QComboBox>(ENABLE_FACE_SCANNING));
}

void TestMainWindow::aSearchScrollsAndUnfolds()
{
    const TestDatabase database;
    const Window window(database);
    window.window->resize(700, 240);
    window.go(DBGroups::Employees);
    for (auto *frame : window.page()->findChildren<VXSettingsGroupWidget *>())
        frame->collapse();
    window.window->showParameter({PIN_STRENGTH, json::MIN_LEN});
    const auto *area = window.page()->findChild<QScrollArea *>();
    const QWidget *editor = window.session.editor({PIN_STRENGTH, json::MIN_LEN});
    QVERIFY(editor->isVisible());
    const QRect seen(editor->mapTo(area->viewport(), QPoint()), editor->size());
    QVERIFY(seen.top() >= 0 && seen.bottom() <= area->viewport()->height());
    QVERIFY(area->verticalScrollBar()->value() > 0);
}

void TestMainWindow::aSearchTellsThePages()
{
    const TestDatabase database;
    const Window window(database);
    window.search("палец");
    QCOMPARE(window.list()->itemOf(DBGroups::FingerprintScanning)->text(),
             QString("Сканирование отпечатков пальцев (5)"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QCOMPARE(window.list()->itemOf(DBGroups::FingerprintScanning)->text(), QString("Сканирование отпечатков пальцев"));
}

void TestMainWindow::resultsHideNoPage()
{
    const TestDatabase database;
    const Window window(database);
    window.search("ладон");
    const auto *results = window.window->findChild<SearchResults *>();
    QTRY_VERIFY(results->isVisible());
    QVERIFY(results->hitCount() > 10);
    const QRect pages(window.list()->mapTo(window.window.get(), QPoint()), window.list()->size());
    QVERIFY(!results->geometry().intersects(pages));
    QVERIFY(window.window->rect().contains(results->geometry()));
}

void TestMainWindow::changesAndProblemsCanBeFiltered()
{
    const TestDatabase database;
    {
        const Window created(database);
    }
    database.store(MOBILE_PORT, "99999999");
    const Window window(database);
    const auto *problems = window.window->findChild<QToolButton *>("problemFilter");
    QCOMPARE(problems->text(), QString("С ошибками (1)"));
    QVERIFY(!window.changedFilter()->isEnabled());
    window.typeHost("h");
    QTest::mouseClick(window.changedFilter(), Qt::LeftButton);
    const auto *results = window.window->findChild<SearchResults *>();
    QVERIFY(results->isVisible());
    QCOMPARE(results->hitCount(), 1);
    QCOMPARE(results->currentAddress(), SettingAddress{MOBILE_HOST});
}

void TestMainWindow::theMenuFindsSavesAndQuits()
{
    const TestDatabase database;
    const Window window(database);
    QApplication::setActiveWindow(window.window.get());
    window.choose({"Правка", "Найти…"});
    QTRY_VERIFY(window.searchLine()->hasFocus());
    window.typeHost("saved");
    const ModalAnswer review("Сохранить");
    window.choose({"Файл", "Сохранить"});
    QTRY_VERIFY(!window.window->isWindowModified());
    QCOMPARE(database.stored(MOBILE_HOST), QString("saved"));
    window.choose({"Файл", "Выход"});
    QVERIFY(!window.window->isVisible());
}

void TestMainWindow::theLanguageChangesAtOnce()
{
    const TestDatabase database;
    Translations translations("vxsettings-manager");
    const Window window(database, &translations);
    window.typeHost("edited");
    const auto *host = window.input<QLineEdit>(MOBILE_HOST);
    QCOMPARE(host->accessibleName(), QString("Хост"));

    window.choose({"Вид", "Язык", "English"});
    QTRY_COMPARE(host->accessibleName(), QString("Host"));
    QCOMPARE(window.list()->itemOf(DBGroups::Connection)->text(), QString("Connection settings"));
    QTRY_COMPARE(window.revert()->text(), QString("&Revert"));
    QCOMPARE(Translations::remembered(), QString("en"));
    QCOMPARE(host->text(), QString("edited"));
    QCOMPARE(window.session.changedAddresses(), QVector<SettingAddress>{{MOBILE_HOST}});

    QVERIFY(translations.choose("ru"));
    QTRY_COMPARE(window.revert()->text(), QString("&Отменить"));
    QCOMPARE(host->accessibleName(), QString("Хост"));
    QCOMPARE(host->text(), QString("edited"));
}

void TestMainWindow::theLookChangesAtOnce()
{
    const TestDatabase database;
    const Window window(database);
    const QColor before = window.window->palette().color(QPalette::Window);
    window.choose({"Вид", "Оформление", "Тёмное"});
    QTRY_VERIFY(window.window->palette().color(QPalette::Window).lightness() < 128);
    QCOMPARE(Theme::remembered(), Theme::Kind::Dark);
    window.choose({"Вид", "Оформление", "Светлое"});
    QTRY_VERIFY(window.window->palette().color(QPalette::Window).lightness() > 128);
    QCOMPARE(Theme::remembered(), Theme::Kind::Light);
    window.choose({"Вид", "Оформление", "Как в системе"});
    QTRY_COMPARE(window.window->palette().color(QPalette::Window), before);
    QCOMPARE(Theme::remembered(), Theme::Kind::System);
}

void TestMainWindow::settingsAreExported()
{
    const TestDatabase database;
    const Window window(database);
    const QTemporaryDir folder;
    const ModalAnswer secrets("Без паролей");
    const FileAnswer answer(folder.filePath("settings.json"), &secrets);
    window.choose({"Файл", "Экспорт…"});
    QCOMPARE(answer.said(), folder.filePath("settings.json"));
    const auto reading = SettingsDocument::read(folder.filePath("settings.json"));
    QVERIFY2(reading.document, qPrintable(reading.error));
    QCOMPARE(reading.document->settings().value(MOBILE_HOST), QString("mobile.installation.example"));
    QVERIFY(!reading.document->settings().contains(LOCKER_ACCESS_TOKEN));
}

void TestMainWindow::aReportIsWritten()
{
    const TestDatabase database;
    const Window window(database);
    const QTemporaryDir folder;
    const FileAnswer answer(folder.filePath("report.pdf"));
    window.choose({"Файл", "Отчёт в PDF…"});
    QCOMPARE(answer.said(), folder.filePath("report.pdf"));
    QFile file(folder.filePath("report.pdf"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().startsWith("%PDF-"));
}

void TestMainWindow::theProgramTellsItsVersion()
{
    const TestDatabase database;
    const Window window(database);
    QCoreApplication::setApplicationVersion("1.2.3");
    const ModalAnswer answer("Закрыть");
    window.choose({"Справка", "О программе"});
    QVERIFY(answer.wasGiven());
    QVERIFY2(answer.text().contains("Версия 1.2.3"), qPrintable(answer.text()));
}

void TestMainWindow::aSaveIsReviewed()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("mine");
    const ModalAnswer answer("Вернуться");
    QTest::mouseClick(window.save(), Qt::LeftButton);
    QVERIFY(answer.wasGiven());
    QVERIFY2(answer.text().contains("Изменений: 1"), qPrintable(answer.text()));
    QVERIFY(window.save()->isEnabled());
    QVERIFY(!window.session.isSaving());
    QCOMPARE(database.stored(MOBILE_HOST), QString("mobile.installation.example"));
}

void TestMainWindow::theReasonIsRemembered()
{
    const TestDatabase database;
    Window window(database);
    window.typeHost("mine");
    QTimer::singleShot(0, [] {
        auto *dialog = QApplication::activeModalWidget();
        QTest::keyClicks(dialog->findChild<QLineEdit *>(), "moved");
        QTest::keyClick(dialog->findChild<QLineEdit *>(), Qt::Key_Return);
    });
    QTest::mouseClick(window.save(), Qt::LeftButton);
    QTRY_VERIFY(!window.window->isWindowModified());
    QString reason;
    window.database.history(MOBILE_HOST, [&](const DatabaseResult<QVector<HistoryRecord>> &read) {
        reason = read.value.isEmpty() ? QString() : read.value.last().reason;
    });
    QTRY_COMPARE(reason, QString("moved"));
}

void TestMainWindow::aFileIsImported()
{
    const TestDatabase database;
    const Window window(database);
    const QTemporaryDir folder;
    const QString path = folder.filePath("in.json");
    const auto wanted = SettingsDocument::of({{MOBILE_HOST, "imported"}}, SettingsDocument::Secrets::LeaveOut);
    QVERIFY(!wanted.write(path));

    const FileAnswer answer(path);
    QTimer accept;
    connect(&accept, &QTimer::timeout, [] {
        if (auto *dialog = qobject_cast<ImportDialog *>(QApplication::activeModalWidget()))
            QTest::keyClick(dialog, Qt::Key_Return);
    });
    accept.start(1);
    window.choose({"Файл", "Импорт…"});
    QCOMPARE(window.session.changedAddresses(), QVector<SettingAddress>{{MOBILE_HOST}});
    QCOMPARE(window.session.shownText({MOBILE_HOST}), QString("imported"));
    QCOMPARE(window.list()->chosen(), DBGroups::Database);
    QVERIFY(window.isMarked(DBGroups::Connection));
}

void TestMainWindow::anUnreadableFileIsRefused()
{
    const TestDatabase database;
    const Window window(database);
    const QTemporaryDir folder;
    QFile file(folder.filePath("in.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no JSON");
    file.close();
    const FileAnswer answer(file.fileName());
    window.choose({"Файл", "Сравнить с файлом…"});
    QVERIFY(!answer.said().isEmpty());
    QVERIFY(!window.session.hasChanges());
}

void TestMainWindow::theHistoryRestores()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("saved");
    window.clickSave();
    QTRY_VERIFY(!window.window->isWindowModified());
    window.go(DBGroups::Users);

    QTimer restore;
    connect(&restore, &QTimer::timeout, [&] {
        auto *dialog = qobject_cast<HistoryDialog *>(QApplication::activeModalWidget());
        auto *tree = dialog ? dialog->findChild<ChangeTree *>() : nullptr;
        if (!tree || tree->settings().isEmpty())
            return;
        restore.stop();
        tree->setCurrentItem(tree->settings().first());
        for (QPushButton *button : dialog->findChildren<QPushButton *>()) {
            if (button->text() == "Вернуть &прежнее значение")
                QTest::mouseClick(button, Qt::LeftButton);
        }
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    restore.start(1);
    window.choose({"Правка", "История изменений…"});
    QCOMPARE(window.list()->chosen(), DBGroups::Connection);
    QCOMPARE(window.input<QLineEdit>(MOBILE_HOST)->text(), QString("mobile.installation.example"));
    QVERIFY(window.isMarked(DBGroups::Connection));
}

void TestMainWindow::leavingNamesTheChanges()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("mine");
    const ModalAnswer answer("Вернуться");
    QVERIFY(!window.window->close());
    QVERIFY2(answer.text().contains("Хост: «mobile.installation.example» → «mine»"), qPrintable(answer.text()));
}

void TestMainWindow::aLockedPageSaysWhy()
{
    const TestDatabase database;
    {
        const Window sample(database);
    }
    database.store(PageAccess::KEY, R"({"connection": false})");
    Window window(database);
    QCOMPARE(window.list()->itemOf(DBGroups::Connection)->toolTip(), QString("Закрыта для операторов"));
    QCOMPARE(window.list()->itemOf(DBGroups::Users)->toolTip(), QString());

    // A search leads there all the same, and the keyboard to where it says why.
    window.search("порт");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_COMPARE(window.list()->chosen(), DBGroups::Connection);
    auto *notice = window.page()->findChild<QWidget *>("lockNotice");
    QVERIFY(notice->isVisible());
    QVERIFY(notice->findChildren<QLabel *>().last()->text().contains("закрыл эту страницу для операторов"));
    QVERIFY(window.window->findChild<Spotlight *>());
    QVERIFY(notice->isAncestorOf(QApplication::focusWidget()));
    QVERIFY(QApplication::focusWidget()->accessibleDescription().contains("закрыл эту страницу"));

    auto *host = window.input<QLineEdit>(MOBILE_HOST);
    QVERIFY(!host->isEnabled());
    QTest::mouseClick(host, Qt::LeftButton);
    QTest::keyClicks(host, "x");
    QVERIFY(!window.session.hasChanges());
    window.go(DBGroups::Users);
    QVERIFY(!window.page()->findChild<QWidget *>("lockNotice")->isVisible());
    QVERIFY(window.input<QSpinBox>(PASSWORD_EXPIRED)->isEnabled());

    // Opened again from elsewhere.
    window.database.watch();
    database.store(PageAccess::KEY, "{}");
    QTRY_VERIFY(host->isEnabled());
    QVERIFY(!notice->isVisibleTo(notice->parentWidget()));
}

void TestMainWindow::theMenuLocksAPage()
{
    const TestDatabase database;
    const Window window(database);
    window.go(DBGroups::Connection);
    QTimer once;
    once.callOnTimeout([&once] {
        auto *dialog = QApplication::activeModalWidget();
        if (!dialog || !dialog->isVisible())
            return;
        once.stop();
        QTest::keyClick(dialog->findChild<QCheckBox *>("connection"), Qt::Key_Space);
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    once.start(1);
    window.choose({"Правка", "Доступ операторов…"});
    QTRY_VERIFY(!window.input<QLineEdit>(MOBILE_HOST)->isEnabled());
    QVERIFY(window.input<QLineEdit>(MOBILE_HOST)->isVisible());
    QCOMPARE(database.ask("SELECT count(*) FROM history WHERE key = 'VX_PAGE_ACCESS'").toInt(), 1);
}

void TestMainWindow::aLockThatComesLateLosesNothing()
{
    const TestDatabase database;
    const Window window(database);
    window.go(DBGroups::Users);
    editors::retype(window.input<QSpinBox>(PASSWORD_EXPIRED), "30");
    window.typeHost("mine");
    database.store(PageAccess::KEY, R"({"connection": false})");
    {
        const ModalAnswer answers(QStringList{"Сохранить", "Вернуться"});
        QTest::mouseClick(window.save(), Qt::LeftButton);
        QTRY_VERIFY(answers.wasGiven());
        QVERIFY2(answers.text().contains("«Настройки подключения»"), qPrintable(answers.text()));
        QCOMPARE(answers.defaultButton(), QString("Вернуться"));
    }
    QCOMPARE(window.input<QLineEdit>(MOBILE_HOST)->text(), QString("mine"));
    QCOMPARE(window.changeText(), QString("Изменено настроек: 2"));
    {
        const ModalAnswer answers(QStringList{"Сохранить", "Отменить их"});
        QTest::mouseClick(window.save(), Qt::LeftButton);
        QTRY_VERIFY(answers.wasGiven());
    }
    QTRY_COMPARE(window.changeText(), QString("Изменено настроек: 1"));
    window.clickSave();
    QTRY_COMPARE(database.stored(PASSWORD_EXPIRED), QString("30"));
    QCOMPARE(database.stored(MOBILE_HOST), QString("mobile.installation.example"));
}

void TestMainWindow::aLockedPageIsNotImported()
{
    const TestDatabase database;
    {
        const Window sample(database);
    }
    database.store(PageAccess::KEY, R"({"connection": false})");
    const QString path = database.folder() + "/settings.json";
    QVERIFY(!SettingsDocument::of({{MOBILE_HOST, "theirs"}, {PASSWORD_EXPIRED, "30"}, {PageAccess::KEY, "{}"}},
                                  SettingsDocument::Secrets::LeaveOut)
                 .write(path));
    const Window window(database);
    const FileAnswer file(path);
    QTimer once;
    QString said;
    once.callOnTimeout([&] {
        auto *dialog = qobject_cast<ImportDialog *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        once.stop();
        for (const QTreeWidgetItem *item : dialog->findChild<ChangeTree *>()->settings())
            said += item->text(0) + ": " + item->text(3) + '\n';
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    once.start(1);
    window.choose({"Файл", "Импорт…"});
    QTRY_VERIFY(!said.isEmpty());
    QVERIFY2(said.contains("Хост: не подходит. Страница закрыта для операторов"), qPrintable(said));
    QVERIFY2(said.contains("Меняется в окне «Доступ операторов»"), qPrintable(said));
    QTRY_COMPARE(window.changeText(), QString("Изменено настроек: 1"));
    QVERIFY(window.session.isChanged({PASSWORD_EXPIRED}));
}

void TestMainWindow::whatIsShownInThePlaceOfTheStoredIsImported()
{
    const TestDatabase database;
    {
        const Window sample(database);
    }
    database.store(MAX_CARD_COUNT, "400"); // the editor shows 20
    const QString path = database.folder() + "/settings.json";
    QVERIFY(!SettingsDocument::of({{MAX_CARD_COUNT, "20"}}, SettingsDocument::Secrets::LeaveOut).write(path));
    const Window window(database);
    window.go(DBGroups::Employees);
    const FileAnswer file(path);
    QTimer take;
    take.callOnTimeout([&take] {
        auto *dialog = qobject_cast<ImportDialog *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        take.stop();
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    take.start(1);
    window.choose({"Файл", "Импорт…"});
    QTRY_COMPARE(window.changeText(), QString("Изменено настроек: 1"));
    window.choose({"Правка", "Отменить правку"});
    QVERIFY(!window.session.hasChanges());
    window.choose({"Правка", "Повторить правку"});
    window.clickSave();
    QTRY_COMPARE(database.stored(MAX_CARD_COUNT), QString("20"));
}

/// Does @p use with the history dialog once it has something to show, then closes it.
class HistoryAnswer
{
public:
    explicit HistoryAnswer(const std::function<void(HistoryDialog &, ChangeTree &)> &use)
    {
        m_timer.callOnTimeout([this, use] {
            auto *dialog = qobject_cast<HistoryDialog *>(QApplication::activeModalWidget());
            auto *tree = dialog ? dialog->findChild<ChangeTree *>() : nullptr;
            if (!tree || tree->settings().isEmpty())
                return;
            m_timer.stop();
            use(*dialog, *tree);
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        m_timer.start(1);
    }
    bool wasGiven() const { return !m_timer.isActive(); }
    static void clickRestore(HistoryDialog &dialog)
    {
        for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
            if (button->text() == "Вернуть &прежнее значение")
                QTest::mouseClick(button, Qt::LeftButton);
        }
    }

private:
    QTimer m_timer;
};

void TestMainWindow::theMenuOfAParameterShowsItsHistory()
{
    const TestDatabase database;
    const Window window(database);
    window.typeHost("saved");
    window.go(DBGroups::Users);
    editors::retype(window.input<QSpinBox>(PASSWORD_EXPIRED), "30");
    window.clickSave();
    QTRY_VERIFY(!window.window->isWindowModified());

    int count = 0;
    const HistoryAnswer answer([&count](HistoryDialog &dialog, const ChangeTree &tree) {
        count = tree.settings().size();
        HistoryAnswer::clickRestore(dialog);
    });
    window.go(DBGroups::Connection);
    window.chooseAt(window.input<QLineEdit>(MOBILE_HOST), "История параметра…");
    QTRY_VERIFY(answer.wasGiven());
    QCOMPARE(count, 1); // of two settings that were saved
    QTRY_COMPARE(window.input<QLineEdit>(MOBILE_HOST)->text(), QString("mobile.installation.example"));
    QVERIFY(window.isMarked(DBGroups::Connection));
    QCOMPARE(database.stored(MOBILE_HOST), QString("saved")); // an edit like any other
    window.choose({"Правка", "Отменить правку"});
    QCOMPARE(window.input<QLineEdit>(MOBILE_HOST)->text(), QString("saved"));
    QVERIFY(!window.session.hasChanges());
}

void TestMainWindow::whatIsNotRightTodayIsNotRestored()
{
    const TestDatabase database;
    {
        const Window sample(database);
    }
    database.store(PASSWORD_EXPIRED, "-5");
    const Window window(database);
    window.go(DBGroups::Users);
    editors::retype(window.input<QSpinBox>(PASSWORD_EXPIRED), "30");
    window.clickSave();
    QTRY_VERIFY(!window.window->isWindowModified());

    QString said;
    const HistoryAnswer answer([&said](HistoryDialog &dialog, const ChangeTree &) {
        const ModalAnswer refusal("Закрыть");
        HistoryAnswer::clickRestore(dialog);
        said = refusal.text();
    });
    window.chooseAt(window.input<QSpinBox>(PASSWORD_EXPIRED), "История параметра…");
    QTRY_VERIFY(answer.wasGiven());
    QVERIFY2(said.contains("значение «-5» не подходит"), qPrintable(said));
    QVERIFY(!window.session.hasChanges());
    QCOMPARE(window.input<QSpinBox>(PASSWORD_EXPIRED)->value(), 30);
}

void TestMainWindow::anUnreadableTextIsShownAndRepaired_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("isRepaired");
    QTest::addColumn<bool>("fromMenu");
    QTest::newRow("repaired from the menu") << "Исправить" << true << true;
    QTest::newRow("left alone in the menu") << "Не исправлять" << false << true;
    QTest::newRow("repaired from above the page") << "Исправить" << true << false;
    QTest::newRow("left alone above the page") << "Не исправлять" << false << false;
}

void TestMainWindow::anUnreadableTextIsShownAndRepaired()
{
    QFETCH(QString, button);
    QFETCH(bool, isRepaired);
    QFETCH(bool, fromMenu);
    const TestDatabase database;
    {
        const Window sample(database);
    }
    database.store(PIN_STRENGTH, "spoilt");
    const Window window(database);
    window.go(DBGroups::Employees);
    QString stored;
    QString repaired;
    QTimer look;
    look.callOnTimeout([&] {
        if (auto *dialog = qobject_cast<RepairDialog *>(QApplication::activeModalWidget())) {
            stored = dialog->findChild<QPlainTextEdit *>("stored")->toPlainText();
            repaired = dialog->findChild<QPlainTextEdit *>("repaired")->toPlainText();
            look.stop();
        }
    });
    look.start(0);
    const ModalAnswer answer(button);
    auto *notice = window.page()->findChild<QWidget *>("repairNotice");
    QVERIFY(notice->isVisible());
    if (fromMenu)
        window.chooseAt(window.input<QCheckBox>(json::DENY_EQUAL), "Исправить запись «Сложность пин-кода»…");
    else
        QTest::mouseClick(notice->findChild<QPushButton *>(), Qt::LeftButton);
    QTRY_VERIFY(answer.wasGiven());
    QCOMPARE(answer.defaultButton(), QString("Не исправлять"));
    QCOMPARE(stored, QString("spoilt"));
    QVERIFY2(repaired.contains("\"deny_equal\""), qPrintable(repaired));
    QTRY_COMPARE(window.session.hasChanges(), isRepaired);
    QCOMPARE(notice->isVisible(), !isRepaired);
    QCOMPARE(database.stored(PIN_STRENGTH), QString("spoilt"));
    if (!isRepaired)
        return;
    window.clickSave(); // the review is the only question
    QTRY_COMPARE(database.stored(PIN_STRENGTH), repaired);
}

void TestMainWindow::secretsAreExportedOnlyIfWanted_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("isWritten");
    QTest::addColumn<bool>("hasSecrets");
    QTest::newRow("without") << "Без паролей" << true << false;
    QTest::newRow("with") << "С паролями" << true << true;
    QTest::newRow("not at all") << "Отмена" << false << false;
    QTest::newRow("Escape") << QString() << false << false;
}

void TestMainWindow::secretsAreExportedOnlyIfWanted()
{
    QFETCH(QString, button);
    QFETCH(bool, isWritten);
    QFETCH(bool, hasSecrets);
    const TestDatabase database;
    const Window window(database);
    const QTemporaryDir folder;
    const QString path = folder.filePath("settings.json");
    const ModalAnswer question(button);
    const FileAnswer file(path, &question);
    window.choose({"Файл", "Экспорт…"});
    QVERIFY(question.wasGiven());
    QVERIFY2(question.text().contains("не зашифрованы"), qPrintable(question.text()));
    QCOMPARE(question.defaultButton(), QString("Без паролей"));
    QCOMPARE(QFile::exists(path), isWritten);
    if (!isWritten)
        return;
    QCOMPARE(SettingsDocument::read(path).document->settings().contains(LOCKER_ACCESS_TOKEN), hasSecrets);
    QCOMPARE(file.details().contains("только его владелец"), hasSecrets);
    const auto others = QFile::ReadGroup | QFile::ReadOther;
    QCOMPARE((QFile::permissions(path) & others) == 0, hasSecrets);
}

void TestMainWindow::filesTellThatEditsAreNotInThem_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QStringList>("answers");
    QTest::addColumn<bool>("isWritten");
    QTest::newRow("an export that goes on") << "Экспорт…" << QStringList{"Продолжить", "Без паролей"} << true;
    QTest::newRow("an export that does not") << "Экспорт…" << QStringList{"Вернуться"} << false;
    QTest::newRow("a report that goes on") << "Отчёт в PDF…" << QStringList{"Продолжить"} << true;
    QTest::newRow("a report that does not") << "Отчёт в PDF…" << QStringList{"Вернуться"} << false;
}

void TestMainWindow::filesTellThatEditsAreNotInThem()
{
    QFETCH(QString, entry);
    QFETCH(QStringList, answers);
    QFETCH(bool, isWritten);
    const TestDatabase database;
    const Window window(database);
    window.typeHost("edited");
    const QTemporaryDir folder;
    const ModalAnswer questions(answers);
    const FileAnswer file(folder.filePath("file"), &questions);
    window.choose({"Файл", entry});
    QVERIFY(questions.wasGiven());
    QVERIFY2(questions.text().contains("Несохранённых изменений: 1"), qPrintable(questions.text()));
    const QStringList written = QDir(folder.path()).entryList(QDir::Files);
    QCOMPARE(written.size(), isWritten ? 1 : 0);
    if (entry == "Экспорт…" && isWritten)
        QCOMPARE(SettingsDocument::read(folder.filePath(written.first())).document->settings().value(MOBILE_HOST),
                 QString("mobile.installation.example"));
    QVERIFY(window.session.hasChanges());
}

void TestMainWindow::aComparisonTellsOfEdits()
{
    const TestDatabase database;
    const Window window(database);
    const QString path = database.folder() + "/settings.json";
    QVERIFY(!SettingsDocument::of({{MOBILE_HOST, "theirs"}}, SettingsDocument::Secrets::LeaveOut).write(path));
    window.typeHost("edited");
    QString said;
    QTimer look;
    look.callOnTimeout([&] {
        if (auto *dialog = qobject_cast<ImportDialog *>(QApplication::activeModalWidget())) {
            look.stop();
            const auto *edits = dialog->findChild<QLabel *>("edits");
            said = edits->isVisible() ? edits->text() : QString();
            QTest::keyClick(dialog, Qt::Key_Escape);
        }
    });
    look.start(1);
    const FileAnswer file(path);
    window.choose({"Файл", "Сравнить с файлом…"});
    QTRY_VERIFY(!look.isActive());
    QCOMPARE(said, QString("Сравнивается с тем, что сохранено. Несохранённых изменений: 1."));
    window.revert()->click();
    said = "none yet";
    look.start(1);
    window.choose({"Файл", "Сравнить с файлом…"});
    QTRY_VERIFY(!look.isActive());
    QCOMPARE(said, QString());
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
