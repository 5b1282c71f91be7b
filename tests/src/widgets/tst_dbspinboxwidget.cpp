#include <vxsettings/dbspinboxwidget.h>

#include "editorprobe.h"
#include "messages.h"

#include <vxwidgets/scrollignoringspinbox.h>

#include <qtcompat.h>

#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <climits>

class TestDBSpinBoxWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void metaObjectAddsOnlyTheName() { compareMetaObject(DBSpinBoxWidget::staticMetaObject, "DBSpinBoxWidget"); }
    void freshEditor();
    void captionIsOnTheFrame();

    void setValueShowsTheNumber_data();
    void setValueShowsTheNumber();
    void setValueShowsBeforeItStores();
    void setValueOfAFreshEditorCommitsOnce();
    void sameNumberIsStoredSilently();

    void range_data();
    void range();
    void rangeClampsTheStoredValue();
    void rangeAppliesAClampedValueAgain();
    void rangeAnnouncesEachStep();
    void specialValueStandsForTheMinimum();

    void revertOfAChangedValueCommitsOnce();
    void revertOfAnUnchangedValueIsSilent();
    void revertAfterAClampStaysSilent();
    void changeBeforeAnyRevertCommitsOnce();
    void changeAfterARevertCommitsTwice();
    void revertsDoNotPileUpCommits();
    void rangeCountsAsARevert();
    void typingAfterARevertChangesOnceAndCommitsTwice();
    void typingOutOfRangeIsNotTaken();
    void arrowsOfTheBoxStep();
    void commitsCanBeDisconnectedByText();

    void wheelScrollsThePageInstead();
    void readOnlyNumberCannotBeTyped();
    void disabledBoxCannotBeUsed();
    void otherOperationsDoNothing();
    void brokenSlotDoesNothing_data() { addBrokenSlotRows(); }
    void brokenSlotDoesNothing();
};

namespace {

constexpr char key[] = "PT_MAX_CARD_COUNT";

ScrollIgnoringSpinBox *spinBox(const DBParamWidget &editor)
{
    return qobject_cast<ScrollIgnoringSpinBox *>(editor.centralWidget());
}

bool show(DBParamWidget &editor)
{
    editor.setKey(key);
    editor.show();
    return QTest::qWaitForWindowExposed(&editor);
}

bool disconnectCommit(const DBParamWidget &editor, const char *signal)
{
    return QObject::disconnect(spinBox(editor), signal, &editor, SIGNAL(commitData()));
}
} // namespace

void TestDBSpinBoxWidget::freshEditor()
{
    QWidget page;
    const Bared<DBSpinBoxWidget> editor(&page);
    QCOMPARE(editor.parentWidget(), &page);
    QCOMPARE(editor.centralWidget()->metaObject()->className(), "ScrollIgnoringSpinBox");
    QCOMPARE(spinBox(editor)->minimum(), 0);
    QCOMPARE(spinBox(editor)->maximum(), 99);
    QCOMPARE(described(editor.value()), QString("int 0"));
    QVERIFY(!editor.storedValue().isValid());
}

void TestDBSpinBoxWidget::captionIsOnTheFrame()
{
    DBSpinBoxWidget editor(nullptr);
    QVERIFY(editor.canChangeLabelPosition());
    editor.setName("Количество");
    QCOMPARE(editor.findChild<QLabel *>("leftLabel")->text(), QString("Количество"));
    QVERIFY(!editor.findChild<QLabel *>("leftLabel")->isHidden());
}

