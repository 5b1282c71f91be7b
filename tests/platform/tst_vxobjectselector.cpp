#include <vxwidgets/vxobjectselector.h>

#include "messages.h"
#include "objectoutline.h"
#include "storedsettings.h"

#include <vxwidgets/grantedproxymodel.h>
#include <vxwidgets/vxtreeviewdelegate.h>

#include <QApplication>
#include <QSignalBlocker>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

#include <algorithm>
#include <functional>
#include <memory>

using vantorix::LocalStorage;
using vantorix::ObjectRecord;
using Objects = QVector<ObjectRecord>;
Q_DECLARE_METATYPE(Objects)

class TestVXObjectSelector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void freshSelector();
    void freshSelectorCanBeUsed();
    void settingUpAPage();
    void sourceModelIsThere();
    void modelsBelongToTheSelector();
    void replacedProxyModel();
    void settersInAnyOrder_data();
    void settersInAnyOrder();

    void setCurrentUid_data();
    void setCurrentUid();
    void setCurrentUidSignalsOnce_data();
    void setCurrentUidSignalsOnce();
    void listenersSeeTheNewUid();
    void choosingFromAHandler();
    void silentChoice();
    void sameUidTwice();

    void rowsThatArriveAreNotChosen();
    void changedObjectsKeepTheChoice_data();
    void changedObjectsKeepTheChoice();
    void changedObjectsAreSilent_data() { changedObjectsKeepTheChoice_data(); }
    void changedObjectsAreSilent();
    void missingObject();
    void missingObjectCanBeGivenUp_data();
    void missingObjectCanBeGivenUp();
    void awaitedObjectArrives();
    void abandonedObjectDoesNotComeBack();
    void choiceWithoutAChoosableObject_data();
    void choiceWithoutAChoosableObject();
    void otherDatanameKeepsTheUid();
    void changedFilterKeepsTheChoice();
    void nameThatChangesIsShown();

    void choosingByHand_data();
    void choosingByHand();
    void popupStaysOpenWhenObjectsChange();
    void popupSurvivesThatTheChosenObjectGoes();
    void popupSurvivesThatEverythingGoes();
    void parentsOfOtherTypesAreOnlyOpened();

    void hostileObjects_data();
    void hostileObjects();
    void manySiblings();
    void selectorsOfOneDatanameAreIndependent();
    void deletedSelectorHearsNothing();
};

namespace {

const QStringList offices{"OT_SUBJECTROOT", "OT_FIRM", "OT_DEPARTMENT"};

const Objects company = {
    {1, 0, "OT_SUBJECTROOT", "Company"}, {2, 1, "OT_FIRM", "North"},         {21, 2, "OT_DEPARTMENT", "Accounts"},
    {22, 2, "OT_DEPARTMENT", "Stores"},  {3, 1, "OT_GROUP", "Contractors"},  {31, 3, "OT_FIRM", "Builders"},
    {4, 1, "OT_FIRM", "South"},          {41, 4, "OT_DEPARTMENT", "Guards"}, {5, 1, "OT_FIRM", "Secret", false},
    {51, 5, "OT_DEPARTMENT", "Vault"},   {6, 1, "OT_WORKER", "Director"}};

/// A selector as the editor of a settings page sets it up.
struct PageSelector
{
    explicit PageSelector(const Objects &objects = company)
        : stored("orgstructure", objects)
    {
        selector.setProxyModel(new GrantedProxyModel(&selector));
        selector.setFixedWidth(400);
        proxy()->setObjectTypeFilter(offices);
        proxy()->setFilterAcceptsParents(true);
        selector.setDataname("orgstructure");
        selector.setDefaultRootIndex(proxy()->index(0, 0));
        selector.setCurrentUid(0);
        tree()->setItemDelegate(new VXTreeViewDelegate(tree()));
        QObject::connect(&selector, qOverload<int>(&QComboBox::currentIndexChanged), &selector,
                         [this] { heard << selector.currentUid(); });
    }

