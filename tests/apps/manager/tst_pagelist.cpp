#include "pagelist.h"

#include "messages.h"

#include <host/settingspages.h>

#include <QSignalSpy>
#include <QTest>

class TestPageList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void allPagesAreListed();
    void iconsStandOutFromTheirBackground_data();
    void iconsStandOutFromTheirBackground();
    void clickChoosesAPage();
    void keysChooseAPage();
    void chooseByProgram();
    void changedPagesAreMarked();
    void titlesAreNotCutOff();
};

void TestPageList::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestPageList::allPagesAreListed()
{
    const PageList list;
    QStringList titles;
    for (int row = 0; row < list.count(); ++row)
        titles << list.item(row)->text();
    QCOMPARE(titles, (QStringList{"База данных", "Сотрудники", "Пользователи", "Сканирование общие",
                                  "Сканирование отпечатков пальцев", "Сканирование вен ладоней", "Сканирование лица",
                                  "Заявки", "Настройки подключения", "Vantorix Studio", "Vantorix ID", "Интеграция"}));
    QCOMPARE(list.chosen(), DBGroups::Database);
}

void TestPageList::iconsStandOutFromTheirBackground_data()
{
    QTest::addColumn<QColor>("text");
    QTest::newRow("light") << QColor(Qt::black);
    QTest::newRow("dark") << QColor(Qt::white);
}

void TestPageList::iconsStandOutFromTheirBackground()
{
    QFETCH(QColor, text);
    PageList list;
    QPalette palette;
    palette.setColor(QPalette::Text, text);
    list.setPalette(palette);
    for (int row = 0; row < list.count(); ++row) {
        const QImage image = list.item(row)->icon().pixmap(24).toImage();
        bool drawn = false;
        for (int i = 0; i < image.width() * image.height(); ++i) {
            const QColor pixel = image.pixelColor(i % image.width(), i / image.width());
            drawn = drawn || (pixel.alpha() > 200 && qAbs(pixel.lightness() - text.lightness()) < 10);
        }
        QVERIFY2(drawn, qPrintable(list.item(row)->text()));
    }
}

void TestPageList::clickChoosesAPage()
{
    PageList list;
    list.resize(list.sizeHint().width(), 600);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QVector<DBGroups> chosen;
    connect(&list, &PageList::pageChosen, [&](DBGroups group) { chosen << group; });
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(8)).center());
    QCOMPARE(chosen, QVector<DBGroups>{DBGroups::Connection});
    QCOMPARE(list.chosen(), DBGroups::Connection);
}

void TestPageList::keysChooseAPage()
{
    PageList list;
    list.show();
    QTest::keyClick(&list, Qt::Key_End);
    QCOMPARE(list.chosen(), DBGroups::Integration);
    QTest::keyClick(&list, Qt::Key_Up);
    QCOMPARE(list.chosen(), DBGroups::MobileId);
    QTest::keyClicks(&list, "van");
    QCOMPARE(list.chosen(), DBGroups::StudioMobile);
}

void TestPageList::chooseByProgram()
{
    PageList list;
    for (const SettingsPageName &page : settingsPages) {
        list.choose(page.group);
        QCOMPARE(list.chosen(), page.group);
    }
}

void TestPageList::changedPagesAreMarked()
{
    PageList list;
    list.setChanged(DBGroups::Users, true);
    QVERIFY(list.item(2)->font().bold());
    QCOMPARE(list.item(2)->toolTip(), QString("Есть несохранённые изменения"));
    QVERIFY(!list.item(1)->font().bold());
    list.setChanged(DBGroups::Users, false);
    QVERIFY(!list.item(2)->font().bold());
    QCOMPARE(list.item(2)->toolTip(), QString());
}

void TestPageList::titlesAreNotCutOff()
{
    PageList list;
    for (const SettingsPageName &page : settingsPages)
        list.setChanged(page.group, true);
    list.resize(list.sizeHint().width(), 600);
    list.show();
    // What the view itself finds its widest row to be.
    QVERIFY2(list.sizeHintForColumn(0) <= list.viewport()->width(),
             qPrintable(QString("%1 in %2").arg(list.sizeHintForColumn(0)).arg(list.viewport()->width())));
}

QTEST_MAIN(TestPageList)
#include "tst_pagelist.moc"
