#include <vxsettings/dbcomboboxwidget.h>

#include "editorprobe.h"
#include "messages.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QVBoxLayout>

using Choices = std::map<unsigned int, QString>;
Q_DECLARE_METATYPE(Choices)

class TestDBComboBoxWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void metaObjectAddsOnlyTheName() { compareMetaObject(DBComboBoxWidget::staticMetaObject, "DBComboBoxWidget"); }
    void freshEditor();
    void captionIsOnTheFrame();

    void itemsComeInTheOrderOfTheirNumbers();
    void fillingReplacesTheItems();
    void emptyMapLeavesNoItem();
    void fillingAnnouncesEachStep();
    void fillingAgainAnnouncesTheEmptyBox();
    void fillingWithNothingAnnouncesTheEmptyBox();
    void fillingStartsFromTheStoredValue();

    void setValueSelects_data();
    void setValueSelects();
    void setValueSelectsTheFirstOfEqualNumbers();
    void setValueStoresBeforeItSelects();
    void setValueAnnouncesTheNumber();
    void freshEditorNeverCommits();
    void choiceAfterFillingCommitsTwice();
    void choiceAfterARevertCommitsOnce();
    void refillingDoesNotPileUpCommits();
    void revertAnnouncesWithoutACommit();
    void revertOfAnUnknownValueKeepsTheChoice();
    void commitCanBeDisconnectedByText();

    void choiceInThePopupWithKeys();
    void choiceInThePopupWithTheMouse();
    void wheelScrollsThePageInstead_data();
    void wheelScrollsThePageInstead();
    void filterConsumesOnlyTheWheel_data();
    void filterConsumesOnlyTheWheel();
    void filterConsumesOnlyForTheCentralWidget();

    void disabledBoxCannotBeUsed();
    void readOnlyIsOnlyAFlag();
    void otherOperationsDoNothing();
    void brokenSlotDoesNothing_data() { addBrokenSlotRows(); }
    void brokenSlotDoesNothing();
    void renamedBoxStillAnnouncesItsChoice();
};

namespace {

constexpr char key[] = "PT_CARD_VIEW_FORMAT";
const Choices oneThreeSeven = {{7, "seven"}, {1, "one"}, {3, "three"}};

QComboBox *comboBox(const DBParamWidget &editor)
{
    return qobject_cast<QComboBox *>(editor.centralWidget());
}

QStringList items(const DBParamWidget &editor)
{
    QStringList items;
    for (int index = 0; index < comboBox(editor)->count(); ++index)
        items << described(comboBox(editor)->itemData(index)) + " " + comboBox(editor)->itemText(index);
    return items;
}

bool show(DBParamWidget &editor)
{
    editor.setKey(key);
    editor.show();
    return QTest::qWaitForWindowExposed(&editor);
}

/// A page much higher than its scroll area, the editor at its top.
struct ScrolledPage
{
    ScrolledPage()
    {
        auto *page = new QWidget;
        auto *layout = new QVBoxLayout(page);
        layout->addWidget(editor);
        layout->addSpacing(2000);
        area.setWidget(page);
        area.setWidgetResizable(true);
        area.resize(300, 200);
        area.show();
    }

    QScrollArea area;
    DBComboBoxWidget *editor = new DBComboBoxWidget(nullptr);
};
} // namespace

void TestDBComboBoxWidget::freshEditor()
{
    QWidget page;
    const Bared<DBComboBoxWidget> editor(&page);
    QCOMPARE(editor.parentWidget(), &page);
    QCOMPARE(editor.centralWidget()->metaObject()->className(), "QComboBox");
    QVERIFY(!comboBox(editor)->isEditable());
    QCOMPARE(comboBox(editor)->count(), 0);
    QVERIFY(!editor.value().isValid());
    QVERIFY(!editor.storedValue().isValid());
}