    ObjectTreeProxy *proxy() const { return selector.proxyModel(); }
    QTreeView *tree() const { return qobject_cast<QTreeView *>(selector.view()); }
    QVector<unsigned int> takeHeard() { return std::exchange(heard, {}); }
    void store(const Objects &objects) { LocalStorage::instance()->setObjects("orgstructure", objects); }

    bool openPopup()
    {
        selector.show();
        if (!QTest::qWaitForWindowExposed(&selector))
            return false;
        selector.showPopup();
        return QTest::qWaitForWindowExposed(tree()->window());
    }
    void click(unsigned int uid)
    {
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, tree()->visualRect(proxy()->indexOf(uid)).center());
    }

    StoredObjects stored;
    VXObjectSelector selector;
    QVector<unsigned int> heard; // what currentUid() was at each currentIndexChanged()
};

Objects without(unsigned int uid)
{
    Objects objects = company;
    objects.erase(
        std::remove_if(objects.begin(), objects.end(), [uid](const ObjectRecord &record) { return record.uid == uid; }),
        objects.end());
    return objects;
}

Objects changed(unsigned int uid, const std::function<void(ObjectRecord *)> &change)
{
    Objects objects = company;
    for (ObjectRecord &record : objects) {
        if (record.uid == uid)
            change(&record);
    }
    return objects;
}

const QVector<unsigned int> nothing;
} // namespace

void TestVXObjectSelector::freshSelector()
{
    QWidget parent;
    const VXObjectSelector selector(&parent);
    QCOMPARE(selector.parentWidget(), &parent);
    QVERIFY(qobject_cast<QTreeView *>(selector.view()));
    QVERIFY(!selector.proxyModel());
    QCOMPARE(selector.dataname(), QString());
    QCOMPARE(selector.currentUid(), 0u);
    QCOMPARE(selector.currentIndex(), -1);
    QVERIFY(!selector.currentModelIndex().isValid());
}

void TestVXObjectSelector::freshSelectorCanBeUsed()
{
    VXObjectSelector selector;
    selector.setCurrentUid(7);
    selector.setProxyModel(nullptr);
    selector.setDefaultRootIndex({});
    selector.show();
    QVERIFY(QTest::qWaitForWindowExposed(&selector));
    selector.grab();
    selector.showPopup();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_A})
        QTest::keyClick(&selector, key);
    QCOMPARE(selector.currentUid(), 0u);
    QVERIFY(!selector.view()->isVisible());
}

void TestVXObjectSelector::settingUpAPage()
{
    PageSelector page;
    QCOMPARE(page.takeHeard(), nothing);
    QCOMPARE(page.selector.currentUid(), 0u);
    QCOMPARE(page.selector.currentIndex(), -1);
    QCOMPARE(page.selector.currentText(), QString());
    QCOMPARE(page.selector.defaultRootIndex().data().toString(), QString("Company"));
    QCOMPARE(outline(*page.proxy()), QString("1(2(21 22) 3-(31) 4(41))"));
    const QAbstractItemModel *source = page.proxy()->sourceModel();
    QCOMPARE(source->rowCount(source->index(0, 0)), 5);
}

void TestVXObjectSelector::sourceModelIsThere()
{
    VXObjectSelector selector;
    ObjectTreeProxy proxy;
    selector.setProxyModel(&proxy);
    QCOMPARE(selector.proxyModel(), &proxy);
    QCOMPARE(selector.model(), &proxy);
    QCOMPARE(selector.view()->model(), &proxy);
    QVERIFY(proxy.sourceModel());
    QCOMPARE(proxy.sourceModel()->rowCount(proxy.sourceModel()->index(0, 0)), 0);
    selector.setDataname("unknown");
    QVERIFY(proxy.sourceModel());
    QCOMPARE(proxy.sourceModel()->rowCount(), 0);
}

void TestVXObjectSelector::modelsBelongToTheSelector()
{
    auto selector = std::make_unique<VXObjectSelector>();
    ObjectTreeProxy outliving;
    selector->setProxyModel(&outliving);
    QCOMPARE(outliving.parent(), nullptr);
    selector.reset();
    QVERIFY(!outliving.sourceModel());
    QCOMPARE(outliving.rowCount(), 0);
}

