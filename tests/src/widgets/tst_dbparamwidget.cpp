#include <vxsettings/dbparamwidget.h>

#include "editorprobe.h"
#include "messages.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTranslator>
#include <QVBoxLayout>

#include <climits>

class TestDBParamWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void metaObjectHasTheThreeMethods();
    void formHoldsItsMembersInOrder();
    void cells_data();
    void cells();
    void spacerFillsTheEndOfTheRow();
    void marginsAndSpacings();
    void membersKeepTheirSize_data();
    void membersKeepTheirSize();
    void labelsWrap_data();
    void labelsWrap();
    void nameAndSize();
    void formIsTranslatedTopToBottom();

    void freshFrame();
    void parentIsTaken();
    void dyingWithTheParent();

    void keyIsKept();
    void nameGoesToAllLabels();
    void nameStaysWhereTheLabelMoves();
    void valueIsWhatWasSet_data();
    void valueIsWhatWasSet();
    void operationsWithoutMeaningDoNothing();
    void flagsAreOnlyKept();
    void disablingTheWidgetItselfIsAnotherFlag();
    void defaultValueGoesThroughTheVirtualSetter();
    void defaultValueIsASlot();
    void signalsCanBeConnectedByText();

    void labelPosition_data();
    void labelPosition();
    void labelPositionOfAShownFrame_data() { labelPosition_data(); }
    void labelPositionOfAShownFrame();
    void labelPositionOfAFrameShownLater_data() { labelPosition_data(); }
    void labelPositionOfAFrameShownLater();
    void labelPositionOfAFrameShownAgain_data() { labelPosition_data(); }
    void labelPositionOfAFrameShownAgain();
    void labelPositionOutsideTheEnumeration_data();
    void labelPositionOutsideTheEnumeration();
    void labelsSwitchFromLeftToBottom_data();
    void labelsSwitchFromLeftToBottom();
    void hiddenLabelTakesNoRoom();

    void centralWidgetIsMissingAtFirst();
    void centralWidgetFillsThePlaceholder();
    void secondCentralWidgetGoesBelow();
    void centralWidgetIsFoundByName();
    void centralWidgetIsFoundAtAnyDepth();

    void aFormNamesTheParameter();
    void aFormNamesNoParameter_data();
    void aFormNamesNoParameter();
};

namespace {

const char *const labelNames[] = {"leftLabel", "topLabel", "rightLabel", "bottomLabel"};

QLabel *label(const QWidget &frame, const char *name)
{
    return frame.findChild<QLabel *>(name, Qt::FindDirectChildrenOnly);
}

QWidget *placeholder(const QWidget &frame)
{
    return frame.findChild<QWidget *>("centralWidget", Qt::FindDirectChildrenOnly);
}

/// Names of the labels that are not hidden, whether the frame is on screen or not.
QStringList labelsNotHidden(const QWidget &frame)
{
    QStringList names;
    for (const char *name : labelNames) {
        if (!label(frame, name)->isHidden())
            names << name;
    }
    return names;
}

/// Names of the labels that the user sees.
QStringList labelsSeen(const QWidget &frame)
{
    QStringList names;
    for (const char *name : labelNames) {
        if (label(frame, name)->isVisible() && !label(frame, name)->visibleRegion().isEmpty())
            names << name;
    }
    return names;
}

QStringList labelTexts(const QWidget &frame)
{
    QStringList texts;
    for (const char *name : labelNames)
        texts << label(frame, name)->text();
    return texts;
}

/// Numbers the texts of one context in the order in which they are asked for.
class NumberingTranslator : public QTranslator
{
public:
    QString translate(const char *context, const char *sourceText, const char *disambiguation, int) const override
    {
        if (qstrcmp(context, "DBParamWidget") != 0 || disambiguation)
            return {};
        return QStringLiteral("%1 %2").arg(sourceText).arg(++m_asked);
    }
    bool isEmpty() const override { return false; }

private:
    mutable int m_asked = 0;
};

/// Writes down which labels are shown and hidden, in order.
class VisibilityLog : public QObject
{
public:
    explicit VisibilityLog(const QWidget &frame)
    {
        for (const char *name : labelNames)
            label(frame, name)->installEventFilter(this);
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::ShowToParent)
            m_log << watched->objectName() + " shown";
        if (event->type() == QEvent::HideToParent)
            m_log << watched->objectName() + " hidden";
        return false;
    }
    const QStringList &log() const { return m_log; }

private:
    QStringList m_log;
};

