#include "pagelist.h"

#include "messages.h"
#include "translation.h"

#include <host/settingspages.h>

#include <QSignalSpy>
#include <QStyleOptionViewItem>
#include <QTest>

namespace {

/// Where the style writes the title of @p item.
QRect titleRect(const PageList &list, const QListWidgetItem *item)
{
    QStyleOptionViewItem option;
    option.initFrom(&list);
    option.font = item->font();
    option.rect = list.visualItemRect(item);
    option.text = item->text();
    option.decorationSize = list.iconSize();
    option.features =
        QStyleOptionViewItem::HasDisplay | QStyleOptionViewItem::HasDecoration | QStyleOptionViewItem::WrapText;
    return list.style()->subElementRect(QStyle::SE_ItemViewItemText, &option, &list);
}
} // namespace

class TestPageList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void allPagesAreListed();
    void iconsStandOutFromTheirBackground_data();
    void iconsStandOutFromTheirBackground();
    void clickChoosesAPage();
    void assistiveTechnologyChoosesAPage();
    void keysChooseAPage();
    void keysStepOverHeadings();
    void aHeadingCannotBeChosen();
    void hitsAreTold();
    void anotherLanguage();
    void chooseByProgram();
    void changedPagesAreMarked();
    void titlesAreNotCutOff();
    void aLongTitleTakesTwoLines();
    void aFewHitsTakeNoThirdLine();
    void titlesAreEvenlySpaced();
};

void TestPageList::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestPageList::allPagesAreListed()
{
    const PageList list;
    QStringList rows;
    for (int row = 0; row < list.count(); ++row) {
        const QListWidgetItem *item = list.item(row);
        rows << (item->flags() == Qt::NoItemFlags ? '[' + item->text() + ']' : item->text());
    }
    QCOMPARE(rows,
             (QStringList{"[Общие]", "База данных", "Заявки", "[Люди]", "Сотрудники", "Пользователи", "[Биометрия]",
                          "Сканирование общие", "Сканирование отпечатков пальцев", "Сканирование вен ладоней",
                          "Сканирование лица", "[Мобильные приложения]", "Настройки подключения", "Vantorix Studio",
                          "Vantorix ID", "[Внешние системы]", "Интеграция"}));
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
    for (const SettingsPageName &page : settingsPages) {
        const QListWidgetItem *item = list.itemOf(page.group);
        const QImage image = item->icon().pixmap(24).toImage();
        bool drawn = false;
        for (int i = 0; i < image.width() * image.height(); ++i) {
            const QColor pixel = image.pixelColor(i % image.width(), i / image.width());
            drawn = drawn || (pixel.alpha() > 200 && qAbs(pixel.lightness() - text.lightness()) < 10);
        }
        QVERIFY2(drawn, qPrintable(item->text()));
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
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.itemOf(DBGroups::Connection)).center());
    QCOMPARE(chosen, QVector<DBGroups>{DBGroups::Connection});
    QCOMPARE(list.chosen(), DBGroups::Connection);
}

void TestPageList::assistiveTechnologyChoosesAPage()
{
    PageList list;
    QVector<DBGroups> chosen;
    connect(&list, &PageList::pageChosen, [&](DBGroups group) { chosen << group; });
    list.selectionModel()->select(list.model()->index(list.row(list.itemOf(DBGroups::Connection)), 0),
                                  QItemSelectionModel::ClearAndSelect);
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
    QTest::keyClick(&list, Qt::Key_Home);
    QCOMPARE(list.chosen(), DBGroups::Database);
}

void TestPageList::keysStepOverHeadings()
{
    PageList list;
    list.show();
    QVector<DBGroups> chosen;
    connect(&list, &PageList::pageChosen, [&](DBGroups group) { chosen << group; });
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(&list, Qt::Key_Down);
    for (int i = 0; i < 6; ++i)
        QTest::keyClick(&list, Qt::Key_Up);
    QCOMPARE(chosen,
             (QVector<DBGroups>{DBGroups::PassRequests, DBGroups::Employees, DBGroups::Users, DBGroups::ScanningCommon,
                                DBGroups::Users, DBGroups::Employees, DBGroups::PassRequests, DBGroups::Database}));
    QTest::keyClick(&list, Qt::Key_PageDown);
    QTest::keyClick(&list, Qt::Key_PageUp);
    QCOMPARE(list.chosen(), DBGroups::Database);
}