void TestVXObjectSelector::replacedProxyModel()
{
    PageSelector page;
    page.selector.setCurrentUid(31);
    page.takeHeard();
    const QPointer<ObjectTreeProxy> previous = page.proxy();
    auto *all = new ObjectTreeProxy(&page.selector);
    page.selector.setProxyModel(all);
    QVERIFY(!previous);
    QCOMPARE(page.proxy(), all);
    QCOMPARE(page.selector.currentUid(), 31u);
    QCOMPARE(page.selector.currentText(), QString("Builders"));
    page.selector.setProxyModel(all);
    page.selector.setProxyModel(nullptr);
    QCOMPARE(page.proxy(), all);
    QCOMPARE(page.takeHeard(), nothing);
    page.selector.setCurrentUid(3);
    QCOMPARE(page.takeHeard(), QVector<unsigned int>{3});
}

void TestVXObjectSelector::settersInAnyOrder_data()
{
    QTest::addColumn<QVector<int>>("order");
    QVector<int> order{0, 1, 2};
    do {
        QTest::addRow("%d %d %d", order[0], order[1], order[2]) << order;
    } while (std::next_permutation(order.begin(), order.end()));
}

void TestVXObjectSelector::settersInAnyOrder()
{
    QFETCH(QVector<int>, order);
    const StoredObjects stored("orgstructure", company);
    VXObjectSelector selector;
    for (const int step : order) {
        if (step == 0)
            selector.setProxyModel(new GrantedProxyModel(&selector));
        else if (step == 1)
            selector.setDataname("orgstructure");
        else
            selector.setCurrentUid(21);
    }
    QCOMPARE(selector.dataname(), QString("orgstructure"));
    QCOMPARE(selector.currentUid(), 21u);
    QCOMPARE(selector.currentText(), QString("Accounts"));
    QCOMPARE(selector.currentModelIndex(), selector.proxyModel()->indexOf(21));
}

void TestVXObjectSelector::setCurrentUid_data()
{
    QTest::addColumn<unsigned int>("uid");
    QTest::addColumn<unsigned int>("chosen");
    QTest::addColumn<QString>("text");
    QTest::newRow("top") << 1u << 1u << "Company";
    QTest::newRow("nested") << 22u << 22u << "Stores";
    QTest::newRow("below a parent that cannot be chosen") << 31u << 31u << "Builders";
    QTest::newRow("zero") << 0u << 0u << "";
    QTest::newRow("unknown") << 77u << 0u << "";
    QTest::newRow("highest") << 4294967295u << 0u << "";
    QTest::newRow("cannot be chosen") << 3u << 0u << "";
    QTest::newRow("hidden by its type") << 6u << 0u << "";
    QTest::newRow("not granted") << 5u << 0u << "";
    QTest::newRow("below one that is not granted") << 51u << 0u << "";
}

void TestVXObjectSelector::setCurrentUid()
{
    QFETCH(unsigned int, uid);
    QFETCH(unsigned int, chosen);
    for (const unsigned int before : {0u, 21u}) {
        PageSelector page;
        page.selector.setCurrentUid(before);
        page.selector.setCurrentUid(uid);
        QCOMPARE(page.selector.currentUid(), chosen);
        QTEST(page.selector.currentText(), "text");
        QCOMPARE(page.selector.currentModelIndex().isValid(), chosen != 0);
        QCOMPARE(page.selector.currentIndex() == -1, chosen == 0);
    }
}

void TestVXObjectSelector::setCurrentUidSignalsOnce_data()
{
    QTest::addColumn<unsigned int>("before");
    QTest::addColumn<unsigned int>("after");
    QTest::addColumn<QVector<unsigned int>>("heard");
    using Heard = QVector<unsigned int>;
    QTest::newRow("first choice") << 0u << 22u << Heard{22};
    QTest::newRow("same row number") << 21u << 31u << Heard{31};
    QTest::newRow("other row number") << 22u << 31u << Heard{31};
    QTest::newRow("the same") << 22u << 22u << Heard{};
    QTest::newRow("none") << 22u << 0u << Heard{0};
    QTest::newRow("unknown") << 22u << 77u << Heard{0};
    QTest::newRow("still none") << 0u << 0u << Heard{};
    QTest::newRow("unknown while none is chosen") << 0u << 77u << Heard{};
}

