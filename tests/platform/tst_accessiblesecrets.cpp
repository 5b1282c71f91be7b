#include "messages.h"

#include <vxwidgets/passwordedit.h>

#include <QAccessible>
#include <QTest>

#include <initializer_list>
#include <memory>

namespace {

QStringList told;

/// Stands where the platform would be: behind the guard, which was installed later.
void hear(QAccessibleEvent *event)
{
    QString line = QString::number(static_cast<QAccessibleTextCursorEvent *>(event)->cursorPosition()) + ": ";
    if (event->type() == QAccessible::TextInserted) {
        const auto *insert = static_cast<QAccessibleTextInsertEvent *>(event);
        line += QStringLiteral("+%1 %2").arg(insert->textInserted()).arg(insert->changePosition());
    }
    if (event->type() == QAccessible::TextRemoved) {
        const auto *remove = static_cast<QAccessibleTextRemoveEvent *>(event);
        line += QStringLiteral("-%1 %2").arg(remove->textRemoved()).arg(remove->changePosition());
    }
    if (event->type() == QAccessible::TextUpdated) {
        const auto *update = static_cast<QAccessibleTextUpdateEvent *>(event);
        line += QStringLiteral("-%1 +%2 %3")
                    .arg(update->textRemoved(), update->textInserted())
                    .arg(update->changePosition());
    }
    told << line;
}
} // namespace

class TestAccessibleSecrets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { told.clear(); }

    void changesAreTold_data();
    void changesAreTold();
    void otherEventsPass();

private:
    QAccessible::UpdateHandler m_guard = nullptr;
};

void TestAccessibleSecrets::initTestCase()
{
    failOnUnexpectedMessages();
    QAccessible::installUpdateHandler(hear);
    const PasswordEdit first;
    const PasswordEdit second; // installs no second guard, which would be its own successor
    m_guard = QAccessible::installUpdateHandler(nullptr);
    QVERIFY(m_guard);
    QVERIFY(m_guard != hear);
}

void TestAccessibleSecrets::changesAreTold_data()
{
    QTest::addColumn<bool>("isPassword");
    QTest::addColumn<QLineEdit::EchoMode>("echoMode");
    QTest::addColumn<QStringList>("expected");

    const QStringList stars{"9: +*** 3", "9: -**** 4", "9: -** +*** 5"};
    const QStringList clear{"9: +abc 3", "9: -defg 4", "9: -hi +jkl 5"};
    QTest::newRow("masked") << true << QLineEdit::Password << stars;
    QTest::newRow("masked on leaving") << true << QLineEdit::PasswordEchoOnEdit << stars;
    QTest::newRow("without echo") << true << QLineEdit::NoEcho << stars;
    QTest::newRow("revealed by the user") << true << QLineEdit::Normal << clear;
    QTest::newRow("line edit of another class") << false << QLineEdit::Normal << clear;
}

void TestAccessibleSecrets::changesAreTold()
{
    QFETCH(bool, isPassword);
    QFETCH(QLineEdit::EchoMode, echoMode);
    QFETCH(QStringList, expected);
    const std::unique_ptr<QLineEdit> edit(isPassword ? new PasswordEdit : new QLineEdit);
    edit->setEchoMode(echoMode);

    QAccessibleTextInsertEvent insert(edit.get(), 3, "abc");
    QAccessibleTextRemoveEvent remove(edit.get(), 4, "defg");
    QAccessibleTextUpdateEvent update(edit.get(), 5, "hi", "jkl");
    for (QAccessibleTextCursorEvent *event :
         std::initializer_list<QAccessibleTextCursorEvent *>{&insert, &remove, &update}) {
        event->setCursorPosition(9);
        m_guard(event);
    }
    QCOMPARE(told, expected);
}

void TestAccessibleSecrets::otherEventsPass()
{
    PasswordEdit edit;
    QAccessibleTextCursorEvent moved(&edit, 7);
    m_guard(&moved);
    QCOMPARE(told, QStringList("7: "));
}

QTEST_MAIN(TestAccessibleSecrets)
#include "tst_accessiblesecrets.moc"
