#include "objecttree.h"

#include "messages.h"
#include "storedsettings.h"

#include <QElapsedTimer>
#include <QTest>

#include <algorithm>
#include <limits>

using vantorix::LocalStorage;
using vantorix::ObjectRecord;
using Objects = QVector<ObjectRecord>;

class TestObjectTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }
    void structure_data();
    void structure();
    void uidsWithGapsMakeTheSameTree_data() { structure_data(); }
    void uidsWithGapsMakeTheSameTree();
    void find_data();
    void find();
    void everyUidIsFound_data();
    void everyUidIsFound();
    void uidsThatClashAreFoundFast();
    void uidsMayRunOver();
    void rowsCountThroughManySiblings();
    void deepBranchIsCut_data();
    void deepBranchIsCut();
    void longCircleIsCutOnce();
    void equalListsShareATree();
    void recordsAreNotCopied();
};

namespace {

/// Records of "uid<parent uid" pairs.
Objects parsed(const QString &text, unsigned int factor = 1)
{
    Objects objects;
    for (const QString &pair : text.split(' ', Qt::SkipEmptyParts)) {
        const QStringList uids = pair.split('<');
        objects.append({uids[0].toUInt() * factor, uids[1].toUInt() * factor, "OT_DEPARTMENT", pair});
    }
    return objects;
}

/// The children of @p parent as "uid(children) uid".
QString outline(const ObjectTree &tree, unsigned int factor = 1, int parent = ObjectTree::none)
{
    QStringList children;
    for (int row = 0; row < tree.childCount(parent); ++row) {
        const int child = tree.child(parent, row);
        const QString below = outline(tree, factor, child);
        children << QString::number(tree.record(child).uid / factor) + (below.isEmpty() ? "" : "(" + below + ")");
    }
    return children.join(' ');
}

/// Parents and rows say the same as the children do.
bool isConsistent(const ObjectTree &tree)
{
    int found = 0;
    for (int parent = ObjectTree::none; parent < tree.count(); ++parent) {
        for (int row = 0; row < tree.childCount(parent); ++row, ++found) {
            const int child = tree.child(parent, row);
            if (tree.parent(child) != parent || tree.row(child) != row)
                return false;
        }
    }
    return found == tree.count();
}

int depth(const ObjectTree &tree, int number)
{
    int depth = 0;
    for (; tree.parent(number) != ObjectTree::none; number = tree.parent(number))
        ++depth;
    return depth;
}
} // namespace

void TestObjectTree::structure_data()
{
    QTest::addColumn<QString>("records");
    QTest::addColumn<QString>("tree");
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("one") << "1<0"
                         << "1";
    QTest::newRow("side by side") << "1<0 2<0 3<0"
                                  << "1 2 3";
    QTest::newRow("below each other") << "1<0 2<1 3<2"
                                      << "1(2(3))";
    QTest::newRow("siblings keep their order") << "1<0 2<1 3<0 4<1 5<3 6<1"
                                               << "1(2 4 6) 3(5)";
    QTest::newRow("child before its parent") << "1<2 2<3 3<0"
                                             << "3(2(1))";
    QTest::newRow("not ordered by uid") << "3<0 1<3 2<3"
                                        << "3(1 2)";
    QTest::newRow("uids begin later") << "7<0 8<7 9<8 10<7"
                                      << "7(8(9) 10)";
    QTest::newRow("parent is missing") << "1<0 2<9 3<2"
                                       << "1 2(3)";
    QTest::newRow("parent below the first uid") << "5<4 6<5"
                                                << "5(6)";
    QTest::newRow("its own parent") << "1<1 2<1"
                                    << "1(2)";
    QTest::newRow("circle of two") << "1<2 2<1"
                                   << "2(1)";
    QTest::newRow("circle of three with a tail") << "1<0 2<3 3<4 4<2 5<3"
                                                 << "1 4(3(2 5))";
    QTest::newRow("tail before the circle") << "1<2 2<3 3<2"
                                            << "3(2(1))";
    QTest::newRow("two circles") << "1<2 2<1 3<4 4<3"
                                 << "2(1) 4(3)";
    QTest::newRow("same uid twice") << "1<0 2<1 1<0 3<1"
                                    << "1(2 3) 1";
    QTest::newRow("same uid below itself") << "1<0 1<1 1<1"
                                           << "1(1 1)";
    QTest::newRow("without a uid") << "0<0 1<0 0<1"
                                   << "0 1(0)";
    QTest::newRow("nothing but without a uid") << "0<0 0<0"
                                               << "0 0";
    QTest::newRow("only orphans") << "3<8 4<9"
                                  << "3 4";
}

void TestObjectTree::structure()
{
    QFETCH(QString, records);
    const ObjectTree tree(parsed(records));
    QTEST(outline(tree), "tree");
    QVERIFY(isConsistent(tree));
}

void TestObjectTree::uidsWithGapsMakeTheSameTree()
{
    QFETCH(QString, records);
    constexpr unsigned int factor = 1000003;
    const ObjectTree tree(parsed(records, factor));
    QTEST(outline(tree, factor), "tree");
    QVERIFY(isConsistent(tree));
}