void TestDBSpinBoxWidget::setValueShowsTheNumber_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("number") << QVariant(25) << "int 25";
    QTest::newRow("unsigned number") << QVariant(25u) << "int 25";
    QTest::newRow("text") << QVariant("25") << "int 25";
    QTest::newRow("negative text") << QVariant("-25") << "int -25";
    QTest::newRow("fraction rounds") << QVariant(8.5) << "int 9";
    QTest::newRow("text of a fraction is 0") << QVariant("8.5") << "int 0";
    QTest::newRow("truth is 1") << QVariant(true) << "int 1";
    QTest::newRow("text of a truth is 0") << QVariant("true") << "int 0";
    QTest::newRow("any text is 0") << QVariant("abc") << "int 0";
    QTest::newRow("empty text is 0") << QVariant("") << "int 0";
    QTest::newRow("invalid is 0") << QVariant() << "int 0";
    QTest::newRow("at the maximum") << QVariant(1000) << "int 1000";
    QTest::newRow("above the maximum") << QVariant(1001) << "int 1000";
    QTest::newRow("at the minimum") << QVariant(-50) << "int -50";
    QTest::newRow("below the minimum") << QVariant("-51") << "int -50";
    QTest::newRow("highest number") << QVariant(INT_MAX) << "int 1000";
    QTest::newRow("text beyond an int wraps") << QVariant("2147483648") << "int -50";
    QTest::newRow("text beyond any number is 0") << QVariant("99999999999999999999") << "int 0";
    QTest::newRow("number beyond an int wraps") << QVariant(Q_INT64_C(4294967303)) << "int 7";
}

void TestDBSpinBoxWidget::setValueShowsTheNumber()
{
    QFETCH(QVariant, value);
    Bared<DBSpinBoxWidget> editor(nullptr);
    editor.setParamRange({-50, 1000});
    spinBox(editor)->setValue(500);
    editor.setValue(value);
    QTEST(described(editor.value()), "shown");
    QCOMPARE(described(editor.storedValue()), described(value));
}

void TestDBSpinBoxWidget::setValueShowsBeforeItStores()
{
    Bared<DBSpinBoxWidget> editor(nullptr);
    editor.setValue(5);
    QString storedMeanwhile;
    connect(&editor, &DBParamWidget::paramChanged, this, [&] { storedMeanwhile = described(editor.storedValue()); });
    editor.setValue(6);
    QCOMPARE(storedMeanwhile, QString("int 5"));
    QCOMPARE(described(editor.storedValue()), QString("int 6"));
}

void TestDBSpinBoxWidget::setValueOfAFreshEditorCommitsOnce()
{
    DBSpinBoxWidget editor(nullptr);
    editor.setKey(key);
    HeardSignals heard(editor);
    editor.setValue("7");
    QCOMPARE(heard.take(), QStringList({"commit", "PT_MAX_CARD_COUNT: int 7"}));
}

void TestDBSpinBoxWidget::sameNumberIsStoredSilently()
{
    Bared<DBSpinBoxWidget> editor(nullptr);
    editor.setValue(7);
    HeardSignals heard(editor);
    editor.setValue("7");
    QCOMPARE(heard.take(), QStringList());
    QCOMPARE(described(editor.storedValue()), QString("QString 7"));
}

void TestDBSpinBoxWidget::range_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::newRow("bounded") << 1 << 20 << 1 << 20;
    QTest::newRow("no upper bound") << 0 << INT_MAX << 0 << INT_MAX;
    QTest::newRow("negative") << -5 << -1 << -5 << -1;
    QTest::newRow("whole range of an int") << INT_MIN << INT_MAX << INT_MIN << INT_MAX;
    QTest::newRow("one number") << 0 << 0 << 0 << 0;
    QTest::newRow("the wrong way round") << 10 << 0 << 10 << 10;
}

void TestDBSpinBoxWidget::range()
{
    QFETCH(int, from);
    QFETCH(int, to);
    DBSpinBoxWidget editor(nullptr);
    static_cast<DBParamWidget &>(editor).setParamRange({from, to});
    QTEST(spinBox(editor)->minimum(), "minimum");
    QTEST(spinBox(editor)->maximum(), "maximum");
}

