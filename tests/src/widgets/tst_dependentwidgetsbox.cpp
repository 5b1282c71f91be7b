#include <vxsettings/dependentwidgetsbox.h>

#include "editorprobe.h"
#include "messages.h"
#include "translation.h"

#include <vxstyles/vxiconhelper.h>

#include <QBoxLayout>
#include <QCheckBox>
#include <QFrame>
#include <QIcon>
#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QPointer>
#include <QSignalSpy>

#include <type_traits>

using dependent_widget::GroupInfo;

class TestDependentWidgetsBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void constants();
    void metaObjectHasTheFourMethods();
    void formHoldsItsMembers_data();
    void formHoldsItsMembers();
    void layoutsHoldTheirItemsInOrder_data();
    void layoutsHoldTheirItemsInOrder();
    void boxItself();
    void layoutMargins();
    void sizePolicies();
    void spacers();
    void groupCheckBox();
    void header();
    void frameOfTheColumn();
    void formIsTranslated();
    void dyingWithTheParent();

    void descriptionStandsAtTheGroupBox();
    void titleAndCaptionsAreTranslatedInTheCallersContext();
    void iconIsBlackOnTwentyFourPixels();
    void missingIconIsTransparent();
    void innerBoxesComeFromTheData();
    void innerBoxesAreDressedUp();
    void membersThatMakeNoBox_data();
    void membersThatMakeNoBox();
    void onlyATrueBooleanChecks_data();
    void onlyATrueBooleanChecks();
    void columnFollowsThePositions_data();
    void columnFollowsThePositions();
    void equalPositionsLoseNoBox();
    void stateFollowsFromTheInnerBoxes_data();
    void stateFollowsFromTheInnerBoxes();
    void secondDataReplaceTheFirst();
    void dataWithoutFlagsEmptyTheBox();
    void settingDataIsSilent();

    void dataOfAFreshBox();
    void dataFollowTheBoxes();
    void dataIncludeNestedCheckBoxes();

    void groupStateFromCounts_data();
    void groupStateFromCounts();
    void groupStateIsSetSilently();

    void innerClick_data();
    void innerClick();
    void innerClickUpdatesTheGroupFirst();
    void innerChangeByProgramIsNoClick();
    void groupClick_data();
    void groupClick();
    void groupClickSetsTheInnerBoxesFirst();
    void groupClickLeavesThePartialStateLast();
    void groupClickIsSilentForTheInnerBoxes();
    void groupClickWithoutInnerBoxes();
    void groupClickReachesNestedCheckBoxes();
    void clicksWithTheKeyboard();
    void clicksAfterSecondDataComeOnce();
    void handlerMaySetOtherData();
    void callWithoutAClickOnlyUpdatesTheGroup();

    void clearDataEmptiesNestedLayouts();
    void clearDataKeepsItemsAndLayouts();
    void clearDataOfTheColumn();
    void clearDataIsSilent();
};

namespace {

const GroupInfo threeFlags = {
    "Доступ", "common-db", {{"a", {"Чтение", 2}}, {"b", {"Запись", 0}}, {"c", {"Удаление", 1}}}};

QCheckBox *groupBox(const DependentWidgetsBox &box)
{
    return box.findChild<QCheckBox *>("cbGroup");
}

QFrame *frame(const DependentWidgetsBox &box)
{
    return box.findChild<QFrame *>("frame");
}

QCheckBox *inner(const DependentWidgetsBox &box, const QString &key)
{
    return frame(box)->findChild<QCheckBox *>(key);
}

QPixmap iconPixmap(const DependentWidgetsBox &box)
{
    return box.findChild<QLabel *>("lbIcon")->pixmap(Qt::ReturnByValue);
}

/// Names of what is in the column, from the top.
QStringList column(const DependentWidgetsBox &box)
{
    QStringList names;
    for (int index = 0; index < frame(box)->layout()->count(); ++index)
        names << frame(box)->layout()->itemAt(index)->widget()->objectName();
    return names;
}

void setFlags(DependentWidgetsBox &box, const QJsonObject &flags)
{
    box.setData("Host", threeFlags, flags);
}

/// What the box says, in order: "key 1" for paramChanged(), "group 1" for groupChanged().
class HeardClicks
{
public:
    explicit HeardClicks(const DependentWidgetsBox &box)
    {
        QObject::connect(&box, &DependentWidgetsBox::paramChanged, &m_context,
                         [this](const QString &key, bool checked) { m_heard << key + (checked ? " 1" : " 0"); });
        QObject::connect(&box, &DependentWidgetsBox::groupChanged, &m_context,
                         [this](bool checked) { m_heard << (checked ? "group 1" : "group 0"); });
    }
    Q_DISABLE_COPY(HeardClicks)
    QStringList take() { return std::exchange(m_heard, {}); }

private:
    QObject m_context;
    QStringList m_heard;
};

/// A layout item that tells when it is deleted.
class ObservedItem : public QWidgetItem
{
public:
    ObservedItem(QWidget *widget, int *deletions)
        : QWidgetItem(widget)
        , m_deletions(deletions)
    {}
    ~ObservedItem() override { ++*m_deletions; }

private:
    int *m_deletions;
};

bool show(DependentWidgetsBox &box)
{
    box.show();
    return QTest::qWaitForWindowExposed(&box);
}
} // namespace

