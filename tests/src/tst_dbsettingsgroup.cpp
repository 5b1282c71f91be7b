#include <vxsettings/dbsettingsgroup.h>

#include "loggingrules.h"
#include "messages.h"
#include "recordingeditor.h"
#include "testtree.h"

#include <vxsettings/dblineeditwidget.h>
#include <vxsettings/dbspinboxwidget.h>

#include <vxwidgets/vxsettingsgroupwidget.h>

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QSpinBox>
#include <QTest>
#include <QVBoxLayout>

using testtree::addJsonGroup;
using testtree::addLeaf;
using testtree::newEditor;
using vantorix::OBJECT_PARAMETERS;

namespace {

QStringList sorted(QStringList keys)
{
    keys.sort();
    return keys;
}

void setEnabledOne(DBSettingsGroup &group, const QString &key, bool enabled)
{
    group.setParamEnabled(key, enabled);
}

void setEnabledAll(DBSettingsGroup &group, const QStringList &keys, bool enabled)
{
    group.setParamEnabled(keys, enabled);
}

/// Gives its values and swallows everything else.
class FixedNode : public DBSettings
{
public:
    explicit FixedNode(const OBJECT_PARAMETERS &values)
        : m_values(values)
    {}
    OBJECT_PARAMETERS parameters() const override { return m_values; }
    std::shared_ptr<QWidget> widget() const override { return {}; }
    DBSettingsType type() const override { return DBSettingsType::Unknown; }
    void setDefaultValue() override {}
    void updateDefaultValue() override {}
    bool isGroup() const override { return false; }

private:
    OBJECT_PARAMETERS m_values;
};

void checkCollected(const CapturedMessage &message, const QString &text)
{
    QCOMPARE(message.type, QtDebugMsg);
    QCOMPARE(message.category, QString("gui.lib.dbsettings"));
    QCOMPARE(message.file, QString("src/dbsettingsgroup"));
    QCOMPARE(message.line, 36);
    QCOMPARE(message.function, QString("virtual vantorix::OBJECT_PARAMETERS DBSettingsGroup::parameters() const"));
    QCOMPARE(message.text, text);
}
} // namespace

class TestDBSettingsGroup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void newGroup_data();
    void newGroup();
    void toGroupIsTheSameObject();
    void settingsKeepTheirOrder();
    void childrenDieInOrder();

    void groupWithoutWidgetFindsNothing();
    void groupWithADeletedWidgetFindsNothing();
    void groupWithANewWidgetFindsItsEditors();
    void paramKeysListsEveryEditorOnce();
    void paramValueComesInTheEditorsType();
    void lookUpsWhileAWidgetDies();
    void editorIsFoundWhereverItIs_data();
    void editorIsFoundWhereverItIs();
    void lookUpsIgnoreTheChildNodes();
    void frameItselfIsNoEditorOfTheGroup();
    void membersOfANestedGroupAreFound();
    void firstInTreeOrderIsFound_data();
    void firstInTreeOrderIsFound();
    void outerEditorComesBeforeTheInner();
    void raisedEditorIsTheLast();
    void keysAreCaseSensitive();
    void emptyKeyIsAKey();
    void enablingOneStopsAtTheFirst();
    void enablingManyReachesEveryEditor();
    void unknownKeysEnableNothing();
    void enablingIsTheEditorsBusiness();
    void lookUpsAreSilent();

    void parametersOfNoChildren();
    void parametersAreJoinedInChildOrder();
    void laterChildWins();
    void nodesWithoutValuesAreSkipped();
    void parametersNeedNoWidget();
    void parametersAreLogged();
    void everyNestedGroupLogsItsOwn();
    void parametersAreSilentWithoutDebugLevel_data();
    void parametersAreSilentWithoutDebugLevel();

    void setDefaultValueGoesDepthFirst();
    void updateDefaultValueGoesDepthFirst();
    void signalsOfARevertComeInChildOrder();
    void updateThenRevertChangesNothing();
    void editsAreRevertedAndAccepted();

    void widgetIsReplaced();
    void unknownGroupKeepsItsTitle();
    void nullDropsTheWidget();
    void sameWidgetAgainStays();
};

