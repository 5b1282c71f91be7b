#include "messages.h"

#include <localstorage/localstorage.h>

#include <QSignalSpy>
#include <QTest>

using vantorix::LocalStorage;
using vantorix::ObjectRecord;
using Settings = QHash<QString, QString>;

Q_DECLARE_METATYPE(Settings)

static QStringList names(const QVector<ObjectRecord> &objects)
{
    QStringList names;
    for (const ObjectRecord &object : objects)
        names << object.name;
    return names;
}

class TestLocalStorage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void settingsAreReplacedAsAWhole();
    void settingsSignal_data();
    void settingsSignal();
    void settingsSignalComesAfterTheChange();
    void settingsOfAReaderStayAsTheyWere();
    void readingSettingsCopiesNothing();

    void recordIsGrantedAndAtTheTopByDefault();
    void recordKeepsEveryField();
    void unknownDataNameIsEmpty_data();
    void unknownDataNameIsEmpty();
    void objectsKeepTheirOrder();
    void dataNamesAreIndependent();
    void objectsSignalNamesTheData();
    void settingTheSameObjectsSignalsAgain();
    void objectsOfAReaderStayAsTheyWere();
    void readingObjectsCopiesNothing();
    void aHandlerMaySetMore();

private:
    LocalStorage *m_storage = nullptr; // the process has one
};

void TestLocalStorage::initTestCase()
{
    failOnUnexpectedMessages();
    m_storage = LocalStorage::instance();
    QCOMPARE(LocalStorage::instance(), m_storage);
    QVERIFY(m_storage->dbSettings().isEmpty());
    QVERIFY(m_storage->objects("orgstructure").isEmpty());
}

void TestLocalStorage::init()
{
    m_storage->setDbSettings({});
    m_storage->setObjects("orgstructure", {});
    m_storage->setObjects("smartcard_profile_dataname", {});
}

void TestLocalStorage::settingsAreReplacedAsAWhole()
{
    m_storage->setDbSettings({{"PT_A", "1"}, {"PT_B", "2"}});
    m_storage->setDbSettings({{"PT_B", "3"}, {"PT_C", ""}});

    QCOMPARE(m_storage->dbSettings().count(), 2);
    QCOMPARE(m_storage->dbSettings().value("PT_B"), QString("3"));
    QVERIFY(m_storage->dbSettings().contains("PT_C"));
    QVERIFY(!m_storage->dbSettings().contains("PT_A"));
}

void TestLocalStorage::settingsSignal_data()
{
    QTest::addColumn<Settings>("before");
    QTest::addColumn<Settings>("after");
    QTest::addColumn<int>("signalCount");

    QTest::newRow("first setting") << Settings() << Settings{{"PT_A", "1"}} << 1;
    QTest::newRow("other text") << Settings{{"PT_A", "1"}} << Settings{{"PT_A", "2"}} << 1;
    QTest::newRow("other key") << Settings{{"PT_A", "1"}} << Settings{{"pt_a", "1"}} << 1;
    QTest::newRow("one more") << Settings{{"PT_A", "1"}} << Settings{{"PT_A", "1"}, {"PT_B", ""}} << 1;
    QTest::newRow("all gone") << Settings{{"PT_A", "1"}} << Settings() << 1;
    QTest::newRow("the same") << Settings{{"PT_A", "1"}, {"PT_B", "2"}} << Settings{{"PT_B", "2"}, {"PT_A", "1"}} << 0;
    QTest::newRow("still none") << Settings() << Settings() << 0;
}

void TestLocalStorage::settingsSignal()
{
    QFETCH(Settings, before);
    QFETCH(Settings, after);
    QFETCH(int, signalCount);
    m_storage->setDbSettings(before);
    QSignalSpy changed(m_storage, &LocalStorage::dbSettingsChanged);
    QSignalSpy objectsChanged(m_storage, &LocalStorage::objectsChanged);

    m_storage->setDbSettings(after);
    QCOMPARE(changed.count(), signalCount);
    QCOMPARE(objectsChanged.count(), 0);
    QCOMPARE(m_storage->dbSettings(), after);
}

void TestLocalStorage::settingsSignalComesAfterTheChange()
{
    QString seen;
    const auto connection = connect(m_storage, &LocalStorage::dbSettingsChanged, this,
                                    [&] { seen = m_storage->dbSettings().value("PT_A"); });
    m_storage->setDbSettings({{"PT_A", "new"}});
    disconnect(connection);
    QCOMPARE(seen, QString("new"));
}

void TestLocalStorage::settingsOfAReaderStayAsTheyWere()
{
    m_storage->setDbSettings({{"PT_A", "1"}});
    Settings copy = m_storage->dbSettings();

    m_storage->setDbSettings({{"PT_A", "2"}});
    QCOMPARE(copy.value("PT_A"), QString("1"));
    copy.insert("PT_A", "3");
    QCOMPARE(m_storage->dbSettings().value("PT_A"), QString("2"));
}

void TestLocalStorage::readingSettingsCopiesNothing()
{
    const Settings settings{{"PT_A", "1"}};
    m_storage->setDbSettings(settings);
    QVERIFY(m_storage->dbSettings().isSharedWith(settings));
}

void TestLocalStorage::recordIsGrantedAndAtTheTopByDefault()
{
    const ObjectRecord record;
    QCOMPARE(record.uid, 0U);
    QCOMPARE(record.parentUid, 0U);
    QVERIFY(record.granted);
    QVERIFY(record.type.isEmpty());
    QVERIFY(record.name.isEmpty());
}

