#include "objectmodel.h"

#include "messages.h"
#include "storedsettings.h"

#include <QAbstractItemModelTester>
#include <QIcon>
#include <QSignalSpy>
#include <QTest>

using vantorix::LocalStorage;
using vantorix::ObjectRecord;
using Objects = QVector<ObjectRecord>;
Q_DECLARE_METATYPE(Objects)

class TestObjectModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void keepsTheRulesOfModels_data();
    void keepsTheRulesOfModels();
    void data();
    void dataOfNoIndex();
    void flags_data();
    void flags();
    void indexOf_data();
    void indexOf();
    void noDatanameIsADatanameToo();
    void datanameCanChange();
    void persistentIndexesFollowTheirObject();
    void changesAreChangesOfLayout();
    void otherObjectsDoNotMatter();
    void revisionTellsTreesApart();
};

namespace {

const Objects company = {{1, 0, "OT_SUBJECTROOT", "Организация"},
                         {2, 1, "OT_FIRM", "Завод"},
                         {21, 2, "OT_DEPARTMENT", "Цех"},
                         {3, 1, "OT_FIRM", "Институт"},
                         {0, 1, "OT_FIRM", "Безымянное"}};

/// A model of @p objects, which are stored as long as it lives.
struct StoredModel
{
    explicit StoredModel(const Objects &objects)
        : stored("objects", objects)
    {
        model.setDataname("objects");
    }
    StoredObjects stored;
    ObjectModel model;
};

void store(const Objects &objects)
{
    LocalStorage::instance()->setObjects("objects", objects);
}

QString name(const QModelIndex &index)
{
    return index.data().toString();
}
} // namespace

void TestObjectModel::initTestCase()
{
    failOnUnexpectedMessages();
    // For the spies.
    qRegisterMetaType<QList<QPersistentModelIndex>>();
    qRegisterMetaType<QAbstractItemModel::LayoutChangeHint>();
}

void TestObjectModel::keepsTheRulesOfModels_data()
{
    QTest::addColumn<Objects>("objects");
    QTest::newRow("nothing") << Objects();
    QTest::newRow("company") << company;
    QTest::newRow("circle") << Objects{{1, 2, {}, "1"}, {2, 1, {}, "2"}};
}