void TestDependentWidgetsBox::constants()
{
    QCOMPARE(dependent_widget::CHECKED_KEY, QString("checked"));
    QCOMPARE(dependent_widget::BUTTON_STYLESHEET,
             QString("color: #7B7B7B; font-size: 12px; font-style: normal; font-weight: 500;"));
    QCOMPARE(dependent_widget::ICON_SIZE, QSize(24, 24));
    static_assert(std::is_same_v<decltype(GroupInfo::params), QHash<QString, std::pair<QString, int>>>);
    static_assert(std::is_aggregate_v<GroupInfo>);
}

void TestDependentWidgetsBox::metaObjectHasTheFourMethods()
{
    const QMetaObject &meta = DependentWidgetsBox::staticMetaObject;
    QCOMPARE(meta.className(), "DependentWidgetsBox");
    QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 4);

    const QMetaMethod changed = meta.method(meta.methodOffset());
    QCOMPARE(changed.methodSignature(), QByteArray("paramChanged(QString,bool)"));
    QCOMPARE(changed.methodType(), QMetaMethod::Signal);
    QCOMPARE(changed.parameterNames(), QList<QByteArray>({"", "checked"}));

    const QMetaMethod groupChanged = meta.method(meta.methodOffset() + 1);
    QCOMPARE(groupChanged.methodSignature(), QByteArray("groupChanged(bool)"));
    QCOMPARE(groupChanged.methodType(), QMetaMethod::Signal);
    QCOMPARE(groupChanged.parameterNames(), QList<QByteArray>({"checked"}));

    const QMetaMethod innerClicked = meta.method(meta.methodOffset() + 2);
    QCOMPARE(innerClicked.methodSignature(), QByteArray("onInnerCheckBoxClicked(bool)"));
    QCOMPARE(innerClicked.methodType(), QMetaMethod::Slot);
    QCOMPARE(innerClicked.access(), QMetaMethod::Private);

    const QMetaMethod groupClicked = meta.method(meta.methodOffset() + 3);
    QCOMPARE(groupClicked.methodSignature(), QByteArray("onGroupCheckBoxClicked(bool)"));
    QCOMPARE(groupClicked.methodType(), QMetaMethod::Slot);
    QCOMPARE(groupClicked.access(), QMetaMethod::Private);
}

void TestDependentWidgetsBox::formHoldsItsMembers_data()
{
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QStringList>("members");
    QTest::newRow("box") << "DependentWidgetsBox"
                         << QStringList({"QVBoxLayout verticalLayout", "QWidget widget", "QWidget contentWidgets"});
    QTest::newRow("head") << "widget"
                          << QStringList({"QHBoxLayout horizontalLayout_2", "QCheckBox cbGroup", "QLabel lbIcon",
                                          "QLabel lbName"});
    QTest::newRow("content") << "contentWidgets" << QStringList({"QVBoxLayout verticalLayout_2", "QFrame frame"});
    QTest::newRow("column") << "frame" << QStringList("QVBoxLayout horizontalLayout_3");
}

void TestDependentWidgetsBox::formHoldsItsMembers()
{
    QFETCH(QString, parent);
    QWidget page;
    const DependentWidgetsBox box(&page);
    QStringList members;
    for (const QObject *member : page.findChild<QWidget *>(parent)->children())
        members << member->metaObject()->className() + QString(" ") + member->objectName();
    QTEST(members, "members");
}

void TestDependentWidgetsBox::layoutsHoldTheirItemsInOrder_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QStringList>("items");
    QTest::newRow("box") << "verticalLayout" << QStringList({"widget", "contentWidgets"});
    QTest::newRow("head") << "horizontalLayout_2" << QStringList({"cbGroup", "lbIcon", "lbName", "spacer"});
    QTest::newRow("content") << "verticalLayout_2" << QStringList({"frame", "spacer"});
    QTest::newRow("column") << "horizontalLayout_3" << QStringList();
}

void TestDependentWidgetsBox::layoutsHoldTheirItemsInOrder()
{
    QFETCH(QString, layout);
    const DependentWidgetsBox box(nullptr);
    const auto *owner = box.findChild<QBoxLayout *>(layout);
    QStringList items;
    for (int index = 0; index < owner->count(); ++index) {
        const QWidget *widget = owner->itemAt(index)->widget();
        items << (widget ? widget->objectName() : QString("spacer"));
        QCOMPARE(owner->itemAt(index)->alignment(), Qt::Alignment());
        QCOMPARE(owner->stretch(index), 0);
    }
    QTEST(items, "items");
}

