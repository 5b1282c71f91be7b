#include <vxwidgets/objecttreeproxy.h>

#include "messages.h"
#include "objectmodel.h"
#include "objectoutline.h"
#include "storedsettings.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>

#include <memory>
#include <random>

using vantorix::LocalStorage;
using vantorix::ObjectRecord;
using Objects = QVector<ObjectRecord>;
Q_DECLARE_METATYPE(Objects)

class TestObjectTreeProxy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void freshProxy();
    void filter_data();
    void filter();
    void sameAsLookingAtEveryBranch_data();
    void sameAsLookingAtEveryBranch();
    void keepsTheRulesOfModels_data();
    void keepsTheRulesOfModels();
    void indexOf_data();
    void indexOf();
    void filterChangesKeepIndexes();
    void equalFilterChangesNothing();
    void changedObjectsAreFilteredAnew();
    void otherModelsAreShownAsTheyAre();
    void sourceModelMayGoFirst();
    void hasChildrenDoesNotLookAtTheChildren();
};

namespace {

const QStringList offices{"F", "D"};

/// F: firm, D: department, W: worker.
const Objects company = {{1, 0, "F", {}},   {2, 1, "D", {}},  {3, 2, "W", {}}, {4, 1, "W", {}},  {5, 4, "W", {}},
                         {6, 5, "D", {}},   {7, 4, "W", {}},  {8, 0, "W", {}}, {9, 8, "W", {}},  {10, 0, "W", {}},
                         {11, 10, "F", {}}, {12, 1, "d", {}}, {0, 1, "D", {}}, {13, 99, "D", {}}};

/// A proxy model over @p objects, which are stored as long as it lives.
struct StoredProxy
{
    explicit StoredProxy(const Objects &objects)
        : stored("objects", objects)
    {
        source.setDataname("objects");
        proxy.setSourceModel(&source);
    }
    StoredObjects stored;
    ObjectModel source;
    ObjectTreeProxy proxy;
};

Objects randomObjects(unsigned int seed)
{
    std::minstd_rand random(seed);
    const auto below = [&random](unsigned int end) { return unsigned(random() % end); };
    Objects objects;
    for (unsigned int i = 0; i < 60; ++i)
        objects.append({below(80), below(70), QStringList{"F", "D", "W", "W"}.at(int(below(4))), {}});
    return objects;
}

/// The outline that the filter asks for, found the slow way: by asking everything below a node.
QString expectedOutline(const ObjectModel &source, bool acceptsParents, const QModelIndex &parent = {})
{
    QStringList children;
    for (int row = 0; row < source.rowCount(parent); ++row) {
        const QModelIndex child = source.index(row, 0, parent);
        const ObjectRecord &record = source.tree().record(ObjectModel::numberAt(child));
        const bool passes = offices.contains(record.type);
        const QString below = expectedOutline(source, acceptsParents, child);
        if (!passes && (!acceptsParents || below.isEmpty()))
            continue;
        children << QString::number(record.uid) + (passes && record.uid ? "" : "-") +
                        (below.isEmpty() ? "" : "(" + below + ")");
    }
    return children.join(' ');
}
} // namespace

void TestObjectTreeProxy::initTestCase()
{
    failOnUnexpectedMessages();
    // For the spies.
    qRegisterMetaType<QList<QPersistentModelIndex>>();
    qRegisterMetaType<QAbstractItemModel::LayoutChangeHint>();
}

void TestObjectTreeProxy::freshProxy()
{
    QObject owner;
    const auto *proxy = new ObjectTreeProxy(&owner);
    QCOMPARE(proxy->parent(), &owner);
    QCOMPARE(proxy->objectTypeFilter(), QStringList());
    QVERIFY(!proxy->filterAcceptsParents());
    QVERIFY(!proxy->sourceModel());
    QCOMPARE(proxy->rowCount(), 0);
    QVERIFY(!proxy->hasChildren());
    QVERIFY(!proxy->indexOf(1).isValid());
}

