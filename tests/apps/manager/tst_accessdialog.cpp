#include "accessdialog.h"

#include "dialoginspection.h"
#include "messages.h"
#include "modalanswer.h"
#include "openpages.h"
#include "theme.h"

#include <host/hostenvironment.h>
#include <host/pageaccess.h>

#include <vxsettings/dependentwidgetsbox.h>

#include <QCheckBox>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QSignalSpy>
#include <QStandardPaths>

namespace {

const QString usersLocked = R"({"checked": true, "later": 1, "users": false})";

/// The dialog over a session that notices what others store.
class Dialog
{
public:
    explicit Dialog(const QHash<QString, QString> &stored = {})
        : pages(stored)
        , dialog(pages.session)
    {
        pages.database.watch();
        dialog.show();
        QApplication::setActiveWindow(&dialog);
        if (!QTest::qWaitForWindowActive(&dialog))
            throw std::runtime_error("no window");
    }

    QCheckBox *group() const { return dialog.findChild<QCheckBox *>("cbGroup"); }
    QCheckBox *page(const QString &name) const { return dialog.findChild<QCheckBox *>(name); }
    QPushButton *button(const QString &text) const
    {
        for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
            if (button->text().remove('&') == text)
                return button;
        }
        throw std::runtime_error("no such button");
    }
    QString state() const { return dialog.findChild<QLabel *>("accessState")->text(); }
    QJsonObject stored() const { return QJsonDocument::fromJson(pages.file.stored(PageAccess::KEY).toUtf8()).object(); }
    /// Clicks where the box itself is, as a mouse does.
    static void click(QCheckBox *box) { QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2)); }

    OpenPages pages;
    AccessDialog dialog;
};
} // namespace

class TestAccessDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void showsWhatIsStored();
    void pagesComeAsInTheWindow();
    void everythingIsOpenWhereNothingIsStored();
    void theMouseLocksAPageAndSavesIt();
    void theKeyboardOpensAll();
    void whatElseIsStoredStays();
    void nothingToSaveUntilSomethingIsClicked();
    void aTextThatCannotBeReadIsShownAndReplaced();
    void whatOthersStoreIsFollowed();
    void whatOthersStoreOverAnEditIsTold_data();
    void whatOthersStoreOverAnEditIsTold();
    void aFailureIsToldAndLosesNothing();
    void isAccessibleAndFits();
    void canBeReadInTheDark();
};

void TestAccessDialog::initTestCase()
{
    failOnUnexpectedMessages();
    HostEnvironment::prepare();
    QStandardPaths::setTestModeEnabled(true);
}

void TestAccessDialog::showsWhatIsStored()
{
    const Dialog dialog({{PageAccess::KEY, usersLocked}});
    QCOMPARE(dialog.page("users")->text(), QString("Пользователи"));
    QVERIFY(!dialog.page("users")->isChecked());
    QCOMPARE(dialog.page("connection")->text(), QString("Настройки подключения"));
    QVERIFY(dialog.page("connection")->isChecked());
    QCOMPARE(dialog.group()->checkState(), Qt::PartiallyChecked);
    QCOMPARE(dialog.dialog.findChild<DependentWidgetsBox *>()->getData().size(), 13);
    QVERIFY(dialog.state().isEmpty());
}

void TestAccessDialog::pagesComeAsInTheWindow()
{
    const Dialog dialog;
    int above = -1;
    for (const char *page : {"database", "pass-requests", "employees", "users", "scanning-common"}) {
        const int y = dialog.page(page)->mapTo(&dialog.dialog, QPoint()).y();
        QVERIFY2(y > above, page);
        above = y;
    }
}

void TestAccessDialog::everythingIsOpenWhereNothingIsStored()
{
    const Dialog dialog;
    QCOMPARE(dialog.group()->checkState(), Qt::Checked);
    QVERIFY(!dialog.button("Сохранить")->isEnabled());
}

void TestAccessDialog::theMouseLocksAPageAndSavesIt()
{
    Dialog dialog;
    Dialog::click(dialog.page("users"));
    auto *reason = dialog.dialog.findChild<QLineEdit *>();
    QTest::mouseClick(reason, Qt::LeftButton);
    QTest::keyClicks(reason, "Trial");
    QSignalSpy accepted(&dialog.dialog, &QDialog::accepted);
    QTest::mouseClick(dialog.button("Сохранить"), Qt::LeftButton);
    QVERIFY(accepted.wait());
    QCOMPARE(dialog.stored()["users"], QJsonValue(false));
    QCOMPARE(dialog.stored()["connection"], QJsonValue(true));
    QCOMPARE(dialog.stored()["checked"], QJsonValue(true));
    QVERIFY(!dialog.pages.session.mayEdit(DBGroups::Users)); // known at once
    QCOMPARE(dialog.pages.file.ask("SELECT reason FROM history").toString(), QString("Trial"));
}

void TestAccessDialog::theKeyboardOpensAll()
{
    Dialog dialog({{PageAccess::KEY, usersLocked}});
    QCOMPARE(QApplication::focusWidget(), dialog.group());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QVERIFY(dialog.page("users")->isChecked());
    QSignalSpy accepted(&dialog.dialog, &QDialog::accepted);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(accepted.wait());
    QCOMPARE(dialog.stored()["users"], QJsonValue(true));
    QVERIFY(dialog.pages.session.mayEdit(DBGroups::Users));
}

