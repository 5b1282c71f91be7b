#include <vxsettings/dbsettingsvalue.h>

#include "loggingrules.h"
#include "messages.h"
#include "recordingeditor.h"
#include "storedsettings.h"
#include "testtree.h"

#include <vxsettings/dbbuttonwidget.h>
#include <vxsettings/dbcheckboxwidget.h>
#include <vxsettings/dbcomboboxwidget.h>
#include <vxsettings/dbkeys.h>
#include <vxsettings/dblineeditwidget.h>
#include <vxsettings/dbobjselectorwidget.h>
#include <vxsettings/dbpasswordwidget.h>
#include <vxsettings/dbspinboxwidget.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

#include <functional>

using vantorix::OBJECT_PARAMETERS;
using EditorMaker = std::function<DBParamWidget *()>;

Q_DECLARE_METATYPE(DBSettingsType)
Q_DECLARE_METATYPE(EditorMaker)
Q_DECLARE_METATYPE(OBJECT_PARAMETERS)

namespace {

DBParamWidget *withKey(DBParamWidget *editor)
{
    editor->setKey("PT_KEY");
    return editor;
}

DBParamWidget *bareEditor(const QVariant &value)
{
    return testtree::newEditor(nullptr, "PT_KEY", value);
}

DBParamWidget *withStoredValue(DBParamWidget *editor, const QVariant &stored)
{
    editor->setValue(stored);
    return withKey(editor);
}

DBParamWidget *objectSelector(const QVariant &stored)
{
    return withStoredValue(new DBObjSelectorWidget(vantorix::ORGSTRUCTURE_DATANAME, nullptr), stored);
}

DBParamWidget *checkBox(bool stored, bool inverted = false)
{
    DBParamWidget *editor = withKey(new DBCheckBoxWidget(nullptr));
    editor->inverted = inverted;
    editor->setValue(stored);
    return editor;
}

DBParamWidget *comboBox(const QVariant &stored)
{
    DBParamWidget *editor = withKey(new DBComboBoxWidget(nullptr));
    editor->setValue(stored);
    editor->setParamValues({{1, "one"}, {2, "two"}, {3, "three"}});
    return editor;
}

DBParamWidget *lineEdit(const QString &stored)
{
    return withStoredValue(new DBLineEditWidget(nullptr), stored);
}

DBParamWidget *spinBox(const QVariant &stored)
{
    DBParamWidget *editor = withKey(new DBSpinBoxWidget(nullptr));
    editor->setValue(stored);
    editor->setParamRange({1, 20});
    return editor;
}

/// Does with the editor what a user would do.
void edit(DBParamWidget *editor)
{
    QWidget *input = editor->centralWidget();
    if (auto *spinBox = qobject_cast<QSpinBox *>(input))
        spinBox->selectAll();
    if (qobject_cast<QCheckBox *>(input))
        QTest::keyClick(input, Qt::Key_Space);
    else if (qobject_cast<QComboBox *>(input))
        QTest::keyClick(input, Qt::Key_Down);
    else
        QTest::keyClicks(input, "7");
}
} // namespace

class TestDBSettingsValue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void newNodeHasNothing();
    void type_data();
    void type();
    void parameters_data();
    void parameters();
    void parametersFollowTheEditor();
    void setDefaultValueRevertsEdits_data() { addEditedEditors(); }
    void setDefaultValueRevertsEdits();
    void updateDefaultValueAcceptsEdits_data() { addEditedEditors(); }
    void updateDefaultValueAcceptsEdits();
    void updateDefaultValueIsNoChange_data() { addEditedEditors(); }
    void updateDefaultValueIsNoChange();
    void revertPassesTheStoredValue();
    void revertWithoutStoredValuePassesAnInvalidOne();
    void updateDefaultValueStoresWhatIsShown();
    void foreignWidgetIsHeldAndLeftAlone();
    void nodeWithADeletedWidgetHasNothing();
    void widgetIsShared();
    void widgetDiesWithTheNode();
    void heldWidgetOutlivesTheNode();
    void widgetIsReplaced();
    void heldWidgetOutlivesItsReplacement();
    void nullDropsTheWidget();
    void sameWidgetAgainStays();
    void nothingIsLogged();