void TestVXObjectSelector::setCurrentUidSignalsOnce()
{
    QFETCH(unsigned int, before);
    QFETCH(unsigned int, after);
    PageSelector page;
    page.selector.setCurrentUid(before);
    page.takeHeard();
    page.selector.setCurrentUid(after);
    QTEST(page.takeHeard(), "heard");
}

void TestVXObjectSelector::listenersSeeTheNewUid()
{
    PageSelector page;
    page.selector.setCurrentUid(22);
    page.selector.setCurrentUid(31);
    page.selector.setCurrentUid(0);
    QCOMPARE(page.takeHeard(), QVector<unsigned int>({22, 31, 0}));
}

void TestVXObjectSelector::choosingFromAHandler()
{
    PageSelector page;
    connect(&page.selector, qOverload<int>(&QComboBox::currentIndexChanged), &page.selector, [&page] {
        if (page.selector.currentUid() == 0)
            page.selector.setCurrentUid(41);
    });
    page.selector.setCurrentUid(22);
    page.selector.setCurrentUid(77);
    QCOMPARE(page.selector.currentUid(), 41u);
    QCOMPARE(page.selector.currentText(), QString("Guards"));
    page.store(company + Objects{{77, 1, "OT_FIRM", "Late"}});
    QCOMPARE(page.selector.currentUid(), 41u);
}

void TestVXObjectSelector::silentChoice()
{
    PageSelector page;
    {
        const QSignalBlocker blocker(&page.selector);
        page.selector.setCurrentUid(22);
    }
    QCOMPARE(page.takeHeard(), nothing);
    QCOMPARE(page.selector.currentUid(), 22u);
    QCOMPARE(page.selector.currentText(), QString("Stores"));
    page.selector.setCurrentUid(22);
    QCOMPARE(page.takeHeard(), nothing);
}

void TestVXObjectSelector::sameUidTwice()
{
    PageSelector page(Objects{{1, 0, "OT_FIRM", "First"}, {1, 0, "OT_FIRM", "Second"}, {0, 0, "OT_FIRM", "No uid"}});
    page.selector.setCurrentUid(1);
    QCOMPARE(page.selector.currentText(), QString("First"));
    page.selector.setCurrentModelIndex(page.proxy()->index(1, 0));
    QCOMPARE(page.selector.currentText(), QString("Second"));
    QCOMPARE(page.takeHeard(), QVector<unsigned int>({1, 1}));
}

void TestVXObjectSelector::rowsThatArriveAreNotChosen()
{
    PageSelector page{Objects()};
    QVERIFY(!page.selector.defaultRootIndex().isValid());
    page.store(company);
    QCOMPARE(outline(*page.proxy()), QString("1(2(21 22) 3-(31) 4(41))"));
    QCOMPARE(page.selector.currentIndex(), -1);
    QCOMPARE(page.selector.currentUid(), 0u);
    page.store({});
    page.store(company);
    QCOMPARE(page.selector.currentIndex(), -1);
    QCOMPARE(page.takeHeard(), nothing);
}

void TestVXObjectSelector::changedObjectsKeepTheChoice_data()
{
    QTest::addColumn<Objects>("objects");
    QTest::addColumn<QString>("text");
    QTest::newRow("the same") << company << "Stores";
    QTest::newRow("one more before it") << Objects{{9, 2, "OT_FIRM", "New"}} + company << "Stores";
    QTest::newRow("one less before it") << without(21) << "Stores";
    QTest::newRow("moved") << changed(22, [](ObjectRecord *record) { record->parentUid = 41; }) << "Stores";
    QTest::newRow("moved to the top") << changed(22, [](ObjectRecord *record) { record->parentUid = 0; }) << "Stores";
    QTest::newRow("renamed") << changed(22, [](ObjectRecord *record) { record->name = "Depot"; }) << "Depot";
    QTest::newRow("its parent is gone") << without(2) << "Stores";
    QTest::newRow("alone") << Objects{{22, 0, "OT_FIRM", "Alone"}} << "Alone";
    QTest::newRow("gone") << without(22) << "";
    QTest::newRow("everything gone") << Objects() << "";
    QTest::newRow("not granted any more") << changed(22, [](ObjectRecord *record) { record->granted = false; }) << "";
    QTest::newRow("below one that is not granted")
        << changed(2, [](ObjectRecord *record) { record->granted = false; }) << "";
    QTest::newRow("of another type") << changed(22, [](ObjectRecord *record) { record->type = "OT_DOOR"; }) << "";
    QTest::newRow("only a parent any more")
        << changed(22, [](ObjectRecord *record) { record->type = "OT_DOOR"; }) + Objects{{9, 22, "OT_FIRM", "New"}}
        << "";
}