void TestDBComboBoxWidget::captionIsOnTheFrame()
{
    DBComboBoxWidget editor(nullptr);
    QVERIFY(editor.canChangeLabelPosition());
    editor.setName("Формат");
    QCOMPARE(editor.findChild<QLabel *>("leftLabel")->text(), QString("Формат"));
    QVERIFY(!editor.findChild<QLabel *>("leftLabel")->isHidden());
}

void TestDBComboBoxWidget::itemsComeInTheOrderOfTheirNumbers()
{
    DBComboBoxWidget editor(nullptr);
    static_cast<DBParamWidget &>(editor).setParamValues({{10, "ten"}, {2, "two"}, {4294967295, "highest"}, {0, ""}});
    QCOMPARE(items(editor), QStringList({"uint 0 ", "uint 2 two", "uint 10 ten", "uint 4294967295 highest"}));
    for (int index = 0; index < 4; ++index)
        QVERIFY(comboBox(editor)->itemIcon(index).isNull());
}

void TestDBComboBoxWidget::fillingReplacesTheItems()
{
    DBComboBoxWidget editor(nullptr);
    editor.setParamValues(oneThreeSeven);
    editor.setParamValues({{4, "four"}});
    QCOMPARE(items(editor), QStringList("uint 4 four"));
    QCOMPARE(described(editor.value()), QString("uint 4"));
}

void TestDBComboBoxWidget::emptyMapLeavesNoItem()
{
    DBComboBoxWidget editor(nullptr);
    HeardSignals heard(editor);
    editor.setParamValues({});
    QCOMPARE(comboBox(editor)->count(), 0);
    QVERIFY(!editor.value().isValid());
    QCOMPARE(heard.take(), QStringList());
}

void TestDBComboBoxWidget::fillingAnnouncesEachStep()
{
    DBComboBoxWidget editor(nullptr);
    editor.setKey(key);
    editor.setValue("3");
    HeardSignals heard(editor);
    editor.setParamValues(oneThreeSeven);
    QCOMPARE(heard.take(), QStringList({"PT_CARD_VIEW_FORMAT: uint 1", "PT_CARD_VIEW_FORMAT: uint 3"}));
}

void TestDBComboBoxWidget::fillingAgainAnnouncesTheEmptyBox()
{
    DBComboBoxWidget editor(nullptr);
    editor.setKey(key);
    editor.setValue("3");
    editor.setParamValues(oneThreeSeven);
    HeardSignals heard(editor);
    editor.setParamValues(oneThreeSeven);
    QCOMPARE(heard.take(), QStringList({"PT_CARD_VIEW_FORMAT: invalid", "PT_CARD_VIEW_FORMAT: uint 1",
                                        "PT_CARD_VIEW_FORMAT: uint 3"}));
}

void TestDBComboBoxWidget::fillingWithNothingAnnouncesTheEmptyBox()
{
    DBComboBoxWidget editor(nullptr);
    editor.setKey(key);
    editor.setParamValues(oneThreeSeven);
    HeardSignals heard(editor);
    editor.setParamValues({});
    QCOMPARE(heard.take(), QStringList("PT_CARD_VIEW_FORMAT: invalid"));
    QVERIFY(!editor.value().isValid());
}

void TestDBComboBoxWidget::fillingStartsFromTheStoredValue()
{
    Bared<DBComboBoxWidget> editor(nullptr);
    editor.setParamValues(oneThreeSeven);
    editor.setValue("7");
    comboBox(editor)->setCurrentIndex(0);
    editor.setParamValues({{1, "one"}, {7, "seven"}});
    QCOMPARE(described(editor.value()), QString("uint 7"));
    QCOMPARE(described(editor.storedValue()), QString("QString 7"));
}