void TestDBSpinBoxWidget::rangeClampsTheStoredValue()
{
    Bared<DBSpinBoxWidget> editor(nullptr);
    editor.setValue(25);
    editor.setParamRange({0, 10});
    QCOMPARE(described(editor.value()), QString("int 10"));
    QCOMPARE(described(editor.storedValue()), QString("int 25"));
}

void TestDBSpinBoxWidget::rangeAppliesAClampedValueAgain()
{
    Bared<DBSpinBoxWidget> editor(nullptr);
    editor.setValue("500");
    QCOMPARE(described(editor.value()), QString("int 99"));
    editor.setParamRange({0, 1000});
    QCOMPARE(described(editor.value()), QString("int 500"));
    QCOMPARE(described(editor.storedValue()), QString("QString 500"));
}

void TestDBSpinBoxWidget::rangeAnnouncesEachStep()
{
    DBSpinBoxWidget editor(nullptr);
    editor.setKey(key);
    editor.setValue(25);
    spinBox(editor)->setValue(50);
    HeardSignals heard(editor);
    editor.setParamRange({0, 30});
    QCOMPARE(heard.take(), QStringList({"commit", "PT_MAX_CARD_COUNT: int 30", "commit", "PT_MAX_CARD_COUNT: int 25"}));
}

void TestDBSpinBoxWidget::specialValueStandsForTheMinimum()
{
    DBSpinBoxWidget editor(nullptr);
    editor.setParamRange({3, 10});
    HeardSignals heard(editor);
    static_cast<DBParamWidget &>(editor).setSpecialValue("Не ограничено");
    QCOMPARE(heard.take(), QStringList());
    QCOMPARE(spinBox(editor)->specialValueText(), QString("Не ограничено"));
    QCOMPARE(spinBox(editor)->text(), QString("Не ограничено"));
    QCOMPARE(described(editor.value()), QString("int 3"));
    editor.setValue(4);
    QCOMPARE(spinBox(editor)->text(), QString("4"));
}

void TestDBSpinBoxWidget::revertOfAChangedValueCommitsOnce()
{
    DBSpinBoxWidget editor(nullptr);
    editor.setKey(key);
    editor.setValue(7);
    for (int round = 0; round < 3; ++round) {
        spinBox(editor)->setValue(9);
        HeardSignals heard(editor);
        editor.setDefaultValue();
        QCOMPARE(heard.take(), QStringList({"commit", "PT_MAX_CARD_COUNT: int 7"}));
    }
}

void TestDBSpinBoxWidget::revertOfAnUnchangedValueIsSilent()
{
    DBSpinBoxWidget editor(nullptr);
    editor.setValue(7);
    HeardSignals heard(editor);
    QVERIFY(QMetaObject::invokeMethod(&editor, "setDefaultValue"));
    QCOMPARE(heard.take(), QStringList());
}

void TestDBSpinBoxWidget::revertAfterAClampStaysSilent()
{
    Bared<DBSpinBoxWidget> editor(nullptr);
    editor.setValue(25);
    editor.setParamRange({0, 10});
    HeardSignals heard(editor);
    editor.setDefaultValue();
    QCOMPARE(heard.take(), QStringList());
    QCOMPARE(described(editor.storedValue()), QString("int 25"));
}

void TestDBSpinBoxWidget::changeBeforeAnyRevertCommitsOnce()
{
    DBSpinBoxWidget editor(nullptr);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    QTest::keyClick(spinBox(editor), Qt::Key_Up);
    QCOMPARE(heard.take(), QStringList({"commit", "PT_MAX_CARD_COUNT: int 1"}));
}

void TestDBSpinBoxWidget::changeAfterARevertCommitsTwice()
{
    DBSpinBoxWidget editor(nullptr);
    QVERIFY(show(editor));
    editor.setDefaultValue();
    HeardSignals heard(editor);
    QTest::keyClick(spinBox(editor), Qt::Key_Up);
    QCOMPARE(heard.take(), QStringList({"commit", "PT_MAX_CARD_COUNT: int 1", "commit"}));
    editor.setValue(5);
    QCOMPARE(heard.take(), QStringList({"commit", "PT_MAX_CARD_COUNT: int 5", "commit"}));
}

