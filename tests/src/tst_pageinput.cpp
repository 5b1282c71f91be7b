#include "installation.h"
#include "loggingrules.h"
#include "messages.h"
#include "pageinspection.h"

#include <vxwidgets/vxobjectselector.h>

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOption>
#include <QToolButton>
#include <QTreeView>
#include <QWheelEvent>

using namespace db::database;
using installation::Page;
using vantorix::OBJECT_PARAMETERS;

namespace {

/// Key and mouse events need an active window.
bool showActive(QWidget &window)
{
    window.show();
    QApplication::setActiveWindow(&window);
    return QTest::qWaitForWindowActive(&window);
}

/// Turns the wheel as a user does; only then does it go on to the widgets around.
void turnWheel(QWidget *widget, int delta)
{
    const QPointF centre = widget->rect().center();
    QWheelEvent event(centre, widget->mapToGlobal(centre.toPoint()), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QApplication::instance()->notify(widget, &event);
}

/// A page in a scroll area that shows little of it.
struct ScrolledPage
{
    explicit ScrolledPage(int group)
        : tree(DBSettingsGroupFactory::create(DBGroups(group), &area, nullptr))
    {
        area.setWidget(tree->widget().get());
        area.widget()->setMinimumHeight(2000);
        area.setWidgetResizable(true);
        area.resize(900, 300);
    }

    QScrollArea area;
    std::unique_ptr<DBSettings> tree;
};

/// The point of a check box that shows the tick.
QPoint indicatorOf(const QCheckBox *box)
{
    QStyleOptionButton option;
    option.initFrom(box);
    return box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box).center();
}

/// Clicks the row of a selector's open popup that shows @p name.
void clickRow(const VXObjectSelector *selector, const QString &name)
{
    auto *tree = qobject_cast<QTreeView *>(selector->view());
    const QAbstractItemModel *objects = tree->model();
    const Qt::MatchFlags anywhere = Qt::MatchExactly | Qt::MatchRecursive;
    const QModelIndexList rows = objects->match(objects->index(0, 0), Qt::DisplayRole, name, 1, anywhere);
    QCOMPARE(rows.count(), 1);
    for (QModelIndex parent = rows.first().parent(); parent.isValid(); parent = parent.parent())
        tree->expand(parent);
    const QPoint pos = tree->visualRect(rows.first()).center();
    QTest::mouseMove(tree->viewport(), pos);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, pos);
}
} // namespace

class TestPageInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void typingInASpinBox_data();
    void typingInASpinBox();
    void arrowKeysInASpinBox();
    void choosingInAComboBoxByKeys_data();
    void choosingInAComboBoxByKeys();
    void choosingInAComboBoxPopup();
    void escapingFromAComboBoxPopup();
    void togglingACheckBox_data();
    void togglingACheckBox();
    void typingInALine();
    void typingAPassword();
    void typingInAReadOnlyLine();
    void pastingManyLines();
    void choosingADepartmentByMouse();
    void choosingADepartmentByKeys();
    void choosingAProfileInThePopup();
    void disabledEditorsTakeNoInput();

    void commitsAfterBuildingAndAfterARevert_data();
    void commitsAfterBuildingAndAfterARevert();
    void revertAfterTyping();

    void foldingANestedGroup();
    void tabReachesEveryEditor_data();
    void tabReachesEveryEditor();
    void wheelChangesNothing_data();
    void wheelChangesNothing();
    void wheelScrollsThePage_data();
    void wheelScrollsThePage();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
    installation::Stored m_installation;
};

void TestPageInput::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestPageInput::typingInASpinBox_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("collected");

    QTest::newRow("one digit") << 1 << MAX_CARD_COUNT << "7"
                               << "7"
                               << "7";
    QTest::newRow("two digits") << 1 << MAX_CARD_COUNT << "12"
                                << "12"
                                << "12";
    QTest::newRow("digit that would lead too high") << 1 << MAX_CARD_COUNT << "99"
                                                    << "9"
                                                    << "9";
    QTest::newRow("letters are ignored") << 1 << MAX_CARD_COUNT << "1x2"
                                         << "12"
                                         << "12";
    QTest::newRow("sign is ignored") << 1 << MAX_CARD_COUNT << "-3"
                                     << "3"
                                     << "3";
    QTest::newRow("port") << 8 << MOBILE_PORT << "65535"
                          << "65535"
                          << "65535";
    QTest::newRow("port too high") << 8 << MOBILE_PORT << "65536"
                                   << "6553"
                                   << "6553";
    QTest::newRow("no limit") << 2 << USER_SESSION_TIMEOUT << "0"
                              << "Без ограничений"
                              << "0";
    QTest::newRow("below the minimum") << 6 << ENROLL_FACE_MIN_SIZE << "5"
                                       << "640"
                                       << "640";
}