void TestPageList::aHeadingCannotBeChosen()
{
    PageList list;
    list.resize(list.sizeHint().width(), 600);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    const QListWidgetItem *heading = list.item(list.row(list.itemOf(DBGroups::Employees)) - 1);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(heading).center());
    QCOMPARE(list.chosen(), DBGroups::Database);
    QVERIFY(!heading->isSelected());
}

void TestPageList::hitsAreTold()
{
    PageList list;
    const QListWidgetItem *users = list.itemOf(DBGroups::Users);
    list.setHits({{DBGroups::Users, 3}});
    QCOMPARE(users->text(), QString("Пользователи (3)"));
    QCOMPARE(list.itemOf(DBGroups::Employees)->text(), QString("Сотрудники"));
    list.setChanged(DBGroups::Users, true);
    QCOMPARE(users->text(), QString("Пользователи (3)"));
    list.setHits({});
    QCOMPARE(users->text(), QString("Пользователи"));
    QVERIFY(users->font().bold());
}

void TestPageList::anotherLanguage()
{
    PageList list;
    list.setHits({{DBGroups::Users, 3}});
    list.setChanged(DBGroups::Users, true);
    const InstalledTranslation english({{"PageList", "Общие", "General"},
                                        {"PageList", "Страницы настроек", "Settings pages"},
                                        {"QObject", "Пользователи", "Users"}});
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&list, &change);
    QCOMPARE(list.item(0)->text(), QString("General"));
    QCOMPARE(list.itemOf(DBGroups::Users)->text(), QString("Users (3)"));
    QVERIFY(list.itemOf(DBGroups::Users)->font().bold());
    QCOMPARE(list.accessibleName(), QString("Settings pages"));
    QCOMPARE(list.chosen(), DBGroups::Database);
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
    const QListWidgetItem *users = list.itemOf(DBGroups::Users);
    QVERIFY(users->font().bold());
    QCOMPARE(users->toolTip(), QString("Есть несохранённые изменения"));
    QVERIFY(!list.itemOf(DBGroups::Employees)->font().bold());
    list.setChanged(DBGroups::Users, false);
    QVERIFY(!users->font().bold());
    QCOMPARE(users->toolTip(), QString());
}

void TestPageList::titlesAreNotCutOff()
{
    PageList list;
    QMap<DBGroups, int> hits;
    for (const SettingsPageName &page : settingsPages) {
        list.setChanged(page.group, true);
        hits.insert(page.group, 42);
    }
    list.setHits(hits);
    list.resize(list.sizeHint().width(), 700);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    for (const SettingsPageName &page : settingsPages) {
        const QListWidgetItem *item = list.itemOf(page.group);
        const QRect room = titleRect(list, item);
        const QRect needed =
            QFontMetrics(item->font()).boundingRect(0, 0, room.width(), room.height(), Qt::TextWordWrap, item->text());
        QVERIFY2(room.width() >= needed.width() && room.height() >= needed.height(), qPrintable(item->text()));
    }
}

void TestPageList::aLongTitleTakesTwoLines()
{
    PageList list;
    list.resize(list.sizeHint().width(), 700);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    const auto height = [&](DBGroups group) { return list.visualItemRect(list.itemOf(group)).height(); };
    QVERIFY(height(DBGroups::FingerprintScanning) > height(DBGroups::Database));
    QVERIFY(height(DBGroups::FingerprintScanning) >= 2 * list.fontMetrics().lineSpacing());
    const int before = height(DBGroups::FingerprintScanning);
    list.setChanged(DBGroups::FingerprintScanning, true);
    QCOMPARE(height(DBGroups::FingerprintScanning), before);
}

void TestPageList::aFewHitsTakeNoThirdLine()
{
    PageList list;
    list.resize(list.sizeHint().width(), 700);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    const QListWidgetItem *twoLines = list.itemOf(DBGroups::FingerprintScanning);
    const int before = list.visualItemRect(twoLines).height();
    list.setHits({{DBGroups::FingerprintScanning, 9}});
    QCOMPARE(list.visualItemRect(twoLines).height(), before);
}

void TestPageList::titlesAreEvenlySpaced()
{
    PageList list;
    list.resize(list.sizeHint().width(), 700);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    const auto padding = [&list](DBGroups group, int lines) {
        return list.visualItemRect(list.itemOf(group)).height() - lines * list.fontMetrics().lineSpacing();
    };
    QVERIFY2(qAbs(padding(DBGroups::Database, 1) - padding(DBGroups::FingerprintScanning, 2)) <= 4,
             qPrintable(QString::number(padding(DBGroups::FingerprintScanning, 2))));
}

QTEST_MAIN(TestPageList)
#include "tst_pagelist.moc"