/// Counts how often its setter runs.
class CountingFrame : public Bared<DBParamWidget>
{
public:
    using Bared::Bared;
    void setValue(const QVariant &value) override
    {
        received << described(value);
        DBParamWidget::setValue(value);
    }
    QStringList received;
};
} // namespace

void TestDBParamWidget::metaObjectHasTheThreeMethods()
{
    const QMetaObject &meta = DBParamWidget::staticMetaObject;
    QCOMPARE(meta.className(), "DBParamWidget");
    QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 3);

    const QMetaMethod commit = meta.method(meta.methodOffset());
    QCOMPARE(commit.methodSignature(), QByteArray("commitData()"));
    QCOMPARE(commit.methodType(), QMetaMethod::Signal);
    QCOMPARE(commit.access(), QMetaMethod::Public);
    QCOMPARE(commit.returnType(), int(QMetaType::Void));

    const QMetaMethod changed = meta.method(meta.methodOffset() + 1);
    QCOMPARE(changed.methodSignature(), QByteArray("paramChanged(QString,QVariant)"));
    QCOMPARE(changed.methodType(), QMetaMethod::Signal);
    QCOMPARE(changed.access(), QMetaMethod::Public);
    QCOMPARE(changed.returnType(), int(QMetaType::Void));
    QCOMPARE(changed.parameterNames(), QList<QByteArray>({"dbName", "value"}));

    const QMetaMethod revert = meta.method(meta.methodOffset() + 2);
    QCOMPARE(revert.methodSignature(), QByteArray("setDefaultValue()"));
    QCOMPARE(revert.methodType(), QMetaMethod::Slot);
    QCOMPARE(revert.access(), QMetaMethod::Public);
    QCOMPARE(revert.returnType(), int(QMetaType::Void));
}

void TestDBParamWidget::formHoldsItsMembersInOrder()
{
    const DBParamWidget frame(nullptr);
    QStringList members;
    for (const QObject *member : frame.children())
        members << member->metaObject()->className() + QString(" ") + member->objectName();

    QCOMPARE(members, QStringList({"QGridLayout gridLayout", "QLabel topLabel", "QWidget centralWidget",
                                   "QLabel leftLabel", "QLabel rightLabel", "QLabel bottomLabel"}));
    QCOMPARE(frame.layout()->objectName(), QString("gridLayout"));
    QVERIFY(placeholder(frame)->children().isEmpty());
}

void TestDBParamWidget::cells_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");

    QTest::newRow("label above") << 0 << "topLabel" << 0 << 1;
    QTest::newRow("placeholder") << 1 << "centralWidget" << 1 << 1;
    QTest::newRow("label on the left") << 2 << "leftLabel" << 1 << 0;
    QTest::newRow("label on the right") << 3 << "rightLabel" << 1 << 2;
    QTest::newRow("label below") << 4 << "bottomLabel" << 2 << 1;
    QTest::newRow("spacer") << 5 << "" << 1 << 3;
}

void TestDBParamWidget::cells()
{
    QFETCH(int, item);
    const DBParamWidget frame(nullptr);
    auto *grid = qobject_cast<QGridLayout *>(frame.layout());
    QVERIFY(grid);
    QCOMPARE(grid->count(), 6);

    int row, column, rowSpan, columnSpan;
    grid->getItemPosition(item, &row, &column, &rowSpan, &columnSpan);
    QTEST(row, "row");
    QTEST(column, "column");
    QCOMPARE(rowSpan, 1);
    QCOMPARE(columnSpan, 1);
    QCOMPARE(grid->itemAt(item)->alignment(), Qt::Alignment());
    const QWidget *widget = grid->itemAt(item)->widget();
    QTEST(widget ? widget->objectName() : QString(""), "name");
}