void TestDependentWidgetsBox::boxItself()
{
    QWidget page;
    const DependentWidgetsBox top(nullptr);
    const DependentWidgetsBox inside(&page);
    QCOMPARE(inside.parentWidget(), &page);
    for (const DependentWidgetsBox *box : {&top, &inside}) {
        QCOMPARE(box->objectName(), QString("DependentWidgetsBox"));
        QCOMPARE(box->size(), QSize(700, 408));
        QCOMPARE(box->minimumSize(), QSize(700, 0));
        QCOMPARE(box->windowTitle(), QString("Form"));
        QCOMPARE(box->layout()->objectName(), QString("verticalLayout"));
    }
}

void TestDependentWidgetsBox::layoutMargins()
{
    const DependentWidgetsBox box(nullptr);
    QCOMPARE(box.layout()->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(box.layout()->spacing(), 0);
    QCOMPARE(box.findChild<QBoxLayout *>("verticalLayout_2")->contentsMargins(), QMargins(10, 0, 0, 0));

    QWidget page;
    QWidget plain(&page);
    const QHBoxLayout styledRow(&plain);
    const auto *head = box.findChild<QBoxLayout *>("horizontalLayout_2");
    QCOMPARE(head->contentsMargins(), styledRow.contentsMargins());
    QCOMPARE(head->spacing(), styledRow.spacing());
}

void TestDependentWidgetsBox::sizePolicies()
{
    const DependentWidgetsBox box(nullptr);
    QCOMPARE(box.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(box.sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
    const QSizePolicy head = box.findChild<QWidget *>("widget")->sizePolicy();
    QCOMPARE(head.horizontalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(head.verticalPolicy(), QSizePolicy::Fixed);
}

void TestDependentWidgetsBox::spacers()
{
    const DependentWidgetsBox box(nullptr);
    const QSpacerItem *horizontal = box.findChild<QLayout *>("horizontalLayout_2")->itemAt(3)->spacerItem();
    QCOMPARE(horizontal->sizeHint(), QSize(40, 20));
    QCOMPARE(horizontal->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(horizontal->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);

    const QSpacerItem *vertical = box.findChild<QLayout *>("verticalLayout_2")->itemAt(1)->spacerItem();
    QCOMPARE(vertical->sizeHint(), QSize(20, 40));
    QCOMPARE(vertical->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(vertical->sizePolicy().verticalPolicy(), QSizePolicy::MinimumExpanding);
}

void TestDependentWidgetsBox::groupCheckBox()
{
    const DependentWidgetsBox box(nullptr);
    QVERIFY(groupBox(box)->isTristate());
    QCOMPARE(groupBox(box)->checkState(), Qt::Unchecked);
    QCOMPARE(groupBox(box)->text(), QString(""));
    QCOMPARE(groupBox(box)->styleSheet(), QString(""));
}

void TestDependentWidgetsBox::header()
{
    const DependentWidgetsBox box(nullptr);
    QCOMPARE(box.findChild<QWidget *>("widget")->styleSheet(), QString("color: #7B7B7B;"));
    QCOMPARE(box.findChild<QLabel *>("lbIcon")->text(), QString(""));
    QVERIFY(iconPixmap(box).isNull());
    const auto *title = box.findChild<QLabel *>("lbName");
    QCOMPARE(title->text(), QString("Название группы"));
    QCOMPARE(title->styleSheet(), QString("color: #7B7B7B; font-size: 12px; font-style: normal; font-weight: 500;"));
}

void TestDependentWidgetsBox::frameOfTheColumn()
{
    const DependentWidgetsBox box(nullptr);
    QCOMPARE(frame(box)->frameShape(), QFrame::NoFrame);
    QCOMPARE(frame(box)->frameShadow(), QFrame::Raised);
}

void TestDependentWidgetsBox::formIsTranslated()
{
    const InstalledTranslation english(
        {{"DependentWidgetsBox", "Form", "A form"}, {"DependentWidgetsBox", "Название группы", "Group name"}});
    const DependentWidgetsBox box(nullptr);
    QCOMPARE(box.windowTitle(), QString("A form"));
    QCOMPARE(box.findChild<QLabel *>("lbName")->text(), QString("Group name"));
}

void TestDependentWidgetsBox::dyingWithTheParent()
{
    auto *page = new QWidget;
    const QPointer<DependentWidgetsBox> box = new DependentWidgetsBox(page);
    setFlags(*box, {{"a", true}});
    const QPointer<QCheckBox> flag = inner(*box, "a");
    QVERIFY(flag);
    delete page;
    QVERIFY(!box);
    QVERIFY(!flag);
}

void TestDependentWidgetsBox::descriptionStandsAtTheGroupBox()
{
    DependentWidgetsBox box(nullptr);
    box.setDescription("Включить");
    QCOMPARE(groupBox(box)->text(), QString("Включить"));
    setFlags(box, {{"a", true}});
    QCOMPARE(groupBox(box)->text(), QString("Включить"));
}

void TestDependentWidgetsBox::titleAndCaptionsAreTranslatedInTheCallersContext()
{
    const InstalledTranslation english({{"Хозяин", "Доступ", "Access"},
                                        {"Хозяин", "Чтение", "Read"},
                                        {"Хозяин", "Запись", "Write"},
                                        {"DependentWidgetsBox", "Удаление", "Delete"}});
    DependentWidgetsBox box(nullptr);
    box.setData("Хозяин", threeFlags, {{"a", true}, {"b", true}, {"c", true}});
    QCOMPARE(box.findChild<QLabel *>("lbName")->text(), QString("Access"));
    QCOMPARE(inner(box, "a")->text(), QString("Read"));
    QCOMPARE(inner(box, "b")->text(), QString("Write"));
    QCOMPARE(inner(box, "c")->text(), QString("Удаление"));

    box.setData("Host", threeFlags, {{"a", true}});
    QCOMPARE(box.findChild<QLabel *>("lbName")->text(), QString("Доступ"));
    QCOMPARE(inner(box, "a")->text(), QString("Чтение"));
}

void TestDependentWidgetsBox::iconIsBlackOnTwentyFourPixels()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {});
    const QPixmap pixmap = iconPixmap(box);
    QCOMPARE(pixmap.size(), QSize(24, 24));

    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(image, VXIconHelper::pixmap(QIcon::fromTheme("common-db"), {24, 24}, Qt::black)
                        .toImage()
                        .convertToFormat(QImage::Format_ARGB32));
    int opaque = 0;
    for (int y = 0; y < 24; ++y) {
        for (int x = 0; x < 24; ++x) {
            if (qAlpha(image.pixel(x, y)) < 255)
                continue;
            ++opaque;
            QCOMPARE(image.pixelColor(x, y), QColor(Qt::black));
        }
    }
    QVERIFY(opaque > 0);
}

void TestDependentWidgetsBox::missingIconIsTransparent()
{
    GroupInfo info = threeFlags;
    DependentWidgetsBox box(nullptr);
    setFlags(box, {});
    info.icon = "no-such-icon";
    box.setData("Host", info, {});
    const QPixmap pixmap = iconPixmap(box);
    QCOMPARE(pixmap.size(), QSize(24, 24));
    QImage transparent(24, 24, QImage::Format_ARGB32);
    transparent.fill(Qt::transparent);
    QCOMPARE(pixmap.toImage().convertToFormat(QImage::Format_ARGB32), transparent);
}

void TestDependentWidgetsBox::innerBoxesComeFromTheData()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", true}, {"b", false}});
    QCOMPARE(frame(box)->findChildren<QCheckBox *>().count(), 2);
    QVERIFY(inner(box, "a")->isChecked());
    QVERIFY(!inner(box, "b")->isChecked());
    QVERIFY(!inner(box, "c"));
}

void TestDependentWidgetsBox::innerBoxesAreDressedUp()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", true}});
    QCOMPARE(inner(box, "a")->metaObject()->className(), "QCheckBox");
    QCOMPARE(inner(box, "a")->parentWidget(), frame(box));
    QCOMPARE(inner(box, "a")->text(), QString("Чтение"));
    QCOMPARE(inner(box, "a")->styleSheet(),
             QString("color: #7B7B7B; font-size: 12px; font-style: normal; font-weight: 500;"));
    QVERIFY(!inner(box, "a")->isTristate());
}

void TestDependentWidgetsBox::membersThatMakeNoBox_data()
{
    QTest::addColumn<QJsonObject>("flags");
    QTest::newRow("no member") << QJsonObject();
    QTest::newRow("group flag") << QJsonObject{{"checked", true}};
    QTest::newRow("unknown flag") << QJsonObject{{"d", true}};
    QTest::newRow("other case") << QJsonObject{{"A", true}};
    QTest::newRow("blank behind") << QJsonObject{{"a ", true}};
    QTest::newRow("empty name") << QJsonObject{{"", true}};
    QTest::newRow("all of them") << QJsonObject{{"", true}, {"A", true}, {"checked", true}, {"d", true}};
}

void TestDependentWidgetsBox::membersThatMakeNoBox()
{
    QFETCH(QJsonObject, flags);
    GroupInfo info = threeFlags;
    info.params.insert("checked", {"Все", 3});
    DependentWidgetsBox box(nullptr);
    box.setData("Host", info, flags);
    QVERIFY(frame(box)->findChildren<QCheckBox *>().isEmpty());
    QCOMPARE(groupBox(box)->checkState(), Qt::Unchecked);
    QCOMPARE(box.getData(), QJsonObject({{"checked", false}}));
}

void TestDependentWidgetsBox::onlyATrueBooleanChecks_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<bool>("checked");
    QTest::newRow("true") << QJsonValue(true) << true;
    QTest::newRow("false") << QJsonValue(false) << false;
    QTest::newRow("number") << QJsonValue(1) << false;
    QTest::newRow("text") << QJsonValue("true") << false;
    QTest::newRow("null") << QJsonValue(QJsonValue::Null) << false;
    QTest::newRow("list") << QJsonValue(QJsonArray({true})) << false;
    QTest::newRow("object") << QJsonValue(QJsonObject({{"a", true}})) << false;
}

void TestDependentWidgetsBox::onlyATrueBooleanChecks()
{
    QFETCH(QJsonValue, value);
    QFETCH(bool, checked);
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", value}});
    QCOMPARE(inner(box, "a")->isChecked(), checked);
    QCOMPARE(groupBox(box)->checkState(), checked ? Qt::Checked : Qt::Unchecked);
    QCOMPARE(box.getData(), QJsonObject({{"a", checked}, {"checked", checked}}));
}

void TestDependentWidgetsBox::columnFollowsThePositions_data()
{
    QTest::addColumn<QVector<int>>("positions");
    QTest::addColumn<QStringList>("order");
    QTest::newRow("as the names") << QVector<int>{0, 1, 2} << QStringList({"a", "b", "c"});
    QTest::newRow("backwards") << QVector<int>{2, 1, 0} << QStringList({"c", "b", "a"});
    QTest::newRow("first one last") << QVector<int>{2, 0, 1} << QStringList({"b", "c", "a"});
    QTest::newRow("last one first") << QVector<int>{1, 2, 0} << QStringList({"c", "a", "b"});
}

void TestDependentWidgetsBox::columnFollowsThePositions()
{
    QFETCH(QVector<int>, positions);
    const GroupInfo info = {
        "", "", {{"a", {"A", positions[0]}}, {"b", {"B", positions[1]}}, {"c", {"C", positions[2]}}}};
    DependentWidgetsBox box(nullptr);
    box.setData("Host", info, {{"a", true}, {"b", false}, {"c", true}});
    QTEST(column(box), "order");

    QVERIFY(show(box));
    const QStringList order = column(box);
    QTRY_VERIFY(inner(box, order[0])->y() < inner(box, order[1])->y());
    QTRY_VERIFY(inner(box, order[1])->y() < inner(box, order[2])->y());
}

void TestDependentWidgetsBox::equalPositionsLoseNoBox()
{
    const GroupInfo info = {"", "", {{"a", {"A", 0}}, {"b", {"B", 0}}, {"c", {"C", 0}}}};
    DependentWidgetsBox box(nullptr);
    box.setData("Host", info, {{"a", true}, {"b", false}, {"c", true}});
    QStringList names = column(box);
    names.sort();
    QCOMPARE(names, QStringList({"a", "b", "c"}));
}

void TestDependentWidgetsBox::stateFollowsFromTheInnerBoxes_data()
{
    QTest::addColumn<QJsonObject>("flags");
    QTest::addColumn<Qt::CheckState>("state");
    QTest::addColumn<bool>("checked");
    const auto flags = [](bool a, bool b, bool c, bool group) {
        return QJsonObject{{"a", a}, {"b", b}, {"c", c}, {"checked", group}};
    };
    QTest::newRow("none") << flags(false, false, false, true) << Qt::Unchecked << false;
    QTest::newRow("one") << flags(false, true, false, false) << Qt::PartiallyChecked << true;
    QTest::newRow("two of three") << flags(true, false, true, false) << Qt::PartiallyChecked << true;
    QTest::newRow("all") << flags(true, true, true, false) << Qt::Checked << true;
    QTest::newRow("the only one") << QJsonObject{{"a", true}} << Qt::Checked << true;
    QTest::newRow("only the group flag") << QJsonObject{{"checked", true}} << Qt::Unchecked << false;
    QTest::newRow("unknown flags do not count") << QJsonObject{{"a", true}, {"d", false}} << Qt::Checked << true;
}

void TestDependentWidgetsBox::stateFollowsFromTheInnerBoxes()
{
    QFETCH(QJsonObject, flags);
    DependentWidgetsBox box(nullptr);
    setFlags(box, flags);
    QTEST(groupBox(box)->checkState(), "state");
    QTEST(box.getData().value("checked").toBool(), "checked");
}

void TestDependentWidgetsBox::secondDataReplaceTheFirst()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", true}, {"b", true}});
    const QPointer<QCheckBox> old = inner(box, "a");
    const GroupInfo other = {"Другое", "", {{"a", {"Новый", 1}}, {"x", {"Икс", 0}}}};
    box.setData("Host", other, {{"a", false}, {"x", true}});

    QVERIFY(!old);
    QCOMPARE(column(box), QStringList({"x", "a"}));
    QCOMPARE(frame(box)->findChildren<QCheckBox *>().count(), 2);
    QCOMPARE(inner(box, "a")->text(), QString("Новый"));
    QCOMPARE(groupBox(box)->checkState(), Qt::PartiallyChecked);
    QCOMPARE(box.findChild<QLabel *>("lbName")->text(), QString("Другое"));
    QCOMPARE(box.getData(), QJsonObject({{"a", false}, {"checked", true}, {"x", true}}));
}

