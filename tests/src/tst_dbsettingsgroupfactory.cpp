#include "loggingrules.h"
#include "messages.h"
#include "pageinspection.h"
#include "storedsettings.h"

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbsettingsgroup.h>
#include <vxsettings/dbsettingsgroupfactory.h>

#include <QApplication>
#include <QPointer>
#include <QTranslator>

#include <algorithm>
#include <climits>
#include <new>

using namespace db::database;

namespace {

/// Runs out of memory at one text, as a translator may.
class ExhaustedTranslator : public QTranslator
{
public:
    explicit ExhaustedTranslator(const QString &fatalText)
        : m_fatalText(fatalText)
    {
        QCoreApplication::installTranslator(this);
    }
    ~ExhaustedTranslator() override { QCoreApplication::removeTranslator(this); }

    QString translate(const char *, const char *source, const char *, int) const override
    {
        if (source == m_fatalText)
            throw std::bad_alloc();
        return {};
    }
    bool isEmpty() const override { return false; }

private:
    QString m_fatalText;
};

int parentlessWidgetCount()
{
    const QWidgetList widgets = QApplication::allWidgets();
    return int(std::count_if(widgets.begin(), widgets.end(), [](const QWidget *widget) { return !widget->parent(); }));
}
} // namespace

class TestDBSettingsGroupFactory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void anyGroup_data();
    void anyGroup();
    void frameHangsBelow_data();
    void frameHangsBelow();
    void pageIsComplete();
    void nestedGroupIsComplete();
    void jsonGroupAsAPage();
    void nothingElseIsLeftBehind_data();
    void nothingElseIsLeftBehind();
    void theCallerOwnsTheWholeTree();
    void handleKeepsTheFrame();
    void callsAreIndependent();
    void exceptionLeavesNothingBehind_data();
    void exceptionLeavesNothingBehind();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
};

void TestDBSettingsGroupFactory::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestDBSettingsGroupFactory::anyGroup_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("childCount");
    QTest::addColumn<bool>("hasIcon");

    QTest::newRow("Database") << 0 << "База данных" << 1 << true;
    QTest::newRow("Employees") << 1 << "Сотрудники" << 5 << true;
    QTest::newRow("Users") << 2 << "Пользователи" << 7 << true;
    QTest::newRow("ScanningCommon") << 3 << "Сканирование общие" << 3 << true;
    QTest::newRow("FingerprintScanning") << 4 << "Сканирование отпечатков пальцев" << 5 << true;
    QTest::newRow("PalmScanning") << 5 << "Сканирование вен ладоней" << 5 << true;
    QTest::newRow("FaceScanning") << 6 << "Сканирование лица" << 5 << true;
    QTest::newRow("PassRequests") << 7 << "Заявки" << 2 << true;
    QTest::newRow("Connection") << 8 << "Настройки подключения" << 3 << true;
    QTest::newRow("unassigned, first") << 9 << "" << 0 << false;
    QTest::newRow("StudioMobile") << 10 << "Vantorix Studio" << 2 << true;
    QTest::newRow("MobileId") << 11 << "Vantorix ID" << 2 << true;
    QTest::newRow("Integration") << 12 << "Интеграция" << 1 << true;
    QTest::newRow("unassigned, second") << 13 << "" << 0 << false;
    QTest::newRow("PinStrength") << 14 << "Сложность пин-кода" << 4 << false;
    QTest::newRow("PasswordStrength") << 15 << "Сложность пароля" << 10 << false;
    QTest::newRow("PalmTemplatesAmount") << 16 << "Настройки количества шаблонов" << 10 << false;
    QTest::newRow("after the last") << 17 << "" << 0 << false;
    QTest::newRow("far off") << 99 << "" << 0 << false;
    QTest::newRow("negative") << -1 << "" << 0 << false;
    QTest::newRow("smallest") << INT_MIN << "" << 0 << false;
    QTest::newRow("largest") << INT_MAX << "" << 0 << false;
}

void TestDBSettingsGroupFactory::anyGroup()
{
    QFETCH(int, group);
    QWidget page;
    const std::unique_ptr<DBSettings> node = DBSettingsGroupFactory::create(DBGroups(group), &page, nullptr);

    QVERIFY(node);
    QVERIFY(node->isGroup());
    QCOMPARE(int(node->type()), 5);
    QCOMPARE(node->toGroup()->id(), group);
    QTEST(int(node->toGroup()->settings().size()), "childCount");
    const VXSettingsGroupWidget *frame = inspect::frame(*node);
    QVERIFY(frame);
    QTEST(frame->title(), "title");
    const QImage icon = frame->icon().pixmap(24, 24).toImage();
    QCOMPARE(icon.size(), QSize(24, 24));
    QImage blank(icon.size(), icon.format());
    blank.fill(Qt::transparent);
    QTEST(icon != blank, "hasIcon");
}

