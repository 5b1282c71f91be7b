#include "importdialog.h"

#include "changetree.h"
#include "dialoginspection.h"
#include "messages.h"

#include <host/objectindex.h>

#include <vxsettings/dbkeys.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace db::database;

class TestImportDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyRowTellsWhatWouldBecomeOfIt();
    void countsAreTold();
    void onlyWhatWouldChangeIsSeenAtFirst();
    void enterTakesEverythingThatWouldChange();
    void theSpaceBarTakesARowOut();
    void allThatIsVisibleIsChecked();
    void nothingChosenCannotBeTaken();
    void filtersNarrowTheList();
    void aComparisonOffersNothing();
    void escapeRejects();
    void secretsAreNotTold();
    void everybodyCanUseIt_data();
    void everybodyCanUseIt();
};

namespace {

using Purpose = ImportDialog::Purpose;

QVector<ImportPlan::Row> rows()
{
    const ObjectIndex noObjects({});
    return ImportPlan::rows({{MOBILE_PORT, "443"},
                             {CARD_VIEW_FORMAT, "1"},
                             {PIN_STRENGTH, R"({"min_len": "6", "zone": 1})"},
                             {MAX_CARD_COUNT, "77"},
                             {MOBILE_HOST, "host"},
                             {PASSWORD_DEF, "canary"},
                             {"PT_OTHER", "1"}},
                            {{MOBILE_PORT, "80"},
                             {CARD_VIEW_FORMAT, "0"},
                             {PIN_STRENGTH, R"({"min_len": "4"})"},
                             {MAX_CARD_COUNT, "5"},
                             {MOBILE_HOST, "host"},
                             {PASSWORD_DEF, "old canary"},
                             {USER_SESSION_COUNT, "0"}},
                            noObjects);
}

ChangeTree *treeOf(const ImportDialog &dialog)
{
    return dialog.findChild<ChangeTree *>();
}

QTreeWidgetItem *rowOf(const ImportDialog &dialog, const QString &address)
{
    for (QTreeWidgetItem *item : treeOf(dialog)->settings()) {
        if (ChangeTree::address(item).text() == address)
            return item;
    }
    return nullptr;
}

QStringList visibleRows(const ImportDialog &dialog)
{
    QStringList visible;
    for (const QTreeWidgetItem *item : treeOf(dialog)->settings()) {
        if (!item->isHidden() && !item->parent()->isHidden())
            visible << ChangeTree::address(item).text();
    }
    return visible;
}

QStringList chosen(const ImportDialog &dialog)
{
    QStringList edits;
    for (const SettingChange &change : dialog.chosen())
        edits << change.address.text() + '=' + change.after;
    return edits;
}

QPushButton *button(const ImportDialog &dialog, const QString &text)
{
    for (QPushButton *candidate : dialog.findChildren<QPushButton *>()) {
        if (candidate->text().remove('&').startsWith(text))
            return candidate;
    }
    return nullptr;
}

void show(ImportDialog &dialog)
{
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
}

const QStringList everyEdit{"PT_CARD_VIEW_FORMAT=1", "PT_PIN_STRENGTH.min_len=6", "PT_PASSWORD_DEF=canary",
                            "PT_MOBILE_PORT=443"};
} // namespace

void TestImportDialog::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestImportDialog::everyRowTellsWhatWouldBecomeOfIt()
{
    const ImportDialog dialog(rows(), "a.json", Purpose::Import);
    QStringList lines;
    for (const QTreeWidgetItem *item : treeOf(dialog)->settings())
        lines << QStringList{item->text(0), item->text(1), item->text(2), item->text(3)}.join(" | ");
    QCOMPARE(
        lines,
        (QStringList{
            "Максимальное количество карт сотрудника | 5 | «77» | не подходит. Максимальное количество карт "
            "сотрудника: Число вне допустимых границ. Допустимы целые числа от 1 до 20.",
            "Формат отображения номеров карт | Десятичный | Шестнадцатеричный | изменится",
            "Сложность пин-кода: Минимальная длина | 4 | 6 | изменится",
            "PT_PIN_STRENGTH.zone | не задано | «1» | нет в каталоге, здесь не меняется",
            "Пароль по умолчанию | скрыто | скрыто, другое значение | изменится",
            "Количество одновременных сессий пользователя | Без ограничений | не задано | нет в файле, не меняется",
            "Хост | «host» | «host» | без изменений", "Порт | 80 | 443 | изменится",
            "PT_OTHER | не задано | «1» | нет в каталоге, здесь не меняется"}));
}

void TestImportDialog::countsAreTold()
{
    const ImportDialog dialog(rows(), "/a/b.json", Purpose::Import);
    QCOMPARE(dialog.findChild<QLabel *>()->text(),
             QString("Файл «/a/b.json»\nНастройки — изменятся: 4, без изменений: 1, не подходят: 1, нет в каталоге: 2, "
                     "нет в файле: 1"));
}

void TestImportDialog::onlyWhatWouldChangeIsSeenAtFirst()
{
    const ImportDialog dialog(rows(), "a.json", Purpose::Import);
    QCOMPARE(visibleRows(dialog),
             (QStringList{CARD_VIEW_FORMAT, "PT_PIN_STRENGTH.min_len", PASSWORD_DEF, MOBILE_PORT}));
}

