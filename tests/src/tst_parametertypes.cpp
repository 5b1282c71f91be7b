#include "loggingrules.h"
#include "messages.h"
#include "pageinspection.h"

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbsettingsgroup.h>
#include <vxsettings/dbsettingshelper.h>
#include <vxsettings/dbsettingsparameterfactory.h>

#include <climits>

using namespace db::database;

namespace {

DBSettingsType typeUnderTest = DBSettingsType::Unknown;
} // namespace

/// The catalogue has no parameter of the types without an editor. Here it has: the loader takes the program's own
/// function for the library's calls as well.
DBSettingsType DBSettingsHelper::paramType(const QString &key)
{
    return key == MAX_CARD_COUNT ? typeUnderTest : DBSettingsType::Readonly;
}

class TestParameterTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void typeHasAnEditor_data();
    void typeHasAnEditor();
    void typeHasNone_data();
    void typeHasNone();
    void jsonGroupTypeMakesAGroup();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
};

void TestParameterTypes::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestParameterTypes::typeHasAnEditor_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("editorClass");

    QTest::newRow("check box") << 1 << "DBCheckBoxWidget";
    QTest::newRow("combo box") << 2 << "DBComboBoxWidget";
    QTest::newRow("line edit") << 3 << "DBLineEditWidget";
    QTest::newRow("spin box") << 4 << "DBSpinBoxWidget";
    QTest::newRow("read-only") << 7 << "DBLineEditWidget";
    QTest::newRow("password") << 9 << "DBPasswordWidget";
    QTest::newRow("organisational structure") << 10 << "DBObjSelectorWidget";
    QTest::newRow("smart-card profile") << 11 << "DBObjSelectorWidget";
}

void TestParameterTypes::typeHasAnEditor()
{
    QFETCH(int, type);
    QFETCH(QString, editorClass);
    typeUnderTest = DBSettingsType(type);
    QWidget page;
    for (const DBGroups group : {DBGroups::Employees, DBGroups::PinStrength}) {
        const auto node = DBSettingsParameterFactory::create(group, MAX_CARD_COUNT, &page, &page);
        QCOMPARE(int(node->type()), type);
        QVERIFY(!node->isGroup());
        QVERIFY(node->widget());
        QCOMPARE(QString(node->widget()->metaObject()->className()), editorClass);
        QCOMPARE(qobject_cast<DBParamWidget *>(node->widget().get())->isReadOnly(), type == 7);
    }
}

void TestParameterTypes::typeHasNone_data()
{
    QTest::addColumn<int>("type");

    QTest::newRow("unknown") << 0;
    QTest::newRow("group node") << 5;
    QTest::newRow("reserved") << 8;
    QTest::newRow("after the last") << 12;
    QTest::newRow("far off") << 99;
    QTest::newRow("largest") << INT_MAX;
    QTest::newRow("negative") << -1;
}

void TestParameterTypes::typeHasNone()
{
    QFETCH(int, type);
    typeUnderTest = DBSettingsType(type);
    QWidget page;
    for (const DBGroups group : {DBGroups::Employees, DBGroups::PinStrength}) {
        const auto node = DBSettingsParameterFactory::create(group, MAX_CARD_COUNT, &page, &page);
        QVERIFY(node);
        QCOMPARE(int(node->type()), type);
        QVERIFY(!node->isGroup());
        QVERIFY(!node->widget());
        QVERIFY(node->parameters().isEmpty());
        QVERIFY(page.children().isEmpty());
    }
}

void TestParameterTypes::jsonGroupTypeMakesAGroup()
{
    typeUnderTest = DBSettingsType::JsonGroup;
    QWidget page;
    const auto node = DBSettingsParameterFactory::create(DBGroups::Employees, MAX_CARD_COUNT, &page, &page);
    QVERIFY(dynamic_cast<JsonGroup *>(node.get()));
    // A key that stands for no JSON group is taken for the first group.
    QCOMPARE(inspect::cells(inspect::frame(*node)), QStringList("PT_VERSION 0,0"));
    QCOMPARE(node->parameters().keys(), QStringList("PT_MAX_CARD_COUNT"));
}

QTEST_MAIN(TestParameterTypes)
#include "tst_parametertypes.moc"
