#include <host/objectindex.h>

#include "messages.h"

#include <vxsettings/dbkeys.h>

#include <QTest>

using Presence = ObjectIndex::Presence;

class TestObjectIndex : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void presence_data();
    void presence();
    void listsAreKeptApart();
    void aDeepBranchIsClimbedOnce();
};

Q_DECLARE_METATYPE(ObjectIndex::Presence)

void TestObjectIndex::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestObjectIndex::presence_data()
{
    QTest::addColumn<unsigned int>("uid");
    QTest::addColumn<Presence>("presence");

    QTest::newRow("root") << 1u << Presence::Choosable;
    QTest::newRow("child before its parent") << 5u << Presence::Choosable;
    QTest::newRow("not granted") << 3u << Presence::NotGranted;
    QTest::newRow("below what is not granted") << 4u << Presence::NotGranted;
    QTest::newRow("type that is not offered") << 6u << Presence::OtherType;
    QTest::newRow("parent is gone") << 7u << Presence::Choosable;
    QTest::newRow("parents in a circle") << 8u << Presence::Choosable;
    QTest::newRow("its own parent") << 10u << Presence::Choosable;
    QTest::newRow("the first of two counts") << 11u << Presence::Choosable;
    QTest::newRow("greatest uid") << 4294967295u << Presence::Choosable;
    QTest::newRow("gone") << 99u << Presence::Gone;
    QTest::newRow("no object") << 0u << Presence::Gone;
}

void TestObjectIndex::presence()
{
    const ObjectIndex index({{vantorix::ORGSTRUCTURE_DATANAME,
                              {
                                  {5, 2, "OT_DEPARTMENT", "Archive"},
                                  {1, 0, "OT_SUBJECTROOT", "Holding"},
                                  {2, 1, "OT_FIRM", "Works"},
                                  {3, 1, "OT_FIRM", "Secret works", false},
                                  {4, 3, "OT_DEPARTMENT", "Below"},
                                  {6, 5, "OT_WORKER", "Somebody"},
                                  {7, 77, "OT_DEPARTMENT", "Orphan"},
                                  {8, 9, "OT_DEPARTMENT", "Hen"},
                                  {9, 8, "OT_DEPARTMENT", "Egg"},
                                  {10, 10, "OT_DEPARTMENT", "Itself"},
                                  {11, 1, "OT_DEPARTMENT", "First"},
                                  {11, 1, "OT_DEPARTMENT", "Second", false},
                                  {0, 1, "OT_DEPARTMENT", "Without a uid"},
                                  {4294967295u, 1, "OT_DEPARTMENT", "Last"},
                              }}});
    QFETCH(unsigned int, uid);
    QTEST(index.presence(vantorix::ORGSTRUCTURE_DATANAME, uid), "presence");
}

void TestObjectIndex::listsAreKeptApart()
{
    const ObjectIndex index({{vantorix::SMARTCARD_PROFILE_DATANAME, {{1, 0, "OT_SMARTCARD_PROFILE", "Guests"}}}});
    QCOMPARE(index.presence(vantorix::SMARTCARD_PROFILE_DATANAME, 1), Presence::Choosable);
    QCOMPARE(index.presence(vantorix::ORGSTRUCTURE_DATANAME, 1), Presence::Gone);
    QCOMPARE(index.presence("doors", 1), Presence::Gone);
}

void TestObjectIndex::aDeepBranchIsClimbedOnce()
{
    QVector<vantorix::ObjectRecord> branch;
    for (unsigned int uid = 1; uid <= 100000; ++uid)
        branch.append({uid, uid - 1, "OT_DEPARTMENT", "Department", uid != 1});
    const ObjectIndex index({{vantorix::ORGSTRUCTURE_DATANAME, branch}});
    QCOMPARE(index.presence(vantorix::ORGSTRUCTURE_DATANAME, 100000), Presence::NotGranted);
}

QTEST_MAIN(TestObjectIndex)
#include "tst_objectindex.moc"
