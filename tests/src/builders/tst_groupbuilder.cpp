#include "builders/groupbuilder.h"
#include "debuglines.h"
#include "loggingrules.h"
#include "messages.h"
#include "pageinspection.h"
#include "storedsettings.h"

#include <vxsettings/dbkeys.h>

#include <QApplication>
#include <QGroupBox>
#include <QProxyStyle>
#include <QRegularExpression>

#include <functional>

using namespace db::database;

namespace {

/// Answers what is seen at each message while it is written.
class MessageWatch
{
public:
    explicit MessageWatch(std::function<void(const QString &)> look)
    {
        s_look = std::move(look);
        m_previous =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &text) { s_look(text); });
    }
    ~MessageWatch() { qInstallMessageHandler(m_previous); }

private:
    inline static std::function<void(const QString &)> s_look;
    QtMessageHandler m_previous;
};

/// Makes the application's style leave unusual spaces in layouts, for its lifetime.
class SpaciousStyle
{
public:
    SpaciousStyle() { QApplication::setStyle(new Style); }
    ~SpaciousStyle() { QApplication::setStyle("fusion"); }

private:
    class Style : public QProxyStyle
    {
    public:
        Style()
            : QProxyStyle("fusion")
        {}

        int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
        {
            switch (metric) {
            case PM_LayoutHorizontalSpacing:
            case PM_LayoutVerticalSpacing:
                return 17;
            case PM_LayoutLeftMargin:
            case PM_LayoutTopMargin:
            case PM_LayoutRightMargin:
            case PM_LayoutBottomMargin:
                return 19;
            default:
                return QProxyStyle::pixelMetric(metric, option, widget);
            }
        }
    };
};

bool isTintedBlack(const QImage &image)
{
    bool anyInk = false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() == 0)
                continue;
            anyInk = true;
            if (pixel.red() || pixel.green() || pixel.blue())
                return false;
        }
    }
    return anyInk;
}

/// The keys and nested titles of the node's children, in order.
QStringList childNames(DBSettings &node)
{
    QStringList names;
    for (const std::unique_ptr<DBSettings> &child : node.toGroup()->settings()) {
        const auto *editor = qobject_cast<DBParamWidget *>(child->widget().get());
        names << (editor ? editor->key() : '[' + inspect::frame(*child)->title() + ']');
    }
    return names;
}
} // namespace

class TestGroupBuilder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void nodeIsThereFromTheStart_data();
    void nodeIsThereFromTheStart();
    void stepsBeforeTheWidgetDoNothing();
    void stepsOfOtherNodesDoNothing();

    void frameHangsBelow_data();
    void frameHangsBelow();
    void frameState();
    void frameIsFilledCollapsed();
    void bodyEndsWithAnEmptySplitter();
    void gridSpacing();
    void editorsAreMadeInTheFrame();
    void editorsEndUpInTheGrid();
    void rootReceivesNothingButTheFrame();
    void everyParameterKnowsTheRootWidget_data();
    void everyParameterKnowsTheRootWidget();

    void placement_data();
    void placement();
    void unknownGroupIsEmpty_data();
    void unknownGroupIsEmpty();

    void title_data();
    void title();
    void icon_data();
    void icon();
    void groupWithoutIconName();

    void parametersAreLogged();
    void nothingIsLoggedWithDebugOff();

    void settingsAreMovedOut();
    void frameDiesWithTheBuilder();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
};

void TestGroupBuilder::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestGroupBuilder::nodeIsThereFromTheStart_data()
{
    QTest::addColumn<int>("group");

    QTest::newRow("first page") << 0;
    QTest::newRow("last page") << 12;
    QTest::newRow("JSON group") << 14;
    QTest::newRow("unassigned") << 9;
    QTest::newRow("unknown") << 99;
    QTest::newRow("negative") << -1;
}

void TestGroupBuilder::nodeIsThereFromTheStart()
{
    QFETCH(int, group);
    QWidget page;
    GroupBuilder builder(DBGroups(group), &page, nullptr);
    QCOMPARE(int(builder.type()), 5);
    QVERIFY(page.children().isEmpty());

    const std::unique_ptr<DBSettings> node = builder.getSettings();
    QVERIFY(node->isGroup());
    QCOMPARE(node->toGroup()->id(), group);
    QCOMPARE(int(node->type()), 5);
    QVERIFY(!node->widget());
    QVERIFY(node->toGroup()->settings().empty());
}

