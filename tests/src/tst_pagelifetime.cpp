#include "installation.h"
#include "loggingrules.h"
#include "messages.h"
#include "pageinspection.h"

#include <vxwidgets/vxobjectselector.h>

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QSpinBox>
#include <QTreeView>

using namespace db::database;
using vantorix::OBJECT_PARAMETERS;

namespace {

std::unique_ptr<DBSettings> create(int group, QWidget *parent)
{
    return DBSettingsGroupFactory::create(DBGroups(group), parent, nullptr);
}

/// Texts of JSON groups whose members are gone.
OBJECT_PARAMETERS emptyObjects(int group)
{
    switch (group) {
    case 1:
        return {{PIN_STRENGTH, "{\n}\n"}};
    case 2:
        return {{PASSWORD_STRENGTH, "{\n}\n"}};
    case 5:
        return {{PALM_TEMPLATES_AMOUNT_SETTINGS, "{\n}\n"}};
    default:
        return {};
    }
}

/// Asks a tree for everything that a host may ask it for.
void useTree(DBSettings &tree)
{
    tree.parameters();
    tree.setDefaultValue();
    tree.updateDefaultValue();
    tree.toGroup()->paramKeys();
    tree.toGroup()->paramValue(MAX_CARD_COUNT);
    tree.toGroup()->setParamEnabled(MAX_CARD_COUNT, false);
    tree.toGroup()->setParamEnabled(QStringList(MAX_CARD_COUNT), true);
    tree.widget();
}

/// The editors of a node and of the nodes below it.
void appendEditors(DBSettings &node, std::vector<std::shared_ptr<QWidget>> &editors)
{
    for (const std::unique_ptr<DBSettings> &child : node.toGroup()->settings()) {
        if (child->isGroup())
            appendEditors(*child, editors);
        else
            editors.push_back(child->widget());
    }
}

std::vector<std::shared_ptr<QWidget>> editorHandles(DBSettings &tree)
{
    std::vector<std::shared_ptr<QWidget>> editors;
    appendEditors(tree, editors);
    return editors;
}
} // namespace

class TestPageLifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void treeFirst_data();
    void treeFirst();
    void parentFirst_data();
    void parentFirst();
    void frameFirst_data();
    void frameFirst();
    void contentFirst_data();
    void contentFirst();
    void editorsOneByOne_data();
    void editorsOneByOne();
    void fromAHandlerOfAnyWidget_data();
    void fromAHandlerOfAnyWidget();
    void fromAHandlerWhenThatWidgetAloneGoes_data();
    void fromAHandlerWhenThatWidgetAloneGoes();
    void treeIsAskedWhileItsWidgetsGo_data();
    void treeIsAskedWhileItsWidgetsGo();
    void heldEditorsOutliveTheTree_data();
    void heldEditorsOutliveTheTree();
    void editorsThatWereMovedStayThere();
    void heldEditorsGoWithTheirParent_data();
    void heldEditorsGoWithTheirParent();
    void heldFrameOutlivesTheTree_data();
    void heldFrameOutlivesTheTree();
    void shownPageGoesWithAPopupOpen();
    void deferredDeletion_data();
    void deferredDeletion();
    void pagesComeAndGo();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
    installation::Stored m_installation;
    int m_widgetCount = 0;
};

void TestPageLifetime::initTestCase()
{
    failOnUnexpectedMessages();
    m_widgetCount = QApplication::allWidgets().count();
}

void TestPageLifetime::cleanup()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(QApplication::allWidgets().count(), m_widgetCount);
}

void TestPageLifetime::treeFirst_data()
{
    installation::addPageRows();
}

void TestPageLifetime::treeFirst()
{
    QFETCH(int, group);
    QWidget window;
    std::unique_ptr<DBSettings> tree = create(group, &window);
    window.show();
    tree.reset();
    QVERIFY(window.children().isEmpty());
    QVERIFY(window.isVisible());
}

void TestPageLifetime::parentFirst_data()
{
    installation::addPageRows();
}

void TestPageLifetime::parentFirst()
{
    QFETCH(int, group);
    auto window = std::make_unique<QWidget>();
    const std::unique_ptr<DBSettings> tree = create(group, window.get());
    window->show();
    const int childCount = int(tree->toGroup()->settings().size());
    window.reset();

    QVERIFY(!tree->widget());
    QCOMPARE(int(tree->toGroup()->settings().size()), childCount);
    for (const std::shared_ptr<QWidget> &editor : editorHandles(*tree))
        QVERIFY(!editor);
    QCOMPARE(tree->parameters(), emptyObjects(group));
    QCOMPARE(tree->toGroup()->paramKeys(), QStringList());
    useTree(*tree);
}