void TestObjectTreeProxy::filter_data()
{
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<bool>("acceptsParents");
    QTest::addColumn<QString>("shown");
    const QString all = "1(2(3) 4(5(6) 7) 12 0-) 8(9) 10(11) 13";
    QTest::newRow("no filter") << QStringList() << false << all;
    QTest::newRow("no filter, with parents") << QStringList() << true << all;
    QTest::newRow("two types") << offices << false << "1(2 0-) 13";
    QTest::newRow("two types, with parents") << offices << true << "1(2 4-(5-(6)) 0-) 10-(11) 13";
    QTest::newRow("one type") << QStringList{"D"} << false << "13";
    QTest::newRow("one type, with parents") << QStringList{"D"} << true << "1-(2 4-(5-(6)) 0-) 13";
    QTest::newRow("type of leaves") << QStringList{"W"} << false << "8(9) 10";
    QTest::newRow("type of leaves, with parents") << QStringList{"W"} << true << "1-(2-(3) 4(5 7)) 8(9) 10";
    QTest::newRow("case counts") << QStringList{"f", "d"} << true << "1-(12)";
    QTest::newRow("type that nothing has") << QStringList{"OT_FIRM"} << true << "";
    QTest::newRow("empty type") << QStringList{""} << true << "";
    QTest::newRow("named twice") << QStringList{"F", "F"} << true << "1 10-(11)";
}

void TestObjectTreeProxy::filter()
{
    QFETCH(QStringList, types);
    QFETCH(bool, acceptsParents);
    StoredProxy stored(company);
    stored.proxy.setObjectTypeFilter(types);
    stored.proxy.setFilterAcceptsParents(acceptsParents);
    QCOMPARE(stored.proxy.objectTypeFilter(), types);
    QCOMPARE(stored.proxy.filterAcceptsParents(), acceptsParents);
    QVERIFY(announcesItsChildren(stored.proxy));
    QTEST(outline(stored.proxy), "shown");
}