void TestPageInput::typingInASpinBox()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    QFETCH(QString, typed);
    Page page(group);
    QVERIFY(showActive(page.window));
    auto *box = inspect::input<QSpinBox>(&page.window, key);
    box->setFocus();
    box->selectAll();

    QTest::keyClicks(box, typed);
    QTest::keyClick(box, Qt::Key_Return);
    QTEST(box->text(), "shown");
    QTEST(page.tree->parameters().value(key), "collected");
}

void TestPageInput::arrowKeysInASpinBox()
{
    Page page(1);
    QVERIFY(showActive(page.window));
    auto *box = inspect::input<QSpinBox>(&page.window, MAX_CARD_COUNT);
    box->setFocus();

    QTest::keyClick(box, Qt::Key_Up);
    QCOMPARE(page.root().paramValue(MAX_CARD_COUNT), QVariant(6));
    QTest::keyClick(box, Qt::Key_Down);
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(page.root().paramValue(MAX_CARD_COUNT), QVariant(4));
    QTest::keyClick(box, Qt::Key_PageDown);
    QCOMPARE(page.root().paramValue(MAX_CARD_COUNT), QVariant(1));
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(page.root().paramValue(MAX_CARD_COUNT), QVariant(1));
}

void TestPageInput::choosingInAComboBoxByKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("letter");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("up") << int(Qt::Key_Up) << ""
                        << "Шестнадцатеричный" << QVariant(1U);
    QTest::newRow("home") << int(Qt::Key_Home) << ""
                          << "Десятичный" << QVariant(0U);
    QTest::newRow("down at the end") << int(Qt::Key_Down) << ""
                                     << "Семейство-код" << QVariant(2U);
    QTest::newRow("first letter") << 0 << "Д"
                                  << "Десятичный" << QVariant(0U);
    QTest::newRow("letter of none") << 0 << "q"
                                    << "Семейство-код" << QVariant(2U);
}

void TestPageInput::choosingInAComboBoxByKeys()
{
    QFETCH(int, key);
    QFETCH(QString, letter);
    Page page(1);
    QVERIFY(showActive(page.window));
    auto *box = inspect::input<QComboBox>(&page.window, CARD_VIEW_FORMAT);
    box->setFocus();
    QCOMPARE(box->currentText(), QString("Семейство-код"));

    QTest::sendKeyEvent(QTest::Click, box, Qt::Key(key), letter, Qt::NoModifier);
    QTEST(box->currentText(), "shown");
    QTEST(page.root().paramValue(CARD_VIEW_FORMAT), "value");
}

