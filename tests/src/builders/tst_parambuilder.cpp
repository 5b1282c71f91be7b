#include "builders/parambuilder.h"
#include "debuglines.h"
#include "loggingrules.h"
#include "messages.h"
#include "pageinspection.h"
#include "probeeditor.h"
#include "storedsettings.h"

#include <vxsettings/dbkeys.h>

#include <QGroupBox>
#include <QPointer>

#include <climits>

using namespace db::database;

using Step = DBSettingsBuilder &(DBSettingsBuilder::*)();
Q_DECLARE_METATYPE(Step)
Q_DECLARE_METATYPE(DBSettingsType)

namespace {

using Choices = std::map<unsigned int, QString>;
using Range = std::pair<int, int>;

/// The library's debug lines without the quotes of the debug stream.
QStringList plainDebugLines(const CapturedMessages &log)
{
    QStringList lines;
    for (QString line : debugLines(log))
        lines << line.remove('"').trimmed();
    return lines;
}
} // namespace

Q_DECLARE_METATYPE(Choices)
Q_DECLARE_METATYPE(Range)

class TestParamBuilder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void typeComesFromTheCatalogue_data();
    void typeComesFromTheCatalogue();
    void unknownKeyIsReportedAndHasNoType();
    void constructionLogsTheRootWidget();
    void constructionLogsAMissingRootWidget();

    void everyStepAnswersTheBuilder_data();
    void everyStepAnswersTheBuilder();
    void stepBeforeAndAfterBinding_data();
    void stepBeforeAndAfterBinding();
    void stepsWithoutAnEditorDoNothing();
    void iconStepDoesNothing();

    void setParamWidgetReparents();
    void setParamWidgetWithoutAParent();
    void captionGoesWhereTheGroupSays_data();
    void captionGoesWhereTheGroupSays();
    void captionThatCannotMoveStays_data();
    void captionThatCannotMoveStays();
    void theLastEditorCounts();

    void title_data();
    void title();
    void titleOfAKeyWithoutCaption();
    void key();
    void storedTextIsHandedOverAsItIs_data();
    void storedTextIsHandedOverAsItIs();
    void missingTextIsEmptyButNotNull();
    void storageIsReadByTheStep();
    void memberOfAJsonSettingIsNoStoredKey();
    void choices_data();
    void choices();
    void range_data();
    void range();
    void specialValue_data();
    void specialValue();
    void nothingIsInverted_data();
    void nothingIsInverted();
    void readOnly();
    void toolTip_data();
    void toolTip();

    void valueIsLogged();
    void valueWithoutANodeWidgetIsNotLogged();
    void rangeIsLogged();
    void rangeIsLoggedWithoutAnEditor();
    void nothingIsLoggedWithDebugOff();

    void settingsAreMovedOut();
    void nodeWithoutEditorIsMovedOut();
    void settingsOutliveTheBuilder();
    void unboundEditorOutlivesTheBuilder();
    void boundEditorDiesWithTheBuilder();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
};

void TestParamBuilder::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestParamBuilder::typeComesFromTheCatalogue_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<DBSettingsType>("type");

    QTest::newRow("check box") << json::DENY_EQUAL << DBSettingsType::CheckBox;
    QTest::newRow("combo box") << CARD_VIEW_FORMAT << DBSettingsType::ComboBox;
    QTest::newRow("line edit") << MOBILE_HOST << DBSettingsType::LineEdit;
    QTest::newRow("spin box") << MOBILE_PORT << DBSettingsType::SpinBox;
    QTest::newRow("JSON group") << PIN_STRENGTH << DBSettingsType::JsonGroup;
    QTest::newRow("read-only") << VERSION << DBSettingsType::Readonly;
    QTest::newRow("password") << PASSWORD_DEF << DBSettingsType::Password;
    QTest::newRow("organisational structure") << DEFAULT_DEPARTMENT << DBSettingsType::OrgstructureSelector;
    QTest::newRow("smart-card profile") << MOBILE_SMARTCARD_PROFILE_ID << DBSettingsType::SmartCardProfileSelector;
}

