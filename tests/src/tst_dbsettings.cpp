#include <vxsettings/dbsettings.h>

#include "loggingrules.h"
#include "messages.h"
#include "testtree.h"

#include <vxsettings/dbsettingsgroupfactory.h>

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QVBoxLayout>

#include <functional>

using testtree::addJsonGroup;
using testtree::addLeaf;
using testtree::newEditor;

Q_DECLARE_METATYPE(DBGroups)

namespace {

using Visit = std::function<void(const QString &, QWidget *)>;

/// A settings tree on a page, the Qt parent of its frame, and its widgets under names.
struct Tree
{
    std::unique_ptr<DBSettings> root;
    QPointer<QWidget> page;
    QHash<QString, DBSettings *> nodes; // owned by root
    QHash<QString, QPointer<QWidget>> widgets;

    void add(const QString &name, QWidget *widget, DBSettings *node)
    {
        widgets.insert(name, widget);
        nodes.insert(name, node);
    }
};

QWidget *newPage()
{
    auto *page = new QWidget;
    new QVBoxLayout(page);
    return page;
}

QWidget *inputOf(QWidget *editor)
{
    return qobject_cast<DBParamWidget *>(editor)->centralWidget();
}

/// Hands every widget to @p visit before a node gets it.
Tree makeByHand(const Visit &visit)
{
    Tree tree;
    tree.page = newPage();
    tree.widgets.insert("page", tree.page);
    visit("page", tree.page);

    auto group = std::make_unique<DBSettingsGroup>(2);
    auto *frame = new QWidget(tree.page);
    tree.page->layout()->addWidget(frame);
    visit("frame", frame);
    group->setWidget(frame);
    tree.add("frame", frame, group.get());

    const auto addEditor = [&](const QString &name, DBSettingsGroup &node, QWidget *parent) {
        DBParamWidget *editor = newEditor(parent, "PT_" + name.toUpper(), 1);
        editor->setCentralWidget(new QLineEdit);
        visit(name, editor);
        tree.add(name, editor, addLeaf(node, editor));
    };
    auto *nestedFrame = new QWidget(frame);
    visit("nested frame", nestedFrame);
    JsonGroup *nested = addJsonGroup(*group, "PT_JSON", nestedFrame);
    tree.add("nested frame", nestedFrame, nested);
    addEditor("member", *nested, nestedFrame);
    addEditor("editor", *group, frame);
    addEditor("last editor", *group, frame);
    tree.widgets.insert("input", inputOf(tree.widgets["editor"]));
    visit("input", tree.widgets["input"]);

    tree.root = std::move(group);
    return tree;
}

/// Hands every widget to @p visit when the page is ready, as a host can do it.
Tree makeByFactory(const Visit &visit)
{
    Tree tree;
    tree.page = newPage();
    tree.root = DBSettingsGroupFactory::create(DBGroups::Users, tree.page, nullptr);
    tree.page->layout()->addWidget(tree.root->widget().get());

    auto &children = tree.root->toGroup()->settings();
    DBSettings *nested = children.front().get(); // the password's strength
    tree.widgets.insert("page", tree.page);
    tree.add("frame", tree.root->widget().get(), tree.root.get());
    tree.add("nested frame", nested->widget().get(), nested);
    DBSettings *member = nested->toGroup()->settings().front().get();
    tree.add("member", member->widget().get(), member);
    tree.add("editor", children[1]->widget().get(), children[1].get());
    tree.add("last editor", children.back()->widget().get(), children.back().get());
    tree.widgets.insert("input", inputOf(tree.widgets["editor"]));
    for (auto widget = tree.widgets.begin(); widget != tree.widgets.end(); ++widget)
        visit(widget.key(), widget.value());
    return tree;
}

void visitNothing(const QString &, QWidget *) {}

Tree makeTree(bool byHand, const Visit &visit = visitNothing)
{
    return byHand ? makeByHand(visit) : makeByFactory(visit);
}

const QStringList nodeNames = {"frame", "nested frame", "member", "editor", "last editor"};
const QStringList widgetNames = QStringList{"page", "input"} + nodeNames; // those without a node first

/// Whether widget @p inner goes when @p outer goes; a tree takes all but its page with it.
bool goesWith(const QString &inner, const QString &outer)
{
    if (inner == outer || outer == "page")
        return true;
    if (outer == "frame" || outer == "tree")
        return inner != "page";
    return (outer == "nested frame" && inner == "member") || (outer == "editor" && inner == "input");
}

/// Shows @p page with every widget on it waiting for a repaint.
bool putOnScreen(QWidget *page)
{
    page->show();
    QCoreApplication::processEvents(); // mostly that is enough, and spares hundreds of naps
    const bool isExposed = QTest::qWaitForWindowExposed(page);
    for (QWidget *widget : page->findChildren<QWidget *>())
        widget->update();
    return isExposed;
}

/// Whether @p page remembers none of the dead; a repaint and a key would reach them otherwise.
bool goesOn(QWidget *page)
{
    if (page->focusWidget() && !page->findChildren<QWidget *>().contains(page->focusWidget()))
        return false;
    QTest::keyClick(page, Qt::Key_Tab);
    QCoreApplication::processEvents();
    page->grab();
    return true;
}
} // namespace