void TestDependentWidgetsBox::dataWithoutFlagsEmptyTheBox()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", true}, {"b", true}});
    setFlags(box, {});
    QCOMPARE(column(box), QStringList());
    QVERIFY(frame(box)->findChildren<QCheckBox *>().isEmpty());
    QCOMPARE(groupBox(box)->checkState(), Qt::Unchecked);
}

void TestDependentWidgetsBox::settingDataIsSilent()
{
    DependentWidgetsBox box(nullptr);
    HeardClicks heard(box);
    QSignalSpy groupStates(groupBox(box), &QCheckBox::stateChanged);
    setFlags(box, {{"a", true}, {"b", true}});
    setFlags(box, {{"a", true}, {"b", false}});
    setFlags(box, {});
    QCOMPARE(heard.take(), QStringList());
    QCOMPARE(groupStates.count(), 0);
}

void TestDependentWidgetsBox::dataOfAFreshBox()
{
    const DependentWidgetsBox box(nullptr);
    QCOMPARE(box.getData(), QJsonObject({{"checked", false}}));
}

void TestDependentWidgetsBox::dataFollowTheBoxes()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", true}, {"b", false}, {"c", true}});
    QCOMPARE(box.getData(), QJsonObject({{"a", true}, {"b", false}, {"c", true}, {"checked", true}}));

    inner(box, "a")->setChecked(false);
    groupBox(box)->setCheckState(Qt::Unchecked);
    QCOMPARE(box.getData(), QJsonObject({{"a", false}, {"b", false}, {"c", true}, {"checked", false}}));
    groupBox(box)->setCheckState(Qt::PartiallyChecked);
    QCOMPARE(box.getData().value("checked"), QJsonValue(true));
}