void TestParamBuilder::typeComesFromTheCatalogue()
{
    QFETCH(QString, key);
    QFETCH(DBSettingsType, type);
    ParamBuilder builder(DBGroups::Employees, key, nullptr, nullptr);
    QCOMPARE(builder.type(), type);

    const std::unique_ptr<DBSettings> node = builder.getSettings();
    QCOMPARE(node->type(), type);
    QCOMPARE(node->isGroup(), false);
    QVERIFY(!node->widget());
}

void TestParamBuilder::unknownKeyIsReportedAndHasNoType()
{
    const QString key = "PT_NOBODY_KNOWS_THIS";
    CapturedMessages log;
    ParamBuilder builder(DBGroups::Employees, key, nullptr, nullptr);

    QCOMPARE(builder.type(), DBSettingsType::Unknown);
    QCOMPARE(log.texts(), QStringList("dbsettings does not contain parameter \"PT_NOBODY_KNOWS_THIS\""));
    QCOMPARE(log.all().first().type, QtCriticalMsg);
}

void TestParamBuilder::constructionLogsTheRootWidget()
{
    QGroupBox root;
    LoggingRules rules("gui.lib.dbsettings.debug=true");
    CapturedMessages log;
    ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, &root, nullptr);

    const QStringList lines = plainDebugLines(log);
    QCOMPARE(lines.count(), 1);
    QVERIFY2(lines.first().startsWith("m_rootWidget QGroupBox(0x"), qPrintable(lines.first()));
    QVERIFY2(lines.first().endsWith(" QGroupBox"), qPrintable(lines.first()));
}

void TestParamBuilder::constructionLogsAMissingRootWidget()
{
    QGroupBox parent;
    LoggingRules rules("gui.lib.dbsettings.debug=true");
    CapturedMessages log;
    ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, nullptr, &parent);

    QCOMPARE(plainDebugLines(log), QStringList("m_rootWidget QWidget(0x0)"));
}

void TestParamBuilder::everyStepAnswersTheBuilder_data()
{
    QTest::addColumn<Step>("step");

    QTest::newRow("widget") << &DBSettingsBuilder::createWidget;
    QTest::newRow("icon") << &DBSettingsBuilder::createIcon;
    QTest::newRow("title") << &DBSettingsBuilder::createTitle;
    QTest::newRow("key") << &DBSettingsBuilder::createKey;
    QTest::newRow("value") << &DBSettingsBuilder::createValue;
    QTest::newRow("choices") << &DBSettingsBuilder::createParamValues;
    QTest::newRow("range") << &DBSettingsBuilder::createParamRange;
    QTest::newRow("read-only") << &DBSettingsBuilder::setReadonly;
    QTest::newRow("special value") << &DBSettingsBuilder::createSpecialValue;
    QTest::newRow("inversion") << &DBSettingsBuilder::createInvertedValue;
    QTest::newRow("tool tip") << &DBSettingsBuilder::createToolTip;
}

void TestParamBuilder::everyStepAnswersTheBuilder()
{
    QFETCH(Step, step);
    QWidget page;
    ParamBuilder builder(DBGroups::PassRequests, PASS_REQUEST_SEQUENCE, &page, &page);

    QCOMPARE(&(builder.*step)(), &builder);
    QCOMPARE(&builder.setParamWidget(new ProbeEditor), &builder);
    QCOMPARE(&(builder.*step)(), &builder);
    builder.createWidget();
    QCOMPARE(&(builder.*step)(), &builder);
}

void TestParamBuilder::stepBeforeAndAfterBinding_data()
{
    QTest::addColumn<Step>("step");
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("after");

    const QStringList nothing;
    // Through the node, which has no editor before createWidget().
    QTest::newRow("title") << &DBSettingsBuilder::createTitle << nothing << QStringList("setName");
    QTest::newRow("key") << &DBSettingsBuilder::createKey << nothing << QStringList("key");
    QTest::newRow("value") << &DBSettingsBuilder::createValue << nothing << QStringList("setValue");
    QTest::newRow("choices") << &DBSettingsBuilder::createParamValues << nothing << QStringList("setParamValues");
    QTest::newRow("range") << &DBSettingsBuilder::createParamRange << nothing << QStringList("setParamRange");
    QTest::newRow("inversion") << &DBSettingsBuilder::createInvertedValue << nothing << QStringList("inverted");
    // Through the editor itself.
    QTest::newRow("special value") << &DBSettingsBuilder::createSpecialValue << QStringList("setSpecialValue")
                                   << QStringList{"setSpecialValue", "setSpecialValue"};
    QTest::newRow("read-only") << &DBSettingsBuilder::setReadonly << QStringList("setReadOnly")
                               << QStringList{"setReadOnly", "setReadOnly"};
    QTest::newRow("tool tip") << &DBSettingsBuilder::createToolTip << QStringList("toolTip") << QStringList("toolTip");
}

