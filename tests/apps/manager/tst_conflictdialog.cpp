#include "conflictdialog.h"

#include "messages.h"
#include "modalanswer.h"

#include <vxsettings/dbkeys.h>

#include <QTest>

using namespace db::database;

class TestConflictDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void bothValuesAreShown();
    void answer_data();
    void answer();
};

void TestConflictDialog::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestConflictDialog::bothValuesAreShown()
{
    const ModalAnswer answer("Вернуться");
    ConflictDialog({{MOBILE_HOST, "base", "<b>theirs</b>", "mine"},
                    {CARD_VIEW_FORMAT, "0", "1", "2"},
                    {PASSWORD_DEF, "canary", "canary", "canary"}})
        .exec();
    QVERIFY(answer.wasGiven());
    const QString text = answer.text().simplified();
    const QString theirs = "Сейчас в базе данных:";
    for (const QString &part :
         {"Хост " + theirs + " «<b>theirs</b>» У вас: «mine» Было: «base»",
          "Формат отображения номеров карт " + theirs + " Шестнадцатеричный У вас: Семейство-код Было: Десятичный",
          "Пароль по умолчанию " + theirs + " скрыто У вас: скрыто Было: скрыто"})
        QVERIFY2(text.contains(part), qPrintable(text));
    QVERIFY(!text.contains("canary"));
}

void TestConflictDialog::answer_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("answer");
    QTest::newRow("overwrite") << "Записать мои" << int(ConflictDialog::Overwrite);
    QTest::newRow("reload") << "Перечитать базу" << int(ConflictDialog::Reload);
    QTest::newRow("stay") << "Вернуться" << int(ConflictDialog::Stay);
    QTest::newRow("escape") << QString() << int(ConflictDialog::Stay);
}

void TestConflictDialog::answer()
{
    QFETCH(QString, button);
    const ModalAnswer given(button);
    ConflictDialog dialog({{MOBILE_HOST, "base", "theirs", "mine"}});
    QTEST(dialog.exec(), "answer");
    QVERIFY(given.wasGiven());
    QCOMPARE(given.defaultButton(), QString("Вернуться"));
}

QTEST_MAIN(TestConflictDialog)
#include "tst_conflictdialog.moc"