void TestPageInput::choosingInAComboBoxPopup()
{
    Page page(3);
    QVERIFY(showActive(page.window));
    auto *box = inspect::input<QComboBox>(&page.window, ENROLL_MANUAL_CHECK_TEMPLATES_TYPE);
    QSignalSpy changed(inspect::editor(&page.window, ENROLL_MANUAL_CHECK_TEMPLATES_TYPE), &DBParamWidget::paramChanged);
    QTest::mouseClick(box, Qt::LeftButton);
    QTRY_VERIFY(box->view()->isVisible());

    QTest::keyClick(box->view(), Qt::Key_Up);
    QTest::keyClick(box->view(), Qt::Key_Up);
    QCOMPARE(changed.count(), 0);
    QTest::keyClick(box->view(), Qt::Key_Return);
    QTRY_VERIFY(!box->view()->isVisible());
    QCOMPARE(box->currentText(), QString("По предприятию"));
    QCOMPARE(page.tree->parameters().value(ENROLL_MANUAL_CHECK_TEMPLATES_TYPE), QString("2"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first(), QVariantList({ENROLL_MANUAL_CHECK_TEMPLATES_TYPE, 2U}));
}

void TestPageInput::escapingFromAComboBoxPopup()
{
    Page page(3);
    QVERIFY(showActive(page.window));
    auto *box = inspect::input<QComboBox>(&page.window, ENROLL_MANUAL_CHECK_TEMPLATES_TYPE);
    QTest::keyClick(box, Qt::Key_Down, Qt::AltModifier);
    QTRY_VERIFY(box->view()->isVisible());
    QTest::keyClick(box->view(), Qt::Key_Up);
    QTest::keyClick(box->view(), Qt::Key_Escape);
    QTRY_VERIFY(!box->view()->isVisible());
    QCOMPARE(page.root().paramValue(ENROLL_MANUAL_CHECK_TEMPLATES_TYPE), QVariant(4U));
}

void TestPageInput::togglingACheckBox_data()
{
    QTest::addColumn<bool>("byMouse");

    QTest::newRow("space") << false;
    QTest::newRow("mouse") << true;
}

void TestPageInput::togglingACheckBox()
{
    QFETCH(bool, byMouse);
    Page page(1);
    QVERIFY(showActive(page.window));
    auto *box = inspect::input<QCheckBox>(&page.window, json::DENY_EQUAL);
    QSignalSpy changed(inspect::editor(&page.window, json::DENY_EQUAL), &DBParamWidget::paramChanged);
    QSignalSpy committed(inspect::editor(&page.window, json::DENY_EQUAL), &DBParamWidget::commitData);
    const auto toggle = [&] {
        if (byMouse)
            QTest::mouseClick(box, Qt::LeftButton, {}, indicatorOf(box));
        else
            QTest::keyClick(box, Qt::Key_Space);
    };

    box->setFocus();
    toggle();
    QCOMPARE(page.root().paramValue(json::DENY_EQUAL), QVariant(true));
    QVERIFY(page.tree->parameters().value(PIN_STRENGTH).contains("\"deny_equal\": \"true\""));
    toggle();
    QCOMPARE(page.root().paramValue(json::DENY_EQUAL), QVariant(false));
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed.first(), QVariantList({"deny_equal", true}));
    QCOMPARE(changed.last(), QVariantList({"deny_equal", false}));
    QCOMPARE(committed.count(), 2);
}

void TestPageInput::typingInALine()
{
    Page page(8);
    QVERIFY(showActive(page.window));
    auto *line = inspect::input<QLineEdit>(&page.window, MOBILE_HOST);
    QSignalSpy changed(inspect::editor(&page.window, MOBILE_HOST), &DBParamWidget::paramChanged);
    QSignalSpy committed(inspect::editor(&page.window, MOBILE_HOST), &DBParamWidget::commitData);

    QTest::mouseClick(line, Qt::LeftButton);
    QVERIFY(line->hasFocus());
    QTest::keyClick(line, Qt::Key_End);
    QTest::keyClicks(line, ".org");
    QCOMPARE(page.tree->parameters().value(MOBILE_HOST), QString("mobile.example.org"));
    QCOMPARE(changed.count(), 4);
    QCOMPARE(changed.last(), QVariantList({"PT_MOBILE_HOST", "mobile.example.org"}));
    QCOMPARE(committed.count(), 4);
}

void TestPageInput::typingAPassword()
{
    Page page(8);
    QVERIFY(showActive(page.window));
    auto *line = inspect::input<QLineEdit>(&page.window, LOCKER_ACCESS_TOKEN);
    QSignalSpy changed(inspect::editor(&page.window, LOCKER_ACCESS_TOKEN), &DBParamWidget::paramChanged);
    line->setFocus();
    line->selectAll();
    QTest::keyClicks(line, "open");
    QCOMPARE(page.tree->parameters().value(LOCKER_ACCESS_TOKEN), QString("open"));
    QCOMPARE(changed.count(), 4);
    QCOMPARE(line->displayText().length(), 4);
    QVERIFY(!line->displayText().contains("o"));
}