void TestObjectTreeProxy::sameAsLookingAtEveryBranch_data()
{
    QTest::addColumn<unsigned int>("seed");
    for (unsigned int seed = 1; seed <= 50; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestObjectTreeProxy::sameAsLookingAtEveryBranch()
{
    QFETCH(unsigned int, seed);
    StoredProxy stored(randomObjects(seed));
    stored.proxy.setObjectTypeFilter(offices);
    for (const bool acceptsParents : {false, true, false}) {
        stored.proxy.setFilterAcceptsParents(acceptsParents);
        QVERIFY(announcesItsChildren(stored.proxy));
        QCOMPARE(outline(stored.proxy), expectedOutline(stored.source, acceptsParents));
    }
}

void TestObjectTreeProxy::keepsTheRulesOfModels_data()
{
    QTest::addColumn<Objects>("objects");
    QTest::newRow("nothing") << Objects();
    QTest::newRow("company") << company;
    QTest::newRow("circle") << Objects{{1, 2, "D", {}}, {2, 1, "W", {}}};
}

void TestObjectTreeProxy::keepsTheRulesOfModels()
{
    QFETCH(Objects, objects);
    StoredProxy stored(company);
    const QAbstractItemModelTester tester(&stored.proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);
    stored.proxy.setObjectTypeFilter(offices);
    stored.proxy.setFilterAcceptsParents(true);
    LocalStorage::instance()->setObjects("objects", objects);
    stored.proxy.setFilterAcceptsParents(false);
    stored.proxy.setObjectTypeFilter({});
}

void TestObjectTreeProxy::indexOf_data()
{
    QTest::addColumn<bool>("acceptsParents");
    QTest::addColumn<unsigned int>("uid");
    QTest::addColumn<bool>("found");
    QTest::newRow("top") << false << 1u << true;
    QTest::newRow("nested") << false << 2u << true;
    QTest::newRow("of another type") << false << 3u << false;
    QTest::newRow("below one of another type") << false << 11u << false;
    QTest::newRow("below one of another type that is shown") << true << 11u << true;
    QTest::newRow("deep below others") << true << 6u << true;
    QTest::newRow("shown for its child") << true << 5u << true;
    QTest::newRow("missing") << true << 77u << false;
    QTest::newRow("zero") << true << 0u << false;
}

void TestObjectTreeProxy::indexOf()
{
    QFETCH(bool, acceptsParents);
    QFETCH(unsigned int, uid);
    StoredProxy stored(company);
    stored.proxy.setObjectTypeFilter(offices);
    stored.proxy.setFilterAcceptsParents(acceptsParents);
    const QModelIndex index = stored.proxy.indexOf(uid);
    QTEST(index.isValid(), "found");
    if (index.isValid()) {
        QCOMPARE(index.data(Qt::UserRole).toUInt(), uid);
        QCOMPARE(index, stored.proxy.index(index.row(), 0, index.parent()));
    }
}

void TestObjectTreeProxy::filterChangesKeepIndexes()
{
    StoredProxy stored(company);
    const QPersistentModelIndex department = stored.proxy.indexOf(6);
    const QPersistentModelIndex worker = stored.proxy.indexOf(9);
    const QSignalSpy reset(&stored.proxy, &QAbstractItemModel::modelReset);
    const QSignalSpy removed(&stored.proxy, &QAbstractItemModel::rowsRemoved);
    const QSignalSpy layout(&stored.proxy, &QAbstractItemModel::layoutChanged);
    stored.proxy.setFilterAcceptsParents(true);
    stored.proxy.setObjectTypeFilter(offices);
    QCOMPARE(department.data(Qt::UserRole).toUInt(), 6u);
    QVERIFY(!worker.isValid());
    QCOMPARE(layout.count(), 2);
    QCOMPARE(reset.count() + removed.count(), 0);
}

void TestObjectTreeProxy::equalFilterChangesNothing()
{
    StoredProxy stored(company);
    stored.proxy.setObjectTypeFilter(offices);
    const QSignalSpy layout(&stored.proxy, &QAbstractItemModel::layoutChanged);
    stored.proxy.setObjectTypeFilter(offices);
    stored.proxy.setFilterAcceptsParents(false);
    QCOMPARE(layout.count(), 0);
}

void TestObjectTreeProxy::changedObjectsAreFilteredAnew()
{
    StoredProxy stored({{1, 0, "W", {}}, {2, 1, "W", {}}, {3, 1, "D", {}}});
    stored.proxy.setObjectTypeFilter(offices);
    stored.proxy.setFilterAcceptsParents(true);
    QCOMPARE(outline(stored.proxy), QString("1-(3)"));
    LocalStorage::instance()->setObjects("objects", {{1, 0, "W", {}}, {2, 1, "W", {}}, {3, 2, "W", {}}});
    QCOMPARE(outline(stored.proxy), QString());
    LocalStorage::instance()->setObjects("objects", {{1, 0, "W", {}}, {2, 1, "W", {}}, {3, 2, "D", {}}});
    QCOMPARE(outline(stored.proxy), QString("1-(2-(3))"));
}

void TestObjectTreeProxy::otherModelsAreShownAsTheyAre()
{
    QStandardItemModel other;
    other.appendRow(new QStandardItem("top"));
    other.item(0)->appendRow(new QStandardItem("nested"));
    ObjectTreeProxy proxy;
    proxy.setObjectTypeFilter(offices);
    proxy.setSourceModel(&other);
    QCOMPARE(proxy.index(0, 0, proxy.index(0, 0)).data().toString(), QString("nested"));
    QVERIFY(proxy.index(0, 0).flags() & Qt::ItemIsSelectable);
    QVERIFY(proxy.hasChildren(proxy.index(0, 0)));
    QVERIFY(!proxy.indexOf(1).isValid());
}

void TestObjectTreeProxy::sourceModelMayGoFirst()
{
    const StoredObjects stored("objects", company);
    auto source = std::make_unique<ObjectModel>();
    source->setDataname("objects");
    ObjectTreeProxy proxy;
    proxy.setSourceModel(source.get());
    QVERIFY(proxy.indexOf(2).isValid());
    source.reset();
    QVERIFY(!proxy.indexOf(2).isValid());
    QCOMPARE(proxy.rowCount(), 0);
    proxy.setObjectTypeFilter(offices);
    proxy.setFilterAcceptsParents(true);
}

void TestObjectTreeProxy::hasChildrenDoesNotLookAtTheChildren()
{
    /// Counts the rows that are judged.
    class CountingProxy : public ObjectTreeProxy
    {
    public:
        mutable int judged = 0;

    protected:
        bool filterAcceptsRow(int row, const QModelIndex &parent) const override
        {
            ++judged;
            return ObjectTreeProxy::filterAcceptsRow(row, parent);
        }
    };
    Objects objects{{1, 0, "F", {}}};
    for (unsigned int uid = 2; uid < 1000; ++uid)
        objects.append({uid, 1, "D", {}});
    StoredProxy stored(objects);
    CountingProxy proxy;
    proxy.setSourceModel(&stored.source);
    QVERIFY(proxy.hasChildren(proxy.index(0, 0)));
    QCOMPARE(proxy.judged, 1);
}

QTEST_MAIN(TestObjectTreeProxy)
#include "tst_objecttreeproxy.moc"