void TestDBComboBoxWidget::setValueSelects_data()
{
    QTest::addColumn<Choices>("choices");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("selected");

    const QString previous = "uint 2";
    const Choices plain = {{0, "zero"}, {1, "one"}, {2, "two"}, {3, "three"}};
    const Choices withoutZero = {{1, "one"}, {2, "two"}, {4294967295, "highest"}};
    QTest::newRow("signed number") << plain << QVariant(3) << "uint 3";
    QTest::newRow("unsigned number") << plain << QVariant(3u) << "uint 3";
    QTest::newRow("text") << plain << QVariant("3") << "uint 3";
    QTest::newRow("fraction rounds") << plain << QVariant(2.6) << "uint 3";
    QTest::newRow("text of a fraction is 0") << plain << QVariant("2.6") << "uint 0";
    QTest::newRow("truth is 1") << plain << QVariant(true) << "uint 1";
    QTest::newRow("text of a truth is 0") << plain << QVariant("true") << "uint 0";
    QTest::newRow("any text is 0") << plain << QVariant("abc") << "uint 0";
    QTest::newRow("empty text is 0") << plain << QVariant("") << "uint 0";
    QTest::newRow("invalid is 0") << plain << QVariant() << "uint 0";
    QTest::newRow("any text without 0") << withoutZero << QVariant("abc") << previous;
    QTest::newRow("invalid without 0") << withoutZero << QVariant() << previous;
    QTest::newRow("unknown number") << plain << QVariant(4) << previous;
    QTest::newRow("unknown text") << plain << QVariant("4") << previous;
    QTest::newRow("negative number") << plain << QVariant(-1) << previous;
    QTest::newRow("highest number") << withoutZero << QVariant(4294967295u) << "uint 4294967295";
    QTest::newRow("highest number is -1 as well") << withoutZero << QVariant(-1) << "uint 4294967295";
    QTest::newRow("text beyond an int wraps") << withoutZero << QVariant("4294967295") << "uint 4294967295";
    QTest::newRow("text beyond any number is 0") << plain << QVariant("99999999999999999999") << "uint 0";
}

void TestDBComboBoxWidget::setValueSelects()
{
    QFETCH(Choices, choices);
    QFETCH(QVariant, value);
    Bared<DBComboBoxWidget> editor(nullptr);
    editor.setParamValues(choices);
    editor.setValue(2);

    editor.setValue(value);
    QTEST(described(editor.value()), "selected");
    QCOMPARE(described(editor.storedValue()), described(value));
}

void TestDBComboBoxWidget::setValueSelectsTheFirstOfEqualNumbers()
{
    DBComboBoxWidget editor(nullptr);
    comboBox(editor)->addItem("zero", 0);
    comboBox(editor)->addItem("three as a text", "3");
    comboBox(editor)->addItem("three", 3);
    editor.setValue(3);
    QCOMPARE(comboBox(editor)->currentIndex(), 1);
    QCOMPARE(described(editor.value()), QString("QString 3"));
}

void TestDBComboBoxWidget::setValueStoresBeforeItSelects()
{
    Bared<DBComboBoxWidget> editor(nullptr);
    editor.setParamValues(oneThreeSeven);
    QString storedMeanwhile;
    connect(&editor, &DBParamWidget::paramChanged, this, [&] { storedMeanwhile = described(editor.storedValue()); });
    editor.setValue("7");
    QCOMPARE(storedMeanwhile, QString("QString 7"));
}

void TestDBComboBoxWidget::setValueAnnouncesTheNumber()
{
    DBComboBoxWidget editor(nullptr);
    editor.setKey(key);
    editor.setParamValues(oneThreeSeven);
    editor.setDefaultValue();
    HeardSignals heard(editor);
    editor.setValue("7");
    QCOMPARE(heard.take(), QStringList({"PT_CARD_VIEW_FORMAT: uint 7", "commit"}));
    editor.setValue(7);
    QCOMPARE(heard.take(), QStringList());
}