void TestPageInput::typingInAReadOnlyLine()
{
    Page page(0);
    QVERIFY(showActive(page.window));
    auto *line = inspect::input<QLineEdit>(&page.window, VERSION);
    QSignalSpy changed(inspect::editor(&page.window, VERSION), &DBParamWidget::paramChanged);
    line->setFocus();
    QTest::keyClicks(line, "6");
    QTest::keyClick(line, Qt::Key_Delete);
    QTest::keyClick(line, Qt::Key_Backspace);
    QCOMPARE(line->text(), QString("5.12.3"));
    QCOMPARE(changed.count(), 0);
}

void TestPageInput::pastingManyLines()
{
    Page page(8);
    QVERIFY(showActive(page.window));
    auto *line = inspect::input<QLineEdit>(&page.window, MOBILE_HOST);
    QSignalSpy changed(inspect::editor(&page.window, MOBILE_HOST), &DBParamWidget::paramChanged);
    line->selectAll();
    line->insert("one\ntwo");
    QCOMPARE(changed.count(), 1);
    QCOMPARE(page.tree->parameters().value(MOBILE_HOST), changed.first().last().toString());
}

void TestPageInput::choosingADepartmentByMouse()
{
    Page page(7);
    QVERIFY(showActive(page.window));
    auto *selector = inspect::input<VXObjectSelector>(&page.window, DEFAULT_DEPARTMENT);
    QSignalSpy changed(inspect::editor(&page.window, DEFAULT_DEPARTMENT), &DBParamWidget::paramChanged);
    QSignalSpy committed(inspect::editor(&page.window, DEFAULT_DEPARTMENT), &DBParamWidget::commitData);
    QCOMPARE(selector->currentText(), QString("Отдел кадров"));

    QTest::mouseClick(selector, Qt::LeftButton);
    QTRY_VERIFY(selector->view()->isVisible());
    clickRow(selector, "Бухгалтерия");
    QTRY_VERIFY(!selector->view()->isVisible());
    QCOMPARE(page.tree->parameters().value(DEFAULT_DEPARTMENT), QString("43"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first(), QVariantList({"PT_DEFAULT_DEPARTMENT", 43U}));
    QCOMPARE(committed.count(), 1);
}

void TestPageInput::choosingADepartmentByKeys()
{
    Page page(7);
    QVERIFY(showActive(page.window));
    auto *selector = inspect::input<VXObjectSelector>(&page.window, DEFAULT_DEPARTMENT);
    selector->setFocus();
    QTest::keyClick(selector, Qt::Key_Down);
    QCOMPARE(page.root().paramValue(DEFAULT_DEPARTMENT), QVariant(43U));
    QTest::keyClick(selector, Qt::Key_Home);
    QCOMPARE(page.root().paramValue(DEFAULT_DEPARTMENT), QVariant(1U));
    QTest::keyClick(selector, Qt::Key_Up);
    QCOMPARE(page.root().paramValue(DEFAULT_DEPARTMENT), QVariant(1U));
    page.tree->setDefaultValue();
    QCOMPARE(page.root().paramValue(DEFAULT_DEPARTMENT), QVariant(42U));
}

void TestPageInput::choosingAProfileInThePopup()
{
    Page page(11);
    QVERIFY(showActive(page.window));
    auto *selector = inspect::input<VXObjectSelector>(&page.window, MOBILE_SMARTCARD_PROFILE_ID);
    selector->setFocus();
    QTest::keyClick(selector, Qt::Key_F4);
    QTRY_VERIFY(selector->view()->isVisible());
    QTest::keyClick(selector->view(), Qt::Key_Down);
    QCOMPARE(page.root().paramValue(MOBILE_SMARTCARD_PROFILE_ID), QVariant(6U));
    QTest::keyClick(selector->view(), Qt::Key_Return);
    QTRY_VERIFY(!selector->view()->isVisible());
    QCOMPARE(page.root().paramValue(MOBILE_SMARTCARD_PROFILE_ID), QVariant(42U));
}

void TestPageInput::disabledEditorsTakeNoInput()
{
    for (const installation::PageName &name : installation::pages) {
        Page page(name.group);
        QVERIFY(showActive(page.window));
        page.root().setParamEnabled(page.root().paramKeys(), false);
        const OBJECT_PARAMETERS before = page.tree->parameters();
        for (const DBParamWidget *editor : page.editors()) {
            QWidget *input = editor->centralWidget();
            QVERIFY2(!input->isEnabled(), qPrintable(editor->key()));
            QTest::mouseClick(input, Qt::LeftButton, {}, {8, input->height() / 2});
            input->setFocus();
            QVERIFY2(!input->hasFocus(), qPrintable(editor->key()));
        }
        QCOMPARE(page.tree->parameters(), before);
        QVERIFY(!QApplication::activePopupWidget());
    }
}

void TestPageInput::commitsAfterBuildingAndAfterARevert_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("inputKey");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("afterBuilding");
    QTest::addColumn<int>("afterRevert");

    // How often one change is committed, by the editor's history.
    QTest::newRow("spin box") << 1 << MAX_CARD_COUNT << int(Qt::Key_Up) << "" << 2 << 2;
    QTest::newRow("combo box") << 1 << CARD_VIEW_FORMAT << int(Qt::Key_Up) << "" << 2 << 1;
    QTest::newRow("check box") << 1 << json::DENY_EQUAL << int(Qt::Key_Space) << " " << 1 << 1;
    QTest::newRow("line edit") << 8 << MOBILE_HOST << int(Qt::Key_X) << "x" << 1 << 1;
    QTest::newRow("password") << 8 << LOCKER_ACCESS_TOKEN << int(Qt::Key_X) << "x" << 1 << 1;
    QTest::newRow("department") << 7 << DEFAULT_DEPARTMENT << int(Qt::Key_Up) << "" << 1 << 1;
    QTest::newRow("smart-card profile") << 11 << MOBILE_SMARTCARD_PROFILE_ID << int(Qt::Key_Up) << "" << 1 << 1;
}

