#include "changebar.h"

#include "messages.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

class TestChangeBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void setChangeCount_data();
    void setChangeCount();
    void aSaveCanOnlyBeCancelled();
    void clicksAreRequests();
    void mnemonicsAreRequests();
};

void TestChangeBar::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestChangeBar::setChangeCount_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("conflictCount");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("none") << 0 << 0 << "Несохранённых изменений нет" << false;
    QTest::newRow("one") << 1 << 0 << "Изменено настроек: 1" << true;
    QTest::newRow("many") << 41 << 0 << "Изменено настроек: 41" << true;
    QTest::newRow("conflicts") << 3 << 2 << "Изменено настроек: 3 (в другом месте тоже: 2)" << true;
}

void TestChangeBar::setChangeCount()
{
    QFETCH(int, count);
    QFETCH(int, conflictCount);
    QFETCH(bool, enabled);
    ChangeBar bar;
    QVERIFY(!bar.findChild<QPushButton *>("saveButton")->isEnabled());
    bar.setChangeCount(count, conflictCount);
    QTEST(bar.findChild<QLabel *>("changeLabel")->text(), "text");
    for (const char *name : {"saveButton", "revertButton"}) {
        QCOMPARE(bar.findChild<QPushButton *>(name)->isEnabled(), enabled);
        QVERIFY(!bar.findChild<QPushButton *>(name)->toolTip().isEmpty());
    }
    QVERIFY(bar.findChild<QPushButton *>("cancelButton")->isHidden());
}

void TestChangeBar::aSaveCanOnlyBeCancelled()
{
    ChangeBar bar;
    bar.setChangeCount(2, 0);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    bar.setProgress("Waiting");
    bar.setChangeCount(3, 0);
    QCOMPARE(bar.findChild<QLabel *>("changeLabel")->text(), QString("Waiting"));
    QVERIFY(!bar.findChild<QPushButton *>("saveButton")->isEnabled());
    QVERIFY(!bar.findChild<QPushButton *>("revertButton")->isEnabled());
    const QSignalSpy cancel(&bar, &ChangeBar::cancelRequested);
    QTest::mouseClick(bar.findChild<QPushButton *>("cancelButton"), Qt::LeftButton);
    QCOMPARE(cancel.count(), 1);

    bar.setProgress({});
    QCOMPARE(bar.findChild<QLabel *>("changeLabel")->text(), QString("Изменено настроек: 3"));
    QVERIFY(bar.findChild<QPushButton *>("saveButton")->isEnabled());
    QVERIFY(bar.findChild<QPushButton *>("cancelButton")->isHidden());
}

void TestChangeBar::clicksAreRequests()
{
    ChangeBar bar;
    bar.setChangeCount(1, 0);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QSignalSpy save(&bar, &ChangeBar::saveRequested);
    QSignalSpy revert(&bar, &ChangeBar::revertRequested);
    QTest::mouseClick(bar.findChild<QPushButton *>("saveButton"), Qt::LeftButton);
    QCOMPARE(save.count(), 1);
    QCOMPARE(revert.count(), 0);
    QTest::mouseClick(bar.findChild<QPushButton *>("revertButton"), Qt::LeftButton);
    QCOMPARE(save.count(), 1);
    QCOMPARE(revert.count(), 1);
}

void TestChangeBar::mnemonicsAreRequests()
{
    ChangeBar bar;
    bar.setChangeCount(1, 0);
    bar.show();
    QApplication::setActiveWindow(&bar);
    QVERIFY(QTest::qWaitForWindowActive(&bar));
    QSignalSpy save(&bar, &ChangeBar::saveRequested);
    QSignalSpy revert(&bar, &ChangeBar::revertRequested);
    const auto pressAlt = [&](const char *letter) {
        const QString text(letter);
        QTest::simulateEvent(bar.windowHandle(), true, text.at(0).unicode(), Qt::AltModifier, text, false);
    };
    pressAlt("С");
    QTRY_COMPARE(save.count(), 1);
    pressAlt("О");
    QTRY_COMPARE(revert.count(), 1);
}

QTEST_MAIN(TestChangeBar)
#include "tst_changebar.moc"