void TestPageLifetime::frameFirst_data()
{
    installation::addPageRows();
}

void TestPageLifetime::frameFirst()
{
    QFETCH(int, group);
    QWidget window;
    const std::unique_ptr<DBSettings> tree = create(group, &window);
    delete window.children().first();

    QVERIFY(!tree->widget());
    QCOMPARE(tree->parameters(), emptyObjects(group));
    useTree(*tree);
}

void TestPageLifetime::contentFirst_data()
{
    installation::addPageRows();
}

void TestPageLifetime::contentFirst()
{
    QFETCH(int, group);
    QWidget window;
    const std::unique_ptr<DBSettings> tree = create(group, &window);
    delete inspect::body(inspect::frame(*tree)).first();

    QVERIFY(tree->widget());
    QCOMPARE(tree->parameters(), emptyObjects(group));
    useTree(*tree);
}

void TestPageLifetime::editorsOneByOne_data()
{
    installation::addPageRows();
}

void TestPageLifetime::editorsOneByOne()
{
    QFETCH(int, group);
    QWidget window;
    const std::unique_ptr<DBSettings> tree = create(group, &window);
    QStringList keys = tree->toGroup()->paramKeys();
    while (!keys.isEmpty()) {
        const QString key = keys.takeFirst();
        delete inspect::editor(&window, key);
        QVERIFY(!tree->toGroup()->paramValue(key).isValid());
        QVERIFY(!tree->parameters().contains(key));
        QCOMPARE(tree->toGroup()->paramKeys().count(), keys.count());
        useTree(*tree);
    }
    QCOMPARE(tree->parameters(), emptyObjects(group));
}

void TestPageLifetime::fromAHandlerOfAnyWidget_data()
{
    installation::addPageRows();
}

void TestPageLifetime::fromAHandlerOfAnyWidget()
{
    QFETCH(int, group);
    int position = 0;
    int widgetCount = 1;
    for (; position < widgetCount; ++position) {
        auto window = std::make_unique<QWidget>();
        std::unique_ptr<DBSettings> tree = create(group, window.get());
        const QList<QWidget *> widgets = QList<QWidget *>{window.get()} + window->findChildren<QWidget *>();
        widgetCount = widgets.count();
        connect(widgets[position], &QObject::destroyed, this, [&tree] { tree.reset(); });
        window.reset();
        QVERIFY(!tree);
    }
    QVERIFY(position > 10);
}

void TestPageLifetime::fromAHandlerWhenThatWidgetAloneGoes_data()
{
    installation::addPageRows();
}

void TestPageLifetime::fromAHandlerWhenThatWidgetAloneGoes()
{
    QFETCH(int, group);
    QWidget window;
    for (int position = 0, widgetCount = 1; position < widgetCount; ++position) {
        std::unique_ptr<DBSettings> tree = create(group, &window);
        // What a host gets at through handles; the insides of frames and editors are not its to delete.
        QList<QWidget *> widgets;
        for (DBParamWidget *editor : window.findChildren<DBParamWidget *>())
            widgets << editor;
        for (VXSettingsGroupWidget *frame : window.findChildren<VXSettingsGroupWidget *>())
            widgets << frame;
        widgetCount = widgets.count();
        connect(widgets[position], &QObject::destroyed, this, [&tree] { tree.reset(); });
        delete widgets[position];
        QVERIFY(!tree);
        QVERIFY(window.findChildren<QWidget *>().isEmpty());
    }
}

void TestPageLifetime::treeIsAskedWhileItsWidgetsGo_data()
{
    installation::addPageRows();
}

void TestPageLifetime::treeIsAskedWhileItsWidgetsGo()
{
    QFETCH(int, group);
    auto window = std::make_unique<QWidget>();
    const std::unique_ptr<DBSettings> tree = create(group, window.get());
    int asked = 0;
    for (DBParamWidget *editor : window->findChildren<DBParamWidget *>()) {
        connect(editor, &QObject::destroyed, this, [&] {
            useTree(*tree);
            ++asked;
        });
    }
    const int editorCount = int(editorHandles(*tree).size());
    window.reset();
    QCOMPARE(asked, editorCount);
}

void TestPageLifetime::heldEditorsOutliveTheTree_data()
{
    installation::addPageRows();
}