void TestDBSettingsGroup::newGroup_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("page") << 2;
    QTest::newRow("database") << 0;
    QTest::newRow("json sub-group") << 16;
    QTest::newRow("no group") << -1;
    QTest::newRow("unassigned number") << 13;
}

void TestDBSettingsGroup::newGroup()
{
    QFETCH(int, id);
    DBSettingsGroup group(id);
    QCOMPARE(group.id(), id);
    QCOMPARE(int(group.type()), 5);
    QVERIFY(group.isGroup());
    QVERIFY(!group.widget());
    QVERIFY(group.settings().empty());
    group.setKey("PT_KEY"); // only a JSON group has a use for it
    QVERIFY(group.parameters().isEmpty());
}

void TestDBSettingsGroup::toGroupIsTheSameObject()
{
    DBSettingsGroup group(2);
    DBSettings &node = group;
    QVERIFY(node.isGroup());
    QCOMPARE(node.toGroup(), &group);
    QCOMPARE(node.toGroup()->id(), 2);
}

void TestDBSettingsGroup::settingsKeepTheirOrder()
{
    DBSettingsGroup group(1);
    const DBSettings *first = addLeaf(group, nullptr);
    const DBSettings *second = addJsonGroup(group, "PT_JSON", nullptr);
    const DBSettings *third = addLeaf(group, nullptr);

    QCOMPARE(group.settings().size(), std::size_t(3));
    QCOMPARE(group.settings()[0].get(), first);
    QCOMPARE(group.settings()[1].get(), second);
    QCOMPARE(group.settings()[2].get(), third);
    group.settings().erase(group.settings().begin());
    QCOMPARE(group.settings()[0].get(), second);
}

void TestDBSettingsGroup::childrenDieInOrder()
{
    QStringList gone;
    auto group = std::make_unique<DBSettingsGroup>(1);
    const auto watched = [&](const QString &name, QWidget *widget) {
        connect(widget, &QObject::destroyed, this, [&gone, name] { gone << name; });
        return widget;
    };
    auto *frame = watched("frame", new QWidget);
    group->setWidget(frame);
    // The frame has them the other way round.
    QWidget *third = watched("third", newEditor(frame, "3"));
    QWidget *nestedFrame = watched("nested frame", new QWidget(frame));
    QWidget *first = watched("first", newEditor(frame, "1"));
    addLeaf(*group, first);
    DBSettingsGroup *nested = addJsonGroup(*group, "2", nestedFrame);
    addLeaf(*nested, watched("member", newEditor(nestedFrame, "a")));
    addLeaf(*group, third);

    group.reset();
    QCOMPARE(gone, QStringList({"first", "member", "nested frame", "third", "frame"}));
}

void TestDBSettingsGroup::groupWithoutWidgetFindsNothing()
{
    DBSettingsGroup group(1);
    QWidget elsewhere;
    addLeaf(group, newEditor(&elsewhere, "PT_A", 1));

    QCOMPARE(group.paramKeys(), QStringList());
    QVERIFY(!group.paramValue("PT_A").isValid());
    setEnabledOne(group, "PT_A", false);
    setEnabledAll(group, {"PT_A"}, false);
    QVERIFY(qobject_cast<DBParamWidget *>(group.settings()[0]->widget().get())->isEnabled());
}

void TestDBSettingsGroup::groupWithADeletedWidgetFindsNothing()
{
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    addLeaf(group, newEditor(frame, "PT_A", 1));

    delete frame;
    QVERIFY(!group.widget());
    QCOMPARE(group.paramKeys(), QStringList());
    QVERIFY(!group.paramValue("PT_A").isValid());
    setEnabledOne(group, "PT_A", false);
    setEnabledAll(group, {"PT_A"}, false);
    group.setDefaultValue();
    group.updateDefaultValue();
    QVERIFY(group.parameters().isEmpty()); // the editor went with the frame
    QVERIFY(!group.settings()[0]->widget());
}

void TestDBSettingsGroup::groupWithANewWidgetFindsItsEditors()
{
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    delete frame;

    frame = new QWidget;
    newEditor(frame, "PT_B", 2);
    group.setWidget(frame);
    QCOMPARE(group.paramKeys(), QStringList("PT_B"));
    QCOMPARE(group.paramValue("PT_B"), QVariant(2));
}