void TestVXObjectSelector::changedObjectsKeepTheChoice()
{
    QFETCH(Objects, objects);
    QFETCH(QString, text);
    PageSelector page;
    page.selector.setCurrentUid(22);
    page.store(objects);
    QCOMPARE(page.selector.currentText(), text);
    QCOMPARE(page.selector.currentUid(), 22u);
    QCOMPARE(page.selector.currentModelIndex().isValid(), !text.isEmpty());
    QCOMPARE(page.selector.currentIndex() == -1, text.isEmpty());

    page.store(company);
    QCOMPARE(page.selector.currentText(), QString("Stores"));
    QCOMPARE(page.selector.currentModelIndex(), page.proxy()->indexOf(22));
    QCOMPARE(page.selector.currentUid(), 22u);
}

void TestVXObjectSelector::changedObjectsAreSilent()
{
    QFETCH(Objects, objects);
    PageSelector page;
    page.selector.setCurrentUid(22);
    const QSignalSpy index(&page.selector, qOverload<int>(&QComboBox::currentIndexChanged));
    const QSignalSpy text(&page.selector, &QComboBox::currentTextChanged);
    const QSignalSpy activated(&page.selector, qOverload<int>(&QComboBox::activated));
    page.store(objects);
    page.store(company);
    QCOMPARE(index.count() + text.count() + activated.count(), 0);
}

void TestVXObjectSelector::missingObject()
{
    PageSelector page;
    page.selector.setCurrentUid(22);
    page.takeHeard();
    page.store(without(22));
    QCOMPARE(page.selector.currentUid(), 22u);
    page.selector.setCurrentUid(22);
    QCOMPARE(page.takeHeard(), nothing);
    page.selector.setCurrentUid(41);
    QCOMPARE(page.takeHeard(), QVector<unsigned int>{41});
    page.store(company);
    QCOMPARE(page.selector.currentUid(), 41u);
}

void TestVXObjectSelector::missingObjectCanBeGivenUp_data()
{
    QTest::addColumn<unsigned int>("uid");
    QTest::newRow("for none") << 0u;
    QTest::newRow("for another that is not there") << 77u;
    QTest::newRow("for one that cannot be chosen") << 3u;
}

void TestVXObjectSelector::missingObjectCanBeGivenUp()
{
    QFETCH(unsigned int, uid);
    PageSelector page;
    page.selector.setCurrentUid(22);
    page.store(without(22));
    page.takeHeard();
    page.selector.setCurrentUid(uid);
    QCOMPARE(page.takeHeard(), QVector<unsigned int>{0});
    QCOMPARE(page.selector.currentUid(), 0u);
    page.store(company);
    QCOMPARE(page.selector.currentUid(), 0u);
    QCOMPARE(page.selector.currentIndex(), -1);
}

void TestVXObjectSelector::awaitedObjectArrives()
{
    PageSelector page{Objects()};
    page.selector.setCurrentUid(22);
    QCOMPARE(page.selector.currentUid(), 0u);
    page.store(company);
    QCOMPARE(page.selector.currentUid(), 22u);
    QCOMPARE(page.selector.currentText(), QString("Stores"));
    QCOMPARE(page.takeHeard(), nothing);
}

void TestVXObjectSelector::abandonedObjectDoesNotComeBack()
{
    PageSelector page;
    page.selector.setCurrentUid(22);
    page.selector.setCurrentIndex(-1);
    QCOMPARE(page.takeHeard(), QVector<unsigned int>({22, 0}));
    page.store(company);
    QCOMPARE(page.selector.currentUid(), 0u);
    QCOMPARE(page.selector.currentIndex(), -1);
}