void TestDBParamWidget::spacerFillsTheEndOfTheRow()
{
    const DBParamWidget frame(nullptr);
    const QSpacerItem *spacer = frame.layout()->itemAt(5)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint(), QSize(40, 20));
    QCOMPARE(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(spacer->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
}

void TestDBParamWidget::marginsAndSpacings()
{
    const DBParamWidget frame(nullptr);
    const auto *grid = qobject_cast<QGridLayout *>(frame.layout());
    QCOMPARE(grid->contentsMargins(), QMargins(25, 0, 0, 0));
    QCOMPARE(grid->horizontalSpacing(), 10);

    QWidget plain;
    const QGridLayout styled(&plain);
    QCOMPARE(grid->verticalSpacing(), styled.verticalSpacing());
}

void TestDBParamWidget::membersKeepTheirSize_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("heightForWidth");
    QTest::newRow("label above") << "topLabel" << true;
    QTest::newRow("placeholder") << "centralWidget" << false;
    QTest::newRow("label on the left") << "leftLabel" << true;
    QTest::newRow("label on the right") << "rightLabel" << true;
    QTest::newRow("label below") << "bottomLabel" << true;
}

void TestDBParamWidget::membersKeepTheirSize()
{
    QFETCH(QString, name);
    const DBParamWidget frame(nullptr);
    const QSizePolicy policy = frame.findChild<QWidget *>(name)->sizePolicy();
    QCOMPARE(policy.horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(policy.verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(policy.horizontalStretch(), 0);
    QCOMPARE(policy.verticalStretch(), 0);
    QTEST(policy.hasHeightForWidth(), "heightForWidth");
}

void TestDBParamWidget::labelsWrap_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : labelNames)
        QTest::newRow(name) << name;
}

void TestDBParamWidget::labelsWrap()
{
    QFETCH(QString, name);
    const DBParamWidget frame(nullptr);
    QVERIFY(frame.findChild<QLabel *>(name)->wordWrap());
}

void TestDBParamWidget::nameAndSize()
{
    QWidget page;
    const DBParamWidget top(nullptr);
    const DBParamWidget inside(&page);
    for (const DBParamWidget *frame : {&top, &inside}) {
        QCOMPARE(frame->objectName(), QString("DBParamWidget"));
        QCOMPARE(frame->size(), QSize(344, 58));
        QCOMPARE(frame->windowTitle(), QString("Form"));
        QCOMPARE(labelTexts(*frame), QStringList({"TextLabel", "TextLabel", "TextLabel", "TextLabel"}));
    }
}

void TestDBParamWidget::formIsTranslatedTopToBottom()
{
    NumberingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    const DBParamWidget frame(nullptr);
    QCoreApplication::removeTranslator(&translator);

    QCOMPARE(frame.windowTitle(), QString("Form 1"));
    QCOMPARE(label(frame, "topLabel")->text(), QString("TextLabel 2"));
    QCOMPARE(label(frame, "leftLabel")->text(), QString("TextLabel 3"));
    QCOMPARE(label(frame, "rightLabel")->text(), QString("TextLabel 4"));
    QCOMPARE(label(frame, "bottomLabel")->text(), QString("TextLabel 5"));
}

void TestDBParamWidget::freshFrame()
{
    const Bared<DBParamWidget> frame(nullptr);
    QVERIFY(!frame.inverted);
    QVERIFY(!frame.value().isValid());
    QVERIFY(!frame.storedValue().isValid());
    QCOMPARE(frame.key(), QString(""));
    QVERIFY(frame.isEnabled());
    QVERIFY(!frame.isReadOnly());
    QVERIFY(frame.canChangeLabelPosition());
    QCOMPARE(labelsNotHidden(frame), QStringList("leftLabel"));
}

