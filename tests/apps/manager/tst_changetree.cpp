#include "changetree.h"

#include "messages.h"

#include <host/settingchange.h>

#include <vxsettings/dbkeys.h>

#include <QTest>

using namespace db::database;

class TestChangeTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void settingsStandBelowTheirPages();
    void valuesAreWords_data();
    void valuesAreWords();
    void longTextsWrap();
    void headingsWrapOverAllColumns();
    void arrowsReachEveryRow();
};

Q_DECLARE_METATYPE(SettingChange)

namespace {

const QStringList columns{"Setting", "Before", "After"};

void show(ChangeTree &tree)
{
    tree.resize(600, 400);
    tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tree));
}

int heightOf(const ChangeTree &tree, const QTreeWidgetItem *item)
{
    return tree.visualItemRect(item).height();
}
} // namespace

void TestChangeTree::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestChangeTree::settingsStandBelowTheirPages()
{
    ChangeTree tree(columns);
    for (const SettingAddress &address :
         {SettingAddress{PIN_STRENGTH, "min_len"}, {MAX_CARD_COUNT}, {MOBILE_PORT}, {"PT_OTHER"}})
        tree.addSetting(tree.pageHeading(address), address, {"a", "b"});
    QStringList headings, captions;
    for (int row = 0; row < tree.topLevelItemCount(); ++row)
        headings << tree.topLevelItem(row)->text(0);
    for (const QTreeWidgetItem *item : tree.settings())
        captions << item->text(0);
    QCOMPARE(headings, (QStringList{"Сотрудники", "Настройки подключения", "Настройки, которых нет в каталоге"}));
    QCOMPARE(captions, (QStringList{"Сложность пин-кода: Минимальная длина", "Максимальное количество карт сотрудника",
                                    "Порт", "PT_OTHER"}));
    QCOMPARE(ChangeTree::address(tree.settings().first()).text(), QString("PT_PIN_STRENGTH.min_len"));
}

void TestChangeTree::valuesAreWords_data()
{
    QTest::addColumn<SettingChange>("change");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *name, const SettingChange &change, const QString &before, const QString &after) {
        QTest::newRow(name) << change << before << after;
    };
    row("choice", {{CARD_VIEW_FORMAT}, "0", "1"}, "Десятичный", "Шестнадцатеричный");
    row("member", {{PIN_STRENGTH, "deny_equal"}, QString(), "true"}, "не задано", "да");
    row("secret", {{PASSWORD_DEF}, "canary", "other"}, "скрыто", "скрыто, другое значение");
    row("new secret", {{PASSWORD_DEF}, "", "canary"}, "не задано", "скрыто");
}

void TestChangeTree::valuesAreWords()
{
    QFETCH(SettingChange, change);
    ChangeTree tree(columns);
    const QTreeWidgetItem *item = tree.addChange(tree.pageHeading(change.address), change);
    QTEST(item->text(1), "before");
    QTEST(item->text(2), "after");
}

void TestChangeTree::longTextsWrap()
{
    ChangeTree tree(columns);
    QTreeWidgetItem *heading = tree.pageHeading({MOBILE_HOST});
    const QTreeWidgetItem *shortRow = tree.addSetting(heading, {MOBILE_PORT}, {"1", "2"});
    const QTreeWidgetItem *longRow = tree.addSetting(heading, {MOBILE_HOST}, {"short", QString("word ").repeated(40)});
    show(tree);
    const int line = tree.fontMetrics().lineSpacing();
    QVERIFY(heightOf(tree, shortRow) < 2 * line);
    QVERIFY(heightOf(tree, longRow) > 4 * line);

    const int before = heightOf(tree, longRow);
    tree.resize(1200, 400);
    QTRY_VERIFY(heightOf(tree, longRow) < before);
}

void TestChangeTree::headingsWrapOverAllColumns()
{
    ChangeTree tree(columns);
    const QTreeWidgetItem *one = tree.addHeading("two words over three columns and no more");
    const QTreeWidgetItem *many = tree.addHeading(QString("word ").repeated(60));
    show(tree);
    const int line = tree.fontMetrics().lineSpacing();
    QVERIFY(heightOf(tree, one) < 2 * line);
    QVERIFY(heightOf(tree, many) > 2 * line);
}

void TestChangeTree::arrowsReachEveryRow()
{
    ChangeTree tree(columns);
    tree.addSetting(tree.pageHeading({MAX_CARD_COUNT}), {MAX_CARD_COUNT}, {"1", "2"});
    tree.addSetting(tree.pageHeading({MOBILE_PORT}), {MOBILE_PORT}, {"1", "2"});
    show(tree);
    tree.goToFirstSetting();
    QCOMPARE(ChangeTree::address(tree.currentItem()).text(), MAX_CARD_COUNT);
    QTest::keyClick(&tree, Qt::Key_Left); // folds nothing
    QTest::keyClick(&tree, Qt::Key_End);
    QCOMPARE(ChangeTree::address(tree.currentItem()).text(), MOBILE_PORT);
    QVERIFY(tree.topLevelItem(0)->isExpanded());
}

QTEST_MAIN(TestChangeTree)
#include "tst_changetree.moc"