void TestAccessDialog::whatElseIsStoredStays()
{
    Dialog dialog({{PageAccess::KEY, usersLocked}});
    Dialog::click(dialog.page("users"));
    QSignalSpy accepted(&dialog.dialog, &QDialog::accepted);
    QTest::mouseClick(dialog.button("Сохранить"), Qt::LeftButton);
    QVERIFY(accepted.wait());
    QCOMPARE(dialog.stored()["later"], QJsonValue(1));
}

void TestAccessDialog::nothingToSaveUntilSomethingIsClicked()
{
    const Dialog dialog({{PageAccess::KEY, usersLocked}});
    QVERIFY(!dialog.button("Сохранить")->isEnabled());
    QVERIFY(dialog.button("Закрыть")->isDefault());
    Dialog::click(dialog.page("users"));
    QVERIFY(dialog.button("Сохранить")->isEnabled());
    QVERIFY(dialog.button("Сохранить")->isDefault());
    Dialog::click(dialog.page("users"));
    QVERIFY(!dialog.button("Сохранить")->isEnabled());
}

void TestAccessDialog::aTextThatCannotBeReadIsShownAndReplaced()
{
    Dialog dialog({{PageAccess::KEY, "[spoilt]"}});
    QVERIFY(dialog.state().contains("«[spoilt]»"));
    QCOMPARE(dialog.group()->checkState(), Qt::Unchecked);
    QCOMPARE(dialog.pages.file.stored(PageAccess::KEY), QString("[spoilt]")); // showing it changes nothing
    Dialog::click(dialog.page("users"));
    QSignalSpy accepted(&dialog.dialog, &QDialog::accepted);
    QTest::mouseClick(dialog.button("Сохранить"), Qt::LeftButton);
    QVERIFY(accepted.wait());
    QCOMPARE(dialog.stored()["users"], QJsonValue(true));
    QCOMPARE(dialog.stored()["database"], QJsonValue(false));
    QCOMPARE(dialog.pages.file.ask("SELECT old_value FROM history").toString(), QString("[spoilt]"));
}

void TestAccessDialog::whatOthersStoreIsFollowed()
{
    const Dialog dialog;
    dialog.pages.file.store(PageAccess::KEY, usersLocked);
    QTRY_VERIFY(!dialog.page("users")->isChecked());
    QVERIFY(dialog.state().isEmpty());
}

void TestAccessDialog::whatOthersStoreOverAnEditIsTold_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("users");
    QTest::newRow("mine is kept") << "Сохранить" << true;
    QTest::newRow("theirs is taken") << "Взять из базы" << false;
}

void TestAccessDialog::whatOthersStoreOverAnEditIsTold()
{
    QFETCH(QString, button);
    QFETCH(bool, users);
    Dialog dialog;
    Dialog::click(dialog.page("connection"));
    dialog.pages.file.store(PageAccess::KEY, usersLocked);
    QTRY_VERIFY(dialog.state().contains("закрыты: «Пользователи»"));
    QVERIFY(dialog.page("users")->isChecked()); // what was clicked is kept

    QTest::mouseClick(dialog.button(button), Qt::LeftButton);
    if (button == "Сохранить")
        QTRY_VERIFY(!dialog.dialog.isVisible());
    QTRY_COMPARE(dialog.stored()["users"].toBool(), users);
    QCOMPARE(dialog.page("users")->isChecked(), users);
    QCOMPARE(dialog.page("connection")->isChecked(), !users);
}

void TestAccessDialog::aFailureIsToldAndLosesNothing()
{
    Dialog dialog;
    Dialog::click(dialog.page("users"));
    dialog.pages.file.execute("CREATE TRIGGER refuse BEFORE INSERT ON settings BEGIN SELECT RAISE(FAIL, 'no'); END");
    const ModalAnswer answer("Закрыть");
    QTest::mouseClick(dialog.button("Сохранить"), Qt::LeftButton);
    QTRY_VERIFY(answer.wasGiven());
    QTRY_VERIFY(dialog.button("Сохранить")->isEnabled());
    QVERIFY(dialog.dialog.isVisible());
    QVERIFY(!dialog.page("users")->isChecked());
}

void TestAccessDialog::isAccessibleAndFits()
{
    Dialog dialog({{PageAccess::KEY, usersLocked}});
    QCOMPARE(dialoginspection::inaccessibleWidgets(dialog.dialog), QStringList());
    QCOMPARE(dialoginspection::clashingMnemonics(dialog.dialog), QStringList());
    QVERIFY(dialoginspection::fitsSmallestWindow(dialog.dialog));
}

void TestAccessDialog::canBeReadInTheDark()
{
    Theme::apply(Theme::Kind::Dark);
    const Dialog dialog({{PageAccess::KEY, usersLocked}});
    const QPalette shown = dialog.page("users")->palette();
    QVERIFY(shown.color(QPalette::WindowText).lightness() > 180);
    QVERIFY(shown.color(QPalette::Window).lightness() < 80);
    Theme::apply(Theme::Kind::Light);
    QTRY_VERIFY(dialog.page("users")->palette().color(QPalette::WindowText).lightness() < 80);
}

QTEST_MAIN(TestAccessDialog)
#include "tst_accessdialog.moc"