void TestDBParamWidget::parentIsTaken()
{
    QWidget page;
    const DBParamWidget inside(&page);
    const DBParamWidget top(nullptr);
    const QWidget plain;

    QCOMPARE(inside.parentWidget(), &page);
    QVERIFY(!inside.isWindow());
    QVERIFY(!top.parentWidget());
    QCOMPARE(top.windowFlags(), plain.windowFlags());
}

void TestDBParamWidget::dyingWithTheParent()
{
    auto *page = new QWidget;
    const QPointer<DBParamWidget> frame = new DBParamWidget(page);
    const QPointer<QWidget> editor = new QLineEdit;
    frame->setCentralWidget(editor);
    delete page;
    QVERIFY(!frame);
    QVERIFY(!editor);
}

void TestDBParamWidget::keyIsKept()
{
    DBParamWidget frame(nullptr);
    frame.setKey("PT_MAX_CARD_COUNT");
    QCOMPARE(frame.key(), QString("PT_MAX_CARD_COUNT"));
    frame.setKey("");
    QCOMPARE(frame.key(), QString(""));
}

void TestDBParamWidget::nameGoesToAllLabels()
{
    DBParamWidget frame(nullptr);
    frame.setName("x");
    QCOMPARE(labelTexts(frame), QStringList({"x", "x", "x", "x"}));
    frame.setName("");
    QCOMPARE(labelTexts(frame), QStringList({"", "", "", ""}));
}

void TestDBParamWidget::nameStaysWhereTheLabelMoves()
{
    DBParamWidget frame(nullptr);
    frame.setName("Срок");
    frame.setLabelPosition(LabelPosition::Bottom);
    frame.setLabelPosition(LabelPosition::None);
    QCOMPARE(labelTexts(frame), QStringList({"Срок", "Срок", "Срок", "Срок"}));
}

void TestDBParamWidget::valueIsWhatWasSet_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("description");
    QTest::newRow("text") << QVariant("25") << "QString 25";
    QTest::newRow("empty text") << QVariant("") << "QString ";
    QTest::newRow("signed number") << QVariant(-3) << "int -3";
    QTest::newRow("unsigned number") << QVariant(3u) << "uint 3";
    QTest::newRow("truth") << QVariant(true) << "bool true";
    QTest::newRow("nothing") << QVariant() << "invalid";
}

void TestDBParamWidget::valueIsWhatWasSet()
{
    QFETCH(QVariant, value);
    Bared<DBParamWidget> frame(nullptr);
    HeardSignals heard(frame);
    frame.setValue("before");

    frame.setValue(value);
    QTEST(described(frame.value()), "description");
    QTEST(described(frame.storedValue()), "description");
    frame.setDefaultValue();
    QTEST(described(frame.value()), "description");
    QCOMPARE(heard.take(), QStringList());
}

void TestDBParamWidget::operationsWithoutMeaningDoNothing()
{
    Bared<DBParamWidget> frame(nullptr);
    HeardSignals heard(frame);
    frame.setName("name");
    frame.setValue("12");
    frame.inverted = true;
    frame.setParamValues({{1, "one"}});
    frame.setParamRange({3, 5});
    frame.setSpecialValue("never");

    QCOMPARE(described(frame.value()), QString("QString 12"));
    QCOMPARE(labelTexts(frame), QStringList({"name", "name", "name", "name"}));
    QCOMPARE(heard.take(), QStringList());
}

void TestDBParamWidget::flagsAreOnlyKept()
{
    DBParamWidget frame(nullptr);
    frame.setCentralWidget(new QLineEdit);
    frame.setEnabled(false);
    frame.setReadOnly(true);
    QVERIFY(!frame.isEnabled());
    QVERIFY(frame.isReadOnly());
    QVERIFY(frame.QWidget::isEnabled());
    QVERIFY(frame.centralWidget()->isEnabled());
    QVERIFY(!qobject_cast<QLineEdit *>(frame.centralWidget())->isReadOnly());

    frame.setEnabled(true);
    frame.setReadOnly(false);
    QVERIFY(frame.isEnabled());
    QVERIFY(!frame.isReadOnly());
}