void TestDBComboBoxWidget::freshEditorNeverCommits()
{
    DBComboBoxWidget editor(nullptr);
    editor.setKey(key);
    HeardSignals heard(editor);
    comboBox(editor)->addItem("zero", 0);
    comboBox(editor)->addItem("one", 1);
    comboBox(editor)->setCurrentIndex(1);
    QCOMPARE(heard.take(), QStringList({"PT_CARD_VIEW_FORMAT: int 0", "PT_CARD_VIEW_FORMAT: int 1"}));
    QVERIFY(!disconnect(comboBox(editor), SIGNAL(currentIndexChanged(int)), &editor, SIGNAL(commitData())));
}

void TestDBComboBoxWidget::choiceAfterFillingCommitsTwice()
{
    DBComboBoxWidget editor(nullptr);
    editor.setParamValues(oneThreeSeven);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    QTest::keyClick(comboBox(editor), Qt::Key_Down);
    QCOMPARE(heard.take(), QStringList({"PT_CARD_VIEW_FORMAT: uint 3", "commit", "commit"}));
    QTest::keyClick(comboBox(editor), Qt::Key_End);
    QCOMPARE(heard.take(), QStringList({"PT_CARD_VIEW_FORMAT: uint 7", "commit", "commit"}));
}

void TestDBComboBoxWidget::choiceAfterARevertCommitsOnce()
{
    DBComboBoxWidget editor(nullptr);
    editor.setParamValues(oneThreeSeven);
    QVERIFY(show(editor));
    editor.setDefaultValue();
    editor.setDefaultValue();
    HeardSignals heard(editor);
    QTest::keyClick(comboBox(editor), Qt::Key_Down);
    QCOMPARE(heard.take(), QStringList({"PT_CARD_VIEW_FORMAT: uint 3", "commit"}));
}

void TestDBComboBoxWidget::refillingDoesNotPileUpCommits()
{
    DBComboBoxWidget editor(nullptr);
    editor.setParamValues(oneThreeSeven);
    editor.setParamValues(oneThreeSeven);
    editor.setParamValues(oneThreeSeven);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    QTest::keyClick(comboBox(editor), Qt::Key_Down);
    QCOMPARE(heard.take(), QStringList({"PT_CARD_VIEW_FORMAT: uint 3", "commit", "commit"}));
}

void TestDBComboBoxWidget::revertAnnouncesWithoutACommit()
{
    DBComboBoxWidget editor(nullptr);
    editor.setValue("3");
    editor.setParamValues(oneThreeSeven);
    QVERIFY(show(editor));
    QTest::keyClick(comboBox(editor), Qt::Key_Down);
    HeardSignals heard(editor);

    QVERIFY(QMetaObject::invokeMethod(&editor, "setDefaultValue"));
    QCOMPARE(heard.take(), QStringList("PT_CARD_VIEW_FORMAT: uint 3"));
    QCOMPARE(described(editor.value()), QString("uint 3"));
}

void TestDBComboBoxWidget::revertOfAnUnknownValueKeepsTheChoice()
{
    Bared<DBComboBoxWidget> editor(nullptr);
    editor.setParamValues(oneThreeSeven);
    editor.setValue("5");
    comboBox(editor)->setCurrentIndex(2);
    HeardSignals heard(editor);
    editor.setDefaultValue();
    QCOMPARE(heard.take(), QStringList());
    QCOMPARE(described(editor.value()), QString("uint 7"));
    QCOMPARE(described(editor.storedValue()), QString("QString 5"));
}

void TestDBComboBoxWidget::commitCanBeDisconnectedByText()
{
    DBComboBoxWidget editor(nullptr);
    editor.setParamValues(oneThreeSeven);
    QVERIFY(show(editor));
    QVERIFY(disconnect(comboBox(editor), SIGNAL(currentIndexChanged(int)), &editor, SIGNAL(commitData())));
    HeardSignals heard(editor);
    QTest::keyClick(comboBox(editor), Qt::Key_Down);
    QCOMPARE(heard.take(), QStringList("PT_CARD_VIEW_FORMAT: uint 3"));
    QVERIFY(!disconnect(comboBox(editor), SIGNAL(currentIndexChanged(int)), &editor, SIGNAL(commitData())));
}

