#include "builders/jsongroupbuilder.h"
#include "debuglines.h"
#include "loggingrules.h"
#include "messages.h"
#include "pageinspection.h"
#include "storedsettings.h"

#include <vxsettings/dbkeys.h>

#include <QGroupBox>

using namespace db::database;

namespace {

const QString defaultPinStrength = "{\n"
                                   "    \"deny_equal\": \"false\",\n"
                                   "    \"deny_sequence\": \"false\",\n"
                                   "    \"max_len\": \"4\",\n"
                                   "    \"min_len\": \"0\"\n"
                                   "}\n";
} // namespace

class TestJsonGroupBuilder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nodeIsAJsonGroupFromTheStart();
    void keyIsSetByItsStep();
    void keyIsACopy();
    void keyNeedsNoWidget();
    void frameHangsBelow_data();
    void frameHangsBelow();
    void frameDiffersFromAPage();
    void contentIsThatOfThePlainGroup_data();
    void contentIsThatOfThePlainGroup();
    void titleIsThatOfTheGroup();
    void membersAreReadFromTheObject();
    void objectIsThatOfTheGroupNotOfTheKey();
    void membersKnowTheRootWidget();
    void parametersAreOneObject();
    void groupWithoutMembersIsAnEmptyObject_data();
    void groupWithoutMembersIsAnEmptyObject();
    void stepsOfOtherNodesDoNothing();
    void settingsAreMovedOut();
    void frameDiesWithTheBuilder();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
};

void TestJsonGroupBuilder::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestJsonGroupBuilder::nodeIsAJsonGroupFromTheStart()
{
    QWidget page;
    JsonGroupBuilder builder(DBGroups::PinStrength, PIN_STRENGTH, &page, nullptr);
    QCOMPARE(builder.type(), DBSettingsType::JsonGroup);
    QVERIFY(page.children().isEmpty());

    const std::unique_ptr<DBSettings> node = builder.getSettings();
    QVERIFY(dynamic_cast<JsonGroup *>(node.get()));
    QVERIFY(node->isGroup());
    QCOMPARE(node->type(), DBSettingsType::JsonGroup);
    QCOMPARE(node->toGroup()->id(), -1);
    QVERIFY(!node->widget());
    QVERIFY(node->toGroup()->settings().empty());
}

void TestJsonGroupBuilder::keyIsSetByItsStep()
{
    QWidget page;
    JsonGroupBuilder builder(DBGroups::PinStrength, PIN_STRENGTH, &page, nullptr);
    builder.createWidget().createTitle();
    {
        JsonGroupBuilder keyed(DBGroups::PinStrength, PIN_STRENGTH, &page, nullptr);
        QCOMPARE(&keyed.createWidget().createKey(), &keyed);
        QCOMPARE(keyed.getSettings()->parameters().keys(), QStringList("PT_PIN_STRENGTH"));
    }
    QCOMPARE(builder.getSettings()->parameters().keys(), QStringList(""));
}

void TestJsonGroupBuilder::keyIsACopy()
{
    QString key = "PT_FIRST";
    QWidget page;
    JsonGroupBuilder builder(DBGroups::PinStrength, key, &page, nullptr);
    key = "PT_SECOND";
    builder.createKey();
    QCOMPARE(builder.getSettings()->parameters().keys(), QStringList("PT_FIRST"));
}

void TestJsonGroupBuilder::keyNeedsNoWidget()
{
    JsonGroupBuilder builder(DBGroups::PinStrength, PIN_STRENGTH, nullptr, nullptr);
    builder.createKey().createTitle().createIcon();
    const std::unique_ptr<DBSettings> node = builder.getSettings();
    QVERIFY(!node->widget());
    QCOMPARE(node->parameters(), vantorix::OBJECT_PARAMETERS({{"PT_PIN_STRENGTH", "{\n}\n"}}));
}

void TestJsonGroupBuilder::frameHangsBelow_data()
{
    QTest::addColumn<bool>("hasParent");
    QTest::addColumn<bool>("hasRoot");
    QTest::addColumn<QString>("owner");

    QTest::newRow("the parent") << true << false << "parent";
    QTest::newRow("the root") << false << true << "root";
    QTest::newRow("the root even with a parent") << true << true << "root";
    QTest::newRow("nobody") << false << false << "";
}