private:
    static void addEditedEditors();
};

void TestDBSettingsValue::newNodeHasNothing()
{
    DBSettingsValue node;
    QCOMPARE(int(node.type()), 0);
    QVERIFY(!node.isGroup());
    QVERIFY(!node.widget());
    QVERIFY(node.parameters().isEmpty());
    node.setDefaultValue();
    node.updateDefaultValue();
    QVERIFY(node.parameters().isEmpty());
}

void TestDBSettingsValue::type_data()
{
    QTest::addColumn<int>("number");
    for (int number : {0, 1, 2, 3, 4, 6, 7, 9, 10, 11})
        QTest::addRow("editor kind %d", number) << number;
}

void TestDBSettingsValue::type()
{
    QFETCH(int, number);
    DBSettingsValue node;
    node.setType(DBSettingsType(number));
    QCOMPARE(int(node.type()), number);
    QVERIFY(!node.isGroup());
    node.setWidget(lineEdit("text"));
    QCOMPARE(int(node.type()), number);
}

void TestDBSettingsValue::parameters_data()
{
    QTest::addColumn<EditorMaker>("make");
    QTest::addColumn<OBJECT_PARAMETERS>("expected");

    const auto row = [](const char *name, const QString &text, const EditorMaker &make) {
        QTest::newRow(name) << make << OBJECT_PARAMETERS{{"PT_KEY", text}};
    };
    row("text", "Хост ☃", [] { return bareEditor("Хост ☃"); });
    row("number", "8", [] { return bareEditor(8); });
    row("unsigned number", "4294967295", [] { return bareEditor(4294967295U); });
    row("flag", "true", [] { return bareEditor(true); });
    row("invalid", "", [] { return bareEditor({}); });
    row("not convertible", "", [] { return bareEditor(QVariantMap()); });
    row("ticked check box", "true", [] { return checkBox(true); });
    row("empty check box", "false", [] { return checkBox(false); });
    row("inverted check box", "true", [] { return checkBox(true, true); });
    row("combo box", "3", [] { return comboBox("3"); });
    row("combo box without that choice", "1", [] { return comboBox("9"); });
    row("combo box without choices", "", [] { return withStoredValue(new DBComboBoxWidget(nullptr), "3"); });
    row("line edit", "a\nb", [] { return lineEdit("a\nb"); });
    row("empty line edit", "", [] { return lineEdit(""); });
    row("password", "secret ☃", [] { return withStoredValue(new DBPasswordWidget(nullptr), "secret ☃"); });
    row("button", "key", [] { return withStoredValue(new DBButtonWidget(nullptr), "key"); });
    row("object selector", "7", [] { return objectSelector("7"); });
    row("object selector without that object", "0", [] { return objectSelector("8"); });
    row("spin box", "12", [] { return spinBox("12"); });
    row("spin box out of its range", "20", [] { return spinBox("25"); });

    const EditorMaker withoutKey = [] { return testtree::newEditor(nullptr, "", "text"); };
    QTest::newRow("editor without a key") << withoutKey << OBJECT_PARAMETERS{{"", "text"}};
}

void TestDBSettingsValue::parameters()
{
    QFETCH(EditorMaker, make);
    const StoredObjects objects("orgstructure", {{1, 0, "OT_SUBJECTROOT", "Organisation"}, {7, 1, "OT_FIRM", "Works"}});
    DBSettingsValue node;
    node.setWidget(make());
    QTEST(node.parameters(), "expected");
    QTEST(node.parameters(), "expected");
}

void TestDBSettingsValue::parametersFollowTheEditor()
{
    DBParamWidget *editor = lineEdit("old");
    DBSettingsValue node;
    node.setWidget(editor);
    edit(editor);
    QCOMPARE(node.parameters(), (OBJECT_PARAMETERS{{"PT_KEY", "old7"}}));
    editor->setKey("PT_OTHER");
    QCOMPARE(node.parameters(), (OBJECT_PARAMETERS{{"PT_OTHER", "old7"}}));
}