void TestDBComboBoxWidget::choiceInThePopupWithKeys()
{
    DBComboBoxWidget editor(nullptr);
    editor.setParamValues(oneThreeSeven);
    editor.setDefaultValue();
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    QTest::keyClick(comboBox(editor), Qt::Key_F4);
    QAbstractItemView *popup = comboBox(editor)->view();
    QTRY_VERIFY(popup->isVisible());
    QTest::keyClick(popup, Qt::Key_Down);
    QTest::keyClick(popup, Qt::Key_Down);
    QCOMPARE(heard.take(), QStringList());

    QTest::keyClick(popup, Qt::Key_Return);
    QCOMPARE(heard.take(), QStringList({"PT_CARD_VIEW_FORMAT: uint 7", "commit"}));
    QTRY_VERIFY(!popup->isVisible());
}

void TestDBComboBoxWidget::choiceInThePopupWithTheMouse()
{
    DBComboBoxWidget editor(nullptr);
    editor.setParamValues(oneThreeSeven);
    editor.setDefaultValue();
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    // The popup takes a release shortly after its opening for the second half of a double click.
    const int doubleClickInterval = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(0);
    QTest::mouseClick(comboBox(editor), Qt::LeftButton);
    QAbstractItemView *popup = comboBox(editor)->view();
    QTRY_VERIFY(popup->isVisible());

    const QRect row = popup->visualRect(popup->model()->index(1, 0)) & popup->viewport()->rect();
    const QPoint three = row.center();
    QTest::mouseMove(popup->viewport(), three);
    QTest::mouseClick(popup->viewport(), Qt::LeftButton, Qt::NoModifier, three);
    QApplication::setDoubleClickInterval(doubleClickInterval);
    QCOMPARE(heard.take(), QStringList({"PT_CARD_VIEW_FORMAT: uint 3", "commit"}));
}

void TestDBComboBoxWidget::wheelScrollsThePageInstead_data()
{
    QTest::addColumn<bool>("focused");
    QTest::newRow("without focus") << false;
    QTest::newRow("with focus") << true;
}

void TestDBComboBoxWidget::wheelScrollsThePageInstead()
{
    QFETCH(bool, focused);
    ScrolledPage page;
    page.editor->setParamValues(oneThreeSeven);
    page.area.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page.area));
    if (focused)
        comboBox(*page.editor)->setFocus();
    else
        page.area.setFocus();
    QCOMPARE(comboBox(*page.editor)->hasFocus(), focused);
    HeardSignals heard(*page.editor);

    turnWheelDown(comboBox(*page.editor));
    QCOMPARE(comboBox(*page.editor)->currentIndex(), 0);
    QCOMPARE(heard.take(), QStringList());
    QVERIFY(page.area.verticalScrollBar()->value() > 0);
}

void TestDBComboBoxWidget::filterConsumesOnlyTheWheel_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("consumed");
    QTest::newRow("wheel") << int(QEvent::Wheel) << true;
    QTest::newRow("key") << int(QEvent::KeyPress) << false;
    QTest::newRow("press") << int(QEvent::MouseButtonPress) << false;
    QTest::newRow("focus") << int(QEvent::FocusIn) << false;
    QTest::newRow("user's own") << int(QEvent::User) << false;
}

void TestDBComboBoxWidget::filterConsumesOnlyTheWheel()
{
    QFETCH(int, type);
    DBComboBoxWidget editor(nullptr);
    QEvent event{QEvent::Type(type)};
    QTEST(static_cast<QObject &>(editor).eventFilter(editor.centralWidget(), &event), "consumed");
}