void TestPageLifetime::heldEditorsOutliveTheTree()
{
    QFETCH(int, group);
    QWidget window;
    std::unique_ptr<DBSettings> tree = create(group, &window);
    std::vector<std::shared_ptr<QWidget>> editors = editorHandles(*tree);
    QHash<QString, QVariant> values;
    for (const QString &key : tree->toGroup()->paramKeys())
        values.insert(key, tree->toGroup()->paramValue(key));

    tree.reset();
    QVERIFY(window.children().isEmpty());
    for (const std::shared_ptr<QWidget> &widget : editors) {
        auto *editor = qobject_cast<DBParamWidget *>(widget.get());
        QVERIFY(editor);
        QVERIFY(!editor->parent());
        QCOMPARE(editor->value(), values.value(editor->key()));
    }
    const QPointer<QWidget> last = editors.back().get();
    editors.clear();
    QVERIFY(!last);
}

void TestPageLifetime::editorsThatWereMovedStayThere()
{
    QWidget window;
    QWidget other;
    std::unique_ptr<DBSettings> tree = create(1, &window);
    std::vector<std::shared_ptr<QWidget>> editors = editorHandles(*tree);
    editors.front()->setParent(&other);
    tree.reset();
    QCOMPARE(editors.front()->parentWidget(), &other);
    QVERIFY(!editors.back()->parentWidget());
}

void TestPageLifetime::heldEditorsGoWithTheirParent_data()
{
    installation::addPageRows();
}

void TestPageLifetime::heldEditorsGoWithTheirParent()
{
    QFETCH(int, group);
    auto window = std::make_unique<QWidget>();
    std::unique_ptr<DBSettings> tree = create(group, window.get());
    std::vector<std::shared_ptr<QWidget>> editors = editorHandles(*tree);
    const QPointer<QWidget> last = editors.back().get();

    window.reset();
    QVERIFY(!last);
    tree.reset();
    editors.clear();
}

void TestPageLifetime::heldFrameOutlivesTheTree_data()
{
    installation::addPageRows();
}

void TestPageLifetime::heldFrameOutlivesTheTree()
{
    QFETCH(int, group);
    QWidget window;
    std::unique_ptr<DBSettings> tree = create(group, &window);
    std::shared_ptr<QWidget> frame = tree->widget();
    const QPointer<QWidget> alive = frame.get();

    tree.reset();
    QVERIFY(alive);
    QCOMPARE(alive->parentWidget(), &window);
    window.show();
    QVERIFY(alive->isVisible());
    frame.reset();
    QVERIFY(!alive);
}

void TestPageLifetime::shownPageGoesWithAPopupOpen()
{
    for (const bool treeFirst : {true, false}) {
        auto window = std::make_unique<QWidget>();
        std::unique_ptr<DBSettings> tree = create(7, window.get());
        auto *layout = new QVBoxLayout(window.get());
        layout->addWidget(tree->widget().get());
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        auto *selector = inspect::input<VXObjectSelector>(window.get(), DEFAULT_DEPARTMENT);
        selector->showPopup();
        QTRY_VERIFY(selector->view()->isVisible());
        if (treeFirst)
            tree.reset();
        else
            window.reset();
        QCoreApplication::processEvents();
    }
}

void TestPageLifetime::deferredDeletion_data()
{
    installation::addPageRows();
}

void TestPageLifetime::deferredDeletion()
{
    QFETCH(int, group);
    auto *window = new QWidget;
    std::unique_ptr<DBSettings> tree = create(group, window);
    window->show();
    for (DBParamWidget *editor : window->findChildren<DBParamWidget *>())
        editor->deleteLater();
    window->deleteLater();
    useTree(*tree);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!tree->widget());

    // A tree that goes before the posted deletion takes it along.
    QWidget other;
    tree = create(group, &other);
    tree->widget()->deleteLater();
    tree.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(other.children().isEmpty());
}

void TestPageLifetime::pagesComeAndGo()
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    window.show();
    std::unique_ptr<DBSettings> tree;
    for (int round = 0; round < 5; ++round) {
        for (const installation::PageName &page : installation::pages) {
            tree = create(int(page.group), &window);
            layout->addWidget(tree->widget().get());
            QCOMPARE(layout->count(), 1);
            QVERIFY(!tree->parameters().isEmpty());
        }
    }
}

QTEST_MAIN(TestPageLifetime)
#include "tst_pagelifetime.moc"