void TestJsonGroupBuilder::frameHangsBelow()
{
    QFETCH(bool, hasParent);
    QFETCH(bool, hasRoot);
    QWidget parent;
    parent.setObjectName("parent");
    QWidget root;
    root.setObjectName("root");
    JsonGroupBuilder builder(DBGroups::PinStrength, PIN_STRENGTH, hasParent ? &parent : nullptr,
                             hasRoot ? &root : nullptr);

    const std::unique_ptr<DBSettings> node = builder.createWidget().getSettings();
    const QWidget *owner = node->widget()->parentWidget();
    QTEST(owner ? owner->objectName() : QString(""), "owner");
    QCOMPARE(parent.children().count() + root.children().count(), owner ? 1 : 0);
}

void TestJsonGroupBuilder::frameDiffersFromAPage()
{
    QWidget page;
    JsonGroupBuilder builder(DBGroups::PinStrength, PIN_STRENGTH, &page, nullptr);
    QCOMPARE(&builder.createWidget(), &builder);
    const std::unique_ptr<DBSettings> node = builder.getSettings();

    const VXSettingsGroupWidget *frame = inspect::frame(*node);
    QCOMPARE(frame->isShowHideButton(), true);
    QCOMPARE(frame->isShowLineHorizontal(), false);
    // The rest is the same.
    QCOMPARE(frame->contentMargins(), QMargins(10, 6, 10, 6));
    QCOMPARE(frame->isExpanded(), true);
    QVERIFY(frame->icon().isNull());
    QCOMPARE(inspect::grid(frame)->verticalSpacing(), 6);
    const auto *splitter = qobject_cast<QSplitter *>(inspect::body(frame).last());
    QVERIFY(splitter);
    QCOMPARE(splitter->orientation(), Qt::Vertical);
    QCOMPARE(splitter->count(), 0);
}

void TestJsonGroupBuilder::contentIsThatOfThePlainGroup_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QStringList>("cells");

    QTest::newRow("PIN") << 14 << QStringList{"min_len 0,0", "max_len 0,1", "deny_sequence 1,0", "deny_equal 1,1"};
    // Whatever group it is given; the factory gives it the JSON groups.
    QTest::newRow("page") << 8 << QStringList{"PT_MOBILE_HOST 0,0", "PT_MOBILE_PORT 0,1", "PT_LOCKER_ACCESS_TOKEN 1,0"};
    QTest::newRow("unassigned") << 9 << QStringList();
}