void TestVXObjectSelector::choiceWithoutAChoosableObject_data()
{
    QTest::addColumn<Objects>("objects");
    QTest::newRow("of another type") << Objects{{22, 0, "OT_DOOR", "Stores"}, {9, 22, "OT_FIRM", "New"}};
    QTest::newRow("without a uid") << Objects{{0, 0, "OT_FIRM", "Stores"}};
}

void TestVXObjectSelector::choiceWithoutAChoosableObject()
{
    QFETCH(Objects, objects);
    PageSelector page(objects);
    page.selector.setCurrentUid(objects.first().uid);
    QCOMPARE(page.selector.currentUid(), 0u);
    QCOMPARE(page.selector.currentIndex(), -1);
    QVERIFY(page.openPopup());
    QTest::mouseClick(page.tree()->viewport(), Qt::LeftButton, {},
                      page.tree()->visualRect(page.proxy()->index(0, 0)).center());
    QCOMPARE(page.tree()->currentIndex(), page.proxy()->index(0, 0));
    QTest::keyClick(page.tree(), Qt::Key_Return);
    QCOMPARE(page.takeHeard(), nothing);
    QVERIFY(page.tree()->isVisible());
}

void TestVXObjectSelector::otherDatanameKeepsTheUid()
{
    const StoredObjects cards("cards", {{22, 0, "OT_FIRM", "Card"}});
    PageSelector page;
    page.selector.setCurrentUid(22);
    page.takeHeard();
    page.selector.setDataname("cards");
    QCOMPARE(page.selector.currentText(), QString("Card"));
    page.store({});
    QCOMPARE(page.selector.currentText(), QString("Card"));
    page.selector.setDataname("unknown");
    QCOMPARE(page.selector.currentText(), QString());
    QCOMPARE(page.selector.currentUid(), 22u);
    QCOMPARE(page.takeHeard(), nothing);
}

void TestVXObjectSelector::changedFilterKeepsTheChoice()
{
    PageSelector page;
    page.selector.setCurrentUid(22);
    page.takeHeard();
    page.proxy()->setObjectTypeFilter({"OT_FIRM"});
    QCOMPARE(page.selector.currentText(), QString());
    QCOMPARE(page.selector.currentUid(), 22u);
    page.proxy()->setObjectTypeFilter({});
    QCOMPARE(page.selector.currentText(), QString("Stores"));
    QCOMPARE(page.takeHeard(), nothing);
}

void TestVXObjectSelector::nameThatChangesIsShown()
{
    /// Notices when something is painted.
    class Painted : public QObject
    {
    public:
        bool eventFilter(QObject *, QEvent *event) override
        {
            isPainted = isPainted || event->type() == QEvent::Paint;
            return false;
        }
        bool isPainted = false;
    } painted;
    PageSelector page;
    page.selector.setCurrentUid(22);
    page.selector.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page.selector));
    const QImage before = page.selector.grab().toImage();
    QApplication::processEvents();
    page.selector.installEventFilter(&painted);
    page.store(changed(22, [](ObjectRecord *record) { record->name = "Something else"; }));
    QTRY_VERIFY(painted.isPainted);
    QVERIFY(page.selector.grab().toImage() != before);
}

void TestVXObjectSelector::choosingByHand_data()
{
    QTest::addColumn<unsigned int>("before");
    QTest::addColumn<unsigned int>("clicked");
    QTest::newRow("first choice") << 0u << 2u;
    QTest::newRow("same row number") << 21u << 2u;
    QTest::newRow("default root") << 21u << 1u;
}

void TestVXObjectSelector::choosingByHand()
{
    QFETCH(unsigned int, before);
    QFETCH(unsigned int, clicked);
    PageSelector page;
    page.selector.setCurrentUid(before);
    page.takeHeard();
    QVERIFY(page.openPopup());
    page.click(clicked);
    QCOMPARE(page.takeHeard(), QVector<unsigned int>{clicked});
    QCOMPARE(page.selector.currentUid(), clicked);
    page.store(company + Objects{{9, 0, "OT_FIRM", "New"}});
    QCOMPARE(page.selector.currentUid(), clicked);
    page.store(without(clicked));
    QCOMPARE(page.selector.currentUid(), clicked);
    QCOMPARE(page.selector.currentText(), QString());
}