void TestDBSettingsGroup::paramKeysListsEveryEditorOnce()
{
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    QCOMPARE(group.paramKeys(), QStringList());

    newEditor(frame, "PT_B");
    newEditor(frame, "PT_A");
    newEditor(frame, "PT_B");
    newEditor(frame, "pt_a");
    QCOMPARE(sorted(group.paramKeys()), QStringList({"PT_A", "PT_B", "pt_a"}));
}

void TestDBSettingsGroup::lookUpsWhileAWidgetDies()
{
    DBSettingsGroup group(1);
    group.setWidget(new QWidget);
    auto *content = new QWidget(group.widget().get());
    const DBParamWidget *first = newEditor(content, "first", 1);
    newEditor(content, "second", 2);
    QVariant value;
    QStringList keys;
    connect(first, &QObject::destroyed, this, [&] {
        value = group.paramValue("second");
        keys = group.paramKeys();
    });
    delete content;
    QCOMPARE(value, QVariant(2));
    QCOMPARE(keys, QStringList("second"));
}

void TestDBSettingsGroup::paramValueComesInTheEditorsType()
{
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    newEditor(frame, "number", 8);
    newEditor(frame, "text", "8");
    newEditor(frame, "flag", true);
    newEditor(frame, "nothing");
    auto *spinBox = new DBSpinBoxWidget(frame);
    spinBox->setKey("spin box");
    spinBox->setValue("12");

    QCOMPARE(group.paramValue("number"), QVariant(8));
    QCOMPARE(group.paramValue("number").userType(), int(QMetaType::Int));
    QCOMPARE(group.paramValue("text").userType(), int(QMetaType::QString));
    QCOMPARE(group.paramValue("flag").userType(), int(QMetaType::Bool));
    QVERIFY(!group.paramValue("nothing").isValid());
    QVERIFY(!group.paramValue("unknown").isValid());

    QCOMPARE(group.paramValue("spin box"), QVariant(12));
    spinBox->findChild<QSpinBox *>()->setValue(13); // what is shown, not what is stored
    QCOMPARE(group.paramValue("spin box"), QVariant(13));
}

void TestDBSettingsGroup::editorIsFoundWhereverItIs_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<bool>("inAnEditor");
    QTest::newRow("child of the frame") << 0 << false;
    QTest::newRow("in a widget") << 1 << false;
    QTest::newRow("deep below") << 10 << false;
    QTest::newRow("in another editor") << 0 << true;
    QTest::newRow("in a widget in another editor") << 1 << true;
}

void TestDBSettingsGroup::editorIsFoundWhereverItIs()
{
    QFETCH(int, depth);
    QFETCH(bool, inAnEditor);
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    new QVBoxLayout(frame);
    new QObject(frame);
    QWidget *parent = inAnEditor ? newEditor(frame, "outer", "outer") : frame;
    for (; depth > 0; --depth)
        parent = new QWidget(parent);
    DBParamWidget *editor = newEditor(parent, "PT_A", "value");
    editor->setObjectName("any name");

    QVERIFY(group.paramKeys().contains("PT_A"));
    QCOMPARE(group.paramKeys().contains("outer"), inAnEditor);
    QCOMPARE(group.paramValue("PT_A"), QVariant("value"));
    setEnabledOne(group, "PT_A", false);
    QVERIFY(!editor->isEnabled());
    setEnabledAll(group, {"PT_A"}, true);
    QVERIFY(editor->isEnabled());
}

void TestDBSettingsGroup::lookUpsIgnoreTheChildNodes()
{
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    QWidget elsewhere;
    DBParamWidget *outside = newEditor(&elsewhere, "outside", 1);
    DBParamWidget *withoutNode = newEditor(frame, "without node", 2);
    addLeaf(group, outside);

    QCOMPARE(group.paramKeys(), QStringList("without node"));
    QVERIFY(!group.paramValue("outside").isValid());
    QCOMPARE(group.paramValue("without node"), QVariant(2));
    setEnabledAll(group, {"outside", "without node"}, false);
    setEnabledOne(group, "outside", false);
    QVERIFY(outside->isEnabled());
    QVERIFY(!withoutNode->isEnabled());
    QCOMPARE(group.parameters(), (OBJECT_PARAMETERS{{"outside", "1"}})); // these go by the nodes
}

