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
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("none") << 0 << "Несохранённых изменений нет" << false;
    QTest::newRow("one") << 1 << "Изменено настроек: 1" << true;
    QTest::newRow("many") << 41 << "Изменено настроек: 41" << true;
}

void TestChangeBar::setChangeCount()
{
    QFETCH(int, count);
    QFETCH(bool, enabled);
    ChangeBar bar;
    QVERIFY(!bar.findChild<QPushButton *>("saveButton")->isEnabled());
    bar.setChangeCount(count);
    QTEST(bar.findChild<QLabel *>("changeLabel")->text(), "text");
    for (const QPushButton *button : bar.findChildren<QPushButton *>()) {
        QCOMPARE(button->isEnabled(), enabled);
        QVERIFY(!button->toolTip().isEmpty());
    }
}

void TestChangeBar::clicksAreRequests()
{
    ChangeBar bar;
    bar.setChangeCount(1);
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
    bar.setChangeCount(1);
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
