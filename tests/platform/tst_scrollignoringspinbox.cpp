#include <vxwidgets/scrollignoringspinbox.h>

#include "messages.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

class TestScrollIgnoringSpinBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }
    void wheelScrollsThePageInstead_data();
    void wheelScrollsThePageInstead();
    void wheelDoesNotTakeTheFocus();
    void keysStillStep();
};

namespace {

constexpr int valueInTheMiddle = 50;

/// A page much higher than its scroll area, the spin box at its top.
struct ScrolledPage
{
    ScrolledPage()
    {
        auto *page = new QWidget;
        auto *layout = new QVBoxLayout(page);
        layout->addWidget(spinBox);
        layout->addWidget(other);
        layout->addSpacing(2000);
        area.setWidget(page);
        area.setWidgetResizable(true);
        area.resize(300, 200);
        spinBox->setValue(valueInTheMiddle);
        area.show();
    }

    QScrollArea area;
    ScrollIgnoringSpinBox *spinBox = new ScrollIgnoringSpinBox;
    QLineEdit *other = new QLineEdit;
};

/// One notch down, as the window system delivers it: only a spontaneous event goes on to the widgets around, and
/// sendEvent() would take the mark away.
void turnWheelDown(QWidget *widget)
{
    const QPointF place = widget->rect().center();
    QWheelEvent event(place, widget->mapToGlobal(place.toPoint()), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(widget, &event);
}
} // namespace

void TestScrollIgnoringSpinBox::wheelScrollsThePageInstead_data()
{
    QTest::addColumn<bool>("focused");
    QTest::addColumn<bool>("overTheText");
    QTest::newRow("without focus") << false << false;
    QTest::newRow("with focus") << true << false;
    QTest::newRow("without focus, over the text") << false << true;
    QTest::newRow("with focus, over the text") << true << true;
}

void TestScrollIgnoringSpinBox::wheelScrollsThePageInstead()
{
    QFETCH(bool, focused);
    QFETCH(bool, overTheText);
    ScrolledPage page;
    page.area.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page.area));
    (focused ? static_cast<QWidget *>(page.spinBox) : page.other)->setFocus();
    QCOMPARE(page.spinBox->hasFocus(), focused);

    turnWheelDown(overTheText ? page.spinBox->findChild<QLineEdit *>() : static_cast<QWidget *>(page.spinBox));
    QCOMPARE(page.spinBox->value(), valueInTheMiddle);
    QVERIFY(page.area.verticalScrollBar()->value() > 0);
}

void TestScrollIgnoringSpinBox::wheelDoesNotTakeTheFocus()
{
    ScrolledPage page;
    page.area.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page.area));
    page.other->setFocus();

    turnWheelDown(page.spinBox);
    QVERIFY(page.other->hasFocus());
}

void TestScrollIgnoringSpinBox::keysStillStep()
{
    ScrolledPage page;
    QVERIFY(QTest::qWaitForWindowExposed(&page.area));

    QTest::keyClick(page.spinBox, Qt::Key_Up);
    QCOMPARE(page.spinBox->value(), valueInTheMiddle + 1);
}

QTEST_MAIN(TestScrollIgnoringSpinBox)
#include "tst_scrollignoringspinbox.moc"