void TestDBSettingsGroup::frameItselfIsNoEditorOfTheGroup()
{
    DBSettingsGroup group(1);
    DBParamWidget *frame = newEditor(nullptr, "frame", 1);
    group.setWidget(frame);
    newEditor(frame, "inside", 2);

    QCOMPARE(group.paramKeys(), QStringList("inside"));
    QVERIFY(!group.paramValue("frame").isValid());
    setEnabledOne(group, "frame", false);
    setEnabledAll(group, {"frame"}, false);
    QVERIFY(frame->isEnabled());
}

void TestDBSettingsGroup::membersOfANestedGroupAreFound()
{
    DBSettingsGroup page(2);
    auto *frame = new QWidget;
    page.setWidget(frame);
    auto *nestedFrame = new QWidget(frame);
    JsonGroup *nested = addJsonGroup(page, "PT_PASSWORD_STRENGTH", nestedFrame);
    DBParamWidget *member = newEditor(nestedFrame, "min_len", 8);
    addLeaf(*nested, member);
    addLeaf(page, newEditor(frame, "PT_PASSWORD_EXPIRED", 90));

    QCOMPARE(sorted(page.paramKeys()), QStringList({"PT_PASSWORD_EXPIRED", "min_len"}));
    QCOMPARE(page.paramValue("min_len"), QVariant(8));
    QVERIFY(!page.paramValue("PT_PASSWORD_STRENGTH").isValid());
    setEnabledOne(page, "min_len", false);
    QVERIFY(!member->isEnabled());

    QCOMPARE(nested->paramKeys(), QStringList("min_len"));
    QCOMPARE(nested->paramValue("min_len"), QVariant(8));
    QVERIFY(!nested->paramValue("PT_PASSWORD_EXPIRED").isValid());
}

void TestDBSettingsGroup::firstInTreeOrderIsFound_data()
{
    QTest::addColumn<QVector<int>>("depths"); // of the editors with the key, in order of creation
    QTest::newRow("side by side") << QVector<int>{0, 0, 0};
    QTest::newRow("deep before shallow") << QVector<int>{3, 0};
    QTest::newRow("shallow before deep") << QVector<int>{0, 3};
    QTest::newRow("deep before deeper") << QVector<int>{2, 4, 1};
}

void TestDBSettingsGroup::firstInTreeOrderIsFound()
{
    QFETCH(QVector<int>, depths);
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    newEditor(frame, "another", "another");
    QVector<DBParamWidget *> editors;
    for (int depth : depths) {
        QWidget *parent = frame;
        for (int level = 0; level < depth; ++level)
            parent = new QWidget(parent);
        editors << newEditor(parent, "key", editors.count());
    }
    for (int node = editors.count() - 1; node >= 0; --node)
        addLeaf(group, editors[node]); // the nodes' order does not count

    QCOMPARE(group.paramValue("key"), QVariant(0));
    setEnabledOne(group, "key", false);
    for (int i = 0; i < editors.count(); ++i)
        QCOMPARE(editors[i]->isEnabled(), i != 0);
}

void TestDBSettingsGroup::outerEditorComesBeforeTheInner()
{
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    DBParamWidget *outer = newEditor(frame, "key", "outer");
    DBParamWidget *inner = newEditor(outer, "key", "inner");
    newEditor(frame, "key", "last");

    QCOMPARE(group.paramValue("key"), QVariant("outer"));
    outer->setKey("another");
    QCOMPARE(group.paramValue("key"), QVariant("inner"));
    inner->setKey("another");
    QCOMPARE(group.paramValue("key"), QVariant("last"));
}

void TestDBSettingsGroup::raisedEditorIsTheLast()
{
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    DBParamWidget *first = newEditor(frame, "key", "first");
    newEditor(frame, "key", "second");

    QCOMPARE(group.paramValue("key"), QVariant("first"));
    first->raise();
    QCOMPARE(group.paramValue("key"), QVariant("second"));
}