void TestDBSettingsGroupFactory::frameHangsBelow_data()
{
    QTest::addColumn<bool>("hasParent");
    QTest::addColumn<bool>("hasRoot");
    QTest::addColumn<QString>("owner");

    QTest::newRow("the parent") << true << false << "parent";
    QTest::newRow("the root") << false << true << "root";
    QTest::newRow("the root even with a parent") << true << true << "root";
    QTest::newRow("nobody") << false << false << "";
}

void TestDBSettingsGroupFactory::frameHangsBelow()
{
    QFETCH(bool, hasParent);
    QFETCH(bool, hasRoot);
    QWidget parent;
    parent.setObjectName("parent");
    QWidget root;
    root.setObjectName("root");
    const std::unique_ptr<DBSettings> node =
        DBSettingsGroupFactory::create(DBGroups::Users, hasParent ? &parent : nullptr, hasRoot ? &root : nullptr);

    const QWidget *owner = node->widget()->parentWidget();
    QTEST(owner ? owner->objectName() : QString(""), "owner");
    QCOMPARE(parent.children().count() + root.children().count(), owner ? 1 : 0);
}

void TestDBSettingsGroupFactory::pageIsComplete()
{
    StoredSettings stored({{MOBILE_HOST, "mobile.example"}, {MOBILE_PORT, "8443"}, {LOCKER_ACCESS_TOKEN, "sesame"}});
    QWidget page;
    const std::unique_ptr<DBSettings> node = DBSettingsGroupFactory::create(DBGroups::Connection, &page, nullptr);

    QCOMPARE(node->parameters(), vantorix::OBJECT_PARAMETERS({{"PT_MOBILE_HOST", "mobile.example"},
                                                              {"PT_MOBILE_PORT", "8443"},
                                                              {"PT_LOCKER_ACCESS_TOKEN", "sesame"}}));
    QCOMPARE(inspect::cells(inspect::frame(*node)),
             QStringList({"PT_MOBILE_HOST 0,0", "PT_MOBILE_PORT 0,1", "PT_LOCKER_ACCESS_TOKEN 1,0"}));
    QCOMPARE(inspect::frame(*node)->isShowHideButton(), false);
    QCOMPARE(inspect::frame(*node)->isShowLineHorizontal(), true);
}

void TestDBSettingsGroupFactory::nestedGroupIsComplete()
{
    QWidget page;
    const std::unique_ptr<DBSettings> node = DBSettingsGroupFactory::create(DBGroups::Employees, &page, nullptr);
    const std::unique_ptr<DBSettings> &nested = node->toGroup()->settings().back();

    QVERIFY(dynamic_cast<JsonGroup *>(nested.get()));
    QCOMPARE(nested->toGroup()->id(), -1);
    QCOMPARE(nested->type(), DBSettingsType::JsonGroup);
    const VXSettingsGroupWidget *frame = inspect::frame(*nested);
    QCOMPARE(frame->title(), QString("Сложность пин-кода"));
    QVERIFY(frame->icon().isNull());
    QCOMPARE(frame->isShowHideButton(), true);
    QCOMPARE(frame->isShowLineHorizontal(), false);
    QCOMPARE(inspect::cells(frame), QStringList({"min_len 0,0", "max_len 0,1", "deny_sequence 1,0", "deny_equal 1,1"}));
}

void TestDBSettingsGroupFactory::jsonGroupAsAPage()
{
    StoredSettings stored({{PIN_STRENGTH, "{\"min_len\": 6, \"deny_equal\": true}"}, {"max_len", "99"}});
    QWidget page;
    const std::unique_ptr<DBSettings> node = DBSettingsGroupFactory::create(DBGroups::PinStrength, &page, nullptr);

    // An ordinary group, whose parameters are read from the object all the same.
    QVERIFY(!dynamic_cast<JsonGroup *>(node.get()));
    QCOMPARE(node->parameters(),
             vantorix::OBJECT_PARAMETERS(
                 {{"min_len", "6"}, {"max_len", "4"}, {"deny_sequence", "false"}, {"deny_equal", "true"}}));
    QCOMPARE(inspect::frame(*node)->isShowHideButton(), false);
    QCOMPARE(inspect::frame(*node)->isShowLineHorizontal(), true);
}