void TestDBSpinBoxWidget::revertsDoNotPileUpCommits()
{
    DBSpinBoxWidget editor(nullptr);
    QVERIFY(show(editor));
    editor.setDefaultValue();
    static_cast<DBParamWidget &>(editor).setDefaultValue();
    editor.setDefaultValue();
    HeardSignals heard(editor);
    QTest::keyClick(spinBox(editor), Qt::Key_Up);
    QCOMPARE(heard.take(), QStringList({"commit", "PT_MAX_CARD_COUNT: int 1", "commit"}));
}

void TestDBSpinBoxWidget::rangeCountsAsARevert()
{
    DBSpinBoxWidget editor(nullptr);
    QVERIFY(show(editor));
    editor.setParamRange({0, 10});
    HeardSignals heard(editor);
    QTest::keyClick(spinBox(editor), Qt::Key_Up);
    QCOMPARE(heard.take(), QStringList({"commit", "PT_MAX_CARD_COUNT: int 1", "commit"}));
}

void TestDBSpinBoxWidget::typingAfterARevertChangesOnceAndCommitsTwice()
{
    Bared<DBSpinBoxWidget> editor(nullptr);
    editor.setValue("25");
    editor.setParamRange({1, 20});
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    spinBox(editor)->selectAll();
    QTest::keyClicks(spinBox(editor), "7");
    QCOMPARE(heard.take(), QStringList({"commit", "PT_MAX_CARD_COUNT: int 7", "commit"}));
    QCOMPARE(described(editor.value()), QString("int 7"));
    QCOMPARE(described(editor.storedValue()), QString("QString 25"));
}

void TestDBSpinBoxWidget::typingOutOfRangeIsNotTaken()
{
    DBSpinBoxWidget editor(nullptr);
    editor.setParamRange({0, 20});
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    spinBox(editor)->selectAll();
    QTest::keyClicks(spinBox(editor), "99");
    QCOMPARE(described(editor.value()), QString("int 9"));
    QCOMPARE(heard.take(), QStringList({"commit", "PT_MAX_CARD_COUNT: int 9", "commit"}));
}

void TestDBSpinBoxWidget::arrowsOfTheBoxStep()
{
    DBSpinBoxWidget editor(nullptr);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    QStyleOptionSpinBox option;
    option.initFrom(spinBox(editor));
    option.subControls = QStyle::SC_All;
    const QRect up =
        spinBox(editor)->style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, spinBox(editor));
    QTest::mouseClick(spinBox(editor), Qt::LeftButton, Qt::NoModifier, up.center());
    QCOMPARE(heard.take(), QStringList({"commit", "PT_MAX_CARD_COUNT: int 1"}));
}

void TestDBSpinBoxWidget::commitsCanBeDisconnectedByText()
{
    DBSpinBoxWidget editor(nullptr);
    QVERIFY(show(editor));
    QVERIFY(!disconnectCommit(editor, SIGNAL(valueChanged(int))));
    editor.setDefaultValue();
    QVERIFY(disconnectCommit(editor, SIGNAL(valueChanged(int))));
    HeardSignals heard(editor);
    QTest::keyClick(spinBox(editor), Qt::Key_Up);
    QCOMPARE(heard.take(), QStringList({"commit", "PT_MAX_CARD_COUNT: int 1"}));

    QVERIFY(disconnectCommit(editor, qtcompat::spinBoxTextSignal()));
    QTest::keyClick(spinBox(editor), Qt::Key_Up);
    QCOMPARE(heard.take(), QStringList("PT_MAX_CARD_COUNT: int 2"));
    QVERIFY(!disconnectCommit(editor, SIGNAL(valueChanged(int))));
    QVERIFY(!disconnectCommit(editor, qtcompat::spinBoxTextSignal()));
}