void TestVXObjectSelector::popupStaysOpenWhenObjectsChange()
{
    PageSelector page;
    page.selector.setCurrentUid(22);
    page.takeHeard();
    QVERIFY(page.openPopup());
    page.tree()->expand(page.proxy()->indexOf(4));
    page.tree()->setCurrentIndex(page.proxy()->indexOf(41));
    page.store(Objects{{9, 1, "OT_FIRM", "New"}} + company);

    QVERIFY(page.tree()->isVisible());
    for (const unsigned int open : {1u, 2u, 4u})
        QVERIFY(page.tree()->isExpanded(page.proxy()->indexOf(open)));
    QVERIFY(!page.tree()->isExpanded(page.proxy()->indexOf(3)));
    QCOMPARE(page.tree()->currentIndex(), page.proxy()->indexOf(41));
    QCOMPARE(page.tree()->selectionModel()->selectedIndexes(), QModelIndexList{page.proxy()->indexOf(41)});
    page.click(9);
    QCOMPARE(page.takeHeard(), QVector<unsigned int>{9});
}

void TestVXObjectSelector::popupSurvivesThatTheChosenObjectGoes()
{
    PageSelector page;
    page.selector.setCurrentUid(22);
    page.takeHeard();
    QVERIFY(page.openPopup());
    page.store(without(22));
    page.tree()->grab();
    QVERIFY(page.tree()->selectionModel()->selectedIndexes().isEmpty());
    QTest::keyClick(page.tree(), Qt::Key_Return);
    QCOMPARE(page.takeHeard(), nothing);
    QVERIFY(page.tree()->isVisible());
    QTest::keyClick(page.tree(), Qt::Key_Down);
    QTest::keyClick(page.tree(), Qt::Key_Return);
    QCOMPARE(page.takeHeard(), QVector<unsigned int>{1});
}

void TestVXObjectSelector::popupSurvivesThatEverythingGoes()
{
    PageSelector page;
    page.selector.setCurrentUid(22);
    page.takeHeard();
    QVERIFY(page.openPopup());
    page.store({});
    page.tree()->grab();
    QTest::mouseClick(page.tree()->viewport(), Qt::LeftButton, {}, {50, 10});
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_End, Qt::Key_A, Qt::Key_Return})
        QTest::keyClick(page.tree(), key);
    QTest::keyClick(page.tree(), Qt::Key_Escape);
    QVERIFY(!page.tree()->isVisible());
    QCOMPARE(page.takeHeard(), nothing);
    QCOMPARE(page.selector.currentUid(), 22u);
}

void TestVXObjectSelector::parentsOfOtherTypesAreOnlyOpened()
{
    PageSelector page;
    QVERIFY(page.openPopup());
    page.click(3);
    QVERIFY(page.tree()->isVisible());
    const QRect text = page.tree()->visualRect(page.proxy()->indexOf(3));
    QTest::mouseClick(page.tree()->viewport(), Qt::LeftButton, {},
                      {text.left() - page.tree()->indentation() / 2, text.center().y()});
    QVERIFY(page.tree()->isExpanded(page.proxy()->indexOf(3)));
    page.click(31);
    QCOMPARE(page.takeHeard(), QVector<unsigned int>{31});
}

