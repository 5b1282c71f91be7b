#include "messages.h"
#include "translation.h"

#include <vxsettings/dependentwidgetsbox.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QJsonObject>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using dependent_widget::GroupInfo;

namespace {

const GroupInfo pages{
    "Страницы", "common-settings", {{"users", {"Пользователи", 1}}, {"database", {"База данных", 0}}}};
const QJsonObject someFlags{{"users", true}, {"database", false}};

/// A dialog as a host makes it: the box is filled when its buttons are there already.
struct Dialog
{
    Dialog()
        : box(new DependentWidgetsBox(&dialog))
        , buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog))
    {
        auto *layout = new QVBoxLayout(&dialog);
        layout->addWidget(box);
        layout->addWidget(buttons);
        box->setData("Host", pages, someFlags);
    }

    bool show()
    {
        dialog.show();
        QApplication::setActiveWindow(&dialog);
        return QTest::qWaitForWindowActive(&dialog);
    }
    QCheckBox *group() const { return box->findChild<QCheckBox *>("cbGroup"); }
    QCheckBox *inner(const char *key) const { return box->findChild<QCheckBox *>(key); }

    QDialog dialog;
    DependentWidgetsBox *box;
    QDialogButtonBox *buttons;
};

QString nameOf(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}
} // namespace

class TestDependentBoxInDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void tabFollowsTheColumn();
    void tabFollowsTheColumnAfterNewData();
    void spaceChecksAndUnchecksAll_data();
    void spaceChecksAndUnchecksAll();
    void spaceOnAnInnerBox();
    void everyBoxIsNamed();
    void textsFollowTheLanguage();
    void titleWithoutDataFollowsTheLanguage();
};

void TestDependentBoxInDialog::tabFollowsTheColumn()
{
    Dialog dialog;
    QVERIFY(dialog.show());
    dialog.group()->setFocus();
    for (QWidget *next :
         {static_cast<QWidget *>(dialog.inner("database")), static_cast<QWidget *>(dialog.inner("users")),
          static_cast<QWidget *>(dialog.buttons->button(QDialogButtonBox::Ok))}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), next);
    }
}

void TestDependentBoxInDialog::tabFollowsTheColumnAfterNewData()
{
    Dialog dialog;
    QVERIFY(dialog.show());
    dialog.box->setData("Host", pages, {{"users", true}});
    QTRY_VERIFY(dialog.inner("users")->isVisible());
    dialog.group()->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), dialog.inner("users"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), dialog.buttons->button(QDialogButtonBox::Ok));
}

void TestDependentBoxInDialog::spaceChecksAndUnchecksAll_data()
{
    QTest::addColumn<QJsonObject>("before");
    QTest::addColumn<bool>("after");
    QTest::newRow("some") << someFlags << true;
    QTest::newRow("none") << QJsonObject{{"users", false}, {"database", false}} << true;
    QTest::newRow("all") << QJsonObject{{"users", true}, {"database", true}} << false;
}

void TestDependentBoxInDialog::spaceChecksAndUnchecksAll()
{
    QFETCH(QJsonObject, before);
    QFETCH(bool, after);
    Dialog dialog;
    dialog.box->setData("Host", pages, before);
    QVERIFY(dialog.show());
    QSignalSpy changed(dialog.box, &DependentWidgetsBox::groupChanged);
    QTest::keyClick(dialog.group(), Qt::Key_Space);
    QCOMPARE(dialog.box->getData(), QJsonObject({{"checked", after}, {"users", after}, {"database", after}}));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(dialog.group()->checkState(), after ? Qt::Checked : Qt::Unchecked);
}

void TestDependentBoxInDialog::spaceOnAnInnerBox()
{
    Dialog dialog;
    QVERIFY(dialog.show());
    QTest::keyClick(dialog.inner("users"), Qt::Key_Space);
    QCOMPARE(dialog.box->getData(), QJsonObject({{"checked", false}, {"users", false}, {"database", false}}));
}

void TestDependentBoxInDialog::everyBoxIsNamed()
{
    Dialog dialog;
    QVERIFY(dialog.show());
    QCOMPARE(nameOf(dialog.group()), QString("Страницы"));
    QCOMPARE(nameOf(dialog.inner("users")), QString("Пользователи"));
    dialog.box->setDescription("Разрешить:");
    QCOMPARE(nameOf(dialog.group()), QString("Разрешить: Страницы"));
    const QAccessible::State state = QAccessible::queryAccessibleInterface(dialog.group())->state();
    QVERIFY(state.checkStateMixed);
}

void TestDependentBoxInDialog::textsFollowTheLanguage()
{
    Dialog dialog;
    QVERIFY(dialog.show());
    QSignalSpy group(dialog.box, &DependentWidgetsBox::groupChanged);
    QSignalSpy inner(dialog.box, &DependentWidgetsBox::paramChanged);
    QTest::keyClick(dialog.inner("database"), Qt::Key_Space);
    const QJsonObject edited = dialog.box->getData();
    {
        const InstalledTranslation english({{"Host", "Страницы", "Pages"}, {"Host", "Пользователи", "Users"}});
        QTRY_COMPARE(dialog.inner("users")->text(), QString("Users"));
        QCOMPARE(dialog.inner("database")->text(), QString("База данных"));
        QCOMPARE(dialog.box->findChild<QLabel *>("lbName")->text(), QString("Pages"));
        QCOMPARE(nameOf(dialog.group()), QString("Pages"));
    }
    QTRY_COMPARE(dialog.inner("users")->text(), QString("Пользователи"));
    QCOMPARE(dialog.box->getData(), edited);
    QCOMPARE(group.count(), 0);
    QCOMPARE(inner.count(), 1);
}

void TestDependentBoxInDialog::titleWithoutDataFollowsTheLanguage()
{
    DependentWidgetsBox box(nullptr);
    box.setWindowTitle("The host's own");
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    const InstalledTranslation english({{"DependentWidgetsBox", "Название группы", "Name of the group"}});
    QTRY_COMPARE(box.findChild<QLabel *>("lbName")->text(), QString("Name of the group"));
    QCOMPARE(box.windowTitle(), QString("The host's own"));
}

QTEST_MAIN(TestDependentBoxInDialog)
#include "tst_dependentboxindialog.moc"
