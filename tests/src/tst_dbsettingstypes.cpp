#include <vxsettings/dbsettingstypes.h>

#include "messages.h"

#include <vxsettings/dbsettingsgroup.h> // its class JsonGroup has an enumerator for a namesake
#include <vxsettings/objectparameters.h>

#include <QTest>

#include <type_traits>

static_assert(std::is_same_v<std::underlying_type_t<DBGroups>, int>);
static_assert(std::is_same_v<std::underlying_type_t<DBSettingsType>, int>);
static_assert(std::is_same_v<std::underlying_type_t<LabelPosition>, int>);
static_assert(std::is_same_v<vantorix::OBJECT_PARAMETERS, QHash<QString, QString>>);
static_assert(std::is_same_v<decltype(LayoutConcrete::columnCount), int>);
static_assert(std::is_same_v<decltype(LayoutConcrete::children), std::vector<LayoutConcrete>>);

Q_DECLARE_METATYPE(DBGroups)
Q_DECLARE_METATYPE(DBSettingsType)
Q_DECLARE_METATYPE(LabelPosition)

class TestDBSettingsTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void groupNumber_data();
    void groupNumber();
    void editorKindNumber_data();
    void editorKindNumber();
    void labelPositionNumber_data();
    void labelPositionNumber();
    void layoutHasOneColumnByDefault();
    void layoutTakesItsFieldsInOrder();
    void layoutIsCopiedWithItsChildren();
};

void TestDBSettingsTypes::groupNumber_data()
{
    QTest::addColumn<DBGroups>("group");
    QTest::addColumn<int>("number");

    QTest::newRow("database") << DBGroups::Database << 0;
    QTest::newRow("employees") << DBGroups::Employees << 1;
    QTest::newRow("users") << DBGroups::Users << 2;
    QTest::newRow("scanning in general") << DBGroups::ScanningCommon << 3;
    QTest::newRow("fingerprint scanning") << DBGroups::FingerprintScanning << 4;
    QTest::newRow("palm scanning") << DBGroups::PalmScanning << 5;
    QTest::newRow("face scanning") << DBGroups::FaceScanning << 6;
    QTest::newRow("pass requests") << DBGroups::PassRequests << 7;
    QTest::newRow("connection") << DBGroups::Connection << 8;
    QTest::newRow("mobile options of the application") << DBGroups::StudioMobile << 10;
    QTest::newRow("mobile identification") << DBGroups::MobileId << 11;
    QTest::newRow("integration") << DBGroups::Integration << 12;
    QTest::newRow("pin strength") << DBGroups::PinStrength << 14;
    QTest::newRow("password strength") << DBGroups::PasswordStrength << 15;
    QTest::newRow("amount of palm templates") << DBGroups::PalmTemplatesAmount << 16;
}

void TestDBSettingsTypes::groupNumber()
{
    QFETCH(DBGroups, group);
    QTEST(int(group), "number");
}

void TestDBSettingsTypes::editorKindNumber_data()
{
    QTest::addColumn<DBSettingsType>("type");
    QTest::addColumn<int>("number");

    QTest::newRow("unknown") << DBSettingsType::Unknown << 0;
    QTest::newRow("check box") << DBSettingsType::CheckBox << 1;
    QTest::newRow("combo box") << DBSettingsType::ComboBox << 2;
    QTest::newRow("line edit") << DBSettingsType::LineEdit << 3;
    QTest::newRow("spin box") << DBSettingsType::SpinBox << 4;
    QTest::newRow("json group") << DBSettingsType::JsonGroup << 6;
    QTest::newRow("read-only") << DBSettingsType::Readonly << 7;
    QTest::newRow("password") << DBSettingsType::Password << 9;
    QTest::newRow("orgstructure selector") << DBSettingsType::OrgstructureSelector << 10;
    QTest::newRow("smart-card profile selector") << DBSettingsType::SmartCardProfileSelector << 11;
}

void TestDBSettingsTypes::editorKindNumber()
{
    QFETCH(DBSettingsType, type);
    QTEST(int(type), "number");
}

void TestDBSettingsTypes::labelPositionNumber_data()
{
    QTest::addColumn<LabelPosition>("position");
    QTest::addColumn<int>("number");

    QTest::newRow("none") << LabelPosition::None << 0;
    QTest::newRow("left") << LabelPosition::Left << 1;
    QTest::newRow("top") << LabelPosition::Top << 2;
    QTest::newRow("right") << LabelPosition::Right << 3;
    QTest::newRow("bottom") << LabelPosition::Bottom << 4;
}

void TestDBSettingsTypes::labelPositionNumber()
{
    QFETCH(LabelPosition, position);
    QTEST(int(position), "number");
}

void TestDBSettingsTypes::layoutHasOneColumnByDefault()
{
    const LayoutConcrete layout;
    QCOMPARE(layout.columnCount, 1);
    QVERIFY(layout.children.empty());
}

void TestDBSettingsTypes::layoutTakesItsFieldsInOrder()
{
    const LayoutConcrete layout{3, {{2, {}}, {}}};
    QCOMPARE(layout.columnCount, 3);
    QCOMPARE(layout.children.size(), std::size_t(2));
    QCOMPARE(layout.children[0].columnCount, 2);
    QCOMPARE(layout.children[1].columnCount, 1);
}

void TestDBSettingsTypes::layoutIsCopiedWithItsChildren()
{
    LayoutConcrete original{2, {{3, {{4, {}}}}}};
    const LayoutConcrete copy = original;

    original.columnCount = 5;
    original.children[0].children[0].columnCount = 6;
    original.children.push_back({});

    QCOMPARE(copy.columnCount, 2);
    QCOMPARE(copy.children.size(), std::size_t(1));
    QCOMPARE(copy.children[0].columnCount, 3);
    QCOMPARE(copy.children[0].children[0].columnCount, 4);
}

QTEST_MAIN(TestDBSettingsTypes)
#include "tst_dbsettingstypes.moc"