void TestGroupBuilder::stepsBeforeTheWidgetDoNothing()
{
    QWidget page;
    GroupBuilder builder(DBGroups::Employees, &page, nullptr);
    QCOMPARE(&builder.createTitle(), &builder);
    QCOMPARE(&builder.createIcon(), &builder);
    QVERIFY(page.children().isEmpty());
    QVERIFY(!builder.getSettings()->widget());
}

void TestGroupBuilder::stepsOfOtherNodesDoNothing()
{
    QWidget page;
    GroupBuilder builder(DBGroups::Connection, &page, nullptr);
    DBParamWidget editor(nullptr);
    QCOMPARE(&builder.createWidget(), &builder);
    builder.createKey().createValue().createParamValues().createParamRange().setParamWidget(&editor).setReadonly();
    builder.createSpecialValue().createInvertedValue().createToolTip();

    QVERIFY(!editor.parent());
    const std::unique_ptr<DBSettings> node = builder.getSettings();
    QCOMPARE(childNames(*node), QStringList({"PT_MOBILE_HOST", "PT_MOBILE_PORT", "PT_LOCKER_ACCESS_TOKEN"}));
    QCOMPARE(inspect::frame(*node)->toolTip(), QString());
    QVERIFY(!inspect::editor(node->widget().get(), MOBILE_HOST)->isReadOnly());
}

void TestGroupBuilder::frameHangsBelow_data()
{
    QTest::addColumn<bool>("hasParent");
    QTest::addColumn<bool>("hasRoot");
    QTest::addColumn<QString>("owner");

    QTest::newRow("the parent") << true << false << "parent";
    QTest::newRow("the root") << false << true << "root";
    QTest::newRow("the root even with a parent") << true << true << "root";
    QTest::newRow("nobody") << false << false << "";
}

void TestGroupBuilder::frameHangsBelow()
{
    QFETCH(bool, hasParent);
    QFETCH(bool, hasRoot);
    QWidget parent;
    parent.setObjectName("parent");
    QWidget root;
    root.setObjectName("root");
    GroupBuilder builder(DBGroups::Employees, hasParent ? &parent : nullptr, hasRoot ? &root : nullptr);

    const std::unique_ptr<DBSettings> node = builder.createWidget().createTitle().createIcon().getSettings();
    const QWidget *owner = node->widget()->parentWidget();
    QTEST(owner ? owner->objectName() : QString(""), "owner");
    QCOMPARE(parent.children().count() + root.children().count(), owner ? 1 : 0);
}