void TestImportDialog::enterTakesEverythingThatWouldChange()
{
    ImportDialog dialog(rows(), "a.json", Purpose::Import);
    show(dialog);
    QCOMPARE(button(dialog, "Взять")->text(), QString("&Взять отмеченные: 4"));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(chosen(dialog), everyEdit);
}

void TestImportDialog::theSpaceBarTakesARowOut()
{
    ImportDialog dialog(rows(), "a.json", Purpose::Import);
    show(dialog);
    QCOMPARE(dialog.focusWidget(), treeOf(dialog));
    QTest::keyClick(treeOf(dialog), Qt::Key_Space);
    QCOMPARE(chosen(dialog), everyEdit.mid(1));
    QCOMPARE(button(dialog, "Взять")->text(), QString("&Взять отмеченные: 3"));
    QTest::keyClick(treeOf(dialog), Qt::Key_Space);
    QCOMPARE(chosen(dialog), everyEdit);
}

void TestImportDialog::allThatIsVisibleIsChecked()
{
    ImportDialog dialog(rows(), "a.json", Purpose::Import);
    show(dialog);
    QTest::mouseClick(button(dialog, "Снять все"), Qt::LeftButton);
    QCOMPARE(chosen(dialog), QStringList());
    dialog.findChild<QComboBox *>("filterState")->setCurrentIndex(0);
    QTest::keyClicks(dialog.findChild<QLineEdit *>("filterWords"), "MOBILE");
    QTest::mouseClick(button(dialog, "Отметить все"), Qt::LeftButton);
    QCOMPARE(chosen(dialog), QStringList{"PT_MOBILE_PORT=443"});
}

void TestImportDialog::nothingChosenCannotBeTaken()
{
    ImportDialog dialog(rows(), "a.json", Purpose::Import);
    show(dialog);
    QTest::mouseClick(button(dialog, "Снять все"), Qt::LeftButton);
    QVERIFY(!button(dialog, "Взять")->isEnabled());
    QTest::keyClick(treeOf(dialog), Qt::Key_Return);
    QVERIFY(dialog.isVisible());
}

void TestImportDialog::filtersNarrowTheList()
{
    ImportDialog dialog(rows(), "a.json", Purpose::Import);
    show(dialog);
    auto *states = dialog.findChild<QComboBox *>("filterState");
    states->setFocus();
    QTest::keyClick(states, Qt::Key_End);
    QCOMPARE(states->currentText(), QString("нет в файле: 1"));
    QCOMPARE(visibleRows(dialog), QStringList{USER_SESSION_COUNT});
    QTest::keyClick(states, Qt::Key_Home);
    QCOMPARE(visibleRows(dialog).size(), 9);
    auto *words = dialog.findChild<QLineEdit *>("filterWords");
    for (const QChar c : QString("ПОРТ"))
        QTest::sendKeyEvent(QTest::Click, words, Qt::Key_unknown, c, Qt::NoModifier);
    QCOMPARE(visibleRows(dialog), QStringList{MOBILE_PORT});
}

void TestImportDialog::aComparisonOffersNothing()
{
    ImportDialog dialog(rows(), "a.json", Purpose::Compare);
    QCOMPARE(dialog.windowTitle(), QString("Сравнение с файлом"));
    QVERIFY(!button(dialog, "Взять"));
    QVERIFY(!button(dialog, "Отметить"));
    QCOMPARE(rowOf(dialog, MOBILE_PORT)->text(3), QString("отличается"));
    QVERIFY(!rowOf(dialog, MOBILE_PORT)->flags().testFlag(Qt::ItemIsUserCheckable));
    QVERIFY(rowOf(dialog, MOBILE_PORT)->data(0, Qt::CheckStateRole).isNull());
    show(dialog);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    QVERIFY(dialog.isHidden());
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(chosen(dialog), QStringList());
}

void TestImportDialog::escapeRejects()
{
    ImportDialog dialog(rows(), "a.json", Purpose::Import);
    show(dialog);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
    QVERIFY(dialog.isHidden());
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void TestImportDialog::secretsAreNotTold()
{
    const ImportDialog dialog(rows(), "a.json", Purpose::Import);
    for (const QTreeWidgetItem *item : treeOf(dialog)->settings()) {
        for (int column = 0; column < item->columnCount(); ++column)
            QVERIFY(!item->text(column).contains("canary") && !item->toolTip(column).contains("canary"));
    }
}

void TestImportDialog::everybodyCanUseIt_data()
{
    QTest::addColumn<int>("purpose");
    QTest::newRow("import") << int(Purpose::Import);
    QTest::newRow("comparison") << int(Purpose::Compare);
}

void TestImportDialog::everybodyCanUseIt()
{
    QFETCH(int, purpose);
    {
        ImportDialog dialog(rows(), "a.json", Purpose(purpose));
        QCOMPARE(dialoginspection::inaccessibleWidgets(dialog), QStringList());
        QCOMPARE(dialoginspection::clashingMnemonics(dialog), QStringList());
    }
    const DoublingTranslator doubled;
    const ImportDialog dialog(rows(), "a.json", Purpose(purpose));
    QVERIFY(dialoginspection::fitsSmallestWindow(dialog));
}

QTEST_MAIN(TestImportDialog)
#include "tst_importdialog.moc"