/// Who owns the widgets, and what happens when one of the owners goes.
class TestDBSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }
    void init() { m_widgetsBefore = QApplication::allWidgets().count(); }
    void cleanup() { QCOMPARE(QApplication::allWidgets().count(), m_widgetsBefore); }

    void everyPageGoesInAnyOrder_data();
    void everyPageGoesInAnyOrder();
    void pageWithoutParentGoesWithItsTree();
    void nodesOfAGonePageHaveNothing_data() { addKinds(); }
    void nodesOfAGonePageHaveNothing();
    void nodesOfAGoneNestedFrameHaveNothing_data() { addKinds(); }
    void nodesOfAGoneNestedFrameHaveNothing();
    void treeDroppedWhileAWidgetDies_data();
    void treeDroppedWhileAWidgetDies();
    void treeDroppedWhileAWidgetIsReplaced_data();
    void treeDroppedWhileAWidgetIsReplaced();
    void treeDroppedWhileANodeIsRemoved_data() { addKindsAndWidgets(); }
    void treeDroppedWhileANodeIsRemoved();
    void heldWidgetOutlivesTheTree_data() { addKindsAndWidgets(); }
    void heldWidgetOutlivesTheTree();
    void heldWidgetsOutliveTheTreeTogether_data() { addKinds(); }
    void heldWidgetsOutliveTheTreeTogether();
    void heldFrameStaysOnItsPage_data() { addKinds(); }
    void heldFrameStaysOnItsPage();
    void heldEditorInsideAnotherOutlivesTheTree();
    void heldWidgetGoesWithItsPage_data() { addKindsAndWidgets(); }
    void heldWidgetGoesWithItsPage();

private:
    static void addKinds();
    static void addKindsAndWidgets();

    const LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
    int m_widgetsBefore = 0;
};

void TestDBSettings::addKinds()
{
    QTest::addColumn<bool>("byHand");
    QTest::newRow("by hand") << true;
    QTest::newRow("by factory") << false;
}

void TestDBSettings::addKindsAndWidgets()
{
    QTest::addColumn<bool>("byHand");
    QTest::addColumn<QString>("name");
    for (const QString &name : nodeNames) {
        QTest::addRow("by hand, %s", qPrintable(name)) << true << name;
        QTest::addRow("by factory, %s", qPrintable(name)) << false << name;
    }
}

void TestDBSettings::everyPageGoesInAnyOrder_data()
{
    QTest::addColumn<DBGroups>("group");
    QTest::addColumn<bool>("treeFirst");
    QTest::addColumn<bool>("shown");
    for (int group : {0, 1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12}) {
        for (bool treeFirst : {true, false}) {
            for (bool shown : {true, false}) {
                QTest::addRow("group %d, %s first, %s", group, treeFirst ? "tree" : "page",
                              shown ? "on screen" : "never shown")
                    << DBGroups(group) << treeFirst << shown;
            }
        }
    }
}

void TestDBSettings::everyPageGoesInAnyOrder()
{
    QFETCH(DBGroups, group);
    QFETCH(bool, treeFirst);
    QFETCH(bool, shown);
    auto page = std::make_unique<QWidget>();
    new QVBoxLayout(page.get());
    std::unique_ptr<DBSettings> tree = DBSettingsGroupFactory::create(group, page.get(), nullptr);
    const QPointer<QWidget> frame(tree->widget().get());
    page->layout()->addWidget(frame);
    if (shown) {
        page->show();
        QVERIFY(QTest::qWaitForWindowExposed(page.get()));
    }

    if (treeFirst)
        tree.reset();
    else
        page.reset();
    QVERIFY(!frame);
    QCOMPARE(QApplication::allWidgets().count(), m_widgetsBefore + (treeFirst ? 1 : 0));
}

void TestDBSettings::pageWithoutParentGoesWithItsTree()
{
    std::unique_ptr<DBSettings> tree = DBSettingsGroupFactory::create(DBGroups::Employees, nullptr, nullptr);
    const QPointer<QWidget> frame(tree->widget().get());
    QVERIFY(frame && !frame->parent());
    tree.reset();
    QVERIFY(!frame);
}