void TestDBSettingsGroup::keysAreCaseSensitive()
{
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    DBParamWidget *editor = newEditor(frame, "PT_PASSWORD_STRENGTH", 1);

    for (const char *other : {"pt_password_strength", "PT_Password_Strength", "PT_PASSWORD_STRENGTH ", ""}) {
        QVERIFY(!group.paramValue(other).isValid());
        setEnabledOne(group, other, false);
        setEnabledAll(group, {other}, false);
        QVERIFY(editor->isEnabled());
    }
}

void TestDBSettingsGroup::emptyKeyIsAKey()
{
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    DBParamWidget *editor = newEditor(frame, "", "value");

    QCOMPARE(group.paramKeys(), QStringList(""));
    QCOMPARE(group.paramValue(QString()), QVariant("value"));
    setEnabledOne(group, "", false);
    QVERIFY(!editor->isEnabled());
}

void TestDBSettingsGroup::enablingOneStopsAtTheFirst()
{
    QStringList calls;
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    const RecordingEditor another(frame, "another", calls);
    const RecordingEditor first(frame, "key", calls);
    const RecordingEditor second(frame, "key", calls);

    setEnabledOne(group, "key", false);
    QVERIFY(another.isEnabled());
    QVERIFY(!first.isEnabled());
    QVERIFY(second.isEnabled());
    setEnabledOne(group, "key", false);
    setEnabledOne(group, "key", true);
    QVERIFY(first.isEnabled());
    QCOMPARE(calls, QStringList({"key.disable", "key.disable", "key.enable"}));
}

void TestDBSettingsGroup::enablingManyReachesEveryEditor()
{
    QStringList calls;
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    auto *inner = new QWidget(frame);
    const RecordingEditor b1(inner, "b", calls);
    const RecordingEditor a(frame, "a", calls);
    const RecordingEditor c(frame, "c", calls);
    const RecordingEditor b2(frame, "b", calls);

    setEnabledAll(group, {"a", "b", "unknown", "b", "B"}, false);
    QCOMPARE(calls, QStringList({"b.disable", "a.disable", "b.disable"})); // once each, in tree order
    QVERIFY(!b1.isEnabled() && !a.isEnabled() && c.isEnabled() && !b2.isEnabled());

    calls.clear();
    setEnabledAll(group, {"b"}, true);
    QCOMPARE(calls, QStringList({"b.enable", "b.enable"}));
    QVERIFY(b1.isEnabled() && !a.isEnabled() && b2.isEnabled());
}

void TestDBSettingsGroup::unknownKeysEnableNothing()
{
    QStringList calls;
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    const RecordingEditor editor(frame, "key", calls);

    setEnabledOne(group, "unknown", false);
    setEnabledAll(group, {"unknown", "KEY"}, false);
    setEnabledAll(group, {}, false);
    QCOMPARE(calls, QStringList());
    QVERIFY(editor.isEnabled());
}

void TestDBSettingsGroup::enablingIsTheEditorsBusiness()
{
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    auto *editor = new DBLineEditWidget(frame);
    editor->setKey("key");

    setEnabledOne(group, "key", false);
    QVERIFY(!editor->isEnabled());
    QVERIFY(!editor->findChild<QLineEdit *>()->isEnabled());
    QVERIFY(static_cast<QWidget *>(editor)->isEnabled()); // the caption stays readable
    setEnabledAll(group, {"key"}, true);
    QVERIFY(editor->findChild<QLineEdit *>()->isEnabled());
}

void TestDBSettingsGroup::lookUpsAreSilent()
{
    const LoggingRules everything("gui.lib.dbsettings=true");
    DBSettingsGroup empty(1);
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    newEditor(frame, "key", 1);

    const CapturedMessages messages;
    for (DBSettingsGroup *one : {&empty, &group}) {
        one->paramKeys();
        for (const char *key : {"key", "unknown"}) {
            one->paramValue(key);
            setEnabledOne(*one, key, false);
            setEnabledAll(*one, {key}, true);
        }
        one->setDefaultValue();
        one->updateDefaultValue();
    }
    QCOMPARE(messages.texts(), QStringList());
}

