#include <vxwidgets/smartcardkeydialog.h>

#include "messages.h"

#include <vxwidgets/passwordedit.h>

#include <QAction>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

class TestSmartCardKeyDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }
    void isModalAndMasked();
    void judgesWhatIsTyped_data();
    void judgesWhatIsTyped();
    void judgesWhatIsSet_data() { judgesWhatIsTyped_data(); }
    void judgesWhatIsSet();
    void pastedKeyMayHaveSeparators();
    void messageFollowsEveryKey();
    void enterAcceptsOnlyAKey_data();
    void enterAcceptsOnlyAKey();
    void escapeCancels();
    void buttonsAcceptAndCancel();
    void execAnswersWhatTheUserDid();
    void keyCanBeRevealed();
};

namespace {

const QString aesKey = QStringLiteral("00112233445566778899AABBCCDDEEFF");

PasswordEdit *edit(const QDialog &dialog)
{
    return dialog.findChild<PasswordEdit *>();
}

QPushButton *button(const QDialog &dialog, QDialogButtonBox::StandardButton which)
{
    return dialog.findChild<QDialogButtonBox *>()->button(which);
}

/// The label below the edit.
QString message(const QDialog &dialog)
{
    for (const QLabel *label : dialog.findChildren<QLabel *>()) {
        if (!label->buddy())
            return label->text();
    }
    return {};
}

bool show(QDialog &dialog)
{
    dialog.show();
    dialog.activateWindow();
    return QTest::qWaitForWindowActive(&dialog);
}
} // namespace

void TestSmartCardKeyDialog::isModalAndMasked()
{
    SmartCardKeyDialog dialog;
    QVERIFY(dialog.isModal());
    QVERIFY(dialog.key().isEmpty());
    QVERIFY(show(dialog));
    QVERIFY(edit(dialog)->hasFocus());
    QCOMPARE(edit(dialog)->echoMode(), QLineEdit::Password);
}

void TestSmartCardKeyDialog::judgesWhatIsTyped_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("good");
    QTest::addColumn<QString>("message");

    const auto length = [](int bytes) { return QStringLiteral("Длина ключа в байтах: %1.").arg(bytes); };
    QTest::newRow("sector key") << "A0A1A2A3A4A5"
                                << "A0A1A2A3A4A5" << true << length(6);
    QTest::newRow("DES") << "0123456789ABCDEF"
                         << "0123456789ABCDEF" << true << length(8);
    QTest::newRow("AES-128") << aesKey << aesKey << true << length(16);
    QTest::newRow("three-key 3DES") << aesKey + "0123456789ABCDEF" << aesKey + "0123456789ABCDEF" << true << length(24);
    QTest::newRow("lower case") << "a0a1a2a3a4a5"
                                << "A0A1A2A3A4A5" << true << length(6);
    QTest::newRow("spaces between bytes") << " A0 A1 A2  A3 A4 A5 "
                                          << "A0A1A2A3A4A5" << true << length(6);

    const auto count = [](int digits) {
        return QStringLiteral("Введено цифр: %1, нужно 12, 16, 32 или 48.").arg(digits);
    };
    QTest::newRow("one digit short") << aesKey.left(31) << aesKey.left(31) << false << count(31);
    QTest::newRow("one digit too many") << aesKey + "0" << aesKey + "0" << false << count(33);
    QTest::newRow("spaces do not count") << "A0 A1 A2 A3 A4 A"
                                         << "A0A1A2A3A4A" << false << count(11);
    QTest::newRow("24 digits") << aesKey.left(24) << aesKey.left(24) << false << count(24);

    const QString empty = QStringLiteral("Введите ключ: 12, 16, 32 или 48 цифр.");
    QTest::newRow("nothing") << ""
                             << "" << false << empty;
    QTest::newRow("only spaces") << "   "
                                 << "" << false << empty;

    const auto stranger = [](const char *name, int place) {
        return QStringLiteral("Символ «%1» на месте %2 не подходит: допустимы цифры 0–9 и латинские буквы A–F.")
            .arg(QString::fromUtf8(name))
            .arg(place);
    };
    QTest::newRow("letter after F") << "A0A1A2A3A4AG"
                                    << "A0A1A2A3A4AG" << false << stranger("G", 12);
    QTest::newRow("place counts spaces") << "A0 A1 x"
                                         << "A0A1X" << false << stranger("x", 7);
    QTest::newRow("first of several") << "A0-A1-A2"
                                      << "A0-A1-A2" << false << stranger("-", 3);
    QTest::newRow("percent sign") << "%2"
                                  << "%2" << false << stranger("%", 1);
    QTest::newRow("Cyrillic letter that looks Latin") << "А0"
                                                      << "А0" << false << stranger("А", 1);
    QTest::newRow("full-width digit") << "0１"
                                      << "0１" << false << stranger("１", 2);
}

void TestSmartCardKeyDialog::judgesWhatIsTyped()
{
    QFETCH(QString, text);
    SmartCardKeyDialog dialog;
    QVERIFY(show(dialog));
    for (const QChar character : text)
        QTest::sendKeyEvent(QTest::Click, edit(dialog), Qt::Key_unknown, character, Qt::NoModifier);

    QTEST(dialog.key(), "key");
    QTEST(button(dialog, QDialogButtonBox::Ok)->isEnabled(), "good");
    QTEST(message(dialog), "message");
    QTEST(edit(dialog)->accessibleDescription(), "message");
}