void TestDependentWidgetsBox::dataIncludeNestedCheckBoxes()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", false}});
    QCheckBox nested(new QWidget(frame(box)));
    nested.setObjectName("nested");
    nested.setChecked(true);
    QCOMPARE(box.getData(), QJsonObject({{"a", false}, {"checked", false}, {"nested", true}}));
}

void TestDependentWidgetsBox::groupStateFromCounts_data()
{
    QTest::addColumn<int>("total");
    QTest::addColumn<int>("checked");
    QTest::addColumn<Qt::CheckState>("state");
    QTest::newRow("none of none") << 0 << 0 << Qt::Unchecked;
    QTest::newRow("none") << 3 << 0 << Qt::Unchecked;
    QTest::newRow("one") << 3 << 1 << Qt::PartiallyChecked;
    QTest::newRow("all but one") << 3 << 2 << Qt::PartiallyChecked;
    QTest::newRow("all") << 3 << 3 << Qt::Checked;
    QTest::newRow("the only one") << 1 << 1 << Qt::Checked;
    QTest::newRow("more than there are") << 3 << 4 << Qt::PartiallyChecked;
}

void TestDependentWidgetsBox::groupStateFromCounts()
{
    QFETCH(int, total);
    QFETCH(int, checked);
    for (const Qt::CheckState before : {Qt::Unchecked, Qt::PartiallyChecked, Qt::Checked}) {
        DependentWidgetsBox box(nullptr);
        groupBox(box)->setCheckState(before);
        box.setGroupCheckBoxState(total, checked);
        QTEST(groupBox(box)->checkState(), "state");
        QVERIFY(groupBox(box)->isTristate());
    }
}