void TestDBSettingsGroupFactory::nothingElseIsLeftBehind_data()
{
    QTest::addColumn<int>("group");

    for (int group = 0; group <= 17; ++group)
        QTest::addRow("group %d", group) << group;
}

void TestDBSettingsGroupFactory::nothingElseIsLeftBehind()
{
    QFETCH(int, group);
    QWidget parent;
    QWidget root;
    const int windowCount = parentlessWidgetCount();
    const int widgetCount = QApplication::allWidgets().count();
    std::unique_ptr<DBSettings> node = DBSettingsGroupFactory::create(DBGroups(group), &parent, &root);

    QCOMPARE(root.children(), QObjectList({node->widget().get()}));
    QVERIFY(parent.children().isEmpty());
    QCOMPARE(parentlessWidgetCount(), windowCount);
    node.reset();
    QVERIFY(root.children().isEmpty());
    QCOMPARE(QApplication::allWidgets().count(), widgetCount);
}

void TestDBSettingsGroupFactory::theCallerOwnsTheWholeTree()
{
    QWidget page;
    std::unique_ptr<DBSettings> node = DBSettingsGroupFactory::create(DBGroups::Employees, &page, nullptr);
    QVector<QPointer<QWidget>> widgets;
    for (QWidget *widget : page.findChildren<QWidget *>())
        widgets << widget;

    node.reset();
    QVERIFY(widgets.count() > 20);
    for (const QPointer<QWidget> &widget : widgets)
        QVERIFY(!widget);
}

void TestDBSettingsGroupFactory::handleKeepsTheFrame()
{
    QWidget page;
    std::unique_ptr<DBSettings> node = DBSettingsGroupFactory::create(DBGroups::Employees, &page, nullptr);
    const std::shared_ptr<QWidget> frame = node->widget();
    QPointer<QWidget> alive = frame.get();

    node.reset();
    QVERIFY(alive);
    QCOMPARE(alive->parentWidget(), &page);
}

void TestDBSettingsGroupFactory::callsAreIndependent()
{
    QWidget page;
    StoredSettings stored({{MOBILE_PORT, "1"}});
    const std::unique_ptr<DBSettings> first = DBSettingsGroupFactory::create(DBGroups::Connection, &page, nullptr);
    StoredSettings changed({{MOBILE_PORT, "2"}});
    const std::unique_ptr<DBSettings> second = DBSettingsGroupFactory::create(DBGroups::Connection, &page, nullptr);

    QVERIFY(first->widget() != second->widget());
    QCOMPARE(first->toGroup()->paramValue(MOBILE_PORT), QVariant(1));
    QCOMPARE(second->toGroup()->paramValue(MOBILE_PORT), QVariant(2));
    inspect::editor(first->widget().get(), MOBILE_PORT)->setValue(3);
    QCOMPARE(second->toGroup()->paramValue(MOBILE_PORT), QVariant(2));
}

void TestDBSettingsGroupFactory::exceptionLeavesNothingBehind_data()
{
    QTest::addColumn<QString>("fatalText");

    QTest::newRow("first caption") << "Максимальное количество карт сотрудника";
    QTest::newRow("choice") << "Семейство-код";
    QTest::newRow("caption inside the nested group") << "Запрещать последовательные цифры";
    QTest::newRow("title of the nested group") << "Сложность пин-кода";
    QTest::newRow("title of the page") << "Сотрудники";
}

void TestDBSettingsGroupFactory::exceptionLeavesNothingBehind()
{
    QFETCH(QString, fatalText);
    QWidget parent;
    QWidget root;
    const int widgetCount = QApplication::allWidgets().count();

    ExhaustedTranslator translator(fatalText);
    QVERIFY_EXCEPTION_THROWN(DBSettingsGroupFactory::create(DBGroups::Employees, &parent, &root), std::bad_alloc);
    QVERIFY(parent.children().isEmpty());
    QVERIFY(root.children().isEmpty());
    QCOMPARE(QApplication::allWidgets().count(), widgetCount);
}

QTEST_MAIN(TestDBSettingsGroupFactory)
#include "tst_dbsettingsgroupfactory.moc"