void TestDBParamWidget::disablingTheWidgetItselfIsAnotherFlag()
{
    DBParamWidget frame(nullptr);
    static_cast<QWidget &>(frame).setEnabled(false);
    QVERIFY(frame.isEnabled());
    QVERIFY(!frame.QWidget::isEnabled());
}

void TestDBParamWidget::defaultValueGoesThroughTheVirtualSetter()
{
    CountingFrame frame(nullptr);
    static_cast<DBParamWidget &>(frame).setDefaultValue();
    frame.setValue(7);
    frame.setDefaultValue();
    QCOMPARE(frame.received, QStringList({"invalid", "int 7", "int 7"}));
    QCOMPARE(described(frame.storedValue()), QString("int 7"));
}

void TestDBParamWidget::defaultValueIsASlot()
{
    CountingFrame frame(nullptr);
    QVERIFY(QMetaObject::invokeMethod(&frame, "setDefaultValue"));
    QLineEdit trigger;
    QVERIFY(connect(&trigger, SIGNAL(returnPressed()), &frame, SLOT(setDefaultValue())));
    QTest::keyClick(&trigger, Qt::Key_Return);
    QCOMPARE(frame.received, QStringList({"invalid", "invalid"}));
}

void TestDBParamWidget::signalsCanBeConnectedByText()
{
    DBParamWidget frame(nullptr);
    DBParamWidget second(nullptr);
    HeardSignals heard(second);
    QVERIFY(connect(&frame, SIGNAL(commitData()), &second, SIGNAL(commitData())));
    QVERIFY(connect(&frame, SIGNAL(paramChanged(QString, QVariant)), &second, SIGNAL(paramChanged(QString, QVariant))));

    Q_EMIT frame.paramChanged("PT_A", 1);
    Q_EMIT frame.commitData();
    QCOMPARE(heard.take(), QStringList({"PT_A: int 1", "commit"}));

    QVERIFY(disconnect(&frame, SIGNAL(commitData()), &second, SIGNAL(commitData())));
    Q_EMIT frame.commitData();
    QCOMPARE(heard.take(), QStringList());
}

void TestDBParamWidget::labelPosition_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("none") << 0 << QStringList();
    QTest::newRow("left") << 1 << QStringList("leftLabel");
    QTest::newRow("top") << 2 << QStringList("topLabel");
    QTest::newRow("right") << 3 << QStringList("rightLabel");
    QTest::newRow("bottom") << 4 << QStringList("bottomLabel");
}

void TestDBParamWidget::labelPosition()
{
    QFETCH(int, position);
    DBParamWidget frame(nullptr);
    for (int before = 0; before <= 4; ++before) {
        frame.setLabelPosition(LabelPosition(before));
        frame.setLabelPosition(LabelPosition(position));
        QTEST(labelsNotHidden(frame), "shown");
    }
}

void TestDBParamWidget::labelPositionOfAShownFrame()
{
    QFETCH(int, position);
    QFETCH(QStringList, shown);
    DBParamWidget frame(nullptr);
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    for (int before = 0; before <= 4; ++before) {
        frame.setLabelPosition(LabelPosition(before));
        frame.setLabelPosition(LabelPosition(position));
        QTRY_COMPARE(labelsSeen(frame), shown);
    }
}

void TestDBParamWidget::labelPositionOfAFrameShownLater()
{
    QFETCH(int, position);
    QFETCH(QStringList, shown);
    QWidget page;
    auto *pageLayout = new QVBoxLayout(&page);
    for (int before = 0; before <= 4; ++before) {
        auto *frame = new DBParamWidget(nullptr);
        frame->setLabelPosition(LabelPosition(before));
        frame->setLabelPosition(LabelPosition(position));
        pageLayout->addWidget(frame);
    }
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    for (const DBParamWidget *frame : page.findChildren<DBParamWidget *>())
        QTRY_COMPARE(labelsSeen(*frame), shown);
}