void TestDBComboBoxWidget::filterConsumesOnlyForTheCentralWidget()
{
    DBComboBoxWidget editor(nullptr);
    QWidget other;
    QEvent wheel(QEvent::Wheel);
    QVERIFY(!editor.eventFilter(&other, &wheel));
    QVERIFY(!editor.eventFilter(&editor, &wheel));

    QComboBox *renamed = comboBox(editor);
    renamed->setObjectName("renamed");
    QVERIFY(!editor.eventFilter(renamed, &wheel));
}

void TestDBComboBoxWidget::disabledBoxCannotBeUsed()
{
    DBComboBoxWidget editor(nullptr);
    editor.setParamValues(oneThreeSeven);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    static_cast<DBParamWidget &>(editor).setEnabled(false);
    QVERIFY(!editor.isEnabled());
    QVERIFY(!comboBox(editor)->isEnabled());
    QVERIFY(editor.QWidget::isEnabled());
    QTest::keyClick(comboBox(editor), Qt::Key_Down);
    QCOMPARE(heard.take(), QStringList());

    editor.setEnabled(true);
    QVERIFY(editor.isEnabled());
    QVERIFY(comboBox(editor)->isEnabled());
}

void TestDBComboBoxWidget::readOnlyIsOnlyAFlag()
{
    DBComboBoxWidget editor(nullptr);
    editor.setParamValues(oneThreeSeven);
    QVERIFY(show(editor));
    editor.setReadOnly(true);
    QVERIFY(editor.isReadOnly());
    QTest::keyClick(comboBox(editor), Qt::Key_Down);
    QCOMPARE(described(editor.value()), QString("uint 3"));
}

void TestDBComboBoxWidget::otherOperationsDoNothing()
{
    DBComboBoxWidget editor(nullptr);
    editor.setParamValues(oneThreeSeven);
    HeardSignals heard(editor);
    editor.inverted = true;
    editor.setParamRange({5, 6});
    editor.setSpecialValue("special");
    QCOMPARE(described(editor.value()), QString("uint 1"));
    QCOMPARE(items(editor), QStringList({"uint 1 one", "uint 3 three", "uint 7 seven"}));
    QCOMPARE(heard.take(), QStringList());
}

void TestDBComboBoxWidget::brokenSlotDoesNothing()
{
    QFETCH(BrokenSlot, brokenSlot);
    Bared<DBComboBoxWidget> editor(nullptr);
    editor.setParamValues(oneThreeSeven);
    editor.setValue("3");
    QWidget *input = breakSlot<QSpinBox>(editor, brokenSlot);
    HeardSignals heard(editor);

    editor.setValue("7");
    QCOMPARE(described(editor.storedValue()), QString("QString 3"));
    QVERIFY(!editor.value().isValid());
    editor.setParamValues({{9, "nine"}});
    editor.retranslate();
    editor.setDefaultValue();
    editor.setReadOnly(true);
    QVERIFY(editor.isReadOnly());
    editor.setEnabled(false);
    QVERIFY(!editor.isEnabled());

    QCOMPARE(heard.take(), QStringList());
    if (input)
        QVERIFY(input->isEnabled());
    if (const auto *renamed = qobject_cast<QComboBox *>(input)) {
        QCOMPARE(renamed->count(), 3);
        QCOMPARE(renamed->currentIndex(), 1);
        QCOMPARE(renamed->currentText(), oneThreeSeven.at(3));
    }
}

/// A choice knows its box without looking for it.
void TestDBComboBoxWidget::renamedBoxStillAnnouncesItsChoice()
{
    DBComboBoxWidget editor(nullptr);
    editor.setParamValues(oneThreeSeven);
    QVERIFY(show(editor));
    QComboBox *renamed = comboBox(editor);
    renamed->setObjectName("renamed");
    HeardSignals heard(editor);
    QTest::keyClick(renamed, Qt::Key_Down);
    QCOMPARE(heard.take(), QStringList({"PT_CARD_VIEW_FORMAT: uint 3", "commit", "commit"}));
}

QTEST_MAIN(TestDBComboBoxWidget)
#include "tst_dbcomboboxwidget.moc"