void TestDependentWidgetsBox::groupStateIsSetSilently()
{
    DependentWidgetsBox box(nullptr);
    QSignalSpy states(groupBox(box), &QCheckBox::stateChanged);
    QSignalSpy toggles(groupBox(box), &QCheckBox::toggled);
    box.setGroupCheckBoxState(3, 1);
    box.setGroupCheckBoxState(3, 3);
    box.setGroupCheckBoxState(3, 0);
    QCOMPARE(states.count(), 0);
    QCOMPARE(toggles.count(), 0);
    QVERIFY(!groupBox(box)->signalsBlocked());
}

void TestDependentWidgetsBox::innerClick_data()
{
    QTest::addColumn<QJsonObject>("flags");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("heard");
    QTest::addColumn<Qt::CheckState>("state");
    const auto flags = [](bool a, bool b, bool c) { return QJsonObject{{"a", a}, {"b", b}, {"c", c}}; };
    QTest::newRow("first one on") << flags(false, false, false) << "a"
                                  << "a 1" << Qt::PartiallyChecked;
    QTest::newRow("last one on") << flags(true, false, true) << "b"
                                 << "b 1" << Qt::Checked;
    QTest::newRow("first one off") << flags(true, true, true) << "c"
                                   << "c 0" << Qt::PartiallyChecked;
    QTest::newRow("last one off") << flags(false, true, false) << "b"
                                  << "b 0" << Qt::Unchecked;
}

void TestDependentWidgetsBox::innerClick()
{
    QFETCH(QJsonObject, flags);
    QFETCH(QString, key);
    QFETCH(QString, heard);
    DependentWidgetsBox box(nullptr);
    setFlags(box, flags);
    QVERIFY(show(box));
    HeardClicks clicks(box);
    QSignalSpy groupStates(groupBox(box), &QCheckBox::stateChanged);

    click(inner(box, key));
    QCOMPARE(clicks.take(), QStringList(heard));
    QTEST(groupBox(box)->checkState(), "state");
    QCOMPARE(groupStates.count(), 0);
    flags[key] = !flags[key].toBool();
    flags["checked"] = groupBox(box)->checkState() != Qt::Unchecked;
    QCOMPARE(box.getData(), flags);
}

