#include "builders/groupbuilder.h"
#include "loggingrules.h"
#include "messages.h"
#include "pageinspection.h"

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbsettingshelper.h>

using namespace db::database;

namespace {

QStringList listedKeys;
} // namespace

/// The catalogue has no nested group in the middle of a row and no key without an editor. Here it has: the loader takes
/// the program's own function for the library's calls as well.
QStringList DBSettingsHelper::groupParams(DBGroups group)
{
    // Nested groups stay empty, so that only the grid in question is filled.
    return group < DBGroups::PinStrength ? listedKeys : QStringList();
}

class TestGroupGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void placement_data();
    void placement();
    void keyWithoutAnEditorIsDropped();
    void sameKeyTwice();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
};

void TestGroupGrid::initTestCase()
{
    failOnUnexpectedMessages();
    CapturedMessages log;
    DBSettingsHelper::paramType("PT_UNKNOWN"); // reported once a process: now
    QCOMPARE(log.count(), 1);
}

void TestGroupGrid::placement_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QStringList>("cells");

    const int oneColumn = 7;
    const int twoColumns = 1;
    const int threeColumns = 2;
    const QString a = MAX_CARD_COUNT;
    const QString b = CARD_VIEW_FORMAT;
    const QString c = EMPLOYEE_PHOTO_TYPE;
    const QString d = MOBILE_HOST;
    const QString j = PIN_STRENGTH;
    const QString k = PASSWORD_STRENGTH;
    const QString unknown = "PT_UNKNOWN";

    QTest::newRow("nothing") << twoColumns << QStringList() << QStringList();
    QTest::newRow("nested group in the middle of a row")
        << twoColumns << QStringList{a, b, c, j, d}
        << QStringList{a + " 0,0", b + " 0,1", c + " 1,0", "[Сложность пин-кода] 2,0 1x2", d + " 3,0"};
    QTest::newRow("nested group at the start of a row")
        << twoColumns << QStringList{a, b, j, c}
        << QStringList{a + " 0,0", b + " 0,1", "[Сложность пин-кода] 1,0 1x2", c + " 2,0"};
    QTest::newRow("nested group first") << twoColumns << QStringList{j, a, b}
                                        << QStringList{"[Сложность пин-кода] 0,0 1x2", a + " 1,0", b + " 1,1"};
    QTest::newRow("nested groups only") << twoColumns << QStringList{j, k}
                                        << QStringList{"[Сложность пин-кода] 0,0 1x2", "[Сложность пароля] 1,0 1x2"};
    QTest::newRow("nested groups around an editor")
        << twoColumns << QStringList{j, a, k}
        << QStringList{"[Сложность пин-кода] 0,0 1x2", a + " 1,0", "[Сложность пароля] 2,0 1x2"};
    QTest::newRow("one column") << oneColumn << QStringList{a, j, b}
                                << QStringList{a + " 0,0", "[Сложность пин-кода] 1,0", b + " 2,0"};
    QTest::newRow("three columns, one filled")
        << threeColumns << QStringList{a, j, b} << QStringList{a + " 0,0", "[Сложность пин-кода] 1,0 1x3", b + " 2,0"};
    QTest::newRow("three columns, two filled")
        << threeColumns << QStringList{a, b, j, c, d}
        << QStringList{a + " 0,0", b + " 0,1", "[Сложность пин-кода] 1,0 1x3", c + " 2,0", d + " 2,1"};
    QTest::newRow("three columns, all filled")
        << threeColumns << QStringList{a, b, c, j, d}
        << QStringList{a + " 0,0", b + " 0,1", c + " 0,2", "[Сложность пин-кода] 1,0 1x3", d + " 2,0"};
    QTest::newRow("no editor for the first")
        << twoColumns << QStringList{unknown, a, b} << QStringList{a + " 0,0", b + " 0,1"};
    QTest::newRow("no editor for one between") << twoColumns << QStringList{a, unknown, b, unknown, unknown, c}
                                               << QStringList{a + " 0,0", b + " 0,1", c + " 1,0"};
    QTest::newRow("no editor for any") << twoColumns << QStringList{unknown, unknown} << QStringList();
    QTest::newRow("no editor before a nested group")
        << twoColumns << QStringList{a, unknown, j, unknown, b}
        << QStringList{a + " 0,0", "[Сложность пин-кода] 1,0 1x2", b + " 2,0"};
}

void TestGroupGrid::placement()
{
    QFETCH(int, group);
    QFETCH(QStringList, keys);
    QFETCH(QStringList, cells);
    listedKeys = keys;
    QWidget page;
    GroupBuilder builder(DBGroups(group), &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().getSettings();

    QCOMPARE(inspect::cells(inspect::frame(*node)), cells);
    QCOMPARE(int(node->toGroup()->settings().size()), cells.count());
}

void TestGroupGrid::keyWithoutAnEditorIsDropped()
{
    listedKeys = QStringList{MAX_CARD_COUNT, "PT_UNKNOWN", CARD_VIEW_FORMAT};
    QWidget page;
    GroupBuilder builder(DBGroups::Employees, &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().getSettings();

    for (const std::unique_ptr<DBSettings> &child : node->toGroup()->settings())
        QVERIFY(child->widget());
    QStringList keys = node->parameters().keys();
    keys.sort();
    QCOMPARE(keys, QStringList({"PT_CARD_VIEW_FORMAT", "PT_MAX_CARD_COUNT"}));
}

void TestGroupGrid::sameKeyTwice()
{
    listedKeys = QStringList{MAX_CARD_COUNT, MAX_CARD_COUNT};
    QWidget page;
    GroupBuilder builder(DBGroups::Employees, &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().getSettings();

    QCOMPARE(inspect::cells(inspect::frame(*node)), QStringList({"PT_MAX_CARD_COUNT 0,0", "PT_MAX_CARD_COUNT 0,1"}));
    QCOMPARE(node->toGroup()->paramKeys(), QStringList("PT_MAX_CARD_COUNT"));
}

QTEST_MAIN(TestGroupGrid)
#include "tst_groupgrid.moc"
