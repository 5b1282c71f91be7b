#include "contextmenukey.h"

#include "messages.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>
#include <QWindow>

namespace {

/// A window with two lines, the second of which has the keyboard.
struct Window
{
    Window()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(first);
        layout->addWidget(second);
        window.show();
        QApplication::setActiveWindow(&window);
        second->setFocus();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
    {
        QTest::keyClick(window.windowHandle(), key, modifiers);
    }

    QWidget window;
    QLineEdit *first = new QLineEdit;
    QLineEdit *second = new QLineEdit;
};
} // namespace

class TestContextMenuKey : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void itOpensTheMenuOfWhatHasTheKeyboard();
    void otherKeysOpenNone_data();
    void otherKeysOpenNone();
};

void TestContextMenuKey::initTestCase()
{
    failOnUnexpectedMessages();
    qApp->installEventFilter(new ContextMenuKey(qApp));
}

void TestContextMenuKey::cleanup()
{
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
}

void TestContextMenuKey::itOpensTheMenuOfWhatHasTheKeyboard()
{
    Window window;
    QVERIFY(QTest::qWaitForWindowActive(&window.window));
    window.press(Qt::Key_F10, Qt::ShiftModifier);
    QTRY_VERIFY(qobject_cast<QMenu *>(QApplication::activePopupWidget()));
    QCOMPARE(QApplication::activePopupWidget()->parentWidget(), window.second);
    const QRect line(window.second->mapToGlobal(QPoint()), window.second->size());
    QVERIFY(line.contains(QApplication::activePopupWidget()->pos()));
}

void TestContextMenuKey::otherKeysOpenNone_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addRow("without Shift") << Qt::Key_F10 << Qt::KeyboardModifiers(Qt::NoModifier);
    QTest::addRow("with Ctrl too") << Qt::Key_F10 << (Qt::ShiftModifier | Qt::ControlModifier);
    QTest::addRow("another key") << Qt::Key_F9 << Qt::KeyboardModifiers(Qt::ShiftModifier);
}

void TestContextMenuKey::otherKeysOpenNone()
{
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    Window window;
    QVERIFY(QTest::qWaitForWindowActive(&window.window));
    window.press(key, modifiers);
    window.press(Qt::Key_A, Qt::NoModifier);
    QTRY_COMPARE(window.second->text(), QString("a"));
    QVERIFY(!QApplication::activePopupWidget());
}

QTEST_MAIN(TestContextMenuKey)
#include "tst_contextmenukey.moc"