void TestGroupBuilder::frameState()
{
    QWidget page;
    const bool lineOfANewFrame = VXSettingsGroupWidget(nullptr).isShowLineHorizontal();
    GroupBuilder builder(DBGroups::Employees, &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().getSettings();

    const VXSettingsGroupWidget *frame = inspect::frame(*node);
    QVERIFY(frame);
    QCOMPARE(frame->isShowHideButton(), false);
    QCOMPARE(frame->isShowLineHorizontal(), lineOfANewFrame);
    QCOMPARE(frame->contentMargins(), QMargins(10, 6, 10, 6));
    QCOMPARE(frame->isExpanded(), true);
    QCOMPARE(frame->title(), QString());
    QVERIFY(frame->icon().isNull());
}

void TestGroupBuilder::frameIsFilledCollapsed()
{
    QWidget page;
    LoggingRules rules("gui.lib.dbsettings.debug=true");
    QVector<bool> expanded;
    GroupBuilder builder(DBGroups::FaceScanning, &page, nullptr);
    {
        MessageWatch watch([&](const QString &text) {
            if (text.startsWith("Param name is"))
                expanded << page.findChild<VXSettingsGroupWidget *>()->isExpanded();
        });
        builder.createWidget();
    }
    QCOMPARE(expanded, QVector<bool>({false, false, false, false, false}));
    QVERIFY(page.findChild<VXSettingsGroupWidget *>()->isExpanded());
}

void TestGroupBuilder::bodyEndsWithAnEmptySplitter()
{
    QWidget page;
    GroupBuilder builder(DBGroups::Employees, &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().getSettings();

    const QList<QWidget *> body = inspect::body(inspect::frame(*node));
    QCOMPARE(body.count(), 2);
    QCOMPARE(QString(body.first()->metaObject()->className()), QString("QWidget"));
    QVERIFY(qobject_cast<QGridLayout *>(body.first()->layout()));
    const auto *splitter = qobject_cast<QSplitter *>(body.last());
    QVERIFY(splitter);
    QCOMPARE(splitter->orientation(), Qt::Vertical);
    QCOMPARE(splitter->count(), 0);
}

void TestGroupBuilder::gridSpacing()
{
    const SpaciousStyle style;
    QWidget page;
    QWidget plain(&page);
    const QGridLayout untouched(&plain);
    GroupBuilder builder(DBGroups::Employees, &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().getSettings();

    const QGridLayout *grid = inspect::grid(inspect::frame(*node));
    QCOMPARE(grid->verticalSpacing(), 6);
    QCOMPARE(grid->horizontalSpacing(), 17);
    QCOMPARE(grid->contentsMargins(), QMargins(19, 19, 19, 19));
    QCOMPARE(untouched.verticalSpacing(), 17);
}

void TestGroupBuilder::editorsAreMadeInTheFrame()
{
    QWidget page;
    LoggingRules rules("gui.lib.dbsettings.debug=true");
    GroupBuilder builder(DBGroups::FaceScanning, &page, nullptr);
    QStringList parents;
    {
        MessageWatch watch([&](const QString &text) {
            const DBParamWidget *editor = inspect::editor(&page, ENROLL_FACE_MIN_SIZE);
            if (editor && text == "10 1024")
                parents << editor->parent()->metaObject()->className();
        });
        builder.createWidget();
    }
    QCOMPARE(parents, QStringList("VXSettingsGroupWidget"));
}

void TestGroupBuilder::editorsEndUpInTheGrid()
{
    QWidget page;
    GroupBuilder builder(DBGroups::Employees, &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().getSettings();

    const QWidget *content = inspect::body(inspect::frame(*node)).first();
    QCOMPARE(node->toGroup()->settings().size(), std::size_t(5));
    for (const std::unique_ptr<DBSettings> &child : node->toGroup()->settings()) {
        QCOMPARE(child->widget()->parentWidget(), content);
        QVERIFY(node->widget()->isAncestorOf(child->widget().get()));
    }
}

void TestGroupBuilder::rootReceivesNothingButTheFrame()
{
    QWidget parent;
    QWidget root;
    GroupBuilder builder(DBGroups::Users, &parent, &root);
    const std::unique_ptr<DBSettings> node = builder.createWidget().getSettings();

    // The frame of the nested group started there, too.
    QCOMPARE(root.children(), QObjectList({node->widget().get()}));
    QVERIFY(parent.children().isEmpty());
}

void TestGroupBuilder::everyParameterKnowsTheRootWidget_data()
{
    QTest::addColumn<bool>("hasRoot");
    QTest::addColumn<QString>("className");

    QTest::newRow("root") << true << "QGroupBox";
    QTest::newRow("parent without a root") << false << "QSplitter";
}

void TestGroupBuilder::everyParameterKnowsTheRootWidget()
{
    QFETCH(bool, hasRoot);
    QFETCH(QString, className);
    QSplitter parent;
    QGroupBox root;
    GroupBuilder builder(DBGroups::Employees, &parent, hasRoot ? &root : nullptr);

    LoggingRules rules("gui.lib.dbsettings.debug=true");
    CapturedMessages log;
    builder.createWidget();
    const QStringList lines = debugLines(log).filter("m_rootWidget");
    QCOMPARE(lines.count(), 9); // five parameters, the last with four members
    for (const QString &line : lines)
        QVERIFY2(line.endsWith(className), qPrintable(line));
}

void TestGroupBuilder::placement_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QStringList>("cells");

    QTest::newRow("Database") << 0 << QStringList{"PT_VERSION 0,0"};
    QTest::newRow("Employees") << 1
                               << QStringList{"PT_MAX_CARD_COUNT 0,0", "PT_USE_STRICT_COMPARE_CARD_NUMBER 0,1",
                                              "PT_CARD_VIEW_FORMAT 1,0", "PT_EMPLOYEE_PHOTO_TYPE 1,1",
                                              "[Сложность пин-кода] 2,0 1x2"};
    QTest::newRow("Users") << 2 << QStringList{"[Сложность пароля] 0,0 1x3", "PT_PASSWORD_DEF 1,0",
                                               "PT_PASSWORD_EXPIRED 1,1",    "PT_PASSWORD_NOTIFY 1,2",
                                               "PT_IDENT_TYPE 2,0",          "PT_USER_SESSION_COUNT 2,1",
                                               "PT_USER_SESSION_TIMEOUT 2,2"};
    QTest::newRow("ScanningCommon") << 3
                                    << QStringList{"PT_ENROLL_USE_DB_SETTINGS 0,0",
                                                   "PT_ENROLL_AUTO_CHECK_TEMPLATES_TYPE 0,1",
                                                   "PT_ENROLL_MANUAL_CHECK_TEMPLATES_TYPE 0,2"};
    QTest::newRow("FingerprintScanning") << 4
                                         << QStringList{"PT_ENABLE_FINGERPRINT_SCANNING 0,0",
                                                        "PT_ENROLL_FINGERPRINT_SEARCH_CORE 0,1",
                                                        "PT_ENROLL_FINGERPRINT_QUALITY 1,0",
                                                        "PT_ENROLL_FINGERPRINT_MAX_COUNT 1,1",
                                                        "PT_ENROLL_LIVE_FINGER_DETECTION 2,0"};
    QTest::newRow("PalmScanning") << 5
                                  << QStringList{"PT_ENABLE_PALM_SCANNING 0,0", "PT_ENROLL_PALM_QUALITY 0,1",
                                                 "PT_ENROLL_SKYHAND_QUALITY 1,0", "PT_ENROLL_LIVE_PALM_DETECTION 1,1",
                                                 "[Настройки количества шаблонов] 2,0 1x2"};
    QTest::newRow("FaceScanning") << 6
                                  << QStringList{"PT_ENABLE_FACE_SCANNING 0,0", "PT_ENROLL_FACE_BLUR_QUALITY 0,1",
                                                 "PT_ENROLL_FACE_MIN_SIZE 1,0", "PT_ENROLL_FACE_COLOR_QUALITY 1,1",
                                                 "PT_SHOW_FACE_QUALITY 2,0"};
    QTest::newRow("PassRequests") << 7 << QStringList{"PT_DEFAULT_DEPARTMENT 0,0", "PT_PASS_REQUEST_SEQUENCE 1,0"};
    QTest::newRow("Connection") << 8
                                << QStringList{"PT_MOBILE_HOST 0,0", "PT_MOBILE_PORT 0,1",
                                               "PT_LOCKER_ACCESS_TOKEN 1,0"};
    QTest::newRow("StudioMobile") << 10 << QStringList{"PT_MOBILE_WITHOUT_PHOTO 0,0", "PT_MOBILE_VERIFY_FACE 0,1"};
    QTest::newRow("MobileId") << 11 << QStringList{"PT_MOBILE_STYLE_INDEX 0,0", "PT_MOBILE_SMARTCARD_PROFILE_ID 0,1"};
    QTest::newRow("Integration") << 12 << QStringList{"PT_INTEGRATION_DEFAULT_DEPARTMENT 0,0"};
    QTest::newRow("PinStrength") << 14
                                 << QStringList{"min_len 0,0", "max_len 0,1", "deny_sequence 1,0", "deny_equal 1,1"};
    QTest::newRow("PasswordStrength") << 15
                                      << QStringList{"use_password_strength 0,0",
                                                     "admit_empty_password 0,1",
                                                     "min_len 1,0",
                                                     "max_len 1,1",
                                                     "min_amount_numbers 2,0",
                                                     "min_amount_punctuation_marks 2,1",
                                                     "min_amount_letters 3,0",
                                                     "min_amount_letters_upper_case 3,1",
                                                     "min_amount_letters_lower_case 4,0",
                                                     "admit_non_latin_letters 4,1"};
    QTest::newRow("PalmTemplatesAmount") << 16
                                         << QStringList{
                                                "enable_palm_contact_limit 0,0", "enable_palm_non_contact_limit 0,1",
                                                "left_contact_palm_min 1,0",     "left_non_contact_palm_min 1,1",
                                                "right_contact_palm_min 2,0",    "right_non_contact_palm_min 2,1",
                                                "left_contact_palm_max 3,0",     "left_non_contact_palm_max 3,1",
                                                "right_contact_palm_max 4,0",    "right_non_contact_palm_max 4,1"};
}

void TestGroupBuilder::placement()
{
    QFETCH(int, group);
    QFETCH(QStringList, cells);
    QWidget page;
    GroupBuilder builder(DBGroups(group), &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().getSettings();

    QCOMPARE(inspect::cells(inspect::frame(*node)), cells);
    const QGridLayout *grid = inspect::grid(inspect::frame(*node));
    for (int i = 0; i < grid->count(); ++i)
        QCOMPARE(int(grid->itemAt(i)->alignment()), 0);
    // The children of the node come in the order of the cells.
    QStringList names;
    for (const QString &cell : cells)
        names << cell.section(QRegularExpression(" \\d"), 0, 0);
    QCOMPARE(childNames(*node), names);
}

void TestGroupBuilder::unknownGroupIsEmpty_data()
{
    QTest::addColumn<int>("group");

    QTest::newRow("unassigned, first") << 9;
    QTest::newRow("unassigned, second") << 13;
    QTest::newRow("after the last") << 17;
    QTest::newRow("far off") << 99;
    QTest::newRow("negative") << -1;
}

void TestGroupBuilder::unknownGroupIsEmpty()
{
    QFETCH(int, group);
    QWidget page;
    GroupBuilder builder(DBGroups(group), &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().createTitle().createIcon().getSettings();

    const VXSettingsGroupWidget *frame = inspect::frame(*node);
    QVERIFY(frame);
    QCOMPARE(inspect::body(frame).count(), 2);
    QCOMPARE(inspect::grid(frame)->count(), 0);
    QVERIFY(node->toGroup()->settings().empty());
    QCOMPARE(frame->title(), QString());
    QCOMPARE(frame->icon().availableSizes(), QList<QSize>({QSize(24, 24)}));
    QVERIFY(frame->isExpanded());
    QVERIFY(node->parameters().isEmpty());
    QVERIFY(node->toGroup()->paramKeys().isEmpty());
}

void TestGroupBuilder::title_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("title");

    QTest::newRow("Database") << 0 << "База данных";
    QTest::newRow("Employees") << 1 << "Сотрудники";
    QTest::newRow("Users") << 2 << "Пользователи";
    QTest::newRow("ScanningCommon") << 3 << "Сканирование общие";
    QTest::newRow("FingerprintScanning") << 4 << "Сканирование отпечатков пальцев";
    QTest::newRow("PalmScanning") << 5 << "Сканирование вен ладоней";
    QTest::newRow("FaceScanning") << 6 << "Сканирование лица";
    QTest::newRow("PassRequests") << 7 << "Заявки";
    QTest::newRow("Connection") << 8 << "Настройки подключения";
    QTest::newRow("StudioMobile") << 10 << "Vantorix Studio";
    QTest::newRow("MobileId") << 11 << "Vantorix ID";
    QTest::newRow("Integration") << 12 << "Интеграция";
    QTest::newRow("PinStrength") << 14 << "Сложность пин-кода";
    QTest::newRow("PasswordStrength") << 15 << "Сложность пароля";
    QTest::newRow("PalmTemplatesAmount") << 16 << "Настройки количества шаблонов";
}

void TestGroupBuilder::title()
{
    QFETCH(int, group);
    QWidget page;
    GroupBuilder builder(DBGroups(group), &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().createTitle().getSettings();
    QTEST(inspect::frame(*node)->title(), "title");
    QVERIFY(inspect::frame(*node)->icon().isNull());
}

void TestGroupBuilder::icon_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("iconName");

    QTest::newRow("Database") << 0 << "common-db";
    QTest::newRow("Employees") << 1 << "object-OT_WORKER";
    QTest::newRow("Users") << 2 << "object-OT_USER";
    QTest::newRow("ScanningCommon") << 3 << "action-scan";
    QTest::newRow("FingerprintScanning") << 4 << "common-fingerprint";
    QTest::newRow("PalmScanning") << 5 << "common-palm";
    QTest::newRow("FaceScanning") << 6 << "common-face";
    QTest::newRow("PassRequests") << 7 << "object-OT_PASS_REQUEST";
    QTest::newRow("Connection") << 8 << "common-sphere";
    QTest::newRow("StudioMobile") << 10 << "object-OT_WORKER";
    QTest::newRow("MobileId") << 11 << "object-OT_RFID";
    QTest::newRow("Integration") << 12 << "common-filter_2";
}

void TestGroupBuilder::icon()
{
    QFETCH(int, group);
    QFETCH(QString, iconName);
    QWidget page;
    GroupBuilder builder(DBGroups(group), &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().createIcon().getSettings();

    const QIcon icon = inspect::frame(*node)->icon();
    QCOMPARE(icon.availableSizes(), QList<QSize>({QSize(24, 24)}));
    const QImage image = icon.pixmap(24, 24).toImage();
    QVERIFY(isTintedBlack(image));
    // The same shape as the theme's icon: ink lies where the theme has it.
    const QImage shape = QIcon::fromTheme(iconName).pixmap(24, 24).toImage();
    QCOMPARE(image.convertToFormat(QImage::Format_Alpha8), shape.convertToFormat(QImage::Format_Alpha8));
    QCOMPARE(inspect::frame(*node)->title(), QString());
}

void TestGroupBuilder::groupWithoutIconName()
{
    QWidget page;
    GroupBuilder builder(DBGroups::PinStrength, &page, nullptr);
    const std::unique_ptr<DBSettings> node = builder.createWidget().createIcon().getSettings();

    const QImage image = inspect::frame(*node)->icon().pixmap(24, 24).toImage();
    QCOMPARE(image.size(), QSize(24, 24));
    QVERIFY(!isTintedBlack(image));
    QCOMPARE(image.pixelColor(12, 12).alpha(), 0);
}

void TestGroupBuilder::parametersAreLogged()
{
    StoredSettings stored({{MOBILE_HOST, "mobile.example"}, {LOCKER_ACCESS_TOKEN, "sesame"}});
    QWidget page;
    GroupBuilder builder(DBGroups::Connection, &page, nullptr);
    LoggingRules rules("gui.lib.dbsettings.debug=true");
    CapturedMessages log;
    builder.createWidget();

    QStringList lines = debugLines(log).filter("Param name is ");
    for (QString &line : lines)
        line = line.simplified();
    QCOMPARE(lines, QStringList({"Param name is \"PT_MOBILE_HOST\" Params value is \"mobile.example\"",
                                 "Param name is \"PT_MOBILE_PORT\" Params value is \"\"",
                                 "Param name is \"PT_LOCKER_ACCESS_TOKEN\" Params value is \"sesame\""}));
    // Each line comes before the parameter is built.
    QVERIFY(debugLines(log).first().startsWith("Param name is "));
}

void TestGroupBuilder::nothingIsLoggedWithDebugOff()
{
    StoredSettings stored({{MOBILE_HOST, "mobile.example"}});
    QWidget page;
    CapturedMessages log;
    GroupBuilder builder(DBGroups::Connection, &page, nullptr);
    builder.createWidget().createTitle().createIcon();
    QCOMPARE(log.texts(), QStringList());
}

void TestGroupBuilder::settingsAreMovedOut()
{
    QWidget page;
    std::unique_ptr<DBSettings> node;
    {
        GroupBuilder builder(DBGroups::Connection, &page, nullptr);
        node = builder.createWidget().getSettings();
        QVERIFY(!builder.getSettings());
    }
    QVERIFY(node->widget());
    QCOMPARE(node->toGroup()->settings().size(), std::size_t(3));
    node.reset();
    QVERIFY(page.children().isEmpty());
}

void TestGroupBuilder::frameDiesWithTheBuilder()
{
    QWidget page;
    {
        GroupBuilder builder(DBGroups::Employees, &page, nullptr);
        builder.createWidget();
        QCOMPARE(page.children().count(), 1);
    }
    QVERIFY(page.children().isEmpty());
}

QTEST_MAIN(TestGroupBuilder)
#include "tst_groupbuilder.moc"