void TestDBSettingsGroup::parametersOfNoChildren()
{
    DBSettingsGroup group(1);
    QVERIFY(group.parameters().isEmpty());
    auto *frame = new QWidget;
    group.setWidget(frame);
    newEditor(frame, "without node", 1);
    QVERIFY(group.parameters().isEmpty());
}

void TestDBSettingsGroup::parametersAreJoinedInChildOrder()
{
    DBSettingsGroup page(2);
    auto *frame = new QWidget;
    page.setWidget(frame);
    addLeaf(page, newEditor(frame, "PT_A", 1));
    JsonGroup *json = addJsonGroup(page, "PT_JSON", new QWidget(frame));
    addLeaf(*json, newEditor(json->widget().get(), "min_len", 8));
    addLeaf(page, newEditor(frame, "PT_B", "two"));

    // The members of the JSON group do not appear by themselves.
    const OBJECT_PARAMETERS expected{{"PT_A", "1"}, {"PT_JSON", "{\n    \"min_len\": \"8\"\n}\n"}, {"PT_B", "two"}};
    QCOMPARE(page.parameters(), expected);
    QCOMPARE(page.parameters(), expected);
}

void TestDBSettingsGroup::laterChildWins()
{
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    DBParamWidget *second = newEditor(frame, "PT_A", "second");
    DBParamWidget *first = newEditor(frame, "PT_A", "first");
    addLeaf(group, first);
    group.settings().push_back(std::make_unique<FixedNode>(OBJECT_PARAMETERS{{"PT_A", "middle"}, {"PT_B", "b"}}));
    addLeaf(group, second);

    QCOMPARE(group.parameters(), (OBJECT_PARAMETERS{{"PT_A", "second"}, {"PT_B", "b"}}));
    QCOMPARE(group.paramValue("PT_A"), QVariant("second")); // here because it is the first in the frame
}

void TestDBSettingsGroup::nodesWithoutValuesAreSkipped()
{
    DBSettingsGroup group(1);
    auto *frame = new QWidget;
    group.setWidget(frame);
    addLeaf(group, nullptr);
    addLeaf(group, new QLabel("foreign", frame));
    group.settings().push_back(nullptr);
    addLeaf(group, newEditor(frame, "PT_A", "a"));

    QCOMPARE(group.parameters(), (OBJECT_PARAMETERS{{"PT_A", "a"}}));
    group.setDefaultValue();
    group.updateDefaultValue();
    QCOMPARE(group.parameters(), (OBJECT_PARAMETERS{{"PT_A", "a"}}));
}

void TestDBSettingsGroup::parametersNeedNoWidget()
{
    DBSettingsGroup group(1);
    addLeaf(group, newEditor(nullptr, "PT_A", "a"));
    QCOMPARE(group.parameters(), (OBJECT_PARAMETERS{{"PT_A", "a"}}));
}

void TestDBSettingsGroup::parametersAreLogged()
{
    const LoggingRules debug("gui.lib.dbsettings.debug=true");
    const CapturedMessages messages;

    DBSettingsGroup group(1);
    group.parameters();
    QCOMPARE(messages.count(), 1);
    checkCollected(messages.all()[0], "QHash()");

    addLeaf(group, newEditor(nullptr, "PT_A", "Хост \"☃\""));
    group.parameters();
    QCOMPARE(messages.count(), 2);
    checkCollected(messages.all()[1], R"(QHash(("PT_A", "Хост \"☃\"")))");

    addLeaf(group, newEditor(nullptr, "PT_B", 2));
    group.parameters();
    QCOMPARE(messages.count(), 3);
    const QString both = messages.all()[2].text; // the hash has no order
    QVERIFY2(both == R"(QHash(("PT_A", "Хост \"☃\"")("PT_B", "2")))" ||
                 both == R"(QHash(("PT_B", "2")("PT_A", "Хост \"☃\"")))",
             qPrintable(both));
}