void TestDBSettingsValue::addEditedEditors()
{
    QTest::addColumn<EditorMaker>("make");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");

    const auto row = [](const char *name, const char *before, const char *after, const EditorMaker &make) {
        QTest::newRow(name) << make << before << after;
    };
    row("check box", "false", "true", [] { return checkBox(false); });
    row("inverted check box", "false", "true", [] { return checkBox(false, true); });
    row("combo box", "2", "3", [] { return comboBox("2"); });
    row("line edit", "old", "old7", [] { return lineEdit("old"); });
    row("spin box", "12", "7", [] { return spinBox("12"); });
    row("spin box out of its range", "20", "7", [] { return spinBox("25"); });
}

void TestDBSettingsValue::setDefaultValueRevertsEdits()
{
    QFETCH(EditorMaker, make);
    DBSettingsValue node;
    DBParamWidget *editor = make();
    node.setWidget(editor);

    QTEST(node.parameters().value("PT_KEY"), "before");
    edit(editor);
    QTEST(node.parameters().value("PT_KEY"), "after");
    node.setDefaultValue();
    QTEST(node.parameters().value("PT_KEY"), "before");
    node.setDefaultValue();
    QTEST(node.parameters().value("PT_KEY"), "before");
}

void TestDBSettingsValue::updateDefaultValueAcceptsEdits()
{
    QFETCH(EditorMaker, make);
    DBSettingsValue node;
    DBParamWidget *editor = make();
    node.setWidget(editor);

    edit(editor);
    node.updateDefaultValue();
    QTEST(node.parameters().value("PT_KEY"), "after");
    node.setDefaultValue();
    QTEST(node.parameters().value("PT_KEY"), "after");
}

void TestDBSettingsValue::updateDefaultValueIsNoChange()
{
    QFETCH(EditorMaker, make);
    DBSettingsValue node;
    DBParamWidget *editor = make();
    node.setWidget(editor);
    edit(editor);
    QSignalSpy changed(editor, &DBParamWidget::paramChanged);
    QSignalSpy committed(editor, &DBParamWidget::commitData);

    node.updateDefaultValue();
    QCOMPARE(changed.count(), 0);
    QCOMPARE(committed.count(), 0);
}

void TestDBSettingsValue::revertPassesTheStoredValue()
{
    QStringList calls;
    auto *editor = new RecordingEditor(nullptr, "PT_KEY", calls);
    DBSettingsValue node;
    node.setWidget(editor);
    editor->setValue("stored");
    calls.clear();

    node.setDefaultValue();
    QCOMPARE(calls, QStringList({"PT_KEY.setDefaultValue", "PT_KEY.setValue stored"}));
}

void TestDBSettingsValue::revertWithoutStoredValuePassesAnInvalidOne()
{
    QStringList calls;
    DBSettingsValue node;
    node.setWidget(new RecordingEditor(nullptr, "PT_KEY", calls));

    node.setDefaultValue();
    QCOMPARE(calls, QStringList({"PT_KEY.setDefaultValue", "PT_KEY.setValue invalid"}));
}

void TestDBSettingsValue::updateDefaultValueStoresWhatIsShown()
{
    QStringList calls;
    auto *editor = new RecordingEditor(nullptr, "PT_KEY", calls);
    DBSettingsValue node;
    node.setWidget(editor);
    editor->setValue("shown");
    calls.clear();

    node.updateDefaultValue();
    QCOMPARE(calls, QStringList({"PT_KEY.setValue shown"}));
}

void TestDBSettingsValue::foreignWidgetIsHeldAndLeftAlone()
{
    DBSettingsValue node;
    auto *label = new QLabel("text");
    testtree::newEditor(label, "PT_BELOW", "value"); // the node's own widget counts, not what is below
    node.setWidget(label);

    QCOMPARE(node.widget().get(), label);
    node.setDefaultValue();
    node.updateDefaultValue();
    QVERIFY(node.parameters().isEmpty());
    QCOMPARE(label->text(), QString("text"));
}

void TestDBSettingsValue::nodeWithADeletedWidgetHasNothing()
{
    DBSettingsValue node;
    node.setType(DBSettingsType::LineEdit);
    DBParamWidget *editor = lineEdit("text");
    node.setWidget(editor);

    delete editor;
    QVERIFY(!node.widget());
    QVERIFY(node.parameters().isEmpty());
    node.setDefaultValue();
    node.updateDefaultValue();
    QCOMPARE(node.type(), DBSettingsType::LineEdit);

    node.setWidget(lineEdit("new"));
    QCOMPARE(node.parameters(), (OBJECT_PARAMETERS{{"PT_KEY", "new"}}));
}