void TestDBSettings::nodesOfAGonePageHaveNothing()
{
    QFETCH(bool, byHand);
    const Tree tree = makeTree(byHand);
    delete tree.page;

    for (DBSettings *node : tree.nodes)
        QVERIFY(!node->widget());
    QCOMPARE(tree.root->parameters().count(), 1); // only the text of an empty JSON object
    tree.root->setDefaultValue();
    tree.root->updateDefaultValue();
    QCOMPARE(tree.root->toGroup()->paramKeys(), QStringList());
    QVERIFY(!tree.nodes["nested frame"]->toGroup()->paramValue("min_len").isValid());
}

void TestDBSettings::nodesOfAGoneNestedFrameHaveNothing()
{
    QFETCH(bool, byHand);
    const Tree tree = makeTree(byHand);
    const int count = tree.root->parameters().count();
    delete tree.widgets["nested frame"];

    QVERIFY(!tree.nodes["nested frame"]->widget());
    QVERIFY(!tree.nodes["member"]->widget());
    QVERIFY(tree.nodes["editor"]->widget());
    QCOMPARE(tree.root->parameters().count(), count); // with an empty JSON object
    QCOMPARE(tree.nodes["nested frame"]->parameters().values(), QStringList("{\n}\n"));
    tree.root->setDefaultValue();
    delete tree.page;
}

void TestDBSettings::treeDroppedWhileAWidgetDies_data()
{
    QTest::addColumn<bool>("byHand");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("watched");
    QTest::addColumn<bool>("connectedFirst"); // before the node got the widget
    QTest::addColumn<bool>("shown");
    QTest::addColumn<QString>("held");

    for (const QString &first : QStringList{"tree"} + widgetNames) {
        for (const QString &watched : widgetNames) {
            for (const QString held : {"", "editor", "member", "nested frame", "frame"}) {
                const auto row = [&](const char *kind, bool byHand, bool connectedFirst, bool shown) {
                    QTest::addRow("%s goes first, tree goes with %s, %s%s, held: %s", qPrintable(first),
                                  qPrintable(watched), kind, shown ? ", on screen" : "", qPrintable(held))
                        << byHand << first << watched << connectedFirst << shown << held;
                };
                row("by hand", true, false, false);
                row("by hand, connected before", true, true, false);
                row("by hand", true, false, true);
                row("by hand, connected before", true, true, true);
                row("by factory", false, false, false);
                row("by factory", false, false, true);
            }
        }
    }
}

void TestDBSettings::treeDroppedWhileAWidgetDies()
{
    QFETCH(bool, byHand);
    QFETCH(QString, first);
    QFETCH(QString, watched);
    QFETCH(bool, connectedFirst);
    QFETCH(bool, shown);
    QFETCH(QString, held);

    Tree tree;
    int dropped = 0;
    const auto dropTree = [&] {
        ++dropped;
        tree.root.reset();
    };
    tree = makeTree(byHand, [&](const QString &name, QWidget *widget) {
        if (connectedFirst && name == watched)
            connect(widget, &QObject::destroyed, this, dropTree);
    });
    if (!connectedFirst)
        connect(tree.widgets[watched], &QObject::destroyed, this, dropTree);
    if (shown)
        QVERIFY(putOnScreen(tree.page));
    std::shared_ptr<QWidget> handle = tree.nodes.contains(held) ? tree.nodes[held]->widget() : nullptr;

    if (first == "tree")
        tree.root.reset();
    else
        delete tree.widgets[first];
    const bool isSaved = first == "tree" && (watched == held || (watched == "input" && held == "editor"));
    QCOMPARE(dropped, goesWith(watched, first) && !isSaved ? 1 : 0);
    if (tree.page && shown)
        QVERIFY(goesOn(tree.page));
    tree.root.reset();
    delete tree.page;
    handle.reset();
}

void TestDBSettings::treeDroppedWhileAWidgetIsReplaced_data()
{
    QTest::addColumn<bool>("group");
    QTest::addColumn<bool>("connectedFirst");
    QTest::newRow("editor of a leaf") << false << false;
    QTest::newRow("editor of a leaf, connected before") << false << true;
    QTest::newRow("frame of a group") << true << false;
    QTest::newRow("frame of a group, connected before") << true << true;
}