void TestDBSettingsGroup::everyNestedGroupLogsItsOwn()
{
    const LoggingRules debug("gui.lib.dbsettings.debug=true");
    DBSettingsGroup page(1);
    auto inner = std::make_unique<DBSettingsGroup>(2);
    addLeaf(*inner, newEditor(nullptr, "PT_A", "a"));
    page.settings().push_back(std::move(inner));

    const CapturedMessages messages;
    page.parameters();
    QCOMPARE(messages.count(), 2);
    checkCollected(messages.all()[0], R"(QHash(("PT_A", "a")))");
    checkCollected(messages.all()[1], R"(QHash(("PT_A", "a")))");
}

void TestDBSettingsGroup::parametersAreSilentWithoutDebugLevel_data()
{
    QTest::addColumn<QString>("rules");
    QTest::newRow("debug level off") << "gui.lib.dbsettings.debug=false";
    QTest::newRow("category off") << "gui.lib.dbsettings=false";
    QTest::newRow("every debug level off") << "*.debug=false";
    QTest::newRow("only critical") << "gui.lib.dbsettings=false\ngui.lib.dbsettings.critical=true";
}

void TestDBSettingsGroup::parametersAreSilentWithoutDebugLevel()
{
    QFETCH(QString, rules);
    const LoggingRules withoutDebug(rules);
    DBSettingsGroup group(1);
    addLeaf(group, newEditor(nullptr, "PT_A", "a"));

    const CapturedMessages messages;
    QCOMPARE(group.parameters(), (OBJECT_PARAMETERS{{"PT_A", "a"}}));
    QCOMPARE(messages.texts(), QStringList());
}

/// A page of two leaves with a nested group between them, whose frame has the editors in another order.
class RecordedPage
{
public:
    RecordedPage()
    {
        auto *frame = new QWidget;
        page.setWidget(frame);
        auto *last = new RecordingEditor(frame, "last", calls);
        auto *nestedFrame = new QWidget(frame);
        auto *first = new RecordingEditor(frame, "first", calls);
        addLeaf(page, first);
        DBSettingsGroup *nested = addJsonGroup(page, "json", nestedFrame);
        auto *member2 = new RecordingEditor(nestedFrame, "member2", calls);
        addLeaf(*nested, new RecordingEditor(nestedFrame, "member1", calls));
        addLeaf(*nested, member2);
        addLeaf(page, last);
        for (RecordingEditor *editor : {first, member2, last})
            editor->setValue("stored");
        calls.clear();
    }

    QStringList calls;
    DBSettingsGroup page{1};
};

void TestDBSettingsGroup::setDefaultValueGoesDepthFirst()
{
    RecordedPage recorded;
    recorded.page.setDefaultValue();
    QCOMPARE(recorded.calls, QStringList({"first.setDefaultValue", "first.setValue stored", "member1.setDefaultValue",
                                          "member1.setValue invalid", "member2.setDefaultValue",
                                          "member2.setValue stored", "last.setDefaultValue", "last.setValue stored"}));
}

void TestDBSettingsGroup::updateDefaultValueGoesDepthFirst()
{
    RecordedPage recorded;
    recorded.page.updateDefaultValue();
    QCOMPARE(recorded.calls, QStringList({"first.setValue stored", "member1.setValue invalid",
                                          "member2.setValue stored", "last.setValue stored"}));
}

/// A page of two spin boxes and one in a nested group, all of them stored as 5.
class SpinBoxPage
{
public:
    SpinBoxPage()
    {
        page.setWidget(new QWidget);
        auto *nestedFrame = new QWidget(page.widget().get());
        // The frame's order is another than the nodes'.
        DBParamWidget *last = newSpinBox(page.widget().get(), "last");
        addLeaf(page, newSpinBox(page.widget().get(), "first"));
        addLeaf(*addJsonGroup(page, "json", nestedFrame), newSpinBox(nestedFrame, "member"));
        addLeaf(page, last);
    }

    void edit(int value)
    {
        for (QSpinBox *spinBox : page.widget()->findChildren<QSpinBox *>())
            spinBox->setValue(value);
    }

    DBSettingsGroup page{1};

private:
    static DBParamWidget *newSpinBox(QWidget *parent, const QString &key)
    {
        auto *editor = new DBSpinBoxWidget(parent);
        editor->setKey(key);
        editor->setValue(5);
        return editor;
    }
};