void TestObjectModel::keepsTheRulesOfModels()
{
    QFETCH(Objects, objects);
    StoredModel stored(objects);
    const QAbstractItemModelTester tester(&stored.model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    store(company);
    store({});
    store(objects);
}

void TestObjectModel::data()
{
    const StoredModel stored(company);
    const QModelIndex shop = stored.model.indexOf(21);
    QCOMPARE(shop.data(Qt::DisplayRole).toString(), QString("Цех"));
    QCOMPARE(shop.data(ObjectModel::UidRole), QVariant(21u));
    QCOMPARE(shop.data(Qt::DecorationRole).userType(), int(QMetaType::QIcon));
    QVERIFY(!shop.data(Qt::EditRole).isValid());
}

void TestObjectModel::dataOfNoIndex()
{
    const StoredModel stored(company);
    QVERIFY(!stored.model.data({}, Qt::DisplayRole).isValid());
    QCOMPARE(stored.model.flags({}), Qt::NoItemFlags);
    QVERIFY(!stored.model.index(1, 0).isValid());
    QVERIFY(!stored.model.index(-1, 0).isValid());
    QVERIFY(!stored.model.index(0, 1).isValid());
}

void TestObjectModel::flags_data()
{
    QTest::addColumn<QString>("of");
    QTest::addColumn<bool>("selectable");
    QTest::addColumn<bool>("leaf");
    QTest::newRow("node with children") << "Завод" << true << false;
    QTest::newRow("leaf") << "Институт" << true << true;
    QTest::newRow("without a uid") << "Безымянное" << false << true;
}

void TestObjectModel::flags()
{
    QFETCH(QString, of);
    const StoredModel stored(company);
    const QModelIndexList found =
        stored.model.match(stored.model.index(0, 0), Qt::DisplayRole, of, 1, Qt::MatchExactly | Qt::MatchRecursive);
    QCOMPARE(found.count(), 1);
    const Qt::ItemFlags flags = found.first().flags();
    QVERIFY(flags.testFlag(Qt::ItemIsEnabled));
    QTEST(flags.testFlag(Qt::ItemIsSelectable), "selectable");
    QTEST(flags.testFlag(Qt::ItemNeverHasChildren), "leaf");
}

void TestObjectModel::indexOf_data()
{
    QTest::addColumn<unsigned int>("uid");
    QTest::addColumn<QString>("found");
    QTest::newRow("top") << 1u << "Организация";
    QTest::newRow("nested") << 21u << "Цех";
    QTest::newRow("missing") << 22u << "";
    QTest::newRow("zero") << 0u << "";
}

void TestObjectModel::indexOf()
{
    QFETCH(unsigned int, uid);
    const StoredModel stored(company);
    const QModelIndex index = stored.model.indexOf(uid);
    QTEST(name(index), "found");
    QCOMPARE(index, stored.model.index(index.row(), 0, index.parent()));
}

void TestObjectModel::noDatanameIsADatanameToo()
{
    const StoredObjects stored("", company);
    const ObjectModel model;
    QCOMPARE(model.dataname(), QString());
    QCOMPARE(model.rowCount(), 1);
}

void TestObjectModel::datanameCanChange()
{
    const StoredObjects cards("cards", {{7, 0, "OT_SMARTCARD_PROFILE", "Пропуск"}});
    StoredModel stored(company);
    stored.model.setDataname("cards");
    QCOMPARE(stored.model.dataname(), QString("cards"));
    QCOMPARE(name(stored.model.index(0, 0)), QString("Пропуск"));
    stored.model.setDataname("unknown");
    QCOMPARE(stored.model.rowCount(), 0);
}

void TestObjectModel::persistentIndexesFollowTheirObject()
{
    StoredModel stored(company);
    const QPersistentModelIndex shop = stored.model.indexOf(21);
    const QPersistentModelIndex institute = stored.model.indexOf(3);

    store({{3, 0, "OT_FIRM", "Новый институт"}, {9, 3, "OT_FIRM", "Корпус"}, {21, 3, "OT_DEPARTMENT", "Новый цех"}});
    QCOMPARE(name(shop), QString("Новый цех"));
    QCOMPARE(shop.row(), 1);
    QCOMPARE(shop.parent(), QModelIndex(institute));
    QCOMPARE(institute.parent(), QModelIndex());

    store({{21, 0, "OT_DEPARTMENT", "Цех"}});
    QVERIFY(shop.isValid());
    QVERIFY(!institute.isValid());
}

void TestObjectModel::changesAreChangesOfLayout()
{
    StoredModel stored(company);
    const QSignalSpy about(&stored.model, &QAbstractItemModel::layoutAboutToBeChanged);
    const QSignalSpy changed(&stored.model, &QAbstractItemModel::layoutChanged);
    const QSignalSpy reset(&stored.model, &QAbstractItemModel::modelReset);
    const QSignalSpy inserted(&stored.model, &QAbstractItemModel::rowsInserted);
    const QSignalSpy removed(&stored.model, &QAbstractItemModel::rowsRemoved);
    store({});
    store(company);
    QCOMPARE(about.count(), 2);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(reset.count() + inserted.count() + removed.count(), 0);
}

void TestObjectModel::otherObjectsDoNotMatter()
{
    StoredModel stored(company);
    const QSignalSpy changed(&stored.model, &QAbstractItemModel::layoutChanged);
    const StoredObjects others("others", company);
    stored.model.setDataname("objects");
    QCOMPARE(changed.count(), 0);
}

void TestObjectModel::revisionTellsTreesApart()
{
    StoredModel stored(company);
    const int revision = stored.model.revision();
    QCOMPARE(stored.model.revision(), revision);
    store({});
    QVERIFY(stored.model.revision() != revision);
}

QTEST_MAIN(TestObjectModel)
#include "tst_objectmodel.moc"
