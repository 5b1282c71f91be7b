#include "historydialog.h"

#include "changetree.h"
#include "dialoginspection.h"
#include "messages.h"

#include <vxsettings/dbkeys.h>

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace db::database;

class TestHistoryDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everySaveTellsWhoWhereAndWhy();
    void aMemberHasAHistoryOfItsOwn();
    void aJsonSettingHasThatOfItsMembers();
    void waitingAndProblemsAreTold();
    void restoringAsksForTheOldValue();
    void whatCannotBeRestored_data();
    void whatCannotBeRestored();
    void escapeAndEnterClose_data();
    void escapeAndEnterClose();
    void everybodyCanUseIt();
};

Q_DECLARE_METATYPE(HistoryRecord)

namespace {

const ChangeStamp petrova{QDateTime(QDate(2024, 3, 5), QTime(12, 0)), "petrova", "ws-12", "vxsettings-manager"};
const ChangeStamp unknown{};

const QVector<HistoryRecord> records{
    {1, "a", MOBILE_PORT, 1, QString(), "80", unknown, QString()},
    {2, "b", MOBILE_PORT, 2, "80", "8443", petrova, "Новый сервер"},
    {3, "b", PIN_STRENGTH, 2, R"({"min_len": "4"})", R"({"min_len": "6", "deny_equal": "true"})", petrova,
     "Новый сервер"},
    {4, "c", PASSWORD_DEF, 2, QString(), QString(), petrova, QString()},
    {5, "d", PIN_STRENGTH, 3, R"({"min_len": "6", "deny_equal": "true"})", R"({"min_len": "6"})", petrova, QString()},
};

/// Headings, and rows below them indented.
QStringList outline(const HistoryDialog &dialog)
{
    QStringList lines;
    const auto *tree = dialog.findChild<ChangeTree *>();
    for (int row = 0; row < tree->topLevelItemCount(); ++row) {
        const QTreeWidgetItem *heading = tree->topLevelItem(row);
        lines << heading->text(0).section(", ", 1); // the time is written as the locale has it
        for (int child = 0; child < heading->childCount(); ++child) {
            const QTreeWidgetItem *item = heading->child(child);
            lines << "  " + QStringList{item->text(0), item->text(1), item->text(2)}.join(" | ");
        }
    }
    return lines;
}

QPushButton *restoreButton(const HistoryDialog &dialog)
{
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        if (button->text().contains("прежнее"))
            return button;
    }
    return nullptr;
}
} // namespace

void TestHistoryDialog::initTestCase()
{
    failOnUnexpectedMessages();
    qRegisterMetaType<SettingAddress>("SettingAddress");
}

void TestHistoryDialog::everySaveTellsWhoWhereAndWhy()
{
    HistoryDialog dialog({});
    dialog.setRecords(records);
    const QString by = "пользователь petrova, рабочее место ws-12, программа vxsettings-manager";
    QCOMPARE(outline(dialog), (QStringList{by, "  Запрещать одинаковые цифры подряд | да | не задано", by,
                                           "  Пароль по умолчанию | скрыто | скрыто", by + ". Причина: Новый сервер",
                                           "  Сложность пин-кода: Минимальная длина | 4 | 6",
                                           "  Запрещать одинаковые цифры подряд | не задано | да", "  Порт | 80 | 8443",
                                           "не известно", "  Порт | не задано | 80"}));
    QCOMPARE(dialog.findChild<QLabel *>()->text(), QString("Изменений: 6"));
}

void TestHistoryDialog::aMemberHasAHistoryOfItsOwn()
{
    HistoryDialog dialog(SettingAddress{PIN_STRENGTH, "min_len"});
    QCOMPARE(dialog.windowTitle(), QString("История: Сложность пин-кода: Минимальная длина"));
    dialog.setRecords({records[2], records[4]});
    QCOMPARE(outline(dialog).filter("  "), QStringList{"  Сложность пин-кода: Минимальная длина | 4 | 6"});
    QCOMPARE(dialog.findChild<ChangeTree *>()->topLevelItemCount(), 1);
}

