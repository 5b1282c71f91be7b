#include "savequestions.h"

#include "messages.h"
#include "modalanswer.h"

#include <vxsettings/dbkeys.h>

#include <QTest>

class TestSaveQuestions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void replaceUnreadable_data();
    void replaceUnreadable();
    void leave_data();
    void leave();
    void manyChangesAreCutShort();
    void restoreDraft_data();
    void restoreDraft();
    void showError();
    void showUnknown();
};

void TestSaveQuestions::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSaveQuestions::replaceUnreadable_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("replace");
    QTest::newRow("replace") << "Заменить" << true;
    QTest::newRow("do not save") << "Не сохранять" << false;
    QTest::newRow("escape") << QString() << false;
}

void TestSaveQuestions::replaceUnreadable()
{
    QFETCH(QString, button);
    const ModalAnswer given(button);
    QTEST(SaveQuestions::replaceUnreadable(nullptr, {db::database::PIN_STRENGTH}), "replace");
    QVERIFY(given.wasGiven());
    QVERIFY2(given.text().contains("Сложность пин-кода (PT_PIN_STRENGTH)"), qPrintable(given.text()));
    QCOMPARE(given.defaultButton(), QString("Не сохранять"));
}

void TestSaveQuestions::leave_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("leaving");
    QTest::newRow("save") << "Сохранить" << int(SaveQuestions::Leaving::Save);
    QTest::newRow("discard") << "Не сохранять" << int(SaveQuestions::Leaving::Discard);
    QTest::newRow("stay") << "Вернуться" << int(SaveQuestions::Leaving::Stay);
    QTest::newRow("escape") << QString() << int(SaveQuestions::Leaving::Stay);
}

void TestSaveQuestions::leave()
{
    QFETCH(QString, button);
    const ModalAnswer given(button);
    const QVector<SettingChange> changes(3, {{db::database::MOBILE_PORT}, "80", "443"});
    QTEST(int(SaveQuestions::leave(nullptr, changes)), "leaving");
    QVERIFY(given.wasGiven());
    QVERIFY2(given.text().contains("Изменено настроек: 3. Сохранить изменения?"), qPrintable(given.text()));
    QVERIFY2(given.text().contains("Порт: 80 → 443"), qPrintable(given.text()));
}

void TestSaveQuestions::manyChangesAreCutShort()
{
    const ModalAnswer given("Вернуться");
    SaveQuestions::leave(nullptr, QVector<SettingChange>(15, {{db::database::MOBILE_PORT}, "80", "443"}));
    QCOMPARE(given.text().count("Порт: 80 → 443"), 12);
    QVERIFY2(given.text().contains("…и ещё: 3"), qPrintable(given.text()));
}

void TestSaveQuestions::restoreDraft_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("restored");
    QTest::newRow("restore") << "Восстановить" << true;
    QTest::newRow("delete") << "Удалить черновик" << false;
    QTest::newRow("escape loses nothing") << QString() << true;
}

void TestSaveQuestions::restoreDraft()
{
    QFETCH(QString, button);
    const ModalAnswer given(button);
    QTEST(SaveQuestions::restoreDraft(nullptr, {"an edit"}, QDateTime::currentDateTimeUtc()), "restored");
    QVERIFY(given.wasGiven());
    QVERIFY2(given.text().contains("an edit"), qPrintable(given.text()));
}

void TestSaveQuestions::showError()
{
    const ModalAnswer given("Закрыть");
    SaveQuestions::showError(nullptr, {"/the/path", "The reason.", "The advice."});
    QVERIFY(given.wasGiven());
    QVERIFY2(given.text().contains("«/the/path».\nThe reason.\nThe advice."), qPrintable(given.text()));
}

void TestSaveQuestions::showUnknown()
{
    const ModalAnswer given("Закрыть");
    SaveQuestions::showUnknown(nullptr, {"/the/path", "The reason.", "The advice."});
    QVERIFY(given.wasGiven());
    QVERIFY2(given.text().contains("Неизвестно, записаны ли изменения"), qPrintable(given.text()));
    QVERIFY2(given.text().contains("The reason.\nThe advice."), qPrintable(given.text()));
}

QTEST_MAIN(TestSaveQuestions)
#include "tst_savequestions.moc"
