#include "accessdialog.h"
#include "conflictdialog.h"
#include "historydialog.h"
#include "host/testdatabase.h"
#include "importdialog.h"
#include "mainwindow.h"
#include "messages.h"
#include "pagelist.h"
#include "repairdialog.h"
#include "reviewdialog.h"
#include "savequestions.h"
#include "sessionwait.h"

#include <host/hostenvironment.h>
#include <host/installationdatabase.h>
#include <host/settingspages.h>
#include <host/settingssession.h>
#include <host/translations.h>

#include <vxsettings/dbkeys.h>

#include <QAbstractButton>
#include <QDateTime>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <stdexcept>

using namespace db::database;

namespace {

/// An installation that has been loaded.
struct Loaded
{
    Loaded()
    {
        if (SessionWait::load(session))
            throw std::runtime_error("nothing was loaded");
    }

    TestDatabase file;
    InstallationDatabase database{DatabaseLocation::ofFile(file.path()), InstallationDatabase::Missing::CreateSample};
    SettingsSession session{database};
};

/// The letters to which more than one of @p texts would answer.
QStringList clashes(const QStringList &texts)
{
    QHash<QString, QStringList> byLetter;
    for (const QString &text : texts) {
        const QString letter = QKeySequence::mnemonic(text).toString();
        if (!letter.isEmpty())
            byLetter[letter] << text;
    }
    QStringList clashing;
    for (const QStringList &same : qAsConst(byLetter)) {
        if (same.count() > 1)
            clashing << same.join(", ");
    }
    return clashing;
}

QStringList entries(const QWidget &menu)
{
    QStringList texts;
    for (const QAction *action : menu.actions())
        texts << action->text();
    return texts;
}

/// What answers to Alt and a letter in a window.
QStringList labelled(const QWidget &window)
{
    QStringList texts;
    for (const auto *bar : window.findChildren<QMenuBar *>())
        texts << entries(*bar);
    for (const auto *button : window.findChildren<QAbstractButton *>()) {
        if (button->isVisibleTo(&window))
            texts << button->text();
    }
    for (const auto *box : window.findChildren<QGroupBox *>())
        texts << box->title();
    for (const auto *label : window.findChildren<QLabel *>()) {
        if (label->buddy() && label->isVisibleTo(&window))
            texts << label->text();
    }
    return texts;
}

QStringList menuClashes(const QWidget &menu)
{
    QStringList clashing = clashes(entries(menu));
    for (const QAction *action : menu.actions()) {
        if (action->menu())
            clashing << menuClashes(*action->menu());
    }
    return clashing;
}

/// Those of the modal dialog that @p ask shows.
QStringList clashesOf(const std::function<void()> &ask)
{
    QStringList clashing{"nothing was asked"};
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog || !dialog->isVisible())
            return;
        timer.stop();
        clashing = clashes(labelled(*dialog));
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    timer.start(1);
    ask();
    return clashing;
}
} // namespace

/// No letter leads to two places at once, in any language.
class TestMnemonics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void inTheWindow_data() { languages(); }
    void inTheWindow();
    void inDialogs_data() { languages(); }
    void inDialogs();
    void inQuestions_data() { languages(); }
    void inQuestions();

private:
    static void languages();

    QTemporaryDir m_config;
};

void TestMnemonics::languages()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("Russian") << "ru";
    QTest::newRow("English") << "en";
}

void TestMnemonics::initTestCase()
{
    failOnUnexpectedMessages();
    HostEnvironment::prepare();
    QCoreApplication::setOrganizationName("vxsettings-tests");
    QCoreApplication::setApplicationName("tst_mnemonics");
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_config.path());
}

void TestMnemonics::inTheWindow()
{
    QFETCH(QString, language);
    Translations translations("vxsettings-manager");
    QVERIFY(translations.setLanguage(language));
    Loaded installation;
    MainWindow window(installation.database, installation.session, &translations);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(menuClashes(*window.menuBar()), QStringList());
    // The button is only there while something is waited for.
    window.findChild<QAbstractButton *>("cancelButton")->show();
    for (const SettingsPageName &page : settingsPages) {
        window.findChild<PageList *>()->choose(page.group);
        QVERIFY(labelled(window).count() >= 7); // the menus and the buttons of the bar at least
        QCOMPARE(clashes(labelled(window)), QStringList());
    }
}

void TestMnemonics::inDialogs()
{
    QFETCH(QString, language);
    Translations translations("vxsettings-manager");
    QVERIFY(translations.setLanguage(language));
    const SettingChange change{{MOBILE_HOST}, "before", "after"};
    const ReviewDialog review({change});
    QCOMPARE(clashes(labelled(review)), QStringList());
    const HistoryDialog history(std::nullopt);
    QCOMPARE(clashes(labelled(history)), QStringList());
    const ConflictDialog conflict({{{MOBILE_HOST}, "base", "theirs", "mine", {}}, {{MOBILE_PORT}, "1", "2", "3", {}}});
    QCOMPARE(clashes(labelled(conflict)), QStringList());
    const RepairDialog repair("caption", "problem", "stored", "repaired");
    QCOMPARE(clashes(labelled(repair)), QStringList());
    Loaded installation;
    const AccessDialog access(installation.session);
    // One of them is only there where others have stored something else meanwhile.
    for (auto *button : access.findChildren<QAbstractButton *>())
        button->show();
    QVERIFY(labelled(access).count() > 12); // the pages at least
    QCOMPARE(clashes(labelled(access)), QStringList());
    for (const auto purpose : {ImportDialog::Purpose::Import, ImportDialog::Purpose::Compare}) {
        const ImportDialog import({}, "a.json", purpose);
        QCOMPARE(clashes(labelled(import)), QStringList());
    }
}

void TestMnemonics::inQuestions()
{
    QFETCH(QString, language);
    Translations translations("vxsettings-manager");
    QVERIFY(translations.setLanguage(language));
    const DatabaseError error{"path", "reason", "advice"};
    QCOMPARE(clashesOf([] { (void)SaveQuestions::replaceUnreadable(nullptr, {PIN_STRENGTH}); }), QStringList());
    QCOMPARE(clashesOf([] { (void)SaveQuestions::leave(nullptr, {}); }), QStringList());
    QCOMPARE(clashesOf([] { (void)SaveQuestions::restoreDraft(nullptr, {"edit"}, QDateTime::currentDateTime()); }),
             QStringList());
    QCOMPARE(clashesOf([] { SaveQuestions::showDraftProblem(nullptr, "problem"); }), QStringList());
    QCOMPARE(clashesOf([&] { SaveQuestions::showError(nullptr, error); }), QStringList());
    QCOMPARE(clashesOf([&] { SaveQuestions::showUnknown(nullptr, error); }), QStringList());
}

QTEST_MAIN(TestMnemonics)
#include "tst_mnemonics.moc"