void TestParamBuilder::stepBeforeAndAfterBinding()
{
    QFETCH(Step, step);
    QWidget page;
    ParamBuilder builder(DBGroups::PassRequests, PASS_REQUEST_SEQUENCE, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor);
    QCOMPARE(editor->traces(), QStringList());

    (builder.*step)();
    QTEST(editor->traces(), "before");
    builder.createWidget();
    QTEST(editor->traces(), "before");
    (builder.*step)();
    QTEST(editor->traces(), "after");
}

void TestParamBuilder::stepsWithoutAnEditorDoNothing()
{
    QWidget page;
    ParamBuilder builder(DBGroups::PassRequests, PASS_REQUEST_SEQUENCE, &page, &page);
    builder.createWidget().createIcon().createTitle().createKey().createValue().createParamValues().createParamRange();
    builder.setReadonly().createSpecialValue().createInvertedValue().createToolTip();

    QVERIFY(page.children().isEmpty());
    const std::unique_ptr<DBSettings> node = builder.getSettings();
    QVERIFY(!node->widget());
    QVERIFY(node->parameters().isEmpty());
    QCOMPARE(node->type(), DBSettingsType::LineEdit);
}

void TestParamBuilder::iconStepDoesNothing()
{
    QWidget page;
    ParamBuilder builder(DBGroups::PassRequests, PASS_REQUEST_SEQUENCE, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createWidget().createIcon();

    QCOMPARE(editor->traces(), QStringList());
    QVERIFY(editor->windowIcon().isNull());
}

void TestParamBuilder::setParamWidgetReparents()
{
    QWidget root;
    QWidget parent;
    QWidget previous;
    auto *editor = new ProbeEditor;
    editor->setParent(&previous);
    ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, &root, &parent);

    builder.setParamWidget(editor);
    QCOMPARE(editor->parentWidget(), &parent);
    builder.createWidget();
    QCOMPARE(editor->parentWidget(), &parent);
    QVERIFY(root.children().isEmpty());
}

void TestParamBuilder::setParamWidgetWithoutAParent()
{
    QWidget root;
    QPointer<ProbeEditor> editor = new ProbeEditor;
    {
        ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, &root, nullptr);
        builder.setParamWidget(editor).createWidget();
        QVERIFY(!editor->parent());
    }
    QVERIFY(!editor);
}

void TestParamBuilder::captionGoesWhereTheGroupSays_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QStringList>("shown");

    QTest::newRow("left") << 0 << QStringList("leftLabel");
    QTest::newRow("right") << 1 << QStringList("rightLabel");
    QTest::newRow("bottom") << 2 << QStringList("bottomLabel");
    QTest::newRow("JSON group") << 14 << QStringList("rightLabel");
    QTest::newRow("unassigned group has none") << 9 << QStringList();
    QTest::newRow("unknown group has none") << 99 << QStringList();
    QTest::newRow("negative group has none") << -1 << QStringList();
}

void TestParamBuilder::captionGoesWhereTheGroupSays()
{
    QFETCH(int, group);
    QWidget page;
    ParamBuilder builder(DBGroups(group), MAX_CARD_COUNT, &page, &page);
    auto *editor = new ProbeEditor;

    builder.setParamWidget(editor);
    QTEST(inspect::shownCaptions(editor), "shown");
}

void TestParamBuilder::captionThatCannotMoveStays_data()
{
    QTest::addColumn<int>("group");

    QTest::newRow("left") << 0;
    QTest::newRow("right") << 1;
    QTest::newRow("bottom") << 2;
    QTest::newRow("none") << 9;
}

void TestParamBuilder::captionThatCannotMoveStays()
{
    QFETCH(int, group);
    QWidget page;
    ParamBuilder builder(DBGroups(group), MAX_CARD_COUNT, &page, &page);
    auto *editor = new ProbeEditor(false);
    editor->setLabelPosition(LabelPosition::Top);

    builder.setParamWidget(editor);
    QCOMPARE(inspect::shownCaptions(editor), QStringList("topLabel"));
}