void TestObjectTree::find_data()
{
    QTest::addColumn<QString>("records");
    QTest::addColumn<unsigned int>("uid");
    QTest::addColumn<int>("number");
    constexpr unsigned int last = std::numeric_limits<unsigned int>::max();
    QTest::newRow("in an empty tree") << "" << 1u << -1;
    QTest::newRow("zero in an empty tree") << "" << 0u << -1;
    QTest::newRow("first") << "5<0 6<0" << 5u << 0;
    QTest::newRow("last") << "5<0 6<0" << 6u << 1;
    QTest::newRow("below the first") << "5<0 6<0" << 4u << -1;
    QTest::newRow("behind the last") << "5<0 6<0" << 7u << -1;
    QTest::newRow("highest of all, missing") << "5<0 6<0" << last << -1;
    QTest::newRow("highest of all") << "4294967294<0 4294967295<0" << last << 1;
    QTest::newRow("in a gap") << "5<0 7<0" << 6u << -1;
    QTest::newRow("around a gap") << "5<0 7<0" << 7u << 1;
    QTest::newRow("first of two") << "5<0 7<0 5<0" << 5u << 0;
    QTest::newRow("zero among others") << "5<0 0<0 6<0" << 0u << -1;
    QTest::newRow("zero in front") << "0<0 1<0 2<0" << 0u << -1;
    QTest::newRow("behind zero") << "0<0 1<0 2<0" << 2u << 2;
    QTest::newRow("zero after the highest") << "4294967295<0 0<0" << 0u << -1;
}

void TestObjectTree::find()
{
    QFETCH(QString, records);
    QFETCH(unsigned int, uid);
    QTEST(ObjectTree(parsed(records)).find(uid), "number");
}

void TestObjectTree::everyUidIsFound_data()
{
    QTest::addColumn<unsigned int>("step");
    QTest::newRow("one after the other") << 1u;
    QTest::newRow("even") << 2u;
    QTest::newRow("equal in the lower half of their bits") << (1u << 16);
    QTest::newRow("all over the place") << 2654435761u;
}

void TestObjectTree::everyUidIsFound()
{
    QFETCH(unsigned int, step);
    Objects objects;
    for (unsigned int i = 1; i < 50000; ++i)
        objects.append({i * step, 0, {}, {}});
    const ObjectTree tree(objects);
    for (int number = 0; number < objects.count(); ++number) {
        if (objects.at(number).uid)
            QCOMPARE(tree.find(objects.at(number).uid), number);
    }
}

void TestObjectTree::uidsThatClashAreFoundFast()
{
    // As where the upper bits say what kind of object it is. Looking for the next free place would take ten seconds.
    Objects objects;
    for (unsigned int kind = 1; kind <= 32; ++kind) {
        for (unsigned int i = 0; i < 4096; ++i)
            objects.append({kind << 24 | i, 0, {}, {}});
    }
    QElapsedTimer timer;
    timer.start();
    const ObjectTree tree(objects);
    for (int number = 0; number < objects.count(); ++number)
        QCOMPARE(tree.find(objects.at(number).uid), number);
    QVERIFY(timer.elapsed() < 3000);
}

void TestObjectTree::uidsMayRunOver()
{
    const ObjectTree tree(parsed("4294967294<0 4294967295<4294967294 0<0 1<4294967295"));
    QCOMPARE(outline(tree), QString("4294967294(4294967295(1)) 0"));
}

void TestObjectTree::rowsCountThroughManySiblings()
{
    Objects objects;
    for (unsigned int i = 0; i < 100000; ++i)
        objects.append({100000 - i, i % 3 ? 100000u : 0u, {}, {}});
    const ObjectTree tree(objects);
    QVERIFY(isConsistent(tree));
    QCOMPARE(tree.childCount(ObjectTree::none), 33334);
    QCOMPARE(tree.childCount(0), 66666);
}

void TestObjectTree::deepBranchIsCut_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("tops");
    QTest::addColumn<bool>("childrenFirst");
    QTest::newRow("just not too deep") << 1000 << 1 << false;
    QTest::newRow("one too deep") << 1001 << 2 << false;
    QTest::newRow("just not too deep, children first") << 1000 << 1 << true;
    QTest::newRow("one too deep, children first") << 1001 << 2 << true;
    QTest::newRow("without end") << 100000 << 100 << false;
    QTest::newRow("without end, children first") << 100000 << 100 << true;
}

void TestObjectTree::deepBranchIsCut()
{
    QFETCH(int, length);
    QFETCH(bool, childrenFirst);
    Objects objects;
    for (unsigned int uid = 1; uid <= unsigned(length); ++uid)
        objects.append({uid, uid - 1, {}, {}});
    if (childrenFirst)
        std::reverse(objects.begin(), objects.end());
    const ObjectTree tree(objects);
    QTEST(tree.childCount(ObjectTree::none), "tops");
    QVERIFY(isConsistent(tree));
    for (int number = 0; number < length; number += 333)
        QVERIFY(depth(tree, number) < ObjectTree::maximumDepth);
}

void TestObjectTree::longCircleIsCutOnce()
{
    Objects objects;
    for (unsigned int uid = 1; uid <= 900; ++uid)
        objects.append({uid, uid % 900 + 1, {}, {}});
    const ObjectTree tree(objects);
    QCOMPARE(tree.childCount(ObjectTree::none), 1);
    QVERIFY(isConsistent(tree));
}

void TestObjectTree::equalListsShareATree()
{
    const StoredObjects stored("objects", parsed("1<0 2<1"));
    const StoredObjects others("others", parsed("1<0 2<1"));
    const auto tree = ObjectTree::of("objects");
    QCOMPARE(ObjectTree::of("objects"), tree);
    QVERIFY(ObjectTree::of("others") != tree);

    LocalStorage::instance()->setObjects("objects", parsed("1<0 2<0"));
    QCOMPARE(outline(*ObjectTree::of("objects")), QString("1 2"));
    QCOMPARE(outline(*tree), QString("1(2)"));
}

void TestObjectTree::recordsAreNotCopied()
{
    const StoredObjects stored("objects", parsed("1<0 2<1"));
    const Objects objects = LocalStorage::instance()->objects("objects");
    QCOMPARE(&ObjectTree::of("objects")->record(0), objects.constData());
}

QTEST_MAIN(TestObjectTree)
#include "tst_objecttree.moc"