void TestHistoryDialog::aJsonSettingHasThatOfItsMembers()
{
    HistoryDialog dialog(SettingAddress{PIN_STRENGTH});
    dialog.setRecords({records[2], records[4]});
    QCOMPARE(dialog.findChild<ChangeTree *>()->settings().size(), 3);
}

void TestHistoryDialog::waitingAndProblemsAreTold()
{
    HistoryDialog dialog({});
    auto *label = dialog.findChild<QLabel *>();
    QCOMPARE(label->text(), QString("История читается…"));
    dialog.setProblem("Нет связи.");
    QCOMPARE(label->text(), QString("Нет связи."));
    dialog.setRecords({});
    QCOMPARE(label->text(), QString("Изменений не было"));
}

void TestHistoryDialog::restoringAsksForTheOldValue()
{
    HistoryDialog dialog({});
    dialog.setRecords(records);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QStringList wanted;
    connect(&dialog, &HistoryDialog::restoreRequested,
            [&](const SettingAddress &address, const QString &text) { wanted << address.text() + '=' + text; });
    auto *tree = dialog.findChild<ChangeTree *>();
    QTest::keyClick(tree, Qt::Key_End);
    for (int up = 0; up < 2; ++up)
        QTest::keyClick(tree, Qt::Key_Up); // past the heading of the first save
    QCOMPARE(tree->currentItem()->text(1), QString("80"));
    QTest::mouseClick(restoreButton(dialog), Qt::LeftButton);
    QCOMPARE(wanted, QStringList{"PT_MOBILE_PORT=80"});
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.findChild<QLabel *>()->text(), QString("В редакторе «Порт» снова 80. Осталось сохранить."));
}

void TestHistoryDialog::whatCannotBeRestored_data()
{
    QTest::addColumn<HistoryRecord>("record");
    QTest::addColumn<bool>("canBe");
    const auto row = [](const char *name, const QString &key, const QString &before, const QString &after, bool canBe) {
        QTest::newRow(name) << HistoryRecord{1, "a", key, 1, before, after, petrova, QString()} << canBe;
    };
    row("a value", MOBILE_HOST, "a", "b", true);
    row("an empty value", MOBILE_HOST, "", "b", true);
    row("nothing was stored", MOBILE_HOST, QString(), "b", false);
    row("a secret", PASSWORD_DEF, QString(), QString(), false);
    row("the version", VERSION, "1", "2", false);
    row("an unknown setting", "PT_OTHER", "1", "2", false);
    row("an unknown member", PIN_STRENGTH, R"({"zone": 1})", R"({"zone": 2})", false);
    row("a whole JSON text", PIN_STRENGTH, R"({"min_len": "4"})", "{", false);
}

void TestHistoryDialog::whatCannotBeRestored()
{
    QFETCH(HistoryRecord, record);
    HistoryDialog dialog({});
    QVERIFY(!restoreButton(dialog)->isEnabled());
    dialog.setRecords({record});
    QTEST(restoreButton(dialog)->isEnabled(), "canBe");
}

void TestHistoryDialog::escapeAndEnterClose_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Escape") << int(Qt::Key_Escape);
    QTest::newRow("Enter") << int(Qt::Key_Return);
}

void TestHistoryDialog::escapeAndEnterClose()
{
    QFETCH(int, key);
    HistoryDialog dialog({});
    dialog.setRecords(records);
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QSignalSpy restore(&dialog, &HistoryDialog::restoreRequested);
    QTest::keyClick(dialog.focusWidget(), Qt::Key(key));
    QVERIFY(dialog.isHidden());
    QCOMPARE(restore.count(), 0);
}

void TestHistoryDialog::everybodyCanUseIt()
{
    {
        HistoryDialog dialog({});
        QCOMPARE(dialoginspection::inaccessibleWidgets(dialog), QStringList());
        QCOMPARE(dialoginspection::clashingMnemonics(dialog), QStringList());
    }
    const DoublingTranslator doubled;
    HistoryDialog dialog({});
    dialog.setRecords(records);
    QVERIFY(dialoginspection::fitsSmallestWindow(dialog));
}

QTEST_MAIN(TestHistoryDialog)
#include "tst_historydialog.moc"