void TestParamBuilder::theLastEditorCounts()
{
    QWidget page;
    ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, &page, &page);
    auto *first = new ProbeEditor;
    auto *second = new ProbeEditor;

    builder.setParamWidget(first).setParamWidget(second).createWidget().createTitle();
    QCOMPARE(first->traces(), QStringList());
    QCOMPARE(first->parentWidget(), &page);
    QCOMPARE(builder.getSettings()->widget().get(), second);
}

void TestParamBuilder::title_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("title");

    QTest::newRow("spin box") << MAX_CARD_COUNT << "Максимальное количество карт сотрудника";
    QTest::newRow("read-only") << VERSION << "Версия базы данных";
    QTest::newRow("JSON member") << json::MIN_LEN << "Минимальная длина";
}

void TestParamBuilder::title()
{
    QFETCH(QString, key);
    QWidget page;
    ParamBuilder builder(DBGroups::Employees, key, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createWidget().createTitle();
    QTEST(editor->name, "title");
}

void TestParamBuilder::titleOfAKeyWithoutCaption()
{
    QWidget page;
    ParamBuilder builder(DBGroups::Employees, PIN_STRENGTH, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createWidget();

    CapturedMessages log;
    builder.createTitle();
    QCOMPARE(editor->name, QString());
    QCOMPARE(log.texts(), QStringList("dbsettings does not contain parameter \"PT_PIN_STRENGTH\""));
}

void TestParamBuilder::key()
{
    QWidget page;
    ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createWidget().createKey();
    QCOMPARE(editor->key(), QString("PT_MAX_CARD_COUNT"));
}

void TestParamBuilder::storedTextIsHandedOverAsItIs_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("number") << "25";
    QTest::newRow("number with blanks") << " 25\n";
    QTest::newRow("negative") << "-5";
    QTest::newRow("true") << "true";
    QTest::newRow("words") << "двадцать пять";
    QTest::newRow("markup") << "<b>25</b>&amp;";
    QTest::newRow("empty") << "";
    QTest::newRow("one blank") << " ";
    QTest::newRow("zero character") << QString::fromLatin1("2\0"
                                                           "5",
                                                           3);
    QTest::newRow("lone surrogate") << QString(QChar(0xD800));
    QTest::newRow("beyond the basic plane") << QString::fromUtf8("\xF0\x9F\x94\x91");
    QTest::newRow("JSON object") << "{\"PT_MAX_CARD_COUNT\": 1}";
    QTest::newRow("a megabyte") << QString(1 << 20, 'x');
}

void TestParamBuilder::storedTextIsHandedOverAsItIs()
{
    QFETCH(QString, text);
    StoredSettings stored({{MAX_CARD_COUNT, text}, {"PT_max_card_count", "another case"}});
    QWidget page;
    ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createWidget().createValue();

    QCOMPARE(editor->value().userType(), int(QMetaType::QString));
    QVERIFY(!editor->value().isNull());
    QCOMPARE(editor->value().toString(), text);
}

void TestParamBuilder::missingTextIsEmptyButNotNull()
{
    StoredSettings stored({{MAX_CARD_COUNT.toLower(), "another case"}});
    QWidget page;
    ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createWidget().createValue();

    QCOMPARE(editor->value().userType(), int(QMetaType::QString));
    QVERIFY(!editor->value().isNull());
    QVERIFY(!editor->value().toString().isNull());
    QCOMPARE(editor->value().toString(), QString(""));
}

void TestParamBuilder::storageIsReadByTheStep()
{
    QWidget page;
    ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createWidget();

    StoredSettings stored({{MAX_CARD_COUNT, "3"}});
    builder.createValue();
    QCOMPARE(editor->value(), QVariant("3"));
    StoredSettings changed({{MAX_CARD_COUNT, "4"}});
    QCOMPARE(editor->value(), QVariant("3"));
    builder.createValue();
    QCOMPARE(editor->value(), QVariant("4"));
}

void TestParamBuilder::memberOfAJsonSettingIsNoStoredKey()
{
    StoredSettings stored({{PIN_STRENGTH, "{\"min_len\": 6}"}});
    QWidget page;
    ParamBuilder builder(DBGroups::PinStrength, json::MIN_LEN, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createWidget().createValue();
    QCOMPARE(editor->value(), QVariant(""));

    StoredSettings plain({{"min_len", "7"}});
    builder.createValue();
    QCOMPARE(editor->value(), QVariant("7"));
}

void TestParamBuilder::choices_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<Choices>("choices");

    QTest::newRow("from zero") << CARD_VIEW_FORMAT
                               << Choices{{0, "Десятичный"}, {1, "Шестнадцатеричный"}, {2, "Семейство-код"}};
    QTest::newRow("from one") << ENROLL_MANUAL_CHECK_TEMPLATES_TYPE
                              << Choices{{1, "По всей базе"},
                                         {2, "По предприятию"},
                                         {3, "По подразделению"},
                                         {4, "По своим шаблонам"}};
    QTest::newRow("spin box has none") << MAX_CARD_COUNT << Choices{};
    QTest::newRow("selector has none") << DEFAULT_DEPARTMENT << Choices{};
}

void TestParamBuilder::choices()
{
    QFETCH(QString, key);
    QWidget page;
    ParamBuilder builder(DBGroups::Employees, key, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createWidget().createParamValues();
    QTEST(editor->choices, "choices");
}

void TestParamBuilder::range_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<Range>("range");

    QTest::newRow("bounded") << MAX_CARD_COUNT << Range(1, 20);
    QTest::newRow("no upper bound") << USER_SESSION_COUNT << Range(0, INT_MAX);
    QTest::newRow("JSON member") << json::MAX_LEN << Range(4, INT_MAX);
    QTest::newRow("combo box has none") << CARD_VIEW_FORMAT << Range(0, 0);
}

void TestParamBuilder::range()
{
    QFETCH(QString, key);
    QWidget page;
    ParamBuilder builder(DBGroups::Employees, key, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createWidget().createParamRange();
    QTEST(editor->range, "range");
}

void TestParamBuilder::specialValue_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("specialValue");

    QTest::newRow("sessions") << USER_SESSION_COUNT << "Без ограничений";
    QTest::newRow("idle time") << USER_SESSION_TIMEOUT << "Без ограничений";
    QTest::newRow("other spin box") << PASSWORD_EXPIRED << "";
}

void TestParamBuilder::specialValue()
{
    QFETCH(QString, key);
    QWidget page;
    ParamBuilder builder(DBGroups::Users, key, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createSpecialValue();
    QTEST(editor->specialValue, "specialValue");
}

void TestParamBuilder::nothingIsInverted_data()
{
    QTest::addColumn<QString>("key");

    QTest::newRow("check box") << json::DENY_EQUAL;
    QTest::newRow("caption that says the contrary") << json::ADMIT_EMPTY_PASSWORD;
    QTest::newRow("choices the other way round") << MOBILE_WITHOUT_PHOTO;
}

void TestParamBuilder::nothingIsInverted()
{
    QFETCH(QString, key);
    QWidget page;
    ParamBuilder builder(DBGroups::Employees, key, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createWidget();
    QCOMPARE(editor->inverted, true);
    builder.createInvertedValue();
    QCOMPARE(editor->inverted, false);
}

void TestParamBuilder::readOnly()
{
    QWidget page;
    ParamBuilder builder(DBGroups::Database, VERSION, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor);
    QCOMPARE(editor->isReadOnly(), false);
    builder.setReadonly();
    QCOMPARE(editor->isReadOnly(), true);
}

void TestParamBuilder::toolTip_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("toolTip");

    QTest::newRow("request number")
        << PASS_REQUEST_SEQUENCE
        << "<html>Возможные параметры:<br/><b>${year}</b> - текущий год<br/><b>${month}</b> - текущий месяц"
           "<br/><b>${day}</b> - текущий день<br/><b>${num} ${zero6-num} ${zero8-num} ${zero10-num}</b> - следующий "
           "номер<br/>Например: <b>РОГ-${year}${month}-${zero8-num}</b></html>";
    QTest::newRow("none") << MOBILE_HOST << "";
}

void TestParamBuilder::toolTip()
{
    QFETCH(QString, key);
    QWidget page;
    ParamBuilder builder(DBGroups::PassRequests, key, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createToolTip();
    QTEST(editor->toolTip(), "toolTip");
}

void TestParamBuilder::valueIsLogged()
{
    StoredSettings stored({{MAX_CARD_COUNT, "25 карт"}});
    QWidget page;
    ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, &page, &page);
    builder.setParamWidget(new ProbeEditor).createWidget();

    LoggingRules rules("gui.lib.dbsettings.debug=true");
    CapturedMessages log;
    builder.createValue();
    QCOMPARE(plainDebugLines(log), QStringList("25 карт"));
}

void TestParamBuilder::valueWithoutANodeWidgetIsNotLogged()
{
    StoredSettings stored({{MAX_CARD_COUNT, "25"}});
    QWidget page;
    ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, &page, &page);
    builder.setParamWidget(new ProbeEditor);

    LoggingRules rules("gui.lib.dbsettings.debug=true");
    CapturedMessages log;
    builder.createValue();
    QCOMPARE(log.texts(), QStringList());
}

void TestParamBuilder::rangeIsLogged()
{
    QWidget page;
    ParamBuilder builder(DBGroups::FaceScanning, ENROLL_FACE_MIN_SIZE, &page, &page);
    builder.setParamWidget(new ProbeEditor).createWidget();

    LoggingRules rules("gui.lib.dbsettings.debug=true");
    CapturedMessages log;
    builder.createParamRange();
    QCOMPARE(plainDebugLines(log), QStringList("10 1024"));
}

void TestParamBuilder::rangeIsLoggedWithoutAnEditor()
{
    ParamBuilder builder(DBGroups::FaceScanning, ENROLL_FACE_MIN_SIZE, nullptr, nullptr);
    LoggingRules rules("gui.lib.dbsettings.debug=true");
    CapturedMessages log;
    builder.createParamRange();
    QCOMPARE(plainDebugLines(log), QStringList("10 1024"));
}

void TestParamBuilder::nothingIsLoggedWithDebugOff()
{
    StoredSettings stored({{MAX_CARD_COUNT, "25"}});
    QWidget page;
    CapturedMessages log;
    ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, &page, &page);
    builder.setParamWidget(new ProbeEditor).createWidget().createIcon().createTitle().createKey().createValue();
    builder.createParamValues().createParamRange().setReadonly().createSpecialValue().createInvertedValue();
    builder.createToolTip();
    QCOMPARE(log.texts(), QStringList());
}