void TestJsonGroupBuilder::contentIsThatOfThePlainGroup()
{
    QFETCH(int, group);
    QWidget page;
    JsonGroupBuilder builder(DBGroups(group), PIN_STRENGTH, &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().getSettings();
    QTEST(inspect::cells(inspect::frame(*node)), "cells");
}

void TestJsonGroupBuilder::titleIsThatOfTheGroup()
{
    QWidget page;
    JsonGroupBuilder builder(DBGroups::PalmTemplatesAmount, PIN_STRENGTH, &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().createTitle().createKey().getSettings();
    QCOMPARE(inspect::frame(*node)->title(), QString("Настройки количества шаблонов"));
}

void TestJsonGroupBuilder::membersAreReadFromTheObject()
{
    StoredSettings stored({{PIN_STRENGTH, "{\"min_len\": 6, \"max_len\": \"12\", \"deny_equal\": true}"},
                           {"min_len", "99"},
                           {"deny_sequence", "1"}});
    QWidget page;
    JsonGroupBuilder builder(DBGroups::PinStrength, PIN_STRENGTH, &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().getSettings();

    QCOMPARE(node->toGroup()->paramValue("min_len"), QVariant(6));
    QCOMPARE(node->toGroup()->paramValue("max_len"), QVariant(12));
    QCOMPARE(node->toGroup()->paramValue("deny_equal"), QVariant(true));
    QCOMPARE(node->toGroup()->paramValue("deny_sequence"), QVariant(false));
}

void TestJsonGroupBuilder::objectIsThatOfTheGroupNotOfTheKey()
{
    StoredSettings stored({{PIN_STRENGTH, "{\"min_len\": 6}"}, {PASSWORD_STRENGTH, "{\"min_len\": 7}"}});
    QWidget page;
    JsonGroupBuilder builder(DBGroups::PinStrength, PASSWORD_STRENGTH, &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().createKey().getSettings();
    QCOMPARE(node->toGroup()->paramValue("min_len"), QVariant(6));
    QCOMPARE(node->parameters().keys(), QStringList("PT_PASSWORD_STRENGTH"));
}

void TestJsonGroupBuilder::membersKnowTheRootWidget()
{
    QGroupBox root;
    JsonGroupBuilder builder(DBGroups::PinStrength, PIN_STRENGTH, &root, nullptr);
    LoggingRules rules("gui.lib.dbsettings.debug=true");
    CapturedMessages log;
    builder.createWidget();

    const QStringList lines = debugLines(log).filter("m_rootWidget");
    QCOMPARE(lines.count(), 4);
    for (const QString &line : lines)
        QVERIFY2(line.endsWith("QGroupBox"), qPrintable(line));
    // The plain store is named in the log, but it has nothing under a member's name.
    QCOMPARE(debugLines(log).filter("Param name is ").count(), 4);
}

void TestJsonGroupBuilder::parametersAreOneObject()
{
    QWidget page;
    JsonGroupBuilder builder(DBGroups::PinStrength, PIN_STRENGTH, &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().createTitle().createKey().getSettings();
    QCOMPARE(node->parameters(), vantorix::OBJECT_PARAMETERS({{"PT_PIN_STRENGTH", defaultPinStrength}}));
}

void TestJsonGroupBuilder::groupWithoutMembersIsAnEmptyObject_data()
{
    QTest::addColumn<int>("group");

    QTest::newRow("unassigned") << 13;
    QTest::newRow("unknown") << 17;
    QTest::newRow("negative") << -1;
}

void TestJsonGroupBuilder::groupWithoutMembersIsAnEmptyObject()
{
    QFETCH(int, group);
    QWidget page;
    JsonGroupBuilder builder(DBGroups(group), PIN_STRENGTH, &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().createTitle().createKey().getSettings();
    QVERIFY(inspect::frame(*node));
    QCOMPARE(node->parameters(), vantorix::OBJECT_PARAMETERS({{"PT_PIN_STRENGTH", "{\n}\n"}}));
}

void TestJsonGroupBuilder::stepsOfOtherNodesDoNothing()
{
    QWidget page;
    JsonGroupBuilder builder(DBGroups::PinStrength, PIN_STRENGTH, &page, nullptr);
    DBParamWidget editor(nullptr);
    builder.createWidget().createKey().createValue().createParamValues().createParamRange().setParamWidget(&editor);
    builder.setReadonly().createSpecialValue().createInvertedValue().createToolTip();
    QVERIFY(!editor.parent());
    QCOMPARE(builder.getSettings()->parameters(),
             vantorix::OBJECT_PARAMETERS({{"PT_PIN_STRENGTH", defaultPinStrength}}));
}

void TestJsonGroupBuilder::settingsAreMovedOut()
{
    QWidget page;
    std::unique_ptr<DBSettings> node;
    {
        JsonGroupBuilder builder(DBGroups::PinStrength, PIN_STRENGTH, &page, nullptr);
        node = builder.createWidget().getSettings();
        QVERIFY(!builder.getSettings());
    }
    QVERIFY(node->widget());
    node.reset();
    QVERIFY(page.children().isEmpty());
}

void TestJsonGroupBuilder::frameDiesWithTheBuilder()
{
    QWidget page;
    {
        JsonGroupBuilder builder(DBGroups::PinStrength, PIN_STRENGTH, &page, nullptr);
        builder.createWidget();
        QCOMPARE(page.children().count(), 1);
    }
    QVERIFY(page.children().isEmpty());
}

QTEST_MAIN(TestJsonGroupBuilder)
#include "tst_jsongroupbuilder.moc"