void TestLocalStorage::recordKeepsEveryField()
{
    m_storage->setObjects("orgstructure", {{4294967295U, 4294967294U, "OT_FIRM", "Фирма", false}});
    const ObjectRecord record = m_storage->objects("orgstructure").first();
    QCOMPARE(record.uid, 4294967295U);
    QCOMPARE(record.parentUid, 4294967294U);
    QCOMPARE(record.type, QString("OT_FIRM"));
    QCOMPARE(record.name, QString("Фирма"));
    QVERIFY(!record.granted);
}

void TestLocalStorage::unknownDataNameIsEmpty_data()
{
    QTest::addColumn<QString>("dataName");

    QTest::newRow("never set") << "nobody";
    QTest::newRow("case differs") << "OrgStructure";
    QTest::newRow("empty") << "";
    QTest::newRow("null") << QString();
}

void TestLocalStorage::unknownDataNameIsEmpty()
{
    QFETCH(QString, dataName);
    m_storage->setObjects("orgstructure", {{1, 0, "OT_FIRM", "Фирма"}});
    QSignalSpy changed(m_storage, &LocalStorage::objectsChanged);

    QVERIFY(m_storage->objects(dataName).isEmpty());
    QCOMPARE(changed.count(), 0);
}

void TestLocalStorage::objectsKeepTheirOrder()
{
    m_storage->setObjects("orgstructure", {{3, 2, "OT_DEPARTMENT", "Отдел кадров"},
                                           {2, 1, "OT_FIRM", "Фирма"},
                                           {1, 0, "OT_SUBJECTROOT", "Организации"},
                                           {4, 2, "OT_DEPARTMENT", "Бухгалтерия"}});
    QCOMPARE(names(m_storage->objects("orgstructure")),
             QStringList({"Отдел кадров", "Фирма", "Организации", "Бухгалтерия"}));
}

void TestLocalStorage::dataNamesAreIndependent()
{
    m_storage->setObjects("orgstructure", {{1, 0, "OT_FIRM", "Фирма"}});
    m_storage->setObjects("smartcard_profile_dataname", {{1, 0, "OT_SMARTCARD_PROFILE", "Пропуск"}});
    m_storage->setObjects("orgstructure", {{2, 0, "OT_FIRM", "Филиал"}});

    QCOMPARE(names(m_storage->objects("orgstructure")), QStringList("Филиал"));
    QCOMPARE(names(m_storage->objects("smartcard_profile_dataname")), QStringList("Пропуск"));
}

void TestLocalStorage::objectsSignalNamesTheData()
{
    QSignalSpy changed(m_storage, &LocalStorage::objectsChanged);
    QSignalSpy settingsChanged(m_storage, &LocalStorage::dbSettingsChanged);
    QStringList seen;
    const auto connection = connect(m_storage, &LocalStorage::objectsChanged, this,
                                    [&](const QString &dataName) { seen = names(m_storage->objects(dataName)); });

    m_storage->setObjects("smartcard_profile_dataname", {{1, 0, "OT_SMARTCARD_PROFILE", "Пропуск"}});
    disconnect(connection);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toString(), QString("smartcard_profile_dataname"));
    QCOMPARE(seen, QStringList("Пропуск"));
    QCOMPARE(settingsChanged.count(), 0);
}

void TestLocalStorage::settingTheSameObjectsSignalsAgain()
{
    QSignalSpy changed(m_storage, &LocalStorage::objectsChanged);
    m_storage->setObjects("orgstructure", {{1, 0, "OT_FIRM", "Фирма"}});
    m_storage->setObjects("orgstructure", m_storage->objects("orgstructure"));
    m_storage->setObjects("orgstructure", {});
    QCOMPARE(changed.count(), 3);
    QVERIFY(m_storage->objects("orgstructure").isEmpty());
}

void TestLocalStorage::objectsOfAReaderStayAsTheyWere()
{
    m_storage->setObjects("orgstructure", {{1, 0, "OT_FIRM", "Фирма"}});
    QVector<ObjectRecord> copy = m_storage->objects("orgstructure");

    m_storage->setObjects("orgstructure", {{1, 0, "OT_FIRM", "Филиал"}});
    QCOMPARE(names(copy), QStringList("Фирма"));
    copy.first().name = "Другая";
    QCOMPARE(names(m_storage->objects("orgstructure")), QStringList("Филиал"));
}

void TestLocalStorage::readingObjectsCopiesNothing()
{
    const QVector<ObjectRecord> objects{{1, 0, "OT_FIRM", "Фирма"}};
    m_storage->setObjects("orgstructure", objects);
    QVERIFY(m_storage->objects("orgstructure").isSharedWith(objects));
}

void TestLocalStorage::aHandlerMaySetMore()
{
    QSignalSpy changed(m_storage, &LocalStorage::objectsChanged);
    const auto connection = connect(m_storage, &LocalStorage::objectsChanged, this, [&](const QString &dataName) {
        if (dataName == "orgstructure")
            m_storage->setObjects("smartcard_profile_dataname", {{1, 0, "OT_SMARTCARD_PROFILE", "Пропуск"}});
    });
    m_storage->setObjects("orgstructure", {{1, 0, "OT_FIRM", "Фирма"}});
    disconnect(connection);

    QCOMPARE(changed.count(), 2);
    QCOMPARE(names(m_storage->objects("orgstructure")), QStringList("Фирма"));
    QCOMPARE(names(m_storage->objects("smartcard_profile_dataname")), QStringList("Пропуск"));
}

QTEST_MAIN(TestLocalStorage)
#include "tst_localstorage.moc"