void TestDBParamWidget::labelPositionOfAFrameShownAgain()
{
    QFETCH(int, position);
    QFETCH(QStringList, shown);
    DBParamWidget frame(nullptr);
    for (int before = 0; before <= 4; ++before) {
        frame.setLabelPosition(LabelPosition(before));
        frame.show();
        QVERIFY(QTest::qWaitForWindowExposed(&frame));
        frame.hide();
        frame.setLabelPosition(LabelPosition(position));
        frame.show();
        QTRY_COMPARE(labelsSeen(frame), shown);
    }
}

void TestDBParamWidget::labelPositionOutsideTheEnumeration_data()
{
    QTest::addColumn<int>("position");
    QTest::newRow("one above") << 5;
    QTest::newRow("far above") << 1000;
    QTest::newRow("highest number") << INT_MAX;
    QTest::newRow("one below") << -1;
    QTest::newRow("lowest number") << INT_MIN;
}

void TestDBParamWidget::labelPositionOutsideTheEnumeration()
{
    QFETCH(int, position);
    DBParamWidget frame(nullptr);
    frame.setLabelPosition(LabelPosition(position));
    QCOMPARE(labelsNotHidden(frame), QStringList("leftLabel"));

    frame.setLabelPosition(LabelPosition::Bottom);
    frame.setLabelPosition(LabelPosition(position));
    QCOMPARE(labelsNotHidden(frame), QStringList("bottomLabel"));

    frame.setLabelPosition(LabelPosition::None);
    frame.setLabelPosition(LabelPosition(position));
    QCOMPARE(labelsNotHidden(frame), QStringList());
}

void TestDBParamWidget::labelsSwitchFromLeftToBottom_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("left to top") << 1 << 2 << QStringList({"leftLabel hidden", "topLabel shown"});
    QTest::newRow("top to left") << 2 << 1 << QStringList({"leftLabel shown", "topLabel hidden"});
    QTest::newRow("top to right") << 2 << 3 << QStringList({"topLabel hidden", "rightLabel shown"});
    QTest::newRow("right to top") << 3 << 2 << QStringList({"topLabel shown", "rightLabel hidden"});
    QTest::newRow("right to bottom") << 3 << 4 << QStringList({"rightLabel hidden", "bottomLabel shown"});
    QTest::newRow("bottom to right") << 4 << 3 << QStringList({"rightLabel shown", "bottomLabel hidden"});
    QTest::newRow("bottom to none") << 4 << 0 << QStringList("bottomLabel hidden");
    QTest::newRow("none to bottom") << 0 << 4 << QStringList("bottomLabel shown");
    QTest::newRow("as before") << 3 << 3 << QStringList();
}

void TestDBParamWidget::labelsSwitchFromLeftToBottom()
{
    QFETCH(int, before);
    QFETCH(int, after);
    DBParamWidget frame(nullptr);
    frame.setLabelPosition(LabelPosition(before));
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));

    VisibilityLog visibility(frame);
    frame.setLabelPosition(LabelPosition(after));
    QTEST(visibility.log(), "log");
}

void TestDBParamWidget::hiddenLabelTakesNoRoom()
{
    DBParamWidget frame(nullptr);
    frame.setCentralWidget(new QLineEdit);
    frame.setLabelPosition(LabelPosition::None);
    const QSize bare = frame.sizeHint();

    frame.setLabelPosition(LabelPosition::Left);
    QVERIFY(frame.sizeHint().width() > bare.width());
    frame.setLabelPosition(LabelPosition::Top);
    QVERIFY(frame.sizeHint().height() > bare.height());
    frame.setLabelPosition(LabelPosition::None);
    QCOMPARE(frame.sizeHint(), bare);
}

void TestDBParamWidget::centralWidgetIsMissingAtFirst()
{
    const DBParamWidget frame(nullptr);
    QVERIFY(!frame.centralWidget());
    QVERIFY(!placeholder(frame)->layout());
}