void TestPageInput::commitsAfterBuildingAndAfterARevert()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    QFETCH(int, inputKey);
    QFETCH(QString, typed);
    Page page(group);
    QVERIFY(showActive(page.window));
    const DBParamWidget *editor = inspect::editor(&page.window, key);
    QSignalSpy changed(editor, &DBParamWidget::paramChanged);
    QSignalSpy committed(editor, &DBParamWidget::commitData);

    QTest::sendKeyEvent(QTest::Click, editor->centralWidget(), Qt::Key(inputKey), typed, Qt::NoModifier);
    QCOMPARE(changed.count(), 1);
    QTEST(int(committed.count()), "afterBuilding");

    page.tree->setDefaultValue();
    changed.clear();
    committed.clear();
    QTest::sendKeyEvent(QTest::Click, editor->centralWidget(), Qt::Key(inputKey), typed, Qt::NoModifier);
    QCOMPARE(changed.count(), 1);
    QTEST(int(committed.count()), "afterRevert");
}

void TestPageInput::revertAfterTyping()
{
    Page page(8);
    QVERIFY(showActive(page.window));
    const OBJECT_PARAMETERS original = page.tree->parameters();
    auto *host = inspect::input<QLineEdit>(&page.window, MOBILE_HOST);
    auto *port = inspect::input<QSpinBox>(&page.window, MOBILE_PORT);
    auto *token = inspect::input<QLineEdit>(&page.window, LOCKER_ACCESS_TOKEN);
    QTest::keyClicks(host, "x");
    port->selectAll();
    QTest::keyClicks(port, "1");
    QTest::keyClick(token, Qt::Key_Backspace);
    QCOMPARE(page.tree->parameters(), OBJECT_PARAMETERS({{"PT_MOBILE_HOST", "mobile.examplex"},
                                                         {"PT_MOBILE_PORT", "1"},
                                                         {"PT_LOCKER_ACCESS_TOKEN", "sesam"}}));

    page.tree->setDefaultValue();
    QCOMPARE(page.tree->parameters(), original);
    QCOMPARE(host->text(), QString("mobile.example"));
    QCOMPARE(port->text(), QString("8443"));
}