void TestParamBuilder::settingsAreMovedOut()
{
    QWidget page;
    ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createWidget();

    const std::unique_ptr<DBSettings> node = builder.getSettings();
    QVERIFY(node);
    QCOMPARE(node->widget().get(), editor);
    QVERIFY(!builder.getSettings());
}

void TestParamBuilder::nodeWithoutEditorIsMovedOut()
{
    ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, nullptr, nullptr);
    const std::unique_ptr<DBSettings> node = builder.getSettings();
    QVERIFY(node);
    QVERIFY(!node->widget());
    QVERIFY(!builder.getSettings());
}

void TestParamBuilder::settingsOutliveTheBuilder()
{
    QWidget page;
    std::unique_ptr<DBSettings> node;
    {
        ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, &page, &page);
        builder.setParamWidget(new ProbeEditor).createWidget().createKey();
        node = builder.getSettings();
    }
    QVERIFY(node->widget());
    QCOMPARE(node->parameters().keys(), QStringList("PT_MAX_CARD_COUNT"));
    node.reset();
    QVERIFY(page.children().isEmpty());
}

void TestParamBuilder::unboundEditorOutlivesTheBuilder()
{
    QWidget page;
    QPointer<ProbeEditor> editor = new ProbeEditor;
    {
        ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, &page, &page);
        builder.setParamWidget(editor);
    }
    QVERIFY(editor);
    QCOMPARE(editor->parentWidget(), &page);
}

void TestParamBuilder::boundEditorDiesWithTheBuilder()
{
    QWidget page;
    QPointer<ProbeEditor> editor = new ProbeEditor;
    {
        ParamBuilder builder(DBGroups::Employees, MAX_CARD_COUNT, &page, &page);
        builder.setParamWidget(editor).createWidget();
    }
    QVERIFY(!editor);
    QVERIFY(page.children().isEmpty());
}

QTEST_MAIN(TestParamBuilder)
#include "tst_parambuilder.moc"