void TestDBSettings::treeDroppedWhileAWidgetIsReplaced()
{
    QFETCH(bool, group);
    QFETCH(bool, connectedFirst);
    const QString name = group ? "frame" : "editor";
    Tree tree;
    const auto dropTree = [&] { tree.root.reset(); };
    tree = makeByHand([&](const QString &created, QWidget *widget) {
        if (connectedFirst && created == name)
            connect(widget, &QObject::destroyed, this, dropTree);
    });
    if (!connectedFirst)
        connect(tree.widgets[name], &QObject::destroyed, this, dropTree);

    const QPointer<QWidget> replacement(newEditor(nullptr, "PT_NEW"));
    if (group)
        tree.nodes[name]->toGroup()->setWidget(replacement);
    else
        static_cast<DBSettingsValue *>(tree.nodes[name])->setWidget(replacement);
    QVERIFY(!tree.root);
    QVERIFY(!replacement); // the node took it over, and went
    delete tree.page;
}

void TestDBSettings::treeDroppedWhileANodeIsRemoved()
{
    QFETCH(bool, byHand);
    QFETCH(QString, name);
    Tree tree = makeTree(byHand);
    connect(tree.widgets[name], &QObject::destroyed, this, [&] { tree.root.reset(); });

    for (std::unique_ptr<DBSettings> &child : tree.root->toGroup()->settings()) {
        child.reset();
        if (!tree.root)
            break;
    }
    tree.root.reset();
    QVERIFY(!tree.widgets["frame"]);
    delete tree.page;
}

void TestDBSettings::heldWidgetOutlivesTheTree()
{
    QFETCH(bool, byHand);
    QFETCH(QString, name);
    Tree tree = makeTree(byHand);
    std::shared_ptr<QWidget> held = tree.nodes[name]->widget();
    std::shared_ptr<QWidget> second = held;
    const QPointer<QWidget> widget = tree.widgets[name];

    tree.root.reset();
    QVERIFY(widget);
    for (const QString &other : widgetNames) {
        const bool isPartOfIt = name == "editor" && other == "input";
        QCOMPARE(!tree.widgets[other].isNull(), other == name || other == "page" || isPartOfIt);
    }
    QVERIFY(widget->findChildren<DBParamWidget *>().isEmpty());
    if (name != "frame") {
        QVERIFY(!widget->parent());
        delete tree.page;
    }
    QCOMPARE(widget.data(), held.get());
    if (const auto *editor = qobject_cast<DBParamWidget *>(widget))
        QVERIFY(!editor->key().isEmpty());
    held.reset();
    QVERIFY(widget);
    second.reset();
    QVERIFY(!widget);
    delete tree.page;
}

void TestDBSettings::heldWidgetsOutliveTheTreeTogether()
{
    QFETCH(bool, byHand);
    Tree tree = makeTree(byHand);
    std::vector<std::shared_ptr<QWidget>> held;
    for (const char *name : {"frame", "nested frame", "member", "editor"})
        held.push_back(tree.nodes[name]->widget());

    tree.root.reset();
    for (const char *name : {"frame", "nested frame", "member", "editor"})
        QVERIFY2(tree.widgets[name], name);
    QVERIFY(!tree.widgets["last editor"]);
    while (!held.empty()) {
        const QPointer<QWidget> widget(held.front().get());
        held.erase(held.begin());
        QVERIFY(!widget);
        for (const auto &other : held)
            QVERIFY(!other->parent()); // another one's death does not concern it
    }
    delete tree.page;
}

void TestDBSettings::heldFrameStaysOnItsPage()
{
    QFETCH(bool, byHand);
    Tree tree = makeTree(byHand);
    std::shared_ptr<QWidget> held = tree.root->widget();
    tree.root.reset();
    QCOMPARE(held->parentWidget(), tree.page.data());
    delete tree.page;
    QVERIFY(!tree.widgets["frame"]);
    held.reset();
}

void TestDBSettings::heldEditorInsideAnotherOutlivesTheTree()
{
    auto group = std::make_unique<DBSettingsGroup>(1);
    auto *frame = new QWidget;
    group->setWidget(frame);
    DBParamWidget *outer = newEditor(frame, "PT_OUTER", 1);
    const QPointer<QWidget> inner(newEditor(outer, "PT_INNER", 2));
    addLeaf(*group, outer);
    std::shared_ptr<QWidget> held = addLeaf(*group, inner)->widget();

    group.reset();
    QVERIFY(inner);
    held.reset();
    QVERIFY(!inner);
}

void TestDBSettings::heldWidgetGoesWithItsPage()
{
    QFETCH(bool, byHand);
    QFETCH(QString, name);
    Tree tree = makeTree(byHand);
    std::shared_ptr<QWidget> held = tree.nodes[name]->widget();
    delete tree.page;
    QVERIFY(!tree.widgets[name]);
    QVERIFY(!tree.nodes[name]->widget());
    QVERIFY(held); // Qt's ownership goes first: a handle is no protection
    tree.root.reset();
    held.reset();
}

QTEST_MAIN(TestDBSettings)
#include "tst_dbsettings.moc"