void TestDBSpinBoxWidget::wheelScrollsThePageInstead()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    auto *editor = new DBSpinBoxWidget(nullptr);
    layout->addWidget(editor);
    layout->addSpacing(2000);
    editor->setValue(50);
    QScrollArea area;
    area.setWidget(page);
    area.setWidgetResizable(true);
    area.resize(300, 200);
    area.show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));
    HeardSignals heard(*editor);

    turnWheelDown(spinBox(*editor));
    QCOMPARE(described(editor->value()), QString("int 50"));
    QCOMPARE(heard.take(), QStringList());
    QVERIFY(area.verticalScrollBar()->value() > 0);
}

void TestDBSpinBoxWidget::readOnlyNumberCannotBeTyped()
{
    DBSpinBoxWidget editor(nullptr);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    static_cast<DBParamWidget &>(editor).setReadOnly(true);
    QVERIFY(editor.isReadOnly());
    QVERIFY(spinBox(editor)->isReadOnly());
    QVERIFY(spinBox(editor)->isEnabled());
    QTest::keyClick(spinBox(editor), Qt::Key_Up);
    QTest::keyClicks(spinBox(editor), "5");
    QCOMPARE(heard.take(), QStringList());

    editor.setReadOnly(false);
    QVERIFY(!editor.isReadOnly());
    QTest::keyClick(spinBox(editor), Qt::Key_Up);
    QCOMPARE(described(editor.value()), QString("int 1"));
}

void TestDBSpinBoxWidget::disabledBoxCannotBeUsed()
{
    DBSpinBoxWidget editor(nullptr);
    QVERIFY(show(editor));
    static_cast<DBParamWidget &>(editor).setEnabled(false);
    QVERIFY(!editor.isEnabled());
    QVERIFY(!spinBox(editor)->isEnabled());
    QVERIFY(!spinBox(editor)->isReadOnly());
    QVERIFY(editor.QWidget::isEnabled());
    QTest::keyClick(spinBox(editor), Qt::Key_Up);
    QCOMPARE(described(editor.value()), QString("int 0"));

    editor.setEnabled(true);
    QVERIFY(editor.isEnabled());
    QVERIFY(spinBox(editor)->isEnabled());
}

void TestDBSpinBoxWidget::otherOperationsDoNothing()
{
    DBSpinBoxWidget editor(nullptr);
    editor.setValue(7);
    HeardSignals heard(editor);
    editor.inverted = true;
    editor.setParamValues({{1, "one"}});
    QCOMPARE(described(editor.value()), QString("int 7"));
    QCOMPARE(heard.take(), QStringList());
}

void TestDBSpinBoxWidget::brokenSlotDoesNothing()
{
    QFETCH(BrokenSlot, brokenSlot);
    Bared<DBSpinBoxWidget> editor(nullptr);
    editor.setValue(7);
    auto *input = static_cast<QSpinBox *>(breakSlot<QSpinBox>(editor, brokenSlot));
    const int number = input ? input->value() : 0;
    HeardSignals heard(editor);

    editor.setValue(8);
    QCOMPARE(described(editor.storedValue()), QString("int 7"));
    QVERIFY(!editor.value().isValid());
    editor.setParamRange({20, 30});
    editor.setSpecialValue("special");
    editor.setDefaultValue();
    editor.setReadOnly(true);
    QVERIFY(editor.isReadOnly());
    editor.setEnabled(false);
    QVERIFY(!editor.isEnabled());

    QCOMPARE(heard.take(), QStringList());
    if (input) {
        QVERIFY(input->isEnabled());
        QVERIFY(!input->isReadOnly());
        QCOMPARE(input->value(), number);
        QCOMPARE(input->maximum(), 99);
        QCOMPARE(input->specialValueText(), QString(""));
    }
}

QTEST_MAIN(TestDBSpinBoxWidget)
#include "tst_dbspinboxwidget.moc"