void TestVXObjectSelector::hostileObjects_data()
{
    QTest::addColumn<Objects>("objects");
    QTest::newRow("circle") << Objects{{1, 2, "OT_FIRM", "a"}, {2, 3, "OT_FIRM", "b"}, {3, 1, "OT_FIRM", "c"}};
    QTest::newRow("their own parents") << Objects{
        {1, 1, "OT_FIRM", "a"}, {2, 2, "OT_FIRM", "b"}, {3, 2, "OT_FIRM", "c"}};
    QTest::newRow("orphans") << Objects{{3, 9, "OT_FIRM", "c"}, {2, 8, "OT_FIRM", "b"}, {1, 3, "OT_FIRM", "a"}};
    QTest::newRow("duplicates") << Objects{{3, 0, "OT_FIRM", "c"}, {3, 3, "OT_FIRM", "c"}, {3, 3, "OT_FIRM", "c"}};
    QTest::newRow("circle of another type")
        << Objects{{1, 2, "OT_DOOR", "a"}, {2, 1, "OT_DOOR", "b"}, {3, 1, "OT_FIRM", "c"}};
    QTest::newRow("hostile texts") << Objects{{3, 0, "OT_FIRM", "<b>\n&amp;\t\r\n</b>" + QString(1 << 20, 'x')},
                                              {1, 0, "../../../" + QString(1 << 20, 'x'), {}},
                                              {2, 1, "OT_FIRM", QString(QChar())}};
    Objects chain;
    for (unsigned int uid = 100000; uid > 0; --uid)
        chain.append({uid, uid - 1, "OT_FIRM", "link"});
    QTest::newRow("chain of 100,000") << chain;
    std::reverse(chain.begin(), chain.end());
    for (ObjectRecord &record : chain)
        record.type = record.uid % 2 ? "OT_FIRM" : "OT_DOOR";
    QTest::newRow("chain of different types") << chain;
}

void TestVXObjectSelector::hostileObjects()
{
    QFETCH(Objects, objects);
    PageSelector page(objects);
    page.selector.setFixedSize(400, 100);
    page.selector.setCurrentUid(3);
    QCOMPARE(page.selector.currentUid(), 3u);
    page.tree()->expand(page.selector.currentModelIndex());
    QVERIFY(page.openPopup());
    page.selector.grab();
    page.tree()->grab();
    QTest::keyClick(page.tree(), Qt::Key_Escape);
    page.selector.setCurrentUid(objects.last().uid);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_X})
        QTest::keyClick(&page.selector, key);
    page.store(company);
    page.store(objects);
}

void TestVXObjectSelector::manySiblings()
{
    Objects objects{{1, 0, "OT_SUBJECTROOT", "Company"}};
    for (unsigned int uid = 2; uid <= 100001; ++uid)
        objects.append({uid, 1, uid % 2 ? "OT_FIRM" : "OT_WORKER", QString("Firm %1").arg(uid)});
    PageSelector page(objects);
    page.selector.setCurrentUid(60001);
    QVERIFY(page.openPopup());
    QCOMPARE(page.proxy()->rowCount(page.proxy()->index(0, 0)), 50000);
    const QRect chosen = page.tree()->visualRect(page.proxy()->indexOf(60001));
    QVERIFY(page.tree()->viewport()->rect().contains(chosen.center()));
    QTest::keyClick(page.tree(), Qt::Key_Down);
    QTest::keyClick(page.tree(), Qt::Key_Return);
    QCOMPARE(page.selector.currentUid(), 60003u);
    QTest::keyClick(&page.selector, Qt::Key_Up);
    QCOMPARE(page.selector.currentUid(), 60001u);
}

void TestVXObjectSelector::selectorsOfOneDatanameAreIndependent()
{
    PageSelector one;
    PageSelector other;
    one.selector.setCurrentUid(22);
    other.selector.setCurrentUid(41);
    other.proxy()->setObjectTypeFilter({});
    QCOMPARE(one.selector.currentUid(), 22u);
    QCOMPARE(outline(*one.proxy()), QString("1(2(21 22) 3-(31) 4(41))"));
    QCOMPARE(outline(*other.proxy()), QString("1(2(21 22) 3(31) 4(41) 6)"));
    QCOMPARE(other.takeHeard(), QVector<unsigned int>{41});
}

void TestVXObjectSelector::deletedSelectorHearsNothing()
{
    auto page = std::make_unique<PageSelector>();
    page->selector.setCurrentUid(22);
    QVERIFY(page->openPopup());
    page.reset();
    const StoredObjects stored("orgstructure", company);
    LocalStorage::instance()->setObjects("orgstructure", {});
}

QTEST_MAIN(TestVXObjectSelector)
#include "tst_vxobjectselector.moc"
