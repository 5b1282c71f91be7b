#include "conflictdialog.h"

#include "dialoginspection.h"
#include "messages.h"
#include "modalanswer.h"

#include <vxsettings/dbkeys.h>

#include <QGroupBox>
#include <QRadioButton>
#include <QTest>

using namespace db::database;

class TestConflictDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void allValuesAreShown();
    void somebodyUnknown();
    void theAnswersOfTheButtons_data();
    void theAnswersOfTheButtons();
    void everythingMustBeDecided();
    void oneConflictTakesLittleRoom();
    void theKeyboardDecides();
    void everybodyCanUseIt();
};

namespace {

using Choice = ConflictDialog::Choice;
using Choices = QVector<ConflictDialog::Choice>;

const ChangeStamp stamp{QDateTime({2024, 5, 17}, {12, 30}, Qt::LocalTime), "petrova", "reception-2", "vxsettingsctl"};

const QVector<SettingsSession::Conflict> conflicts{
    {{MOBILE_HOST}, "base", "<b>theirs</b>", "mine & more", stamp},
    {{CARD_VIEW_FORMAT}, "0", "1", "2", stamp},
    {{PIN_STRENGTH, json::MAX_LEN}, "8", "6", "7", stamp},
    {{PASSWORD_DEF}, "canary", "canary", "canary", stamp},
};
} // namespace

Q_DECLARE_METATYPE(Choices)

void TestConflictDialog::initTestCase()
{
    failOnUnexpectedMessages();
    QLocale::setDefault(QLocale("ru_RU"));
}

void TestConflictDialog::allValuesAreShown()
{
    const ModalAnswer answer("Вернуться");
    ConflictDialog dialog(conflicts);
    dialog.exec();
    QVERIFY(answer.wasGiven());
    const QString text = answer.text().simplified();
    const QString who = " 17.05.2024 12:30, пользователь petrova, рабочее место reception-2, программа vxsettingsctl ";
    for (const QString &part :
         {"Было: «base» «<b>theirs</b>»" + who + "«mine & more»", "Было: Десятичный Шестнадцатеричный" + who,
          "Было: 8 6" + who + "7", "Было: скрыто скрыто" + who + "скрыто"})
        QVERIFY2(text.contains(part), qPrintable(text));
    QVERIFY(!text.contains("canary"));

    QStringList captions;
    for (const QGroupBox *box : dialog.findChildren<QGroupBox *>())
        captions << box->accessibleName();
    QCOMPARE(captions, (QStringList{"Хост", "Формат отображения номеров карт", "Сложность пин-кода: Максимальная длина",
                                    "Пароль по умолчанию"}));
}

void TestConflictDialog::somebodyUnknown()
{
    const ModalAnswer answer("Вернуться");
    ConflictDialog({{{MOBILE_HOST}, "base", "theirs", "mine", {}}}).exec();
    QVERIFY2(answer.text().contains("Кто изменил, не известно"), qPrintable(answer.text()));
}

void TestConflictDialog::theAnswersOfTheButtons_data()
{
    QTest::addColumn<QStringList>("buttons");
    QTest::addColumn<int>("answer");
    QTest::addColumn<Choices>("choices");
    QTest::addColumn<QString>("defaultButton"); // when the last one is clicked
    const Choices theirs(conflicts.count(), Choice::Theirs);
    const Choices mine(conflicts.count(), Choice::Mine);
    QTest::newRow("mine") << QStringList{"Все мои", "Записать выбранное"} << int(QDialog::Accepted) << mine
                          << "Записать выбранное";
    QTest::newRow("theirs") << QStringList{"Все из базы", "Записать выбранное"} << int(QDialog::Accepted) << theirs
                            << "Записать выбранное";
    QTest::newRow("stay") << QStringList{"Все мои", "Вернуться"} << int(QDialog::Rejected) << mine
                          << "Записать выбранное";
    QTest::newRow("escape") << QStringList{QString()} << int(QDialog::Rejected) << theirs << "Вернуться";
}

void TestConflictDialog::theAnswersOfTheButtons()
{
    QFETCH(QStringList, buttons);
    const ModalAnswer given(buttons);
    ConflictDialog dialog(conflicts);
    QTEST(dialog.exec(), "answer");
    QVERIFY(given.wasGiven());
    QTEST(dialog.choices(), "choices");
    QTEST(given.defaultButton(), "defaultButton");
}

void TestConflictDialog::everythingMustBeDecided()
{
    ConflictDialog dialog(conflicts);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const auto buttons = dialog.findChildren<QPushButton *>();
    const auto accept = std::find_if(buttons.begin(), buttons.end(),
                                     [](const QPushButton *button) { return button->text() == "&Записать выбранное"; });
    QVERIFY(accept != buttons.end());
    const auto choices = dialog.findChildren<QRadioButton *>();
    QCOMPARE(choices.count(), 8);
    for (const int choice : {0, 3, 5, 6}) {
        QVERIFY(!(*accept)->isEnabled());
        QVERIFY(!choices[choice]->accessibleDescription().contains("canary"));
        QTest::keyClick(choices[choice], Qt::Key_Space);
    }
    QVERIFY((*accept)->isEnabled());
    QCOMPARE(dialog.choices(), (Choices{Choice::Theirs, Choice::Mine, Choice::Mine, Choice::Theirs}));
}

void TestConflictDialog::oneConflictTakesLittleRoom()
{
    const ConflictDialog one(conflicts.mid(0, 1));
    const ConflictDialog many(conflicts);
    QVERIFY2(one.height() < many.height(), qPrintable(QString::number(one.height())));
    // To decide on all of them is to decide on the one.
    QCOMPARE(one.findChildren<QPushButton *>().count(), 2);
    QCOMPARE(many.findChildren<QPushButton *>().count(), 4);
}

void TestConflictDialog::theKeyboardDecides()
{
    ConflictDialog dialog({conflicts[0], conflicts[1]});
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QCOMPARE(dialog.focusWidget()->accessibleName(), QString("Хост: Взять из базы данных"));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
    QCOMPARE(dialog.focusWidget()->accessibleName(), QString("Хост: Записать моё"));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
    QCOMPARE(dialog.focusWidget()->accessibleName(), QString("Формат отображения номеров карт: Взять из базы данных"));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(dialog.choices(), (Choices{Choice::Mine, Choice::Theirs}));
}

void TestConflictDialog::everybodyCanUseIt()
{
    const QVector<SettingsSession::Conflict> many(60, conflicts[1]);
    {
        ConflictDialog dialog(many);
        QCOMPARE(dialoginspection::inaccessibleWidgets(dialog), QStringList());
        QCOMPARE(dialoginspection::clashingMnemonics(dialog), QStringList());
    }
    const DoublingTranslator doubled;
    const ConflictDialog dialog(many);
    QVERIFY2(dialoginspection::fitsSmallestWindow(dialog),
             qPrintable(QString::number(dialog.minimumSizeHint().width())));
}

QTEST_MAIN(TestConflictDialog)
#include "tst_conflictdialog.moc"
