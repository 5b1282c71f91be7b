#include "reviewdialog.h"

#include "changetree.h"
#include "dialoginspection.h"
#include "messages.h"

#include <vxsettings/dbkeys.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace db::database;

class TestReviewDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void oldAndNewAreWords();
    void enterSavesWithTheReason();
    void escapeGoesBack();
    void oneChangeAndManyFit_data();
    void oneChangeAndManyFit();
    void everybodyCanUseIt();
};

Q_DECLARE_METATYPE(SettingChange)

namespace {

QVector<SettingChange> everything()
{
    QVector<SettingChange> changes;
    for (const SettingAddress &address : SettingAddress::all()) {
        if (!address.isJsonObject())
            changes.append({address, "1", "0"});
    }
    return changes;
}
} // namespace

void TestReviewDialog::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestReviewDialog::oldAndNewAreWords()
{
    const ReviewDialog dialog({{{MOBILE_PORT}, "80", "443"},
                               {{PIN_STRENGTH, "deny_equal"}, "false", "true"},
                               {{CARD_VIEW_FORMAT}, "0", "1"}});
    QStringList rows;
    for (const QTreeWidgetItem *item : dialog.findChild<ChangeTree *>()->settings())
        rows << QStringList{item->text(0), item->text(1), item->text(2)}.join(" | ");
    QCOMPARE(rows, (QStringList{"Формат отображения номеров карт | Десятичный | Шестнадцатеричный",
                                "Запрещать одинаковые цифры подряд | нет | да", "Порт | 80 | 443"}));
}

void TestReviewDialog::enterSavesWithTheReason()
{
    ReviewDialog dialog({{{MOBILE_PORT}, "80", "443"}});
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QCOMPARE(dialog.focusWidget(), dialog.findChild<QLineEdit *>());
    QTest::keyClicks(dialog.focusWidget(), " new server ");
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(dialog.isHidden());
    QCOMPARE(dialog.reason(), QString("new server"));
}

void TestReviewDialog::escapeGoesBack()
{
    ReviewDialog dialog({{{MOBILE_PORT}, "80", "443"}});
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QVERIFY(dialog.isHidden());
}

void TestReviewDialog::oneChangeAndManyFit_data()
{
    QTest::addColumn<QVector<SettingChange>>("changes");
    QTest::newRow("one") << QVector<SettingChange>{{{MOBILE_PORT}, "80", "443"}};
    QTest::newRow("everything") << everything();
}

void TestReviewDialog::oneChangeAndManyFit()
{
    QFETCH(QVector<SettingChange>, changes);
    const DoublingTranslator doubled;
    ReviewDialog dialog(changes);
    QVERIFY(dialoginspection::fitsSmallestWindow(dialog));
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QVERIFY(dialog.width() <= 1024 && dialog.height() <= 700);
    const auto *tree = dialog.findChild<ChangeTree *>();
    QCOMPARE(tree->settings().size(), changes.size());
    QVERIFY(tree->viewport()->rect().contains(tree->visualItemRect(tree->settings().first())));
}

void TestReviewDialog::everybodyCanUseIt()
{
    ReviewDialog dialog(everything());
    QCOMPARE(dialoginspection::inaccessibleWidgets(dialog), QStringList());
    QCOMPARE(dialoginspection::clashingMnemonics(dialog), QStringList());
}

QTEST_MAIN(TestReviewDialog)
#include "tst_reviewdialog.moc"