void TestDependentWidgetsBox::innerClickUpdatesTheGroupFirst()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", false}, {"b", true}});
    QVERIFY(show(box));
    Qt::CheckState meanwhile = Qt::Unchecked;
    connect(&box, &DependentWidgetsBox::paramChanged, this, [&] { meanwhile = groupBox(box)->checkState(); });
    click(inner(box, "a"));
    QCOMPARE(meanwhile, Qt::Checked);
}

void TestDependentWidgetsBox::innerChangeByProgramIsNoClick()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", false}, {"b", true}});
    HeardClicks heard(box);
    inner(box, "a")->setChecked(true);
    QCOMPARE(heard.take(), QStringList());
    QCOMPARE(groupBox(box)->checkState(), Qt::PartiallyChecked);
}

void TestDependentWidgetsBox::groupClick_data()
{
    QTest::addColumn<QJsonObject>("before");
    QTest::addColumn<QString>("heard");
    QTest::addColumn<bool>("after");
    QTest::newRow("none on") << QJsonObject{{"a", false}, {"b", false}} << "group 1" << true;
    QTest::newRow("some on") << QJsonObject{{"a", true}, {"b", false}} << "group 1" << true;
    QTest::newRow("all on") << QJsonObject{{"a", true}, {"b", true}} << "group 0" << false;
}

void TestDependentWidgetsBox::groupClick()
{
    QFETCH(QJsonObject, before);
    QFETCH(QString, heard);
    QFETCH(bool, after);
    DependentWidgetsBox box(nullptr);
    setFlags(box, before);
    QVERIFY(show(box));
    HeardClicks clicks(box);

    click(groupBox(box));
    QCOMPARE(clicks.take(), QStringList(heard));
    QCOMPARE(groupBox(box)->checkState(), after ? Qt::Checked : Qt::Unchecked);
    QVERIFY(groupBox(box)->isTristate());
    QCOMPARE(box.getData(), QJsonObject({{"a", after}, {"b", after}, {"checked", after}}));

    click(groupBox(box));
    QCOMPARE(clicks.take(), QStringList(after ? "group 0" : "group 1"));
    QCOMPARE(box.getData(), QJsonObject({{"a", !after}, {"b", !after}, {"checked", !after}}));
}

void TestDependentWidgetsBox::groupClickSetsTheInnerBoxesFirst()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", false}, {"b", true}});
    QVERIFY(show(box));
    QJsonObject meanwhile;
    connect(&box, &DependentWidgetsBox::groupChanged, this, [&] { meanwhile = box.getData(); });
    click(groupBox(box));
    QCOMPARE(meanwhile, QJsonObject({{"a", true}, {"b", true}, {"checked", true}}));
}

/// The click itself takes an unchecked three-state box to the partial state.
void TestDependentWidgetsBox::groupClickLeavesThePartialStateLast()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", false}});
    QVERIFY(show(box));
    QSignalSpy states(groupBox(box), &QCheckBox::stateChanged);
    Qt::CheckState meanwhile = Qt::Unchecked;
    connect(&box, &DependentWidgetsBox::groupChanged, this, [&] { meanwhile = groupBox(box)->checkState(); });
    click(groupBox(box));
    QCOMPARE(meanwhile, Qt::PartiallyChecked);
    QCOMPARE(groupBox(box)->checkState(), Qt::Checked);
    QCOMPARE(states.count(), 1);
    QCOMPARE(states.at(0).at(0).toInt(), int(Qt::PartiallyChecked));
}

void TestDependentWidgetsBox::groupClickIsSilentForTheInnerBoxes()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", false}, {"b", false}});
    QVERIFY(show(box));
    QSignalSpy toggles(inner(box, "a"), &QCheckBox::toggled);
    QSignalSpy states(inner(box, "b"), &QCheckBox::stateChanged);
    click(groupBox(box));
    QVERIFY(inner(box, "a")->isChecked());
    QCOMPARE(toggles.count(), 0);
    QCOMPARE(states.count(), 0);
    QVERIFY(!inner(box, "a")->signalsBlocked());
    QVERIFY(!groupBox(box)->signalsBlocked());
}

void TestDependentWidgetsBox::groupClickWithoutInnerBoxes()
{
    DependentWidgetsBox box(nullptr);
    QVERIFY(show(box));
    HeardClicks heard(box);
    click(groupBox(box));
    QCOMPARE(heard.take(), QStringList("group 1"));
    QCOMPARE(box.getData(), QJsonObject({{"checked", true}}));
}

void TestDependentWidgetsBox::groupClickReachesNestedCheckBoxes()
{
    DependentWidgetsBox box(nullptr);
    QCheckBox nested(new QWidget(frame(box)));
    QVERIFY(show(box));
    click(groupBox(box));
    QVERIFY(nested.isChecked());
}