void TestSmartCardKeyDialog::judgesWhatIsSet()
{
    QFETCH(QString, text);
    SmartCardKeyDialog dialog;
    dialog.setKey(text);

    QCOMPARE(edit(dialog)->text(), text);
    QTEST(dialog.key(), "key");
    QTEST(button(dialog, QDialogButtonBox::Ok)->isEnabled(), "good");
    QTEST(message(dialog), "message");
}

void TestSmartCardKeyDialog::pastedKeyMayHaveSeparators()
{
    SmartCardKeyDialog dialog;
    QVERIFY(show(dialog));
    QGuiApplication::clipboard()->setText("a0 a1\ta2\u00a0a3 a4 a5\n");

    QTest::keySequence(edit(dialog), QKeySequence::Paste);
    QCOMPARE(dialog.key(), QStringLiteral("A0A1A2A3A4A5"));
    QVERIFY(button(dialog, QDialogButtonBox::Ok)->isEnabled());

    QGuiApplication::clipboard()->setText("\u200b");
    QTest::keySequence(edit(dialog), QKeySequence::Paste);
    QVERIFY(message(dialog).startsWith("Символ «U+200B» на месте "));
    QVERIFY(!button(dialog, QDialogButtonBox::Ok)->isEnabled());
}

void TestSmartCardKeyDialog::messageFollowsEveryKey()
{
    SmartCardKeyDialog dialog;
    dialog.setKey("A0A1A2A3A4A");
    QVERIFY(show(dialog));
    QVERIFY(!button(dialog, QDialogButtonBox::Ok)->isEnabled());

    QTest::keyClick(edit(dialog), 'b');
    QVERIFY(button(dialog, QDialogButtonBox::Ok)->isEnabled());
    QCOMPARE(dialog.key(), QStringLiteral("A0A1A2A3A4AB"));

    QTest::keyClick(edit(dialog), Qt::Key_Backspace);
    QVERIFY(!button(dialog, QDialogButtonBox::Ok)->isEnabled());
    QVERIFY(message(dialog).contains("11"));
}

void TestSmartCardKeyDialog::enterAcceptsOnlyAKey_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("a key") << aesKey << true;
    QTest::newRow("too short") << "A0" << false;
    QTest::newRow("nothing") << "" << false;
    QTest::newRow("not hexadecimal") << "Z0A1A2A3A4A5" << false;
}

void TestSmartCardKeyDialog::enterAcceptsOnlyAKey()
{
    QFETCH(QString, text);
    QFETCH(bool, accepted);
    SmartCardKeyDialog dialog;
    QVERIFY(show(dialog));
    QTest::keyClicks(edit(dialog), text);
    QSignalSpy acceptances(&dialog, &QDialog::accepted);
    QSignalSpy rejections(&dialog, &QDialog::rejected);

    QTest::keyClick(edit(dialog), Qt::Key_Return);
    QCOMPARE(acceptances.count(), accepted ? 1 : 0);
    QCOMPARE(rejections.count(), 0);
    QCOMPARE(dialog.isVisible(), !accepted);
    QCOMPARE(dialog.key(), text);
}

void TestSmartCardKeyDialog::escapeCancels()
{
    SmartCardKeyDialog dialog;
    dialog.setKey(aesKey);
    QVERIFY(show(dialog));
    QSignalSpy rejections(&dialog, &QDialog::rejected);

    QTest::keyClick(edit(dialog), Qt::Key_Escape);
    QCOMPARE(rejections.count(), 1);
    QVERIFY(!dialog.isVisible());
}

void TestSmartCardKeyDialog::buttonsAcceptAndCancel()
{
    SmartCardKeyDialog dialog;
    dialog.setKey(aesKey);
    QVERIFY(show(dialog));
    QTest::mouseClick(button(dialog, QDialogButtonBox::Ok), Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));

    QVERIFY(show(dialog));
    QTest::mouseClick(button(dialog, QDialogButtonBox::Cancel), Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void TestSmartCardKeyDialog::execAnswersWhatTheUserDid()
{
    QWidget page;
    SmartCardKeyDialog dialog(&page);
    QTimer::singleShot(0, &dialog, [&dialog] {
        QTest::keyClicks(edit(dialog), "a0 a1 a2 a3 a4 a5");
        QTest::keyClick(edit(dialog), Qt::Key_Enter);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(dialog.key(), QStringLiteral("A0A1A2A3A4A5"));
}

void TestSmartCardKeyDialog::keyCanBeRevealed()
{
    SmartCardKeyDialog dialog;
    dialog.setKey(aesKey);
    QVERIFY(show(dialog));
    QVERIFY(edit(dialog)->displayText() != aesKey);
    edit(dialog)->actions().constFirst()->trigger();
    QCOMPARE(edit(dialog)->displayText(), aesKey);

    dialog.reject();
    QVERIFY(show(dialog));
    QVERIFY(edit(dialog)->displayText() != aesKey);
}

QTEST_MAIN(TestSmartCardKeyDialog)
#include "tst_smartcardkeydialog.moc"