void TestDBSettingsGroup::signalsOfARevertComeInChildOrder()
{
    SpinBoxPage spinBoxes;
    spinBoxes.edit(7);
    QStringList signalled;
    for (DBParamWidget *editor : spinBoxes.page.widget()->findChildren<DBParamWidget *>()) {
        connect(editor, &DBParamWidget::paramChanged, this,
                [&](const QString &key, const QVariant &value) { signalled << key + ' ' + value.toString(); });
    }

    spinBoxes.page.setDefaultValue();
    QCOMPARE(signalled, QStringList({"first 5", "member 5", "last 5"}));
}

void TestDBSettingsGroup::updateThenRevertChangesNothing()
{
    SpinBoxPage spinBoxes;
    spinBoxes.edit(7);
    const OBJECT_PARAMETERS before = spinBoxes.page.parameters();
    const OBJECT_PARAMETERS expected{{"first", "7"}, {"json", "{\n    \"member\": \"7\"\n}\n"}, {"last", "7"}};
    QCOMPARE(before, expected);

    spinBoxes.page.updateDefaultValue();
    QCOMPARE(spinBoxes.page.parameters(), expected);
    spinBoxes.page.setDefaultValue();
    QCOMPARE(spinBoxes.page.parameters(), expected);
}

void TestDBSettingsGroup::editsAreRevertedAndAccepted()
{
    SpinBoxPage spinBoxes;
    spinBoxes.edit(7);
    spinBoxes.page.setDefaultValue();
    QCOMPARE(spinBoxes.page.paramValue("first"), QVariant(5));
    QCOMPARE(spinBoxes.page.paramValue("member"), QVariant(5));
    QCOMPARE(spinBoxes.page.paramValue("last"), QVariant(5));

    spinBoxes.edit(8);
    spinBoxes.page.updateDefaultValue();
    spinBoxes.edit(9);
    spinBoxes.page.setDefaultValue();
    QCOMPARE(spinBoxes.page.paramValue("first"), QVariant(8));
    QCOMPARE(spinBoxes.page.paramValue("member"), QVariant(8));
    QCOMPARE(spinBoxes.page.paramValue("last"), QVariant(8));
}

void TestDBSettingsGroup::widgetIsReplaced()
{
    DBSettingsGroup group(1);
    const QPointer<QWidget> first(new QWidget);
    const QPointer<QWidget> second(new QWidget);
    newEditor(second, "key", 2);
    group.setWidget(first);
    std::shared_ptr<QWidget> held = group.widget();
    group.setWidget(second);

    QVERIFY(first);
    held.reset();
    QVERIFY(!first);
    QCOMPARE(group.widget().get(), second.data());
    QCOMPARE(group.paramKeys(), QStringList("key"));
}

void TestDBSettingsGroup::unknownGroupKeepsItsTitle()
{
    DBSettingsGroup group(999);
    auto *frame = new VXSettingsGroupWidget(nullptr);
    frame->setTitle("own");
    group.setWidget(frame);
    group.retranslate();
    QCOMPARE(frame->title(), QString("own"));
}

void TestDBSettingsGroup::nullDropsTheWidget()
{
    DBSettingsGroup group(1);
    const QPointer<QWidget> frame(new QWidget);
    addLeaf(group, newEditor(frame, "key", 1));
    group.setWidget(frame);
    group.setWidget(nullptr);

    QVERIFY(!frame);
    QVERIFY(!group.widget());
    QVERIFY(!group.settings()[0]->widget());
    QVERIFY(group.parameters().isEmpty());
}

void TestDBSettingsGroup::sameWidgetAgainStays()
{
    auto group = std::make_unique<DBSettingsGroup>(1);
    const QPointer<QWidget> frame(new QWidget);
    newEditor(frame, "key", 1);
    group->setWidget(frame);
    group->setWidget(frame);

    QVERIFY(frame);
    QCOMPARE(group->widget().get(), frame.data());
    QCOMPARE(group->paramKeys(), QStringList("key"));
    group.reset();
    QVERIFY(!frame);
}

QTEST_MAIN(TestDBSettingsGroup)
#include "tst_dbsettingsgroup.moc"