void TestDBSettingsValue::widgetIsShared()
{
    DBSettingsValue node;
    DBParamWidget *editor = lineEdit("text");
    node.setWidget(editor);

    const std::shared_ptr<QWidget> first = node.widget();
    const std::shared_ptr<QWidget> second = node.widget();
    QCOMPARE(first.get(), editor);
    QVERIFY(!first.owner_before(second) && !second.owner_before(first));
    QCOMPARE(first.use_count(), 3L); // the node's, and these two
}

void TestDBSettingsValue::widgetDiesWithTheNode()
{
    auto node = std::make_unique<DBSettingsValue>();
    const QPointer<QWidget> editor(lineEdit("text"));
    node->setWidget(editor);
    node->widget(); // a handle that nobody keeps
    QVERIFY(editor);
    node.reset();
    QVERIFY(!editor);
}

void TestDBSettingsValue::heldWidgetOutlivesTheNode()
{
    auto node = std::make_unique<DBSettingsValue>();
    const QPointer<DBParamWidget> editor(lineEdit("text"));
    node->setWidget(editor);

    std::shared_ptr<QWidget> held = node->widget();
    node.reset();
    QVERIFY(editor);
    QCOMPARE(editor->value(), QVariant("text"));
    held.reset();
    QVERIFY(!editor);
}

void TestDBSettingsValue::widgetIsReplaced()
{
    DBSettingsValue node;
    const QPointer<DBParamWidget> first(lineEdit("first"));
    const QPointer<DBParamWidget> second(lineEdit("second"));
    node.setWidget(first);
    node.setWidget(second);

    QVERIFY(!first);
    QCOMPARE(node.widget().get(), second.data());
    QCOMPARE(node.parameters(), (OBJECT_PARAMETERS{{"PT_KEY", "second"}}));
}

void TestDBSettingsValue::heldWidgetOutlivesItsReplacement()
{
    DBSettingsValue node;
    const QPointer<DBParamWidget> first(lineEdit("first"));
    node.setWidget(first);
    std::shared_ptr<QWidget> held = node.widget();

    node.setWidget(lineEdit("second"));
    QVERIFY(first);
    QCOMPARE(held.get(), first.data());
    held.reset();
    QVERIFY(!first);
    QCOMPARE(node.parameters(), (OBJECT_PARAMETERS{{"PT_KEY", "second"}}));
}

void TestDBSettingsValue::nullDropsTheWidget()
{
    DBSettingsValue node;
    const QPointer<DBParamWidget> editor(lineEdit("text"));
    node.setWidget(editor);
    node.setWidget(nullptr);

    QVERIFY(!editor);
    QVERIFY(!node.widget());
    QVERIFY(node.parameters().isEmpty());
    node.setWidget(nullptr);
    QVERIFY(!node.widget());
}

void TestDBSettingsValue::sameWidgetAgainStays()
{
    auto node = std::make_unique<DBSettingsValue>();
    const QPointer<DBParamWidget> editor(lineEdit("text"));
    node->setWidget(editor);
    std::shared_ptr<QWidget> held = node->widget();
    node->setWidget(editor);

    QVERIFY(editor);
    QCOMPARE(node->widget().get(), editor.data());
    held.reset();
    QVERIFY(editor);
    node.reset();
    QVERIFY(!editor);
}

void TestDBSettingsValue::nothingIsLogged()
{
    const LoggingRules everything("gui.lib.dbsettings=true");
    DBSettingsValue empty;
    DBSettingsValue foreign;
    foreign.setWidget(new QLabel);
    DBSettingsValue node;
    node.setWidget(lineEdit("text"));

    const CapturedMessages messages;
    for (DBSettingsValue *one : {&empty, &foreign, &node}) {
        one->parameters();
        one->setDefaultValue();
        one->updateDefaultValue();
        one->setWidget(nullptr);
    }
    QCOMPARE(messages.texts(), QStringList());
}

QTEST_MAIN(TestDBSettingsValue)
#include "tst_dbsettingsvalue.moc"
