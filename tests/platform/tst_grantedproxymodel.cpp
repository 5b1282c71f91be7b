#include <vxwidgets/grantedproxymodel.h>

#include "messages.h"
#include "objectmodel.h"
#include "objectoutline.h"
#include "storedsettings.h"

#include <QTest>

using vantorix::LocalStorage;
using vantorix::ObjectRecord;
using Objects = QVector<ObjectRecord>;
Q_DECLARE_METATYPE(Objects)

class TestGrantedProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }
    void shownObjects_data();
    void shownObjects();
    void hiddenObjectsAreNotFound();
    void grantsCanChange();
};

namespace {

ObjectRecord granted(unsigned int uid, unsigned int parentUid, const QString &type = "D")
{
    return {uid, parentUid, type, {}, true};
}

ObjectRecord secret(unsigned int uid, unsigned int parentUid, const QString &type = "D")
{
    return {uid, parentUid, type, {}, false};
}

/// A proxy model that accepts parents, over @p objects, which are stored as long as it lives.
struct StoredProxy
{
    explicit StoredProxy(const Objects &objects)
        : stored("objects", objects)
    {
        source.setDataname("objects");
        proxy.setSourceModel(&source);
        proxy.setFilterAcceptsParents(true);
    }
    StoredObjects stored;
    ObjectModel source;
    GrantedProxyModel proxy;
};
} // namespace

void TestGrantedProxyModel::shownObjects_data()
{
    QTest::addColumn<Objects>("objects");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("departments");
    QTest::newRow("all granted") << Objects{granted(1, 0), granted(2, 1)} << "1(2)"
                                 << "1(2)";
    QTest::newRow("nothing granted") << Objects{secret(1, 0), secret(2, 1)} << ""
                                     << "";
    QTest::newRow("secret leaf") << Objects{granted(1, 0), secret(2, 1)} << "1"
                                 << "1";
    QTest::newRow("secret before a granted one") << Objects{granted(1, 0), secret(2, 1), granted(3, 1)} << "1(3)"
                                                 << "1(3)";
    QTest::newRow("below a secret one") << Objects{granted(1, 0), secret(2, 1), granted(3, 2)} << "1"
                                        << "1";
    QTest::newRow("deep below a secret one")
        << Objects{granted(1, 0), secret(2, 1), granted(3, 2), granted(4, 3)} << "1"
        << "1";
    QTest::newRow("secret top") << Objects{secret(1, 0), granted(2, 1), granted(3, 0)} << "3"
                                << "3";
    QTest::newRow("parent of another type") << Objects{granted(1, 0, "W"), granted(2, 1)} << "1(2)"
                                            << "1-(2)";
    QTest::newRow("parent of another type of a secret one") << Objects{granted(1, 0, "W"), secret(2, 1)} << "1"
                                                            << "";
    QTest::newRow("parent of another type above a secret one")
        << Objects{granted(1, 0, "W"), secret(2, 1, "W"), granted(3, 2)} << "1"
        << "";
    QTest::newRow("secret parent of another type") << Objects{secret(1, 0, "W"), granted(2, 1)} << ""
                                                   << "";
    QTest::newRow("secret between others of another type")
        << Objects{granted(1, 0, "W"), granted(2, 1, "W"), secret(3, 2), granted(4, 3), granted(5, 2)} << "1(2(5))"
        << "1-(2-(5))";
}

void TestGrantedProxyModel::shownObjects()
{
    QFETCH(Objects, objects);
    StoredProxy stored(objects);
    QVERIFY(announcesItsChildren(stored.proxy));
    QTEST(outline(stored.proxy), "shown");
    stored.proxy.setObjectTypeFilter({"D"});
    QVERIFY(announcesItsChildren(stored.proxy));
    QTEST(outline(stored.proxy), "departments");
}

void TestGrantedProxyModel::hiddenObjectsAreNotFound()
{
    const StoredProxy stored({granted(1, 0), secret(2, 1), granted(3, 2)});
    QVERIFY(stored.proxy.indexOf(1).isValid());
    QVERIFY(!stored.proxy.indexOf(2).isValid());
    QVERIFY(!stored.proxy.indexOf(3).isValid());
}

void TestGrantedProxyModel::grantsCanChange()
{
    const StoredProxy stored({granted(1, 0), secret(2, 1), granted(3, 2)});
    QCOMPARE(outline(stored.proxy), QString("1"));
    LocalStorage::instance()->setObjects("objects", {granted(1, 0), granted(2, 1), granted(3, 2)});
    QCOMPARE(outline(stored.proxy), QString("1(2(3))"));
    LocalStorage::instance()->setObjects("objects", {secret(1, 0), granted(2, 1), granted(3, 2)});
    QCOMPARE(outline(stored.proxy), QString());
}

QTEST_MAIN(TestGrantedProxyModel)
#include "tst_grantedproxymodel.moc"