void TestPageInput::foldingANestedGroup()
{
    for (const int group : {1, 2, 5}) {
        Page page(group);
        QVERIFY(showActive(page.window));
        const OBJECT_PARAMETERS original = page.tree->parameters();
        const auto buttons = page.window.findChildren<QToolButton *>();
        QList<QToolButton *> foldingButtons;
        for (QToolButton *button : buttons) {
            if (button->isVisible() && inspect::enclosingFrame(button) != inspect::frame(*page.tree))
                foldingButtons << button;
        }
        QCOMPARE(foldingButtons.count(), 1);
        const VXSettingsGroupWidget *nested = inspect::enclosingFrame(foldingButtons.first());
        const DBParamWidget *member = nested->findChild<DBParamWidget *>();
        QVERIFY(member->isVisible());

        QTest::mouseClick(foldingButtons.first(), Qt::LeftButton);
        QCOMPARE(nested->isExpanded(), false);
        QVERIFY(!member->isVisible());
        QVERIFY(nested->isVisible());
        // What cannot be seen is collected all the same.
        QCOMPARE(page.tree->parameters(), original);
        QTest::mouseClick(foldingButtons.first(), Qt::LeftButton);
        QVERIFY(member->isVisible());
    }
}

void TestPageInput::tabReachesEveryEditor_data()
{
    installation::addPageRows();
}

void TestPageInput::tabReachesEveryEditor()
{
    QFETCH(int, group);
    Page page(group);
    QVERIFY(showActive(page.window));
    QSet<QString> unreached;
    for (const DBParamWidget *editor : page.editors())
        unreached.insert(editor->key());

    for (int presses = page.editors().count() + 5; presses > 0; --presses) {
        for (const QWidget *widget = QApplication::focusWidget(); widget; widget = widget->parentWidget()) {
            if (const auto *editor = qobject_cast<const DBParamWidget *>(widget))
                unreached.remove(editor->key());
        }
        QWidget *focused = QApplication::focusWidget();
        QTest::keyClick(focused ? focused : &page.window, Qt::Key_Tab);
    }
    QCOMPARE(unreached.values(), QStringList());
}

void TestPageInput::wheelChangesNothing_data()
{
    installation::addPageRows();
}

void TestPageInput::wheelChangesNothing()
{
    QFETCH(int, group);
    ScrolledPage page(group);
    QVERIFY(showActive(page.area));
    const OBJECT_PARAMETERS original = page.tree->parameters();
    const auto editors = page.area.findChildren<DBParamWidget *>();
    int signalCount = 0;
    for (DBParamWidget *editor : editors) {
        connect(editor, &DBParamWidget::paramChanged, this, [&] { ++signalCount; });
        connect(editor, &DBParamWidget::commitData, this, [&] { ++signalCount; });
    }

    for (const bool focused : {false, true}) {
        for (const DBParamWidget *editor : editors) {
            QWidget *input = editor->centralWidget();
            if (focused)
                input->setFocus();
            for (const int delta : {120, -120, 1200, -1200, 15}) {
                turnWheel(input, delta);
                for (QWidget *part : input->findChildren<QWidget *>()) {
                    if (part->isVisible())
                        turnWheel(part, delta);
                }
            }
            QVERIFY2(page.tree->parameters() == original, qPrintable(editor->key()));
        }
    }
    QCOMPARE(signalCount, 0);
}

void TestPageInput::wheelScrollsThePage_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");

    QTest::newRow("spin box") << 1 << MAX_CARD_COUNT;
    QTest::newRow("combo box") << 1 << CARD_VIEW_FORMAT;
    QTest::newRow("check box") << 1 << json::DENY_EQUAL;
    QTest::newRow("line edit") << 8 << MOBILE_HOST;
    QTest::newRow("password") << 8 << LOCKER_ACCESS_TOKEN;
    QTest::newRow("read-only") << 0 << VERSION;
    QTest::newRow("department") << 7 << DEFAULT_DEPARTMENT;
    QTest::newRow("smart-card profile") << 11 << MOBILE_SMARTCARD_PROFILE_ID;
}

void TestPageInput::wheelScrollsThePage()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    ScrolledPage page(group);
    QVERIFY(showActive(page.area));
    QWidget *input = inspect::editor(&page.area, key)->centralWidget();
    const QScrollBar *bar = page.area.verticalScrollBar();
    QVERIFY(bar->maximum() > 0);
    QCOMPARE(bar->value(), 0);

    turnWheel(input, -120);
    QVERIFY(bar->value() > 0);
}

QTEST_MAIN(TestPageInput)
#include "tst_pageinput.moc"