void TestDBParamWidget::centralWidgetFillsThePlaceholder()
{
    DBParamWidget frame(nullptr);
    auto *editor = new QLineEdit(&frame);
    frame.setCentralWidget(editor);

    QCOMPARE(frame.centralWidget(), editor);
    QCOMPARE(editor->objectName(), QString("DBParamWidget_centralWidget"));
    QCOMPARE(editor->parentWidget(), placeholder(frame));
    QLayout *layout = placeholder(frame)->layout();
    QVERIFY(layout);
    QCOMPARE(layout->metaObject()->className(), "QVBoxLayout");
    QCOMPARE(layout->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->itemAt(0)->widget(), editor);
    QCOMPARE(layout->itemAt(0)->alignment(), Qt::Alignment());
    QCOMPARE(frame.layout()->itemAt(1)->widget(), placeholder(frame));

    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    QTRY_COMPARE(editor->geometry(), placeholder(frame)->rect());
}

void TestDBParamWidget::secondCentralWidgetGoesBelow()
{
    DBParamWidget frame(nullptr);
    auto *first = new QLineEdit;
    auto *second = new QLineEdit;
    frame.setCentralWidget(first);
    const QLayout *layout = placeholder(frame)->layout();
    frame.setCentralWidget(second);

    QCOMPARE(placeholder(frame)->layout(), layout);
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(0)->widget(), first);
    QCOMPARE(layout->itemAt(1)->widget(), second);
    QCOMPARE(second->objectName(), QString("DBParamWidget_centralWidget"));
    QCOMPARE(frame.centralWidget(), first);

    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    QTRY_VERIFY(second->y() > first->y());
}

void TestDBParamWidget::centralWidgetIsFoundByName()
{
    DBParamWidget frame(nullptr);
    auto *editor = new QLineEdit;
    frame.setCentralWidget(editor);
    editor->setObjectName("renamed");
    QVERIFY(!frame.centralWidget());

    editor->setObjectName("DBParamWidget_centralWidget");
    QCOMPARE(frame.centralWidget(), editor);
    delete editor;
    QVERIFY(!frame.centralWidget());
}

void TestDBParamWidget::centralWidgetIsFoundAtAnyDepth()
{
    DBParamWidget frame(nullptr);
    QObject noWidget(&frame);
    noWidget.setObjectName("DBParamWidget_centralWidget");
    QVERIFY(!frame.centralWidget());

    auto *holder = new QWidget(new QWidget(&frame));
    auto *deep = new QLineEdit(holder);
    deep->setObjectName("DBParamWidget_centralWidget");
    QCOMPARE(frame.centralWidget(), deep);
}

void TestDBParamWidget::aFormNamesTheParameter()
{
    DBParamWidget frame(nullptr);
    frame.setValue("kept");
    HeardSignals heard(frame);
    frame.setProperty("parameter", "PT_PASS_REQUEST_SEQUENCE");
    QCOMPARE(frame.key(), QString("PT_PASS_REQUEST_SEQUENCE"));
    QCOMPARE(frame.findChild<QLabel *>("leftLabel")->text(), QString("Формат номера заявки"));
    QVERIFY(frame.toolTip().contains("${year}"));
    QCOMPARE(frame.value(), QVariant("kept"));
    QCOMPARE(heard.take(), QStringList());
}

void TestDBParamWidget::aFormNamesNoParameter_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("nothing") << QByteArray("parameter") << QVariant();
    QTest::newRow("empty") << QByteArray("parameter") << QVariant("");
    QTest::newRow("other case") << QByteArray("parameter") << QVariant("pt_mobile_port");
    QTest::newRow("beginning of one") << QByteArray("parameter") << QVariant("PT_MOBILE");
    QTest::newRow("another property") << QByteArray("parameters") << QVariant("PT_MOBILE_PORT");
}

void TestDBParamWidget::aFormNamesNoParameter()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    DBParamWidget frame(nullptr);
    frame.setKey("mine");
    frame.setName("Моё");
    frame.setProperty(property, value);
    QCOMPARE(frame.key(), QString("mine"));
    QCOMPARE(frame.findChild<QLabel *>("leftLabel")->text(), QString("Моё"));
}

QTEST_MAIN(TestDBParamWidget)
#include "tst_dbparamwidget.moc"