void TestDependentWidgetsBox::clicksWithTheKeyboard()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", false}, {"b", false}});
    QVERIFY(show(box));
    HeardClicks heard(box);
    QTest::keyClick(inner(box, "a"), Qt::Key_Space);
    QTest::keyClick(groupBox(box), Qt::Key_Space);
    QTest::keyClick(inner(box, "b"), Qt::Key_Space);
    QCOMPARE(heard.take(), QStringList({"a 1", "group 1", "b 0"}));
    QCOMPARE(groupBox(box)->checkState(), Qt::PartiallyChecked);
}

void TestDependentWidgetsBox::clicksAfterSecondDataComeOnce()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", false}, {"b", false}});
    setFlags(box, {{"a", false}, {"b", false}});
    QVERIFY(show(box));
    HeardClicks heard(box);
    click(inner(box, "a"));
    click(groupBox(box));
    QCOMPARE(heard.take(), QStringList({"a 1", "group 1"}));
}

void TestDependentWidgetsBox::handlerMaySetOtherData()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", false}, {"b", false}});
    QVERIFY(show(box));
    connect(&box, &DependentWidgetsBox::paramChanged, this, [&] { setFlags(box, {{"c", true}}); });
    HeardClicks heard(box);
    click(inner(box, "a"));
    QCOMPARE(heard.take(), QStringList("a 1"));
    QCOMPARE(box.getData(), QJsonObject({{"c", true}, {"checked", true}}));
}

void TestDependentWidgetsBox::callWithoutAClickOnlyUpdatesTheGroup()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", false}, {"b", false}});
    inner(box, "a")->setChecked(true);
    HeardClicks heard(box);
    QVERIFY(QMetaObject::invokeMethod(&box, "onInnerCheckBoxClicked", Q_ARG(bool, true)));
    QCOMPARE(groupBox(box)->checkState(), Qt::PartiallyChecked);
    QCOMPARE(heard.take(), QStringList());
}

void TestDependentWidgetsBox::clearDataEmptiesNestedLayouts()
{
    DependentWidgetsBox box(nullptr);
    groupBox(box)->setCheckState(Qt::Checked);
    QWidget page;
    QVBoxLayout outer(&page);
    QHBoxLayout nested;
    QVBoxLayout deep;
    int deletions = 0;
    const QPointer<QWidget> first = new QWidget(&page);
    const QPointer<QWidget> second = new QWidget(&page);
    const QPointer<QWidget> third = new QWidget(&page);
    ObservedItem items[] = {{first, &deletions}, {second, &deletions}, {third, &deletions}};
    QSpacerItem spacer(1, 1);
    outer.addItem(&items[0]);
    outer.addLayout(&nested);
    outer.addItem(&spacer);
    nested.addItem(&items[1]);
    nested.addLayout(&deep);
    deep.addItem(&items[2]);

    box.clearData(&outer);
    QCOMPARE(outer.count(), 0);
    QCOMPARE(nested.count(), 0);
    QCOMPARE(deep.count(), 0);
    QVERIFY(!first);
    QVERIFY(!second);
    QVERIFY(!third);
    QCOMPARE(groupBox(box)->checkState(), Qt::Unchecked);
}

void TestDependentWidgetsBox::clearDataKeepsItemsAndLayouts()
{
    DependentWidgetsBox box(nullptr);
    QWidget page;
    auto *outer = new QVBoxLayout(&page);
    int deletions = 0;
    auto *item = new ObservedItem(new QWidget(&page), &deletions);
    const QPointer<QLayout> nested = new QHBoxLayout;
    outer->addItem(item);
    outer->addLayout(static_cast<QHBoxLayout *>(nested.data()));

    box.clearData(outer);
    QCOMPARE(deletions, 0);
    QVERIFY(nested);
    QVERIFY(page.layout());
    delete item;
    delete nested;
}

void TestDependentWidgetsBox::clearDataOfTheColumn()
{
    DependentWidgetsBox box(nullptr);
    setFlags(box, {{"a", true}, {"b", true}});
    box.clearData(frame(box)->layout());
    QCOMPARE(box.getData(), QJsonObject({{"checked", false}}));
    QCOMPARE(box.findChild<QLabel *>("lbName")->text(), QString("Доступ"));

    setFlags(box, {{"c", true}});
    QCOMPARE(column(box), QStringList("c"));
}

void TestDependentWidgetsBox::clearDataIsSilent()
{
    DependentWidgetsBox box(nullptr);
    groupBox(box)->setCheckState(Qt::Checked);
    QSignalSpy states(groupBox(box), &QCheckBox::stateChanged);
    HeardClicks heard(box);
    QVBoxLayout empty;
    box.clearData(&empty);
    QCOMPARE(groupBox(box)->checkState(), Qt::Unchecked);
    QCOMPARE(states.count(), 0);
    QCOMPARE(heard.take(), QStringList());
    QVERIFY(!groupBox(box)->signalsBlocked());
}

QTEST_MAIN(TestDependentWidgetsBox)
#include "tst_dependentwidgetsbox.moc"
